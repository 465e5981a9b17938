// The project: forms, event sources and refusals.
#include "workbench/project.hpp"

#include <algorithm>

#include "vb/convert.hpp"

namespace workbench {

// An event source the add-in advises. Made for one form or for all; held by
// the add-in, remembered weakly by the project.
class ControlsEventSource : public ide::VBControlsEvents {
 public:
  explicit ControlsEventSource(const std::shared_ptr<FormComponent>& form)
      : any_form_(!form), form_(form) {}

  void Advise(ide::VBControlsEventsSink* sink) override {
    if (sink && !IsAdvised(sink)) sinks_.push_back(sink);
  }
  void Unadvise(ide::VBControlsEventsSink* sink) override {
    sinks_.erase(std::remove(sinks_.begin(), sinks_.end(), sink), sinks_.end());
  }

  bool Matches(const FormSite* form) const {
    return any_form_ || (form && form_.lock().get() == form);
  }
  bool IsAdvised(ide::VBControlsEventsSink* sink) const {
    return std::find(sinks_.begin(), sinks_.end(), sink) != sinks_.end();
  }
  std::vector<ide::VBControlsEventsSink*> Sinks() const { return sinks_; }

 private:
  bool any_form_;
  std::weak_ptr<FormComponent> form_;
  std::vector<ide::VBControlsEventsSink*> sinks_;
};

std::shared_ptr<Project> Project::Create(vb::Text name) {
  return std::make_shared<Project>(std::move(name));
}

std::shared_ptr<FormComponent> Project::AddForm(vb::Text name) {
  auto module = CodeModule::FromText(name, u"");
  return LoadForm(std::move(name), std::move(module));
}

std::shared_ptr<FormComponent> Project::LoadForm(vb::Text name,
                                                 std::shared_ptr<workbench::CodeModule> module) {
  auto form =
      std::make_shared<FormComponent>(shared_from_this(), std::move(name), std::move(module));
  forms_.push_back(form);
  return form;
}

std::shared_ptr<FormComponent> Project::FindForm(vb::TextView name) const {
  for (const auto& form : forms_) {
    if (vb::SameName(form->FormName(), name)) return form;
  }
  return nullptr;
}

std::optional<vb::Failure> Project::TakeRefusal(const Control& control, vb::TextView property) {
  constexpr vb::TextView kFontPrefix = u"Font.";
  const bool font_member = property.size() > kFontPrefix.size() &&
                           vb::SameName(property.substr(0, kFontPrefix.size()), kFontPrefix);
  for (auto it = refusals_.begin(); it != refusals_.end(); ++it) {
    const bool aimed = it->next_added ? it->added && it->added->lock().get() == &control
                                      : vb::SameName(it->control, control.Name());
    if (!aimed) continue;
    if (!vb::SameName(it->property, property) &&
        !(font_member && vb::SameName(it->property, u"Font"))) {
      continue;
    }
    vb::Failure failure(it->number, it->description);
    if (!it->always) refusals_.erase(it);
    return failure;
  }
  return std::nullopt;
}

std::shared_ptr<ide::VBControlsEvents> Project::MakeControlsEvents(
    const std::shared_ptr<FormComponent>& form) {
  auto source = std::make_shared<ControlsEventSource>(form);
  // Forget sources the add-in has let go of.
  std::erase_if(sources_, [](const auto& weak) { return weak.expired(); });
  sources_.push_back(source);
  return source;
}

template <typename Fn>
void Project::ForEachSink(const std::shared_ptr<Control>& control, Fn fn) {
  const auto form = control->Form();
  // Snapshots: a sink may advise, unadvise or make sources while it runs.
  std::vector<std::shared_ptr<ControlsEventSource>> sources;
  for (const auto& weak : sources_) {
    if (auto source = weak.lock(); source && source->Matches(form.get())) {
      sources.push_back(source);
    }
  }
  for (const auto& source : sources) {
    for (ide::VBControlsEventsSink* sink : source->Sinks()) {
      if (source->IsAdvised(sink)) fn(*sink);
    }
  }
}

void Project::RaiseItemAdded(const std::shared_ptr<Control>& control) {
  for (auto& refusal : refusals_) {
    if (refusal.next_added && !refusal.added) refusal.added = control;
  }
  if (observer_) observer_->ControlAdded(*control);
  ForEachSink(control, [&](ide::VBControlsEventsSink& sink) { sink.ItemAdded(control); });
}

void Project::RaiseItemRemoved(const std::shared_ptr<Control>& control) {
  if (observer_) observer_->ControlRemoved(*control);
  ForEachSink(control, [&](ide::VBControlsEventsSink& sink) { sink.ItemRemoved(control); });
}

void Project::RaiseItemRenamed(const std::shared_ptr<Control>& control, const vb::Text& old_name,
                               std::int32_t old_index) {
  if (observer_) observer_->ControlRenamed(*control, old_name, old_index);
  ForEachSink(control, [&](ide::VBControlsEventsSink& sink) {
    sink.ItemRenamed(control, old_name, old_index);
  });
}

}  // namespace workbench
