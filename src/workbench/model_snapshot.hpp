// A copy of everything a project save would write, taken so that the project
// can be put back to it: the project's name and forms, each form's own
// properties, font, controls (which, in what order, in which container, with
// every property and its file text) and code lines, and what the file reader
// kept of each.
//
// Restoring puts back the very objects the snapshot was taken of, so an
// add-in that holds a control still holds the one on the form. A control the
// restore takes off its form counts as deleted from then on (writes to it
// raise no events); one it puts back is live again. Restoring reports
// nothing to the observer and raises no control events: the caller says
// what happened.
#pragma once

#include <memory>

namespace workbench {

class Project;
struct ProjectState;

class ModelSnapshot {
 public:
  explicit ModelSnapshot(const Project& project);
  ~ModelSnapshot();
  ModelSnapshot(const ModelSnapshot&) = delete;
  ModelSnapshot& operator=(const ModelSnapshot&) = delete;

  // Puts `project` (the one the snapshot was taken of) back as it was.
  void RestoreInto(Project& project) const;

 private:
  std::unique_ptr<const ProjectState> state_;
};

}  // namespace workbench
