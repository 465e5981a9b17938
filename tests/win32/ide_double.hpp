// The IDE as an add-in sees it, built from comdouble objects with the IDE's
// own interface names and member numbers: a VBE with its command bars (with
// or without the "Add-Ins" bar), its events object and the two event
// sources, an active project, and a form whose component has a code module
// with two members and one CheckBox with the properties Name, Caption, Value
// (0 to 2, else refused as the IDE refuses it) and Font (a standard font).
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "com_double.hpp"

namespace comdouble {

struct IdeDouble {
  ComPtr<Object> vbe, project, menu_events, control_events, control, font;
  std::map<std::wstring, ComPtr<Object>> properties;  // of the CheckBox
  std::vector<ComPtr<Object>> entries;                // on the "Add-Ins" bar
  std::vector<std::wstring> code;                     // the form's code, by line
  // What the events object was last asked for: the project and the form of
  // VBControlsEvents, the control of CommandBarEvents (null for Nothing).
  IDispatch* watched_project = nullptr;
  IDispatch* watched_form = nullptr;
  IDispatch* watched_entry = nullptr;
};

// Refusal words of the double's property collection for a name it lacks.
inline constexpr const wchar_t* kNoSuchProperty = L"The control has no property of that name";

std::unique_ptr<IdeDouble> MakeIde(bool with_addins_bar);

}  // namespace comdouble
