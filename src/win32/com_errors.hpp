// Failures across the COM boundary, in one place each way.
//
// Inside the component a failure is a vb::Failure, as everywhere in the
// add-in. A failed HRESULT or registry status becomes one with the system's
// own words (ThrowIfFailed, ThrowIfRegFailed); a failed late-bound call
// becomes one with the number and words the IDE gave (ThrowIfInvokeFailed).
// At the one catch of every entry from outside (an export, a COM method)
// HResultFromCaught turns whatever was thrown back into an HRESULT and leaves
// the description in the thread's error info, where the caller's runtime
// reads it.
#pragma once

#include "win32/system.hpp"

#include <oaidl.h>

#include <string_view>

#include "vb/failure.hpp"

namespace win32 {

// The system's words for an HRESULT or a Win32 error code, without the
// closing line break; "Error 0x...." when the system has none.
vb::Text SystemMessage(HRESULT hr);

// Throws vb::Failure "<what>: <system words>" when `hr` failed. The number is
// the runtime's own for errors raised by a VB runtime (FACILITY_CONTROL),
// else the HRESULT itself, as the runtime's failure object reports it.
void ThrowIfFailed(HRESULT hr, std::u16string_view what);
// The same for a registry call's status.
void ThrowIfRegFailed(LSTATUS status, std::u16string_view what);

// Throws the failure of an IDispatch::Invoke that returned `hr`, as the
// runtime reports it to a late-bound caller: for DISP_E_EXCEPTION the
// EXCEPINFO's description and its number (wCode, else scode, a control's
// scode as its own number); for the dispatch errors the runtime's own number
// and words (438 for a member the object lacks, 13, 449, 450). Frees the
// EXCEPINFO's strings in every case.
void ThrowIfInvokeFailed(HRESULT hr, EXCEPINFO& exception);

// Call only inside a catch block. The HRESULT for the exception being
// handled: a vb::Failure's number as the runtime's HRESULT, E_OUTOFMEMORY,
// else E_FAIL; its description is set as the thread's error info. Given the
// EXCEPINFO of an IDispatch::Invoke, a vb::Failure goes there instead, where
// a late-bound caller reads it, and the result is DISP_E_EXCEPTION.
HRESULT HResultFromCaught(EXCEPINFO* exception = nullptr) noexcept;

// Runs `body` and returns S_OK, or the caught failure as an HRESULT: the one
// catch of an entry from outside. The second form is for IDispatch::Invoke.
template <typename Body>
HRESULT Guarded(Body&& body) noexcept {
  try {
    body();
    return S_OK;
  } catch (...) {
    return HResultFromCaught();
  }
}
template <typename Body>
HRESULT Guarded(EXCEPINFO* exception, Body&& body) noexcept {
  try {
    body();
    return S_OK;
  } catch (...) {
    return HResultFromCaught(exception);
  }
}

}  // namespace win32
