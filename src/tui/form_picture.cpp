// Drawing a form from its geometry, and composing the terminal's screen.
#include "tui/form_picture.hpp"

#include <algorithm>

#include "tui/cells.hpp"

namespace tui {
namespace {

using forms::ControlKind;

vb::Text Repeat(char16_t c, int n) { return vb::Text(static_cast<std::size_t>(std::max(n, 0)), c); }

// Cells of a control: its place in the client area and its size.
struct Box {
  int row, column, rows, columns;
};

class Painter {
 public:
  Painter(FormPicture& out, const forms::Control* focus)
      : out_(out), canvas_(out.canvas), focus_(focus) {}

  void One(const forms::Control& c) {
    const Box b = Where(c);
    if (&c == focus_) out_.focus_row = b.row;
    switch (c.Kind()) {
      case ControlKind::Label:
        return Label(static_cast<const forms::Label&>(c), b);
      case ControlKind::Frame:
        return Frame(c, b);
      case ControlKind::TextBox:
        return TextBox(static_cast<const forms::TextBox&>(c), b);
      case ControlKind::CheckBox: {
        const std::int16_t v = static_cast<const forms::CheckBox&>(c).Value();
        return Toggle(c, b, v == 1 ? u"[x] " : v == 2 ? u"[-] " : u"[ ] ");
      }
      case ControlKind::OptionButton:
        return Toggle(c, b, static_cast<const forms::OptionButton&>(c).Value() ? u"(o) " : u"( ) ");
      case ControlKind::CommandButton:
        return Button(static_cast<const forms::CommandButton&>(c), b);
      case ControlKind::ListBox:
        return List(static_cast<const forms::ListBox&>(c), b);
      case ControlKind::CommonDialog:
        return;
    }
  }

 private:
  // A frame's controls stand relative to it; the client area starts inside
  // the window's border.
  static Box Where(const forms::Control& c) {
    Box b{1, 1, RowsOf(c.Bounds().height), ColumnsOf(c.Bounds().width)};
    for (const forms::Control* p = &c; p; p = p->Container()) {
      b.row += RowOf(p->Bounds().top);
      b.column += ColumnOf(p->Bounds().left);
    }
    return b;
  }
  static unsigned Base(const forms::Control& c) { return c.EffectivelyEnabled() ? kPlain : kDim; }
  bool Focused(const forms::Control& c) const { return &c == focus_; }

  void Frame(const forms::Control& frame, Box b) {
    const unsigned base = Base(frame);
    const int bottom = b.row + b.rows - 1;
    canvas_.Put(b.row, b.column, u"\u250C" + Repeat(u'\u2500', b.columns - 2) + u"\u2510", base);
    for (int y = b.row + 1; y < bottom; ++y) {
      canvas_.Put(y, b.column, u"\u2502", base);
      canvas_.Put(y, b.column + b.columns - 1, u"\u2502", base);
    }
    canvas_.Put(bottom, b.column, u"\u2514" + Repeat(u'\u2500', b.columns - 2) + u"\u2518", base);
    auto caption = CaptionSpans(frame.Caption(), base | kBold);
    if (caption.empty()) return;
    caption.insert(caption.begin(), Span{u" ", base});
    caption.push_back({u" ", base});
    canvas_.Put(b.row, b.column + 1, caption, kPlain, b.columns - 2);
  }

  void Label(const forms::Label& label, Box b) {
    const unsigned attrs = Base(label) | (label.Bold() ? kBold : kPlain);
    const Caption plain = StripMarks(label.Caption());
    const auto pieces = WrapText(plain.text, b.columns);
    for (int i = 0; i < b.rows && i < static_cast<int>(pieces.size()); ++i) {
      const Piece piece = pieces[static_cast<std::size_t>(i)];
      const int room = b.columns - static_cast<int>(piece.length);
      int pad = 0;
      if (label.GetAlignment() == forms::Alignment::Center) pad = room / 2;
      if (label.GetAlignment() == forms::Alignment::Right) pad = room;
      canvas_.Put(b.row + i, b.column + pad, CaptionSpans(plain, piece, attrs), kPlain, b.columns);
    }
  }

