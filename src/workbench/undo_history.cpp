// The undo and redo lists.
#include "workbench/undo_history.hpp"

#include <map>
#include <optional>

#include "vb/failure.hpp"
#include "workbench/model_snapshot.hpp"
#include "workbench/project.hpp"
#include "workbench/project_saver.hpp"

namespace workbench {
namespace {

using FileBytes = std::optional<std::map<std::string, std::string>>;

// What a save would write; none when the model cannot be written as it is
// (every action is then taken to have changed it).
FileBytes BytesOf(const Project& project) {
  try {
    return ProjectFileBytes(project);
  } catch (const vb::Failure&) {
    return std::nullopt;
  }
}

}  // namespace

struct UndoHistory::Step {
  std::string label;
  std::shared_ptr<const ModelSnapshot> before;
  std::shared_ptr<const ModelSnapshot> after;
};

struct UndoHistory::Open {
  const Project* project;
  std::shared_ptr<ModelSnapshot> before;
  FileBytes bytes;
};

UndoHistory::UndoHistory() = default;
UndoHistory::~UndoHistory() = default;

void UndoHistory::Begin(const Project& project) {
  open_ = std::make_unique<Open>(
      Open{&project, std::make_shared<ModelSnapshot>(project), BytesOf(project)});
}

bool UndoHistory::Commit(const Project& project, std::string label) {
  const auto open = std::move(open_);
  if (!open || open->project != &project) return false;
  const FileBytes bytes = BytesOf(project);
  if (bytes && open->bytes && *bytes == *open->bytes) return false;
  undo_.push_back(std::make_shared<Step>(
      Step{std::move(label), open->before, std::make_shared<ModelSnapshot>(project)}));
  if (undo_.size() > kMaxSteps) undo_.erase(undo_.begin());
  redo_.clear();
  return true;
}

// Takes the last step of `from` to `to`, putting the project as it was
// before it (undo) or after it (redo).
std::string UndoHistory::Move(std::vector<std::shared_ptr<Step>>& from,
                              std::vector<std::shared_ptr<Step>>& to, Project& project, bool undo) {
  if (from.empty()) {
    throw vb::Failure(vb::kInvalidProcedureCall, undo ? u"Nothing to undo" : u"Nothing to redo");
  }
  auto step = std::move(from.back());
  from.pop_back();
  (undo ? step->before : step->after)->RestoreInto(project);
  to.push_back(step);
  return step->label;
}

std::string UndoHistory::Undo(Project& project) { return Move(undo_, redo_, project, true); }

std::string UndoHistory::Redo(Project& project) { return Move(redo_, undo_, project, false); }

}  // namespace workbench
