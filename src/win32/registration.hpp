// Registering the component: what DllRegisterServer, DllUnregisterServer and
// DllInstall write and remove, all taken from the registration record.
//
// Registration writes the COM class (CLSID with its in-process server,
// apartment-threaded, ProgID and type library), the ProgID, the type library,
// and the IDE's add-in entry (display name, description, load behaviour)
// under the record's host key.
//
// Per machine by default: an elevated process, as the IDE often is, ignores
// classes registered for the user alone. When the machine's keys may not be
// written, the class and type library go to the user's keys instead.
// Unregistering removes all of it from both, and fails only when something
// stays behind that may not be removed.
#pragma once

namespace win32 {

enum class Scope {
  kMachineOrUser,  // per machine, per user where the machine's keys are denied
  kUser,           // per user only
};

void RegisterServer(Scope scope);
void UnregisterServer();

}  // namespace win32
