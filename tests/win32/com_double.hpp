// A small in-process automation server for tests: objects whose members are
// a table (name, DISPID, handler), called through IDispatch, and event
// sources behind IConnectionPointContainer.
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
#include <wrl/client.h>

#include <atomic>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "win32/variant.hpp"

namespace comdouble {

using Microsoft::WRL::ComPtr;
using win32::Variant;

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

class Object final : public IDispatch, public IConnectionPointContainer {
 public:
  // `interface_name` is how the counts name this object's members.
  static ComPtr<Object> Make(std::string interface_name);

  Object& Member(const wchar_t* name, DISPID id, Handler handler);
  // A property that gives its value and takes a new one as written, kind
  // and all, unless `check` refuses it; an object value is a property giving
  // that object.
  Object& Property(const wchar_t* name, DISPID id, Variant value, Handler check = nullptr);
  // Another interface QueryInterface answers (with the IDispatch).
  Object& Answers(const IID& iid);
  // An event source with its connection point.
  Object& Source(const IID& iid);

  const Variant& Stored(const wchar_t* name) const;
  std::size_t Advised(const IID& source) const;
  // Calls every sink advised on `source` with the arguments first to last;
  // S_OK or the first failure, whose words go to `failure`.
  HRESULT Fire(const IID& source, DISPID id, const std::vector<Variant>& args,
               std::wstring* failure = nullptr);

  // IUnknown, IDispatch, IConnectionPointContainer
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override;
  ULONG STDMETHODCALLTYPE AddRef() override { return ++refs_; }
  ULONG STDMETHODCALLTYPE Release() override;
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** info) override;
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                                          DISPID* ids) override;
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* params,
                                   VARIANT* result, EXCEPINFO* exception, UINT*) override;
  HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints** out) override;
  HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID iid, IConnectionPoint** out) override;

 private:
  explicit Object(std::string interface_name);
  ~Object();
  struct Entry {
    std::wstring name;
    DISPID id;
    Handler handler;
  };
  class Point;
  const Entry* Find(DISPID id) const;

  std::atomic<ULONG> refs_{1};
  std::string interface_name_;
  std::vector<Entry> members_;
  std::map<std::wstring, Variant> stored_;
  std::vector<IID> answers_;
  std::vector<std::unique_ptr<Point>> points_;
};

// Calls made, in order, as "Interface.Member"; cleared by the tests at will.
std::vector<std::string>& Calls();
bool Called(const std::string& member);
// Name lookups per "Interface.Member", over the whole run.
std::map<std::string, int>& Lookups();

}  // namespace comdouble
