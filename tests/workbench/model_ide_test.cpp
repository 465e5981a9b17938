// The workbench's VBE: command bars, the Events object, projects, add-in
// hosting, the object chain, and the project dump.
#include <gtest/gtest.h>

#include "workbench/ide.hpp"
#include "workbench/model_test_support.hpp"

namespace workbench::testing {
namespace {

using Log = std::vector<std::string>;

class ClickSink : public ide::CommandBarEventsSink {
 public:
  ClickSink(std::string tag, Log& log) : tag_(std::move(tag)), log_(log) {}
  void Click(const std::shared_ptr<ide::CommandBarControl>& control, bool& handled,
             bool& cancel_default) override {
    log_.push_back(tag_ + " Click " + U8(control->Caption()) + (handled ? " handled" : "") +
                   (cancel_default ? " cancel" : ""));
  }

 private:
  std::string tag_;
  Log& log_;
};

class CommandBarTest : public ::testing::Test {
 protected:
  CommandBarTest() { ide_->SetObserver(&observer_); }
  std::shared_ptr<Ide> ide_ = Ide::Create();
  RecordingObserver observer_;
};

TEST_F(CommandBarTest, AddCaptionClickDelete) {
  auto bar = ide_->CommandBars()->Item(u"add-ins");
  ASSERT_NE(bar, nullptr);
  auto entry = bar->Controls()->Add(1);
  entry->SetCaption(u"&Tessaly...");
  Log clicks;
  ClickSink sink("s", clicks);
  auto events = ide_->Events()->CommandBarEvents(entry);
  events->Advise(&sink);
  ide_->ClickMenuEntry(u"Tessaly...");  // as the user reads it
  ide_->ClickMenuEntry(u"&Tessaly...");
  events->Unadvise(&sink);
  ide_->ClickMenuEntry(u"Tessaly...");
  EXPECT_EQ(clicks, (Log{"s Click &Tessaly...", "s Click &Tessaly..."}));
  EXPECT_EQ(ide_->MenuCaptions(u"Add-Ins"), (std::vector<vb::Text>{u"&Tessaly..."}));
  entry->Delete();
  entry->Delete();
  EXPECT_TRUE(ide_->MenuCaptions(u"Add-Ins").empty());
  EXPECT_EQ(FailureOf([&] { ide_->ClickMenuEntry(u"Tessaly..."); }), vb::kInvalidProcedureCall);
  EXPECT_EQ(observer_.log, (Log{"menu+ Add-Ins ''", "menu~ Add-Ins '' -> '&Tessaly...'",
                                "click Add-Ins '&Tessaly...'", "click Add-Ins '&Tessaly...'",
                                "click Add-Ins '&Tessaly...'", "menu- Add-Ins '&Tessaly...'"}));
}

TEST_F(CommandBarTest, OnlyButtonEntries) {
  auto controls = ide_->CommandBars()->Item(u"Add-Ins")->Controls();
  EXPECT_EQ(FailureOf([&] { controls->Add(10); }), vb::kInvalidProcedureCall);
  EXPECT_TRUE(ide_->MenuCaptions(u"Add-Ins").empty());
}

TEST_F(CommandBarTest, HandlerMayDeleteItsEntry) {
  auto entry = ide_->CommandBars()->Item(u"Add-Ins")->Controls()->Add(1);
  entry->SetCaption(u"Go");
  struct Deleter : ide::CommandBarEventsSink {
    int clicks = 0;
    void Click(const std::shared_ptr<ide::CommandBarControl>& control, bool&, bool&) override {
      ++clicks;
      control->Delete();
    }
  } deleter;
  auto events = ide_->Events()->CommandBarEvents(entry);
  events->Advise(&deleter);
  ide_->ClickMenuEntry(u"Go");
  EXPECT_EQ(deleter.clicks, 1);
  EXPECT_TRUE(ide_->MenuCaptions(u"Add-Ins").empty());
}

TEST(IdeTest, WithoutAddInsBar) {
  auto ide = Ide::Create({.add_ins_bar = false});
  EXPECT_EQ(ide->CommandBars()->Item(u"Add-Ins"), nullptr);
}

TEST(IdeTest, EventsRefuseNullObjects) {
  auto ide = Ide::Create();
  EXPECT_EQ(FailureOf([&] { ide->Events()->CommandBarEvents(nullptr); }), vb::kObjectNotSet);
  EXPECT_EQ(ide->ActiveVBProject(), nullptr);
  EXPECT_EQ(FailureOf([&] { ide->Events()->VBControlsEvents(ide->ActiveVBProject(), nullptr); }),
            vb::kObjectNotSet);
  EXPECT_EQ(FailureOf([&] { ide->Events()->VBControlsEvents(ide, nullptr); }), vb::kTypeMismatch);
}

TEST(IdeTest, FirstProjectIsActive) {
  auto ide = Ide::Create();
  auto first = Project::Create(u"First");
  ide->AddProject(first);
  ide->AddProject(Project::Create(u"Second"));
  EXPECT_EQ(ide->ActiveVBProject(), first);
  EXPECT_EQ(FailureOf([&] { ide->Events()->VBControlsEvents(ide->ActiveVBProject(), nullptr); }),
            0);
}

// --- Add-in hosting -----------------------------------------------------------

struct AddInLog {
  Log lines;
};

class ProbeAddIn : public ide::AddIn {
 public:
  explicit ProbeAddIn(AddInLog& log) : log_(log) {}
  ~ProbeAddIn() override { log_.lines.push_back("destroyed"); }
  void OnConnection(const ide::ObjectPtr& application, ide::ConnectMode mode,
                    const ide::ObjectPtr& addin_inst, std::vector<vb::Value>& custom) override {
    vbe_ = std::dynamic_pointer_cast<ide::VBE>(application);
    log_.lines.push_back(std::string("connect vbe=") + (vbe_ ? "yes" : "no") +
                         " mode=" + std::to_string(static_cast<int>(mode)) +
                         " inst=" + (addin_inst ? "set" : "null") +
                         " custom=" + std::to_string(custom.size()));
  }
  void OnDisconnection(ide::DisconnectMode mode, std::vector<vb::Value>&) override {
    log_.lines.push_back("disconnect mode=" + std::to_string(static_cast<int>(mode)));
    vbe_.reset();
  }

