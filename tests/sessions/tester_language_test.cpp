// The script language as a tester outside the project meets it: refusals
// aimed at the next control dropped, the font service's families, list rows
// ticked by their text, a waiting message box in `state`, marks, the store
// lines and their trace, a renaming write read as cause then effect, and the
// table of every dialog's controls in docs/session-scripts.md.
#include <cstdlib>
#include <fstream>
#include <map>

#include "code/remove_control_dialog.hpp"
#include "code/rename_code_dialog.hpp"
#include "dialogs/dialog_factory.hpp"
#include "sessions/session_harness.hpp"
#include "settings/options_dialog.hpp"

namespace sessions {
namespace {

constexpr const char* kOptions = "menu \"&Tessaly Options\"\n";

// A refusal aimed at the next control dropped holds for it under the name the
// add-in gives it, and only for it; the message box it causes shows in
// `state` while it waits; the Name write names the control as it was, and
// the rename follows it.
TEST_F(SessionTest, ARefusalOfTheNextControlFollowsItsRenameAndItsMessageBoxShowsInState) {
  Run(std::string(kConnected) + "refuse next Enabled \"Locked\" always\n" +
      "drop CheckBox\nkey Enter\nstate\nanswer OK\nstate\nkey Enter\nanswer OK\nkey Esc\n" +
      "drop CommandButton\nkey Enter\n");
  EXPECT_EQ(Writes(),
            "Check1.Name=chk:text, Enabled!=true:boolean, Name=chk:text, Enabled!=true:boolean, "
            "Command1.Name=cmd:text, Enabled=true:boolean, Visible=true:boolean, Caption=:text, "
            "Default=false:boolean, Cancel=false:boolean, font");
  const auto states = Events("state");
  ASSERT_EQ(states.size(), 2u);
  EXPECT_EQ(states[0]["state"]["form"], "frmCheckBox");
  EXPECT_EQ(states[0]["msgbox"].dump(),
            R"({"text":"An error occurred trying to set the property value for Enabled.\r\n)"
            R"(The error was: Locked","title":"Invalid Property Value","buttons":64,)"
            R"("answers":["OK"]})");
  EXPECT_FALSE(states[1].contains("msgbox")) << "answered";
  // Cause, then effect.
  const auto write =
      std::ranges::find(trace_, Json("property_write"), [](const Json& e) { return e["event"]; });
  ASSERT_LT(write + 1, trace_.end());
  EXPECT_EQ((*write)["control"], "Form1.Check1");
  EXPECT_EQ((write + 1)->dump(), R"({"seq":)" + std::to_string((*write)["seq"].get<int>() + 1) +
                                     R"(,"line":6,"event":"control_renamed","control":"Form1.chk",)"
                                     R"("old_name":"Check1","old_index":-1})");
}

// The families the font service offers, as the script's `fonts` lines set
// them; the outcome is the family chosen or the script's error.
struct FontsCase {
  const char* label;
  const char* fonts;
  const char* choice;
  const char* outcome;
};

class FontsTest : public SessionTest, public ::testing::WithParamInterface<FontsCase> {};

TEST_P(FontsTest, TheFontServiceOffersWhatTheScriptSays) {
  const FontsCase& c = GetParam();
  std::string error;
  Run(std::string(kConnected) + c.fonts + "\n" + kOptions + "click cmdFont\nfont choose name=\"" +
          c.choice + "\"\nclose\n",
      &error);
  const auto chosen = Events("font_service");
  EXPECT_EQ(error.empty() ? chosen.at(0)["result"]["name"].get<std::string>()
                          : error.substr(error.find(": ") + 2),
            c.outcome);
}

INSTANTIATE_TEST_SUITE_P(
    Scripted, FontsTest,
    ::testing::Values(
        FontsCase{"AddKeepsTheOthers", "fonts add \"MS Sans Serif\"", "Arial", "Arial"},
        FontsCase{"AddedInAnyCase", "fonts add \"MS Sans Serif\"", "ms sans serif",
                  "ms sans serif"},
        FontsCase{"OnlyDropsTheOthers", "fonts only \"MS Sans Serif\"", "Arial",
                  "no font family 'Arial' on this system; there are 'MS Sans Serif'"},
        FontsCase{"AddAfterOnly", "fonts only \"Wingdings\"\nfonts add \"Symbol\" \"arial\"",
                  "Times New Roman",
                  "no font family 'Times New Roman' on this system; there are 'arial', 'Symbol', "
                  "'Wingdings'"}),
    ByLabel());

// `tick LIST "TEXT" on|off` sets a row's check found by its text; a row
// already so stays; a text no row has is an error naming both.
TEST_F(SessionTest, TickByTextSetsTheRowsCheck) {
  std::string error;
  Run(std::string(kConnected) + kOptions +
          "tick lstControls \"TextBox\" off\ntick lstControls \"TextBox\" off\n"
          "tick lstControls \"Timer\" on\nstate\ntick lstControls \"Nope\" on\n",
      &error);
  std::string unchecked;
  const Json list = Control("lstControls");
  for (const auto& row : list["rows"]) {
    if (!row["checked"].get<bool>()) unchecked += row["text"].get<std::string>() + " ";
  }
  EXPECT_EQ(unchecked, "TextBox ");
  EXPECT_EQ(error, "test:9: no row \"Nope\" in frmAddInOptions/lstControls");
}

