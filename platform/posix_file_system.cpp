// The file system on POSIX systems: stat, readlink, open with O_EXCL, fsync.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>

#include "platform/file_system.h"

namespace tavimor {

PathFacts FactsOf(const std::string& path) {
  PathFacts facts;
  struct stat info {};
  if (::stat(path.c_str(), &info) != 0) return facts;
  facts.exists = true;
  facts.regular = S_ISREG(info.st_mode);
  facts.folder = S_ISDIR(info.st_mode);
  facts.writable = ::access(path.c_str(), W_OK) == 0;
  if (!facts.writable) facts.write_error = errno;
  facts.mode = info.st_mode & 07777;
  return facts;
}

std::string ProgramDirectory() {
  char buffer[PATH_MAX];
  const ssize_t length = ::readlink("/proc/self/exe", buffer, sizeof buffer - 1);
  if (length <= 0) return "";
  const std::string program(buffer, static_cast<std::size_t>(length));
  const std::size_t slash = program.rfind('/');
  return slash == std::string::npos ? "" : program.substr(0, slash);
}

std::string LinkTarget(const std::string& path) {
  std::string target = path;
  for (int depth = 0; depth < 40; ++depth) {
    char buffer[PATH_MAX];
    const ssize_t length = ::readlink(target.c_str(), buffer, sizeof buffer - 1);
    if (length < 0) break;
    std::string next(buffer, static_cast<std::size_t>(length));
    if (next.empty()) break;
    if (next[0] != '/') {
      const std::size_t slash = target.rfind('/');
      if (slash != std::string::npos) next = target.substr(0, slash + 1) + next;
    }
    target = next;
  }
  return target;
}

int WriteNewFileToDisk(const std::string& path, const std::string& bytes, unsigned mode,
                       bool exact_mode) {
  const int fd =
      ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, static_cast<mode_t>(mode));
  if (fd < 0) return errno;
  const auto abandon = [&](int error) {
    ::close(fd);
    ::unlink(path.c_str());
    return error;
  };
  for (std::size_t done = 0; done < bytes.size();) {
    const ssize_t written = ::write(fd, bytes.data() + done, bytes.size() - done);
    if (written < 0) {
      if (errno == EINTR) continue;
      return abandon(errno);
    }
    done += static_cast<std::size_t>(written);
  }
  if (exact_mode && ::fchmod(fd, static_cast<mode_t>(mode)) != 0) return abandon(errno);
  if (::fsync(fd) != 0) return abandon(errno);
  if (::close(fd) != 0) {
    const int error = errno;
    ::unlink(path.c_str());
    return error;
  }
  return 0;
}

bool RemoveFile(const std::string& path) { return ::unlink(path.c_str()) == 0; }

void FlushFolder(const std::string& folder) {
  const int fd = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (fd >= 0) {
    ::fsync(fd);
    ::close(fd);
  }
}

}  // namespace tavimor
