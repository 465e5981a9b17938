#include "dialogs/key_filters.hpp"

#include <gtest/gtest.h>

namespace {

struct FilterCase {
  std::int16_t key;
  std::int16_t digit;     // what the digit filter passes
  std::int16_t dropping;  // what the dropping filter passes
};

void PrintTo(const FilterCase& c, std::ostream* os) { *os << "key" << c.key; }

class KeyFilterTest : public ::testing::TestWithParam<FilterCase> {};

TEST_P(KeyFilterTest, PassesOrDiscards) {
  const auto& c = GetParam();
  EXPECT_EQ(tessaly::DigitFilter(c.key), c.digit) << "key " << c.key;
  EXPECT_EQ(tessaly::DroppingFilter(c.key), c.dropping) << "key " << c.key;
}

INSTANTIATE_TEST_SUITE_P(
    Table, KeyFilterTest,
    ::testing::Values(FilterCase{'0', '0', '0'}, FilterCase{'9', '9', '9'},
                      FilterCase{'/', 0, '/'},  // just below the digits
                      FilterCase{':', 0, ':'},  // just above
                      FilterCase{'a', 0, 'a'}, FilterCase{'-', 0, '-'},
                      FilterCase{8, 0, 8},  // Backspace: the digit filter swallows it too
                      FilterCase{' ', 0, 0}, FilterCase{'.', 0, 0}, FilterCase{'_', 0, '_'},
                      FilterCase{13, 0, 13}));

}  // namespace
