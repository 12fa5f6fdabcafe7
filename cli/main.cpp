// tavimor-cli: the terminal tutor, running the same engines as the desktop window.
#include <chrono>
#include <fstream>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

#include <unistd.h>

#include "cli/json_output.h"
#include "cli/terminal_frontend.h"
#include "cli/tree_command.h"
#include "core/session.h"
#include "core/validate.h"
#include "present/message_box.h"
#include "present/text_picture.h"
#include "shell/algebra_file.h"
#include "shell/buttons.h"
#include "shell/command_words.h"
#include "shell/main_flow.h"
#include "shell/option_keys.h"

namespace tavimor {
namespace {

constexpr int kExitUnknownCommand = 3;

constexpr const char* kUsage =
    R"(Usage:
  tavimor-cli [OPTIONS] ITEM [COMMAND ...]   load ITEM as OK does, run the commands, print the work space
  tavimor-cli [OPTIONS] --batch FILE         one ITEM, a tab and COMMANDs per line
  tavimor-cli [OPTIONS] tree ITEM            show how ITEM is read, one node per line
  tavimor-cli [OPTIONS]                      the interactive tutor

ITEM is an expression, an equation, a number, a fraction or a set of equations
parted by ";", for example "2x+3=7" or "x+y=3; x-y=1". The work space is printed
with its mathematics set in two dimensions. Steps flow in a stream unless
--set "Streaming output=False" is given.

Options:
  --json            Print one JSON object instead: kind, panel, left, right,
                    transcript (each picture as @mathematics@), help, status
                    (the nine status panels), messages, hints, error.
  --batch FILE      Each line of FILE is a fresh load in one session; with --json
                    one object per line. The count and time go to standard error.
  --set KEY=VALUE   Sets an option by its settings key, for example
                    --set "Special P=True"  --set "Complex form=1"  --set Unknown=t
                    Flags take True or False; numbers must lie in the range the
                    options dialog offers. May be given more than once.
  --decimal-comma   Numbers are written with "," as the decimal separator.
  --values LIST     The values evaluate puts in for the letters, as "x=2; y=-1/2";
                    a letter without one is asked for in the interactive tutor, and
                    elsewhere ends evaluate with a note on standard error (status 64).
  --file PATH       Opens an algebra file before the item is loaded, as Open does, so
                    that a new item is remembered in it (a known one shows its comment).
  --save            Saves the list to that file after the commands.
  --save-as PATH    Saves the list to PATH after the commands.
  --list            With --file: prints its topics, subtopics and problems with their
                    comments, indented.
  --help            Shows this text.

tree ITEM: a refused item prints its message on standard error. An accepted item
prints the tree of the left side, and for an equation a line "=" and the tree of
the right side; the items of a set are parted by a line ";". One node per line:
two blanks of indentation per level, the Role code, the Kind code, five blanks and
the node's Text; a blank code shows as a pilcrow.

The tutor starts from the first-run options, never from saved settings, so that
its output is the same on every machine.

Exit status: 0 done (also when a command failed with its message), 1 file not saved,
2 item or file refused, 3 unknown or unavailable command, 64 a mistake on the command line
(also a letter evaluate needs a value for that --values does not give).

Commands:
)";

struct CliOptions {
  std::vector<std::pair<std::string, std::string>> settings;
  bool decimal_comma = false;
  bool json = false;
  std::string batch;
  std::string file;     // an algebra file opened before the item is loaded
  bool save = false;    // save the list to it afterwards
  std::string save_as;  // or to this file
  bool list = false;    // print the list instead
  std::vector<std::pair<std::string, std::string>> values;  // letter and value, for evaluate
};

// "x=2; y=-3" as pairs of a letter and its value; false for a part that is no "letter=value".
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

constexpr int kExitNotSaved = 1;

// Opens the algebra file as Open does; a file that cannot be read is told and ends the run.
bool OpenFile(Session& s, const CliOptions& options) {
  if (options.file.empty()) return true;
  const ReadOutcome outcome = ReadAlgebraFile(s, options.file);
  if (!outcome.ok) {
    std::cerr << outcome.problem << '\n';
    return false;
  }
  s.FileName = options.file;
  s.ListEditedFlag = s.EqnAddedFlag = false;
  if (LoadTopics(s).empty()) {
    LoadEqns(s, 1);
  } else {
    s.EqnInsertPos = static_cast<std::int16_t>(s.ListEntries.size() + 1);
  }
  return true;
}

// Saves the list where the options say; "File not saved." on failure.
int SaveFile(Session& s, const CliOptions& options) {
  const std::string path =
      !options.save_as.empty() ? options.save_as : (options.save ? s.FileName : "");
  if (path.empty()) return kExitOk;
  if (!WriteAlgebraFile(s, path)) {
    std::cerr << "File not saved.\n";
    return kExitNotSaved;
  }
  s.FileName = path;
  s.ListEditedFlag = s.EqnAddedFlag = false;
  return kExitOk;
}

// The topics, subtopics and problems of the list with their comments, indented.
void PrintList(const Session& s, std::ostream& out) {
  int depth = 0;
  const auto comment_lines = [&out](const std::string& text, int indent) {
    std::size_t start = 0;
    while (start <= text.size()) {
      std::size_t end = text.find("\r\n", start);
      const std::string line = text.substr(start, end == std::string::npos ? end : end - start);
      out << std::string(static_cast<std::size_t>(indent), ' ') << "# " << line << '\n';
      if (end == std::string::npos) break;
      start = end + 2;
    }
  };
  for (const std::string& entry : s.ListEntries) {
    if (entry.rfind("Topic:", 0) == 0) {
      depth = 1;
      out << entry.substr(6) << '\n';
    } else if (entry.rfind("SubTop:", 0) == 0) {
      depth = 2;
      out << "  " << entry.substr(7) << '\n';
    } else if (entry.rfind("Eqn:", 0) == 0) {
      out << std::string(static_cast<std::size_t>(2 * depth), ' ') << entry.substr(4) << '\n';
    } else if (entry.rfind("Comment:", 0) == 0 && entry.size() > 8) {
      comment_lines(entry.substr(8), 2 * depth + 2);
    }
  }
}

int Usage(const std::string& problem) {
  std::cerr << "tavimor-cli: " << problem << "\nTry 'tavimor-cli --help'.\n";
  return kExitUsage;
}

// Applies the options and starts the tutor as the window starts.
bool StartSession(Session& s, const CliOptions& options, std::string& error) {
  s.SetFirstRunOptions();
  bool streaming_given = false;
  for (const auto& [key, value] : options.settings) {
    if (!SetOptionFromText(s, key, value, true, error)) return false;
    std::string lower = key;
    for (char& c : lower) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    streaming_given = streaming_given || lower == "streaming output";
  }
  if (!streaming_given) s.StreamingOutput = true;
  StartUp(s, options.decimal_comma ? "," : ".");
  return true;
}

// Runs one command word; on a refusal prints why and returns false.
bool RunWord(Session& s, const std::string& word, std::optional<std::string>& error) {
  const CommandWord* entry = FindCommandWord(word);
  if (entry == nullptr) {
    std::cerr << "Unknown command \"" << word << "\". 'tavimor-cli --help' lists the commands.\n";
    return false;
  }
  std::string message;
  switch (PressButton(s, entry->button, entry->right_button, message)) {
    case PressOutcome::Done:
      if (!message.empty()) error = message;
      return true;
    case PressOutcome::NotOnOffer: {
      const int panel = PanelOfButton(entry->button);
      std::cerr << "The command \"" << word << "\" is not on offer now";
      if (panel >= 0 && panel != s.Form.visible_panel) {
        std::cerr << ": its button is on the " << PanelCaption(s, panel) << " panel";
      }
      std::cerr << ".\n";
      return false;
    }
    case PressOutcome::NotBuilt:
      std::cerr << "The command \"" << word
                << "\" is not available yet: its part of the tutor has not been built.\n";
      return false;
  }
  return false;
}

// Loads the item, runs the words, and prints the work space or the JSON object.
int RunItem(Session& s, TerminalFrontend& frontend, const std::string& item,
            const std::vector<std::string>& words, bool json, std::ostream& out) {
  frontend.Reset();
  std::optional<std::string> error;
  std::string blank_check = item;
  RemoveSpaces(blank_check);
  int status = kExitOk;
  if (blank_check.empty()) {
    ShowCustomMessage(s, "Nothing to load: the item is empty.", 2);
    status = kExitRefused;
  } else if (!cmdLoadEquation(s, item, false)) {
    status = kExitRefused;
  }
  if (status == kExitOk) {
    for (const std::string& word : words) {
      if (!RunWord(s, word, error)) return kExitUnknownCommand;
    }
  }
  if (json) {
    if (status != kExitOk && !frontend.Messages().empty()) error = frontend.Messages().back();
    // A refused line has no item of its own: the previous item, which the session keeps, is not
    // reported as this line's.
    const std::string kept_kind = s.Form.item_kind;
    if (status != kExitOk) s.Form.item_kind.clear();
    out << WorkItemJson(s, frontend.WorkSpace(), frontend.Messages(), frontend.Hints(), error)
        << '\n';
    s.Form.item_kind = kept_kind;
  } else if (status == kExitOk) {
    bool started = false;  // the work space opens with a line end
    for (const std::string& line : RenderForTerminal(s, frontend.WorkSpace())) {
      started = started || !line.empty();
      if (started) out << PrintableText(line) << '\n';
    }
    for (const std::string& hint : frontend.Hints()) out << "Hint: " << hint << '\n';
  }
  // A value evaluate asked for and nobody gave: a mistake on the command line.
  for (const std::string& letter : frontend.MissingValues()) {
    std::cerr << "tavimor-cli: evaluate needs a value for " << letter << ": give --values \""
              << letter << "=...\".\n";
    status = kExitUsage;
  }
  return status;
}

int RunBatch(const CliOptions& options) {
  std::ifstream file(options.batch, std::ios::binary);
  if (!file) return Usage("cannot read the batch file \"" + options.batch + "\".");
  TerminalFrontend frontend(std::cout, std::cerr, std::cin, false);
  frontend.SetGivenValues(options.values);
  Session s(frontend);
  frontend.AttachSession(s);
  std::string error;
  if (!StartSession(s, options, error)) return Usage(error);
  const auto start = std::chrono::steady_clock::now();
  int lines = 0;
  for (std::string line; std::getline(file, line);) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (line.find_first_not_of(" \t") == std::string::npos) continue;
    ++lines;
    const std::size_t tab = line.find('\t');
    const std::string item = line.substr(0, tab);
    std::vector<std::string> words;
    if (tab != std::string::npos) {
      std::string rest = line.substr(tab + 1);
      for (std::size_t at = 0; at < rest.size();) {
        const std::size_t end = rest.find_first_of(" \t", at);
        const std::string word = rest.substr(at, end == std::string::npos ? end : end - at);
        if (!word.empty()) words.push_back(word);
        if (end == std::string::npos) break;
        at = end + 1;
      }
    }
    if (!options.json) std::cout << "== " << item << '\n';
    RunItem(s, frontend, item, words, options.json, std::cout);
  }
  const double seconds =
      std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  std::cerr << lines << " lines in " << seconds << " s\n";
  return kExitOk;
}

