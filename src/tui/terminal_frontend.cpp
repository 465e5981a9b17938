// The terminal front end's loops: each dialog, message box and font service
// draws everything that is shown, waits for one press, hands it on, and
// draws again, until it closes.
#include "tui/terminal_frontend.hpp"

#include <algorithm>

#include "forms/form.hpp"
#include "tui/font_dialog.hpp"
#include "tui/form_picture.hpp"
#include "tui/input.hpp"
#include "tui/layout.hpp"
#include "tui/terminal.hpp"

namespace tui {
namespace {

constexpr int kMessageWidth = 70;
// Rows a message box needs besides its content: title bar, a blank row, the
// bottom border.
constexpr int kMessageFrame = 3;

constexpr const char16_t* kMessageHint = u"Left/Right choose  Enter answer  Esc cancel";

}  // namespace

TerminalFrontend::TerminalFrontend(forms::FontCatalog& fonts)
    : terminal_(std::make_unique<Terminal>()),
      fonts_(&fonts),
      font_runtime_(*this, no_settings_, u"Font") {}

TerminalFrontend::~TerminalFrontend() = default;

void TerminalFrontend::DrawHint(const vb::Text& hint) {
  // Blanks to the end of the line cover the dialog's hint underneath.
  vb::Text line = hint;
  line.resize(std::max(line.size(), static_cast<std::size_t>(terminal_->Columns())), u' ');
  Row row;
  row.spans.push_back({line, kDim});
  terminal_->DrawRow(terminal_->Lines() - 1, 0, row, terminal_->Columns());
}

void TerminalFrontend::DrawForms() {
  Terminal& t = *terminal_;
  t.Clear();
  const Screen screen = ComposeScreen(shown_, t.Lines(), t.Columns(), scroll_);
  for (int y = 0; y < screen.canvas.Rows(); ++y)
    t.DrawRow(y, 0, screen.canvas.RowAt(y), t.Columns());
  caret_ = screen.caret;
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
  FontDialog dialog(font_runtime_, *fonts_, font);
  // Shown through the dialog's own runtime, whose front end is this one.
  dialog.Show(1);
  if (!dialog.Chosen()) return false;
  font = dialog.Choice();
  return true;
}

}  // namespace tui
