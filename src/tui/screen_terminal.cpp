// Curses behind the workbench screen.
#include "tui/screen_terminal.hpp"

#include <sys/ioctl.h>
#include <unistd.h>

#include "forms/frontend.hpp"
#include "tui/curses_text.hpp"

namespace tui {
namespace {

constexpr wint_t kCtrlC = 3;
constexpr wint_t kCtrlY = 25;
constexpr wint_t kCtrlZ = 26;
constexpr wint_t kEscape = 27;

Press Only(Press::Kind kind) {
  Press press;
  press.kind = kind;
  return press;
}

std::string Utf8(wint_t c) { return vb::ToUtf8(vb::Text(1, static_cast<char16_t>(c))); }

// Curses decodes the terminal's sequences into key codes; readline binds the
// ANSI ones, so each editing key goes to it as that sequence.
Press FromKeyCode(wint_t code) {
  using N = Press::Nav;
  switch (code) {
    case KEY_UP:
      return {Press::Kind::Text, "\x1b[A", N::Up};
    case KEY_DOWN:
      return {Press::Kind::Text, "\x1b[B", N::Down};
    case KEY_RIGHT:
      return {Press::Kind::Text, "\x1b[C", N::Right};
    case KEY_LEFT:
      return {Press::Kind::Text, "\x1b[D", N::Left};
    case KEY_HOME:
      return {Press::Kind::Text, "\x1b[H", N::Home};
    case KEY_END:
      return {Press::Kind::Text, "\x1b[F", N::End};
    case KEY_DC:
      return {Press::Kind::Text, "\x1b[3~"};
    case KEY_BACKSPACE:
      return {Press::Kind::Text, "\x7f"};
    case KEY_ENTER:
      return {Press::Kind::Text, "\r", N::Enter};
    case KEY_PPAGE:
      return Only(Press::Kind::PageUp);
    case KEY_NPAGE:
      return Only(Press::Kind::PageDown);
    case KEY_RESIZE:
      return Only(Press::Kind::Resize);
    default:
      if (code == static_cast<wint_t>(KEY_F(2))) return Only(Press::Kind::Tree);
      if (code == static_cast<wint_t>(KEY_F(3))) return Only(Press::Kind::Menu);
      return Only(Press::Kind::Text);
  }
}

}  // namespace

ScreenTerminal::ScreenTerminal() {
  screen_ = OpenScreen();
  if (!screen_) throw forms::InputExhausted("no terminal for the workbench screen (is TERM set?)");
}

ScreenTerminal::~ScreenTerminal() {
  set_term(screen_);
  endwin();
  delscreen(screen_);
}

int ScreenTerminal::Lines() const { return LINES; }
int ScreenTerminal::Columns() const { return COLS; }

void ScreenTerminal::Paint(const ScreenPicture& picture) {
  erase();
  for (std::size_t y = 0; y < picture.rows.size(); ++y) {
    int x = 0;
    for (const Span& span : picture.rows[y].spans) {
      const std::wstring text = Wide(span.text);
      attrset(CursesAttrs(span.attrs));
      mvaddnwstr(static_cast<int>(y), x, text.c_str(), static_cast<int>(text.size()));
      x += static_cast<int>(text.size());
    }
  }
  attrset(A_NORMAL);
  curs_set(1);
  move(picture.caret.row, picture.caret.column);
  refresh();
}

Press ScreenTerminal::Read() {
  while (const auto key = ReadKey()) {
    const wint_t c = key->code;
    if (key->is_key_code) {
      Press press = FromKeyCode(c);
      if (press.kind != Press::Kind::Text || !press.bytes.empty()) return press;
      continue;
    }
    switch (c) {
      case kCtrlC:
        return Only(Press::Kind::Interrupt);
      case kCtrlZ:
        return Only(Press::Kind::Undo);
      case kCtrlY:
        return Only(Press::Kind::Redo);
      case '\r':
      case '\n':
        return {Press::Kind::Text, "\r", Press::Nav::Enter};
      case kEscape: {
        // Alt+key comes as Esc and the key: readline takes both.
        const auto next = ReadAfterEscape();
        if (next && !next->is_key_code) return {Press::Kind::Text, "\x1b" + Utf8(next->code)};
        if (next) ungetch(static_cast<int>(next->code));
        return {Press::Kind::Text, "\x1b", Press::Nav::Escape};
      }
      default:
        return {Press::Kind::Text, Utf8(c)};
    }
  }
  return Only(Press::Kind::Closed);
}

void ScreenTerminal::Pause() {
  def_prog_mode();
  endwin();
}

void ScreenTerminal::Resume() {
  set_term(screen_);
  reset_prog_mode();
  winsize size{};
  if (ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_row > 0 && size.ws_col > 0)
    resize_term(size.ws_row, size.ws_col);
  clearok(curscr, TRUE);
}

}  // namespace tui
