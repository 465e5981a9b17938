#include "vbfiles/frm_file.hpp"

#include <algorithm>

#include "vb/convert.hpp"

// Sections: line words (the lexer), FrmNode, parsing, writing, code section.

namespace vbfiles {
namespace {

// Deeper nesting than this is no form the IDE could have written; refusing it
// keeps the recursive writer and destructor safe on hostile input.
constexpr std::size_t kMaxDepth = 100;

bool IsBlank(char16_t c) { return c == u' ' || c == u'\t'; }

vb::TextView TrimBlanks(vb::TextView text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return text;
}

// A line cut into its first word and the rest, blanks trimmed: what decides
// how a line of a form file is read.
struct LineWords {
  vb::TextView trimmed;
  vb::TextView first;
  vb::TextView rest;
};

LineWords Words(vb::TextView text) {
  LineWords words;
  words.trimmed = TrimBlanks(text);
  const auto blank = std::find_if(words.trimmed.begin(), words.trimmed.end(), IsBlank);
  const auto first_size = static_cast<std::size_t>(blank - words.trimmed.begin());
  words.first = words.trimmed.substr(0, first_size);
  words.rest = TrimBlanks(words.trimmed.substr(first_size));
  return words;
}

// The next blank-separated word of `text`, which moves past it.
vb::TextView NextWord(vb::TextView& text) {
  text = TrimBlanks(text);
  const auto blank = std::find_if(text.begin(), text.end(), IsBlank);
  const auto size = static_cast<std::size_t>(blank - text.begin());
  const auto word = text.substr(0, size);
  text = TrimBlanks(text.substr(size));
  return word;
}

int Indent(int depth) { return depth * 3; }

}  // namespace

// ---------------------------------------------------------------- FrmNode

FrmNode FrmNode::Property(vb::Text name, vb::Text value) {
  FrmNode node;
  node.kind = Kind::Property;
  node.name = std::move(name);
  node.value = std::move(value);
  return node;
}

FrmNode FrmNode::Object(vb::Text type, vb::Text name) {
  FrmNode node;
  node.kind = Kind::Object;
  node.type = std::move(type);
  node.name = std::move(name);
  return node;
}

FrmNode FrmNode::Group(vb::Text name, vb::Text type) {
  FrmNode node;
  node.kind = Kind::Group;
  node.name = std::move(name);
  node.type = std::move(type);
  return node;
}

FrmNode* FrmNode::Find(vb::TextView wanted) {
  for (auto& child : children) {
    if ((child.kind == Kind::Property || child.kind == Kind::Group) &&
        vb::SameName(child.name, wanted))
      return &child;
  }
  return nullptr;
}

const FrmNode* FrmNode::Find(vb::TextView wanted) const {
  return const_cast<FrmNode*>(this)->Find(wanted);
}

std::optional<vb::Text> FrmNode::PropertyValue(vb::TextView wanted) const {
  const FrmNode* node = Find(wanted);
  if (node == nullptr || node->kind != Kind::Property) return std::nullopt;
  return node->value;
}

void FrmNode::SetProperty(vb::TextView wanted, vb::Text new_value) {
  if (FrmNode* node = Find(wanted); node != nullptr && node->kind == Kind::Property) {
    if (node->value == new_value) return;
    node->value = std::move(new_value);
    if (node->line) node->line_end = node->line->eol;
    node->line.reset();
    return;
  }
  // After the last property, so that groups and control blocks stay last as
  // the IDE orders them.
  auto at = children.begin();
  for (auto it = children.begin(); it != children.end(); ++it) {
    if (it->kind == Kind::Property) at = it + 1;
  }
  children.insert(at, Property(vb::Text(wanted), std::move(new_value)));
}

bool FrmNode::RemoveProperty(vb::TextView wanted) {
  const auto it = std::find_if(children.begin(), children.end(), [&](const FrmNode& child) {
    return child.kind == Kind::Property && vb::SameName(child.name, wanted);
  });
  if (it == children.end()) return false;
  children.erase(it);
  return true;
}

std::optional<vb::Long> FrmNode::Index() const {
  const auto text = PropertyValue(u"Index");
  if (!text) return std::nullopt;
  try {
    return vb::CLng(ParseFrmValue(*text).text);
  } catch (const vb::Failure&) {
    return std::nullopt;
  }
}

FrmNode* FrmNode::FindObject(vb::TextView wanted, std::optional<vb::Long> index) {
  for (auto& child : children) {
    if (child.kind == Kind::Object && vb::SameName(child.name, wanted) && child.Index() == index)
      return &child;
  }
  return nullptr;
}

namespace {

int CompareNames(vb::TextView a, vb::TextView b) {
  const auto fold = [](char16_t c) {
    return (c >= u'a' && c <= u'z') ? static_cast<char16_t>(c - u'a' + u'A') : c;
  };
  for (std::size_t i = 0; i < a.size() && i < b.size(); ++i) {
    if (fold(a[i]) != fold(b[i])) return fold(a[i]) < fold(b[i]) ? -1 : 1;
  }
  return a.size() == b.size() ? 0 : (a.size() < b.size() ? -1 : 1);
}

}  // namespace

namespace {

const FrmNode& AsNode(const FrmNode& node) { return node; }
const FrmNode& AsNode(const FrmNode* node) { return *node; }

template <typename Entry>
void InsertIdeOrdered(std::vector<Entry>& nodes, Entry node) {
  const auto blocks = std::find_if(nodes.begin(), nodes.end(), [](const Entry& other) {
    return AsNode(other).kind == FrmNode::Kind::Object;
  });
  const auto at = std::find_if(nodes.begin(), blocks, [&](const Entry& other) {
    return AsNode(other).kind != FrmNode::Kind::Blank &&
           CompareNames(AsNode(other).name, AsNode(node).name) > 0;
  });
  nodes.insert(at, std::move(node));
}

}  // namespace

void InsertInIdeOrder(std::vector<FrmNode>& nodes, FrmNode node) {
  InsertIdeOrdered(nodes, std::move(node));
}

void InsertInIdeOrder(std::vector<const FrmNode*>& nodes, const FrmNode* node) {
  InsertIdeOrdered(nodes, node);
}

// ---------------------------------------------------------------- parsing

namespace {

class Parser {
 public:
  Parser(std::vector<SourceLine> lines, vb::TextView file_name)
      : lines_(std::move(lines)), file_name_(file_name) {}

