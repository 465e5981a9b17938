// The control events the designer actions raise, in order and with their
// arguments; deleted controls that still answer; injected refusals.
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

TEST_F(ControlEventsTest, AddReportsThenRaisesItemAdded) {
  form->AddControl(u"TextBox");
  form->AddControlExact(u"MSComCtl2.DTPicker", u"dtpWhen");
  EXPECT_EQ(log_, (Log{"added Text1", "sink ItemAdded Form1.Text1", "added dtpWhen",
                       "sink ItemAdded Form1.dtpWhen"}));
}

TEST_F(ControlEventsTest, AddInNameWriteRaisesItemRenamedAfterTheWrite) {
  auto text = form->AddControl(u"TextBox");
  log_.clear();
  Prop(text, u"Name")->SetValue(u"txtName");
  EXPECT_EQ(log_, (Log{"write txtName.Name text:txtName ok", "renamed Text1(-1) -> txtName",
                       "sink ItemRenamed Form1.txtName from Text1(-1)"}));
}

TEST_F(ControlEventsTest, UnchangedNameRaisesNothing) {
  auto text = form->AddControl(u"TextBox");
  log_.clear();
  Prop(text, u"Name")->SetValue(u"Text1");
  EXPECT_EQ(log_, (Log{"write Text1.Name text:Text1 ok"}));
}

TEST_F(ControlEventsTest, SheetRenameAndIndexChangeCarryTheOldIndex) {
  form->AddControl(u"Label");
  log_.clear();
  form->RenameControl(u"label1", u"lblCaption");
  auto label = form->FindControl(u"lblCaption");
  form->SetPropertyFromSheet(*label, u"Index", u"0");
  form->SetPropertyFromSheet(*label, u"Index", u"3");
  EXPECT_EQ(log_,
            (Log{"sheet lblCaption.Name text:lblCaption ok", "renamed Label1(-1) -> lblCaption",
                 "sink ItemRenamed Form1.lblCaption from Label1(-1)",
                 "sheet lblCaption(0).Index text:0 ok", "renamed lblCaption(-1) -> lblCaption(0)",
                 "sink ItemRenamed Form1.lblCaption from lblCaption(-1)",
                 "sheet lblCaption(3).Index text:3 ok", "renamed lblCaption(0) -> lblCaption(3)",
                 "sink ItemRenamed Form1.lblCaption from lblCaption(0)"}));
}

TEST_F(ControlEventsTest, SheetValuesAreConvertedAndRefusalsReported) {
  auto check = form->AddControl(u"CheckBox");
  log_.clear();
  form->SetPropertyFromSheet(*check, u"Value", u"2");
  EXPECT_EQ(FailureOf([&] { form->SetPropertyFromSheet(*check, u"Value", u"7"); }), 380);
  form->SetPropertyFromSheet(*check, u"Font.Bold", u"True");
  EXPECT_EQ(log_, (Log{"sheet Check1.Value text:2 ok", "sheet Check1.Value text:7 failed 380",
                       "font Check1.Bold text:True ok"}));
  EXPECT_EQ(check->Get(u"Value"), vb::Value(static_cast<vb::Integer>(2)));
  EXPECT_TRUE(check->GetFont()->Bold());
}

