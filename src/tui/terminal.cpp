// Curses behind the Terminal class: starting and pausing visual mode, drawing
// attributed text and decoding key presses.
#include "tui/terminal.hpp"

#include <algorithm>
#include <cctype>
#include <csignal>
#include <cstdio>
#include <string>

#include <sys/ioctl.h>
#include <unistd.h>

#include "forms/frontend.hpp"
#include "tui/curses_text.hpp"

namespace tui {
namespace {

constexpr int kCtrlQ = 17;
constexpr int kEscape = 27;

Input FromKeyCode(wint_t code) {
  switch (code) {
    case KEY_UP:
      return Input::Pressed(forms::Key::Up);
    case KEY_DOWN:
      return Input::Pressed(forms::Key::Down);
    case KEY_LEFT:
      return Input::Pressed(forms::Key::Left);
    case KEY_RIGHT:
      return Input::Pressed(forms::Key::Right);
    case KEY_HOME:
      return Input::Pressed(forms::Key::Home);
    case KEY_END:
      return Input::Pressed(forms::Key::End);
    case KEY_DC:
      return Input::Pressed(forms::Key::Delete);
    case KEY_BACKSPACE:
      return Input::Pressed(forms::Key::Backspace);
    case KEY_BTAB:
      return Input::Pressed(forms::Key::ShiftTab);
    case KEY_ENTER:
      return Input::Pressed(forms::Key::Enter);
    case KEY_RESIZE:
      return {Input::Type::Resize};
    default:
      if (code == static_cast<wint_t>(KEY_F(10))) return Input::CloseBox();
      return {};
  }
}

Input FromChar(wint_t c) {
  switch (c) {
    case '\t':
      return Input::Pressed(forms::Key::Tab);
    case '\n':
    case '\r':
      return Input::Pressed(forms::Key::Enter);
    case 8:
    case 127:
      return Input::Pressed(forms::Key::Backspace);
    case kCtrlQ:
      return Input::CloseBox();
    default:
      break;
  }
  if (c < 0x20 || c > 0xFFFF) return {};
  return Input::Typed(static_cast<char16_t>(c));
}

}  // namespace

struct Terminal::SizeHandler {
  struct sigaction action {};
};

Terminal::Terminal() = default;

Terminal::~Terminal() {
  if (!screen_) return;
  if (depth_ > 0) endwin();
  delscreen(screen_);
}

Terminal::Scope::Scope(Terminal& terminal) : terminal_(&terminal) { terminal_->Enter(); }
Terminal::Scope::~Scope() { terminal_->Leave(); }

void Terminal::Enter() {
  if (depth_++ > 0) return;
  if (!screen_) {
    screen_ = OpenScreen();
    if (!screen_) {
      depth_ = 0;
      throw forms::InputExhausted("no terminal to show the dialog on (is TERM set?)");
    }
  } else {
    // Back from line mode: curses restores its own modes and its handler of
    // size changes, learns the size the terminal has now, and repaints.
    // Another curses screen (the workbench's) may have been current since.
    set_term(screen_);
    if (size_handler_) sigaction(SIGWINCH, &size_handler_->action, nullptr);
    size_handler_.reset();
    reset_prog_mode();
    winsize size{};
    if (ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_row > 0 && size.ws_col > 0)
      resize_term(size.ws_row, size.ws_col);
    clearok(curscr, TRUE);
  }
}

void Terminal::Leave() {
  if (--depth_ > 0) return;
  depth_ = 0;
  if (!screen_) return;
  endwin();
  std::fflush(stdout);
  // Size changes are the default's business (nothing) until visual mode is
  // back.
  auto handler = std::make_unique<SizeHandler>();
  struct sigaction none {};
  none.sa_handler = SIG_DFL;
  sigemptyset(&none.sa_mask);
  if (sigaction(SIGWINCH, &none, &handler->action) == 0) size_handler_ = std::move(handler);
}

int Terminal::Lines() const { return LINES; }
int Terminal::Columns() const { return COLS; }

void Terminal::Clear() { erase(); }

void Terminal::DrawBox(int top, int left, int height, int width, const vb::Text& title) {
  const int bottom = top + height - 1;
  const int right = left + width - 1;
  attrset(A_NORMAL);
  for (int y = top + 1; y < bottom; ++y) mvhline(y, left, ' ', width);
  mvvline(top + 1, left, ACS_VLINE, height - 2);
  mvvline(top + 1, right, ACS_VLINE, height - 2);
  mvaddch(bottom, left, ACS_LLCORNER);
  mvhline(bottom, left + 1, ACS_HLINE, width - 2);
  mvaddch(bottom, right, ACS_LRCORNER);
  attrset(A_REVERSE);
  mvhline(top, left, ' ', width);
  const std::wstring caption = Wide(title);
  const int shown = std::min(static_cast<int>(caption.size()), width - 2);
  attrset(A_REVERSE | A_BOLD);
  mvaddnwstr(top, left + (width - shown) / 2, caption.c_str(), shown);
  attrset(A_NORMAL);
}

void Terminal::DrawRow(int y, int x, const Row& row, int max_width) {
  int room = max_width;
  for (const Span& span : row.spans) {
    if (room <= 0) break;
    const std::wstring text = Wide(span.text);
    const int n = std::min(static_cast<int>(text.size()), room);
    attrset(CursesAttrs(span.attrs));
    mvaddnwstr(y, x, text.c_str(), n);
    x += n;
    room -= n;
  }
  attrset(A_NORMAL);
}

void Terminal::DrawMark(int y, int x, char16_t mark) {
  const wchar_t text[2] = {static_cast<wchar_t>(mark), 0};
  attrset(A_BOLD);
  mvaddnwstr(y, x, text, 1);
  attrset(A_NORMAL);
}

void Terminal::PlaceCursor(std::optional<Caret> at) {
  if (at) {
    curs_set(1);
    move(at->row, at->column);
  } else {
    curs_set(0);
  }
}

void Terminal::Show() { refresh(); }

Input Terminal::Read() {
  while (const auto key = ReadKey()) {
    if (key->is_key_code || key->code != kEscape) {
      const Input input = key->is_key_code ? FromKeyCode(key->code) : FromChar(key->code);
      if (input.type != Input::Type::None) return input;
      continue;
    }
    // Esc then a letter soon after is how terminals send Alt+letter.
    const auto next = ReadAfterEscape();
    if (next && !next->is_key_code && next->code < 0x80 &&
        std::isalnum(static_cast<int>(next->code)))
      return Input::AltLetter(static_cast<char16_t>(next->code));
    if (next && next->is_key_code) ungetch(static_cast<int>(next->code));
    if (next && !next->is_key_code) unget_wch(static_cast<wchar_t>(next->code));
    return Input::Pressed(forms::Key::Escape);
  }
  throw forms::InputExhausted("the terminal gives no more input");
}

}  // namespace tui
