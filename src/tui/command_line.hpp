// The workbench screen's command line, edited by GNU readline through its
// callback interface: the screen hands it one key at a time and draws the
// line where the screen wants it, so readline never touches the terminal.
// It brings the usual editing keys, a history (Up and Down), and Tab
// completion of whatever the caller offers for the word being typed.
//
// Readline keeps one global state: one CommandLine may exist at a time.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace tui {

class CommandLine {
 public:
  // What may complete the word being typed, given the words before it.
  using Completer = std::function<std::vector<std::string>(const std::vector<std::string>&)>;

  explicit CommandLine(Completer completer);
  ~CommandLine();
  CommandLine(const CommandLine&) = delete;
  CommandLine& operator=(const CommandLine&) = delete;

  // Hands readline the bytes of one key press (a character in UTF-8 or a
  // terminal's escape sequence). Returns the line when the press ended it;
  // std::nullopt in `ended` when the press was Ctrl+D on an empty line.
  struct Ended {
    std::optional<std::string> line;
  };
  std::optional<Ended> Feed(const std::string& bytes);

  // The text typed so far and the cursor's byte offset in it.
  std::string Text() const;
  int Cursor() const;
  // The candidates of the last completion that was not unique, for the
  // screen to show; cleared by the next key.
  const std::vector<std::string>& Candidates() const { return candidates_; }

 private:
  static char** Complete(const char* text, int start, int end);
  static char* Generate(const char* text, int state);
  static void Display(char** matches, int count, int longest);
  static void Accept(char* line);

  Completer completer_;
  std::vector<std::string> candidates_;
  std::vector<std::string> offered_;
  std::optional<Ended> ended_;
  std::string pending_;
  std::size_t next_ = 0;
};

}  // namespace tui
