// The disk as a FileSystem. POSIX calls only where std::filesystem has no
// equivalent (exclusive creation, fsync, ownership), guarded so that the
// Windows build compiles without them.
#include <cerrno>
#include <fstream>
#include <random>
#include <string>

#include "vb/text.hpp"
#include "vbfiles/file_system.hpp"

#if !defined(_WIN32)
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace vbfiles {
namespace fs = std::filesystem;

vb::Failure FileFailure(std::string_view verb, const fs::path& path, std::error_code reason) {
  return vb::Failure(vb::kPathFileAccess, u"Cannot " + vb::FromUtf8(verb) + u" " +
                                              vb::FromUtf8(path.generic_string()) + u": " +
                                              vb::FromUtf8(reason.message()));
}

namespace {

[[maybe_unused]] std::error_code LastError() { return {errno, std::generic_category()}; }

// "<folder>/.<name>.<tag><random>": hidden, beside `path`, unlikely to be taken.
fs::path UniqueBeside(const fs::path& path, std::string_view tag) {
  static std::mt19937_64 random{std::random_device{}()};
  return path.parent_path() / ("." + path.filename().string() + "." + std::string(tag) +
                               std::to_string(random() % 1000000000));
}

constexpr int kAttempts = 100;

class Disk final : public FileSystem {
 public:
  bool Exists(const fs::path& path) override {
    std::error_code error;
    return fs::exists(fs::symlink_status(path, error));
  }

  fs::path Target(const fs::path& path) override {
    fs::path current = path;
    for (int depth = 0; depth < 40; ++depth) {
      std::error_code error;
      if (!fs::is_symlink(fs::symlink_status(current, error))) return current;
      const fs::path next = fs::read_symlink(current, error);
      if (error) throw FileFailure("read the link", current, error);
      current = next.is_absolute() ? next : current.parent_path() / next;
    }
    throw FileFailure("follow the link", path, std::make_error_code(std::errc::too_many_links));
  }

  void CreateFolder(const fs::path& folder) override {
    std::error_code error;
    fs::create_directory(folder, error);
    if (error) throw FileFailure("create the folder", folder, error);
  }

  void RemoveEmptyFolder(const fs::path& folder) noexcept override {
    std::error_code error;
    if (fs::is_empty(folder, error) && !error) fs::remove(folder, error);
  }

  fs::path WriteTemporary(const fs::path& target, std::string_view bytes) override {
#if !defined(_WIN32)
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
      const fs::path temp = UniqueBeside(target, "new");
      const int fd = ::open(temp.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
      if (fd < 0 && errno == EEXIST) continue;
      if (fd < 0) throw FileFailure("write", target, LastError());
      std::error_code error = FillAndSync(fd, target, bytes);
      if (::close(fd) != 0 && !error) error = LastError();
      if (error) {
        ::unlink(temp.c_str());
        throw FileFailure("write", target, error);
      }
      return temp;
    }
    throw FileFailure("write", target, std::make_error_code(std::errc::file_exists));
#else
    const fs::path temp = UniqueBeside(target, "new");
    std::ofstream out(temp, std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    out.close();
    std::error_code error;
    if (!out) {
      fs::remove(temp, error);
      throw FileFailure("write", target, std::make_error_code(std::errc::io_error));
    }
    if (fs::exists(target, error))
      fs::permissions(temp, fs::status(target, error).permissions(), error);
    return temp;
#endif
  }

  fs::path KeepBackup(const fs::path& path) override {
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
      const fs::path backup = UniqueBeside(path, "old");
      if (Exists(backup)) continue;
      std::error_code error;
      // A second link costs nothing; a file system without them gets a copy.
      fs::create_hard_link(path, backup, error);
      if (error) fs::copy_file(path, backup, error);
      if (error) throw FileFailure("keep a copy of", path, error);
      return backup;
    }
    throw FileFailure("keep a copy of", path, std::make_error_code(std::errc::file_exists));
  }

  void Rename(const fs::path& from, const fs::path& to) override {
    std::error_code error;
    fs::rename(from, to, error);
    if (error) throw FileFailure("replace", to, error);
  }

  void Remove(const fs::path& path) noexcept override {
    std::error_code error;
    fs::remove(path, error);
  }

  void SyncFolder([[maybe_unused]] const fs::path& folder) noexcept override {
#if !defined(_WIN32)
    const int fd =
        ::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0) return;
    ::fsync(fd);
    ::close(fd);
#endif
  }

 private:
#if !defined(_WIN32)
  // Writes every byte, gives the file the old file's mode and owner, and
  // flushes it. The owner is kept where the user may set it (as root, or
  // the same owner); elsewhere the new file is the user's, as any new file.
  static std::error_code FillAndSync(int fd, const fs::path& target, std::string_view bytes) {
    while (!bytes.empty()) {
      const auto written = ::write(fd, bytes.data(), bytes.size());
      if (written < 0 && errno == EINTR) continue;
      if (written < 0) return LastError();
      bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    struct stat old {};
    if (::stat(target.c_str(), &old) == 0) {
      if (::fchmod(fd, old.st_mode & 07777) != 0) return LastError();
      [[maybe_unused]] const int ignored = ::fchown(fd, old.st_uid, old.st_gid);
    }
    if (::fsync(fd) != 0) return LastError();
    return {};
  }
#endif
};

}  // namespace

FileSystem& DiskFileSystem() {
  static Disk disk;
  return disk;
}

}  // namespace vbfiles
