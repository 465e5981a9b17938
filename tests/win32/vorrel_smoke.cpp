// Smoke checks of Vorrel.dll as Windows sees it, run under wine by
// scripts/wine-smoke after regsvr32:
//
//   vorrel-smoke registered PATH\Vorrel.dll   the keys, creation by ProgID,
//                                             both extensibility interfaces,
//                                             the type library, the store
//   vorrel-smoke unregistered                 nothing left behind
//
// Prints one line per check ("ok ..." / "FAILED ...: why") and exits with
// the number of failed checks.
#include "win32/system.hpp"

#include <objbase.h>
#include <oleauto.h>
#include <wrl/client.h>

#include <cstdio>
#include <string>

#include "checks.hpp"
#include "packaging/registration_record.hpp"
#include "packaging/type_library.hpp"
#include "vb/failure.hpp"
#include "win32/extensibility.hpp"
#include "win32/guid.hpp"
#include "win32/registry.hpp"
#include "win32/registry_settings_store.hpp"
#include "win32/wide.hpp"

namespace {

using Microsoft::WRL::ComPtr;
using win32::RegKey;

vb::Text GuidText(const packaging::Guid& guid) { return vb::FromUtf8(packaging::FormatGuid(guid)); }

const auto& Record() { return packaging::Registration(); }
const auto& Library() { return packaging::Library(); }
vb::Text ClassKey() { return u"Software\\Classes\\CLSID\\" + GuidText(Library().class_id); }
vb::Text ProgIdKey() { return u"Software\\Classes\\" + packaging::ProgId(Record()); }
vb::Text AddInKey() {
  return u"Software\\Microsoft\\Visual Basic\\6.0\\Addins\\" + packaging::ProgId(Record());
}
vb::Text TypeLibKey() { return u"Software\\Classes\\TypeLib\\" + GuidText(Library().library_id); }

DWORD Number(HKEY root, const vb::Text& key, const wchar_t* name) {
  DWORD value = ~0u, size = sizeof value;
  RegGetValueW(root, win32::Wide(key), name, RRF_RT_REG_DWORD, nullptr, &value, &size);
  return value;
}

void CheckKeys(const std::wstring& dll) {
  std::string wrong;
  const auto expect = [&](HKEY root, const vb::Text& key, const vb::Text& name,
                          const vb::Text& want) {
    if (RegKey::Open(root, key).Text(name) != want) wrong += vb::ToUtf8(key + u" " + name) + "; ";
  };
  const auto& designer = Record().designer;
  const vb::Text server = ClassKey() + u"\\InprocServer32";
  expect(HKEY_LOCAL_MACHINE, server, u"", vb::Text(dll.begin(), dll.end()));
  expect(HKEY_LOCAL_MACHINE, server, u"ThreadingModel", u"Apartment");
  expect(HKEY_LOCAL_MACHINE, ClassKey() + u"\\ProgID", u"", packaging::ProgId(Record()));
  expect(HKEY_LOCAL_MACHINE, ProgIdKey() + u"\\CLSID", u"", GuidText(Library().class_id));
  expect(HKEY_CURRENT_USER, AddInKey(), u"FriendlyName", designer.display_name);
  expect(HKEY_CURRENT_USER, AddInKey(), u"Description", designer.description);
  Check(wrong.empty() && RegKey::Open(HKEY_LOCAL_MACHINE, TypeLibKey()) &&
            Number(HKEY_CURRENT_USER, AddInKey(), L"LoadBehavior") ==
                static_cast<DWORD>(designer.load_behaviour),
        "the apartment-threaded class is the DLL's, per machine; class and ProgID name each "
        "other; the type library is there; the IDE lists the add-in and loads it at startup",
        wrong);
}

void CheckCreation() {
  CLSID clsid{};
  ComPtr<IUnknown> object;
  HRESULT hr = CLSIDFromProgID(win32::Wide(packaging::ProgId(Record())), &clsid);
  if (SUCCEEDED(hr)) {
    hr = CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown, &object);
  }
  Check(SUCCEEDED(hr) && IsEqualCLSID(clsid, win32::ToClsid(Library().class_id)),
        "Connect is created by its ProgID", std::to_string(hr));
  if (FAILED(hr)) return;
  ComPtr<IUnknown> designer_interface;
  ComPtr<IDispatch> ide_interface;
  Check(SUCCEEDED(object->QueryInterface(win32::kIID_IDTExtensibility2, &designer_interface)) &&
            SUCCEEDED(object->QueryInterface(win32::kIID_IDTExtensibility, &ide_interface)),
        "it answers the add-in designer's and the IDE's extensibility interfaces");
  if (!ide_interface) return;
  bool all = true;
  for (const auto& [name, id] :
       {std::pair{L"OnConnection", 1}, {L"ondisconnection", 2}, {L"OnStartupComplete", 4}}) {
    DISPID got = 0;
    LPOLESTR text = const_cast<LPOLESTR>(name);
    all &= SUCCEEDED(ide_interface->GetIDsOfNames(IID_NULL, &text, 1, 0, &got)) && got == id;
  }
  Check(all, "late-bound names resolve to the extensibility numbers, in any case");
  DISPPARAMS none{};
  Check(ide_interface->Invoke(win32::kDispOnConnection, IID_NULL, 0, DISPATCH_METHOD, &none,
                              nullptr, nullptr, nullptr) == DISP_E_BADPARAMCOUNT,
        "a late-bound OnConnection without its arguments is refused, not run");
}