  void TextBox(const forms::TextBox& box, Box b) {
    const int field = std::max(b.columns - 2, 1);
    const vb::Text& text = box.Text();
    const int caret = box.SelStart() + box.SelLength();
    // The field scrolls so the caret stays inside it.
    const int first = caret < field ? 0 : caret - field + 1;
    const bool focused = Focused(box);
    const unsigned base = Base(box);
    canvas_.Put(b.row, b.column, u"[", base);
    for (int i = first; i < first + field; ++i) {
      const auto at = static_cast<std::size_t>(i);
      const bool selected = focused && i >= box.SelStart() && i < box.SelStart() + box.SelLength();
      // A selection shows as the field's colours turned round.
      const unsigned attrs = base | (focused != selected ? kReverse : kPlain);
      canvas_.Put(b.row, b.column + 1 + i - first, at < text.size() ? text.substr(at, 1) : u"_",
                  attrs);
    }
    canvas_.Put(b.row, b.column + 1 + field, u"]", base);
    if (focused && box.EffectivelyEnabled())
      out_.caret = Caret{b.row, b.column + 1 + caret - first};
  }

  void Toggle(const forms::Control& c, Box b, vb::TextView mark) {
    const unsigned attrs = Base(c) | (Focused(c) ? kReverse : kPlain);
    auto spans = CaptionSpans(c.Caption(), attrs);
    spans.insert(spans.begin(), Span{vb::Text(mark), attrs});
    canvas_.Put(b.row, b.column, spans, kPlain, b.columns);
  }

  void Button(const forms::CommandButton& button, Box b) {
    const unsigned attrs =
        Base(button) | (button.Default() ? kBold : kPlain) | (Focused(button) ? kReverse : kPlain);
    const auto caption = CaptionSpans(button.Caption(), attrs);
    const int inner = b.columns - 2;
    canvas_.Put(b.row, b.column, u"<" + Repeat(u' ', inner) + u">", attrs);
    canvas_.Put(b.row, b.column + 1 + std::max((inner - Width(caption)) / 2, 0), caption, kPlain,
                inner);
  }

  void List(const forms::ListBox& list, Box b) {
    const unsigned base = Base(list);
    const bool focused = Focused(list);
    const std::int32_t count = list.ListCount();
    const std::int32_t caret = list.Caret();
    if (count == 0) {
      canvas_.Put(b.row, b.column, focused ? u">(empty)" : u" (empty)", base | kDim, b.columns);
      return;
    }
    const std::int32_t shown = std::min<std::int32_t>(count, b.rows);
    // The window keeps the caret in its middle where the list allows.
    const std::int32_t first = std::clamp<std::int32_t>(caret - shown / 2, 0, count - shown);
    for (std::int32_t i = first; i < first + shown; ++i) {
      const int y = b.row + i - first;
      unsigned attrs = base;
      if (i == list.ListIndex()) attrs |= focused ? kReverse : kBold;
      vb::Text text = list.List(i);
      if (list.CheckBoxStyle()) text = (list.Selected(i) ? u"[x] " : u"[ ] ") + text;
      text.resize(std::max<std::size_t>(text.size(), static_cast<std::size_t>(b.columns - 2)),
                  u' ');
      canvas_.Put(y, b.column, focused && i == caret ? u">" : u" ", base);
      canvas_.Put(y, b.column + 1, text, attrs, b.columns - 2);
      const bool more_above = i == first && first > 0;
      const bool more_below = i == first + shown - 1 && first + shown < count;
      canvas_.Put(y, b.column + b.columns - 1,
                  more_below   ? u"v"
                  : more_above ? u"^"
                               : u" ",
                  base | kDim);
      if (focused && i == caret) out_.focus_row = y;
    }
  }

