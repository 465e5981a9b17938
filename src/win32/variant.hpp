// VARIANT with an owner: the one place that initialises, clears, copies and
// converts the values that cross into the IDE and come back from it.
//
// A Variant always holds a valid VARIANT and clears it on every path; a copy
// owns its own BSTR and its own object reference. A vb::Value keeps its kind
// on the way in (text VT_BSTR, Boolean VT_BOOL -1/0, 16-bit VT_I2, 32-bit
// VT_I4) and comes back as the same kind. A by-reference VARIANT is read
// through its reference (Unwrapped) before it is converted.
#pragma once

#include <oaidl.h>
#include <wrl/client.h>

#include "vb/value.hpp"

namespace win32 {

class Variant {
 public:
  Variant() noexcept;
  // Implicit, so a value can stand in an argument list as it is.
  Variant(const vb::Value& value);
  // An object by reference (VT_DISPATCH, one more reference); null is
  // Nothing.
  explicit Variant(IDispatch* object);
  // A shallow copy of `v` as VariantCopy makes it: a by-reference VARIANT
  // stays one, pointing where `v` points.
  static Variant Copy(const VARIANT& v);
  // The value behind `v`, by-reference levels removed (VariantCopyInd).
  static Variant Unwrapped(const VARIANT& v);

  Variant(const Variant& other);
  Variant(Variant&& other) noexcept;
  Variant& operator=(Variant other) noexcept;
  ~Variant();

  const VARIANT& Get() const { return v_; }
  VARTYPE Type() const { return V_VT(&v_); }
  // Clears the value and hands out the VARIANT for a callee to fill.
  VARIANT* Out();

  // The value as one of the four kinds: text, Boolean, 16-bit (VT_I2, VT_UI1,
  // VT_I1), 32-bit (VT_I4, VT_INT, VT_UI2). Empty and Null read as empty text;
  // any other kind as its text, numbers with a full stop as the add-in's own
  // conversions read them. A value with no text is the runtime's 13.
  vb::Value ToValue() const;
  // The value converted to `type` as the runtime converts; 13 when it cannot.
  Variant As(VARTYPE type) const;
  std::int32_t ToLong() const;
  // The object held (VT_DISPATCH, or VT_UNKNOWN that answers IDispatch);
  // null for Nothing, Empty and Null; 13 for anything else.
  Microsoft::WRL::ComPtr<IDispatch> Dispatch() const;
  // The same as IUnknown.
  Microsoft::WRL::ComPtr<IUnknown> Unknown() const;

 private:
  VARIANT v_;
};

}  // namespace win32
