// The help topic map beside the executable, and how a help number becomes the page shown.
#pragma once

#include <string>

#include "core/session.h"

namespace tavimor {

// The name of the map file in the executable's directory.
inline constexpr const char* kHelpMapFileName = "Help topic locations.txt";
// The names of the two systems the shipped map holds.
inline constexpr const char* kProgramHelpSystem = "program help";
inline constexpr const char* kAlgebraHelpSystem = "algebra help";
// The page of the program's help, in the root of its system.
inline constexpr const char* kProgramHelpPage = "index.html";

// Reads the text of a map file: comments from "'" to the end of a line, tabs as blanks, lines
// trimmed, blank lines skipped; the sections "[the help systems]" (name << highest number),
// "[root directory of each help system]" (name = value, "<app dir>" replaced by `app_dir`, a
// value maybe in double quotes) and one "[name]" per system (number, "<<" or blanks, page). A
// number above its system's highest is ignored.
HelpTables ReadHelpTopics(const std::string& text, const std::string& app_dir);
// Reads the map file in `app_dir` into the session; a missing file leaves the tables empty.
void LoadHelpTopics(Session& s, const std::string& app_dir);

// The path of the page of a help number: the first system, in order, whose highest number
// reaches it and that has a page for it; its root and the page joined by "/" unless the root
// ends in "/" or "\". Empty when no system has the page, and for 0.
std::string HelpPagePath(const HelpTables& tables, int help_number);
// Shows the page of a help number through the front end. Nothing is shown for 0, for a number no
// system has, for a compiled help file (the tutor has no viewer for one) and for a page whose
// file does not exist. True when a page was shown.
bool ShowHelp(Session& s, int help_number);

// The root of the named system, empty if the map has none.
std::string HelpSystemRoot(const HelpTables& tables, const std::string& name);
// The page of the program's help: its system's root and kProgramHelpPage. Empty without one.
std::string ProgramHelpPath(const HelpTables& tables);
// The folder of the algebra pages: the root of the algebra system. Empty without one.
std::string AlgebraHelpFolder(const HelpTables& tables);

}  // namespace tavimor
