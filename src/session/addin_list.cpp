#include "session/addin_list.hpp"

#include <algorithm>
#include <iomanip>
#include <ostream>

namespace session {
namespace {

constexpr std::uint32_t kLoadFromCommandLine = 4;

}  // namespace

std::string LoadBehaviorWords(std::uint32_t load_behavior) {
  std::string words;
  if (load_behavior & ide::kLoadAtStartup) words = "Startup";
  if (load_behavior & kLoadFromCommandLine)
    words += words.empty() ? "Command line" : ", command line";
  return words.empty() ? "None" : words;
}

void PrintAddInList(const std::vector<ide::AddInListing>& addins, std::ostream& out) {
  std::size_t name_width = std::string("Available add-ins").size();
  for (const auto& addin : addins) {
    name_width = std::max(name_width, vb::ToUtf8(addin.display_name).size());
  }
  const auto row = [&](const std::string& name, const std::string& load, const std::string& id) {
    out << std::left << std::setw(static_cast<int>(name_width + 2)) << name << std::setw(24) << load
        << id << '\n';
  };
  row("Available add-ins", "Load behaviour", "ProgID");
  for (const auto& addin : addins) {
    row(vb::ToUtf8(addin.display_name), LoadBehaviorWords(addin.load_behavior),
        vb::ToUtf8(addin.prog_id));
    if (!addin.description.empty()) out << "    " << vb::ToUtf8(addin.description) << '\n';
  }
}

}  // namespace session
