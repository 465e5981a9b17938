#include "workbench/module_text.hpp"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace workbench {
namespace {

using Lines = std::vector<vb::Text>;

vb::Text Joined(const Lines& lines, std::size_t index, std::size_t count) {
  vb::Text text;
  for (std::size_t i = index; i < index + count; ++i) {
    if (i != index) text += u"\r\n";
    text += lines[i];
  }
  return text;
}

// The lines of an added text, split at CR LF, LF or CR.
Lines Split(const vb::Text& text) {
  Lines lines(1);
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != u'\r' && text[i] != u'\n') {
      lines.back() += text[i];
      continue;
    }
    if (text[i] == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n') ++i;
    lines.emplace_back();
  }
  return lines;
}

// The text against a plain list of lines, through random edits: appended
// CR LF text is indexed only when asked for, and every way of asking (one
// line, a range, an edit in the middle) must find the same lines.
TEST(ModuleTextTest, RandomEditsAgreeWithAListOfLines) {
  std::mt19937 random(7);
  auto below = [&](std::size_t n) {
    return std::uniform_int_distribution<std::size_t>(0, n - 1)(random);
  };
  auto text_of = [&](std::size_t lines, bool crlf_only) {
    static const char16_t* const kEnds[] = {u"\r\n", u"\n", u"\r"};
    vb::Text text;
    for (std::size_t i = 0; i < lines; ++i) {
      if (i != 0) text += crlf_only ? u"\r\n" : kEnds[below(3)];
      text += vb::Text(below(30), static_cast<char16_t>(u'a' + below(26)));
    }
    return text;
  };
  for (int round = 0; round < 40; ++round) {
    Lines model = Split(text_of(1 + below(20), true));
    ModuleText text(model);
    for (int step = 0; step < 60; ++step) {
      switch (below(5)) {
        case 0:
        case 1: {  // append or insert, mostly CR LF text
          const vb::Text added = text_of(1 + below(40), below(4) != 0);
          const std::size_t at = below(3) == 0 ? below(model.size() + 1) : model.size();
          const Lines pieces = Split(added);
          ASSERT_EQ(text.Insert(at, added), pieces.size());
          model.insert(model.begin() + static_cast<std::ptrdiff_t>(at), pieces.begin(),
                       pieces.end());
          break;
        }
        case 2: {  // erase, now and then everything
          const std::size_t at = below(model.size() + 1);
          const std::size_t count =
              below(4) == 0 ? model.size() - at : below(model.size() - at + 1);
          text.Erase(at, count);
          model.erase(model.begin() + static_cast<std::ptrdiff_t>(at),
                      model.begin() + static_cast<std::ptrdiff_t>(at + count));
          break;
        }
        case 3:
          if (!model.empty()) {
            const std::size_t at = below(model.size());
            ASSERT_EQ(text.Line(at), model[at]);
          }
          break;
        default: {
          const std::size_t at = below(model.size() + 1);
          const std::size_t count = below(model.size() - at + 1);
          ASSERT_EQ(text.Lines(at, count), Joined(model, at, count));
          break;
        }
      }
      ASSERT_EQ(text.Count(), model.size());
    }
    EXPECT_EQ(text.Copy(), model);
    EXPECT_EQ(text.Lines(0, model.size()), Joined(model, 0, model.size()));
  }
}

TEST(ModuleTextTest, LinesGivenWholeKeepTheirLineEnds) {
  // A line from a file reader may hold a CR; the offsets say where it ends.
  ModuleText text(Lines{u"a\rb", u"c"});
  text.Insert(2, u"d\r\ne");
  EXPECT_EQ(text.Count(), 4u);
  EXPECT_EQ(text.Line(0), u"a\rb");
  EXPECT_EQ(text.Line(3), u"e");
  text.Erase(1, 2);
  EXPECT_EQ(text.Copy(), (Lines{u"a\rb", u"e"}));
}

}  // namespace
}  // namespace workbench
