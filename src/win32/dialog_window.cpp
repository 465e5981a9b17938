#include "win32/dialog_window.hpp"

#include "win32/system.hpp"

#include <windowsx.h>

#include <algorithm>

#include "vb/failure.hpp"
#include "win32/module.hpp"
#include "win32/wide.hpp"

namespace win32 {
namespace {

constexpr wchar_t kClassName[] = L"TessalyDialog";
// No WS_CLIPCHILDREN: a frame (a group box) lets the dialog's face show
// through it.
constexpr DWORD kStyle = WS_POPUP | WS_CAPTION | WS_SYSMENU;
constexpr DWORD kExStyle = WS_EX_DLGMODALFRAME | WS_EX_CONTROLPARENT;
constexpr DWORD kChild = WS_CHILD | WS_CLIPSIBLINGS;
// The face and size VB gives a new form's controls.
constexpr wchar_t kFace[] = L"MS Sans Serif";
constexpr int kPoints = 8;

HINSTANCE Instance() {
  HMODULE module = ThisModule();
  return module ? module : GetModuleHandleW(nullptr);
}

void RegisterClassOnce() {
  static const ATOM atom = [] {
    WNDCLASSEXW c{};
    c.cbSize = sizeof c;
    c.lpfnWndProc = DefWindowProcW;  // replaced per window once it exists
    c.hInstance = Instance();
    c.hCursor = LoadCursorW(nullptr, MAKEINTRESOURCEW(32512));  // IDC_ARROW
    c.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
    c.lpszClassName = kClassName;
    return RegisterClassExW(&c);
  }();
  if (!atom) throw vb::Failure(vb::kInvalidProcedureCall, u"The dialog's window class failed");
}

// A control's place on the form: its container's place plus its own, as a
// frame's controls stand relative to the frame.
RECT TwipsRect(const forms::Control& control) {
  const forms::Bounds b = control.Bounds();
  RECT r{b.left, b.top, b.left + b.width, b.top + b.height};
  for (const forms::Control* c = control.Container(); c; c = c->Container()) {
    OffsetRect(&r, c->Bounds().left, c->Bounds().top);
  }
  return r;
}

int Pixels(int twips, int dpi) { return MulDiv(twips, dpi, 1440); }

vb::Text WindowText(HWND hwnd) {
  const int length = GetWindowTextLengthW(hwnd);
  std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
  GetWindowTextW(hwnd, text.data(), length + 1);
  return FromWide(text.c_str(), static_cast<std::size_t>(length));
}

void SetText(HWND hwnd, const vb::Text& text) {
  if (WindowText(hwnd) != text) SetWindowTextW(hwnd, Wide(text));
}

void SetCheck(HWND hwnd, WPARAM state) {
  if (static_cast<WPARAM>(SendMessageW(hwnd, BM_GETCHECK, 0, 0)) != state)
    SendMessageW(hwnd, BM_SETCHECK, state, 0);
}

bool IsCheckList(const forms::Control* control) {
  return control && control->Kind() == forms::ControlKind::ListBox &&
         static_cast<const forms::ListBox*>(control)->CheckBoxStyle();
}

// Width of the check box a list row starts with, in pixels.
int CheckWidth(int dpi) { return MulDiv(16, dpi, 96); }

// How many frames hold the control.
int Depth(const forms::Control& control) {
  int depth = 0;
  for (const forms::Control* c = control.Container(); c; c = c->Container()) ++depth;
  return depth;
}

}  // namespace

DialogWindow::DialogWindow(forms::Form& form, HWND owner) : form_(&form), owner_(owner) {
  RegisterClassOnce();
  HDC screen = GetDC(nullptr);
  dpi_ = screen ? GetDeviceCaps(screen, LOGPIXELSY) : 96;
  if (screen) ReleaseDC(nullptr, screen);
  const int height = -MulDiv(kPoints, dpi_, 72);
  font_ = CreateFontW(height, 0, 0, 0, FW_NORMAL, 0, 0, 0, DEFAULT_CHARSET, 0, 0, 0, 0, kFace);
  bold_font_ = CreateFontW(height, 0, 0, 0, FW_BOLD, 0, 0, 0, DEFAULT_CHARSET, 0, 0, 0, 0, kFace);

  RECT frame{0, 0, Pixels(form.ClientWidth(), dpi_), Pixels(form.ClientHeight(), dpi_)};
  AdjustWindowRectEx(&frame, kStyle, FALSE, kExStyle);
  const int width = frame.right - frame.left;
  const int tall = frame.bottom - frame.top;
  RECT around{};
  if (form.Position() == forms::StartUpPosition::CenterScreen || !owner ||
      !GetWindowRect(owner, &around)) {
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &around, 0);
  }
  const int x = around.left + (around.right - around.left - width) / 2;
  const int y = around.top + (around.bottom - around.top - tall) / 2;
  window_ = CreateWindowExW(kExStyle, kClassName, Wide(form.Caption()), kStyle, x, y, width, tall,
                            owner, nullptr, Instance(), nullptr);
  if (!window_) {
    DeleteObject(font_);
    DeleteObject(bold_font_);
    throw vb::Failure(vb::kInvalidProcedureCall, u"The dialog's window could not be made");
  }
  SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  SetWindowLongPtrW(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Procedure));
  CreateControls();
  Sync();
  if (owner_) EnableWindow(owner_, FALSE);
  ShowWindow(window_, SW_SHOW);
  SetForegroundWindow(window_);
  Sync();
}

