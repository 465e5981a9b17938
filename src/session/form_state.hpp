// The state of a form of the forms runtime as JSON, for the session's "state"
// action: each control's path, kind, caption or text, value, enabled and
// visible state, whether it has the focus, and a list box's rows with their
// check state and ItemData; and a message box that waits for its answer.
#pragma once

#include <nlohmann/json.hpp>

#include "forms/form.hpp"
#include "forms/frontend.hpp"

namespace session {

nlohmann::ordered_json FormState(const forms::Form& form);

// Its text, title, buttons (the style number, as the msgbox event gives it)
// and the answers it takes, by name.
nlohmann::ordered_json MessageBoxState(const forms::MessageBox& box);

}  // namespace session
