// Fuzz target for the project-file readers (libFuzzer).
//
// Whatever the bytes, reading either succeeds or fails with vb::Failure; and
// a document that was read writes back exactly the bytes it was read from.
// Build with the fuzz preset or by hand:
//   clang++ -std=c++20 -fsanitize=fuzzer,address -Isrc fuzz/frm_fuzz.cpp <sources>
// and seed it with tests/vbfiles/fixtures.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "vb/failure.hpp"
#include "vbfiles/frm_file.hpp"
#include "vbfiles/frm_value.hpp"
#include "vbfiles/vbp_file.hpp"

namespace {

void VisitValues(const vbfiles::FrmNode& node) {
  if (node.kind == vbfiles::FrmNode::Kind::Property) {
    const auto value = vbfiles::ParseFrmValue(node.value);
    if (value.form == vbfiles::FrmValue::Form::Quoted) {
      // Quoting the text read gives a value that reads back as that text.
      if (vbfiles::ParseFrmValue(vbfiles::QuoteFrmString(value.text)).text != value.text) {
        std::abort();
      }
    }
  }
  for (const auto& child : node.children) VisitValues(child);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  try {
    const auto document = vbfiles::FrmDocument::Parse(bytes, u"fuzz.frm");
    if (document.Write() != bytes) std::abort();
    VisitValues(document.Form());
  } catch (const vb::Failure&) {
  }
  try {
    if (vbfiles::VbpFile::Parse(bytes, u"fuzz.vbp").Write() != bytes) std::abort();
  } catch (const vb::Failure&) {
  }
  return 0;
}
