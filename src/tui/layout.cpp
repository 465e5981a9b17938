// Captions, wrapping, and message boxes laid out as rows.
#include "tui/layout.hpp"

#include <algorithm>

namespace tui {
Caption StripMarks(const vb::Text& caption) {
  Caption out;
  for (std::size_t i = 0; i < caption.size(); ++i) {
    // "&&" is a literal ampersand; only the first single '&' marks a key.
    if (caption[i] == u'&' && i + 1 < caption.size()) {
      ++i;
      if (caption[i] != u'&' && out.key == vb::Text::npos) out.key = out.text.size();
    }
    out.text.push_back(caption[i]);
  }
  return out;
}

std::vector<Span> CaptionSpans(const Caption& plain, Piece piece, unsigned attrs) {
  std::vector<Span> out;
  auto add = [&](std::size_t from, std::size_t to, unsigned a) {
    if (to > from) out.push_back({plain.text.substr(from, to - from), a});
  };
  const std::size_t end = piece.start + piece.length;
  if (plain.key >= piece.start && plain.key < end) {
    add(piece.start, plain.key, attrs);
    add(plain.key, plain.key + 1, attrs | kUnderline);
    add(plain.key + 1, end, attrs);
  } else {
    add(piece.start, end, attrs);
  }
  return out;
}

std::vector<Span> CaptionSpans(const vb::Text& caption, unsigned attrs) {
  const Caption plain = StripMarks(caption);
  return CaptionSpans(plain, {0, plain.text.size()}, attrs);
}

// ------------------------------------------------------------- wrapping

std::vector<Piece> WrapText(vb::TextView text, int width) {
  const auto room = static_cast<std::size_t>(std::max(width, 1));
  std::vector<Piece> out;
  std::size_t line = 0;
  for (std::size_t i = 0; i <= text.size(); ++i) {
    if (i < text.size() && text[i] != u'\r' && text[i] != u'\n') continue;
    std::size_t at = line;
    while (i - at > room) {
      std::size_t cut = text.substr(at, room + 1).find_last_of(u' ');
      if (cut == vb::TextView::npos || cut == 0) cut = room;
      out.push_back({at, cut});
      at += cut;
      while (at < i && text[at] == u' ') ++at;
    }
    out.push_back({at, i - at});
    if (i + 1 < text.size() && text[i] == u'\r' && text[i + 1] == u'\n') ++i;
    line = i + 1;
  }
  return out;
}

// ------------------------------------------------------- message boxes

BoxLayout LayoutMessageBox(const forms::MessageBox& box, std::span<const std::int32_t> buttons,
                           std::size_t selected, int max_width) {
  constexpr int kMargin = 1;
  std::vector<Span> button_spans;
  for (std::size_t i = 0; i < buttons.size(); ++i) {
    if (i > 0) button_spans.push_back({u"  ", kPlain});
    const vb::Text name = vb::FromUtf8(forms::MsgBoxResultName(buttons[i]));
    button_spans.push_back({u"< " + name + u" >", i == selected ? kReverse : kPlain});
  }
  const auto pieces = WrapText(box.prompt, std::max(max_width - 2 * kMargin, 1));
  int width = std::max(Width(button_spans), static_cast<int>(box.title.size()) + 2) + 2 * kMargin;
  for (const Piece& p : pieces) width = std::max(width, static_cast<int>(p.length) + 2 * kMargin);
  BoxLayout out;
  out.title = box.title;
  out.width = std::min(width, max_width);
  Canvas canvas(static_cast<int>(pieces.size()) + 2, out.width);
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    canvas.Put(static_cast<int>(i), kMargin,
               vb::TextView(box.prompt).substr(pieces[i].start, pieces[i].length), kPlain);
  }
  canvas.Put(static_cast<int>(pieces.size()) + 1, (out.width - Width(button_spans)) / 2,
             button_spans);
  for (int y = 0; y < canvas.Rows(); ++y) out.rows.push_back(canvas.RowAt(y));
  return out;
}

}  // namespace tui
