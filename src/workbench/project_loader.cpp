#include "workbench/project_io.hpp"

#include <algorithm>
#include <any>
#include <optional>
#include <system_error>

#include "vb/convert.hpp"
#include "workbench/class_rules.hpp"
#include "workbench/file_lines.hpp"
#include "workbench/frm_enum_names.hpp"
#include "workbench/frm_file.hpp"
#include "workbench/frm_value.hpp"
#include "workbench/frx_file.hpp"
#include "workbench/vbp_file.hpp"

// Sections: what the model keeps for the files, paths, reading values,
// opening, building a form's file, saving.

namespace workbench {
namespace fs = std::filesystem;

namespace {

// ------------------------------------------------- what the model keeps

// Kept in Project::FileData().
struct ProjectFileData {
  fs::path vbp_path;
  VbpFile vbp;
  // Members other than forms (and their binary companions), by relative
  // path: copied unchanged when the project is saved elsewhere.
  std::vector<std::pair<std::string, std::string>> other_files;
};

// Kept in FormComponent::FileData().
struct FormFileData {
  std::string relative_path;      // "frmMain.frm", relative to the project's folder
  std::string frx_relative_path;  // where its .frx is, or would be
  // The document as read, its form block without the controls' blocks (the
  // controls keep their own).
  FrmDocument document;
  std::optional<FrxFile> frx;
};

// Kept in Control::FileData(): the control's block as read, without the
// blocks of the controls inside it.
struct ControlFileData {
  FrmNode node;
};

void StripObjects(FrmNode& node) {
  std::erase_if(node.children,
                [](const FrmNode& child) { return child.kind == FrmNode::Kind::Object; });
}

// The model's opaque `raw` of a property: the bytes of its line.
std::string RawOf(const FrmNode& node) {
  return node.line ? vb::ToCp1252(node.line->text) : std::string();
}

void AppendFingerprint(const FrmNode& node, std::string& out) {
  out += RawOf(node);
  out += '\n';
  for (const auto& child : node.children) AppendFingerprint(child, out);
  if (node.end_line) out += vb::ToCp1252(node.end_line->text);
}

// The font's `raw`: every line of its group as read.
std::string FingerprintOf(const FrmNode& group) {
  std::string out;
  AppendFingerprint(group, out);
  return out;
}

// ------------------------------------------------- paths

bool SameFileName(const std::string& a, const std::string& b) {
  return SameName(vb::FromUtf8(a), vb::FromUtf8(b));
}

// `relative` as it exists under `folder`, matching each part without case
// when the exact spelling is missing (projects come from a system whose file
// names ignore case); nullopt when there is no such file.
std::optional<std::string> FindExisting(const fs::path& folder, const std::string& relative) {
  std::error_code error;
  if (fs::exists(folder / relative, error)) return relative;
  fs::path current = folder;
  fs::path found;
  for (const auto& part : fs::path(relative)) {
    if (part == "." || part == ".." || fs::exists(current / part, error)) {
      current /= part;
      found /= part;
      continue;
    }
    std::optional<fs::path> match;
    for (fs::directory_iterator it(current, error), end; !error && it != end; it.increment(error)) {
      if (SameFileName(it->path().filename().string(), part.string())) {
        match = it->path().filename();
        break;
      }
    }
    if (!match) return std::nullopt;
    current /= *match;
    found /= *match;
  }
  return found.generic_string();
}

std::string RequireExisting(const fs::path& folder, const std::string& relative) {
  auto found = FindExisting(folder, relative);
  if (!found) {
    throw vb::Failure(vb::kFileNotFound, u"File not found: " + vb::FromUtf8(relative));
  }
  return *found;
}

// The binary companion the IDE keeps beside a designer file: frmMain.frm ->
// frmMain.frx. Empty for files without one.
std::string CompanionOf(const std::string& relative) {
  static constexpr std::pair<std::u16string_view, std::string_view> kCompanions[] = {
      {u".frm", ".frx"}, {u".ctl", ".ctx"}, {u".dsr", ".dsx"}, {u".pag", ".pgx"}, {u".dob", ".dox"},
  };
  const auto extension = vb::FromUtf8(fs::path(relative).extension().string());
  for (const auto& [designer, companion] : kCompanions) {
    if (SameName(extension, designer)) {
      return fs::path(relative).replace_extension(companion).generic_string();
    }
  }
  return {};
}

// ------------------------------------------------- reading values

std::optional<vb::Long> HexValue(vb::TextView text) {
  // &H8000000F& as the IDE writes colours: 32 bits, two's complement.
  if (text.size() < 3 || text[0] != u'&' || (text[1] != u'H' && text[1] != u'h')) {
    return std::nullopt;
  }
  text.remove_prefix(2);
  if (!text.empty() && text.back() == u'&') text.remove_suffix(1);
  if (text.empty() || text.size() > 8) return std::nullopt;
  std::uint32_t value = 0;
  for (char16_t c : text) {
    int digit = -1;
    if (c >= u'0' && c <= u'9') digit = c - u'0';
    if (c >= u'A' && c <= u'F') digit = c - u'A' + 10;
    if (c >= u'a' && c <= u'f') digit = c - u'a' + 10;
    if (digit < 0) return std::nullopt;
    value = value * 16 + static_cast<std::uint32_t>(digit);
  }
  return static_cast<vb::Long>(value);
}

bool IsWholeNumber(vb::TextView text) {
  if (!text.empty() && text.front() == u'-') text.remove_prefix(1);
  return !text.empty() && text.size() <= 10 &&
         std::all_of(text.begin(), text.end(), [](char16_t c) { return c >= u'0' && c <= u'9'; });
}

// A bare value of a property the class table lacks: it keeps the kind its
// text shows (-1  'True is a Boolean, 2646 a number), else it is text.
vb::Value UntypedBareValue(const FrmValue& value, vb::TextView written) {
  if ((value.comment == u"True" || value.comment == u"False") &&
      (value.text == u"-1" || value.text == u"0")) {
    return vb::ToBoolean(value.text == u"-1");
  }
  if (const auto hex = HexValue(value.text)) return *hex;
  if (IsWholeNumber(value.text)) {
    try {
      return vb::CLng(value.text);
    } catch (const vb::Failure&) {
    }
  }
  return vb::Text(written);
}

// The value a property line gives, of the rule's kind. A value the kind
// cannot take reads as the default: the line itself is kept in `raw`, so
// nothing of the file is lost.
vb::Value ValueFromFile(const PropertyRule* rule, const FrmNode& node, const FrxFile* frx) {
  const FrmValue value = ParseFrmValue(node.value);
  vb::Text text;
  switch (value.form) {
    case FrmValue::Form::Quoted:
      text = value.text;
      break;
    case FrmValue::Form::Frx: {
      std::optional<vb::Text> stored;
      if (frx != nullptr && value.frx.is_string) stored = frx->ReadString(value.frx.offset);
      if (frx != nullptr && !value.frx.is_string && rule != nullptr &&
          rule->type == PropertyType::Text) {
        stored = frx->ReadShortString(value.frx.offset);
      }
      text = stored.value_or(node.value);
      break;
    }
    case FrmValue::Form::Bare:
      if (rule == nullptr) return UntypedBareValue(value, node.value);
      text = value.text;
      if (const auto hex = HexValue(text)) text = vb::IntegerToText(*hex);
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
    const FrmValue value = ParseFrmValue(child.value);
    // One bad entry must not cost the others; the block's text is kept whole.
    try {
      if (SameName(child.name, u"Name")) font.SetName(value.text);
      if (SameName(child.name, u"Size")) font.SetSize(vb::CSng(value.text));
      if (SameName(child.name, u"Charset")) font.SetCharset(vb::CInt(value.text));
      if (SameName(child.name, u"Weight")) font.SetWeight(vb::CInt(value.text));
      if (SameName(child.name, u"Bold")) font.SetBold(vb::IsTrue(vb::CBool(value.text)));
      if (SameName(child.name, u"Italic")) font.SetItalic(vb::IsTrue(vb::CBool(value.text)));
      if (SameName(child.name, u"Underline")) font.SetUnderline(vb::IsTrue(vb::CBool(value.text)));
      if (SameName(child.name, u"Strikethrough")) {
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
        !slot.from_file && !SameName(slot.name, u"Name")) {
      names.push_back(slot.name);
    }
  }
  for (const auto& name : names) load(name);
}

void LoadControlBlock(FormComponent& form, const FrmNode& node,
                      const std::shared_ptr<Control>& container, const FrxFile* frx) {
  auto control = form.LoadControl(node.type, node.name, container);
  for (const auto& child : node.children) {
    switch (child.kind) {
      case FrmNode::Kind::Property:
        control->LoadProperty(
            child.name, ValueFromFile(control->Rules().Find(child.name), child, frx), RawOf(child));
        break;
      case FrmNode::Kind::Group:
        if (SameName(child.name, u"Font") && control->GetFont() != nullptr) {
          LoadFont(*control->GetFont(), child);
        }
        break;
      case FrmNode::Kind::Object:
        LoadControlBlock(form, child, control, frx);
        break;
      case FrmNode::Kind::Blank:
        break;
    }
  }
  EmptyNameDefaults(control->Slots(), [&](const vb::Text& name) {
    control->LoadProperty(name, vb::Value(vb::Text()), {});
  });
  ControlFileData data{node};
  StripObjects(data.node);
  control->FileData() = std::move(data);
}

void LoadFormFile(Project& project, const fs::path& folder, const std::string& relative,
                  vb::TextView shown_name) {
  FormFileData data;
  data.relative_path = relative;
  data.document = FrmDocument::Parse(ReadWholeFile(folder / relative), shown_name);
  data.frx_relative_path = CompanionOf(relative);
  if (const auto frx = FindExisting(folder, data.frx_relative_path)) {
    data.frx_relative_path = *frx;
    data.frx = FrxFile(ReadWholeFile(folder / *frx));
  }
  const FrxFile* frx = data.frx ? &*data.frx : nullptr;
  FrmNode& block = data.document.Form();
  auto module = std::make_shared<CodeModule>(block.name, data.document.CodeLines());
  auto form = project.LoadForm(block.name, module);
  const auto rules = FormClass();
  for (const auto& child : block.children) {
    switch (child.kind) {
      case FrmNode::Kind::Property:
        form->LoadFormProperty(child.name, ValueFromFile(rules->Find(child.name), child, frx),
                               RawOf(child));
        break;
      case FrmNode::Kind::Group:
        if (SameName(child.name, u"Font")) LoadFont(form->FormFont(), child);
        break;
      case FrmNode::Kind::Object:
        LoadControlBlock(*form, child, nullptr, frx);
        break;
      case FrmNode::Kind::Blank:
        break;
    }
  }
  EmptyNameDefaults(form->FormSlots(), [&](const vb::Text& name) {
    form->LoadFormProperty(name, vb::Value(vb::Text()), {});
  });
  StripObjects(block);
  form->FileData() = std::move(data);
}

}  // namespace

std::shared_ptr<Project> OpenProject(const fs::path& vbp_path) {
  ProjectFileData data;
  data.vbp_path = vbp_path;
  data.vbp = VbpFile::Parse(ReadWholeFile(vbp_path), DisplayName(vbp_path.filename()));
  vb::Text name = data.vbp.ProjectName();
  if (name.empty()) name = vb::FromUtf8(vbp_path.stem().string());
  auto project = Project::Create(name);
  const fs::path folder = vbp_path.parent_path();

  const auto keep_file = [&](const std::string& relative) {
    data.other_files.emplace_back(relative, ReadWholeFile(folder / relative));
  };
  for (const auto& member : data.vbp.Members()) {
    const auto relative = RequireExisting(folder, MemberPathToGeneric(member.path));
    if (SameName(member.key, u"Form")) {
      LoadFormFile(*project, folder, relative, member.path);
      continue;
    }
    keep_file(relative);
    if (const auto companion = FindExisting(folder, CompanionOf(relative))) keep_file(*companion);
  }
  if (const auto resources = data.vbp.Get(u"ResFile32")) {
    const auto parsed = ParseFrmValue(*resources);
    if (!parsed.text.empty()) keep_file(RequireExisting(folder, MemberPathToGeneric(parsed.text)));
  }
  project->FileData() = std::move(data);
  return project;
}

// ------------------------------------------------- building a form's file

namespace {

// Libraries of the controls the workbench models outside VB itself, and the
// lines that make a form and a project load them.
struct ControlLibrary {
  std::u16string_view prefix;  // of the file class: "MSComctlLib."
  std::u16string_view object;  // "{GUID}#2.0#0"
  std::u16string_view file;    // "MSCOMCTL.OCX"
};
constexpr ControlLibrary kLibraries[] = {
    {u"MSComctlLib.", u"{831FDD16-0C5C-11D2-A9FC-0000F8754DA1}#2.0#0", u"MSCOMCTL.OCX"},
    {u"MSMask.", u"{C932BA88-4374-101B-A56C-00AA003668DC}#1.1#0", u"MSMASK32.OCX"},
    {u"RichTextLib.", u"{3B7C8863-D78F-101B-B9B5-04021C009402}#1.2#0", u"RICHTX32.OCX"},
    {u"TabDlg.", u"{BDC217C8-ED16-11CD-956C-0000C04E4C0A}#1.1#0", u"TABCTL32.OCX"},
};

const ControlLibrary* LibraryOf(vb::TextView file_class) {
  for (const auto& library : kLibraries) {
    if (file_class.size() > library.prefix.size() &&
        SameName(file_class.substr(0, library.prefix.size()), library.prefix)) {
      return &library;
    }
  }
  return nullptr;
}

bool MentionsLibrary(const std::vector<SourceLine>& lines, const ControlLibrary& library) {
  return std::any_of(lines.begin(), lines.end(), [&](const SourceLine& line) {
    return line.text.find(library.object.substr(0, 38)) != vb::Text::npos;
  });
}

vb::Text HexText(std::uint32_t value, std::size_t min_digits) {
  static constexpr char16_t kDigits[] = u"0123456789ABCDEF";
  vb::Text out;
  do {
    out.insert(out.begin(), kDigits[value % 16]);
    value /= 16;
  } while (value != 0);
  if (out.size() < min_digits) out.insert(0, min_digits - out.size(), u'0');
  return out;
}

// Strings that cannot stand on a line go to the end of the form's .frx,
// whose existing bytes stay as they are. An equal string already there is
// used again, so saving twice gives the same files.
class FrxAppender {
 public:
  explicit FrxAppender(FormFileData& data) : data_(data) {}

