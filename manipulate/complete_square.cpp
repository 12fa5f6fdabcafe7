// Completing the square: finding the quadratic, building its record and form, the narration, and
// the button's engine on a side.
#include "manipulate/complete_square.h"

#include <vector>

#include "core/input_split.h"
#include "core/node_pool.h"
#include "core/pieces.h"
#include "core/regenerate.h"
#include "core/scoped_override.h"
#include "core/temp_tree.h"
#include "manipulate/factor.h"
#include "present/step_markup.h"
#include "present/work_space.h"
#include "simplify/bracket_rules.h"
#include "simplify/factor_texts.h"
#include "simplify/simplify_driver.h"

namespace tavimor {

namespace {

// The help page of the textbook steps of completing the square.
constexpr int kCompleteSquareHelp = 69;
// The colour of the help texts, in which the rule after the steps is drawn.
constexpr const char* kEnd = " .\\|";
constexpr int kRecordPieces = 20;

std::string Math(const std::string& text) { return "@" + text + "@"; }

bool IsSumNode(const Session& s, NodeIdx n) {
  const NodeIdx first = s.Pool[n].FirstChild;
  return first != kNoNode && IsSumRole(s.Pool[first].Role);
}

bool IsNegativeCoefficient(Session& s, const std::string& a) {
  return IsNegativeNumericText(s, a) || a.rfind('-', 0) == 0;
}

// The leading coefficient in front of the brackets: a negative number needs none there.
std::string LeadingFactor(Session& s, const std::string& a) {
  if (a.size() > 1 && a[0] == '-' && BracketIfNeeded(s, a.substr(1)) == a.substr(1)) return a;
  return BracketIfNeeded(s, a);
}

// The record of the quadratic at a node, and its completed form; false when the node holds no
// quadratic, or one the form would leave as it is.
bool BuildRecord(Session& s, const std::string& found, bool whole, NodeIdx node,
                 const std::string& letter, std::vector<std::string>& pieces) {
  std::string x = letter;
  std::string a;
  std::string b;
  std::string c;
  if (!QuadraticCoefficients(s, found, x, a, b, c)) return false;
  const std::string big = SimplifyText(s, "(" + b + ")/(" + a + ")");
  const std::string small = SimplifyText(s, "(" + c + ")/(" + a + ")");
  const bool linear = big != "0";
  const bool leading = a != "1";
  const std::string prefix = !leading ? "" : (a == "-1" ? "-(" : LeadingFactor(s, a) + "*(");
  auto wrap = [&](const std::string& inside) { return prefix + inside + (leading ? ")" : ""); };

  // x^2, B*x and C with the leading coefficient 1.
  const std::string squared = SimplifyText(s, BaseText(s, x) + "^2");
  const std::string linear_term = linear ? SimplifyText(s, CoefficientTimes(s, big, x)) : "";
  const std::string constant = small == "0" ? "" : small;
  // Q = (B/2)^2, the square (x+B/2)^2, the rest C-Q.
  const std::string q = linear ? SimplifyText(s, "(" + big + ")^2/4") : "0";
  const std::string h = linear ? SimplifyText(s, "(" + big + ")/2") : "0";
  const std::string square = linear ? "(" + Shifted(x, h) + ")^2" : squared;
  const std::string rest =
      linear ? SimplifyText(s, JoinTerms({small, "-" + BracketIfNeeded(s, q)})) : small;
  const std::string less_q = linear ? "-" + BracketIfNeeded(s, q) : "";
  const std::string shown_q = linear ? q : "";

  std::string completed;
  if (rest == "0") {
    completed = !leading ? square : (a == "-1" ? "-" + square : LeadingFactor(s, a) + "*" + square);
  } else {
    completed = wrap(JoinTerms({square, rest}));
  }
  if (completed == found) return false;

  std::string code = !linear ? "1" : (rest == "0" ? "3" : (small == "0" ? "2" : "4"));
  if (IsNegativeCoefficient(s, a)) code = "-" + code;
  const std::string standard = StandardForm(s, x, a, b, c);
  const std::string first_two = JoinTerms({squared, linear_term});
  pieces = {
      found,
      standard == found ? "" : standard,
      leading ? wrap(JoinTerms({squared, linear_term, constant})) : "",
      wrap(JoinTerms({squared, linear_term, shown_q, less_q, constant})),
      wrap(JoinTerms({"(" + JoinTerms({squared, linear_term, shown_q}) + ")", less_q, constant})),
      wrap(JoinTerms({square, less_q, constant})),
      rest == "0" ? "" : rest,
      completed,
      "",  // the whole, once the form is in place
      code,
      shown_q,
      std::to_string(node),
      a,
      first_two,
      small,
      q,
      square,
      rest,
      x,
      whole ? "whole" : "part"};
  return true;
}

// The nodes of a tree that hold a sum, children before parents, left to right.
std::vector<NodeIdx> SumsInPostOrder(const Session& s, NodeIdx root) {
  std::vector<NodeIdx> order;
  std::vector<std::pair<NodeIdx, bool>> stack{{root, false}};
  WalkGuard guard;
  while (!stack.empty()) {
    guard.Step();
    auto [n, expanded] = stack.back();
    stack.pop_back();
    if (expanded) {
      if (IsSumNode(s, n)) order.push_back(n);
      continue;
    }
    stack.push_back({n, true});
    std::vector<NodeIdx> children;
    for (NodeIdx c = s.Pool[n].FirstChild; c != kNoNode; c = s.Pool[c].Next) {
      guard.Step();
      children.push_back(c);
    }
    for (auto it = children.rbegin(); it != children.rend(); ++it) stack.push_back({*it, false});
  }
  return order;
}

// The link that holds the node: the root's own, a previous sibling's next, or the parent's first
// child; a rule that replaces the node writes the new one there.
NodeIdx& SlotOf(Session& s, NodeIdx& root, NodeIdx n) {
  if (n == root) return root;
  const NodeIdx previous = s.Pool[n].Prev;
  if (previous != kNoNode) return s.Pool[previous].Next;
  return s.Pool[ParentOf(s, n)].FirstChild;
}

std::string Piece(const std::string& record, int index) {
  return GetPiece(record, index, kCompleteSquareSeparator);
}

}  // namespace

bool CompleteTheSquare(Session& s, std::string& text, std::string& record,
                       const std::string& letter) {
  ScopedOverride keep_detail(s.DetailNow, std::int16_t{0});
  ScopedOverride keep_message(s.Message);
  ScopedOverride keep_help(s.HelpNumber);
  TempTree tree(s, text, TempTree::Depth::Whole);
  NodeIdx& root = tree.RootSlot();
  for (const NodeIdx n : SumsInPostOrder(s, root)) {
    const bool whole = n == root;
    std::vector<std::string> pieces;
    if (!BuildRecord(s, ContentText(s.Pool[n]), whole, n, letter, pieces)) continue;
    ReplaceNodeContents(s, SlotOf(s, root, n), pieces[7], true);
    RegenerateAll(s, root);
    pieces[8] = s.Pool[root].Text;
    record.clear();
    for (int i = 0; i < kRecordPieces; ++i) {
      if (i > 0) record += kCompleteSquareSeparator;
      record += pieces[static_cast<std::size_t>(i)];
    }
    text = pieces[8];
    return true;
  }
  return false;
}

std::string CompletedSquareNarration(int side, const std::string& record) {
  static constexpr const char* kSides[] = {"", "on the left side of the equation ",
                                           "on the right side of the equation "};
  const std::string code = Piece(record, 10);
  const bool whole = Piece(record, 20) == "whole";
  const std::string standard = Piece(record, 2);
  const std::string factored_out = Piece(record, 3);
  const std::string rest = Piece(record, 7);
  std::string text = std::to_string(kCompleteSquareHelp) + "#Convert the expression @" +
                     Piece(record, 1) + "@ " + kSides[side < 0 || side > 2 ? 0 : side] +
                     "to completed square form by ";
  if (code == "3" && whole && standard.empty()) {
    return text + "simply factoring this perfect square.  The result is:";
  }
  text += "following these steps:||";
  if (!standard.empty()) {
    text += "   - Write the expression as a quadratic in " + Piece(record, 19) +
            " in standard form, like this: " + Math(standard) + kEnd;
  }
  if (!factored_out.empty()) {
    text += "   - Factor out the coefficient of the quadratic term: " + Math(factored_out) + kEnd;
  }
  const std::string substituted =
      "   - Substituting this completed square form back into the original expression gives:";
  if (code == "3" || code == "-3") {
    const std::string subject = code == "3" ? "This expression" : "The trinomial in the brackets";
    if (whole) {
      return text + "   - " + subject +
             " is a perfect square.  Write it in factored form.  The result is the completed "
             "square form:";
    }
    return text + "   - " + subject +
           " is a perfect square.  Write it in factored form: " + Math(Piece(record, 6)) + kEnd +
           substituted;
  }
  // Without a linear term there is no Q to add and subtract.
  if (!Piece(record, 11).empty()) {
    text +=
        "   - Take the coefficient of the linear term, divide it by 2, and then square it.  "
        "This gives " +
        Math(Piece(record, 11)) + kEnd;
    text += "   - Call this quantity Q.  Add and subtract Q, like this: " + Math(Piece(record, 4)) +
            kEnd;
    text += "   - Use brackets to group the first 3 terms: " + Math(Piece(record, 5)) +
            " .||      The bracketed group had Q added to it to make it a so-called 'perfect "
            "square'.||      The rest had Q subtracted from it and is called 'the rest'.\\|";
  }
  if (!rest.empty()) {
    text += "   - Write the 'perfect square' in factored form: " + Math(Piece(record, 6)) + kEnd;
    if (whole) return text + "   - Simplify 'the rest'.  The result is the completed square form:";
    return text + "   - Simplify 'the rest: " + Math(rest) + kEnd + substituted;
  }
  if (whole) {
    return text +
           "   - Write the 'perfect square' group in factored form.  The result is the completed "
           "square form:";
  }
  return text + "   - Write the 'perfect square' in factored form: " + Math(Piece(record, 6)) +
         kEnd + substituted;
}

bool CompleteSquareSide(Session& s, NodeIdx side) {
  const std::string input = s.Pool[side].Text;
  std::string text = input;
  std::string record;
  if (!CompleteTheSquare(s, text, record)) return false;
  FreeChildren(s, side);
  LoadSide(s, side, text);
  s.HelpNumber = kCompleteSquareHelp;
  if (s.DetailNow >= 1) {
    s.Message = CompletedSquareNarration(SideOfPanel(s), record);
    ShowStepClosedByRule(s, side);
  }
  return true;
}

}  // namespace tavimor
