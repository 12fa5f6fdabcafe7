// tavimor-cli: the terminal tutor, running the same engines as the desktop window.
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "cli/cli_options.h"
#include "cli/cli_session.h"
#include "cli/course_list.h"
#include "cli/help_command.h"
#include "cli/interactive_tutor.h"
#include "cli/run_item.h"
#include "cli/tree_command.h"

namespace tavimor {
namespace {

int Main(int argc, char** argv) {
  CliOptions options;
  const std::vector<std::string> all(argv + 1, argv + argc);
  std::vector<std::string> args;
  if (const int status = ParseArguments(all, options, args); status >= 0) return status;
  const std::size_t i = 0;  // the first word that is no option
  // Check the settings before anything runs.
  std::string error;
  std::unique_ptr<TutorRun> run = MakeTutorRun(options, false, error);
  if (run == nullptr) return Usage(error);
  if (options.save && options.file.empty()) return Usage("--save needs --file PATH to save to.");
  if (options.save && options.save_as_given) return Usage("give --save or --save-as, not both.");
  if (!options.file.empty() && RefuseIrregularFile(options.file, "file")) return kExitRefused;
  if (options.list) {
    if (options.file.empty()) return Usage("--list needs --file PATH.");
    if (!OpenFile(run->s, options)) return kExitRefused;
    PrintCourse(run->s, std::cout, false);
    return SaveFile(run->s, options);
  }
  if (!options.batch.empty()) {
    if (!args.empty()) return Usage("--batch takes no ITEM.");
    return RunBatch(options);
  }
  if (i == args.size()) return Interactive(options);
  if (args[i] == "tree") {
    if (i + 2 != args.size()) return Usage("tree takes exactly one ITEM (quote it).");
    return RunTreeCommand(run->s, args[i + 1], std::cout);
  }
  if (args[i] == "help") {
    const std::vector<std::string> words(args.begin() + 1, args.end());
    return RunHelpCommand(run->s, words, std::cout, std::cerr);
  }
  Session& s = run->s;
  if (!OpenFile(s, options)) return kExitRefused;
  const std::vector<std::string> words(args.begin() + static_cast<std::ptrdiff_t>(i) + 1,
                                       args.end());
  const int status = RunItem(s, run->frontend, args[i], words, options.json, std::cout);
  // The file is saved whatever became of the item: a refused item leaves the list as it was.
  const int saved = SaveFile(s, options);
  return saved != kExitOk ? saved : status;
}

}  // namespace
}  // namespace tavimor

int main(int argc, char** argv) { return tavimor::Main(argc, argv); }
