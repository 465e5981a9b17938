// Laying out forms and message boxes as rows of attributed text.
//
// Sections: rows and captions - one row per kind of control - the form's
// tree of frames - message boxes.
#include "tui/layout.hpp"

#include <algorithm>

namespace tui {
namespace {

using forms::ControlKind;

// Control characters would move the terminal's cursor; each shows as one
// middle dot instead, so columns still match positions in the text.
vb::Text Printable(vb::TextView text) {
  vb::Text out(text);
  for (char16_t& c : out) {
    if (c < 0x20 || c == 0x7F) c = u'\u00B7';
  }
  return out;
}

class RowBuilder {
 public:
  explicit RowBuilder(const forms::Control* control) { row_.control = control; }
  RowBuilder& Add(vb::TextView text, unsigned attrs = kPlain) {
    if (text.empty()) return *this;
    if (!row_.spans.empty() && row_.spans.back().attrs == attrs) {
      row_.spans.back().text += Printable(text);
    } else {
      row_.spans.push_back({Printable(text), attrs});
    }
    return *this;
  }
  RowBuilder& Add(const std::vector<Span>& spans, unsigned extra = kPlain) {
    for (const Span& s : spans) Add(s.text, s.attrs | extra);
    return *this;
  }
  RowBuilder& Pad(int cells, unsigned attrs = kPlain) {
    if (cells > 0) Add(vb::Text(static_cast<std::size_t>(cells), u' '), attrs);
    return *this;
  }
  int Width() const { return RowWidth(row_); }
  Row Take() { return std::move(row_); }

 private:
  Row row_;
};

int Cells(const std::vector<Span>& spans) {
  int n = 0;
  for (const Span& s : spans) n += static_cast<int>(s.text.size());
  return n;
}

// ------------------------------------------------------------ the controls

struct Place {
  const LayoutOptions* options;
  FormLayout* out;
  int indent = 0;
  const forms::Control* focus = nullptr;

  unsigned Base(const forms::Control& c) const { return c.EffectivelyEnabled() ? kPlain : kDim; }
  bool Focused(const forms::Control& c) const { return &c == focus; }
  void Push(RowBuilder& row, const forms::Control& c) {
    if (Focused(c)) out->focus_row = static_cast<int>(out->rows.size());
    out->rows.push_back(row.Take());
  }

  void Label(const forms::Label& label) {
    unsigned attrs = Base(label) | (label.Bold() ? kBold : kPlain);
    const auto spans = CaptionSpans(label.Caption(), attrs);
    const int room = options->width - indent - Cells(spans);
    int pad = 0;
    if (label.GetAlignment() == forms::Alignment::Center) pad = room / 2;
    if (label.GetAlignment() == forms::Alignment::Right) pad = room;
    RowBuilder row(&label);
    row.Pad(indent).Pad(pad).Add(spans);
    Push(row, label);
  }

  void Frame(const forms::Frame& frame) {
    RowBuilder row(&frame);
    row.Pad(indent).Add(CaptionSpans(frame.Caption(), Base(frame) | kBold));
    const int rule = options->width - row.Width() - 1;
    if (rule > 0) row.Add(u" ").Add(vb::Text(static_cast<std::size_t>(rule), u'-'), kDim);
    Push(row, frame);
  }

  void TextBox(const forms::TextBox& box) {
    const int field = std::max(options->width - indent - 2, options->min_field);
    const vb::Text& text = box.Text();
    const int caret = box.SelStart() + box.SelLength();
    // The field scrolls so the caret stays inside it.
    const int first = caret < field ? 0 : caret - field + 1;
    const bool focused = Focused(box);
    const unsigned base = Base(box);
    const unsigned field_attrs = base | (focused ? kReverse : kPlain);
    RowBuilder row(&box);
    row.Pad(indent).Add(u"[", base);
    for (int i = first; i < first + field; ++i) {
      const auto at = static_cast<std::size_t>(i);
      const bool selected = focused && i >= box.SelStart() && i < box.SelStart() + box.SelLength();
      // A selection shows as the field's colours turned round.
      const unsigned attrs = selected ? base : field_attrs;
      row.Add(at < text.size() ? vb::TextView(text).substr(at, 1) : vb::TextView(u"_"), attrs);
    }
    row.Add(u"]", base);
    if (focused && box.EffectivelyEnabled())
      out->caret = Caret{static_cast<int>(out->rows.size()), indent + 1 + caret - first};
    Push(row, box);
  }

