#include "session/session_script.hpp"

#include <algorithm>
#include <cctype>
#include <map>
#include <stdexcept>

#include "vb/convert.hpp"
#include "vb/text.hpp"

namespace session {
namespace {

[[noreturn]] void Fail(const std::string& origin, const std::string& what) {
  throw std::runtime_error(origin + ": " + what);
}

void AppendUtf8(std::string& out, char32_t cp) {
  std::u16string one;
  if (cp >= 0x10000) {
    cp -= 0x10000;
    one.push_back(static_cast<char16_t>(0xD800 + (cp >> 10)));
    one.push_back(static_cast<char16_t>(0xDC00 + (cp & 0x3FF)));
  } else {
    one.push_back(static_cast<char16_t>(cp));
  }
  out += vb::ToUtf8(one);
}

// Reads a quoted text starting after its opening quote; `i` ends after the
// closing quote.
std::string ReadQuoted(const std::string& line, std::size_t& i, const std::string& origin) {
  std::string word;
  while (i < line.size()) {
    const char d = line[i++];
    if (d == '"') return word;
    if (d != '\\') {
      word.push_back(d);
      continue;
    }
    if (i >= line.size()) break;
    const char e = line[i++];
    switch (e) {
      case '"':
        word.push_back('"');
        break;
      case '\\':
        word.push_back('\\');
        break;
      case 'n':
        word.push_back('\n');
        break;
      case 'r':
        word.push_back('\r');
        break;
      case 't':
        word.push_back('\t');
        break;
      case 'u': {
        if (i + 4 > line.size()) Fail(origin, "\\u needs four hex digits");
        const std::string hex = line.substr(i, 4);
        i += 4;
        // Exactly four hex digits: no sign, no blank, nothing else.
        if (!std::all_of(hex.begin(), hex.end(),
                         [](unsigned char c) { return std::isxdigit(c) != 0; })) {
          Fail(origin, "bad \\u escape '\\u" + hex + "'");
        }
        AppendUtf8(word, static_cast<char32_t>(std::stoul(hex, nullptr, 16)));
        break;
      }
      default:
        Fail(origin, std::string("unknown escape '\\") + e + "'");
    }
  }
  Fail(origin, "text not closed by a double quote");
}

// Words are separated by blanks; a quoted text may stand alone or inside a
// word (name="Courier New").
std::vector<std::string> Tokenize(const std::string& line, const std::string& origin) {
  std::vector<std::string> words;
  std::size_t i = 0;
  while (i < line.size()) {
    const char c = line[i];
    if (c == ' ' || c == '\t' || c == '\r') {
      ++i;
      continue;
    }
    if (c == '#') break;
    std::string word;
    while (i < line.size() && line[i] != ' ' && line[i] != '\t' && line[i] != '\r') {
      if (line[i] == '"') {
        ++i;
        word += ReadQuoted(line, i, origin);
      } else {
        word.push_back(line[i++]);
      }
    }
    words.push_back(std::move(word));
  }
  return words;
}

const std::map<std::string, LineSort>& Verbs() {
  static const std::map<std::string, LineSort> verbs = {
      {"open", LineSort::Ide},           {"new-project", LineSort::Ide},
      {"new-form", LineSort::Ide},       {"form", LineSort::Ide},
      {"connect", LineSort::Ide},        {"disconnect", LineSort::Ide},
      {"menu", LineSort::Ide},           {"drop", LineSort::Ide},
      {"drop-exact", LineSort::Ide},     {"delete", LineSort::Ide},
      {"rename", LineSort::Ide},         {"set", LineSort::Ide},
      {"code", LineSort::Ide},           {"refuse", LineSort::Ide},
      {"store", LineSort::Ide},          {"unstore", LineSort::Ide},
      {"fonts", LineSort::Ide},          {"save", LineSort::Ide},
      {"undo", LineSort::Ide},           {"redo", LineSort::Ide},
      {"type", LineSort::User},          {"paste", LineSort::User},
      {"key", LineSort::User},           {"alt", LineSort::User},
      {"click", LineSort::User},         {"tick", LineSort::User},
      {"answer", LineSort::User},        {"font", LineSort::User},
      {"close", LineSort::User},         {"dump", LineSort::Inspection},
      {"state", LineSort::Inspection},   {"echo", LineSort::Inspection},
      {"listing", LineSort::Inspection}, {"mark", LineSort::Inspection},
  };
  return verbs;
}

forms::Key ParseKey(const std::string& name, const std::string& origin) {
  static const std::map<std::string, forms::Key> keys = {
      {"Tab", forms::Key::Tab},       {"Shift+Tab", forms::Key::ShiftTab},
      {"Enter", forms::Key::Enter},   {"Esc", forms::Key::Escape},
      {"Escape", forms::Key::Escape}, {"Backspace", forms::Key::Backspace},
      {"Delete", forms::Key::Delete}, {"Left", forms::Key::Left},
      {"Right", forms::Key::Right},   {"Up", forms::Key::Up},
      {"Down", forms::Key::Down},     {"Home", forms::Key::Home},
      {"End", forms::Key::End},       {"Space", forms::Key::Space},
  };
  const auto it = keys.find(name);
  if (it == keys.end()) Fail(origin, "unknown key '" + name + "'");
  return it->second;
}

void Need(const ScriptLine& line, std::size_t count, const char* usage) {
  if (line.args.size() != count) Fail(line.origin, std::string("usage: ") + usage);
}

}  // namespace

std::vector<ScriptLine> ParseScript(const std::string& text, const std::string& name) {
  std::vector<ScriptLine> lines;
  std::size_t start = 0;
  int number = 0;
  while (start <= text.size()) {
    std::size_t end = text.find('\n', start);
    if (end == std::string::npos) end = text.size();
    ++number;
    const std::string origin = name + ":" + std::to_string(number);
    std::string raw = text.substr(start, end - start);
    if (!raw.empty() && raw.back() == '\r') raw.pop_back();
    auto words = Tokenize(raw, origin);
    if (!words.empty()) {
      ScriptLine line{number, words.front(), {words.begin() + 1, words.end()}, origin, raw};
      SortOf(line);  // an unknown verb fails here, before anything runs
      lines.push_back(std::move(line));
    }
    start = end + 1;
  }
  return lines;
}

LineSort SortOf(const ScriptLine& line) {
  const auto it = Verbs().find(line.verb);
  if (it == Verbs().end()) Fail(line.origin, "unknown action '" + line.verb + "'");
  return it->second;
}

forms::UserAction ToUserAction(const ScriptLine& line) {
  using T = forms::UserAction::Type;
  forms::UserAction a;
  a.origin = line.origin;
  if (line.verb == "type" || line.verb == "paste") {
    Need(line, 1, "type \"TEXT\" | paste \"TEXT\"");
    a.type = line.verb == "type" ? T::Type : T::Paste;
    a.text = vb::FromUtf8(line.args[0]);
  } else if (line.verb == "key") {
    if (line.args.empty()) Fail(line.origin, "usage: key NAME [COUNT]");
    a.type = T::Key;
    a.key = ParseKey(line.args[0], line.origin);
  } else if (line.verb == "alt") {
    Need(line, 1, "alt LETTER");
    const vb::Text letter = vb::FromUtf8(line.args[0]);
    if (letter.size() != 1) Fail(line.origin, "alt takes one letter");
    a.type = T::AltKey;
    a.letter = letter[0];
  } else if (line.verb == "click") {
    Need(line, 1, "click CONTROL");
    a.type = T::Click;
    a.target = line.args[0];
  } else if (line.verb == "tick" && line.args.size() == 3) {
    // By the row's text, to a state: "tick lstMembers "Text1" on".
    a.type = T::CheckRow;
    a.target = line.args[0];
    a.text = vb::FromUtf8(line.args[1]);
    if (line.args[2] != "on" && line.args[2] != "off") {
      Fail(line.origin, "usage: tick LIST \"ROW TEXT\" on|off");
    }
    a.checked = line.args[2] == "on";
  } else if (line.verb == "tick") {
    Need(line, 2, "tick LIST ROW | tick LIST \"ROW TEXT\" on|off");
    a.type = T::TickRow;
    a.target = line.args[0];
    try {
      a.row = std::stoi(line.args[1]);
    } catch (const std::exception&) {
      Fail(line.origin, "row '" + line.args[1] + "' is no number");
    }
  } else if (line.verb == "answer") {
    Need(line, 1, "answer OK|Cancel|Yes|No|Abort|Retry|Ignore");
    a.type = T::Answer;
    a.answer = forms::MsgBoxResultFromName(line.args[0]);
    if (a.answer == 0) Fail(line.origin, "unknown answer '" + line.args[0] + "'");
  } else if (line.verb == "font") {
    if (line.args.empty()) Fail(line.origin, "usage: font cancel | font choose [name=...] ...");
    if (line.args[0] == "cancel") {
      a.type = T::FontCancel;
    } else if (line.args[0] == "choose") {
      a.type = T::FontChoose;
      for (std::size_t i = 1; i < line.args.size(); ++i) {
        const std::string& w = line.args[i];
        const bool off = !w.empty() && w[0] == '-';
        const std::string flag = off ? w.substr(1) : w;
        if (w.rfind("name=", 0) == 0) {
          a.font_name = vb::FromUtf8(w.substr(5));
        } else if (w.rfind("size=", 0) == 0) {
          try {
            a.font_size = vb::CSng(vb::FromUtf8(w.substr(5)));
          } catch (const vb::Failure&) {
            Fail(line.origin, "size '" + w.substr(5) + "' is no number");
          }
        } else if (flag == "bold") {
          a.font_bold = !off;
        } else if (flag == "italic") {
          a.font_italic = !off;
        } else if (flag == "underline") {
          a.font_underline = !off;
        } else if (flag == "strikethru") {
          a.font_strike_thru = !off;
        } else {
          Fail(line.origin, "unknown font word '" + w + "'");
        }
      }
    } else {
      Fail(line.origin, "font takes 'choose' or 'cancel'");
    }
  } else if (line.verb == "close") {
    Need(line, 0, "close");
    a.type = T::Close;
  } else {
    Fail(line.origin, "'" + line.verb + "' is no user action");
  }
  return a;
}

}  // namespace session