void PrintOffers(const Session& s, std::ostream& out) {
  std::string ready;
  std::string coming;
  for (const CommandWord& word : CommandWords()) {
    if (!ButtonOnOffer(s, word.button)) continue;
    std::string& list = ButtonIsBuilt(word.button) ? ready : coming;
    list += (list.empty() ? "" : ", ") + std::string(word.word);
  }
  out << "[" << PanelCaption(s, s.Form.visible_panel)
      << "] commands: " << (ready.empty() ? "none yet" : ready);
  if (!coming.empty()) out << "   (still to come: " << coming << ")";
  out << '\n';
}

void PrintStatus(const Session& s, std::ostream& out) {
  for (std::size_t i = 0; i < s.Form.status_panels.size(); ++i) {
    out << "  " << i + 1 << ": " << s.Form.status_panels[i] << '\n';
  }
}

int Interactive(const CliOptions& options) {
  const bool terminal = isatty(STDIN_FILENO) != 0;
  TerminalFrontend frontend(std::cout, std::cerr, std::cin, true);
  frontend.SetGivenValues(options.values);
  Session s(frontend);
  frontend.AttachSession(s);
  std::string error;
  if (!StartSession(s, options, error)) return Usage(error);
  if (terminal) {
    std::cout << "The Tavimor. Type an expression or an equation and press Enter, then a command.\n"
                 "'help' lists the commands, 'status' the options, 'quit' ends.\n";
  }
  for (std::string line;;) {
    if (terminal) std::cout << "> " << std::flush;
    if (!std::getline(std::cin, line)) break;
    const std::size_t first = line.find_first_not_of(' ');
    if (first == std::string::npos) continue;
    line = line.substr(first, line.find_last_not_of(' ') - first + 1);
    if (line == "quit" || line == "exit") break;
    if (line == "help") {
      for (const CommandWord& word : CommandWords()) {
        std::cout << "  " << word.word << std::string(22 - std::string(word.word).size(), ' ')
                  << word.what << '\n';
      }
      std::cout << "  status [N]            show the status bar, or click panel N (1 to 9)\n"
                   "  clear                 clear the work space\n"
                   "  quit                  end the session\n"
                   "Anything else is loaded as a new item.\n";
      continue;
    }
    if (line == "status") {
      PrintStatus(s, std::cout);
      continue;
    }
    if (line.rfind("status ", 0) == 0) {
      const int panel = std::atoi(line.c_str() + 7);
      if (panel < 1 || panel > 9) {
        std::cout << "The status bar has panels 1 to 9.\n";
      } else {
        ClickStatusPanel(s, panel);
        PrintStatus(s, std::cout);
      }
      continue;
    }
    if (line == "clear") {
      frontend.ClearWorkSpace();
      continue;
    }
    std::optional<std::string> failed;
    if (FindCommandWord(line) != nullptr) {
      if (s.Form.item_kind.empty()) {
        std::cout << "Type an item first.\n";
        continue;
      }
      RunWord(s, line, failed);
    } else {
      cmdLoadEquation(s, line, false);
    }
    frontend.Flush();
    if (!s.Form.item_kind.empty()) PrintOffers(s, std::cout);
  }
  return kExitOk;
}

