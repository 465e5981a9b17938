// The add-in's shared state: which control types to prompt for, whether to
// offer removing and renaming code, and the display names of the control
// types. Loaded once from the per-user store when the add-in connects; from
// then on these values are the truth, and only the options dialog changes them
// (and the store).
#pragma once

#include <array>
#include <cstddef>
#include <vector>

#include "forms/runtime.hpp"
#include "vb/text.hpp"
#include "vb/value.hpp"

namespace tessaly {

// Where every setting of the add-in lives in the store.
inline constexpr const char16_t* kAppName = u"Vorrel";
inline constexpr const char16_t* kSection = u"Options";

// Rows of the control table: one per control type, the same row numbers as the
// dispatch table of the control events.
inline constexpr std::size_t kControlRows = 17;

// Display name of each row, as the options dialog lists it.
inline constexpr std::array<const char16_t*, kControlRows> kControlDisplayNames = {
    u"CheckBox",      u"ComboBox",
    u"CommandButton", u"Frame",
    u"Label",         u"ListBox",
    u"ListView",      u"OptionButton",
    u"TextBox",       u"Timer",
    u"TreeView",      u"Masked Edit Box",
    u"RichTextBox",   u"SSTab (Tabbed Dialog)",
    u"VScrollBar",    u"HScrollBar",
    u"Other Controls"};

// Store key of a row's prompt flag: "UseCtl" and the row number.
vb::Text UseCtlKey(std::size_t row);

// basGlobal. Everything starts False or empty until LoadSettings.
struct Globals {
  std::array<vb::Boolean, kControlRows> UseCtl{};
  vb::Boolean RemoveCode = vb::Boolean::False;
  vb::Boolean RenameCode = vb::Boolean::False;
  // Built by LoadSettings; stays empty when loading failed before it.
  std::vector<vb::Text> CtlNames;
};

// Reads the flags from the store, a missing key counting as True. A stored
// text that is no Boolean stops the load with the conversion's failure, which
// passes to the caller; rows not yet read stay False.
void LoadSettings(Globals& globals, forms::Runtime& runtime);

}  // namespace tessaly
