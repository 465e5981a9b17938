// Checks of the late-bound IDE layer, run under wine by scripts/wine-smoke
// against the COM double of the IDE (ide_double.hpp): values and their
// kinds, failures in the IDE's words, event receivers, and the add-in itself
// connected through ConnectObject. Prints one line per check and exits with
// the number of failed checks.
#include "win32/system.hpp"

#include <objbase.h>
#include <oleauto.h>

#include <functional>
#include <string>
#include <vector>

#include "checks.hpp"
#include "ide_double.hpp"
#include "settings/globals.hpp"
#include "vb/failure.hpp"
#include "win32/connect_object.hpp"
#include "win32/ide_adapters.hpp"
#include "win32/ide_events.hpp"
#include "win32/registry_settings_store.hpp"

namespace {

using comdouble::IdeDouble;
using comdouble::MakeIde;
using win32::Variant;

std::string U8(const std::wstring& text) { return vb::ToUtf8(vb::Text(text.begin(), text.end())); }

// A message box would wait for a user who is not there: a thread timer
// closes every box this thread shows and keeps its words.
std::string g_boxes;

BOOL CALLBACK CloseBox(HWND window, LPARAM) {
  wchar_t kind[16] = L"", words[512] = L"";
  GetClassNameW(window, kind, 16);
  if (wcscmp(kind, L"#32770") != 0) return TRUE;
  GetDlgItemTextW(window, 0xFFFF, words, 512);  // a box's text is its static 0xFFFF
  g_boxes += "[" + U8(words) + "]";
  EndDialog(window, IDCANCEL);
  return TRUE;
}

// The add-in's dialogs: each tick hands the next of g_steps to the dialog
// that is shown, as a user at the keyboard would, and keeps its caption. A
// dialog left without steps is closed by its close box after a while.
std::vector<std::function<void()>> g_steps;
std::string g_dialogs;
int g_idle_ticks = 0;

BOOL CALLBACK DriveDialog(HWND window, LPARAM) {
  wchar_t kind[32] = L"", caption[128] = L"";
  GetClassNameW(window, kind, 32);
  if (wcscmp(kind, L"TessalyDialog") != 0 || !IsWindowEnabled(window)) return TRUE;
  GetWindowTextW(window, caption, 128);
  const std::string seen = "[" + U8(caption) + "]";
  if (g_dialogs.size() < seen.size() ||
      g_dialogs.compare(g_dialogs.size() - seen.size(), seen.size(), seen) != 0)
    g_dialogs += seen;
  if (!g_steps.empty()) {
    g_steps.front()();
    g_steps.erase(g_steps.begin());
    g_idle_ticks = 0;
  } else if (++g_idle_ticks > 40) {
    PostMessageW(window, WM_CLOSE, 0, 0);
    g_idle_ticks = 0;
  }
  return FALSE;
}

void CALLBACK Tick(HWND, UINT, UINT_PTR, DWORD) {
  EnumThreadWindows(GetCurrentThreadId(), CloseBox, 0);
  EnumThreadWindows(GetCurrentThreadId(), DriveDialog, 0);
}

// Steps of a user: keys and characters go where the focus is.
std::function<void()> Key(WPARAM key, bool alt = false) {
  return [=] { PostMessageW(GetFocus(), alt ? WM_SYSKEYDOWN : WM_KEYDOWN, key, 0); };
}
std::function<void()> Chars(const wchar_t* text) {
  return [=] {
    for (const wchar_t* c = text; *c; ++c) PostMessageW(GetFocus(), WM_CHAR, *c, 0);
  };
}

// The failure `run` ends with, as "number words"; "none" without one.
std::string FailureOf(const std::function<void()>& run) {
  try {
    run();
  } catch (const vb::Failure& failure) {
    return std::to_string(failure.Number()) + " " + vb::ToUtf8(failure.Description());
  }
  return "none";
}

Variant ByRef(VARTYPE type, void* target) {
  VARIANT ref;
  V_VT(&ref) = type | VT_BYREF;
  V_BYREF(&ref) = target;
  return Variant::Copy(ref);
}

std::shared_ptr<ide::VBControl> Control(const IdeDouble& ide) {
  return win32::Adapt<ide::VBControl>(ide.control);
}

void CheckVariants() {
  const Variant text(vb::Value(vb::Text(u"a\0b", 3)));
  Variant copy = text;
  Check(copy.ToValue() == text.ToValue() && V_BSTR(&copy.Get()) != V_BSTR(&text.Get()),
        "a copied text owns its own BSTR, inner null and all");
  const Variant moved = std::move(copy);
  Check(copy.Type() == VT_EMPTY && moved.Type() == VT_BSTR, "a moved-from value is empty");
  short seven = 7;
  Check(Variant::Unwrapped(ByRef(VT_I2, &seven).Get()).Type() == VT_I2 &&
            ByRef(VT_I2, &seven).ToValue() == vb::Value(vb::Integer(7)),
        "a value by reference reads through its reference, keeping its kind");
  VARIANT real;
  V_VT(&real) = VT_R8;
  V_R8(&real) = 2.5;
  Check(Variant::Copy(real).ToValue() == vb::Value(u"2.5"),
        "a kind outside the four reads as its text, with a full stop");
}

void CheckValues() {
  const auto ide = MakeIde(true);
  const auto properties = Control(*ide)->Properties();
  const auto caption = properties->Item(u"Caption");
  std::string wrong;
  for (const auto& [value, type] : {std::pair{vb::Value(u"Done"), VT_BSTR},
                                    {vb::Value(vb::Boolean::True), VT_BOOL},
                                    {vb::Value(vb::Integer(1)), VT_I2},
                                    {vb::Value(vb::Long(70000)), VT_I4}}) {
    caption->SetValue(value);
    const VARIANT& sent = ide->properties[L"Caption"]->Stored(L"Value").Get();
    if (V_VT(&sent) != type || (type == VT_BOOL && V_BOOL(&sent) != VARIANT_TRUE) ||
        caption->Value() != value) {
      wrong += vb::ToUtf8(value.ToText()) + " went as VT " + std::to_string(V_VT(&sent)) + "; ";
    }
  }
  Check(wrong.empty(),
        "a value keeps its kind into the IDE and back: text, Boolean -1, 16, 32 bits", wrong);

  const auto font = std::dynamic_pointer_cast<ide::FontObject>(properties->Item(u"Font")->Object());
  if (font) {
    font->Put(ide::FontDispId::Size, vb::Value(vb::Integer(12)));
    font->Put(ide::FontDispId::Bold, vb::Value(vb::Boolean::True));
  }
  const VARIANT& size = ide->font->Stored(L"Size").Get();
  const VARIANT& bold = ide->font->Stored(L"Bold").Get();
  Check(font && V_VT(&size) == VT_CY && V_CY(&size).int64 == 120000 && V_VT(&bold) == VT_BOOL &&
            V_BOOL(&bold) == VARIANT_TRUE && font->Get(ide::FontDispId::Size) == vb::Value(u"12"),
        "Font's object is a font: size as currency (points x 10000), styles as Booleans");

  std::string refused =
      FailureOf([&] { properties->Item(u"Value")->SetValue(vb::Value(vb::Integer(5))); });
  Check(refused == "380 Invalid property value",
        "a refused write fails with the IDE's number (scode) and words", refused);
  refused = FailureOf([&] { properties->Item(u"NoSuch"); });
  Check(refused == "438 " + U8(comdouble::kNoSuchProperty),
        "a property the control lacks fails with the IDE's number (wCode) and words", refused);
}

void CheckCode() {
  const auto ide = MakeIde(true);
  const auto module = Control(*ide)->Collection()->Parent()->Parent()->CodeModule();
  const auto members = module->Members();
  const auto all = members->All();
  Check(all.size() == 2 && all[1]->Name() == u"Command1_Click" &&
            members->Item(u"Command1_Click")->CodeLocation() == 4 && !members->Item(u"Nope"),
        "members: all from 1 in order, one by name, none for a name the module lacks");
  module->DeleteLines(1, 3);
  module->AddFromString(u"' end");
  Check(module->Lines(1, module->CountOfLines()) ==
            u"Private Sub Command1_Click()\r\nEnd Sub\r\n' end",
        "code lines are read, deleted (first, count) and added");
}

// Records what arrives; refuses ItemAdded.
class Receiver : public ide::VBControlsEventsSink, public ide::CommandBarEventsSink {
 public:
  std::string log;
  void ItemAdded(const std::shared_ptr<ide::VBControl>&) override {
    throw vb::Failure(vb::kInvalidPropertyValue, u"not now");
  }
  void ItemRemoved(const std::shared_ptr<ide::VBControl>&) override {}
  void ItemRenamed(const std::shared_ptr<ide::VBControl>& control, const vb::Text& old_name,
                   std::int32_t old_index) override {
    log = vb::ToUtf8(control->ClassName() + u" " + old_name) + " " + std::to_string(old_index);
  }
  void Click(const std::shared_ptr<ide::CommandBarControl>&, bool& handled, bool&) override {
    handled = true;
  }
};

void CheckReceivers() {
  const auto ide = MakeIde(true);
  Receiver receiver;
  const auto events = win32::Adapt<ide::VBE>(ide->vbe)->Events();
  auto controls = events->VBControlsEvents(nullptr, nullptr);
  const auto menu = events->CommandBarEvents(nullptr);
  controls->Advise(&receiver);
  menu->Advise(&receiver);
  const Variant control(ide->control.Get());

  BSTR old_name = SysAllocString(L"Check9");
  LONG old_index = 3;
  HRESULT hr = ide->control_events->Fire(
      win32::kItemRenamed, {control, ByRef(VT_BSTR, &old_name), ByRef(VT_I4, &old_index)});
  SysFreeString(old_name);
  Check(hr == S_OK && receiver.log == "CheckBox Check9 3",
        "ItemRenamed's arguments by reference are read through their references", receiver.log);

  VARIANT_BOOL handled = VARIANT_FALSE, cancel_default = VARIANT_TRUE;
  hr = ide->menu_events->Fire(win32::kClick,
                              {control, ByRef(VT_BOOL, &handled), ByRef(VT_BOOL, &cancel_default)});
  Check(hr == S_OK && handled == VARIANT_TRUE && cancel_default == VARIANT_TRUE,
        "Click writes handled and CancelDefault back through their references");

  std::wstring words;
  hr = ide->control_events->Fire(win32::kItemAdded, {control}, &words);
  Check(hr == DISP_E_EXCEPTION && words == L"not now",
        "a receiver's failure goes back to the IDE as the event's failure, in its words");

  menu->Unadvise(&receiver);
  controls.reset();
  Check(ide->menu_events->Advised() + ide->control_events->Advised() == 0,
        "a receiver is unadvised on Unadvise and when its events object goes");
}

// Connects the add-in to `ide`, its store saying: no dialog for a new
// CheckBox, and Remove Code and Rename Code on.
Microsoft::WRL::ComPtr<win32::ConnectObject> Connected(const IdeDouble& ide) {
  win32::RegistrySettingsStore store;
  for (std::size_t row = 0; row < tessaly::kControlRows; ++row) {
    store.Save(u"Vorrel", u"Options", tessaly::UseCtlKey(row), u"True");
  }
  store.Save(u"Vorrel", u"Options", u"RemoveCode", u"True");
  store.Save(u"Vorrel", u"Options", u"RenameCode", u"True");
  Microsoft::WRL::ComPtr<win32::ConnectObject> connect;
  connect.Attach(new win32::ConnectObject());
  connect->OnConnection(ide.vbe.Get(), 1, nullptr, nullptr);
  return connect;
}

void CheckAddIn() {
  const auto ide = MakeIde(true);
  const auto connect = Connected(*ide);
  Check(ide->entries.size() == 1 &&
            ide->entries[0]->Stored(L"Caption").ToValue() == vb::Value(u"&Tessaly Options") &&
            ide->watched_entry == ide->entries[0].Get() && ide->menu_events->Advised() == 1 &&
            ide->control_events->Advised() == 1 && ide->watched_project == ide->project.Get() &&
            !ide->watched_form && g_boxes.empty(),
        "OnConnection puts \"&Tessaly Options\" on the Add-Ins bar, listens to its Click and to "
        "the controls of the active project, any form, and shows no message",
        g_boxes);

  const Variant control(ide->control.Get());
  const auto reaches = [&](DISPID id, std::vector<Variant> args, const char* reached,
                           const char* what) {
    comdouble::g_calls.clear();
    const HRESULT hr = ide->control_events->Fire(id, args);
    Check(hr == S_OK && comdouble::Called(reached), what, std::to_string(hr));
  };
  // The CheckBox dialog as a window: the user types the rest of a name into
  // the focused name field and presses Enter. The name is written; the
  // double has no Enabled, so the next write is refused in a message box
  // with the IDE's words, and the user leaves by Esc.
  g_dialogs.clear();
  g_boxes.clear();
  g_steps = {Key(VK_END), Chars(L"Agree"), Key(VK_RETURN), Key(VK_ESCAPE)};
  reaches(win32::kItemAdded, {control}, "VBControl.ClassName",
          "ItemAdded reaches the add-in, which reads the control's class");
  const auto stored = [&](const wchar_t* name) {
    return vb::ToUtf8(ide->properties.at(name)->Stored(L"Value").ToValue().ToText());
  };
  Check(g_dialogs == "[New CheckBox Control]" && g_steps.empty() && stored(L"Name") == "chkAgree" &&
            g_boxes.find("for Enabled.") != std::string::npos &&
            g_boxes.find("The error was: The control has no property of that name]") !=
                std::string::npos,
        "its dialog is a window driven by keys: the typed name is written, a refused write "
        "shows the IDE's words, Esc leaves",
        g_dialogs + " " + stored(L"Name") + " " + g_boxes);
  g_boxes.clear();

  reaches(win32::kItemRemoved, {control}, "Member.Name",
          "ItemRemoved reaches it: it walks to the members of the form's code");
  BSTR old_name = SysAllocString(L"Check9");
  LONG old_index = 0;
  reaches(win32::kItemRenamed, {control, ByRef(VT_BSTR, &old_name), ByRef(VT_I4, &old_index)},
          "_CodeModule.Lines", "ItemRenamed reaches it: it reads the form's code");
  SysFreeString(old_name);

  // The options dialog from the Add-Ins entry: Alt+R clears "Remove Code",
  // Alt+N prompts for no control, Enter presses Ok. The store says so, and
  // the next control added opens no dialog.
  g_dialogs.clear();
  g_steps = {Key('R', true), Key('N', true), Key(VK_RETURN)};
  VARIANT_BOOL handled = VARIANT_FALSE, cancel_default = VARIANT_FALSE;
  const Variant entry(ide->entries[0].Get());
  const HRESULT clicked = ide->menu_events->Fire(
      win32::kClick, {entry, ByRef(VT_BOOL, &handled), ByRef(VT_BOOL, &cancel_default)});
  win32::RegistrySettingsStore store;
  const auto setting = [&](const char16_t* key) {
    return vb::ToUtf8(store.Get(u"Vorrel", u"Options", key).value_or(u"(none)"));
  };
  Check(clicked == S_OK && g_dialogs == "[Tessaly Options]" && g_steps.empty() &&
            setting(u"RemoveCode") == "0" && setting(u"RenameCode") == "True" &&
            setting(tessaly::UseCtlKey(0).c_str()) == "0",
        "the Add-Ins entry opens the options as a window; its keys change the stored options",
        g_dialogs + " " + setting(u"RemoveCode") + " " + setting(tessaly::UseCtlKey(0).c_str()));
  g_dialogs.clear();
  reaches(win32::kItemAdded, {control}, "VBControl.ClassName",
          "a control added now reads its class and opens no dialog");
  Check(g_dialogs.empty() && g_boxes.empty(), "no dialog for a control not prompted for",
        g_dialogs + g_boxes);

  connect->OnDisconnection(1, nullptr);
  Check(ide->entries.empty() && ide->menu_events->Advised() + ide->control_events->Advised() == 0 &&
            g_boxes.empty(),
        "OnDisconnection deletes the entry and stops listening", g_boxes);

  const auto bare = MakeIde(false);
  const auto bare_connect = Connected(*bare);
  Check(bare->entries.empty() && !bare->watched_entry &&
            bare->menu_events->Advised() + bare->control_events->Advised() == 2 && g_boxes.empty(),
        "without an Add-Ins bar: no entry, no message, and the control events still come", g_boxes);
  bare_connect->OnDisconnection(0, nullptr);
}

void CheckLookups() {
  std::string repeated;
  for (const auto& [name, count] : comdouble::g_lookups) {
    if (count != 1) repeated += name + " x" + std::to_string(count) + " ";
  }
  Check(repeated.empty() && comdouble::g_lookups.size() > 20,
        "each name is looked up once per interface, over all objects and connections", repeated);
}

}  // namespace

int wmain() {
  CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  const UINT_PTR timer = SetTimer(nullptr, 0, 50, Tick);
  MessageBoxW(nullptr, L"probe", L"", MB_OK);
  Check(g_boxes == "[probe]", "a message box is closed by the test and its words kept", g_boxes);
  g_boxes.clear();
  for (const auto group :
       {CheckVariants, CheckValues, CheckCode, CheckReceivers, CheckAddIn, CheckLookups}) {
    try {
      group();
    } catch (const vb::Failure& failure) {
      Check(false, "a group of checks runs to its end", failure.what());
    }
  }
  KillTimer(nullptr, timer);
  CoUninitialize();
  return g_failed_checks;
}
