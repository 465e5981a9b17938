// What a project save needs of the file system, as a small interface: the
// disk's implementation for real saves, a fake for tests that make a write or
// a rename fail at a chosen step.
//
// The disk's implementation is std::filesystem where that suffices; the two
// things it cannot do -- a new file with a unique name created exclusively and
// flushed to the disk with its folder, and ownership kept -- use POSIX calls
// on systems that have them, and plain std::filesystem elsewhere (the
// Windows build, where the real IDE saves its own files), so this folder
// builds everywhere.
//
// Failures: vb::Failure "Path/File access error" (75) whose description names
// the file and says why: "Cannot write /x/Form1.frm: Permission denied".
#pragma once

#include <filesystem>
#include <string_view>
#include <system_error>

#include "vb/failure.hpp"

namespace vbfiles {

class FileSystem {
 public:
  virtual ~FileSystem() = default;

  // Whether anything (a file, a folder, a link) is at `path`.
  virtual bool Exists(const std::filesystem::path& path) = 0;
  // The file a write to `path` replaces: a symbolic link's target (followed
  // through every link, relative targets taken from the link's folder), or
  // `path` itself.
  virtual std::filesystem::path Target(const std::filesystem::path& path) = 0;
  virtual void CreateFolder(const std::filesystem::path& folder) = 0;
  // Removes the folder if it is empty; never fails.
  virtual void RemoveEmptyFolder(const std::filesystem::path& folder) noexcept = 0;
  // A new file with a unique name beside `target` holding `bytes`, flushed to
  // the disk, with the mode and owner of `target` when it exists. Returns its
  // path; on failure nothing of it remains.
  virtual std::filesystem::path WriteTemporary(const std::filesystem::path& target,
                                               std::string_view bytes) = 0;
  // A second name, unique beside `path`, for the file now at `path`, which
  // keeps its present contents once `path` is replaced.
  virtual std::filesystem::path KeepBackup(const std::filesystem::path& path) = 0;
  // Atomically puts `from` in the place of `to`.
  virtual void Rename(const std::filesystem::path& from, const std::filesystem::path& to) = 0;
  virtual void Remove(const std::filesystem::path& path) noexcept = 0;
  // Flushes the folder's entries (the renames in it) to the disk.
  virtual void SyncFolder(const std::filesystem::path& folder) noexcept = 0;
};

// The disk.
FileSystem& DiskFileSystem();

// "Cannot <verb> <path>: <reason>" as a Path/File access error (75).
vb::Failure FileFailure(std::string_view verb, const std::filesystem::path& path,
                        std::error_code reason);

}  // namespace vbfiles
