#include "session/form_state.hpp"

#include "vb/text.hpp"

namespace session {

nlohmann::ordered_json FormState(const forms::Form& form) {
  using Json = nlohmann::ordered_json;
  Json controls = Json::array();
  for (const auto& owned : form.Controls()) {
    const forms::Control& c = *owned;
    if (c.Kind() == forms::ControlKind::CommonDialog) continue;
    Json j{{"control", c.Path()}, {"kind", forms::ControlKindName(c.Kind())}};
    switch (c.Kind()) {
      case forms::ControlKind::TextBox: {
        const auto& t = static_cast<const forms::TextBox&>(c);
        j["text"] = vb::ToUtf8(t.Text());
        j["sel_start"] = t.SelStart();
        j["sel_length"] = t.SelLength();
        break;
      }
      case forms::ControlKind::CheckBox:
        j["caption"] = vb::ToUtf8(c.Caption());
        j["value"] = static_cast<const forms::CheckBox&>(c).Value();
        break;
      case forms::ControlKind::OptionButton:
        j["caption"] = vb::ToUtf8(c.Caption());
        j["value"] = static_cast<const forms::OptionButton&>(c).Value();
        break;
      case forms::ControlKind::ListBox: {
        const auto& l = static_cast<const forms::ListBox&>(c);
        Json rows = Json::array();
        for (std::int32_t i = 0; i < l.ListCount(); ++i) {
          rows.push_back({{"text", vb::ToUtf8(l.List(i))},
                          {"checked", l.Selected(i)},
                          {"item_data", l.ItemData(i)}});
        }
        j["rows"] = std::move(rows);
        break;
      }
      default:
        j["caption"] = vb::ToUtf8(c.Caption());
        break;
    }
    if (!c.Tag().empty()) j["tag"] = vb::ToUtf8(c.Tag());
    j["enabled"] = c.Enabled();
    j["visible"] = c.Visible();
    j["focus"] = form.ActiveControl() == &c;
    controls.push_back(std::move(j));
  }
  return Json{
      {"form", form.Name()}, {"caption", vb::ToUtf8(form.Caption())}, {"controls", controls}};
}

nlohmann::ordered_json MessageBoxState(const forms::MessageBox& box) {
  nlohmann::ordered_json answers = nlohmann::ordered_json::array();
  for (std::int32_t b : forms::MsgBoxButtons(box.buttons))
    answers.push_back(forms::MsgBoxResultName(b));
  return {{"text", vb::ToUtf8(box.prompt)},
          {"title", vb::ToUtf8(box.title)},
          {"buttons", box.buttons},
          {"answers", std::move(answers)}};
}

}  // namespace session
