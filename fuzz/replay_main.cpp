// The fuzz targets without libFuzzer: feeds a target every file of the
// folders (or the files) given that exist, once each, so the seed corpora and the
// inputs of crashes fixed run as tests in every build. A target aborts on a
// broken promise; this driver only reports what it could not read.
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

int Feed(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  const std::string bytes{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  if (!in && !in.eof()) {
    std::cerr << "cannot read " << file << '\n';
    return 1;
  }
  LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  namespace fs = std::filesystem;
  int failures = 0;
  std::size_t fed = 0;
  for (int i = 1; i < argc; ++i) {
    if (!fs::exists(argv[i])) continue;  // a target with no crash fixed yet
    if (!fs::is_directory(argv[i])) {
      failures += Feed(argv[i]);
      ++fed;
      continue;
    }
    for (const auto& entry : fs::recursive_directory_iterator(argv[i])) {
      if (!entry.is_regular_file()) continue;
      failures += Feed(entry.path());
      ++fed;
    }
  }
  std::cout << fed << " inputs\n";
  return failures == 0 && fed > 0 ? 0 : 1;
}
