#include "com_double.hpp"

#include <oleauto.h>
#include <olectl.h>

#include <algorithm>

namespace comdouble {
namespace {

std::string Narrow(const std::wstring& name) { return std::string(name.begin(), name.end()); }

}  // namespace

std::vector<std::string>& Calls() {
  static std::vector<std::string> calls;
  return calls;
}

bool Called(const std::string& member) {
  return std::find(Calls().begin(), Calls().end(), member) != Calls().end();
}

std::map<std::string, int>& Lookups() {
  static std::map<std::string, int> lookups;
  return lookups;
}

HRESULT Call::Refuse(HRESULT scode, const wchar_t* description, WORD code) {
  if (!exception) return scode ? scode : E_FAIL;
  *exception = EXCEPINFO{};
  exception->wCode = code;
  exception->scode = scode;
  exception->bstrDescription = SysAllocString(description);
  return DISP_E_EXCEPTION;
}

class Object::Point final : public IConnectionPoint {
 public:
  Point(Object& owner, const IID& iid) : owner_(owner), iid_(iid) {}

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override {
    if (!IsEqualIID(iid, IID_IUnknown) && !IsEqualIID(iid, IID_IConnectionPoint)) {
      *out = nullptr;
      return E_NOINTERFACE;
    }
    *out = static_cast<IConnectionPoint*>(this);
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return owner_.AddRef(); }
  ULONG STDMETHODCALLTYPE Release() override { return owner_.Release(); }
  HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID* out) override {
    *out = iid_;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetConnectionPointContainer(IConnectionPointContainer** out) override {
    *out = &owner_;
    owner_.AddRef();
    return S_OK;
  }
  // As a source does, the sink must answer the outgoing interface.
  HRESULT STDMETHODCALLTYPE Advise(IUnknown* sink, DWORD* cookie) override {
    ComPtr<IDispatch> events;
    if (!sink ||
        FAILED(sink->QueryInterface(iid_, reinterpret_cast<void**>(events.GetAddressOf())))) {
      return CONNECT_E_CANNOTCONNECT;
    }
    sinks_[next_] = events;
    *cookie = next_++;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) override {
    return sinks_.erase(cookie) ? S_OK : CONNECT_E_NOCONNECTION;
  }
  HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections**) override { return E_NOTIMPL; }

  Object& owner_;
  IID iid_;
  std::map<DWORD, ComPtr<IDispatch>> sinks_;
  DWORD next_ = 1;
};

Object::Object(std::string interface_name) : interface_name_(std::move(interface_name)) {}
Object::~Object() = default;

ComPtr<Object> Object::Make(std::string interface_name) {
  ComPtr<Object> object;
  object.Attach(new Object(std::move(interface_name)));
  return object;
}

Object& Object::Member(const wchar_t* name, DISPID id, Handler handler) {
  members_.push_back({name, id, std::move(handler)});
  return *this;
}

Object& Object::Property(const wchar_t* name, DISPID id, Variant value, Handler check) {
  stored_[name] = std::move(value);
  return Member(name, id, [this, key = std::wstring(name), check](Call& call) {
    if (call.IsPut()) {
      if (call.args.size() != 1) return DISP_E_BADPARAMCOUNT;
      if (const HRESULT hr = check ? check(call) : S_OK; FAILED(hr)) return hr;
      stored_[key] = Variant::Unwrapped(call.args.back().Get());
      return S_OK;
    }
    if (!call.args.empty()) return DISP_E_BADPARAMCOUNT;
    call.result = stored_[key];
    return S_OK;
  });
}

Object& Object::Answers(const IID& iid) {
  answers_.push_back(iid);
  return *this;
}

Object& Object::Source(const IID& iid) {
  points_.push_back(std::make_unique<Point>(*this, iid));
  return *this;
}

const Variant& Object::Stored(const wchar_t* name) const { return stored_.at(name); }

std::size_t Object::Advised(const IID& source) const {
  for (const auto& point : points_) {
    if (IsEqualIID(point->iid_, source)) return point->sinks_.size();
  }
  return 0;
}

HRESULT Object::Fire(const IID& source, DISPID id, const std::vector<Variant>& args,
                     std::wstring* failure) {
  const auto point = std::find_if(points_.begin(), points_.end(),
                                  [&](const auto& p) { return IsEqualIID(p->iid_, source); });
  if (point == points_.end()) return E_INVALIDARG;
  std::vector<VARIANT> listed;
  for (auto arg = args.rbegin(); arg != args.rend(); ++arg) listed.push_back(arg->Get());
  DISPPARAMS params{listed.data(), nullptr, static_cast<UINT>(listed.size()), 0};
  const auto sinks = (*point)->sinks_;  // a sink may unadvise while it runs
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
  if (IsEqualIID(iid, IID_IConnectionPointContainer) && !points_.empty()) {
    *out = static_cast<IConnectionPointContainer*>(this);
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

HRESULT Object::GetTypeInfoCount(UINT* count) {
  *count = 0;
  return S_OK;
}

HRESULT Object::GetTypeInfo(UINT, LCID, ITypeInfo** info) {
  *info = nullptr;
  return DISP_E_BADINDEX;
}

HRESULT Object::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
  if (count != 1) return DISP_E_UNKNOWNNAME;
  ids[0] = DISPID_UNKNOWN;
  for (const Entry& entry : members_) {
    if (_wcsicmp(entry.name.c_str(), names[0]) != 0) continue;
    ++Lookups()[interface_name_ + "." + Narrow(entry.name)];
    ids[0] = entry.id;
    return S_OK;
  }
  return DISP_E_UNKNOWNNAME;
}

const Object::Entry* Object::Find(DISPID id) const {
  for (const Entry& entry : members_) {
    if (entry.id == id) return &entry;
  }
  return nullptr;
}

HRESULT Object::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* params, VARIANT* result,
                       EXCEPINFO* exception, UINT*) {
  const Entry* entry = Find(id);
  if (!entry) return DISP_E_MEMBERNOTFOUND;
  Calls().push_back(interface_name_ + "." + Narrow(entry->name));
  Call call;
  call.flags = flags;
  call.exception = exception;
  const UINT named = params ? params->cNamedArgs : 0;
  const UINT count = params ? params->cArgs : 0;
  const bool put_named = named == 1 && params->rgdispidNamedArgs[0] == DISPID_PROPERTYPUT;
  if (call.IsPut() && !put_named) return DISP_E_PARAMNOTOPTIONAL;
  if (!call.IsPut() && named != 0) return DISP_E_NONAMEDARGS;
  for (UINT i = count; i-- > named;) call.args.push_back(Variant::Copy(params->rgvarg[i]));
  if (named) call.args.push_back(Variant::Copy(params->rgvarg[0]));
  const HRESULT hr = entry->handler(call);
  if (SUCCEEDED(hr) && result) {
    VariantInit(result);
    VariantCopy(result, const_cast<VARIANT*>(&call.result.Get()));
  }
  return hr;
}

HRESULT Object::EnumConnectionPoints(IEnumConnectionPoints** out) {
  *out = nullptr;
  return E_NOTIMPL;
}

HRESULT Object::FindConnectionPoint(REFIID iid, IConnectionPoint** out) {
  for (const auto& point : points_) {
    if (!IsEqualIID(point->iid_, iid)) continue;
    *out = point.get();
    point->AddRef();
    return S_OK;
  }
  *out = nullptr;
  return CONNECT_E_NOCONNECTION;
}

}  // namespace comdouble
