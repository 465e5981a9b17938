// Property rules of the classes: which properties exist, what writes are
// coerced to, what is refused; default names and captions.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "vbfiles/files_test_support.hpp"
#include "workbench/model_test_support.hpp"

namespace workbench::testing {
namespace {

// --- One write to a new control: stored as what, or refused with what ------

struct WriteCase {
  const char16_t* class_name;
  const char16_t* property;
  vb::Value value;
  const char* outcome;  // "kind:text" of the stored value, or the failure number
};

void PrintTo(const WriteCase& c, std::ostream* os) {
  *os << U8(c.class_name) << "." << U8(c.property) << " = " << Describe(c.value);
}

class PropertyWriteTest : public ::testing::TestWithParam<WriteCase>, public ModelFixture {};

TEST_P(PropertyWriteTest, StoresCoercedValueOrRefuses) {
  const WriteCase& c = GetParam();
  auto control = form->AddControl(c.class_name);
  const std::int32_t failure = FailureOf([&] { Prop(control, c.property)->SetValue(c.value); });
  EXPECT_EQ(failure ? std::to_string(failure) : Describe(control->Get(c.property)), c.outcome);
  if (!failure) {
    EXPECT_EQ(Describe(Prop(control, c.property)->Value()), c.outcome);
  }
}

using W = WriteCase;
constexpr std::int32_t k380 = vb::kInvalidPropertyValue;
constexpr std::int32_t k438 = vb::kObjectLacksMember;
INSTANTIATE_TEST_SUITE_P(
    KindsAndRanges, PropertyWriteTest,
    ::testing::Values(
        // CheckBox Value is an Integer 0..2; text goes through CInt.
        W{u"CheckBox", u"Value", I(2), "integer16:2"}, W{u"CheckBox", u"Value", I(3), "380"},
        W{u"CheckBox", u"Value", u"1", "integer16:1"}, W{u"CheckBox", u"Value", u"abc", "380"},
        W{u"CheckBox", u"Value", kTrue, "380"},  // True is -1
        W{u"CheckBox", u"Value", L(70000), "380"},
        // OptionButton Value is a Boolean.
        W{u"OptionButton", u"Value", I(1), "boolean:True"},
        W{u"OptionButton", u"Value", u"false", "boolean:False"},
        W{u"OptionButton", u"Value", u"abc", "380"},
        // Timer Interval is a Long 0..65535.
        W{u"Timer", u"Interval", L(65535), "integer32:65535"},
        W{u"Timer", u"Interval", L(65536), "380"},
        W{u"Timer", u"Interval", u" 1000 ", "integer32:1000"},
        W{u"Timer", u"Interval", L(-1), "380"},
        // Text properties take any value as its text.
        W{u"Label", u"Caption", kTrue, "text:True"}, W{u"Label", u"Alignment", u"2", "integer16:2"},
        W{u"Label", u"Alignment", I(3), "380"}, W{u"Label", u"WordWrap", I(5), "boolean:True"},
        W{u"CommandButton", u"Default", u"yes", "380"},
        W{u"CommandButton", u"Cancel", kTrue, "boolean:True"},
        // Styles and enumerations per class.
        W{u"ComboBox", u"Style", I(2), "integer16:2"}, W{u"ComboBox", u"Style", I(3), "380"},
        W{u"ListBox", u"Style", I(2), "380"}, W{u"ListBox", u"MultiSelect", I(2), "integer16:2"},
        W{u"ListBox", u"MultiSelect", I(3), "380"},
        W{u"ListView", u"MultiSelect", I(1), "boolean:True"},
        W{u"ListView", u"View", I(3), "integer16:3"}, W{u"ListView", u"View", I(4), "380"},
        W{u"TreeView", u"LineStyle", I(2), "380"},
        W{u"RichTextBox", u"ScrollBars", I(3), "integer16:3"},
        W{u"RichTextBox", u"ScrollBars", I(-1), "380"}, W{u"SSTab", u"Style", I(2), "380"},
        W{u"SSTab", u"Tabs", I(0), "380"}, W{u"SSTab", u"Tabs", u"1", "integer16:1"},
        W{u"SSTab", u"TabsPerRow", I(0), "380"},
        // MaskEdBox PromptChar is exactly one character.
        W{u"MaskEdBox", u"PromptChar", u"#", "text:#"}, W{u"MaskEdBox", u"PromptChar", u"", "380"},
        W{u"MaskEdBox", u"PromptChar", u"ab", "380"},
        // Scroll bars: Min/Max Integer; changes 1..32767; CInt rounds half to even.
        W{u"HScrollBar", u"Min", I(-32768), "integer16:-32768"},
        W{u"HScrollBar", u"Max", L(40000), "380"}, W{u"HScrollBar", u"Max", u"40000", "380"},
        W{u"VScrollBar", u"SmallChange", I(0), "380"},
        W{u"VScrollBar", u"LargeChange", u"2.5", "integer16:2"},
        W{u"VScrollBar", u"LargeChange", u"3.5", "integer16:4"},
        W{u"HScrollBar", u"Value", I(-1), "380"},  // below Min 0
        W{u"HScrollBar", u"Value", I(100), "integer16:100"},
        // Properties a class lacks, as VB6 lacks them.
        W{u"Timer", u"Visible", kTrue, "438"}, W{u"Line", u"Enabled", kTrue, "438"},
        W{u"Shape", u"Caption", u"x", "438"}, W{u"Image", u"Text", u"x", "438"},
        W{u"HScrollBar", u"Font", u"Arial", "438"}, W{u"DriveListBox", u"Caption", u"x", "438"},
        W{u"DriveListBox", u"Font", u"Arial", "text:Arial"},
        // Name is an identifier.
        W{u"TextBox", u"Name", u"", "380"}, W{u"TextBox", u"Name", u"2txt", "380"},
        W{u"TextBox", u"Name", u"_txt", "380"}, W{u"TextBox", u"Name", u"txt name", "380"},
        W{u"TextBox", u"Name", u"txt-name", "380"},
        W{u"TextBox", u"Name", vb::Value(vb::Text(40, u'a')),
          "text:aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa"},
        W{u"TextBox", u"Name", vb::Value(vb::Text(41, u'a')), "380"},
        // Index: 0..32767 from text or numbers.
        W{u"TextBox", u"Index", u"3", "integer16:3"},
        W{u"TextBox", u"Index", L(32767), "integer16:32767"},
        W{u"TextBox", u"Index", L(32768), "380"}, W{u"TextBox", u"Index", I(-2), "380"},
        W{u"TextBox", u"Index", u"x", "380"}, W{u"TextBox", u"NoSuchThing", I(1), "438"}));

TEST(ClassRulesTest, NameRefusalNamesTheValue) {
  ModelFixture f;
  auto text = f.form->AddControl(u"TextBox");
  EXPECT_THAT(vbfiles::testing::FailureText([&] { f.Prop(text, u"Name")->SetValue(u"9lives"); }),
              ::testing::MatchesRegex("380: Invalid property value.*9lives.*"));
}

TEST(ClassRulesTest, RefusedWriteLeavesTheValue) {
  ModelFixture f;
  auto check = f.form->AddControl(u"CheckBox");
  f.Prop(check, u"Value")->SetValue(I(1));
  EXPECT_EQ(FailureOf([&] { f.Prop(check, u"Value")->SetValue(I(9)); }), k380);
  EXPECT_EQ(check->Get(u"Value"), I(1));
}

// --- Default names and captions -----------------------------------------------

struct DefaultCase {
  const char16_t* class_name;
  const char* first_name;
  const char* named_property;  // a property that starts as the name, or null
};

void PrintTo(const DefaultCase& c, std::ostream* os) { *os << c.first_name; }

class DefaultNameTest : public ::testing::TestWithParam<DefaultCase>, public ModelFixture {};

TEST_P(DefaultNameTest, StemAndLowestFreeNumber) {
  const DefaultCase& c = GetParam();
  auto first = form->AddControl(c.class_name);
  EXPECT_EQ(U8(first->Name()), c.first_name);
  auto second = form->AddControl(c.class_name);
  std::string expected_second = c.first_name;
  expected_second.back() = '2';
  EXPECT_EQ(U8(second->Name()), expected_second);
  if (c.named_property) {
    EXPECT_EQ(second->Get(vb::FromUtf8(c.named_property)), vb::Value(second->Name()));
  }
}

INSTANTIATE_TEST_SUITE_P(
    Stems, DefaultNameTest,
    ::testing::Values(
        DefaultCase{u"CheckBox", "Check1", "Caption"}, DefaultCase{u"ComboBox", "Combo1", "Text"},
        DefaultCase{u"CommandButton", "Command1", "Caption"},
        DefaultCase{u"ListBox", "List1", nullptr}, DefaultCase{u"TextBox", "Text1", "Text"},
        DefaultCase{u"HScrollBar", "HScroll1", nullptr}, DefaultCase{u"Data", "Data1", "Caption"},
        DefaultCase{u"DriveListBox", "Drive1", nullptr},
        DefaultCase{u"MSComctlLib.ListView", "ListView1", nullptr},
        DefaultCase{u"RichTextLib.RichTextBox", "RichTextBox1", "Text"}));

TEST(DefaultNamesTest, LowestFreeNumberIgnoringCase) {
  ModelFixture f;
  f.form->AddControlExact(u"TextBox", u"TEXT1");
  f.form->AddControlExact(u"TextBox", u"Text3");
  EXPECT_EQ(U8(f.form->AddControl(u"TextBox")->Name()), "Text2");
  EXPECT_EQ(U8(f.form->AddControl(u"TextBox")->Name()), "Text4");
  f.form->DeleteControl(u"text1");
  EXPECT_EQ(U8(f.form->AddControl(u"TextBox")->Name()), "Text1");
}

TEST(DefaultNamesTest, UnknownClassFailsButExactAddGetsGenericSet) {
  ModelFixture f;
  EXPECT_EQ(FailureOf([&] { f.form->AddControl(u"MSComCtl2.DTPicker"); }),
            vb::kInvalidProcedureCall);
  auto picker = f.form->AddControlExact(u"MSComCtl2.DTPicker", u"dtpWhen");
  EXPECT_EQ(U8(picker->ClassName()), "DTPicker");
  EXPECT_EQ(U8(picker->FileClass()), "MSComCtl2.DTPicker");
  std::vector<std::string> names;
  for (const auto& slot : picker->Slots()) names.push_back(U8(slot.name));
  EXPECT_EQ(names, (std::vector<std::string>{"Name", "Index", "Tag", "Left", "Top", "Width",
                                             "Height", "Visible", "Enabled", "TabIndex"}));
  EXPECT_EQ(FailureOf([&] { picker->Get(u"Caption"); }), k438);
}

TEST(DefaultNamesTest, ExactAddRefusesTakenOrInvalidNames) {
  ModelFixture f;
  f.form->AddControl(u"TextBox");
  EXPECT_EQ(FailureOf([&] { f.form->AddControlExact(u"Label", u"text1"); }), k380);
  EXPECT_EQ(FailureOf([&] { f.form->AddControlExact(u"Label", u"1abc"); }), k380);
  auto label = f.form->AddControlExact(u"Label", u"lblName");
  EXPECT_EQ(label->Get(u"Caption"), vb::Value(u"lblName"));
}

// --- Duplicate names and control arrays -----------------------------------

class ArrayTest : public ::testing::Test, public ModelFixture {
 protected:
  std::shared_ptr<Control> text1_ = form->AddControl(u"TextBox");
  std::shared_ptr<Control> text2_ = form->AddControl(u"TextBox");
};

TEST_F(ArrayTest, NameOfAnotherControlIsRefusedWhenItIsNoArray) {
  EXPECT_EQ(FailureOf([&] { Prop(text2_, u"Name")->SetValue(u"TEXT1"); }), k380);
  EXPECT_EQ(U8(text2_->Name()), "Text2");
}

TEST_F(ArrayTest, NameOfAnArrayJoinsItWithNextFreeIndex) {
  Prop(text1_, u"Index")->SetValue(I(0));
  Prop(text2_, u"Name")->SetValue(u"text1");
  EXPECT_EQ(U8(text2_->DisplayName()), "Text1(1)");  // the array's spelling
  auto text3 = form->AddControl(u"TextBox");
  EXPECT_EQ(U8(text3->Name()), "Text2");
  Prop(text3, u"Name")->SetValue(u"Text1");
  EXPECT_EQ(U8(text3->DisplayName()), "Text1(2)");
}

TEST_F(ArrayTest, JoiningFillsTheLowestGap) {
  Prop(text1_, u"Index")->SetValue(I(1));
  Prop(text2_, u"Name")->SetValue(u"Text1");
  EXPECT_EQ(text2_->Index(), 0);
}

TEST_F(ArrayTest, IndexTakenByTheSameNameIsRefused) {
  Prop(text1_, u"Index")->SetValue(I(0));
  Prop(text2_, u"Name")->SetValue(u"Text1");
  EXPECT_EQ(FailureOf([&] { Prop(text2_, u"Index")->SetValue(u"0"); }), k380);
  EXPECT_EQ(FailureOf([&] { Prop(text2_, u"Index")->SetValue(u"5"); }), 0);
  EXPECT_EQ(U8(text2_->DisplayName()), "Text1(5)");
  // While another control shares the name, the index cannot be cleared.
  EXPECT_EQ(FailureOf([&] { Prop(text2_, u"Index")->SetValue(u""); }), k380);
  EXPECT_EQ(form->FindControl(u"Text1", 5), text2_);
}

TEST_F(ArrayTest, LoneControlMayLeaveItsArray) {
  Prop(text1_, u"Index")->SetValue(I(0));
  Prop(text1_, u"Index")->SetValue(u"");
  EXPECT_EQ(text1_->Index(), std::nullopt);
  EXPECT_EQ(text1_->Get(u"Index"), I(-1));
}

TEST_F(ArrayTest, OneDefaultButtonPerForm) {
  auto ok = form->AddControl(u"CommandButton");
  auto cancel = form->AddControl(u"CommandButton");
  Prop(ok, u"Default")->SetValue(kTrue);
  Prop(cancel, u"Default")->SetValue(kTrue);
  EXPECT_EQ(ok->Get(u"Default"), kFalse);
  EXPECT_EQ(cancel->Get(u"Default"), kTrue);
}

// --- Order and raw text of properties read from a file --------------------

TEST(LoadedPropertiesTest, LoadingRaisesNothing) {
  ModelFixture f;
  auto frame = f.form->LoadControl(u"VB.Frame", u"fraOptions");
  auto option = f.form->LoadControl(u"VB.OptionButton", u"optA", frame);
  option->LoadProperty(u"Index", vb::Value(u"0"), "Index = 0");
  EXPECT_TRUE(f.observer.log.empty());
  EXPECT_EQ(option->Container(), frame);
  EXPECT_EQ(U8(option->DisplayName()), "optA(0)");
}

}  // namespace
}  // namespace workbench::testing
