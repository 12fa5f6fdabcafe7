// The step-message markup: the help prefix, line marks, and the relation inside inline mathematics.
#include "present/step_markup.h"

#include <array>
#include <utility>

#include "present/rich_text.h"

namespace tavimor {

namespace {

// Longer relations first, so that ">=" is not read as ">".
constexpr std::array<std::pair<const char*, int>, 6> kRelations = {{{"->", kRelationArrow},
                                                                    {">=", kRelationGreaterOrEqual},
                                                                    {"<=", kRelationLessOrEqual},
                                                                    {">", kRelationGreater},
                                                                    {"<", kRelationLess},
                                                                    {"=", kRelationEquals}}};

}  // namespace

int HelpNumberOf(const std::string& message) {
  long number = 0;
  for (const char c : message) {
    if (c < '0' || c > '9') break;
    number = number * 10 + (c - '0');
    if (number > 32767) return 0;
  }
  return static_cast<int>(number);
}

std::string StripHelpPrefix(const std::string& message) {
  const std::size_t hash = message.find('#');
  if (hash == std::string::npos) return message;
  return message.substr(hash + 1);
}

void FindBreak(const std::string& text, int& position, std::string& mark) {
  const std::size_t bar = text.find('|');
  const std::size_t pause = text.find('\\');
  if (bar == std::string::npos && pause == std::string::npos) {
    position = 0;
    mark.clear();
  } else if (bar == std::string::npos || (pause != std::string::npos && pause <= bar)) {
    position = static_cast<int>(pause) + 1;
    mark = "\\";
  } else {
    position = static_cast<int>(bar) + 1;
    mark = "|";
  }
}

void FindRelation(std::string& text, std::string& right, int& code) {
  for (const auto& [relation, relation_code] : kRelations) {
    const std::size_t at = text.find(relation);
    if (at == std::string::npos) continue;
    right = text.substr(at + std::char_traits<char>::length(relation));
    text.erase(at);
    code = relation_code;
    return;
  }
  right.clear();
  code = 0;
}

std::string SimplifiedInsteadNote(const std::string& input, const std::string& simplified,
                                  const std::string& closing) {
  return "Note:  The expression can be simplified like this:||@" + input + "->" + simplified +
         "@  ||" + closing;
}

}  // namespace tavimor
