// The help topic map as read at start-up: the help systems, their roots and their pages by number.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace tavimor {

// At most this many help systems are read.
inline constexpr std::size_t kMaxHelpSystems = 3;

// One help system: its name, its root directory (or address) and the page of each topic number.
struct HelpSystem {
  std::string name;
  std::string root;
  std::int16_t max_number = 0;  // the highest topic number it holds
  std::map<int, std::string> pages;
};

// The systems in the order of the map file: the first that has a page for a number shows it.
// Empty when the map file is missing: help then shows nothing.
struct HelpTables {
  std::vector<HelpSystem> HelpSystems;
};

}  // namespace tavimor
