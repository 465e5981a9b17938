// A code module as the IDE keeps it: numbered lines and the members (procedures,
// variables, constants, declarations, events) parsed from them.
//
// Lines count from 1. Members follow every edit at once. Every edit is reported
// to the module's edit listener (for traces) before the call returns.
//
// Added text is split at CR LF, LF or CR as the exact inverse of Lines: a text
// with n line ends gives n + 1 lines, so a line end at the very end gives an
// empty last line and an empty text one empty line. That way any text read
// with Lines becomes the same lines again -- all but the "" of an empty module,
// which is also the text of a module of one empty line and reads as that one.
// AddFromString appends after the last
// line (an empty module simply takes the lines); it does not look for the end of
// the declarations section. FromText reads a file's text instead: there a line
// end closes its line, so a final one adds no empty line and "" is no line.
//
// Cost: the text is one buffer (module_text.hpp), so reading lines is one
// copy and an edit moves the text after it once. The member table follows
// edits that delete whole procedures or add code at a top-level boundary
// without a new scan (member_scan.hpp says which); other edits have it
// scanned again on its next use.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "ide/object_model.hpp"
#include "vb/text.hpp"

namespace workbench {

// One edit of a module, as traces report it.
struct CodeEdit {
  enum class Op { DeleteLines, AddFromString, InsertLines, ReplaceAll };
  Op op;
  std::int32_t first = 0;  // first line affected
  std::int32_t count = 0;  // lines removed (DeleteLines) or added
  vb::Text text;           // text added, if any
};

class MemberTable;
struct CodeModuleState;

class CodeModule : public ide::CodeModule, public std::enable_shared_from_this<CodeModule> {
 public:
  // `lines` are the module's lines without line ends.
  CodeModule(vb::Text name, std::vector<vb::Text> lines);
  // Splits `text` at CR LF, LF or CR.
  static std::shared_ptr<CodeModule> FromText(vb::Text name, const vb::Text& text);

  const vb::Text& Name() const { return name_; }
  // A copy of every line, for writers and tests; Lines reads a range cheaply.
  std::vector<vb::Text> AllLines() const;

  // ide::CodeModule
  std::int32_t CountOfLines() const override;
  vb::Text Lines(std::int32_t first, std::int32_t count) const override;
  void DeleteLines(std::int32_t first, std::int32_t count) override;
  void AddFromString(const vb::Text& text) override;
  std::shared_ptr<ide::Members> Members() override;

  // Inserts lines before line `line` (CountOfLines()+1 appends): the IDE's
  // "add code" action. Fails (5) for a line outside 1..CountOfLines()+1.
  void InsertLines(std::int32_t line, const vb::Text& text);
  // Puts back lines an undo saved, as a whole; reported to no listener.
  void RestoreLines(const std::vector<vb::Text>& lines);

  // The members with their kinds and extents, for edits that remove code. The
  // table is a snapshot: it stays valid, and unchanged, after later edits
  // (the module then changes a copy of its own).
  std::shared_ptr<const MemberTable> ScannedMembers() const;

  using EditListener = std::function<void(const CodeModule&, const CodeEdit&)>;
  void SetEditListener(EditListener listener) { listener_ = std::move(listener); }

 private:
  void Report(CodeEdit::Op op, std::int32_t first, std::int32_t count, const vb::Text* text);

  vb::Text name_;
  // The text and the member table kept with it. Shared with the Members
  // collections handed out, which thus follow every edit.
  std::shared_ptr<CodeModuleState> state_;
  EditListener listener_;
};

}  // namespace workbench
