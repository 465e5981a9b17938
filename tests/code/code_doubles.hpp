// Small real doubles for the code dialogs' tests: marked-up modules, a module
// of plain lines whose AddFromString can be made to fail, the IDE objects
// between a control and its form's module, and a headless runtime fed from a
// vector of user actions.
#pragma once

#include <algorithm>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "code/code_edits.hpp"
#include "forms/font_catalog.hpp"
#include "forms/headless.hpp"
#include "forms/observer.hpp"
#include "forms/runtime.hpp"
#include "forms/settings_store.hpp"
#include "ide/object_model.hpp"
#include "vb/failure.hpp"
#include "vb/text.hpp"

namespace tessaly::testing {

// --- Marked-up modules ----------------------------------------------------------
//
// A module's text with "\n" between lines, where "[[" at the start of a line
// and "]]" at the end of a line enclose whole lines that an edit removes:
//
//   "Option Explicit\n[[Private Sub Text1_Click()\nEnd Sub]]\nPrivate Sub Form_Load()"

struct MarkedModule {
  std::vector<vb::Text> original;  // the lines, markers dropped
  std::vector<vb::Text> expected;  // the lines left once the marked ones go
  std::vector<LineRange> marked;   // the marked lines, numbered as in `original`
};

inline std::vector<vb::Text> SplitAtNewlines(vb::TextView text) {
  std::vector<vb::Text> lines;
  std::size_t start = 0;
  for (;;) {
    const std::size_t end = text.find(u'\n', start);
    lines.emplace_back(text.substr(start, end - start));
    if (end == vb::TextView::npos) return lines;
    start = end + 1;
  }
}

inline MarkedModule ParseMarked(vb::TextView markup) {
  MarkedModule m;
  std::optional<std::int32_t> open;
  for (vb::Text line : SplitAtNewlines(markup)) {
    const auto number = static_cast<std::int32_t>(m.original.size() + 1);
    if (line.starts_with(u"[[")) {
      line.erase(0, 2);
      open = number;
    }
    bool closes = false;
    if (open && line.ends_with(u"]]")) {
      line.resize(line.size() - 2);
      closes = true;
    }
    if (!open) m.expected.push_back(line);
    m.original.push_back(line);
    if (closes) {
      m.marked.push_back(LineRange{*open, number});
      open.reset();
    }
  }
  return m;
}

// Lines as one UTF-8 text with "\n" between them, for readable failures.
inline std::string Joined(const std::vector<vb::Text>& lines) {
  std::string text;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (i != 0) text += "\n";
    text += vb::ToUtf8(lines[i]);
  }
  return text;
}

// --- A module of plain lines ----------------------------------------------------

// Lines and nothing else: no members. Records every edit in `calls`. The next
// AddFromString can be made to fail after it added some of its lines, as an
// IDE that runs out of room part-way would.
class LinesModule : public ide::CodeModule {
 public:
  explicit LinesModule(std::vector<vb::Text> lines) : lines_(std::move(lines)) {}

  LinesModule& FailNextAdd(vb::Failure failure, std::size_t lines_added_first = 0) {
    failure_ = std::move(failure);
    lines_before_failing_ = lines_added_first;
    return *this;
  }

  const std::vector<vb::Text>& AllLines() const { return lines_; }
  std::vector<std::string> calls;

  std::int32_t CountOfLines() const override { return static_cast<std::int32_t>(lines_.size()); }

  vb::Text Lines(std::int32_t first, std::int32_t count) const override {
    Check(first, count);
    vb::Text text;
    for (std::int32_t i = 0; i < count; ++i) {
      if (i != 0) text += u"\r\n";
      text += lines_[static_cast<std::size_t>(first - 1 + i)];
    }
    return text;
  }

  void DeleteLines(std::int32_t first, std::int32_t count) override {
    Check(first, count);
    calls.push_back("DeleteLines " + std::to_string(first) + " " + std::to_string(count));
    const auto begin = lines_.begin() + (first - 1);
    lines_.erase(begin, begin + count);
  }

  void AddFromString(const vb::Text& text) override {
    std::vector<vb::Text> added;
    std::size_t start = 0;
    for (;;) {
      const std::size_t end = text.find(u"\r\n", start);
      added.emplace_back(text, start, end == vb::Text::npos ? vb::Text::npos : end - start);
      if (end == vb::Text::npos) break;
      start = end + 2;
    }
    if (failure_) {
      const vb::Failure failure = *failure_;
      failure_.reset();
      const std::size_t taken = std::min(lines_before_failing_, added.size());
      lines_.insert(lines_.end(), added.begin(),
                    added.begin() + static_cast<std::ptrdiff_t>(taken));
      calls.push_back("AddFromString failed after " + std::to_string(taken));
      throw failure;
    }
    lines_.insert(lines_.end(), added.begin(), added.end());
    calls.push_back("AddFromString " + std::to_string(added.size()));
  }

  std::shared_ptr<ide::Members> Members() override { return nullptr; }

 private:
  void Check(std::int32_t first, std::int32_t count) const {
    if (count < 0 || first < 1 || first + count - 1 > CountOfLines()) {
      throw vb::Failure::Of(vb::kInvalidProcedureCall);
    }
  }

  std::vector<vb::Text> lines_;
  std::optional<vb::Failure> failure_;
  std::size_t lines_before_failing_ = 0;
};

// --- The objects between a control and its form's module -------------------------

