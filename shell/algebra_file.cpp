// Algebra files: topics, subtopics, equations and comments as a flat list of entries, read and
// written as single-byte text with CR LF line ends.
#include "shell/algebra_file.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fstream>

#include "platform/file_system.h"
#include "present/text_picture.h"

namespace tavimor {

namespace {

constexpr std::array<const char*, 4> kKeys = {"Topic:", "SubTop:", "Eqn:", "Comment:"};

bool BeginsEntry(const std::string& line) {
  for (const char* key : kKeys) {
    if (line.rfind(key, 0) == 0) return true;
  }
  return false;
}

// Windows-1252 code points of the bytes 0x80 to 0x9F; the five undefined bytes keep their value.
constexpr std::array<char32_t, 32> kHigh = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

bool Contains(const std::string& entry, const char* key) {
  return entry.find(key) != std::string::npos;
}

}  // namespace

std::string Utf8FromWindows1252(const std::string& bytes) {
  std::u32string text;
  for (const char b : bytes) {
    const auto c = static_cast<unsigned char>(b);
    text += (c >= 0x80 && c < 0xA0) ? kHigh[c - 0x80] : static_cast<char32_t>(c);
  }
  return Utf8(text);
}

std::string Windows1252FromUtf8(const std::string& text) {
  std::string out;
  for (const char32_t c : Utf32(text)) {
    if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) {
      out += static_cast<char>(c);
      continue;
    }
    char byte = '?';  // a sign the single-byte text cannot hold
    for (std::size_t k = 0; k < kHigh.size(); ++k) {
      if (kHigh[k] == c) byte = static_cast<char>(0x80 + k);
    }
    out += byte;
  }
  return out;
}

std::vector<std::string> EntriesFromBytes(const std::string& bytes, char decimal_point, bool& ok) {
  std::vector<std::string> entries;
  ok = true;
  std::size_t start = 0;
  while (start < bytes.size()) {
    // A line ends at CR LF, LF or a lone CR.
    const std::size_t end = bytes.find_first_of("\r\n", start);
    std::string line = bytes.substr(start, end == std::string::npos ? end : end - start);
    start = end == std::string::npos                                                 ? bytes.size()
            : bytes[end] == '\r' && end + 1 < bytes.size() && bytes[end + 1] == '\n' ? end + 2
                                                                                     : end + 1;
    line = Utf8FromWindows1252(line);
    if (line.rfind("Eqn:", 0) == 0) {
      // The decimal separator of this machine, blindly over the whole line.
      for (char& c : line) {
        if (decimal_point == ',' && c == '.') c = ',';
        if (decimal_point == '.' && c == ',') c = '.';
      }
    }
    if (BeginsEntry(line)) {
      if (static_cast<int>(entries.size()) >= kListCapacity) {
        ok = false;
        return {};
      }
      entries.push_back(line);
    } else if (entries.empty()) {
      ok = false;  // a first line that begins no entry
      return {};
    } else {
      entries.back() += "\r\n" + line;
    }
  }
  return entries;
}

std::string BytesFromEntries(const std::vector<std::string>& entries) {
  std::string bytes;
  for (const std::string& entry : entries) bytes += Windows1252FromUtf8(entry) + "\r\n";
  return bytes;
}

ReadOutcome ReadAlgebraFile(Session& s, const std::string& path) {
  s.ListEntries.clear();
  ReadOutcome outcome;
  if (path.empty()) {
    s.FileName.clear();
    outcome.ok = true;
    return outcome;
  }
  const auto refuse = [&](const std::string& problem) {
    s.FileName.clear();
    outcome.problem = problem;
    return outcome;
  };
  if (const PathFacts facts = FactsOf(path); facts.exists && !facts.regular) {
    return refuse("The file " + path + " could not be opened: " +
                  (facts.folder ? "it is a folder." : "it is not a regular file."));
  }
  std::ifstream in(path, std::ios::binary);
  if (!in) return refuse("The file " + path + " could not be opened.");
  std::string content;
  char buffer[65536];
  while (in.read(buffer, sizeof buffer) || in.gcount() > 0) {
    content.append(buffer, static_cast<std::size_t>(in.gcount()));
    if (content.size() > kMaxFileBytes) {
      return refuse("The file " + path + " is larger than " +
                    std::to_string(kMaxFileBytes / (1024 * 1024)) +
                    " MB, more than an algebra file can be.");
    }
  }
  bool ok = false;
  std::vector<std::string> entries = EntriesFromBytes(content, s.Dp(), ok);
  if (!ok) {
    return refuse("The file " + path +
                  " is not an algebra file the tutor can read (it must begin with Topic:, "
                  "SubTop:, Eqn: or Comment:, and hold at most 1000 entries).");
  }
  s.ListEntries = std::move(entries);
  outcome.ok = true;
  return outcome;
}

