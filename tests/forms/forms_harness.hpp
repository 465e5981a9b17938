// Small real doubles for forms tests: a scripted action source, an in-memory
// settings store, a fixed font catalog, an observer that writes one line per
// event, and a form built from a design table whose Load and Activate
// routines a test can set.
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <span>
#include <string>
#include <tuple>
#include <vector>

#include <gtest/gtest.h>

#include "forms/font_catalog.hpp"
#include "forms/form.hpp"
#include "forms/headless.hpp"
#include "forms/observer.hpp"
#include "forms/runtime.hpp"
#include "forms/settings_store.hpp"
#include "vb/text.hpp"

namespace forms::testing {

// Actions handed out in order; each gets "script:N" as its origin.
class ScriptSource : public ActionSource {
 public:
  ScriptSource& Add(UserAction action) {
    action.origin = "script:" + std::to_string(++added_);
    actions_.push_back(std::move(action));
    return *this;
  }
  std::optional<UserAction> Next(Waiting, const std::string&) override {
    if (actions_.empty()) return std::nullopt;
    UserAction a = std::move(actions_.front());
    actions_.pop_front();
    return a;
  }
  std::size_t Left() const { return actions_.size(); }

 private:
  std::deque<UserAction> actions_;
  int added_ = 0;
};

// An action of `type`, its fields set by `set`.
using Act = UserAction::Type;
inline UserAction Make(Act type, const std::function<void(UserAction&)>& set = {}) {
  UserAction a;
  a.type = type;
  if (set) set(a);
  return a;
}
inline UserAction Typed(vb::Text t) {
  return Make(Act::Type, [&](auto& a) { a.text = t; });
}
inline UserAction Pressed(Key k) {
  return Make(Act::Key, [&](auto& a) { a.key = k; });
}
inline UserAction Clicked(std::string t) {
  return Make(Act::Click, [&](auto& a) { a.target = t; });
}
inline UserAction Ticked(std::string t, std::int32_t row) {
  return Make(Act::TickRow, [&](auto& a) { a.target = t, a.row = row; });
}
inline UserAction Answered(std::int32_t n) {
  return Make(Act::Answer, [&](auto& a) { a.answer = n; });
}
inline UserAction Closed() { return Make(Act::Close); }

// Names a parameterised test by its row's name.
struct ByName {
  template <class Row>
  std::string operator()(const ::testing::TestParamInfo<Row>& row) const {
    return row.param.name;
  }
};

class MemorySettings : public SettingsStore {
 public:
  std::optional<vb::Text> Get(const vb::Text& app, const vb::Text& section,
                              const vb::Text& key) override {
    const auto it = values_.find({app, section, key});
    return it == values_.end() ? std::nullopt : std::optional(it->second);
  }
  void Save(const vb::Text& app, const vb::Text& section, const vb::Text& key,
            const vb::Text& text) override {
    values_[{app, section, key}] = text;
  }
  bool Remove(const vb::Text& app, const vb::Text& section, const vb::Text& key) override {
    return values_.erase({app, section, key}) > 0;
  }

 private:
  std::map<std::tuple<vb::Text, vb::Text, vb::Text>, vb::Text> values_;
};

class FixedFonts : public FontCatalog {
 public:
  explicit FixedFonts(std::vector<vb::Text> families) : families_(std::move(families)) {}
  const std::vector<vb::Text>& Families() override { return families_; }

 private:
  std::vector<vb::Text> families_;
};

// One line per event: "shown frmA", "focus frmA txtName", "closed frmA",
// "font ok Courier New".
class Recorder : public Observer {
 public:
  std::vector<std::string> lines;
  void FormShown(const Form& f) override { lines.push_back("shown " + f.Name()); }
  void FormClosed(const Form& f) override { lines.push_back("closed " + f.Name()); }
  void FocusChanged(const Form& f, const Control& c) override {
    lines.push_back("focus " + f.Name() + " " + c.Path());
  }
  void FontServiceClosed(const FontChoice&, const FontChoice& result, bool ok) override {
    lines.push_back(std::string("font ") + (ok ? "ok " : "cancel ") + vb::ToUtf8(result.name));
  }
};

// A form from a design table; on_load and on_activate stand in for its code.
class TableForm : public Form {
 public:
  TableForm(Runtime& runtime, std::string name, vb::Text caption,
            std::span<const ControlSpec> design)
      : Form(runtime, std::move(name), std::move(caption), design) {}
  std::function<void()> on_load;
  std::function<void()> on_activate;

 protected:
  void Form_Load() override {
    if (on_load) on_load();
  }
  void Form_Activate() override {
    if (on_activate) on_activate();
  }
};

// A runtime over the headless front end, wired to the doubles above.
struct Harness {
  ScriptSource script;
  FixedFonts fonts{{u"Arial", u"Courier New", u"DejaVu Sans", u"DejaVu Serif", u"Times New Roman"}};
  MemorySettings settings;
  HeadlessFrontend frontend{script, fonts};
  Runtime runtime{frontend, settings, u"Tessaly"};
  Recorder log;
  Harness() { runtime.SetObserver(&log); }
};

}  // namespace forms::testing
