// Runs session scripts the way a user would, for tests: the workbench with the
// Tessaly add-in, a settings file in a private temporary folder, a fixed set of
// font families, and the trace kept in memory.
#pragma once

#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "forms/font_catalog.hpp"
#include "host/connect.hpp"
#include "session/session.hpp"

namespace sessions {

using Json = nlohmann::ordered_json;

class FixedFonts : public forms::FontCatalog {
 public:
  const std::vector<vb::Text>& Families() override { return families_; }

 private:
  std::vector<vb::Text> families_ = {u"Arial", u"Courier New", u"DejaVu Sans", u"Times New Roman"};
};

// One temporary folder per test, removed afterwards; the settings file lives
// there, so a second run in the same test sees what the first stored.
class SessionTest : public ::testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  // Runs a script; returns the trace. A script error fails the test unless
  // `error` is given, where it is stored.
  std::vector<Json> Run(const std::string& script, std::string* error = nullptr);

  // The events of one kind from the last run.
  std::vector<Json> Events(const std::string& event) const;
  // "Check1.Name=chkDone" lines of the add-in's property writes ("!" marks a
  // refusal), then "font" for the six font writes as one line.
  std::vector<std::string> Writes() const;
  // The last state dump's control, by path.
  Json Control(const std::string& path) const;
  // The properties of a control in the last dump: {"Name": value, ...}.
  Json Dumped(const std::string& control) const;

  // Options of the IDE for the next run.
  workbench::IdeOptions ide_options_;
  std::filesystem::path dir_;
  std::filesystem::path settings_;
  std::vector<Json> trace_;
  std::string transcript_;
  FixedFonts fonts_;
};

// A project with one empty form Form1, the add-in connected.
inline constexpr const char* kConnected = "new-project P\nnew-form Form1\nconnect\n";

}  // namespace sessions
