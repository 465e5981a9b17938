#include "workbench/code_module.hpp"

#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <vector>

#include "vb/failure.hpp"
#include "workbench/member_scan.hpp"

namespace workbench {
namespace {

using Lines = std::vector<vb::Text>;

std::shared_ptr<CodeModule> ModuleOf(Lines lines) {
  return std::make_shared<CodeModule>(u"Module1", std::move(lines));
}

// The failure number of `call`, or 0 when it succeeds.
template <typename Call>
std::int32_t FailureOf(Call&& call) {
  try {
    call();
  } catch (const vb::Failure& failure) {
    return failure.Number();
  }
  return 0;
}

// --- Lines and DeleteLines: one range rule ----------------------------------

struct RangeCase {
  std::int32_t first;
  std::int32_t count;
  const char16_t* text;  // what Lines gives; null when the range is outside
};

class LineRangeTest : public ::testing::TestWithParam<RangeCase> {
 protected:
  std::shared_ptr<CodeModule> module_ = ModuleOf({u"a", u"b", u"c"});
};

TEST_P(LineRangeTest, LinesJoinsWithCrLfOrFails) {
  const RangeCase& c = GetParam();
  if (c.text == nullptr) {
    EXPECT_EQ(FailureOf([&] { module_->Lines(c.first, c.count); }), vb::kInvalidProcedureCall);
  } else {
    EXPECT_EQ(module_->Lines(c.first, c.count), c.text);
  }
}

TEST_P(LineRangeTest, DeleteLinesTakesTheSameRangesAndKeepsTheRestOnFailure) {
  const RangeCase& c = GetParam();
  int edits = 0;
  module_->SetEditListener([&](const CodeModule&, const CodeEdit&) { ++edits; });
  if (c.text == nullptr) {
    EXPECT_EQ(FailureOf([&] { module_->DeleteLines(c.first, c.count); }),
              vb::kInvalidProcedureCall);
    EXPECT_EQ(module_->AllLines(), (Lines{u"a", u"b", u"c"}));
    EXPECT_EQ(edits, 0);
  } else {
    module_->DeleteLines(c.first, c.count);
    EXPECT_EQ(module_->CountOfLines(), 3 - c.count);
    EXPECT_EQ(edits, 1);
  }
}

INSTANTIATE_TEST_SUITE_P(Table, LineRangeTest,
                         ::testing::Values(RangeCase{1, 3, u"a\r\nb\r\nc"}, RangeCase{2, 1, u"b"},
                                           RangeCase{3, 1, u"c"}, RangeCase{1, 0, u""},
                                           RangeCase{4, 0, u""}, RangeCase{0, 0, nullptr},
                                           RangeCase{0, 1, nullptr}, RangeCase{5, 0, nullptr},
                                           RangeCase{3, 2, nullptr}, RangeCase{4, 1, nullptr},
                                           RangeCase{1, -1, nullptr}, RangeCase{-1, 2, nullptr},
                                           RangeCase{INT_MAX, INT_MAX, nullptr},
                                           RangeCase{2, INT_MAX, nullptr}));

TEST(CodeModuleTest, DeleteLinesMovesLaterLinesUp) {
  auto module = ModuleOf({u"a", u"b", u"c", u"d"});
  module->DeleteLines(2, 2);
  EXPECT_EQ(module->AllLines(), (Lines{u"a", u"d"}));
}

// --- Text to lines ----------------------------------------------------------

class RoundTripTest : public ::testing::TestWithParam<Lines> {};

TEST_P(RoundTripTest, TextReadWithLinesBecomesTheSameLines) {
  auto module = ModuleOf(GetParam());
  const vb::Text text = module->Lines(1, module->CountOfLines());
  module->DeleteLines(1, module->CountOfLines());
  module->AddFromString(text);
  EXPECT_EQ(module->AllLines(), GetParam()) << vb::ToUtf8(text);
}

INSTANTIATE_TEST_SUITE_P(Modules, RoundTripTest,
                         ::testing::Values(Lines{u"a"}, Lines{u""}, Lines{u"", u""},
                                           Lines{u"a", u""}, Lines{u"a", u"", u""},
                                           Lines{u"", u"a"}, Lines{u"   "}, Lines{u"\t"},
                                           Lines{u"a", u"  ", u"\tb", u" \t "},
                                           Lines{u"Option Explicit", u"",
                                                 u"Private Sub Form_Load()",
                                                 u"    x = \"a\" ' note", u"End Sub", u""}));

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
  EXPECT_EQ(module->AllLines(), (Lines{u"x", u"y", u"a", u"b"}));
  module->InsertLines(4, u"z");
  EXPECT_EQ(module->AllLines(), (Lines{u"x", u"y", u"a", u"z", u"b"}));
  module->InsertLines(6, u"end");
  EXPECT_EQ(module->AllLines(), (Lines{u"x", u"y", u"a", u"z", u"b", u"end"}));
  EXPECT_EQ(FailureOf([&] { module->InsertLines(0, u"q"); }), vb::kInvalidProcedureCall);
  EXPECT_EQ(FailureOf([&] { module->InsertLines(8, u"q"); }), vb::kInvalidProcedureCall);
  EXPECT_EQ(module->CountOfLines(), 6);
}

// --- Edit listener ----------------------------------------------------------

std::string Describe(const CodeModule& module, const CodeEdit& edit) {
  static const char* const kOps[] = {"DeleteLines", "AddFromString", "InsertLines", "ReplaceAll"};
  return std::string(kOps[static_cast<int>(edit.op)]) + " " + std::to_string(edit.first) + " " +
         std::to_string(edit.count) + " [" + vb::ToUtf8(edit.text) + "] now " +
         std::to_string(module.CountOfLines());
}

TEST(CodeModuleTest, EveryEditReachesTheListenerAfterItIsMade) {
  auto module = ModuleOf({u"a", u"b", u"c"});
  std::vector<std::string> edits;
  module->SetEditListener(
      [&](const CodeModule& m, const CodeEdit& edit) { edits.push_back(Describe(m, edit)); });
  module->DeleteLines(2, 1);
  module->AddFromString(u"x\r\ny");
  module->InsertLines(1, u"top");
  module->DeleteLines(1, 0);
  EXPECT_EQ(edits, (std::vector<std::string>{
                       "DeleteLines 2 1 [] now 2",
                       "AddFromString 3 2 [x\r\ny] now 4",
                       "InsertLines 1 1 [top] now 5",
                       "DeleteLines 1 0 [] now 5",
                   }));
}

// --- Members ----------------------------------------------------------------

std::vector<std::string> Listed(ide::Members& members) {
  std::vector<std::string> out;
  for (const auto& member : members.All()) {
    out.push_back(vb::ToUtf8(member->Name()) + "@" + std::to_string(member->CodeLocation()));
  }
  return out;
}

class CodeModuleMembersTest : public ::testing::Test {
 protected:
  std::shared_ptr<CodeModule> module_ = CodeModule::FromText(u"Form1",
                                                             u"Option Explicit\r\n"
                                                             u"Dim m_count As Long\r\n"
                                                             u"' Handles typing\r\n"
                                                             u"Private Sub Text1_Change()\r\n"
                                                             u"    m_count = m_count + 1\r\n"
                                                             u"End Sub\r\n"
                                                             u"Private Sub Text10_Change()\r\n"
                                                             u"End Sub\r\n");
  std::shared_ptr<ide::Members> members_ = module_->Members();
};

TEST_F(CodeModuleMembersTest, ItemIgnoresCaseAndNameKeepsTheText) {
  EXPECT_EQ(Listed(*members_),
            (std::vector<std::string>{"m_count@2", "Text1_Change@4", "Text10_Change@7"}));
  const auto member = members_->Item(u"TEXT1_CHANGE");
  ASSERT_NE(member, nullptr);
  EXPECT_EQ(member->Name(), u"Text1_Change");
  EXPECT_EQ(member->CodeLocation(), 4);
  EXPECT_EQ(members_->Item(u"Text1"), nullptr);
}

TEST_F(CodeModuleMembersTest, CollectionFollowsEveryEdit) {
  module_->DeleteLines(4, 3);
  EXPECT_EQ(members_->Item(u"Text1_Change"), nullptr);
  ASSERT_NE(members_->Item(u"Text10_Change"), nullptr);
  EXPECT_EQ(members_->Item(u"Text10_Change")->CodeLocation(), 4);

  module_->InsertLines(1, u"Private Const kMax = 10");
  module_->AddFromString(u"Public Sub Reset()\r\nEnd Sub");
  EXPECT_EQ(Listed(*members_),
            (std::vector<std::string>{"kMax@1", "m_count@3", "Text10_Change@5", "Reset@7"}));
}

TEST_F(CodeModuleMembersTest, ScannedTableIsASnapshot) {
  const auto before = module_->ScannedMembers();
  ASSERT_EQ(before->All().size(), 3u);
  EXPECT_EQ(before->All()[1].end_line, 6);
  module_->DeleteLines(1, 4);
  EXPECT_EQ(before->All().size(), 3u);
  EXPECT_EQ(module_->ScannedMembers()->All().size(), 1u);
}

}  // namespace
}  // namespace workbench