class FakeProperty : public ide::Property {
 public:
  FakeProperty(vb::Text name, vb::Value value) : name_(std::move(name)), value_(std::move(value)) {}
  vb::Text Name() const override { return name_; }
  vb::Value Value() const override { return value_; }
  void SetValue(const vb::Value& value) override { value_ = value; }
  ide::ObjectPtr Object() override { return nullptr; }

 private:
  vb::Text name_;
  vb::Value value_;
};

class FakeProperties : public ide::Properties {
 public:
  void Add(const vb::Text& name, vb::Value value) {
    items_[name] = std::make_shared<FakeProperty>(name, std::move(value));
  }
  std::shared_ptr<ide::Property> Item(const vb::Text& name) override {
    const auto it = items_.find(name);
    return it == items_.end() ? nullptr : it->second;
  }

 private:
  std::map<vb::Text, std::shared_ptr<FakeProperty>> items_;
};

class FakeComponent : public ide::VBComponent {
 public:
  explicit FakeComponent(std::shared_ptr<ide::CodeModule> module) : module_(std::move(module)) {}
  vb::Text Name() const override { return u"Form1"; }
  std::shared_ptr<ide::CodeModule> CodeModule() override { return module_; }

 private:
  std::shared_ptr<ide::CodeModule> module_;
};

class FakeDesigner : public ide::VBForm {
 public:
  explicit FakeDesigner(std::shared_ptr<ide::VBComponent> component)
      : component_(std::move(component)) {}
  std::shared_ptr<ide::VBComponent> Parent() override { return component_; }

 private:
  std::shared_ptr<ide::VBComponent> component_;
};

class FakeControls : public ide::VBControls {
 public:
  explicit FakeControls(std::shared_ptr<ide::VBForm> designer) : designer_(std::move(designer)) {}
  std::shared_ptr<ide::VBForm> Parent() override { return designer_; }

 private:
  std::shared_ptr<ide::VBForm> designer_;
};

class FakeControl : public ide::VBControl {
 public:
  FakeControl(std::shared_ptr<ide::VBControls> collection, const vb::Text& name)
      : collection_(std::move(collection)), properties_(std::make_shared<FakeProperties>()) {
    properties_->Add(u"Name", vb::Value(name));
  }
  vb::Text ClassName() const override { return u"VB.TextBox"; }
  std::shared_ptr<ide::VBControls> Collection() override { return collection_; }
  std::shared_ptr<ide::Properties> Properties() override { return properties_; }

 private:
  std::shared_ptr<ide::VBControls> collection_;
  std::shared_ptr<FakeProperties> properties_;
};

// A control called `name` on a form whose module is `module` (null: a form
// without code).
inline std::shared_ptr<FakeControl> ControlOnForm(const vb::Text& name,
                                                  std::shared_ptr<ide::CodeModule> module) {
  auto component = std::make_shared<FakeComponent>(std::move(module));
  auto designer = std::make_shared<FakeDesigner>(std::move(component));
  return std::make_shared<FakeControl>(std::make_shared<FakeControls>(std::move(designer)), name);
}

// --- A headless runtime fed from a vector -----------------------------------------

class VectorSource : public forms::ActionSource {
 public:
  std::vector<forms::UserAction> actions;
  std::size_t next = 0;

  std::optional<forms::UserAction> Next(forms::Waiting, const std::string&) override {
    if (next == actions.size()) return std::nullopt;
    return actions[next++];
  }
};

class NoSettings : public forms::SettingsStore {
 public:
  std::optional<vb::Text> Get(const vb::Text&, const vb::Text&, const vb::Text&) override {
    return std::nullopt;
  }
  void Save(const vb::Text&, const vb::Text&, const vb::Text&, const vb::Text&) override {}
};

class NoFonts : public forms::FontCatalog {
 public:
  const std::vector<vb::Text>& Families() override { return families_; }

 private:
  std::vector<vb::Text> families_;
};

class MessageLog : public forms::Observer {
 public:
  std::vector<forms::MessageBox> boxes;
  void MessageBoxShown(const forms::MessageBox& box, std::int32_t) override {
    boxes.push_back(box);
  }
};

struct DialogHarness {
  VectorSource script;
  NoSettings settings;
  NoFonts fonts;
  forms::HeadlessFrontend frontend{script, fonts};
  forms::Runtime runtime{frontend, settings, u"Tessaly"};
  MessageLog log;

  DialogHarness() { runtime.SetObserver(&log); }
  // The user's actions while the dialog is up, in order.
  void Script(std::vector<forms::UserAction> actions) {
    script.actions = std::move(actions);
    script.next = 0;
  }
  bool ScriptUsedUp() const { return script.next == script.actions.size(); }
};

// Designated initializers would have to name every field under -Wextra.
inline forms::UserAction Action(forms::UserAction::Type type) {
  forms::UserAction action;
  action.type = type;
  return action;
}
inline forms::UserAction Click(std::string path) {
  forms::UserAction action = Action(forms::UserAction::Type::Click);
  action.target = std::move(path);
  return action;
}
inline forms::UserAction Press(forms::Key key) {
  forms::UserAction action = Action(forms::UserAction::Type::Key);
  action.key = key;
  return action;
}
inline forms::UserAction Tick(std::string list, std::int32_t row) {
  forms::UserAction action = Action(forms::UserAction::Type::TickRow);
  action.target = std::move(list);
  action.row = row;
  return action;
}
inline forms::UserAction Answer(std::int32_t button) {
  forms::UserAction action = Action(forms::UserAction::Type::Answer);
  action.answer = button;
  return action;
}
inline forms::UserAction CloseBox() { return Action(forms::UserAction::Type::Close); }

}  // namespace tessaly::testing
