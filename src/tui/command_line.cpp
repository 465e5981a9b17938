// Readline's callback interface with its input, output and redisplay turned
// to the screen.
#include "tui/command_line.hpp"

#include <readline/history.h>
#include <readline/readline.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <sstream>

namespace tui {
namespace {

CommandLine* current = nullptr;
// Readline prints its prompt and a new line when a line ends; the screen
// draws both itself.
std::FILE* silent = nullptr;

// The screen redraws the line from Text() and Cursor().
void NoRedisplay() {}

}  // namespace

CommandLine::CommandLine(Completer completer) : completer_(std::move(completer)) {
  current = this;
  if (!silent) silent = std::fopen("/dev/null", "w");
  rl_readline_name = "tessaly";
  rl_outstream = silent;
  rl_catch_signals = 0;
  rl_catch_sigwinch = 0;
  rl_change_environment = 0;
  rl_prep_term_function = nullptr;
  rl_deprep_term_function = nullptr;
  rl_redisplay_function = NoRedisplay;
  rl_getc_function = [](std::FILE*) -> int {
    if (current->next_ >= current->pending_.size()) return EOF;
    return static_cast<unsigned char>(current->pending_[current->next_++]);
  };
  rl_input_available_hook = [] { return current->next_ < current->pending_.size() ? 1 : 0; };
  rl_attempted_completion_function = Complete;
  rl_completion_display_matches_hook = Display;
  // Quotes a control's caption or a menu entry may need.
  rl_completer_quote_characters = "\"";
  rl_variable_bind("bell-style", "none");
  using_history();
  rl_callback_handler_install("", Accept);
}

CommandLine::~CommandLine() {
  rl_callback_handler_remove();
  current = nullptr;
}

std::optional<CommandLine::Ended> CommandLine::Feed(const std::string& bytes) {
  candidates_.clear();
  ended_.reset();
  pending_ = bytes;
  next_ = 0;
  while (next_ < pending_.size() && !ended_) rl_callback_read_char();
  return std::move(ended_);
}

std::string CommandLine::Text() const { return rl_line_buffer ? rl_line_buffer : ""; }
int CommandLine::Cursor() const { return rl_point; }

void CommandLine::Accept(char* line) {
  if (!line) {
    current->ended_ = Ended{std::nullopt};
  } else {
    if (*line) add_history(line);
    current->ended_ = Ended{std::string(line)};
    std::free(line);
  }
}

char** CommandLine::Complete(const char* text, int start, int /*end*/) {
  rl_attempted_completion_over = 1;
  std::istringstream before(std::string(rl_line_buffer, static_cast<std::size_t>(start)));
  std::vector<std::string> words;
  for (std::string word; before >> word;) words.push_back(word);
  current->offered_ = current->completer_(words);
  return rl_completion_matches(text, Generate);
}

char* CommandLine::Generate(const char* text, int state) {
  static std::size_t at = 0;
  if (state == 0) at = 0;
  const std::size_t length = std::strlen(text);
  while (at < current->offered_.size()) {
    const std::string& word = current->offered_[at++];
    if (strncasecmp(word.c_str(), text, length) == 0) return strdup(word.c_str());
  }
  return nullptr;
}

void CommandLine::Display(char** matches, int count, int /*longest*/) {
  current->candidates_.clear();
  for (int i = 1; i <= count; ++i) current->candidates_.emplace_back(matches[i]);
}

}  // namespace tui
