// Choosing the unknown, cleaning the list of answers, and checking each answer in the equation.
#include "solve/check_solutions.h"

#include <cmath>
#include <optional>
#include <utility>

#include "core/brackets.h"
#include "core/complex_number.h"
#include "core/errors.h"
#include "core/evaluate.h"
#include "core/node_queries.h"
#include "core/number_text.h"
#include "core/pieces.h"
#include "core/regenerate.h"
#include "core/scoped_override.h"
#include "core/temp_tree.h"
#include "core/tree_edit.h"
#include "present/work_space.h"
#include "simplify/factor_texts.h"
#include "simplify/simplify_driver.h"
#include "solve/solve_state.h"

namespace tavimor {

namespace {

constexpr double kTolerance = 1e-7;
constexpr double kTiny = 1e-12;

constexpr const char* kCantEvaluate =
    " .  This can't be evaluated over the real numbers, so this solution must be rejected.\\";
constexpr const char* kChecksOut = " , so this solution checks out.\\";
constexpr const char* kDoesNotCheck =
    " , so this solution doesn't check out and must be rejected.\\";

bool IsReserved(const std::string& text) {
  return text == kUnsolvable || text == kNoSolution || text == kAnyValue;
}

void SplitEquation(const std::string& equation, std::string& left, std::string& right) {
  const std::size_t eq = equation.find('=');
  left = equation.substr(0, eq);
  right = eq == std::string::npos ? "0" : equation.substr(eq + 1);
}

bool IsDomainError(const RunTimeError& e) {
  return e.Number() == RunTimeErrorNumber::InvalidCall ||
         e.Number() == RunTimeErrorNumber::DivisionByZero;
}

std::string SimplifiedWith(Session& s, const std::string& text, bool to_float) {
  ScopedOverride exact(s.ExactToFloat, to_float);
  ScopedOverride inverse_trig(s.EvaluateInverseTrig, std::int16_t{1});
  return SimplifyText(s, text);
}

// The real value of a text; nothing when it has none, a value outside the domain included.
std::optional<double> RealValueOrNothing(Session& s, const std::string& text) {
  try {
    return RealValueOf(s, text);
  } catch (const RunTimeError& e) {
    if (!IsDomainError(e)) throw;
    return std::nullopt;
  }
}

// One side with the answer put in for the unknown, simplified in floating point.
std::string SubstitutedSide(Session& s, const std::string& side, const std::string& unknown,
                            const std::string& value) {
  return SimplifiedWith(s, PutValueForLetter(s, side, unknown, value), true);
}

// The same under real arithmetic, with its value: `side` becomes the simplified form. An odd
// root of a negative number, (-8)^(1/3), is real only while its exponent is an exact fraction:
// when the floating-point form has no real value, the side is simplified exactly first.
std::optional<double> SubstitutedRealSide(Session& s, std::string& side, const std::string& unknown,
                                          const std::string& value) {
  const std::string text = PutValueForLetter(s, side, unknown, value);
  std::string floated = SimplifiedWith(s, text, true);
  if (std::optional<double> v = RealValueOrNothing(s, floated)) {
    side = std::move(floated);
    return v;
  }
  side = SimplifiedWith(s, SimplifiedWith(s, text, false), true);
  return RealValueOrNothing(s, side);
}

}  // namespace

std::string PutValueForLetter(Session& s, const std::string& side, const std::string& unknown,
                              const std::string& value) {
  std::string text;
  const int length = static_cast<int>(side.size());
  for (int position = 1; position <= length;) {
    const int function = FunctionNameAt(s, side, position);
    if (function > 0) {
      const int name_length = s.FunctionNameLengths[static_cast<std::size_t>(function)];
      text += side.substr(static_cast<std::size_t>(position - 1),
                          static_cast<std::size_t>(name_length));
      position += name_length;
      continue;
    }
    const int number_end = NumberEnd(s, side, position);
    const char c = side[static_cast<std::size_t>(position - 1)];
    if (number_end >= position && IsAsciiDigit(c)) {
      text += side.substr(static_cast<std::size_t>(position - 1),
                          static_cast<std::size_t>(number_end - position + 1));
      position = number_end + 1;
      continue;
    }
    if (unknown.size() == 1 && c == unknown[0]) {
      // The whole argument of a function, or a number without a sign, needs no brackets.
      const bool argument = position > 1 && side[static_cast<std::size_t>(position - 2)] == '(' &&
                            position < length && side[static_cast<std::size_t>(position)] == ')';
      const bool plain = IsNumberToken(s, value) && value[0] != '-';
      text += argument || plain ? value : "(" + value + ")";
    } else {
      text += c;
    }
    ++position;
  }
  return text;
}

namespace {

// The value of a text with the unit of the options in it; nothing when it cannot be taken.
std::optional<Complex> ComplexValueOf(Session& s, const std::string& text) {
  try {
    const TempTree t(s, text, TempTree::Depth::Whole);
    double re = 0.0;
    double im = 0.0;
    const int outcome = EvaluateComplex(s, t.Root(), re, im);
    if (outcome < 1 || outcome > 3 || !std::isfinite(re) || !std::isfinite(im)) {
      return std::nullopt;
    }
    return Complex(re, im);
  } catch (const RunTimeError&) {
    return std::nullopt;
  } catch (const AppError& e) {
    if (e.Number() == kErrorCancel) throw;
    return std::nullopt;
  }
}

// Both parts agree to 1E-7 of their sizes.
bool ComplexValuesAgree(Complex left, Complex right) {
  const double d_re = std::fabs(left.real() - right.real());
  const double d_im = std::fabs(left.imag() - right.imag());
  const double s_re = std::fabs(left.real()) + std::fabs(right.real()) + 1.0;
  const double s_im = std::fabs(left.imag()) + std::fabs(right.imag()) + 1.0;
  return kTolerance * s_re >= d_re && kTolerance * s_im >= d_im;
}

}  // namespace

std::optional<double> RealValueOf(Session& s, const std::string& text) {
  if (ContainsImagUnit(s, text)) return std::nullopt;
  if (IsNumberToken(s, text)) return SafeValue(s, text);
  try {
    const TempTree t(s, text, TempTree::Depth::Whole);
    EvaluateAll(s, t.Root());
    const double v = ValueAsNumber(s, s.Pool[t.Root()].Value);
    if (!std::isfinite(v)) return std::nullopt;
    return v;
  } catch (const RunTimeError&) {
    return std::nullopt;
  } catch (const AppError& e) {
    if (e.Number() == kErrorCancel) throw;
    return std::nullopt;
  }
}

std::vector<std::string> UnknownCandidates(Session& s, const std::string& text) {
  std::vector<std::string> letters;
  std::string left;
  std::string right;
  SplitEquation(text, left, right);
  for (const std::string& side : {left, right}) {
    if (side.empty()) continue;
    const TempTree t(s, side, TempTree::Depth::Whole);
    s.SubstitutionCount = 0;
    s.SubstitutionVars.clear();
    CollectVars(s, t.Root());
    for (const char letter : s.SubstitutionVars) {
      if (IsConstantVar(s, letter)) continue;
      const std::string name(1, letter);
      bool known = false;
      for (const std::string& l : letters) known = known || l == name;
      if (!known) letters.push_back(name);
    }
  }
  return letters;
}

int ChooseUnknown(Session& s, const std::string& equation, std::string& letter) {
  const std::vector<std::string> candidates = UnknownCandidates(s, equation);
  int count = static_cast<int>(candidates.size());
  std::string next = candidates.empty() ? letter : candidates.front();
  for (std::size_t k = 0; k < candidates.size(); ++k) {
    if (candidates[k] == letter && k + 1 < candidates.size()) next = candidates[k + 1];
    if (candidates[k] == s.Unknown) count = -1;
  }
  letter = next;
  return count;
}

void CleanAnswers(std::string& answers, int& rejected) {
  rejected = 0;
  const int count = CountPieces(answers, "; ");
  std::vector<std::string> pieces;
  for (int k = 1; k <= count; ++k) pieces.push_back(GetPiece(answers, k, "; "));
  for (std::size_t k = pieces.size(); k-- > 1;) {
    for (std::size_t j = 0; j < k; ++j) {
      if (pieces[j] == pieces[k]) {
        pieces[k].clear();
        break;
      }
    }
  }
  std::string result;
  bool unsolvable = false;
  for (const std::string& piece : pieces) {
    if (piece.empty() || piece == kNoSolution || piece == kUnsolvable) {
      ++rejected;
      unsolvable = unsolvable || piece == kUnsolvable;
      continue;
    }
    result += (result.empty() ? "" : "; ") + piece;
  }
  if (result.empty()) result = unsolvable ? kUnsolvable : kNoSolution;
  answers = result;
}

void CheckSolutions(Session& s, const std::string& equation, const std::string& unknown,
                    std::string& answers, int& rejected) {
  if (IsReserved(answers)) return;
  std::string left;
  std::string right;
  SplitEquation(equation, left, right);
  // An equation with parameters is not checked.
  for (const std::string& side : {left, right}) {
    for (const std::string& letter : UnknownCandidates(s, side)) {
      if (letter != unknown) return;
    }
  }
  const int count = CountPieces(answers, "; ");
  std::string good;
  int thrown_out = 0;
  for (int k = 1; k <= count; ++k) {
    const std::string piece = GetPiece(answers, k, "; ");
    std::string opening;
    if (k == 1) opening = count == 1 ? "Check the solution.  " : "Check the solutions.  ";
    std::string sides[2];
    std::optional<double> values[2];
    std::optional<Complex> complex_values[2];
    // With complex numbers an answer and its sides are taken with their imaginary parts; under
    // real arithmetic an answer without a real value is no real solution, whatever its sides
    // simplify to.
    const bool complex = s.ComplexForm != 0;
    bool failed = UnknownCandidates(s, piece).empty() &&
                  (complex ? !ComplexValueOf(s, piece) : !RealValueOf(s, piece));
    for (int side = 0; side < 2; ++side) {
      sides[side] = side == 0 ? left : right;
      try {
        if (complex) {
          sides[side] = SubstitutedSide(s, sides[side], unknown, piece);
          complex_values[side] = ComplexValueOf(s, sides[side]);
        } else {
          values[side] = SubstitutedRealSide(s, sides[side], unknown, piece);
        }
      } catch (const RunTimeError& e) {
        // A value outside the domain (a zero denominator, a root or logarithm of a negative
        // number) has no real value; any other failure ends the check with the answers kept.
        if (!IsDomainError(e)) return;
      } catch (const AppError& e) {
        if (e.Number() == kErrorCancel) throw;
      }
      failed = failed || (complex ? !complex_values[side] : !values[side]);
    }
    // Two tiny values read as 0=0.
    if (values[0] && values[1] && IsNumberToken(s, sides[0]) && IsNumberToken(s, sides[1]) &&
        std::fabs(*values[0]) < kTiny && std::fabs(*values[1]) < kTiny) {
      sides[0] = "0";
      sides[1] = "0";
    }
    std::string message = opening + "Substitute @" + unknown + "=" + piece +
                          "@ back into the original equation.|After simplifying, the equation "
                          "reads @" +
                          sides[0] + "=" + sides[1] + "@";
    bool passes = false;
    if (failed) {
      message += kCantEvaluate;
      s.HelpNumber = 252;
    } else {
      if (complex) {
        passes = ComplexValuesAgree(*complex_values[0], *complex_values[1]);
      } else {
        const double difference = std::fabs(*values[0] - *values[1]);
        const double scale = std::fabs(*values[0]) + std::fabs(*values[1]) + 1.0;
        passes = kTolerance * scale >= difference;
      }
      message += passes ? kChecksOut : kDoesNotCheck;
      s.HelpNumber = static_cast<std::int16_t>(passes ? 254 : 253);
    }
    if (s.SolveDetail > 0) {
      WorkSpaceSink box(s);
      WriteMessage(s, box, message, s.StreamingOutput);
    }
    if (passes) {
      good += (good.empty() ? "" : "; ") + piece;
    } else {
      ++thrown_out;
    }
  }
  rejected += thrown_out;
  answers = good.empty() ? kNoSolution : good;
}

}  // namespace tavimor
