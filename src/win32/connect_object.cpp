#include "win32/connect_object.hpp"

#include <iterator>
#include <vector>

#include "host/connect.hpp"
#include "packaging/registration_record.hpp"
#include "win32/com_errors.hpp"
#include "win32/dispatch_args.hpp"
#include "win32/ide_adapters.hpp"

namespace win32 {
namespace {

struct NamedMethod {
  const wchar_t* name;
  DISPID id;
};
constexpr NamedMethod kMethods[] = {
    {L"OnConnection", kDispOnConnection},       {L"OnDisconnection", kDispOnDisconnection},
    {L"OnAddInsUpdate", kDispOnAddInsUpdate},   {L"OnStartupComplete", kDispOnStartupComplete},
    {L"OnBeginShutdown", kDispOnBeginShutdown},
};

}  // namespace

ConnectObject::ConnectObject()
    : runtime_(frontend_, store_, packaging::Registration().project.name),
      addin_(tessaly::MakeConnectFactory(runtime_)()) {}

HRESULT ConnectObject::QueryInterface(REFIID iid, void** out) {
  if (!out) return E_POINTER;
  if (IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_IDispatch) ||
      IsEqualIID(iid, kIID_IDTExtensibility2) || IsEqualIID(iid, kIID_IDTExtensibility)) {
    *out = static_cast<IDTExtensibility2*>(this);
    AddRef();
    return S_OK;
  }
  *out = nullptr;
  return E_NOINTERFACE;
}

HRESULT ConnectObject::GetIDsOfNames(REFIID /*iid*/, LPOLESTR* names, UINT count, LCID /*lcid*/,
                                     DISPID* ids) {
  if (!names || !ids) return E_POINTER;
  HRESULT hr = S_OK;
  for (UINT i = 0; i < count; ++i) ids[i] = DISPID_UNKNOWN;
  if (count == 0) return S_OK;
  // Names match as a late-bound caller's runtime matches them: ignoring case.
  const auto* found = std::find_if(std::begin(kMethods), std::end(kMethods), [&](const auto& m) {
    return CompareStringOrdinal(m.name, -1, names[0], -1, TRUE) == CSTR_EQUAL;
  });
  if (found == std::end(kMethods)) return DISP_E_UNKNOWNNAME;
  ids[0] = found->id;
  // The methods take no named arguments.
  if (count > 1) hr = DISP_E_UNKNOWNNAME;
  return hr;
}

HRESULT ConnectObject::Invoke(DISPID id, REFIID /*iid*/, LCID /*lcid*/, WORD flags,
                              DISPPARAMS* params, VARIANT* result, EXCEPINFO* /*exception*/,
                              UINT* arg_err) {
  if ((flags & DISPATCH_METHOD) == 0) return DISP_E_MEMBERNOTFOUND;
  if (result) VariantInit(result);
  const DispatchArgs args(params, arg_err);
  HRESULT hr = S_OK;
  switch (id) {
    case kDispOnConnection: {
      Microsoft::WRL::ComPtr<IDispatch> application, addin_inst;
      LONG mode = 0;
      if (FAILED(hr = args.Expect(4, 4)) || FAILED(hr = args.Object(0, application)) ||
          FAILED(hr = args.Long(1, mode))) {
        return hr;
      }
      return OnConnection(application.Get(), mode, nullptr, nullptr);
    }
    case kDispOnDisconnection: {
      LONG mode = 0;
      if (FAILED(hr = args.Expect(2, 2)) || FAILED(hr = args.Long(0, mode))) return hr;
      return OnDisconnection(mode, nullptr);
    }
    case kDispOnAddInsUpdate:
    case kDispOnStartupComplete:
    case kDispOnBeginShutdown:
      return args.Expect(1, 1);
    default:
      return DISP_E_MEMBERNOTFOUND;
  }
}

HRESULT ConnectObject::OnConnection(IDispatch* application, int connect_mode,
                                    IDispatch* /*addin_inst*/, SAFEARRAY** /*custom*/) {
  return Guarded([&] {
    frontend_.SetOwner(MainWindowOf(application));
    std::vector<vb::Value> custom;
    // The Application object is the IDE object: the add-in takes it as VBE.
    addin_->OnConnection(Adapt<ide::VBE>(application), static_cast<ide::ConnectMode>(connect_mode),
                         nullptr, custom);
  });
}

HRESULT ConnectObject::OnDisconnection(int remove_mode, SAFEARRAY** /*custom*/) {
  return Guarded([&] {
    std::vector<vb::Value> custom;
    addin_->OnDisconnection(static_cast<ide::DisconnectMode>(remove_mode), custom);
    // The add-in's instance goes now, not when the IDE lets go of this
    // object: its event receivers are unadvised and the IDE's objects it
    // holds released. A later connection gets a new instance.
    addin_ = tessaly::MakeConnectFactory(runtime_)();
    frontend_.SetOwner(nullptr);
  });
}

HRESULT ConnectObject::OnAddInsUpdate(SAFEARRAY** /*custom*/) { return S_OK; }
HRESULT ConnectObject::OnStartupComplete(SAFEARRAY** /*custom*/) { return S_OK; }
HRESULT ConnectObject::OnBeginShutdown(SAFEARRAY** /*custom*/) { return S_OK; }

}  // namespace win32
