// Runs session scripts the way a user would, for tests: the workbench with the
// Tessaly add-in, a settings file in a private temporary folder, a fixed set of
// font families, and the trace kept in memory.
//
// Most dialog tests are one row of a SaveCase table: a control dropped, what
// the user does in its dialog, and the outcome as one string -- the add-in's
// writes in order, then where the dialog was left if it stayed open.
#pragma once

#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "forms/forms_harness.hpp"
#include "host/connect.hpp"
#include "session/session.hpp"

namespace sessions {

using Json = nlohmann::ordered_json;
using Lines = std::vector<std::string>;

// A project with one empty form Form1, the add-in connected.
inline constexpr const char* kConnected = "new-project P\nnew-form Form1\nconnect\n";

// One temporary folder per test, removed afterwards; the settings file lives
// there, so a second run in the same test sees what the first stored.
class SessionTest : public ::testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  // Runs a script; returns the trace. A script error fails the test unless
  // `error` is given, where it is stored.
  std::vector<Json> Run(const std::string& script, std::string* error = nullptr);
  // Runs `setup`, then drops a control on Form1 with the add-in connected and
  // runs `user` in its dialog. `what` is a class ("CheckBox"), or a class and
  // a name ("MSComCtl2.DTPicker dtpWhen") for a control the IDE adds as given.
  void Drop(const std::string& what, const std::string& user, const std::string& setup = "");
  // As Drop, then a state dump; returns the outcome: the writes, then
  // "; open at FIELD" if the dialog still waits with the focus on FIELD, or
  // "; " and the script error if another one ended the run.
  std::string Save(const std::string& what, const std::string& user, const std::string& setup = "");

  // The events of one kind from the last run.
  std::vector<Json> Events(const std::string& event) const;
  // The add-in's property writes, ", " between them: "Check1.Name=chk:text,
  // Enabled=true:boolean, font". The control is named when it differs from
  // the one the previous write left (a Name or Index write renames it); "!="
  // marks a refusal; "font" stands for the six writes of the font stage.
  std::string Writes() const;
  // The message boxes shown, "; " between them: "TITLE [BUTTONS]: TEXT", the
  // title in brackets when the add-in gave none.
  std::string MessageBoxes() const;
  // The captions of the forms shown, in order.
  Lines Titles() const;
  // The last state dump's control, by path; the one with the focus.
  Json Control(const std::string& path) const;
  std::string Focused() const;
  // The focused control of every state dump, in order.
  Lines FocusTrail() const;

  // Options of the IDE for the next run.
  workbench::IdeOptions ide_options_;
  std::filesystem::path dir_;
  std::filesystem::path settings_;
  std::vector<Json> trace_;
  forms::testing::FixedFonts fonts_{{u"Arial", u"Courier New", u"DejaVu Sans", u"Times New Roman"}};
};

// A dialog test as data: see Save.
struct SaveCase {
  const char* label;
  const char* what;
  const char* user;
  const char* outcome;
  const char* setup = "";
};

class SaveTest : public SessionTest, public ::testing::WithParamInterface<SaveCase> {};

// Names a parameterised test by its row's label.
struct ByLabel {
  template <class Row>
  std::string operator()(const ::testing::TestParamInfo<Row>& row) const {
    return row.param.label;
  }
};

// Instantiates SaveTest with the rows of `table`.
#define SAVE_CASES(name, table) \
  INSTANTIATE_TEST_SUITE_P(name, SaveTest, ::testing::ValuesIn(table), ByLabel())

}  // namespace sessions
