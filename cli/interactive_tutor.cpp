// The interactive tutor: one line a command or an item, with line editing at a terminal.
#include "cli/interactive_tutor.h"

#include <algorithm>
#include <iostream>
#include <memory>

#include "cli/cli_session.h"
#include "cli/command_guess.h"
#include "cli/course_list.h"
#include "cli/help_command.h"
#include "cli/line_editor.h"
#include "cli/list_editor_view.h"
#include "cli/run_item.h"
#include "cli/system_view.h"
#include "cli/tree_command.h"
#include "present/text_picture.h"
#include "shell/algebra_file.h"
#include "shell/buttons.h"
#include "shell/command_table.h"
#include "shell/commands/both_sides_command.h"
#include "shell/commands/solve_system_command.h"
#include "shell/commands/ufoo_command.h"
#include "shell/main_flow.h"
#include "shell/status_bar.h"

namespace tavimor {

namespace {

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
  if (s.SystemWindow != nullptr && !SystemWindowClosed(s)) {
    std::string words;
    for (const SystemWord& word : SystemWords()) {
      words += (words.empty() ? "" : ", ") + std::string(word.word) +
               (word.argument != nullptr ? std::string(" ") + word.argument : "");
    }
    out << "   (system window: " << words << ")";
  }
  out << '\n';
}

void PrintStatus(const Session& s, std::ostream& out) {
  for (std::size_t i = 0; i < s.Form.status_panels.size(); ++i) {
    out << "  " << i + 1 << ": " << s.Form.status_panels[i] << '\n';
  }
}

// The words of the interactive tutor itself, beside the command words of the buttons.
const std::vector<std::string> kSessionWords = {"help", "status", "clear", "quit", "exit",
                                                "list", "next",   "open",  "load", "edit-list"};

std::vector<std::string> AllWords() {
  std::vector<std::string> words;
  for (const CommandWord& word : CommandWords()) {
    if (std::find(words.begin(), words.end(), word.word) == words.end()) {
      words.emplace_back(word.word);
    }
  }
  for (const SystemWord& word : SystemWords()) words.emplace_back(word.word);
  words.emplace_back(kBothSidesWord);
  for (const std::string& word : kSessionWords) words.push_back(word);
  return words;
}

void PrintHelp(std::ostream& out) {
  std::vector<std::string> told;  // a word two buttons share is told once
  for (const CommandWord& word : CommandWords()) {
    if (std::find(told.begin(), told.end(), word.word) != told.end()) continue;
    told.emplace_back(word.word);
    out << "  " << word.word << std::string(22 - std::string(word.word).size(), ' ') << word.what
        << '\n';
  }
  for (const SystemWord& word : SystemWords()) {
    const std::string name =
        std::string(word.word) + (word.argument ? std::string(" ") + word.argument : "");
    out << "  " << name << std::string(22 - name.size(), ' ') << word.what << '\n';
  }
  out << "  both-sides OP [Q]     apply OP to both sides of the equation: swap, sin, cos, tan,\n"
         "                        arcsin, arccos, arctan, ln, log, e^, 10^, square, sqrt + or\n"
         "                        sqrt - (the sign of the right side), reciprocal, ^ Q, root Q,\n"
         "                        + Q, - Q, * Q, / Q, subtract-right\n";
  out << "  status [N]            show the status bar, or click panel N (1 to 9)\n"
         "  clear                 clear the work space\n"
         "  list                  the problems of the file (--file), numbered\n"
         "  open N                load problem N of the file\n"
         "  next                  load the next problem of the file\n"
         "  load ITEM             load ITEM even when it looks like a command\n"
         "  edit-list             the list editor on the file's topics and problems\n"
         "  help N                the help page of topic N; help index lists the pages,\n"
         "                        help step shows the page of the last step, help program\n"
         "                        how to use the tutor\n"
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
      if (list_editor_ != nullptr && (line == "quit" || line == "exit")) {
        std::cout << kCloseByButtonText << '\n';  // as closing the editor's frame
        continue;
      }
      if (line == "quit" || line == "exit") break;
      frontend_.Reset();  // nothing of an earlier command is kept
      Handle(line);
      std::cout << std::flush;
    }
  }

 private:
  void Handle(const std::string& line) {
    if (list_editor_ != nullptr) {
      if (!list_editor_->Handle(line, std::cout)) {
        list_editor_.reset();
        std::cout << "The list editor is closed.\n";
      }
      return;
    }
    if (line == "edit-list") {
      if (!KeepsList(options_)) {
        std::cout << "No list is kept: start the tutor with --file PATH (or --save-as PATH) to "
                     "edit its topics and problems.\n";
        return;
      }
      list_editor_ = std::make_unique<ListEditorView>(
          s_, [this](const std::string& question) { return frontend_.AskYesNo(question); });
      ListEditorView::PrintWords(std::cout);
      list_editor_->Print(std::cout);
      return;
    }
    if (line == "help") {
      PrintHelp(std::cout);
    } else if (line == "help step") {
      frontend_.ShowHelp(s_.HelpNumber);
    } else if (line.rfind("help ", 0) == 0) {
      RunHelpCommand(s_, {line.substr(5)}, std::cout, std::cerr);
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
    } else if (line.rfind(std::string(kFiguresWord) + " ", 0) == 0) {
      int figures = 0;
      std::string refusal;
      if (!ReadFiguresArgument(line.substr(std::string(kFiguresWord).size() + 1), figures,
                               refusal)) {
        std::cout << refusal << '\n';
      } else {
        frontend_.SetFiguresAnswer(figures);
        Command(kFiguresWord);
        frontend_.SetFiguresAnswer(std::nullopt);
      }
    } else if (line.rfind(std::string(kUfooWord) + " ", 0) == 0) {
      frontend_.SetUfooAnswer(line.substr(std::string(kUfooWord).size() + 1));
      Command(kUfooWord);
      frontend_.SetUfooAnswer(std::nullopt);
    } else if (FindCommandWord(line) != nullptr || IsSystemWord(line.substr(0, line.find(' '))) ||
               line.substr(0, line.find(' ')) == kBothSidesWord) {
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
    PrintSystemGrid(s_, std::cout);
    if (!s_.Form.item_kind.empty()) PrintOffers(s_, std::cout);
  }

  const CliOptions& options_;
  Session& s_;
  TerminalFrontend& frontend_;
  LineEditor& editor_;
  std::string last_item_;
  bool refused_since_ = false;
  int current_problem_ = 0;
  std::unique_ptr<ListEditorView> list_editor_;  // while the list editor is open
};

}  // namespace

int Interactive(const CliOptions& options) {
  LineEditor editor(std::cin, std::cout, AllWords());
  std::string error;
  const std::unique_ptr<TutorRun> run = MakeTutorRun(options, true, error);
  if (run == nullptr) return Usage(error);
  Session& s = run->s;
  TerminalFrontend& frontend = run->frontend;
  frontend.SetLineSource([&editor](const std::string& prompt, std::string& line) {
    bool too_long = false;
    if (!editor.Terminal()) std::cout << prompt << std::flush;
    return editor.Read(prompt, line, too_long);
  });
  if (!OpenFile(s, options)) return kExitRefused;
  InteractiveTutor tutor(options, s, frontend, editor);
  tutor.Run();
  if (!options.save && !options.save_as_given && HasUnsavedChanges(s)) {
    std::cerr << "The new problems are not saved in " << PrintableText(options.file)
              << ": give --save to keep them.\n";
  }
  return SaveFile(s, options);
}

}  // namespace tavimor
