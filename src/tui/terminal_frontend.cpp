// The terminal front end's loops: each dialog, message box and font service
// draws everything that is shown, waits for one press, hands it on, and
// draws again, until it closes.
#include "tui/terminal_frontend.hpp"

#include <algorithm>

#include "forms/form.hpp"
#include "tui/font_dialog.hpp"
#include "tui/input.hpp"
#include "tui/layout.hpp"
#include "tui/terminal.hpp"

namespace tui {
namespace {

// Cells inside a dialog's border: as many as its controls need, within
// these bounds; wider dialogs are harder to read, narrower ones look cramped.
constexpr int kDialogWidth = 64;
constexpr int kNarrowestDialog = 40;
// Cells a text box's field has at least.
constexpr int kMinField = 24;
constexpr int kMessageWidth = 70;
// Rows a list box shows at most.
constexpr int kListRows = 6;
// Rows a box needs besides its content: title bar, a blank row, the bottom
// border; a dialog also keeps a blank row under its content.
constexpr int kMessageFrame = 3;
constexpr int kDialogFrame = 4;

constexpr const char* kFormHint =
    "Tab/Shift+Tab move  Space toggle  Enter OK  Esc cancel  Alt+letter  F10 close";
constexpr const char* kMessageHint = "Left/Right choose  Enter answer  Esc cancel";

}  // namespace

TerminalFrontend::TerminalFrontend(forms::FontCatalog& fonts)
    : terminal_(std::make_unique<Terminal>()),
      fonts_(&fonts),
      font_runtime_(*this, no_settings_, u"Font") {}

TerminalFrontend::~TerminalFrontend() = default;

void TerminalFrontend::DrawHint(const char* hint) {
  Row row;
  row.spans.push_back({vb::FromUtf8(hint), kDim});
  terminal_->DrawRow(terminal_->Lines() - 1, 0, row, terminal_->Columns());
}

void TerminalFrontend::DrawForm(forms::Form& form, std::size_t depth, bool top) {
  Terminal& t = *terminal_;
  LayoutOptions options{.list_rows = kListRows, .min_field = kMinField};
  const int widest = std::max(std::min(kDialogWidth, t.Columns() - 4), 12);
  const int inner =
      std::clamp(NaturalWidth(form, options) + 2, std::min(kNarrowestDialog, widest), widest);
  options.width = inner - 2;
  const FormLayout layout = LayoutForm(form, options);
  const int rows = static_cast<int>(layout.rows.size());
  const int visible = std::clamp(rows, 1, std::max(t.Lines() - 1 - kDialogFrame, 1));
  // Scroll no further than needed to keep the focus in view.
  int& first = scroll_[&form];
  if (layout.focus_row >= 0) {
    first = std::min(first, layout.focus_row);
    first = std::max(first, layout.focus_row - visible + 1);
  }
  first = std::clamp(first, 0, std::max(rows - visible, 0));

  const int height = visible + kDialogFrame;
  const int width = inner + 2;
  // A dialog opened from another stands a little lower and to the right, so
  // the title of the one under it still shows.
  const int step = static_cast<int>(depth);
  const int y0 =
      std::clamp((t.Lines() - 1 - height) / 2 + step, 0, std::max(t.Lines() - 1 - height, 0));
  const int x0 =
      std::clamp((t.Columns() - width) / 2 + 2 * step, 0, std::max(t.Columns() - width, 0));
  t.DrawBox(y0, x0, height, width, layout.title);
  for (int i = 0; i < visible && first + i < rows; ++i) {
    t.DrawRow(y0 + 2 + i, x0 + 2, layout.rows[static_cast<std::size_t>(first + i)], inner - 2);
  }
  if (first > 0) t.DrawMark(y0 + 2, x0 + width - 1, u'^');
  if (first + visible < rows) t.DrawMark(y0 + 1 + visible, x0 + width - 1, u'v');
  if (!top) return;
  caret_.reset();
  if (layout.caret && layout.caret->row >= first && layout.caret->row < first + visible) {
    caret_ = Caret{y0 + 2 + layout.caret->row - first, x0 + 2 + layout.caret->column};
  }
}

void TerminalFrontend::DrawForms() {
  terminal_->Clear();
  caret_.reset();
  for (std::size_t i = 0; i < shown_.size(); ++i) DrawForm(*shown_[i], i, i + 1 == shown_.size());
}

void TerminalFrontend::RunModal(forms::Form& form) {
  Terminal::Scope visual(*terminal_);
  shown_.push_back(&form);
  // However the loop ends, the dialog no longer shows.
  struct Forget {
    TerminalFrontend* self;
    forms::Form* form;
    ~Forget() {
      std::erase(self->shown_, form);
      self->scroll_.erase(form);
    }
  } forget{this, &form};
  while (form.IsShown()) {
    DrawForms();
    DrawHint(kFormHint);
    terminal_->PlaceCursor(caret_);
    terminal_->Show();
    Deliver(form, terminal_->Read());
  }
}

std::int32_t TerminalFrontend::ShowMessageBox(const forms::MessageBox& box) {
  Terminal::Scope visual(*terminal_);
  ButtonChoice choice(box.buttons);
  for (;;) {
    Terminal& t = *terminal_;
    DrawForms();
    const int room = std::clamp(t.Columns() - 4, 12, kMessageWidth);
    const BoxLayout layout = LayoutMessageBox(box, choice.Buttons(), choice.Chosen(), room);
    const int height = static_cast<int>(layout.rows.size()) + kMessageFrame;
    const int width = layout.width + 2;
    const int y0 = std::max((t.Lines() - 1 - height) / 2, 0);
    const int x0 = std::max((t.Columns() - width) / 2, 0);
    t.DrawBox(y0, x0, height, width, layout.title);
    for (std::size_t i = 0; i < layout.rows.size(); ++i) {
      t.DrawRow(y0 + 2 + static_cast<int>(i), x0 + 1, layout.rows[i], layout.width);
    }
    DrawHint(kMessageHint);
    t.PlaceCursor(std::nullopt);
    t.Show();
    if (auto answer = choice.Press(t.Read())) return *answer;
  }
}

bool TerminalFrontend::ShowFont(forms::FontChoice& font) {
  FontDialog dialog(font_runtime_, fonts_->Families(), font);
  // Shown through the dialog's own runtime, whose front end is this one.
  dialog.Show(1);
  if (!dialog.Chosen()) return false;
  font = dialog.Choice();
  return true;
}

}  // namespace tui