int Main(int argc, char** argv) {
  CliOptions options;
  const std::vector<std::string> all(argv + 1, argv + argc);
  // Options may stand anywhere: command words and items never begin with "--".
  std::vector<std::string> args;
  for (std::size_t i = 0; i < all.size(); ++i) {
    const std::string& arg = all[i];
    if (arg.rfind("--", 0) != 0 && arg != "-h") {
      args.push_back(arg);
      continue;
    }
    if (arg == "--help" || arg == "-h") {
      std::cout << kUsage;
      for (const CommandWord& word : CommandWords()) {
        std::cout << "  " << word.word << std::string(22 - std::string(word.word).size(), ' ')
                  << word.what << (ButtonIsBuilt(word.button) ? "" : " (still to come)") << '\n';
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
    if (arg == "--decimal-comma") {
      options.decimal_comma = true;
    } else if (arg == "--json") {
      options.json = true;
    } else if (arg == "--file") {
      if (++i >= all.size()) return Usage("--file needs a PATH.");
      options.file = all[i];
    } else if (arg == "--save") {
      options.save = true;
    } else if (arg == "--save-as") {
      if (++i >= all.size()) return Usage("--save-as needs a PATH.");
      options.save_as = all[i];
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
  const std::size_t i = 0;  // the first word that is no option
  // Check the settings before anything runs.
  {
    TerminalFrontend frontend(std::cout, std::cerr, std::cin, false);
    Session check(frontend);
    std::string error;
    if (!StartSession(check, options, error)) return Usage(error);
  }
  if (options.save && options.file.empty()) return Usage("--save needs --file PATH to save to.");
  if (options.list) {
    if (options.file.empty()) return Usage("--list needs --file PATH.");
    TerminalFrontend frontend(std::cout, std::cerr, std::cin, false);
    Session s(frontend);
    std::string error;
    StartSession(s, options, error);
    if (!OpenFile(s, options)) return kExitRefused;
    PrintList(s, std::cout);
    return kExitOk;
  }
  if (!options.batch.empty()) {
    if (!args.empty()) return Usage("--batch takes no ITEM.");
    return RunBatch(options);
  }
  if (i == args.size()) return Interactive(options);
  if (args[i] == "tree") {
    if (i + 2 != args.size()) return Usage("tree takes exactly one ITEM (quote it).");
    TerminalFrontend frontend(std::cout, std::cerr, std::cin, false);
    Session s(frontend);
    frontend.AttachSession(s);
    std::string error;
    StartSession(s, options, error);
    return RunTreeCommand(s, args[i + 1], std::cout);
  }
  TerminalFrontend frontend(std::cout, std::cerr, std::cin, false);
  frontend.SetGivenValues(options.values);
  Session s(frontend);
  frontend.AttachSession(s);
  std::string error;
  StartSession(s, options, error);
  if (!OpenFile(s, options)) return kExitRefused;
  const std::vector<std::string> words(args.begin() + static_cast<std::ptrdiff_t>(i) + 1,
                                       args.end());
  const int status = RunItem(s, frontend, args[i], words, options.json, std::cout);
  if (status != kExitOk) return status;
  return SaveFile(s, options);
}

}  // namespace
}  // namespace tavimor

int main(int argc, char** argv) { return tavimor::Main(argc, argv); }
