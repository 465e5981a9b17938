// Fuzz target for the code member scanner (libFuzzer).
//
// The input is a module's text, then after a NUL the text of an edit; two
// bytes before them say where the edit goes. Whatever the text, the scan
// gives members in order of their lines, and a table that says it followed a
// deletion or an insertion holds exactly what a new scan of the edited text
// gives.
#include <fuzzer/FuzzedDataProvider.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "workbench/member_scan.hpp"
#include "workbench/module_text.hpp"

namespace {

using workbench::ScannedMember;

bool Same(const ScannedMember& a, const ScannedMember& b) {
  return a.name == b.name && a.kind == b.kind && a.line == b.line && a.end_line == b.end_line &&
         a.more_parts == b.more_parts;
}

// Aborts when a table that followed an edit differs from a new scan.
void CheckFollowed(bool followed, const workbench::MemberTable& table,
                   const workbench::ModuleText& text) {
  if (!followed) return;
  const workbench::MemberTable fresh(text);
  const auto& held = table.All();
  const auto& scanned = fresh.All();
  if (held.size() != scanned.size()) std::abort();
  for (std::size_t i = 0; i < held.size(); ++i) {
    if (!Same(held[i], scanned[i])) std::abort();
    if (table.Find(held[i].name) == nullptr) std::abort();
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzedDataProvider input(data, size);
  const auto where = input.ConsumeIntegral<std::uint8_t>();
  const auto how_many = input.ConsumeIntegral<std::uint8_t>();
  const std::string rest = input.ConsumeRemainingBytesAsString();
  const std::size_t split = std::min(rest.find('\0'), rest.size());
  const vb::Text module = vb::FromCp1252(std::string_view(rest).substr(0, split));
  const vb::Text edit =
      vb::FromCp1252(std::string_view(rest).substr(std::min(split + 1, rest.size())));

  workbench::ModuleText text;
  text.Insert(0, module);
  const auto count = static_cast<std::int32_t>(text.Count());
  workbench::MemberTable table(text);
  std::int32_t last_line = 0;
  for (const auto& member : table.All()) {
    if (member.line < last_line || member.line > count) std::abort();
    if (member.end_line && (*member.end_line < member.line || *member.end_line > count)) {
      std::abort();
    }
    last_line = member.line;
  }

  // A deletion of lines first..first+deleted-1, then an insertion before `first`.
  const std::int32_t first = 1 + where % count;
  const std::int32_t deleted = std::min<std::int32_t>(how_many % 8, count - first + 1);
  text.Erase(static_cast<std::size_t>(first - 1), static_cast<std::size_t>(deleted));
  CheckFollowed(table.FollowDeletion(first, deleted), table, text);
  if (edit.empty()) return 0;
  table = workbench::MemberTable(text);
  const auto added =
      static_cast<std::int32_t>(text.Insert(static_cast<std::size_t>(first - 1), edit));
  CheckFollowed(table.FollowInsertion(text, first, added), table, text);
  return 0;
}