DialogWindow::~DialogWindow() {
  // The owner comes back first, so the system activates it and not some
  // other application's window when the dialog goes.
  if (owner_) EnableWindow(owner_, TRUE);
  SetWindowLongPtrW(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&DefWindowProcW));
  DestroyWindow(window_);
  DeleteObject(font_);
  DeleteObject(bold_font_);
}

void DialogWindow::CreateControls() {
  // The first child made stands on top. Frames come last, the outermost
  // last of all, so that a frame never covers what it holds.
  std::vector<forms::Control*> frames;
  for (const auto& c : form_->Controls()) {
    if (c->Kind() == forms::ControlKind::Frame)
      frames.push_back(c.get());
    else
      CreateControl(*c);
  }
  std::stable_sort(frames.begin(), frames.end(),
                   [](const auto* a, const auto* b) { return Depth(*a) > Depth(*b); });
  for (auto* frame : frames) CreateControl(*frame);
}

HWND DialogWindow::CreateControl(forms::Control& control) {
  using K = forms::ControlKind;
  const wchar_t* window_class = L"BUTTON";
  DWORD style = kChild;
  DWORD ex_style = 0;
  switch (control.Kind()) {
    case K::Label: {
      window_class = L"STATIC";
      const auto alignment = static_cast<const forms::Label&>(control).GetAlignment();
      style |= alignment == forms::Alignment::Right    ? SS_RIGHT
               : alignment == forms::Alignment::Center ? SS_CENTER
                                                       : SS_LEFT;
      break;
    }
    case K::TextBox:
      window_class = L"EDIT";
      style |= ES_AUTOHSCROLL | WS_TABSTOP;
      if (static_cast<const forms::TextBox&>(control).MultiLine()) style |= ES_MULTILINE;
      ex_style = WS_EX_CLIENTEDGE;
      break;
    case K::CheckBox:
      style |= BS_3STATE | WS_TABSTOP;
      break;
    case K::OptionButton:
      style |= BS_RADIOBUTTON | WS_TABSTOP;
      break;
    case K::CommandButton:
      style |= BS_PUSHBUTTON | WS_TABSTOP;
      break;
    case K::Frame:
      style |= BS_GROUPBOX;
      break;
    case K::ListBox:
      window_class = L"LISTBOX";
      style |= LBS_NOTIFY | LBS_NOINTEGRALHEIGHT | WS_VSCROLL | WS_TABSTOP;
      if (IsCheckList(&control)) style |= LBS_OWNERDRAWFIXED | LBS_HASSTRINGS;
      ex_style = WS_EX_CLIENTEDGE;
      break;
    case K::CommonDialog:
      return nullptr;  // a service, never drawn
  }
  const RECT twips = TwipsRect(control);
  HWND hwnd = CreateWindowExW(
      ex_style, window_class, Wide(control.Caption()), style, Pixels(twips.left, dpi_),
      Pixels(twips.top, dpi_), Pixels(twips.right - twips.left, dpi_),
      Pixels(twips.bottom - twips.top, dpi_), window_, nullptr, Instance(), nullptr);
  if (!hwnd) throw vb::Failure(vb::kInvalidProcedureCall, u"A control's window could not be made");
  const bool bold = control.Kind() == K::Label && static_cast<const forms::Label&>(control).Bold();
  SendMessageW(hwnd, WM_SETFONT, reinterpret_cast<WPARAM>(bold ? bold_font_ : font_), FALSE);
  controls_[hwnd] = &control;
  windows_[&control] = hwnd;
  return hwnd;
}

