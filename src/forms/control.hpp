// The intrinsic controls of the forms runtime, with their VB semantics.
//
// A control belongs to one form, may sit in a frame (its container), and may be
// an element of a control array (Index() >= 0). State is private; setters that
// may raise an event say so; a setter returns early when nothing changes.
// Events are plain callbacks that the form's code sets once after building.
// Programmatic changes raise the same events as user changes where VB does:
// Change on every text change, Click when a check box's or option button's
// Value changes.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "vb/text.hpp"
#include "vb/value.hpp"

namespace forms {

class Form;
class Control;

enum class ControlKind {
  Label,
  TextBox,
  CheckBox,
  OptionButton,
  CommandButton,
  ListBox,
  Frame,
  CommonDialog,
};
const char* ControlKindName(ControlKind kind);

// By-reference argument of KeyPress: set KeyAscii to 0 to swallow the key.
struct KeyPressArgs {
  std::int16_t KeyAscii;
};

using EventHandler = std::function<void(Control& sender)>;
using KeyPressHandler = std::function<void(Control& sender, KeyPressArgs& args)>;

enum class Alignment { Left = 0, Right = 1, Center = 2 };

// Where a control stands, in twips as VB measures a form: Left and Top from
// the client area's corner, or from the frame's corner for a control inside a
// frame. Every front end draws from these; zero width means "not placed".
struct Bounds {
  std::int32_t left = 0;
  std::int32_t top = 0;
  std::int32_t width = 0;
  std::int32_t height = 0;
};

class Control {
 public:
  virtual ~Control() = default;
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  ControlKind Kind() const { return kind_; }
  const std::string& Name() const { return name_; }
  // Element number in a control array, or -1 for a control outside one.
  std::int16_t Index() const { return index_; }
  // "txtName" or "optSB(3)": how traces and scripts address the control.
  std::string Path() const;
  Form& Parent() const { return *form_; }
  // The frame that holds the control, or null for the form itself.
  Control* Container() const { return container_; }

  bool Enabled() const { return enabled_; }
  void SetEnabled(bool enabled);
  bool Visible() const { return visible_; }
  void SetVisible(bool visible);
  const vb::Text& Tag() const { return tag_; }
  void SetTag(vb::Text tag) { tag_ = std::move(tag); }
  // Place in the tab order; -1 for controls outside it (the common dialog).
  int TabIndex() const { return tab_index_; }

  // Enabled and visible, and those of every frame that holds it.
  bool EffectivelyEnabled() const;
  bool EffectivelyVisible() const;
  // Whether the control can ever take the focus (labels, frames and the
  // common dialog cannot) and whether it can now.
  virtual bool Focusable() const { return false; }
  bool CanTakeFocus() const;
  // Moves the focus here. Fails with "Invalid procedure call or argument" (5)
  // when the control cannot take the focus or its form is not shown.
  void SetFocus();

  // The letter after a single '&' in the caption, upper-cased, if any.
  std::optional<char16_t> AccessKey() const;
  const vb::Text& Caption() const { return caption_; }
  // The design position, relative to the container (see Bounds).
  const forms::Bounds& Bounds() const { return bounds_; }

  // Restores the values the control had when its form was built.
  virtual void RestoreDesign();

 protected:
  Control(ControlKind kind, Form& form, std::string name, std::int16_t index);
  void SetCaptionRaw(vb::Text caption) { caption_ = std::move(caption); }
  // Snapshot of the design values, taken once the form is built.
  virtual void TakeDesign();

 private:
  friend class Form;
  ControlKind kind_;
  Form* form_;
  std::string name_;
  std::int16_t index_;
  Control* container_ = nullptr;
  bool enabled_ = true;
  bool visible_ = true;
  vb::Text tag_;
  vb::Text caption_;
  int tab_index_ = -1;
  forms::Bounds bounds_{};
  struct Design {
    bool enabled, visible;
    vb::Text tag, caption;
  } design_{};
};

class Label : public Control {
 public:
  Label(Form& form, std::string name, std::int16_t index = -1);
  void SetCaption(vb::Text caption) { SetCaptionRaw(std::move(caption)); }
  Alignment GetAlignment() const { return alignment_; }
  void SetAlignment(Alignment a) { alignment_ = a; }
  bool Bold() const { return bold_; }
  void SetBold(bool b) { bold_ = b; }

