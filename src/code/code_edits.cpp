// Sections: reading lines (blanks, words, statements, continuations); the
// shape of a declaration; a member's own lines; the plan; renaming.
#include "code/code_edits.hpp"

#include <algorithm>
#include <array>
#include <span>
#include <string_view>
#include <vector>

namespace tessaly {
namespace {

using vb::Text;
using vb::TextView;
using Lower = std::u16string_view;  // a keyword given in lower case

// --- Reading lines ------------------------------------------------------------

bool IsBlankOrTab(char16_t c) { return c == u' ' || c == u'\t'; }

TextView StripBlanksAndTabs(TextView text) {
  while (!text.empty() && IsBlankOrTab(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsBlankOrTab(text.back())) text.remove_suffix(1);
  return text;
}

// Keywords are ASCII; code from elsewhere may write them in any case.
char16_t FoldAscii(char16_t c) {
  return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c + (u'a' - u'A')) : c;
}

bool StartsWithAnyCase(TextView text, Lower lower) {
  if (text.size() < lower.size()) return false;
  for (std::size_t i = 0; i < lower.size(); ++i) {
    if (FoldAscii(text[i]) != lower[i]) return false;
  }
  return true;
}

bool IsWord(TextView word, Lower lower) {
  return word.size() == lower.size() && StartsWithAnyCase(word, lower);
}

bool SameNameAnyCase(TextView a, TextView b) {
  return a.size() == b.size() &&
         std::equal(a.begin(), a.end(), b.begin(),
                    [](char16_t x, char16_t y) { return FoldAscii(x) == FoldAscii(y); });
}

// Letters beyond ASCII count as identifier characters, as the code page's
// letters do in names.
bool IsIdentifierChar(char16_t c) {
  return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || (c >= u'0' && c <= u'9') ||
         c == u'_' || c >= 0x80;
}

// Reads words off one statement, left to right.
class Words {
 public:
  explicit Words(TextView text) : text_(text) {}
  TextView Next() {
    while (pos_ < text_.size() && IsBlankOrTab(text_[pos_])) ++pos_;
    const std::size_t start = pos_;
    while (pos_ < text_.size() && IsIdentifierChar(text_[pos_])) ++pos_;
    return text_.substr(start, pos_ - start);
  }

