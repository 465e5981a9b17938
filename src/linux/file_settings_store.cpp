// The settings file: reading and checking it, and replacing it safely.
//
// Sections: descriptions of failures; small POSIX helpers; reading and checking
// the document; name lookup; the store's members.
#include "linux/file_settings_store.hpp"

#include <fcntl.h>
#include <pwd.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

#include "vb/failure.hpp"

namespace linux_platform {
namespace {

// ordered_json keeps names in the order they were first written, so the file
// reads in the order a user's settings came about.
using Json = nlohmann::ordered_json;
namespace fs = std::filesystem;

// ---- Descriptions of failures ---------------------------------------------

std::string OsError(int error) { return std::system_category().message(error); }

[[noreturn]] void Fail(vb::ErrorNumber number, const std::string& utf8) {
  throw vb::Failure(number, vb::FromUtf8(utf8));
}

[[noreturn]] void FailBadFormat(const fs::path& file, const std::string& reason) {
  Fail(vb::kBadFileFormat, "The settings file " + file.string() + " cannot be read: " + reason);
}

[[noreturn]] void FailAccess(const fs::path& file, std::string_view what, int error) {
  Fail(vb::kPathFileAccess, "The settings file " + file.string() + " cannot be " +
                                std::string(what) + ": " + OsError(error));
}

// nlohmann's message reads "[json.exception.parse_error.101] parse error at
// line 3, column 5: syntax error ..."; the description gives its own position,
// so only the words after the position are kept.
std::string ParseReason(const std::string& what) {
  std::string_view rest = what;
  if (auto bracket = rest.find("] "); bracket != std::string_view::npos) {
    rest.remove_prefix(bracket + 2);
  }
  if (rest.starts_with("parse error")) {
    if (auto colon = rest.find(": "); colon != std::string_view::npos) {
      rest.remove_prefix(colon + 2);
    }
  }
  return std::string(rest);
}

// Line and column, both from 1, of the byte nlohmann stopped at (`byte` counts
// from 1; one past the end means the end of the file). The column counts
// characters, not bytes, as an editor shows them.
std::pair<std::size_t, std::size_t> LineAndColumn(std::string_view bytes, std::size_t byte) {
  std::size_t line = 1;
  std::size_t column = 0;
  const std::size_t end = std::min(byte, bytes.size() + 1);
  for (std::size_t i = 0; i < end; ++i) {
    if (i == bytes.size()) {
      ++column;  // the end of the file itself
    } else if (bytes[i] == '\n' && i + 1 < end) {
      ++line;
      column = 0;
    } else if ((static_cast<unsigned char>(bytes[i]) & 0xC0) != 0x80) {
      ++column;  // UTF-8 continuation bytes belong to the character before
    }
  }
  return {line, std::max<std::size_t>(column, 1)};
}

std::string Quoted(const std::string& name) { return Json(name).dump(); }

std::string KindOf(const Json& value) {
  switch (value.type()) {
    case Json::value_t::object:
      return "a group of names";
    case Json::value_t::array:
      return "a list";
    case Json::value_t::string:
      return "text";
    case Json::value_t::boolean:
      return "a Boolean";
    case Json::value_t::null:
      return "null";
    default:
      return "a number";
  }
}

// ---- Small POSIX helpers ----------------------------------------------------

class UniqueFd {
 public:
  explicit UniqueFd(int fd = -1) : fd_(fd) {}
  UniqueFd(const UniqueFd&) = delete;
  UniqueFd& operator=(const UniqueFd&) = delete;
  ~UniqueFd() { Reset(); }
  int Get() const { return fd_; }
  // Closes now and reports the close's own error (0 when it went well); a
  // write error on some file systems only shows here.
  int Close() {
    int error = 0;
    if (fd_ >= 0 && ::close(fd_) != 0) error = errno;
    fd_ = -1;
    return error;
  }
  void Reset() { Close(); }

 private:
  int fd_;
};

// The folder that holds `file`, "." for a bare file name.
fs::path FolderOf(const fs::path& file) {
  fs::path folder = file.parent_path();
  return folder.empty() ? fs::path(".") : folder;
}

int WriteAll(int fd, std::string_view bytes) {
  while (!bytes.empty()) {
    ssize_t n = ::write(fd, bytes.data(), bytes.size());
    if (n < 0) {
      if (errno == EINTR) continue;
      return errno;
    }
    bytes.remove_prefix(static_cast<std::size_t>(n));
  }
  return 0;
}

// Holds an exclusive flock on "<file>.lock" for its lifetime. The lock file is
// separate from the settings file because the settings file is replaced by
// rename: a lock on it would lock the old inode. It is never deleted, since a
// process may be waiting on it.
class FileLock {
 public:
  explicit FileLock(const fs::path& file)
      : lock_path_(fs::path(file) += ".lock"),
        fd_(::open(lock_path_.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600)) {
    if (fd_.Get() < 0) FailAccess(file, "locked (" + lock_path_.string() + ")", errno);
    while (::flock(fd_.Get(), LOCK_EX) != 0) {
      if (errno != EINTR) FailAccess(file, "locked (" + lock_path_.string() + ")", errno);
    }
  }
  // Closing the descriptor releases the lock.

