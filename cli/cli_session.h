// A session of the terminal tutor, made as the window makes its own: the front end, the session
// started with the options, and the algebra file it reads and saves.
#pragma once

#include <memory>
#include <string>

#include "cli/cli_options.h"
#include "cli/terminal_frontend.h"
#include "core/session.h"

namespace tavimor {

// The terminal's front end and the session that reports to it.
struct TutorRun {
  explicit TutorRun(bool interactive);
  TerminalFrontend frontend;
  Session s;
};

// Makes a session from the first-run options and the --set ones, with the values --values gives,
// started as the window starts. Returns nullptr with `error` set when a setting is refused.
std::unique_ptr<TutorRun> MakeTutorRun(const CliOptions& options, bool interactive,
                                       std::string& error);

// Opens the --file as Open does; a file that cannot be read is told and ends the run.
bool OpenFile(Session& s, const CliOptions& options);
// Whether the run keeps a list of problems: only when there is a file to save it to.
bool KeepsList(const CliOptions& options);
// Without a file, the problems typed are not remembered: the list stays empty.
void ForgetList(Session& s, const CliOptions& options);
// Saves the list where the options say; "File not saved." and why on failure.
int SaveFile(Session& s, const CliOptions& options);
// A file given to read must be a regular file (or not exist, for the reader to say so); true when
// it was refused, with the reason told.
bool RefuseIrregularFile(const std::string& path, const char* what);

}  // namespace tavimor
