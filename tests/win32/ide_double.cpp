#include "ide_double.hpp"

#include <olectl.h>

#include "vb/value.hpp"
#include "win32/ide_events.hpp"

namespace comdouble {
namespace {

// Members the IDE's libraries leave to be found by name: numbers of our own.
constexpr DISPID kParentOfControls = 0x60020040, kParentOfForm = 0x60020041;

Variant Of(const ComPtr<Object>& object) { return Variant(object.Get()); }
Variant Text(const std::wstring& text) { return vb::Value(vb::Text(text.begin(), text.end())); }
Variant Long(std::size_t n) { return vb::Value(static_cast<vb::Long>(n)); }
std::wstring Arg(const Call& call, std::size_t i) {
  const vb::Text text = call.args.at(i).ToValue().ToText();
  return {text.begin(), text.end()};
}

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
    if (!with_addins_bar || Arg(call, 0) != L"Add-Ins") {
      return call.Refuse(E_INVALIDARG, L"Invalid procedure call or argument");
    }
    call.result = Of(bar);
    return S_OK;
  });
  ide.vbe->Property(L"CommandBars", 108, Of(bars));
}

// An events property: read with objects as its arguments (Nothing is an
// empty one), kept in `watched`, giving `source`.
Handler Watch(std::vector<IDispatch**> watched, ComPtr<Object> source) {
  return [watched, source](Call& call) {
    if (!(call.flags & DISPATCH_PROPERTYGET) || call.args.size() != watched.size()) {
      return DISP_E_BADPARAMCOUNT;
    }
    for (std::size_t i = 0; i < watched.size(); ++i) {
      if (call.args[i].Type() != VT_DISPATCH) return DISP_E_TYPEMISMATCH;
      *watched[i] = V_DISPATCH(&call.args[i].Get());
    }
    call.result = Of(source);
    return S_OK;
  };
}

ComPtr<Object> MakeCode(IdeDouble& ide) {
  ide.code = {L"Private Sub Form_Load()", L"End Sub", L"", L"Private Sub Command1_Click()",
              L"End Sub"};
  std::vector<ComPtr<Object>> list;
  for (const auto& [name, line] : {std::pair{L"Form_Load", 1}, {L"Command1_Click", 4}}) {
    list.push_back(Object::Make("Member"));
    list.back()->Property(L"Name", 2, Text(name)).Property(L"CodeLocation", 6, Long(line));
  }
  auto members = Object::Make("_Members");
  members->Property(L"Count", 0x60020003, Long(list.size()));
  // Item(index from 1, or name)
  members->Member(L"Item", 0, [list](Call& call) {
    for (std::size_t i = 0; call.args.size() == 1 && i < list.size(); ++i) {
      if (call.args[0].Type() == VT_I4
              ? call.args[0].ToLong() == static_cast<vb::Long>(i + 1)
              : Text(Arg(call, 0)).ToValue() == list[i]->Stored(L"Name").ToValue()) {
        call.result = Of(list[i]);
        return S_OK;
      }
    }
    return call.Refuse(MAKE_HRESULT(1, FACILITY_CONTROL, 9), L"Subscript out of range");
  });

  auto& code = ide.code;
  // Lines and DeleteLines take (first from 1, count) within the code.
  const auto range = [&code](Call& call, const auto& then) {
    const bool longs =
        call.args.size() == 2 && call.args[0].Type() == VT_I4 && call.args[1].Type() == VT_I4;
    const std::size_t first = longs ? call.args[0].ToLong() : 0;
    const std::size_t count = longs ? call.args[1].ToLong() : 0;
    if (first < 1 || first + count > code.size() + 1) {
      return call.Refuse(E_INVALIDARG, L"Invalid argument");
    }
    then(code.begin() + (first - 1), code.begin() + (first - 1 + count));
    return S_OK;
  };
  auto module = Object::Make("_CodeModule");
  module->Member(L"CountOfLines", 0x60020007, [&code](Call& call) {
    call.result = Long(code.size());
    return S_OK;
  });
  module->Member(L"Lines", 0x60020006, [range](Call& call) {
    return range(call, [&call](auto begin, auto end) {
      std::wstring text;
      for (auto line = begin; line != end; ++line) text += (line == begin ? L"" : L"\r\n") + *line;
      call.result = Text(text);
    });
  });
  module->Member(L"DeleteLines", 0x60020009, [range, &code](Call& call) {
    return range(call, [&code](auto begin, auto end) { code.erase(begin, end); });
  });
  module->Member(L"AddFromString", 0x60020004, [&code](Call& call) {
    if (call.args.size() != 1 || call.args[0].Type() != VT_BSTR) return DISP_E_TYPEMISMATCH;
    code.push_back(Arg(call, 0));  // one line is enough here
    return S_OK;
  });
  module->Property(L"Members", 0x60020013, Of(members));
  return module;
}

void MakeControl(IdeDouble& ide) {
  ide.font = Object::Make("IFontDisp");
  ide.font->Answers(IID_IFontDisp)
      .Property(L"Name", 0, Text(L"MS Sans Serif"))
      .Property(L"Size", 2, Variant(vb::Value(vb::Integer(8))).As(VT_CY));
  DISPID style_id = 3;
  for (const wchar_t* style : {L"Bold", L"Italic", L"Underline", L"Strikethrough"}) {
    ide.font->Property(style, style_id++, vb::Value(vb::Boolean::False));
  }

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
    auto& property = ide.properties[name] = Object::Make("Property");
    property->Property(L"Name", 40, Text(name))
        .Property(L"Value", 0, value, check)
        .Property(L"Object", 45, value.Type() == VT_DISPATCH ? value : Variant());
  }
  auto collection = Object::Make("_Properties");
  collection->Member(L"Item", 0, [&ide](Call& call) {
    if (call.args.size() != 1) return DISP_E_BADPARAMCOUNT;
    const auto found = ide.properties.find(Arg(call, 0));
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
  ide->menu_events = Object::Make("CommandBarEvents");
  ide->menu_events->Source(win32::kIID_CommandBarEvents);
  ide->control_events = Object::Make("VBControlsEvents");
  ide->control_events->Source(win32::kIID_VBControlsEvents);
  auto events = Object::Make("Events");
  events->Member(L"CommandBarEvents", 205, Watch({&ide->watched_entry}, ide->menu_events))
      .Member(L"VBControlsEvents", 203,
              Watch({&ide->watched_project, &ide->watched_form}, ide->control_events));
  ide->vbe->Property(L"Events", 111, Of(events));
  MakeControl(*ide);
  return ide;
}

}  // namespace comdouble
