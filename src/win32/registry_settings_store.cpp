#include "win32/registry_settings_store.hpp"

#include "win32/registry.hpp"

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

}  // namespace win32