TEST_F(ControlEventsTest, DeletedControlStillAnswersDuringAndAfterItemRemoved) {
  struct ProbingSink : ide::VBControlsEventsSink {
    std::shared_ptr<FormComponent> form;
    std::string seen;
    void ItemAdded(const std::shared_ptr<ide::VBControl>&) override {}
    void ItemRenamed(const std::shared_ptr<ide::VBControl>&, const vb::Text&,
                     std::int32_t) override {}
    void ItemRemoved(const std::shared_ptr<ide::VBControl>& control) override {
      seen = RecordingSink::Path(control) +
             " on form: " + (form->FindControl(u"Text1") ? "yes" : "no");
    }
  } probe;
  probe.form = form;
  events_->Advise(&probe);
  form->AddControl(u"TextBox");
  form->DeleteControl(u"Text1");
  events_->Unadvise(&probe);
  EXPECT_EQ(probe.seen, "Form1.Text1 on form: no");
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
  struct Unadviser : ide::VBControlsEventsSink {
    ide::VBControlsEvents* source = nullptr;
    ide::VBControlsEventsSink* victim = nullptr;
    void ItemAdded(const std::shared_ptr<ide::VBControl>&) override { source->Unadvise(victim); }
    void ItemRemoved(const std::shared_ptr<ide::VBControl>&) override {}
    void ItemRenamed(const std::shared_ptr<ide::VBControl>&, const vb::Text&,
                     std::int32_t) override {}
  } first;
  auto source = ide_->Events()->VBControlsEvents(project, nullptr);
  first.source = source.get();
  first.victim = &second;
  source->Advise(&first);
  source->Advise(&second);
  form->AddControl(u"Label");
  EXPECT_TRUE(log.empty());
  source->Unadvise(&first);
}

TEST_F(ControlEventsTest, DroppedSourceRaisesNothing) {
  Log log;
  RecordingSink dropped("dropped", log);
  ide_->Events()->VBControlsEvents(project, nullptr)->Advise(&dropped);
  form->AddControl(u"Label");
  EXPECT_TRUE(log.empty());
}

// --- Injected refusals ------------------------------------------------------

TEST_F(ControlEventsTest, RefusalOnceThenWritesPass) {
  auto text = form->AddControl(u"TextBox");
  ide_->InjectRefusal({.control = u"text1", .property = u"Text", .description = u"Locked by test"});
  log_.clear();
  auto property = Prop(text, u"Text");
  EXPECT_EQ(DescriptionOf([&] { property->SetValue(u"a"); }), "Locked by test");
  EXPECT_EQ(FailureOf([&] { property->SetValue(u"b"); }), 0);
  EXPECT_EQ(log_, (Log{"write Text1.Text text:a failed 380", "write Text1.Text text:b ok"}));
  EXPECT_EQ(text->Get(u"Text"), vb::Value(u"b"));
}

TEST_F(ControlEventsTest, RefusalAlwaysWithNumberFollowsTheRename) {
  auto text = form->AddControl(u"TextBox");
  ide_->InjectRefusal({.control = u"txtName",
                       .property = u"Tag",
                       .description = u"no",
                       .number = 5,
                       .always = true});
  EXPECT_EQ(FailureOf([&] { Prop(text, u"Tag")->SetValue(u"x"); }), 0);  // not yet that name
  Prop(text, u"Name")->SetValue(u"txtName");
  EXPECT_EQ(FailureOf([&] { Prop(text, u"Tag")->SetValue(u"y"); }), 5);
  EXPECT_EQ(FailureOf([&] { Prop(text, u"Tag")->SetValue(u"z"); }), 5);
  EXPECT_EQ(text->Get(u"Tag"), vb::Value(u"x"));
}

TEST_F(ControlEventsTest, RefusalOfFontCoversItsMembers) {
  auto label = form->AddControl(u"Label");
  project->InjectRefusal({.control = u"Label1", .property = u"Font", .description = u"no font"});
  auto font = std::dynamic_pointer_cast<ide::FontObject>(Prop(label, u"Font")->Object());
  ASSERT_NE(font, nullptr);
  log_.clear();
  EXPECT_EQ(FailureOf([&] { font->Put(ide::FontDispId::Size, vb::Value(u"12")); }), 380);
  font->Put(ide::FontDispId::Size, vb::Value(u"12"));
  EXPECT_EQ(log_, (Log{"font Label1.Size text:12 failed 380", "font Label1.Size text:12 ok"}));
  EXPECT_EQ(label->GetFont()->Size(), 12.0F);
}

}  // namespace
}  // namespace workbench::testing
