// The class factory the IDE gets from DllGetClassObject: it makes Connect
// objects. One static factory serves every caller; its references do not
// keep the module loaded, LockServer does.
#pragma once

#include <unknwn.h>

namespace win32 {

class ConnectFactory final : public IClassFactory {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override;
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  // Aggregation is refused (CLASS_E_NOAGGREGATION).
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** out) override;
  HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override;
};

ConnectFactory& TheConnectFactory();

}  // namespace win32
