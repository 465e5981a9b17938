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
#include <optional>
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

std::string Utf8(const vb::Text& text) { return vb::ToUtf8(text); }
vb::Text GuidText(const packaging::Guid& guid) { return vb::FromUtf8(packaging::FormatGuid(guid)); }

const auto& Record() { return packaging::Registration(); }
const auto& Library() { return packaging::Library(); }
vb::Text ClassKey() { return u"Software\\Classes\\CLSID\\" + GuidText(Library().class_id); }
vb::Text ProgIdKey() { return u"Software\\Classes\\" + packaging::ProgId(Record()); }
vb::Text AddInKey() {
  return u"Software\\Microsoft\\Visual Basic\\6.0\\Addins\\" + packaging::ProgId(Record());
}
vb::Text TypeLibKey() { return u"Software\\Classes\\TypeLib\\" + GuidText(Library().library_id); }

std::optional<DWORD> Number(HKEY root, const vb::Text& key, const wchar_t* name) {
  DWORD value = 0, size = sizeof value;
  if (RegGetValueW(root, win32::Wide(key), name, RRF_RT_REG_DWORD, nullptr, &value, &size) !=
      ERROR_SUCCESS) {
    return std::nullopt;
  }
  return value;
}

void CheckKeys(const std::wstring& dll) {
  const RegKey server = RegKey::Open(HKEY_LOCAL_MACHINE, ClassKey() + u"\\InprocServer32");
  const auto path = server.Text(u"");
  Check(path && _wcsicmp(win32::Wide(*path), dll.c_str()) == 0,
        "the class's server is the DLL, per machine", path ? Utf8(*path) : "no key");
  Check(server.Text(u"ThreadingModel") == u"Apartment", "apartment-threaded");
  Check(RegKey::Open(HKEY_LOCAL_MACHINE, ClassKey() + u"\\ProgID").Text(u"") ==
            packaging::ProgId(Record()),
        "the class names its ProgID");
  Check(RegKey::Open(HKEY_LOCAL_MACHINE, ProgIdKey() + u"\\CLSID").Text(u"") ==
            GuidText(Library().class_id),
        "the ProgID names the class");
  const RegKey addin = RegKey::Open(HKEY_CURRENT_USER, AddInKey());
  Check(addin.Text(u"FriendlyName") == Record().designer.display_name,
        "the IDE's add-in list shows the display name");
  Check(addin.Text(u"Description") == Record().designer.description, "... and the description");
  Check(Number(HKEY_CURRENT_USER, AddInKey(), L"LoadBehavior") ==
            static_cast<DWORD>(Record().designer.load_behaviour),
        "... and loads it at startup");
  Check(static_cast<bool>(RegKey::Open(HKEY_LOCAL_MACHINE, TypeLibKey())),
        "the type library is registered");
}

void CheckCreation() {
  CLSID clsid{};
  HRESULT hr = CLSIDFromProgID(win32::Wide(packaging::ProgId(Record())), &clsid);
  Check(SUCCEEDED(hr) && IsEqualCLSID(clsid, win32::ToClsid(Library().class_id)),
        "the ProgID resolves to the class", std::to_string(hr));
  ComPtr<IUnknown> object;
  hr = CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown, &object);
  Check(SUCCEEDED(hr), "Connect is created by its ProgID", std::to_string(hr));
  if (FAILED(hr)) return;
  ComPtr<win32::IDTExtensibility2> designer_interface;
  ComPtr<IDispatch> ide_interface;
  Check(SUCCEEDED(object->QueryInterface(win32::kIID_IDTExtensibility2, &designer_interface)),
        "it answers the add-in designer's extensibility interface");
  Check(SUCCEEDED(object->QueryInterface(win32::kIID_IDTExtensibility,
                                         reinterpret_cast<void**>(ide_interface.GetAddressOf()))),
        "it answers the IDE's own extensibility interface");
  if (!ide_interface) return;
  const wchar_t* names[] = {L"OnConnection", L"ondisconnection", L"OnStartupComplete"};
  const DISPID expected[] = {1, 2, 4};
  bool all = true;
  for (int i = 0; i < 3; ++i) {
    DISPID id = 0;
    LPOLESTR name = const_cast<LPOLESTR>(names[i]);
    all &= SUCCEEDED(ide_interface->GetIDsOfNames(IID_NULL, &name, 1, 0, &id)) && id == expected[i];
  }
  Check(all, "late-bound names resolve to the extensibility numbers, in any case");
  DISPPARAMS none{};
  Check(ide_interface->Invoke(win32::kDispOnConnection, IID_NULL, 0, DISPATCH_METHOD, &none,
                              nullptr, nullptr, nullptr) == DISP_E_BADPARAMCOUNT,
        "a late-bound OnConnection without its arguments is refused, not run");
}

