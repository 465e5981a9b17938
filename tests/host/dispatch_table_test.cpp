#include "host/dispatch_table.hpp"

#include <gtest/gtest.h>

namespace {

struct DispatchCase {
  const char16_t* class_name;
  std::size_t row;
  tessaly::DialogKind dialog;
};

void PrintTo(const DispatchCase& c, std::ostream* os) {
  *os << '"' << vb::ToUtf8(c.class_name) << '"';
}

class DispatchTest : public ::testing::TestWithParam<DispatchCase> {};

TEST_P(DispatchTest, ClassNameFindsItsRow) {
  const auto& row = tessaly::FindDispatchRow(GetParam().class_name);
  EXPECT_EQ(row.index, GetParam().row);
  EXPECT_EQ(row.dialog, GetParam().dialog);
}

using K = tessaly::DialogKind;
INSTANTIATE_TEST_SUITE_P(Table, DispatchTest,
                         ::testing::Values(DispatchCase{u"TextBox", 8, K::TextBox},
                                           DispatchCase{u"CheckBox", 0, K::CheckBox},
                                           DispatchCase{u"MaskEdBox", 11, K::MaskedEdit},
                                           DispatchCase{u"SSTab", 13, K::SSTab},
                                           // The scroll bars cross over.
                                           DispatchCase{u"HScrollBar", 15, K::HScrollBar},
                                           DispatchCase{u"VScrollBar", 14, K::VScrollBar},
                                           // Case matters: anything else is an other control.
                                           DispatchCase{u"textbox", 16, K::OtherControl},
                                           DispatchCase{u"TextBox ", 16, K::OtherControl},
                                           DispatchCase{u"DTPicker", 16, K::OtherControl},
                                           DispatchCase{u"", 16, K::OtherControl}));

TEST(DispatchTableTest, EveryFlagRowIsUsedOnce) {
  std::array<int, 17> seen{};
  for (const auto& row : tessaly::kDispatchTable) ++seen.at(row.index);
  for (int count : seen) EXPECT_EQ(count, 1);
}

}  // namespace
