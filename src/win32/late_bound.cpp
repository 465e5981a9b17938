#include "win32/late_bound.hpp"

#include <iterator>
#include <map>
#include <string>
#include <vector>

#include "vb/failure.hpp"
#include "win32/com_errors.hpp"

namespace win32 {
namespace {

// The add-in is called on the IDE's one user-interface thread (the class is
// apartment-threaded), so the cache needs no lock.
class DispIdCache {
 public:
  DISPID Find(std::wstring_view interface_name, const wchar_t* name, IDispatch& object) {
    std::wstring key(interface_name);
    key += L'.';
    key += name;
    if (const auto found = ids_.find(key); found != ids_.end()) return found->second;
    DISPID id = DISPID_UNKNOWN;
    LPOLESTR names[] = {const_cast<LPOLESTR>(name)};
    const HRESULT hr = object.GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id);
    EXCEPINFO none{};
    ThrowIfInvokeFailed(hr, none);
    ids_.emplace(std::move(key), id);
    return id;
  }

 private:
  std::map<std::wstring, DISPID> ids_;
};

DispIdCache& Cache() {
  static DispIdCache cache;
  return cache;
}

}  // namespace

LateBound::LateBound(Microsoft::WRL::ComPtr<IDispatch> object, std::wstring_view interface_name)
    : object_(std::move(object)), interface_name_(interface_name) {}

DISPID LateBound::IdOf(const wchar_t* name) const {
  if (!object_) throw vb::Failure::Of(vb::kObjectNotSet);
  return Cache().Find(interface_name_, name, *object_.Get());
}

Variant LateBound::Get(const wchar_t* name, Args args) const {
  return Invoke(IdOf(name), DISPATCH_PROPERTYGET | DISPATCH_METHOD, args, nullptr);
}

Variant LateBound::Get(DISPID id) const {
  return Invoke(id, DISPATCH_PROPERTYGET | DISPATCH_METHOD, {}, nullptr);
}

void LateBound::Let(const wchar_t* name, const Variant& value) const { Let(IdOf(name), value); }

void LateBound::Let(DISPID id, const Variant& value) const {
  Invoke(id, DISPATCH_PROPERTYPUT, {}, &value);
}

void LateBound::Set(const wchar_t* name, const Variant& object) const {
  Invoke(IdOf(name), DISPATCH_PROPERTYPUTREF, {}, &object);
}

Variant LateBound::Call(const wchar_t* name, Args args) const {
  return Invoke(IdOf(name), DISPATCH_METHOD, args, nullptr);
}

Variant LateBound::Invoke(DISPID id, WORD flags, Args args, const Variant* put) const {
  if (!object_) throw vb::Failure::Of(vb::kObjectNotSet);
  // DISPPARAMS lists the arguments last first, after the one named argument
  // a property write has: the new value.
  std::vector<VARIANT> listed;
  listed.reserve(args.size() + 1);
  if (put) listed.push_back(put->Get());
  for (auto arg = std::rbegin(args); arg != std::rend(args); ++arg) listed.push_back(arg->Get());
  DISPID named = DISPID_PROPERTYPUT;
  DISPPARAMS params{listed.data(), put ? &named : nullptr, static_cast<UINT>(listed.size()),
                    put ? 1U : 0U};
  Variant result;
  EXCEPINFO exception{};
  UINT arg_err = 0;
  const HRESULT hr = object_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &params,
                                     put ? nullptr : result.Out(), &exception, &arg_err);
  ThrowIfInvokeFailed(hr, exception);
  return result;
}

}  // namespace win32
