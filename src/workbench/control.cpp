// A control's properties and the IDE's handling of writes to them.
//
// Sections: the objects the add-in sees (properties, property, font
// object); construction and lookup; checked writes; loading.
#include "workbench/control.hpp"

#include <algorithm>
#include <functional>
#include <utility>

#include "vb/convert.hpp"

namespace workbench {

namespace {

// ---------------------------------------------------------------------------
// The objects the add-in sees. Each holds its control alive, so a property
// taken before the control was deleted still answers.

class ControlFontObject : public ide::FontObject {
 public:
  explicit ControlFontObject(std::shared_ptr<Control> control) : control_(std::move(control)) {}
  void Put(ide::FontDispId id, const vb::Value& value) override { control_->WriteFont(id, value); }
  vb::Value Get(ide::FontDispId id) const override { return control_->GetFont()->Get(id); }

 private:
  std::shared_ptr<Control> control_;
};

class ControlProperty : public ide::Property {
 public:
  ControlProperty(std::shared_ptr<Control> control, vb::Text name)
      : control_(std::move(control)), name_(std::move(name)) {}
  vb::Text Name() const override { return name_; }
  vb::Value Value() const override { return control_->Get(name_); }
  void SetValue(const vb::Value& value) override {
    control_->Write(name_, value, WriteSource::AddIn);
  }
  ide::ObjectPtr Object() override {
    const PropertySlot* slot = control_->FindSlot(name_);
    if (slot && slot->rule && slot->rule->type == PropertyType::Font && control_->GetFont()) {
      return std::make_shared<ControlFontObject>(control_);
    }
    return nullptr;
  }

 private:
  std::shared_ptr<Control> control_;
  vb::Text name_;
};

class ControlProperties : public ide::Properties {
 public:
  explicit ControlProperties(std::shared_ptr<Control> control) : control_(std::move(control)) {}
  std::shared_ptr<ide::Property> Item(const vb::Text& name) override {
    const PropertySlot* slot = control_->FindSlot(name);
    if (!slot) throw vb::Failure::Of(vb::kObjectLacksMember);
    return std::make_shared<ControlProperty>(control_, slot->name);
  }

