// The member table follows edits instead of scanning anew; a new scan of the
// edited text is the judge. Modules and edits are random (fixed seeds) and
// made of the pieces that make following hard: bodies, one-line procedures,
// Property pairs, continuations, names that differ only in case.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "workbench/code_module.hpp"
#include "workbench/member_scan.hpp"
#include "workbench/model_test_support.hpp"

namespace workbench {
namespace {

using Lines = std::vector<vb::Text>;

using testing::Describe;

class RandomModule {
 public:
  explicit RandomModule(unsigned seed) : random_(seed) {}

  std::size_t Below(std::size_t n) {
    return std::uniform_int_distribution<std::size_t>(0, n - 1)(random_);
  }

  // A name from a small pool, in a random case now and then.
  vb::Text Name() {
    vb::Text name = u"Name" + vb::FromUtf8(std::to_string(Below(12)));
    if (Below(4) == 0) name[0] = u'n';
    return name;
  }

  // A piece of a module; "@" stands for a name.
  Lines Piece() {
    static const std::vector<Lines> kPieces = {
        {u"Private Sub @()", u"    x = 1", u"End Sub"},
        {u"Public Function @() As Long", u"    @ = 2", u"End Function"},
        {u"Sub @(): End Sub"},
        {u"Property Get P@()", u"End Property"},
        {u"Property Let P@(v)", u"End Property"},
        {u"Private Type T@", u"    a As Long", u"End Type"},
        {u"Dim @, V@ As Long"},
        {u"Const K@ = 1"},
        {u"' a comment that goes on _", u"Sub Hidden()"},
        {u"Private Sub @(ByVal a As Long, _", u"    ByVal b As Long)", u"End Sub"},
        {u"Sub @()"},  // never closed
        {u"    s = \"End Sub\": End Sub"},
        {u"Dim W@ As Long, _"},  // goes on into whatever follows
        {u""}};
    const vb::Text name = Name();
    Lines piece = kPieces[Below(kPieces.size())];
    for (vb::Text& line : piece) {
      for (auto at = line.find(u'@'); at != vb::Text::npos; at = line.find(u'@')) {
        line.replace(at, 1, name);
      }
    }
    return piece;
  }

  Lines Pieces(std::size_t count) {
    Lines lines;
    for (std::size_t i = 0; i < count; ++i) {
      const Lines piece = Piece();
      lines.insert(lines.end(), piece.begin(), piece.end());
    }
    return lines;
  }

  static vb::Text Text(const Lines& lines) {
    vb::Text text;
    for (std::size_t i = 0; i < lines.size(); ++i) text += (i == 0 ? u"" : u"\r\n") + lines[i];
    return text;
  }

  // Lines to delete (from 1): often exactly a member's own lines, or those of
  // several members in a row, else anything.
  std::pair<std::int32_t, std::int32_t> Deletion(const std::vector<ScannedMember>& members,
                                                 std::size_t line_count) {
    if (!members.empty() && Below(3) != 0) {
      const ScannedMember& from = members[Below(members.size())];
      const ScannedMember& to = Below(3) == 0 ? members[Below(members.size())] : from;
      const std::int32_t last = to.end_line.value_or(to.line);
      if (from.line <= last) return {from.line, last - from.line + 1};
    }
    const auto first = static_cast<std::int32_t>(1 + Below(line_count + 1));
    const auto room = static_cast<std::size_t>(static_cast<std::int32_t>(line_count) - first + 1);
    return {first, static_cast<std::int32_t>(Below(std::min<std::size_t>(room, 8) + 1))};
  }

 private:
  std::mt19937 random_;
};

// Every name the scan lists is found, by any case, at its first member.
void ExpectSameLookUp(ide::Members& members, const std::vector<ScannedMember>& scanned) {
  for (const ScannedMember& member : scanned) {
    vb::Text upper = member.name;
    for (char16_t& c : upper) c = (c >= u'a' && c <= u'z') ? static_cast<char16_t>(c - 32) : c;
    const auto found = members.Item(upper);
    ASSERT_NE(found, nullptr) << vb::ToUtf8(member.name);
    const auto first = std::find_if(scanned.begin(), scanned.end(), [&](const ScannedMember& m) {
      return FoldCase(m.name) == FoldCase(member.name);
    });
    EXPECT_EQ(found->CodeLocation(), first->line) << vb::ToUtf8(member.name);
  }
  EXPECT_EQ(members.Item(u"NoSuchMember"), nullptr);
}

// Through the IDE's interface: collections, snapshots and member objects read
// before an edit.
TEST(MemberFollowTest, ModuleMembersMatchANewScanAfterEveryEdit) {
  RandomModule random(5);
  for (int round = 0; round < 60; ++round) {
    auto module = std::make_shared<CodeModule>(u"Form1", random.Pieces(3 + random.Below(25)));
    const std::shared_ptr<ide::Members> members = module->Members();
    for (int step = 0; step < 20; ++step) {
      // A member or a table held across the edit keeps what it said; when
      // neither is held, the module changes its table in place.
      std::shared_ptr<const MemberTable> snapshot = module->ScannedMembers();
      const std::vector<ScannedMember> before = snapshot->All();
      const auto snapshot_said = Describe(before);
      std::shared_ptr<ide::Member> held;
      std::int32_t held_at = 0;
      if (!before.empty() && random.Below(3) == 0) {
        held = members->All()[random.Below(before.size())];
        held_at = held->CodeLocation();
      }
      if (random.Below(3) != 0) snapshot.reset();
      switch (random.Below(3)) {
        case 0: {
          const auto [first, count] =
              random.Deletion(before, static_cast<std::size_t>(module->CountOfLines()));
          module->DeleteLines(first, count);
          break;
        }
        case 1:
          module->InsertLines(
              static_cast<std::int32_t>(
                  1 + random.Below(static_cast<std::size_t>(module->CountOfLines()) + 1)),
              RandomModule::Text(random.Pieces(1 + random.Below(3))));
          break;
        default:
          module->AddFromString(RandomModule::Text(random.Pieces(1 + random.Below(3))));
          break;
      }
      const std::vector<ScannedMember> scanned = ScanMembers(module->AllLines());
      ASSERT_EQ(Describe(module->ScannedMembers()->All()), Describe(scanned));
      const auto all = members->All();
      ASSERT_EQ(all.size(), scanned.size());
      for (std::size_t i = 0; i < all.size(); ++i) {
        EXPECT_EQ(all[i]->Name(), scanned[i].name);
        EXPECT_EQ(all[i]->CodeLocation(), scanned[i].line);
      }
      ExpectSameLookUp(*members, scanned);
      if (snapshot) {
        EXPECT_EQ(Describe(snapshot->All()), snapshot_said);
      }
      if (held) {
        EXPECT_EQ(held->CodeLocation(), held_at);
      }
    }
  }
}

}  // namespace
}  // namespace workbench