 private:
  TextView text_;
  std::size_t pos_ = 0;
};

// The statements of a logical line, blanks and tabs stripped: split at ':'
// outside string literals, up to a comment.
std::vector<TextView> Statements(TextView line) {
  std::vector<TextView> statements;
  std::size_t start = 0;
  bool in_string = false;
  for (std::size_t i = 0; i <= line.size(); ++i) {
    const bool at_end = i == line.size();
    if (!at_end && line[i] == u'"') {
      in_string = !in_string;
      continue;
    }
    if (!at_end && (in_string || (line[i] != u':' && line[i] != u'\''))) continue;
    if (const TextView s = StripBlanksAndTabs(line.substr(start, i - start)); !s.empty()) {
      statements.push_back(s);
    }
    if (at_end || line[i] == u'\'') break;
    start = i + 1;
  }
  return statements;
}

// Where the '_' of a line that goes on in the next one stands (the line ends
// in a blank or tab, then '_'), or npos.
std::size_t ContinuationCut(TextView line) {
  std::size_t end = line.size();
  while (end > 0 && IsBlankOrTab(line[end - 1])) --end;
  if (end >= 2 && line[end - 1] == u'_' && IsBlankOrTab(line[end - 2])) return end - 1;
  return TextView::npos;
}

// The usual closing line of a Sub, as the dialog has always looked for it:
// blanks stripped (tabs are kept), then "End Sub" exactly.
bool IsEndSubLine(const Text& line) { return vb::Left(vb::Trim(line), 7) == u"End Sub"; }

// --- The shape of a declaration ---------------------------------------------------

constexpr std::array<Lower, 3> kProcedureClosers = {u"end sub", u"end function", u"end property"};
constexpr std::array<Lower, 1> kTypeCloser = {u"end type"};
constexpr std::array<Lower, 1> kEnumCloser = {u"end enum"};

struct Shape {
  // One-line members end with their declaration; the others with a line
  // that begins with one of `closers`.
  bool one_line = false;
  std::span<const Lower> closers;
};

bool IsModifier(TextView word) {
  return IsWord(word, u"public") || IsWord(word, u"private") || IsWord(word, u"friend") ||
         IsWord(word, u"static") || IsWord(word, u"global");
}

bool IsProcedureWord(TextView word) {
  return IsWord(word, u"sub") || IsWord(word, u"function") || IsWord(word, u"property");
}

// "End Sub", "End Function" or "End Property" as a statement of its own.
bool ClosesProcedure(TextView statement) {
  Words words(statement);
  return IsWord(words.Next(), u"end") && IsProcedureWord(words.Next());
}

Shape ShapeOf(TextView logical_line) {
  const std::vector<TextView> statements = Statements(logical_line);
  // A comment or blank line where the member begins: its end can only be a
  // closing line.
  if (statements.empty()) return {false, kProcedureClosers};
  Words words(statements.front());
  TextView word = words.Next();
  bool modified = false;
  while (IsModifier(word)) {
    modified = true;
    word = words.Next();
  }
  if (IsProcedureWord(word)) {
    const bool closed_here = std::any_of(statements.begin() + 1, statements.end(), ClosesProcedure);
    return {closed_here, kProcedureClosers};
  }
  if (IsWord(word, u"type")) return {false, kTypeCloser};
  if (IsWord(word, u"enum")) return {false, kEnumCloser};
  if (IsWord(word, u"dim") || IsWord(word, u"const") || IsWord(word, u"declare") ||
      IsWord(word, u"event") || (modified && !word.empty())) {
    return {true, {}};
  }
  // Something else: only a closing line can say where it ends.
  return {false, kProcedureClosers};
}

// --- A member's own lines --------------------------------------------------------

// Reads a module's lines within a member's region, which ends at `bound`.
class Region {
 public:
  Region(ide::CodeModule& module, std::int32_t bound) : module_(module), bound_(bound) {}

  std::int32_t Bound() const { return bound_; }
  Text Line(std::int32_t line) const { return module_.Lines(line, 1); }

  // The declaration that begins at `first`, continuation lines joined (each
  // '_' dropped, the blank before it kept), and its last physical line.
  Text Declaration(std::int32_t first, std::int32_t& last) const {
    Text joined;
    last = first;
    for (;;) {
      const Text line = Line(last);
      const std::size_t cut = ContinuationCut(line);
      if (cut == TextView::npos || last >= bound_) {
        joined += line;
        return joined;
      }
      joined.append(line, 0, cut);
      ++last;
    }
  }

  // The last line of the declaration or block that begins at `first`: the
  // declaration's own last line for a one-line member, else the first line
  // after it that begins with a closer. None when the region has no such line.
  std::optional<std::int32_t> End(std::int32_t first) const {
    std::int32_t declaration_last = first;
    const Shape shape = ShapeOf(Declaration(first, declaration_last));
    if (shape.one_line) return declaration_last;
    for (std::int32_t line = declaration_last + 1; line <= bound_; ++line) {
      const Text text = Line(line);
      const TextView stripped = StripBlanksAndTabs(text);
      for (const Lower closer : shape.closers) {
        if (StartsWithAnyCase(stripped, closer)) return line;
      }
    }
    return std::nullopt;
  }

