#include "workbench/code_module.hpp"

#include <array>
#include <utility>

#include "vb/failure.hpp"
#include "workbench/member_scan.hpp"
#include "workbench/module_text.hpp"

namespace workbench {
namespace {

// A member as the IDE hands it out: what it was when the collection was read.
// It reads the row of the table it came from, which the objects below keep
// alive and unchanged: an edit while a member is held changes a copy.
class ModuleMember final : public ide::Member {
 public:
  explicit ModuleMember(const ScannedMember& row) : row_(&row) {}
  vb::Text Name() const override { return row_->name; }
  std::int32_t CodeLocation() const override { return row_->line; }

 private:
  const ScannedMember* row_;
};

// The member objects of one table, made together: one allocation, and the
// pointers handed out share it.
struct MemberObjects {
  explicit MemberObjects(std::shared_ptr<const MemberTable> of) : table(std::move(of)) {
    members.reserve(table->All().size());
    for (const ScannedMember& row : table->All()) members.emplace_back(row);
  }

  std::shared_ptr<const MemberTable> table;
  std::vector<ModuleMember> members;  // one per table row
};

// Each pointer handed out counts its users on one of a few counters, in
// turn, all of which keep the objects alive. Members().All() copies a
// pointer per member (tens of thousands in a large module); one shared
// counter would make every copy wait for the one before.
constexpr std::size_t kCounters = 8;

}  // namespace

// What a module and the Members collections it handed out share.
struct CodeModuleState {
  ModuleText text;
  // Null until first use and after an edit the table could not follow.
  std::shared_ptr<MemberTable> table;
  // The member objects of `table`, their counters and the list of them, made
  // on first use.
  std::shared_ptr<MemberObjects> objects;
  std::array<std::shared_ptr<void>, kCounters> counters;
  std::vector<std::shared_ptr<ide::Member>> listed;

  const std::shared_ptr<MemberTable>& Table() {
    if (!table) table = std::make_shared<MemberTable>(text);
    return table;
  }
  MemberObjects& Objects() {
    if (!objects) {
      objects = std::make_shared<MemberObjects>(Table());
      for (auto& counter : counters) {
        counter = std::make_shared<std::shared_ptr<MemberObjects>>(objects);
      }
    }
    return *objects;
  }
  std::shared_ptr<ide::Member> Handout(std::size_t row) {
    return {counters[row % kCounters], &Objects().members[row]};
  }
  const std::vector<std::shared_ptr<ide::Member>>& Listed() {
    const std::size_t count = Table()->All().size();
    if (listed.size() != count) {
      listed.reserve(count);
      for (std::size_t row = 0; row < count; ++row) listed.push_back(Handout(row));
    }
    return listed;
  }

  // After an edit of `text`: the table follows it, or goes.
  template <typename Follow>
  void Edited(Follow&& follow) {
    listed.clear();
    for (auto& counter : counters) counter.reset();
    objects.reset();
    if (!table) return;
    // Someone holds the table (a snapshot, or members read before): they
    // keep it as it is, the module changes a copy.
    if (table.use_count() > 1) table = std::make_shared<MemberTable>(*table);
    if (!follow(*table)) table.reset();
  }
};

namespace {

// A live view: every call reads the module's current text.
class ModuleMembers : public ide::Members {
 public:
  explicit ModuleMembers(std::shared_ptr<CodeModuleState> state) : state_(std::move(state)) {}

  std::vector<std::shared_ptr<ide::Member>> All() override { return state_->Listed(); }

  std::shared_ptr<ide::Member> Item(const vb::Text& name) override {
    const auto& table = state_->Table();
    const ScannedMember* found = table->Find(name);
    if (found == nullptr) return nullptr;
    return state_->Handout(static_cast<std::size_t>(found - table->All().data()));
  }

