// The headless front end: every question to the user becomes one request to
// the action source, and every answer is checked against what waits, so a
// script that does not fit the dialogs fails with a message that says where.
#include "forms/headless.hpp"

#include <algorithm>

#include "forms/case_fold.hpp"

namespace forms {

namespace {

// "demo.tess:12: " or nothing when the action has no origin.
std::string Where(const UserAction& action) {
  return action.origin.empty() ? std::string() : action.origin + ": ";
}

const char* ActionName(UserAction::Type type) {
  switch (type) {
    case UserAction::Type::Type:
      return "typing";
    case UserAction::Type::Paste:
      return "a paste";
    case UserAction::Type::Key:
      return "a key";
    case UserAction::Type::AltKey:
      return "an Alt key";
    case UserAction::Type::Click:
      return "a click";
    case UserAction::Type::TickRow:
    case UserAction::Type::CheckRow:
      return "a row tick";
    case UserAction::Type::Answer:
      return "an answer";
    case UserAction::Type::FontChoose:
      return "a font choice";
    case UserAction::Type::FontCancel:
      return "a font cancel";
    case UserAction::Type::Close:
      return "a close";
  }
  return "an action";
}

[[noreturn]] void Misfit(const UserAction& action, const std::string& waiting) {
  throw ScriptError(Where(action) + ActionName(action.type) + " does not fit: " + waiting +
                    " waits for the user");
}

std::string FormDescription(const Form& form) {
  return "dialog '" + vb::ToUtf8(form.Caption()) + "'";
}

std::string MessageBoxDescription(const MessageBox& box) {
  const auto end = box.prompt.find_first_of(u"\r\n");
  return "message box '" + vb::ToUtf8(vb::TextView(box.prompt).substr(0, end)) + "'";
}

std::string ButtonList(const std::vector<std::int32_t>& buttons) {
  std::string list;
  for (std::int32_t b : buttons) {
    if (!list.empty()) list += ", ";
    list += MsgBoxResultName(b);
  }
  return list;
}

// A few families to suggest for a name the system lacks: those sharing its
// first letter if there are any, else the first ones.
std::string SomeFamilies(const std::vector<vb::Text>& families, const vb::Text& wanted) {
  constexpr std::size_t kFew = 5;
  std::vector<const vb::Text*> pick;
  for (const auto& f : families) {
    if (!wanted.empty() && !f.empty() &&
        detail::FoldUpper(f.front()) == detail::FoldUpper(wanted.front()))
      pick.push_back(&f);
  }
  if (pick.empty()) {
    for (const auto& f : families) pick.push_back(&f);
  }
  std::string list;
  for (std::size_t i = 0; i < pick.size() && i < kFew; ++i) {
    if (i > 0) list += ", ";
    list += "'" + vb::ToUtf8(*pick[i]) + "'";
  }
  if (pick.size() > kFew) list += ", ...";
  return list.empty() ? "none" : list;
}

}  // namespace

HeadlessFrontend::HeadlessFrontend(ActionSource& source, FontCatalog& fonts)
    : source_(&source), fonts_(&fonts) {}

UserAction HeadlessFrontend::Require(Waiting waiting, const std::string& description) {
  std::optional<UserAction> action = source_->Next(waiting, description);
  if (!action) throw InputExhausted("script ended while " + description + " waits for the user");
  return std::move(*action);
}

void HeadlessFrontend::RunModal(Form& form) {
  while (form.IsShown()) Apply(form, Require(Waiting::Form, FormDescription(form)));
}

void HeadlessFrontend::Apply(Form& form, const UserAction& action) {
  switch (action.type) {
    case UserAction::Type::Type:
      // A character may close the form (a KeyPress routine that hides it);
      // the rest of the text then has nowhere to go.
      for (char16_t ch : action.text) {
        if (!form.IsShown()) break;
        form.UserChar(ch);
      }
      return;
    case UserAction::Type::Paste:
      form.UserPaste(action.text);
      return;
    case UserAction::Type::Key:
      form.UserKey(action.key);
      return;
    case UserAction::Type::AltKey:
      form.UserAltKey(action.letter);
      return;
    case UserAction::Type::Click: {
      Control* target = form.FindByPath(action.target);
      if (!target) {
        throw ScriptError(Where(action) + "no control '" + action.target + "' on " + form.Name());
      }
      form.UserClick(*target);
      return;
    }
    case UserAction::Type::TickRow:
    case UserAction::Type::CheckRow: {
      auto* list = dynamic_cast<ListBox*>(form.FindByPath(action.target));
      if (!list) {
        throw ScriptError(Where(action) + "no list box '" + action.target + "' on " + form.Name());
      }
      const std::string where = form.Name() + "/" + list->Path();
      if (action.type == UserAction::Type::CheckRow) {
        std::int32_t row = 0;
        while (row < list->ListCount() && list->List(row) != action.text) ++row;
        if (row == list->ListCount()) {
          throw ScriptError(Where(action) + "no row \"" + vb::ToUtf8(action.text) + "\" in " +
                            where);
        }
        // Only a row in the other state is clicked: the check is set, not toggled.
        if (list->Selected(row) != action.checked) form.UserToggleRow(*list, row);
        return;
      }
      if (action.row < 0 || action.row >= list->ListCount()) {
        throw ScriptError(Where(action) + "row " + std::to_string(action.row) + " is not in " +
                          where + ", which has " + std::to_string(list->ListCount()) + " rows");
      }
      form.UserToggleRow(*list, action.row);
      return;
    }
    case UserAction::Type::Close:
      form.UserClose();
      return;
    case UserAction::Type::Answer:
    case UserAction::Type::FontChoose:
    case UserAction::Type::FontCancel:
      Misfit(action, FormDescription(form));
  }
}

std::int32_t HeadlessFrontend::ShowMessageBox(const MessageBox& box) {
  const std::string description = MessageBoxDescription(box);
  waiting_box_ = &box;
  UserAction action;
  try {
    action = Require(Waiting::MessageBox, description);
  } catch (...) {
    waiting_box_ = nullptr;
    throw;
  }
  waiting_box_ = nullptr;
  if (action.type != UserAction::Type::Answer) Misfit(action, description);
  const auto buttons = MsgBoxButtons(box.buttons);
  if (std::find(buttons.begin(), buttons.end(), action.answer) == buttons.end()) {
    const std::string name = MsgBoxResultFromName(MsgBoxResultName(action.answer)) != 0
                                 ? MsgBoxResultName(action.answer)
                                 : std::to_string(action.answer);
    throw ScriptError(Where(action) + "answer '" + name + "' is no button of " + description +
                      " (" + ButtonList(buttons) + ")");
  }
  return action.answer;
}

bool HeadlessFrontend::ShowFont(FontChoice& font) {
  const std::string description = "the font service";
  const UserAction action = Require(Waiting::FontService, description);
  if (action.type == UserAction::Type::FontCancel) return false;
  if (action.type != UserAction::Type::FontChoose) Misfit(action, description);
  if (action.font_name && !fonts_->Has(*action.font_name)) {
    throw ScriptError(Where(action) + "no font family '" + vb::ToUtf8(*action.font_name) +
                      "' on this system; there are " +
                      SomeFamilies(fonts_->Families(), *action.font_name));
  }
  if (action.font_name) font.name = *action.font_name;
  if (action.font_size) font.size = *action.font_size;
  if (action.font_bold) font.bold = *action.font_bold;
  if (action.font_italic) font.italic = *action.font_italic;
  if (action.font_underline) font.underline = *action.font_underline;
  if (action.font_strike_thru) font.strike_thru = *action.font_strike_thru;
  return true;
}

}  // namespace forms
