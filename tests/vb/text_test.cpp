#include "vb/text.hpp"

#include <gtest/gtest.h>

namespace {

struct LikeCase {
  const char16_t* text;
  const char16_t* pattern;
  bool matches;
};
void PrintTo(const LikeCase& c, std::ostream* os) {
  *os << '"' << vb::ToUtf8(c.text) << (c.matches ? "\" Like \"" : "\" Not Like \"")
      << vb::ToUtf8(c.pattern) << '"';
}
class LikeTest : public ::testing::TestWithParam<LikeCase> {};
TEST_P(LikeTest, StarOnly) {
  const auto& c = GetParam();
  EXPECT_EQ(vb::Like(c.text, c.pattern), c.matches)
      << vb::ToUtf8(c.text) << " Like " << vb::ToUtf8(c.pattern);
}
INSTANTIATE_TEST_SUITE_P(
    Table, LikeTest,
    ::testing::Values(
        LikeCase{u"Text1_Change", u"Text1_*", true}, LikeCase{u"Text1_", u"Text1_*", true},
        LikeCase{u"Text10_Change", u"Text1_*", false}, LikeCase{u"text1_Change", u"Text1_*", false},
        LikeCase{u"Text1_Helper", u"Text1_*", true},
        // Only '*' is special: '?', '#' and '[' stand for themselves.
        LikeCase{u"A?B", u"A?B", true}, LikeCase{u"AxB", u"A?B", false},
        LikeCase{u"A#_x", u"A#_*", true}, LikeCase{u"A1_x", u"A#_*", false},
        LikeCase{u"[a]_x", u"[a]_*", true}, LikeCase{u"a_x", u"[a]_*", false},
        LikeCase{u"", u"*", true}, LikeCase{u"", u"", true}, LikeCase{u"abc", u"a*c*", true},
        LikeCase{u"abcbc", u"*bc", true}, LikeCase{u"ab", u"a*b*c", false}));

TEST(TrimTest, BlanksOnlyNotTabs) {
  EXPECT_EQ(vb::Trim(u"  a b  "), u"a b");
  EXPECT_EQ(vb::Trim(u"\tEnd Sub"), u"\tEnd Sub");
  EXPECT_EQ(vb::Trim(u"   "), u"");
}

TEST(ReplaceTest, LeftToRightNoRescan) {
  EXPECT_EQ(vb::Replace(u"Text1 Text10 text1", u"Text1", u"Text2"), u"Text2 Text20 text1");
  EXPECT_EQ(vb::Replace(u"aaa", u"aa", u"a"), u"aa");
  EXPECT_EQ(vb::Replace(u"abc", u"", u"x"), u"abc");
  EXPECT_EQ(vb::Replace(u"ab", u"b", u"bb"), u"abb");
}

TEST(PositionsTest, OneBased) {
  EXPECT_EQ(vb::InStr(1, u"abcabc", u"c"), 3u);
  EXPECT_EQ(vb::InStr(4, u"abcabc", u"c"), 6u);
  EXPECT_EQ(vb::InStr(1, u"abc", u"x"), 0u);
  EXPECT_EQ(vb::Mid(u"txtName", 4), u"Name");
  EXPECT_EQ(vb::Mid(u"txt", 4), u"");
  EXPECT_EQ(vb::Mid(u"abcdef", 2, 3), u"bcd");
  EXPECT_EQ(vb::Left(u"abc", 7), u"abc");
}

TEST(EncodingTest, Utf8RoundTripIncludingSurrogatePairs) {
  const vb::Text t = u"Gr\u00fc\u00dfe \U0001F600 \u20ac";
  EXPECT_EQ(vb::FromUtf8(vb::ToUtf8(t)), t);
  EXPECT_EQ(vb::FromUtf8("\xff"), u"\ufffd");
  EXPECT_EQ(vb::FromUtf8("\xc0\x80"), u"\ufffd\ufffd");  // overlong NUL
}

TEST(EncodingTest, Cp1252HighBytes) {
  EXPECT_EQ(vb::FromCp1252("\x80\x93\xe9"), u"\u20ac\u201c\u00e9");
  EXPECT_EQ(vb::ToCp1252(u"\u20ac\u201c\u00e9"), "\x80\x93\xe9");
  EXPECT_EQ(vb::ToCp1252(u"\u4e2d"), "?");
  // Undefined bytes survive a round trip.
  EXPECT_EQ(vb::ToCp1252(vb::FromCp1252("\x81\x8d")), "\x81\x8d");
}

}  // namespace
