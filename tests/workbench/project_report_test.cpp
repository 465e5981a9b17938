// The reports a user runs before trusting the workbench with a project: the
// first line that would differ, and what a check finds.
#include <gtest/gtest.h>

#include "vbfiles/files_test_support.hpp"
#include "workbench/project_report.hpp"

namespace workbench {
namespace {

struct DifferenceCase {
  std::string read, written;
  std::size_t line;
  std::string expected, got;
};

class FirstDifferenceTest : public ::testing::TestWithParam<DifferenceCase> {};

TEST_P(FirstDifferenceTest, NamesTheLineAsReadAndAsWritten) {
  const auto& c = GetParam();
  const auto found = FirstDifference("F.frm", c.read, c.written, vbfiles::CodePage());
  ASSERT_TRUE(found.has_value());
  EXPECT_EQ(found->line, c.line);
  EXPECT_EQ(found->expected, c.expected);
  EXPECT_EQ(found->got, c.got);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, FirstDifferenceTest,
    ::testing::Values(DifferenceCase{"a\r\nb\r\nc\r\n", "a\r\nB\r\nc\r\n", 2, "b", "B"},
                      DifferenceCase{"a\r\nb\r\n", "a\r\nb\n", 2, "b", "b"},
                      DifferenceCase{"a\r\n\xe9", "a\r\n", 2, "\xc3\xa9", "(end of file)"},
                      DifferenceCase{"x", "y", 1, "x", "y"}));

TEST(CheckProject, FindsOrphanedEventsAndDefaultNames) {
  vbfiles::testing::TempDir temp;
  const auto vbp =
      vbfiles::testing::WriteOneFormProject(temp.Path(),
                                            "VERSION 5.00\r\nBegin VB.Form F \r\n"
                                            "   Begin VB.CommandButton cmdOK \r\n   End\r\n"
                                            "   Begin VB.CommandButton Command1 \r\n   End\r\n"
                                            "End\r\nAttribute VB_Name = \"F\"\r\n"
                                            "Private Sub Form_Load()\r\nEnd Sub\r\n"
                                            "Private Sub cmdOK_Click()\r\nEnd Sub\r\n"
                                            "Private Sub cmdGone_Click()\r\nEnd Sub\r\n");
  const auto findings = CheckProject(vbp, std::nullopt);
  ASSERT_EQ(findings.size(), 2U);
  EXPECT_EQ(findings[0].line, 13U);
  EXPECT_EQ(findings[0].text, "cmdGone_Click handles cmdGone, which is not on the form");
  EXPECT_EQ(findings[1].text, "Command1 (CommandButton) still has its default name");
}

}  // namespace
}  // namespace workbench
