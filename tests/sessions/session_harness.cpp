#include <gtest/gtest.h>

#include "sessions/session_harness.hpp"

#include <fstream>
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
  {
    session::Session session(std::move(options));
    try {
      session.Run(session::ParseScript(script, "test"));
      if (error) error->clear();
    } catch (const std::exception& e) {
      if (!error) ADD_FAILURE() << "session failed: " << e.what() << "\n" << transcript.str();
      if (error) *error = e.what();
    }
    for (const auto& e : session.GetTrace().Events()) trace_.push_back(e);
  }
  transcript_ = transcript.str();
  return trace_;
}

std::vector<Json> SessionTest::Events(const std::string& event) const {
  std::vector<Json> out;
  for (const auto& e : trace_) {
    if (e["event"] == event) out.push_back(e);
  }
  return out;
}

std::vector<std::string> SessionTest::Writes() const {
  std::vector<std::string> out;
  bool in_font = false;
  for (const auto& e : trace_) {
    if (e["event"] == "font_write") {
      if (!in_font) out.push_back("font");
      in_font = true;
      continue;
    }
    in_font = false;
    if (e["event"] != "property_write" || e["source"] != "add-in") continue;
    std::string control = e["control"].get<std::string>();
    control = control.substr(control.find('.') + 1);
    std::string value = e["value"].is_string() ? e["value"].get<std::string>() : e["value"].dump();
    out.push_back(control + "." + e["property"].get<std::string>() +
                  (e["outcome"] == "ok" ? "=" : "!=") + value + ":" + e["kind"].get<std::string>());
  }
  return out;
}

Json SessionTest::Control(const std::string& path) const {
  for (auto it = trace_.rbegin(); it != trace_.rend(); ++it) {
    if ((*it)["event"] != "state") continue;
    for (const auto& c : (*it)["state"]["controls"]) {
      if (c["control"] == path) return c;
    }
    return Json();
  }
  return Json();
}

Json SessionTest::Dumped(const std::string& control) const {
  for (auto it = trace_.rbegin(); it != trace_.rend(); ++it) {
    if ((*it)["event"] != "dump") continue;
    for (const auto& form : (*it)["project"]["forms"]) {
      for (const auto& c : form["controls"]) {
        if (c["name"] == control) return c;
      }
    }
    return Json();
  }
  return Json();
}

}  // namespace sessions
