#include "vbfiles/frm_enum_names.hpp"

#include <string_view>

namespace vbfiles {
namespace {

struct EnumName {
  std::u16string_view file_class;  // empty: every intrinsic class
  std::u16string_view property;
  vb::Long value;
  std::u16string_view name;
};

// Rows for one class come before the rows for every class, so that a class's
// own meaning of a property (a Form's BorderStyle) wins.
constexpr EnumName kEnumNames[] = {
    {u"VB.Form", u"BorderStyle", 0, u"None"},
    {u"VB.Form", u"BorderStyle", 1, u"Fixed Single"},
    {u"VB.Form", u"BorderStyle", 2, u"Sizable"},
    {u"VB.Form", u"BorderStyle", 3, u"Fixed Dialog"},
    {u"VB.Form", u"BorderStyle", 4, u"Fixed ToolWindow"},
    {u"VB.Form", u"BorderStyle", 5, u"Sizable ToolWindow"},
    {u"VB.Form", u"StartUpPosition", 0, u"Manual"},
    {u"VB.Form", u"StartUpPosition", 1, u"CenterOwner"},
    {u"VB.Form", u"StartUpPosition", 2, u"CenterScreen"},
    {u"VB.Form", u"StartUpPosition", 3, u"Windows Default"},
    {u"VB.Form", u"WindowState", 0, u"Normal"},
    {u"VB.Form", u"WindowState", 1, u"Minimized"},
    {u"VB.Form", u"WindowState", 2, u"Maximized"},
    {u"VB.Shape", u"BorderStyle", 0, u"Transparent"},
    {u"VB.Shape", u"BorderStyle", 1, u"Solid"},
    {u"VB.Shape", u"BorderStyle", 2, u"Dash"},
    {u"VB.Shape", u"BorderStyle", 3, u"Dot"},
    {u"VB.Shape", u"BorderStyle", 4, u"Dash-Dot"},
    {u"VB.Shape", u"BorderStyle", 5, u"Dash-Dot-Dot"},
    {u"VB.Shape", u"BorderStyle", 6, u"Inside Solid"},
    {u"VB.Shape", u"Shape", 0, u"Rectangle"},
    {u"VB.Shape", u"Shape", 1, u"Square"},
    {u"VB.Shape", u"Shape", 2, u"Oval"},
    {u"VB.Shape", u"Shape", 3, u"Circle"},
    {u"VB.Shape", u"Shape", 4, u"Rounded Rectangle"},
    {u"VB.Shape", u"Shape", 5, u"Rounded Square"},
    {u"VB.Line", u"BorderStyle", 0, u"Transparent"},
    {u"VB.Line", u"BorderStyle", 1, u"Solid"},
    {u"VB.Line", u"BorderStyle", 2, u"Dash"},
    {u"VB.Line", u"BorderStyle", 3, u"Dot"},
    {u"VB.Line", u"BorderStyle", 4, u"Dash-Dot"},
    {u"VB.Line", u"BorderStyle", 5, u"Dash-Dot-Dot"},
    {u"VB.Line", u"BorderStyle", 6, u"Inside Solid"},
    {u"VB.CheckBox", u"Value", 0, u"Unchecked"},
    {u"VB.CheckBox", u"Value", 1, u"Checked"},
    {u"VB.CheckBox", u"Value", 2, u"Grayed"},
    {u"VB.ComboBox", u"Style", 0, u"Dropdown Combo"},
    {u"VB.ComboBox", u"Style", 1, u"Simple Combo"},
    {u"VB.ComboBox", u"Style", 2, u"Dropdown List"},
    {u"VB.ListBox", u"Style", 0, u"Standard"},
    {u"VB.ListBox", u"Style", 1, u"Checkbox"},
    {u"VB.ListBox", u"MultiSelect", 0, u"None"},
    {u"VB.ListBox", u"MultiSelect", 1, u"Simple"},
    {u"VB.ListBox", u"MultiSelect", 2, u"Extended"},
    {u"VB.TextBox", u"ScrollBars", 0, u"None"},
    {u"VB.TextBox", u"ScrollBars", 1, u"Horizontal"},
    {u"VB.TextBox", u"ScrollBars", 2, u"Vertical"},
    {u"VB.TextBox", u"ScrollBars", 3, u"Both"},
    {u"", u"Alignment", 0, u"Left Justify"},
    {u"", u"Alignment", 1, u"Right Justify"},
    {u"", u"Alignment", 2, u"Center"},
    {u"", u"Appearance", 0, u"Flat"},
    {u"", u"Appearance", 1, u"3D"},
    {u"", u"BorderStyle", 0, u"None"},
    {u"", u"BorderStyle", 1, u"Fixed Single"},
    {u"", u"DragMode", 0, u"Manual"},
    {u"", u"DragMode", 1, u"Automatic"},
    {u"", u"OLEDragMode", 0, u"Manual"},
    {u"", u"OLEDragMode", 1, u"Automatic"},
    {u"", u"OLEDropMode", 0, u"None"},
    {u"", u"OLEDropMode", 1, u"Manual"},
    {u"", u"Style", 0, u"Standard"},
    {u"", u"Style", 1, u"Graphical"},
    {u"", u"ScaleMode", 0, u"User"},
    {u"", u"ScaleMode", 1, u"Twip"},
    {u"", u"ScaleMode", 2, u"Point"},
    {u"", u"ScaleMode", 3, u"Pixel"},
    {u"", u"ScaleMode", 4, u"Character"},
    {u"", u"ScaleMode", 5, u"Inch"},
    {u"", u"ScaleMode", 6, u"Millimeter"},
    {u"", u"ScaleMode", 7, u"Centimeter"},
    {u"", u"FillStyle", 0, u"Solid"},
    {u"", u"FillStyle", 1, u"Transparent"},
    {u"", u"FillStyle", 2, u"Horizontal Line"},
    {u"", u"FillStyle", 3, u"Vertical Line"},
    {u"", u"FillStyle", 4, u"Upward Diagonal"},
    {u"", u"FillStyle", 5, u"Downward Diagonal"},
    {u"", u"FillStyle", 6, u"Cross"},
    {u"", u"FillStyle", 7, u"Diagonal Cross"},
    {u"", u"MousePointer", 0, u"Default"},
    {u"", u"MousePointer", 1, u"Arrow"},
    {u"", u"MousePointer", 2, u"Cross"},
    {u"", u"MousePointer", 3, u"I-Beam"},
    {u"", u"MousePointer", 4, u"Icon"},
    {u"", u"MousePointer", 5, u"Size"},
    {u"", u"MousePointer", 6, u"Size NE SW"},
    {u"", u"MousePointer", 7, u"Size N S"},
    {u"", u"MousePointer", 8, u"Size NW SE"},
    {u"", u"MousePointer", 9, u"Size W E"},
    {u"", u"MousePointer", 10, u"Up Arrow"},
    {u"", u"MousePointer", 11, u"Hourglass"},
    {u"", u"MousePointer", 12, u"No Drop"},
    {u"", u"MousePointer", 13, u"Arrow and Hourglass"},
    {u"", u"MousePointer", 14, u"Arrow and Question"},
    {u"", u"MousePointer", 15, u"Size All"},
    {u"", u"MousePointer", 99, u"Custom"},
};

bool IsIntrinsic(vb::TextView file_class) {
  return file_class.size() > 3 && vb::SameName(file_class.substr(0, 3), u"VB.");
}

}  // namespace

vb::TextView EnumValueName(vb::TextView file_class, vb::TextView property, vb::Long value) {
  if (!IsIntrinsic(file_class)) return {};
  bool class_has_rows = false;
  for (const auto& row : kEnumNames) {
    const bool for_class = !row.file_class.empty() && vb::SameName(row.file_class, file_class);
    if (!vb::SameName(row.property, property)) continue;
    if (for_class) {
      class_has_rows = true;
      if (row.value == value) return row.name;
    } else if (row.file_class.empty() && !class_has_rows && row.value == value) {
      return row.name;
    }
  }
  return {};
}

}  // namespace vbfiles
