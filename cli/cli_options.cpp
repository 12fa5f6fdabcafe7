// The command line of the terminal tutor: its options, how they are read, the usage text.
#include "cli/cli_options.h"

#include <algorithm>
#include <cctype>
#include <iostream>

#include "cli/terminal_frontend.h"
#include "cli/tree_command.h"
#include "core/session.h"
#include "core/validate.h"
#include "shell/command_table.h"
#include "shell/option_keys.h"

namespace tavimor {

namespace {

constexpr const char* kUsage =
    R"(Usage:
  tavimor-cli [OPTIONS] ITEM [COMMAND ...]   load ITEM as OK does, run the commands, print the work space
  tavimor-cli [OPTIONS] --batch FILE         one ITEM, a tab and COMMANDs per line
  tavimor-cli [OPTIONS] tree ITEM            show how ITEM is read, one node per line
  tavimor-cli help [N | index | program]    a help page as text: topic N, the index, the program
  tavimor-cli [OPTIONS]                      the interactive tutor

ITEM is an expression, an equation, a number, a fraction or a set of equations
parted by ";", for example "2x+3=7" or "x+y=3; x-y=1". The work space is printed
with its mathematics set in two dimensions. Steps flow in a stream unless
--set "Streaming output=False" is given.

A set of equations is solved by elimination with the command elim; then
  ero TEXT    an ERO as on the keyboard (R2*3, R1/2, R1-2R3, R1;R2), tried and kept
  undo        takes back the last ERO           assist      ERO Assist, one ERO
  assist-all  ERO Assist until the reduced form is read
  ok          keeps an ERO on trial             continue    reads the reduced form
The grid is printed after the work space (after each command in the tutor).
It is solved by substitution with subs; then
  choose ROW LETTER   the letter to solve for in that equation
  ok                  solves it, sets it aside, substitutes it into the others
  continue            simplifies them, or back-substitutes once none remain
The equations in play and those set aside are printed after each word.

ufoo TEXT multiplies the expression (or the side) by a useful form of one:
-1, pi, conjugate, match (the other side's denominator) or a form typed in;
ufoo alone lists the choices on offer.

An equation is solved by hand with both-sides OP [Q], one operation on both
sides: swap, sin, cos, tan, arcsin, arccos, arctan, ln, log, e^, 10^, square,
sqrt + or sqrt - (the sign taken on the right side), reciprocal, ^ Q (the Q'th
power), root Q, + Q, - Q, * Q, / Q, subtract-right; for example
  tavimor-cli "2x+3=7" both-sides - 3 both-sides / 2
hint tells the next step solve would take, without taking it. A set of
equations takes substitute (the others put into the last) and solve-all (every
equation of the file given with --file, then of those typed, solved with the
result only; the count and the time follow).

Options:
  --json            Print one JSON object instead: kind, panel, left, right,
                    transcript (each picture as @mathematics@), help, status
                    (the nine status panels), messages, hints, error; after elim or subs
                    also grid (the rows as lists of number texts), system ("unique",
                    "infinite", "none", or null until the reduced form is read) and
                    solution (letter -> value text, for "unique").
                    After graph also graph: x and y (the window's ranges) and
                    curves, each with equation, kind ("1" explicit, "2" contour,
                    "3" explicit polar, "4" contour polar, "5a" parametric),
                    colour ("#rrggbb") and points (301 [x, y] in world
                    coordinates, null for an undefined point), or for the
                    contour kinds contours (each contour's polyline: closed,
                    and its points [x, y] in world coordinates).
  --plot FILE       graph writes its picture to FILE as SVG.
  --batch FILE      Each line of FILE is a fresh load in one session; with --json
                    exactly one object per line, with its error. The count and time
                    go to standard error; the exit status is that of the first line
                    that failed (0 when none did).
  --set KEY=VALUE   Sets an option by its settings key, for example
                    --set "Special P=True"  --set "Complex form=1"  --set Unknown=t
                    Flags take True or False; numbers must lie in the range the
                    options dialog offers. May be given more than once.
  --decimal-comma   Numbers are written with "," as the decimal separator.
  --values LIST     The values evaluate puts in for the letters, as "x=2; y=-1/2";
                    a letter without one is asked for in the interactive tutor, and
                    elsewhere ends evaluate with a note on standard error (status 64).
  --answers LIST    The answers to the questions with Yes, No and Cancel (such as
                    solve's choice of the unknown), in turn, as "no, yes", from the
                    first for each item of a batch; each is yes, no or cancel, and
                    a question beyond the list takes yes. The
                    question and the answer taken are written in the work space. The
                    interactive tutor asks at the prompt once the list is used up.
  --file PATH       Opens an algebra file before the item is loaded, as Open does, so
                    that a new item is remembered in it (a known one shows its comment).
                    In the interactive tutor, 'list', 'next' and 'open N' walk its
                    problems. Without --file or --save-as no list is kept.
  --save            Saves the list to that file after the commands (or at the end of
                    the interactive tutor or the batch), also when nothing changed.
  --save-as PATH    Saves the list to PATH in the same way. A save that fails says
                    why and ends with status 1.
  --list            With --file: prints its topics, subtopics and problems with their
                    comments, indented.
  --help            Shows this text.

tree ITEM: a refused item prints its message on standard error. An accepted item
prints the tree of the left side, and for an equation a line "=" and the tree of
the right side; the items of a set are parted by a line ";". One node per line:
two blanks of indentation per level, the Role code, the Kind code, five blanks and
the node's Text; a blank code shows as a pilcrow.

The interactive tutor edits lines at a terminal (history, Tab completes a
command word) and takes, beside the commands below: help, status [N], clear,
list, open N, next (the problems of --file), load ITEM (load a word that looks
like a command), quit. A word close to a command is questioned, never loaded.

The tutor starts from the first-run options, never from saved settings, so that
its output is the same on every machine.

Exit status: 0 done (also when a command failed with its message), 1 file not saved,
2 item or file refused, 3 unknown or unavailable command, 64 a mistake on the command line
(also a letter evaluate needs a value for that --values does not give).

Commands:
)";

}  // namespace

bool ParseValues(const std::string& list, std::vector<std::pair<std::string, std::string>>& out) {
  std::size_t start = 0;
  while (start <= list.size()) {
    const std::size_t end = std::min(list.find(';', start), list.size());
    std::string part = list.substr(start, end - start);
    RemoveSpaces(part);
    start = end + 1;
    if (part.empty()) continue;
    const std::size_t equals = part.find('=');
    if (equals != 1 || !std::isalpha(static_cast<unsigned char>(part[0]))) return false;
    out.emplace_back(part.substr(0, 1), part.substr(2));
  }
  return true;
}

bool ParseAnswers(const std::string& list, std::vector<std::string>& out) {
  std::size_t start = 0;
  while (start <= list.size()) {
    const std::size_t end = std::min(list.find_first_of(",;", start), list.size());
    std::string part = list.substr(start, end - start);
    RemoveSpaces(part);
    std::transform(part.begin(), part.end(), part.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    start = end + 1;
    if (part.empty()) continue;
    if (part != "yes" && part != "no" && part != "cancel") return false;
    out.push_back(part);
  }
  return true;
}

int Usage(const std::string& problem) {
  std::cerr << "tavimor-cli: " << PrintableText(problem) << "\nTry 'tavimor-cli --help'.\n";
  return kExitUsage;
}

int ParseArguments(const std::vector<std::string>& all, CliOptions& options,
                   std::vector<std::string>& args) {
  // Options may stand anywhere: command words and items never begin with "--".
  for (std::size_t i = 0; i < all.size(); ++i) {
    const std::string& arg = all[i];
    if (arg.rfind("--", 0) != 0 && arg != "-h") {
      args.push_back(arg);
      continue;
    }
    if (arg == "--help" || arg == "-h") {
      std::cout << kUsage;
      std::vector<std::string> told;  // a word two buttons share is told once
      for (const CommandWord& word : CommandWords()) {
        if (std::find(told.begin(), told.end(), word.word) != told.end()) continue;
        told.emplace_back(word.word);
        // Still to come while none of the word's buttons is built.
        const bool built = std::any_of(
            CommandWords().begin(), CommandWords().end(), [&word](const CommandWord& other) {
              return std::string(other.word) == word.word && ButtonIsBuilt(other.button);
            });
        std::cout << "  " << word.word << std::string(22 - std::string(word.word).size(), ' ')
                  << word.what << (built ? "" : " (still to come)") << '\n';
      }
      std::cout << "\nOption keys (first-run values):\n";
      TerminalFrontend frontend(std::cout, std::cerr, std::cin, false);
      Session s(frontend);
      for (const std::string& key : OptionKeys()) {
        std::cout << "  " << key << " (first run: " << OptionText(s, key) << ")\n";
      }
      return kExitOk;
    }
    if (arg == "--values") {
      if (++i >= all.size() || !ParseValues(all[i], options.values)) {
        return Usage("--values needs a LIST such as \"x=2; y=3\".");
      }
      continue;
    }
    if (arg == "--answers") {
      if (++i >= all.size() || !ParseAnswers(all[i], options.answers)) {
        return Usage("--answers needs a LIST of yes, no and cancel such as \"no, yes\".");
      }
      continue;
    }
    if (arg == "--decimal-comma") {
      options.decimal_comma = true;
    } else if (arg == "--json") {
      options.json = true;
    } else if (arg == "--plot") {
      if (++i >= all.size()) return Usage("--plot needs a FILE.");
      options.plot = all[i];
    } else if (arg == "--file") {
      if (++i >= all.size()) return Usage("--file needs a PATH.");
      options.file = all[i];
    } else if (arg == "--save") {
      options.save = true;
    } else if (arg == "--save-as") {
      if (++i >= all.size()) return Usage("--save-as needs a PATH.");
      options.save_as = all[i];
      options.save_as_given = true;
    } else if (arg == "--list") {
      options.list = true;
    } else if (arg == "--batch") {
      if (++i >= all.size()) return Usage("--batch needs a FILE.");
      options.batch = all[i];
    } else if (arg == "--set" || arg.rfind("--set=", 0) == 0) {
      std::string setting;
      if (arg == "--set") {
        if (++i >= all.size()) return Usage("--set needs KEY=VALUE.");
        setting = all[i];
      } else {
        setting = arg.substr(6);
      }
      const std::size_t equals = setting.find('=');
      if (equals == std::string::npos) {
        return Usage("--set needs KEY=VALUE, not \"" + setting + "\".");
      }
      options.settings.emplace_back(setting.substr(0, equals), setting.substr(equals + 1));
    } else {
      return Usage("unknown option " + arg + ".");
    }
  }
  return -1;
}

}  // namespace tavimor
