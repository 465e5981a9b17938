#include "win32/com_errors.hpp"

#include <oleauto.h>
#include <wrl/client.h>

#include <cstdio>
#include <new>
#include <utility>

#include "win32/wide.hpp"

namespace win32 {
namespace {

// The source a failure names, as the component's project is called.
constexpr const wchar_t* kSource = L"Vorrel";

// Errors a VB runtime raises carry their number in FACILITY_CONTROL.
constexpr int kFacilityControl = 10;

std::int32_t FailureNumber(HRESULT hr) {
  if (HRESULT_FACILITY(hr) == kFacilityControl) return HRESULT_CODE(hr);
  return static_cast<std::int32_t>(hr);
}

// What the runtime makes of the dispatch errors a late-bound call can meet.
struct DispatchError {
  HRESULT hr;
  std::int32_t number;
  const char16_t* description;  // null: the runtime's standard words
};
constexpr DispatchError kDispatchErrors[] = {
    {DISP_E_MEMBERNOTFOUND, vb::kObjectLacksMember, nullptr},
    {DISP_E_UNKNOWNNAME, vb::kObjectLacksMember, nullptr},
    {DISP_E_TYPEMISMATCH, vb::kTypeMismatch, nullptr},
    {DISP_E_OVERFLOW, vb::kOverflow, nullptr},
    {DISP_E_PARAMNOTOPTIONAL, 449, u"Argument not optional"},
    {DISP_E_BADPARAMCOUNT, 450, u"Wrong number of arguments or invalid property assignment"},
};

vb::Text TakeText(BSTR& text) {
  vb::Text out = text ? FromWide(text, SysStringLen(text)) : vb::Text();
  SysFreeString(text);
  text = nullptr;
  return out;
}

HRESULT FailureResult(std::int32_t number) {
  if (number > 0 && number <= 0xFFFF) {
    return MAKE_HRESULT(SEVERITY_ERROR, kFacilityControl, number);
  }
  return number < 0 ? static_cast<HRESULT>(number) : E_FAIL;
}

// Leaves `description` where the caller's runtime looks for the words of
// the failure it was just given. Best effort: a caller that finds no error
// info still has the HRESULT.
void SetErrorDescription(const vb::Text& description) {
  Microsoft::WRL::ComPtr<ICreateErrorInfo> create;
  if (FAILED(CreateErrorInfo(&create))) return;
  create->SetDescription(const_cast<LPOLESTR>(Wide(description)));
  create->SetSource(const_cast<LPOLESTR>(kSource));
  Microsoft::WRL::ComPtr<IErrorInfo> info;
  if (SUCCEEDED(create.As(&info))) SetErrorInfo(0, info.Get());
}

}  // namespace

vb::Text SystemMessage(HRESULT hr) {
  wchar_t* buffer = nullptr;
  const DWORD length = FormatMessageW(
      FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
      nullptr, static_cast<DWORD>(hr), 0, reinterpret_cast<wchar_t*>(&buffer), 0, nullptr);
  vb::Text text;
  if (length > 0 && buffer) {
    text = FromWide(buffer, length);
    while (!text.empty() && (text.back() == u'\r' || text.back() == u'\n' || text.back() == u' ')) {
      text.pop_back();
    }
  }
  if (buffer) LocalFree(buffer);
  if (text.empty()) {
    char hex[32];
    std::snprintf(hex, sizeof hex, "Error 0x%08lX", static_cast<unsigned long>(hr));
    text = vb::FromUtf8(hex);
  }
  return text;
}

void ThrowIfFailed(HRESULT hr, std::u16string_view what) {
  if (SUCCEEDED(hr)) return;
  throw vb::Failure(FailureNumber(hr), vb::Text(what) + u": " + SystemMessage(hr));
}

void ThrowIfRegFailed(LSTATUS status, std::u16string_view what) {
  if (status == ERROR_SUCCESS) return;
  throw vb::Failure(static_cast<std::int32_t>(HRESULT_FROM_WIN32(status)),
                    vb::Text(what) + u": " + SystemMessage(static_cast<HRESULT>(status)));
}

void ThrowIfInvokeFailed(HRESULT hr, EXCEPINFO& exception) {
  if (hr == DISP_E_EXCEPTION) {
    if (exception.pfnDeferredFillIn) exception.pfnDeferredFillIn(&exception);
    TakeText(exception.bstrSource);
    TakeText(exception.bstrHelpFile);
    vb::Text description = TakeText(exception.bstrDescription);
    const HRESULT scode = exception.scode ? exception.scode : E_FAIL;
    const std::int32_t number = exception.wCode ? exception.wCode : FailureNumber(scode);
    if (description.empty()) {
      description = HRESULT_FACILITY(scode) == kFacilityControl || exception.wCode
                        ? vb::StandardDescription(number)
                        : SystemMessage(scode);
    }
    throw vb::Failure(number, std::move(description));
  }
  if (SUCCEEDED(hr)) return;
  for (const DispatchError& error : kDispatchErrors) {
    if (error.hr != hr) continue;
    throw vb::Failure(error.number, error.description ? vb::Text(error.description)
                                                      : vb::StandardDescription(error.number));
  }
  throw vb::Failure(FailureNumber(hr), SystemMessage(hr));
}

HRESULT HResultFromCaught(EXCEPINFO* exception) noexcept {
  try {
    throw;
  } catch (const vb::Failure& failure) {
    if (exception) {
      *exception = EXCEPINFO{};
      exception->scode = FailureResult(failure.Number());
      // Without memory for the words the caller still has the number.
      exception->bstrDescription = SysAllocString(Wide(failure.Description()));
      exception->bstrSource = SysAllocString(kSource);
      return DISP_E_EXCEPTION;
    }
    SetErrorDescription(failure.Description());
    return FailureResult(failure.Number());
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  } catch (...) {
    return E_FAIL;
  }
}

}  // namespace win32