  void Toggle(const forms::Control& c, vb::TextView mark) {
    const unsigned attrs = Base(c) | (Focused(c) ? kReverse : kPlain);
    RowBuilder row(&c);
    row.Pad(indent).Add(mark, attrs).Add(u" ", attrs).Add(CaptionSpans(c.Caption(), attrs));
    Push(row, c);
  }

  void CheckBox(const forms::CheckBox& check) {
    const std::int16_t v = check.Value();
    Toggle(check, v == 1 ? u"[x]" : v == 2 ? u"[-]" : u"[ ]");
  }

  void OptionButton(const forms::OptionButton& option) {
    Toggle(option, option.Value() ? u"(o)" : u"( )");
  }

  void Button(const forms::CommandButton& button) {
    const unsigned attrs =
        Base(button) | (button.Default() ? kBold : kPlain) | (Focused(button) ? kReverse : kPlain);
    RowBuilder row(&button);
    row.Pad(indent).Add(u"< ", attrs).Add(CaptionSpans(button.Caption(), attrs)).Add(u" >", attrs);
    Push(row, button);
  }

  void List(const forms::ListBox& list) {
    const unsigned base = Base(list);
    const bool focused = Focused(list);
    const std::int32_t count = list.ListCount();
    if (count == 0) {
      RowBuilder row(&list);
      row.Pad(indent).Add(u" (empty)", base | kDim | (focused ? kReverse : kPlain));
      Push(row, list);
      return;
    }
    const std::int32_t shown = std::min<std::int32_t>(count, std::max(options->list_rows, 1));
    const std::int32_t cursor = ListCursor(list);
    // The window keeps the cursor in its middle where the list allows.
    const std::int32_t first = std::clamp<std::int32_t>(cursor - shown / 2, 0, count - shown);
    for (std::int32_t i = first; i < first + shown; ++i) {
      const bool more_above = i == first && first > 0;
      const bool more_below = i == first + shown - 1 && first + shown < count;
      unsigned attrs = base;
      if (i == cursor && focused) attrs |= kReverse;
      if (i == list.ListIndex() && !focused) attrs |= kBold;
      RowBuilder row(&list);
      row.Pad(indent).Add(more_below ? u"v" : more_above ? u"^" : u" ", base | kDim);
      if (list.CheckBoxStyle()) row.Add(list.Selected(i) ? u"[x] " : u"[ ] ", attrs);
      row.Add(list.List(i), attrs);
      if (i == cursor && focused) out->focus_row = static_cast<int>(out->rows.size());
      out->rows.push_back(row.Take());
    }
  }