// The library's text, attributes and all, is checked where it is emitted;
// here Windows reads what the build made of it.
void CheckTypeLibrary(const std::wstring& dll) {
  ComPtr<ITypeLib> library;
  ComPtr<ITypeInfo> connect, vtable;
  HREFTYPE vtable_half = 0;
  TLIBATTR* attributes = nullptr;
  TYPEATTR* type = nullptr;
  const bool read =
      SUCCEEDED(LoadTypeLibEx(dll.c_str(), REGKIND_NONE, &library)) &&
      SUCCEEDED(library->GetLibAttr(&attributes)) &&
      SUCCEEDED(
          library->GetTypeInfoOfGuid(win32::ToGuid(Library().default_interface.iid), &connect)) &&
      SUCCEEDED(connect->GetRefTypeOfImplType(-1, &vtable_half)) &&  // only a dual has one
      SUCCEEDED(connect->GetRefTypeInfo(vtable_half, &vtable)) &&
      SUCCEEDED(vtable->GetTypeAttr(&type));
  Check(read && attributes->wMajorVerNum == Library().version.major &&
            attributes->lcid == Library().locale && type->cFuncs == 7,
        "the DLL's type library: its version and locale, _Connect dual with its seven slots");
  if (attributes) library->ReleaseTLibAttr(attributes);
  if (type) vtable->ReleaseTypeAttr(type);
}

void CheckStore() {
  const vb::Text font = u"MS Sans Serif \u00e9";
  win32::RegistrySettingsStore store;
  store.Save(u"Vorrel", u"Options", u"FontName", font);
  // Text reads REG_SZ only: another kind of value throws.
  Check(
      store.Get(u"VORREL", u"options", u"fontname") == font &&
          !store.Get(u"Vorrel", u"Options", u"NoSuchKey") &&
          RegKey::Open(HKEY_CURRENT_USER, u"Software\\VB and VBA Program Settings\\Vorrel\\Options")
                  .Text(u"FontName") == font,
      "a setting is REG_SZ where VB keeps its own, read back in any case; a missing one is none");
}

void CheckNothingLeft() {
  std::string left;
  for (HKEY root : {HKEY_LOCAL_MACHINE, HKEY_CURRENT_USER}) {
    for (const vb::Text& key : {ClassKey(), ProgIdKey(), TypeLibKey(), AddInKey()}) {
      if (RegKey::Open(root, key))
        left += vb::ToUtf8(key) + (root == HKEY_CURRENT_USER ? " (user) " : " ");
    }
  }
  Check(left.empty(), "unregistering leaves no key behind", left);
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
  CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  const std::wstring mode = argc > 1 ? argv[1] : L"";
  try {
    if (mode == L"registered" && argc > 2) {
      CheckKeys(argv[2]);
      CheckCreation();
      CheckTypeLibrary(argv[2]);
      CheckStore();
    } else if (mode == L"unregistered") {
      CheckNothingLeft();
    } else {
      std::printf("usage: vorrel-smoke registered DLL | unregistered\n");
      return 2;
    }
  } catch (const vb::Failure& failure) {
    Check(false, "no failure", failure.what());
  }
  CoUninitialize();
  return g_failed_checks;
}
