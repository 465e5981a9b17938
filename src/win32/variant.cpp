#include "win32/variant.hpp"

#include <oleauto.h>

#include <new>
#include <utility>

#include "vb/failure.hpp"
#include "win32/com_errors.hpp"
#include "win32/wide.hpp"

namespace win32 {
namespace {

// Numbers read and written as text use a full stop, whatever the user's
// locale, as the add-in's own conversions do.
const LCID kNumberLocale = MAKELCID(MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US), SORT_DEFAULT);

// The system declares the sources of its copies and conversions as
// writable; they are only read.
VARIANT* Source(const VARIANT& v) { return const_cast<VARIANT*>(&v); }

BSTR AllocText(const vb::Text& text) {
  BSTR bstr = SysAllocStringLen(Wide(text), static_cast<UINT>(text.size()));
  if (!bstr) throw std::bad_alloc();
  return bstr;
}

}  // namespace

Variant::Variant() noexcept { VariantInit(&v_); }

Variant::Variant(const vb::Value& value) : Variant() {
  switch (value.GetKind()) {
    case vb::Kind::Text:
      V_BSTR(&v_) = AllocText(value.AsText());
      V_VT(&v_) = VT_BSTR;
      break;
    case vb::Kind::Boolean:
      V_VT(&v_) = VT_BOOL;
      V_BOOL(&v_) = vb::IsTrue(value.AsBoolean()) ? VARIANT_TRUE : VARIANT_FALSE;
      break;
    case vb::Kind::Integer:
      V_VT(&v_) = VT_I2;
      V_I2(&v_) = value.AsInteger();
      break;
    case vb::Kind::Long:
      V_VT(&v_) = VT_I4;
      V_I4(&v_) = value.AsLong();
      break;
  }
}

Variant::Variant(IDispatch* object) : Variant() {
  V_VT(&v_) = VT_DISPATCH;
  V_DISPATCH(&v_) = object;
  if (object) object->AddRef();
}

Variant Variant::Copy(const VARIANT& v) {
  Variant out;
  ThrowIfFailed(VariantCopy(&out.v_, Source(v)), u"Copying a value");
  return out;
}

Variant Variant::Unwrapped(const VARIANT& v) {
  Variant out;
  ThrowIfFailed(VariantCopyInd(&out.v_, Source(v)), u"Reading a value by reference");
  return out;
}

Variant::Variant(const Variant& other) : Variant(Copy(other.v_)) {}

Variant::Variant(Variant&& other) noexcept : v_(other.v_) { VariantInit(&other.v_); }

Variant& Variant::operator=(Variant other) noexcept {
  std::swap(v_, other.v_);
  return *this;
}

Variant::~Variant() { VariantClear(&v_); }

VARIANT* Variant::Out() {
  VariantClear(&v_);
  return &v_;
}

vb::Value Variant::ToValue() const {
  if (Type() & VT_BYREF) return Unwrapped(v_).ToValue();
  switch (Type()) {
    case VT_EMPTY:
    case VT_NULL:
      return vb::Value();
    case VT_BSTR: {
      const BSTR text = V_BSTR(&v_);
      return text ? vb::Value(FromWide(text, SysStringLen(text))) : vb::Value();
    }
    case VT_BOOL:
      return vb::Value(vb::ToBoolean(V_BOOL(&v_) != VARIANT_FALSE));
    case VT_I2:
    case VT_UI1:
    case VT_I1:
      return vb::Value(static_cast<vb::Integer>(V_I2(&As(VT_I2).Get())));
    case VT_I4:
    case VT_INT:
    case VT_UI2:
      return vb::Value(static_cast<vb::Long>(ToLong()));
    default:
      return As(VT_BSTR).ToValue();
  }
}

Variant Variant::As(VARTYPE type) const {
  if (Type() & VT_BYREF) return Unwrapped(v_).As(type);
  Variant out;
  const HRESULT hr = VariantChangeTypeEx(&out.v_, Source(v_), kNumberLocale, 0, type);
  if (hr == DISP_E_OVERFLOW) throw vb::Failure::Of(vb::kOverflow);
  if (FAILED(hr)) throw vb::Failure::Of(vb::kTypeMismatch);
  return out;
}

std::int32_t Variant::ToLong() const { return V_I4(&As(VT_I4).Get()); }

Microsoft::WRL::ComPtr<IDispatch> Variant::Dispatch() const {
  if (Type() & VT_BYREF) return Unwrapped(v_).Dispatch();
  Microsoft::WRL::ComPtr<IDispatch> object;
  switch (Type()) {
    case VT_EMPTY:
    case VT_NULL:
      break;
    case VT_DISPATCH:
      object = V_DISPATCH(&v_);
      break;
    case VT_UNKNOWN:
      if (V_UNKNOWN(&v_) && FAILED(V_UNKNOWN(&v_)->QueryInterface(IID_PPV_ARGS(&object)))) {
        throw vb::Failure::Of(vb::kTypeMismatch);
      }
      break;
    default:
      throw vb::Failure::Of(vb::kTypeMismatch);
  }
  return object;
}

Microsoft::WRL::ComPtr<IUnknown> Variant::Unknown() const {
  if (Type() & VT_BYREF) return Unwrapped(v_).Unknown();
  switch (Type()) {
    case VT_EMPTY:
    case VT_NULL:
      return nullptr;
    case VT_DISPATCH:
      return V_DISPATCH(&v_);
    case VT_UNKNOWN:
      return V_UNKNOWN(&v_);
    default:
      throw vb::Failure::Of(vb::kTypeMismatch);
  }
}

}  // namespace win32
