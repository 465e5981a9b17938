#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>

#include "packaging/designer_part.hpp"
#include "packaging/iid_resource.hpp"

namespace {

using packaging::Bytes;
using namespace std::string_view_literals;

Bytes Raw(std::string_view bytes) { return Bytes(bytes.begin(), bytes.end()); }

// A text field's characters and closing zero, zero-padded to `width`.
Bytes Chars(std::string text, std::size_t width = 0) {
  text.resize(std::max(text.size() + 1, width), '\0');
  return Raw(text);
}

struct Field {
  const char* name;
  std::size_t offset;
  Bytes expected;
};

void PrintTo(const Field& field, std::ostream* os) { *os << field.name; }

class DesignerPartTest : public ::testing::TestWithParam<Field> {};

TEST_P(DesignerPartTest, FieldAtItsOffset) {
  const Bytes bytes = packaging::DesignerPartBytes(packaging::Registration().designer);
  const Field& field = GetParam();
  ASSERT_LE(field.offset + field.expected.size(), bytes.size());
  EXPECT_EQ(
      Bytes(bytes.begin() + field.offset, bytes.begin() + field.offset + field.expected.size()),
      field.expected);
  EXPECT_EQ(bytes.size(), 16u + 4u + 250u);  // the size field counts all after it
}

INSTANTIATE_TEST_SUITE_P(
    Table, DesignerPartTest,
    ::testing::Values(
        Field{"ClassId", 0,
              Raw("\xF7\x14\x07\xAC\x04\x3D\xD1\x11\xAE\x7D\x00\xA0\xC9\x0F\x26\xF4"sv)},
        Field{"SizeOfWhatFollows", 16, Raw("\xFA\0\0\0"sv)},
        Field{"HostKey", 20,
              Raw("\x36\0\0\0HKEY_CURRENT_USER\\Software\\Microsoft\\Visual Basic\\6.0\0"sv)},
        Field{"DisplayNameLength", 78, Raw("\x18\0\0\0"sv)},
        Field{"DisplayNamePadded", 82, Chars("Tessaly", 24)},
        Field{"DescriptionLength", 106, Raw("\x84\0\0\0"sv)},
        Field{"Description", 110,
              Chars("This Add-In provides you with the ability to easily set some of the common "
                    "properties for several of the more widely used controls.")},
        Field{"LoadValues", 242,
              Raw("\1\0\0\0\0\0\0\0\0\0\0\0\1\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0"sv)}),
    [](const auto& param_info) { return std::string(param_info.param.name); });

TEST(IidResourceTest, SizeThenAliasThenConnectInterface) {
  EXPECT_EQ(packaging::IidResourceBytes(packaging::Library()),
            Raw("\x20\0\0\0"
                "\x50\x66\xB2\x53\xAF\x47\x6D\x4E\x97\x63\x62\x42\x20\xCD\xF7\x6B"
                "\x26\xEA\x7F\x4D\x8A\x5A\x53\x49\x82\xE2\x5C\x7D\x53\x22\xD5\x5E"sv));
}

}  // namespace