 private:
  ide::CodeModule& module_;
  std::int32_t bound_;
};

// Whether the line declares a Property procedure called `name` (any case).
bool DeclaresPropertyNamed(TextView line, TextView name) {
  const std::vector<TextView> statements = Statements(line);
  if (statements.empty()) return false;
  Words words(statements.front());
  TextView word = words.Next();
  while (IsModifier(word)) word = words.Next();
  if (!IsWord(word, u"property")) return false;
  const TextView which = words.Next();
  if (!IsWord(which, u"get") && !IsWord(which, u"let") && !IsWord(which, u"set")) return false;
  return SameNameAnyCase(words.Next(), name);
}

// Where the member ends when it has no "End Sub" of its own; for a Property,
// the end of the last of its procedures in the region.
std::optional<std::int32_t> OwnEnd(const Region& region, std::int32_t first,
                                   const Text& member_name) {
  std::optional<std::int32_t> end = region.End(first);
  if (!end) return std::nullopt;
  std::int32_t declaration_last = first;
  if (!DeclaresPropertyNamed(region.Declaration(first, declaration_last), member_name)) {
    return end;
  }
  // An IDE that lists a Property's Get and Let as one member puts the Let in
  // this member's region; it is the member's text as much as the Get.
  for (std::int32_t line = *end + 1; line <= region.Bound(); ++line) {
    if (!DeclaresPropertyNamed(region.Declaration(line, declaration_last), member_name)) continue;
    const std::optional<std::int32_t> part_end = region.End(line);
    if (!part_end) break;
    end = part_end;
    line = *part_end;
  }
  return end;
}

}  // namespace

vb::Text DescribeNoRemoval(NoRemoval reason) {
  switch (reason) {
    case NoRemoval::MemberGone:
      return u"The member is no longer in the code.";
    case NoRemoval::NoClosingLine:
      return u"The member's closing line was not found before the next member or the end of "
             u"the code, so its code was left in place.";
    case NoRemoval::SharedLine:
      return u"The member is declared on the same line as another member, so the line was left "
             u"in place.";
  }
  return u"The member's code was left in place.";
}

RemovalPlan PlanMemberRemoval(ide::CodeModule& module, const vb::Text& member_name) {
  const std::shared_ptr<ide::Members> members = module.Members();
  if (!members) throw vb::Failure::Of(vb::kObjectNotSet);
  const std::shared_ptr<ide::Member> member = members->Item(member_name);
  if (!member) return NoRemoval::MemberGone;
  const Text name = member->Name();
  const std::int32_t first = member->CodeLocation();

  // The member's region ends before the next member begins.
  std::int32_t bound = module.CountOfLines();
  for (const auto& other : members->All()) {
    const std::int32_t at = other->CodeLocation();
    if (at > first) {
      bound = std::min(bound, at - 1);
    } else if (at == first && other->Name() != name) {
      return NoRemoval::SharedLine;
    }
  }

  // The usual rule; the declaration line itself is not tested.
  for (std::int32_t last = first + 1; last <= bound; ++last) {
    if (IsEndSubLine(module.Lines(last, 1))) return LineRange{first, last};
  }
  const std::optional<std::int32_t> end = OwnEnd(Region(module, bound), first, name);
  if (!end) return NoRemoval::NoClosingLine;
  return LineRange{first, *end};
}

bool ApplyRemoval(ide::CodeModule& module, const RemovalPlan& plan) {
  const auto* lines = std::get_if<LineRange>(&plan);
  if (lines == nullptr) return false;
  module.DeleteLines(lines->first, lines->Count());
  return true;
}

vb::Text RenamedText(vb::TextView text, vb::TextView old_name, vb::TextView new_name) {
  return vb::Replace(text, old_name, new_name);
}

std::optional<vb::Failure> RenameInModule(ide::CodeModule& module, const vb::Text& old_name,
                                          const vb::Text& new_name) {
  const std::int32_t count = module.CountOfLines();
  if (count == 0) return std::nullopt;
  const Text original = module.Lines(1, count);
  const Text renamed = RenamedText(original, old_name, new_name);
  module.DeleteLines(1, module.CountOfLines());
  try {
    module.AddFromString(renamed);
    return std::nullopt;
  } catch (const vb::Failure& failure) {
    // The module is cleared and the renamed text may be half in: put the
    // original back so that no code is lost. A failure here passes on.
    if (const std::int32_t left = module.CountOfLines(); left != 0) module.DeleteLines(1, left);
    module.AddFromString(original);
    return failure;
  }
}

}  // namespace tessaly
