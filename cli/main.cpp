// tavimor-cli: the terminal tutor, running the same engines as the desktop window.
#include <chrono>
#include <fstream>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

#include <sys/stat.h>
#include <unistd.h>

#include "cli/command_guess.h"
#include "cli/course_list.h"
#include "cli/json_output.h"
#include "cli/line_editor.h"
#include "cli/terminal_frontend.h"
#include "cli/tree_command.h"
#include "core/session.h"
#include "core/validate.h"
#include "present/message_box.h"
#include "present/text_picture.h"
#include "shell/algebra_file.h"
#include "shell/buttons.h"
#include "shell/command_table.h"
#include "shell/main_flow.h"
#include "shell/option_keys.h"
#include "shell/status_bar.h"

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

struct CliOptions {
  std::vector<std::pair<std::string, std::string>> settings;
  bool decimal_comma = false;
  bool json = false;
  std::string batch;
  std::string file;     // an algebra file opened before the item is loaded
  bool save = false;    // save the list to it afterwards
  std::string save_as;  // or to this file
  bool save_as_given = false;
  bool list = false;                                        // print the list instead
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
    std::cerr << PrintableText(outcome.problem) << '\n';
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

// Whether the run keeps a list of problems: only when there is a file to save it to.
bool KeepsList(const CliOptions& options) { return !options.file.empty() || options.save_as_given; }

// Without a file, the problems typed are not remembered: the list stays empty.
void ForgetList(Session& s, const CliOptions& options) {
  if (KeepsList(options)) return;
  s.ListEntries.clear();
  s.Form.equation_box_items.clear();
  s.Form.equation_box_selected = -1;
  s.EqnInsertPos = 1;
  s.EqnAddedFlag = false;
}

// Saves the list where the options say; "File not saved." and why on failure.
int SaveFile(Session& s, const CliOptions& options) {
  if (!options.save && !options.save_as_given) return kExitOk;
  const std::string path = options.save_as_given ? options.save_as : s.FileName;
  std::string reason;
  if (!WriteAlgebraFile(s, path, &reason)) {
    std::cerr << PrintableText(FileNotSavedText(reason)) << '\n';
    return kExitNotSaved;
  }
  s.FileName = path;
  s.ListEditedFlag = s.EqnAddedFlag = false;
  return kExitOk;
}

// A file given to read must be a regular file (or not exist, for the reader to say so).
bool RefuseIrregularFile(const std::string& path, const char* what) {
  struct stat info {};
  if (::stat(path.c_str(), &info) != 0 || S_ISREG(info.st_mode)) return false;
  std::cerr << "tavimor-cli: the " << what << " " << PrintableText(path)
            << (S_ISDIR(info.st_mode) ? " is a folder" : " is not a regular file")
            << ": give a text file.\n";
  return true;
}

int Usage(const std::string& problem) {
  std::cerr << "tavimor-cli: " << PrintableText(problem) << "\nTry 'tavimor-cli --help'.\n";
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

// Runs one command word. On a refusal returns false with the sentence that says why in
// `refusal`; a command that ran and failed leaves its message in `error`.
bool RunWord(Session& s, const std::string& word, std::optional<std::string>& error,
             std::string& refusal) {
  const CommandWord* entry = FindCommandWord(word);
  if (entry == nullptr) {
    refusal =
        "Unknown command \"" + PrintableText(word) + "\". 'tavimor-cli --help' lists the commands.";
    return false;
  }
  std::string message;
  switch (PressButton(s, entry->button, entry->right_button, message)) {
    case PressOutcome::Done:
      if (!message.empty()) error = message;
      return true;
    case PressOutcome::NotOnOffer: {
      const int panel = PanelOfButton(entry->button);
      refusal = "The command \"" + word + "\" is not on offer now";
      if (panel >= 0 && panel != s.Form.visible_panel) {
        refusal += ": its button is on the " + PanelCaption(s, panel) + " panel";
      }
      refusal += ".";
      return false;
    }
    case PressOutcome::NotBuilt:
      refusal = "The command \"" + word +
                "\" is not available yet: its part of the tutor has not been built.";
      return false;
  }
  return false;
}

// Loads the item, runs the words, and prints the work space or the JSON object (always one,
// whatever failed).
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
      std::string refusal;
      if (!RunWord(s, word, error, refusal)) {
        std::cerr << refusal << '\n';
        error = refusal;
        status = kExitUnknownCommand;
        break;
      }
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
    for (const RichText& hint : frontend.HintBodies()) {
      out << "Hint:\n";
      for (const std::string& line : RenderForTerminal(s, hint)) out << PrintableText(line) << '\n';
    }
  }
  // A value evaluate asked for and nobody gave: a mistake on the command line.
  for (const std::string& letter : frontend.MissingValues()) {
    std::cerr << "tavimor-cli: evaluate needs a value for " << letter << ": give --values \""
              << letter << "=...\".\n";
    if (status == kExitOk) status = kExitUsage;
  }
  // A value --values gives that the check refused (its message is on standard error).
  if (!frontend.RefusedValues().empty()) status = kExitUsage;
  return status;
}

