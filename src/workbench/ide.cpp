// The workbench's VBE: command bars and their entries, the Events object,
// projects, and add-in hosting.
#include "workbench/ide.hpp"

#include <algorithm>
#include <utility>

namespace workbench {

namespace {

vb::Failure NotSet() { return vb::Failure::Of(vb::kObjectNotSet); }

// A caption as the user reads it: without the access-key ampersands.
vb::Text WithoutAccessKeys(vb::TextView caption) {
  vb::Text text;
  for (std::size_t i = 0; i < caption.size(); ++i) {
    if (caption[i] == u'&' && i + 1 < caption.size()) ++i;
    text += caption[i];
  }
  return text;
}

}  // namespace

class MenuEntry;

// A command bar: its name and entries in order.
class MenuBar : public ide::CommandBar, public std::enable_shared_from_this<MenuBar> {
 public:
  MenuBar(vb::Text name, std::shared_ptr<IdeObserver*> observer)
      : name_(std::move(name)), observer_(std::move(observer)) {}

  vb::Text Name() const override { return name_; }
  std::shared_ptr<ide::CommandBarControls> Controls() override;

  IdeObserver* Observer() const { return *observer_; }
  std::vector<std::shared_ptr<MenuEntry>>& Entries() { return entries_; }

 private:
  vb::Text name_;
  std::shared_ptr<IdeObserver*> observer_;
  std::vector<std::shared_ptr<MenuEntry>> entries_;
};

// One entry of a bar, with the sinks advised for its clicks.
class MenuEntry : public ide::CommandBarControl, public std::enable_shared_from_this<MenuEntry> {
 public:
  explicit MenuEntry(const std::shared_ptr<MenuBar>& bar) : bar_(bar) {}

  vb::Text Caption() const override { return caption_; }
  void SetCaption(const vb::Text& caption) override {
    vb::Text old = std::exchange(caption_, caption);
    if (auto bar = bar_.lock(); bar && bar->Observer()) {
      bar->Observer()->MenuEntryCaptionSet(bar->Name(), old, caption_);
    }
  }
  void Delete() override {
    auto bar = bar_.lock();
    if (!bar) return;
    auto& entries = bar->Entries();
    auto it = std::find(entries.begin(), entries.end(), shared_from_this());
    // A second Delete finds nothing to remove.
    if (it == entries.end()) return;
    entries.erase(it);
    if (bar->Observer()) bar->Observer()->MenuEntryRemoved(bar->Name(), caption_);
  }

  void Advise(ide::CommandBarEventsSink* sink) {
    if (sink && !IsAdvised(sink)) sinks_.push_back(sink);
  }
  void Unadvise(ide::CommandBarEventsSink* sink) {
    sinks_.erase(std::remove(sinks_.begin(), sinks_.end(), sink), sinks_.end());
  }
  bool IsAdvised(ide::CommandBarEventsSink* sink) const {
    return std::find(sinks_.begin(), sinks_.end(), sink) != sinks_.end();
  }

  void Click() {
    auto self = shared_from_this();
    if (auto bar = bar_.lock(); bar && bar->Observer()) {
      bar->Observer()->MenuEntryClicked(bar->Name(), caption_);
    }
    // A snapshot: a handler may unadvise (itself or others) while it runs.
    const auto sinks = sinks_;
    for (ide::CommandBarEventsSink* sink : sinks) {
      if (!IsAdvised(sink)) continue;
      bool handled = false;
      bool cancel_default = false;
      sink->Click(self, handled, cancel_default);
    }
  }

 private:
  std::weak_ptr<MenuBar> bar_;
  vb::Text caption_;
  std::vector<ide::CommandBarEventsSink*> sinks_;
};

namespace {

class MenuControls : public ide::CommandBarControls {
 public:
  explicit MenuControls(std::shared_ptr<MenuBar> bar) : bar_(std::move(bar)) {}
  std::shared_ptr<ide::CommandBarControl> Add(std::int16_t type) override {
    // Only button entries (type 1) are modelled.
    if (type != 1) throw vb::Failure::Of(vb::kInvalidProcedureCall);
    auto entry = std::make_shared<MenuEntry>(bar_);
    bar_->Entries().push_back(entry);
    if (bar_->Observer()) bar_->Observer()->MenuEntryAdded(bar_->Name(), entry->Caption());
    return entry;
  }

 private:
  std::shared_ptr<MenuBar> bar_;
};

class Bars : public ide::CommandBars {
 public:
  explicit Bars(std::vector<std::shared_ptr<MenuBar>> bars) : bars_(std::move(bars)) {}
  std::shared_ptr<ide::CommandBar> Item(const vb::Text& name) override {
    for (const auto& bar : bars_) {
      if (vb::SameName(bar->Name(), name)) return bar;
    }
    return nullptr;
  }

