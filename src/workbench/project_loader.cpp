// Opening a project: the files as read, turned into the model.
//
// Sections: what the model keeps for the files, reading values, opening.
#include "workbench/project_loader.hpp"

#include <cstdio>
#include <optional>
#include <utility>

#include "vb/convert.hpp"
#include "vbfiles/frm_value.hpp"
#include "vbfiles/project_files.hpp"
#include "workbench/class_rules.hpp"

namespace workbench {

using vbfiles::FrmNode;
using vbfiles::FrmValue;
using vbfiles::FrxFile;

namespace {

// ------------------------------------------------- what the model keeps

// A control's block, once loaded, becomes its place in the block around it:
// an Object node holding only its line number, which the saver matches to the
// control read from it, so that every line stays where it was, also a
// property after a control's block. The block itself goes to the control.
FrmNode TakeBlock(FrmNode& node) {
  FrmNode place;
  place.kind = FrmNode::Kind::Object;
  place.line_number = node.line_number;
  return std::exchange(node, std::move(place));
}

// The model's opaque `raw` of a property: the bytes of its line.
std::string RawOf(const FrmNode& node) {
  return node.line ? vb::ToUtf8(node.line->text) : std::string();
}

void AppendFingerprint(const FrmNode& node, std::string& out) {
  out += RawOf(node);
  out += '\n';
  for (const auto& child : node.children) AppendFingerprint(child, out);
  if (node.end_line) out += vb::ToUtf8(node.end_line->text);
}

// The font's `raw`: every line of its group as read.
std::string FingerprintOf(const FrmNode& group) {
  std::string out;
  AppendFingerprint(group, out);
  return out;
}

// ------------------------------------------------- reading values

// Where a form's text is read from: its file's name for failures, its .frx.
struct FormSource {
  vb::Text file;
  const FrxFile* frx;
};

// An offset as the file writes it: "00A0".
vb::Text OffsetText(std::uint32_t offset) {
  char digits[16];
  std::snprintf(digits, sizeof digits, "%04X", static_cast<unsigned>(offset));
  return vb::FromUtf8(digits);
}

// The text a property line keeps in the .frx. Fails (321) naming the form,
// the line, the property and the offset when the .frx does not reach it.
vb::Text TextFromFrx(const FrmNode& node, const vbfiles::FrxReference& reference,
                     const FormSource& source) {
  std::optional<vb::Text> stored;
  if (source.frx != nullptr) {
    stored = reference.is_string ? source.frx->ReadString(reference.offset)
                                 : source.frx->ReadShortString(reference.offset);
  }
  if (stored) return *stored;
  throw vbfiles::FileFormatFailure(
      source.file, node.line_number,
      node.name + u" points at offset " + OffsetText(reference.offset) + u" of " + reference.file +
          (source.frx == nullptr
               ? vb::Text(u", which is missing")
               : u", which ends before the text there (" +
                     vb::IntegerToText(static_cast<vb::Long>(source.frx->Bytes().size())) +
                     u" bytes)"));
}

// The value a property line gives, of the rule's kind. A value the kind
// cannot take reads as the default: the line itself is kept in `raw`, so
// nothing of the file is lost.
vb::Value ValueFromFile(const PropertyRule* rule, const FrmNode& node, const FormSource& source) {
  const FrmValue value = vbfiles::ParseFrmValue(node.value);
  vb::Text text;
  switch (value.form) {
    case FrmValue::Form::Quoted:
      text = value.text;
      break;
    case FrmValue::Form::Frx: {
      // Pictures and lists stay in the .frx; the line is kept in `raw`.
      const bool is_text =
          value.frx.is_string || (rule != nullptr && rule->type == PropertyType::Text);
      text = is_text ? TextFromFrx(node, value.frx, source) : node.value;
      break;
    }
    case FrmValue::Form::Bare:
      if (rule == nullptr) return vbfiles::UntypedFrmValue(value, node.value);
      text = value.text;
      if (const auto hex = vbfiles::ParseFrmHex(text)) text = vb::IntegerToText(*hex);
      break;
  }
  if (rule == nullptr) return text;
  try {
    return CoerceToKind(KindOf(rule->type), vb::Value(text));
  } catch (const vb::Failure&) {
    return rule->default_value;
  }
}

void LoadFont(Font& font, const FrmNode& group) {
  for (const auto& child : group.children) {
    if (child.kind != FrmNode::Kind::Property) continue;
    const FrmValue value = vbfiles::ParseFrmValue(child.value);
    // One bad entry must not cost the others; the block's text is kept whole.
    try {
      if (vb::SameName(child.name, u"Name")) font.SetName(value.text);
      if (vb::SameName(child.name, u"Size")) font.SetSize(vb::CSng(value.text));
      if (vb::SameName(child.name, u"Charset")) font.SetCharset(vb::CInt(value.text));
      if (vb::SameName(child.name, u"Weight")) font.SetWeight(vb::CInt(value.text));
      if (vb::SameName(child.name, u"Bold")) font.SetBold(vb::IsTrue(vb::CBool(value.text)));
      if (vb::SameName(child.name, u"Italic")) font.SetItalic(vb::IsTrue(vb::CBool(value.text)));
      if (vb::SameName(child.name, u"Underline"))
        font.SetUnderline(vb::IsTrue(vb::CBool(value.text)));
      if (vb::SameName(child.name, u"Strikethrough")) {
        font.SetStrikethrough(vb::IsTrue(vb::CBool(value.text)));
      }
    } catch (const vb::Failure&) {
    }
  }
  font.raw = FingerprintOf(group);
}

// ------------------------------------------------- opening

// A property whose new-control default is the control's name (Caption,
// Text) and that the file does not hold is empty: the IDE leaves out an
// empty one, and the name was only ever a new control's starting value.
template <typename Load>
void EmptyNameDefaults(const std::vector<PropertySlot>& slots, Load load) {
  std::vector<vb::Text> names;
  for (const auto& slot : slots) {
    if (slot.rule != nullptr && slot.rule->default_from == DefaultFrom::ControlName &&
        !slot.from_file && !vb::SameName(slot.name, u"Name")) {
      names.push_back(slot.name);
    }
  }
  for (const auto& name : names) load(name);
}

void LoadControlBlock(FormComponent& form, FrmNode& node, const std::shared_ptr<Control>& container,
                      const FormSource& source) {
  auto control = form.LoadControl(node.type, node.name, container);
  for (auto& child : node.children) {
    switch (child.kind) {
      case FrmNode::Kind::Property:
        // The Begin line names a control; a Name line inside its block is
        // none of VB's and stays in the file as read.
        if (vb::SameName(child.name, u"Name")) break;
        control->LoadProperty(child.name,
                              ValueFromFile(control->Rules().Find(child.name), child, source),
                              RawOf(child));
        break;
      case FrmNode::Kind::Group:
        if (vb::SameName(child.name, u"Font") && control->GetFont() != nullptr) {
          LoadFont(*control->GetFont(), child);
        }
        break;
      case FrmNode::Kind::Object:
        LoadControlBlock(form, child, control, source);
        break;
      case FrmNode::Kind::Blank:
        break;
    }
  }
  EmptyNameDefaults(control->Slots(), [&](const vb::Text& name) {
    control->LoadProperty(name, vb::Value(vb::Text()), {});
  });
  control->FileData() = std::make_shared<const FrmNode>(TakeBlock(node));
}

void LoadFormFile(Project& project, vbfiles::FormFile file) {
  const FormSource source{vb::FromUtf8(file.relative_path), file.frx ? &*file.frx : nullptr};
  FrmNode& block = file.document.Form();
  auto module = std::make_shared<CodeModule>(block.name, file.document.CodeLines());
  auto form = project.LoadForm(block.name, module);
  const auto rules = FormClass();
  for (auto& child : block.children) {
    switch (child.kind) {
      case FrmNode::Kind::Property:
        if (vb::SameName(child.name, u"Name")) break;  // as for a control
        form->LoadFormProperty(child.name, ValueFromFile(rules->Find(child.name), child, source),
                               RawOf(child));
        break;
      case FrmNode::Kind::Group:
        if (vb::SameName(child.name, u"Font")) LoadFont(form->FormFont(), child);
        break;
      case FrmNode::Kind::Object:
        LoadControlBlock(*form, child, nullptr, source);
        break;
      case FrmNode::Kind::Blank:
        break;
    }
  }
  EmptyNameDefaults(form->FormSlots(), [&](const vb::Text& name) {
    form->LoadFormProperty(name, vb::Value(vb::Text()), {});
  });
  form->FileData() = std::make_shared<const vbfiles::FormFile>(std::move(file));
}

}  // namespace

std::shared_ptr<Project> OpenProject(const std::filesystem::path& vbp_path,
                                     std::optional<vbfiles::CodePage> code_page) {
  vbfiles::ProjectFiles files = vbfiles::ReadProjectFiles(vbp_path, code_page);
  auto project = Project::Create(files.Name());
  for (auto& form : files.forms) LoadFormFile(*project, std::move(form));
  files.forms.clear();
  project->FileData() = std::make_shared<const vbfiles::ProjectFiles>(std::move(files));
  return project;
}

}  // namespace workbench
