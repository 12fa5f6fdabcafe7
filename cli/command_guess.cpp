// Guessing the command a mistyped word meant, so that a slip never loads it as a problem.
#include "cli/command_guess.h"

#include <algorithm>
#include <cctype>

namespace tavimor {

int EditDistance(const std::string& a, const std::string& b) {
  std::vector<int> row(b.size() + 1);
  for (std::size_t j = 0; j <= b.size(); ++j) row[j] = static_cast<int>(j);
  for (std::size_t i = 1; i <= a.size(); ++i) {
    int diagonal = row[0];
    row[0] = static_cast<int>(i);
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const int above = row[j];
      row[j] = std::min({row[j] + 1, row[j - 1] + 1, diagonal + (a[i - 1] == b[j - 1] ? 0 : 1)});
      diagonal = above;
    }
  }
  return row[b.size()];
}

std::string GuessCommandWord(const std::string& word, const std::vector<std::string>& commands) {
  if (word.size() < 3 || word.size() > 40) return "";
  for (const char c : word) {
    if (!std::isalpha(static_cast<unsigned char>(c)) && c != '-') return "";
  }
  std::string lower = word;
  for (char& c : lower) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  std::string best;
  int best_distance = 3;
  for (const std::string& command : commands) {
    if (word == command) return "";
    const int distance = lower == command ? 0 : EditDistance(lower, command);
    if (distance < best_distance) {
      best_distance = distance;
      best = command;
    }
  }
  return best;
}

}  // namespace tavimor
