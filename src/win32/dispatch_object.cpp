#include "win32/dispatch_object.hpp"

namespace win32 {

ide::ObjectPtr WrapApplication(Microsoft::WRL::ComPtr<IDispatch> application) {
  if (!application) return nullptr;
  return std::make_shared<DispatchObject>(std::move(application));
}

}  // namespace win32
