// What shows forms and asks the user: the modal loop, message boxes and the
// font service belong to a front end (headless for scripts and tests, a
// terminal, later Win32).
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "vb/text.hpp"
#include "vb/value.hpp"

namespace forms {

class Form;

// Buttons-and-icon values of a message box, and the answers.
enum MsgBoxStyle : std::int32_t {
  vbOKOnly = 0,
  vbOKCancel = 1,
  vbAbortRetryIgnore = 2,
  vbYesNoCancel = 3,
  vbYesNo = 4,
  vbRetryCancel = 5,
  vbCritical = 16,
  vbQuestion = 32,
  vbExclamation = 48,
  vbInformation = 64,
};
enum MsgBoxResult : std::int32_t {
  vbOK = 1,
  vbCancel = 2,
  vbAbort = 3,
  vbRetry = 4,
  vbIgnore = 5,
  vbYes = 6,
  vbNo = 7,
};
// "OK", "Cancel", ... for a result; the inverse returns 0 for an unknown word.
const char* MsgBoxResultName(std::int32_t result);
std::int32_t MsgBoxResultFromName(std::string_view name);
// The buttons a message box of this style shows, left to right: {vbOK} for
// vbOKOnly, {vbYes, vbNo, vbCancel} for vbYesNoCancel. The icon bits are
// ignored; an unknown button style shows OK alone, as the system does.
std::vector<std::int32_t> MsgBoxButtons(std::int32_t style);

struct MessageBox {
  vb::Text prompt;
  std::int32_t buttons = vbOKOnly;
  vb::Text title;            // as shown: the runtime's own when none was given
  bool title_given = false;  // whether the caller passed a title
};

// The font handed to the font service and, on OK, the user's choice.
struct FontChoice {
  vb::Text name;
  vb::Single size = 8.0F;
  bool bold = false;
  bool italic = false;
  bool underline = false;
  bool strike_thru = false;
  std::int32_t flags = 0;
  friend bool operator==(const FontChoice&, const FontChoice&) = default;
};

// Raised by a front end that has no more user input to give while a form, a
// message box or the font service waits for it. It is not a vb::Failure: no
// routine of a form catches it, so it ends the whole session.
class InputExhausted : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

class Frontend {
 public:
  virtual ~Frontend() = default;
  // Runs the modal loop of `form` until the form is no longer shown.
  virtual void RunModal(Form& form) = 0;
  // Shows a message box and returns the button the user chose.
  virtual std::int32_t ShowMessageBox(const MessageBox& box) = 0;
  // The font service. Returns true on OK, having written the choice into
  // `font`; false on Cancel, leaving `font` as given.
  virtual bool ShowFont(FontChoice& font) = 0;
};

}  // namespace forms
