// tavimor-cli: the terminal tutor, running the same engines as the desktop window.
#include <iostream>
#include <string>
#include <vector>

#include <unistd.h>

#include "cli/terminal_frontend.h"
#include "cli/tree_command.h"
#include "core/session.h"
#include "shell/option_keys.h"

namespace tavimor {
namespace {

constexpr const char* kUsage =
    R"(Usage:
  tavimor-cli [OPTIONS] tree ITEM
  tavimor-cli [OPTIONS]            (reads items one per line and shows their trees)

Commands:
  tree ITEM   Checks ITEM as the OK button does. A refused item prints its message
              on standard error and exits with status 2. An accepted item is parsed,
              its numbers normalised and its text regenerated as a load does; then
              the tree of the left side is printed, and for an equation a line "="
              and the tree of the right side. The items of a set of equations are
              separated by a line ";". One node per line: two blanks of indentation
              per level, then the Role code, the Kind code, five blanks and the
              node's Text; a blank code shows as a pilcrow.

Options:
  --set KEY=VALUE   Sets an option by its settings key, for example
                    --set "Special P=True"  --set "Complex form=1"  --set Unknown=t
                    Flags take True or False; numbers must lie in the range the
                    options dialog offers. May be given more than once.
  --decimal-comma   Numbers are written with "," as the decimal separator.
  --help            Shows this text.

The tutor starts from the first-run options, never from saved settings, so that
its output is the same on every machine.

Exit status: 0 done, 2 item refused (its message is on standard error),
64 a mistake on the command line.

Option keys:
)";

int Usage(const std::string& problem) {
  std::cerr << "tavimor-cli: " << problem << "\nTry 'tavimor-cli --help'.\n";
  return kExitUsage;
}

// Items typed one per line; each is shown as the tree command shows it.
int Interactive(Session& s) {
  const bool terminal = isatty(STDIN_FILENO) != 0;
  if (terminal) {
    std::cout << "The Tavimor: type an expression or an equation to see how it is read.\n"
                 "An empty line or end of input ends the session.\n";
  }
  std::string line;
  for (;;) {
    if (terminal) std::cout << "> " << std::flush;
    if (!std::getline(std::cin, line)) break;
    if (line.find_first_not_of(' ') == std::string::npos) {
      if (terminal) break;
      continue;
    }
    RunTreeCommand(s, line, std::cout);
    std::cout << std::flush;
  }
  return kExitOk;
}

int Main(int argc, char** argv) {
  TerminalFrontend frontend;
  Session s(frontend);
  s.SetFirstRunOptions();
  std::vector<std::string> args(argv + 1, argv + argc);
  std::size_t i = 0;
  for (; i < args.size(); ++i) {
    const std::string& arg = args[i];
    if (arg == "--help" || arg == "-h") {
      std::cout << kUsage;
      for (const std::string& key : OptionKeys()) {
        std::cout << "  " << key << " (first run: " << OptionText(s, key) << ")\n";
      }
      return kExitOk;
    }
    if (arg == "--decimal-comma") {
      s.DecimalPoint = ",";
    } else if (arg == "--set" || arg.rfind("--set=", 0) == 0) {
      std::string setting;
      if (arg == "--set") {
        if (++i >= args.size()) return Usage("--set needs KEY=VALUE.");
        setting = args[i];
      } else {
        setting = arg.substr(6);
      }
      const std::size_t equals = setting.find('=');
      if (equals == std::string::npos)
        return Usage("--set needs KEY=VALUE, not \"" + setting + "\".");
      std::string error;
      if (!SetOptionFromText(s, setting.substr(0, equals), setting.substr(equals + 1), true,
                             error)) {
        return Usage(error);
      }
    } else if (arg.rfind("--", 0) == 0) {
      return Usage("unknown option " + arg + ".");
    } else {
      break;
    }
  }
  if (i == args.size()) return Interactive(s);
  if (args[i] != "tree") return Usage("unknown command \"" + args[i] + "\".");
  if (i + 2 != args.size()) return Usage("tree takes exactly one ITEM (quote it).");
  return RunTreeCommand(s, args[i + 1], std::cout);
}

}  // namespace
}  // namespace tavimor

int main(int argc, char** argv) { return tavimor::Main(argc, argv); }
