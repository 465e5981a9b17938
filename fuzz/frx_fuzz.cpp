// Fuzz target for the readers of a form's binary side file (.frx), as a
// property line's reference reaches them (libFuzzer).
//
// The input gives a code page, an offset and the side file's bytes. Reads
// never fail and never read past the end: each gives a value or nullopt.
// A string read writes back in its code page as the bytes it was read from.
#include <fuzzer/FuzzedDataProvider.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "vbfiles/frm_value.hpp"
#include "vbfiles/frx_file.hpp"

namespace {

// The bytes the string at `offset` with a count of `count_size` bytes was read from.
std::string StoredBytes(const std::string& frx, std::uint32_t offset, std::size_t count_size) {
  std::size_t count = 0;
  for (std::size_t i = count_size; i-- > 0;) {
    count = (count << 8) | static_cast<unsigned char>(frx[offset + i]);
  }
  return frx.substr(offset + count_size, count);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzedDataProvider input(data, size);
  const auto supported = vbfiles::CodePage::Supported();
  const auto code_page = *vbfiles::CodePage::FromNumber(
      supported[input.ConsumeIntegralInRange<std::size_t>(0, supported.size() - 1)]);
  // The offset as a form's line writes it, so the reference reader is fed too.
  const auto reference = vbfiles::ParseFrmValue(vb::FromUtf8(input.ConsumeRandomLengthString(24)));
  std::uint32_t offset = input.ConsumeIntegral<std::uint16_t>();
  if (reference.form == vbfiles::FrmValue::Form::Frx) offset = reference.frx.offset;
  const vbfiles::FrxFile frx(input.ConsumeRemainingBytesAsString(), code_page);

  if (const auto text = frx.ReadString(offset)) {
    if (code_page.Encode(*text) != StoredBytes(frx.Bytes(), offset, 4)) std::abort();
  }
  if (const auto text = frx.ReadShortString(offset)) {
    if (code_page.Encode(*text) != StoredBytes(frx.Bytes(), offset, 1)) std::abort();
  }
  (void)frx.ReadList(offset);
  (void)frx.ReadItemData(offset);
  if (const auto blob = frx.ReadBlob(offset)) {
    if (*blob != StoredBytes(frx.Bytes(), offset, 4)) std::abort();
  }
  return 0;
}
