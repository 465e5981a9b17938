// The workbench screen's painter and keyboard, through curses: puts a
// composed screen on the terminal and reads key presses as readline wants
// them or as the screen's own keys. It pauses while the add-in's dialogs
// use the terminal and takes it back after.
#pragma once

#include <optional>
#include <string>

#include "tui/workbench_screen.hpp"

struct screen;

namespace tui {

struct Press {
  enum class Kind {
    Text,       // `bytes` for readline: a character or an editing key
    Tree,       // F2: the project tree takes the arrows
    Menu,       // F3: the Add-Ins menu takes the arrows
    PageUp,     // scroll the code
    PageDown,   //
    Interrupt,  // Ctrl+C
    Undo,       // Ctrl+Z
    Redo,       // Ctrl+Y
    Resize,     // draw again
    Closed,     // the terminal gives no more input
  };
  Kind kind = Kind::Text;
  std::string bytes;
  // The plain key the bytes stand for, where the tree and the menu use it.
  enum class Nav { None, Up, Down, Left, Right, Home, End, Enter, Escape } nav = Nav::None;
};

class ScreenTerminal {
 public:
  // Starts curses on standard input and output; throws forms::InputExhausted
  // when there is no usable terminal.
  ScreenTerminal();
  ~ScreenTerminal();
  ScreenTerminal(const ScreenTerminal&) = delete;
  ScreenTerminal& operator=(const ScreenTerminal&) = delete;

  int Lines() const;
  int Columns() const;
  void Paint(const ScreenPicture& picture);
  Press Read();

  // Gives the terminal back (for a dialog, or a question in line mode)
  // and takes it again.
  void Pause();
  void Resume();

 private:
  ::screen* screen_ = nullptr;
};

}  // namespace tui
