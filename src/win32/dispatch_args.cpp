#include "win32/dispatch_args.hpp"

#include <oleauto.h>

namespace win32 {

HRESULT DispatchArgs::Expect(UINT min, UINT max) const {
  if (params_ && params_->cNamedArgs != 0) return DISP_E_NONAMEDARGS;
  if (Count() < min || Count() > max) return DISP_E_BADPARAMCOUNT;
  return S_OK;
}

HRESULT DispatchArgs::Converted(UINT index, VARTYPE type, VARIANT& out) const {
  const UINT position = Count() - 1 - index;
  VariantInit(&out);
  HRESULT hr = VariantChangeType(&out, &params_->rgvarg[position], 0, type);
  if (FAILED(hr)) {
    if (arg_err_) *arg_err_ = position;
    return DISP_E_TYPEMISMATCH;
  }
  return S_OK;
}

HRESULT DispatchArgs::Object(UINT index, Microsoft::WRL::ComPtr<IDispatch>& out) const {
  out.Reset();
  const VARIANT& arg = params_->rgvarg[Count() - 1 - index];
  VARTYPE type = V_VT(&arg) & ~VT_BYREF;
  // Nothing comes as an empty object or an empty value.
  if (type == VT_EMPTY || type == VT_NULL) return S_OK;
  if (type == VT_DISPATCH && (V_VT(&arg) & VT_BYREF) == 0 && V_DISPATCH(&arg) == nullptr) {
    return S_OK;
  }
  VARIANT value;
  const HRESULT hr = Converted(index, VT_DISPATCH, value);
  if (FAILED(hr)) return hr;
  out.Attach(V_DISPATCH(&value));  // takes the reference the conversion added
  return S_OK;
}

HRESULT DispatchArgs::Long(UINT index, LONG& out) const {
  VARIANT value;
  const HRESULT hr = Converted(index, VT_I4, value);
  if (FAILED(hr)) return hr;
  out = V_I4(&value);
  return S_OK;
}

}  // namespace win32
