// The links up the model's tree, as interfaces: what a control needs of the
// form it sits on, and what a form and its controls need of their project.
//
// A control knows its form only as a FormSite and a form its project only as
// a ProjectSite, so the model's units include one way: project.hpp includes
// form_component.hpp, which includes control.hpp, which includes this file.
// FormComponent and Project implement these; nothing else needs to.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "ide/object_model.hpp"
#include "vb/failure.hpp"
#include "vb/text.hpp"
#include "vb/value.hpp"
#include "workbench/ide_observer.hpp"

namespace workbench {

class Control;

// The project as its forms and controls report to it.
class ProjectSite {
 public:
  virtual ~ProjectSite() = default;

  // The observer of every write and event, or null.
  virtual IdeObserver* Observer() const = 0;
  // The failure a test injected for this write of `property` on `control`,
  // if any (a one-shot refusal is used up).
  virtual std::optional<vb::Failure> TakeRefusal(const Control& control, vb::TextView property) = 0;
  // The control events, reported to the observer and raised on the add-in's
  // advised sinks (see project.hpp).
  virtual void RaiseItemAdded(const std::shared_ptr<Control>& control) = 0;
  virtual void RaiseItemRemoved(const std::shared_ptr<Control>& control) = 0;
  virtual void RaiseItemRenamed(const std::shared_ptr<Control>& control, const vb::Text& old_name,
                                std::int32_t old_index) = 0;
};

// The form as its controls see it.
class FormSite {
 public:
  virtual ~FormSite() = default;

  virtual const vb::Text& FormName() const = 0;
  // The project, or null once it is gone.
  virtual std::shared_ptr<ProjectSite> GetProject() const = 0;
  // The form's controls collection as the add-in sees it.
  virtual std::shared_ptr<ide::VBControls> ControlsCollection() = 0;
  // The controls on the form, in order.
  virtual const std::vector<std::shared_ptr<Control>>& Controls() const = 0;
  // The Name rule: validates `new_name` for `control` and decides its index.
  // Fails with 380 (invalid or taken). Returns the spelling and index.
  virtual std::pair<vb::Text, std::optional<vb::Integer>> ResolveRename(
      const Control& control, const vb::Text& new_name) const = 0;
  // Checks an Index write against the other controls of that name; fails
  // with 380.
  virtual void CheckIndex(const Control& control, std::optional<vb::Integer> index) const = 0;
};

}  // namespace workbench
