// The workbench's VBE: the command bars (with an "Add-Ins" bar whose entries
// an add-in adds, captions, deletes, and a user clicks), the Events object,
// the open projects and the active one, and add-in hosting.
//
// Events().CommandBarEvents(null) and Events().VBControlsEvents(null project)
// fail with 91 "Object variable or With block variable not set", as an IDE
// with nothing to attach to would. A project object that is not one of the
// workbench's fails with 13. Loading an add-in makes its instance; Connect
// calls OnConnection with this IDE as Application (or any object a test
// passes); Disconnect calls OnDisconnection and releases the instance. An
// add-in holds the Application while connected, so an IDE with a connected
// add-in lives until Disconnect.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "ide/addin.hpp"
#include "ide/object_model.hpp"
#include "workbench/ide_observer.hpp"
#include "workbench/project.hpp"

namespace workbench {

struct IdeOptions {
  // Build the IDE without the "Add-Ins" command bar (for tests of an add-in
  // that must cope with its absence).
  bool add_ins_bar = true;
};

class MenuBar;

class Ide : public ide::VBE, public std::enable_shared_from_this<Ide> {
 public:
  static std::shared_ptr<Ide> Create(IdeOptions options = {});
  explicit Ide(IdeOptions options);
  ~Ide() override;

  // Projects. The first added becomes active.
  void AddProject(const std::shared_ptr<Project>& project);
  void SetActiveProject(const std::shared_ptr<Project>& project);
  const std::vector<std::shared_ptr<Project>>& Projects() const { return projects_; }
  std::shared_ptr<Project> ActiveProject() const { return active_; }

  // The observer of every project (present and later ones) and of the menus.
  void SetObserver(IdeObserver* observer);
  IdeObserver* Observer() const { return *observer_; }
  // Injected refusals apply to every project open now.
  void InjectRefusal(const Refusal& refusal);

  // Captions of a bar's entries in order; empty when there is no such bar.
  std::vector<vb::Text> MenuCaptions(vb::TextView bar) const;
  // The user clicks the entry captioned `caption` (first match on any bar):
  // Click on every advised CommandBarEventsSink of it. Fails (5) when there
  // is no such entry.
  void ClickMenuEntry(vb::TextView caption);

  // Add-in hosting.
  void LoadAddIn(const ide::AddInFactory& factory);
  // OnConnection(application or this IDE, mode, null, custom). Fails (91)
  // when no add-in is loaded.
  void Connect(ide::ConnectMode mode, ide::ObjectPtr application = nullptr);
  void Disconnect(ide::DisconnectMode mode = ide::DisconnectMode::HostShutdown);
  ide::AddIn* AddIn() const { return addin_.get(); }

  // ide::VBE
  std::shared_ptr<ide::CommandBars> CommandBars() override;
  std::shared_ptr<ide::Events> Events() override;
  ide::ObjectPtr ActiveVBProject() override { return active_; }

 private:
  IdeOptions options_;
  std::vector<std::shared_ptr<MenuBar>> bars_;
  std::vector<std::shared_ptr<Project>> projects_;
  std::shared_ptr<Project> active_;
  // Shared with the menu bars and their entries, which may outlive the IDE
  // in the add-in's hands.
  std::shared_ptr<IdeObserver*> observer_ = std::make_shared<IdeObserver*>(nullptr);
  std::unique_ptr<ide::AddIn> addin_;
};

}  // namespace workbench
