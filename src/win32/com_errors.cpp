#include "win32/com_errors.hpp"

#include <oleauto.h>
#include <wrl/client.h>

#include <cstdio>
#include <new>

#include "win32/wide.hpp"

namespace win32 {
namespace {

// Errors a VB runtime raises carry their number in FACILITY_CONTROL.
constexpr int kFacilityControl = 10;

std::int32_t FailureNumber(HRESULT hr) {
  if (HRESULT_FACILITY(hr) == kFacilityControl) return HRESULT_CODE(hr);
  return static_cast<std::int32_t>(hr);
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
  create->SetSource(const_cast<LPOLESTR>(L"Vorrel"));
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

HRESULT HResultFromCaught() noexcept {
  try {
    throw;
  } catch (const vb::Failure& failure) {
    SetErrorDescription(failure.Description());
    return FailureResult(failure.Number());
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  } catch (...) {
    return E_FAIL;
  }
}

}  // namespace win32
