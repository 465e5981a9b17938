// Taking and putting back a copy of a project's model.
#include "workbench/model_snapshot.hpp"

#include <algorithm>
#include <any>
#include <optional>
#include <unordered_set>
#include <vector>

#include "workbench/project.hpp"

namespace workbench {

// One control's state; the object itself is kept alongside.
struct ControlState {
  std::shared_ptr<Control> control;
  std::vector<PropertySlot> slots;
  std::size_t loaded_count = 0;
  std::optional<Font> font;
  std::any file_data;
  std::weak_ptr<Control> container;
};

struct FormState {
  std::shared_ptr<FormComponent> form;
  vb::Text name;
  std::vector<PropertySlot> slots;
  std::size_t loaded_count = 0;
  Font font;
  std::any file_data;
  std::vector<ControlState> controls;  // in the form's order
  std::optional<std::vector<vb::Text>> code;
};

struct ProjectState {
  vb::Text name;
  std::any file_data;
  std::vector<FormState> forms;
};

ModelSnapshot::ModelSnapshot(const Project& project) {
  auto state = std::make_unique<ProjectState>();
  state->name = project.name_;
  state->file_data = project.file_data_;
  for (const auto& form : project.forms_) {
    FormState& f = state->forms.emplace_back();
    f.form = form;
    f.name = form->name_;
    f.slots = form->form_slots_;
    f.loaded_count = form->form_loaded_count_;
    f.font = form->form_font_;
    f.file_data = form->file_data_;
    if (form->module_) f.code = form->module_->AllLines();
    for (const auto& control : form->controls_) {
      f.controls.push_back({control, control->slots_, control->loaded_count_, control->font_,
                            control->file_data_, control->container_});
    }
  }
  state_ = std::move(state);
}

ModelSnapshot::~ModelSnapshot() = default;

void ModelSnapshot::RestoreInto(Project& project) const {
  std::vector<std::shared_ptr<Control>> before;
  for (const auto& form : project.forms_) {
    before.insert(before.end(), form->controls_.begin(), form->controls_.end());
  }
  std::unordered_set<const Control*> after;

  project.name_ = state_->name;
  project.file_data_ = state_->file_data;
  project.forms_.clear();
  for (const FormState& f : state_->forms) {
    FormComponent& form = *f.form;
    project.forms_.push_back(f.form);
    form.name_ = f.name;
    form.form_slots_ = f.slots;
    form.form_loaded_count_ = f.loaded_count;
    form.form_font_ = f.font;
    form.file_data_ = f.file_data;
    if (f.code && form.module_ && form.module_->AllLines() != *f.code) {
      form.module_->RestoreLines(*f.code);
    }
    form.controls_.clear();
    for (const ControlState& c : f.controls) {
      Control& control = *c.control;
      control.slots_ = c.slots;
      control.loaded_count_ = c.loaded_count;
      control.font_ = c.font;
      control.file_data_ = c.file_data;
      control.container_ = c.container;
      control.deleted_ = false;
      control.form_kept_.reset();
      form.controls_.push_back(c.control);
      after.insert(c.control.get());
    }
  }
  for (const auto& control : before) {
    if (!after.count(control.get()) && !control->IsDeleted()) control->MarkDeleted();
  }
}

}  // namespace workbench
