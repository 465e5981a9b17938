// A small in-process automation server for tests: objects whose members are
// a table (name, DISPID, handler), called through IDispatch, and that may be
// an event source with its one connection point.
//
// It refuses what an automation server refuses: an unknown name or number, a
// property write without its named argument DISPID_PROPERTYPUT, a sink that
// does not answer the source's interface. Handlers see the arguments first
// to last, as sent (a by-reference argument stays one), and check the rest.
#pragma once

#include "win32/system.hpp"

#include <ocidl.h>
#include <oleauto.h>
#include <olectl.h>
#include <wrl/client.h>

#include <algorithm>
#include <atomic>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "win32/variant.hpp"

namespace comdouble {

using Microsoft::WRL::ComPtr;
using win32::Variant;

// A by-reference argument pointing at `target`, as an event's out argument.
inline Variant ByRef(VARTYPE type, void* target) {
  VARIANT ref;
  V_VT(&ref) = type | VT_BYREF;
  V_BYREF(&ref) = target;
  return Variant::Copy(ref);
}

// One call as the object received it.
struct Call {
  WORD flags = 0;
  std::vector<Variant> args;  // first to last; a property write's value last
  Variant result;
  EXCEPINFO* exception = nullptr;

  bool IsPut() const { return flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF); }
};
using Handler = std::function<HRESULT(Call&)>;

class Object final : public IDispatch, public IConnectionPointContainer, public IConnectionPoint {
 public:
  static ComPtr<Object> Make() {
    ComPtr<Object> object;
    object.Attach(new Object());
    return object;
  }

  Object& Member(const wchar_t* name, DISPID id, Handler handler) {
    members_.push_back({name, id, std::move(handler)});
    return *this;
  }
  // Another interface QueryInterface answers (with the IDispatch).
  Object& Answers(const IID& iid) { return answers_.push_back(iid), *this; }
  // Makes the object an event source of `iid`.
  Object& Source(const IID& iid) { return source_ = iid, *this; }
  // Something that lives as long as the object, as what feeds its events.
  Object& Keep(std::shared_ptr<void> thing) { return kept_.push_back(std::move(thing)), *this; }

  std::size_t Advised() const { return sinks_.size(); }
  // Calls every advised sink with the arguments first to last; S_OK or the
  // first failure, whose words go to `failure`.
  HRESULT Fire(DISPID id, const std::vector<Variant>& args, std::wstring* failure = nullptr) {
    std::vector<VARIANT> listed;  // shallow: `args` owns the values
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

  // IUnknown
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override {
    const auto is = [&iid](const IID& other) { return IsEqualIID(iid, other) != 0; };
    if (source_ && is(IID_IConnectionPointContainer)) {
      *out = static_cast<IConnectionPointContainer*>(this);
    } else if (source_ && is(IID_IConnectionPoint)) {
      *out = static_cast<IConnectionPoint*>(this);
    } else if (is(IID_IUnknown) || is(IID_IDispatch) ||
               std::any_of(answers_.begin(), answers_.end(), is)) {
      *out = static_cast<IDispatch*>(this);
    } else {
      *out = nullptr;
      return E_NOINTERFACE;
    }
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++refs_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --refs_;
    if (left == 0) delete this;
    return left;
  }
  // IDispatch
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                                          DISPID* ids) override {
    ids[0] = DISPID_UNKNOWN;
    for (const Entry& entry : members_) {
      if (count != 1 || _wcsicmp(entry.name.c_str(), names[0]) != 0) continue;
      ids[0] = entry.id;
      return S_OK;
    }
    return DISP_E_UNKNOWNNAME;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* params,
                                   VARIANT* result, EXCEPINFO* exception, UINT*) override {
    const auto entry =
        std::find_if(members_.begin(), members_.end(), [id](const Entry& e) { return e.id == id; });
    if (entry == members_.end()) return DISP_E_MEMBERNOTFOUND;
    Call call{flags, {}, {}, exception};
    const UINT named = params ? params->cNamedArgs : 0;
    if (call.IsPut() && !(named == 1 && params->rgdispidNamedArgs[0] == DISPID_PROPERTYPUT)) {
      return DISP_E_PARAMNOTOPTIONAL;
    }
    if (!call.IsPut() && named != 0) return DISP_E_NONAMEDARGS;
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
  // IConnectionPointContainer
  HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints**) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID iid, IConnectionPoint** out) override {
    *out = source_ && IsEqualIID(*source_, iid) ? this : nullptr;
    if (*out) AddRef();
    return *out ? S_OK : CONNECT_E_NOCONNECTION;
  }
  // IConnectionPoint; as a source does, it wants the sink to answer the
  // outgoing interface.
  HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetConnectionPointContainer(IConnectionPointContainer**) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE Advise(IUnknown* sink, DWORD* cookie) override {
    ComPtr<IDispatch> events;
    if (!sink || FAILED(sink->QueryInterface(*source_, &events))) return CONNECT_E_CANNOTCONNECT;
    sinks_[*cookie = next_cookie_++] = events;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) override {
    return sinks_.erase(cookie) ? S_OK : CONNECT_E_NOCONNECTION;
  }
  HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections**) override { return E_NOTIMPL; }

 private:
  Object() = default;
  struct Entry {
    std::wstring name;
    DISPID id;
    Handler handler;
  };

  std::atomic<ULONG> refs_{1};
  std::vector<Entry> members_;
  std::vector<IID> answers_;
  std::optional<IID> source_;
  std::map<DWORD, ComPtr<IDispatch>> sinks_;
  DWORD next_cookie_ = 1;
  std::vector<std::shared_ptr<void>> kept_;  // last: goes first, while sinks_ are still there
};

}  // namespace comdouble
