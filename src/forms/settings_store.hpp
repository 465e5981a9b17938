// The per-user settings store: text values under application, section, key.
//
// Each platform keeps them in its own place (a JSON file on Linux, the
// registry on Windows). Application, section and key names match without
// regard to ASCII case, as GetSetting and SaveSetting do over the Windows
// registry: "Tessaly" finds an entry written as "TESSALY". Values are text and
// are kept exactly.
#pragma once

#include <optional>

#include "vb/text.hpp"

namespace forms {

class SettingsStore {
 public:
  virtual ~SettingsStore() = default;
  // The stored text, or nothing when the key is not stored.
  virtual std::optional<vb::Text> Get(const vb::Text& app, const vb::Text& section,
                                      const vb::Text& key) = 0;
  virtual void Save(const vb::Text& app, const vb::Text& section, const vb::Text& key,
                    const vb::Text& text) = 0;
  // Removes the key; true when it was stored. A key that is not stored is no
  // failure.
  virtual bool Remove(const vb::Text& app, const vb::Text& section, const vb::Text& key) = 0;
};

}  // namespace forms
