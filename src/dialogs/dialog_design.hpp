// A property dialog as data: its controls in tab order with their places, the variants of the
// shared routines it uses, and its save sequence as a table of writes that one
// routine walks (PropertyDialog::OKButton_Click).
//
// A dialog's unit should read like its table: one ControlSpec row per control,
// one Write row per property written, in order.
#pragma once

#include <cstdint>
#include <span>

#include "forms/form.hpp"
#include "vb/value.hpp"

namespace tessaly {

class PropertyDialog;

// What happens when the dialog becomes active.
enum class ActivateVariant {
  FocusAndFont,  // focus and caret into txtName, then the default font into recFont and txtFont
  FocusOnly,     // focus and caret into txtName
  Own,           // the dialog overrides Form_Activate
};

// What a change of txtName does to txtCaption.
enum class NameLink {
  Caption,       // "&" and the name from its fourth character on
  PlainCaption,  // the name from its fourth character on
  None,
};

// What txtName does with a typed space or dot.
enum class NameFilter {
  CaptionFeeding,  // appended to txtCaption, discarded from the name
  Dropping,        // discarded
};

// A control of the dialog, by name and, for an element of a control array, index.
struct FieldRef {
  const char* name = nullptr;
  std::int16_t index = -1;
  explicit operator bool() const { return name != nullptr; }
};

// Where a write's value comes from, and in which kind it goes.
enum class From {
  FieldText,         // text of `field`, as typed
  FieldTextTrimmed,  // text of `field` without blanks at its ends
  CheckBoolean,      // check box `field`: True when its Value is not 0
  CheckValue,        // check box `field`: its Value as a 16-bit integer
  TextInteger,       // text of `field` converted to a 16-bit integer before the write
  TextLong,          // text of `field` converted to a 32-bit integer before the write
  OptionTag,         // first selected of `options`: its Tag as a 16-bit integer
  OptionPosition,    // first selected of `options`: its place in `options` as a 16-bit integer
  Custom,            // `custom` computes it from the dialog's own members
  FontStage,         // the six writes of recFont on the control's font object
};

// When a write is made.
enum class When {
  Always,
  NonBlank,         // the text of `guard`, trimmed of blanks, is not empty
  OptionOff,        // option button `guard` is not selected
  Enabled,          // control `guard` is enabled
  EnabledNonBlank,  // both of the above
};

struct Write {
  const char16_t* property = nullptr;  // null for the font stage
  From from = From::FieldText;
  FieldRef field{};  // the value's source; also the focus on failure unless `focus` is set
  When when = When::Always;
  FieldRef guard{};  // what `when` tests; defaults to `field`
  std::span<const FieldRef> options{};
  FieldRef focus{};  // the control that takes the focus when the write fails
  vb::Value (*custom)(const PropertyDialog&) = nullptr;
};

struct DialogDesign {
  const char* form_name;
  const char16_t* title;
  std::span<const forms::ControlSpec> controls;
  forms::ClientSize client{};
  forms::StartUpPosition position = forms::StartUpPosition::WindowsDefault;
  ActivateVariant activate = ActivateVariant::FocusAndFont;
  NameLink name_link = NameLink::None;
  NameFilter name_filter = NameFilter::Dropping;
  std::span<const char* const> digit_filtered{};
  std::span<const Write> writes{};
};

}  // namespace tessaly
