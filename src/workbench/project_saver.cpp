// Saving a project: the model turned back into its files.
//
// Sections: which properties get lines, blocks from the model, the form's
// file, the project's files.
#include "workbench/project_saver.hpp"

#include <algorithm>
#include <any>
#include <deque>
#include <unordered_map>
#include <unordered_set>

#include "vb/convert.hpp"
#include "vbfiles/control_libraries.hpp"
#include "vbfiles/frm_enum_names.hpp"
#include "vbfiles/frm_value.hpp"
#include "vbfiles/project_backup.hpp"
#include "vbfiles/project_files.hpp"
#include "workbench/class_rules.hpp"
#include "workbench/project_loader.hpp"

namespace workbench {

using vbfiles::FrmNode;

namespace {

// ------------------------------------------------- which properties get lines

// Properties the IDE writes for every control that has them, default or not.
bool AlwaysWritten(vb::TextView name, bool is_form) {
  static constexpr std::u16string_view kControl[] = {
      u"Left", u"Top", u"Width", u"Height", u"TabIndex", u"X1", u"Y1", u"X2", u"Y2"};
  static constexpr std::u16string_view kForm[] = {u"ClientHeight",   u"ClientLeft",  u"ClientTop",
                                                  u"ClientWidth",    u"ScaleHeight", u"ScaleWidth",
                                                  u"StartUpPosition"};
  const auto in = [&](const auto& names) {
    return std::any_of(std::begin(names), std::end(names),
                       [&](std::u16string_view n) { return vb::SameName(n, name); });
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
  if (vb::SameName(slot.name, u"Name")) return false;  // it is on the Begin line
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
  return name.size() >= 5 && vb::SameName(name.substr(name.size() - 5), u"Color");
}

vb::Text ValueText(const PropertySlot& slot, vb::TextView file_class, vbfiles::FormFile& file) {
  const vb::Value& value = slot.value;
  switch (value.GetKind()) {
    case vb::Kind::Text:
      if (value.AsText().find_first_of(u"\r\n") != vb::Text::npos) {
        return file.StoreString(value.AsText());
      }
      return vbfiles::QuoteFrmString(value.AsText());
    case vb::Kind::Boolean:
      return vbfiles::FormatFrmBoolean(value.AsBoolean());
    case vb::Kind::Integer:
    case vb::Kind::Long: {
      const vb::Long number =
          value.Is(vb::Kind::Integer) ? vb::Long{value.AsInteger()} : value.AsLong();
      if (EndsWithColor(slot.name)) {
        return vbfiles::FormatFrmColor(number);
      }
      return vbfiles::FormatFrmValue(value, vbfiles::EnumValueName(file_class, slot.name, number));
    }
  }
  return value.ToText();
}

FrmNode FontGroup(const Font& font, vb::Text type) {
  FrmNode group = FrmNode::Group(u"Font", std::move(type));
  group.children = {
      FrmNode::Property(u"Name", vbfiles::QuoteFrmString(font.Name())),
      FrmNode::Property(u"Size", vbfiles::FormatFrmSingle(font.Size())),
      FrmNode::Property(u"Charset", vb::IntegerToText(font.Charset())),
      FrmNode::Property(u"Weight", vb::IntegerToText(font.Weight())),
      FrmNode::Property(u"Underline", vbfiles::FormatFrmBoolean(vb::ToBoolean(font.Underline()))),
      FrmNode::Property(u"Italic", vbfiles::FormatFrmBoolean(vb::ToBoolean(font.Italic()))),
      FrmNode::Property(u"Strikethrough",
                        vbfiles::FormatFrmBoolean(vb::ToBoolean(font.Strikethrough()))),
  };
  return group;
}

// ------------------------------------------------- blocks from the model

// A block as saved: its own Begin and End lines, and what goes inside in
// order, each a line or group as read (in what the loader kept: not copied),
// one made anew (held in `made`), or the place of a control's block.
struct SavedBlock {
  FrmNode lines;  // no children
  std::vector<const FrmNode*> entries;
  std::deque<FrmNode> made;  // addresses stay as it grows
};

SavedBlock BuildBlock(const FrmNode* original, const BlockModel& block, vbfiles::FormFile& file) {
  static const std::vector<FrmNode> kNone;
  SavedBlock saved;
  FrmNode& node = saved.lines;
  if (original != nullptr) {
    node.kind = original->kind;
    node.name = original->name;
    node.type = original->type;
    node.line = original->line;
    node.line_end = original->line_end;
    node.end_line = original->end_line;
  } else {
    node = FrmNode::Object(vb::Text(block.type), {});
  }
  // Only a rename rewrites the Begin line; the class stays as the file spells it.
  if (node.name != block.name) {
    node.name = block.name;
    if (node.line) node.line_end = node.line->eol;
    node.line.reset();
  }
  const auto make = [&](FrmNode made) { return &saved.made.emplace_back(std::move(made)); };
  const auto& slots = block.slots;
  const auto slot_named = [&](vb::TextView name) {
    return std::find_if(slots.begin(), slots.end(),
                        [&](const PropertySlot& slot) { return vb::SameName(slot.name, name); });
  };
  std::vector<bool> done(slots.size());
  bool font_done = false;
  const auto& read = original != nullptr ? original->children : kNone;
  auto& entries = saved.entries;
  entries.reserve(read.size());
  for (const auto& child : read) {
    if (child.kind == FrmNode::Kind::Group && block.font != nullptr &&
        vb::SameName(child.name, u"Font")) {
      font_done = true;
      // A font that kept its `raw` was not written since it was read.
      entries.push_back(!block.font->raw.empty() ? &child
                                                 : make(FontGroup(*block.font, child.type)));
      continue;
    }
    const auto slot = slot_named(child.name);
    if (child.kind != FrmNode::Kind::Property || slot == slots.end() ||
        vb::SameName(child.name, u"Name")) {
      // Blank lines, groups of other libraries, lines the model holds
      // nothing for, and a Name line (the name is the Begin line's) stay as
      // read.
      entries.push_back(&child);
      continue;
    }
    // A property that kept its `raw` was not written since it was read: its
    // line stays as read (every line of it, should the file repeat it). A
    // written one gets one new line in place of the first.
    const auto index = static_cast<std::size_t>(slot - slots.begin());
    const bool repeated = done[index];
    done[index] = true;
    if (!slot->raw.empty()) {
      entries.push_back(&child);
    } else if (!repeated && ShouldWrite(*slot, block)) {
      FrmNode changed = FrmNode::Property(child.name, ValueText(*slot, block.type, file));
      if (child.line) changed.line_end = child.line->eol;
      entries.push_back(make(std::move(changed)));
    }
  }
  for (std::size_t i = 0; i < slots.size(); ++i) {
    if (!done[i] && ShouldWrite(slots[i], block)) {
      vbfiles::InsertInIdeOrder(
          entries, make(FrmNode::Property(slots[i].name, ValueText(slots[i], block.type, file))));
    }
  }
  if (block.font != nullptr && !font_done && !(*block.font == Font())) {
    vbfiles::InsertInIdeOrder(entries, make(FontGroup(*block.font, {})));
  }
  return saved;
}

// The controls inside each container (null: the form), in the form's order.
using ControlsByContainer = std::unordered_map<const Control*, std::vector<const Control*>>;

void WriteControl(const Control& control, const ControlsByContainer& all, vbfiles::FormFile& file,
                  vbfiles::FrmWriter& out, int depth);

// Writes the block with the blocks of the controls inside `container` (null:
// the form): each control read from the file where its block was, a new one
// (or one moved here) after the last; the place of a deleted control is
// dropped.
void WriteBlock(const SavedBlock& saved, const Control* container, const ControlsByContainer& all,
                vbfiles::FormFile& file, vbfiles::FrmWriter& out, int depth) {
  static const std::vector<const Control*> kNone;
  const auto found = all.find(container);
  const auto& inside = found != all.end() ? found->second : kNone;
  std::vector<bool> placed(inside.size());
  std::unordered_map<std::size_t, std::size_t> by_line;  // line read from -> index
  for (std::size_t i = 0; i < inside.size(); ++i) {
    const auto* kept = KeptFileData<FrmNode>(inside[i]->FileData());
    if (kept != nullptr) by_line.emplace(kept->line_number, i);
  }
  out.Begin(saved.lines, depth);
  for (const FrmNode* entry : saved.entries) {
    if (entry->kind != FrmNode::Kind::Object) {
      out.Add(*entry, depth + 1);
      continue;
    }
    if (const auto it = by_line.find(entry->line_number);
        it != by_line.end() && !placed[it->second]) {
      placed[it->second] = true;
      WriteControl(*inside[it->second], all, file, out, depth + 1);
    }
  }
  for (std::size_t i = 0; i < inside.size(); ++i) {
    if (!placed[i]) WriteControl(*inside[i], all, file, out, depth + 1);
  }
  out.End(saved.lines, depth);
}

void WriteControl(const Control& control, const ControlsByContainer& all, vbfiles::FormFile& file,
                  vbfiles::FrmWriter& out, int depth) {
  const auto* kept = KeptFileData<FrmNode>(control.FileData());
  const BlockModel block{control.FileClass(), control.Name(), control.Slots(),
                         control.GetFont(),   false,          kept == nullptr};
  WriteBlock(BuildBlock(kept, block, file), &control, all, file, out, depth);
}

// ------------------------------------------------- the form's file

// The library a new control of another library needs loaded; null for VB's
// own controls and for controls read from the file, which stay as the file
// had them.
const vbfiles::ControlLibrary* LibraryToLoad(const Control& control) {
  return control.FileData().has_value() ? nullptr : vbfiles::LibraryOf(control.FileClass());
}

// The form's file (and its .frx, in `file`) from the model.
std::string BuildFormFile(const FormComponent& form, vbfiles::FormFile& file, bool is_new) {
  vbfiles::FrmDocument& document = file.document;

  // Each control goes under its container; one whose container is no longer
  // on the form goes under the form, so it is not lost.
  std::unordered_set<const Control*> on_form;
  for (const auto& control : form.Controls()) on_form.insert(control.get());
  ControlsByContainer all;
  for (const auto& control : form.Controls()) {
    const Control* container = control->Container().get();
    all[on_form.count(container) != 0 ? container : nullptr].push_back(control.get());
  }

  for (const auto& control : form.Controls()) {
    if (const auto* library = LibraryToLoad(*control)) vbfiles::AddLibraryTo(document, *library);
  }
  // Only a renamed form gets a new VB_Name line: the line as read stays, its
  // spelling, comment or absence included.
  if (document.Form().name != form.FormName()) {
    document.SetAttribute(u"VB_Name", vbfiles::QuoteFrmString(form.FormName()));
  }
  const auto module = form.Module();
  document.SetCodeLines(module ? module->AllLines() : std::vector<vb::Text>{});

  const BlockModel block{
      document.Form().type, form.FormName(), form.FormSlots(), &form.FormFont(), true, is_new};
  vbfiles::FrmWriter out(document);
  WriteBlock(BuildBlock(&document.Form(), block, file), nullptr, all, file, out, 0);
  return out.Finish();
}

// ------------------------------------------------- the project's files

struct SaveSet {
  std::string vbp_name;
  std::map<std::string, std::string> files;  // members, by relative path
};

SaveSet BuildSaveSet(const Project& project) {
  SaveSet set;
  const auto* data = KeptFileData<vbfiles::ProjectFiles>(project.FileData());
  std::optional<vb::Text> startup;
  if (!project.Forms().empty()) startup = project.Forms().front()->FormName();
  vbfiles::VbpFile vbp =
      data != nullptr ? data->vbp : vbfiles::NewProjectFile(project.Name(), startup);
  set.vbp_name =
      data != nullptr ? data->vbp_path.filename().string() : vb::ToUtf8(project.Name()) + ".vbp";
  for (const auto& form : project.Forms()) {
    const auto* form_data = KeptFileData<vbfiles::FormFile>(form->FileData());
    vbfiles::FormFile working =
        form_data != nullptr ? *form_data : vbfiles::FormFile::New(form->FormName());
    if (form_data == nullptr) {
      vb::Text path = vb::FromUtf8(working.relative_path);
      std::replace(path.begin(), path.end(), u'/', u'\\');
      vbp.Add(u"Form", path);
    }
    set.files[working.relative_path] = BuildFormFile(*form, working, form_data == nullptr);
    if (working.frx) set.files[working.frx_relative_path] = working.frx->Bytes();
    for (const auto& control : form->Controls()) {
      if (const auto* library = LibraryToLoad(*control)) vbfiles::AddLibraryTo(vbp, *library);
    }
  }
  if (data != nullptr) {
    for (const auto& [relative, bytes] : data->other_files) set.files[relative] = bytes;
  }
  // The project file keeps its own spelling of an unchanged name, and its
  // absence: a project without Name= is named for its file.
  if ((data != nullptr ? data->Name() : vbp.ProjectName()) != project.Name()) {
    vbp.Set(u"Name", vbfiles::QuoteFrmString(project.Name()));
  }
  set.files[set.vbp_name] = vbp.Write();
  return set;
}

}  // namespace

std::map<std::string, std::string> ProjectFileBytes(const Project& project) {
  return BuildSaveSet(project).files;
}

namespace {

SaveResult Save(const Project& project, const std::filesystem::path& vbp_path, bool backup) {
  SaveSet set = BuildSaveSet(project);
  const std::string vbp_bytes = std::move(set.files[set.vbp_name]);
  set.files.erase(set.vbp_name);
  // Over the files it was read from, a file is compared with what was read.
  const auto* data = KeptFileData<vbfiles::ProjectFiles>(project.FileData());
  std::error_code error;
  const bool same_place =
      data != nullptr && std::filesystem::equivalent(data->vbp_path, vbp_path, error);
  const auto writes =
      vbfiles::ProjectWrites(vbp_path, set.files, vbp_bytes, same_place ? &data->as_read : nullptr);
  SaveResult result{vbp_path, writes.size(), std::nullopt};
  if (backup) {
    // What the disk holds already needs no backup, whatever was read.
    std::vector<std::filesystem::path> replaced;
    for (const auto& write : vbfiles::ProjectWrites(vbp_path, set.files, vbp_bytes)) {
      replaced.push_back(write.path);
    }
    result.backup = vbfiles::BackUpFiles(vbp_path, replaced);
  }
  try {
    vbfiles::CommitFiles(writes);
  } catch (const vb::Failure&) {
    // Nothing was replaced: a backup of it would only mislead.
    if (result.backup) std::filesystem::remove_all(*result.backup, error);
    throw;
  }
  return result;
}

}  // namespace

SaveResult SaveProject(const Project& project) {
  const auto* data = KeptFileData<vbfiles::ProjectFiles>(project.FileData());
  if (data == nullptr) {
    throw vb::Failure(vb::kPathFileAccess, u"Path/File access error: the project " +
                                               project.Name() + u" has no project file yet");
  }
  return Save(project, data->vbp_path, true);
}

SaveResult SaveProject(const Project& project, const std::filesystem::path& vbp_path) {
  return Save(project, vbp_path, false);
}

}  // namespace workbench