 private:
  std::vector<std::shared_ptr<MenuBar>> bars_;
};

class MenuEvents : public ide::CommandBarEvents {
 public:
  explicit MenuEvents(std::shared_ptr<MenuEntry> entry) : entry_(std::move(entry)) {}
  void Advise(ide::CommandBarEventsSink* sink) override { entry_->Advise(sink); }
  void Unadvise(ide::CommandBarEventsSink* sink) override { entry_->Unadvise(sink); }

 private:
  std::shared_ptr<MenuEntry> entry_;
};

// The form a VBControlsEvents call names: the component or its designer.
std::shared_ptr<FormComponent> FormOf(const ide::ObjectPtr& object) {
  if (auto form = std::dynamic_pointer_cast<FormComponent>(object)) return form;
  if (auto designer = std::dynamic_pointer_cast<ide::VBForm>(object)) {
    if (auto form = std::dynamic_pointer_cast<FormComponent>(designer->Parent())) return form;
  }
  throw vb::Failure::Of(vb::kTypeMismatch);
}

class IdeEvents : public ide::Events {
 public:
  std::shared_ptr<ide::CommandBarEvents> CommandBarEvents(
      const std::shared_ptr<ide::CommandBarControl>& control) override {
    if (!control) throw NotSet();
    auto entry = std::dynamic_pointer_cast<MenuEntry>(control);
    if (!entry) throw vb::Failure::Of(vb::kTypeMismatch);
    return std::make_shared<MenuEvents>(std::move(entry));
  }
  std::shared_ptr<ide::VBControlsEvents> VBControlsEvents(const ide::ObjectPtr& project,
                                                          const ide::ObjectPtr& form) override {
    if (!project) throw NotSet();
    auto workbench_project = std::dynamic_pointer_cast<Project>(project);
    if (!workbench_project) throw vb::Failure::Of(vb::kTypeMismatch);
    return workbench_project->MakeControlsEvents(form ? FormOf(form) : nullptr);
  }
};

}  // namespace

std::shared_ptr<ide::CommandBarControls> MenuBar::Controls() {
  return std::make_shared<MenuControls>(shared_from_this());
}

std::shared_ptr<Ide> Ide::Create(IdeOptions options) { return std::make_shared<Ide>(options); }

Ide::Ide(IdeOptions options) : options_(options) {
  if (options_.add_ins_bar) bars_.push_back(std::make_shared<MenuBar>(u"Add-Ins", observer_));
}

Ide::~Ide() = default;

void Ide::AddProject(const std::shared_ptr<Project>& project) {
  projects_.push_back(project);
  // A project keeps an observer of its own until the IDE is given one.
  if (*observer_) project->SetObserver(*observer_);
  if (!active_) active_ = project;
}

void Ide::SetActiveProject(const std::shared_ptr<Project>& project) { active_ = project; }

void Ide::SetObserver(IdeObserver* observer) {
  *observer_ = observer;
  for (const auto& project : projects_) project->SetObserver(observer);
}

void Ide::InjectRefusal(const Refusal& refusal) {
  for (const auto& project : projects_) project->InjectRefusal(refusal);
}

std::vector<vb::Text> Ide::MenuCaptions(vb::TextView bar) const {
  std::vector<vb::Text> captions;
  for (const auto& menu_bar : bars_) {
    if (!vb::SameName(menu_bar->Name(), bar)) continue;
    for (const auto& entry : menu_bar->Entries()) captions.push_back(entry->Caption());
  }
  return captions;
}

void Ide::ClickMenuEntry(vb::TextView caption) {
  // The caption as written first; else as the user reads it, without "&".
  for (bool plain : {false, true}) {
    for (const auto& bar : bars_) {
      for (const auto& entry : bar->Entries()) {
        const vb::Text text = entry->Caption();
        if (plain ? WithoutAccessKeys(text) == WithoutAccessKeys(caption) : text == caption) {
          // Hold the entry: a handler may delete it.
          auto held = entry;
          held->Click();
          return;
        }
      }
    }
  }
  throw vb::Failure(
      vb::kInvalidProcedureCall,
      u"Invalid procedure call or argument: no menu entry \"" + vb::Text(caption) + u"\"");
}

void Ide::LoadAddIn(const ide::AddInFactory& factory) { addin_ = factory(); }

void Ide::Connect(ide::ConnectMode mode, ide::ObjectPtr application) {
  if (!addin_) throw NotSet();
  std::vector<vb::Value> custom;
  addin_->OnConnection(application ? application : shared_from_this(), mode, nullptr, custom);
}

void Ide::Disconnect(ide::DisconnectMode mode) {
  if (!addin_) return;
  std::vector<vb::Value> custom;
  addin_->OnDisconnection(mode, custom);
  addin_.reset();
}

std::shared_ptr<ide::CommandBars> Ide::CommandBars() { return std::make_shared<Bars>(bars_); }

std::shared_ptr<ide::Events> Ide::Events() { return std::make_shared<IdeEvents>(); }

}  // namespace workbench
