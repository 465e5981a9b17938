// A small in-process automation server for tests: objects whose members are
// a table (name, DISPID, handler), called through IDispatch, and that may be
// an event source with its one connection point.
//
// It refuses what an automation server refuses: an unknown name or number, a
// property write without its named argument DISPID_PROPERTYPUT, a sink that
// does not answer the source's interface. Handlers see the arguments first
// to last, as sent (a by-reference argument stays one), and check the rest.
// Every call and every name lookup is counted under "Interface.Member", so a
// test can tell what the code under test asked and how often it resolved a
// name.
#pragma once

#include "win32/system.hpp"

#include <ocidl.h>
#include <olectl.h>
#include <wrl/client.h>

#include <algorithm>
#include <atomic>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "win32/variant.hpp"

namespace comdouble {

using Microsoft::WRL::ComPtr;
using win32::Variant;

// Calls made, in order, as "Interface.Member"; cleared by the tests at will.
inline std::vector<std::string> g_calls;
inline bool Called(const std::string& member) {
  return std::find(g_calls.begin(), g_calls.end(), member) != g_calls.end();
}
// Name lookups per "Interface.Member", over the whole run.
inline std::map<std::string, int> g_lookups;

// One call as the object received it.
struct Call {
  WORD flags = 0;
  std::vector<Variant> args;  // first to last; a property write's value last
  Variant result;
  EXCEPINFO* exception = nullptr;

  bool IsPut() const { return flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF); }
  // Fails the call as an automation server does: DISP_E_EXCEPTION with the
  // number in scode (or in wCode when `scode` is 0) and these words.
  HRESULT Refuse(HRESULT scode, const wchar_t* description, WORD code = 0);
};
using Handler = std::function<HRESULT(Call&)>;

class Object final : public IDispatch, public IConnectionPointContainer, public IConnectionPoint {
 public:
  // `interface_name` is how the counts name this object's members.
  static ComPtr<Object> Make(std::string interface_name) {
    ComPtr<Object> object;
    object.Attach(new Object(std::move(interface_name)));
    return object;
  }

  Object& Member(const wchar_t* name, DISPID id, Handler handler);
  // A property that gives its value and takes a new one as written, kind
  // and all, unless `check` refuses it; an object value is a property giving
  // that object.
  Object& Property(const wchar_t* name, DISPID id, Variant value, Handler check = nullptr);
  // Another interface QueryInterface answers (with the IDispatch).
  Object& Answers(const IID& iid);
  // Makes the object an event source of `iid`.
  Object& Source(const IID& iid);

  const Variant& Stored(const wchar_t* name) const { return stored_.at(name); }
  std::size_t Advised() const { return sinks_.size(); }
  // Calls every advised sink with the arguments first to last; S_OK or the
  // first failure, whose words go to `failure`.
  HRESULT Fire(DISPID id, const std::vector<Variant>& args, std::wstring* failure = nullptr);

  // IUnknown, IDispatch, IConnectionPointContainer, IConnectionPoint
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override;
  ULONG STDMETHODCALLTYPE AddRef() override { return ++refs_; }
  ULONG STDMETHODCALLTYPE Release() override;
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                                          DISPID* ids) override;
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* params,
                                   VARIANT* result, EXCEPINFO* exception, UINT*) override;
  HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints**) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID iid, IConnectionPoint** out) override;
  HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetConnectionPointContainer(IConnectionPointContainer**) override {
    return E_NOTIMPL;
  }
  // As a source does, the sink must answer the outgoing interface.
  HRESULT STDMETHODCALLTYPE Advise(IUnknown* sink, DWORD* cookie) override;
  HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) override {
    return sinks_.erase(cookie) ? S_OK : CONNECT_E_NOCONNECTION;
  }
  HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections**) override { return E_NOTIMPL; }

 private:
  explicit Object(std::string interface_name) : interface_name_(std::move(interface_name)) {}
  struct Entry {
    std::wstring name;
    DISPID id;
    Handler handler;
  };

  std::atomic<ULONG> refs_{1};
  std::string interface_name_;
  std::vector<Entry> members_;
  std::map<std::wstring, Variant> stored_;
  std::vector<IID> answers_;
  std::optional<IID> source_;
  std::map<DWORD, ComPtr<IDispatch>> sinks_;
  DWORD next_cookie_ = 1;
};

}  // namespace comdouble
