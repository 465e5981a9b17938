// Speed of the code dialogs' work on the largest module the IDE keeps
// (65,534 lines), each beside one plain copy of that module's text so the
// figures read as "so many copies". The handler's decisions run on every
// deletion and rename in the designer; renaming rewrites the whole module.
#include <benchmark/benchmark.h>

#include <memory>
#include <string>
#include <vector>

#include "code/code_edits.hpp"
#include "code/control_members.hpp"
#include "workbench/code_module.hpp"

namespace {

using tessaly::LineRange;

constexpr std::int32_t kModuleLines = 65534;
constexpr int kText1Members = 20;

vb::Text Number(int n) { return vb::FromUtf8(std::to_string(n)); }

// A form's module: declarations, then procedures of six lines each. Every
// so often a procedure of Text1 (Text1_Event1 ... Text1_Event20, spread
// evenly); the last procedure is Command9_Click, the only member of
// Command9, and the only one that mentions Label7.
std::vector<vb::Text> BigModule() {
  std::vector<vb::Text> lines = {u"Option Explicit", u"Private mCount As Long", u""};
  constexpr int kProcedureLines = 6;
  const int procedures = (kModuleLines - 3) / kProcedureLines;
  const int text1_every = procedures / (kText1Members + 1);
  int text1 = 0;
  for (int p = 0; p < procedures; ++p) {
    vb::Text name = u"Proc" + Number(p) + u"_Click";
    if (p == procedures - 1) {
      name = u"Command9_Click";
    } else if (p > 0 && p % text1_every == 0 && text1 < kText1Members) {
      name = u"Text1_Event" + Number(++text1);
    }
    lines.push_back(u"Private Sub " + name + u"()");
    lines.push_back(u"    mCount = mCount + " + Number(p));
    lines.push_back(p == procedures - 1 ? vb::Text(u"    Label7.Caption = \"done\"")
                                        : u"    Caption = \"Procedure " + Number(p) + u"\"");
    lines.push_back(u"    Text1.Tag = CStr(mCount)");
    lines.push_back(u"End Sub");
    lines.push_back(u"");
  }
  while (lines.size() < static_cast<std::size_t>(kModuleLines)) lines.push_back(u"' end");
  return lines;
}

const std::vector<vb::Text>& Lines() {
  static const std::vector<vb::Text> lines = BigModule();
  return lines;
}

std::shared_ptr<workbench::CodeModule> FreshModule() {
  return std::make_shared<workbench::CodeModule>(u"Form1", Lines());
}

void BM_PlainCopy(benchmark::State& state) {
  const auto module = FreshModule();
  const vb::Text text = module->Lines(1, module->CountOfLines());
  for (auto _ : state) {
    vb::Text copy(text);
    benchmark::DoNotOptimize(copy.data());
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) *
                          static_cast<std::int64_t>(text.size() * sizeof(char16_t)));
}
BENCHMARK(BM_PlainCopy)->Unit(benchmark::kMicrosecond);

// What Replace does: the whole module read, renamed, cleared and added back.
// A developer renames one module again and again, so each iteration renames
// the same module, to and fro (Text1 <-> txtName, equal lengths apart).
void BM_Rename(benchmark::State& state) {
  const auto module = FreshModule();
  bool forth = true;
  for (auto _ : state) {
    auto failure = forth ? tessaly::RenameInModule(*module, u"Text1", u"txtName")
                         : tessaly::RenameInModule(*module, u"txtName", u"Text1");
    benchmark::DoNotOptimize(failure);
    forth = !forth;
  }
}
// The first rename of a module fresh from its file, as the memory it lands in
// is new to the process.
void BM_RenameFreshModule(benchmark::State& state) {
  std::shared_ptr<workbench::CodeModule> module;
  for (auto _ : state) {
    state.PauseTiming();
    module = FreshModule();
    state.ResumeTiming();
    auto failure = tessaly::RenameInModule(*module, u"Text1", u"txtName");
    benchmark::DoNotOptimize(failure);
    state.PauseTiming();
    module.reset();
    state.ResumeTiming();
  }
}
BENCHMARK(BM_RenameFreshModule)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_Rename)->Unit(benchmark::kMicrosecond);

// The handler's question on a deletion: does Command9 have code?
void BM_ItemRemovedWalk(benchmark::State& state) {
  const auto module = FreshModule();
  module->Members()->All();  // the IDE keeps its member list; build it once
  for (auto _ : state) {
    benchmark::DoNotOptimize(tessaly::HasMemberOfControl(*module->Members(), u"Command9"));
  }
}
BENCHMARK(BM_ItemRemovedWalk)->Unit(benchmark::kMicrosecond);

