// The help pages: small HTML fragments with mathematics between at-signs, read, checked, indexed
// and set as plain text.
#include "shell/help_pages.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "core/validate.h"
#include "platform/file_system.h"
#include "present/display_list.h"
#include "present/typesetter.h"
#include "shell/load_item.h"

namespace tavimor {

namespace {

constexpr std::size_t kMaxPageBytes = 1 << 20;
constexpr std::size_t kTextWidth = 78;

// A front end for the session that reads a page's mathematics: it shows nothing, asks nothing.
class QuietFrontend : public Frontend {
 public:
  void AppendToWorkSpace(const RichRun&) override {}
  void ClearWorkSpace() override {}
  const FontMetrics& Metrics() override { return metrics_; }
  PauseInput WaitButton(const std::string&, float, float) override { return PauseInput::Escape; }
  void ShowMessageBox(const std::string&, int, MessageIcon) override {}
  void ShowHintBox(const RichText&, int) override {}
  bool AskYesNo(const std::string&) override { return false; }
  YesNoCancel AskYesNoCancel(const std::string&) override { return YesNoCancel::Cancel; }
  std::optional<std::string> AskText(const std::string&, const std::string&) override {
    return std::nullopt;
  }
  std::optional<std::vector<std::string>> AskValues(const std::vector<std::string>&,
                                                    const std::vector<std::string>&) override {
    return std::nullopt;
  }
  void ShowHelp(int) override {}
  std::optional<int> AskSignificantFigures(const std::string&, int) override {
    return std::nullopt;
  }
  bool ShowFactorForm(const std::string&, const std::string&) override { return false; }

 private:
  FixedMetrics metrics_;
};

std::string Lower(std::string text) {
  for (char& c : text) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return text;
}

void AppendUtf8(std::string& out, unsigned long code) {
  if (code < 0x80) {
    out += static_cast<char>(code);
  } else if (code < 0x800) {
    out += static_cast<char>(0xC0 | (code >> 6));
    out += static_cast<char>(0x80 | (code & 0x3F));
  } else if (code < 0x10000) {
    out += static_cast<char>(0xE0 | (code >> 12));
    out += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (code & 0x3F));
  } else if (code < 0x110000) {
    out += static_cast<char>(0xF0 | (code >> 18));
    out += static_cast<char>(0x80 | ((code >> 12) & 0x3F));
    out += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (code & 0x3F));
  }
}

// Text with its entities decoded; an entity not known is kept as written.
std::string DecodeEntities(const std::string& text) {
  static constexpr std::array<std::pair<const char*, unsigned long>, 9> kNamed = {{
      {"amp", '&'},
      {"lt", '<'},
      {"gt", '>'},
      {"quot", '"'},
      {"apos", '\''},
      {"nbsp", ' '},
      {"hellip", 0x2026},
      {"ndash", 0x2013},
      {"mdash", 0x2014},
  }};
  std::string out;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const std::size_t end = text[i] == '&' ? text.find(';', i) : std::string::npos;
    if (end == std::string::npos || end - i > 10) {
      out += text[i];
      continue;
    }
    const std::string name = text.substr(i + 1, end - i - 1);
    unsigned long code = 0;
    if (name.size() > 1 && name[0] == '#') {
      const bool hex = name[1] == 'x' || name[1] == 'X';
      code = std::strtoul(name.c_str() + (hex ? 2 : 1), nullptr, hex ? 16 : 10);
    } else {
      for (const auto& [known, value] : kNamed) {
        if (name == known) code = value;
      }
    }
    if (code == 0) {
      out += text[i];
      continue;
    }
    AppendUtf8(out, code);
    i = end;
  }
  return out;
}

// The value of an attribute written name="value", empty if absent.
std::string AttributeValue(const std::string& attributes, const std::string& name) {
  const std::string lower = Lower(attributes);
  const std::size_t at = lower.find(name + "=\"");
  if (at == std::string::npos) return "";
  const std::size_t start = at + name.size() + 2;
  const std::size_t end = attributes.find('"', start);
  if (end == std::string::npos) return "";
  return attributes.substr(start, end - start);
}