  void Run(std::vector<SourceLine>& header, FrmNode& form, std::vector<SourceLine>& attributes,
           std::vector<SourceLine>& code) {
    ReadHeader(header);
    if (at_ == lines_.size()) {
      throw FileFormatFailure(file_name_, 0, u"no form block (Begin ... End) in the file");
    }
    form = ReadBlock(0);
    while (at_ < lines_.size() && vb::SameName(Words(lines_[at_].text).first, u"Attribute")) {
      attributes.push_back(std::move(lines_[at_++]));
    }
    for (; at_ < lines_.size(); ++at_) code.push_back(std::move(lines_[at_]));
  }

 private:
  [[noreturn]] void Fail(std::size_t line_number, vb::TextView what) const {
    throw FileFormatFailure(file_name_, line_number, what);
  }

  void ReadHeader(std::vector<SourceLine>& header) {
    for (; at_ < lines_.size(); ++at_) {
      const auto words = Words(lines_[at_].text);
      if (vb::SameName(words.first, u"Begin")) return;
      if (words.trimmed.empty() || vb::SameName(words.first, u"VERSION") ||
          vb::SameName(words.first, u"Object")) {
        header.push_back(std::move(lines_[at_]));
        continue;
      }
      RejectStray(words);
      if (words.trimmed.find(u'=') != vb::TextView::npos) {
        Fail(at_ + 1, u"property line outside a Begin block");
      }
      Fail(at_ + 1, u"unexpected line before the form's Begin block");
    }
  }

  // Block keywords that cannot appear where the reader is.
  void RejectStray(const LineWords& words) const {
    if (vb::SameName(words.trimmed, u"End")) Fail(at_ + 1, u"End without Begin");
    if (vb::SameName(words.trimmed, u"EndProperty"))
      Fail(at_ + 1, u"EndProperty without BeginProperty");
    if (vb::SameName(words.first, u"BeginProperty")) {
      Fail(at_ + 1, u"BeginProperty outside a Begin block");
    }
  }

