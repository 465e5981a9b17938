// Small real doubles for the code tests: marked-up modules, and a module
// whose AddFromString can be made to fail. The dialogs run on the
// forms harness (forms/forms_harness.hpp) and real workbench controls.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "code/code_edits.hpp"
#include "vb/failure.hpp"
#include "vb/text.hpp"
#include "workbench/code_module.hpp"

namespace tessaly::testing {

// A module's text with "\n" between lines, where "[[" at the start of a line
// and "]]" at the end of a line enclose whole lines that an edit removes:
//
//   "Option Explicit\n[[Private Sub Text1_Click()\nEnd Sub]]\nPrivate Sub Form_Load()"
struct MarkedModule {
  std::vector<vb::Text> original;  // the lines, markers dropped
  std::vector<vb::Text> expected;  // the lines left once the marked ones go
  std::vector<LineRange> marked;   // the marked lines, numbered as in `original`
};

inline std::vector<vb::Text> SplitAtNewlines(vb::TextView text) {
  std::vector<vb::Text> lines;
  std::size_t start = 0;
  for (;;) {
    const std::size_t end = text.find(u'\n', start);
    lines.emplace_back(text.substr(start, end - start));
    if (end == vb::TextView::npos) return lines;
    start = end + 1;
  }
}

inline MarkedModule ParseMarked(vb::TextView markup) {
  MarkedModule m;
  std::optional<std::int32_t> open;
  for (vb::Text line : SplitAtNewlines(markup)) {
    const auto number = static_cast<std::int32_t>(m.original.size() + 1);
    if (line.starts_with(u"[[")) {
      line.erase(0, 2);
      open = number;
    }
    bool closes = false;
    if (open && line.ends_with(u"]]")) {
      line.resize(line.size() - 2);
      closes = true;
    }
    if (!open) m.expected.push_back(line);
    m.original.push_back(line);
    if (closes) {
      m.marked.push_back(LineRange{*open, number});
      open.reset();
    }
  }
  return m;
}

// Lines as one UTF-8 text with "\n" between them, for readable failures.
inline std::string Joined(const std::vector<vb::Text>& lines) {
  std::string text;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (i != 0) text += "\n";
    text += vb::ToUtf8(lines[i]);
  }
  return text;
}

// A workbench module that records every edit in `calls` ("DeleteLines 1 3",
// "AddFromString 2" for the lines added), and whose next AddFromString can be
// made to fail after it added some of its lines, as an IDE that runs out of
// room part-way would.
class FailingModule : public workbench::CodeModule {
 public:
  explicit FailingModule(std::vector<vb::Text> lines) : CodeModule(u"Form1", std::move(lines)) {
    SetEditListener([this](const workbench::CodeModule&, const workbench::CodeEdit& edit) {
      calls.push_back(edit.op == workbench::CodeEdit::Op::DeleteLines
                          ? "DeleteLines " + std::to_string(edit.first) + " " +
                                std::to_string(edit.count)
                          : "AddFromString " + std::to_string(edit.count));
    });
  }

  void FailNextAdd(vb::Failure failure, std::size_t lines_added_first) {
    failure_ = std::move(failure);
    lines_before_failing_ = lines_added_first;
  }

  void AddFromString(const vb::Text& text) override {
    if (!failure_) return CodeModule::AddFromString(text);
    vb::Text added;
    for (std::size_t i = 0, start = 0; i < lines_before_failing_; ++i) {
      const std::size_t end = text.find(u"\r\n", start);
      added += (i == 0 ? u"" : u"\r\n") + text.substr(start, end - start);
      if (end == vb::Text::npos) break;
      start = end + 2;
    }
    if (lines_before_failing_ > 0) CodeModule::AddFromString(added);
    const vb::Failure failure = *failure_;
    failure_.reset();
    throw failure;
  }

  std::vector<std::string> calls;

 private:
  std::optional<vb::Failure> failure_;
  std::size_t lines_before_failing_ = 0;
};

}  // namespace tessaly::testing
