#include "sessions/session_harness.hpp"

#include <random>

namespace sessions {

void SessionTest::SetUp() {
  std::random_device rd;
  dir_ = std::filesystem::temp_directory_path() /
         ("tessaly-session-" + std::to_string(rd()) + std::to_string(rd()));
  std::filesystem::create_directories(dir_);
  settings_ = dir_ / "settings.json";
}

void SessionTest::TearDown() {
  std::error_code ec;
  std::filesystem::remove_all(dir_, ec);
}

std::vector<Json> SessionTest::Run(const std::string& script, std::string* error) {
  std::ostringstream transcript;
  session::SessionOptions options;
  options.base_dir = dir_;
  options.settings_file = settings_;
  options.transcript = &transcript;
  options.fonts = &fonts_;
  options.ide = ide_options_;
  options.addin = [](forms::Runtime& runtime) { return tessaly::MakeConnectFactory(runtime); };
  trace_.clear();
  if (error) error->clear();
  session::Session session(std::move(options));
  try {
    session.Run(session::ParseScript(script, "test"));
  } catch (const std::exception& e) {
    if (!error) ADD_FAILURE() << "session failed: " << e.what() << "\n" << transcript.str();
    if (error) *error = e.what();
  }
  for (const auto& e : session.GetTrace().Events()) trace_.push_back(e);
  return trace_;
}

namespace {

std::string DropScript(const std::string& what, const std::string& user, const std::string& setup) {
  const bool exact = what.find(' ') != std::string::npos;
  return kConnected + setup + (exact ? "drop-exact " : "drop ") + what + "\n" + user;
}

// The control with the focus in a state dump, or "".
std::string FocusIn(const Json& state) {
  if (state.is_null()) return "";
  for (const auto& c : state["controls"]) {
    if (c["focus"].get<bool>()) return c["control"];
  }
  return "";
}

}  // namespace

void SessionTest::Drop(const std::string& what, const std::string& user, const std::string& setup) {
  Run(DropScript(what, user, setup));
}

std::string SessionTest::Save(const std::string& what, const std::string& user,
                              const std::string& setup) {
  std::string error;
  Run(DropScript(what, user + "state\n", setup), &error);
  if (error.empty()) return Writes();
  if (error.starts_with("script ended while dialog")) return Writes() + "; open at " + Focused();
  return Writes() + "; " + error;
}

std::vector<Json> SessionTest::Events(const std::string& event) const {
  std::vector<Json> out;
  for (const auto& e : trace_) {
    if (e["event"] == event) out.push_back(e);
  }
  return out;
}

std::string SessionTest::Writes() const {
  std::string out, last_control, last_event;
  for (const auto& e : trace_) {
    const std::string event = e["event"];
    if (event == "font_write" && last_event != "font_write") out += ", font";
    if (event == "font_write" || event == "property_write") last_event = event;
    if (event != "property_write" || e["source"] != "add-in") continue;
    std::string control = e["control"];
    control = control.substr(control.find('.') + 1);
    const std::string value =
        e["value"].is_string() ? e["value"].get<std::string>() : e["value"].dump();
    out += ", " + (control == last_control ? "" : control + ".") +
           e["property"].get<std::string>() + (e["outcome"] == "ok" ? "=" : "!=") + value + ":" +
           e["kind"].get<std::string>();
    // A Name or Index write names the control as it was; the writes after it
    // go to the same control under its new name.
    const auto paren = control.find('(');
    const std::string name = control.substr(0, paren);
    last_control = control;
    if (e["outcome"] == "ok" && e["property"] == "Name") {
      last_control = value + (paren == std::string::npos ? "" : control.substr(paren));
    } else if (e["outcome"] == "ok" && e["property"] == "Index") {
      last_control = value.empty() || value == "-1" ? name : name + "(" + value + ")";
    }
  }
  return out.empty() ? out : out.substr(2);
}

std::string SessionTest::MessageBoxes() const {
  std::string out;
  for (const auto& box : Events("msgbox")) {
    const std::string title = box["title"];
    out += (out.empty() ? "" : "; ") +
           (box.value("title_given", true) ? title : "(" + title + ")") + " [" +
           box["buttons"].dump() + "]: " + box["text"].get<std::string>();
  }
  return out;
}

Lines SessionTest::Titles() const {
  Lines out;
  for (const auto& e : Events("form_shown")) out.push_back(e["caption"]);
  return out;
}

Json SessionTest::Control(const std::string& path) const {
  const auto states = Events("state");
  if (states.empty() || states.back()["state"].is_null()) return Json();
  for (const auto& c : states.back()["state"]["controls"]) {
    if (c["control"] == path) return c;
  }
  return Json();
}

std::string SessionTest::Focused() const {
  const auto states = Events("state");
  return states.empty() ? "" : FocusIn(states.back()["state"]);
}

Lines SessionTest::FocusTrail() const {
  Lines trail;
  for (const auto& e : Events("state")) trail.push_back(FocusIn(e["state"]));
  return trail;
}

TEST_P(SaveTest, WritesWhatTheUserLeft) {
  const SaveCase& c = GetParam();
  EXPECT_EQ(Save(c.what, c.user, c.setup), c.outcome);
}

}  // namespace sessions
