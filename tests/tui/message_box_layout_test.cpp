// A message box's rows: the prompt wrapped, a blank row, the buttons centred.
#include <gtest/gtest.h>

#include "tui/layout.hpp"

namespace tui {
namespace {

std::string Texts(const BoxLayout& layout) {
  std::string out;
  for (const Row& row : layout.rows) {
    vb::Text text = RowText(row);
    text.erase(text.find_last_not_of(u' ') + 1);
    out += (out.empty() ? "" : "|") + vb::ToUtf8(text);
  }
  return out;
}

TEST(MessageBoxLayout, PromptLinesWrappedThenTheButtonsCentred) {
  forms::MessageBox box{u"Line one\r\nLine two", forms::vbYesNoCancel, u"Tessaly", true};
  BoxLayout layout = LayoutMessageBox(box, forms::MsgBoxButtons(box.buttons), 1, 40);
  EXPECT_EQ(layout.width, 29);
  EXPECT_EQ(Texts(layout), " Line one| Line two|| < Yes >  < No >  < Cancel >");
  EXPECT_EQ(layout.rows[3].spans[1], (Span{u"< No >", kReverse}));
  // Long lines wrap at blanks, or hard at the width; a long title widens the box.
  box = forms::MessageBox{u"aaaa bbbb cccc\nabcdefghij", forms::vbOKOnly, u"T", false};
  layout = LayoutMessageBox(box, forms::MsgBoxButtons(box.buttons), 0, 8);
  EXPECT_EQ(layout.width, 8);
  EXPECT_EQ(Texts(layout), " aaaa| bbbb| cccc| abcdef| ghij|| < OK >");
  box = forms::MessageBox{u"Hi", forms::vbOKOnly, u"A rather long title", true};
  EXPECT_EQ(LayoutMessageBox(box, forms::MsgBoxButtons(box.buttons), 0, 60).width, 23);
}

}  // namespace
}  // namespace tui
