// Fuzz target for the project-file readers (libFuzzer).
//
// Whatever the bytes, reading either succeeds or fails with vb::Failure; and
// a document that was read writes back exactly the bytes it was read from.
// Build with the fuzz preset or by hand:
//   clang++ -std=c++20 -fsanitize=fuzzer,address -Isrc fuzz/frm_fuzz.cpp <sources>
// and seed it with tests/workbench/fixtures.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "vb/failure.hpp"
#include "workbench/frm_file.hpp"
#include "workbench/frm_value.hpp"
#include "workbench/vbp_file.hpp"

namespace {

void VisitValues(const workbench::FrmNode& node) {
  if (node.kind == workbench::FrmNode::Kind::Property) {
    const auto value = workbench::ParseFrmValue(node.value);
    if (value.form == workbench::FrmValue::Form::Quoted) {
      // Quoting the text read gives a value that reads back as that text.
      if (workbench::ParseFrmValue(workbench::QuoteFrmString(value.text)).text != value.text) {
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
    const auto document = workbench::FrmDocument::Parse(bytes, u"fuzz.frm");
    if (document.Write() != bytes) std::abort();
    VisitValues(document.Form());
  } catch (const vb::Failure&) {
  }
  try {
    if (workbench::VbpFile::Parse(bytes, u"fuzz.vbp").Write() != bytes) std::abort();
  } catch (const vb::Failure&) {
  }
  return 0;
}
