// Sections: characters and words; lexing a line (statements, comments,
// continuations); reading one declaration; the scan; the member table.
#include "workbench/member_scan.hpp"

namespace workbench {
namespace {

using vb::Text;
using vb::TextView;

// --- Characters and words ---------------------------------------------------

bool IsBlank(char16_t c) { return c == u' ' || c == u'\t'; }
bool IsDigit(char16_t c) { return c >= u'0' && c <= u'9'; }
bool IsAsciiLetter(char16_t c) { return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z'); }
// Letters beyond ASCII are whatever the code page holds; treat all of them as
// identifier characters rather than guess at a locale.
bool IsIdentifierChar(char16_t c) {
  return IsAsciiLetter(c) || IsDigit(c) || c == u'_' || (c >= 0x80 && c != 0xA0);
}

char16_t FoldChar(char16_t c) {
  if (c >= u'A' && c <= u'Z') return static_cast<char16_t>(c + 32);
  if (c < 0xC0) return c;
  if (c <= 0xDE && c != 0xD7) return static_cast<char16_t>(c + 32);
  switch (c) {  // the upper-case letters Windows-1252 places in 0x80..0x9F
    case 0x0152:
    case 0x0160:
    case 0x017D:
      return static_cast<char16_t>(c + 1);
    case 0x0178:
      return 0x00FF;
    default:
      return c;
  }
}

// `word` is the keyword `lower` (given in lower case) in any case.
bool Is(TextView word, std::u16string_view lower) {
  if (word.size() != lower.size()) return false;
  for (std::size_t i = 0; i < word.size(); ++i) {
    if (FoldChar(word[i]) != lower[i]) return false;
  }
  return true;
}

// Reads words off one statement, left to right.
class Cursor {
 public:
  explicit Cursor(TextView text) : text_(text) {}

  // The next run of identifier characters (empty when something else comes).
  TextView Word() {
    SkipBlanks();
    const std::size_t start = pos_;
    while (pos_ < text_.size() && IsIdentifierChar(text_[pos_])) ++pos_;
    return text_.substr(start, pos_ - start);
  }
  // A name: a word, or "[any text]" as the language allows for names that
  // clash with keywords; a type character after it is not part of it.
  TextView Name() {
    SkipBlanks();
    if (pos_ < text_.size() && text_[pos_] == u'[') {
      const std::size_t close = text_.find(u']', pos_ + 1);
      if (close == TextView::npos) return {};
      const TextView name = text_.substr(pos_ + 1, close - pos_ - 1);
      pos_ = close + 1;
      return name;
    }
    return Word();
  }
  std::size_t Position() {
    SkipBlanks();
    return pos_;
  }
  TextView Rest() { return text_.substr(Position()); }
  bool AtEnd() { return Position() == text_.size(); }

 private:
  void SkipBlanks() {
    while (pos_ < text_.size() && IsBlank(text_[pos_])) ++pos_;
  }

  TextView text_;
  std::size_t pos_ = 0;
};

// --- Lexing a line ----------------------------------------------------------

// If a '#' at `hash` opens a date literal (#1/2/2000#, #12:30:00 PM#), the
// position after its closing '#', else 0. A '#' right after a word is a type
// character or a file number (x#, Print #1) and one at the start of a
// statement is a directive (#If); neither opens a literal.
std::size_t DateLiteralEnd(TextView text, std::size_t statement_start, std::size_t hash) {
  std::size_t before = hash;
  while (before > statement_start && IsBlank(text[before - 1])) --before;
  if (before == statement_start || IsIdentifierChar(text[before - 1])) return 0;
  for (std::size_t j = hash + 1; j < text.size(); ++j) {
    const char16_t c = text[j];
    if (c == u'#') return j > hash + 1 ? j + 1 : 0;
    if (!(IsAsciiLetter(c) || IsDigit(c) || c == u' ' || c == u'/' || c == u':' || c == u'.' ||
          c == u',' || c == u'-')) {
      return 0;
    }
  }
  return 0;
}

bool IsRemAt(TextView text, std::size_t i) {
  return text.size() - i >= 3 && Is(text.substr(i, 3), u"rem") &&
         (text.size() == i + 3 || !IsIdentifierChar(text[i + 3]));
}

struct LexEnd {
  bool in_string = false;   // the line ended inside an unclosed string
  bool in_comment = false;  // the line ended inside a comment
};

// Walks a line: calls on_statement(text, index) for each non-empty statement
// (split at ':' outside strings, blanks trimmed) and stops at a comment. A
// line that starts inside a comment (continued from the line before) is all
// comment.
template <typename OnStatement>
LexEnd Lex(TextView text, bool starts_in_comment, OnStatement&& on_statement) {
  if (starts_in_comment) return {false, true};
  int index = 0;
  std::size_t start = 0;
  auto emit = [&](std::size_t end) {
    while (end > start && IsBlank(text[end - 1])) --end;
    if (end > start) on_statement(text.substr(start, end - start), index++);
  };
  std::size_t i = 0;
  bool at_statement_start = true;
  while (i < text.size()) {
    if (at_statement_start) {
      while (i < text.size() && IsBlank(text[i])) ++i;
      start = i;
      at_statement_start = false;
      if (IsRemAt(text, i)) return {false, true};
      continue;
    }
    const char16_t c = text[i];
    if (c == u'"') {
      // A doubled quote inside a string closes and reopens it: same effect.
      const std::size_t close = text.find(u'"', i + 1);
      if (close == TextView::npos) {
        emit(text.size());
        return {true, false};
      }
      i = close + 1;
    } else if (c == u'\'') {
      emit(i);
      return {false, true};
    } else if (c == u':') {
      emit(i);
      ++i;
      at_statement_start = true;
    } else if (const std::size_t end = c == u'#' ? DateLiteralEnd(text, start, i) : 0; end != 0) {
      i = end;
    } else {
      ++i;
    }
  }
  emit(text.size());
  return {};
}

// Whether a physical line continues on the next one: it ends in " _" outside
// a string. That holds in a comment too, which then goes on in the next line.
// `cut` is where the line's own text ends (the '_').
bool Continues(TextView line, bool& in_comment, std::size_t& cut) {
  std::size_t end = line.size();
  while (end > 0 && IsBlank(line[end - 1])) --end;
  if (end < 2 || line[end - 1] != u'_' || !IsBlank(line[end - 2])) return false;
  const LexEnd lexed = Lex(line, in_comment, [](TextView, int) {});
  if (lexed.in_string) return false;
  in_comment = lexed.in_comment;
  cut = end - 1;
  return true;
}

// --- Reading one declaration --------------------------------------------------

// What one statement declares, if anything.
struct Declaration {
  enum class What { Nothing, Procedure, Single, VariableList, ConstantList };
  What what = What::Nothing;
  MemberKind kind = MemberKind::Sub;
  TextView name;  // Procedure and Single
  TextView list;  // the declarators of a variable or constant list
};

Declaration Read(TextView statement) {
  Cursor cursor(statement);
  bool declares_variables = false;  // Dim, Public, Private or Global seen
  std::size_t word_start = cursor.Position();
  TextView word = cursor.Word();
  for (;;) {
    if (Is(word, u"public") || Is(word, u"private") || Is(word, u"global")) {
      declares_variables = true;
    } else if (!Is(word, u"friend") && !Is(word, u"static")) {
      break;
    }
    word_start = cursor.Position();
    word = cursor.Word();
  }
  auto single = [&](Declaration::What what, MemberKind kind) {
    const TextView name = cursor.Name();
    return name.empty() ? Declaration{} : Declaration{what, kind, name, {}};
  };
  if (Is(word, u"sub")) return single(Declaration::What::Procedure, MemberKind::Sub);
  if (Is(word, u"function")) return single(Declaration::What::Procedure, MemberKind::Function);
  if (Is(word, u"property")) {
    const TextView which = cursor.Word();
    if (!Is(which, u"get") && !Is(which, u"let") && !Is(which, u"set")) return {};
    return single(Declaration::What::Procedure, MemberKind::Property);
  }
  if (Is(word, u"declare")) {
    TextView what = cursor.Word();
    if (Is(what, u"ptrsafe")) what = cursor.Word();
    if (!Is(what, u"sub") && !Is(what, u"function")) return {};
    return single(Declaration::What::Single, MemberKind::Declare);
  }
  if (Is(word, u"event")) return single(Declaration::What::Single, MemberKind::Event);
  if (Is(word, u"type")) return single(Declaration::What::Single, MemberKind::Type);
  if (Is(word, u"enum")) return single(Declaration::What::Single, MemberKind::Enum);
  if (Is(word, u"const")) {
    return {Declaration::What::ConstantList, MemberKind::Constant, {}, cursor.Rest()};
  }
  if (Is(word, u"dim")) {
    return {Declaration::What::VariableList, MemberKind::Variable, {}, cursor.Rest()};
  }
  if (declares_variables && !word.empty()) {
    // "Private x As Long", "Public WithEvents y As Form1": the list starts here.
    return {
        Declaration::What::VariableList, MemberKind::Variable, {}, statement.substr(word_start)};
  }
  return {};
}

// Calls on_name(name) for each declarator of "a, b(1 To 2, 3) As Long, c$":
// commas inside parentheses, strings and date literals do not separate.
template <typename OnName>
void ForEachDeclarator(TextView list, OnName&& on_name) {
  auto take = [&](TextView declarator) {
    Cursor cursor(declarator);
    TextView name = cursor.Name();
    if (Is(name, u"withevents")) name = cursor.Name();
    if (!name.empty()) on_name(name);
  };
  int depth = 0;
  std::size_t start = 0;
  std::size_t i = 0;
  while (i < list.size()) {
    const char16_t c = list[i];
    if (c == u'"') {
      const std::size_t close = list.find(u'"', i + 1);
      i = close == TextView::npos ? list.size() : close + 1;
      continue;
    }
    if (c == u'#') {
      if (const std::size_t end = DateLiteralEnd(list, start, i); end != 0) {
        i = end;
        continue;
      }
    }
    if (c == u'(') {
      ++depth;
    } else if (c == u')') {
      if (depth > 0) --depth;
    } else if (c == u',' && depth == 0) {
      take(list.substr(start, i - start));
      start = i + 1;
    }
    ++i;
  }
  take(list.substr(start));
}

// The statement is "End <keyword>" for a body of `kind`.
bool ClosesBody(TextView statement, MemberKind kind) {
  Cursor cursor(statement);
  if (!Is(cursor.Word(), u"end")) return false;
  const TextView word = cursor.Word();
  switch (kind) {
    case MemberKind::Sub:
      if (!Is(word, u"sub")) return false;
      break;
    case MemberKind::Function:
      if (!Is(word, u"function")) return false;
      break;
    case MemberKind::Property:
      if (!Is(word, u"property")) return false;
      break;
    case MemberKind::Type:
      if (!Is(word, u"type")) return false;
      break;
    case MemberKind::Enum:
      if (!Is(word, u"enum")) return false;
      break;
    default:
      return false;
  }
  return cursor.AtEnd();
}

// A line number in front of a statement ("10 End Sub") is not part of it.
TextView SkipLineNumber(TextView statement) {
  std::size_t i = 0;
  while (i < statement.size() && IsDigit(statement[i])) ++i;
  if (i == 0 || (i < statement.size() && !IsBlank(statement[i]))) return statement;
  while (i < statement.size() && IsBlank(statement[i])) ++i;
  return statement.substr(i);
}

// --- The scan ---------------------------------------------------------------

class Scanner {
 public:
  void LogicalLine(TextView text, std::int32_t line) {
    Lex(text, false, [&](TextView statement, int index) {
      Statement(index == 0 ? SkipLineNumber(statement) : statement, line);
    });
  }

  std::vector<ScannedMember> Take() { return std::move(members_); }

 private:
  void Statement(TextView statement, std::int32_t line) {
    if (in_body_) {
      if (ClosesBody(statement, body_kind_)) {
        OpenEnd() = line;
        in_body_ = false;
        return;
      }
      // Bodies hold no declarations; one that appears means the body before
      // it was never closed, and its member still counts.
      const Declaration declaration = Read(statement);
      if (declaration.what == Declaration::What::Procedure) AddProcedure(declaration, line);
      return;
    }
    const Declaration declaration = Read(statement);
    switch (declaration.what) {
      case Declaration::What::Nothing:
        return;
      case Declaration::What::Procedure:
        AddProcedure(declaration, line);
        return;
      case Declaration::What::Single:
        Add(declaration.name, declaration.kind, line);
        if (declaration.kind == MemberKind::Type || declaration.kind == MemberKind::Enum) {
          OpenBody(declaration.kind, members_.size() - 1, -1);
        }
        return;
      case Declaration::What::VariableList:
      case Declaration::What::ConstantList:
        ForEachDeclarator(declaration.list,
                          [&](TextView name) { Add(name, declaration.kind, line); });
        return;
    }
  }

  void Add(TextView name, MemberKind kind, std::int32_t line) {
    members_.push_back(ScannedMember{Text(name), kind, line, std::nullopt, {}});
  }

  void AddProcedure(const Declaration& declaration, std::int32_t line) {
    if (declaration.kind == MemberKind::Property) {
      const auto [it, inserted] = properties_.try_emplace(FoldCase(declaration.name), 0);
      if (!inserted) {
        auto& parts = members_[it->second].more_parts;
        parts.push_back(CodeExtent{line, std::nullopt});
        OpenBody(MemberKind::Property, it->second, static_cast<std::ptrdiff_t>(parts.size() - 1));
        return;
      }
      it->second = members_.size();
    }
    Add(declaration.name, declaration.kind, line);
    OpenBody(declaration.kind, members_.size() - 1, -1);
  }

  void OpenBody(MemberKind kind, std::size_t member, std::ptrdiff_t part) {
    in_body_ = true;
    body_kind_ = kind;
    open_member_ = member;
    open_part_ = part;
  }

  std::optional<std::int32_t>& OpenEnd() {
    ScannedMember& member = members_[open_member_];
    return open_part_ < 0 ? member.end_line
                          : member.more_parts[static_cast<std::size_t>(open_part_)].end_line;
  }

  std::vector<ScannedMember> members_;
  std::unordered_map<Text, std::size_t> properties_;  // folded name -> member
  bool in_body_ = false;
  MemberKind body_kind_ = MemberKind::Sub;
  std::size_t open_member_ = 0;
  std::ptrdiff_t open_part_ = -1;  // -1: the member itself, else an index in more_parts
};

}  // namespace

bool IsProcedure(MemberKind kind) {
  return kind == MemberKind::Sub || kind == MemberKind::Function || kind == MemberKind::Property;
}

std::string_view MemberKindName(MemberKind kind) {
  switch (kind) {
    case MemberKind::Sub:
      return "Sub";
    case MemberKind::Function:
      return "Function";
    case MemberKind::Property:
      return "Property";
    case MemberKind::Variable:
      return "Variable";
    case MemberKind::Constant:
      return "Constant";
    case MemberKind::Declare:
      return "Declare";
    case MemberKind::Event:
      return "Event";
    case MemberKind::Type:
      return "Type";
    case MemberKind::Enum:
      return "Enum";
  }
  return "?";
}

vb::Text FoldCase(vb::TextView name) {
  Text folded(name);
  for (char16_t& c : folded) c = FoldChar(c);
  return folded;
}

std::vector<ScannedMember> ScanMembers(std::span<const vb::Text> lines) {
  Scanner scanner;
  Text joined;
  std::size_t i = 0;
  while (i < lines.size()) {
    const auto first_line = static_cast<std::int32_t>(i + 1);
    bool in_comment = false;
    std::size_t cut = 0;
    if (!Continues(lines[i], in_comment, cut)) {
      scanner.LogicalLine(lines[i], first_line);
      ++i;
      continue;
    }
    // The '_' goes; the blank before it separates the joined parts.
    joined.assign(lines[i], 0, cut);
    ++i;
    while (i < lines.size()) {
      const Text& line = lines[i++];
      if (!Continues(line, in_comment, cut)) {
        joined += line;
        break;
      }
      joined.append(line, 0, cut);
    }
    scanner.LogicalLine(joined, first_line);
  }
  return scanner.Take();
}

MemberTable::MemberTable(std::span<const vb::Text> lines) : members_(ScanMembers(lines)) {
  by_folded_name_.reserve(members_.size());
  for (std::size_t i = 0; i < members_.size(); ++i) {
    by_folded_name_.try_emplace(FoldCase(members_[i].name), i);
  }
}

const ScannedMember* MemberTable::Find(vb::TextView name) const {
  const auto it = by_folded_name_.find(FoldCase(name));
  return it == by_folded_name_.end() ? nullptr : &members_[it->second];
}

}  // namespace workbench
