#include "session/project_dump.hpp"

#include "session/trace.hpp"
#include "vb/convert.hpp"

namespace session {

using workbench::Control;
using workbench::Font;
using workbench::PropertySlot;
using workbench::PropertyType;

namespace {

nlohmann::ordered_json FontJson(const Font& font) {
  nlohmann::ordered_json json;
  json["name"] = vb::ToUtf8(font.Name());
  json["size"] = vb::ToUtf8(vb::SingleToText(font.Size()));
  json["bold"] = font.Bold();
  json["italic"] = font.Italic();
  json["underline"] = font.Underline();
  json["strikethrough"] = font.Strikethrough();
  return json;
}

nlohmann::ordered_json PropertiesJson(const std::vector<PropertySlot>& slots) {
  nlohmann::ordered_json json = nlohmann::ordered_json::array();
  for (const PropertySlot& slot : slots) {
    if (slot.rule && slot.rule->type == PropertyType::Font) continue;  // under "font"
    nlohmann::ordered_json property;
    property["name"] = vb::ToUtf8(slot.name);
    PutValue(property, slot.value);
    json.push_back(std::move(property));
  }
  return json;
}

nlohmann::ordered_json ControlJson(const Control& control) {
  nlohmann::ordered_json json;
  json["class"] = vb::ToUtf8(control.ClassName());
  json["name"] = vb::ToUtf8(control.Name());
  if (auto index = control.Index()) {
    json["index"] = *index;
  } else {
    json["index"] = nullptr;
  }
  if (auto container = control.Container()) {
    json["container"] = vb::ToUtf8(container->DisplayName());
  } else {
    json["container"] = nullptr;
  }
  json["properties"] = PropertiesJson(control.Slots());
  if (const Font* font = control.GetFont()) json["font"] = FontJson(*font);
  return json;
}

nlohmann::ordered_json CodeJson(workbench::CodeModule& module) {
  nlohmann::ordered_json json;
  json["lines"] = module.CountOfLines();
  nlohmann::ordered_json members = nlohmann::ordered_json::array();
  if (auto all = module.Members()) {
    for (const auto& member : all->All()) {
      members.push_back({{"name", vb::ToUtf8(member->Name())}, {"line", member->CodeLocation()}});
    }
  }
  json["members"] = std::move(members);
  return json;
}

}  // namespace

nlohmann::ordered_json DumpProject(const workbench::Project& project) {
  nlohmann::ordered_json json;
  json["name"] = vb::ToUtf8(project.Name());
  nlohmann::ordered_json forms = nlohmann::ordered_json::array();
  for (const auto& form : project.Forms()) {
    nlohmann::ordered_json form_json;
    form_json["name"] = vb::ToUtf8(form->FormName());
    form_json["properties"] = PropertiesJson(form->FormSlots());
    form_json["font"] = FontJson(form->FormFont());
    nlohmann::ordered_json controls = nlohmann::ordered_json::array();
    for (const auto& control : form->Controls()) controls.push_back(ControlJson(*control));
    form_json["controls"] = std::move(controls);
    if (auto module = form->Module()) {
      form_json["code"] = CodeJson(*module);
    } else {
      form_json["code"] = nullptr;
    }
    forms.push_back(std::move(form_json));
  }
  json["forms"] = std::move(forms);
  return json;
}

}  // namespace session
