// The settings store of the Windows component: the registry, where VB's own
// GetSetting and SaveSetting keep their values, so a value written by either
// reads the same through the other.
//
// HKEY_CURRENT_USER\Software\VB and VBA Program Settings\<app>\<section>,
// one REG_SZ value per key. The registry matches names without regard to
// case, as the store promises.
#pragma once

#include "forms/settings_store.hpp"

namespace win32 {

class RegistrySettingsStore : public forms::SettingsStore {
 public:
  // Nothing when the section or the value is missing. A value of another
  // type than REG_SZ, or a key that cannot be read, throws vb::Failure.
  std::optional<vb::Text> Get(const vb::Text& app, const vb::Text& section,
                              const vb::Text& key) override;
  // Creates the section's key when needed.
  void Save(const vb::Text& app, const vb::Text& section, const vb::Text& key,
            const vb::Text& text) override;
  // Deletes the value; the section's key stays. A missing section or value
  // is no failure.
  bool Remove(const vb::Text& app, const vb::Text& section, const vb::Text& key) override;
};

}  // namespace win32