 private:
  std::shared_ptr<CodeModuleState> state_;
};

// Lines first..first+count-1 exist; count 0 is fine anywhere up to just past
// the last line.
bool InRange(std::int32_t first, std::int32_t count, std::size_t line_count) {
  return count >= 0 && first >= 1 &&
         static_cast<std::int64_t>(first) + count - 1 <= static_cast<std::int64_t>(line_count);
}

}  // namespace

CodeModule::CodeModule(vb::Text name, std::vector<vb::Text> lines)
    : name_(std::move(name)), state_(std::make_shared<CodeModuleState>()) {
  state_->text = ModuleText(lines);
}

std::shared_ptr<CodeModule> CodeModule::FromText(vb::Text name, const vb::Text& text) {
  auto module = std::make_shared<CodeModule>(std::move(name), std::vector<vb::Text>{});
  // In a file a line end closes its line: without the last one, the text
  // splits into the file's lines, and "" is no line at all.
  if (text.empty()) return module;
  vb::TextView body = text;
  if (body.ends_with(u"\r\n")) {
    body.remove_suffix(2);
  } else if (body.back() == u'\r' || body.back() == u'\n') {
    body.remove_suffix(1);
  }
  module->state_->text.Insert(0, body);
  return module;
}

std::vector<vb::Text> CodeModule::AllLines() const { return state_->text.Copy(); }

std::int32_t CodeModule::CountOfLines() const {
  return static_cast<std::int32_t>(state_->text.Count());
}

vb::Text CodeModule::Lines(std::int32_t first, std::int32_t count) const {
  const ModuleText& text = state_->text;
  if (!InRange(first, count, text.Count())) throw vb::Failure::Of(vb::kInvalidProcedureCall);
  return vb::Text(text.Lines(static_cast<std::size_t>(first - 1), static_cast<std::size_t>(count)));
}

void CodeModule::DeleteLines(std::int32_t first, std::int32_t count) {
  ModuleText& text = state_->text;
  if (!InRange(first, count, text.Count())) throw vb::Failure::Of(vb::kInvalidProcedureCall);
  text.Erase(static_cast<std::size_t>(first - 1), static_cast<std::size_t>(count));
  state_->Edited([&](MemberTable& table) { return table.FollowDeletion(first, count); });
  Report(CodeEdit::Op::DeleteLines, first, count, nullptr);
}

void CodeModule::AddFromString(const vb::Text& text) {
  ModuleText& lines = state_->text;
  const auto first = static_cast<std::int32_t>(lines.Count() + 1);
  const auto count = static_cast<std::int32_t>(lines.Insert(lines.Count(), text));
  state_->Edited([&](MemberTable& table) { return table.FollowInsertion(lines, first, count); });
  Report(CodeEdit::Op::AddFromString, first, count, &text);
}

void CodeModule::InsertLines(std::int32_t line, const vb::Text& text) {
  ModuleText& lines = state_->text;
  if (!InRange(line, 0, lines.Count())) throw vb::Failure::Of(vb::kInvalidProcedureCall);
  const auto count =
      static_cast<std::int32_t>(lines.Insert(static_cast<std::size_t>(line - 1), text));
  state_->Edited([&](MemberTable& table) { return table.FollowInsertion(lines, line, count); });
  Report(CodeEdit::Op::InsertLines, line, count, &text);
}

void CodeModule::RestoreLines(const std::vector<vb::Text>& lines) {
  state_->text = ModuleText(lines);
  state_->Edited([](MemberTable&) { return false; });
}

std::shared_ptr<ide::Members> CodeModule::Members() {
  return std::make_shared<ModuleMembers>(state_);
}

std::shared_ptr<const MemberTable> CodeModule::ScannedMembers() const { return state_->Table(); }

// Every successful call is an edit for the trace, even one that changes
// nothing (DeleteLines of 0 lines): the trace shows what was asked. The
// record (with a copy of the text added) is made only for a listener.
void CodeModule::Report(CodeEdit::Op op, std::int32_t first, std::int32_t count,
                        const vb::Text* text) {
  if (!listener_) return;
  listener_(*this, CodeEdit{op, first, count, text != nullptr ? *text : vb::Text()});
}

}  // namespace workbench