std::string CollapseBlanks(const std::string& text) {
  std::string out;
  bool blank = false;
  for (const char c : text) {
    if (c == ' ' || c == '\n' || c == '\r' || c == '\t') {
      blank = true;
      continue;
    }
    if (blank && !out.empty()) out += ' ';
    blank = false;
    out += c;
  }
  if (blank && !out.empty()) out += ' ';
  return out;
}

std::size_t CodePoints(const std::string& text) {
  return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) {
    return (static_cast<unsigned char>(c) & 0xC0) != 0x80;
  }));
}

std::string Trimmed(const std::string& text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string::npos) return "";
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

// The words of a block wrapped to the width, the first line after `first`, the others after
// `rest`.
std::string Wrap(const std::string& text, const std::string& first, const std::string& rest) {
  std::string out = first;
  std::size_t column = CodePoints(first);
  bool line_empty = true;
  std::istringstream words(text);
  std::string word;
  while (words >> word) {
    const std::size_t width = CodePoints(word);
    if (!line_empty && column + 1 + width > kTextWidth) {
      out += "\n" + rest;
      column = CodePoints(rest);
      line_empty = true;
    }
    if (!line_empty) {
      out += ' ';
      ++column;
    }
    out += word;
    column += width;
    line_empty = false;
  }
  return out + "\n";
}

std::string Upper(std::string text) {
  for (char& c : text) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return text;
}

const std::vector<std::string>& AllowedTags() {
  static const std::vector<std::string> kTags = {"h1", "h2", "p", "ul", "li", "a", "b", "i"};
  return kTags;
}

}  // namespace

std::vector<HelpToken> ReadHelpTokens(const std::string& html) {
  std::vector<HelpToken> tokens;
  std::string text;
  const auto flush = [&] {
    if (text.empty()) return;
    tokens.push_back({HelpToken::Kind::Text, DecodeEntities(text), false, "", ""});
    text.clear();
  };
  std::size_t i = 0;
  while (i < html.size()) {
    const char c = html[i];
    if (c == '<') {
      const std::size_t end = html.find('>', i);
      if (end == std::string::npos) {
        text += html.substr(i);
        break;
      }
      flush();
      std::string inside = html.substr(i + 1, end - i - 1);
      HelpToken tag{HelpToken::Kind::Tag, "", false, "", ""};
      if (!inside.empty() && inside[0] == '/') {
        tag.closing = true;
        inside.erase(0, 1);
      }
      std::size_t name_end = 0;
      while (name_end < inside.size() &&
             std::isalnum(static_cast<unsigned char>(inside[name_end])) != 0) {
        ++name_end;
      }
      tag.text = Lower(inside.substr(0, name_end));
      tag.attributes = Trimmed(CollapseBlanks(inside.substr(name_end)));
      tag.href = AttributeValue(tag.attributes, "href");
      tokens.push_back(tag);
      i = end + 1;
    } else if (c == '@') {
      const std::size_t end = html.find('@', i + 1);
      const std::size_t tag = html.find('<', i + 1);
      if (end == std::string::npos || (tag != std::string::npos && tag < end)) {
        text += c;  // no partner before the next tag: a stray sign
        ++i;
        continue;
      }
      flush();
      tokens.push_back(
          {HelpToken::Kind::Math, DecodeEntities(html.substr(i + 1, end - i - 1)), false, "", ""});
      i = end + 1;
    } else {
      text += c;
      ++i;
    }
  }
  flush();
  return tokens;
}

std::optional<std::string> ReadHelpPage(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) return std::nullopt;
  std::string bytes;
  std::array<char, 4096> chunk{};
  while (in.read(chunk.data(), chunk.size()) || in.gcount() > 0) {
    bytes.append(chunk.data(), static_cast<std::size_t>(in.gcount()));
    if (bytes.size() > kMaxPageBytes) return std::nullopt;
  }
  return bytes;
}

std::string HelpPageTitle(const std::string& html) {
  std::string title;
  bool inside = false;
  for (const HelpToken& token : ReadHelpTokens(html)) {
    if (token.kind == HelpToken::Kind::Tag && token.text == "h1") {
      if (token.closing) return Trimmed(CollapseBlanks(title));
      inside = true;
    } else if (inside) {
      title += token.kind == HelpToken::Kind::Math ? token.text : token.text;
    }
  }
  return Trimmed(CollapseBlanks(title));
}

