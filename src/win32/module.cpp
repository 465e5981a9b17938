#include "win32/module.hpp"

#include <atomic>
#include <string>

#include "win32/com_errors.hpp"

namespace win32 {
namespace {

HMODULE g_module = nullptr;
std::atomic<long> g_refs{0};

}  // namespace

HMODULE ThisModule() { return g_module; }
void SetThisModule(HMODULE module) { g_module = module; }

void AddModuleRef() { ++g_refs; }
void ReleaseModuleRef() { --g_refs; }
bool ModuleInUse() { return g_refs.load() != 0; }

std::wstring ModulePath() {
  std::wstring path(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length = GetModuleFileNameW(g_module, path.data(), static_cast<DWORD>(path.size()));
    if (length == 0) ThrowIfFailed(HRESULT_FROM_WIN32(GetLastError()), u"The component's path");
    if (length < path.size()) {
      path.resize(length);
      return path;
    }
    path.resize(path.size() * 2);  // cut off: try a larger buffer
  }
}

}  // namespace win32
