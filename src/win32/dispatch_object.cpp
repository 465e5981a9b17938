#include "win32/dispatch_object.hpp"

#include "vb/failure.hpp"

namespace win32 {

IDispatch* DispatchOf(const ide::Object* object) {
  if (!object) return nullptr;
  const auto* dispatched = dynamic_cast<const Dispatched*>(object);
  if (!dispatched) throw vb::Failure::Of(vb::kTypeMismatch);
  return dispatched->Dispatch();
}

}  // namespace win32
