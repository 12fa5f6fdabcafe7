// The parser: the text of a node becomes its subtree, one level at a time.
#include "core/parse.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>
#include <vector>

#include "core/brackets.h"
#include "core/node_pool.h"
#include "core/number_text.h"
#include "core/text_predicates.h"

namespace tavimor {

namespace {

// Terms or factors of one level, each with its role as the first character. At most 50: the
// next raises the run-time error.
class Entries {
 public:
  Entries() { items_.reserve(8); }  // most levels have a few
  void Add(std::string entry) {
    if (static_cast<int>(items_.size()) >= kParseEntryLimit) {
      throw RunTimeError(RunTimeErrorNumber::SubscriptOutOfRange, "Subscript out of range");
    }
    items_.push_back(std::move(entry));
  }
  std::string& operator[](int i) { return items_[static_cast<std::size_t>(i - 1)]; }  // 1-based
  int Count() const { return static_cast<int>(items_.size()); }
  void InsertAt(int i, std::string entry) {  // moves entries i.. up by one
    if (static_cast<int>(items_.size()) >= kParseEntryLimit) {
      throw RunTimeError(RunTimeErrorNumber::SubscriptOutOfRange, "Subscript out of range");
    }
    items_.insert(items_.begin() + (i - 1), std::move(entry));
  }
  void RemoveAt(int i) { items_.erase(items_.begin() + (i - 1)); }  // moves entries behind down

 private:
  std::vector<std::string> items_;
};

char At(std::string_view text, int p) {
  return (p >= 1 && p <= static_cast<int>(text.size())) ? text[static_cast<std::size_t>(p - 1)]
                                                        : ' ';
}

// Text from position a to b, both 1-based and inclusive.
std::string Mid(std::string_view text, int a, int b) {
  if (b < a || a > static_cast<int>(text.size())) return "";
  return std::string(
      text.substr(static_cast<std::size_t>(a - 1), static_cast<std::size_t>(b - a + 1)));
}

// Quick tests of one character, asked before the scans that would find nothing there: a number
// begins with a digit or the decimal point (after a sign where signs belong to numbers), a
// function with a character some function name begins with.
bool MayStartUnsignedNumber(char c, char dp) { return IsAsciiDigit(c) || c == dp; }
bool MayStartSignedNumber(char c, char dp) {
  return MayStartUnsignedNumber(c, dp) || c == '+' || c == '-';
}
bool MayStartFunction(const Session& s, char c) {
  return s.FunctionNameStarts[static_cast<unsigned char>(c)];
}

int CloseOrFail(std::string_view text, int p) {
  const int close = FindCloseBracket(text, p);
  if (close == 0) {
    throw RunTimeError(RunTimeErrorNumber::SubscriptOutOfRange, "A bracket is never closed");
  }
  return close;
}

// Where the terms or factors of one level lie in its text (1-based, inclusive), found before any
// of them is copied; at most 50, like the entries they become.
class Spans {
 public:
  void Add(int from, int to) {
    if (count_ >= kParseEntryLimit) {
      throw RunTimeError(RunTimeErrorNumber::SubscriptOutOfRange, "Subscript out of range");
    }
    spans_[static_cast<std::size_t>(count_++)] = {from, to};
  }
  int Count() const { return count_; }
  int From(int i) const { return spans_[static_cast<std::size_t>(i - 1)].from; }  // 1-based
  int To(int i) const { return spans_[static_cast<std::size_t>(i - 1)].to; }
  // The text of span i in `t`; empty when the span is.
  std::string_view Text(std::string_view t, int i) const {
    if (To(i) < From(i) || From(i) > static_cast<int>(t.size())) return {};
    return t.substr(static_cast<std::size_t>(From(i) - 1),
                    static_cast<std::size_t>(To(i) - From(i) + 1));
  }

