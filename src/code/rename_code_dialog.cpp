#include "code/rename_code_dialog.hpp"

#include <array>

#include "code/code_edits.hpp"
#include "forms/runtime.hpp"
#include "vb/failure.hpp"

namespace tessaly {
namespace {

using K = forms::ControlKind;
using S = forms::ControlSpec;

constexpr forms::ClientSize kClient = {7200, 2880};

constexpr const char16_t* kTitle = u"Rename Code for Control";

constexpr std::array<forms::ControlSpec, 5> kControls = {{
    S{K::Label, "Label1", -1,
      u"You have just changed the name of a control.  Do you want to change all references in "
      u"the code for the current Form/Control to reflect the new name for the control?"}
        .At({120, 240, 6960, 960}),
    S{K::Label, "lblOldName", -1, u"Old Control Name : ", nullptr, 0, u"Old Control Name : ", 0,
      forms::kBold}
        .At({120, 1440, 6960, 240}),
    S{K::Label, "lblNewName", -1, u"New Control Name : ", nullptr, 0, u"New Control Name : ", 0,
      forms::kBold}
        .At({120, 1680, 6960, 240}),
    S{K::CommandButton, "cmdReplace", -1, u"&Replace", nullptr, 0, u"", 0, forms::kDefault}.At(
        {4080, 2160, 1440, 360}),
    S{K::CommandButton, "cmdCancel", -1, u"&Cancel", nullptr, 0, u"", 0, forms::kCancel}.At(
        {5640, 2160, 1440, 360}),
}};

}  // namespace

frmRenameCode::frmRenameCode(forms::Runtime& runtime)
    : Form(runtime, "frmRenameCode", kTitle, kControls, forms::StartUpPosition::CenterScreen,
           kClient) {
  Get<forms::CommandButton>("cmdReplace").Click = [this](forms::Control&) { cmdReplace_Click(); };
  Get<forms::CommandButton>("cmdCancel").Click = [this](forms::Control&) { cmdCancel_Click(); };
}

void frmRenameCode::Form_Activate() {
  auto& old_label = Get<forms::Label>("lblOldName");
  old_label.SetCaption(old_label.Tag() + OldName);
  auto& new_label = Get<forms::Label>("lblNewName");
  new_label.SetCaption(new_label.Tag() + NewName);
}

void frmRenameCode::cmdReplace_Click() {
  if (!objCode) throw vb::Failure::Of(vb::kObjectNotSet);
  // The module already holds its original text again when a failure comes
  // back; the user only needs to know why nothing changed.
  if (const std::optional<vb::Failure> failure = RenameInModule(*objCode, OldName, NewName)) {
    GetRuntime().MsgBox(u"The code could not be renamed: " + failure->Description() +
                            u". The code was left as it was.",
                        forms::vbExclamation, vb::Text(kTitle));
  }
  cmdCancel_Click();
}

void frmRenameCode::cmdCancel_Click() {
  Hide();
  Unload();
}

}  // namespace tessaly