 private:
  Alignment alignment_ = Alignment::Left;
  bool bold_ = false;
};

class Frame : public Control {
 public:
  Frame(Form& form, std::string name, std::int16_t index = -1);
  void SetCaption(vb::Text caption) { SetCaptionRaw(std::move(caption)); }
};

class TextBox : public Control {
 public:
  TextBox(Form& form, std::string name, std::int16_t index = -1);
  bool Focusable() const override { return true; }

  const vb::Text& Text() const { return text_; }
  // Replaces the text; raises Change when it differs. The caret goes to the
  // start, as the runtime does for a programmatic change.
  void SetText(vb::Text text);
  // 0 means no limit. A limit does not cut text set by code.
  std::int32_t MaxLength() const { return max_length_; }
  void SetMaxLength(std::int32_t n) { max_length_ = n; }
  std::int32_t SelStart() const { return sel_start_; }
  // Clamped to the text's length; the selection collapses to an insertion
  // point there (SelLength 0), as VB does. A negative start fails with
  // "Invalid property value" (380).
  void SetSelStart(std::int32_t start);
  std::int32_t SelLength() const { return sel_length_; }
  // Clamped so the span ends inside the text; negative fails with 380.
  void SetSelLength(std::int32_t length);
  vb::Text SelText() const;
  bool MultiLine() const { return multi_line_; }
  void SetMultiLine(bool m) { multi_line_ = m; }

  // User input, as the front end delivers it. Each does nothing on a control
  // that is not effectively enabled.
  // A typed character: KeyPress first (which may change or swallow it), then
  // the character replaces the selection if MaxLength allows, then Change.
  // Backspace (8) also goes through KeyPress and deletes as usual if it passes.
  void TypeChar(char16_t ch);
  // Pasted text: no KeyPress; replaces the selection, cut to MaxLength; Change.
  void Paste(const vb::Text& text);
  // The Delete key: no KeyPress; removes the selection or the character
  // behind the caret; Change if anything went.
  void DeleteKey();
  // Caret movement (arrows, Home, End); `extend` with Shift.
  void MoveCaret(std::int32_t to, bool extend);

  KeyPressHandler KeyPress;
  EventHandler Change;

  void RestoreDesign() override;

 protected:
  void TakeDesign() override;

 private:
  void ReplaceSelection(const vb::Text& with);
  vb::Text text_;
  std::int32_t max_length_ = 0;
  std::int32_t sel_start_ = 0;
  std::int32_t sel_length_ = 0;
  // Which end of the selection the caret is at; Shift+arrow extends from
  // the other end.
  bool caret_at_start_ = false;
  bool multi_line_ = false;
  struct {
    vb::Text text;
    std::int32_t max_length;
  } design_text_{};
};

class CheckBox : public Control {
 public:
  CheckBox(Form& form, std::string name, std::int16_t index = -1);
  bool Focusable() const override { return true; }
  void SetCaption(vb::Text caption) { SetCaptionRaw(std::move(caption)); }
  // 0 unchecked, 1 checked, 2 grayed.
  std::int16_t Value() const { return value_; }
  // Raises Click when the value changes, also when code changes it.
  void SetValue(std::int16_t value);
  // A user click (mouse, Space, access key): toggles 0 and 1, raises Click.
  void UserClick();
  EventHandler Click;
  void RestoreDesign() override;

 protected:
  void TakeDesign() override;

 private:
  std::int16_t value_ = 0;
  std::int16_t design_value_ = 0;
};

class OptionButton : public Control {
 public:
  OptionButton(Form& form, std::string name, std::int16_t index = -1);
  bool Focusable() const override { return true; }
  void SetCaption(vb::Text caption) { SetCaptionRaw(std::move(caption)); }
  bool Value() const { return value_; }
  // Setting True clears the other option buttons of the same container and
  // raises Click on this one if it was not already selected. Setting False
  // only clears this one.
  void SetValue(bool value);
  // A user click: selects this button and raises Click.
  void UserClick();
  EventHandler Click;
  void RestoreDesign() override;

 protected:
  void TakeDesign() override;

