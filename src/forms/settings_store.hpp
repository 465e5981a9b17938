// The per-user settings store: text values under application, section, key.
//
// FileSettingsStore keeps them in one JSON file, by default
// $XDG_CONFIG_HOME/tessaly/settings.json (~/.config when XDG_CONFIG_HOME is
// unset). Every write locks the file, reads it afresh, changes one key and
// replaces the file by an atomic rename of a complete new one, so two
// processes writing different keys at once lose neither. A file that cannot be
// read or parsed is a failure whose description names the file and line, and
// such a file is never overwritten.
#pragma once

#include <filesystem>
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
};

class FileSettingsStore : public SettingsStore {
 public:
  explicit FileSettingsStore(std::filesystem::path file);
  // $XDG_CONFIG_HOME/tessaly/settings.json, or ~/.config/tessaly/settings.json.
  static std::filesystem::path DefaultPath();
  const std::filesystem::path& Path() const { return file_; }

  std::optional<vb::Text> Get(const vb::Text& app, const vb::Text& section,
                              const vb::Text& key) override;
  void Save(const vb::Text& app, const vb::Text& section, const vb::Text& key,
            const vb::Text& text) override;

 private:
  std::filesystem::path file_;
};

}  // namespace forms
