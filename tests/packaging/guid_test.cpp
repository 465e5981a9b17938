#include "packaging/guid.hpp"

#include <gtest/gtest.h>

namespace {

constexpr const char* kClassId = "{AC0714F7-3D04-11D1-AE7D-00A0C90F26F4}";

// Text in, and its formatted form out (empty when it is rejected).
class GuidTextTest : public ::testing::TestWithParam<std::pair<const char*, std::string>> {};

TEST_P(GuidTextTest, RoundTripsInUpperCase) {
  const auto guid = packaging::ParseGuid(GetParam().first);
  EXPECT_EQ(guid ? packaging::FormatGuid(*guid) : "", GetParam().second);
}

INSTANTIATE_TEST_SUITE_P(Table, GuidTextTest,
                         ::testing::Values(std::pair(kClassId, kClassId),
                                           std::pair("{ac0714f7-3d04-11d1-ae7d-00a0c90f26f4}",
                                                     kClassId),
                                           std::pair("{00000000-0000-0000-0000-00000000000F}",
                                                     "{00000000-0000-0000-0000-00000000000F}"),
                                           std::pair("AC0714F7-3D04-11D1-AE7D-00A0C90F26F4", ""),
                                           std::pair("{AC0714F7-3D0411D1-AE7D--00A0C90F26F4}", ""),
                                           std::pair("{AC0714F7-3D04-11D1-AE7D-00A0C90F26FG}", ""),
                                           std::pair("{AC0714F7-3D04-11D1-AE7D-00A0C90F26F4", "")));

}  // namespace