 private:
  bool value_ = false;
  bool design_value_ = false;
};

class CommandButton : public Control {
 public:
  CommandButton(Form& form, std::string name, std::int16_t index = -1);
  bool Focusable() const override { return true; }
  void SetCaption(vb::Text caption) { SetCaptionRaw(std::move(caption)); }
  // Enter presses the form's default button, Esc its cancel button.
  bool Default() const { return default_; }
  void SetDefault(bool d) { default_ = d; }
  bool Cancel() const { return cancel_; }
  void SetCancel(bool c) { cancel_ = c; }
  // A press by the user (click, Space, Enter, Esc, access key): raises
  // Click. Does nothing when the button is not effectively enabled. The
  // focus is the form's business: a mouse click moves it here first, Enter
  // and Esc leave it where it is.
  void UserClick();
  EventHandler Click;

 private:
  bool default_ = false;
  bool cancel_ = false;
};

class ListBox : public Control {
 public:
  ListBox(Form& form, std::string name, std::int16_t index = -1);
  bool Focusable() const override { return true; }
  // Sorted lists keep alphabetical order, case ignored.
  bool Sorted() const { return sorted_; }
  void SetSorted(bool s) { sorted_ = s; }
  // Check-box style: each row shows its Selected state as a tick.
  bool CheckBoxStyle() const { return check_box_style_; }
  void SetCheckBoxStyle(bool c) { check_box_style_ = c; }

  void AddItem(vb::Text item);
  void Clear();
  std::int32_t ListCount() const { return static_cast<std::int32_t>(rows_.size()); }
  // Positions count from 0; a position outside the list fails with
  // "Invalid property array index" (381).
  const vb::Text& List(std::int32_t i) const;
  // Position of the row added last, or -1.
  std::int32_t NewIndex() const { return new_index_; }
  bool Selected(std::int32_t i) const;
  void SetSelected(std::int32_t i, bool selected);
  std::int32_t ItemData(std::int32_t i) const;
  void SetItemData(std::int32_t i, std::int32_t data);
  std::int32_t ListIndex() const { return list_index_; }
  // Selects row i (-1: none); a row also takes the caret.
  void SetListIndex(std::int32_t i);
  // The caret row, where the focus mark stands and Space ticks; -1 only in
  // an empty list. It is apart from the selection: a list nobody selected in
  // has its caret on the first row and no ListIndex.
  std::int32_t Caret() const;
  // Up, Down, Home and End, as Windows list boxes take them: the caret moves
  // from where it stands (to `to`, kept inside the list) and the selection
  // follows it. With nothing selected Down therefore selects the second row,
  // where the mark goes, and never the row the mark stood on.
  void UserMoveCaret(std::int32_t to);
  // A typed letter selects the next row after the caret that starts with
  // it, wrapping round (the caret's own row first while nothing is
  // selected), as list boxes do: a long list of font families is usable so.
  void UserSeek(char16_t letter);

  // User ticks or clears a row's check box (check-box style): toggles
  // Selected and raises ItemCheck with the row.
  void UserToggleRow(std::int32_t i);
  std::function<void(Control& sender, std::int32_t item)> ItemCheck;
  EventHandler Click;
  void RestoreDesign() override;

 protected:
  void TakeDesign() override;

 private:
  struct Row {
    vb::Text text;
    bool selected = false;
    std::int32_t item_data = 0;
  };
  const Row& At(std::int32_t i) const;
  Row& At(std::int32_t i);
  bool sorted_ = false;
  bool check_box_style_ = false;
  std::vector<Row> rows_;
  std::int32_t new_index_ = -1;
  std::int32_t list_index_ = -1;
  std::int32_t caret_ = 0;
};

// The font service of the common dialog. The properties hold the font given
// to the service and, after ShowFont, the user's choice; Cancel leaves them as
// they were given and is no failure.
class CommonDialog : public Control {
 public:
  CommonDialog(Form& form, std::string name, std::int16_t index = -1);
  vb::Text FontName;
  vb::Single FontSize = 8.0F;
  bool FontBold = false;
  bool FontItalic = false;
  bool FontUnderline = false;
  bool FontStrikeThru = false;
  std::int32_t Flags = 0;
  // Asks the front end; returns when the user closes the service.
  void ShowFont();
  void RestoreDesign() override;

 protected:
  void TakeDesign() override;

 private:
  struct FontDesign {
    vb::Text name;
    vb::Single size;
    bool bold, italic, underline, strike_thru;
    std::int32_t flags;
  } design_font_{};
};

}  // namespace forms
