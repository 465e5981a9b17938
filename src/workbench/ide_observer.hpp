// What the workbench tells its observer: every property and font write with
// its outcome, controls added, removed and renamed, menu entries added,
// captioned, removed and clicked.
//
// The session's trace writer implements this. Calls arrive synchronously, in
// the order things happen: a write is reported after it is stored (or
// refused) and before any event it raises reaches the add-in. A Name or Index
// write that renames is the exception that keeps cause before effect: it is
// reported once checked, naming the control as it was called, and the rename
// takes effect right after, reported as ControlRenamed. Every member has an
// empty default so an observer overrides only what it records.
#pragma once

#include <cstdint>
#include <optional>

#include "ide/object_model.hpp"
#include "vb/failure.hpp"
#include "vb/text.hpp"
#include "vb/value.hpp"

namespace workbench {

class Control;

// Who made a write: the add-in through ide::Property / ide::FontObject, or the
// user typing in the property sheet (a session action).
enum class WriteSource { AddIn, Sheet };

class IdeObserver {
 public:
  virtual ~IdeObserver() = default;

  // One property write. `property` is spelled as the class table spells it
  // when known (as written otherwise); `value` is the value as offered, with
  // its own kind; `outcome` is nullopt when the value was stored, else the
  // failure the writer received.
  virtual void PropertyWritten(const Control& /*control*/, const vb::Text& /*property*/,
                               const vb::Value& /*value*/, WriteSource /*source*/,
                               const std::optional<vb::Failure>& /*outcome*/) {}
  // One write to a control's font object (ide::FontObject::Put).
  virtual void FontWritten(const Control& /*control*/, ide::FontDispId /*id*/,
                           const vb::Value& /*value*/,
                           const std::optional<vb::Failure>& /*outcome*/) {}

  // Reported before the add-in's ItemAdded / ItemRemoved / ItemRenamed runs.
  // A removed control is already out of its form's list. `old_index` is -1
  // when the control was in no control array.
  virtual void ControlAdded(const Control& /*control*/) {}
  virtual void ControlRemoved(const Control& /*control*/) {}
  virtual void ControlRenamed(const Control& /*control*/, const vb::Text& /*old_name*/,
                              std::int32_t /*old_index*/) {}

  // Menu entries of a command bar, identified by the bar's name and the
  // entry's caption at the time (an entry starts with an empty caption).
  virtual void MenuEntryAdded(const vb::Text& /*bar*/, const vb::Text& /*caption*/) {}
  virtual void MenuEntryCaptionSet(const vb::Text& /*bar*/, const vb::Text& /*old_caption*/,
                                   const vb::Text& /*caption*/) {}
  virtual void MenuEntryRemoved(const vb::Text& /*bar*/, const vb::Text& /*caption*/) {}
  virtual void MenuEntryClicked(const vb::Text& /*bar*/, const vb::Text& /*caption*/) {}
};

}  // namespace workbench
