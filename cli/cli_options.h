// The command line of the terminal tutor: its options, how they are read, the usage text.
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace tavimor {

inline constexpr int kExitNotSaved = 1;
inline constexpr int kExitUnknownCommand = 3;

// What the command line asks for.
struct CliOptions {
  std::vector<std::pair<std::string, std::string>> settings;
  bool decimal_comma = false;
  bool json = false;
  std::string plot;  // the file a graph is written to as SVG
  std::string batch;
  std::string file;     // an algebra file opened before the item is loaded
  bool save = false;    // save the list to it afterwards
  std::string save_as;  // or to this file
  bool save_as_given = false;
  bool list = false;                                        // print the list instead
  std::vector<std::pair<std::string, std::string>> values;  // letter and value, for evaluate
  std::vector<std::string> answers;  // "yes", "no" or "cancel", for the questions in turn
};

// "x=2; y=-3" as pairs of a letter and its value; false for a part that is no "letter=value".
bool ParseValues(const std::string& list, std::vector<std::pair<std::string, std::string>>& out);
// "no, yes" as the list of answers; false for a word other than yes, no and cancel.
bool ParseAnswers(const std::string& list, std::vector<std::string>& out);
// Tells a mistake on the command line and where help is; returns the status of such a mistake.
int Usage(const std::string& problem);
// Reads the arguments: the options into `options`, the rest (the item, the command words) into
// `args`. Returns -1 when the run goes on, or the exit status when it ends here (--help shown, or
// a mistake told).
int ParseArguments(const std::vector<std::string>& all, CliOptions& options,
                   std::vector<std::string>& args);

}  // namespace tavimor
