#include "workbench/code_module.hpp"

#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <vector>

#include "workbench/model_test_support.hpp"

namespace workbench {
namespace {

using Lines = std::vector<vb::Text>;
using testing::FailureOf;

std::shared_ptr<CodeModule> ModuleOf(Lines lines) {
  return std::make_shared<CodeModule>(u"Module1", std::move(lines));
}

// --- Lines and DeleteLines: one range rule ----------------------------------

struct RangeCase {
  std::int32_t first;
  std::int32_t count;
  const char16_t* text;  // what Lines gives; null when the range is outside
  Lines rest = {};       // what DeleteLines leaves
};

class LineRangeTest : public ::testing::TestWithParam<RangeCase> {};

TEST_P(LineRangeTest, LinesAndDeleteLinesTakeTheSameRanges) {
  const RangeCase& c = GetParam();
  auto module = ModuleOf({u"a", u"b", u"c"});
  int edits = 0;
  module->SetEditListener([&](const CodeModule&, const CodeEdit&) { ++edits; });
  if (c.text == nullptr) {
    EXPECT_EQ(FailureOf([&] { module->Lines(c.first, c.count); }), vb::kInvalidProcedureCall);
    EXPECT_EQ(FailureOf([&] { module->DeleteLines(c.first, c.count); }), vb::kInvalidProcedureCall);
    EXPECT_EQ(module->AllLines(), (Lines{u"a", u"b", u"c"}));
    EXPECT_EQ(edits, 0);
  } else {
    EXPECT_EQ(module->Lines(c.first, c.count), c.text);
    module->DeleteLines(c.first, c.count);
    EXPECT_EQ(module->AllLines(), c.rest);
    EXPECT_EQ(edits, 1);
  }
}

INSTANTIATE_TEST_SUITE_P(
    Table, LineRangeTest,
    ::testing::Values(RangeCase{1, 3, u"a\r\nb\r\nc", {}}, RangeCase{2, 1, u"b", {u"a", u"c"}},
                      RangeCase{3, 1, u"c", {u"a", u"b"}}, RangeCase{1, 0, u"", {u"a", u"b", u"c"}},
                      RangeCase{4, 0, u"", {u"a", u"b", u"c"}}, RangeCase{0, 0, nullptr},
                      RangeCase{0, 1, nullptr}, RangeCase{5, 0, nullptr}, RangeCase{3, 2, nullptr},
                      RangeCase{1, -1, nullptr}, RangeCase{-1, 2, nullptr},
                      RangeCase{INT_MAX, INT_MAX, nullptr}, RangeCase{2, INT_MAX, nullptr}));

// --- Text to lines ----------------------------------------------------------

struct SplitCase {
  const char16_t* text;
  Lines added;
};

class AddFromStringTest : public ::testing::TestWithParam<SplitCase> {};

TEST_P(AddFromStringTest, SplitsAtEveryLineEndAndAppends) {
  auto empty = ModuleOf({});
  empty->AddFromString(GetParam().text);
  EXPECT_EQ(empty->AllLines(), GetParam().added);

  auto module = ModuleOf({u"first", u""});
  module->AddFromString(GetParam().text);
  Lines expected{u"first", u""};
  expected.insert(expected.end(), GetParam().added.begin(), GetParam().added.end());
  EXPECT_EQ(module->AllLines(), expected);
}

INSTANTIATE_TEST_SUITE_P(Table, AddFromStringTest,
                         ::testing::Values(SplitCase{u"a", {u"a"}},
                                           SplitCase{u"a\r\nb\nc\rd", {u"a", u"b", u"c", u"d"}},
                                           SplitCase{u"a\r\n", {u"a", u""}},
                                           SplitCase{u"\r\r\n\n", {u"", u"", u"", u""}},
                                           SplitCase{u"\n\r", {u"", u"", u""}},
                                           // "" is the text of a module of one empty line.
                                           SplitCase{u"", {u""}}));

TEST(CodeModuleTest, FromTextTakesALineEndAsClosingItsLine) {
  EXPECT_EQ(CodeModule::FromText(u"M", u"a\r\nb\r\n")->AllLines(), (Lines{u"a", u"b"}));
  EXPECT_EQ(CodeModule::FromText(u"M", u"a\nb")->AllLines(), (Lines{u"a", u"b"}));
  EXPECT_EQ(CodeModule::FromText(u"M", u"a\r\n\r\n")->AllLines(), (Lines{u"a", u""}));
  EXPECT_EQ(CodeModule::FromText(u"M", u"")->CountOfLines(), 0);
}

TEST(CodeModuleTest, InsertLinesGoesBeforeTheLine) {
  auto module = ModuleOf({u"a", u"b"});
  module->InsertLines(1, u"x\r\ny");
  module->InsertLines(4, u"z");
  module->InsertLines(6, u"end");
  EXPECT_EQ(module->AllLines(), (Lines{u"x", u"y", u"a", u"z", u"b", u"end"}));
  EXPECT_EQ(FailureOf([&] { module->InsertLines(0, u"q"); }), vb::kInvalidProcedureCall);
  EXPECT_EQ(FailureOf([&] { module->InsertLines(8, u"q"); }), vb::kInvalidProcedureCall);
  EXPECT_EQ(module->CountOfLines(), 6);
}

TEST(CodeModuleTest, EveryEditReachesTheListenerAfterItIsMade) {
  static const char* const kOps[] = {"DeleteLines", "AddFromString", "InsertLines", "ReplaceAll"};
  auto module = ModuleOf({u"a", u"b", u"c"});
  std::vector<std::string> edits;
  module->SetEditListener([&](const CodeModule& m, const CodeEdit& edit) {
    edits.push_back(std::string(kOps[static_cast<int>(edit.op)]) + " " +
                    std::to_string(edit.first) + " " + std::to_string(edit.count) + " [" +
                    vb::ToUtf8(edit.text) + "] now " + std::to_string(m.CountOfLines()));
  });
  module->DeleteLines(2, 1);
  module->AddFromString(u"x\r\ny");
  module->InsertLines(1, u"top");
  module->DeleteLines(1, 0);
  EXPECT_EQ(edits, (std::vector<std::string>{
                       "DeleteLines 2 1 [] now 2", "AddFromString 3 2 [x\r\ny] now 4",
                       "InsertLines 1 1 [top] now 5", "DeleteLines 1 0 [] now 5"}));
}

}  // namespace
}  // namespace workbench
