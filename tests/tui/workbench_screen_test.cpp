#include "tui/workbench_screen.hpp"

#include <cstdlib>
#include <filesystem>

#include <gtest/gtest.h>

#include "workbench/project_loader.hpp"

namespace tui {
namespace {

struct ScreenSize {
  int rows;
  int columns;
};

class WorkbenchScreenTest : public ::testing::TestWithParam<ScreenSize> {};

// Where `text` starts on the screen, or {-1, -1}.
std::pair<int, int> Find(const ScreenPicture& picture, vb::TextView text) {
  for (std::size_t y = 0; y < picture.rows.size(); ++y) {
    const auto x = RowText(picture.rows[y]).find(text);
    if (x != vb::Text::npos) return {static_cast<int>(y), static_cast<int>(x)};
  }
  return {-1, -1};
}

unsigned AttrsAt(const ScreenPicture& picture, std::pair<int, int> at) {
  int x = 0;
  for (const Span& span : picture.rows[static_cast<std::size_t>(at.first)].spans) {
    x += static_cast<int>(span.text.size());
    if (x > at.second) return span.attrs;
  }
  return kPlain;
}

// The sample form at both sizes: the option button inside the frame is
// selected in the tree and on the form, an edited code line is marked.
TEST_P(WorkbenchScreenTest, ShowsTheSelectionTheCodeChangeAndTheStatus) {
  const auto [rows, columns] = GetParam();
  const auto project = workbench::OpenProject(
      std::filesystem::path(std::getenv("TESSALY_SOURCE_DIR")) / "examples/sample/Sample.vbp");
  ScreenState state;
  state.project = project.get();
  state.tree = ProjectTree(*project);
  while (state.tree[static_cast<std::size_t>(state.selected)].control == nullptr ||
         state.tree[static_cast<std::size_t>(state.selected)].control->Name() != u"Option1") {
    ++state.selected;
  }
  state.code = project->Forms()[0]->Module()->AllLines();
  auto before = state.code;
  before[2] = u"Private Sub cmdOld_Click()";
  state.changes = CompareLines(before, state.code);
  state.modified = true;
  const ScreenPicture picture = ComposeScreen(state, rows, columns);
  ASSERT_EQ(static_cast<int>(picture.rows.size()), rows);

  const auto frame = Find(picture, u"  Frame1  Frame");
  const auto option = Find(picture, u"    Option1  Option");
  ASSERT_EQ(option.first, frame.first + 1);
  EXPECT_NE(AttrsAt(picture, {option.first, option.second + 4}) & kReverse, 0u);
  // Frame1 stands 1560 twips down; the option 360 down inside it.
  const auto greeting = Find(picture, u"Greeting");
  const auto formal = Find(picture, u"(o) Formal");
  ASSERT_EQ(formal.first, greeting.first + 360 / 240);
  EXPECT_NE(AttrsAt(picture, formal) & kReverse, 0u);
  const auto changed = Find(picture, u"+ Private Sub Command1_Click()");
  ASSERT_NE(changed.first, -1);
  EXPECT_NE(AttrsAt(picture, {changed.first, changed.second + 2}) & kReverse, 0u);
  EXPECT_EQ(Find(picture, u"Sample  frmMain  [modified]").first, rows - 2);
  EXPECT_EQ(picture.caret.row, rows - 1);
}

INSTANTIATE_TEST_SUITE_P(Sizes, WorkbenchScreenTest,
                         ::testing::Values(ScreenSize{24, 80}, ScreenSize{40, 120}));

}  // namespace
}  // namespace tui