  void One(const forms::Control& c) {
    switch (c.Kind()) {
      case ControlKind::Label:
        return Label(static_cast<const forms::Label&>(c));
      case ControlKind::Frame:
        return Frame(static_cast<const forms::Frame&>(c));
      case ControlKind::TextBox:
        return TextBox(static_cast<const forms::TextBox&>(c));
      case ControlKind::CheckBox:
        return CheckBox(static_cast<const forms::CheckBox&>(c));
      case ControlKind::OptionButton:
        return OptionButton(static_cast<const forms::OptionButton&>(c));
      case ControlKind::CommandButton:
        return Button(static_cast<const forms::CommandButton&>(c));
      case ControlKind::ListBox:
        return List(static_cast<const forms::ListBox&>(c));
      case ControlKind::CommonDialog:
        return;
    }
  }
};

// ------------------------------------------------------- the form's tree

// The controls directly in `container` (null: the form), in tab order, each
// frame followed by what it holds. A frame may stand after its controls in
// the tab order; they still show under it.
void PlaceChildren(Place& place, const std::vector<forms::Control*>& order,
                   const forms::Control* container) {
  for (const forms::Control* c : order) {
    if (c->Container() != container || !c->Visible()) continue;
    place.One(*c);
    if (c->Kind() == ControlKind::Frame) {
      place.indent += place.options->indent;
      PlaceChildren(place, order, c);
      place.indent -= place.options->indent;
    }
  }
}

// ------------------------------------------------------- message boxes

std::vector<vb::Text> PromptLines(const vb::Text& prompt) {
  std::vector<vb::Text> lines(1);
  for (std::size_t i = 0; i < prompt.size(); ++i) {
    const char16_t c = prompt[i];
    if (c == u'\r' || c == u'\n') {
      if (c == u'\r' && i + 1 < prompt.size() && prompt[i + 1] == u'\n') ++i;
      lines.emplace_back();
    } else {
      lines.back().push_back(c);
    }
  }
  return lines;
}

// Breaks a line at the last blank that lets a piece fit, or hard at the width.
std::vector<vb::Text> Wrap(const vb::Text& line, std::size_t width) {
  std::vector<vb::Text> out;
  vb::TextView rest(line);
  while (rest.size() > width) {
    std::size_t cut = rest.substr(0, width + 1).find_last_of(u' ');
    if (cut == vb::TextView::npos || cut == 0) cut = width;
    out.emplace_back(rest.substr(0, cut));
    rest.remove_prefix(cut);
    while (!rest.empty() && rest.front() == u' ') rest.remove_prefix(1);
  }
  out.emplace_back(rest);
  return out;
}

}  // namespace

// ------------------------------------------------------ rows and captions

vb::Text RowText(const Row& row) {
  vb::Text text;
  for (const Span& s : row.spans) text += s.text;
  return text;
}

int RowWidth(const Row& row) { return Cells(row.spans); }

std::vector<Span> CaptionSpans(const vb::Text& caption, unsigned attrs) {
  std::vector<Span> spans;
  vb::Text plain;
  bool keyed = false;
  for (std::size_t i = 0; i < caption.size(); ++i) {
    if (caption[i] != u'&' || i + 1 >= caption.size()) {
      plain.push_back(caption[i]);
      continue;
    }
    ++i;
    // "&&" is a literal ampersand; only the first single '&' marks a key.
    if (caption[i] == u'&' || keyed) {
      plain.push_back(caption[i]);
      continue;
    }
    keyed = true;
    if (!plain.empty()) spans.push_back({std::move(plain), attrs});
    plain.clear();
    spans.push_back({vb::Text(1, caption[i]), attrs | kUnderline});
  }
  if (!plain.empty()) spans.push_back({std::move(plain), attrs});
  return spans;
}

std::int32_t ListCursor(const forms::ListBox& list) {
  if (list.ListCount() == 0) return -1;
  return std::max<std::int32_t>(list.ListIndex(), 0);
}

FormLayout LayoutForm(const forms::Form& form, const LayoutOptions& options) {
  FormLayout out;
  out.title = form.Caption();
  Place place{&options, &out, 0, form.ActiveControl()};
  PlaceChildren(place, form.TabOrder(), nullptr);
  return out;
}

int NaturalWidth(const forms::Form& form, const LayoutOptions& options) {
  // At no width at all nothing pads or stretches, so the rows' own widths
  // are what the controls need.
  LayoutOptions narrow = options;
  narrow.width = 0;
  int widest = 0;
  for (const Row& row : LayoutForm(form, narrow).rows) widest = std::max(widest, RowWidth(row));
  return widest;
}

BoxLayout LayoutMessageBox(const forms::MessageBox& box, std::span<const std::int32_t> buttons,
                           std::size_t selected, int max_width) {
  constexpr int kMargin = 1;
  const int text_room = std::max(max_width - 2 * kMargin, 1);
  std::vector<vb::Text> lines;
  for (const vb::Text& line : PromptLines(box.prompt)) {
    for (vb::Text& piece : Wrap(line, static_cast<std::size_t>(text_room))) {
      lines.push_back(std::move(piece));
    }
  }
  std::vector<Span> button_spans;
  for (std::size_t i = 0; i < buttons.size(); ++i) {
    if (i > 0) button_spans.push_back({u"  ", kPlain});
    const vb::Text name = vb::FromUtf8(forms::MsgBoxResultName(buttons[i]));
    button_spans.push_back({u"< " + name + u" >", i == selected ? kReverse : kPlain});
  }
  int width = Cells(button_spans) + 2 * kMargin;
  width = std::max(width, static_cast<int>(box.title.size()) + 4);
  for (const vb::Text& line : lines) {
    width = std::max(width, static_cast<int>(line.size()) + 2 * kMargin);
  }
  BoxLayout out;
  out.title = box.title;
  out.width = std::min(width, max_width);
  for (const vb::Text& line : lines) {
    RowBuilder row(nullptr);
    row.Pad(kMargin).Add(line);
    out.rows.push_back(row.Take());
  }
  out.rows.emplace_back();
  RowBuilder row(nullptr);
  row.Pad((out.width - Cells(button_spans)) / 2).Add(button_spans);
  out.rows.push_back(row.Take());
  return out;
}

}  // namespace tui
