#include "win32/registration.hpp"

#include "win32/system.hpp"

#include <oleauto.h>
#include <wrl/client.h>

#include <string>
#include <string_view>

#include "packaging/registration_record.hpp"
#include "packaging/type_library.hpp"
#include "vb/failure.hpp"
#include "win32/com_errors.hpp"
#include "win32/guid.hpp"
#include "win32/module.hpp"
#include "win32/registry.hpp"
#include "win32/wide.hpp"

// mingw-w64's oleauto.h lacks these two; oleaut32 exports them.
extern "C" {
HRESULT WINAPI RegisterTypeLibForUser(ITypeLib* library, OLECHAR* path, OLECHAR* help_dir);
HRESULT WINAPI UnRegisterTypeLibForUser(REFGUID library_id, WORD major, WORD minor, LCID lcid,
                                        SYSKIND syskind);
}

namespace win32 {
namespace {

const vb::Text kClasses = u"Software\\Classes\\";

vb::Text GuidText(const packaging::Guid& guid) { return vb::FromUtf8(packaging::FormatGuid(guid)); }

vb::Text ClassKey() { return kClasses + u"CLSID\\" + GuidText(packaging::Library().class_id); }
vb::Text ProgIdKey() { return kClasses + packaging::ProgId(packaging::Registration()); }

// The host key names its hive in full ("HKEY_CURRENT_USER\Software\...").
struct HostKey {
  HKEY root;
  vb::Text path;
};

HostKey AddInKey() {
  const auto& record = packaging::Registration();
  const vb::Text& host = record.designer.host_key;
  const auto slash = host.find(u'\\');
  const vb::Text hive = host.substr(0, slash);
  const vb::Text below = slash == vb::Text::npos ? vb::Text() : host.substr(slash + 1) + u"\\";
  HKEY root = nullptr;
  if (hive == u"HKEY_CURRENT_USER") root = HKEY_CURRENT_USER;
  if (hive == u"HKEY_LOCAL_MACHINE") root = HKEY_LOCAL_MACHINE;
  if (!root) throw vb::Failure(vb::kInvalidProcedureCall, u"Unknown registry hive in " + host);
  return {root, below + u"Addins\\" + packaging::ProgId(record)};
}

void WriteClass(HKEY root, const std::wstring& path) {
  const auto& record = packaging::Registration();
  const auto& library = packaging::Library();
  const vb::Text prog_id = packaging::ProgId(record);
  const vb::Text version = vb::FromUtf8(std::to_string(library.version.major) + "." +
                                        std::to_string(library.version.minor));

  RegKey::Create(root, ClassKey()).SetText(u"", record.designer.display_name);
  RegKey server = RegKey::Create(root, ClassKey() + u"\\InprocServer32");
  server.SetText(u"", FromWide(path.c_str()));
  server.SetText(u"ThreadingModel", u"Apartment");
  RegKey::Create(root, ClassKey() + u"\\ProgID").SetText(u"", prog_id);
  RegKey::Create(root, ClassKey() + u"\\TypeLib").SetText(u"", GuidText(library.library_id));
  RegKey::Create(root, ClassKey() + u"\\VERSION").SetText(u"", version);
  RegKey::Create(root, ProgIdKey()).SetText(u"", record.designer.display_name);
  RegKey::Create(root, ProgIdKey() + u"\\CLSID").SetText(u"", GuidText(library.class_id));
}

void WriteTypeLibrary(bool per_machine, std::wstring path) {
  Microsoft::WRL::ComPtr<ITypeLib> library;
  ThrowIfFailed(LoadTypeLibEx(path.c_str(), REGKIND_NONE, &library),
                u"The type library in " + FromWide(path.c_str()) + u" cannot be loaded");
  ThrowIfFailed(per_machine ? RegisterTypeLib(library.Get(), path.data(), nullptr)
                            : RegisterTypeLibForUser(library.Get(), path.data(), nullptr),
                u"The type library cannot be registered");
}

void WriteAddIn() {
  const auto& designer = packaging::Registration().designer;
  const HostKey key = AddInKey();
  RegKey entry = RegKey::Create(key.root, key.path);
  entry.SetText(u"FriendlyName", designer.display_name);
  entry.SetText(u"Description", designer.description);
  entry.SetNumber(u"LoadBehavior", static_cast<std::uint32_t>(designer.load_behaviour));
  entry.SetNumber(u"CommandLineSafe", 0);
}

// Removes what registration writes below `root` (HKLM or HKCU), including
// what registering the type library wrote there.
void RemoveClass(HKEY root) {
  const auto& library = packaging::Library();
  DeleteKeyTree(root, ClassKey());
  DeleteKeyTree(root, ProgIdKey());
  DeleteKeyTree(root, kClasses + u"TypeLib\\" + GuidText(library.library_id));
  DeleteKeyTree(root, kClasses + u"Interface\\" + GuidText(library.default_interface.iid));
  DeleteKeyTree(root, kClasses + u"Interface\\" + GuidText(library.alias_iid));
}

}  // namespace

void RegisterServer(Scope scope) {
  const std::wstring path = ModulePath();
  bool per_machine = scope == Scope::kMachineOrUser;
  if (per_machine) {
    try {
      WriteClass(HKEY_LOCAL_MACHINE, path);
    } catch (const vb::Failure& failure) {
      if (!IsAccessDenied(failure.Number())) throw;
      per_machine = false;
    }
  }
  if (!per_machine) WriteClass(HKEY_CURRENT_USER, path);
  WriteTypeLibrary(per_machine, path);
  WriteAddIn();
}

void UnregisterServer() {
  const auto& library = packaging::Library();
  const GUID library_id = ToGuid(library.library_id);
  // Whatever registering the type library wrote and the keys below remove
  // anyway; these calls only let the system forget its own caches, so a
  // library that was never registered is no failure here.
  UnRegisterTypeLib(library_id, library.version.major, library.version.minor, library.locale,
                    SYS_WIN32);
  UnRegisterTypeLibForUser(library_id, library.version.major, library.version.minor, library.locale,
                           SYS_WIN32);
  try {
    RemoveClass(HKEY_LOCAL_MACHINE);
  } catch (const vb::Failure& failure) {
    // Without the right to change the machine's keys, nothing of ours may
    // be left there.
    if (!IsAccessDenied(failure.Number()) || RegKey::Open(HKEY_LOCAL_MACHINE, ClassKey())) throw;
  }
  RemoveClass(HKEY_CURRENT_USER);
  const HostKey key = AddInKey();
  DeleteKeyTree(key.root, key.path);
}

}  // namespace win32