 private:
  AddInLog& log_;
  std::shared_ptr<ide::VBE> vbe_;
};

TEST(AddInHostTest, ConnectPassesTheIdeAndDisconnectReleases) {
  AddInLog log;
  auto ide = Ide::Create();
  EXPECT_EQ(FailureOf([&] { ide->Connect(ide::ConnectMode::AfterStartup); }), vb::kObjectNotSet);
  ide->LoadAddIn([&] { return std::make_unique<ProbeAddIn>(log); });
  ide->Connect(ide::ConnectMode::Startup);
  ide->Disconnect(ide::DisconnectMode::UserClosed);
  EXPECT_EQ(ide->AddIn(), nullptr);
  EXPECT_EQ(log.lines,
            (Log{"connect vbe=yes mode=1 inst=null custom=0", "disconnect mode=1", "destroyed"}));
}

TEST(AddInHostTest, ApplicationThatIsNoVbe) {
  AddInLog log;
  auto ide = Ide::Create();
  ide->LoadAddIn([&] { return std::make_unique<ProbeAddIn>(log); });
  ide->Connect(ide::ConnectMode::AfterStartup, std::make_shared<ide::Object>());
  ide->Disconnect();
  EXPECT_EQ(log.lines.front(), "connect vbe=no mode=0 inst=null custom=0");
}

// --- Object chain and dump ------------------------------------------------------

TEST(ObjectChainTest, ControlToCodeModule) {
  auto project = Project::Create(u"Project1");
  auto with_code = project->AddForm(u"frmMain");
  auto without_code = project->LoadForm(u"frmBare", nullptr);
  auto text = with_code->AddControl(u"TextBox");
  auto component = text->Collection()->Parent()->Parent();
  EXPECT_EQ(component, with_code);
  ASSERT_NE(component->CodeModule(), nullptr);
  EXPECT_EQ(component->CodeModule()->CountOfLines(), 0);
  auto bare = without_code->AddControl(u"Label");
  EXPECT_EQ(bare->Collection()->Parent()->Parent()->CodeModule(), nullptr);
  EXPECT_EQ(project->FindForm(u"FRMBARE"), without_code);
  EXPECT_EQ(project->FindForm(u"frmOther"), nullptr);
}

TEST(DumpTest, FormsControlsPropertiesFontAndCode) {
  auto project = Project::Create(u"Project1");
  auto form = project->LoadForm(
      u"frmMain", CodeModule::FromText(
                      u"frmMain", u"Option Explicit\r\nPrivate Sub Form_Load()\r\nEnd Sub\r\n"));
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
}  // namespace workbench::testing
