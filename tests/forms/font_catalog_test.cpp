#include "forms/font_catalog.hpp"

#include <gtest/gtest.h>

#include "forms/case_fold.hpp"

namespace forms {
namespace {

// A catalog with a fixed list, to test what every catalog shares.
class FixedCatalog : public FontCatalog {
 public:
  explicit FixedCatalog(std::vector<vb::Text> families) : families_(std::move(families)) {}
  const std::vector<vb::Text>& Families() override { return families_; }

 private:
  std::vector<vb::Text> families_;
};

struct HasCase {
  vb::Text asked;
  bool found;
};

class FontCatalogHasTest : public ::testing::TestWithParam<HasCase> {};

TEST_P(FontCatalogHasTest, MatchesIgnoringAsciiCase) {
  FixedCatalog catalog({u"Courier New", u"MS Sans Serif", u"Ärger Grotesk"});
  EXPECT_EQ(catalog.Has(GetParam().asked), GetParam().found);
}

INSTANTIATE_TEST_SUITE_P(
    Names, FontCatalogHasTest,
    ::testing::Values(HasCase{u"MS Sans Serif", true}, HasCase{u"ms sans serif", true},
                      HasCase{u"COURIER NEW", true}, HasCase{u"Courier", false},
                      HasCase{u"Courier New ", false}, HasCase{u"Ärger Grotesk", true},
                      HasCase{u"ärger grotesk", true}, HasCase{u"Ärger Grotesk\u00A0", false},
                      HasCase{u"", false}));

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
