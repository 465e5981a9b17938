// The dispatch table's rows name the prompt flags: which class opens which
// dialog shows in the session tests; here, that no two rows share a flag.
#include "host/dispatch_table.hpp"

#include <gtest/gtest.h>

namespace {

TEST(DispatchTableTest, EveryFlagRowIsUsedOnce) {
  std::array<int, 17> seen{};
  for (const auto& row : tessaly::kDispatchTable) ++seen.at(row.index);
  for (int count : seen) EXPECT_EQ(count, 1);
}

}  // namespace