  vb::Text Reference(const vb::Text& text) {
    const std::string bytes = vb::ToCp1252(text);
    std::string blob(4, '\0');
    for (std::size_t i = 0; i < 4; ++i)
      blob[i] = static_cast<char>((bytes.size() >> (8 * i)) & 0xFF);
    blob += bytes;
    if (!data_.frx) data_.frx = FrxFile();
    std::string all = data_.frx->Bytes();
    auto offset = all.find(blob);
    if (offset == std::string::npos) {
      offset = all.size();
      all += blob;
      data_.frx = FrxFile(std::move(all));
    }
    const auto file = vb::FromUtf8(fs::path(data_.frx_relative_path).filename().string());
    return u"$" + QuoteFrmString(file) + u":" + HexText(static_cast<std::uint32_t>(offset), 4);
  }

 private:
  FormFileData& data_;
};

// Properties the IDE writes for every control that has them, default or not.
bool AlwaysWritten(vb::TextView name, bool is_form) {
  static constexpr std::u16string_view kControl[] = {
      u"Left", u"Top", u"Width", u"Height", u"TabIndex", u"X1", u"Y1", u"X2", u"Y2"};
  static constexpr std::u16string_view kForm[] = {u"ClientHeight",   u"ClientLeft",  u"ClientTop",
                                                  u"ClientWidth",    u"ScaleHeight", u"ScaleWidth",
                                                  u"StartUpPosition"};
  const auto in = [&](const auto& names) {
    return std::any_of(std::begin(names), std::end(names),
                       [&](std::u16string_view n) { return SameName(n, name); });
  };
  return is_form ? in(kForm) : in(kControl);
}

struct BlockModel {
  vb::TextView type;
  vb::TextView name;
  const std::vector<PropertySlot>& slots;
  const Font* font;
  bool is_form;
  bool is_new;  // no block in the file yet
};

// Whether a property that the file's block does not hold as read gets a line.
bool ShouldWrite(const PropertySlot& slot, const BlockModel& block) {
  if (SameName(slot.name, u"Name")) return false;  // it is on the Begin line
  if (slot.rule != nullptr && slot.rule->type == PropertyType::Font) return false;
  if (!slot.raw.empty()) return true;
  if (!slot.from_file && !slot.written && !block.is_new) return false;
  if (slot.rule == nullptr) return true;
  if (AlwaysWritten(slot.name, block.is_form)) return true;
  // The IDE leaves out what equals the class default; a default taken from
  // the control's name is no class default.
  const vb::Value class_default = slot.rule->default_from == DefaultFrom::ControlName
                                      ? vb::Value(vb::Text())
                                      : slot.rule->default_value;
  return slot.value != class_default;
}

bool EndsWithColor(vb::TextView name) {
  return name.size() >= 5 && SameName(name.substr(name.size() - 5), u"Color");
}

vb::Text ValueText(const PropertySlot& slot, vb::TextView file_class, FrxAppender& frx) {
  const vb::Value& value = slot.value;
  switch (value.GetKind()) {
    case vb::Kind::Text:
      if (value.AsText().find_first_of(u"\r\n") != vb::Text::npos) {
        return frx.Reference(value.AsText());
      }
      return QuoteFrmString(value.AsText());
    case vb::Kind::Boolean:
      return FormatFrmBoolean(value.AsBoolean());
    case vb::Kind::Integer:
    case vb::Kind::Long: {
      const vb::Long number =
          value.Is(vb::Kind::Integer) ? vb::Long{value.AsInteger()} : value.AsLong();
      if (EndsWithColor(slot.name)) {
        return u"&H" + HexText(static_cast<std::uint32_t>(number), 8) + u"&";
      }
      return FormatFrmValue(value, EnumValueName(file_class, slot.name, number));
    }
  }
  return value.ToText();
}

FrmNode FontGroup(const Font& font, vb::Text type) {
  FrmNode group = FrmNode::Group(u"Font", std::move(type));
  group.children = {
      FrmNode::Property(u"Name", QuoteFrmString(font.Name())),
      FrmNode::Property(u"Size", FormatFrmSingle(font.Size())),
      FrmNode::Property(u"Charset", vb::IntegerToText(font.Charset())),
      FrmNode::Property(u"Weight", vb::IntegerToText(font.Weight())),
      FrmNode::Property(u"Underline", FormatFrmBoolean(vb::ToBoolean(font.Underline()))),
      FrmNode::Property(u"Italic", FormatFrmBoolean(vb::ToBoolean(font.Italic()))),
      FrmNode::Property(u"Strikethrough", FormatFrmBoolean(vb::ToBoolean(font.Strikethrough()))),
  };
  return group;
}

int CompareNames(vb::TextView a, vb::TextView b) {
  const auto fold = [](char16_t c) {
    return (c >= u'a' && c <= u'z') ? static_cast<char16_t>(c - u'a' + u'A') : c;
  };
  for (std::size_t i = 0; i < a.size() && i < b.size(); ++i) {
    if (fold(a[i]) != fold(b[i])) return fold(a[i]) < fold(b[i]) ? -1 : 1;
  }
  return a.size() == b.size() ? 0 : (a.size() < b.size() ? -1 : 1);
}

// The IDE writes a block's properties in alphabetical order, so a new one
// goes before the first that sorts after it.
void InsertInOrder(std::vector<FrmNode>& nodes, FrmNode node) {
  const auto at = std::find_if(nodes.begin(), nodes.end(), [&](const FrmNode& other) {
    return other.kind != FrmNode::Kind::Blank && CompareNames(other.name, node.name) > 0;
  });
  nodes.insert(at, std::move(node));
}

FrmNode BuildBlock(const FrmNode* original, const BlockModel& block, FrxAppender& frx) {
  FrmNode node = original != nullptr ? *original : FrmNode::Object(vb::Text(block.type), {});
  if (node.name != block.name || node.type != block.type) {
    node.name = block.name;
    node.type = block.type;
    if (node.line) node.line_end = node.line->eol;
    node.line.reset();
  }
  const auto& slots = block.slots;
  const auto slot_named = [&](vb::TextView name) {
    return std::find_if(slots.begin(), slots.end(),
                        [&](const PropertySlot& slot) { return SameName(slot.name, name); });
  };
  std::vector<bool> done(slots.size());
  bool font_done = false;
  std::vector<FrmNode> children;
  for (const auto& child : node.children) {
    if (child.kind == FrmNode::Kind::Group && block.font != nullptr &&
        SameName(child.name, u"Font")) {
      font_done = true;
      // A font that kept its `raw` was not written since it was read.
      children.push_back(!block.font->raw.empty() ? child : FontGroup(*block.font, child.type));
      continue;
    }
    const auto slot = slot_named(child.name);
    if (child.kind != FrmNode::Kind::Property || slot == slots.end()) {
      // Blank lines, groups of other libraries, and lines the model holds
      // nothing for stay as read.
      children.push_back(child);
      continue;
    }
    // A property that kept its `raw` was not written since it was read: its
    // line stays as read (every line of it, should the file repeat it). A
    // written one gets one new line in place of the first.
    const auto index = static_cast<std::size_t>(slot - slots.begin());
    const bool repeated = done[index];
    done[index] = true;
    if (!slot->raw.empty()) {
      children.push_back(child);
    } else if (!repeated && ShouldWrite(*slot, block)) {
      FrmNode changed = FrmNode::Property(child.name, ValueText(*slot, block.type, frx));
      if (child.line) changed.line_end = child.line->eol;
      children.push_back(std::move(changed));
    }
  }
  for (std::size_t i = 0; i < slots.size(); ++i) {
    if (!done[i] && ShouldWrite(slots[i], block)) {
      InsertInOrder(children,
                    FrmNode::Property(slots[i].name, ValueText(slots[i], block.type, frx)));
    }
  }
  if (block.font != nullptr && !font_done && !(*block.font == Font())) {
    InsertInOrder(children, FontGroup(*block.font, {}));
  }
  node.children = std::move(children);
  return node;
}

using ControlsByContainer = std::vector<std::pair<const Control*, std::shared_ptr<Control>>>;

FrmNode BuildControl(const Control& control, const ControlsByContainer& all, FrxAppender& frx) {
  const auto* data = std::any_cast<ControlFileData>(&control.FileData());
  const BlockModel block{control.FileClass(), control.Name(), control.Slots(),
                         control.GetFont(),   false,          data == nullptr};
  FrmNode node = BuildBlock(data != nullptr ? &data->node : nullptr, block, frx);
  for (const auto& [container, child] : all) {
    if (container == &control) node.children.push_back(BuildControl(*child, all, frx));
  }
  return node;
}

FormFileData NewFormData(const FormComponent& form) {
  const vb::Text& name = form.FormName();
  FormFileData data;
  data.relative_path = vb::ToUtf8(name) + ".frm";
  data.frx_relative_path = vb::ToUtf8(name) + ".frx";
  const vb::Text text = u"VERSION 5.00\r\nBegin VB.Form " + name + u" \r\nEnd\r\n" +
                        u"Attribute VB_Name = " + QuoteFrmString(name) +
                        u"\r\n"
                        u"Attribute VB_GlobalNameSpace = False\r\n"
                        u"Attribute VB_Creatable = False\r\n"
                        u"Attribute VB_PredeclaredId = True\r\n"
                        u"Attribute VB_Exposed = False\r\n";
  data.document = FrmDocument::Parse(vb::ToCp1252(text), name);
  return data;
}

// The form's file (and its .frx, in `data`) from the model.
std::string BuildFormFile(const FormComponent& form, FormFileData& data, bool is_new) {
  FrxAppender frx(data);
  FrmDocument& document = data.document;

  // Each control goes under its container; one whose container is no longer
  // on the form goes under the form, so it is not lost.
  ControlsByContainer all;
  for (const auto& control : form.Controls()) {
    const auto container = control->Container();
    const bool placed =
        container && std::any_of(form.Controls().begin(), form.Controls().end(),
                                 [&](const auto& other) { return other == container; });
    all.emplace_back(placed ? container.get() : nullptr, control);
  }

  const BlockModel block{
      document.Form().type, form.FormName(), form.FormSlots(), &form.FormFont(), true, is_new};
  FrmNode root = BuildBlock(&document.Form(), block, frx);
  for (const auto& [container, control] : all) {
    if (container == nullptr) root.children.push_back(BuildControl(*control, all, frx));
  }
  document.Form() = std::move(root);

  // A new control of another library needs that library loaded; controls
  // read from the file stay as the file had them.
  for (const auto& control : form.Controls()) {
    const ControlLibrary* library = LibraryOf(control->FileClass());
    if (library == nullptr || control->FileData().has_value() ||
        MentionsLibrary(document.Header(), *library)) {
      continue;
    }
    auto& header = document.Header();
    const auto after = std::find_if(header.rbegin(), header.rend(),
                                    [](const SourceLine& line) { return !line.text.empty(); });
    header.insert(after.base(), {u"Object = " + QuoteFrmString(library->object) + u"; " +
                                     QuoteFrmString(library->file),
                                 document.LineEnd()});
  }
  document.SetAttribute(u"VB_Name", QuoteFrmString(form.FormName()));
  const auto module = form.Module();
  document.SetCodeLines(module ? module->AllLines() : std::vector<vb::Text>{});
  return document.Write();
}

VbpFile NewProjectFile(const Project& project) {
  vb::Text text =
      u"Type=Exe\r\n"
      u"Reference=*\\G{00020430-0000-0000-C000-000000000046}#2.0#0#..\\..\\..\\WINDOWS\\system32\\"
      u"stdole2.tlb#OLE Automation\r\n";
  if (!project.Forms().empty()) {
    text += u"Startup=" + QuoteFrmString(project.Forms().front()->FormName()) + u"\r\n";
  }
  text += u"Name=" + QuoteFrmString(project.Name()) + u"\r\n";
  return VbpFile::Parse(vb::ToCp1252(text), project.Name());
}

struct SaveSet {
  std::string vbp_name;
  std::map<std::string, std::string> files;  // members, by relative path
};

SaveSet BuildSaveSet(const Project& project) {
  SaveSet set;
  const auto* data = std::any_cast<ProjectFileData>(&project.FileData());
  VbpFile vbp = data != nullptr ? data->vbp : NewProjectFile(project);
  set.vbp_name =
      data != nullptr ? data->vbp_path.filename().string() : vb::ToUtf8(project.Name()) + ".vbp";
  for (const auto& form : project.Forms()) {
    const auto* form_data = std::any_cast<FormFileData>(&form->FileData());
    FormFileData working = form_data != nullptr ? *form_data : NewFormData(*form);
    if (form_data == nullptr) {
      vb::Text path = vb::FromUtf8(working.relative_path);
      std::replace(path.begin(), path.end(), u'/', u'\\');
      vbp.Add(u"Form", path);
    }
    set.files[working.relative_path] = BuildFormFile(*form, working, form_data == nullptr);
    if (working.frx) set.files[working.frx_relative_path] = working.frx->Bytes();
    for (const auto& control : form->Controls()) {
      const ControlLibrary* library = LibraryOf(control->FileClass());
      if (library == nullptr || control->FileData().has_value()) continue;
      const auto objects = vbp.GetAll(u"Object");
      const bool listed = std::any_of(objects.begin(), objects.end(), [&](const vb::Text& line) {
        return line.find(library->object.substr(0, 38)) != vb::Text::npos;
      });
      if (!listed) vbp.Add(u"Object", vb::Text(library->object) + u"; " + vb::Text(library->file));
    }
  }
  if (data != nullptr) {
    for (const auto& [relative, bytes] : data->other_files) set.files[relative] = bytes;
  }
  // The project file keeps its own spelling of an unchanged name.
  if (vbp.ProjectName() != project.Name()) vbp.Set(u"Name", QuoteFrmString(project.Name()));
  set.files[set.vbp_name] = vbp.Write();
  return set;
}

void WriteIfChanged(const fs::path& path, const std::string& bytes) {
  std::error_code error;
  if (fs::exists(path, error)) {
    try {
      if (ReadWholeFile(path) == bytes) return;
    } catch (const vb::Failure&) {
      // Unreadable: replacing it below reports the trouble if it persists.
    }
  }
  if (path.has_parent_path()) fs::create_directories(path.parent_path(), error);
  ReplaceFile(path, bytes);
}

}  // namespace

std::map<std::string, std::string> ProjectFileBytes(const Project& project) {
  return BuildSaveSet(project).files;
}

void SaveProject(const Project& project) {
  const auto* data = std::any_cast<ProjectFileData>(&project.FileData());
  if (data == nullptr) {
    throw vb::Failure(vb::kPathFileAccess, u"Path/File access error: the project " +
                                               project.Name() + u" has no project file yet");
  }
  SaveProject(project, data->vbp_path);
}

void SaveProject(const Project& project, const fs::path& vbp_path) {
  SaveSet set = BuildSaveSet(project);
  const std::string vbp_bytes = std::move(set.files[set.vbp_name]);
  set.files.erase(set.vbp_name);
  const fs::path folder = vbp_path.parent_path();
  // Members first, the project file last: a project file never names a
  // member that was not written.
  for (const auto& [relative, bytes] : set.files) WriteIfChanged(folder / relative, bytes);
  WriteIfChanged(vbp_path, vbp_bytes);
}

}  // namespace workbench
