// The "dump" action's JSON of a project.
#include <gtest/gtest.h>

#include "session/project_dump.hpp"
#include "workbench/code_module.hpp"

namespace session {
namespace {

using workbench::CodeModule;
using workbench::Project;

TEST(DumpTest, FormsControlsPropertiesFontAndCode) {
  auto project = Project::Create(u"Project1");
  auto form = project->LoadForm(
      u"frmMain", CodeModule::FromText(
                      u"frmMain", u"Option Explicit\r\nPrivate Sub Form_Load()\r\nEnd Sub\r\n"));
  EXPECT_EQ(project->FindForm(u"FRMMAIN"), form);
  auto check = form->AddControl(u"CheckBox");
  check->Properties()->Item(u"Value")->SetValue(vb::Value(u"1"));
  check->Properties()->Item(u"Index")->SetValue(vb::Value(u"0"));
  const auto json = DumpProject(*project);
  EXPECT_EQ(json["name"], "Project1");
  const auto& form_json = json["forms"][0];
  EXPECT_EQ(form_json["name"], "frmMain");
  EXPECT_EQ(form_json["code"]["lines"], 3);
  ASSERT_EQ(form_json["code"]["members"].size(), 1U);
  EXPECT_EQ(form_json["code"]["members"][0]["name"], "Form_Load");
  const auto& control = form_json["controls"][0];
  EXPECT_EQ(control["class"], "CheckBox");
  EXPECT_EQ(control["name"], "Check1");
  EXPECT_EQ(control["index"], 0);
  EXPECT_EQ(control["font"]["size"], "8.25");
  nlohmann::ordered_json value;
  for (const auto& property : control["properties"]) {
    if (property["name"] == "Value") value = property;
  }
  EXPECT_EQ(value["value"], 1);
  EXPECT_EQ(value["kind"], "integer16");
}

}  // namespace
}  // namespace session
