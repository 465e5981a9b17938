// One control on a form: its class rules, its properties in a stable order,
// its font, and the IDE's handling of writes to them.
//
// Properties keep the class table's order, except that properties read from a
// file come first, in file order. Each keeps the text a file gave it (`raw`,
// opaque here) so an unchanged property can be written back byte-exact; a
// write clears it. Name and Index are properties like the others ("Name" a
// Text, "Index" an Integer, -1 when the control is in no control array).
//
// Writes (ide::Property::SetValue, the property sheet) are checked as the IDE
// checks them and refused with vb::Failure; every write and refusal is
// reported to the project's IdeObserver. A Name write -- from the add-in as
// much as from the property sheet -- raises ItemRenamed, as the real IDE
// does for any rename; so does a change of Index. Setting Default (or Cancel)
// True on a CommandButton sets it False on the form's other buttons, as VB6
// does; those knock-on changes are not reported as writes.
//
// Guesses at the IDE's answers, to check against the real one:
//  - A change of Index alone raises ItemRenamed (same name, old index).
//  - Writing the name the control already has (same case) raises nothing;
//    a change of case is a rename.
//  - A control renamed out of an array keeps its Index.
//  - Setting the Font property itself to text sets the font's name (the
//    font object's default member); other kinds are refused with 380.
//  - A deleted control still takes writes (stored and reported) but raises
//    no events.
//
// A deleted control keeps a reference to its form, so Collection() and
// Properties() still answer during ItemRemoved and afterwards.
#pragma once

#include <any>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "ide/object_model.hpp"
#include "vb/value.hpp"
#include "workbench/class_rules.hpp"
#include "workbench/font.hpp"
#include "workbench/ide_observer.hpp"
#include "workbench/sites.hpp"

namespace workbench {

class FormComponent;

// One property as the control stores it.
struct PropertySlot {
  // The class table's rule; null for a property a file gave that the table
  // lacks (it keeps the kind it was read with).
  const PropertyRule* rule = nullptr;
  vb::Text name;
  // The value, of the property's kind. For Font: unused (see Control::GetFont).
  vb::Value value;
  // The text a file gave this property, opaque; empty when none.
  std::string raw;
  bool from_file = false;  // read from a file
  bool written = false;    // written since the control was made or read
};

// Loads one property as a file gives it into `slots` (a control's or a
// form's): no checks; the property moves to just after the `loaded_count`
// properties loaded so far (one loaded twice keeps its place); one the table
// lacks is added there with the value's kind. A Font slot takes the text as
// the font's name.
void LoadSlot(std::vector<PropertySlot>& slots, std::size_t& loaded_count, Font* font,
              vb::TextView name, vb::Value value, std::string raw);

// A stored number of either integer kind; anything else reads as 0.
std::int32_t NumberOf(const vb::Value& value);

class Control : public ide::VBControl, public std::enable_shared_from_this<Control> {
 public:
  // Use FormComponent's actions (or LoadControl) to make controls; this
  // constructor gives every property its default, Name `name`, and a default
  // of DefaultFrom::ControlName the name too.
  Control(std::shared_ptr<const ClassRules> rules, const std::shared_ptr<FormSite>& form,
          const vb::Text& name);

  const ClassRules& Rules() const { return *rules_; }
  const vb::Text& FileClass() const { return rules_->file_class; }
  const vb::Text& Name() const;
  // The index in its control array, or nullopt.
  std::optional<vb::Integer> Index() const;
  // "Text1" or "Text1(2)", for messages and traces.
  vb::Text DisplayName() const;

  // The form, whether the control is still on it or was deleted.
  std::shared_ptr<FormSite> Form() const;
  bool IsDeleted() const { return deleted_; }
  // The container control (Frame, PictureBox, SSTab), or null for the form.
  std::shared_ptr<Control> Container() const { return container_.lock(); }
  void SetContainer(const std::shared_ptr<Control>& container) { container_ = container; }

  // Properties in order.
  const std::vector<PropertySlot>& Slots() const { return slots_; }
  // The property called `name` (case-insensitive), or null.
  const PropertySlot* FindSlot(vb::TextView name) const;
  PropertySlot* FindSlot(vb::TextView name);
  // The stored value; Font reads the font name. Fails with 438 when the
  // control lacks the property.
  vb::Value Get(vb::TextView name) const;
  // The font, or null for a class without one.
  Font* GetFont() { return font_ ? &*font_ : nullptr; }
  const Font* GetFont() const { return font_ ? &*font_ : nullptr; }

  // A checked write: coerced, validated, stored, reported, events raised.
  // Fails with 438 for a property the control lacks, 380 for a refused
  // value, or an injected refusal. Name writes go through the form's rename
  // rules (duplicates, arrays).
  void Write(vb::TextView property, const vb::Value& value, WriteSource source);
  // A checked write to the font object (reported as FontWritten).
  void WriteFont(ide::FontDispId id, const vb::Value& value);

  // Loading from a file: no checks, no events, no reports. The property moves
  // to just after the properties read so far; one the table lacks is added
  // there with the value's kind. "Name" and "Index" may be loaded too.
  void LoadProperty(vb::TextView name, vb::Value value, std::string raw);
  // Opaque per-control data of the file reader (e.g. the text of its Begin line).
  std::any& FileData() { return file_data_; }
  const std::any& FileData() const { return file_data_; }

  // ide::VBControl
  vb::Text ClassName() const override { return rules_->class_name; }
  std::shared_ptr<ide::VBControls> Collection() override;
  std::shared_ptr<ide::Properties> Properties() override;

 private:
  friend class FormComponent;
  friend class ModelSnapshot;
  // Stores without checks or reports; clears raw, marks written.
  void Store(PropertySlot& slot, vb::Value value);
  void SetNameAndIndex(const vb::Text& name, std::optional<vb::Integer> index);
  void MarkDeleted();
  // Coerces, checks and stores one value; returns what must follow once the
  // write has been reported (or null): for a Name or Index write, the rename
  // itself and its ItemRenamed.
  std::function<void()> ApplyValue(PropertySlot& slot, const vb::Value& value);

  std::shared_ptr<const ClassRules> rules_;
  std::weak_ptr<FormSite> form_;
  // Set once deleted: the control then holds its form alive itself.
  std::shared_ptr<FormSite> form_kept_;
  std::weak_ptr<Control> container_;
  std::vector<PropertySlot> slots_;
  std::size_t loaded_count_ = 0;
  std::optional<Font> font_;
  std::any file_data_;
  bool deleted_ = false;
};

}  // namespace workbench
