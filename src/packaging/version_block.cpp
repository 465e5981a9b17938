#include "packaging/version_block.hpp"

#include <cstdio>

#include "packaging/registration_record.hpp"

namespace packaging {
namespace {

constexpr FourPartVersion kVersion = {1, 0, 0, 21};

// A string literal in a resource script, where a quote is written twice.
std::string Quoted(vb::TextView text) {
  std::string quoted = "\"";
  for (char c : vb::ToUtf8(text)) quoted += c == '"' ? "\"\"" : std::string(1, c);
  return quoted + "\"";
}

std::string Numbers(const FourPartVersion& version) {
  return std::to_string(version[0]) + "," + std::to_string(version[1]) + "," +
         std::to_string(version[2]) + "," + std::to_string(version[3]);
}

}  // namespace

vb::Text VersionText(const FourPartVersion& version) {
  char text[32];
  std::snprintf(text, sizeof text, "%u.%02u.%04u", unsigned{version[0]}, unsigned{version[1]},
                unsigned{version[3]});
  return vb::FromUtf8(text);
}

const VersionBlock& ComponentVersion() {
  static const VersionBlock kBlock = [] {
    const RegistrationRecord& record = Registration();
    const vb::Text version_text = VersionText(kVersion);
    return VersionBlock{
        .file_version = kVersion,
        .product_version = kVersion,
        .language = 0x409,
        .code_page = 1200,
        .strings = {{u"Comments", u"Tessaly v1.0"},
                    {u"ProductName", record.project.description},
                    {u"FileVersion", version_text},
                    {u"ProductVersion", version_text},
                    {u"InternalName", record.project.name},
                    {u"OriginalFilename", FileName(record)},
                    {u"OLESelfRegister", u""}},
    };
  }();
  return kBlock;
}

std::string EmitVersionRc(const VersionBlock& block) {
  char table[16];
  std::snprintf(table, sizeof table, "%04X%04X", unsigned{block.language},
                unsigned{block.code_page});
  std::string rc = "1 VERSIONINFO\n";
  rc += "FILEVERSION " + Numbers(block.file_version) + "\n";
  rc += "PRODUCTVERSION " + Numbers(block.product_version) + "\n";
  // Flags: none set; the file is a DLL (2) for 32-bit Windows (4).
  rc += "FILEFLAGSMASK 0x3F\nFILEFLAGS 0x0\nFILEOS 0x4\nFILETYPE 0x2\nFILESUBTYPE 0x0\n";
  rc += "BEGIN\n  BLOCK \"StringFileInfo\"\n  BEGIN\n";
  rc += "    BLOCK \"" + std::string(table) + "\"\n    BEGIN\n";
  for (const VersionString& string : block.strings) {
    rc += "      VALUE " + Quoted(string.key) + ", " + Quoted(string.value) + "\n";
  }
  rc += "    END\n  END\n  BLOCK \"VarFileInfo\"\n  BEGIN\n";
  std::snprintf(table, sizeof table, "0x%X, %u", unsigned{block.language},
                unsigned{block.code_page});
  rc += "    VALUE \"Translation\", " + std::string(table) + "\n  END\nEND\n";
  return rc;
}

}  // namespace packaging
