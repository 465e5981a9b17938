// Vorrel.dll end to end, run under wine by scripts/wine-smoke once regsvr32
// has registered it: the real component, created by its ProgID, connected to
// the workbench wrapped as the IDE's automation objects (workbench_com.hpp),
// with the sample project (Sample.vbp next to this program) open. A user's
// actions in the workbench raise the IDE's events; the add-in's dialogs are
// windows driven by keys; the checks read what the workbench kept. Then the
// late-bound layer's own pieces, linked here: values and their kinds,
// failures in the IDE's words, event receivers. Prints one line per check
// and exits with the number of failed checks.
#include "win32/system.hpp"

#include <objbase.h>
#include <oleauto.h>

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "checks.hpp"
#include "packaging/registration_record.hpp"
#include "settings/globals.hpp"
#include "vb/failure.hpp"
#include "win32/extensibility.hpp"
#include "win32/ide_adapters.hpp"
#include "win32/ide_events.hpp"
#include "win32/registry_settings_store.hpp"
#include "win32/wide.hpp"
#include "workbench/project_loader.hpp"
#include "workbench_com.hpp"

namespace {

using comdouble::ByRef;
using comdouble::Object;
using Microsoft::WRL::ComPtr;
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
using Step = std::function<void()>;
Step Key(WPARAM key, bool alt = false) {
  return [=] { PostMessageW(GetFocus(), alt ? WM_SYSKEYDOWN : WM_KEYDOWN, key, 0); };
}
Step Chars(const wchar_t* text) {
  return [=] {
    for (const wchar_t* c = text; *c; ++c) PostMessageW(GetFocus(), WM_CHAR, *c, 0);
  };
}

// Runs a user's action in the workbench with the keys for the dialogs it
// opens; the captions of those dialogs and the words of any box, or the
// action's own failure.
std::string Acted(const std::function<void()>& action, std::vector<Step> steps) {
  g_dialogs.clear();
  g_boxes.clear();
  g_steps = std::move(steps);
  try {
    action();
  } catch (const vb::Failure& failure) {
    return "failed: " + std::string(failure.what());
  }
  return g_dialogs + g_boxes + (g_steps.empty() ? "" : " (keys left)");
}

// The add-in's store says: a dialog for every new control, Remove Code and
// Rename Code on.
void PromptForEverything() {
  win32::RegistrySettingsStore store;
  std::vector<vb::Text> keys = {u"RemoveCode", u"RenameCode"};
  for (std::size_t row = 0; row < tessaly::kControlRows; ++row)
    keys.push_back(tessaly::UseCtlKey(row));
  for (const auto& key : keys) store.Save(u"Vorrel", u"Options", key, u"True");
}
std::string Setting(const char16_t* key) {
  win32::RegistrySettingsStore store;
  return vb::ToUtf8(store.Get(u"Vorrel", u"Options", key).value_or(u"(none)"));
}

// The real component, made as the IDE makes it, connected to the workbench
// `ide`; null, with a failed check, when it cannot be.
ComPtr<win32::IDTExtensibility2> Connected(const std::shared_ptr<workbench::Ide>& ide) {
  CLSID clsid{};
  ComPtr<win32::IDTExtensibility2> addin;
  HRESULT hr = CLSIDFromProgID(win32::Wide(packaging::ProgId(packaging::Registration())), &clsid);
  if (SUCCEEDED(hr)) {
    hr = CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, win32::kIID_IDTExtensibility2,
                          reinterpret_cast<void**>(addin.GetAddressOf()));
  }
  if (SUCCEEDED(hr)) hr = addin->OnConnection(workbench_com::Vbe(ide).Get(), 1, nullptr, nullptr);
  Check(SUCCEEDED(hr), "Vorrel.Connect is created by its ProgID and connects to the workbench",
        std::to_string(hr));
  return SUCCEEDED(hr) ? addin : nullptr;
}

std::shared_ptr<workbench::Ide> OpenSample(workbench::IdeOptions options = {}) {
  wchar_t exe[MAX_PATH] = L"";
  GetModuleFileNameW(nullptr, exe, MAX_PATH);
  auto ide = workbench::Ide::Create(options);
  ide->AddProject(workbench::OpenProject(std::filesystem::path(exe).parent_path() / "Sample.vbp"));
  return ide;
}

std::string CodeOf(const workbench::FormComponent& form) {
  return vb::ToUtf8(form.Module()->Lines(1, form.Module()->CountOfLines()));
}

