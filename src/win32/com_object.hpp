// What every COM object of the component has in common: a reference count
// that starts at one (the creator's) and deletes the object at zero, a place
// in the module's count of live objects (DllCanUnloadNow), and IDispatch
// without type information: the IDE calls these objects by name or by
// number, and their interfaces belong to the IDE's libraries, not ours.
#pragma once

#include <oaidl.h>

#include <atomic>

#include "win32/module.hpp"

namespace win32 {

template <class Interface>
class ComObject : public Interface {
 public:
  ComObject(const ComObject&) = delete;
  ComObject& operator=(const ComObject&) = delete;

  ULONG STDMETHODCALLTYPE AddRef() override { return ++refs_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --refs_;
    if (left == 0) delete this;
    return left;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    if (!count) return E_POINTER;
    *count = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT /*index*/, LCID /*lcid*/, ITypeInfo** info) override {
    if (info) *info = nullptr;
    return DISP_E_BADINDEX;
  }

 protected:
  ComObject() { AddModuleRef(); }
  virtual ~ComObject() { ReleaseModuleRef(); }

 private:
  std::atomic<ULONG> refs_{1};
};

}  // namespace win32
