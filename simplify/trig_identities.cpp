// The trigonometric identities of the simplify loop's last pass: symmetry, shifts by right
// angles, reciprocal functions, Pythagoras, and the rules that break apart or combine sines and
// cosines.
#include "simplify/trig_identities.h"

#include <cmath>
#include <cstdlib>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "core/node_shape.h"
#include "core/number_text.h"
#include "simplify/bracket_rules.h"
#include "simplify/coefficients.h"
#include "simplify/euler_formula.h"
#include "simplify/factor_texts.h"
#include "simplify/function_values.h"
#include "simplify/inverse_functions.h"
#include "simplify/power_rules.h"
#include "simplify/simplify_driver.h"

namespace tavimor {

namespace {

constexpr double kPi = 3.14159265358979;

bool IsTrigName(const std::string& name) { return name == "sin" || name == "cos" || name == "tan"; }

// One factor of a term, and when it is sin, cos or tan (or a power of one) its function, angle
// and exponent.
struct TrigFactor {
  std::string text;
  bool below = false;
  std::string fn;  // empty for a factor that is no trig function
  std::string angle;
  std::string exponent = "1";
};

// A term of a sum (or a product on its own) as a sign and its factors.
struct TrigTerm {
  bool negative = false;
  std::vector<TrigFactor> factors;
};

TrigFactor ReadFactor(const Session& s, NodeIdx n, bool below) {
  TrigFactor f;
  const ExprNode& node = s.Pool[n];
  f.text = node.Text;
  f.below = below;
  NodeIdx fn_node = kNoNode;
  if (node.Kind == kKindFunction) {
    fn_node = n;
  } else if (node.Kind == kKindPower && node.FirstChild != kNoNode) {
    const NodeIdx base = s.Pool[node.FirstChild].Next;
    if (base != kNoNode && s.Pool[base].Kind == kKindFunction) {
      fn_node = base;
      f.exponent = s.Pool[node.FirstChild].Text;
    }
  }
  if (fn_node == kNoNode) return f;
  const std::string name = FunctionNameOf(s.Pool[fn_node].Text);
  if (!IsTrigName(name)) {
    f.exponent = "1";
    return f;
  }
  f.fn = name;
  f.angle = ContentText(s.Pool[fn_node]);
  return f;
}

// The term a node makes: the factors of a plain product, else the node as one factor.
TrigTerm ReadTerm(const Session& s, NodeIdx n, bool negative) {
  TrigTerm t;
  t.negative = negative;
  const ExprNode& node = s.Pool[n];
  if (node.Kind == kKindSumOrProduct && ContentShapeOf(s.Pool, n) == Shape::Product) {
    for (NodeIdx c = node.FirstChild; c != kNoNode; c = s.Pool[c].Next) {
      const ExprNode& child = s.Pool[c];
      if (IsPseudoSign(child) && child.Role != kRoleDenominator) {
        if (child.Text == "-") t.negative = !t.negative;
        continue;
      }
      t.factors.push_back(ReadFactor(s, c, child.Role == kRoleDenominator));
    }
  } else {
    t.factors.push_back(ReadFactor(s, n, false));
  }
  return t;
}

// The terms of a node whose content is a sum.
std::vector<TrigTerm> ReadSum(const Session& s, NodeIdx n) {
  std::vector<TrigTerm> terms;
  for (NodeIdx c = s.Pool[n].FirstChild; c != kNoNode; c = s.Pool[c].Next) {
    terms.push_back(ReadTerm(s, c, s.Pool[c].Role == kRoleMinus));
  }
  return terms;
}

// The factors of a term other than those at the positions given, as one text ("1" for none).
std::string CoefficientOf(const TrigTerm& t, const std::vector<std::size_t>& skip) {
  std::vector<std::string> up;
  std::vector<std::string> down;
  for (std::size_t i = 0; i < t.factors.size(); ++i) {
    bool skipped = false;
    for (const std::size_t k : skip) skipped = skipped || k == i;
    if (skipped) continue;
    (t.factors[i].below ? down : up).push_back(t.factors[i].text);
  }
  if (up.empty() && down.empty()) return "1";
  return JoinFactors(up, down);
}

// A coefficient times a quantity: "1" leaves the quantity alone.
std::string Times(const std::string& coefficient, const std::string& quantity) {
  if (coefficient == "1") return quantity;
  return coefficient + "*" + quantity;
}

// Signed texts of terms joined into a sum; a text with its own leading minus turns its sign.
std::string JoinTerms(const std::vector<std::pair<bool, std::string>>& terms) {
  std::string out;
  for (const auto& [negative_in, text_in] : terms) {
    bool negative = negative_in;
    std::string text = text_in;
    if (text.size() > 1 && text[0] == '-') {
      negative = !negative;
      text = text.substr(1);
    }
    if (out.empty()) {
      out = (negative ? "-" : "") + text;
    } else {
      out += (negative ? "-" : "+") + text;
    }
  }
  return out.empty() ? "0" : out;
}

// The text of every term of a sum, with its sign.
std::vector<std::pair<bool, std::string>> SignedTexts(const Session& s, NodeIdx n) {
  std::vector<std::pair<bool, std::string>> out;
  for (NodeIdx c = s.Pool[n].FirstChild; c != kNoNode; c = s.Pool[c].Next) {
    out.emplace_back(s.Pool[c].Role == kRoleMinus, s.Pool[c].Text);
  }
  return out;
}

// A node whose content is a sum or a product that a rule may rewrite in place: a plain node, a
// bracket, or a function's argument.
bool RewritableContent(const ExprNode& node) {
  return node.Kind == kKindSumOrProduct || node.Kind == kKindBracket ||
         node.Kind == kKindHiddenBracket || node.Kind == kKindFunction;
}

// The new content of a node: a function keeps its name, a bracket its brackets.
void RewriteContent(Session& s, NodeIdx& slot, const std::string& text,
                    const std::string& message) {
  RewriteNode(s, slot, s.Pool[slot].Kind == kKindSumOrProduct ? text : "(" + text + ")", message);
}

std::optional<double> NumberOf(Session& s, const std::string& text) {
  if (!IsNumberToken(s, text)) return std::nullopt;
  return SafeValue(s, text);
}

// A coefficient text as a signed number, when it is one.
std::optional<double> SignedNumber(Session& s, bool negative, const std::string& text) {
  const std::optional<double> v = NumberOf(s, text);
  if (!v) return std::nullopt;
  return negative ? -*v : *v;
}

// Twice an angle, simplified.
std::string DoubleAngle(Session& s, const std::string& angle) {
  return SimplifyText(s, "2*(" + angle + ")");
}

// The half turn the symmetry of arccos adds: 180, the number pi, or p; none when p is a letter.
std::optional<std::string> HalfTurn(const Session& s) {
  if (s.Degrees) return std::string("180");
  if (s.ExactToFloat) {
    return s.DecimalPoint == "," ? std::string("3,14159265358979")
                                 : std::string("3.14159265358979");
  }
  if (s.SpecialP) return std::string("p");
  return std::nullopt;
}

// A term of an angle's sum that is a whole multiple of a right angle, in degrees.
std::optional<long long> RightAngleDegrees(Session& s, NodeIdx term) {
  const ExprNode& node = s.Pool[term];
  const double sign = node.Role == kRoleMinus ? -1.0 : 1.0;
  double degrees = 0.0;
  if (node.Kind == kKindNumber && IsNumberToken(s, node.Text)) {
    const double value = SafeValue(s, node.Text);
    degrees = s.Degrees ? value : value * 180.0 / kPi;
    if (!s.Degrees && std::fabs(degrees - std::nearbyint(degrees)) > 0.0001) return std::nullopt;
  } else if (s.Degrees) {
    return std::nullopt;
  } else if (node.Kind == kKindVariable && node.Text == "p" && s.SpecialP) {
    degrees = 180.0;
  } else if (node.Kind == kKindVariable && node.Text == "d" && s.SpecialD) {
    degrees = 1.0;
  } else {
    const AngleTerm angle = AngleOfTerm(s, term);
    const int code = std::abs(angle.code);
    if (code == 2 && s.SpecialD) {
      degrees = angle.number;
    } else if (code == 3 && s.SpecialP) {
      degrees = 180.0 * static_cast<double>(angle.a) / static_cast<double>(angle.b);
    } else {
      return std::nullopt;
    }
  }
  degrees *= sign;
  if (std::fabs(degrees) >= 2147483640.0) return std::nullopt;
  const double whole = std::nearbyint(degrees);
  if (std::fabs(degrees - whole) > 1e-9 && s.Degrees) return std::nullopt;
  const auto n = static_cast<long long>(whole);
  if (n % 90 != 0) return std::nullopt;
  return n;
}

// The tangent of a sum, from the tangents of its two angles; `minus` for a difference.
std::string TanOfSum(const std::string& a, const std::string& b, bool minus) {
  return "(tan(" + a + ")" + (minus ? "-" : "+") + "tan(" + b + "))/(1" + (minus ? "+" : "-") +
         "tan(" + a + ")*tan(" + b + "))";
}

// A numeric exponent of a trig factor.
std::optional<double> ExponentOf(Session& s, const TrigFactor& f) {
  return NumberOf(s, f.exponent);
}

std::string PowerText(const std::string& base, double exponent, const Session& s) {
  if (exponent == 1.0) return base;
  return base + "^" + FormatValue(s, exponent);
}

// A term of a sum of the form c*f(x)^2 with f sin or cos: the position of that factor.
std::optional<std::size_t> SquaredTrig(const TrigTerm& t) {
  std::optional<std::size_t> found;
  for (std::size_t i = 0; i < t.factors.size(); ++i) {
    const TrigFactor& f = t.factors[i];
    if (f.fn.empty()) continue;
    if (found || f.below || f.exponent != "2" || f.fn == "tan") return std::nullopt;
    found = i;
  }
  return found;
}

// A term of a sum with exactly one trig factor, to the power 1, in the numerator.
std::optional<std::size_t> OneTrig(const TrigTerm& t) {
  std::optional<std::size_t> found;
  for (std::size_t i = 0; i < t.factors.size(); ++i) {
    const TrigFactor& f = t.factors[i];
    if (f.fn.empty()) continue;
    if (found || f.below || f.exponent != "1" || f.fn == "tan") return std::nullopt;
    found = i;
  }
  return found;
}

// The signed coefficient of a term as a text: the sign, then the other factors.
std::string SignedCoefficient(const TrigTerm& t, const std::vector<std::size_t>& skip) {
  const std::string c = CoefficientOf(t, skip);
  return t.negative ? "-" + c : c;
}

bool PythagorasOnContent(Session& s, NodeIdx& slot) {
  const NodeIdx n = slot;
  if (!RewritableContent(s.Pool[n]) || ContentShapeOf(s.Pool, n) != Shape::Sum) return false;
  // Every form below needs a squared trig function, whose power is written ")^2".
  if (s.Pool[n].Text.find(")^2") == std::string::npos) return false;
  std::vector<TrigTerm> terms = ReadSum(s, n);
  std::vector<std::pair<bool, std::string>> texts = SignedTexts(s, n);
  // 1. and 2.: a pair c1*sin(x)^2 and c2*cos(x)^2.
  for (std::size_t i = 0; i < terms.size(); ++i) {
    const std::optional<std::size_t> fi = SquaredTrig(terms[i]);
    if (!fi || terms[i].factors[*fi].fn != "sin") continue;
    const std::string x = terms[i].factors[*fi].angle;
    for (std::size_t j = 0; j < terms.size(); ++j) {
      const std::optional<std::size_t> fj = SquaredTrig(terms[j]);
      if (!fj || terms[j].factors[*fj].fn != "cos" || terms[j].factors[*fj].angle != x) continue;
      const std::string c1 = SignedCoefficient(terms[i], {*fi});
      const std::string c2 = SignedCoefficient(terms[j], {*fj});
      const std::string sin2 = "sin(" + x + ")^2";
      std::vector<std::pair<bool, std::string>> out;
      if (c1 == c2) {
        // c*sin(x)^2 + c*cos(x)^2 = c   help 365
        for (std::size_t k = 0; k < texts.size(); ++k) {
          if (k == i) out.emplace_back(false, c1);
          if (k != i && k != j) out.push_back(texts[k]);
        }
        RewriteContent(s, slot, JoinTerms(out),
                       "365#Simplify this expression using Pythagoras' theorem: @sin(" + x +
                           ")^2+cos(" + x + ")^2=1@ .");
        return true;
      }
      // c2*cos(x)^2 = c2*(1-sin(x)^2), then the sin(x)^2 terms gathered.
      std::vector<std::pair<bool, std::string>> first;
      for (std::size_t k = 0; k < texts.size(); ++k) {
        if (k == j) {
          const bool below_zero = c2[0] == '-';
          first.emplace_back(below_zero, Times(below_zero ? c2.substr(1) : c2, "(1-" + sin2 + ")"));
        } else {
          first.push_back(texts[k]);
        }
      }
      const std::string gathered = SimplifyText(s, "(" + c1 + ")-(" + c2 + ")");
      const bool plain = IsNumberToken(s, gathered);
      for (std::size_t k = 0; k < texts.size(); ++k) {
        if (k == i) {
          const bool negative_number = gathered[0] == '-' && plain;
          out.emplace_back(false,
                           Times(negative_number ? gathered : BracketIfNeeded(s, gathered), sin2));
        }
        if (k == j) out.emplace_back(false, c2);
        if (k != i && k != j) out.push_back(texts[k]);
      }
      RewriteContent(s, slot, JoinTerms(out),
                     "365#Simplify this expression by first using Pythagoras' theorem: @cos(" + x +
                         ")^2=1-" + sin2 + "@ .||          @" + JoinTerms(first) + "@ .\\|Then " +
                         (plain ? "add" : "group") + " the @" + sin2 + "@ terms.");
      return true;
    }
  }
  // 3.: a number c and a term -c*f(x)^2: c*(1-sin(x)^2) = c*cos(x)^2.
  for (std::size_t i = 0; i < terms.size(); ++i) {
    const std::optional<std::size_t> fi = SquaredTrig(terms[i]);
    if (!fi) continue;
    const std::optional<double> c =
        SignedNumber(s, terms[i].negative, CoefficientOf(terms[i], {*fi}));
    if (!c) continue;
    for (std::size_t k = 0; k < terms.size(); ++k) {
      if (k == i || terms[k].factors.size() != 1 || terms[k].factors[0].below) continue;
      const std::optional<double> constant =
          SignedNumber(s, terms[k].negative, terms[k].factors[0].text);
      if (!constant || *constant != -*c || *constant == 0.0) continue;
      const TrigFactor& f = terms[i].factors[*fi];
      const std::string other = f.fn == "sin" ? "cos" : "sin";
      std::vector<std::pair<bool, std::string>> out;
      for (std::size_t m = 0; m < texts.size(); ++m) {
        if (m == k) {
          out.emplace_back(false, Times(FormatValue(s, *constant), other + "(" + f.angle + ")^2"));
        } else if (m != i) {
          out.push_back(texts[m]);
        }
      }
      RewriteContent(s, slot, JoinTerms(out),
                     "365#Simplify this expression using Pythagoras' theorem: @1-" + f.fn + "(" +
                         f.angle + ")^2=" + other + "(" + f.angle + ")^2@ .");
      return true;
    }
  }
  return false;
}

}  // namespace

bool TrigOfNegative(Session& s, NodeIdx& slot) {
  const ExprNode& node = s.Pool[slot];
  if (node.Kind != kKindFunction) return false;
  const std::string name = FunctionNameOf(node.Text);
  if (!IsTrigName(name) && name != "arcsin" && name != "arccos" && name != "arctan") return false;
  std::string rest = ContentText(node);
  if (rest.empty() || rest[0] != '-' || !NegatedText(s, rest)) return false;
  if (name == "cos") {
    RewriteFunctionAs(s, slot, "cos(" + rest + ")",
                      "368#Simplify this expression by using the trigonometric identity "
                      "@cos(-x)=cos(x)@ .");
    return true;
  }
  if (name == "arccos") {
    const std::optional<std::string> h = HalfTurn(s);
    if (!h) return false;
    RewriteFunctionAs(s, slot, "-arccos(" + rest + ")+" + *h,
                      "375#Simplify this expression by using the symmetry property "
                      "@arccos(-x)=-arccos(x)+" +
                          *h + "@ .");
    return true;
  }
  std::string message;
  if (name == "sin") {
    message =
        "367#Simplify this expression by using the trigonometric identity @sin(-x)=-sin(x)@ .";
  } else if (name == "tan") {
    message =
        "369#Simplify this expression by using the trigonometric identity @tan(-x)=-tan(x)@ .";
  } else {
    message = (name == "arcsin" ? "374" : "376") +
              std::string("#Simplify this expression by using the symmetry property @") + name +
              "(-x)=-" + name + "(x)@ .";
  }
  RewriteFunctionAs(s, slot, "-" + name + "(" + rest + ")", message);
  return true;
}

bool TrigAngleShift(Session& s, NodeIdx& slot) {
  const ExprNode& node = s.Pool[slot];
  if (node.Kind != kKindFunction) return false;
  const std::string f = FunctionNameOf(node.Text);
  if (!IsTrigName(f) || ContentShapeOf(s.Pool, slot) != Shape::Sum) return false;
  NodeIdx shift = kNoNode;
  long long degrees = 0;
  for (NodeIdx c = node.FirstChild; c != kNoNode; c = s.Pool[c].Next) {
    const std::optional<long long> d = RightAngleDegrees(s, c);
    if (!d) continue;
    shift = c;
    degrees = *d;
    break;
  }
  if (shift == kNoNode) return false;
  std::vector<std::pair<bool, std::string>> rest;
  for (NodeIdx c = node.FirstChild; c != kNoNode; c = s.Pool[c].Next) {
    if (c != shift) rest.emplace_back(s.Pool[c].Role == kRoleMinus, s.Pool[c].Text);
  }
  std::string r = SimplifyText(s, JoinTerms(rest));
  bool negative_r = false;
  if (!r.empty() && r[0] == '-') {
    std::string positive = r;
    if (NegatedText(s, positive)) {
      negative_r = true;
      r = positive;
    }
  }
  // f(R + k*90): the quarter turns k decide the function and the sign.
  const long long quarter = ((degrees / 90) % 4 + 4) % 4;
  std::string g = f;
  bool minus = false;
  bool reciprocal = false;
  if (f == "sin") {
    g = quarter % 2 == 0 ? "sin" : "cos";
    minus = quarter >= 2;
  } else if (f == "cos") {
    g = quarter % 2 == 0 ? "cos" : "sin";
    minus = quarter == 1 || quarter == 2;
  } else {
    reciprocal = quarter % 2 == 1;
    minus = reciprocal;
  }
  if (negative_r && g != "cos") minus = !minus;  // sin and tan are odd
  const std::string text =
      std::string(minus ? "-" : "") + (reciprocal ? "1/" : "") + g + "(" + r + ")";
  const std::string help = f == "sin" ? "370" : (f == "cos" ? "371" : "372");
  RewriteFunctionAs(
      s, slot, text,
      help + "#Simplify this expression by using the symmetry of the " + f + " function.");
  return true;
}

bool EliminateReciprocalTrig(Session& s, NodeIdx& slot) {
  const ExprNode& node = s.Pool[slot];
  if (node.Kind != kKindFunction) return false;
  const std::string name = FunctionNameOf(node.Text);
  std::string inverse;
  if (name == "cot") inverse = "tan";
  if (name == "sec") inverse = "cos";
  if (name == "csc") inverse = "sin";
  if (inverse.empty()) return false;
  RewriteFunctionAs(s, slot, "1/" + inverse + "(" + ContentText(node) + ")",
                    "21#Simplify this expression by eliminating the " + name +
                        " function in favor of the " + inverse + " function.");
  return true;
}

bool BreakApartAngles(Session& s, NodeIdx& slot) {
  if (s.TrigMode != kTrigBreakApart) return false;
  const ExprNode& node = s.Pool[slot];
  if (node.Kind != kKindFunction) return false;
  const std::string f = FunctionNameOf(node.Text);
  if (!IsTrigName(f) || ContentShapeOf(s.Pool, slot) != Shape::Sum) return false;
  std::vector<std::pair<bool, std::string>> terms = SignedTexts(s, slot);
  if (terms.size() < 2) return false;
  const std::string a = JoinTerms({terms.front()});
  terms.erase(terms.begin());
  // B led by a minus: the difference formula with the signs of B turned round.
  const bool minus = terms.front().first;
  if (minus) {
    for (auto& term : terms) term.first = !term.first;
  }
  const std::string b = terms.size() == 1 ? terms.front().second : "(" + JoinTerms(terms) + ")";
  std::string text;
  std::string which;
  if (f == "sin") {
    text = "sin(" + a + ")*cos(" + b + ")" + (minus ? "-" : "+") + "cos(" + a + ")*sin(" + b + ")";
    which = "sine";
  } else if (f == "cos") {
    text = "cos(" + a + ")*cos(" + b + ")" + (minus ? "+" : "-") + "sin(" + a + ")*sin(" + b + ")";
    which = "cosine";
  } else {
    text = TanOfSum(a, b, minus);
    which = "tangent";
  }
  RewriteFunctionAs(
      s, slot, text,
      "402#Break apart the angles by using the trig identity for the " + which + " of a sum.");
  return true;
}

bool SplitDoubleAngle(Session& s, NodeIdx& slot) {
  if (s.TrigMode != kTrigBreakApart) return false;
  const ExprNode& node = s.Pool[slot];
  if (node.Kind != kKindFunction) return false;
  const std::string f = FunctionNameOf(node.Text);
  const NodeIdx first = node.FirstChild;
  if (!IsTrigName(f) || first == kNoNode) return false;
  const ExprNode& two = s.Pool[first];
  if (two.Role != kRoleNumerator || two.Kind != kKindNumber || two.Text != "2") return false;
  std::vector<std::string> up;
  std::vector<std::string> down;
  for (NodeIdx c = two.Next; c != kNoNode; c = s.Pool[c].Next) {
    (s.Pool[c].Role == kRoleDenominator ? down : up).push_back(s.Pool[c].Text);
  }
  if (up.empty() && down.empty()) return false;
  const std::string x = JoinFactors(up, down);
  std::string text;
  std::string which;
  if (f == "sin") {
    text = "2*cos(" + x + ")*sin(" + x + ")";
    which = "sine";
  } else if (f == "cos") {
    text = "2*cos(" + x + ")^2-1";
    which = "cosine";
  } else {
    text = "2*tan(" + x + ")/(-tan(" + x + ")^2+1)";
    which = "tangent";
  }
  const std::string old_text = node.Text;
  RewriteFunctionAs(s, slot, text,
                    "403#Split the double-angle @" + old_text +
                        "@ using the trig identity for the " + which + " of a double-angle.");
  return true;
}

bool ExpandHalfAngle(Session& s, NodeIdx& slot) {
  if (s.TrigMode != kTrigBreakApart) return false;
  const ExprNode& node = s.Pool[slot];
  if (node.Kind != kKindPower || node.FirstChild == kNoNode) return false;
  if (s.Pool[node.FirstChild].Text != "2") return false;
  const NodeIdx base = s.Pool[node.FirstChild].Next;
  if (base == kNoNode || s.Pool[base].Kind != kKindFunction) return false;
  const std::string f = FunctionNameOf(s.Pool[base].Text);
  if (f != "sin" && f != "cos") return false;
  if (ContentShapeOf(s.Pool, base) != Shape::Product) return false;
  NodeIdx half = kNoNode;
  bool decimal = false;
  for (NodeIdx c = s.Pool[base].FirstChild; c != kNoNode; c = s.Pool[c].Next) {
    const ExprNode& factor = s.Pool[c];
    if (factor.Role == kRoleDenominator && factor.Text == "2") {
      half = c;
      break;
    }
    if (factor.Role == kRoleNumerator && (factor.Text == "0.5" || factor.Text == "0,5")) {
      half = c;
      decimal = true;
      break;
    }
  }
  if (half == kNoNode) return false;
  std::vector<std::string> up;
  std::vector<std::string> down;
  for (NodeIdx c = s.Pool[base].FirstChild; c != kNoNode; c = s.Pool[c].Next) {
    if (c == half || (s.Pool[c].Role == kRoleNumerator && s.Pool[c].Text == "1")) continue;
    (s.Pool[c].Role == kRoleDenominator ? down : up).push_back(s.Pool[c].Text);
  }
  const std::string y = up.empty() && down.empty() ? "1" : JoinFactors(up, down);
  const std::string point = s.DecimalPoint == "," ? "0,5" : "0.5";
  std::string text = decimal ? point + "*cos(" + y + ")+" + point : "cos(" + y + ")/2+1/2";
  if (f == "sin") text = "-" + text;
  const std::string which = f == "sin" ? "sine" : "cosine";
  RewriteNode(s, slot, text,
              "404#Expand this expression by using the trig identity for the " + which +
                  " of a half-angle.");
  return true;
}

bool BreakApartTanCot(Session& s, NodeIdx& slot) {
  if (s.TrigMode != kTrigBreakApart) return false;
  const ExprNode& node = s.Pool[slot];
  if (node.Kind != kKindFunction) return false;
  const std::string name = FunctionNameOf(node.Text);
  const std::string x = ContentText(node);
  if (name == "tan") {
    RewriteFunctionAs(s, slot, "sin(" + x + ")/cos(" + x + ")",
                      "364#Break apart the tangent function into sin and cos by using the "
                      "trigonometric identity @tan(x)=sin(x)/cos(x)@ .");
    return true;
  }
  if (name == "cot") {
    RewriteFunctionAs(s, slot, "cos(" + x + ")/sin(" + x + ")",
                      "364#Break apart the cotangent function into cos and sin by using the "
                      "trigonometric identity @cot(x)=cos(x)/sin(x)@ .");
    return true;
  }
  return false;
}

bool CombineToTangent(Session& s, NodeIdx& slot) {
  if (s.TrigMode != kTrigCombine) return false;
  const ExprNode& node = s.Pool[slot];
  if (node.Kind != kKindSumOrProduct || ContentShapeOf(s.Pool, slot) != Shape::Product) {
    return false;
  }
  if (s.Pool[node.FirstChild].Role != kRoleNumerator) return false;
  if (node.Text.find("sin") == std::string::npos || node.Text.find("cos") == std::string::npos) {
    return false;
  }
  const TrigTerm t = ReadTerm(s, slot, false);
  for (std::size_t i = 0; i < t.factors.size(); ++i) {
    const TrigFactor& sine = t.factors[i];
    if (sine.fn != "sin") continue;
    for (std::size_t j = 0; j < t.factors.size(); ++j) {
      const TrigFactor& cosine = t.factors[j];
      if (cosine.fn != "cos" || cosine.angle != sine.angle || cosine.below == sine.below) continue;
      const std::optional<double> ps = ExponentOf(s, sine);
      const std::optional<double> pc = ExponentOf(s, cosine);
      if (!ps || !pc || *ps <= 0.0 || *pc <= 0.0) continue;
      const double m = std::min(*ps, *pc);
      const std::string x = sine.angle;
      std::vector<std::string> up;
      std::vector<std::string> down;
      if (t.negative) up.emplace_back("-1");
      for (std::size_t k = 0; k < t.factors.size(); ++k) {
        if (k == i || k == j) continue;
        (t.factors[k].below ? down : up).push_back(t.factors[k].text);
      }
      (sine.below ? down : up).push_back(PowerText("tan(" + x + ")", m, s));
      if (*ps > m) (sine.below ? down : up).push_back(PowerText("sin(" + x + ")", *ps - m, s));
      if (*pc > m) (cosine.below ? down : up).push_back(PowerText("cos(" + x + ")", *pc - m, s));
      const std::string sm = PowerText("sin(" + x + ")", m, s);
      const std::string cm = PowerText("cos(" + x + ")", m, s);
      const std::string tm = PowerText("tan(" + x + ")", m, s);
      const std::string identity =
          sine.below ? cm + "/" + sm + "=1/" + tm : sm + "/" + cm + "=" + tm;
      RewriteNode(s, slot, JoinFactors(up, down),
                  "364#Combine sin and cos functions using the trigonometric identity @" +
                      identity + "@ .");
      return true;
    }
  }
  return false;
}

bool PythagorasInTerm(Session& s, NodeIdx& slot) {
  // A bracket or a function whose content is a sum of squares.
  if (!s.PythagorasRules || s.Pool[slot].Kind == kKindSumOrProduct) return false;
  return PythagorasOnContent(s, slot);
}

bool PythagorasInSum(Session& s, NodeIdx& slot) {
  if (!s.PythagorasRules || s.Pool[slot].Kind != kKindSumOrProduct) return false;
  return PythagorasOnContent(s, slot);
}

bool CombineAngles(Session& s, NodeIdx& slot) {
  if (s.TrigMode != kTrigCombine) return false;
  const NodeIdx n = slot;
  if (!RewritableContent(s.Pool[n]) || ContentShapeOf(s.Pool, n) != Shape::Sum) return false;
  const std::vector<TrigTerm> terms = ReadSum(s, n);
  const std::vector<std::pair<bool, std::string>> texts = SignedTexts(s, n);
  // Each term with exactly two trig factors of sin and cos to the power 1.
  struct Pair {
    std::string f1, a1, f2, a2, coefficient;
    bool negative = false;
    bool ok = false;
  };
  std::vector<Pair> pairs;
  for (const TrigTerm& t : terms) {
    Pair p;
    std::vector<std::size_t> at;
    for (std::size_t k = 0; k < t.factors.size(); ++k) {
      if (!t.factors[k].fn.empty()) at.push_back(k);
    }
    if (at.size() == 2) {
      const TrigFactor& u = t.factors[at[0]];
      const TrigFactor& v = t.factors[at[1]];
      if (!u.below && !v.below && u.exponent == "1" && v.exponent == "1" && u.fn != "tan" &&
          v.fn != "tan" && u.angle != v.angle) {
        p = {u.fn, u.angle, v.fn, v.angle, CoefficientOf(t, at), t.negative, true};
      }
    }
    pairs.push_back(p);
  }
  // The angle of f in a pair, or empty.
  auto angle_of = [](const Pair& p, const std::string& f, const std::string& not_angle) {
    if (p.f1 == f && p.a1 != not_angle) return p.a1;
    if (p.f2 == f && p.a2 != not_angle) return p.a2;
    return std::string();
  };
  for (std::size_t i = 0; i < pairs.size(); ++i) {
    if (!pairs[i].ok) continue;
    for (std::size_t j = i + 1; j < pairs.size(); ++j) {
      if (!pairs[j].ok || pairs[j].coefficient != pairs[i].coefficient) continue;
      // The term with a plus sign leads, so that sin(x-z) is written rather than -sin(z-x).
      const bool swap = pairs[i].negative && !pairs[j].negative;
      const Pair& p = swap ? pairs[j] : pairs[i];
      const Pair& q = swap ? pairs[i] : pairs[j];
      const bool same_sign = p.negative == q.negative;
      std::string result;
      std::string identity;
      const bool p_mixed = p.f1 != p.f2;
      const bool q_mixed = q.f1 != q.f2;
      if (p_mixed && q_mixed) {
        // sin(a)*cos(b) +- cos(a)*sin(b) = sin(a +- b)
        const std::string a = angle_of(p, "sin", "");
        const std::string b = angle_of(p, "cos", "");
        if (angle_of(q, "sin", "") != b || angle_of(q, "cos", "") != a) continue;
        const std::string sign = same_sign ? "+" : "-";
        result = "sin(" + a + sign + BracketIfNeeded(s, b) + ")";
        identity =
            "sin(" + a + ")*cos(" + b + ")" + sign + "cos(" + a + ")*sin(" + b + ")=" + result;
      } else if (!p_mixed && !q_mixed && p.f1 != q.f1 &&
                 ((p.a1 == q.a1 && p.a2 == q.a2) || (p.a1 == q.a2 && p.a2 == q.a1))) {
        // cos(a)*cos(b) -+ sin(a)*sin(b) = cos(a +- b), the cosines' term leading.
        const Pair& c = p.f1 == "cos" ? p : q;
        const std::string a = c.a1;
        const std::string b = c.a2;
        const std::string sign = same_sign ? "-" : "+";
        result = "cos(" + a + sign + BracketIfNeeded(s, b) + ")";
        identity = "cos(" + a + ")*cos(" + b + ")" + (same_sign ? "+" : "-") + "sin(" + a +
                   ")*sin(" + b + ")=" + result;
        // The sign of the result is the sign of the cosines' term.
        std::vector<std::pair<bool, std::string>> out;
        for (std::size_t k = 0; k < texts.size(); ++k) {
          if (k == i) out.emplace_back(c.negative, Times(p.coefficient, result));
          if (k != i && k != j) out.push_back(texts[k]);
        }
        RewriteContent(s, slot, JoinTerms(out),
                       "402#Combine the angles using the trig identity @" + identity + "@ .");
        return true;
      } else {
        continue;
      }
      std::vector<std::pair<bool, std::string>> out;
      for (std::size_t k = 0; k < texts.size(); ++k) {
        if (k == i) out.emplace_back(p.negative, Times(p.coefficient, result));
        if (k != i && k != j) out.push_back(texts[k]);
      }
      RewriteContent(s, slot, JoinTerms(out),
                     "402#Combine the angles using the trig identity @" + identity + "@ .");
      return true;
    }
  }
  return false;
}

bool CombinePhasor(Session& s, NodeIdx& slot) {
  if (s.TrigMode != kTrigCombine) return false;
  const NodeIdx n = slot;
  if (!RewritableContent(s.Pool[n]) || ContentShapeOf(s.Pool, n) != Shape::Sum) return false;
  const std::vector<TrigTerm> terms = ReadSum(s, n);
  const std::vector<std::pair<bool, std::string>> texts = SignedTexts(s, n);
  for (std::size_t i = 0; i < terms.size(); ++i) {
    const std::optional<std::size_t> fi = OneTrig(terms[i]);
    if (!fi || terms[i].factors[*fi].fn != "sin") continue;
    const std::string x = terms[i].factors[*fi].angle;
    for (std::size_t j = 0; j < terms.size(); ++j) {
      const std::optional<std::size_t> fj = OneTrig(terms[j]);
      if (!fj || terms[j].factors[*fj].fn != "cos" || terms[j].factors[*fj].angle != x) continue;
      // Only number coefficients: the phase arctan(B/A) holds for a known sign of A.
      const std::string a = SignedCoefficient(terms[i], {*fi});
      const std::string b = SignedCoefficient(terms[j], {*fj});
      // B*cos(x)+i*B*sin(x) = B*e^(i*x)
      if (std::string term; EulerTermOfPair(s, a, b, x, term)) {
        std::vector<std::pair<bool, std::string>> out;
        for (std::size_t k = 0; k < texts.size(); ++k) {
          if (k == i) out.emplace_back(false, term);
          if (k != i && k != j) out.push_back(texts[k]);
        }
        RewriteContent(
            s, slot, JoinTerms(out),
            "363#Combine the sin and the cos into an exponential using Euler's formula.");
        return true;
      }
      if (!IsNumericText(s, a) || !IsNumericText(s, b)) continue;
      const bool negative_a = IsNegativeNumericText(s, a);
      const std::string amplitude = SimplifyText(s, "sqrt((" + a + ")^2+(" + b + ")^2)");
      std::string phase = SimplifyText(s, "arctan((" + b + ")/(" + a + "))");
      std::string angle = x;
      if (!phase.empty() && phase[0] == '-') {
        angle += phase;
      } else {
        angle += "+" + phase;
      }
      std::string result = amplitude == "1" ? "sin(" + angle + ")"
                                            : BracketIfNeeded(s, amplitude) + "*sin(" + angle + ")";
      std::vector<std::pair<bool, std::string>> out;
      for (std::size_t k = 0; k < texts.size(); ++k) {
        if (k == i) out.emplace_back(negative_a, result);
        if (k != i && k != j) out.push_back(texts[k]);
      }
      RewriteContent(s, slot, JoinTerms(out),
                     "263#Combine the sin and the cos into a sin with a phase angle.");
      return true;
    }
  }
  return false;
}

bool CombineDoubleCos(Session& s, NodeIdx& slot) {
  if (s.TrigMode != kTrigCombine) return false;
  const NodeIdx n = slot;
  if (!RewritableContent(s.Pool[n]) || ContentShapeOf(s.Pool, n) != Shape::Sum) return false;
  const std::vector<TrigTerm> terms = ReadSum(s, n);
  const std::vector<std::pair<bool, std::string>> texts = SignedTexts(s, n);
  auto rewrite = [&](std::size_t keep, std::size_t drop, const std::string& text,
                     const std::string& identity) {
    std::vector<std::pair<bool, std::string>> out;
    for (std::size_t k = 0; k < texts.size(); ++k) {
      if (k == keep) out.emplace_back(false, text);
      if (k != keep && k != drop) out.push_back(texts[k]);
    }
    RewriteContent(s, slot, JoinTerms(out),
                   "366#Combine terms using the double-angle trig identity @" + identity + "@ .");
  };
  for (std::size_t i = 0; i < terms.size(); ++i) {
    const std::optional<std::size_t> fi = SquaredTrig(terms[i]);
    if (!fi) continue;
    const TrigFactor& f = terms[i].factors[*fi];
    const std::string x = f.angle;
    const std::string c = CoefficientOf(terms[i], {*fi});
    // c*cos(x)^2 - c*sin(x)^2 = c*cos(2*x)
    if (f.fn == "cos") {
      for (std::size_t j = 0; j < terms.size(); ++j) {
        const std::optional<std::size_t> fj = SquaredTrig(terms[j]);
        if (!fj || terms[j].factors[*fj].fn != "sin" || terms[j].factors[*fj].angle != x) continue;
        if (CoefficientOf(terms[j], {*fj}) != c || terms[j].negative == terms[i].negative) continue;
        const std::string twice = DoubleAngle(s, x);
        rewrite(i, j, (terms[i].negative ? "-" : "") + Times(c, "cos(" + twice + ")"),
                "cos(" + x + ")^2-sin(" + x + ")^2=cos(" + twice + ")");
        return true;
      }
    }
    // 2*cos(x)^2-1 = cos(2*x), -2*sin(x)^2+1 = cos(2*x), times a number.
    const std::optional<double> a = SignedNumber(s, terms[i].negative, c);
    if (!a) continue;
    for (std::size_t k = 0; k < terms.size(); ++k) {
      if (k == i || terms[k].factors.size() != 1 || terms[k].factors[0].below) continue;
      const std::optional<double> b = SignedNumber(s, terms[k].negative, terms[k].factors[0].text);
      if (!b || *b == 0.0) continue;
      const double factor = f.fn == "cos" ? -*b : *b;
      if (*a != (f.fn == "cos" ? 2.0 : -2.0) * factor) continue;
      const std::string twice = DoubleAngle(s, x);
      const std::string identity = f.fn == "cos" ? "2*cos(" + x + ")^2-1=cos(" + twice + ")"
                                                 : "-2*sin(" + x + ")^2+1=cos(" + twice + ")";
      rewrite(i, k, Times(FormatValue(s, factor), "cos(" + twice + ")"), identity);
      return true;
    }
  }
  return false;
}

bool CombineDoubleSine(Session& s, NodeIdx& slot) {
  if (s.TrigMode != kTrigCombine) return false;
  const ExprNode& node = s.Pool[slot];
  if (node.Kind != kKindSumOrProduct || ContentShapeOf(s.Pool, slot) != Shape::Product) {
    return false;
  }
  const TrigTerm t = ReadTerm(s, slot, false);
  if (t.factors.size() < 2) return false;
  for (std::size_t i = 0; i < t.factors.size(); ++i) {
    const TrigFactor& sine = t.factors[i];
    if (sine.fn != "sin") continue;
    for (std::size_t j = 0; j < t.factors.size(); ++j) {
      const TrigFactor& cosine = t.factors[j];
      if (cosine.fn != "cos" || cosine.angle != sine.angle || cosine.below != sine.below ||
          cosine.exponent != sine.exponent) {
        continue;
      }
      const std::optional<double> p = ExponentOf(s, sine);
      if (!p || *p <= 0.0) continue;
      const std::string x = sine.angle;
      const std::string twice = DoubleAngle(s, x);
      std::vector<std::string> up;
      std::vector<std::string> down;
      if (t.negative) up.emplace_back("-1");
      bool two_used = *p != 1.0 || sine.below;
      for (std::size_t k = 0; k < t.factors.size(); ++k) {
        if (k == i || k == j) continue;
        if (!two_used && !t.factors[k].below && t.factors[k].text == "2") {
          two_used = true;
          continue;
        }
        (t.factors[k].below ? down : up).push_back(t.factors[k].text);
      }
      const bool had_two = *p == 1.0 && !sine.below && two_used;
      const std::string sin2 = PowerText("sin(" + twice + ")", *p, s);
      const std::string two_n = *p == 1.0 ? "2" : "2^" + FormatValue(s, *p);
      if (sine.below) {
        up.push_back(two_n);
        down.push_back(sin2);
      } else {
        up.push_back(sin2);
        if (!had_two) down.push_back(two_n);
      }
      RewriteNode(s, slot, JoinFactors(up, down),
                  "403#Combine the sin and cos functions by using the double-angle trig identity "
                  "@2*sin(" +
                      x + ")*cos(" + x + ")=sin(" + twice + ")@ .");
      return true;
    }
  }
  return false;
}

}  // namespace tavimor
