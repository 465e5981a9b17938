#include "workbench/code_module.hpp"

#include <utility>

#include "vb/failure.hpp"
#include "workbench/member_scan.hpp"

namespace workbench {

// What a module and the Members collections it handed out share.
struct CodeModuleState {
  std::vector<vb::Text> lines;
  // Built on first use after an edit; null until then.
  std::shared_ptr<const MemberTable> table;
  std::vector<std::shared_ptr<ide::Member>> member_objects;  // one per table row

  void Invalidate() {
    table.reset();
    member_objects.clear();
  }
  const std::shared_ptr<const MemberTable>& Table() {
    if (!table) {
      table = std::make_shared<const MemberTable>(lines);
      member_objects.clear();
    }
    return table;
  }
  const std::vector<std::shared_ptr<ide::Member>>& MemberObjects();
};

namespace {

// A member as the IDE hands it out: what it was when the collection was read.
class ModuleMember : public ide::Member {
 public:
  ModuleMember(vb::Text name, std::int32_t location)
      : name_(std::move(name)), location_(location) {}
  vb::Text Name() const override { return name_; }
  std::int32_t CodeLocation() const override { return location_; }

 private:
  vb::Text name_;
  std::int32_t location_;
};

// A live view: every call reads the module's current text.
class ModuleMembers : public ide::Members {
 public:
  explicit ModuleMembers(std::shared_ptr<CodeModuleState> state) : state_(std::move(state)) {}

  std::vector<std::shared_ptr<ide::Member>> All() override { return state_->MemberObjects(); }

  std::shared_ptr<ide::Member> Item(const vb::Text& name) override {
    const auto& table = state_->Table();
    const ScannedMember* found = table->Find(name);
    if (found == nullptr) return nullptr;
    return state_->MemberObjects()[static_cast<std::size_t>(found - table->All().data())];
  }

 private:
  std::shared_ptr<CodeModuleState> state_;
};

bool IsLineEnd(char16_t c) { return c == u'\r' || c == u'\n'; }

// The pieces between line ends (CR LF, LF or CR): n line ends, n + 1 pieces.
std::vector<vb::Text> SplitAtLineEnds(const vb::Text& text) {
  std::vector<vb::Text> lines;
  std::size_t start = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (!IsLineEnd(text[i])) continue;
    lines.emplace_back(text, start, i - start);
    if (text[i] == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n') ++i;
    start = i + 1;
  }
  lines.emplace_back(text, start);
  return lines;
}

// Lines first..first+count-1 exist; count 0 is fine anywhere up to just past
// the last line.
bool InRange(std::int32_t first, std::int32_t count, std::size_t line_count) {
  return count >= 0 && first >= 1 &&
         static_cast<std::int64_t>(first) + count - 1 <= static_cast<std::int64_t>(line_count);
}

}  // namespace

const std::vector<std::shared_ptr<ide::Member>>& CodeModuleState::MemberObjects() {
  const auto& rows = Table()->All();
  if (member_objects.size() != rows.size()) {
    member_objects.clear();
    member_objects.reserve(rows.size());
    for (const ScannedMember& row : rows) {
      member_objects.push_back(std::make_shared<ModuleMember>(row.name, row.line));
    }
  }
  return member_objects;
}

CodeModule::CodeModule(vb::Text name, std::vector<vb::Text> lines)
    : name_(std::move(name)), state_(std::make_shared<CodeModuleState>()) {
  state_->lines = std::move(lines);
}

std::shared_ptr<CodeModule> CodeModule::FromText(vb::Text name, const vb::Text& text) {
  std::vector<vb::Text> lines = SplitAtLineEnds(text);
  // In a file a line end closes its line: the piece after the last one is
  // not a line of its own when it is empty.
  if (lines.back().empty()) lines.pop_back();
  return std::make_shared<CodeModule>(std::move(name), std::move(lines));
}

const std::vector<vb::Text>& CodeModule::AllLines() const { return state_->lines; }

std::int32_t CodeModule::CountOfLines() const {
  return static_cast<std::int32_t>(state_->lines.size());
}

vb::Text CodeModule::Lines(std::int32_t first, std::int32_t count) const {
  const auto& lines = state_->lines;
  if (!InRange(first, count, lines.size())) throw vb::Failure::Of(vb::kInvalidProcedureCall);
  vb::Text text;
  const auto begin = static_cast<std::size_t>(first - 1);
  for (std::size_t i = begin; i < begin + static_cast<std::size_t>(count); ++i) {
    if (i != begin) text += u"\r\n";
    text += lines[i];
  }
  return text;
}

void CodeModule::DeleteLines(std::int32_t first, std::int32_t count) {
  auto& lines = state_->lines;
  if (!InRange(first, count, lines.size())) throw vb::Failure::Of(vb::kInvalidProcedureCall);
  const auto begin = lines.begin() + (first - 1);
  lines.erase(begin, begin + count);
  Edited(CodeEdit{CodeEdit::Op::DeleteLines, first, count, {}});
}

void CodeModule::AddFromString(const vb::Text& text) {
  auto& lines = state_->lines;
  const auto first = static_cast<std::int32_t>(lines.size() + 1);
  std::vector<vb::Text> added = SplitAtLineEnds(text);
  const auto count = static_cast<std::int32_t>(added.size());
  lines.insert(lines.end(), std::make_move_iterator(added.begin()),
               std::make_move_iterator(added.end()));
  Edited(CodeEdit{CodeEdit::Op::AddFromString, first, count, text});
}

void CodeModule::InsertLines(std::int32_t line, const vb::Text& text) {
  auto& lines = state_->lines;
  if (!InRange(line, 0, lines.size())) throw vb::Failure::Of(vb::kInvalidProcedureCall);
  std::vector<vb::Text> added = SplitAtLineEnds(text);
  const auto count = static_cast<std::int32_t>(added.size());
  lines.insert(lines.begin() + (line - 1), std::make_move_iterator(added.begin()),
               std::make_move_iterator(added.end()));
  Edited(CodeEdit{CodeEdit::Op::InsertLines, line, count, text});
}

std::shared_ptr<ide::Members> CodeModule::Members() {
  return std::make_shared<ModuleMembers>(state_);
}

std::shared_ptr<const MemberTable> CodeModule::ScannedMembers() const { return state_->Table(); }

// Every successful call is an edit for the trace, even one that changes
// nothing (DeleteLines of 0 lines): the trace shows what was asked.
void CodeModule::Edited(const CodeEdit& edit) {
  state_->Invalidate();
  if (listener_) listener_(*this, edit);
}

}  // namespace workbench