 private:
  std::shared_ptr<Control> control_;
};

bool IsFontSlot(const PropertySlot& slot) {
  return slot.rule && slot.rule->type == PropertyType::Font;
}

}  // namespace

std::int32_t NumberOf(const vb::Value& value) {
  if (value.Is(vb::Kind::Integer)) return value.AsInteger();
  if (value.Is(vb::Kind::Long)) return value.AsLong();
  return 0;
}

// ---------------------------------------------------------------------------
// Construction and lookup.

Control::Control(std::shared_ptr<const ClassRules> rules, const std::shared_ptr<FormSite>& form,
                 const vb::Text& name)
    : rules_(std::move(rules)), form_(form) {
  slots_.reserve(rules_->properties.size());
  for (const PropertyRule& rule : rules_->properties) {
    PropertySlot slot;
    slot.rule = &rule;
    slot.name = rule.name;
    slot.value = rule.default_value;
    if (rule.default_from == DefaultFrom::ControlName || rule.check == ValueCheck::ControlName) {
      slot.value = vb::Value(name);
    }
    slots_.push_back(std::move(slot));
  }
  if (rules_->HasFont()) font_.emplace();
}

const vb::Text& Control::Name() const {
  static const vb::Text kNone;
  const PropertySlot* slot = FindSlot(u"Name");
  return slot && slot->value.Is(vb::Kind::Text) ? slot->value.AsText() : kNone;
}

std::optional<vb::Integer> Control::Index() const {
  const PropertySlot* slot = FindSlot(u"Index");
  if (!slot || !slot->value.Is(vb::Kind::Integer) || slot->value.AsInteger() < 0) {
    return std::nullopt;
  }
  return slot->value.AsInteger();
}

vb::Text Control::DisplayName() const {
  vb::Text text = Name();
  if (auto index = Index()) text += u"(" + vb::IntegerToText(*index) + u")";
  return text;
}

std::shared_ptr<FormSite> Control::Form() const { return form_kept_ ? form_kept_ : form_.lock(); }

const PropertySlot* Control::FindSlot(vb::TextView name) const {
  auto it = std::find_if(slots_.begin(), slots_.end(),
                         [&](const PropertySlot& slot) { return vb::SameName(slot.name, name); });
  return it == slots_.end() ? nullptr : &*it;
}

PropertySlot* Control::FindSlot(vb::TextView name) {
  return const_cast<PropertySlot*>(std::as_const(*this).FindSlot(name));
}

vb::Value Control::Get(vb::TextView name) const {
  const PropertySlot* slot = FindSlot(name);
  if (!slot) throw vb::Failure::Of(vb::kObjectLacksMember);
  if (IsFontSlot(*slot) && font_) return vb::Value(font_->Name());
  return slot->value;
}

std::shared_ptr<ide::VBControls> Control::Collection() {
  auto form = Form();
  return form ? form->ControlsCollection() : nullptr;
}

std::shared_ptr<ide::Properties> Control::Properties() {
  // A refusal of "Properties" makes the collection itself fail, as an IDE
  // that cannot answer for a control would.
  if (auto form = Form()) {
    if (auto project = form->GetProject()) {
      if (auto refusal = project->TakeRefusal(*this, u"Properties")) throw *refusal;
    }
  }
  return std::make_shared<ControlProperties>(shared_from_this());
}

// ---------------------------------------------------------------------------
// Checked writes.

void Control::Store(PropertySlot& slot, vb::Value value) {
  slot.value = std::move(value);
  slot.raw.clear();
  slot.written = true;
}

void Control::SetNameAndIndex(const vb::Text& name, std::optional<vb::Integer> index) {
  if (PropertySlot* slot = FindSlot(u"Name")) Store(*slot, vb::Value(name));
  if (PropertySlot* slot = FindSlot(u"Index")) {
    const vb::Value value(static_cast<vb::Integer>(index.value_or(-1)));
    if (slot->value != value) Store(*slot, value);
  }
}

void Control::MarkDeleted() {
  form_kept_ = form_.lock();
  deleted_ = true;
}

void Control::Write(vb::TextView property, const vb::Value& value, WriteSource source) {
  auto form = Form();
  auto project = form ? form->GetProject() : nullptr;
  IdeObserver* observer = project ? project->Observer() : nullptr;
  PropertySlot* slot = FindSlot(property);
  const vb::Text name = slot ? slot->name : vb::Text(property);
  // What a write sets off runs after the write is reported, so a trace shows
  // the write before whatever follows from it. A rename itself takes effect
  // then too: the report names the control as it was called when the write
  // was made, and the rename follows as its effect.
  std::function<void()> then;
  try {
    if (!slot) throw vb::Failure::Of(vb::kObjectLacksMember);
    if (project) {
      if (auto refusal = project->TakeRefusal(*this, name)) throw *refusal;
    }
    then = ApplyValue(*slot, value);
  } catch (const vb::Failure& failure) {
    if (observer) observer->PropertyWritten(*this, name, value, source, failure);
    throw;
  }
  if (observer) observer->PropertyWritten(*this, name, value, source, std::nullopt);
  if (then) then();
}

std::function<void()> Control::ApplyValue(PropertySlot& slot, const vb::Value& value) {
  auto form = Form();
  const PropertyRule* rule = slot.rule;
  if (!rule) {
    Store(slot, CoerceToKind(slot.value.GetKind(), value));
    return nullptr;
  }
  if (rule->type == PropertyType::Font) {
    // The font's default member is its name.
    if (!font_) throw vb::Failure::Of(vb::kObjectLacksMember);
    font_->Put(ide::FontDispId::Name, value);
    slot.written = true;
    return nullptr;
  }
  vb::Value coerced = CoerceValue(*rule, value);
  const vb::Text old_name = Name();
  const std::int32_t old_index = Index().value_or(-1);
  auto self = shared_from_this();
  // Checked now, applied once the write has been reported.
  auto rename_to = [self, old_name, old_index](vb::Text name, std::optional<vb::Integer> index) {
    return [self, old_name, old_index, name = std::move(name), index] {
      self->SetNameAndIndex(name, index);
      auto form_now = self->Form();
      auto project = form_now ? form_now->GetProject() : nullptr;
      if (project && !self->IsDeleted()) project->RaiseItemRenamed(self, old_name, old_index);
    };
  };

  switch (rule->check) {
    case ValueCheck::ControlName: {
      const vb::Text& wanted = coerced.AsText();
      if (wanted == old_name) return nullptr;  // nothing changes, nothing to raise
      std::optional<vb::Integer> index = Index();
      vb::Text spelling = wanted;
      if (form) std::tie(spelling, index) = form->ResolveRename(*this, wanted);
      return rename_to(std::move(spelling), index);
    }
    case ValueCheck::ArrayIndex: {
      const vb::Integer wanted = coerced.AsInteger();
      if (wanted == old_index) return nullptr;
      const std::optional<vb::Integer> index =
          wanted < 0 ? std::nullopt : std::optional<vb::Integer>(wanted);
      if (form) form->CheckIndex(*this, index);
      return rename_to(old_name, index);
    }
    case ValueCheck::MinMaxBound: {
      const std::int32_t lo = NumberOf(Get(u"Min"));
      const std::int32_t hi = NumberOf(Get(u"Max"));
      const std::int32_t v = NumberOf(coerced);
      if (v < std::min(lo, hi) || v > std::max(lo, hi)) throw InvalidValue();
      break;
    }
    case ValueCheck::None:
    case ValueCheck::OneCharacter:
      break;
  }
  // One default and one cancel button per form, as VB6 keeps them.
  const bool exclusive = rules_->class_name == u"CommandButton" &&
                         (rule->name == u"Default" || rule->name == u"Cancel") &&
                         vb::IsTrue(coerced.AsBoolean());
  Store(slot, std::move(coerced));
  if (exclusive && form) {
    for (const auto& other : form->Controls()) {
      if (other.get() == this || other->rules_->class_name != u"CommandButton") continue;
      PropertySlot* other_slot = other->FindSlot(rule->name);
      if (other_slot && other_slot->value == vb::Value(vb::Boolean::True)) {
        other->Store(*other_slot, vb::Value(vb::Boolean::False));
      }
    }
  }
  return nullptr;
}

void Control::WriteFont(ide::FontDispId id, const vb::Value& value) {
  auto form = Form();
  auto project = form ? form->GetProject() : nullptr;
  IdeObserver* observer = project ? project->Observer() : nullptr;
  try {
    if (!font_) throw vb::Failure::Of(vb::kObjectLacksMember);
    if (project) {
      if (auto refusal = project->TakeRefusal(*this, vb::Text(u"Font.") + FontMemberName(id))) {
        throw *refusal;
      }
    }
    font_->Put(id, value);
    if (PropertySlot* slot = FindSlot(u"Font")) slot->written = true;
  } catch (const vb::Failure& failure) {
    if (observer) observer->FontWritten(*this, id, value, failure);
    throw;
  }
  if (observer) observer->FontWritten(*this, id, value, std::nullopt);
}

// ---------------------------------------------------------------------------
// Loading.

void Control::LoadProperty(vb::TextView name, vb::Value value, std::string raw) {
  LoadSlot(slots_, loaded_count_, font_ ? &*font_ : nullptr, name, std::move(value),
           std::move(raw));
}

void LoadSlot(std::vector<PropertySlot>& slots, std::size_t& loaded_count, Font* font,
              vb::TextView name, vb::Value value, std::string raw) {
  auto it = std::find_if(slots.begin(), slots.end(),
                         [&](const PropertySlot& slot) { return vb::SameName(slot.name, name); });
  auto position = static_cast<std::size_t>(it - slots.begin());
  // A property loaded twice keeps its first place; any other moves to just
  // after the ones loaded so far.
  const auto after_loaded = slots.begin() + static_cast<std::ptrdiff_t>(loaded_count);
  if (it == slots.end()) {
    PropertySlot added;
    added.name = vb::Text(name);
    slots.insert(after_loaded, std::move(added));
    position = loaded_count++;
  } else if (position >= loaded_count) {
    std::rotate(after_loaded, it, it + 1);
    position = loaded_count++;
  }
  PropertySlot& slot = slots[position];
  if (slot.rule && slot.rule->type == PropertyType::Font) {
    if (font && value.Is(vb::Kind::Text) && !value.AsText().empty()) font->SetName(value.AsText());
  } else if (slot.rule) {
    // Keep the property's own kind where the value converts; else keep what
    // the file said, so nothing read is lost.
    try {
      slot.value = CoerceToKind(KindOf(slot.rule->type), value);
    } catch (const vb::Failure&) {
      slot.value = std::move(value);
    }
  } else {
    slot.value = std::move(value);
  }
  slot.raw = std::move(raw);
  slot.from_file = true;
  slot.written = false;
}

}  // namespace workbench
