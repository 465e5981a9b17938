#include "settings/globals.hpp"

#include "vb/convert.hpp"

namespace tessaly {

vb::Text UseCtlKey(std::size_t row) {
  return u"UseCtl" + vb::IntegerToText(static_cast<vb::Long>(row));
}

void LoadSettings(Globals& globals, forms::Runtime& runtime) {
  for (std::size_t row = 0; row < kControlRows; ++row) {
    globals.UseCtl[row] = vb::CBool(runtime.GetSetting(kAppName, kSection, UseCtlKey(row), u"1"));
  }
  globals.CtlNames.assign(kControlDisplayNames.begin(), kControlDisplayNames.end());
  globals.RemoveCode = vb::CBool(runtime.GetSetting(kAppName, kSection, u"RemoveCode", u"1"));
  globals.RenameCode = vb::CBool(runtime.GetSetting(kAppName, kSection, u"RenameCode", u"1"));
}

}  // namespace tessaly
