// Rows that most property dialogs share, named once: the buttons, the font
// fields, the options frame with its Enabled and Visible boxes, the Index and
// Tag fields, and the writes that go with them. A dialog's tables list these
// by name among its own rows, in its own tab order, placed for its layout.
#pragma once

#include "dialogs/dialog_design.hpp"
#include "forms/form.hpp"

namespace tessaly::rows {

using K = forms::ControlKind;

inline constexpr forms::ControlSpec kOKButton = {
    K::CommandButton, "OKButton", -1, u"&Save Settings", nullptr, 0, u"", 0, forms::kDefault};
inline constexpr forms::ControlSpec kCancelButton = {
    K::CommandButton, "CancelButton", -1, u"&Cancel", nullptr, 0, u"", 0, forms::kCancel};
inline constexpr forms::ControlSpec kFontButton = {K::CommandButton, "cmdFont", -1, u"..."};
inline constexpr forms::ControlSpec kFontField = {
    K::TextBox, "txtFont", -1, u"", nullptr, 0, u"", 0, forms::kDisabled};
inline constexpr forms::ControlSpec kFontService = {K::CommonDialog, "cdlgFont"};
inline constexpr forms::ControlSpec kOptionsFrame = {K::Frame, "Frame1", -1, u"Options"};
// The first two rows of every options frame; the other shared rows stand
// where each dialog places them (ControlSpec::At).
inline constexpr forms::ControlSpec kEnabledBox = {
    K::CheckBox, "chkEnabled", -1, u"&Enabled?", "Frame1", 1, u"", 0, 0, {240, 240, 3000, 240}};
inline constexpr forms::ControlSpec kVisibleBox = {
    K::CheckBox, "chkVisible", -1, u"&Visible?", "Frame1", 1, u"", 0, 0, {240, 480, 3000, 240}};
inline constexpr forms::ControlSpec kIndexLabel = {K::Label, "Label3", -1, u"&Index:", "Frame1"};
inline constexpr forms::ControlSpec kIndexField = {K::TextBox, "txtIndex", -1, u"", "Frame1"};
inline constexpr forms::ControlSpec kTagLabel = {K::Label, "Label4", -1, u"&Tag:", "Frame1"};
inline constexpr forms::ControlSpec kTagField = {K::TextBox, "txtTag", -1, u"", "Frame1"};

inline constexpr Write kNameWrite = {
    .property = u"Name", .from = From::FieldText, .field = {"txtName"}};
inline constexpr Write kEnabledWrite = {
    .property = u"Enabled", .from = From::CheckBoolean, .field = {"chkEnabled"}};
inline constexpr Write kVisibleWrite = {
    .property = u"Visible", .from = From::CheckBoolean, .field = {"chkVisible"}};
inline constexpr Write kFontStage = {.from = From::FontStage};
// Index and Tag as text, each only when its field holds more than blanks.
inline constexpr Write kIndexWrite = {
    .property = u"Index", .from = From::FieldText, .field = {"txtIndex"}, .when = When::NonBlank};
inline constexpr Write kTagWrite = {
    .property = u"Tag", .from = From::FieldText, .field = {"txtTag"}, .when = When::NonBlank};

}  // namespace tessaly::rows