  // Reads the block that begins at the current line (a Begin or BeginProperty
  // line) through its closing line.
  FrmNode ReadBlock(std::size_t depth) {
    const std::size_t begin_number = at_ + 1;
    if (depth >= kMaxDepth) Fail(begin_number, u"blocks nested too deeply");
    const auto words = Words(lines_[at_].text);
    FrmNode node;
    node.line_number = begin_number;
    const bool is_group = vb::SameName(words.first, u"BeginProperty");
    vb::TextView rest = words.rest;
    if (is_group) {
      node.kind = FrmNode::Kind::Group;
      node.name = NextWord(rest);
      node.type = rest;
      if (node.name.empty()) Fail(begin_number, u"BeginProperty without a property name");
    } else {
      node.kind = FrmNode::Kind::Object;
      node.type = NextWord(rest);
      node.name = NextWord(rest);
      if (node.name.empty()) Fail(begin_number, u"Begin needs a class and a name");
    }
    // The words above point into the line: it moves into the node after them.
    node.line = std::move(lines_[at_]);
    ++at_;
    for (; at_ < lines_.size(); ++at_) {
      const auto line_words = Words(lines_[at_].text);
      if (vb::SameName(line_words.trimmed, is_group ? u"EndProperty" : u"End")) {
        node.end_line = std::move(lines_[at_++]);
        return node;
      }
      if (vb::SameName(line_words.trimmed, is_group ? u"End" : u"EndProperty")) {
        Fail(at_ + 1, is_group ? u"End where EndProperty was expected"
                               : u"EndProperty without BeginProperty");
      }
      if (line_words.trimmed.empty()) {
        FrmNode blank;
        blank.kind = FrmNode::Kind::Blank;
        blank.line = std::move(lines_[at_]);
        blank.line_number = at_ + 1;
        node.children.push_back(std::move(blank));
        continue;
      }
      if (vb::SameName(line_words.first, u"Begin")) {
        if (is_group) Fail(at_ + 1, u"Begin inside a BeginProperty group");
        node.children.push_back(ReadBlock(depth + 1));
        --at_;  // ReadBlock leaves the reader after the block's last line
        continue;
      }
      if (vb::SameName(line_words.first, u"BeginProperty")) {
        node.children.push_back(ReadBlock(depth + 1));
        --at_;
        continue;
      }
      node.children.push_back(ReadProperty(line_words.trimmed));
    }
    Fail(begin_number, is_group ? u"BeginProperty without EndProperty" : u"Begin without End");
  }

  FrmNode ReadProperty(vb::TextView trimmed) {
    const auto equals = trimmed.find(u'=');
    if (equals == vb::TextView::npos) {
      Fail(at_ + 1, u"expected a property line (Name = value), Begin or End");
    }
    FrmNode node;
    node.kind = FrmNode::Kind::Property;
    node.name = TrimBlanks(trimmed.substr(0, equals));
    node.value = TrimBlanks(trimmed.substr(equals + 1));
    if (node.name.empty()) Fail(at_ + 1, u"property line without a name");
    node.line = std::move(lines_[at_]);  // `trimmed` points into it: used up above
    node.line_number = at_ + 1;
    return node;
  }

