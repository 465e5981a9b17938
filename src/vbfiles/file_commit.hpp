// Writing a set of files all or nothing: a project save either replaces every
// file it writes or leaves every file as it was.
//
// Each file's new bytes go first to a unique temporary file beside the file
// (flushed to the disk, with the old file's mode and owner; for a symbolic
// link, beside the link's target, which is what gets replaced). A failure
// while writing them removes them all and changes nothing. Only then are they
// renamed over the files, in the given order, each old file kept under a
// backup name until every rename has succeeded; a failed rename puts back
// every file already replaced and removes the files that were new. Missing
// folders are made, and removed again when the write fails.
//
// Failures: the first failure of the file system (75, naming the file and the
// reason), after everything it touched was put back.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "vbfiles/file_system.hpp"

namespace vbfiles {

struct FileWrite {
  std::filesystem::path path;
  std::string bytes;
};

void CommitFiles(const std::vector<FileWrite>& writes, FileSystem& files = DiskFileSystem());

}  // namespace vbfiles
