// Fuzz target for opening a project into the workbench's model and saving it
// (libFuzzer): what opens saves back byte for byte.
//
// The input is a form's bytes; after a separator (two 0x1E bytes) the bytes
// of its .frx, after another those of the project file (by default one that
// lists the form alone and names the project). They are written to a temporary folder (in memory
// where /dev/shm is) and opened. Opening succeeds or fails with vb::Failure;
// every file of a project that opened comes back from the model with the
// bytes it was read from.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "temp_folder.hpp"
#include "vb/failure.hpp"
#include "workbench/project_loader.hpp"
#include "workbench/project_saver.hpp"

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kSeparator = "\x1e\x1e";

// The form, side file and project file parts of `input`: one to three.
std::vector<std::string_view> Parts(std::string_view input) {
  std::vector<std::string_view> parts;
  for (std::size_t end; parts.size() < 2 && (end = input.find(kSeparator)) != input.npos;) {
    parts.push_back(input.substr(0, end));
    input.remove_prefix(end + kSeparator.size());
  }
  parts.push_back(input);
  return parts;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const fuzz::TempFolder folder("round-trip");
  const auto parts = Parts(std::string_view(reinterpret_cast<const char*>(data), size));
  std::map<std::string, std::string> files;
  files["fuzz.frm"] = parts[0];
  if (parts.size() > 1) files["fuzz.frx"] = parts[1];
  files["fuzz.vbp"] =
      parts.size() > 2 ? parts[2] : "Type=Exe\r\nForm=fuzz.frm\r\nName=\"Fuzz\"\r\n";
  // Members stay in the folder: a path out of it could name /dev/zero.
  if (files["fuzz.vbp"].find_first_of("/\\") != std::string::npos ||
      files["fuzz.vbp"].find("..") != std::string::npos) {
    return 0;
  }

  std::error_code ignored;
  fs::remove(folder.path / "fuzz.frx", ignored);
  for (const auto& [name, bytes] : files) {
    std::ofstream out(folder.path / name, std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  }
  try {
    const auto project = workbench::OpenProject(folder.path / "fuzz.vbp");
    for (const auto& [name, bytes] : workbench::ProjectFileBytes(*project)) {
      const auto read = files.find(name);
      if (read != files.end() && read->second != bytes) {
        std::fprintf(stderr, "%s saves back other bytes:\n%s\n-- instead of --\n%s\n", name.c_str(),
                     bytes.c_str(), read->second.c_str());
        std::abort();
      }
    }
  } catch (const vb::Failure&) {
  }
  return 0;
}
