#include "win32/registry_settings_store.hpp"

#include "win32/com_errors.hpp"
#include "win32/registry.hpp"
#include "win32/wide.hpp"

namespace win32 {
namespace {

vb::Text SectionPath(const vb::Text& app, const vb::Text& section) {
  return u"Software\\VB and VBA Program Settings\\" + app + u"\\" + section;
}

}  // namespace

std::optional<vb::Text> RegistrySettingsStore::Get(const vb::Text& app, const vb::Text& section,
                                                   const vb::Text& key) {
  return RegKey::Open(HKEY_CURRENT_USER, SectionPath(app, section)).Text(key);
}

void RegistrySettingsStore::Save(const vb::Text& app, const vb::Text& section, const vb::Text& key,
                                 const vb::Text& text) {
  RegKey::Create(HKEY_CURRENT_USER, SectionPath(app, section)).SetText(key, text);
}

bool RegistrySettingsStore::Remove(const vb::Text& app, const vb::Text& section,
                                   const vb::Text& key) {
  const vb::Text path = SectionPath(app, section);
  const LSTATUS status = RegDeleteKeyValueW(HKEY_CURRENT_USER, Wide(path), Wide(key));
  if (status == ERROR_FILE_NOT_FOUND || status == ERROR_PATH_NOT_FOUND) return false;
  ThrowIfRegFailed(status, u"The registry value " + path + u"\\" + key + u" cannot be removed");
  return true;
}

}  // namespace win32
