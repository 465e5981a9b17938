#include "vb/convert.hpp"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using vb::Failure;
using vb::Text;

struct IntCase {
  const char16_t* text;
  int expected;  // or the failure number when fails is set
  bool fails = false;
};

void PrintTo(const IntCase& c, std::ostream* os) { *os << '"' << vb::ToUtf8(c.text) << '"'; }

class CIntTest : public ::testing::TestWithParam<IntCase> {};

TEST_P(CIntTest, RoundsHalfToEvenAndChecksRange) {
  const auto& c = GetParam();
  if (c.fails) {
    try {
      vb::CInt(Text(c.text));
      FAIL() << "no failure";
    } catch (const Failure& f) {
      EXPECT_EQ(f.Number(), c.expected);
    }
  } else {
    EXPECT_EQ(vb::CInt(Text(c.text)), c.expected);
  }
}

INSTANTIATE_TEST_SUITE_P(
    Table, CIntTest,
    ::testing::Values(
        IntCase{u"10", 10}, IntCase{u"10.5", 10}, IntCase{u"11.5", 12}, IntCase{u"-2.5", -2},
        IntCase{u"-3.5", -4}, IntCase{u"0.5", 0}, IntCase{u"1.5", 2}, IntCase{u"  42  ", 42},
        IntCase{u"+7", 7}, IntCase{u"32767", 32767}, IntCase{u"-32768", -32768},
        IntCase{u"32767.4", 32767}, IntCase{u"1e3", 1000}, IntCase{u"1,000", 1000},
        IntCase{u"&H10", 16}, IntCase{u"&HFFFF", -1}, IntCase{u"0009", 9},
        IntCase{u"32768", vb::kOverflow, true}, IntCase{u"32767.5", vb::kOverflow, true},
        IntCase{u"-32769", vb::kOverflow, true}, IntCase{u"", vb::kTypeMismatch, true},
        IntCase{u"   ", vb::kTypeMismatch, true}, IntCase{u"abc", vb::kTypeMismatch, true},
        IntCase{u"12abc", vb::kTypeMismatch, true}, IntCase{u"True", vb::kTypeMismatch, true},
        IntCase{u".", vb::kTypeMismatch, true}, IntCase{u"1e", vb::kTypeMismatch, true}));

TEST(CLngTest, WiderRangeSameRounding) {
  EXPECT_EQ(vb::CLng(u"32768"), 32768);
  EXPECT_EQ(vb::CLng(u"2147483647"), 2147483647);
  EXPECT_EQ(vb::CLng(u"2.5"), 2);
  EXPECT_THROW(vb::CLng(u"2147483648"), Failure);
  EXPECT_THROW(vb::CLng(u"99999999999"), Failure);
}

struct BoolCase {
  const char16_t* text;
  vb::Boolean expected;
};
void PrintTo(const BoolCase& c, std::ostream* os) { *os << '"' << vb::ToUtf8(c.text) << '"'; }
class CBoolTest : public ::testing::TestWithParam<BoolCase> {};
TEST_P(CBoolTest, NumbersAndWords) { EXPECT_EQ(vb::CBool(GetParam().text), GetParam().expected); }
INSTANTIATE_TEST_SUITE_P(
    Table, CBoolTest,
    ::testing::Values(BoolCase{u"1", vb::Boolean::True}, BoolCase{u"-1", vb::Boolean::True},
                      BoolCase{u"0", vb::Boolean::False}, BoolCase{u"0.0", vb::Boolean::False},
                      BoolCase{u"0.4", vb::Boolean::True}, BoolCase{u"True", vb::Boolean::True},
                      BoolCase{u"false", vb::Boolean::False},
                      BoolCase{u" TRUE ", vb::Boolean::True}));

TEST(CBoolTest, OtherTextIsTypeMismatch) {
  for (const char16_t* t : {u"", u"yes", u"Truee", u"on"}) {
    try {
      vb::CBool(t);
      FAIL() << "no failure";
    } catch (const Failure& f) {
      EXPECT_EQ(f.Number(), vb::kTypeMismatch);
      EXPECT_EQ(f.Description(), u"Type mismatch");
    }
  }
}

TEST(CIntSingleTest, RoundsHalfToEven) {
  EXPECT_EQ(vb::CInt(9.75F), 10);
  EXPECT_EQ(vb::CInt(10.5F), 10);
  EXPECT_EQ(vb::CInt(11.5F), 12);
  EXPECT_THROW(vb::CInt(40000.0F), Failure);
  EXPECT_THROW(vb::CInt(NAN), Failure);
}

struct SingleCase {
  float value;
  const char16_t* text;
};
void PrintTo(const SingleCase& c, std::ostream* os) { *os << vb::ToUtf8(c.text); }
class SingleToTextTest : public ::testing::TestWithParam<SingleCase> {};
TEST_P(SingleToTextTest, ShortestText) {
  EXPECT_EQ(vb::SingleToText(GetParam().value), GetParam().text);
  // What is written reads back as the same single.
  EXPECT_EQ(vb::CSng(GetParam().text), GetParam().value);
}
INSTANTIATE_TEST_SUITE_P(Table, SingleToTextTest,
                         ::testing::Values(SingleCase{10.0F, u"10"}, SingleCase{10.5F, u"10.5"},
                                           SingleCase{9.75F, u"9.75"}, SingleCase{8.25F, u"8.25"},
                                           SingleCase{0.1F, u"0.1"}, SingleCase{-3.5F, u"-3.5"},
                                           SingleCase{0.0F, u"0"}, SingleCase{1e20F, u"1E+20"},
                                           SingleCase{1234567.0F, u"1234567"}));

}  // namespace
