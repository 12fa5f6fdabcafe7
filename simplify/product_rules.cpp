// The shape rules of a product: signs gathered at the front, brackets dropped, division by a
// fraction made a multiplication, fractions multiplied into one.
#include "simplify/product_rules.h"

#include <string>
#include <vector>

#include "simplify/bracket_rules.h"
#include "simplify/factor_texts.h"
#include "simplify/simplify_driver.h"
#include "simplify/step_parts.h"

#include "core/pieces.h"
namespace tavimor {

namespace {

// Factors in their order, each after its "*" or "/".
struct OrderedFactors {
  std::string text;

  void Add(char role, const std::string& factor) {
    if (role == kRoleDenominator) {
      text += (text.empty() ? "1/" : "/") + factor;
    } else {
      AppendPiece(text, '*', factor);
    }
  }
};

struct FactorTexts {
  std::vector<std::string> numerator;
  std::vector<std::string> denominator;

  void Add(char role, const std::string& text) {
    (role == kRoleDenominator ? denominator : numerator).push_back(text);
  }
  std::string Joined() const { return JoinFactors(numerator, denominator); }
};

// The content of a bracket or function, factor by factor, onto a product's lists; `swap` puts
// numerator factors into the denominator and the other way round.
void AddContent(const Session& s, NodeIdx n, bool swap, FactorTexts& out) {
  for (NodeIdx c = s.Pool[n].FirstChild; c != kNoNode; c = s.Pool[c].Next) {
    const bool down = (s.Pool[c].Role == kRoleDenominator) != swap;
    out.Add(down ? kRoleDenominator : kRoleNumerator, s.Pool[c].Text);
  }
}

// Non-sign factors of a bracket's content.
int CountContentFactors(const Session& s, NodeIdx n) {
  int count = 0;
  for (NodeIdx c = s.Pool[n].FirstChild; c != kNoNode; c = s.Pool[c].Next) {
    if (!IsPseudoSign(s.Pool[c])) ++count;
  }
  return count;
}

// The sign a factor carries that the rule below gathers, or '\0': a sign standing alone, a signed
// number, or a bracket that opens with a sign around a product or a single quantity.
char CarriedSign(const Session& s, NodeIdx c) {
  const ExprNode& factor = s.Pool[c];
  if (IsPseudoSign(factor)) return factor.Text[0];
  if (IsNumberLeaf(factor)) {
    return factor.Text[0] == '-' || factor.Text[0] == '+' ? factor.Text[0] : '\0';
  }
  const bool signed_bracket = IsBracketNode(factor) && factor.FirstChild != kNoNode &&
                              factor.Text.size() > 3 &&
                              (factor.Text[1] == '-' || factor.Text[1] == '+') &&
                              (s.Pool[factor.FirstChild].Role == kRoleNone || HoldsProduct(s, c));
  return signed_bracket ? factor.Text[1] : '\0';
}

// Whether some factor of the product passes `test`; the rules below look before they build.
template <typename Test>
bool AnyFactor(const Session& s, NodeIdx n, Test test) {
  for (NodeIdx c = s.Pool[n].FirstChild; c != kNoNode; c = s.Pool[c].Next) {
    if (test(c)) return true;
  }
  return false;
}

}  // namespace

// -(-x) -> x: signs of the factors gathered into one sign at the front (help 15).
bool CollapseProductSigns(Session& s, NodeIdx& slot) {
  const NodeIdx n = slot;
  if (!AnyFactor(s, n, [&s](NodeIdx c) { return CarriedSign(s, c) != '\0'; })) return false;
  const std::string old_text = ContentText(s.Pool[n]);
  int pluses = 0;
  int minuses = 0;
  bool plus_before_other = false;  // a dropped plus that did not stand before a number
  bool minus_in_denominator = false;
  bool minus_at_front = false;
  OrderedFactors texts;
  int position = 0;
  for (NodeIdx c = s.Pool[n].FirstChild; c != kNoNode; c = s.Pool[c].Next, ++position) {
    const ExprNode& factor = s.Pool[c];
    const char sign = CarriedSign(s, c);
    std::string rest = factor.Text;
    if (sign != '\0' && IsPseudoSign(factor)) {
      rest.clear();
      if (position == 0 && sign == '-') minus_at_front = true;
      const NodeIdx next = factor.Next;
      if (sign == '+' && (next == kNoNode || !IsNumberLeaf(s.Pool[next]))) plus_before_other = true;
    } else if (sign != '\0' && IsNumberLeaf(factor)) {
      rest = factor.Text.substr(1);
      if (position == 0 && sign == '-') minus_at_front = true;
    } else if (sign != '\0') {  // a bracket that opens with the sign
      rest = factor.Text.substr(2, factor.Text.size() - 3);
      if (sign == '+' && !IsNumberToken(s, rest)) plus_before_other = true;
      // A product left in a denominator keeps its brackets.
      if (factor.Role == kRoleDenominator && CountContentFactors(s, c) > 1) rest = "(" + rest + ")";
    }
    if (sign == '+') ++pluses;
    if (sign == '-') {
      ++minuses;
      if (factor.Role == kRoleDenominator) minus_in_denominator = true;
    }
    if (!rest.empty()) texts.Add(factor.Role, rest);
  }
  if (pluses == 0 && minuses == 0) return false;
  std::string text = (minuses % 2 == 1 ? "-" : "") + (texts.text.empty() ? "1" : texts.text);
  const bool moved = minuses == 1 && !minus_at_front && !minus_in_denominator;
  // A term of a sum gives its sign to the sum.
  ExprNode& node = s.Pool[n];
  std::string replaced;
  char role = node.Role;
  if (node.Kind == kKindSumOrProduct && !text.empty() && text[0] == '-') {
    if (node.Role == kRolePlus || node.Role == kRoleLeadingPlus) {
      role = kRoleMinus;
      replaced = "replacing the addition of a negative quantity by a subtraction.|";
    } else if (node.Role == kRoleMinus) {
      role = kRolePlus;
      replaced = "replacing the subtraction of a negative quantity by an addition.|";
    }
    if (!replaced.empty()) text.erase(0, 1);
  }
  if (text == old_text && role == node.Role) return false;
  StepParts parts;
  AddStepPart(parts, "Simplify the term @" + old_text + "@ by:|");
  if (pluses == 1) AddStepPart(parts, "dropping the unnecessary + sign.|");
  if (pluses > 1) AddStepPart(parts, "dropping the unnecessary + signs.|");
  if (minuses > 1) AddStepPart(parts, "combining the - signs.|");
  if (minus_in_denominator) AddStepPart(parts, "putting the - sign into the numerator.|");
  if (moved) AddStepPart(parts, "moving the - sign to the front.|");
  if (!replaced.empty()) AddStepPart(parts, replaced);
  AddStepPart(parts, "The result is:");
  std::string message;
  if (minuses > 1 || minus_in_denominator || !replaced.empty()) {
    message = "15#" + JoinStepParts(parts);  // the signs changed
  } else if (moved || plus_before_other) {
    message = "356#" + JoinStepParts(parts);  // only reordered
  } else {
    message = kSkipMessage;  // only a plus in front of a number
  }
  node.Role = role;
  RewriteNode(s, slot, text, message);
  return true;
}

// a*(b*c) -> a*b*c: brackets around a product without a fraction in it (help 16).
bool DropProductBrackets(Session& s, NodeIdx& slot) {
  const NodeIdx n = slot;
  const auto droppable = [&s](NodeIdx c) {
    const ExprNode& factor = s.Pool[c];
    return IsBracketNode(factor) && HoldsProduct(s, c) && !HoldsFraction(s, c) &&
           factor.Text.size() > 1 && factor.Text[1] != '-' && factor.Text[1] != '+';
  };
  if (!AnyFactor(s, n, droppable)) return false;
  FactorTexts texts;
  bool dropped = false;
  for (NodeIdx c = s.Pool[n].FirstChild; c != kNoNode; c = s.Pool[c].Next) {
    const ExprNode& factor = s.Pool[c];
    if (droppable(c)) {
      AddContent(s, c, factor.Role == kRoleDenominator, texts);
      dropped = true;
    } else {
      texts.Add(factor.Role, factor.Text);
    }
  }
  if (!dropped) return false;
  const std::string old_text = ContentText(s.Pool[n]);
  RewriteNode(s, slot, texts.Joined(),
              "16#Simplify the term @" + old_text + "@ by dropping the brackets.");
  return true;
}

// a/(b/c) -> a*c/b: division by a fraction is multiplication by its reciprocal (help 17).
bool DivideByFraction(Session& s, NodeIdx& slot) {
  const NodeIdx n = slot;
  const auto divides_by_fraction = [&s](NodeIdx c) {
    const ExprNode& factor = s.Pool[c];
    return factor.Role == kRoleDenominator && IsBracketNode(factor) && HoldsFraction(s, c);
  };
  if (!AnyFactor(s, n, divides_by_fraction)) return false;
  const std::string old_text = ContentText(s.Pool[n]);
  FactorTexts texts;
  StepParts parts;
  AddStepPart(parts, "Simplify the term @" + old_text + "@ by:|");
  for (NodeIdx c = s.Pool[n].FirstChild; c != kNoNode; c = s.Pool[c].Next) {
    const ExprNode& factor = s.Pool[c];
    if (divides_by_fraction(c)) {
      AddContent(s, c, true, texts);
      AddStepPart(parts, "replacing the division by the fraction @" + ContentText(factor) +
                             "@ by the multiplication by its reciprocal.|");
    } else {
      texts.Add(factor.Role, factor.Text);
    }
  }
  if (parts.size() == 1) return false;
  AddStepPart(parts, "The result is:");
  RewriteNode(s, slot, texts.Joined(), "17#" + JoinStepParts(parts));
  return true;
}

// (a/b)*(c/d) -> a*c/b/d: numerators multiplied and denominators multiplied (help 18).
bool MultiplyFractions(Session& s, NodeIdx& slot) {
  const NodeIdx n = slot;
  const auto is_fraction = [&s](NodeIdx c) {
    const ExprNode& factor = s.Pool[c];
    return factor.Role == kRoleNumerator && IsBracketNode(factor) && HoldsFraction(s, c);
  };
  if (!AnyFactor(s, n, is_fraction)) return false;
  int fractions = 0;
  int others = 0;
  FactorTexts texts;
  for (NodeIdx c = s.Pool[n].FirstChild; c != kNoNode; c = s.Pool[c].Next) {
    const ExprNode& factor = s.Pool[c];
    if (is_fraction(c)) {
      ++fractions;
      AddContent(s, c, false, texts);
    } else {
      ++others;
      texts.Add(factor.Role, factor.Text);
    }
  }
  if (fractions == 0 || (fractions == 1 && others == 0)) return false;
  const std::string old_text = ContentText(s.Pool[n]);
  const std::string text = texts.Joined();
  StepParts parts;
  AddStepPart(parts, "Simplify the term @" + old_text + "@ by:|");
  AddStepPart(parts, "multiplying the fractions @" + old_text + "->" + text + "@ .|");
  AddStepPart(parts, "The result is:");
  RewriteNode(s, slot, text, "18#" + JoinStepParts(parts));
  return true;
}

}  // namespace tavimor
