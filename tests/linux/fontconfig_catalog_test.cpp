#include "linux/fontconfig_catalog.hpp"

#include <gtest/gtest.h>

#include "forms/case_fold.hpp"

namespace linux_platform {
namespace {

using forms::detail::CompareNoCase;

TEST(FontconfigCatalogTest, FamiliesAreSortedIgnoringCaseAndUnique) {
  FontconfigCatalog catalog;
  const auto& families = catalog.Families();
  for (std::size_t i = 1; i < families.size(); ++i) {
    EXPECT_LE(CompareNoCase(families[i - 1], families[i]), 0) << i;
    EXPECT_NE(families[i - 1], families[i]) << i;
  }
  EXPECT_EQ(&catalog.Families(), &families);  // read once, then kept
}

TEST(FontconfigCatalogTest, FindsAnInstalledFamilyInAnyCase) {
  FontconfigCatalog catalog;
  if (catalog.Families().empty()) GTEST_SKIP() << "no fonts installed";
  EXPECT_TRUE(catalog.Has(u"DejaVu Sans"));
  EXPECT_TRUE(catalog.Has(u"dejavu sans"));
  EXPECT_FALSE(catalog.Has(u"No Such Family 1f3a"));
}

}  // namespace
}  // namespace linux_platform