namespace {

std::string FolderOf(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  if (slash == std::string::npos) return ".";
  return slash == 0 ? "/" : path.substr(0, slash);
}

bool Fail(std::string* reason, const std::string& text) {
  if (reason != nullptr) *reason = text;
  return false;
}

}  // namespace

std::string SaveFailureReason(int error, const std::string& path) {
  switch (error) {
    case EACCES:
    case EPERM: return "The file " + path + " or its folder is read-only.";
    case EROFS: return "The file " + path + " is on a read-only disk.";
    case ENOSPC:
    case EDQUOT: return "The disk is full.";
    case ENOENT:
    case ENOTDIR: return "The folder " + FolderOf(path) + " does not exist.";
    case EISDIR: return path + " is a folder.";
    default: return std::string("The system says: ") + std::strerror(error) + ".";
  }
}

bool WriteAlgebraFile(const Session& s, const std::string& path, std::string* reason) {
  if (path.empty()) return Fail(reason, "No file name was given.");
  if (static_cast<int>(s.ListEntries.size()) > kListCapacity) {
    return Fail(reason, "The list holds more than 1000 entries, more than a file can hold.");
  }
  const std::string target = LinkTarget(path);
  unsigned mode = 0666;  // a new file: as the umask allows
  bool keep_mode = false;
  if (const PathFacts facts = FactsOf(target); facts.exists) {
    if (facts.folder) return Fail(reason, SaveFailureReason(EISDIR, target));
    if (!facts.regular) return Fail(reason, target + " is not a regular file.");
    // A read-only file is not replaced behind its owner's back.
    if (!facts.writable) return Fail(reason, SaveFailureReason(facts.write_error, target));
    mode = facts.mode;
    keep_mode = true;
  }
  if (!FactsOf(FolderOf(target)).folder) return Fail(reason, SaveFailureReason(ENOENT, target));
  // A temporary file left by a killed save is removed first, whatever it is.
  const std::string temporary = target + ".saving";
  RemoveFile(temporary);
  if (const int error =
          WriteNewFileToDisk(temporary, BytesFromEntries(s.ListEntries), mode, keep_mode);
      error != 0) {
    return Fail(reason, SaveFailureReason(error, target));
  }
  if (std::rename(temporary.c_str(), target.c_str()) != 0) {
    const int error = errno;
    RemoveFile(temporary);
    return Fail(reason, SaveFailureReason(error, target));
  }
  // The rename itself reaches the disk with its folder.
  FlushFolder(FolderOf(target));
  return true;
}

std::string FileNotSavedText(const std::string& reason) {
  return reason.empty() ? "File not saved." : "File not saved.  " + reason;
}

bool ListHasRoomForProblem(const Session& s) {
  return static_cast<int>(s.ListEntries.size()) + 2 <= kListCapacity;
}

std::string ListFullText() {
  return "The problem is not added to the list: it holds " + std::to_string(kListCapacity - 1) +
         " entries or more, and a file holds at most " + std::to_string(kListCapacity) +
         ".  Save the list and start a new file for more problems.";
}

