// Text in the project's code page: every byte sequence comes back as read,
// and the code page is told from the bytes.
#include <gtest/gtest.h>

#include "vbfiles/code_page.hpp"

namespace vbfiles {
namespace {

struct TextCase {
  int page;
  std::string bytes;
  std::u16string text;
};

class CodePageText : public ::testing::TestWithParam<TextCase> {};

TEST_P(CodePageText, DecodesAndWritesBackTheSameBytes) {
  const CodePage page = CodePage::FromNumber(GetParam().page).value();
  EXPECT_EQ(page.Decode(GetParam().bytes), GetParam().text);
  EXPECT_EQ(page.Encode(page.Decode(GetParam().bytes)), GetParam().bytes);
}

INSTANTIATE_TEST_SUITE_P(Pages, CodePageText,
                         ::testing::Values(
                             // A trail byte that is a backslash, and half-width katakana.
                             TextCase{932, "\x95\x5c\\\xb1", u"\u8868\\\uff71"},
                             // The NEC duplicate of U+2252 keeps its own bytes; a lone lead byte at
                             // the end and one before a blank are bytes, not characters.
                             TextCase{932, "\x87\x90\x81\xe0\x81\x7f",
                                      u"\uf787\uf790\u2252\uf781\x7f"},
                             TextCase{932, "a\x95 \x95", u"a\uf795 \uf795"},
                             TextCase{936, "\xd6\xd0\xce\xc4", u"\u4e2d\u6587"},
                             TextCase{949, "\xc7\xd1\xb1\xdb", u"\ud55c\uae00"},
                             TextCase{950, "\xa4\xa4\xa4\xe5", u"\u4e2d\u6587"},
                             TextCase{1252, "\x80\xe9", u"\u20ac\u00e9"}));

struct DetectCase {
  std::vector<std::string> files;
  int page;
};

class CodePageDetection : public ::testing::TestWithParam<DetectCase> {};

TEST_P(CodePageDetection, FollowsWhatTheBytesSay) {
  std::vector<std::string_view> texts(GetParam().files.begin(), GetParam().files.end());
  EXPECT_EQ(DetectCodePage(texts).Number(), GetParam().page);
}

INSTANTIATE_TEST_SUITE_P(
    Files, CodePageDetection,
    ::testing::Values(DetectCase{{"Form=a.frm\r\n"}, 1252},
                      DetectCase{{"Form=\x95\x5c.frm\r\n"}, 932},
                      // An accent before a blank pairs up with nothing.
                      DetectCase{{"Title=\"Caf\xe9 au lait\"\r\nForm=\x95\x5c.frm\r\n"}, 1252},
                      DetectCase{{"Form=a.frm\r\n", "      Charset         =   134\r\n"}, 936},
                      DetectCase{{"Title=\"\xc7\xd1\"\r\n", "Charset = 0\r\n"}, 1252}));

}  // namespace
}  // namespace vbfiles