// The handler's question on a rename: is Label7 in the code?
void BM_ItemRenamedSearch(benchmark::State& state) {
  const auto module = FreshModule();
  for (auto _ : state) {
    benchmark::DoNotOptimize(tessaly::CodeMentions(*module, u"Label7"));
  }
}
BENCHMARK(BM_ItemRenamedSearch)->Unit(benchmark::kMicrosecond);

// OK in the Remove Code dialog with all of Text1's 20 members checked: each
// looked up afresh, planned and deleted in list order.
void BM_RemoveCode20(benchmark::State& state) {
  std::vector<vb::Text> names;
  for (int i = 1; i <= kText1Members; ++i) names.push_back(u"Text1_Event" + Number(i));
  std::shared_ptr<workbench::CodeModule> module;
  for (auto _ : state) {
    state.PauseTiming();
    module = FreshModule();
    module->Members()->All();  // listed when the dialog came up
    state.ResumeTiming();
    int removed = 0;
    for (const vb::Text& name : names) {
      removed += tessaly::ApplyRemoval(*module, tessaly::PlanMemberRemoval(*module, name));
    }
    if (removed != kText1Members) state.SkipWithError("not every member was removed");
    state.PauseTiming();
    module.reset();
    state.ResumeTiming();
  }
}
BENCHMARK(BM_RemoveCode20)->Unit(benchmark::kMicrosecond);

// --- The steps of the above, to show where the time goes --------------------------
//
// The IDE's own steps (the workbench's module) and the text functions, each
// alone on the same module.

void BM_Step_IdeLinesAll(benchmark::State& state) {
  const auto module = FreshModule();
  for (auto _ : state) benchmark::DoNotOptimize(module->Lines(1, module->CountOfLines()));
}
BENCHMARK(BM_Step_IdeLinesAll)->Unit(benchmark::kMicrosecond);

void BM_Step_InStrMiss(benchmark::State& state) {
  const vb::Text text = FreshModule()->Lines(1, kModuleLines);
  for (auto _ : state) benchmark::DoNotOptimize(vb::InStr(1, text, u"Label8"));
}
BENCHMARK(BM_Step_InStrMiss)->Unit(benchmark::kMicrosecond);

void BM_Step_Replace(benchmark::State& state) {
  const vb::Text text = FreshModule()->Lines(1, kModuleLines);
  for (auto _ : state) benchmark::DoNotOptimize(tessaly::RenamedText(text, u"Text1", u"txtName"));
}
BENCHMARK(BM_Step_Replace)->Unit(benchmark::kMicrosecond);

void BM_Step_IdeDeleteAll(benchmark::State& state) {
  std::shared_ptr<workbench::CodeModule> module;
  for (auto _ : state) {
    state.PauseTiming();
    module = FreshModule();
    state.ResumeTiming();
    module->DeleteLines(1, module->CountOfLines());
  }
}
// Each iteration rebuilds the module outside the timing: a fixed count keeps
// the run short.
BENCHMARK(BM_Step_IdeDeleteAll)->Unit(benchmark::kMicrosecond)->Iterations(200);

void BM_Step_IdeAddFromString(benchmark::State& state) {
  const vb::Text text = FreshModule()->Lines(1, kModuleLines);
  std::shared_ptr<workbench::CodeModule> module;
  for (auto _ : state) {
    state.PauseTiming();
    module = std::make_shared<workbench::CodeModule>(u"Form1", std::vector<vb::Text>{});
    state.ResumeTiming();
    module->AddFromString(text);
    state.PauseTiming();
    module.reset();
    state.ResumeTiming();
  }
}
BENCHMARK(BM_Step_IdeAddFromString)->Unit(benchmark::kMicrosecond);

// The first member look-up after an edit: the IDE's member list is read anew.
void BM_Step_IdeMembersAfterEdit(benchmark::State& state) {
  const auto module = FreshModule();
  for (auto _ : state) {
    state.PauseTiming();
    module->InsertLines(1, u"' x");
    module->DeleteLines(1, 1);
    state.ResumeTiming();
    benchmark::DoNotOptimize(module->Members()->Item(u"Text1_Event1"));
  }
}
BENCHMARK(BM_Step_IdeMembersAfterEdit)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