int FindProblemEntry(const Session& s, const std::string& text) {
  const std::vector<std::string>& entries = s.ListEntries;
  for (std::size_t i = 0; i < entries.size(); ++i) {
    // The entry's text from position 5 without its blanks, compared in place.
    const std::string& entry = entries[i];
    std::size_t k = 0;
    bool same = true;
    for (std::size_t at = 4; at < entry.size() && same; ++at) {
      if (entry[at] == ' ') continue;
      same = k < text.size() && entry[at] == text[k];
      ++k;
    }
    if (same && k == text.size()) return static_cast<int>(i);
  }
  return -1;
}

std::string CommentOfProblem(const Session& s, int position) {
  const auto next = static_cast<std::size_t>(position) + 1;
  if (position < 0 || next >= s.ListEntries.size()) return "";
  const std::string& entry = s.ListEntries[next];
  return entry.rfind("Comment:", 0) == 0 ? entry.substr(8) : "";
}

std::string AskSaveChangesText(const Session& s) {
  return s.FileName.empty() ? "The contents of the Listbox has never been saved.  Save it?"
                            : "The algebra file has changed.  Save the changes?";
}

bool HasUnsavedChanges(const Session& s) { return s.ListEditedFlag || s.EqnAddedFlag; }

void AddRecentFile(std::array<std::string, 4>& recent, const std::string& name) {
  int match = -1;
  for (int i = 0; i < 4; ++i) {
    if (recent[static_cast<std::size_t>(i)] == name) {
      match = i;
      break;
    }
  }
  if (match == 0) return;
  const int last = (match == -1 || match == 3) ? 3 : match;  // the places above it move down
  for (int i = last; i > 0; --i) {
    recent[static_cast<std::size_t>(i)] = recent[static_cast<std::size_t>(i - 1)];
  }
  recent[0] = name;
}

std::vector<Heading> LoadTopics(const Session& s) {
  std::vector<Heading> topics;
  for (std::size_t i = 0; i < s.ListEntries.size(); ++i) {
    const std::string& entry = s.ListEntries[i];
    // The display tests by substring, not by prefix, as the reader does not.
    if (Contains(entry, "Topic:")) {
      topics.push_back({entry.size() > 6 ? entry.substr(6) : "", static_cast<int>(i + 1)});
    }
  }
  return topics;
}

std::vector<Heading> LoadSubTopics(const Session& s, const std::vector<Heading>& topics,
                                   int topic) {
  std::vector<Heading> subtopics;
  if (topic < 1 || topic > static_cast<int>(topics.size())) return subtopics;
  const int first = topics[static_cast<std::size_t>(topic - 1)].position + 1;
  const int last = topic < static_cast<int>(topics.size())
                       ? topics[static_cast<std::size_t>(topic)].position - 1
                       : static_cast<int>(s.ListEntries.size());
  for (int i = first; i <= last; ++i) {
    const std::string& entry = s.ListEntries[static_cast<std::size_t>(i - 1)];
    if (Contains(entry, "SubTop:")) {
      subtopics.push_back({entry.size() > 7 ? entry.substr(7) : "", i});
    }
  }
  return subtopics;
}

void LoadEqns(Session& s, int start) {
  s.Form.equation_box_items.clear();
  const int count = static_cast<int>(s.ListEntries.size());
  int stop = count + 1;
  for (int i = std::max(start, 1); i <= count; ++i) {
    const std::string& entry = s.ListEntries[static_cast<std::size_t>(i - 1)];
    if (Contains(entry, "Topic:") || Contains(entry, "SubTop:")) {
      stop = i;
      break;
    }
    if (Contains(entry, "Eqn:")) {
      s.Form.equation_box_items.push_back(entry.size() > 4 ? entry.substr(4) : "");
    }
  }
  s.EqnInsertPos = static_cast<std::int16_t>(stop);
  s.Form.equation_box_selected = s.Form.equation_box_items.empty() ? -1 : 0;
  s.Form.equation_box_text =
      s.Form.equation_box_items.empty() ? "" : s.Form.equation_box_items.front();
  s.Form.Button("cmdNextEquation").enabled = s.Form.equation_box_items.size() > 1;
  s.Form.visible_panel = -1;
}

}  // namespace tavimor
