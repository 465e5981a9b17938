#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "packaging/idl.hpp"
#include "packaging/resource_script.hpp"

namespace {

// The text with indentation dropped and lines joined by one blank.
std::string Flat(const std::string& text) {
  std::istringstream lines(text);
  std::string flat, line;
  while (std::getline(lines, line)) {
    const auto start = line.find_first_not_of(' ');
    if (start != std::string::npos) flat += " " + line.substr(start);
  }
  return flat;
}

std::string Idl() { return Flat(packaging::EmitIdl(packaging::Library())); }
std::string Rc() { return Flat(packaging::EmitResourceScript(packaging::ComponentVersion())); }

// Each expected piece must appear after the previous one.
struct Document {
  const char* name;
  std::string (*text)();
  std::vector<std::string> pieces;
};

void PrintTo(const Document& document, std::ostream* os) { *os << document.name; }

class EmittedTextTest : public ::testing::TestWithParam<Document> {};

TEST_P(EmittedTextTest, HoldsThePiecesInOrder) {
  const std::string text = GetParam().text();
  std::size_t at = 0;
  for (const std::string& piece : GetParam().pieces) {
    at = text.find(piece, at);
    ASSERT_NE(at, std::string::npos) << "missing, or out of order: " << piece << "\nin:" << text;
  }
}

INSTANTIATE_TEST_SUITE_P(
    Table, EmittedTextTest,
    ::testing::Values(
        Document{"Idl",
                 Idl,
                 {"import \"oaidl.idl\";",
                  "[ uuid(1E3E2731-1085-4E91-BB08-753A8AA88883), version(2.1), lcid(0x409), "
                  "helpstring(\"Tessaly\") ] library Vorrel { importlib(\"stdole2.tlb\");",
                  "[ uuid(4D7FEA26-5A8A-4953-82E2-5C7D5322D55E), version(2.1), hidden, "
                  "nonextensible, dual, oleautomation ] interface _Connect : IDispatch {",
                  "[id(1), propget] HRESULT VBInstance([out, retval] IDispatch** value); "
                  "[id(1), propputref] HRESULT VBInstance([in] IDispatch* value); "
                  "[id(2), propget] HRESULT CompHandler([out, retval] IDispatch** value); "
                  "[id(2), propputref] HRESULT CompHandler([in] IDispatch* value); "
                  "[id(3), propget] HRESULT MenuHandler([out, retval] IDispatch** value); "
                  "[id(3), propputref] HRESULT MenuHandler([in] IDispatch* value); "
                  "[id(4)] HRESULT AddToAddInCommandBar([in] BSTR sCaption, "
                  "[out, retval] IDispatch** result); };",
                  "uuid(77368C63-1A2D-45DD-A6CB-7DF70DAB80FD), version(2.1) ] coclass Connect { "
                  "[default] interface _Connect; };",
                  "typedef [uuid(53B26650-47AF-4E6D-9763-624220CDF76B), hidden, public] "
                  "_Connect Connect___v0; };"}},
        Document{"ResourceScript",
                 Rc,
                 {"FILEVERSION 1,0,0,21 PRODUCTVERSION 1,0,0,21",
                  "BLOCK \"040904B0\" BEGIN VALUE \"Comments\", \"Tessaly v1.0\" "
                  "VALUE \"ProductName\", \"Tessaly\" VALUE \"FileVersion\", \"1.00.0021\" "
                  "VALUE \"ProductVersion\", \"1.00.0021\" VALUE \"InternalName\", \"Vorrel\" "
                  "VALUE \"OriginalFilename\", \"Vorrel.dll\" VALUE \"OLESelfRegister\", \"\" END",
                  "VALUE \"Translation\", 0x409, 1200",
                  "1 TYPELIB \"vorrel.tlb\" _IID_CONNECT RCDATA \"iid_connect.bin\" "
                  "CONNECT_DESIGNER RCDATA \"designer.bin\""}}),
    [](const auto& param_info) { return std::string(param_info.param.name); });

// Registering the library registers every interface it names, so it may name
// only the component's own.
TEST(IdlTest, NamesNoInterfaceButItsOwn) {
  const std::string idl = Idl();
  for (auto at = idl.find("interface "); at != std::string::npos;
       at = idl.find("interface ", at + 1)) {
    EXPECT_EQ(idl.substr(at + 10, idl.find_first_of(" ;", at + 10) - at - 10), "_Connect");
  }
}

}  // namespace
