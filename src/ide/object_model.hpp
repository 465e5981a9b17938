// The IDE's object model, as far as an add-in may use it.
//
// Every object is reached through a shared pointer; a missing object reads as
// null. A refused call throws vb::Failure with the IDE's description. Members
// state their preconditions; an IDE implements them (the workbench here, a COM
// adapter on Windows).
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "vb/failure.hpp"
#include "vb/text.hpp"
#include "vb/value.hpp"

namespace ide {

// A generic object, as the IDE passes one where the type is not fixed (the
// Application of a connection, the active project). Cast it to an interface
// with std::dynamic_pointer_cast; a cast that fails is the caller's
// "Type mismatch".
class Object {
 public:
  virtual ~Object() = default;
};
using ObjectPtr = std::shared_ptr<Object>;

// The standard font object of a control's Font property. Properties are set
// by dispatch number, each with the value's own kind.
enum class FontDispId : std::int32_t {
  Name = 0,
  Size = 2,
  Bold = 3,
  Italic = 4,
  Underline = 5,
  Strikethrough = 6,
};
const char* FontDispIdName(FontDispId id);

class FontObject : public Object {
 public:
  // Sets one property. Fails when the value is of a kind or range the
  // property refuses.
  virtual void Put(FontDispId id, const vb::Value& value) = 0;
  virtual vb::Value Get(FontDispId id) const = 0;
};

class Property : public Object {
 public:
  virtual vb::Text Name() const = 0;
  virtual vb::Value Value() const = 0;
  // Writes the value; fails with the IDE's description when it is refused.
  virtual void SetValue(const vb::Value& value) = 0;
  // The value as an object: for "Font" a FontObject; null where the property
  // holds no object.
  virtual ObjectPtr Object() = 0;
};

class Properties : public Object {
 public:
  // The property called `name`. A name the control lacks fails (438) or
  // gives null; callers must treat both as missing.
  virtual std::shared_ptr<Property> Item(const vb::Text& name) = 0;
};

class VBForm;
class VBControls : public Object {
 public:
  // The designer of the form that holds the controls.
  virtual std::shared_ptr<VBForm> Parent() = 0;
};

class VBControl : public Object {
 public:
  virtual vb::Text ClassName() const = 0;
  // Still answer while the control's ItemRemoved event runs.
  virtual std::shared_ptr<VBControls> Collection() = 0;
  virtual std::shared_ptr<ide::Properties> Properties() = 0;
};

class Member : public Object {
 public:
  virtual vb::Text Name() const = 0;
  // Line (from 1) at which the member's code begins.
  virtual std::int32_t CodeLocation() const = 0;
};

class Members : public Object {
 public:
  // All members, in the collection's order.
  virtual std::vector<std::shared_ptr<Member>> All() = 0;
  // The member called `name`, or null.
  virtual std::shared_ptr<Member> Item(const vb::Text& name) = 0;
};

class CodeModule : public Object {
 public:
  virtual std::int32_t CountOfLines() const = 0;
  // Lines first..first+count-1 (from 1), joined by CR LF. Fails (5) for a
  // range outside the module.
  virtual vb::Text Lines(std::int32_t first, std::int32_t count) const = 0;
  // Removes the lines; later ones move up. Fails (5) for a range outside.
  virtual void DeleteLines(std::int32_t first, std::int32_t count) = 0;
  // Adds the text's lines; a text read from Lines becomes those lines again.
  virtual void AddFromString(const vb::Text& text) = 0;
  virtual std::shared_ptr<ide::Members> Members() = 0;
};

class VBComponent : public Object {
 public:
  virtual vb::Text Name() const = 0;
  // The component's code module, or null when it has none.
  virtual std::shared_ptr<ide::CodeModule> CodeModule() = 0;
};

class VBForm : public Object {
 public:
  // The component the designer belongs to.
  virtual std::shared_ptr<VBComponent> Parent() = 0;
};

class CommandBarControl : public Object {
 public:
  virtual vb::Text Caption() const = 0;
  virtual void SetCaption(const vb::Text& caption) = 0;
  // Removes the entry from its bar.
  virtual void Delete() = 0;
};

class CommandBarControls : public Object {
 public:
  // Adds a control of the given type (1 is a button entry).
  virtual std::shared_ptr<CommandBarControl> Add(std::int16_t type) = 0;
};

class CommandBar : public Object {
 public:
  virtual vb::Text Name() const = 0;
  virtual std::shared_ptr<CommandBarControls> Controls() = 0;
};

class CommandBars : public Object {
 public:
  // The bar called `name`, or null.
  virtual std::shared_ptr<CommandBar> Item(const vb::Text& name) = 0;
};

// Receivers of the IDE's events. An event source calls them while they are
// advised; a receiver unadvises before it goes away.
class CommandBarEventsSink {
 public:
  virtual ~CommandBarEventsSink() = default;
  virtual void Click(const std::shared_ptr<CommandBarControl>& control, bool& handled,
                     bool& cancel_default) = 0;
};

class VBControlsEventsSink {
 public:
  virtual ~VBControlsEventsSink() = default;
  virtual void ItemAdded(const std::shared_ptr<VBControl>& control) = 0;
  virtual void ItemRemoved(const std::shared_ptr<VBControl>& control) = 0;
  virtual void ItemRenamed(const std::shared_ptr<VBControl>& control, const vb::Text& old_name,
                           std::int32_t old_index) = 0;
};

class CommandBarEvents : public Object {
 public:
  virtual void Advise(CommandBarEventsSink* sink) = 0;
  virtual void Unadvise(CommandBarEventsSink* sink) = 0;
};

class VBControlsEvents : public Object {
 public:
  virtual void Advise(VBControlsEventsSink* sink) = 0;
  virtual void Unadvise(VBControlsEventsSink* sink) = 0;
};

class Events : public Object {
 public:
  // Event source of a menu entry; `control` may be null, and what the IDE
  // does then is its own business.
  virtual std::shared_ptr<ide::CommandBarEvents> CommandBarEvents(
      const std::shared_ptr<CommandBarControl>& control) = 0;
  // Event source of the controls of a project (and of one form, or all when
  // `form` is null). `project` is passed as the caller has it, untested.
  virtual std::shared_ptr<ide::VBControlsEvents> VBControlsEvents(const ObjectPtr& project,
                                                             const ObjectPtr& form) = 0;
};

class VBE : public Object {
 public:
  virtual std::shared_ptr<ide::CommandBars> CommandBars() = 0;
  virtual std::shared_ptr<ide::Events> Events() = 0;
  // The active project, or null.
  virtual ObjectPtr ActiveVBProject() = 0;
};

}  // namespace ide