int HelpPageNumber(const std::string& file_name) {
  const std::string name = std::filesystem::path(file_name).filename().string();
  if (name.size() < 6 || name.size() > 10 || name.substr(name.size() - 5) != ".html") return -1;
  const std::string digits = name.substr(0, name.size() - 5);
  if (digits.find_first_not_of("0123456789") != std::string::npos) return -1;
  if (digits.size() > 1 && digits[0] == '0') return -1;
  return std::atoi(digits.c_str());
}

std::vector<HelpIndexEntry> HelpPageIndex(const std::string& folder) {
  std::vector<HelpIndexEntry> entries;
  std::error_code error;
  for (const auto& file : std::filesystem::directory_iterator(folder, error)) {
    const int number = HelpPageNumber(file.path().string());
    if (number < 0) continue;
    const std::optional<std::string> html = ReadHelpPage(file.path().string());
    if (!html) continue;
    entries.push_back({number, HelpPageTitle(*html), file.path().string()});
  }
  std::sort(entries.begin(), entries.end(),
            [](const HelpIndexEntry& a, const HelpIndexEntry& b) { return a.number < b.number; });
  return entries;
}

std::vector<HelpIndexEntry> SearchHelpPages(const std::string& folder, const std::string& query) {
  std::vector<std::string> words;
  std::istringstream in(Lower(query));
  for (std::string word; in >> word;) words.push_back(word);
  std::vector<HelpIndexEntry> found;
  if (words.empty()) return found;
  for (const HelpIndexEntry& entry : HelpPageIndex(folder)) {
    const std::optional<std::string> html = ReadHelpPage(entry.path);
    if (!html) continue;
    std::string text;
    for (const HelpToken& token : ReadHelpTokens(*html)) {
      if (token.kind != HelpToken::Kind::Tag) text += " " + token.text;
    }
    text = Lower(text);
    if (std::all_of(words.begin(), words.end(),
                    [&](const std::string& w) { return text.find(w) != std::string::npos; })) {
      found.push_back(entry);
    }
  }
  return found;
}

HelpMath ReadHelpMath(const Session& s, const std::string& math) {
  QuietFrontend quiet;
  Session scratch(quiet);
  scratch.OptionValues() = s.OptionValues();
  scratch.DecimalPoint = s.DecimalPoint;
  HelpMath result;
  std::string text = math;
  result.refusal = ValidationMessage(scratch, text);
  if (!result.refusal.empty()) return result;
  if (text.empty()) {
    result.refusal = "There is no mathematics between the signs.";
    return result;
  }
  try {
    const ItemShape shape = LoadItemTrees(scratch, text);
    if (shape == ItemShape::SetOfEquations) {
      result.refusal = "A set of equations is not shown on a help page.";
      return result;
    }
    result.left = scratch.Pool[kLeftRoot].Text;
    if (shape == ItemShape::Equation) {
      result.relation = kRelationEquals;
      result.right = scratch.Pool[kRightRoot].Text;
    }
  } catch (const std::exception&) {
    result.refusal = "Error in input string.";
    return result;
  }
  result.ok = true;
  return result;
}

std::string HelpMathText(const Session& s, const std::string& math) {
  const HelpMath read = ReadHelpMath(s, math);
  if (!read.ok) return math;
  return read.relation == kRelationNone ? read.left : read.left + "=" + read.right;
}

Picture DrawHelpMath(const Session& s, const FontMetrics& metrics, const HelpMath& math) {
  QuietFrontend quiet;
  Session scratch(quiet);
  scratch.OptionValues() = s.OptionValues();
  scratch.DecimalPoint = s.DecimalPoint;
  InitFunctionTable(scratch);
  if (math.relation == kRelationNone) return DrawAnyExpression(scratch, metrics, math.left);
  return DrawAnyEquation(scratch, metrics, math.relation, math.left, math.right);
}

