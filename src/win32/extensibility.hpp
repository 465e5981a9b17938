// The two interfaces through which an IDE loads an add-in.
//
// The add-in designer's _IDTExtensibility2 and the VB IDE's own
// IDTExtensibility are both dual interfaces derived from IDispatch whose
// first four methods have the same parameters in the same slots; the older
// one simply ends before OnBeginShutdown. One vtable therefore serves both,
// and QueryInterface answers either identifier with the same pointer.
//
// The IDE's objects are typed IDispatch here: its own type libraries are not
// part of this build, and a late-bound caller sees no difference.
#pragma once

#include <oaidl.h>
#include "win32/system.hpp"

namespace win32 {

// {B65AD801-ABAF-11D0-BB8B-00A0C90F2744}
inline constexpr IID kIID_IDTExtensibility2 = {
    0xB65AD801, 0xABAF, 0x11D0, {0xBB, 0x8B, 0x00, 0xA0, 0xC9, 0x0F, 0x27, 0x44}};
// {0002E151-0000-0000-C000-000000000046}
inline constexpr IID kIID_IDTExtensibility = {
    0x0002E151, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};

// Dispatch numbers of the methods, the same in both interfaces.
enum ExtensibilityDispId : DISPID {
  kDispOnConnection = 1,
  kDispOnDisconnection = 2,
  kDispOnAddInsUpdate = 3,
  kDispOnStartupComplete = 4,
  kDispOnBeginShutdown = 5,  // _IDTExtensibility2 only
};

struct IDTExtensibility2 : public IDispatch {
  virtual HRESULT STDMETHODCALLTYPE OnConnection(IDispatch* application, int connect_mode,
                                                 IDispatch* addin_inst, SAFEARRAY** custom) = 0;
  virtual HRESULT STDMETHODCALLTYPE OnDisconnection(int remove_mode, SAFEARRAY** custom) = 0;
  virtual HRESULT STDMETHODCALLTYPE OnAddInsUpdate(SAFEARRAY** custom) = 0;
  virtual HRESULT STDMETHODCALLTYPE OnStartupComplete(SAFEARRAY** custom) = 0;
  virtual HRESULT STDMETHODCALLTYPE OnBeginShutdown(SAFEARRAY** custom) = 0;
};

}  // namespace win32
