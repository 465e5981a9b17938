// Positions from twips, one look a class, and the form's frame.
#include "tui/form_view.hpp"

#include <algorithm>

#include "tui/cells.hpp"
#include "vb/failure.hpp"

namespace tui {
namespace {

// The property as a number, or `fallback` when the control has none (a
// Timer has no Width) or it holds text.
int Twips(const workbench::Control& control, vb::TextView name, int fallback) {
  const workbench::PropertySlot* slot = control.FindSlot(name);
  if (!slot) return fallback;
  if (slot->value.Is(vb::Kind::Long)) return slot->value.AsLong();
  if (slot->value.Is(vb::Kind::Integer)) return slot->value.AsInteger();
  return fallback;
}

vb::Text TextOf(const workbench::Control& control, vb::TextView name) {
  const workbench::PropertySlot* slot = control.FindSlot(name);
  return slot && slot->value.Is(vb::Kind::Text) ? slot->value.AsText() : vb::Text();
}

bool Ticked(const workbench::Control& control) {
  const workbench::PropertySlot* slot = control.FindSlot(u"Value");
  if (!slot) return false;
  if (slot->value.Is(vb::Kind::Boolean)) return vb::IsTrue(slot->value.AsBoolean());
  if (slot->value.Is(vb::Kind::Integer)) return slot->value.AsInteger() != 0;
  return false;
}

// Twips of the client area a form's file gives, or the designer's default.
int FormTwips(const workbench::FormComponent& form, vb::TextView name, int fallback) {
  for (const auto& slot : form.FormSlots()) {
    if (!vb::SameName(slot.name, name)) continue;
    if (slot.value.Is(vb::Kind::Long)) return slot.value.AsLong();
    if (slot.value.Is(vb::Kind::Integer)) return slot.value.AsInteger();
  }
  return fallback;
}

void DrawControl(Canvas& canvas, Rect r, const workbench::Control& control, bool selected) {
  const vb::Text cls = control.ClassName();
  const unsigned attrs = selected ? kReverse : kPlain;
  vb::Text caption = WithoutAccessKey(TextOf(control, u"Caption"));
  if (cls == u"Frame" || cls == u"PictureBox" || cls == u"SSTab") {
    canvas.Fill(r);
    canvas.Box(r, cls == u"Frame" ? caption : control.Name(), attrs | kBold);
    if (r.height < 2) canvas.Put(r.top, r.left, control.Name(), attrs | kBold, r.width);
    return;
  }
  vb::Text text;
  if (cls == u"CheckBox") {
    text = (Ticked(control) ? u"[x] " : u"[ ] ") + caption;
  } else if (cls == u"OptionButton") {
    text = (Ticked(control) ? u"(o) " : u"( ) ") + caption;
  } else if (cls == u"CommandButton") {
    text = u"[ " + caption + u" ]";
  } else if (cls == u"TextBox") {
    text = TextOf(control, u"Text");
    if (text.empty()) text = u"_";
  } else if (cls == u"Label") {
    text = caption;
  } else {
    text = u"<" + control.Name() + u">";
  }
  canvas.Fill(r);
  if (cls == u"TextBox" || cls == u"ListBox" || cls == u"ComboBox") {
    canvas.Mark(r.top, r.left, r.width, kUnderline);
  }
  // A control that draws no text of its own still shows where it stands.
  if (text.empty()) text = control.Name();
  canvas.Put(r.top, r.left, text, attrs, r.width);
  canvas.Mark(r.top, r.left, r.width, attrs);
}

}  // namespace

vb::Text WithoutAccessKey(vb::TextView caption) {
  vb::Text out;
  for (std::size_t i = 0; i < caption.size(); ++i) {
    if (caption[i] == u'&' && i + 1 < caption.size()) ++i;
    out.push_back(caption[i]);
  }
  return out;
}

Rect ControlCells(const workbench::Control& control) {
  // Inside a container the offset is rounded on its own, so what a frame
  // holds keeps its place against the frame's border whatever the frame's
  // own rounding.
  Rect origin{};
  if (const auto container = control.Container()) origin = ControlCells(*container);
  return {origin.top + RowOf(Twips(control, u"Top", 0)),
          origin.left + ColumnOf(Twips(control, u"Left", 0)),
          RowsOf(Twips(control, u"Height", kTwipsPerRow)),
          ColumnsOf(Twips(control, u"Width", kTwipsPerColumn * 4))};
}

void DrawFormView(Canvas& canvas, Rect area, const workbench::FormComponent& form,
                  const workbench::Control* selected) {
  // The designer's default client area when the file gives none: 4800 by 3600.
  const Rect client{0, 0, RowsOf(FormTwips(form, u"ClientHeight", 3600)),
                    ColumnsOf(FormTwips(form, u"ClientWidth", 4800))};
  // A form taller or wider than the area scrolls to keep the selection in view.
  Rect chosen{};
  if (selected && !selected->IsDeleted()) chosen = ControlCells(*selected);
  const int down = std::max(chosen.Bottom() + 2 - area.height, 0);
  const int right = std::max(chosen.Right() + 2 - area.width, 0);
  const Rect frame{area.top - down, area.left - right, client.height + 2, client.width + 2};
  canvas.Clip(area);
  canvas.Box(frame, form.FormName(), selected ? kBold : kBold | kReverse);
  const Rect inside{frame.top + 1, frame.left + 1, frame.height - 2, frame.width - 2};
  canvas.Clip({std::max(inside.top, area.top), std::max(inside.left, area.left),
               std::min(inside.Bottom(), area.Bottom()) - std::max(inside.top, area.top),
               std::min(inside.Right(), area.Right()) - std::max(inside.left, area.left)});
  // Containers come before what they hold in the form's order, so children
  // are drawn over them.
  for (const auto& control : form.Controls()) {
    if (control->IsDeleted()) continue;
    Rect r = ControlCells(*control);
    r.top += inside.top;
    r.left += inside.left;
    DrawControl(canvas, r, *control, control.get() == selected);
  }
  canvas.Unclip();
}

}  // namespace tui
