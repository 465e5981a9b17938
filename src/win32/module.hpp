// What the component knows of itself as a loaded module: its handle (for its
// own path and resources) and the count of live objects and server locks
// that DllCanUnloadNow answers from.
#pragma once

#include "win32/system.hpp"

#include <string>

namespace win32 {

HMODULE ThisModule();
void SetThisModule(HMODULE module);

// Counts objects handed out and LockServer(TRUE) calls not yet undone.
void AddModuleRef();
void ReleaseModuleRef();
bool ModuleInUse();

// The full path of the component's file.
std::wstring ModulePath();

}  // namespace win32
