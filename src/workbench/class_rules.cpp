// The class tables and the coercion of written values.
//
// Sections: building blocks for rules; the tables, one function per class;
// lookups; coercion.
#include "workbench/class_rules.hpp"

#include <algorithm>

#include "vb/convert.hpp"

namespace workbench {

namespace {

// ---------------------------------------------------------------------------
// Building blocks. Each returns one rule; a table is a list of them.

constexpr std::int32_t kIntegerMin = -32768;
constexpr std::int32_t kIntegerMax = 32767;
constexpr std::int32_t kLongMin = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kLongMax = std::numeric_limits<std::int32_t>::max();

// System colours as VB6 writes them (&H80000005& and so on), as signed Longs.
constexpr std::int32_t SystemColor(std::uint32_t index) {
  return static_cast<std::int32_t>(0x80000000U | index);
}
constexpr std::int32_t kButtonFace = SystemColor(0x0F);
constexpr std::int32_t kButtonText = SystemColor(0x12);
constexpr std::int32_t kWindowBack = SystemColor(0x05);
constexpr std::int32_t kWindowText = SystemColor(0x08);

PropertyRule TextRule(vb::Text name, vb::Text default_value = {}) {
  return {.name = std::move(name),
          .type = PropertyType::Text,
          .default_value = vb::Value(std::move(default_value))};
}
PropertyRule NamedText(vb::Text name) {
  PropertyRule rule = TextRule(std::move(name));
  rule.default_from = DefaultFrom::ControlName;
  return rule;
}
PropertyRule BoolRule(vb::Text name, bool default_value) {
  return {.name = std::move(name),
          .type = PropertyType::Boolean,
          .default_value = vb::Value(vb::ToBoolean(default_value))};
}
PropertyRule IntRule(vb::Text name, std::int32_t min, std::int32_t max,
                     std::int32_t default_value) {
  return {.name = std::move(name),
          .type = PropertyType::Integer,
          .min = min,
          .max = max,
          .default_value = vb::Value(static_cast<vb::Integer>(default_value))};
}
// An enumerated Integer property 0..max.
PropertyRule EnumRule(vb::Text name, std::int32_t max, std::int32_t default_value = 0) {
  return IntRule(std::move(name), 0, max, default_value);
}
PropertyRule LongRule(vb::Text name, std::int32_t min, std::int32_t max,
                      std::int32_t default_value) {
  return {.name = std::move(name),
          .type = PropertyType::Long,
          .min = min,
          .max = max,
          .default_value = vb::Value(static_cast<vb::Long>(default_value))};
}
PropertyRule ColorRule(vb::Text name, std::int32_t default_value) {
  return LongRule(std::move(name), kLongMin, kLongMax, default_value);
}
PropertyRule NameRule() {
  PropertyRule rule = TextRule(u"Name");
  rule.check = ValueCheck::ControlName;
  return rule;
}
PropertyRule IndexRule() {
  return {.name = u"Index",
          .type = PropertyType::Integer,
          .min = 0,
          .max = kIntegerMax,
          .check = ValueCheck::ArrayIndex,
          .default_value = vb::Value(static_cast<vb::Integer>(-1))};
}
PropertyRule FontRule() {
  PropertyRule rule = TextRule(u"Font");
  rule.type = PropertyType::Font;
  return rule;
}
PropertyRule Position(vb::Text name, std::int32_t default_value) {
  return LongRule(std::move(name), kLongMin, kLongMax, default_value);
}
PropertyRule Extent(vb::Text name, std::int32_t default_value) {
  return LongRule(std::move(name), 0, kLongMax, default_value);
}
PropertyRule TabIndexRule() { return IntRule(u"TabIndex", 0, kIntegerMax, 0); }
PropertyRule AppearanceRule() { return EnumRule(u"Appearance", 1, 1); }

using Rules = std::vector<PropertyRule>;

// Left, Top, Width, Height with a class's default size.
void AddGeometry(Rules& rules, std::int32_t width, std::int32_t height) {
  rules.push_back(Position(u"Left", 120));
  rules.push_back(Position(u"Top", 120));
  rules.push_back(Extent(u"Width", width));
  rules.push_back(Extent(u"Height", height));
}

// What most windowed controls share, after their own properties.
void AddWindowed(Rules& rules, bool tooltip = true) {
  rules.push_back(BoolRule(u"CausesValidation", true));
  rules.push_back(BoolRule(u"Enabled", true));
  rules.push_back(TabIndexRule());
  rules.push_back(BoolRule(u"TabStop", true));
  rules.push_back(TextRule(u"Tag"));
  if (tooltip) rules.push_back(TextRule(u"ToolTipText"));
  rules.push_back(BoolRule(u"Visible", true));
}

std::shared_ptr<const ClassRules> MakeClass(vb::Text class_name, vb::Text file_class, vb::Text stem,
                                            Rules rules) {
  auto result = std::make_shared<ClassRules>();
  result->class_name = std::move(class_name);
  result->file_class = std::move(file_class);
  result->stem = std::move(stem);
  result->properties = std::move(rules);
  return result;
}

// ---------------------------------------------------------------------------
// The tables. Each starts with Name and Index, then the class's own
// properties, geometry, and the shared tail.

Rules Head() { return {NameRule(), IndexRule()}; }

std::shared_ptr<const ClassRules> CheckBoxClass() {
  Rules r = Head();
  r.push_back(EnumRule(u"Alignment", 1));
  r.push_back(AppearanceRule());
  r.push_back(ColorRule(u"BackColor", kButtonFace));
  r.push_back(NamedText(u"Caption"));
  r.push_back(FontRule());
  r.push_back(ColorRule(u"ForeColor", kButtonText));
  r.push_back(EnumRule(u"Style", 1));
  r.push_back(EnumRule(u"Value", 2));
  AddGeometry(r, 1215, 495);
  AddWindowed(r);
  return MakeClass(u"CheckBox", u"VB.CheckBox", u"Check", std::move(r));
}

std::shared_ptr<const ClassRules> ComboBoxClass() {
  Rules r = Head();
  r.push_back(AppearanceRule());
  r.push_back(ColorRule(u"BackColor", kWindowBack));
  r.push_back(FontRule());
  r.push_back(ColorRule(u"ForeColor", kWindowText));
  r.push_back(BoolRule(u"Locked", false));
  r.push_back(BoolRule(u"Sorted", false));
  r.push_back(EnumRule(u"Style", 2));
  r.push_back(NamedText(u"Text"));
  AddGeometry(r, 1215, 315);
  AddWindowed(r);
  return MakeClass(u"ComboBox", u"VB.ComboBox", u"Combo", std::move(r));
}

std::shared_ptr<const ClassRules> CommandButtonClass() {
  Rules r = Head();
  r.push_back(AppearanceRule());
  r.push_back(ColorRule(u"BackColor", kButtonFace));
  r.push_back(BoolRule(u"Cancel", false));
  r.push_back(NamedText(u"Caption"));
  r.push_back(BoolRule(u"Default", false));
  r.push_back(FontRule());
  r.push_back(EnumRule(u"Style", 1));
  AddGeometry(r, 1215, 495);
  AddWindowed(r);
  return MakeClass(u"CommandButton", u"VB.CommandButton", u"Command", std::move(r));
}

std::shared_ptr<const ClassRules> FrameClass() {
  Rules r = Head();
  r.push_back(AppearanceRule());
  r.push_back(ColorRule(u"BackColor", kButtonFace));
  r.push_back(EnumRule(u"BorderStyle", 1, 1));
  r.push_back(NamedText(u"Caption"));
  r.push_back(FontRule());
  r.push_back(ColorRule(u"ForeColor", kButtonText));
  AddGeometry(r, 1815, 1455);
  r.push_back(BoolRule(u"Enabled", true));
  r.push_back(TabIndexRule());
  r.push_back(TextRule(u"Tag"));
  r.push_back(TextRule(u"ToolTipText"));
  r.push_back(BoolRule(u"Visible", true));
  return MakeClass(u"Frame", u"VB.Frame", u"Frame", std::move(r));
}

std::shared_ptr<const ClassRules> LabelClass() {
  Rules r = Head();
  r.push_back(EnumRule(u"Alignment", 2));
  r.push_back(AppearanceRule());
  r.push_back(BoolRule(u"AutoSize", false));
  r.push_back(ColorRule(u"BackColor", kButtonFace));
  r.push_back(EnumRule(u"BackStyle", 1, 1));
  r.push_back(EnumRule(u"BorderStyle", 1));
  r.push_back(NamedText(u"Caption"));
  r.push_back(FontRule());
  r.push_back(ColorRule(u"ForeColor", kButtonText));
  r.push_back(BoolRule(u"UseMnemonic", true));
  r.push_back(BoolRule(u"WordWrap", false));
  AddGeometry(r, 1215, 255);
  r.push_back(BoolRule(u"Enabled", true));
  r.push_back(TabIndexRule());
  r.push_back(TextRule(u"Tag"));
  r.push_back(TextRule(u"ToolTipText"));
  r.push_back(BoolRule(u"Visible", true));
  return MakeClass(u"Label", u"VB.Label", u"Label", std::move(r));
}

std::shared_ptr<const ClassRules> ListBoxClass() {
  Rules r = Head();
  r.push_back(AppearanceRule());
  r.push_back(ColorRule(u"BackColor", kWindowBack));
  r.push_back(IntRule(u"Columns", 0, kIntegerMax, 0));
  r.push_back(FontRule());
  r.push_back(ColorRule(u"ForeColor", kWindowText));
  r.push_back(BoolRule(u"IntegralHeight", true));
  r.push_back(EnumRule(u"MultiSelect", 2));
  r.push_back(BoolRule(u"Sorted", false));
  r.push_back(EnumRule(u"Style", 1));
  AddGeometry(r, 1215, 1035);
  AddWindowed(r);
  return MakeClass(u"ListBox", u"VB.ListBox", u"List", std::move(r));
}

std::shared_ptr<const ClassRules> OptionButtonClass() {
  Rules r = Head();
  r.push_back(EnumRule(u"Alignment", 1));
  r.push_back(AppearanceRule());
  r.push_back(ColorRule(u"BackColor", kButtonFace));
  r.push_back(NamedText(u"Caption"));
  r.push_back(FontRule());
  r.push_back(ColorRule(u"ForeColor", kButtonText));
  r.push_back(EnumRule(u"Style", 1));
  r.push_back(BoolRule(u"Value", false));
  AddGeometry(r, 1215, 495);
  AddWindowed(r);
  return MakeClass(u"OptionButton", u"VB.OptionButton", u"Option", std::move(r));
}

std::shared_ptr<const ClassRules> TextBoxClass() {
  Rules r = Head();
  r.push_back(EnumRule(u"Alignment", 2));
  r.push_back(AppearanceRule());
  r.push_back(ColorRule(u"BackColor", kWindowBack));
  r.push_back(EnumRule(u"BorderStyle", 1, 1));
  r.push_back(FontRule());
  r.push_back(ColorRule(u"ForeColor", kWindowText));
  r.push_back(BoolRule(u"HideSelection", true));
  r.push_back(BoolRule(u"Locked", false));
  r.push_back(LongRule(u"MaxLength", 0, kLongMax, 0));
  r.push_back(BoolRule(u"MultiLine", false));
  r.push_back(TextRule(u"PasswordChar"));
  r.push_back(EnumRule(u"ScrollBars", 3));
  r.push_back(NamedText(u"Text"));
  AddGeometry(r, 1215, 495);
  AddWindowed(r);
  return MakeClass(u"TextBox", u"VB.TextBox", u"Text", std::move(r));
}

std::shared_ptr<const ClassRules> TimerClass() {
  Rules r = Head();
  r.push_back(BoolRule(u"Enabled", true));
  r.push_back(LongRule(u"Interval", 0, 65535, 0));
  r.push_back(Position(u"Left", 120));
  r.push_back(TextRule(u"Tag"));
  r.push_back(Position(u"Top", 120));
  return MakeClass(u"Timer", u"VB.Timer", u"Timer", std::move(r));
}

std::shared_ptr<const ClassRules> ScrollBarClass(vb::Text class_name, vb::Text file_class,
                                                 vb::Text stem, bool horizontal) {
  Rules r = Head();
  r.push_back(IntRule(u"LargeChange", 1, kIntegerMax, 1));
  r.push_back(IntRule(u"Max", kIntegerMin, kIntegerMax, 32767));
  r.push_back(IntRule(u"Min", kIntegerMin, kIntegerMax, 0));
  r.push_back(IntRule(u"SmallChange", 1, kIntegerMax, 1));
  PropertyRule value = IntRule(u"Value", kIntegerMin, kIntegerMax, 0);
  value.check = ValueCheck::MinMaxBound;
  r.push_back(std::move(value));
  if (horizontal) {
    AddGeometry(r, 1815, 255);
  } else {
    AddGeometry(r, 255, 1815);
  }
  AddWindowed(r, /*tooltip=*/false);
  return MakeClass(std::move(class_name), std::move(file_class), std::move(stem), std::move(r));
}

std::shared_ptr<const ClassRules> PictureBoxClass() {
  Rules r = Head();
  r.push_back(EnumRule(u"Align", 4));
  r.push_back(AppearanceRule());
  r.push_back(BoolRule(u"AutoRedraw", false));
  r.push_back(BoolRule(u"AutoSize", false));
  r.push_back(ColorRule(u"BackColor", kButtonFace));
  r.push_back(EnumRule(u"BorderStyle", 1, 1));
  r.push_back(BoolRule(u"ClipControls", true));
  r.push_back(FontRule());
  r.push_back(ColorRule(u"ForeColor", kButtonText));
  r.push_back(EnumRule(u"ScaleMode", 7, 1));
  AddGeometry(r, 1215, 1215);
  AddWindowed(r);
  return MakeClass(u"PictureBox", u"VB.PictureBox", u"Picture", std::move(r));
}

std::shared_ptr<const ClassRules> ImageClass() {
  Rules r = Head();
  r.push_back(AppearanceRule());
  r.push_back(EnumRule(u"BorderStyle", 1));
  r.push_back(BoolRule(u"Stretch", false));
  AddGeometry(r, 1215, 1215);
  r.push_back(BoolRule(u"Enabled", true));
  r.push_back(TextRule(u"Tag"));
  r.push_back(TextRule(u"ToolTipText"));
  r.push_back(BoolRule(u"Visible", true));
  return MakeClass(u"Image", u"VB.Image", u"Image", std::move(r));
}

std::shared_ptr<const ClassRules> ShapeClass() {
  Rules r = Head();
  r.push_back(ColorRule(u"BackColor", kWindowBack));
  r.push_back(EnumRule(u"BackStyle", 1));
  r.push_back(ColorRule(u"BorderColor", kWindowText));
  r.push_back(EnumRule(u"BorderStyle", 6, 1));
  r.push_back(IntRule(u"BorderWidth", 1, 8192, 1));
  r.push_back(ColorRule(u"FillColor", 0));
  r.push_back(EnumRule(u"FillStyle", 7, 1));
  r.push_back(EnumRule(u"Shape", 5));
  AddGeometry(r, 1215, 1215);
  r.push_back(TextRule(u"Tag"));
  r.push_back(BoolRule(u"Visible", true));
  return MakeClass(u"Shape", u"VB.Shape", u"Shape", std::move(r));
}

std::shared_ptr<const ClassRules> LineClass() {
  Rules r = Head();
  r.push_back(ColorRule(u"BorderColor", kWindowText));
  r.push_back(EnumRule(u"BorderStyle", 6, 1));
  r.push_back(IntRule(u"BorderWidth", 1, 8192, 1));
  r.push_back(IntRule(u"DrawMode", 1, 16, 13));
  r.push_back(TextRule(u"Tag"));
  r.push_back(BoolRule(u"Visible", true));
  r.push_back(Position(u"X1", 120));
  r.push_back(Position(u"X2", 1335));
  r.push_back(Position(u"Y1", 120));
  r.push_back(Position(u"Y2", 120));
  return MakeClass(u"Line", u"VB.Line", u"Line", std::move(r));
}

std::shared_ptr<const ClassRules> DataClass() {
  Rules r = Head();
  r.push_back(AppearanceRule());
  r.push_back(ColorRule(u"BackColor", kButtonFace));
  r.push_back(NamedText(u"Caption"));
  r.push_back(TextRule(u"Connect", u"Access"));
  r.push_back(TextRule(u"DatabaseName"));
  r.push_back(FontRule());
  r.push_back(ColorRule(u"ForeColor", kButtonText));
  r.push_back(BoolRule(u"ReadOnly", false));
  r.push_back(TextRule(u"RecordSource"));
  AddGeometry(r, 1815, 345);
  r.push_back(BoolRule(u"Enabled", true));
  r.push_back(TextRule(u"Tag"));
  r.push_back(TextRule(u"ToolTipText"));
  r.push_back(BoolRule(u"Visible", true));
  return MakeClass(u"Data", u"VB.Data", u"Data", std::move(r));
}

std::shared_ptr<const ClassRules> DriveListBoxClass() {
  Rules r = Head();
  r.push_back(AppearanceRule());
  r.push_back(ColorRule(u"BackColor", kWindowBack));
  r.push_back(FontRule());
  r.push_back(ColorRule(u"ForeColor", kWindowText));
  AddGeometry(r, 1215, 315);
  AddWindowed(r);
  return MakeClass(u"DriveListBox", u"VB.DriveListBox", u"Drive", std::move(r));
}

std::shared_ptr<const ClassRules> ListViewClass() {
  Rules r = Head();
  r.push_back(AppearanceRule());
  r.push_back(EnumRule(u"BorderStyle", 1));
  r.push_back(FontRule());
  r.push_back(BoolRule(u"FullRowSelect", false));
  r.push_back(BoolRule(u"HideColumnHeaders", false));
  r.push_back(BoolRule(u"HideSelection", true));
  r.push_back(EnumRule(u"LabelEdit", 1));
  r.push_back(BoolRule(u"MultiSelect", false));
  r.push_back(BoolRule(u"Sorted", false));
  r.push_back(EnumRule(u"View", 3));
  AddGeometry(r, 2415, 1815);
  AddWindowed(r);
  return MakeClass(u"ListView", u"MSComctlLib.ListView", u"ListView", std::move(r));
}

std::shared_ptr<const ClassRules> TreeViewClass() {
  Rules r = Head();
  r.push_back(AppearanceRule());
  r.push_back(EnumRule(u"BorderStyle", 1));
  r.push_back(FontRule());
  r.push_back(BoolRule(u"FullRowSelect", false));
  r.push_back(BoolRule(u"HideSelection", true));
  r.push_back(EnumRule(u"LabelEdit", 1));
  r.push_back(EnumRule(u"LineStyle", 1));
  r.push_back(BoolRule(u"Sorted", false));
  r.push_back(EnumRule(u"Style", 7, 7));
  AddGeometry(r, 2415, 1815);
  AddWindowed(r);
  return MakeClass(u"TreeView", u"MSComctlLib.TreeView", u"TreeView", std::move(r));
}

std::shared_ptr<const ClassRules> MaskEdBoxClass() {
  Rules r = Head();
  r.push_back(BoolRule(u"AllowPrompt", false));
  r.push_back(AppearanceRule());
  r.push_back(BoolRule(u"AutoTab", false));
  r.push_back(ColorRule(u"BackColor", kWindowBack));
  r.push_back(EnumRule(u"BorderStyle", 1, 1));
  r.push_back(FontRule());
  r.push_back(ColorRule(u"ForeColor", kWindowText));
  r.push_back(TextRule(u"Format"));
  r.push_back(BoolRule(u"HideSelection", true));
  r.push_back(TextRule(u"Mask"));
  PropertyRule prompt = TextRule(u"PromptChar", u"_");
  prompt.check = ValueCheck::OneCharacter;
  r.push_back(std::move(prompt));
  r.push_back(BoolRule(u"PromptInclude", true));
  r.push_back(TextRule(u"Text"));
  AddGeometry(r, 1215, 375);
  AddWindowed(r);
  return MakeClass(u"MaskEdBox", u"MSMask.MaskEdBox", u"MaskEdBox", std::move(r));
}

std::shared_ptr<const ClassRules> RichTextBoxClass() {
  Rules r = Head();
  r.push_back(AppearanceRule());
  r.push_back(BoolRule(u"AutoVerbMenu", false));
  r.push_back(ColorRule(u"BackColor", kWindowBack));
  r.push_back(EnumRule(u"BorderStyle", 1, 1));
  r.push_back(TextRule(u"FileName"));
  r.push_back(FontRule());
  r.push_back(BoolRule(u"HideSelection", true));
  r.push_back(BoolRule(u"Locked", false));
  r.push_back(LongRule(u"MaxLength", 0, kLongMax, 0));
  r.push_back(BoolRule(u"MultiLine", false));
  r.push_back(EnumRule(u"ScrollBars", 3));
  r.push_back(NamedText(u"Text"));
  AddGeometry(r, 2415, 1215);
  AddWindowed(r);
  return MakeClass(u"RichTextBox", u"RichTextLib.RichTextBox", u"RichTextBox", std::move(r));
}

std::shared_ptr<const ClassRules> SSTabClass() {
  Rules r = Head();
  r.push_back(ColorRule(u"BackColor", kButtonFace));
  r.push_back(TextRule(u"Caption", u"Tab 0"));
  r.push_back(FontRule());
  r.push_back(ColorRule(u"ForeColor", kButtonText));
  r.push_back(EnumRule(u"Style", 1));
  r.push_back(EnumRule(u"TabOrientation", 3));
  r.push_back(IntRule(u"Tabs", 1, kIntegerMax, 3));
  r.push_back(IntRule(u"TabsPerRow", 1, kIntegerMax, 3));
  AddGeometry(r, 3615, 2415);
  AddWindowed(r);
  return MakeClass(u"SSTab", u"TabDlg.SSTab", u"SSTab", std::move(r));
}

std::shared_ptr<const ClassRules> MakeFormClass() {
  Rules r = {NameRule()};
  r.push_back(AppearanceRule());
  r.push_back(BoolRule(u"AutoRedraw", false));
  r.push_back(ColorRule(u"BackColor", kButtonFace));
  r.push_back(EnumRule(u"BorderStyle", 5, 2));
  r.push_back(NamedText(u"Caption"));
  r.push_back(LongRule(u"ClientHeight", 0, kLongMax, 3195));
  r.push_back(LongRule(u"ClientLeft", kLongMin, kLongMax, 60));
  r.push_back(LongRule(u"ClientTop", kLongMin, kLongMax, 345));
  r.push_back(LongRule(u"ClientWidth", 0, kLongMax, 4680));
  r.push_back(BoolRule(u"ControlBox", true));
  r.push_back(BoolRule(u"Enabled", true));
  r.push_back(FontRule());
  r.push_back(ColorRule(u"ForeColor", kButtonText));
  r.push_back(BoolRule(u"KeyPreview", false));
  r.push_back(NamedText(u"LinkTopic"));
  r.push_back(BoolRule(u"MaxButton", true));
  r.push_back(BoolRule(u"MinButton", true));
  r.push_back(LongRule(u"ScaleHeight", kLongMin, kLongMax, 3195));
  r.push_back(EnumRule(u"ScaleMode", 7, 1));
  r.push_back(LongRule(u"ScaleWidth", kLongMin, kLongMax, 4680));
  r.push_back(BoolRule(u"ShowInTaskbar", true));
  r.push_back(EnumRule(u"StartUpPosition", 3, 3));
  r.push_back(TextRule(u"Tag"));
  r.push_back(BoolRule(u"Visible", true));
  r.push_back(EnumRule(u"WindowState", 2));
  return MakeClass(u"Form", u"VB.Form", u"Form", std::move(r));
}

// The generic set keeps ClassName as the part after the last dot.
vb::Text ShortClassName(vb::TextView file_class) {
  const auto dot = file_class.rfind(u'.');
  return vb::Text(dot == vb::TextView::npos ? file_class : file_class.substr(dot + 1));
}

bool IsAsciiLetter(char16_t c) { return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z'); }
bool IsAsciiDigit(char16_t c) { return c >= u'0' && c <= u'9'; }

vb::Integer BooleanAsNumber(vb::Boolean b) { return vb::IsTrue(b) ? -1 : 0; }

// Runs a runtime conversion; its Type mismatch or Overflow becomes the
// IDE's "Invalid property value".
template <typename Fn>
auto Converted(Fn fn) {
  try {
    return fn();
  } catch (const vb::Failure&) {
    throw InvalidValue();
  }
}

}  // namespace

// ---------------------------------------------------------------------------
// Lookups.

const PropertyRule* ClassRules::Find(vb::TextView name) const {
  for (const PropertyRule& rule : properties) {
    if (vb::SameName(rule.name, name)) return &rule;
  }
  return nullptr;
}

const std::vector<std::shared_ptr<const ClassRules>>& AllClasses() {
  static const std::vector<std::shared_ptr<const ClassRules>> classes = {
      CheckBoxClass(),
      ComboBoxClass(),
      CommandButtonClass(),
      FrameClass(),
      LabelClass(),
      ListBoxClass(),
      OptionButtonClass(),
      TextBoxClass(),
      TimerClass(),
      ScrollBarClass(u"HScrollBar", u"VB.HScrollBar", u"HScroll", true),
      ScrollBarClass(u"VScrollBar", u"VB.VScrollBar", u"VScroll", false),
      PictureBoxClass(),
      ImageClass(),
      ShapeClass(),
      LineClass(),
      DataClass(),
      DriveListBoxClass(),
      ListViewClass(),
      TreeViewClass(),
      MaskEdBoxClass(),
      RichTextBoxClass(),
      SSTabClass(),
  };
  return classes;
}

std::shared_ptr<const ClassRules> FindClass(vb::TextView name) {
  for (const auto& rules : AllClasses()) {
    if (vb::SameName(rules->class_name, name) || vb::SameName(rules->file_class, name))
      return rules;
  }
  return nullptr;
}

std::shared_ptr<const ClassRules> GenericClass(vb::TextView file_class) {
  Rules r = Head();
  r.push_back(TextRule(u"Tag"));
  AddGeometry(r, 1215, 495);
  r.push_back(BoolRule(u"Visible", true));
  r.push_back(BoolRule(u"Enabled", true));
  r.push_back(TabIndexRule());
  vb::Text short_name = ShortClassName(file_class);
  auto result = std::make_shared<ClassRules>();
  result->class_name = short_name;
  result->file_class = vb::Text(file_class);
  result->stem = short_name;
  result->known = false;
  result->properties = std::move(r);
  return result;
}

std::shared_ptr<const ClassRules> ClassOrGeneric(vb::TextView name) {
  auto rules = FindClass(name);
  return rules ? rules : GenericClass(name);
}

std::shared_ptr<const ClassRules> FormClass() {
  static const std::shared_ptr<const ClassRules> form = MakeFormClass();
  return form;
}

bool IsValidControlName(vb::TextView name) {
  if (name.empty() || name.size() > 40 || !IsAsciiLetter(name.front())) return false;
  return std::all_of(name.begin(), name.end(),
                     [](char16_t c) { return IsAsciiLetter(c) || IsAsciiDigit(c) || c == u'_'; });
}

vb::Kind KindOf(PropertyType type) {
  switch (type) {
    case PropertyType::Boolean:
      return vb::Kind::Boolean;
    case PropertyType::Integer:
      return vb::Kind::Integer;
    case PropertyType::Long:
      return vb::Kind::Long;
    case PropertyType::Text:
    case PropertyType::Font:
      break;
  }
  return vb::Kind::Text;
}

vb::Failure InvalidValue(const vb::Text& detail) {
  vb::Text words = vb::StandardDescription(vb::kInvalidPropertyValue);
  if (!detail.empty()) words += u": " + detail;
  return vb::Failure(vb::kInvalidPropertyValue, std::move(words));
}

// ---------------------------------------------------------------------------
// Coercion.

vb::Value CoerceToKind(vb::Kind kind, const vb::Value& value) {
  switch (kind) {
    case vb::Kind::Text:
      return vb::Value(value.ToText());
    case vb::Kind::Boolean:
      switch (value.GetKind()) {
        case vb::Kind::Text:
          return vb::Value(Converted([&] { return vb::CBool(value.AsText()); }));
        case vb::Kind::Boolean:
          return value;
        case vb::Kind::Integer:
          return vb::Value(vb::ToBoolean(value.AsInteger() != 0));
        case vb::Kind::Long:
          return vb::Value(vb::ToBoolean(value.AsLong() != 0));
      }
      break;
    case vb::Kind::Integer:
      switch (value.GetKind()) {
        case vb::Kind::Text:
          return vb::Value(Converted([&] { return vb::CInt(value.AsText()); }));
        case vb::Kind::Boolean:
          return vb::Value(BooleanAsNumber(value.AsBoolean()));
        case vb::Kind::Integer:
          return value;
        case vb::Kind::Long:
          if (value.AsLong() < kIntegerMin || value.AsLong() > kIntegerMax) throw InvalidValue();
          return vb::Value(static_cast<vb::Integer>(value.AsLong()));
      }
      break;
    case vb::Kind::Long:
      switch (value.GetKind()) {
        case vb::Kind::Text:
          return vb::Value(Converted([&] { return vb::CLng(value.AsText()); }));
        case vb::Kind::Boolean:
          return vb::Value(static_cast<vb::Long>(BooleanAsNumber(value.AsBoolean())));
        case vb::Kind::Integer:
          return vb::Value(static_cast<vb::Long>(value.AsInteger()));
        case vb::Kind::Long:
          return value;
      }
      break;
  }
  throw InvalidValue();
}

vb::Value CoerceValue(const PropertyRule& rule, const vb::Value& value) {
  if (rule.check == ValueCheck::ArrayIndex && value.Is(vb::Kind::Text) &&
      vb::Trim(value.AsText()).empty()) {
    return vb::Value(static_cast<vb::Integer>(-1));
  }
  vb::Value result = CoerceToKind(KindOf(rule.type), value);
  if (result.Is(vb::Kind::Integer) || result.Is(vb::Kind::Long)) {
    const std::int32_t n = result.Is(vb::Kind::Integer) ? result.AsInteger() : result.AsLong();
    if (n < rule.min || n > rule.max) throw InvalidValue();
  }
  switch (rule.check) {
    case ValueCheck::ControlName:
      if (!IsValidControlName(result.AsText())) {
        throw InvalidValue(u"\"" + result.AsText() + u"\" is not a valid control name");
      }
      break;
    case ValueCheck::OneCharacter:
      if (result.AsText().size() != 1) throw InvalidValue();
      break;
    case ValueCheck::None:
    case ValueCheck::ArrayIndex:
    case ValueCheck::MinMaxBound:
      break;
  }
  if (rule.type == PropertyType::Font && result.AsText().empty()) throw InvalidValue();
  return result;
}

}  // namespace workbench
