// Failures across the COM boundary, in one place each way.
//
// Inside the component a failure is a vb::Failure, as everywhere in the
// add-in. A failed HRESULT or registry status becomes one with the system's
// own words (ThrowIfFailed, ThrowIfRegFailed). At the one catch of every
// entry from outside (an export, a COM method) HResultFromCaught turns
// whatever was thrown back into an HRESULT and leaves the description in the
// thread's error info, where the caller's runtime reads it.
#pragma once

#include "win32/system.hpp"

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

// Call only inside a catch block. The HRESULT for the exception being
// handled: a vb::Failure's number as the runtime's HRESULT, E_OUTOFMEMORY,
// else E_FAIL; its description is set as the thread's error info.
HRESULT HResultFromCaught() noexcept;

// Runs `body` and returns S_OK, or the caught failure as an HRESULT: the one
// catch of an entry from outside.
template <typename Body>
HRESULT Guarded(Body&& body) noexcept {
  try {
    body();
    return S_OK;
  } catch (...) {
    return HResultFromCaught();
  }
}

}  // namespace win32
