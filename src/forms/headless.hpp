// The headless front end: runs modal loops, message boxes and the font service
// from a queue of scripted user actions, synchronously and deterministically.
//
// Actions come from an ActionSource, one at a time, as the front end needs
// them. A source that has nothing to give throws InputExhausted (or returns
// nothing, which the front end turns into InputExhausted), so a script that
// forgets to close a dialog ends with a clear error instead of hanging.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "forms/font_catalog.hpp"
#include "forms/form.hpp"
#include "forms/frontend.hpp"
#include "vb/text.hpp"

namespace forms {

struct UserAction {
  enum class Type {
    Type,        // text: typed character by character
    Paste,       // text: pasted at once, no KeyPress
    Key,         // key
    AltKey,      // letter: Alt plus a letter
    Click,       // target: a control path of the active form
    TickRow,     // target (a list box) and row: toggles its check
    CheckRow,    // target (a list box), text (a row's text) and checked: sets its check
    Answer,      // answer: the button of a message box
    FontChoose,  // font fields that are set; the others stay as given
    FontCancel,
    Close,  // the close box of the active form
  };
  Type type = Type::Type;
  vb::Text text;
  Key key = Key::Tab;
  char16_t letter = 0;
  std::string target;
  std::int32_t row = 0;
  bool checked = false;
  std::int32_t answer = 0;
  std::optional<vb::Text> font_name;
  std::optional<vb::Single> font_size;
  std::optional<bool> font_bold, font_italic, font_underline, font_strike_thru;
  // Where the action came from, for error messages ("demo.tess:12").
  std::string origin;
};

// What the front end is waiting for when it asks for the next action.
enum class Waiting { Form, MessageBox, FontService };

class ActionSource {
 public:
  virtual ~ActionSource() = default;
  // The next user action, or nothing when the script has no more user input
  // at this point. `description` says what waits, e.g. "dialog 'New CheckBox
  // Control'".
  virtual std::optional<UserAction> Next(Waiting waiting, const std::string& description) = 0;
};

// Thrown for an action that does not fit what waits: a click on a control the
// form lacks, an answer while no message box is up, a font the system lacks.
class ScriptError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

class HeadlessFrontend : public Frontend {
 public:
  HeadlessFrontend(ActionSource& source, FontCatalog& fonts);
  void RunModal(Form& form) override;
  std::int32_t ShowMessageBox(const MessageBox& box) override;
  bool ShowFont(FontChoice& font) override;

  // The message box that waits for the user's answer, or null; for
  // inspections made while it waits.
  const MessageBox* WaitingMessageBox() const { return waiting_box_; }

 private:
  UserAction Require(Waiting waiting, const std::string& description);
  void Apply(Form& form, const UserAction& action);
  ActionSource* source_;
  FontCatalog* fonts_;
  const MessageBox* waiting_box_ = nullptr;
};

}  // namespace forms
