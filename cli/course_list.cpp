// The open algebra file as the terminal shows it: its topics, subtopics, problems and comments.
#include "cli/course_list.h"

#include <ostream>

#include "cli/terminal_frontend.h"

namespace tavimor {

namespace {

std::string FirstLine(const std::string& text) { return text.substr(0, text.find("\r\n")); }

}  // namespace

void PrintCourse(const Session& s, std::ostream& out, bool numbered) {
  int depth = 0;
  int problem = 0;
  const auto comment_lines = [&out](const std::string& text, int indent) {
    std::size_t start = 0;
    while (start <= text.size()) {
      const std::size_t end = text.find("\r\n", start);
      const std::string line = text.substr(start, end == std::string::npos ? end : end - start);
      out << std::string(static_cast<std::size_t>(indent), ' ') << "# " << PrintableText(line)
          << '\n';
      if (end == std::string::npos) break;
      start = end + 2;
    }
  };
  for (const std::string& entry : s.ListEntries) {
    if (entry.rfind("Topic:", 0) == 0) {
      depth = 1;
      out << PrintableText(FirstLine(entry.substr(6))) << '\n';
    } else if (entry.rfind("SubTop:", 0) == 0) {
      depth = 2;
      out << "  " << PrintableText(FirstLine(entry.substr(7))) << '\n';
    } else if (entry.rfind("Eqn:", 0) == 0) {
      out << std::string(static_cast<std::size_t>(2 * depth), ' ');
      if (numbered) out << ++problem << ". ";
      out << PrintableText(FirstLine(entry.substr(4))) << '\n';
    } else if (entry.rfind("Comment:", 0) == 0 && entry.size() > 8) {
      comment_lines(entry.substr(8), 2 * depth + 2);
    }
  }
}

std::vector<std::string> CourseProblems(const Session& s) {
  std::vector<std::string> problems;
  for (const std::string& entry : s.ListEntries) {
    if (entry.rfind("Eqn:", 0) == 0) problems.push_back(FirstLine(entry.substr(4)));
  }
  return problems;
}

}  // namespace tavimor
