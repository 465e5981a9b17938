// tessaly-packaging: writes the files the Windows build of the component is
// made from (the type library's IDL, the resource script, the module
// definition and the two binary resources) from the packaging layer's data.
//
//   tessaly-packaging OUTDIR   write the files into OUTDIR, creating it
//   tessaly-packaging --list   print the registration facts
//
// A file is rewritten only when its bytes change, so a rebuild does not
// recompile what is already current; it is replaced by renaming a complete
// new file over it.
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <string_view>
#include <system_error>

#include "packaging/designer_part.hpp"
#include "packaging/exports_def.hpp"
#include "packaging/idl.hpp"
#include "packaging/iid_resource.hpp"
#include "packaging/registration_record.hpp"
#include "packaging/resource_script.hpp"
#include "packaging/type_library.hpp"
#include "packaging/version_block.hpp"

namespace {

namespace fs = std::filesystem;
using packaging::Bytes;

bool SameContent(const fs::path& path, const std::string& content) {
  std::ifstream in(path, std::ios::binary);
  if (!in) return false;
  const std::string old{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  return old == content;
}

// Writes `content` to `path` unless the file already holds it. Returns an
// error message, empty on success.
std::string WriteIfChanged(const fs::path& path, const std::string& content) {
  if (SameContent(path, content)) return {};
  fs::path temp = path;
  temp += ".new";
  {
    std::ofstream out(temp, std::ios::binary | std::ios::trunc);
    out.write(content.data(), static_cast<std::streamsize>(content.size()));
    out.close();
    if (!out) return "cannot write " + temp.string();
  }
  std::error_code error;
  fs::rename(temp, path, error);
  if (error) {
    fs::remove(temp, error);
    return "cannot replace " + path.string() + ": " + error.message();
  }
  return {};
}

std::string AsString(const Bytes& bytes) { return std::string(bytes.begin(), bytes.end()); }

int List() {
  const auto& record = packaging::Registration();
  const auto& library = packaging::Library();
  std::cout << "file          " << vb::ToUtf8(packaging::FileName(record)) << "\n"
            << "ProgID        " << vb::ToUtf8(packaging::ProgId(record)) << "\n"
            << "CLSID         " << packaging::FormatGuid(library.class_id) << "\n"
            << "display name  " << vb::ToUtf8(record.designer.display_name) << "\n"
            << "host key      " << vb::ToUtf8(record.designer.host_key) << "\n"
            << "loaded at     " << packaging::LoadBehaviourWord(record.designer.load_behaviour)
            << "\n"
            << "version       "
            << vb::ToUtf8(packaging::VersionText(packaging::ComponentVersion().file_version))
            << "\n";
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2 || std::string_view(argv[1]).empty()) {
    std::cerr << "usage: tessaly-packaging OUTDIR | --list\n";
    return 2;
  }
  if (std::string_view(argv[1]) == "--list") return List();

  const fs::path out_dir = argv[1];
  std::error_code error;
  fs::create_directories(out_dir, error);
  if (error) {
    std::cerr << "tessaly-packaging: cannot create " << out_dir.string() << ": " << error.message()
              << "\n";
    return 1;
  }
  const auto& library = packaging::Library();
  const std::pair<std::string_view, std::string> files[] = {
      {packaging::kIdlFile, packaging::EmitIdl(library)},
      {packaging::kResourceScriptFile,
       packaging::EmitResourceScript(packaging::ComponentVersion())},
      {packaging::kDefFile, packaging::EmitDef()},
      {packaging::kDesignerFile,
       AsString(packaging::DesignerPartBytes(packaging::Registration().designer))},
      {packaging::kIidResourceFile, AsString(packaging::IidResourceBytes(library))},
  };
  for (const auto& [name, content] : files) {
    const std::string failure = WriteIfChanged(out_dir / name, content);
    if (!failure.empty()) {
      std::cerr << "tessaly-packaging: " << failure << "\n";
      return 1;
    }
  }
  return 0;
}
