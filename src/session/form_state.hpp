// The state of a form of the forms runtime as JSON, for the session's "state"
// action: each control's path, kind, caption or text, value, enabled and
// visible state, whether it has the focus, and a list box's rows with their
// check state and ItemData.
#pragma once

#include <nlohmann/json.hpp>

#include "forms/form.hpp"

namespace session {

nlohmann::ordered_json FormState(const forms::Form& form);

}  // namespace session
