// A session of the terminal tutor, made as the window makes its own, and its algebra file.
#include "cli/cli_session.h"

#include <cctype>
#include <iostream>

#include "cli/tree_command.h"
#include "platform/file_system.h"
#include "present/text_picture.h"
#include "shell/algebra_file.h"
#include "shell/file_commands.h"
#include "shell/help_topics.h"
#include "shell/main_flow.h"
#include "shell/option_keys.h"

namespace tavimor {

namespace {

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
  LoadHelpTopics(s, ProgramDirectory());
  return true;
}

}  // namespace

TutorRun::TutorRun(bool interactive)
    : frontend(std::cout, std::cerr, std::cin, interactive), s(frontend) {
  frontend.AttachSession(s);
}

std::unique_ptr<TutorRun> MakeTutorRun(const CliOptions& options, bool interactive,
                                       std::string& error) {
  auto run = std::make_unique<TutorRun>(interactive);
  run->frontend.SetGivenValues(options.values);
  run->frontend.SetGivenAnswers(options.answers);
  run->frontend.SetPlotFile(options.plot);
  if (!StartSession(run->s, options, error)) return nullptr;
  return run;
}

// Opens the --file as Open does.
bool OpenFile(Session& s, const CliOptions& options) {
  if (options.file.empty()) return true;
  std::string problem;
  if (OpenAlgebraFile(s, options.file, problem)) return true;
  std::cerr << PrintableText(problem) << '\n';
  return false;
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
  std::string reason;
  if (!SaveAlgebraFile(s, options.save_as_given ? options.save_as : s.FileName, reason)) {
    std::cerr << PrintableText(FileNotSavedText(reason)) << '\n';
    return kExitNotSaved;
  }
  return kExitOk;
}

// A file given to read must be a regular file (or not exist, for the reader to say so).
bool RefuseIrregularFile(const std::string& path, const char* what) {
  const PathFacts facts = FactsOf(path);
  if (!facts.exists || facts.regular) return false;
  std::cerr << "tavimor-cli: the " << what << " " << PrintableText(path)
            << (facts.folder ? " is a folder" : " is not a regular file")
            << ": give a text file.\n";
  return true;
}

}  // namespace tavimor
