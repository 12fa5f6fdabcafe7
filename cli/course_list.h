// The open algebra file as the terminal shows it: its topics, subtopics, problems and comments.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "core/session.h"

namespace tavimor {

// The topics, subtopics and problems of the list with their comments, indented; with
// `numbered`, each problem carries the number `open N` takes. Control bytes show in caret
// notation.
void PrintCourse(const Session& s, std::ostream& out, bool numbered);

// The problems of the list in order (the first line of each "Eqn:" entry), numbered from 1.
std::vector<std::string> CourseProblems(const Session& s);

}  // namespace tavimor
