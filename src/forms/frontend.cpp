// Names and button sets of message boxes, shared by every front end.
#include "forms/frontend.hpp"

#include <array>
#include <utility>

#include "forms/case_fold.hpp"

namespace forms {

namespace {

constexpr std::array<std::pair<std::int32_t, const char*>, 7> kResultNames{{
    {vbOK, "OK"},
    {vbCancel, "Cancel"},
    {vbAbort, "Abort"},
    {vbRetry, "Retry"},
    {vbIgnore, "Ignore"},
    {vbYes, "Yes"},
    {vbNo, "No"},
}};

}  // namespace

const char* MsgBoxResultName(std::int32_t result) {
  for (const auto& [value, name] : kResultNames) {
    if (value == result) return name;
  }
  return "?";
}

std::int32_t MsgBoxResultFromName(std::string_view name) {
  for (const auto& [value, word] : kResultNames) {
    if (detail::SameName(name, word)) return value;
  }
  return 0;
}

std::vector<std::int32_t> MsgBoxButtons(std::int32_t style) {
  // The low four bits choose the buttons; the next bits the icon.
  switch (style & 0xF) {
    case vbOKCancel:
      return {vbOK, vbCancel};
    case vbAbortRetryIgnore:
      return {vbAbort, vbRetry, vbIgnore};
    case vbYesNoCancel:
      return {vbYes, vbNo, vbCancel};
    case vbYesNo:
      return {vbYes, vbNo};
    case vbRetryCancel:
      return {vbRetry, vbCancel};
    default:
      return {vbOK};
  }
}

}  // namespace forms
