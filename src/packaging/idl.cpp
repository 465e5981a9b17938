#include "packaging/idl.hpp"

#include <algorithm>
#include <cctype>
#include <charconv>

namespace packaging {
namespace {

// A string literal in IDL, which escapes as C does.
std::string Quoted(vb::TextView text) {
  std::string quoted = "\"";
  for (char c : vb::ToUtf8(text)) {
    if (c == '"' || c == '\\') quoted += '\\';
    quoted += c;
  }
  return quoted + "\"";
}

std::string Uuid(const Guid& guid) {
  const std::string text = FormatGuid(guid);
  return "uuid(" + text.substr(1, text.size() - 2) + ")";
}

std::string Version(VersionNumber version) {
  return "version(" + std::to_string(version.major) + "." + std::to_string(version.minor) + ")";
}

// An attribute list, one attribute a line.
std::string Attributes(const std::vector<std::string>& attributes, const std::string& indent) {
  std::string text = indent + "[\n";
  for (std::size_t i = 0; i < attributes.size(); ++i) {
    text += indent + "  " + attributes[i] + (i + 1 < attributes.size() ? ",\n" : "\n");
  }
  return text + indent + "]\n";
}

std::string Hex(std::uint32_t value) {
  char digits[8];
  const auto end = std::to_chars(digits, digits + sizeof digits, value, 16).ptr;
  return "0x" + std::string(digits, end);
}

std::string TypeName(ValueKind kind) { return kind == ValueKind::kText ? "BSTR" : "IDispatch*"; }

std::string MemberLine(const Member& member) {
  std::string line = "    [id(" + std::to_string(member.dispatch_id) + ")";
  if (member.access == MemberAccess::kPropertyGet) line += ", propget";
  if (member.access == MemberAccess::kPropertyPutRef) line += ", propputref";
  line += "] HRESULT " + vb::ToUtf8(member.name) + "(";
  std::string separator;
  for (const Parameter& parameter : member.parameters) {
    line += separator + "[in] " + TypeName(parameter.kind) + " " + vb::ToUtf8(parameter.name);
    separator = ", ";
  }
  if (member.result) {
    const char* name = member.access == MemberAccess::kPropertyGet ? "value" : "result";
    line += separator + "[out, retval] " + TypeName(*member.result) + "* " + name;
  }
  return line + ");\n";
}

}  // namespace

std::string EmitIdl(const TypeLibrary& library) {
  const std::string interface_name = vb::ToUtf8(library.default_interface.name);
  std::string idl = "// The type library of " + vb::ToUtf8(library.name) +
                    ", written by tessaly-packaging from the component's description.\n";
  std::string late_bound;
  std::string imports;
  for (const ReferencedLibrary& referenced : library.referenced_libraries) {
    std::string file = vb::ToUtf8(referenced.file);
    if (!referenced.imported) {
      late_bound += (late_bound.empty() ? " " : ", ") + file;
      continue;
    }
    // The library files on the build machine have lower-case names.
    std::transform(file.begin(), file.end(), file.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    imports += "  importlib(\"" + file + "\");\n";
  }
  if (!late_bound.empty()) idl += "// Objects of" + late_bound + " are typed as IDispatch.\n";
  idl += "import \"oaidl.idl\";\n\n";

  idl += Attributes(
      {Uuid(library.library_id), Version(library.version), "lcid(" + Hex(library.locale) + ")",
       "helpstring(" + Quoted(library.description) + ")"},
      "");
  idl += "library " + vb::ToUtf8(library.name) + "\n{\n" + imports + "\n";

  idl += Attributes({Uuid(library.default_interface.iid), Version(library.version), "hidden",
                     "nonextensible", "dual", "oleautomation"},
                    "  ");
  idl += "  interface " + interface_name + " : IDispatch\n  {\n";
  for (const Member& member : library.default_interface.members) idl += MemberLine(member);
  idl += "  };\n\n";

  idl += Attributes({Uuid(library.class_id), Version(library.version)}, "  ");
  idl += "  coclass " + vb::ToUtf8(library.class_name) + "\n  {\n    [default] interface " +
         interface_name + ";\n  };\n\n";

  idl += "  typedef [" + Uuid(library.alias_iid) + ", hidden, public] " + interface_name + " " +
         vb::ToUtf8(library.alias_name) + ";\n";
  return idl + "};\n";
}

}  // namespace packaging
