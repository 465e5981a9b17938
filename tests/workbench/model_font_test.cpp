// The font object of a control's Font property.
#include <gtest/gtest.h>

#include "workbench/model_test_support.hpp"

namespace workbench::testing {
namespace {

using ide::FontDispId;

struct FontCase {
  FontDispId id;
  vb::Value value;
  const char* stored;  // "kind:text" read back with Get, or null when refused
};

void PrintTo(const FontCase& c, std::ostream* os) {
  *os << ide::FontDispIdName(c.id) << " = " << Describe(c.value);
}

class FontPutTest : public ::testing::TestWithParam<FontCase> {};

TEST_P(FontPutTest, StoresOrRefusesWith380) {
  const FontCase& c = GetParam();
  Font font;
  const Font before = font;
  const std::int32_t failure = FailureOf([&] { font.Put(c.id, c.value); });
  if (c.stored) {
    ASSERT_EQ(failure, 0);
    EXPECT_EQ(Describe(font.Get(c.id)), c.stored);
  } else {
    EXPECT_EQ(failure, vb::kInvalidPropertyValue);
    EXPECT_EQ(font, before);
  }
}

using F = FontCase;
INSTANTIATE_TEST_SUITE_P(
    Members, FontPutTest,
    ::testing::Values(
        F{FontDispId::Name, u"Arial", "text:Arial"}, F{FontDispId::Name, u"", nullptr},
        F{FontDispId::Name, I(5), nullptr}, F{FontDispId::Size, u"10.5", "text:10.5"},
        F{FontDispId::Size, I(12), "text:12"}, F{FontDispId::Size, L(2048), "text:2048"},
        F{FontDispId::Size, L(2049), nullptr}, F{FontDispId::Size, u"0", nullptr},
        F{FontDispId::Size, u"-3", nullptr}, F{FontDispId::Size, u"big", nullptr},
        F{FontDispId::Size, kTrue, nullptr}, F{FontDispId::Bold, kTrue, "boolean:True"},
        F{FontDispId::Bold, I(1), "boolean:True"}, F{FontDispId::Italic, u"true", "boolean:True"},
        F{FontDispId::Italic, u"maybe", nullptr}, F{FontDispId::Underline, L(0), "boolean:False"},
        F{FontDispId::Strikethrough, u"-1", "boolean:True"}));

TEST(FontTest, DefaultsAndBoldFollowsWeight) {
  Font font;
  EXPECT_EQ(font.Get(FontDispId::Name), vb::Value(u"MS Sans Serif"));
  EXPECT_EQ(font.Get(FontDispId::Size), vb::Value(u"8.25"));
  EXPECT_EQ(font.Size(), 8.25F);
  EXPECT_FALSE(font.Bold() || font.Italic() || font.Underline() || font.Strikethrough());
  font.SetWeight(600);
  EXPECT_TRUE(font.Bold());
  font.Put(FontDispId::Bold, vb::Value(vb::Boolean::False));
  EXPECT_EQ(font.Weight(), 400);
}

TEST(FontTest, WriteClearsRawText) {
  Font font;
  font.raw = "BeginProperty Font ...";
  font.Put(FontDispId::Italic, kTrue);
  EXPECT_TRUE(font.raw.empty());
}

// Writes through the object are reported as the session tests show.
TEST(FontPropertyTest, ObjectIsTheControlsFontAndValueIsItsName) {
  ModelFixture f;
  auto label = f.form->AddControl(u"Label");
  auto property = f.Prop(label, u"Font");
  auto font = std::dynamic_pointer_cast<ide::FontObject>(property->Object());
  ASSERT_NE(font, nullptr);
  font->Put(FontDispId::Size, vb::Value(u"9.75"));
  EXPECT_EQ(label->GetFont()->Size(), 9.75F);
  EXPECT_TRUE(label->FindSlot(u"Font")->written);
  // Setting the property itself sets the name, the object's default member.
  property->SetValue(u"Courier New");
  EXPECT_EQ(property->Value(), vb::Value(u"Courier New"));
  EXPECT_EQ(FailureOf([&] { property->SetValue(u""); }), vb::kInvalidPropertyValue);
  EXPECT_EQ(f.Prop(label, u"Caption")->Object(), nullptr);
}

}  // namespace
}  // namespace workbench::testing
