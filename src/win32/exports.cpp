// The component's exported entry points. Each is one catch around a call
// into this folder, so no failure leaves as an exception.
#include "win32/system.hpp"

#include "packaging/type_library.hpp"
#include "win32/class_factory.hpp"
#include "win32/com_errors.hpp"
#include "win32/guid.hpp"
#include "win32/module.hpp"
#include "win32/registration.hpp"

extern "C" {

BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID /*reserved*/) {
  if (reason == DLL_PROCESS_ATTACH) {
    win32::SetThisModule(instance);
    DisableThreadLibraryCalls(instance);
  }
  return TRUE;
}

HRESULT STDAPICALLTYPE DllGetClassObject(REFCLSID clsid, REFIID iid, void** out) {
  if (!out) return E_POINTER;
  *out = nullptr;
  if (!IsEqualCLSID(clsid, win32::ToClsid(packaging::Library().class_id))) {
    return CLASS_E_CLASSNOTAVAILABLE;
  }
  return win32::TheConnectFactory().QueryInterface(iid, out);
}

HRESULT STDAPICALLTYPE DllCanUnloadNow() { return win32::ModuleInUse() ? S_FALSE : S_OK; }

HRESULT STDAPICALLTYPE DllRegisterServer() {
  return win32::Guarded([] { win32::RegisterServer(win32::Scope::kMachineOrUser); });
}

HRESULT STDAPICALLTYPE DllUnregisterServer() {
  return win32::Guarded([] { win32::UnregisterServer(); });
}

// regsvr32 /i:user (with /n: only this) registers for the current user alone;
// regsvr32 /u /i:user removes it.
HRESULT STDAPICALLTYPE DllInstall(BOOL install, LPCWSTR command_line) {
  const bool user =
      command_line && CompareStringOrdinal(command_line, -1, L"user", -1, TRUE) == CSTR_EQUAL;
  return win32::Guarded([&] {
    if (!install) {
      win32::UnregisterServer();
    } else {
      win32::RegisterServer(user ? win32::Scope::kUser : win32::Scope::kMachineOrUser);
    }
  });
}

}  // extern "C"
