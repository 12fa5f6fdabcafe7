// A power on the left side undone: logarithms for an unknown exponent, a root for an unknown
// base, and the two equations of a square root.
#include <cmath>
#include <cstdint>
#include <optional>

#include "core/brackets.h"
#include "core/errors.h"
#include "core/number_text.h"
#include "core/text_predicates.h"
#include "manipulate/polynomial.h"
#include "present/work_space.h"
#include "simplify/simplify_driver.h"
#include "solve/isolate.h"

namespace tavimor {

namespace {

constexpr const char* kSameExponents =
    "Since the bases are the same the exponents must also be the same.  That is,";

std::string Bracketed(Session& s, const std::string& text) {
  return NeedsBrackets(s, text) ? "(" + text + ")" : text;
}

// A text placed as an exponent: a power too is bracketed, since a^b^c reads as (a^b)^c.
std::string AsExponent(Session& s, const std::string& text) {
  return NeedsBrackets(s, text) || IsPowerText(s, text) ? "(" + text + ")" : text;
}

// A step of its own: true when it was shown as the hint. A stop the student asked for during the
// pause unwinds the solve.
bool WriteStep(Session& s, const std::string& message, const std::string& left,
               const std::string& right, int hint) {
  if (ReportStep(s, message, left, right, hint)) return true;
  if (s.AutoSolveTag.rfind("Cancel", 0) == 0) throw AppError(kErrorCancel, "Cancelled");
  return false;
}

bool IsNegativeValue(Session& s, const std::string& text) {
  const std::optional<double> v = RightSideValue(s, text);
  return v && *v < 0.0;
}

std::string BracketedSum(Session& s, const std::string& text) {
  return IsSumText(s, text) ? "(" + text + ")" : text;
}

std::string IntroLetter(const Session& s, const SolveRun& run) {
  return s.ExtraUnknown.empty() ? run.Unknown : s.ExtraUnknown;
}

std::string WithIntro(const Session& s, SolveRun& run, const std::string& message, bool intro) {
  return intro ? AddOnceIntro(message, IntroLetter(s, run), run.OnceIntroShown) : message;
}

// |value| = root^exponent with exponent at least `lowest`; the exponent, or -1.
int WholeExponent(std::int64_t value, std::int64_t root, int lowest) {
  int exponent = 0;
  std::int64_t power = 1;
  while (power < value) {
    power *= root;
    ++exponent;
  }
  return power == value && exponent >= lowest ? exponent : -1;
}

// The smallest whole number of which `value` (at least 2) is a whole power.
std::int64_t SmallestRoot(std::int64_t value) {
  for (std::int64_t root = 2; root * root <= value; ++root) {
    if (WholeExponent(value, root, 1) > 0) return root;
  }
  return value;
}

std::optional<std::int64_t> WholeNumber(Session& s, const std::string& text) {
  const std::optional<double> v = NumericTextValue(s, text);
  if (!v || *v != std::floor(*v) || std::fabs(*v) >= kIntegerBound) return std::nullopt;
  return static_cast<std::int64_t>(*v);
}

bool IsOddWhole(Session& s, const std::string& text) {
  if (!IsIntegerText(s, text)) return false;
  const double v = SafeValue(s, text);
  return std::fmod(std::fabs(v), 2.0) == 1.0;
}

// Half of an exponent other than 2 that is an even whole number, or a fraction of an even and
// an odd whole number (under which a negative base has a real power); empty for any other.
std::string HalfOfEvenExponent(Session& s, const std::string& exponent) {
  auto even = [&s](const std::string& text) {
    return IsIntegerText(s, text) && std::fmod(SafeValue(s, text), 2.0) == 0.0 &&
           SafeValue(s, text) != 0.0;
  };
  auto half_of = [&s](const std::string& text) {
    return std::to_string(static_cast<std::int64_t>(SafeValue(s, text) / 2.0));
  };
  if (exponent == "2") return "";
  if (NumberEnd(s, exponent, 1) == static_cast<int>(exponent.size())) {
    return even(exponent) ? half_of(exponent) : "";
  }
  std::string numerator;
  std::string denominator;
  if (NumericFractionParts(s, exponent, numerator, denominator) && even(numerator) &&
      IsOddWhole(s, denominator)) {
    return half_of(numerator) + "/" + denominator;
  }
  return "";
}

// Whether (-1)^E simplifies to -1; a power that can't be simplified counts as not.
bool MinusOneToPowerIsMinusOne(Session& s, const std::string& exponent) {
  try {
    return SimplifyText(s, "(-1)^(" + exponent + ")") == "-1";
  } catch (const RunTimeError&) {
    return false;
  }
}

// A number exponent with a negative right side: which way the sign goes.
enum class SignCase { Plain, Odd, Root, NoSolution };

SignCase SignCaseOf(Session& s, const std::string& exponent, const std::string& right) {
  if (s.ComplexForm != 0 || !IsNumericText(s, exponent) || !IsNegativeValue(s, right)) {
    return SignCase::Plain;
  }
  if (NumberEnd(s, exponent, 1) == static_cast<int>(exponent.size())) {
    if (IsOddWhole(s, exponent)) return SignCase::Odd;
    if (MinusOneToPowerIsMinusOne(s, exponent)) return SignCase::Root;
    return SignCase::NoSolution;
  }
  std::string numerator;
  std::string denominator;
  if (NumericFractionParts(s, exponent, numerator, denominator) && IsOddWhole(s, numerator) &&
      IsOddWhole(s, denominator)) {
    return SignCase::Root;
  }
  return SignCase::NoSolution;
}

// Mode 1: the unknown in the exponent.
void InvertExponent(Session& s, SolveRun& run, const std::string& base, const std::string& exponent,
                    bool intro, std::string& message) {
  std::string& left = run.WorkLeft;
  std::string& right = run.WorkRight;
  const std::string b = StripBrackets(base);
  if (right == "0") {
    right = kNoSolution;
    message = "215#This equation has no solution.";
    return;
  }
  if (UseSameBase(s, left, right, b, exponent)) {
    message = kSameExponents;
    return;
  }
  if (s.HintState == 2) return;
  if (s.ComplexForm == 0 && (IsNegativeNumericText(s, b) || IsNegativeValue(s, right))) {
    right = kNoSolution;
    message = "216#This equation has no solution over the real numbers.";
    return;
  }
  if (b == "e" && s.SpecialE) {
    message = "131#Take the natural logarithm of both sides." + LogarithmNote(s, right, "ln");
    left = StripBrackets(exponent);
    right = "ln(" + right + ")";
    return;
  }
  if (b == "10") {
    message = "132#Take the logarithm to base 10 of both sides." + LogarithmNote(s, right, "log");
    left = StripBrackets(exponent);
    right = "log(" + right + ")";
    return;
  }
  // Any other base: log(B^E) = log(R), E*log(B) = log(R), E = log(R)/log(B).
  const std::string log_base = "log(" + b + ")";
  const std::string first =
      WithIntro(s, run,
                "133#Take the base 10 logarithm of both sides (note that the natural "
                "logarithm would work just as well).",
                intro);
  if (WriteStep(s, first, "log(" + left + ")", "log(" + right + ")", 1)) return;
  std::string second =
      "134#On the left side use the property of logarithms "
      "@log(Q^m)->m*log(Q)@ to bring down the exponent.";
  if (IsPowerText(s, right)) {
    second =
        "134#On both sides use the property of logarithms @log(Q^m)->m*log(Q)@ to bring "
        "down the exponent.";
  } else if (IsReciprocalText(s, right)) {
    second += "||On the right side use the property of logarithms @log(1/Q)->-log(Q)@ .";
  }
  left = Bracketed(s, exponent) + "*" + log_base;
  right = SimplifyText(s, "log(" + right + ")");
  if (WriteStep(s, second, left, right, 1)) return;
  left = StripBrackets(exponent);
  const std::string divided = BracketedSum(s, right) + "/" + log_base;
  const std::string simplified = SimplifyText(s, divided);
  const std::string divide = "135#Divide both sides by @" + log_base + "@ .";
  if (simplified != divided) {
    if (WriteStep(s, divide, left, divided, 1)) return;
    message = "135#Simplify the right side.";
  } else {
    message = divide;
  }
  right = simplified;
}

// Mode 2: the unknown in the base.
void InvertBase(Session& s, SolveRun& run, const std::string& base, const std::string& exponent,
                bool intro, std::string& message) {
  std::string& left = run.WorkLeft;
  std::string& right = run.WorkRight;
  // B^(2*m) = R is (B^m)^2 = R: both roots are kept, as for a square.
  const std::string half = HalfOfEvenExponent(s, exponent);
  const std::string square_base = half.empty() ? base : base + "^" + AsExponent(s, half);
  if (!half.empty() && s.ComplexForm == 0 && right != "0" && IsNegativeValue(s, right)) {
    // An even power is never negative: said as for any power with no real root.
    right = kNoSolution;
    message = "222#This equation has no solution over the real numbers.";
    return;
  }
  if (!half.empty()) left = "(" + square_base + ")^2";
  if (exponent == "2" || !half.empty()) {
    if (right == "0") {
      left = StripBrackets(square_base);
      message = "217#Take the square root of both sides.";
    } else if (s.ComplexForm == 0 && IsNegativeValue(s, right)) {
      right = kNoSolution;
      message =
          "218#Take the square root of both sides.  But we can't take the square root of "
          "a negative number so this equation has no solution.|";
    } else if (TakeSquareRoot(s, run, intro) == 1) {
      message = kProceedMessage;
      --s.StepCount;
    }
    return;
  }
  const std::string k = SimplifyText(s, "1/" + Bracketed(s, exponent));
  const std::string k_power = AsExponent(s, k);
  const SignCase sign = SignCaseOf(s, exponent, right);
  switch (sign) {
    case SignCase::NoSolution:
      right = kNoSolution;
      message = "222#This equation has no solution over the real numbers.";
      return;
    case SignCase::Plain:
    case SignCase::Root:
      message = std::string(sign == SignCase::Root ? "309" : "140") +
                "#Raise both sides to the power @" + k + "@ .";
      right = Bracketed(s, right) + "^" + k_power;
      left = base;
      return;
    case SignCase::Odd: break;
  }
  // An odd power of a negative number: -1 taken out, its root is -1.
  const std::string n = SimplifyText(s, "-(" + right + ")");
  const std::string first =
      WithIntro(s, run, "219#The right side is negative.  Extract a factor of -1 from it.", intro);
  if (WriteStep(s, first, left, "(-1)*(" + n + ")", 1)) return;
  left = StripBrackets(base);
  if (WriteStep(s, "220#Now raise both sides to the power @" + k + "@ .", left,
                "(-1)^" + k_power + "*(" + n + ")^" + k_power, 0)) {
    return;
  }
  message = "221#Simplify the right side.  Use the fact that @(-1)^" + k_power + "=-1@ .";
  right = "-(" + n + ")^" + k_power;
}

}  // namespace

void InvertPower(Session& s, SolveRun& run, const SideLayer& layer, int mode, bool intro,
                 std::string& message) {
  if (layer.Children.size() < 2) return;
  const std::string exponent = StripBrackets(layer.Children[0].Text);
  const std::string& base = layer.Children[1].Text;
  if (mode == 1) {
    InvertExponent(s, run, base, exponent, intro, message);
  } else {
    InvertBase(s, run, base, exponent, intro, message);
  }
}

int TakeSquareRoot(Session& s, SolveRun& run, bool intro) {
  std::string base = StripBrackets(run.WorkLeft);
  if (base.size() >= 2 && base.compare(base.size() - 2, 2, "^2") == 0) {
    base = StripBrackets(base.substr(0, base.size() - 2));
  }
  const std::string root = SimplifyText(s, SquareRootOfExpression(s, run.WorkRight));
  const std::string neg = SimplifyText(s, "-(" + root + ")");
  int root_status = 3;
  if (base.size() > 1) {
    root_status = 1;
    if (static_cast<int>(run.PendingEquations.size()) < run.PendingCount) {
      run.PendingEquations.resize(static_cast<std::size_t>(run.PendingCount));
    }
    run.Row(run.PendingCount) = {base, neg};
    run.ResizePending(run.PendingCount + 1);
    run.Row(run.PendingCount) = {base, root};
  }
  ++s.StepCount;
  if (s.SolveDetail > 0) {
    const std::string first = WithIntro(
        s, run,
        "136#Take the square root of both sides.  This gives 2 equations, one with a + sign on "
        "the right side, the other with a - sign on the right side.  The first equation is:",
        intro);
    ShowStepEqn(s, first, base, root);
    if (!s.StreamingOutput) ShowWaitButton(s, "");
    ShowStepEqn(s, "137#The other equation is:", base, neg);
    if (!s.StreamingOutput) ShowWaitButton(s, "");
  }
  run.WorkLeft = base;
  if (s.HintState == 1) {
    const std::string hint = WithIntro(
        s, run,
        "138#Take the square root of both sides.  This gives 2 equations,one with a + sign on "
        "the right, the other with a - sign.",
        intro);
    s.HelpNumber = 138;
    ShowHint(s, hint.substr(hint.find('#') + 1));
    s.HintState = 2;
    return root_status;
  }
  run.WorkRight = root_status == 3 ? root + "; " + neg : root;
  return root_status;
}

bool UseSameBase(Session& s, std::string& left, std::string& right, const std::string& base,
                 const std::string& exponent) {
  const std::optional<std::int64_t> b = WholeNumber(s, base);
  const std::optional<std::int64_t> r = WholeNumber(s, right);
  if (!b || !r) return false;
  // A positive base has only positive powers.
  if (*b > 0 && *r <= 0) return false;
  const std::int64_t size_b = *b < 0 ? -*b : *b;
  const std::int64_t size_r = *r < 0 ? -*r : *r;
  if (size_b < 2 || size_r < 1) return false;
  std::int64_t power_base = SmallestRoot(size_b);
  const int p = WholeExponent(size_b, power_base, 1);
  const int q = WholeExponent(size_r, power_base, 0);
  if (p < 1 || q < 0) return false;
  if (*b < 0) power_base = -power_base;
  auto to_power = [](std::int64_t x, int n) {
    std::int64_t v = 1;
    for (int k = 0; k < n; ++k) v *= x;
    return v;
  };
  if (to_power(power_base, p) != *b || to_power(power_base, q) != *r) return false;
  const std::string pb = std::to_string(power_base);
  const std::string ps = std::to_string(p);
  const std::string qs = std::to_string(q);
  const std::string e = AsExponent(s, exponent);
  const std::string written_left =
      p == 1 ? "(" + pb + ")^" + e : "(" + pb + ")^(" + ps + "*" + e + ")";
  const std::string step = "Use the fact that " + base + " and " + right +
                           " can both be expressed as whole powers of " + pb +
                           " so the equation can be written as";
  if (WriteStep(s, step, written_left, "(" + pb + ")^" + qs, 1)) return true;
  left = p == 1 ? StripBrackets(exponent) : ps + "*" + e;
  right = qs;
  return true;
}

}  // namespace tavimor