 private:
  // Left unset: only the first `count_` are ever read, and each is written first. (Setting all
  // fifty to zero for every level parsed cost more than finding the spans.)
  struct Span {
    int from;
    int to;
  };
  std::array<Span, kParseEntryLimit> spans_;
  int count_ = 0;
};

void SumPass(const Session& s, std::string_view t, Spans& spans) {
  const int n = static_cast<int>(t.size());
  const char dp = s.Dp();
  int p = 0;
  int start = 1;
  do {
    ++p;
    const char c = At(t, p);
    if (p <= n && (c == '(' || c == '[')) {
      p = CloseOrFail(t, p);
    } else if (MayStartUnsignedNumber(c, dp)) {
      if (const int end = NumberEnd(s, t, p); end != 0) p = end;  // keeps "1E-5" whole
    }
    if (((c == '+' || c == '-') && p >= 2) || p == n + 1) {
      spans.Add(start, p - 1);
      start = p;
    }
  } while (p <= n);
}

// Term i of the spans without its sign, and the sign as its role; the first term's sign is "1"
// for a written "+" and "+" when none is written.
std::string_view TermAt(std::string_view t, const Spans& spans, int i, char& role) {
  std::string_view term = spans.Text(t, i);
  role = kRolePlus;
  if (!term.empty() && (term[0] == '+' || term[0] == '-')) {
    role = (i == 1 && term[0] == '+') ? kRoleLeadingPlus : term[0];
    term.remove_prefix(1);
  } else if (i > 1) {
    role = term.empty() ? '\0' : term[0];
    if (!term.empty()) term.remove_prefix(1);
  }
  return term;
}

// The terms as children, each with its sign as its role.
void MakeTerms(Session& s, NodeIdx n, std::string_view t, const Spans& spans) {
  for (int i = 1; i <= spans.Count(); ++i) {
    char role = kRolePlus;
    const std::string_view term = TermAt(t, spans, i, role);
    const NodeIdx child = NewNode(s);
    AppendChild(s, n, child);
    s.Pool[child].Role = role;
    s.Pool[child].Text.assign(term);
  }
}

void FactorPass(const Session& s, std::string_view t, Spans& spans) {
  const int n = static_cast<int>(t.size());
  const char dp = s.Dp();
  int p = 0;
  int start = 1;
  do {
    ++p;
    const char c = At(t, p);
    if (c == '(' || c == '[') {
      p = CloseOrFail(t, p);
    } else if (const int number_end = MayStartSignedNumber(c, dp) ? NumberEnd(s, t, p) : 0;
               number_end != 0) {
      p = number_end;  // a leading sign belongs to the number here
    } else if (const int function_end = MayStartFunction(s, c) ? FunctionEnd(s, t, p) : 0;
               function_end != 0) {
      p = function_end;
    }
    if (c == '/' || c == '*') continue;  // the sign belongs to the factor that follows
    spans.Add(start, p);
    start = p + 1;
  } while (p < n);
}

// The factors as entries, each with its role ("N" or "D") as the first character.
void FactorEntries(std::string_view t, const Spans& spans, Entries& entries) {
  for (int i = 1; i <= spans.Count(); ++i) {
    std::string_view written = spans.Text(t, i);
    char role = 'N';
    if (!written.empty() && (written[0] == '*' || written[0] == '/')) {
      role = written[0] == '*' ? 'N' : 'D';
      written.remove_prefix(1);
    }
    std::string factor;
    factor.reserve(written.size() + 1);
    factor.push_back(role);
    factor.append(written);
    entries.Add(std::move(factor));
  }
}

// "-2^2": the sign must not fall under the power.
void SplitSignBeforePower(Entries& entries) {
  if (entries.Count() < 2) return;
  const std::string& first = entries[1];
  if ((first.rfind("N-", 0) == 0 || first.rfind("N+", 0) == 0) && entries[2] == "N^") {
    entries.InsertAt(2, "N" + first.substr(2));
    entries[1] = entries[1].substr(0, 2);
  }
}

// "x", "^", "2" -> "x^2"; a chain ends as one entry, the role before the base kept.
void MergePowers(Entries& entries) {
  int i = 2;
  while (i < entries.Count()) {
    if (entries[i].size() == 2 && entries[i][1] == '^') {  // a role and "^"
      entries[i - 1].push_back('^');
      entries[i - 1].append(entries[i + 1], 1);
      entries.RemoveAt(i + 1);
      entries.RemoveAt(i);
    } else {
      ++i;
    }
  }
}

// One letter, or digits that make one number.
bool IsPlainLeaf(std::string_view t) {
  if (t.size() == 1 && IsAsciiLetter(t[0])) return true;
  // Digits alone are always one number, whatever the decimal point.
  return !t.empty() && std::all_of(t.begin(), t.end(), IsAsciiDigit);
}

void MakeChildren(Session& s, NodeIdx n, Entries& entries) {
  for (int i = 1; i <= entries.Count(); ++i) {
    const NodeIdx child = NewNode(s);
    AppendChild(s, n, child);
    s.Pool[child].Role = entries[i][0];
    s.Pool[child].Text.assign(entries[i], 1);
  }
}

// Kind and Text on the node itself, or in a container on a single child.
void Attach(Session& s, NodeIdx n, bool in_container, char kind, std::string_view text) {
  if (in_container) {
    const NodeIdx child = NewNode(s);
    AppendChild(s, n, child);
    s.Pool[child].Kind = kind;
    s.Pool[child].Role = kRoleNone;
    s.Pool[child].Text = text;
  } else {
    s.Pool[n].Kind = kind;
    // The text may be the node's own, read in place.
    if (text.data() != s.Pool[n].Text.data()) s.Pool[n].Text = text;
  }
}

void ParsePower(Session& s, NodeIdx n, bool in_container, std::string_view t) {
  std::string base;
  std::string exponent;
  SplitPower(s, t, base, exponent);
  if (exponent.empty()) return;
  if (in_container) {
    Attach(s, n, true, kKindSumOrProduct, t);
    return;
  }
  s.Pool[n].Kind = kKindPower;
  const NodeIdx e = NewNode(s);
  AppendChild(s, n, e);
  s.Pool[e].Role = kRoleExponent;
  s.Pool[e].Text = exponent;
  const NodeIdx b = NewNode(s);
  AppendChild(s, n, b);
  s.Pool[b].Role = kRoleBase;
  s.Pool[b].Text = base;
}

}  // namespace

int TopLevelTermCount(const Session& s, std::string_view text) {
  Spans terms;
  SumPass(s, text, terms);
  return terms.Count();
}

std::vector<TopLevelTerm> TopLevelTerms(const Session& s, std::string_view text) {
  Spans spans;
  SumPass(s, text, spans);
  std::vector<TopLevelTerm> terms;
  if (spans.Count() < 2) return terms;
  terms.reserve(static_cast<std::size_t>(spans.Count()));
  for (int i = 1; i <= spans.Count(); ++i) {
    TopLevelTerm& term = terms.emplace_back();
    term.text = TermAt(text, spans, i, term.role);
  }
  return terms;
}

void ParseTree(Session& s, NodeIdx n) {
  ParseOne(s, n);
  WalkGuard guard;
  for (NodeIdx c = s.Pool[n].FirstChild; c != kNoNode; c = s.Pool[c].Next) {
    guard.Step();
    ParseTree(s, c);
  }
}

void ParseOne(Session& s, NodeIdx n) {
  {
    const ExprNode& node = s.Pool[n];
    if (node.Kind == kKindNumber || node.Kind == kKindVariable || node.FirstChild != kNoNode)
      return;
  }
  // A letter or a whole number alone is a leaf as it stands: the passes below would find one term
  // of one factor in it.
  if (const std::string& text = s.Pool[n].Text; IsPlainLeaf(text)) {
    s.Pool[n].Kind = IsAsciiLetter(text[0]) ? kKindVariable : kKindNumber;
    return;
  }
  // The text is read in place until a bracket or a function comes off it; from then on it is the
  // content, held here.
  std::string_view t = s.Pool[n].Text;
  std::string content;
  bool in_container = false;
  for (;;) {
    Spans terms;
    SumPass(s, t, terms);
    if (terms.Count() > 1) {
      MakeTerms(s, n, t, terms);
      return;
    }
    Spans factor_spans;
    FactorPass(s, t, factor_spans);
    if (factor_spans.Count() > 1) {
      Entries factors;
      FactorEntries(t, factor_spans, factors);
      SplitSignBeforePower(factors);
      MergePowers(factors);
      if (factors.Count() > 1) {
        MakeChildren(s, n, factors);
        return;
      }
    }
    // One factor in brackets: the node becomes the bracket, and its content is parsed below it.
    if (!t.empty() && (t[0] == '(' || t[0] == '[') &&
        FindCloseBracket(t, 1) == static_cast<int>(t.size())) {
      const char kind = t[0];
      std::string stripped = StripBrackets(t);
      content = std::move(stripped);
      t = content;
      std::string bracketed;
      bracketed.reserve(content.size() + 2);
      bracketed += '(';
      bracketed += content;
      bracketed += ')';
      s.Pool[n].Text = std::move(bracketed);
      s.Pool[n].Kind = kind;
      in_container = true;
      MarkBracket(s, n);
      continue;
    }
    if (t == "-" || t == "+") {
      s.Pool[n].Kind = kKindNumber;
      return;
    }
    if (NumberEnd(s, t, 1) != 0) {
      if (t.find('^') != std::string::npos) {
        ParsePower(s, n, in_container, t);
      } else if (NumberEnd(s, t, 1) == static_cast<int>(t.size())) {
        Attach(s, n, in_container, kKindNumber, t);
      }
      return;
    }
    if (t.size() == 1) {
      if (IsAsciiLetter(t[0])) Attach(s, n, in_container, kKindVariable, t);
      return;
    }
    const int function_end = FunctionEnd(s, t, 1);
    if (function_end == 0 || At(t, function_end + 1) == '^') {
      ParsePower(s, n, in_container, t);
      return;
    }
    if (function_end != static_cast<int>(t.size())) return;
    if (in_container) {
      Attach(s, n, true, kKindSumOrProduct, t);
      return;
    }
    // One function call: the argument is laid directly under the node; Text keeps the name.
    const std::size_t open = t.find_first_of("([");
    std::string argument = StripBrackets(t.substr(open + 1, t.size() - open - 2));
    content = std::move(argument);
    t = content;
    s.Pool[n].Kind = kKindFunction;
    in_container = true;
  }
}

void SplitPower(const Session& s, std::string_view text, std::string& base, std::string& exponent) {
  const int n = static_cast<int>(text.size());
  int caret = 0;
  int p = 1;
  const char dp = s.Dp();
  do {
    const char c = At(text, p);
    if (c == '(' || c == '[') {
      p = CloseOrFail(text, p);
    } else if (const int number_end = MayStartSignedNumber(c, dp) ? NumberEnd(s, text, p) : 0;
               number_end != 0) {
      p = number_end;
    } else if (const int function_end = MayStartFunction(s, c) ? FunctionEnd(s, text, p) : 0;
               function_end != 0) {
      p = function_end;
    }
    if (p + 1 < n) caret = p + 1;
    p += 2;
  } while (p <= n - 2);
  if (caret == 0) {
    base = std::string(text);
    exponent.clear();
    return;
  }
  base = Mid(text, 1, caret - 1);
  exponent = Mid(text, caret + 1, n);
}

void MarkBracket(Session& s, NodeIdx n) {
  ExprNode& node = s.Pool[n];
  if (node.Role == kRoleExponent) {
    node.Kind = kKindHiddenBracket;
    return;
  }
  if (IsSoleFactor(s, n)) {
    // A denominator is what follows a "/": without one the content holds no fraction (and its
    // brackets are known to match), so no tree is read to tell.
    const std::string_view inside = std::string_view(node.Text).substr(1, node.Text.size() - 2);
    if (inside.find('/') == std::string_view::npos || !HasDenominatorText(s, inside)) {
      s.Pool[n].Kind = kKindHiddenBracket;
    }
  }
}

bool IsSoleFactor(const Session& s, NodeIdx n) {
  const char role = s.Pool[n].Role;
  if (role != kRoleNumerator && role != kRoleDenominator) return false;
  NodeIdx first = n;
  while (s.Pool[first].Prev != kNoNode) first = s.Pool[first].Prev;
  int numerators = 0;
  int denominators = 0;
  WalkGuard guard;
  for (NodeIdx c = first; c != kNoNode; c = s.Pool[c].Next) {
    guard.Step();
    if (s.Pool[c].Role == kRoleNumerator) ++numerators;
    if (s.Pool[c].Role == kRoleDenominator) ++denominators;
  }
  return (role == kRoleNumerator && numerators == 1) ||
         (role == kRoleDenominator && denominators == 1);
}

}  // namespace tavimor
