// Arguments of an IDispatch::Invoke call, read by position.
//
// DISPPARAMS lists arguments last first: of n arguments, the first is
// rgvarg[n - 1]. Named arguments are not taken. A by-reference argument is
// read through its reference, and a value of another kind is converted as
// the caller's runtime would; one that cannot be is DISP_E_TYPEMISMATCH,
// with the argument's position in `arg_err`. A by-reference Boolean can be
// written back to the caller.
#pragma once

#include <oaidl.h>
#include <wrl/client.h>

#include "vb/text.hpp"
#include "win32/variant.hpp"

namespace win32 {

class DispatchArgs {
 public:
  DispatchArgs(const DISPPARAMS* params, UINT* arg_err) : params_(params), arg_err_(arg_err) {}

  // DISP_E_BADPARAMCOUNT unless there are `min` to `max` arguments, and
  // DISP_E_NONAMEDARGS when any is named.
  HRESULT Expect(UINT min, UINT max) const;
  UINT Count() const { return params_ ? params_->cArgs : 0; }

  // The `index`-th argument (from 0, first to last) as an object; null for
  // Nothing.
  HRESULT Object(UINT index, Microsoft::WRL::ComPtr<IDispatch>& out) const;
  HRESULT Long(UINT index, LONG& out) const;
  HRESULT Text(UINT index, vb::Text& out) const;
  HRESULT Boolean(UINT index, bool& out) const;
  // Writes `value` through the argument's reference (VT_BOOL or VT_VARIANT
  // by reference); an argument passed by value is left alone.
  void SetBoolean(UINT index, bool value) const;

 private:
  const VARIANT& Arg(UINT index) const { return params_->rgvarg[Count() - 1 - index]; }
  HRESULT Converted(UINT index, VARTYPE type, Variant& out) const;
  const DISPPARAMS* params_;
  UINT* arg_err_;
};

}  // namespace win32