 private:
  fs::path lock_path_;
  UniqueFd fd_;
};

// ---- Reading and checking the document --------------------------------------

// The file's bytes, or nothing when there is no file.
std::optional<std::string> ReadBytes(const fs::path& file) {
  UniqueFd fd(::open(file.c_str(), O_RDONLY | O_CLOEXEC));
  if (fd.Get() < 0) {
    if (errno == ENOENT) return std::nullopt;
    FailAccess(file, "opened", errno);
  }
  std::string bytes;
  char buffer[8192];
  for (;;) {
    ssize_t n = ::read(fd.Get(), buffer, sizeof buffer);
    if (n < 0) {
      if (errno == EINTR) continue;
      FailAccess(file, "read", errno);
    }
    if (n == 0) break;
    bytes.append(buffer, static_cast<std::size_t>(n));
  }
  return bytes;
}

// Every value must sit at application / section / key and be text; anything
// else is reported with the names that lead to it.
void CheckShape(const fs::path& file, const Json& root) {
  if (!root.is_object()) {
    FailBadFormat(file,
                  "the file holds " + KindOf(root) + " where a group of applications belongs");
  }
  for (const auto& [app, sections] : root.items()) {
    if (!sections.is_object()) {
      FailBadFormat(file,
                    Quoted(app) + " is " + KindOf(sections) + " where a group of sections belongs");
    }
    for (const auto& [section, keys] : sections.items()) {
      if (!keys.is_object()) {
        FailBadFormat(file, Quoted(app) + " / " + Quoted(section) + " is " + KindOf(keys) +
                                " where a group of keys belongs");
      }
      for (const auto& [key, value] : keys.items()) {
        if (!value.is_string()) {
          FailBadFormat(file, Quoted(app) + " / " + Quoted(section) + " / " + Quoted(key) + " is " +
                                  KindOf(value) + " where text belongs");
        }
      }
    }
  }
}

// The checked document; an empty object when there is no file or the file is
// empty (an empty file holds no settings to lose).
Json ReadDocument(const fs::path& file) {
  std::optional<std::string> bytes = ReadBytes(file);
  if (!bytes || bytes->empty()) return Json::object();
  Json root;
  try {
    root = Json::parse(*bytes);
  } catch (const Json::parse_error& e) {
    auto [line, column] = LineAndColumn(*bytes, e.byte);
    FailBadFormat(file, "line " + std::to_string(line) + ", column " + std::to_string(column) +
                            ": " + ParseReason(e.what()));
  } catch (const Json::exception& e) {
    // A number too large for a double (1e999) is refused with no position.
    FailBadFormat(file, ParseReason(e.what()));
  }
  CheckShape(file, root);
  return root;
}

// ---- Name lookup -------------------------------------------------------------

char FoldAscii(char c) { return (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c; }

// UTF-8 bytes of non-ASCII characters are all >= 0x80, so folding bytes folds
// exactly the ASCII letters.
bool SameName(std::string_view a, std::string_view b) {
  return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) {
           return FoldAscii(x) == FoldAscii(y);
         });
}

// The first entry of `group` whose name matches `name`, or end().
Json::iterator FindName(Json& group, std::string_view name) {
  for (auto it = group.begin(); it != group.end(); ++it) {
    if (SameName(it.key(), name)) return it;
  }
  return group.end();
}

// The keys of `section` of `app`, or null when there are none.
Json* KeysOf(Json& root, const vb::Text& app, const vb::Text& section) {
  auto app_it = FindName(root, vb::ToUtf8(app));
  if (app_it == root.end()) return nullptr;
  auto section_it = FindName(*app_it, vb::ToUtf8(section));
  return section_it == app_it->end() ? nullptr : &*section_it;
}

// The member of `group` named `name` in any case, added under this spelling
// when there is none.
Json& MemberOf(Json& group, const std::string& name) {
  auto it = FindName(group, name);
  if (it != group.end()) return *it;
  return group[name] = Json::object();
}

// ---- Writing ---------------------------------------------------------------

// A temporary file's name: this prefix and mkostemp's six characters. The
// "tmp-" keeps a user's own ".settings.json.backup" from looking like one.
std::string TempPrefix(const fs::path& target) {
  return "." + target.filename().string() + ".tmp-";
}

// Removes temporary files that writers killed mid-write left beside `target`.
// Call only under the store's lock: only a lock holder makes a temporary, and
// it renames or removes it before letting go, so any found now is orphaned.
void RemoveOrphans(const fs::path& folder, const fs::path& target) {
  const std::string prefix = TempPrefix(target);
  constexpr std::size_t kUniquePart = 6;  // the XXXXXX of mkostemp
  std::error_code ec;
  for (const auto& entry : fs::directory_iterator(folder, ec)) {
    const std::string name = entry.path().filename().string();
    if (name.size() == prefix.size() + kUniquePart && name.starts_with(prefix) &&
        entry.is_regular_file(ec)) {
      fs::remove(entry.path(), ec);
    }
  }
}

// Writes `bytes` as the new content of `file`: a complete temporary file in the
// same folder, flushed to disk, then renamed over the old one and the folder
// flushed, so a reader or a crash sees the old file or the new, never a mix.
void ReplaceFile(const fs::path& file, const std::string& bytes) {
  // A settings file that is a symbolic link (kept with other dotfiles) stays a
  // link: the file it points to is the one replaced.
  fs::path target = file;
  std::error_code ec;
  if (fs::is_symlink(fs::symlink_status(file, ec))) {
    fs::path resolved = fs::canonical(file, ec);
    if (!ec) target = resolved;
  }
  const fs::path folder = FolderOf(target);
  RemoveOrphans(folder, target);

  std::string temp_name = (folder / (TempPrefix(target) + "XXXXXX")).string();
  UniqueFd fd(::mkostemp(temp_name.data(), O_CLOEXEC));
  if (fd.Get() < 0) FailAccess(file, "written", errno);
  const fs::path temp = temp_name;
  auto fail = [&](int error) {
    fd.Reset();
    ::unlink(temp.c_str());
    FailAccess(file, "written", error);
  };

  // Keep the permissions the user gave the file; a new file is private to
  // its user, as mkostemp made it.
  struct stat old_stat {};
  if (::stat(target.c_str(), &old_stat) == 0 && ::fchmod(fd.Get(), old_stat.st_mode & 07777) != 0) {
    fail(errno);
  }
  if (int error = WriteAll(fd.Get(), bytes)) fail(error);
  if (::fsync(fd.Get()) != 0) fail(errno);
  if (int error = fd.Close()) fail(error);
  if (::rename(temp.c_str(), target.c_str()) != 0) fail(errno);

  UniqueFd dir(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  // Some file systems cannot flush a folder (EINVAL); the rename stands.
  if (dir.Get() >= 0 && ::fsync(dir.Get()) != 0 && errno != EINVAL) {
    FailAccess(file, "written", errno);
  }
}

}  // namespace

// ---- The store's members -----------------------------------------------------

FileSettingsStore::FileSettingsStore(fs::path file) : file_(std::move(file)) {}

fs::path FileSettingsStore::DefaultPath() {
  const fs::path leaf = fs::path("tessaly") / "settings.json";
  if (const char* xdg = std::getenv("XDG_CONFIG_HOME"); xdg != nullptr) {
    // The XDG rules say a relative value is to be ignored.
    if (fs::path base = xdg; base.is_absolute()) return base / leaf;
  }
  if (const char* home = std::getenv("HOME"); home != nullptr && *home != '\0') {
    return fs::path(home) / ".config" / leaf;
  }
  if (const passwd* entry = ::getpwuid(::getuid()); entry != nullptr && entry->pw_dir != nullptr) {
    return fs::path(entry->pw_dir) / ".config" / leaf;
  }
  Fail(vb::kPathFileAccess,
       "The settings folder cannot be found: neither XDG_CONFIG_HOME nor HOME is set");
}

std::optional<vb::Text> FileSettingsStore::Get(const vb::Text& app, const vb::Text& section,
                                               const vb::Text& key) {
  Json root = ReadDocument(file_);
  Json* keys = KeysOf(root, app, section);
  if (!keys) return std::nullopt;
  auto key_it = FindName(*keys, vb::ToUtf8(key));
  if (key_it == keys->end()) return std::nullopt;
  return vb::FromUtf8(key_it->get_ref<const std::string&>());
}

void FileSettingsStore::Save(const vb::Text& app, const vb::Text& section, const vb::Text& key,
                             const vb::Text& text) {
  const fs::path folder = FolderOf(file_);
  std::error_code ec;
  fs::create_directories(folder, ec);
  if (ec) {
    Fail(vb::kPathFileAccess,
         "The settings folder " + folder.string() + " cannot be created: " + ec.message());
  }

  FileLock lock(file_);
  // Read under the lock: another process may have written since our last look,
  // and its keys must survive this write.
  Json root = ReadDocument(file_);
  Json& keys = MemberOf(MemberOf(root, vb::ToUtf8(app)), vb::ToUtf8(section));
  const std::string key_utf8 = vb::ToUtf8(key);
  auto key_it = FindName(keys, key_utf8);
  if (key_it != keys.end()) {
    *key_it = vb::ToUtf8(text);
  } else {
    keys[key_utf8] = vb::ToUtf8(text);
  }
  ReplaceFile(file_, root.dump(2) + "\n");
}

bool FileSettingsStore::Remove(const vb::Text& app, const vb::Text& section, const vb::Text& key) {
  // A first look without the lock, so that removing what is not there makes
  // nothing; what another process stores meanwhile was stored after this.
  if (!Get(app, section, key)) return false;
  FileLock lock(file_);
  Json root = ReadDocument(file_);
  Json* keys = KeysOf(root, app, section);
  if (!keys) return false;
  auto key_it = FindName(*keys, vb::ToUtf8(key));
  if (key_it == keys->end()) return false;
  keys->erase(key_it);
  ReplaceFile(file_, root.dump(2) + "\n");
  return true;
}

}  // namespace linux_platform
