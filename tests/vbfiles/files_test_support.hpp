// Shared pieces of the project-file tests: where fixtures live, whole files,
// a temporary folder, the text of a failure, and a file edited by replacing.
#pragma once

#include <gtest/gtest.h>

#include <cctype>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "vb/convert.hpp"
#include "vb/failure.hpp"

namespace vbfiles::testing {

inline std::filesystem::path SourceDir() {
  if (const char* dir = std::getenv("TESSALY_SOURCE_DIR")) return dir;
  // tests/vbfiles/ -> the repository
  return std::filesystem::path(__FILE__).parent_path().parent_path().parent_path();
}
inline std::filesystem::path FixturesDir() { return SourceDir() / "tests/vbfiles/fixtures"; }
inline std::filesystem::path SampleDir() { return SourceDir() / "examples/sample"; }

// A file's stem as a parameterised test's name: "frx_refs".
inline std::string NameOf(const ::testing::TestParamInfo<std::filesystem::path>& info) {
  std::string name = info.param.stem().string();
  for (auto& c : name) {
    if (!std::isalnum(static_cast<unsigned char>(c))) c = '_';
  }
  return name;
}

inline std::string ReadBytes(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  EXPECT_TRUE(in) << path;
  std::ostringstream out;
  out << in.rdbuf();
  return out.str();
}

inline void WriteBytes(const std::filesystem::path& path, const std::string& bytes) {
  std::ofstream out(path, std::ios::binary);
  out << bytes;
}

// P.vbp in `folder` with the one form F.frm holding `form`; the project file.
inline std::filesystem::path WriteOneFormProject(const std::filesystem::path& folder,
                                                 const std::string& form) {
  WriteBytes(folder / "P.vbp", "Type=Exe\r\nForm=F.frm\r\n");
  WriteBytes(folder / "F.frm", form);
  return folder / "P.vbp";
}

// A fresh folder under the system's temporary folder, removed afterwards.
class TempDir {
 public:
  TempDir() { std::filesystem::create_directories(path_); }
  ~TempDir() {
    std::error_code ignored;  // a destructor must not throw
    std::filesystem::remove_all(path_, ignored);
  }
  TempDir(const TempDir&) = delete;
  TempDir& operator=(const TempDir&) = delete;
  const std::filesystem::path& Path() const { return path_; }

 private:
  std::filesystem::path path_ = std::filesystem::temp_directory_path() /
                                ("tessaly-files-" + std::to_string(std::random_device()()) +
                                 std::to_string(std::random_device()()));
};

// The text with every occurrence of `from` replaced once: builds the file a
// test expects from the file as read. Fails the test when `from` is missing.
inline std::string Edited(std::string text, const std::string& from, const std::string& to) {
  const auto at = text.find(from);
  EXPECT_NE(at, std::string::npos) << "missing in the original: " << from;
  if (at != std::string::npos) text.replace(at, from.size(), to);
  return text;
}

// "321: bad.frm line 2: ..." -- the number and description of the failure
// `call` throws, or "no failure".
template <typename Call>
std::string FailureText(Call&& call) {
  try {
    call();
  } catch (const vb::Failure& failure) {
    return std::to_string(failure.Number()) + ": " + vb::ToUtf8(failure.Description());
  }
  return "no failure";
}

}  // namespace vbfiles::testing