bool DialogWindow::Owns(HWND hwnd) const { return hwnd == window_ || controls_.contains(hwnd); }

forms::Control* DialogWindow::ControlOf(HWND hwnd) const {
  auto it = controls_.find(hwnd);
  return it == controls_.end() ? nullptr : it->second;
}

std::vector<PendingInput> DialogWindow::TakePending() {
  std::vector<PendingInput> taken;
  taken.swap(pending_);
  return taken;
}

LRESULT CALLBACK DialogWindow::Procedure(HWND window, UINT message, WPARAM w, LPARAM l) {
  auto* self = reinterpret_cast<DialogWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  return self ? self->Handle(message, w, l) : DefWindowProcW(window, message, w, l);
}

LRESULT DialogWindow::Handle(UINT message, WPARAM w, LPARAM l) {
  switch (message) {
    case WM_CLOSE:
      Record({PendingInput::Type::Close});
      return 0;
    case WM_COMMAND: {
      forms::Control* control = ControlOf(reinterpret_cast<HWND>(l));
      if (!control || syncing_) return 0;
      const UINT code = HIWORD(w);
      if (control->Kind() == forms::ControlKind::ListBox) {
        if (code == LBN_SELCHANGE) {
          const auto row = static_cast<std::int32_t>(
              SendMessageW(reinterpret_cast<HWND>(l), LB_GETCURSEL, 0, 0));
          Record({PendingInput::Type::ListSelect, control, row});
        } else if (code == LBN_SETFOCUS) {
          Record({PendingInput::Type::Focus, control});
        }
      } else if (control->Kind() == forms::ControlKind::TextBox) {
        if (code == EN_SETFOCUS) Record({PendingInput::Type::Focus, control});
      } else if (code == BN_CLICKED) {
        Record({PendingInput::Type::Click, control});
      }
      return 0;
    }
    case WM_MEASUREITEM: {
      auto* item = reinterpret_cast<MEASUREITEMSTRUCT*>(l);
      item->itemHeight = static_cast<UINT>(MulDiv(16, dpi_, 96));
      return TRUE;
    }
    case WM_DRAWITEM:
      DrawListRow(*reinterpret_cast<const DRAWITEMSTRUCT*>(l));
      return TRUE;
    default:
      return DefWindowProcW(window_, message, w, l);
  }
}

