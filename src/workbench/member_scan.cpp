// Sections: characters and words; lexing a line (statements, comments,
// continuations); reading one declaration; the scan; the member table.
#include "workbench/member_scan.hpp"

#include <algorithm>
#include <bit>
#include <unordered_map>

namespace workbench {

// What a scan gives: the members, and where edits could be followed.
struct ScanOutcome {
  std::vector<ScannedMember> members;
  std::vector<std::uint8_t> top_level;  // as MemberTable::top_level_
};

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

  bool InBody() const { return in_body_; }
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

namespace {

// Scans `count` lines, line_at(i) giving line i (from 0) as a TextView.
template <typename LineAt>
ScanOutcome Scan(std::size_t count, LineAt&& line_at) {
  Scanner scanner;
  std::vector<std::uint8_t> top_level(count + 1, 0);
  bool ends_continued = false;
  Text joined;
  std::size_t i = 0;
  while (i < count) {
    top_level[i] = !scanner.InBody();
    const auto first_line = static_cast<std::int32_t>(i + 1);
    const TextView first = line_at(i);
    bool in_comment = false;
    std::size_t cut = 0;
    if (!Continues(first, in_comment, cut)) {
      scanner.LogicalLine(first, first_line);
      ++i;
      continue;
    }
    // The '_' goes; the blank before it separates the joined parts.
    joined.assign(first.substr(0, cut));
    ++i;
    ends_continued = true;
    while (i < count) {
      const TextView line = line_at(i++);
      if (!Continues(line, in_comment, cut)) {
        joined += line;
        ends_continued = false;
        break;
      }
      joined.append(line.substr(0, cut));
    }
    scanner.LogicalLine(joined, first_line);
  }
  // A last line that goes on would join whatever is added after it.
  top_level[count] = !scanner.InBody() && !ends_continued;
  return {scanner.Take(), std::move(top_level)};
}

ScanOutcome Scan(std::span<const vb::Text> lines) {
  return Scan(lines.size(), [&](std::size_t i) { return TextView(lines[i]); });
}

ScanOutcome Scan(const ModuleText& text) {
  return Scan(text.Count(), [&](std::size_t i) { return text.Line(i); });
}

// Moves a member's lines by `by`.
void Shift(ScannedMember& member, std::int32_t by) {
  member.line += by;
  if (member.end_line) *member.end_line += by;
  for (CodeExtent& part : member.more_parts) {
    part.line += by;
    if (part.end_line) *part.end_line += by;
  }
}

// Moves the further Property procedures of the members before an edit that
// stand after it (from line `from` on) by `by`: a Get before the edit keeps
// its place, its Let after the edit moves.
void ShiftLaterParts(std::span<ScannedMember> members, std::int32_t from, std::int32_t by) {
  for (ScannedMember& member : members) {
    for (CodeExtent& part : member.more_parts) {
      if (part.line < from) continue;
      part.line += by;
      if (part.end_line) *part.end_line += by;
    }
  }
}

// The first member declared at or after `line`.
std::vector<ScannedMember>::iterator FirstFrom(std::vector<ScannedMember>& members,
                                               std::int32_t line) {
  return std::partition_point(members.begin(), members.end(),
                              [&](const ScannedMember& m) { return m.line < line; });
}

}  // namespace

std::vector<ScannedMember> ScanMembers(std::span<const vb::Text> lines) {
  return Scan(lines).members;
}

MemberTable::MemberTable(std::span<const vb::Text> lines) { Take(Scan(lines)); }

MemberTable::MemberTable(const ModuleText& text) { Take(Scan(text)); }

void MemberTable::Take(ScanOutcome outcome) {
  members_ = std::move(outcome.members);
  top_level_ = std::move(outcome.top_level);
  names_.Build(members_);
  has_property_ = std::any_of(members_.begin(), members_.end(), [](const ScannedMember& m) {
    return m.kind == MemberKind::Property;
  });
}

const ScannedMember* MemberTable::Find(vb::TextView name) const {
  const std::size_t row = names_.Find(name, members_);
  return row == MemberNameIndex::kNone ? nullptr : &members_[row];
}

bool MemberTable::FollowDeletion(std::int32_t first, std::int32_t count) {
  if (count == 0) return true;
  const std::int32_t last = first + count - 1;
  const auto line_count = static_cast<std::int32_t>(top_level_.size() - 1);
  // Both ends of the deleted stretch are between top-level statements.
  if (!top_level_[static_cast<std::size_t>(first - 1)]) return false;
  if (last < line_count && !top_level_[static_cast<std::size_t>(last)]) return false;
  auto inside = [&](std::int32_t line) { return line >= first && line <= last; };
  for (std::size_t i = 0; has_property_ && i < members_.size(); ++i) {
    const ScannedMember& member = members_[i];
    if (member.kind != MemberKind::Property) continue;
    if (inside(member.line)) return false;
    for (const CodeExtent& part : member.more_parts) {
      if (inside(part.line)) return false;
    }
  }
  const auto gone = FirstFrom(members_, first);
  const auto kept = FirstFrom(members_, last + 1);
  names_.Remove(members_, static_cast<std::size_t>(gone - members_.begin()),
                static_cast<std::size_t>(kept - members_.begin()));
  for (auto it = kept; it != members_.end(); ++it) Shift(*it, -count);
  if (has_property_) ShiftLaterParts({members_.begin(), gone}, last + 1, -count);
  members_.erase(gone, kept);
  // The boundary after the stretch takes the place of the one before it.
  const auto from = top_level_.begin() + (first - 1);
  top_level_.erase(from, from + count);
  top_level_[static_cast<std::size_t>(first - 1)] = 1;
  return true;
}

bool MemberTable::FollowInsertion(const ModuleText& text, std::int32_t first, std::int32_t count) {
  if (count == 0) return true;
  if (!top_level_[static_cast<std::size_t>(first - 1)]) return false;
  ScanOutcome added = Scan(static_cast<std::size_t>(count), [&](std::size_t i) {
    return text.Line(static_cast<std::size_t>(first - 1) + i);
  });
  // What was added must close what it opens and declare no Property.
  if (!added.top_level.back()) return false;
  for (const ScannedMember& member : added.members) {
    if (member.kind == MemberKind::Property) return false;
  }
  const auto later = FirstFrom(members_, first);
  const auto at = static_cast<std::size_t>(later - members_.begin());
  for (auto it = later; it != members_.end(); ++it) Shift(*it, count);
  if (has_property_) ShiftLaterParts({members_.begin(), later}, first, count);
  for (ScannedMember& member : added.members) Shift(member, first - 1);
  members_.insert(later, std::make_move_iterator(added.members.begin()),
                  std::make_move_iterator(added.members.end()));
  names_.Insert(members_, at, added.members.size());
  added.top_level.pop_back();  // the same as the boundary that follows
  top_level_.insert(top_level_.begin() + (first - 1), added.top_level.begin(),
                    added.top_level.end());
  return true;
}

}  // namespace workbench
