#include "com_double.hpp"

#include <oleauto.h>

namespace comdouble {

HRESULT Call::Refuse(HRESULT scode, const wchar_t* description, WORD code) {
  if (!exception) return scode ? scode : E_FAIL;
  *exception = EXCEPINFO{};
  exception->wCode = code;
  exception->scode = scode;
  exception->bstrDescription = SysAllocString(description);
  return DISP_E_EXCEPTION;
}

Object& Object::Member(const wchar_t* name, DISPID id, Handler handler) {
  members_.push_back({name, id, std::move(handler)});
  return *this;
}

Object& Object::Property(const wchar_t* name, DISPID id, Variant value, Handler check) {
  stored_[name] = std::move(value);
  return Member(name, id, [this, key = std::wstring(name), check](Call& call) {
    if (call.args.size() != (call.IsPut() ? 1u : 0u)) return DISP_E_BADPARAMCOUNT;
    if (!call.IsPut()) {
      call.result = stored_[key];
      return S_OK;
    }
    if (const HRESULT hr = check ? check(call) : S_OK; FAILED(hr)) return hr;
    stored_[key] = Variant::Unwrapped(call.args.back().Get());
    return S_OK;
  });
}

Object& Object::Answers(const IID& iid) {
  answers_.push_back(iid);
  return *this;
}

Object& Object::Source(const IID& iid) {
  source_ = iid;
  return *this;
}

HRESULT Object::Fire(DISPID id, const std::vector<Variant>& args, std::wstring* failure) {
  std::vector<VARIANT> listed;
  for (auto arg = args.rbegin(); arg != args.rend(); ++arg) listed.push_back(arg->Get());
  DISPPARAMS params{listed.data(), nullptr, static_cast<UINT>(listed.size()), 0};
  const auto sinks = sinks_;  // a sink may unadvise while it runs
  for (const auto& [cookie, sink] : sinks) {
    EXCEPINFO exception{};
    const HRESULT hr =
        sink->Invoke(id, IID_NULL, 0, DISPATCH_METHOD, &params, nullptr, &exception, nullptr);
    if (failure && exception.bstrDescription) *failure = exception.bstrDescription;
    SysFreeString(exception.bstrDescription);
    SysFreeString(exception.bstrSource);
    SysFreeString(exception.bstrHelpFile);
    if (FAILED(hr)) return hr;
  }
  return S_OK;
}

HRESULT Object::QueryInterface(REFIID iid, void** out) {
  if (IsEqualIID(iid, IID_IConnectionPointContainer) && source_) {
    *out = static_cast<IConnectionPointContainer*>(this);
  } else if (IsEqualIID(iid, IID_IConnectionPoint) && source_) {
    *out = static_cast<IConnectionPoint*>(this);
  } else if (IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_IDispatch) ||
             std::any_of(answers_.begin(), answers_.end(),
                         [&](const IID& a) { return IsEqualIID(a, iid); })) {
    *out = static_cast<IDispatch*>(this);
  } else {
    *out = nullptr;
    return E_NOINTERFACE;
  }
  AddRef();
  return S_OK;
}

ULONG Object::Release() {
  const ULONG left = --refs_;
  if (left == 0) delete this;
  return left;
}

HRESULT Object::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
  ids[0] = DISPID_UNKNOWN;
  for (const Entry& entry : members_) {
    if (count != 1 || _wcsicmp(entry.name.c_str(), names[0]) != 0) continue;
    ++g_lookups[interface_name_ + "." + std::string(entry.name.begin(), entry.name.end())];
    ids[0] = entry.id;
    return S_OK;
  }
  return DISP_E_UNKNOWNNAME;
}

HRESULT Object::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* params, VARIANT* result,
                       EXCEPINFO* exception, UINT*) {
  const auto entry =
      std::find_if(members_.begin(), members_.end(), [id](const Entry& e) { return e.id == id; });
  if (entry == members_.end()) return DISP_E_MEMBERNOTFOUND;
  g_calls.push_back(interface_name_ + "." + std::string(entry->name.begin(), entry->name.end()));
  Call call{flags, {}, {}, exception};
  const UINT named = params ? params->cNamedArgs : 0;
  const bool put_named = named == 1 && params->rgdispidNamedArgs[0] == DISPID_PROPERTYPUT;
  if (call.IsPut() ? !put_named : named != 0) {
    return call.IsPut() ? DISP_E_PARAMNOTOPTIONAL : DISP_E_NONAMEDARGS;
  }
  for (UINT i = params ? params->cArgs : 0; i-- > named;) {
    call.args.push_back(Variant::Copy(params->rgvarg[i]));
  }
  if (named) call.args.push_back(Variant::Copy(params->rgvarg[0]));
  const HRESULT hr = entry->handler(call);
  if (SUCCEEDED(hr) && result) {
    VariantInit(result);
    VariantCopy(result, const_cast<VARIANT*>(&call.result.Get()));
  }
  return hr;
}

HRESULT Object::FindConnectionPoint(REFIID iid, IConnectionPoint** out) {
  *out = source_ && IsEqualIID(*source_, iid) ? this : nullptr;
  if (*out) AddRef();
  return *out ? S_OK : CONNECT_E_NOCONNECTION;
}

HRESULT Object::Advise(IUnknown* sink, DWORD* cookie) {
  ComPtr<IDispatch> events;
  if (!sink || FAILED(sink->QueryInterface(*source_, &events))) {
    return CONNECT_E_CANNOTCONNECT;
  }
  sinks_[*cookie = next_cookie_++] = events;
  return S_OK;
}

}  // namespace comdouble
