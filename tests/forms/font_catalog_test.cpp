#include "forms/font_catalog.hpp"

#include <gtest/gtest.h>

#include "forms/case_fold.hpp"
#include "forms/forms_harness.hpp"

namespace forms {
namespace {

TEST(FontCatalogHas, MatchesWholeNamesIgnoringCase) {
  testing::FixedFonts catalog({u"Courier New", u"MS Sans Serif", u"\u00c4rger Grotesk"});
  for (const char16_t* name : {u"MS Sans Serif", u"ms sans serif", u"COURIER NEW",
                               u"\u00c4rger Grotesk", u"\u00e4rger grotesk"}) {
    EXPECT_TRUE(catalog.Has(name)) << vb::ToUtf8(name);
  }
  for (const char16_t* name : {u"Courier", u"Courier New ", u"\u00c4rger Grotesk\u00a0", u""}) {
    EXPECT_FALSE(catalog.Has(name)) << vb::ToUtf8(name);
  }
}

TEST(FontconfigCatalogTest, FamiliesAreSortedIgnoringCaseAndUnique) {
  FontconfigCatalog catalog;
  const auto& families = catalog.Families();
  for (std::size_t i = 1; i < families.size(); ++i) {
    EXPECT_LE(detail::CompareNoCase(families[i - 1], families[i]), 0) << i;
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
}  // namespace forms