  FormPicture& out_;
  Canvas& canvas_;
  const forms::Control* focus_;
};

int FrameDepth(const forms::Control& c) {
  int depth = 0;
  for (const forms::Control* p = c.Container(); p; p = p->Container()) ++depth;
  return depth;
}

}  // namespace

FormPicture PictureForm(const forms::Form& form) {
  const int columns = ColumnsOf(form.ClientWidth());
  const int rows = RowsOf(form.ClientHeight());
  FormPicture out;
  out.canvas = Canvas(rows + 2, columns + 2);
  Canvas& canvas = out.canvas;
  canvas.Put(0, 0, Repeat(u' ', columns + 2), kReverse);
  const vb::Text& title = form.Caption();
  const int shown = std::min(static_cast<int>(title.size()), columns);
  canvas.Put(0, 1 + (columns - shown) / 2, title, kReverse | kBold, shown);
  for (int y = 1; y <= rows; ++y) {
    canvas.Put(y, 0, u"\u2502", kPlain);
    canvas.Put(y, columns + 1, u"\u2502", kPlain);
  }
  canvas.Put(rows + 1, 0, u"\u2514" + Repeat(u'\u2500', columns) + u"\u2518", kPlain);

  // Frames first, outer before inner, so what they hold draws over them.
  std::vector<const forms::Control*> order;
  for (const auto& c : form.Controls()) {
    if (c->EffectivelyVisible()) order.push_back(c.get());
  }
  auto layer = [](const forms::Control* c) {
    return c->Kind() == ControlKind::Frame ? FrameDepth(*c) : 1 << 20;
  };
  std::stable_sort(order.begin(), order.end(),
                   [&](const auto* a, const auto* b) { return layer(a) < layer(b); });
  Painter painter(out, form.ActiveControl());
  for (const forms::Control* c : order) painter.One(*c);
  return out;
}

vb::Text FormHint(const forms::Form& form) {
  vb::Text hint = u"Tab/Shift+Tab move  Space toggle";
  const forms::CommandButton* ok = form.DefaultButton();
  if (ok && ok->EffectivelyEnabled()) hint += u"  Enter " + StripMarks(ok->Caption()).text;
  const forms::CommandButton* cancel = form.CancelButton();
  if (cancel && cancel->EffectivelyEnabled())
    hint += u"  Esc " + StripMarks(cancel->Caption()).text;
  const bool keys = std::any_of(form.Controls().begin(), form.Controls().end(),
                                [](const auto& c) { return c->AccessKey().has_value(); });
  if (keys) hint += u"  Alt+letter";
  // The close box is the way out where no button cancels.
  if (!cancel) hint += u"  F10 close";
  return hint;
}

Screen ComposeScreen(std::span<forms::Form* const> shown, int rows, int columns,
                     std::map<const forms::Form*, int>& scroll) {
  Screen out{Canvas(rows, columns), std::nullopt};
  // The last line is the hint's.
  const int room = std::max(rows - 1, 1);
  for (std::size_t depth = 0; depth < shown.size(); ++depth) {
    const forms::Form& form = *shown[depth];
    const FormPicture picture = PictureForm(form);
    const Canvas& window = picture.canvas;
    const int height = std::min(window.Rows(), room);
    int& first = scroll[&form];
    if (picture.focus_row >= 0) {
      first = std::min(first, picture.focus_row);
      first = std::max(first, picture.focus_row - height + 1);
    }
    first = std::clamp(first, 0, window.Rows() - height);
    const int step = static_cast<int>(depth);
    const int y0 = std::clamp((room - height) / 2 + step, 0, room - height);
    const int x0 = std::clamp((columns - window.Columns()) / 2 + 2 * step, 0,
                              std::max(columns - window.Columns(), 0));
    out.canvas.Draw(y0, x0, window, first, height);
    out.caret.reset();
    if (picture.caret && picture.caret->row >= first && picture.caret->row < first + height)
      out.caret = Caret{y0 + picture.caret->row - first, x0 + picture.caret->column};
    if (depth + 1 == shown.size()) out.canvas.Put(rows - 1, 0, FormHint(form), kDim, columns);
  }
  return out;
}

}  // namespace tui
