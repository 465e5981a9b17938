// A form of the project: the component (name and code module), its designer,
// its own properties (kept for files), and its controls in order, with the
// designer actions a user performs -- add, delete, rename, type in the
// property sheet -- each raising the IDE's control events.
//
// Object chain as the add-in sees it: a control's Collection() is the form's
// ide::VBControls, whose Parent() is the designer (ide::VBForm), whose
// Parent() is this component (ide::VBComponent), whose CodeModule() is the
// form's module or null when the form has no code.
//
// Naming rules (as VB6): a new control is named stem + the lowest number >= 1
// not used on the form ("Text1", "Check2"); names compare without case. A
// Name equal to another control's is refused unless that control is in a
// control array; then the renamed control joins the array (taking its
// spelling) with the lowest free index. Deleting a container deletes the
// controls inside it first, innermost first, each with its own ItemRemoved
// (a guess at the IDE's order).
#pragma once

#include <any>
#include <memory>
#include <optional>
#include <vector>

#include "ide/object_model.hpp"
#include "vb/value.hpp"
#include "workbench/code_module.hpp"
#include "workbench/control.hpp"
#include "workbench/drop_placement.hpp"
#include "workbench/font.hpp"
#include "workbench/sites.hpp"

namespace workbench {

class FormComponent : public ide::VBComponent,
                      public FormSite,
                      public std::enable_shared_from_this<FormComponent> {
 public:
  // Use Project::AddForm / LoadForm. `module` may be null (a form without code).
  FormComponent(const std::shared_ptr<ProjectSite>& project, vb::Text name,
                std::shared_ptr<workbench::CodeModule> module);

  const vb::Text& FormName() const override { return name_; }
  void SetFormName(vb::Text name) { name_ = std::move(name); }
  std::shared_ptr<ProjectSite> GetProject() const override { return project_.lock(); }

  std::shared_ptr<workbench::CodeModule> Module() const { return module_; }
  void SetModule(std::shared_ptr<workbench::CodeModule> module) { module_ = std::move(module); }

  // The form's own properties (VB.Form rules), for files: same slot rules as
  // a control's, loaded without checks.
  const std::vector<PropertySlot>& FormSlots() const { return form_slots_; }
  void LoadFormProperty(vb::TextView name, vb::Value value, std::string raw);
  Font& FormFont() { return form_font_; }
  const Font& FormFont() const { return form_font_; }

  // Controls in order (file order, containers before what they hold).
  const std::vector<std::shared_ptr<Control>>& Controls() const override { return controls_; }
  // The control called `name` (any case) with that index; with no index
  // given, the first control of that name.
  std::shared_ptr<Control> FindControl(vb::TextView name,
                                       std::optional<vb::Integer> index = std::nullopt) const;
  // The default name a new control of this stem would get.
  vb::Text NextDefaultName(vb::TextView stem) const;

  // --- designer actions (the session runner's) ---
  // The new controls below go into `target` at a free place
  // (drop_placement.hpp), before the add-in hears of them; an unfit target
  // fails (5) before anything is added.
  //
  // A new control of a known class (ClassName or file name) with its default
  // name -> ItemAdded. Fails (5) for a class the workbench does not know.
  std::shared_ptr<Control> AddControl(vb::TextView class_name, const DropTarget& target = {});
  // A new control with the given name: a known class gets its table, any
  // other class text the generic set -> ItemAdded. ClassName answers the
  // class as given (the part after its last dot), also a known class spelt
  // in another case ("checkbox"). Fails (380) for a name that is no
  // identifier or is taken.
  std::shared_ptr<Control> AddControlExact(vb::TextView class_name, vb::TextView name,
                                           const DropTarget& target = {});
  // Removes the control -> ItemRemoved (the control already out of the
  // list). Fails (5) when there is no such control.
  void DeleteControl(vb::TextView name, std::optional<vb::Integer> index = std::nullopt);
  // The user renames in the property sheet: checked like a Name write, then
  // ItemRenamed(control, old name, old index).
  void RenameControl(vb::TextView old_name, vb::TextView new_name,
                     std::optional<vb::Integer> index = std::nullopt);
  // The user types `text` for `property` in the property sheet: coerced to
  // the property's kind, checked, stored; a Name goes through the rename.
  void SetPropertyFromSheet(Control& control, vb::TextView property, const vb::Text& text);

  // --- loading from a file: no checks, no events ---
  // A control of `file_class` (unknown classes get the generic set) named
  // `name`, appended, inside `container` (null = the form).
  std::shared_ptr<Control> LoadControl(vb::TextView file_class, const vb::Text& name,
                                       const std::shared_ptr<Control>& container = nullptr);
  // Opaque per-form data of the file reader (header lines, Object= lines...).
  std::any& FileData() { return file_data_; }
  const std::any& FileData() const { return file_data_; }

  // The designer and controls collection objects as the add-in sees them.
  std::shared_ptr<ide::VBForm> Designer();
  std::shared_ptr<ide::VBControls> ControlsCollection() override;

  // ide::VBComponent
  vb::Text Name() const override { return name_; }
  std::shared_ptr<ide::CodeModule> CodeModule() override { return module_; }

 private:
  friend class ModelSnapshot;
  // FormSite: the naming rules a control's Name and Index writes go through.
  std::pair<vb::Text, std::optional<vb::Integer>> ResolveRename(
      const Control& control, const vb::Text& new_name) const override;
  void CheckIndex(const Control& control, std::optional<vb::Integer> index) const override;
  std::shared_ptr<Control> MakeControl(std::shared_ptr<const ClassRules> rules,
                                       const vb::Text& name, const DropTarget& target);
  void RaiseAdded(const std::shared_ptr<Control>& control);
  // Takes the control (and what it contains) off the form, raising ItemRemoved.
  void Remove(const std::shared_ptr<Control>& control);
  std::shared_ptr<Control> RequireControl(vb::TextView name,
                                          std::optional<vb::Integer> index) const;

  std::weak_ptr<ProjectSite> project_;
  vb::Text name_;
  std::shared_ptr<workbench::CodeModule> module_;
  std::vector<PropertySlot> form_slots_;
  std::size_t form_loaded_count_ = 0;
  Font form_font_;
  std::vector<std::shared_ptr<Control>> controls_;
  std::any file_data_;
  std::weak_ptr<ide::VBForm> designer_;
  std::weak_ptr<ide::VBControls> collection_;
};

}  // namespace workbench
