// The terminal, through curses: visual mode on and off, boxes and attributed
// rows, and key presses as Input values. This unit and terminal.cpp are the
// only ones that see the curses header.
//
// Visual mode is entered for each dialog and left when the last one closes,
// so between dialogs the terminal is in its normal line mode and a prompt can
// use plain standard input and output. Entries nest: a message box over a
// dialog keeps the terminal in visual mode. Drawing goes to a buffer that
// Show puts on the screen at once.
#pragma once

#include <memory>
#include <optional>

#include "tui/input.hpp"
#include "tui/layout.hpp"
#include "vb/text.hpp"

struct screen;

namespace tui {

class Terminal {
 public:
  Terminal();
  ~Terminal();
  Terminal(const Terminal&) = delete;
  Terminal& operator=(const Terminal&) = delete;

  // Visual mode for as long as a Scope lives. The first one starts curses on
  // standard input and output (throws forms::InputExhausted when there is no
  // usable terminal); the last one to end gives the terminal back.
  class Scope {
   public:
    explicit Scope(Terminal& terminal);
    ~Scope();
    Scope(const Scope&) = delete;
    Scope& operator=(const Scope&) = delete;

   private:
    Terminal* terminal_;
  };

  int Lines() const;
  int Columns() const;

  void Clear();
  // A box whose top row is a reversed title bar: `height` and `width` count
  // the border.
  void DrawBox(int top, int left, int height, int width, const vb::Text& title);
  // One row, cut to `max_width` cells.
  void DrawRow(int y, int x, const Row& row, int max_width);
  // A single cell, for marks on a border.
  void DrawMark(int y, int x, char16_t mark);
  // Where the cursor shows, or hidden.
  void PlaceCursor(std::optional<Caret> at);
  // Puts what was drawn on the screen.
  void Show();

  // Waits for the next press. Throws forms::InputExhausted when the terminal
  // gives no more input.
  Input Read();

 private:
  void Enter();
  void Leave();
  ::screen* screen_ = nullptr;
  int depth_ = 0;
  // Curses' handler of window-size changes, put aside in line mode: a signal
  // handler there would cut short the prompt's reads of standard input.
  struct SizeHandler;
  std::unique_ptr<SizeHandler> size_handler_;
};

}  // namespace tui
