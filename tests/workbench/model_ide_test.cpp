// The workbench's VBE: command bars, the Events object and add-in hosting --
// what the session tests, which connect the add-in and use its menu entry, do
// not reach.
#include <gtest/gtest.h>

#include "workbench/ide.hpp"
#include "workbench/model_test_support.hpp"

namespace workbench::testing {
namespace {

using Log = std::vector<std::string>;

class ClickSink : public ide::CommandBarEventsSink {
 public:
  explicit ClickSink(Log& log) : log_(log) {}
  void Click(const std::shared_ptr<ide::CommandBarControl>& control, bool&, bool&) override {
    log_.push_back(U8(control->Caption()));
    if (delete_on_click) control->Delete();
  }
  bool delete_on_click = false;

 private:
  Log& log_;
};

class CommandBarTest : public ::testing::Test {
 protected:
  std::shared_ptr<Ide> ide_ = Ide::Create();
  std::shared_ptr<ide::CommandBarControl> entry_ =
      ide_->CommandBars()->Item(u"add-ins")->Controls()->Add(1);
  Log clicks_;
  ClickSink sink_{clicks_};
};

TEST_F(CommandBarTest, ClicksReachTheSinkUntilUnadvisedAndADeletedEntryIsGone) {
  entry_->SetCaption(u"&Tessaly...");
  auto events = ide_->Events()->CommandBarEvents(entry_);
  events->Advise(&sink_);
  ide_->ClickMenuEntry(u"Tessaly...");  // as the user reads it
  events->Unadvise(&sink_);
  ide_->ClickMenuEntry(u"&Tessaly...");
  EXPECT_EQ(clicks_, Log{"&Tessaly..."});
  entry_->Delete();
  entry_->Delete();
  EXPECT_TRUE(ide_->MenuCaptions(u"Add-Ins").empty());
  EXPECT_EQ(FailureOf([&] { ide_->ClickMenuEntry(u"Tessaly..."); }), vb::kInvalidProcedureCall);
}

TEST_F(CommandBarTest, AHandlerMayDeleteItsEntry) {
  entry_->SetCaption(u"Go");
  sink_.delete_on_click = true;
  ide_->Events()->CommandBarEvents(entry_)->Advise(&sink_);
  ide_->ClickMenuEntry(u"Go");
  EXPECT_EQ(clicks_, Log{"Go"});
  EXPECT_TRUE(ide_->MenuCaptions(u"Add-Ins").empty());
}

TEST_F(CommandBarTest, OnlyButtonEntries) {
  EXPECT_EQ(FailureOf([&] { ide_->CommandBars()->Item(u"Add-Ins")->Controls()->Add(10); }),
            vb::kInvalidProcedureCall);
}

TEST(IdeTest, ControlEventsComeFromAProjectOnly) {
  auto ide = Ide::Create();
  EXPECT_EQ(FailureOf([&] { ide->Events()->VBControlsEvents(ide, nullptr); }), vb::kTypeMismatch);
}

class ProbeAddIn : public ide::AddIn {
 public:
  explicit ProbeAddIn(Log& log) : log_(log) {}
  ~ProbeAddIn() override { log_.push_back("destroyed"); }
  void OnConnection(const ide::ObjectPtr& application, ide::ConnectMode mode,
                    const ide::ObjectPtr& addin_inst, std::vector<vb::Value>& custom) override {
    log_.push_back(std::string("connect vbe=") +
                   (std::dynamic_pointer_cast<ide::VBE>(application) ? "yes" : "no") +
                   " mode=" + std::to_string(static_cast<int>(mode)) + " inst=" +
                   (addin_inst ? "set" : "null") + " custom=" + std::to_string(custom.size()));
  }
  void OnDisconnection(ide::DisconnectMode mode, std::vector<vb::Value>&) override {
    log_.push_back("disconnect mode=" + std::to_string(static_cast<int>(mode)));
  }

 private:
  Log& log_;
};

TEST(AddInHostTest, ConnectPassesTheIdeAndDisconnectReleases) {
  Log log;
  auto ide = Ide::Create();
  EXPECT_EQ(FailureOf([&] { ide->Connect(ide::ConnectMode::AfterStartup); }), vb::kObjectNotSet);
  ide->LoadAddIn([&] { return std::make_unique<ProbeAddIn>(log); });
  ide->Connect(ide::ConnectMode::Startup);
  ide->Disconnect(ide::DisconnectMode::UserClosed);
  EXPECT_EQ(ide->AddIn(), nullptr);
  EXPECT_EQ(log,
            (Log{"connect vbe=yes mode=1 inst=null custom=0", "disconnect mode=1", "destroyed"}));
}

}  // namespace
}  // namespace workbench::testing
