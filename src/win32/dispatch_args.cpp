#include "win32/dispatch_args.hpp"

#include <oleauto.h>

namespace win32 {

HRESULT DispatchArgs::Expect(UINT min, UINT max) const {
  if (params_ && params_->cNamedArgs != 0) return DISP_E_NONAMEDARGS;
  if (Count() < min || Count() > max) return DISP_E_BADPARAMCOUNT;
  return S_OK;
}

HRESULT DispatchArgs::Converted(UINT index, VARTYPE type, Variant& out) const {
  // Read through any reference first: what the IDE passes by reference is
  // not fixed, and not every system's conversion reads through one.
  Variant value;
  HRESULT hr = VariantCopyInd(value.Out(), const_cast<VARIANT*>(&Arg(index)));
  if (SUCCEEDED(hr)) hr = VariantChangeType(out.Out(), const_cast<VARIANT*>(&value.Get()), 0, type);
  if (FAILED(hr)) {
    if (arg_err_) *arg_err_ = Count() - 1 - index;
    return DISP_E_TYPEMISMATCH;
  }
  return S_OK;
}

HRESULT DispatchArgs::Object(UINT index, Microsoft::WRL::ComPtr<IDispatch>& out) const {
  out.Reset();
  const VARIANT& arg = Arg(index);
  VARTYPE type = V_VT(&arg) & ~VT_BYREF;
  // Nothing comes as an empty object or an empty value.
  if (type == VT_EMPTY || type == VT_NULL) return S_OK;
  if (type == VT_DISPATCH && (V_VT(&arg) & VT_BYREF) == 0 && V_DISPATCH(&arg) == nullptr) {
    return S_OK;
  }
  Variant value;
  const HRESULT hr = Converted(index, VT_DISPATCH, value);
  if (SUCCEEDED(hr)) out = V_DISPATCH(&value.Get());
  return hr;
}

HRESULT DispatchArgs::Long(UINT index, LONG& out) const {
  Variant value;
  const HRESULT hr = Converted(index, VT_I4, value);
  if (SUCCEEDED(hr)) out = V_I4(&value.Get());
  return hr;
}

HRESULT DispatchArgs::Text(UINT index, vb::Text& out) const {
  Variant value;
  const HRESULT hr = Converted(index, VT_BSTR, value);
  if (SUCCEEDED(hr)) out = value.ToValue().AsText();
  return hr;
}

HRESULT DispatchArgs::Boolean(UINT index, bool& out) const {
  Variant value;
  const HRESULT hr = Converted(index, VT_BOOL, value);
  if (SUCCEEDED(hr)) out = V_BOOL(&value.Get()) != VARIANT_FALSE;
  return hr;
}

void DispatchArgs::SetBoolean(UINT index, bool value) const {
  const VARIANT& arg = Arg(index);
  const VARIANT_BOOL flag = value ? VARIANT_TRUE : VARIANT_FALSE;
  if (V_VT(&arg) == (VT_BOOL | VT_BYREF) && V_BOOLREF(&arg)) {
    *V_BOOLREF(&arg) = flag;
  } else if (V_VT(&arg) == (VT_VARIANT | VT_BYREF) && V_VARIANTREF(&arg)) {
    VARIANT& target = *V_VARIANTREF(&arg);
    VariantClear(&target);
    V_VT(&target) = VT_BOOL;
    V_BOOL(&target) = flag;
  }
}

}  // namespace win32
