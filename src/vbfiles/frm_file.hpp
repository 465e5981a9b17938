// Form files (.frm, and the designer files shaped like them: .ctl, .pag, .dob)
// read into a document that keeps every line it was read from.
//
// A form file is a header ("VERSION 5.00", Object = lines for the controls'
// libraries), one block "Begin VB.Form frmMain" ... "End" holding property
// lines, property groups ("BeginProperty Font" ... "EndProperty", which may
// nest) and the blocks of the controls (nested as the controls are), then the
// Attribute lines and the code section: every line after the last of those
// Attribute lines.
//
// The promise: writing a document that nobody changed gives the bytes it was
// read from, whatever the line ends were (CR LF, LF alone, a lone CR, each line
// its own) and whether or not the last line had an end. A node keeps the line
// it was read from until it is changed; a changed or new node is written as the
// IDE writes it, with the line end most of the file uses. Copies of a
// document share its code section until one of them changes it.
//
// Parse fails with "Invalid file format" (321) naming the file and line for a
// file the IDE would not load: a Begin without End, an End without Begin, a
// property line outside any block, a line inside a block that is neither a
// property nor a block keyword, a file without a form block.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "vb/text.hpp"
#include "vbfiles/file_lines.hpp"
#include "vbfiles/frm_value.hpp"

namespace vbfiles {

// One entry of a block: a property line, a property group, a control's block,
// or a blank line (kept where it was).
struct FrmNode {
  enum class Kind { Property, Group, Object, Blank };

  Kind kind = Kind::Property;
  vb::Text name;   // property, group or control name
  vb::Text type;   // Object: the class ("VB.Frame"); Group: what follows the name, if any
  vb::Text value;  // Property: the text after "=", blanks around trimmed
  // The line as read; nullopt when the node is new or changed and is written
  // as the IDE writes it.
  std::optional<SourceLine> line;
  // The end a line written anew gets; empty: the one most lines of the file
  // have. A changed line keeps the end it had.
  std::string line_end;
  std::optional<SourceLine> end_line;  // Group, Object: the EndProperty / End line as read
  std::vector<FrmNode> children;       // Group, Object
  std::size_t line_number = 0;         // line it was read from (from 1); 0 when new

  static FrmNode Property(vb::Text name, vb::Text value);
  static FrmNode Object(vb::Text type, vb::Text name);
  static FrmNode Group(vb::Text name, vb::Text type = {});

  // The property (or group) called `name`, any case; null when missing.
  FrmNode* Find(vb::TextView name);
  const FrmNode* Find(vb::TextView name) const;
  // The property's value text, or nullopt.
  std::optional<vb::Text> PropertyValue(vb::TextView name) const;
  // Sets a property's value text. An unchanged value keeps the line as read;
  // a changed one is written anew; a missing property is added after the
  // last property (before any group or child block).
  void SetProperty(vb::TextView name, vb::Text value);
  // Removes the property; false when there was none.
  bool RemoveProperty(vb::TextView name);
  // The control's index in its control array (its Index property), if any.
  std::optional<vb::Long> Index() const;
  // The child control called `name` with the given index (nullopt: not in an
  // array); null when missing.
  FrmNode* FindObject(vb::TextView name, std::optional<vb::Long> index = std::nullopt);
};

// Puts `node` among a block's `nodes` where the IDE would have written it:
// the IDE writes a block's properties in alphabetical order (any case) and
// the controls' blocks after them, so the node goes before the first entry
// that sorts after it, and before the first control's block.
void InsertInIdeOrder(std::vector<FrmNode>& nodes, FrmNode node);
// The same among nodes held elsewhere.
void InsertInIdeOrder(std::vector<const FrmNode*>& nodes, const FrmNode* node);

class FrmWriter;

class FrmDocument {
 public:
  // Reads a form file; `file_name` names it in failures.
  static FrmDocument Parse(std::string_view bytes, vb::TextView file_name,
                           const CodePage& code_page = {});
  // The file's bytes.
  std::string Write() const;

  // "VERSION 5.00", Object = lines and blank lines before the form block.
  const std::vector<SourceLine>& Header() const { return header_; }
  std::vector<SourceLine>& Header() { return header_; }
  // The form's own block ("Begin VB.Form frmMain").
  const FrmNode& Form() const { return form_; }
  FrmNode& Form() { return form_; }
  // The Attribute lines after the form block.
  const std::vector<SourceLine>& Attributes() const { return attributes_; }
  // The value text of `Attribute <name> = <value>` (VB_Name...), or nullopt.
  std::optional<vb::Text> Attribute(vb::TextView name) const;
  // Sets `Attribute <name> = <value_text>` (value as written: "\"frmMain\""),
  // keeping the line as read when the value is equal; adds the line at the
  // end of the Attribute lines when there is none.
  void SetAttribute(vb::TextView name, const vb::Text& value_text);

  // The code section's lines, without line ends.
  std::vector<vb::Text> CodeLines() const;
  // Replaces the code section. The unchanged lines before and after what
  // changed keep their own line ends; the changed lines get the file's.
  void SetCodeLines(const std::vector<vb::Text>& lines);

  // The line end new lines get: the one most lines of the file have.
  const std::string& LineEnd() const { return line_end_; }
  bool EndsWithLineEnd() const { return ends_with_line_end_; }
  const CodePage& GetCodePage() const { return code_page_; }

 private:
  std::vector<SourceLine> header_;
  FrmNode form_;
  std::vector<SourceLine> attributes_;
  // Never changed once set: copies of the document (thousands of lines) share it.
  std::shared_ptr<const std::vector<SourceLine>> code_ =
      std::make_shared<const std::vector<SourceLine>>();
  std::string line_end_ = std::string(kCrLf);
  bool ends_with_line_end_ = true;
  CodePage code_page_;
  std::size_t size_read_ = 0;  // of the bytes read: room Write makes at once

  friend class FrmWriter;
};

// Writes a document whose form block comes a piece at a time, for a caller
// that has the block in pieces rather than as one tree (the workbench's
// saver points at the lines it kept instead of copying them). Write() is
// FrmWriter(document), Add(Form(), 0), Finish(). Depth 0 is the form block.
class FrmWriter {
 public:
  // Writes the header lines; the document must outlive the writer.
  explicit FrmWriter(const FrmDocument& document);
  // `node` with everything inside it.
  void Add(const FrmNode& node, int depth);
  // A block's (or group's) Begin line alone, and its End line: what is inside
  // it goes between.
  void Begin(const FrmNode& node, int depth);
  void End(const FrmNode& node, int depth);
  // Writes the Attribute lines and the code section; the file's bytes.
  std::string Finish();

 private:
  void Line(vb::TextView text, std::string_view eol);

  const FrmDocument& document_;
  std::string bytes_;
  std::size_t last_eol_size_ = 0;
};

}  // namespace vbfiles
