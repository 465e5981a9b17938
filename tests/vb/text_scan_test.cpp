#include "vb/text_scan.hpp"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace {

using vb::ScanWidth;
using vb::Text;
using vb::TextView;

// Every width, held to the same answers. The vector forms handle 16 or 32
// characters per step and leave the rest to the plain loop, so lengths and
// positions around those sizes are where they could go wrong.
class TextScanTest : public ::testing::TestWithParam<ScanWidth> {
 protected:
  // Text over a few characters, so that partial and overlapping matches are
  // common; CR and LF among them for the line-end scans.
  Text RandomText(std::size_t size, TextView alphabet) {
    std::uniform_int_distribution<std::size_t> pick(0, alphabet.size() - 1);
    Text text;
    for (std::size_t i = 0; i < size; ++i) text += alphabet[pick(random_)];
    return text;
  }
  std::size_t Below(std::size_t n) {
    return std::uniform_int_distribution<std::size_t>(0, n - 1)(random_);
  }

  std::mt19937 random_{20240611};
};

TEST_P(TextScanTest, FindTextAnswersAsFindDoes) {
  for (int round = 0; round < 3000; ++round) {
    const Text text = RandomText(Below(round % 10 == 0 ? 300 : 80), u"ab\u00e9\xffff");
    const Text find = RandomText(1 + Below(round % 7 == 0 ? 40 : 4), u"ab\u00e9\xffff");
    const std::size_t from = Below(text.size() + 2);
    EXPECT_EQ(vb::FindText(text, find, from, GetParam()), TextView(text).find(find, from))
        << "text of " << text.size() << ", find of " << find.size() << ", from " << from;
  }
}

TEST_P(TextScanTest, FindEachTakesOccurrencesLeftToRightWithoutOverlap) {
  for (int round = 0; round < 2000; ++round) {
    const Text text = RandomText(Below(200), u"aab");
    const Text find = RandomText(1 + Below(3), u"ab");
    std::vector<std::size_t> expected;
    for (auto at = TextView(text).find(find); at != TextView::npos;
         at = TextView(text).find(find, at + find.size())) {
      expected.push_back(at);
    }
    std::vector<std::size_t> found;
    vb::FindEach(text, find, found, GetParam());
    EXPECT_EQ(found, expected);
  }
  std::vector<std::size_t> found;
  vb::FindEach(u"aaaaa", u"aa", found, GetParam());
  EXPECT_EQ(found, (std::vector<std::size_t>{0, 2}));
}

TEST_P(TextScanTest, CountCrLfAcceptsOnlyPairs) {
  struct Case {
    const char16_t* text;
    bool crlf_only;
    std::size_t line_ends;
  };
  for (const Case& c : {Case{u"", true, 0}, Case{u"a", true, 0}, Case{u"a\r\nb", true, 1},
                        Case{u"\r\n\r\n", true, 2}, Case{u"a\nb", false, 0},
                        Case{u"a\rb", false, 0}, Case{u"\n", false, 0}, Case{u"a\r", false, 0},
                        Case{u"\r\r\n", false, 0}, Case{u"\r\n\n", false, 0}}) {
    const vb::CrLfCount count = vb::CountCrLf(c.text, GetParam());
    EXPECT_EQ(count.crlf_only, c.crlf_only) << vb::ToUtf8(c.text);
    EXPECT_EQ(count.line_ends, c.line_ends) << vb::ToUtf8(c.text);
  }
  // Mostly well-formed lines, now and then a lone CR or LF anywhere: the
  // plain loop, held to the cases above, is the reference.
  for (int round = 0; round < 3000; ++round) {
    Text text;
    const std::size_t lines = Below(12);
    for (std::size_t i = 0; i < lines; ++i) text += RandomText(Below(40), u"xy ") + u"\r\n";
    if (round % 3 == 0 && !text.empty()) text[Below(text.size())] = round % 2 ? u'\r' : u'\n';
    if (round % 5 == 0) text += RandomText(Below(5), u"x\r\n");
    const vb::CrLfCount plain = vb::CountCrLf(text, ScanWidth::Plain);
    const vb::CrLfCount count = vb::CountCrLf(text, GetParam());
    EXPECT_EQ(count.crlf_only, plain.crlf_only) << vb::ToUtf8(text);
    if (plain.crlf_only) {
      EXPECT_EQ(count.line_ends, plain.line_ends) << vb::ToUtf8(text);
    }
  }
}

TEST_P(TextScanTest, AppendLineStartsFindsEveryLineAfterTheFirst) {
  for (int round = 0; round < 2000; ++round) {
    Text text;
    std::vector<std::size_t> expected = {7};  // kept: the call appends
    const std::size_t lines = Below(20);
    for (std::size_t i = 0; i < lines; ++i) {
      text += RandomText(Below(round % 4 == 0 ? 3 : 50), u"ab ") + u"\r\n";
      expected.push_back(100 + text.size());
    }
    std::vector<std::size_t> starts = {7};
    vb::AppendLineStarts(text, 100, starts, GetParam());
    EXPECT_EQ(starts, expected);
  }
}

INSTANTIATE_TEST_SUITE_P(Widths, TextScanTest,
                         ::testing::Values(ScanWidth::Plain, ScanWidth::Sse2, ScanWidth::Avx2),
                         [](const ::testing::TestParamInfo<ScanWidth>& width) {
                           return width.param == ScanWidth::Plain  ? "Plain"
                                  : width.param == ScanWidth::Sse2 ? "Sse2"
                                                                   : "Avx2";
                         });

}  // namespace
