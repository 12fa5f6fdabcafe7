// Algebra files: topics, subtopics, equations and comments as a flat list of entries, read and
// written as single-byte text with CR LF line ends.
#include "shell/algebra_file.h"

#include <cstdio>
#include <fstream>
#include <sstream>

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
    std::size_t end = bytes.find('\n', start);
    std::string line = bytes.substr(start, end == std::string::npos ? end : end - start);
    start = end == std::string::npos ? bytes.size() : end + 1;
    if (!line.empty() && line.back() == '\r') line.pop_back();
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
  std::ifstream in(path, std::ios::binary);
  if (path.empty() || !in) {
    s.FileName.clear();
    outcome.problem = path.empty() ? "" : "The file " + path + " could not be opened.";
    outcome.ok = path.empty();
    return outcome;
  }
  std::ostringstream content;
  content << in.rdbuf();
  bool ok = false;
  std::vector<std::string> entries = EntriesFromBytes(content.str(), s.Dp(), ok);
  if (!ok) {
    s.FileName.clear();
    outcome.problem = "The file " + path +
                      " is not an algebra file the tutor can read (it must begin with Topic:, "
                      "SubTop:, Eqn: or Comment:, and hold at most 1000 entries).";
    return outcome;
  }
  s.ListEntries = std::move(entries);
  outcome.ok = true;
  return outcome;
}

bool WriteAlgebraFile(const Session& s, const std::string& path) {
  if (path.empty()) return false;
  const std::string temporary = path + ".saving";
  {
    std::ofstream out(temporary, std::ios::binary | std::ios::trunc);
    if (!out) return false;
    out << BytesFromEntries(s.ListEntries);
    out.flush();
    if (!out) {
      std::remove(temporary.c_str());
      return false;
    }
  }
  if (std::rename(temporary.c_str(), path.c_str()) != 0) {
    std::remove(temporary.c_str());
    return false;
  }
  return true;
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
