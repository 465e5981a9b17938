// The settings store of the Linux builds. FileSettingsStore keeps them in one JSON file, by default
// $XDG_CONFIG_HOME/tessaly/settings.json (~/.config when XDG_CONFIG_HOME is
// unset). Every write or removal locks the file, reads it afresh, changes one
// key and replaces the file by an atomic rename of a complete new one, so two
// processes changing different keys at once lose neither. A file that cannot be
// read or parsed is a failure whose description names the file and line, and
// such a file is never overwritten.
//
// Application, section and key names match without regard to ASCII case, as
// GetSetting and SaveSetting do over the Windows registry: "Tessaly" finds an
// entry written as "TESSALY". A name keeps the spelling it was first written
// with; later writes under another spelling change the value, not the name.
// Values are text and are kept exactly.
#pragma once

#include <filesystem>
#include <optional>

#include "forms/settings_store.hpp"

namespace linux_platform {

class FileSettingsStore : public forms::SettingsStore {
 public:
  explicit FileSettingsStore(std::filesystem::path file);
  // $XDG_CONFIG_HOME/tessaly/settings.json when XDG_CONFIG_HOME is an absolute
  // path, else $HOME/.config/tessaly/settings.json (the password database's
  // home folder when HOME is unset). Throws kPathFileAccess when neither is known.
  static std::filesystem::path DefaultPath();
  const std::filesystem::path& Path() const { return file_; }

  // Reads the file afresh on every call; a missing file stores nothing.
  // Throws vb::Failure kBadFileFormat for a file that is not JSON or not of
  // the store's shape, kPathFileAccess when the file cannot be read.
  std::optional<vb::Text> Get(const vb::Text& app, const vb::Text& section,
                              const vb::Text& key) override;
  // Creates the folder when needed. Throws as Get does, leaving a bad file as
  // it was, and kPathFileAccess when the new file cannot be written.
  void Save(const vb::Text& app, const vb::Text& section, const vb::Text& key,
            const vb::Text& text) override;
  // Throws as Save does. A key that is not stored leaves everything as it was
  // (no folder, lock or file is made); its emptied section stays.
  bool Remove(const vb::Text& app, const vb::Text& section, const vb::Text& key) override;

 private:
  std::filesystem::path file_;
};

}  // namespace linux_platform
