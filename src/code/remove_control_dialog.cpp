#include "code/remove_control_dialog.hpp"

#include <array>

#include "code/code_edits.hpp"
#include "vb/failure.hpp"

namespace tessaly {
namespace {

using K = forms::ControlKind;
using S = forms::ControlSpec;

constexpr forms::ClientSize kClient = {7200, 4560};

constexpr std::array<forms::ControlSpec, 4> kControls = {{
    S{K::Label, "Label1", -1,
      u"The following methods are declared for the control that was just deleted.  Select the "
      u"methods that you would like to remove from the code listing."}
        .At({120, 240, 6960, 720}),
    S{K::Label, "lblCtlName", -1, u"Control Name : ", nullptr, 0, u"Control Name : ", 0,
      forms::kBold}
        .At({120, 1200, 6960, 240}),
    S{K::ListBox, "lstMembers", -1, u"", nullptr, 0, u"", 0, forms::kCheckBoxStyle}.At(
        {120, 1680, 6960, 1920}),
    S{K::CommandButton, "cmdOK", -1, u"&Ok", nullptr, 0, u"", 0, forms::kDefault}.At(
        {5640, 3840, 1440, 360}),
}};

// What the IDE hands out may be missing; using it then is the runtime's 91.
template <class T>
T& Require(const std::shared_ptr<T>& object) {
  if (!object) throw vb::Failure::Of(vb::kObjectNotSet);
  return *object;
}

}  // namespace

std::shared_ptr<ide::CodeModule> FindCodeModule(ide::VBControl& control) {
  // Each object is held while the next is asked for: the IDE may hand out
  // objects that live only as long as someone holds them.
  const auto collection = control.Collection();
  const auto designer = Require(collection).Parent();
  const auto component = Require(designer).Parent();
  return Require(component).CodeModule();
}

frmRemoveControl::frmRemoveControl(forms::Runtime& runtime)
    : Form(runtime, "frmRemoveControl", u"Remove Code for Control", kControls,
           forms::StartUpPosition::CenterScreen, kClient) {
  Get<forms::CommandButton>("cmdOK").Click = [this](forms::Control&) { cmdOK_Click(); };
}

void frmRemoveControl::Form_Activate() {
  ide::VBControl& control = Require(objControl);
  auto& label = Get<forms::Label>("lblCtlName");
  const vb::Text control_name = ControlName(control);
  label.SetCaption(label.Tag() + control_name);

  // The list starts empty on every Show: OK unloads the form.
  const std::shared_ptr<ide::CodeModule> module = FindCodeModule(control);
  if (!module) return;
  auto& list = Get<forms::ListBox>("lstMembers");
  for (const auto& member : Require(module->Members()).All()) {
    const vb::Text name = member->Name();
    if (!BelongsToControl(name, control_name)) continue;
    list.AddItem(name);
    list.SetSelected(list.NewIndex(), true);
  }
}

void frmRemoveControl::cmdOK_Click() {
  const auto& list = Get<forms::ListBox>("lstMembers");
  if (const std::shared_ptr<ide::CodeModule> module = FindCodeModule(Require(objControl))) {
    for (std::int32_t i = 0; i < list.ListCount(); ++i) {
      if (!list.Selected(i)) continue;
      ApplyRemoval(*module, PlanMemberRemoval(*module, list.List(i)));
    }
  }
  Hide();
  Unload();
}

}  // namespace tessaly
