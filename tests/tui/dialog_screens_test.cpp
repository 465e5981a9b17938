// Every dialog of the add-in as the terminal draws it from its geometry.
//
// The geometry itself must hold: each control stands inside its frame's border
// (or the client area) and apart from its neighbours, in whole cells, and the
// dialog fits an 80x24 terminal. The screens at 80x24 and 120x40 are compared
// with tests/tui/screens/<form>_<columns>x<rows>.txt; run the tests with
// TESSALY_REWRITE_SCREENS=1 in the environment to write those files afresh
// (then read the difference before committing it).
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <span>

#include <gtest/gtest.h>

#include "code/remove_control_dialog.hpp"
#include "code/rename_code_dialog.hpp"
#include "dialogs/dialog_factory.hpp"
#include "forms/forms_harness.hpp"
#include "settings/options_dialog.hpp"
#include "tui/cells.hpp"
#include "tui/font_dialog.hpp"
#include "tui/form_picture.hpp"

namespace tui {
namespace {

using Make = std::function<std::unique_ptr<forms::Form>(forms::Runtime&)>;

// The options dialog with the flags it reads, all set as a first run has them.
struct Flags {
  tessaly::Globals globals;
};
struct OptionsDialog : Flags, tessaly::frmAddInOptions {
  explicit OptionsDialog(forms::Runtime& rt) : frmAddInOptions(rt, globals) {
    tessaly::LoadSettings(globals, rt);
  }
};

std::vector<Make> AllDialogs() {
  static forms::testing::FixedFonts families({u"Arial", u"Courier New", u"MS Sans Serif"});
  std::vector<Make> all;
  for (int k = 0; k <= static_cast<int>(tessaly::DialogKind::OtherControl); ++k) {
    all.push_back([k](forms::Runtime& rt) -> std::unique_ptr<forms::Form> {
      return tessaly::CreateDialog(static_cast<tessaly::DialogKind>(k), rt);
    });
  }
  all.push_back([](forms::Runtime& rt) { return std::make_unique<OptionsDialog>(rt); });
  all.push_back([](forms::Runtime& rt) { return std::make_unique<tessaly::frmRemoveControl>(rt); });
  all.push_back([](forms::Runtime& rt) { return std::make_unique<tessaly::frmRenameCode>(rt); });
  all.push_back([](forms::Runtime& rt) {
    return std::make_unique<FontDialog>(rt, families, forms::FontChoice{.name = u"Arial"});
  });
  return all;
}

struct Rect {
  int left, top, width, height;
  bool Overlaps(const Rect& o) const {
    return left < o.left + o.width && o.left < left + width && top < o.top + o.height &&
           o.top < top + height;
  }
};

Rect CellsOf(const forms::Bounds& b) {
  return {ColumnOf(b.left), RowOf(b.top), ColumnsOf(b.width), RowsOf(b.height)};
}

// Cells of a control in the window: inside the border, its frames' places added.
Rect InWindow(const forms::Control& c) {
  Rect r = CellsOf(c.Bounds());
  r.left += 1;
  r.top += 1;
  for (const forms::Control* p = c.Container(); p; p = p->Container()) {
    r.left += CellsOf(p->Bounds()).left;
    r.top += CellsOf(p->Bounds()).top;
  }
  return r;
}

// A field a label ending in ':' names stands right after it on its row, or
// on the row below at its left edge.
bool NamesAField(const Rect& label, const forms::Control& c) {
  if (c.Kind() != forms::ControlKind::TextBox && c.Kind() != forms::ControlKind::ListBox)
    return false;
  const Rect f = InWindow(c);
  const int gap = f.left - label.left - label.width;
  return (f.top == label.top && gap >= 0 && gap <= 2) ||
         (f.top == label.top + label.height && f.left == label.left);
}

class DialogScreens : public ::testing::TestWithParam<std::size_t> {
 protected:
  forms::testing::Harness harness_;
  std::unique_ptr<forms::Form> form_ = AllDialogs().at(GetParam())(harness_.runtime);
};

TEST_P(DialogScreens, ControlsStandInsideTheirContainerApartAndTheDialogFits) {
  const forms::Form& form = *form_;
  EXPECT_LE(form.ClientWidth(), 80 * kTwipsPerColumn);
  EXPECT_LE(form.ClientHeight(), 22 * kTwipsPerRow);
  std::vector<const forms::Control*> placed;
  for (const auto& c : form.Controls()) {
    if (c->Kind() != forms::ControlKind::CommonDialog) placed.push_back(c.get());
  }
  for (std::size_t i = 0; i < placed.size(); ++i) {
    const forms::Control* c = placed[i];
    const Rect r = CellsOf(c->Bounds());
    // Inside a frame, its border takes the outer cells.
    const forms::Control* box = c->Container();
    const Rect room =
        box ? Rect{1, 1, CellsOf(box->Bounds()).width - 2, CellsOf(box->Bounds()).height - 2}
            : Rect{0, 0, ColumnsOf(form.ClientWidth()), RowsOf(form.ClientHeight())};
    EXPECT_TRUE(c->Bounds().width > 0 && r.left >= room.left && r.top >= room.top &&
                r.left + r.width <= room.left + room.width &&
                r.top + r.height <= room.top + room.height)
        << c->Path() << " stands outside its container";
    for (const forms::Control* o : std::span(placed).first(i)) {
      EXPECT_FALSE(o->Container() == box && r.Overlaps(CellsOf(o->Bounds())))
          << c->Path() << " overlaps " << o->Path();
    }
  }
}

TEST_P(DialogScreens, EveryLabelShowsWholeBesideOrAboveItsField) {
  form_->Load();
  const Canvas canvas = PictureForm(*form_).canvas;
  for (const auto& c : form_->Controls()) {
    if (c->Kind() != forms::ControlKind::Label) continue;
    const Rect r = InWindow(*c);
    const Caption caption = StripMarks(c->Caption());
    const auto pieces = WrapText(caption.text, r.width);
    EXPECT_LE(pieces.size(), static_cast<std::size_t>(r.height)) << c->Path() << " is cut off";
    for (std::size_t i = 0; i < pieces.size(); ++i) {
      const vb::Text line = RowText(canvas.RowAt(r.top + static_cast<int>(i)));
      EXPECT_NE(line.find(caption.text.substr(pieces[i].start, pieces[i].length)), vb::Text::npos)
          << c->Path() << " line " << i;
    }
    vb::Text named = caption.text;
    while (!named.empty() && named.back() == u' ') named.pop_back();
    if (named.empty() || named.back() != u':' || static_cast<const forms::Label&>(*c).Bold())
      continue;
    EXPECT_TRUE(std::any_of(form_->Controls().begin(), form_->Controls().end(),
                            [&](const auto& f) { return NamesAField(r, *f); }))
        << c->Path() << " names no field beside or below it";
  }
}

TEST_P(DialogScreens, ScreensAsCommitted) {
  form_->Load();
  const auto dir = std::filesystem::path(std::getenv("TESSALY_SOURCE_DIR")) / "tests/tui/screens";
  for (const auto& [columns, rows] : {std::pair{80, 24}, std::pair{120, 40}}) {
    std::map<const forms::Form*, int> scroll;
    forms::Form* shown[] = {form_.get()};
    const std::string screen =
        vb::ToUtf8(ComposeScreen(shown, rows, columns, scroll).canvas.Text());
    const auto file =
        dir / (form_->Name() + "_" + std::to_string(columns) + "x" + std::to_string(rows) + ".txt");
    if (std::getenv("TESSALY_REWRITE_SCREENS")) std::ofstream(file) << screen;
    std::ifstream in(file);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(in), {}), screen) << file;
  }
}

std::string DialogName(const ::testing::TestParamInfo<std::size_t>& dialog) {
  forms::testing::Harness h;
  return AllDialogs()[dialog.param](h.runtime)->Name();
}

INSTANTIATE_TEST_SUITE_P(All, DialogScreens, ::testing::Range<std::size_t>(0, AllDialogs().size()),
                         DialogName);

}  // namespace
}  // namespace tui
