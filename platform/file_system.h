// What the tutor asks of the file system beyond standard C++: facts about a path, the file a
// symbolic link names, and a new file written so that it has reached the disk.
#pragma once

#include <string>

namespace tavimor {

struct PathFacts {
  bool exists = false;
  bool regular = false;  // a regular file
  bool folder = false;
  bool writable = false;  // this user may replace it
  int write_error = 0;    // why not: the system's error number
  unsigned mode = 0;      // its permission bits
};

// The facts of the path itself, its symbolic links followed.
PathFacts FactsOf(const std::string& path);
// The file a path names through its symbolic links (a dangling link names its target too).
std::string LinkTarget(const std::string& path);
// Writes `bytes` to a file that must not exist yet, with the permission bits `mode` (set exactly
// when `exact_mode`, else as the umask allows), and flushes it to the disk. Returns 0, or the
// system's error number; a file it could not finish is removed.
int WriteNewFileToDisk(const std::string& path, const std::string& bytes, unsigned mode,
                       bool exact_mode);
// The folder the running program stands in; empty if it cannot be found.
std::string ProgramDirectory();
// Removes a file (never a folder); false when there was none or it could not go.
bool RemoveFile(const std::string& path);
// Flushes a folder's entries to the disk, so that a rename in it lasts.
void FlushFolder(const std::string& folder);

}  // namespace tavimor
