// Running an item and its command words, one line of a batch, and a whole batch file.
#include "cli/run_item.h"

#include <algorithm>
#include <chrono>
#include <fstream>
#include <iostream>
#include <memory>
#include <string_view>

#include "cli/cli_session.h"
#include "cli/course_list.h"
#include "cli/graph_view.h"
#include "cli/json_output.h"
#include "cli/system_view.h"
#include "cli/tree_command.h"
#include "core/message_box.h"
#include "core/scoped_override.h"
#include "core/validate.h"
#include "present/text_picture.h"
#include "shell/buttons.h"
#include "shell/command_table.h"
#include "shell/commands/both_sides_command.h"
#include "shell/commands/solve_system_command.h"
#include "shell/commands/ufoo_command.h"
#include "shell/main_flow.h"

namespace tavimor {

namespace {

// One batch line refused before it could be loaded: its object, or its note.
int RefuseLine(Session& s, const std::string& problem, bool json, std::ostream& out) {
  std::cerr << problem << '\n';
  if (json) {
    const std::vector<std::string> messages = {problem};
    out << WorkItemJson(s, {}, messages, {}, problem, false) << '\n';
  }
  return kExitRefused;
}

}  // namespace

bool RunWord(Session& s, const std::string& word, std::optional<std::string>& error,
             std::string& refusal) {
  // A word of the open system window, with its argument after a blank.
  const std::size_t blank = word.find(' ');
  // An operation on both sides, with its value.
  if (word.substr(0, blank) == kBothSidesWord) {
    std::string message;
    const bool ran = RunBothSidesWord(s, blank == std::string::npos ? "" : word.substr(blank + 1),
                                      message, refusal);
    if (!message.empty()) error = message;
    return ran;
  }
  if (IsSystemWord(word.substr(0, blank))) {
    std::string argument = blank == std::string::npos ? "" : word.substr(blank + 1);
    std::string message;
    const bool ran = RunSystemWord(s, word.substr(0, blank), argument, message, refusal);
    if (!message.empty()) error = message;
    return ran;
  }
  const CommandWord* entry = FindCommandWord(word, s.Form.visible_panel);
  // The terminal has no equation box to pick from: the list that solve-all runs over is the
  // problems of the open file, then the items typed since.
  if (entry != nullptr && std::string_view(entry->button) == "MultiAutoSolve") {
    std::vector<std::string> list = CourseProblems(s);
    for (const std::string& typed : s.Form.equation_box_items) {
      if (std::find(list.begin(), list.end(), typed) == list.end()) list.push_back(typed);
    }
    s.Form.equation_box_items = list;
  }
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

bool ReadFiguresArgument(const std::string& text, int& figures, std::string& refusal) {
  const bool digits = !text.empty() && text.size() <= 2 &&
                      text.find_first_not_of("0123456789") == std::string::npos;
  figures = digits ? std::stoi(text) : 0;
  if (figures >= 1 && figures <= 20) return true;
  refusal = std::string(kFiguresWord) +
            " takes the number of significant figures, 1 to 20, not \"" + PrintableText(text) +
            "\".";
  return false;
}

int RunItem(Session& s, TerminalFrontend& frontend, const std::string& item,
            const std::vector<std::string>& words, bool json, std::ostream& out) {
  frontend.Reset();
  s.SolveAnswers.clear();
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
    for (std::size_t k = 0; k < words.size(); ++k) {
      std::string word = words[k];
      // "ero" takes the next word as its operation.
      if (word == "ero" && k + 1 < words.size()) word += " " + words[++k];
      // "both-sides" takes the operation, and then its value or sign if it has one.
      if (word == kBothSidesWord && k + 1 < words.size()) {
        word += " " + words[++k];
        const int more = BothSidesArguments(words[k]);
        for (int taken = 0; taken < more && k + 1 < words.size(); ++taken) {
          word += " " + words[++k];
        }
      }
      // ufoo TEXT: the form to multiply by; a following command word is no form.
      if (word == kUfooWord && k + 1 < words.size() && FindCommandWord(words[k + 1]) == nullptr &&
          !IsSystemWord(words[k + 1]) && words[k + 1] != kBothSidesWord) {
        frontend.SetUfooAnswer(words[++k]);
      }
      std::string refusal;
      // sig-figs N: the figures the dialog takes; a word that starts like a number is read as
      // the figures (and refused when it is not 1 to 20).
      if (word == kFiguresWord && k + 1 < words.size() && !words[k + 1].empty() &&
          std::string_view("0123456789-+.").find(words[k + 1][0]) != std::string_view::npos) {
        int figures = 0;
        if (!ReadFiguresArgument(words[++k], figures, refusal)) {
          std::cerr << refusal << '\n';
          error = refusal;
          status = kExitUsage;
          break;
        }
        frontend.SetFiguresAnswer(figures);
      }
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
    ScopedOverride kept_kind(s.Form.item_kind);
    if (status != kExitOk) s.Form.item_kind.clear();
    const std::string graph =
        status == kExitOk && frontend.Graph() ? GraphJsonField(*frontend.Graph()) : "";
    out << WorkItemJson(s, frontend.WorkSpace(), frontend.Messages(), frontend.Hints(), error, true,
                        frontend.DialogLines(), graph)
        << '\n';
  } else if (status == kExitOk) {
    bool started = false;  // the work space opens with a line end
    for (const std::string& line : RenderForTerminal(s, frontend.WorkSpace())) {
      started = started || !line.empty();
      if (started) out << PrintableText(line) << '\n';
    }
    if (!frontend.DialogLines().empty()) {
      out << "Dialog:\n";
      for (const std::string& line : frontend.DialogLines()) {
        out << "  " << PrintableText(line) << '\n';
      }
    }
    for (const RichText& hint : frontend.HintBodies()) {
      out << "Hint:\n";
      for (const std::string& line : RenderForTerminal(s, hint)) out << PrintableText(line) << '\n';
    }
    PrintSystemGrid(s, out);
    if (frontend.Graph()) {
      out << "Graph:\n";
      for (const std::string& line : GraphSketchLines(s, *frontend.Graph())) {
        out << "  " << line << '\n';
      }
    }
  }
  // The picture --plot asked for could not be written (told on standard error).
  if (!frontend.PlotError().empty() && status == kExitOk) status = kExitUsage;
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

int RunBatch(const CliOptions& options) {
  if (RefuseIrregularFile(options.batch, "batch file")) return kExitRefused;
  std::ifstream file(options.batch, std::ios::binary);
  if (!file) return Usage("cannot read the batch file \"" + options.batch + "\".");
  std::string error;
  const std::unique_ptr<TutorRun> run = MakeTutorRun(options, false, error);
  if (run == nullptr) return Usage(error);
  Session& s = run->s;
  TerminalFrontend& frontend = run->frontend;
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

}  // namespace tavimor
