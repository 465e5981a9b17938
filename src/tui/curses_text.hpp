// What the two curses front ends of this folder share (the dialogs'
// terminal.cpp and the workbench's screen_terminal.cpp): text in curses'
// wide characters, span attributes as curses attributes, and reading one
// key the way both read them. Included only by those two files, the only
// ones that see <curses.h>.
#pragma once

#include <curses.h>

#include <optional>
#include <string>

#include "tui/canvas.hpp"
#include "vb/text.hpp"

namespace tui {

// How long an Esc waits for a letter that makes it Alt+letter, and for the
// rest of an arrow key's sequence.
inline constexpr int kEscapeMs = 60;

// A curses screen on the terminal, made current, in the modes both front
// ends read keys in: raw (Ctrl+C, Ctrl+Q, Ctrl+Z and Ctrl+Y are keys, not
// signals or flow control), no echo, key codes decoded. Null when there is
// no terminal.
SCREEN* OpenScreen();

// The UTF-16 text as curses' wide characters (a surrogate pair makes one).
std::wstring Wide(vb::TextView text);

attr_t CursesAttrs(unsigned attrs);

// One key as get_wch gives it: `code` is a key code when `is_key_code`, else
// a character.
struct WideKey {
  bool is_key_code = false;
  wint_t code = 0;
};

// Waits for the next key. A signal that interrupts the wait is no key; a
// read that fails again and again means the terminal is gone: nothing.
std::optional<WideKey> ReadKey();

// The key that follows an Esc soon enough to belong to it (Alt+letter, the
// rest of a sequence), or nothing after kEscapeMs: short enough that Esc
// alone feels immediate.
std::optional<WideKey> ReadAfterEscape();

}  // namespace tui
