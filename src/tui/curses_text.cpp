#include "tui/curses_text.hpp"

#include <cerrno>
#include <clocale>
#include <cstdio>

namespace tui {
namespace {

// A read that fails this often in a row means the terminal is gone.
constexpr int kFailedReads = 8;

}  // namespace

SCREEN* OpenScreen() {
  // Only the character type: numbers keep the C locale's decimal point.
  std::setlocale(LC_CTYPE, "");
  SCREEN* screen = newterm(nullptr, stdout, stdin);
  if (!screen) return nullptr;
  set_term(screen);
  raw();
  noecho();
  nonl();
  keypad(stdscr, TRUE);
  set_escdelay(kEscapeMs);
  return screen;
}

std::wstring Wide(vb::TextView text) {
  std::wstring out;
  out.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    char32_t c = text[i];
    if (c >= 0xD800 && c < 0xDC00 && i + 1 < text.size() && text[i + 1] >= 0xDC00 &&
        text[i + 1] < 0xE000) {
      c = 0x10000 + ((c - 0xD800) << 10) + (text[i + 1] - 0xDC00);
      ++i;
    }
    out.push_back(static_cast<wchar_t>(c));
  }
  return out;
}

attr_t CursesAttrs(unsigned attrs) {
  attr_t a = A_NORMAL;
  if (attrs & kReverse) a |= A_REVERSE;
  if (attrs & kBold) a |= A_BOLD;
  if (attrs & kDim) a |= A_DIM;
  if (attrs & kUnderline) a |= A_UNDERLINE;
  return a;
}

std::optional<WideKey> ReadKey() {
  for (int failed = 0; failed < kFailedReads;) {
    wint_t c = 0;
    errno = 0;
    const int got = get_wch(&c);
    if (got != ERR) return WideKey{got == KEY_CODE_YES, c};
    if (errno != EINTR) ++failed;
  }
  return std::nullopt;
}

std::optional<WideKey> ReadAfterEscape() {
  timeout(kEscapeMs);
  wint_t next = 0;
  const int got = get_wch(&next);
  timeout(-1);
  if (got == ERR) return std::nullopt;
  return WideKey{got == KEY_CODE_YES, next};
}

}  // namespace tui