// One batch line refused before it could be loaded: its object, or its note.
int RefuseLine(Session& s, const std::string& problem, bool json, std::ostream& out) {
  std::cerr << problem << '\n';
  if (json) {
    const std::vector<std::string> messages = {problem};
    out << WorkItemJson(s, {}, messages, {}, problem, false) << '\n';
  }
  return kExitRefused;
}

int RunBatch(const CliOptions& options) {
  if (RefuseIrregularFile(options.batch, "batch file")) return kExitRefused;
  std::ifstream file(options.batch, std::ios::binary);
  if (!file) return Usage("cannot read the batch file \"" + options.batch + "\".");
  TerminalFrontend frontend(std::cout, std::cerr, std::cin, false);
  frontend.SetGivenValues(options.values);
  Session s(frontend);
  frontend.AttachSession(s);
  std::string error;
  if (!StartSession(s, options, error)) return Usage(error);
  if (!OpenFile(s, options)) return kExitRefused;
  const auto start = std::chrono::steady_clock::now();
  int lines = 0;
  int failed = 0;
  int first_failure = kExitOk;
  std::string line;
  bool too_long = false;
  while (ReadBoundedLine(file, line, kMaxLineBytes, too_long)) {
    if (!too_long && line.find_first_not_of(" \t") == std::string::npos) continue;
    ++lines;
    const std::size_t tab = line.find('\t');
    const std::string item = line.substr(0, tab);
    if (!options.json) std::cout << "== " << PrintableText(item) << '\n';
    int status = kExitOk;
    if (too_long) {
      frontend.Reset();
      status = RefuseLine(s,
                          "Line " + std::to_string(lines) + " is longer than " +
                              std::to_string(kMaxLineBytes) + " bytes and is not read.",
                          options.json, std::cout);
    } else {
      std::vector<std::string> words;
      if (tab != std::string::npos) {
        const std::string rest = line.substr(tab + 1);
        for (std::size_t at = 0; at < rest.size();) {
          const std::size_t end = rest.find_first_of(" \t", at);
          const std::string word = rest.substr(at, end == std::string::npos ? end : end - at);
          if (!word.empty()) words.push_back(word);
          if (end == std::string::npos) break;
          at = end + 1;
        }
      }
      status = RunItem(s, frontend, item, words, options.json, std::cout);
      ForgetList(s, options);
    }
    if (status != kExitOk) {
      ++failed;
      if (first_failure == kExitOk) first_failure = status;
    }
  }
  const double seconds =
      std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  std::cerr << lines << " lines in " << seconds << " s";
  if (failed > 0) std::cerr << ", " << failed << " failed";
  std::cerr << '\n';
  const int saved = SaveFile(s, options);
  return saved != kExitOk ? saved : first_failure;
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

// The words of the interactive tutor itself, beside the command words of the buttons.
const std::vector<std::string>& SessionWords() {
  static const std::vector<std::string> words = {"help", "status", "clear", "quit", "exit",
                                                 "list", "next",   "open",  "load"};
  return words;
}

std::vector<std::string> AllWords() {
  std::vector<std::string> words;
  for (const CommandWord& word : CommandWords()) words.emplace_back(word.word);
  for (const std::string& word : SessionWords()) words.push_back(word);
  return words;
}

void PrintHelp(std::ostream& out) {
  for (const CommandWord& word : CommandWords()) {
    out << "  " << word.word << std::string(22 - std::string(word.word).size(), ' ') << word.what
        << '\n';
  }
  out << "  status [N]            show the status bar, or click panel N (1 to 9)\n"
         "  clear                 clear the work space\n"
         "  list                  the problems of the file (--file), numbered\n"
         "  open N                load problem N of the file\n"
         "  next                  load the next problem of the file\n"
         "  load ITEM             load ITEM even when it looks like a command\n"
         "  quit                  end the session\n"
         "Anything else is loaded as a new item.\n";
}

// The interactive tutor: one line a command or an item.
class InteractiveTutor {
 public:
  InteractiveTutor(const CliOptions& options, Session& s, TerminalFrontend& frontend,
                   LineEditor& editor)
      : options_(options), s_(s), frontend_(frontend), editor_(editor) {}

  void Run() {
    if (editor_.Terminal()) {
      std::cout
          << "The Tavimor. Type an expression or an equation and press Enter, then a command.\n"
             "'help' lists the commands, 'status' the options, 'quit' ends.\n";
      if (!options_.file.empty()) {
        std::cout << "'list' shows the problems of the file, 'open N' loads one, 'next' the "
                     "next.\n";
      }
    }
    std::string line;
    bool too_long = false;
    while (editor_.Read("> ", line, too_long)) {
      if (too_long) {
        std::cout << "The line is longer than " << kMaxLineBytes << " bytes and is not read.\n";
        continue;
      }
      const std::size_t first = line.find_first_not_of(" \t");
      if (first == std::string::npos) continue;
      line = line.substr(first, line.find_last_not_of(" \t") - first + 1);
      editor_.Remember(line);
      if (line == "quit" || line == "exit") break;
      frontend_.Reset();  // nothing of an earlier command is kept
      Handle(line);
      std::cout << std::flush;
    }
  }

 private:
  void Handle(const std::string& line) {
    if (line == "help") {
      PrintHelp(std::cout);
    } else if (line == "status") {
      PrintStatus(s_, std::cout);
    } else if (line.rfind("status ", 0) == 0) {
      const int panel = std::atoi(line.c_str() + 7);
      if (panel < 1 || panel > 9) {
        std::cout << "The status bar has panels 1 to 9.\n";
      } else {
        ClickStatusPanel(s_, panel);
        PrintStatus(s_, std::cout);
      }
    } else if (line == "clear") {
      frontend_.ClearWorkSpace();
    } else if (line == "list") {
      if (NeedsFile()) PrintCourse(s_, std::cout, true);
    } else if (line == "next") {
      if (NeedsFile()) Open(current_problem_ + 1);
    } else if (line == "open" || line.rfind("open ", 0) == 0) {
      if (!NeedsFile()) return;
      const std::string number = line.size() > 5 ? line.substr(5) : "";
      const bool digits = !number.empty() && number.size() < 6 &&
                          number.find_first_not_of("0123456789") == std::string::npos;
      if (!digits) {
        std::cout << "open takes the number of a problem, as 'list' shows it.\n";
      } else {
        Open(std::atoi(number.c_str()));
      }
    } else if (line == "load") {
      std::cout << "load takes the item to load, for example: load hint\n";
    } else if (line.rfind("load ", 0) == 0) {
      Load(line.substr(5));
    } else if (FindCommandWord(line) != nullptr) {
      Command(line);
    } else if (const std::string guess = GuessCommandWord(line, AllWords()); !guess.empty()) {
      std::cout << "Did you mean " << guess << "?  To load \"" << PrintableText(line)
                << "\" as a problem, type: load " << PrintableText(line) << '\n';
    } else {
      Load(line);
    }
  }

  bool NeedsFile() {
    if (!options_.file.empty()) return true;
    std::cout << "No file is open: start the tutor with --file PATH to walk its problems.\n";
    return false;
  }

  void Open(int number) {
    const std::vector<std::string> problems = CourseProblems(s_);
    if (problems.empty()) {
      std::cout << "The file holds no problems.\n";
      return;
    }
    if (number < 1 || number > static_cast<int>(problems.size())) {
      std::cout << (number == static_cast<int>(problems.size()) + 1 && current_problem_ > 0
                        ? "That was the last problem of the file; 'open 1' starts again.\n"
                        : "The file's problems are numbered 1 to " +
                              std::to_string(problems.size()) + ".\n");
      return;
    }
    current_problem_ = number;
    std::cout << "Problem " << number << " of " << problems.size() << ":\n";
    Load(problems[static_cast<std::size_t>(number - 1)]);
  }

  void Load(const std::string& item) {
    if (cmdLoadEquation(s_, item, false)) {
      last_item_ = item;
      refused_since_ = false;
    } else if (!last_item_.empty()) {
      refused_since_ = true;
    }
    ForgetList(s_, options_);
    After();
  }

  void Command(const std::string& word) {
    if (s_.Form.item_kind.empty()) {
      std::cout << "Type an item first.\n";
      return;
    }
    if (refused_since_) {
      std::cout << "(" << word << " works on " << PrintableText(WorkItemText())
                << ", the item before the one refused.)\n";
      refused_since_ = false;
    }
    std::optional<std::string> failed;
    std::string refusal;
    if (!RunWord(s_, word, failed, refusal)) std::cerr << refusal << '\n';
    After();
  }

  // The work item as it stands: both sides of an equation, the typed text of a set.
  std::string WorkItemText() const {
    if (s_.Form.item_kind == "set of equations") return last_item_;
    const std::string& right = s_.Pool[kRightRoot].Text;
    return s_.Pool[kLeftRoot].Text + (s_.Form.item_kind == "equation" ? "=" + right : "");
  }

  void After() {
    frontend_.Flush();
    if (!s_.Form.item_kind.empty()) PrintOffers(s_, std::cout);
  }

  const CliOptions& options_;
  Session& s_;
  TerminalFrontend& frontend_;
  LineEditor& editor_;
  std::string last_item_;
  bool refused_since_ = false;
  int current_problem_ = 0;
};

int Interactive(const CliOptions& options) {
  LineEditor editor(std::cin, std::cout, AllWords());
  TerminalFrontend frontend(std::cout, std::cerr, std::cin, true);
  frontend.SetGivenValues(options.values);
  frontend.SetLineSource([&editor](const std::string& prompt, std::string& line) {
    bool too_long = false;
    if (!editor.Terminal()) std::cout << prompt << std::flush;
    return editor.Read(prompt, line, too_long);
  });
  Session s(frontend);
  frontend.AttachSession(s);
  std::string error;
  if (!StartSession(s, options, error)) return Usage(error);
  if (!OpenFile(s, options)) return kExitRefused;
  InteractiveTutor tutor(options, s, frontend, editor);
  tutor.Run();
  if (!options.save && !options.save_as_given && HasUnsavedChanges(s)) {
    std::cerr << "The new problems are not saved in " << PrintableText(options.file)
              << ": give --save to keep them.\n";
  }
  return SaveFile(s, options);
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
  const std::size_t i = 0;  // the first word that is no option
  // Check the settings before anything runs.
  {
    TerminalFrontend frontend(std::cout, std::cerr, std::cin, false);
    Session check(frontend);
    std::string error;
    if (!StartSession(check, options, error)) return Usage(error);
  }
  if (options.save && options.file.empty()) return Usage("--save needs --file PATH to save to.");
  if (options.save && options.save_as_given) return Usage("give --save or --save-as, not both.");
  if (!options.file.empty() && RefuseIrregularFile(options.file, "file")) return kExitRefused;
  if (options.list) {
    if (options.file.empty()) return Usage("--list needs --file PATH.");
    TerminalFrontend frontend(std::cout, std::cerr, std::cin, false);
    Session s(frontend);
    std::string error;
    StartSession(s, options, error);
    if (!OpenFile(s, options)) return kExitRefused;
    PrintCourse(s, std::cout, false);
    return SaveFile(s, options);
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
  // The file is saved whatever became of the item: a refused item leaves the list as it was.
  const int saved = SaveFile(s, options);
  return saved != kExitOk ? saved : status;
}

}  // namespace
}  // namespace tavimor

int main(int argc, char** argv) { return tavimor::Main(argc, argv); }
