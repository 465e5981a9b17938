#include "session/trace.hpp"

#include <cerrno>

#include "forms/control.hpp"
#include "forms/form.hpp"
#include "vb/convert.hpp"
#include "workbench/control.hpp"

namespace session {

using workbench::CodeEdit;
using workbench::CodeModule;
using workbench::Control;
using workbench::WriteSource;

namespace {

std::string U8(const vb::Text& t) { return vb::ToUtf8(t); }

std::string ControlPath(const Control& control) {
  std::string path;
  if (auto form = control.Form()) path = U8(form->FormName()) + ".";
  return path + U8(control.DisplayName());
}

Json FontJson(const forms::FontChoice& f) {
  return Json{{"name", U8(f.name)}, {"size", f.size},           {"bold", f.bold},
              {"italic", f.italic}, {"underline", f.underline}, {"strikethru", f.strike_thru}};
}

void PutOutcome(Json& event, const std::optional<vb::Failure>& outcome) {
  if (!outcome) {
    event["outcome"] = "ok";
    return;
  }
  event["outcome"] = "refused";
  event["number"] = outcome->Number();
  event["description"] = U8(outcome->Description());
}

const char* CodeOpName(CodeEdit::Op op) {
  switch (op) {
    case CodeEdit::Op::DeleteLines:
      return "delete_lines";
    case CodeEdit::Op::AddFromString:
      return "add_from_string";
    case CodeEdit::Op::InsertLines:
      return "insert_lines";
    case CodeEdit::Op::ReplaceAll:
      return "replace_all";
  }
  return "?";
}

}  // namespace

void PutValue(Json& event, const vb::Value& value) {
  switch (value.GetKind()) {
    case vb::Kind::Text:
      event["value"] = U8(value.AsText());
      break;
    case vb::Kind::Boolean:
      event["value"] = vb::IsTrue(value.AsBoolean());
      break;
    case vb::Kind::Integer:
      event["value"] = value.AsInteger();
      break;
    case vb::Kind::Long:
      event["value"] = value.AsLong();
      break;
  }
  event["kind"] = vb::KindName(value.GetKind());
}

Trace::Trace(std::ostream* jsonl, std::ostream* transcript)
    : jsonl_(jsonl), transcript_(transcript) {}

void Trace::Emit(Json event) {
  Json record{{"seq", ++seq_}, {"line", line_}};
  for (auto& [k, v] : event.items()) record[k] = v;
  if (jsonl_) *jsonl_ << record.dump() << '\n';
  NoteFailure(jsonl_, trace_error_);
  if (transcript_) {
    const std::string text = Render(record);
    if (!text.empty()) *transcript_ << "  " << text << '\n';
  }
  NoteFailure(transcript_, transcript_error_);
  events_.push_back(std::move(record));
}

void Trace::Say(const std::string& text) {
  if (transcript_) *transcript_ << text << '\n';
  NoteFailure(transcript_, transcript_error_);
}

void Trace::NoteFailure(const std::ostream* stream, int& error) {
  if (stream != nullptr && stream->fail() && error == 0) error = errno != 0 ? errno : EIO;
}

namespace {

// One line a control: "txtName [TextBox] "chk" focus".
std::string RenderState(const Json& state) {
  if (state.is_null()) return "no dialog is open";
  std::string out = "[" + state["caption"].get<std::string>() + "]";
  for (const auto& c : state["controls"]) {
    out += "\n    " + c["control"].get<std::string>() + " [" + c["kind"].get<std::string>() + "]";
    if (c.contains("text")) out += " text=" + c["text"].dump();
    if (c.contains("caption")) out += " caption=" + c["caption"].dump();
    if (c.contains("value")) out += " value=" + c["value"].dump();
    if (c.contains("tag")) out += " tag=" + c["tag"].dump();
    if (!c["enabled"].get<bool>()) out += " disabled";
    if (!c["visible"].get<bool>()) out += " hidden";
    if (c["focus"].get<bool>()) out += " FOCUS";
    if (c.contains("rows")) {
      for (const auto& r : c["rows"]) {
        out += "\n      [" + std::string(r["checked"].get<bool>() ? "x" : " ") + "] " +
               r["text"].get<std::string>() + " (" + r["item_data"].dump() + ")";
      }
    }
  }
  return out;
}

// One line a control, with the properties a dialog writes.
std::string RenderDump(const Json& project) {
  if (project.is_null()) return "no project is open";
  static const char* const kShown[] = {"Caption", "Text", "Value", "Enabled",  "Visible",
                                       "Index",   "Tag",  "Style", "Alignment"};
  std::string out = "project " + project["name"].get<std::string>();
  for (const auto& form : project["forms"]) {
    out += "\n    form " + form["name"].get<std::string>();
    for (const auto& c : form["controls"]) {
      out += "\n      " + c["class"].get<std::string>() + " " + c["name"].get<std::string>();
      if (!c["index"].is_null()) out += "(" + c["index"].dump() + ")";
      out += ":";
      for (const auto& p : c["properties"]) {
        const std::string name = p["name"].get<std::string>();
        for (const char* shown : kShown) {
          if (name == shown && !(name == "Index" && p["value"] == -1)) {
            out += " " + name + "=" + p["value"].dump();
          }
        }
      }
      if (c.contains("font") && c["font"].is_object()) {
        out += " Font=" + c["font"]["name"].dump() + "," + c["font"]["size"].get<std::string>();
      }
    }
  }
  return out;
}

}  // namespace

std::string Trace::Render(const Json& e) {
  const std::string ev = e.value("event", "");
  auto s = [&](const char* key) { return e.contains(key) ? e[key].dump() : std::string(); };
  if (ev == "form_shown") return "[" + e["caption"].get<std::string>() + "] shown";
  if (ev == "form_closed") return "[" + e["caption"].get<std::string>() + "] closed";
  if (ev == "focus") return "focus -> " + e["control"].get<std::string>();
  if (ev == "msgbox") {
    return "message box " + s("title") + ": " + s("text") + " -> " + e["answer"].get<std::string>();
  }
  if (ev == "font_service") {
    return std::string("font service ") + (e["ok"].get<bool>() ? "OK: " : "cancelled: ") +
           e["result"].dump();
  }
  if (ev == "setting_read") {
    return "setting " + e["key"].get<std::string>() + " read: " + s("text") +
           (e["stored"].get<bool>() ? "" : " (default)");
  }
  if (ev == "setting_written") return "setting " + e["key"].get<std::string>() + " = " + s("text");
  if (ev == "property_write" || ev == "font_write") {
    std::string line = (ev == "font_write" ? "font " : "write ") + e["control"].get<std::string>() +
                       "." + e["property"].get<std::string>() + " = " + s("value") + " (" +
                       e["kind"].get<std::string>() + ")";
    if (e["outcome"] == "refused") line += " REFUSED: " + e["description"].get<std::string>();
    return line;
  }
  if (ev == "code_edit") {
    return "code " + e["form"].get<std::string>() + ": " + e["op"].get<std::string>() + " " +
           s("first") + "+" + s("count");
  }
  if (ev == "control_added") return "IDE: added " + s("class") + " " + s("control");
  if (ev == "control_removed") return "IDE: deleted " + s("control");
  if (ev == "control_renamed") return "IDE: renamed " + s("old_name") + " to " + s("control");
  if (ev.rfind("menu_", 0) == 0) return "menu " + ev.substr(5) + ": " + s("caption");
  if (ev == "state") {
    std::string out = RenderState(e["state"]);
    if (e.contains("msgbox")) {
      const Json& box = e["msgbox"];
      std::string answers;
      for (const auto& a : box["answers"])
        answers += (answers.empty() ? "" : ", ") + a.get<std::string>();
      out += "\n    waiting: message box " + box["title"].dump() + ": " + box["text"].dump() +
             " [" + answers + "]";
    }
    return out;
  }
  if (ev == "mark") return "mark: " + e["text"].get<std::string>();
  if (ev == "store_set") return "store " + e["key"].get<std::string>() + " = " + s("text");
  if (ev == "store_removed") {
    return "store " + e["key"].get<std::string>() +
           (e["existed"].get<bool>() ? " removed" : " removed (was not stored)");
  }
  if (ev == "dump") return RenderDump(e["project"]);
  if (ev == "listing") {
    std::string out = "code of " + e["form"].get<std::string>() + ":";
    int n = 0;
    for (const auto& l : e["lines"])
      out += "\n    " + std::to_string(++n) + "  " + l.get<std::string>();
    return out;
  }
  if (ev == "opened")
    return "opened " + e["path"].get<std::string>() + " (" + s("forms") + " forms)";
  if (ev == "saved") {
    std::string out =
        "saved " + e["path"].get<std::string>() + " (" + s("written") + " files written)";
    if (!e["backup"].is_null()) out += "; previous files in " + e["backup"].get<std::string>();
    return out;
  }
  if (ev == "undo") return "undid: " + e["step"].get<std::string>();
  if (ev == "redo") return "redid: " + e["step"].get<std::string>();
  if (ev == "failure") {
    // The add-in's event failed, or the IDE refused the action itself.
    return "FAILED: " + e["action"].get<std::string>() + " (" + s("number") +
           "): " + e["description"].get<std::string>();
  }
  return std::string();
}

void Trace::FormShown(const forms::Form& form) {
  Emit({{"event", "form_shown"}, {"form", form.Name()}, {"caption", U8(form.Caption())}});
}

void Trace::FormClosed(const forms::Form& form) {
  Emit({{"event", "form_closed"}, {"form", form.Name()}, {"caption", U8(form.Caption())}});
}

void Trace::FocusChanged(const forms::Form& form, const forms::Control& control) {
  Emit({{"event", "focus"}, {"form", form.Name()}, {"control", control.Path()}});
}

void Trace::MessageBoxShown(const forms::MessageBox& box, std::int32_t answer) {
  Emit({{"event", "msgbox"},
        {"text", U8(box.prompt)},
        {"title", U8(box.title)},
        {"title_given", box.title_given},
        {"buttons", box.buttons},
        {"answer", forms::MsgBoxResultName(answer)}});
}

void Trace::FontServiceClosed(const forms::FontChoice& given, const forms::FontChoice& result,
                              bool ok) {
  Emit({{"event", "font_service"},
        {"given", FontJson(given)},
        {"result", FontJson(result)},
        {"ok", ok}});
}

void Trace::SettingRead(const vb::Text& app, const vb::Text& section, const vb::Text& key,
                        const vb::Text& text, bool stored) {
  Emit({{"event", "setting_read"},
        {"app", U8(app)},
        {"section", U8(section)},
        {"key", U8(key)},
        {"text", U8(text)},
        {"stored", stored}});
}

void Trace::SettingWritten(const vb::Text& app, const vb::Text& section, const vb::Text& key,
                           const vb::Text& text) {
  Emit({{"event", "setting_written"},
        {"app", U8(app)},
        {"section", U8(section)},
        {"key", U8(key)},
        {"text", U8(text)}});
}

void Trace::PropertyWritten(const Control& control, const vb::Text& property,
                            const vb::Value& value, WriteSource source,
                            const std::optional<vb::Failure>& outcome) {
  Json e{
      {"event", "property_write"}, {"control", ControlPath(control)}, {"property", U8(property)}};
  PutValue(e, value);
  e["source"] = source == WriteSource::AddIn ? "add-in" : "sheet";
  PutOutcome(e, outcome);
  Emit(std::move(e));
}

void Trace::FontWritten(const Control& control, ide::FontDispId id, const vb::Value& value,
                        const std::optional<vb::Failure>& outcome) {
  Json e{{"event", "font_write"},
         {"control", ControlPath(control)},
         {"property", ide::FontDispIdName(id)},
         {"dispid", static_cast<int>(id)}};
  PutValue(e, value);
  PutOutcome(e, outcome);
  Emit(std::move(e));
}

void Trace::ControlAdded(const Control& control) {
  Emit({{"event", "control_added"},
        {"class", U8(control.ClassName())},
        {"control", ControlPath(control)}});
}

void Trace::ControlRemoved(const Control& control) {
  Emit({{"event", "control_removed"}, {"control", ControlPath(control)}});
}

void Trace::ControlRenamed(const Control& control, const vb::Text& old_name,
                           std::int32_t old_index) {
  Emit({{"event", "control_renamed"},
        {"control", ControlPath(control)},
        {"old_name", U8(old_name)},
        {"old_index", old_index}});
}

void Trace::MenuEntryAdded(const vb::Text& bar, const vb::Text& caption) {
  Emit({{"event", "menu_added"}, {"bar", U8(bar)}, {"caption", U8(caption)}});
}

void Trace::MenuEntryCaptionSet(const vb::Text& bar, const vb::Text& old_caption,
                                const vb::Text& caption) {
  Emit({{"event", "menu_caption"},
        {"bar", U8(bar)},
        {"old_caption", U8(old_caption)},
        {"caption", U8(caption)}});
}

void Trace::MenuEntryRemoved(const vb::Text& bar, const vb::Text& caption) {
  Emit({{"event", "menu_removed"}, {"bar", U8(bar)}, {"caption", U8(caption)}});
}

void Trace::MenuEntryClicked(const vb::Text& bar, const vb::Text& caption) {
  Emit({{"event", "menu_clicked"}, {"bar", U8(bar)}, {"caption", U8(caption)}});
}

void Trace::CodeEdited(const CodeModule& module, const CodeEdit& edit) {
  Json e{{"event", "code_edit"},
         {"form", U8(module.Name())},
         {"op", CodeOpName(edit.op)},
         {"first", edit.first},
         {"count", edit.count}};
  if (!edit.text.empty()) e["text"] = U8(edit.text);
  Emit(std::move(e));
}

}  // namespace session
