// Which dialog a new control gets: the class name is tested against each row
// in order, exactly and case-sensitively; a class that matches no row takes
// the last one. The index is the control's row in the prompt flags.
#pragma once

#include <array>
#include <cstddef>

#include "dialogs/dialog_factory.hpp"
#include "vb/text.hpp"

namespace tessaly {

struct DispatchRow {
  const char16_t* class_name;  // null in the last row: any other class
  std::size_t index;
  DialogKind dialog;
};

inline constexpr std::array<DispatchRow, 17> kDispatchTable = {{
    {u"TextBox", 8, DialogKind::TextBox},
    {u"CommandButton", 2, DialogKind::CommandButton},
    {u"CheckBox", 0, DialogKind::CheckBox},
    {u"Label", 4, DialogKind::Label},
    {u"ListBox", 5, DialogKind::ListBox},
    {u"ComboBox", 1, DialogKind::ComboBox},
    {u"ListView", 6, DialogKind::ListView},
    {u"OptionButton", 7, DialogKind::OptionButton},
    {u"Timer", 9, DialogKind::Timer},
    {u"Frame", 3, DialogKind::Frame},
    {u"TreeView", 10, DialogKind::TreeView},
    {u"MaskEdBox", 11, DialogKind::MaskedEdit},
    {u"RichTextBox", 12, DialogKind::RichTextBox},
    {u"SSTab", 13, DialogKind::SSTab},
    // The scroll bars cross over: the horizontal one is row 15.
    {u"HScrollBar", 15, DialogKind::HScrollBar},
    {u"VScrollBar", 14, DialogKind::VScrollBar},
    {nullptr, 16, DialogKind::OtherControl},
}};

// The first row whose class name equals `class_name`, else the last row.
const DispatchRow& FindDispatchRow(const vb::Text& class_name);

}  // namespace tessaly
