// Calling an IDE object by name, as a late-bound caller does.
//
// LateBound holds an object's IDispatch and the name of the interface its
// adapter addresses (as the IDE's type library names it: "VBE",
// "_VBControls"). Member names are resolved with GetIDsOfNames once per
// process for each (interface, name) pair and the DISPID is cached under that
// pair: every object an adapter wraps is of the adapter's interface, so one
// lookup serves all of them, and objects made for a single event cost no
// lookup at all after the first. The cache does not ask the object for type
// information (two more calls per object, more than the lookup it would save);
// a name the object refuses is not cached.
//
// Arguments are given first to last, each with the kind it is to keep; a
// failed call throws vb::Failure with the number and words the IDE gave
// (ThrowIfInvokeFailed).
#pragma once

#include <oaidl.h>
#include <wrl/client.h>

#include <initializer_list>
#include <string_view>

#include "win32/variant.hpp"

namespace win32 {

using Args = std::initializer_list<Variant>;

class LateBound {
 public:
  LateBound(Microsoft::WRL::ComPtr<IDispatch> object, std::wstring_view interface_name);

  IDispatch* Object() const { return object_.Get(); }

  // A property get or a method with a result, called as a late-bound caller
  // calls `object.Name(args)`: DISPATCH_PROPERTYGET | DISPATCH_METHOD.
  Variant Get(const wchar_t* name, Args args = {}) const;
  Variant Get(DISPID id) const;
  // Property let: `object.Name = value`.
  void Let(const wchar_t* name, const Variant& value) const;
  void Let(DISPID id, const Variant& value) const;
  // Property set: `Set object.Name = value`, an object by reference.
  void Set(const wchar_t* name, const Variant& object) const;
  // A method called as a statement; its result, if any, is returned.
  Variant Call(const wchar_t* name, Args args = {}) const;

  // The DISPID of `name` on this object's interface, from the cache or
  // resolved now. An unknown name is the runtime's 438.
  DISPID IdOf(const wchar_t* name) const;

 private:
  Variant Invoke(DISPID id, WORD flags, Args args, const Variant* put) const;

  Microsoft::WRL::ComPtr<IDispatch> object_;
  std::wstring_view interface_name_;
};

}  // namespace win32
