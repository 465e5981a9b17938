// A form: its controls and the designer actions on them.
//
// Sections: the designer and collection objects; lookup and naming;
// designer actions; loading.
#include "workbench/form_component.hpp"

#include <algorithm>

#include "vb/convert.hpp"

namespace workbench {

namespace {

// ---------------------------------------------------------------------------
// The designer and controls collection as the add-in sees them. Each holds
// the form alive; the form only remembers them weakly.

class FormDesigner : public ide::VBForm {
 public:
  explicit FormDesigner(std::shared_ptr<FormComponent> form) : form_(std::move(form)) {}
  std::shared_ptr<ide::VBComponent> Parent() override { return form_; }

 private:
  std::shared_ptr<FormComponent> form_;
};

class FormControls : public ide::VBControls {
 public:
  explicit FormControls(std::shared_ptr<FormComponent> form) : form_(std::move(form)) {}
  std::shared_ptr<ide::VBForm> Parent() override { return form_->Designer(); }

 private:
  std::shared_ptr<FormComponent> form_;
};

vb::Failure NoSuchControl(vb::TextView name, std::optional<vb::Integer> index) {
  vb::Text words = u"Invalid procedure call or argument: no control " + vb::Text(name);
  if (index) words += u"(" + vb::IntegerToText(*index) + u")";
  return vb::Failure(vb::kInvalidProcedureCall, std::move(words));
}

}  // namespace

FormComponent::FormComponent(const std::shared_ptr<ProjectSite>& project, vb::Text name,
                             std::shared_ptr<workbench::CodeModule> module)
    : project_(project), name_(std::move(name)), module_(std::move(module)) {
  for (const PropertyRule& rule : FormClass()->properties) {
    PropertySlot slot;
    slot.rule = &rule;
    slot.name = rule.name;
    slot.value = rule.default_value;
    if (rule.default_from == DefaultFrom::ControlName || rule.check == ValueCheck::ControlName) {
      slot.value = vb::Value(name_);
    }
    form_slots_.push_back(std::move(slot));
  }
}

std::shared_ptr<ide::VBForm> FormComponent::Designer() {
  auto designer = designer_.lock();
  if (!designer) {
    designer = std::make_shared<FormDesigner>(shared_from_this());
    designer_ = designer;
  }
  return designer;
}

std::shared_ptr<ide::VBControls> FormComponent::ControlsCollection() {
  auto collection = collection_.lock();
  if (!collection) {
    collection = std::make_shared<FormControls>(shared_from_this());
    collection_ = collection;
  }
  return collection;
}

// ---------------------------------------------------------------------------
// Lookup and naming.

std::shared_ptr<Control> FormComponent::FindControl(vb::TextView name,
                                                    std::optional<vb::Integer> index) const {
  for (const auto& control : controls_) {
    if (vb::SameName(control->Name(), name) && (!index || control->Index() == index))
      return control;
  }
  return nullptr;
}

std::shared_ptr<Control> FormComponent::RequireControl(vb::TextView name,
                                                       std::optional<vb::Integer> index) const {
  auto control = FindControl(name, index);
  if (!control) throw NoSuchControl(name, index);
  return control;
}

vb::Text FormComponent::NextDefaultName(vb::TextView stem) const {
  for (vb::Long n = 1;; ++n) {
    vb::Text name = vb::Text(stem) + vb::IntegerToText(n);
    if (!FindControl(name)) return name;
  }
}

std::pair<vb::Text, std::optional<vb::Integer>> FormComponent::ResolveRename(
    const Control& control, const vb::Text& new_name) const {
  // A change of case only is no clash with the control's own array.
  if (vb::SameName(new_name, control.Name())) return {new_name, control.Index()};
  std::shared_ptr<Control> clash;
  for (const auto& other : controls_) {
    if (other.get() != &control && vb::SameName(other->Name(), new_name)) {
      clash = other;
      break;
    }
  }
  if (!clash) return {new_name, control.Index()};
  if (!clash->Index()) {
    throw InvalidValue(u"a control named \"" + clash->Name() + u"\" already exists on " + name_);
  }
  // Joining the array: its spelling, and the lowest index it does not use.
  for (vb::Integer index = 0;; ++index) {
    const bool taken = std::any_of(controls_.begin(), controls_.end(), [&](const auto& other) {
      return other.get() != &control && vb::SameName(other->Name(), new_name) &&
             other->Index() == index;
    });
    if (!taken) return {clash->Name(), index};
    if (index == 32767) throw InvalidValue(u"control array " + clash->Name() + u" is full");
  }
}

void FormComponent::CheckIndex(const Control& control, std::optional<vb::Integer> index) const {
  for (const auto& other : controls_) {
    if (other.get() == &control || !vb::SameName(other->Name(), control.Name())) continue;
    if (!index) {
      throw InvalidValue(u"other controls are named \"" + control.Name() +
                         u"\"; the Index cannot be empty");
    }
    if (other->Index() == index) {
      throw InvalidValue(u"\"" + other->DisplayName() + u"\" already exists");
    }
  }
}

// ---------------------------------------------------------------------------
// Designer actions.

std::shared_ptr<Control> FormComponent::MakeControl(std::shared_ptr<const ClassRules> rules,
                                                    const vb::Text& name,
                                                    const DropTarget& target) {
  auto control = std::make_shared<Control>(std::move(rules), shared_from_this(), name);
  // A new control comes last in the tab order, as in VB6.
  if (PropertySlot* tab = control->FindSlot(u"TabIndex")) {
    const auto count = std::count_if(controls_.begin(), controls_.end(), [](const auto& c) {
      return c->FindSlot(u"TabIndex") != nullptr;
    });
    tab->value = vb::Value(static_cast<vb::Integer>(std::min<std::ptrdiff_t>(count, 32767)));
  }
  controls_.push_back(control);
  PlaceDropped(*this, *control, target);
  return control;
}

void FormComponent::RaiseAdded(const std::shared_ptr<Control>& control) {
  if (auto project = GetProject()) project->RaiseItemAdded(control);
}

std::shared_ptr<Control> FormComponent::AddControl(vb::TextView class_name,
                                                   const DropTarget& target) {
  CheckDropTarget(*this, target);
  auto rules = FindClass(class_name);
  if (!rules) {
    throw vb::Failure(
        vb::kInvalidProcedureCall,
        u"Invalid procedure call or argument: unknown control class " + vb::Text(class_name));
  }
  auto control = MakeControl(rules, NextDefaultName(rules->stem), target);
  RaiseAdded(control);
  return control;
}

std::shared_ptr<Control> FormComponent::AddControlExact(vb::TextView class_name, vb::TextView name,
                                                        const DropTarget& target) {
  CheckDropTarget(*this, target);
  if (!IsValidControlName(name)) {
    throw InvalidValue(u"\"" + vb::Text(name) + u"\" is not a valid control name");
  }
  if (auto clash = FindControl(name)) {
    throw InvalidValue(u"a control named \"" + clash->Name() + u"\" already exists on " + name_);
  }
  std::shared_ptr<const ClassRules> rules = ClassOrGeneric(class_name);
  // ClassName answers the class exactly as given: a known class spelt in
  // another case keeps its table, but not the table's spelling.
  if (rules->known && class_name != rules->class_name && class_name != rules->file_class) {
    auto respelt = std::make_shared<ClassRules>(*rules);
    const auto dot = class_name.rfind(u'.');
    respelt->class_name =
        vb::Text(dot == vb::TextView::npos ? class_name : class_name.substr(dot + 1));
    rules = std::move(respelt);
  }
  auto control = MakeControl(std::move(rules), vb::Text(name), target);
  RaiseAdded(control);
  return control;
}

void FormComponent::Remove(const std::shared_ptr<Control>& control) {
  // What the control contains goes first, innermost first.
  std::vector<std::shared_ptr<Control>> inside;
  for (const auto& other : controls_) {
    if (other->Container() == control) inside.push_back(other);
  }
  for (auto it = inside.rbegin(); it != inside.rend(); ++it) Remove(*it);
  auto it = std::find(controls_.begin(), controls_.end(), control);
  if (it == controls_.end()) return;
  controls_.erase(it);
  control->MarkDeleted();
  if (auto project = GetProject()) project->RaiseItemRemoved(control);
}

void FormComponent::DeleteControl(vb::TextView name, std::optional<vb::Integer> index) {
  Remove(RequireControl(name, index));
}

void FormComponent::RenameControl(vb::TextView old_name, vb::TextView new_name,
                                  std::optional<vb::Integer> index) {
  RequireControl(old_name, index)
      ->Write(u"Name", vb::Value(vb::Text(new_name)), WriteSource::Sheet);
}

void FormComponent::SetPropertyFromSheet(Control& control, vb::TextView property,
                                         const vb::Text& text) {
  // "Font.Size" and the like: the sheet's font dialog.
  constexpr vb::TextView kFontPrefix = u"Font.";
  if (property.size() > kFontPrefix.size() &&
      vb::SameName(property.substr(0, kFontPrefix.size()), kFontPrefix)) {
    if (auto id = FontMemberByName(property.substr(kFontPrefix.size()))) {
      control.WriteFont(*id, vb::Value(text));
      return;
    }
  }
  control.Write(property, vb::Value(text), WriteSource::Sheet);
}

// ---------------------------------------------------------------------------
// Loading.

void FormComponent::LoadFormProperty(vb::TextView name, vb::Value value, std::string raw) {
  LoadSlot(form_slots_, form_loaded_count_, &form_font_, name, std::move(value), std::move(raw));
}

std::shared_ptr<Control> FormComponent::LoadControl(vb::TextView file_class, const vb::Text& name,
                                                    const std::shared_ptr<Control>& container) {
  auto control = std::make_shared<Control>(ClassOrGeneric(file_class), shared_from_this(), name);
  control->SetContainer(container);
  controls_.push_back(control);
  return control;
}

}  // namespace workbench