// `store` and `unstore` are traced and reach the add-in; `mark` is traced
// wherever it stands, a dialog waiting or not.
TEST_F(SessionTest, StoreLinesAndMarksAreTraced) {
  Run("unstore Vorrel Options UseCtl2\n");
  EXPECT_FALSE(std::filesystem::exists(settings_.string() + ".lock")) << "nothing to remove";
  Run("mark \"start\"\nnew-project P\nnew-form Form1\nstore Vorrel Options UseCtl2 0\n"
      "unstore vorrel options usectl2\nunstore Vorrel Options UseCtl2\nconnect\n"
      "drop CommandButton\nmark \"in the dialog\"\nkey Esc\n");
  Lines seen;
  for (const auto& e : trace_) {
    const std::string event = e["event"];
    if (event == "mark") seen.push_back("mark " + e["text"].get<std::string>());
    if (event.starts_with("store_")) {
      seen.push_back(event + " " + e["app"].get<std::string>() + "/" +
                     e["section"].get<std::string>() + "/" + e["key"].get<std::string>() + " " +
                     (e.contains("text") ? e["text"].dump() : e["existed"].dump()));
    }
    if (event == "setting_read" && e["key"] == "UseCtl2") {
      seen.push_back("read UseCtl2 stored=" + e["stored"].dump());
    }
  }
  EXPECT_EQ(seen, (Lines{"mark start", "store_set Vorrel/Options/UseCtl2 \"0\"",
                         "store_removed vorrel/options/usectl2 true",
                         "store_removed Vorrel/Options/UseCtl2 false", "read UseCtl2 stored=false",
                         "mark in the dialog"}));
}

// ---------------------------------------------------------------------------
// The doc's table of dialog controls, made from the dialogs themselves.

// "`a`, `b`" for the controls of one kind, in tab order; a control array
// once, at its first element, as `optSB(0..3)`.
std::string NamesOf(const forms::Form& form, forms::ControlKind kind) {
  std::vector<std::string> names;
  std::map<std::string, std::vector<int>> indexes;
  for (const auto& c : form.Controls()) {
    if (c->Kind() != kind) continue;
    if (!indexes.contains(c->Name())) names.push_back(c->Name());
    auto& i = indexes[c->Name()];
    if (c->Index() >= 0) i.push_back(c->Index());
  }
  std::string out;
  for (const auto& name : names) {
    auto& i = indexes[name];
    std::ranges::sort(i);
    std::string list;
    for (int n : i) list += (list.empty() ? "" : ",") + std::to_string(n);
    if (i.size() > 1 && i.back() - i.front() + 1 == std::ssize(i)) {
      list = std::to_string(i.front()) + ".." + std::to_string(i.back());
    }
    out += (out.empty() ? "`" : ", `") + name + (list.empty() ? "" : "(" + list + ")") + "`";
  }
  return out;
}

std::string ControlTable() {
  forms::testing::Harness harness;
  tessaly::Globals globals;
  std::vector<std::unique_ptr<forms::Form>> dialogs;
  for (int kind = 0; kind <= static_cast<int>(tessaly::DialogKind::OtherControl); ++kind) {
    dialogs.push_back(
        tessaly::CreateDialog(static_cast<tessaly::DialogKind>(kind), harness.runtime));
  }
  std::ranges::sort(dialogs, {}, [](const auto& d) { return d->Name(); });
  dialogs.push_back(std::make_unique<tessaly::frmAddInOptions>(harness.runtime, globals));
  dialogs.push_back(std::make_unique<tessaly::frmRemoveControl>(harness.runtime));
  dialogs.push_back(std::make_unique<tessaly::frmRenameCode>(harness.runtime));
  using K = forms::ControlKind;
  std::string table =
      "| dialog | caption | text boxes | check boxes | option buttons | lists | buttons |\n"
      "|---|---|---|---|---|---|---|\n";
  for (const auto& d : dialogs) {
    table += "| `" + d->Name() + "` | " + vb::ToUtf8(d->Caption()) + " | " +
             NamesOf(*d, K::TextBox) + " | " + NamesOf(*d, K::CheckBox) + " | " +
             NamesOf(*d, K::OptionButton) + " | " + NamesOf(*d, K::ListBox) + " | " +
             NamesOf(*d, K::CommandButton) + " |\n";
  }
  return table;
}

TEST(DialogControlsDoc, ListsEveryDialogsControlsAsTheDialogsHaveThem) {
  const char* root = std::getenv("TESSALY_SOURCE_DIR");
  ASSERT_NE(root, nullptr);
  std::ifstream in(std::filesystem::path(root) / "docs" / "session-scripts.md");
  const std::string doc{std::istreambuf_iterator<char>(in), {}};
  const std::string table = ControlTable();
  EXPECT_NE(doc.find(table), std::string::npos) << "the table as the dialogs have it:\n" << table;
}

}  // namespace
}  // namespace sessions
