// A project open in the workbench: its name, its forms in order, the
// observer that hears every write and event, the control-event sources the
// add-in advised, and refusals injected by tests.
//
// Control events (ItemAdded, ItemRemoved, ItemRenamed) are raised
// synchronously on every advised sink of every VBControlsEvents source of
// this project whose form matches (or that was made for any form), sources
// in the order they were made, sinks in the order they were advised. A sink
// may unadvise while an event runs; it is then not called again.
#pragma once

#include <any>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "ide/object_model.hpp"
#include "vb/failure.hpp"
#include "vb/text.hpp"
#include "workbench/form_component.hpp"
#include "workbench/ide_observer.hpp"
#include "workbench/sites.hpp"
#include "workbench/undo_history.hpp"

namespace workbench {

// "Refuse the next (or every) write of `property` on `control`": matched by
// the control's name as it is at write time (any case, any index) and the
// property name (any case). A property "Font" also matches every write to
// that control's font object; a property "Properties" makes the control's
// Properties() itself fail instead of a write.
//
// A refusal aimed at the next control added instead of a name binds to the
// control the project adds next, before anyone hears of it, and then matches
// that control whatever it is called when the write comes.
struct Refusal {
  vb::Text control;
  vb::Text property;
  vb::Text description;
  std::int32_t number = vb::kInvalidPropertyValue;
  bool always = false;  // false: only the next matching write
  bool next_added = false;
  // The control a next_added refusal is bound to, once it has been added.
  std::optional<std::weak_ptr<const Control>> added{};
};

class ControlsEventSource;

class Project : public ide::Object,
                public ProjectSite,
                public std::enable_shared_from_this<Project> {
 public:
  // A project must be owned by a shared pointer (its forms point back to
  // it weakly): make it with Create.
  static std::shared_ptr<Project> Create(vb::Text name);
  explicit Project(vb::Text name) : name_(std::move(name)) {}

  const vb::Text& Name() const { return name_; }
  void SetName(vb::Text name) { name_ = std::move(name); }

  const std::vector<std::shared_ptr<FormComponent>>& Forms() const { return forms_; }
  // A new form whose code module holds nothing.
  std::shared_ptr<FormComponent> AddForm(vb::Text name);
  // A form as a file gives it; `module` may be null (no code).
  std::shared_ptr<FormComponent> LoadForm(vb::Text name,
                                          std::shared_ptr<workbench::CodeModule> module);
  // The form called `name` (any case), or null.
  std::shared_ptr<FormComponent> FindForm(vb::TextView name) const;

  // Opaque per-project data of the file reader (the .vbp's lines).
  std::any& FileData() { return file_data_; }
  const std::any& FileData() const { return file_data_; }

  // The observer, or null. Not owned; must outlive its use.
  void SetObserver(IdeObserver* observer) { observer_ = observer; }
  IdeObserver* Observer() const override { return observer_; }

  void InjectRefusal(Refusal refusal) { refusals_.push_back(std::move(refusal)); }
  void ClearRefusals() { refusals_.clear(); }
  // The failure injected for this write, if any (a one-shot refusal is used up).
  std::optional<vb::Failure> TakeRefusal(const Control& control, vb::TextView property) override;

  // An event source for the controls of `form` (null: of every form).
  std::shared_ptr<ide::VBControlsEvents> MakeControlsEvents(
      const std::shared_ptr<FormComponent>& form);
  void RaiseItemAdded(const std::shared_ptr<Control>& control) override;
  void RaiseItemRemoved(const std::shared_ptr<Control>& control) override;
  void RaiseItemRenamed(const std::shared_ptr<Control>& control, const vb::Text& old_name,
                        std::int32_t old_index) override;

  // The user's undo and redo lists (undo_history.hpp).
  UndoHistory& History() { return history_; }

 private:
  friend class ModelSnapshot;
  template <typename Fn>
  void ForEachSink(const std::shared_ptr<Control>& control, Fn fn);

  vb::Text name_;
  std::vector<std::shared_ptr<FormComponent>> forms_;
  std::any file_data_;
  IdeObserver* observer_ = nullptr;
  std::vector<Refusal> refusals_;
  std::vector<std::weak_ptr<ControlsEventSource>> sources_;
  UndoHistory history_;
};

}  // namespace workbench
