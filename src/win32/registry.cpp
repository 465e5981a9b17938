#include "win32/registry.hpp"

#include <utility>

#include "vb/failure.hpp"
#include "win32/com_errors.hpp"
#include "win32/wide.hpp"

namespace win32 {

RegKey& RegKey::operator=(RegKey&& other) noexcept {
  if (this != &other) {
    if (key_) RegCloseKey(key_);
    key_ = std::exchange(other.key_, nullptr);
    path_ = std::move(other.path_);
  }
  return *this;
}

RegKey::~RegKey() {
  if (key_) RegCloseKey(key_);
}

RegKey RegKey::Create(HKEY root, const vb::Text& path) {
  HKEY key = nullptr;
  const LSTATUS status = RegCreateKeyExW(root, Wide(path), 0, nullptr, REG_OPTION_NON_VOLATILE,
                                         KEY_READ | KEY_WRITE, nullptr, &key, nullptr);
  ThrowIfRegFailed(status, u"The registry key " + path + u" cannot be written");
  return RegKey(key, path);
}

RegKey RegKey::Open(HKEY root, const vb::Text& path) {
  HKEY key = nullptr;
  const LSTATUS status = RegOpenKeyExW(root, Wide(path), 0, KEY_READ, &key);
  if (status == ERROR_FILE_NOT_FOUND || status == ERROR_PATH_NOT_FOUND) return RegKey();
  ThrowIfRegFailed(status, u"The registry key " + path + u" cannot be read");
  return RegKey(key, path);
}

void RegKey::SetText(const vb::Text& name, const vb::Text& value) {
  const auto bytes = static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t));
  const LSTATUS status = RegSetValueExW(key_, name.empty() ? nullptr : Wide(name), 0, REG_SZ,
                                        reinterpret_cast<const BYTE*>(Wide(value)), bytes);
  ThrowIfRegFailed(status, u"The registry value " + path_ + u"\\" + name + u" cannot be written");
}

void RegKey::SetNumber(const vb::Text& name, std::uint32_t value) {
  const DWORD number = value;
  const LSTATUS status = RegSetValueExW(key_, Wide(name), 0, REG_DWORD,
                                        reinterpret_cast<const BYTE*>(&number), sizeof number);
  ThrowIfRegFailed(status, u"The registry value " + path_ + u"\\" + name + u" cannot be written");
}

std::optional<vb::Text> RegKey::Text(const vb::Text& name) const {
  if (!key_) return std::nullopt;
  const wchar_t* value_name = name.empty() ? nullptr : Wide(name);
  const vb::Text what = u"The registry value " + path_ + u"\\" + name + u" cannot be read";
  // The value may change between asking its size and reading it: ask again
  // while it grows.
  for (;;) {
    DWORD bytes = 0;
    LSTATUS status =
        RegGetValueW(key_, nullptr, value_name, RRF_RT_REG_SZ, nullptr, nullptr, &bytes);
    if (status == ERROR_FILE_NOT_FOUND) return std::nullopt;
    ThrowIfRegFailed(status, what);
    vb::Text text(bytes / sizeof(wchar_t), u'\0');
    status = RegGetValueW(key_, nullptr, value_name, RRF_RT_REG_SZ, nullptr, text.data(), &bytes);
    if (status == ERROR_MORE_DATA) continue;
    if (status == ERROR_FILE_NOT_FOUND) return std::nullopt;
    ThrowIfRegFailed(status, what);
    text.resize(bytes / sizeof(wchar_t));
    while (!text.empty() && text.back() == u'\0') text.pop_back();
    return text;
  }
}

void DeleteKeyTree(HKEY root, const vb::Text& path) {
  const LSTATUS status = RegDeleteTreeW(root, Wide(path));
  if (status == ERROR_FILE_NOT_FOUND || status == ERROR_PATH_NOT_FOUND) return;
  ThrowIfRegFailed(status, u"The registry key " + path + u" cannot be removed");
}

bool IsAccessDenied(std::int32_t failure_number) {
  return failure_number == static_cast<std::int32_t>(HRESULT_FROM_WIN32(ERROR_ACCESS_DENIED));
}

}  // namespace win32
