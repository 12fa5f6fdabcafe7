// Algebra files: topics, subtopics, equations and comments as a flat list of entries, read and
// written as single-byte text with CR LF line ends.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "core/session.h"

namespace tavimor {

inline constexpr int kListCapacity = 1000;
// The largest file the reader takes: far more than 1000 entries with long comments need.
inline constexpr std::size_t kMaxFileBytes = 16u * 1024 * 1024;

// The outcome of reading a file. A file that could not be read gives an empty list, no file
// name, and a sentence for the student.
struct ReadOutcome {
  bool ok = false;
  std::string problem;
};

// Replaces the list with the file's entries. Lines (ended by CR LF, LF or a lone CR) that begin
// with "Topic:", "SubTop:", "Eqn:" or "Comment:" begin entries; other lines continue the entry
// before, behind CR LF. The first line of an "Eqn:" entry takes the session's decimal
// separator. An empty name gives an empty list; a file that cannot be opened, is no regular
// file, is larger than kMaxFileBytes, has a first line with no key or a 1001st entry gives an
// empty list and a sentence saying why.
ReadOutcome ReadAlgebraFile(Session& s, const std::string& path);
// Writes the list to the file through a temporary file beside it, flushed to disk and renamed
// over the old one, so an interrupted save leaves the old file whole. A symbolic link is
// followed to the file it names, the file keeps its permissions, and a temporary file left by a
// killed save is replaced. False when the file could not be written, with a sentence in
// `reason` saying why (read-only, disk full, no such folder, a folder in its place).
bool WriteAlgebraFile(const Session& s, const std::string& path, std::string* reason = nullptr);
// The sentence for a save that failed with the system's error number.
std::string SaveFailureReason(int error, const std::string& path);
// "File not saved." and, when known, why.
std::string FileNotSavedText(const std::string& reason);

// Whether two more entries (a typed problem and its comment) fit in the list, and the sentence
// that refuses them when they do not.
bool ListHasRoomForProblem(const Session& s);
std::string ListFullText();
// The position (0-based) of the entry whose text from position 5, without blanks, is `text`,
// or -1; and the comment of the entry at that position: the next entry's text when it is a
// "Comment:" entry, else empty.
int FindProblemEntry(const Session& s, const std::string& text);
std::string CommentOfProblem(const Session& s, int position);

// The entries as text lines and back, with the same rules; the text is single-byte, the list
// holds UTF-8.
std::vector<std::string> EntriesFromBytes(const std::string& bytes, char decimal_point, bool& ok);
std::string BytesFromEntries(const std::vector<std::string>& entries);
std::string Utf8FromWindows1252(const std::string& bytes);
std::string Windows1252FromUtf8(const std::string& text);

// The question before the list is dropped or replaced, for an unnamed or a named file.
std::string AskSaveChangesText(const Session& s);
bool HasUnsavedChanges(const Session& s);

// The four recent files: a name comes to the top, the others move down.
void AddRecentFile(std::array<std::string, 4>& recent, const std::string& name);

// The topic display: each heading's caption and its entry's position (1-based).
struct Heading {
  std::string caption;
  int position = 0;
};
std::vector<Heading> LoadTopics(const Session& s);
std::vector<Heading> LoadSubTopics(const Session& s, const std::vector<Heading>& topics, int topic);
// Fills the equation box from the entry `start` on, up to the next heading; the insert position
// of a typed problem is where the scan stopped.
void LoadEqns(Session& s, int start);

}  // namespace tavimor
