// An object of the IDE as the add-in's object model sees it before it is
// known to offer any interface of that model: a generic object holding the
// IDE's IDispatch.
#pragma once

#include <oaidl.h>
#include <wrl/client.h>

#include "ide/object_model.hpp"

namespace win32 {

class DispatchObject : public ide::Object {
 public:
  explicit DispatchObject(Microsoft::WRL::ComPtr<IDispatch> dispatch)
      : dispatch_(std::move(dispatch)) {}
  IDispatch* Get() const { return dispatch_.Get(); }

 private:
  Microsoft::WRL::ComPtr<IDispatch> dispatch_;
};

// The IDE object given to OnConnection, as the add-in receives it; null for
// Nothing.
ide::ObjectPtr WrapApplication(Microsoft::WRL::ComPtr<IDispatch> application);

}  // namespace win32
