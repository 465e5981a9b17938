#include "ide_double.hpp"

#include <olectl.h>

#include "vb/value.hpp"
#include "win32/ide_events.hpp"

namespace comdouble {
namespace {

// Members the IDE's libraries leave to be found by name: numbers of our own.
constexpr DISPID kParentOfControls = 0x60020040;
constexpr DISPID kParentOfForm = 0x60020041;

Variant Of(const ComPtr<Object>& object) { return Variant(object.Get()); }
Variant Text(const wchar_t* text) {
  return vb::Value(vb::Text(reinterpret_cast<const char16_t*>(text)));
}
Variant Long(vb::Long n) { return vb::Value(n); }
vb::Text TextArg(const Call& call, std::size_t i) { return call.args.at(i).ToValue().ToText(); }

bool IsObjectOrNothing(const Variant& arg) { return arg.Type() == VT_DISPATCH; }

void MakeMenu(IdeDouble& ide, bool with_addins_bar) {
  auto controls = Object::Make("CommandBarControls");
  // Add(Type) with the type alone, 16 bits: a button entry.
  controls->Member(L"Add", 0x60030000, [&ide](Call& call) {
    if (!(call.flags & DISPATCH_METHOD) || call.args.size() != 1) return DISP_E_BADPARAMCOUNT;
    if (call.args[0].Type() != VT_I2 || V_I2(&call.args[0].Get()) != 1) return DISP_E_TYPEMISMATCH;
    auto entry = Object::Make("CommandBarControl");
    entry->Property(L"Caption", 0x60040003, Text(L""));
    entry->Member(L"Delete", 0x60040007, [&ide, raw = entry.Get()](Call& c) {
      if (!c.args.empty()) return DISP_E_TYPEMISMATCH;  // Temporary left out, not empty
      std::erase_if(ide.entries, [&](const auto& e) { return e.Get() == raw; });
      return S_OK;
    });
    ide.entries.push_back(entry);
    call.result = Of(entry);
    return S_OK;
  });
  auto bar = Object::Make("CommandBar");
  bar->Property(L"Name", 0x6004000E, Text(L"Add-Ins"))
      .Property(L"Controls", 0x60040003, Of(controls));
  auto bars = Object::Make("CommandBars");
  bars->Member(L"Item", 0, [bar, with_addins_bar](Call& call) {
    if (call.args.size() != 1) return DISP_E_BADPARAMCOUNT;
    if (!with_addins_bar || TextArg(call, 0) != u"Add-Ins") {
      return call.Refuse(E_INVALIDARG, L"Invalid procedure call or argument");
    }
    call.result = Of(bar);
    return S_OK;
  });
  ide.vbe->Property(L"CommandBars", 108, Of(bars));
}

void MakeEvents(IdeDouble& ide) {
  ide.menu_events = Object::Make("CommandBarEvents");
  ide.menu_events->Source(win32::kIID_CommandBarEvents);
  ide.control_events = Object::Make("VBControlsEvents");
  ide.control_events->Source(win32::kIID_VBControlsEvents);
  auto events = Object::Make("Events");
  // Both are read as properties with arguments; Nothing is an empty object.
  events->Member(L"CommandBarEvents", 205, [&ide](Call& call) {
    if (!(call.flags & DISPATCH_PROPERTYGET) || call.args.size() != 1) return DISP_E_BADPARAMCOUNT;
    if (!IsObjectOrNothing(call.args[0])) return DISP_E_TYPEMISMATCH;
    ide.watched_entry = V_DISPATCH(&call.args[0].Get());
    call.result = Of(ide.menu_events);
    return S_OK;
  });
  events->Member(L"VBControlsEvents", 203, [&ide](Call& call) {
    if (!(call.flags & DISPATCH_PROPERTYGET) || call.args.size() != 2) return DISP_E_BADPARAMCOUNT;
    if (!IsObjectOrNothing(call.args[0]) || !IsObjectOrNothing(call.args[1])) {
      return DISP_E_TYPEMISMATCH;
    }
    ide.watched_project = V_DISPATCH(&call.args[0].Get());
    ide.watched_form = V_DISPATCH(&call.args[1].Get());
    call.result = Of(ide.control_events);
    return S_OK;
  });
  ide.vbe->Property(L"Events", 111, Of(events));
}

ComPtr<Object> MakeCode(IdeDouble& ide) {
  ide.code = {L"Private Sub Form_Load()", L"End Sub", L"", L"Private Sub Command1_Click()",
              L"End Sub"};
  auto members = Object::Make("_Members");
  std::vector<ComPtr<Object>> list;
  for (const auto& [name, line] : {std::pair{L"Form_Load", 1}, {L"Command1_Click", 4}}) {
    auto member = Object::Make("Member");
    member->Property(L"Name", 2, Text(name)).Property(L"CodeLocation", 6, Long(line));
    list.push_back(member);
  }
  members->Property(L"Count", 0x60020003, Long(static_cast<vb::Long>(list.size())));
  // Item(index from 1, or name)
  members->Member(L"Item", 0, [list](Call& call) {
    for (std::size_t i = 0; call.args.size() == 1 && i < list.size(); ++i) {
      const bool by_index = call.args[0].Type() == VT_I4;
      if (by_index ? call.args[0].ToLong() == static_cast<vb::Long>(i + 1)
                   : TextArg(call, 0) == list[i]->Stored(L"Name").ToValue().ToText()) {
        call.result = Of(list[i]);
        return S_OK;
      }
    }
    return call.Refuse(MAKE_HRESULT(1, FACILITY_CONTROL, 9), L"Subscript out of range");
  });

  auto module = Object::Make("_CodeModule");
  auto& code = ide.code;
  auto range = [&code](const Call& call, std::size_t& first, std::size_t& count) {
    if (call.args.size() != 2 || call.args[0].Type() != VT_I4 || call.args[1].Type() != VT_I4) {
      return false;
    }
    first = call.args[0].ToLong();
    count = call.args[1].ToLong();
    return first >= 1 && first + count <= code.size() + 1;
  };
  module->Member(L"CountOfLines", 0x60020007, [&code](Call& call) {
    call.result = Long(static_cast<vb::Long>(code.size()));
    return S_OK;
  });
  module->Member(L"Lines", 0x60020006, [&code, range](Call& call) {
    std::size_t first = 0, count = 0;
    if (!range(call, first, count)) return call.Refuse(E_INVALIDARG, L"Invalid argument");
    std::wstring text;
    for (std::size_t i = first; i < first + count; ++i)
      text += (i > first ? L"\r\n" : L"") + code[i - 1];
    call.result = Text(text.c_str());
    return S_OK;
  });
  module->Member(L"DeleteLines", 0x60020009, [&code, range](Call& call) {
    std::size_t first = 0, count = 0;
    if (!range(call, first, count)) return call.Refuse(E_INVALIDARG, L"Invalid argument");
    code.erase(code.begin() + (first - 1), code.begin() + (first - 1 + count));
    return S_OK;
  });
  module->Member(L"AddFromString", 0x60020004, [&code](Call& call) {
    if (call.args.size() != 1 || call.args[0].Type() != VT_BSTR) return DISP_E_TYPEMISMATCH;
    const vb::Text text = TextArg(call, 0);
    code.emplace_back(text.begin(), text.end());  // one line is enough here
    return S_OK;
  });
  module->Property(L"Members", 0x60020013, Of(members));
  return module;
}

void MakeControl(IdeDouble& ide) {
  ide.font = Object::Make("IFontDisp");
  ide.font->Answers(IID_IFontDisp)
      .Property(L"Name", 0, Text(L"MS Sans Serif"))
      .Property(L"Size", 2, Variant(vb::Value(vb::Integer(8))).As(VT_CY))
      .Property(L"Bold", 3, vb::Value(vb::Boolean::False))
      .Property(L"Italic", 4, vb::Value(vb::Boolean::False))
      .Property(L"Underline", 5, vb::Value(vb::Boolean::False))
      .Property(L"Strikethrough", 6, vb::Value(vb::Boolean::False));

  const auto check_value = [](Call& call) {
    const Variant& value = call.args.back();
    if (value.Type() == VT_I2 && V_I2(&value.Get()) >= 0 && V_I2(&value.Get()) <= 2) return S_OK;
    return call.Refuse(CTL_E_INVALIDPROPERTYVALUE, L"Invalid property value");
  };
  const std::tuple<const wchar_t*, Variant, Handler> properties[] = {
      {L"Name", Text(L"Check1"), nullptr},
      {L"Caption", Text(L"Check1"), nullptr},
      {L"Value", vb::Value(vb::Integer(0)), check_value},
      {L"Font", Of(ide.font), nullptr},
  };
  for (const auto& [name, value, check] : properties) {
    auto property = Object::Make("Property");
    property->Property(L"Name", 40, Text(name))
        .Property(L"Value", 0, value, check)
        .Property(L"Object", 45, std::wstring(name) == L"Font" ? Of(ide.font) : Variant());
    ide.properties[name] = property;
  }
  auto collection = Object::Make("_Properties");
  collection->Member(L"Item", 0, [&ide](Call& call) {
    if (call.args.size() != 1) return DISP_E_BADPARAMCOUNT;
    const vb::Text name = TextArg(call, 0);
    const auto found = ide.properties.find(std::wstring(name.begin(), name.end()));
    if (found == ide.properties.end()) return call.Refuse(0, kNoSuchProperty, 438);
    call.result = Of(found->second);
    return S_OK;
  });

  auto component = Object::Make("_VBComponent");
  component->Property(L"Name", 48, Text(L"Form1")).Property(L"CodeModule", 50, Of(MakeCode(ide)));
  auto form = Object::Make("VBForm");
  form->Property(L"Parent", kParentOfForm, Of(component));
  auto controls = Object::Make("_VBControls");
  controls->Property(L"Parent", kParentOfControls, Of(form));
  ide.control = Object::Make("VBControl");
  ide.control->Property(L"ClassName", 0, Text(L"CheckBox"))
      .Property(L"Collection", 2, Of(controls))
      .Property(L"Properties", 42, Of(collection));
}

}  // namespace

std::unique_ptr<IdeDouble> MakeIde(bool with_addins_bar) {
  auto ide = std::make_unique<IdeDouble>();
  ide->vbe = Object::Make("VBE");
  ide->project = Object::Make("_VBProject");
  ide->project->Property(L"Name", 0, Text(L"Project1"));
  ide->vbe->Property(L"ActiveVBProject", 201, Of(ide->project));
  MakeMenu(*ide, with_addins_bar);
  MakeEvents(*ide);
  MakeControl(*ide);
  return ide;
}

}  // namespace comdouble
