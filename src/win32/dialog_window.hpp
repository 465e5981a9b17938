// A form of the forms runtime as a real dialog window: a top-level window
// owned by the IDE's main window (or by the dialog it was opened from), with
// one child window per control, placed from the form's geometry in twips.
//
// The window is a view of the form. Every press of the user goes to the
// form's user-input entry points, so the runtime's rules (KeyPress with its
// by-reference key code, Change, Click, the tab order, access keys, default
// and cancel buttons) are the form's and not the system's; after each press
// Sync() makes the windows show the form again. The native controls never
// change state on their own: check boxes and option buttons have the
// non-automatic styles, and keys for a text box go to the form instead of
// the edit window. A list box with check boxes is drawn by the dialog.
//
// The window procedure only records what it saw (PendingInput); the modal
// loop hands it to the form outside any window procedure, so a failure in
// the form's routines passes to the caller as from any other front end.
#pragma once

#include "win32/system.hpp"

#include <cstdint>
#include <map>
#include <vector>

#include "forms/form.hpp"

namespace win32 {

struct PendingInput {
  enum class Type {
    Click,       // a button, check box or option button was clicked
    Close,       // the close box, or Alt+F4
    Focus,       // a text box or list took the focus by the mouse
    ListSelect,  // a list row was clicked: `row`
    ListToggle,  // a list row's check box was clicked: `row`
    Selection,   // the mouse moved a text box's selection: `row` start, `length`
  };
  Type type;
  forms::Control* control = nullptr;
  std::int32_t row = -1;
  std::int32_t length = 0;
};

class DialogWindow {
 public:
  // Creates the window and its controls, centred on `owner` (or on the
  // screen when the form asks for that), and shows it; `owner` is disabled
  // until the window goes.
  DialogWindow(forms::Form& form, HWND owner);
  ~DialogWindow();
  DialogWindow(const DialogWindow&) = delete;
  DialogWindow& operator=(const DialogWindow&) = delete;

  HWND Handle() const { return window_; }
  // Whether `hwnd` is the dialog or one of its controls.
  bool Owns(HWND hwnd) const;
  // A keyboard or mouse message of the modal loop for this dialog. Returns
  // true when the form took it, so the loop must not dispatch it.
  bool Take(const MSG& msg);
  // What the window procedure saw since the last call, oldest first.
  std::vector<PendingInput> TakePending();
  // Makes every window show the form: captions, texts, selections, checks,
  // list rows, enabled and visible states, and the focus.
  void Sync();

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM w, LPARAM l);
  LRESULT Handle(UINT message, WPARAM w, LPARAM l);
  void CreateControls();
  HWND CreateControl(forms::Control& control);
  void DrawListRow(const DRAWITEMSTRUCT& item);
  forms::Control* ControlOf(HWND hwnd) const;
  void Record(PendingInput input) { pending_.push_back(input); }
  void RecordSelection(HWND hwnd, forms::Control* control);

  forms::Form* form_;
  HWND owner_;
  HWND window_ = nullptr;
  HFONT font_ = nullptr;
  HFONT bold_font_ = nullptr;
  int dpi_ = 96;
  std::map<HWND, forms::Control*> controls_;
  std::map<const forms::Control*, HWND> windows_;
  // What each list box shows, to refill or redraw it only when it changes:
  // a window changed on every pass of the loop would paint without end.
  struct ListShown {
    std::vector<vb::Text> rows;
    std::vector<bool> ticks;
  };
  std::map<const forms::Control*, ListShown> list_rows_;
  std::vector<PendingInput> pending_;
  // Set while Sync changes windows: their notifications are not the user's.
  bool syncing_ = false;
};

}  // namespace win32
