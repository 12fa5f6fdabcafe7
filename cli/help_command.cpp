// The terminal's help: a help page printed as text, and the index of the algebra pages.
#include "cli/help_command.h"

#include <cstdlib>
#include <ostream>

#include "cli/terminal_frontend.h"
#include "cli/tree_command.h"
#include "shell/help_pages.h"
#include "shell/help_topics.h"

namespace tavimor {

void PrintHelpPageFile(const Session& s, const std::string& path, std::ostream& out,
                       std::ostream& err) {
  const std::optional<std::string> html = ReadHelpPage(path);
  if (!html) {
    err << "The help page " << PrintableText(path) << " could not be read.\n";
    return;
  }
  out << PrintableText(HelpPageAsText(s, *html)) << std::flush;
}

bool PrintHelpIndex(const Session& s, std::ostream& out, std::ostream& err) {
  const std::vector<HelpIndexEntry> pages = HelpPageIndex(AlgebraHelpFolder(s.Help));
  if (pages.empty()) {
    err << "No help pages were found.\n";
    return false;
  }
  for (const HelpIndexEntry& page : pages) {
    const std::string number = std::to_string(page.number);
    out << std::string(number.size() < 5 ? 5 - number.size() : 0, ' ') << number << "  "
        << PrintableText(page.title) << '\n';
  }
  return true;
}

int RunHelpCommand(Session& s, const std::vector<std::string>& words, std::ostream& out,
                   std::ostream& err) {
  if (words.empty() || (words.size() == 1 && words[0] == "index")) {
    return PrintHelpIndex(s, out, err) ? kExitOk : kExitRefused;
  }
  if (words.size() == 1 && words[0] == "program") {
    const std::string path = ProgramHelpPath(s.Help);
    if (path.empty() || !ReadHelpPage(path)) {
      err << "The program's help page was not found.\n";
      return kExitRefused;
    }
    PrintHelpPageFile(s, path, out, err);
    return kExitOk;
  }
  const std::string& word = words[0];
  if (words.size() != 1 || word.empty() || word.size() > 5 ||
      word.find_first_not_of("0123456789") != std::string::npos) {
    err << "help takes the number of a help topic, \"index\" or \"program\".\n";
    return kExitUsage;
  }
  const int number = std::atoi(word.c_str());
  if (!ShowHelp(s, number)) {
    err << "There is no help page for topic " << number << ".\n";
    return kExitRefused;
  }
  return kExitOk;
}

}  // namespace tavimor
