#include "win32/class_factory.hpp"

#include "win32/com_errors.hpp"
#include "win32/connect_object.hpp"
#include "win32/module.hpp"

namespace win32 {

HRESULT ConnectFactory::QueryInterface(REFIID iid, void** out) {
  if (!out) return E_POINTER;
  if (IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_IClassFactory)) {
    *out = static_cast<IClassFactory*>(this);
    return S_OK;
  }
  *out = nullptr;
  return E_NOINTERFACE;
}

HRESULT ConnectFactory::CreateInstance(IUnknown* outer, REFIID iid, void** out) {
  if (!out) return E_POINTER;
  *out = nullptr;
  if (outer) return CLASS_E_NOAGGREGATION;
  ConnectObject* object = nullptr;
  const HRESULT made = Guarded([&] { object = new ConnectObject(); });
  if (FAILED(made)) return made;
  // The object starts with one reference: the caller's if it answers `iid`.
  const HRESULT hr = object->QueryInterface(iid, out);
  object->Release();
  return hr;
}

HRESULT ConnectFactory::LockServer(BOOL lock) {
  if (lock) {
    AddModuleRef();
  } else {
    ReleaseModuleRef();
  }
  return S_OK;
}

ConnectFactory& TheConnectFactory() {
  static ConnectFactory factory;
  return factory;
}

}  // namespace win32