std::string HelpPageAsText(const Session& s, const std::string& html) {
  std::string out;
  std::string block;
  std::string kind;       // the tag of the block being collected
  std::string last_kind;  // the tag of the block written last
  int link = -1;
  const auto finish = [&] {
    const std::string text = Trimmed(CollapseBlanks(block));
    block.clear();
    if (text.empty()) return;
    // A blank line between blocks; the items of a list follow each other.
    if (!out.empty() && !(kind == "li" && last_kind == "li")) out += "\n";
    last_kind = kind;
    if (kind == "h1" || kind == "h2") {
      const std::string heading = kind == "h1" ? Upper(text) : text;
      out += heading + "\n" + std::string(CodePoints(heading), kind == "h1" ? '=' : '-') + "\n";
    } else if (kind == "li") {
      out += Wrap(text, "  * ", "    ");
    } else {
      out += Wrap(text, "", "");
    }
  };
  for (const HelpToken& token : ReadHelpTokens(html)) {
    switch (token.kind) {
      case HelpToken::Kind::Text: block += token.text; break;
      case HelpToken::Kind::Math: block += " " + HelpMathText(s, token.text) + " "; break;
      case HelpToken::Kind::Tag:
        if (token.text == "a") {
          if (!token.closing) {
            link = HelpPageNumber(token.href);
          } else if (link >= 0) {
            block += " (see " + std::to_string(link) + ")";
            link = -1;
          }
        } else if (token.text == "h1" || token.text == "h2" || token.text == "p" ||
                   token.text == "li" || token.text == "ul") {
          finish();
          kind = token.closing ? "p" : token.text;
        }
        break;
    }
  }
  finish();
  // A blank before a full stop or comma that follows mathematics reads badly.
  for (const char* mark : {" .", " ,", " )"}) {
    for (std::size_t at = out.find(mark); at != std::string::npos; at = out.find(mark, at)) {
      out.erase(at, 1);
    }
  }
  return out;
}

std::vector<std::string> HelpPageProblems(const Session& s, const std::string& html,
                                          const std::string& folder) {
  std::vector<std::string> problems;
  int headings = 0;
  std::vector<std::string> open;
  for (const HelpToken& token : ReadHelpTokens(html)) {
    if (token.kind == HelpToken::Kind::Text) {
      if (token.text.find('@') != std::string::npos) {
        problems.push_back("A \"@\" has no partner, or stands inside a tag.");
      }
      if (token.text.find('<') != std::string::npos) problems.push_back("A tag is not closed.");
      continue;
    }
    if (token.kind == HelpToken::Kind::Math) {
      const HelpMath read = ReadHelpMath(s, token.text);
      if (!read.ok) {
        problems.push_back("The mathematics @" + token.text + "@ cannot be read: " + read.refusal);
      }
      continue;
    }
    const std::vector<std::string>& allowed = AllowedTags();
    if (std::find(allowed.begin(), allowed.end(), token.text) == allowed.end()) {
      problems.push_back("The tag <" + token.text + "> is not allowed.");
      continue;
    }
    if (token.attributes.find('@') != std::string::npos) {
      problems.push_back("A \"@\" has no partner, or stands inside a tag.");
    }
    if (token.closing) {
      if (open.empty() || open.back() != token.text) {
        problems.push_back("The tag </" + token.text + "> closes no open <" + token.text + ">.");
      } else {
        open.pop_back();
      }
      continue;
    }
    open.push_back(token.text);
    if (token.text == "h1") ++headings;
    if (token.text == "a") {
      const int number = HelpPageNumber(token.href);
      if (number < 0 || token.attributes != "href=\"" + token.href + "\"") {
        problems.push_back("The link <a " + token.attributes +
                           "> is not of the form href=\"NNN.html\".");
      } else if (!FactsOf(folder + "/" + token.href).regular) {
        problems.push_back("The link to " + token.href + " leads to no page.");
      }
    } else if (!token.attributes.empty() &&
               !(token.text == "p" && token.attributes == "class=\"see\"")) {
      problems.push_back("The tag <" + token.text + " " + token.attributes +
                         "> has attributes that are not allowed.");
    }
  }
  for (const std::string& tag : open) problems.push_back("The tag <" + tag + "> is not closed.");
  if (headings != 1) {
    problems.push_back("The page has " + std::to_string(headings) +
                       " h1 headings; it needs exactly one.");
  } else if (HelpPageTitle(html).empty()) {
    problems.push_back("The page's h1 heading is empty.");
  }
  return problems;
}

}  // namespace tavimor
