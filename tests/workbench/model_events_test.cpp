// The control events the designer actions raise, in order and with their
// arguments, and deleted controls that still answer. ItemAdded, a rename in
// the designer and injected refusals are exercised by the session tests.
#include <gtest/gtest.h>

#include "workbench/ide.hpp"
#include "workbench/model_test_support.hpp"

namespace workbench::testing {
namespace {

using Log = std::vector<std::string>;

class ControlEventsTest : public ::testing::Test, public ModelFixture {
 protected:
  ControlEventsTest() {
    events_ = ide_->Events()->VBControlsEvents(project, nullptr);
    events_->Advise(&sink_);
    ide_->AddProject(project);
    ide_->SetObserver(&observer);
  }
  ~ControlEventsTest() override { events_->Unadvise(&sink_); }

  // The observer's and the sink's lines, interleaved as they happened.
  Log& log_ = observer.log;
  std::shared_ptr<Ide> ide_ = Ide::Create();
  RecordingSink sink_{"sink", observer.log};
  std::shared_ptr<ide::VBControlsEvents> events_;
};

// A Name write is reported under the old name, then renames and raises
// ItemRenamed, unless the name is unchanged; an Index change is a rename too,
// carrying the old index.
TEST_F(ControlEventsTest, NameAndIndexWritesRaiseItemRenamedWithTheOldNameAndIndex) {
  auto text = form->AddControl(u"TextBox");
  log_.clear();
  Prop(text, u"Name")->SetValue(u"Text1");
  Prop(text, u"Name")->SetValue(u"txtName");
  form->SetPropertyFromSheet(*text, u"Index", u"0");
  form->SetPropertyFromSheet(*text, u"Index", u"3");
  EXPECT_EQ(
      log_,
      (Log{"write Text1.Name text:Text1 ok", "write Text1.Name text:txtName ok",
           "renamed Text1(-1) -> txtName", "sink ItemRenamed Form1.txtName from Text1(-1)",
           "sheet txtName.Index text:0 ok", "renamed txtName(-1) -> txtName(0)",
           "sink ItemRenamed Form1.txtName from txtName(-1)", "sheet txtName(0).Index text:3 ok",
           "renamed txtName(0) -> txtName(3)", "sink ItemRenamed Form1.txtName from txtName(0)"}));
}

TEST_F(ControlEventsTest, DeletedControlStillAnswersDuringAndAfterItemRemoved) {
  form->AddControl(u"TextBox");
  sink_.then = [&] { log_.push_back(form->FindControl(u"Text1") ? "on form" : "gone"); };
  form->DeleteControl(u"Text1");
  EXPECT_EQ(log_, (Log{"added Text1", "sink ItemAdded Form1.Text1", "removed Text1",
                       "sink ItemRemoved Form1.Text1", "gone"}));
}

TEST(DeletedControlTest, KeepsItsFormAlive) {
  auto project = Project::Create(u"Project1");
  auto form = project->AddForm(u"Form1");
  auto text = form->AddControl(u"TextBox");
  form->DeleteControl(u"Text1");
  form.reset();
  project.reset();
  EXPECT_TRUE(text->IsDeleted());
  ASSERT_NE(text->Collection(), nullptr);
  EXPECT_EQ(U8(text->Collection()->Parent()->Parent()->Name()), "Form1");
  EXPECT_EQ(text->Properties()->Item(u"Text")->Value(), vb::Value(u"Text1"));
}

TEST_F(ControlEventsTest, DeletingAContainerRemovesWhatItHoldsFirst) {
  auto frame = form->LoadControl(u"VB.Frame", u"Frame1");
  auto inner = form->LoadControl(u"VB.PictureBox", u"Picture1", frame);
  form->LoadControl(u"VB.OptionButton", u"Option1", inner);
  form->LoadControl(u"VB.Label", u"Label1");
  form->DeleteControl(u"Frame1");
  EXPECT_EQ(log_, (Log{"removed Option1", "sink ItemRemoved Form1.Option1", "removed Picture1",
                       "sink ItemRemoved Form1.Picture1", "removed Frame1",
                       "sink ItemRemoved Form1.Frame1"}));
  ASSERT_EQ(form->Controls().size(), 1U);
  EXPECT_EQ(FailureOf([&] { form->DeleteControl(u"Frame1"); }), vb::kInvalidProcedureCall);
}

TEST_F(ControlEventsTest, SourcesFilterByProjectAndForm) {
  auto form2 = project->AddForm(u"Form2");
  auto other_project = Project::Create(u"Other");
  auto other_form = other_project->AddForm(u"Form1");
  Log log;
  RecordingSink only_form2("form2", log);
  RecordingSink other("other", log);
  auto form2_events = ide_->Events()->VBControlsEvents(project, form2->Designer());
  auto other_events = ide_->Events()->VBControlsEvents(other_project, nullptr);
  form2_events->Advise(&only_form2);
  other_events->Advise(&other);
  form->AddControl(u"Label");
  form2->AddControl(u"Label");
  other_form->AddControl(u"Label");
  EXPECT_EQ(log, (Log{"form2 ItemAdded Form2.Label1", "other ItemAdded Form1.Label1"}));
  form2_events->Unadvise(&only_form2);
  other_events->Unadvise(&other);
}

TEST_F(ControlEventsTest, SinkUnadvisedDuringAnEventIsNotCalledAgain) {
  Log log;
  RecordingSink second("second", log);
  events_->Advise(&second);
  sink_.then = [&] { events_->Unadvise(&second); };
  form->AddControl(u"Label");
  EXPECT_TRUE(log.empty());
}

TEST_F(ControlEventsTest, DroppedSourceRaisesNothing) {
  Log log;
  RecordingSink dropped("dropped", log);
  ide_->Events()->VBControlsEvents(project, nullptr)->Advise(&dropped);
  form->AddControl(u"Label");
  EXPECT_TRUE(log.empty());
}

// The session scripts refuse with the usual number only.
}  // namespace
}  // namespace workbench::testing
