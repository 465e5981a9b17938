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

}  // namespace
}  // namespace forms
