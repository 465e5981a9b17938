#include "linux/file_settings_store.hpp"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include "vb/failure.hpp"

namespace linux_platform {
namespace {

namespace fs = std::filesystem;

std::string ReadAll(const fs::path& file) {
  std::ifstream in(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

void WriteAll(const fs::path& file, const std::string& bytes) {
  std::ofstream(file, std::ios::binary) << bytes;
}

// Runs `child` in a process of its own; returns its exit status, or -1.
int InChild(const std::function<int()>& child) {
  const pid_t pid = ::fork();
  if (pid == 0) ::_exit(child());
  int status = 0;
  if (pid < 0 || ::waitpid(pid, &status, 0) != pid || !WIFEXITED(status)) return -1;
  return WEXITSTATUS(status);
}

// Each test gets a fresh folder of its own; the real home is never touched.
class SettingsStoreFileTest : public ::testing::Test {
 protected:
  void SetUp() override {
    std::string pattern = (fs::temp_directory_path() / "tessaly-store-XXXXXX").string();
    ASSERT_NE(::mkdtemp(pattern.data()), nullptr);
    dir_ = pattern;
    file_ = dir_ / "settings.json";
  }
  void TearDown() override { fs::remove_all(dir_); }

  // Names in the folder, to prove no temporary file is left behind.
  std::set<std::string> Listing() const {
    std::set<std::string> names;
    for (const auto& entry : fs::directory_iterator(dir_)) {
      names.insert(entry.path().filename().string());
    }
    return names;
  }

  // The failure `action` throws, as number and UTF-8 description.
  template <typename Action>
  static std::pair<std::int32_t, std::string> FailureOf(Action action) {
    try {
      action();
    } catch (const vb::Failure& failure) {
      return {failure.Number(), failure.what()};
    }
    return {0, "no failure"};
  }

  fs::path dir_;
  fs::path file_;
};

class SettingsStoreRoundTripTest : public SettingsStoreFileTest,
                                   public ::testing::WithParamInterface<vb::Text> {};

TEST_P(SettingsStoreRoundTripTest, ReadsBackExactly) {
  FileSettingsStore(file_).Save(u"Tessaly", u"Fonts", u"Name", GetParam());
  EXPECT_EQ(FileSettingsStore(file_).Get(u"Tessaly", u"Fonts", u"Name"), GetParam());
}

INSTANTIATE_TEST_SUITE_P(Texts, SettingsStoreRoundTripTest,
                         ::testing::Values(u"", u"MS Sans Serif", u"Grüße, €5",
                                           u"emoji \U0001F600 pair", u"quote \" slash \\ tab \t",
                                           u"two\r\nlines"));

TEST_F(SettingsStoreFileTest, FileIsReadableJsonInWritingOrder) {
  FileSettingsStore store(file_);
  store.Save(u"Tessaly", u"Prompts", u"TextBox", u"True");
  store.Save(u"Tessaly", u"Fonts", u"Name", u"Grüße");
  store.Save(u"Tessaly", u"Prompts", u"Label", u"False");
  EXPECT_EQ(ReadAll(file_),
            "{\n  \"Tessaly\": {\n    \"Prompts\": {\n      \"TextBox\": \"True\",\n"
            "      \"Label\": \"False\"\n    },\n    \"Fonts\": {\n      \"Name\": \"Grüße\"\n"
            "    }\n  }\n}\n");
  EXPECT_EQ(Listing(), (std::set<std::string>{"settings.json", "settings.json.lock"}));
}

// A writer killed mid-write leaves its temporary file; the next write, which
// holds the lock, takes it away and leaves the user's own files alone.
TEST_F(SettingsStoreFileTest, TheNextWriteRemovesAKilledWritersTemporary) {
  WriteAll(dir_ / ".settings.json.tmp-Ab12Z9", "{\"half");
  WriteAll(dir_ / ".settings.json.backup", "mine");
  FileSettingsStore(file_).Save(u"Tessaly", u"Fonts", u"Name", u"Arial");
  EXPECT_EQ(Listing(), (std::set<std::string>{".settings.json.backup", "settings.json",
                                              "settings.json.lock"}));
}

TEST_F(SettingsStoreFileTest, MissingFileStoresNothingUntilSaveMakesIt) {
  FileSettingsStore store(dir_ / "a" / "b" / "settings.json");
  EXPECT_EQ(store.Get(u"Tessaly", u"Fonts", u"Size"), std::nullopt);
  EXPECT_FALSE(fs::exists(dir_ / "a"));
  store.Save(u"Tessaly", u"Fonts", u"Size", u"8");
  EXPECT_EQ(store.Get(u"Tessaly", u"Fonts", u"Size"), u"8");

  WriteAll(file_, "");  // an empty file holds nothing either
  EXPECT_EQ(FileSettingsStore(file_).Get(u"Tessaly", u"Fonts", u"Size"), std::nullopt);
}

TEST_F(SettingsStoreFileTest, NamesMatchIgnoringAsciiCaseAndKeepFirstSpelling) {
  FileSettingsStore store(file_);
  store.Save(u"Tessaly", u"Fonts", u"Name", u"Arial");
  EXPECT_EQ(store.Get(u"TESSALY", u"fonts", u"nAME"), u"Arial");

  store.Save(u"tessaly", u"FONTS", u"NAME", u"Courier");
  EXPECT_EQ(store.Get(u"Tessaly", u"Fonts", u"Name"), u"Courier");
  EXPECT_EQ(ReadAll(file_),
            "{\n  \"Tessaly\": {\n    \"Fonts\": {\n      \"Name\": \"Courier\"\n"
            "    }\n  }\n}\n");

  // Only ASCII letters fold: other letters are different names.
  store.Save(u"Tessaly", u"Fonts", u"Ä", u"upper");
  EXPECT_EQ(store.Get(u"Tessaly", u"Fonts", u"ä"), std::nullopt);
}

// Writers with their own store objects, in other processes or other threads,
// each write keys of their own; none may be lost.
enum class Writers { kProcesses, kThreads };

class SettingsStoreConcurrencyTest : public SettingsStoreFileTest,
                                     public ::testing::WithParamInterface<Writers> {
 protected:
  static constexpr int kWriters = 2;
  static constexpr int kKeys = 200;

  static bool WriteKeys(const fs::path& file, int writer) {
    try {
      FileSettingsStore store(file);
      for (int i = 0; i < kKeys; ++i) {
        const std::string key = "W" + std::to_string(writer) + "K" + std::to_string(i);
        store.Save(u"Tessaly", u"Race", vb::FromUtf8(key), vb::FromUtf8(std::to_string(i)));
      }
      return true;
    } catch (const vb::Failure&) {
      return false;
    }
  }
};

TEST_P(SettingsStoreConcurrencyTest, WritersOfDifferentKeysLoseNone) {
  bool ok[kWriters] = {};
  std::vector<pid_t> children;
  std::vector<std::thread> threads;
  for (int w = 0; w < kWriters; ++w) {
    if (GetParam() == Writers::kThreads) {
      threads.emplace_back([&, w] { ok[w] = WriteKeys(file_, w); });
      continue;
    }
    const pid_t pid = ::fork();
    ASSERT_GE(pid, 0);
    if (pid == 0) ::_exit(WriteKeys(file_, w) ? 0 : 1);
    children.push_back(pid);
  }
  for (auto& t : threads) t.join();
  for (std::size_t w = 0; w < children.size(); ++w) {
    int status = 0;
    ASSERT_EQ(::waitpid(children[w], &status, 0), children[w]);
    ok[w] = WIFEXITED(status) && WEXITSTATUS(status) == 0;
  }
  for (bool b : ok) EXPECT_TRUE(b);

  FileSettingsStore store(file_);
  for (int key = 0; key < kWriters * kKeys; ++key) {
    const std::string name = "W" + std::to_string(key / kKeys) + "K" + std::to_string(key % kKeys);
    ASSERT_EQ(store.Get(u"Tessaly", u"Race", vb::FromUtf8(name)),
              vb::FromUtf8(std::to_string(key % kKeys)))
        << name;
  }
  EXPECT_EQ(Listing(), (std::set<std::string>{"settings.json", "settings.json.lock"}));
}

void PrintTo(Writers w, std::ostream* os) {
  *os << (w == Writers::kProcesses ? "Processes" : "Threads");
}

INSTANTIATE_TEST_SUITE_P(Both, SettingsStoreConcurrencyTest,
                         ::testing::Values(Writers::kProcesses, Writers::kThreads));

// A bad file: what it holds and the words after "cannot be read: ".
struct BadFile {
  const char* name;
  std::string bytes;
  std::string reason_start;
};
void PrintTo(const BadFile& c, std::ostream* os) { *os << c.name; }

class SettingsStoreBadFileTest : public SettingsStoreFileTest,
                                 public ::testing::WithParamInterface<BadFile> {};

TEST_P(SettingsStoreBadFileTest, FailsNamingFileAndPlaceAndKeepsTheBytes) {
  WriteAll(file_, GetParam().bytes);
  const std::string prefix = "The settings file " + file_.string() + " cannot be read: ";

  auto [get_number, get_words] =
      FailureOf([&] { FileSettingsStore(file_).Get(u"Tessaly", u"Fonts", u"Name"); });
  EXPECT_EQ(get_number, vb::kBadFileFormat);
  EXPECT_EQ(get_words.substr(0, prefix.size() + GetParam().reason_start.size()),
            prefix + GetParam().reason_start)
      << get_words;

  auto [save_number, save_words] =
      FailureOf([&] { FileSettingsStore(file_).Save(u"Tessaly", u"Fonts", u"Name", u"Arial"); });
  EXPECT_EQ(save_number, vb::kBadFileFormat);
  EXPECT_EQ(save_words, get_words);
  EXPECT_EQ(ReadAll(file_), GetParam().bytes);
  EXPECT_EQ(Listing(), (std::set<std::string>{"settings.json", "settings.json.lock"}));
}

INSTANTIATE_TEST_SUITE_P(
    Files, SettingsStoreBadFileTest,
    ::testing::Values(
        BadFile{"SyntaxError", "{\n  \"Tessaly\": {\n    \"Fonts\": x\n  }\n}\n",
                "line 3, column 14: syntax error"},
        // Columns count characters: "é" is two bytes but one column.
        BadFile{"ColumnsCountCharacters", "{\"é\": x}", "line 1, column 7: "},
        BadFile{"EndInsideAGroup", "{\n  \"Tessaly\": {\n", "line 3, column 1: syntax error"},
        BadFile{"NoUtf8", "{\"a\": \"\xff\"}", "line 1, column 8: "},
        BadFile{"NumberTooLarge", "{\"\": 8888e888}", "number overflow parsing '8888e888'"},
        BadFile{"ListOnTop", "[]", "the file holds a list where a group of applications belongs"},
        BadFile{"TextForSections", "{\"Tessaly\": \"x\"}",
                "\"Tessaly\" is text where a group of sections belongs"},
        BadFile{"NumberForText", "{\"Tessaly\": {\"Fonts\": {\"Size\": 8}}}",
                "\"Tessaly\" / \"Fonts\" / \"Size\" is a number where text belongs"}));

TEST_F(SettingsStoreFileTest, UnreadableFileFailsWithTheOsError) {
  const std::string prefix = "The settings file " + file_.string();
  fs::create_directory(file_);  // a folder where the file should be
  EXPECT_EQ(FailureOf([&] { FileSettingsStore(file_).Get(u"A", u"B", u"C"); }),
            std::make_pair(std::int32_t{vb::kPathFileAccess},
                           prefix + " cannot be read: Is a directory"));

  if (::geteuid() == 0) GTEST_SKIP() << "the superuser reads any file";
  fs::remove(file_);
  WriteAll(file_, "{}");
  fs::permissions(file_, fs::perms::none);
  EXPECT_EQ(FailureOf([&] { FileSettingsStore(file_).Get(u"A", u"B", u"C"); }),
            std::make_pair(std::int32_t{vb::kPathFileAccess},
                           prefix + " cannot be opened: Permission denied"));
}

// A write that fails half-way (here: the file size limit) leaves the old file
// whole and no temporary file behind.
TEST_F(SettingsStoreFileTest, FailedWriteKeepsTheOldFile) {
  FileSettingsStore(file_).Save(u"Tessaly", u"Fonts", u"Name", u"Arial");
  const std::string before = ReadAll(file_);

  EXPECT_EQ(InChild([&] {
              std::signal(SIGXFSZ, SIG_IGN);
              rlimit limit{16, 16};
              ::setrlimit(RLIMIT_FSIZE, &limit);
              return FailureOf([&] {
                       FileSettingsStore(file_).Save(u"Tessaly", u"Fonts", u"Name",
                                                     u"A much longer name");
                     })
                  .first;
            }),
            vb::kPathFileAccess);
  EXPECT_EQ(ReadAll(file_), before);
  EXPECT_EQ(Listing(), (std::set<std::string>{"settings.json", "settings.json.lock"}));
}

TEST_F(SettingsStoreFileTest, ReplacingKeepsPermissionsAndSymbolicLinks) {
  fs::create_directory(dir_ / "dotfiles");
  const fs::path real = dir_ / "dotfiles" / "settings.json";
  WriteAll(real, "{}");
  fs::permissions(real, fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
  fs::create_symlink(real, file_);

  FileSettingsStore(file_).Save(u"Tessaly", u"Fonts", u"Name", u"Arial");
  EXPECT_TRUE(fs::is_symlink(file_));
  EXPECT_EQ(FileSettingsStore(real).Get(u"Tessaly", u"Fonts", u"Name"), u"Arial");
  EXPECT_EQ(fs::status(real).permissions(),
            fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
}

struct PathCase {
  const char* name;
  const char* xdg;  // nullptr: unset
  const char* expected;
};
void PrintTo(const PathCase& c, std::ostream* os) { *os << c.name; }

void Put(const char* name, const char* value) {
  value ? ::setenv(name, value, 1) : ::unsetenv(name);
}

class SettingsStoreDefaultPathTest : public ::testing::TestWithParam<PathCase> {};

// HOME and XDG_CONFIG_HOME are set for one case and put back after.
TEST_P(SettingsStoreDefaultPathTest, FollowsXdgConfigHomeThenHome) {
  const char* home = std::getenv("HOME");
  const char* xdg = std::getenv("XDG_CONFIG_HOME");
  const std::optional<std::string> saved[] = {
      home ? std::optional<std::string>(home) : std::nullopt,
      xdg ? std::optional<std::string>(xdg) : std::nullopt};
  Put("HOME", "/home/ann");
  Put("XDG_CONFIG_HOME", GetParam().xdg);
  const fs::path path = FileSettingsStore::DefaultPath();
  Put("HOME", saved[0] ? saved[0]->c_str() : nullptr);
  Put("XDG_CONFIG_HOME", saved[1] ? saved[1]->c_str() : nullptr);
  EXPECT_EQ(path, fs::path(GetParam().expected));
}

INSTANTIATE_TEST_SUITE_P(
    Env, SettingsStoreDefaultPathTest,
    ::testing::Values(PathCase{"XdgSet", "/cfg", "/cfg/tessaly/settings.json"},
                      PathCase{"XdgUnset", nullptr, "/home/ann/.config/tessaly/settings.json"},
                      PathCase{"XdgEmpty", "", "/home/ann/.config/tessaly/settings.json"},
                      PathCase{"XdgRelative", "relative/cfg",
                               "/home/ann/.config/tessaly/settings.json"}));

}  // namespace
}  // namespace linux_platform
