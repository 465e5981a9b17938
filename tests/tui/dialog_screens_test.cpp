// Every dialog of the add-in as the terminal draws it from its geometry.
//
// The geometry itself must hold: each control stands inside its frame's border
// (or the client area) and apart from its neighbours, in whole cells, and the
// dialog fits an 80x24 terminal.
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
  static const std::vector<vb::Text> families = {u"Arial", u"Courier New", u"MS Sans Serif"};
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

std::string DialogName(const ::testing::TestParamInfo<std::size_t>& dialog) {
  forms::testing::Harness h;
  return AllDialogs()[dialog.param](h.runtime)->Name();
}

INSTANTIATE_TEST_SUITE_P(All, DialogScreens, ::testing::Range<std::size_t>(0, AllDialogs().size()),
                         DialogName);

}  // namespace
}  // namespace tui