void CheckTypeLibrary(const std::wstring& dll) {
  ComPtr<ITypeLib> library;
  HRESULT hr = LoadTypeLibEx(dll.c_str(), REGKIND_NONE, &library);
  Check(SUCCEEDED(hr), "the type library loads from the DLL", std::to_string(hr));
  if (FAILED(hr)) return;
  TLIBATTR* attributes = nullptr;
  library->GetLibAttr(&attributes);
  Check(attributes->wMajorVerNum == Library().version.major &&
            attributes->wMinorVerNum == Library().version.minor &&
            attributes->lcid == Library().locale,
        "its version and locale");
  library->ReleaseTLibAttr(attributes);
  ComPtr<ITypeInfo> connect;
  hr = library->GetTypeInfoOfGuid(win32::ToGuid(Library().default_interface.iid), &connect);
  Check(SUCCEEDED(hr), "it describes _Connect");
  if (FAILED(hr)) return;
  TYPEATTR* type = nullptr;
  connect->GetTypeAttr(&type);
  const WORD wanted = TYPEFLAG_FHIDDEN | TYPEFLAG_FDUAL | TYPEFLAG_FNONEXTENSIBLE;
  Check((type->wTypeFlags & wanted) == wanted, "_Connect is dual, hidden, non-extensible",
        "flags " + std::to_string(type->wTypeFlags));
  connect->ReleaseTypeAttr(type);
  // The vtable half of a dual interface carries the automation flag.
  HREFTYPE vtable_half = 0;
  ComPtr<ITypeInfo> vtable;
  bool automation = SUCCEEDED(connect->GetRefTypeOfImplType(-1, &vtable_half)) &&
                    SUCCEEDED(connect->GetRefTypeInfo(vtable_half, &vtable));
  if (automation) {
    vtable->GetTypeAttr(&type);
    automation = (type->wTypeFlags & TYPEFLAG_FOLEAUTOMATION) != 0 && type->cFuncs == 7;
    vtable->ReleaseTypeAttr(type);
  }
  Check(automation, "_Connect is automation-compatible, with its seven slots");
}

void CheckStore() {
  win32::RegistrySettingsStore store;
  store.Save(u"Vorrel", u"Options", u"FontName", u"MS Sans Serif \u00e9");
  Check(store.Get(u"VORREL", u"options", u"fontname") == u"MS Sans Serif \u00e9",
        "a setting reads back in any case");
  DWORD type = 0;
  RegGetValueW(HKEY_CURRENT_USER, L"Software\\VB and VBA Program Settings\\Vorrel\\Options",
               L"FontName", RRF_RT_ANY, &type, nullptr, nullptr);
  Check(type == REG_SZ, "a setting is a REG_SZ value where VB keeps its own");
  Check(!store.Get(u"Vorrel", u"Options", u"NoSuchKey"), "a missing setting reads as none");
}

void CheckNothingLeft() {
  for (HKEY root : {HKEY_LOCAL_MACHINE, HKEY_CURRENT_USER}) {
    const char* hive = root == HKEY_LOCAL_MACHINE ? " (machine)" : " (user)";
    Check(!RegKey::Open(root, ClassKey()), (std::string("no class key") + hive).c_str());
    Check(!RegKey::Open(root, ProgIdKey()), (std::string("no ProgID key") + hive).c_str());
    Check(!RegKey::Open(root, TypeLibKey()), (std::string("no type library key") + hive).c_str());
  }
  Check(!RegKey::Open(HKEY_CURRENT_USER, AddInKey()), "no add-in entry");
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
  return FailedChecks();
}