  std::vector<SourceLine> lines_;
  vb::TextView file_name_;
  std::size_t at_ = 0;
};

// ---------------------------------------------------------------- writing

}  // namespace

FrmDocument FrmDocument::Parse(std::string_view bytes, vb::TextView file_name,
                               const CodePage& code_page) {
  auto lines = SplitLines(bytes, code_page);
  FrmDocument document;
  document.size_read_ = bytes.size();
  document.code_page_ = code_page;
  document.line_end_ = CommonLineEnd(lines);
  document.ends_with_line_end_ = lines.empty() || !lines.back().eol.empty();
  std::vector<SourceLine> code;
  Parser(std::move(lines), file_name)
      .Run(document.header_, document.form_, document.attributes_, code);
  document.code_ = std::make_shared<const std::vector<SourceLine>>(std::move(code));
  return document;
}

std::string FrmDocument::Write() const {
  FrmWriter out(*this);
  out.Add(form_, 0);
  return out.Finish();
}

// The file's bytes, a line at a time, each with its own end or, where it has
// none (a line that was last and now is not), the file's; the last line keeps
// an end exactly when the file had one. Lines are encoded straight into the
// bytes: no copy of the lines is made.
FrmWriter::FrmWriter(const FrmDocument& document) : document_(document) {
  // Room for the bytes read and a little more: most saves change a few lines.
  bytes_.reserve(document.size_read_ + document.size_read_ / 16);
  for (const auto& line : document.header_) Line(line.text, line.eol);
}

void FrmWriter::Line(vb::TextView text, std::string_view eol) {
  document_.code_page_.EncodeTo(text, bytes_);
  const std::string_view end = eol.empty() ? std::string_view(document_.line_end_) : eol;
  bytes_ += end;
  last_eol_size_ = end.size();
}

void FrmWriter::Begin(const FrmNode& node, int depth) {
  const std::string& eol = node.line_end.empty() ? document_.line_end_ : node.line_end;
  if (node.line) return Line(node.line->text, node.line->eol);
  const vb::Text indent(static_cast<std::size_t>(Indent(depth)), u' ');
  switch (node.kind) {
    case FrmNode::Kind::Blank:
      return Line(u"", eol);
    case FrmNode::Kind::Property:
      return Line(FormatPropertyLine(depth, node.name, node.value), eol);
    case FrmNode::Kind::Group:
      // The IDE ends these lines with a blank.
      return Line(indent + u"BeginProperty " + node.name + u" " +
                      (node.type.empty() ? vb::Text() : node.type + u" "),
                  eol);
    case FrmNode::Kind::Object:
      return Line(indent + u"Begin " + node.type + u" " + node.name + u" ", eol);
  }
}

void FrmWriter::End(const FrmNode& node, int depth) {
  if (node.end_line) return Line(node.end_line->text, node.end_line->eol);
  const vb::Text indent(static_cast<std::size_t>(Indent(depth)), u' ');
  Line(indent + (node.kind == FrmNode::Kind::Group ? u"EndProperty" : u"End"),
       node.line_end.empty() ? document_.line_end_ : node.line_end);
}

void FrmWriter::Add(const FrmNode& node, int depth) {
  Begin(node, depth);
  if (node.kind == FrmNode::Kind::Blank || node.kind == FrmNode::Kind::Property) return;
  for (const auto& child : node.children) Add(child, depth + 1);
  End(node, depth);
}

std::string FrmWriter::Finish() {
  for (const auto& line : document_.attributes_) Line(line.text, line.eol);
  for (const auto& line : *document_.code_) Line(line.text, line.eol);
  if (!document_.ends_with_line_end_) bytes_.resize(bytes_.size() - last_eol_size_);
  return std::move(bytes_);
}

std::optional<vb::Text> FrmDocument::Attribute(vb::TextView name) const {
  for (const auto& line : attributes_) {
    const auto words = Words(line.text);
    const auto equals = words.rest.find(u'=');
    if (equals == vb::TextView::npos) continue;
    if (!vb::SameName(TrimBlanks(words.rest.substr(0, equals)), name)) continue;
    const auto value = ParseFrmValue(words.rest.substr(equals + 1));
    return value.form == FrmValue::Form::Quoted
               ? value.text
               : vb::Text(TrimBlanks(words.rest.substr(equals + 1)));
  }
  return std::nullopt;
}

void FrmDocument::SetAttribute(vb::TextView name, const vb::Text& value_text) {
  const vb::Text text = u"Attribute " + vb::Text(name) + u" = " + value_text;
  for (auto& line : attributes_) {
    const auto words = Words(line.text);
    const auto equals = words.rest.find(u'=');
    if (equals == vb::TextView::npos) continue;
    if (!vb::SameName(TrimBlanks(words.rest.substr(0, equals)), name)) continue;
    if (TrimBlanks(words.rest.substr(equals + 1)) != value_text) line.text = text;
    return;
  }
  attributes_.push_back({text, line_end_});
}

// ---------------------------------------------------------------- code section

std::vector<vb::Text> FrmDocument::CodeLines() const {
  std::vector<vb::Text> lines;
  lines.reserve(code_->size());
  for (const auto& line : *code_) lines.push_back(line.text);
  return lines;
}

void FrmDocument::SetCodeLines(const std::vector<vb::Text>& lines) {
  const std::vector<SourceLine>& old = *code_;
  // Lines before and after the edited stretch keep their own ends; the
  // stretch gets the file's.
  std::size_t same_start = 0;
  while (same_start < lines.size() && same_start < old.size() &&
         lines[same_start] == old[same_start].text) {
    ++same_start;
  }
  if (same_start == lines.size() && same_start == old.size()) return;
  std::size_t same_end = 0;
  while (same_end < lines.size() - same_start && same_end < old.size() - same_start &&
         lines[lines.size() - 1 - same_end] == old[old.size() - 1 - same_end].text) {
    ++same_end;
  }
  std::vector<SourceLine> code(old.begin(), old.begin() + static_cast<std::ptrdiff_t>(same_start));
  // Inside the stretch, a line that was there before (in the same order,
  // looked for a short way ahead to stay linear) keeps its end too.
  constexpr std::size_t kLookAhead = 64;
  std::size_t old_at = same_start;
  const std::size_t old_end = old.size() - same_end;
  for (std::size_t i = same_start; i < lines.size() - same_end; ++i) {
    std::string eol = line_end_;
    for (std::size_t k = old_at; k < old_end && k < old_at + kLookAhead; ++k) {
      if (old[k].text == lines[i]) {
        eol = old[k].eol;
        old_at = k + 1;
        break;
      }
    }
    code.push_back({lines[i], eol});
  }
  code.insert(code.end(), old.end() - static_cast<std::ptrdiff_t>(same_end), old.end());
  code_ = std::make_shared<const std::vector<SourceLine>>(std::move(code));
}

}  // namespace vbfiles
