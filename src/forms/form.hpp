// A form: a retained set of controls built from a design table, shown modally
// through the runtime's front end.
//
// A form's controls are declared as a table of ControlSpec rows in tab order,
// each with its place in twips, and the form's client size beside it: the one
// source every front end draws from. The form builds them once and snapshots
// their design values. Unload puts
// every control back to those values, so the next Show starts from the design.
// A form's code derives from Form, overrides Form_Load/Form_Activate, and
// wires control events in its constructor.
//
// Lifecycle: Load (Form_Load) -> Show (front end runs the modal loop; the form
// becomes active, Form_Activate) -> Hide (the form under it, if any, becomes
// active again and gets Form_Activate) -> Unload (design values back).
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "forms/control.hpp"
#include "vb/failure.hpp"
#include "vb/text.hpp"

namespace forms {

class Runtime;

// Flags of a design row.
enum ControlFlag : unsigned {
  kDisabled = 1u << 0,       // Enabled False at design time
  kDefault = 1u << 1,        // command button pressed by Enter
  kCancel = 1u << 2,         // command button pressed by Esc
  kSorted = 1u << 3,         // list box keeps rows sorted
  kCheckBoxStyle = 1u << 4,  // list box rows carry check boxes
  kBold = 1u << 5,           // label drawn bold
  kAlignRight = 1u << 6,     // label text right-aligned
  kAlignCenter = 1u << 7,    // label text centred
  kHidden = 1u << 8,         // Visible False at design time
};

// One row of a form's design table. Rows stand in tab order.
struct ControlSpec {
  ControlKind kind;
  const char* name;
  std::int16_t index = -1;          // element of a control array, or -1
  const char16_t* caption = u"";    // caption; for a text box its default text
  const char* container = nullptr;  // name of the frame that holds it
  std::int16_t value = 0;           // check box Value; option button 1 = True
  const char16_t* tag = u"";
  std::int32_t max_length = 0;  // text box limit, 0 = none
  unsigned flags = 0;
  Bounds bounds{};  // Left, Top, Width, Height in twips; relative to the frame

  // The same row placed at `at`: shared rows are declared once and placed by
  // each form that uses them.
  constexpr ControlSpec At(Bounds at) const {
    ControlSpec placed = *this;
    placed.bounds = at;
    return placed;
  }
};

// The inside of a form's window in twips (VB's ClientWidth, ClientHeight).
struct ClientSize {
  std::int32_t width = 0;
  std::int32_t height = 0;
};

enum class StartUpPosition { WindowsDefault, CenterScreen };

// Keys a user can press besides typing characters.
enum class Key {
  Tab,
  ShiftTab,
  Enter,
  Escape,
  Backspace,
  Delete,
  Left,
  Right,
  Up,
  Down,
  Home,
  End,
  Space,
};

class Form {
 public:
  Form(Runtime& runtime, std::string name, vb::Text caption, std::span<const ControlSpec> design,
       StartUpPosition position = StartUpPosition::WindowsDefault, ClientSize client = {});
  virtual ~Form();
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;

  const std::string& Name() const { return name_; }
  const vb::Text& Caption() const { return caption_; }
  void SetCaption(vb::Text caption) { caption_ = std::move(caption); }
  StartUpPosition Position() const { return position_; }
  std::int32_t ClientWidth() const { return client_.width; }
  std::int32_t ClientHeight() const { return client_.height; }
  Runtime& GetRuntime() const { return *runtime_; }

  // Loads the form if it is not loaded: raises Form_Load.
  void Load();
  // Mode 1 is modal: returns only when the form is hidden or unloaded.
  // Showing a form that is already shown modally fails (400).
  void Show(int mode = 1);
  // Hides the form; a modal loop on it ends.
  void Hide();
  // Hides the form if shown and unloads it: every control gets its design
  // values back.
  void Unload();
  bool IsLoaded() const { return loaded_; }
  bool IsShown() const { return shown_; }

  // The control called `name` (element `index` of an array), or null.
  Control* Find(std::string_view name, std::int16_t index = -1) const;
  // The control a path such as "txtName" or "optSB(3)" names, or null.
  Control* FindByPath(std::string_view path) const;
  // The control called `name`, of kind T. A missing element of an existing
  // control array fails as VB does ("Control array element 'n' doesn't
  // exist", 340); a missing name or another kind is a mistake in the form's
  // code and throws std::logic_error.
  template <class T>
  T& Get(std::string_view name, std::int16_t index = -1) const {
    auto* c = dynamic_cast<T*>(Find(name, index));
    if (!c) ThrowMissing(name, index);
    return *c;
  }
  const std::vector<std::unique_ptr<Control>>& Controls() const { return controls_; }
  // Controls that stand in the tab order, in that order.
  std::vector<Control*> TabOrder() const;
  Control* ActiveControl() const { return active_; }
  CommandButton* DefaultButton() const;
  CommandButton* CancelButton() const;

  // User input, as a front end delivers it; each applies the cross-cutting
  // rules (disabled controls take nothing, Enter presses the default button,
  // Esc the cancel button, Tab walks the tab order) before any handler runs.
  void UserKey(Key key);
  void UserChar(char16_t ch);
  void UserPaste(const vb::Text& text);
  // Alt+letter. A key only one control has acts as before: a label's or a
  // frame's moves the focus to the next tab stop after it, a button is
  // pressed, a check box or option button takes the focus and is clicked. A
  // key several controls share moves the focus to the next of them after the
  // focus, in tab order, and presses nothing.
  void UserAltKey(char16_t letter);
  // A mouse click: the control takes the focus if it can, then acts.
  void UserClick(Control& control);
  void UserToggleRow(ListBox& list, std::int32_t row);
  // The close box: hides and unloads, running none of the form's routines.
  void UserClose();

 protected:
  virtual void Form_Load() {}
  virtual void Form_Activate() {}

 private:
  friend class Control;
  friend class Runtime;
  [[noreturn]] void ThrowMissing(std::string_view name, std::int16_t index) const;
  void Build(std::span<const ControlSpec> design);
  void MoveFocus(Control* to);
  void TabFrom(bool backwards);
  void RaiseActivate() { Form_Activate(); }

  Runtime* runtime_;
  std::string name_;
  vb::Text caption_;
  vb::Text design_caption_;
  StartUpPosition position_;
  ClientSize client_;
  std::vector<std::unique_ptr<Control>> controls_;
  Control* active_ = nullptr;
  bool loaded_ = false;
  bool shown_ = false;
};

}  // namespace forms