void DialogWindow::DrawListRow(const DRAWITEMSTRUCT& item) {
  auto* list = dynamic_cast<forms::ListBox*>(ControlOf(item.hwndItem));
  if (!list || item.itemID == static_cast<UINT>(-1)) return;
  const auto row = static_cast<std::int32_t>(item.itemID);
  if (row >= list->ListCount()) return;
  const bool selected = (item.itemState & ODS_SELECTED) != 0;
  FillRect(item.hDC, &item.rcItem, GetSysColorBrush(selected ? COLOR_HIGHLIGHT : COLOR_WINDOW));
  RECT box = item.rcItem;
  box.right = box.left + CheckWidth(dpi_);
  InflateRect(&box, -2, -2);
  DrawFrameControl(item.hDC, &box, DFC_BUTTON,
                   DFCS_BUTTONCHECK | DFCS_FLAT | (list->Selected(row) ? DFCS_CHECKED : 0));
  RECT text = item.rcItem;
  text.left += CheckWidth(dpi_) + 2;
  SetBkMode(item.hDC, TRANSPARENT);
  SetTextColor(item.hDC, GetSysColor(selected ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT));
  const vb::Text& words = list->List(row);
  DrawTextW(item.hDC, Wide(words), static_cast<int>(words.size()), &text,
            DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
  if (item.itemState & ODS_FOCUS) DrawFocusRect(item.hDC, &item.rcItem);
}

bool DialogWindow::Take(const MSG& msg) {
  forms::Form& form = *form_;
  forms::Control* control = ControlOf(msg.hwnd);
  switch (msg.message) {
    case WM_KEYDOWN: {
      using forms::Key;
      const bool shift = GetKeyState(VK_SHIFT) < 0;
      const bool ctrl = GetKeyState(VK_CONTROL) < 0;
      auto* text = dynamic_cast<forms::TextBox*>(form.ActiveControl());
      switch (msg.wParam) {
        case VK_TAB:
          form.UserKey(shift ? Key::ShiftTab : Key::Tab);
          return true;
        case VK_RETURN:
          form.UserKey(Key::Enter);
          return true;
        case VK_ESCAPE:
          form.UserKey(Key::Escape);
          return true;
        case VK_BACK:
          form.UserKey(Key::Backspace);
          return true;
        case VK_DELETE:
          form.UserKey(Key::Delete);
          return true;
        case VK_LEFT:
          form.UserKey(Key::Left);
          return true;
        case VK_RIGHT:
          form.UserKey(Key::Right);
          return true;
        case VK_UP:
          form.UserKey(Key::Up);
          return true;
        case VK_DOWN:
          form.UserKey(Key::Down);
          return true;
        case VK_HOME:
          form.UserKey(Key::Home);
          return true;
        case VK_END:
          form.UserKey(Key::End);
          return true;
        default:
          break;
      }
      if (ctrl && msg.wParam == 'V' && text) {
        if (OpenClipboard(window_)) {
          if (HANDLE data = GetClipboardData(CF_UNICODETEXT)) {
            if (auto* words = static_cast<const wchar_t*>(GlobalLock(data))) {
              const vb::Text pasted = FromWide(words);
              GlobalUnlock(data);
              CloseClipboard();
              form.UserPaste(pasted);
              return true;
            }
          }
          CloseClipboard();
        }
        return true;
      }
      // Other keys become characters (WM_CHAR) and nothing else.
      TranslateMessage(&msg);
      return true;
    }
    case WM_CHAR:
      // Tab, Enter, Esc and Backspace came as keys; Ctrl+letter characters
      // mean nothing to the form.
      if (msg.wParam >= 32 && msg.wParam != 127) form.UserChar(static_cast<char16_t>(msg.wParam));
      return true;
    case WM_SYSKEYDOWN:
      if (msg.wParam == VK_F4) {
        form.UserClose();
        return true;
      }
      if ((msg.wParam >= 'A' && msg.wParam <= 'Z') || (msg.wParam >= '0' && msg.wParam <= '9')) {
        form.UserAltKey(static_cast<char16_t>(msg.wParam));
        return true;
      }
      // Alt or F10 alone would put the dialog in the system menu's mode,
      // where the next letter goes astray.
      return msg.wParam == VK_MENU || msg.wParam == VK_F10;
    case WM_SYSCHAR:
      return true;  // taken as WM_SYSKEYDOWN; the system would only beep
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
      if (control && control->Kind() == forms::ControlKind::TextBox) {
        DispatchMessageW(&msg);
        RecordSelection(msg.hwnd, control);
        return true;
      }
      // A click on a row's check box ticks the row; on its text it selects.
      if (IsCheckList(control) && GET_X_LPARAM(msg.lParam) < CheckWidth(dpi_)) {
        const LRESULT hit = SendMessageW(msg.hwnd, LB_ITEMFROMPOINT, 0, msg.lParam);
        if (HIWORD(hit) == 0) {
          Record({PendingInput::Type::ListToggle, control, static_cast<std::int32_t>(LOWORD(hit))});
          return true;
        }
      }
      return false;
    case WM_LBUTTONUP:
    case WM_MOUSEMOVE:
      // The mouse places a text box's caret or drags its selection: the
      // edit window does it, and the form hears where they ended.
      if (control && control->Kind() == forms::ControlKind::TextBox &&
          (msg.message != WM_MOUSEMOVE || GetCapture() == msg.hwnd)) {
        DispatchMessageW(&msg);
        RecordSelection(msg.hwnd, control);
        return true;
      }
      return false;
    default:
      return false;
  }
}

void DialogWindow::RecordSelection(HWND hwnd, forms::Control* control) {
  DWORD start = 0, end = 0;
  SendMessageW(hwnd, EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
  Record({PendingInput::Type::Selection, control, static_cast<std::int32_t>(start),
          static_cast<std::int32_t>(end - start)});
}

void DialogWindow::Sync() {
  syncing_ = true;
  struct Done {
    bool* flag;
    ~Done() { *flag = false; }
  } done{&syncing_};
  SetText(window_, form_->Caption());
  for (const auto& [control, hwnd] : windows_) {
    using K = forms::ControlKind;
    const bool visible = control->EffectivelyVisible();
    if (((GetWindowLongW(hwnd, GWL_STYLE) & WS_VISIBLE) != 0) != visible)
      ShowWindow(hwnd, visible ? SW_SHOWNA : SW_HIDE);
    const bool enabled = control->EffectivelyEnabled();
    if ((IsWindowEnabled(hwnd) != FALSE) != enabled) EnableWindow(hwnd, enabled);
    switch (control->Kind()) {
      case K::TextBox: {
        const auto& text = static_cast<const forms::TextBox&>(*control);
        SetText(hwnd, text.Text());
        // While the mouse drags a selection, the edit window owns it.
        DWORD start = 0, end = 0;
        SendMessageW(hwnd, EM_GETSEL, reinterpret_cast<WPARAM>(&start),
                     reinterpret_cast<LPARAM>(&end));
        const auto want_start = static_cast<DWORD>(text.SelStart());
        const auto want_end = static_cast<DWORD>(text.SelStart() + text.SelLength());
        if (GetCapture() != hwnd && (start != want_start || end != want_end))
          SendMessageW(hwnd, EM_SETSEL, want_start, want_end);
        break;
      }
      case K::CheckBox:
        SetText(hwnd, control->Caption());
        SetCheck(hwnd, static_cast<const forms::CheckBox&>(*control).Value());
        break;
      case K::OptionButton:
        SetText(hwnd, control->Caption());
        SetCheck(hwnd, static_cast<const forms::OptionButton&>(*control).Value() ? BST_CHECKED
                                                                                 : BST_UNCHECKED);
        break;
      case K::CommandButton: {
        SetText(hwnd, control->Caption());
        const bool is_default = static_cast<const forms::CommandButton&>(*control).Default();
        const LONG_PTR type = is_default ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON;
        if ((GetWindowLongPtrW(hwnd, GWL_STYLE) & BS_TYPEMASK) != type)
          SendMessageW(hwnd, BM_SETSTYLE, static_cast<WPARAM>(type), TRUE);
        break;
      }
      case K::ListBox: {
        const auto& list = static_cast<const forms::ListBox&>(*control);
        std::vector<vb::Text> rows;
        for (std::int32_t i = 0; i < list.ListCount(); ++i) rows.push_back(list.List(i));
        std::vector<bool> ticks;
        for (std::int32_t i = 0; i < list.ListCount(); ++i) ticks.push_back(list.Selected(i));
        auto& shown = list_rows_[control];
        if (shown.rows != rows) {
          SendMessageW(hwnd, LB_RESETCONTENT, 0, 0);
          for (const auto& row : rows)
            SendMessageW(hwnd, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(Wide(row)));
          shown.rows = std::move(rows);
        }
        if (SendMessageW(hwnd, LB_GETCURSEL, 0, 0) != list.ListIndex())
          SendMessageW(hwnd, LB_SETCURSEL, static_cast<WPARAM>(list.ListIndex()), 0);
        // Only a change of ticks is drawn again: drawing on every pass would
        // keep the loop painting.
        if (list.CheckBoxStyle() && shown.ticks != ticks) InvalidateRect(hwnd, nullptr, FALSE);
        shown.ticks = std::move(ticks);
        break;
      }
      default:
        SetText(hwnd, control->Caption());
        break;
    }
  }
  // The focus follows the form's, while the dialog is the active window.
  if (GetActiveWindow() == window_) {
    auto it = windows_.find(form_->ActiveControl());
    HWND want = it == windows_.end() ? window_ : it->second;
    if (GetFocus() != want) SetFocus(want);
  }
}

}  // namespace win32
