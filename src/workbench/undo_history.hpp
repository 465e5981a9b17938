// The project's undo and redo lists. A step is whatever one user action did
// to the project -- a drop together with the property writes of the dialog
// the add-in showed for it, a delete with the Remove Code edit it led to, a
// rename, a typed property, a code edit -- kept as the project before and
// after it (model_snapshot.hpp).
//
// The caller opens a step before an action (Begin) and closes it after
// (Commit, also when the action failed half way): the step is kept only when
// the action changed what a save would write. A kept step clears the redo
// list. Undo puts the project back as it was before the last step, Redo as it
// was after the step last undone; both are byte-exact in what a save writes.
//
// Undo and redo raise no control events and so do not reach the add-in: the
// add-in's own reaction to the action (its property writes, its code edits)
// is part of the step and is undone with it, and hearing the event again
// would make it prompt for a change the user is taking back. The oldest steps
// go once there are more than kMaxSteps.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace workbench {

class Project;
class ModelSnapshot;

class UndoHistory {
 public:
  static constexpr std::size_t kMaxSteps = 100;

  UndoHistory();
  ~UndoHistory();

  // Opens a step for `project`; a step already open is dropped.
  void Begin(const Project& project);
  // Closes the open step, named `label` (what the user did, for messages);
  // returns whether it was kept.
  bool Commit(const Project& project, std::string label);

  bool CanUndo() const { return !undo_.empty(); }
  bool CanRedo() const { return !redo_.empty(); }
  // Take back the last step or do again the last one undone; each returns
  // the step's label. Fail (5, "Nothing to undo" / "Nothing to redo") when
  // the list is empty.
  std::string Undo(Project& project);
  std::string Redo(Project& project);

 private:
  struct Step;
  struct Open;
  std::string Move(std::vector<std::shared_ptr<Step>>& from, std::vector<std::shared_ptr<Step>>& to,
                   Project& project, bool undo);
  std::vector<std::shared_ptr<Step>> undo_;
  std::vector<std::shared_ptr<Step>> redo_;
  std::unique_ptr<Open> open_;
};

}  // namespace workbench
