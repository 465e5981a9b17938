// Small real doubles for the code tests: marked-up modules, and a module of
// plain lines whose AddFromString can be made to fail. The dialogs run on the
// forms harness (forms/forms_harness.hpp) and real workbench controls.
#pragma once

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "code/code_edits.hpp"
#include "ide/object_model.hpp"
#include "vb/failure.hpp"
#include "vb/text.hpp"

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

// Lines and nothing else: no members. Records every edit in `calls`. The next
// AddFromString can be made to fail after it added some of its lines, as an
// IDE that runs out of room part-way would.
class LinesModule : public ide::CodeModule {
 public:
  explicit LinesModule(std::vector<vb::Text> lines) : lines_(std::move(lines)) {}

  void FailNextAdd(vb::Failure failure, std::size_t lines_added_first) {
    failure_ = std::move(failure);
    lines_before_failing_ = lines_added_first;
  }

  const std::vector<vb::Text>& AllLines() const { return lines_; }
  std::vector<std::string> calls;

  std::int32_t CountOfLines() const override { return static_cast<std::int32_t>(lines_.size()); }

  vb::Text Lines(std::int32_t first, std::int32_t count) const override {
    Check(first, count);
    vb::Text text;
    for (std::int32_t i = 0; i < count; ++i) {
      if (i != 0) text += u"\r\n";
      text += lines_[static_cast<std::size_t>(first - 1 + i)];
    }
    return text;
  }

  void DeleteLines(std::int32_t first, std::int32_t count) override {
    Check(first, count);
    calls.push_back("DeleteLines " + std::to_string(first) + " " + std::to_string(count));
    const auto begin = lines_.begin() + (first - 1);
    lines_.erase(begin, begin + count);
  }

  void AddFromString(const vb::Text& text) override {
    std::vector<vb::Text> added;
    std::size_t start = 0;
    for (;;) {
      const std::size_t end = text.find(u"\r\n", start);
      added.emplace_back(text, start, end == vb::Text::npos ? vb::Text::npos : end - start);
      if (end == vb::Text::npos) break;
      start = end + 2;
    }
    std::size_t taken = added.size();
    if (failure_) taken = std::min(lines_before_failing_, added.size());
    lines_.insert(lines_.end(), added.begin(), added.begin() + static_cast<std::ptrdiff_t>(taken));
    if (!failure_) {
      calls.push_back("AddFromString " + std::to_string(taken));
      return;
    }
    calls.push_back("AddFromString failed after " + std::to_string(taken));
    const vb::Failure failure = *failure_;
    failure_.reset();
    throw failure;
  }

  std::shared_ptr<ide::Members> Members() override { return nullptr; }

 private:
  void Check(std::int32_t first, std::int32_t count) const {
    if (count < 0 || first < 1 || first + count - 1 > CountOfLines()) {
      throw vb::Failure::Of(vb::kInvalidProcedureCall);
    }
  }

  std::vector<vb::Text> lines_;
  std::optional<vb::Failure> failure_;
  std::size_t lines_before_failing_ = 0;
};

}  // namespace tessaly::testing
