// One line per check, as scripts/wine-smoke counts them: "ok WHAT" or
// "FAILED WHAT: why". A program exits with FailedChecks().
#pragma once

#include <cstdio>
#include <string>

inline int& FailedChecks() {
  static int failed = 0;
  return failed;
}

inline void Check(bool ok, const char* what, const std::string& why = "") {
  if (ok) {
    std::printf("ok %s\n", what);
  } else {
    ++FailedChecks();
    std::printf("FAILED %s%s%s\n", what, why.empty() ? "" : ": ", why.c_str());
  }
}
