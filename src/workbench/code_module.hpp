// A code module as the IDE keeps it: numbered lines and the members (procedures,
// variables, constants, declarations, events) parsed from them.
//
// Lines count from 1. Members follow every edit at once. Every edit is reported
// to the module's edit listener (for traces) before the call returns.
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
  std::int32_t first = 0;   // first line affected
  std::int32_t count = 0;   // lines removed (DeleteLines) or added
  vb::Text text;            // text added, if any
};

class CodeModule : public ide::CodeModule, public std::enable_shared_from_this<CodeModule> {
 public:
  // `lines` are the module's lines without line ends.
  CodeModule(vb::Text name, std::vector<vb::Text> lines);
  // Splits `text` at CR LF, LF or CR.
  static std::shared_ptr<CodeModule> FromText(vb::Text name, const vb::Text& text);

  const vb::Text& Name() const { return name_; }
  const std::vector<vb::Text>& AllLines() const { return lines_; }

  // ide::CodeModule
  std::int32_t CountOfLines() const override;
  vb::Text Lines(std::int32_t first, std::int32_t count) const override;
  void DeleteLines(std::int32_t first, std::int32_t count) override;
  void AddFromString(const vb::Text& text) override;
  std::shared_ptr<ide::Members> Members() override;

  // Inserts lines before line `line` (CountOfLines()+1 appends): the IDE's
  // "add code" action.
  void InsertLines(std::int32_t line, const vb::Text& text);

  using EditListener = std::function<void(const CodeModule&, const CodeEdit&)>;
  void SetEditListener(EditListener listener) { listener_ = std::move(listener); }

 private:
  vb::Text name_;
  std::vector<vb::Text> lines_;
  EditListener listener_;
  // Members cache, rebuilt lazily after an edit.
  mutable std::shared_ptr<void> members_cache_;
};

}  // namespace workbench