void CheckAddIn() {
  PromptForEverything();
  const auto ide = OpenSample();
  const auto addin = Connected(ide);
  if (!addin) return;
  const auto form = ide->ActiveProject()->FindForm(u"frmMain");
  Check(ide->MenuCaptions(u"Add-Ins") == std::vector<vb::Text>{u"&Tessaly Options"} &&
            g_boxes.empty(),
        "OnConnection puts \"&Tessaly Options\" on the Add-Ins bar and shows no message", g_boxes);

  // A CheckBox dropped: the user types the rest of a name into the focused
  // name field, ticks "Checked?" by its access key and presses Enter.
  std::string seen = Acted([&] { form->AddControl(u"CheckBox"); },
                           {Key(VK_END), Chars(L"Agree"), Key('H', true), Key(VK_RETURN)});
  const auto dropped = form->FindControl(u"chkAgree");
  const auto value = [&](const char16_t* name) {
    return dropped ? vb::ToUtf8(dropped->Get(name).ToText()) : "(no chkAgree)";
  };
  Check(seen == "[New CheckBox Control]" && value(u"Caption") == "&Agree" && value(u"Value") == "1",
        "a dropped CheckBox's dialog is a window driven by keys: the workbench holds the typed "
        "name, the caption it feeds and the value ticked",
        seen + " " + value(u"Caption") + " " + value(u"Value"));

  ide->InjectRefusal({u"Check2", u"Name", u"Names are read-only here"});  // the next one
  seen = Acted([&] { form->AddControl(u"CheckBox"); }, {Key(VK_RETURN), Key(VK_ESCAPE)});
  Check(seen.find("Names are read-only here") != std::string::npos,
        "a write the IDE refuses shows the IDE's words in a message box", seen);

  seen = Acted([&] { form->DeleteControl(u"Command1"); }, {Key(VK_RETURN)});
  Check(seen == "[Remove Code for Control]" && !form->Module()->Members()->Item(u"Command1_Click"),
        "deleting Command1 opens Remove Code; Enter removes Command1_Click from the code",
        seen + " " + CodeOf(*form));

  seen = Acted([&] { form->RenameControl(u"Text1", u"txtName"); }, {Key(VK_RETURN)});
  const std::string code = CodeOf(*form);
  Check(seen.find("Rename") != std::string::npos && code.find("Text1") == std::string::npos &&
            code.find("Private Sub txtName_Change()") != std::string::npos,
        "renaming Text1 opens Rename Code; Enter renames it throughout the code",
        seen + " " + code);

  // The options from the Add-Ins entry: Alt+R clears "Remove Code", Alt+N
  // prompts for no control, Enter presses Ok.
  seen = Acted([&] { ide->ClickMenuEntry(u"&Tessaly Options"); },
               {Key('R', true), Key('N', true), Key(VK_RETURN)});
  seen += "|" + Setting(u"RemoveCode") + Setting(tessaly::UseCtlKey(0).c_str()) + "|" +
          Acted([&] { form->AddControl(u"CheckBox"); }, {});
  Check(seen == "[Tessaly Options]|00|",
        "the Add-Ins entry opens the options as a window; its keys change the stored options: "
        "a CheckBox dropped now opens no dialog",
        seen);

  addin->OnDisconnection(1, nullptr);
  Check(ide->MenuCaptions(u"Add-Ins").empty() && g_boxes.empty(),
        "OnDisconnection deletes the entry", g_boxes);
}

