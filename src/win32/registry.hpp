// The registry, with owned keys and failures that name the key.
//
// RegKey owns an open key and closes it on every path. Opening a key that
// does not exist is no failure: Open returns an empty key. Every other
// failure throws vb::Failure naming the key and the system's reason.
#pragma once

#include "win32/system.hpp"

#include <cstdint>
#include <optional>
#include <string_view>

#include "vb/text.hpp"

namespace win32 {

class RegKey {
 public:
  RegKey() = default;
  RegKey(RegKey&& other) noexcept : key_(other.key_), path_(std::move(other.path_)) {
    other.key_ = nullptr;
  }
  RegKey& operator=(RegKey&& other) noexcept;
  RegKey(const RegKey&) = delete;
  RegKey& operator=(const RegKey&) = delete;
  ~RegKey();

  // Opens `path` below `root`, creating it (and the keys above it) when
  // missing. A refusal throws; its number is the HRESULT of the Win32 error,
  // so callers can tell ERROR_ACCESS_DENIED.
  static RegKey Create(HKEY root, const vb::Text& path);
  // Opens an existing key for reading; empty when it does not exist.
  static RegKey Open(HKEY root, const vb::Text& path);

  explicit operator bool() const { return key_ != nullptr; }

  // `name` empty is the key's default value.
  void SetText(const vb::Text& name, const vb::Text& value);
  void SetNumber(const vb::Text& name, std::uint32_t value);
  // The REG_SZ value `name`; nothing when the key or the value is missing.
  // A value of another type throws.
  std::optional<vb::Text> Text(const vb::Text& name) const;

 private:
  RegKey(HKEY key, vb::Text path) : key_(key), path_(std::move(path)) {}
  HKEY key_ = nullptr;
  vb::Text path_;
};

// Deletes `path` below `root` with everything under it. A key that is not
// there is no failure.
void DeleteKeyTree(HKEY root, const vb::Text& path);

// Whether a failure thrown by this unit means the caller may not write there
// (ERROR_ACCESS_DENIED), as for a per-machine key without elevation.
bool IsAccessDenied(std::int32_t failure_number);

}  // namespace win32
