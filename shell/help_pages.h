// The help pages: small HTML fragments with mathematics between at-signs, read, checked, indexed
// and set as plain text.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/session.h"
#include "present/rich_text.h"

namespace tavimor {

// A piece of a page: text, a tag, or the mathematics between a pair of "@".
struct HelpToken {
  enum class Kind { Text, Tag, Math };
  Kind kind = Kind::Text;
  std::string text;        // the text (entities decoded), the tag's name (lower case), or the math
  bool closing = false;    // a tag "</...>"
  std::string href;        // the link of an "a" tag
  std::string attributes;  // everything after a tag's name, as written
};

// The pieces of a page, in order. A "@" without its partner, or inside a tag, is kept in a
// text piece and reported by HelpPageProblems.
std::vector<HelpToken> ReadHelpTokens(const std::string& html);

// The whole file of a page, or nothing when it cannot be read (or is over a megabyte).
std::optional<std::string> ReadHelpPage(const std::string& path);
// The page's title: the text of its h1, empty if it has none.
std::string HelpPageTitle(const std::string& html);
// The number a page file is named by ("24.html", ".../24.html": 24), or -1 for another name.
int HelpPageNumber(const std::string& file_name);

// A page of a folder of help pages, by its number.
struct HelpIndexEntry {
  int number = 0;
  std::string title;
  std::string path;
};
// Every page "NNN.html" of the folder, by number.
std::vector<HelpIndexEntry> HelpPageIndex(const std::string& folder);
// The pages whose title or text holds every word of the query (case ignored), by number.
std::vector<HelpIndexEntry> SearchHelpPages(const std::string& folder, const std::string& query);

// The mathematics of a page read as the tutor reads an item: the sides in the text the tutor
// writes, and the relation between them. `refusal` says why it cannot be read.
struct HelpMath {
  bool ok = false;
  int relation = kRelationNone;
  std::string left;
  std::string right;
  std::string refusal;
};
// Reads the mathematics on a session of its own, with the options of `s`: the work item of `s`
// is never touched.
HelpMath ReadHelpMath(const Session& s, const std::string& math);
// The mathematics as the tutor writes it: "left=right", or the expression; the text as written
// when it cannot be read.
std::string HelpMathText(const Session& s, const std::string& math);
// The mathematics drawn as the work space draws it, with the front end's metrics.
Picture DrawHelpMath(const Session& s, const FontMetrics& metrics, const HelpMath& math);

// The page as text for a terminal: the title in capitals and underlined, other headings
// underlined, paragraphs wrapped at 78 columns, items of a list after "  * ", the mathematics as
// the tutor writes it and links as "(see NNN)".
std::string HelpPageAsText(const Session& s, const std::string& html);

// What is wrong with a page, one sentence each: not exactly one h1, a tag or attribute that is not
// allowed, an unbalanced tag, a stray "@", mathematics the tutor cannot read, a link to a page
// that `folder` does not hold.
std::vector<std::string> HelpPageProblems(const Session& s, const std::string& html,
                                          const std::string& folder);

}  // namespace tavimor
