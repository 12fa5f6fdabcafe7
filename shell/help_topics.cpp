// The help topic map beside the executable, and how a help number becomes the page shown.
#include "shell/help_topics.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <vector>

#include "platform/file_system.h"

namespace tavimor {

namespace {

std::string Trim(const std::string& text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string::npos) return "";
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string Lower(std::string text) {
  for (char& c : text) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return text;
}

std::string Unquote(const std::string& value) {
  if (value.size() >= 2 && value.front() == '"' && value.back() == '"') {
    return value.substr(1, value.size() - 2);
  }
  return value;
}

// The lines that count: comments and carriage returns gone, tabs as blanks, trimmed, not blank.
std::vector<std::string> MapLines(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  std::string line;
  while (std::getline(in, line)) {
    if (const std::size_t quote = line.find('\''); quote != std::string::npos) line.resize(quote);
    std::replace(line.begin(), line.end(), '\t', ' ');
    std::replace(line.begin(), line.end(), '\r', ' ');
    line = Trim(line);
    if (!line.empty()) lines.push_back(line);
  }
  return lines;
}

// A whole number of at most five digits; -1 for anything else.
int ReadNumber(const std::string& text) {
  if (text.empty() || text.size() > 5) return -1;
  if (text.find_first_not_of("0123456789") != std::string::npos) return -1;
  return std::atoi(text.c_str());
}

// Splits "left << right", or "left right" when `blanks` allows a blank as the separator.
bool SplitEntry(const std::string& line, bool blanks, std::string& left, std::string& right) {
  std::size_t at = line.find("<<");
  std::size_t width = 2;
  if (at == std::string::npos) {
    if (!blanks) return false;
    at = line.find(' ');
    width = 1;
    if (at == std::string::npos) return false;
  }
  left = Trim(line.substr(0, at));
  right = Trim(line.substr(at + width));
  return !left.empty() && !right.empty();
}

HelpSystem* FindSystem(HelpTables& tables, const std::string& name) {
  for (HelpSystem& system : tables.HelpSystems) {
    if (Lower(system.name) == Lower(name)) return &system;
  }
  return nullptr;
}

void ReplaceAll(std::string& text, const std::string& what, const std::string& with) {
  for (std::size_t at = text.find(what); at != std::string::npos;
       at = text.find(what, at + with.size())) {
    text.replace(at, what.size(), with);
  }
}

}  // namespace

HelpTables ReadHelpTopics(const std::string& text, const std::string& app_dir) {
  HelpTables tables;
  enum class Section { None, Systems, Roots, Pages };
  Section section = Section::None;
  HelpSystem* current = nullptr;
  for (const std::string& line : MapLines(text)) {
    if (line.front() == '[' && line.back() == ']') {
      const std::string name = Trim(line.substr(1, line.size() - 2));
      current = nullptr;
      if (Lower(name) == "the help systems") {
        section = Section::Systems;
      } else if (Lower(name) == "root directory of each help system") {
        section = Section::Roots;
      } else {
        current = FindSystem(tables, name);
        section = current != nullptr ? Section::Pages : Section::None;
      }
      continue;
    }
    std::string left;
    std::string right;
    switch (section) {
      case Section::None: break;
      case Section::Systems: {
        if (!SplitEntry(line, false, left, right)) break;
        const int highest = ReadNumber(right);
        if (highest < 0 || highest > 32767) break;
        if (tables.HelpSystems.size() >= kMaxHelpSystems) break;
        if (FindSystem(tables, left) != nullptr) break;
        tables.HelpSystems.push_back({left, "", static_cast<std::int16_t>(highest), {}});
        break;
      }
      case Section::Roots: {
        const std::size_t equals = line.find('=');
        if (equals == std::string::npos) break;
        HelpSystem* system = FindSystem(tables, Trim(line.substr(0, equals)));
        if (system == nullptr) break;
        std::string value = Unquote(Trim(line.substr(equals + 1)));
        ReplaceAll(value, "<app dir>", app_dir);
        system->root = value;
        break;
      }
      case Section::Pages: {
        if (!SplitEntry(line, true, left, right)) break;
        const int number = ReadNumber(left);
        if (number < 0 || number > current->max_number) break;
        current->pages[number] = Unquote(right);
        break;
      }
    }
  }
  return tables;
}

void LoadHelpTopics(Session& s, const std::string& app_dir) {
  s.Help = HelpTables{};
  std::ifstream in(app_dir + "/" + kHelpMapFileName, std::ios::binary);
  if (!in) return;
  std::ostringstream text;
  text << in.rdbuf();
  s.Help = ReadHelpTopics(text.str(), app_dir);
}

std::string HelpPagePath(const HelpTables& tables, int help_number) {
  if (help_number <= 0) return "";
  for (const HelpSystem& system : tables.HelpSystems) {
    if (help_number > system.max_number) continue;
    const auto page = system.pages.find(help_number);
    if (page == system.pages.end() || page->second.empty()) continue;
    const std::string& root = system.root;
    const bool joined = root.empty() || root.back() == '/' || root.back() == '\\';
    return root + (joined ? "" : "/") + page->second;
  }
  return "";
}

bool ShowHelp(Session& s, int help_number) {
  const std::string path = HelpPagePath(s.Help, help_number);
  if (path.empty()) return false;
  const bool compiled = path.find("::") != std::string::npos ||
                        (path.size() >= 4 && Lower(path.substr(path.size() - 4)) == ".chm");
  if (compiled || !FactsOf(path).regular) return false;
  s.Screen().OpenHelpPage(path);
  return true;
}

std::string HelpSystemRoot(const HelpTables& tables, const std::string& name) {
  for (const HelpSystem& system : tables.HelpSystems) {
    if (Lower(system.name) == Lower(name)) return system.root;
  }
  return "";
}

std::string ProgramHelpPath(const HelpTables& tables) {
  const std::string root = HelpSystemRoot(tables, kProgramHelpSystem);
  if (root.empty()) return "";
  return root + (root.back() == '/' ? "" : "/") + kProgramHelpPage;
}

std::string AlgebraHelpFolder(const HelpTables& tables) {
  return HelpSystemRoot(tables, kAlgebraHelpSystem);
}

}  // namespace tavimor