// The workbench refuses the events of no entry, as an IDE with nothing to
// attach to does: the add-in says so and goes on without its subscriptions.
void CheckWithoutAddInsBar() {
  g_boxes.clear();
  const auto addin = Connected(OpenSample({.add_ins_bar = false}));
  if (!addin) return;
  Check(g_boxes == "[Object variable or With block variable not set]",
        "without an Add-Ins bar the bar itself is silent; the refused subscription is reported "
        "in the IDE's words",
        g_boxes);
  addin->OnDisconnection(0, nullptr);
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

void CheckVariants() {
  const Variant text(vb::Value(vb::Text(u"a\0b", 3)));
  Variant copy = text;
  Check(copy.ToValue() == text.ToValue() && V_BSTR(&copy.Get()) != V_BSTR(&text.Get()),
        "a copied text owns its own BSTR, inner null and all");
  VARIANT real;
  V_VT(&real) = VT_R8;
  V_R8(&real) = 2.5;
  Check(Variant::Copy(real).ToValue() == vb::Value(u"2.5"),
        "a kind outside the four reads as its text, with a full stop");
}

// What the workbench hears offered: each write's value, of its own kind.
struct Offered : workbench::IdeObserver {
  std::vector<vb::Value> values;
  void PropertyWritten(const workbench::Control&, const vb::Text&, const vb::Value& value,
                       workbench::WriteSource, const std::optional<vb::Failure>&) override {
    values.push_back(value);
  }
  void FontWritten(const workbench::Control&, ide::FontDispId, const vb::Value& value,
                   const std::optional<vb::Failure>&) override {
    values.push_back(value);
  }
};

// The adapters of a control, its properties and its font, on the wrapped
// workbench.
void CheckAdapters() {
  const auto ide = OpenSample();
  Offered offered;
  ide->SetObserver(&offered);
  const auto check1 = ide->ActiveProject()->FindForm(u"frmMain")->FindControl(u"Check1");
  const auto properties =
      win32::Adapt<ide::VBControl>(workbench_com::Control(check1))->Properties();
  const std::vector<vb::Value> kinds = {vb::Value(u"Done"), vb::Value(vb::Boolean::True),
                                        vb::Value(vb::Integer(1)), vb::Value(vb::Long(70000))};
  for (const auto& value : kinds) properties->Item(u"Tag")->SetValue(value);
  Check(offered.values == kinds, "a value keeps its kind into the IDE: text, Boolean, 16, 32 bits");

  offered.values.clear();
  const auto font = std::dynamic_pointer_cast<ide::FontObject>(properties->Item(u"Font")->Object());
  if (font) {
    font->Put(ide::FontDispId::Size, vb::Value(vb::Integer(12)));
    font->Put(ide::FontDispId::Bold, vb::Value(vb::Boolean::True));
  }
  Check(font && offered.values == std::vector{vb::Value(u"12"), vb::Value(vb::Boolean::True)} &&
            font->Get(ide::FontDispId::Size) == vb::Value(u"12"),
        "Font's object is a font: size as currency (points x 10000), styles as Booleans");

  ide->InjectRefusal({.control = u"Check1", .property = u"Caption", .description = u"Locked"});
  const std::string refused =
      FailureOf([&] { properties->Item(u"Caption")->SetValue(vb::Value(u"x")); }) + "; " +
      FailureOf([&] { properties->Item(u"NoSuch"); });
  Check(refused.starts_with("380 Locked; 438 "),
        "a refused write and a property the control lacks fail with the IDE's number and words",
        refused);
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

// The adapters of the two event sources, on sources of their own.
void CheckReceivers() {
  Receiver receiver;
  auto control_events = Object::Make(), menu_events = Object::Make();
  control_events->Source(win32::kIID_VBControlsEvents);
  menu_events->Source(win32::kIID_CommandBarEvents);
  auto controls = win32::Adapt<ide::VBControlsEvents>(control_events);
  const auto menu = win32::Adapt<ide::CommandBarEvents>(menu_events);
  controls->Advise(&receiver);
  menu->Advise(&receiver);
  auto check = Object::Make();
  check->Member(L"ClassName", 0, [](comdouble::Call& call) {
    call.result = vb::Value(u"CheckBox");
    return S_OK;
  });
  const Variant control(check.Get());

  BSTR old_name = SysAllocString(L"Check9");
  LONG old_index = 3;
  HRESULT hr = control_events->Fire(win32::kItemRenamed,
                                    {control, ByRef(VT_BSTR, &old_name), ByRef(VT_I4, &old_index)});
  SysFreeString(old_name);
  Check(hr == S_OK && receiver.log == "CheckBox Check9 3",
        "ItemRenamed's arguments by reference are read through their references", receiver.log);

  VARIANT_BOOL handled = VARIANT_FALSE, cancel_default = VARIANT_TRUE;
  hr = menu_events->Fire(win32::kClick,
                         {control, ByRef(VT_BOOL, &handled), ByRef(VT_BOOL, &cancel_default)});
  Check(hr == S_OK && handled == VARIANT_TRUE && cancel_default == VARIANT_TRUE,
        "Click writes handled and CancelDefault back through their references");

  std::wstring words;
  hr = control_events->Fire(win32::kItemAdded, {control}, &words);
  Check(hr == DISP_E_EXCEPTION && words == L"not now",
        "a receiver's failure goes back to the IDE as the event's failure, in its words");

  menu->Unadvise(&receiver);
  controls.reset();
  Check(menu_events->Advised() + control_events->Advised() == 0,
        "a receiver is unadvised on Unadvise and when its events object goes");
}

}  // namespace

int wmain() {
  CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  const UINT_PTR timer = SetTimer(nullptr, 0, 50, Tick);
  for (const auto group :
       {CheckAddIn, CheckWithoutAddInsBar, CheckVariants, CheckAdapters, CheckReceivers}) {
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
