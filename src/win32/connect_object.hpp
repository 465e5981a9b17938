// Connect as a COM object: the instance the IDE creates by the ProgID
// Vorrel.Connect and loads as an add-in.
//
// It answers both extensibility interfaces (see extensibility.hpp), through
// the vtable and through IDispatch, and passes OnConnection, with the IDE's
// Application object as a VBE adapter (ide_adapters.hpp), and OnDisconnection
// to the add-in's own Connect, which it replaces by a new one after
// disconnection so that nothing of the IDE stays advised or held. It owns
// what that Connect lives in: the forms runtime with the Windows front end
// and the registry settings store. Every method is an entry from outside and
// ends in one catch that turns a failure into an HRESULT.
#pragma once

#include <memory>

#include "forms/runtime.hpp"
#include "ide/addin.hpp"
#include "win32/com_object.hpp"
#include "win32/extensibility.hpp"
#include "win32/registry_settings_store.hpp"
#include "win32/win32_frontend.hpp"

namespace win32 {

class ConnectObject final : public ComObject<IDTExtensibility2> {
 public:
  ConnectObject();

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override;
  // IDispatch: names and numbers of the extensibility methods.
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID lcid,
                                          DISPID* ids) override;
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID iid, LCID lcid, WORD flags, DISPPARAMS* params,
                                   VARIANT* result, EXCEPINFO* exception, UINT* arg_err) override;

  // The extensibility methods. Only the application and the two modes are
  // passed on; the add-in reads neither the add-in instance nor `custom`.
  HRESULT STDMETHODCALLTYPE OnConnection(IDispatch* application, int connect_mode,
                                         IDispatch* addin_inst, SAFEARRAY** custom) override;
  HRESULT STDMETHODCALLTYPE OnDisconnection(int remove_mode, SAFEARRAY** custom) override;
  HRESULT STDMETHODCALLTYPE OnAddInsUpdate(SAFEARRAY** custom) override;
  HRESULT STDMETHODCALLTYPE OnStartupComplete(SAFEARRAY** custom) override;
  HRESULT STDMETHODCALLTYPE OnBeginShutdown(SAFEARRAY** custom) override;

 private:
  RegistrySettingsStore store_;
  Win32Frontend frontend_;
  forms::Runtime runtime_;
  std::unique_ptr<ide::AddIn> addin_;
};

}  // namespace win32
