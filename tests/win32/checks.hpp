// One line per check, as scripts/wine-smoke counts them: "ok WHAT" or
// "FAILED WHAT: why". A program exits with g_failed_checks.
#pragma once

#include <cstdio>
#include <string>

inline int g_failed_checks = 0;

inline void Check(bool ok, const char* what, const std::string& why = "") {
  g_failed_checks += !ok;
  std::printf("%s %s%s%s\n", ok ? "ok" : "FAILED", what, ok || why.empty() ? "" : ": ",
              ok ? "" : why.c_str());
}
