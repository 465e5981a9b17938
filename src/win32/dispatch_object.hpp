// What every adapter of the IDE's objects has in common: the object's
// IDispatch, called by name through LateBound, and the way back from an
// ide::Object the add-in hands in to that IDispatch.
//
// An adapter implements exactly the interface of the object model that the
// IDE object is, so the add-in's std::dynamic_pointer_cast answers as it
// would for the IDE's own object.
#pragma once

#include <oaidl.h>
#include <wrl/client.h>

#include <memory>
#include <string_view>

#include "ide/object_model.hpp"
#include "win32/late_bound.hpp"

namespace win32 {

class Dispatched {
 public:
  // `interface_name` is a literal: the interface the object is addressed as.
  Dispatched(Microsoft::WRL::ComPtr<IDispatch> object, std::wstring_view interface_name)
      : late_(std::move(object), interface_name) {}
  virtual ~Dispatched() = default;
  IDispatch* Dispatch() const { return late_.Object(); }

 protected:
  const LateBound& Late() const { return late_; }

 private:
  LateBound late_;
};

template <class Interface>
class Adapter : public Interface, public Dispatched {
 public:
  Adapter(Microsoft::WRL::ComPtr<IDispatch> object, std::wstring_view interface_name)
      : Dispatched(std::move(object), interface_name) {}
};

// An object of no fixed interface (the active project): the add-in only
// hands it back to the IDE.
class DispatchObject final : public Adapter<ide::Object> {
 public:
  explicit DispatchObject(Microsoft::WRL::ComPtr<IDispatch> object)
      : Adapter(std::move(object), L"IDispatch") {}
};

// The IDE object behind `object`, to pass back to the IDE; null for null.
// An object that no adapter made is the runtime's 13.
IDispatch* DispatchOf(const ide::Object* object);

}  // namespace win32
