// The two rungs of the solver's ladder for trigonometric equations: one function of one angle
// replaced by an alias, and the six forms in sines and cosines of one angle; their hints.
#include "solve/trig_equations.h"

#include <array>
#include <initializer_list>

#include "core/temp_tree.h"
#include "core/text_predicates.h"
#include "manipulate/factor.h"
#include "present/step_markup.h"
#include "present/work_space.h"
#include "simplify/simplify_driver.h"
#include "solve/alias_solve.h"
#include "solve/check_solutions.h"
#include "solve/polynomial_view.h"
#include "solve/solver_writes.h"
#include "solve/trig_forms.h"

namespace tavimor {

namespace {

constexpr std::array<const char*, 3> kTrigNames = {"sin", "cos", "tan"};
constexpr const char* kUnsolvableNote = "182#This trigonometric equation is unsolvable.";

// The calls of sin, cos and tan that hold the unknown, by name.
struct TrigCalls {
  std::array<std::vector<std::string>, 3> texts;  // the calls' texts, per name
  int inside = 0;                                 // nodes that hold the unknown
  std::vector<std::string> arguments;             // of every such call, in the order found
};

TrigCalls ScanTrig(Session& s, const std::string& text, const std::string& unknown) {
  TrigCalls calls;
  TempTree tree(s, text, TempTree::Depth::Whole);
  for (std::size_t k = 0; k < kTrigNames.size(); ++k) {
    const FunctionScan scan = ScanFunctionNodes(s, kTrigNames[k], unknown, tree.Root());
    calls.inside += scan.InsideCount;
    for (const NodeIdx entry : scan.Entries) {
      if (entry <= 0) continue;
      calls.texts[k].push_back(tree[entry].Text);
      calls.arguments.push_back(FunctionArgument(tree[entry].Text));
    }
  }
  return calls;
}

FormStatus Unsolvable(Session& s, const std::string& note) {
  SolverLine(s, note, true);
  return FormStatus::FormUnsolvable;
}

bool IsWholeNumberText(Session& s, const std::string& text) {
  const std::optional<double> value = NumericTextValue(s, text);
  return value && *value == static_cast<double>(static_cast<long long>(*value));
}

// q*X for the quotient q of an argument by the angle.
std::string AngleTimes(const std::string& q, const std::string& x) {
  if (q == "1") return x;
  if (q == "-1") return "-" + x;
  return q + "*" + x;
}

// The argument written with X: the quotient by the angle, with the constant part kept.
std::string AliasedArgument(Session& s, const std::string& argument, const std::string& angle,
                            const std::string& unknown, const std::string& x) {
  const std::string q = SimplifyText(s, "(" + argument + ")/(" + angle + ")");
  if (CountOccurrences(s, q, unknown) == 0) return AngleTimes(q, x);
  const std::string c = ConstantPart(s, argument, unknown);
  if (c == "0") return argument;
  const std::string q2 = SimplifyText(s, "((" + argument + ")-(" + c + "))/(" + angle + ")");
  if (CountOccurrences(s, q2, unknown) != 0) return argument;
  return AngleTimes(q2, x) + (c.front() == '-' ? "" : "+") + c;
}

// Every sin, cos and tan of a multiple of the angle written as a function of X.
std::string ReplaceAngle(Session& s, const std::string& side, const std::string& angle,
                         const std::string& unknown, const std::string& x) {
  std::string text = RegeneratedText(s, side);
  const TrigCalls calls = ScanTrig(s, text, unknown);
  for (std::size_t k = 0; k < kTrigNames.size(); ++k) {
    for (const std::string& call : calls.texts[k]) {
      const std::string argument = FunctionArgument(call);
      text = ReplaceAll(
          text, call,
          std::string(kTrigNames[k]) + "(" + AliasedArgument(s, argument, angle, unknown, x) + ")");
    }
  }
  return text;
}

bool AllZero(std::initializer_list<const std::string*> fields) {
  for (const std::string* field : fields) {
    if (*field != "0") return false;
  }
  return true;
}

// The heading number of each hint form, for the help topic of the hint.
constexpr std::array<std::int16_t, 7> kHintHelp = {0, 185, 189, 193, 199, 205, 180};

}  // namespace

std::string QuadraticAlias(Session& s, const std::string& work_left) {
  return PickAlias(s, work_left, "Y");
}

bool TrigStep(Session& s, const std::string& message, const std::string& left,
              const std::string& right) {
  return SolverStep(s, message, left, right, false);
}

void TrigLine(Session& s, const std::string& message, bool pace) {
  if (s.SolveDetail <= 0 || s.HintState != 0) return;
  SolverLine(s, message, pace);
}

std::string WithAngle(Session& s, const std::string& text, const TrigEquation& eq) {
  if (!eq.alias) return text;
  if (text == eq.x) return eq.angle;
  // The angle in brackets where it needs them; the argument of each function tidied, the rest of
  // the text as it stands.
  std::string put = RegeneratedText(s, PutValueForLetter(s, text, eq.x, eq.angle));
  const TrigCalls calls = ScanTrig(s, put, eq.unknown);
  for (std::size_t k = 0; k < kTrigNames.size(); ++k) {
    for (const std::string& call : calls.texts[k]) {
      put = ReplaceAll(
          put, call,
          std::string(kTrigNames[k]) + "(" + SimplifyText(s, FunctionArgument(call)) + ")");
    }
  }
  return put;
}

bool FindCommonAngle(Session& s, const std::vector<std::string>& arguments,
                     const std::string& unknown, std::string& angle) {
  if (arguments.empty()) return false;
  // By ratios: each argument over the first is 1/2, 1 or 2.
  const std::string& base = arguments.front();
  bool ratios = true;
  bool half = false;
  bool twice = false;
  std::string half_angle;
  for (std::size_t i = 1; i < arguments.size() && ratios; ++i) {
    const std::string r = SimplifyText(s, "(" + arguments[i] + ")/(" + base + ")");
    if (r == "1/2" || r == "0.5" || r == "0,5") {
      half = true;
      half_angle = arguments[i];
    } else if (r == "2") {
      twice = true;
    } else if (r != "1") {
      ratios = false;
    }
  }
  if (ratios && !(half && twice)) {
    angle = half ? half_angle : base;
    return true;
  }
  // By the common part of the arguments less their constants, in whole multiples.
  std::vector<std::string> parts;
  for (const std::string& argument : arguments) {
    const std::string c = ConstantPart(s, argument, unknown);
    parts.push_back(c == "0" ? argument : SimplifyText(s, "(" + argument + ")-(" + c + ")"));
  }
  const std::optional<std::string> common = CommonFactorOf(s, JoinTerms(parts), 2);
  if (!common) return false;
  // The common factor without its number: the common rest.
  std::string rest = *common;
  {
    TempTree tree(s, rest, TempTree::Depth::OneLevel);
    const NodeIdx first = tree[tree.Root()].FirstChild;
    if (tree[tree.Root()].Kind == kKindSumOrProduct && first != kNoNode &&
        tree[first].Role == kRoleNumerator && tree[first].Kind == kKindNumber) {
      rest = SimplifyText(s, "(" + rest + ")/" + tree[first].Text);
    }
  }
  if (rest == "1" || CountOccurrences(s, rest, unknown) == 0) return false;
  for (const std::string& part : parts) {
    if (!IsWholeNumberText(s, "(" + part + ")/(" + rest + ")")) return false;
  }
  angle = rest;
  return true;
}

std::string TrigHintText(int form, const std::string& angle, const std::string& x,
                         const std::string& unknown, const std::string& y) {
  const bool alias = x != unknown;
  const std::string where = alias ? ",|where @" + x + "=" + angle + "@ .  " : ".  |";
  const std::string solve_for = alias ? x + ", then for " + unknown + "." : unknown + ".";
  const std::string back =
      alias ? ",  |then back-substitute for " + x + " and solve for " + unknown + "." : ".";
  const std::string sin_x = "sin(" + x + ")";
  const std::string cos_x = "cos(" + x + ")";
  const std::string identities = "Use the trigonometric identities:|     @sin(" + x +
                                 "+B)=" + sin_x + "*cos(B)+" + cos_x +
                                 "*sin(B)@ , |and|     @cos(" + x + "+D)=" + cos_x + "*cos(D)-" +
                                 sin_x + "*sin(D)@ , |to convert it to the form|     ";
  std::string text = "This is a trigonometric equation of the form|";
  switch (form) {
    case 1:
      text += "     @A*" + sin_x + "+B*sin(2" + x + ")=0@ " + where +
              "Use the trigonometric identity|     @sin(2" + x + ")=2*" + sin_x + "*" + cos_x +
              "@  |to convert it to|     @A*" + sin_x + "+2*B*" + sin_x + "*" + cos_x +
              "=0@ .|Then factor to convert it to|     @" + sin_x + "*(A+2*B*" + cos_x +
              ")=0@ .|Then replace it with two new equations:|     @" + sin_x +
              "=0@  |and|     @A+2*B*" + cos_x + "=0@ .";
      break;
    case 2:
      text += "     @A*" + cos_x + "+B*sin(2" + x + ")=0@ " + where +
              "Use the trigonometric identity |     @sin(2" + x + ")=2*" + sin_x + "*" + cos_x +
              "@  |to convert it to|    @A*" + cos_x + "+2*B*" + sin_x + "*" + cos_x +
              "=0@ .|Then factor to convert it to |     @" + cos_x + "*(A+2*B*" + sin_x +
              ")=0@ .|Then replace it with two new equations:|     @" + cos_x +
              "=0@  |and|     @A+2*B*" + sin_x + "=0@ .";
      break;
    case 3:
      text += "     @A+B*" + cos_x + "+C*cos(2" + x + ")=0@ " + where +
              "Use the trigonometric identity |     @cos(2" + x + ")=2*(" + cos_x +
              ")^2-1@  |to convert it to|     @A+B*" + cos_x + "+2*C*(" + cos_x +
              ")^2-C=0@ ,|or to |     @A+B*" + y + "+2*C*" + y + "^2-C=0@ , |where " + y + " = " +
              cos_x + ".  This is a quadratic equation in " + y + ".  Solve for " + y + back;
      break;
    case 4:
      text += "     @A+B*" + sin_x + "+C*cos(2" + x + ")=0@ " + where +
              "Use the trigonometric identity |     @cos(2" + x + ")=1-2*(" + sin_x +
              ")^2@  |to convert it to|     @A+B*" + sin_x + "+C-2*C*(" + sin_x +
              ")^2=0@ ,|or to |     @A+B*" + y + "+C-2*C*" + y + "^2=0@ , |where " + y + " = " +
              sin_x + ".  This is a quadratic equation in " + y + ".  Solve for " + y + back;
      break;
    case 5:
      text += "     @A*sin(" + x + "+B)+C*cos(" + x + "+D)=0@ " + where + identities + "@E*" +
              sin_x + "=F*" + cos_x + "@ , |then to|     @" + sin_x + "/" + cos_x +
              "=F/E@ ,| then to|     @tan(" + x + ")=F/E@ ,|then to|     @" + x + "=arctan(F/E)@ ";
      break;
    default:
      text += "     @A*sin(" + x + "+B)+C*cos(" + x + "+D)=E@ " + where + identities + "@F*" +
              sin_x + "+G*" + cos_x +
              "=E@  |(i.e., a form that has a single sin and a single cos with no phase "
              "angles), then combine the sin and cos into a single sin with a phase angle|     "
              "@H*sin(" +
              x + "+I)=E@ |Then solve for " + solve_for;
      break;
  }
  return text;
}

FormStatus SolveSameTrigFunction(Session& s, SolveRun& run) {
  const std::string& unknown = run.Unknown;
  // 1. The unknown inside sin, cos or tan only.
  const TrigCalls calls = ScanTrig(s, run.WorkLeft, unknown);
  if (calls.inside == 0) return FormStatus::FormNotThisForm;
  if (calls.inside != CountOccurrences(s, run.WorkLeft, unknown)) {
    return Unsolvable(s, "170#This equation is unsolvable because " + unknown +
                             " occurs both inside and outside a trig function.");
  }
  // 2 and 3. One function, and one text of it.
  int names = 0;
  std::size_t which = 0;
  for (std::size_t k = 0; k < kTrigNames.size(); ++k) {
    if (!calls.texts[k].empty()) {
      ++names;
      which = k;
    }
  }
  if (names != 1) return FormStatus::FormNotThisForm;
  const std::string t = calls.texts[which].front();
  for (const std::string& text : calls.texts[which]) {
    if (text != t) return FormStatus::FormNotThisForm;
  }
  // 4. The function replaced by an alias on both sides.
  const std::string q = PickAlias(s, run.WorkLeft, "Q");
  const std::string left = ReplaceAll(RegeneratedText(s, run.SavedLeft), t, q);
  const std::string right = ReplaceAll(RegeneratedText(s, run.SavedRight), t, q);
  if (CountOccurrences(s, left, unknown) + CountOccurrences(s, right, unknown) != 0) {
    return FormStatus::FormNotThisForm;
  }
  run.SavedLeft = left;
  run.SavedRight = right;
  // 5.
  if (TrigStep(s,
               "399#This is a trig equation containing the same trig function of the same angle.  "
               "Temporarily replace the trig function @" +
                   t + "@ with the alias " + q + " and proceed to solve for " + q + ".",
               left, right)) {
    return FormStatus::FormChanged;
  }
  // 6. The hint.
  if (s.HintState == 1) {
    s.HelpNumber = 399;
    ShowHint(s,
             "This is a trigonometric equation containing the same trig function of the same "
             "angle.  Temporarily replace the trig function @" +
                 t + "@ with the alias " + q + ".|The resulting equation is @" + left + "=" +
                 right + "@ .  Solve it for " + q + ".|Once solved, replace back the alias " + q +
                 " with the trig function @" + t + "@ and proceed to solve for " + unknown + ".");
    s.HintState = 2;
    return FormStatus::FormChanged;
  }
  // 7. Solved for the alias; each value gives an equation in the function.
  return SolveInAlias(s, run, q, t);
}

FormStatus SolveTrigonometric(Session& s, SolveRun& run) {
  const std::string& unknown = run.Unknown;
  // 1. The unknown inside sin, cos or tan only.
  const TrigCalls calls = ScanTrig(s, run.WorkLeft, unknown);
  if (calls.inside == 0) return FormStatus::FormNotThisForm;
  if (calls.inside != CountOccurrences(s, run.WorkLeft, unknown)) {
    return Unsolvable(s, "181#This equation can't be solved with algebra because " + unknown +
                             " occurs both inside and outside a trigonometric function.");
  }
  // 2. The common angle.
  TrigEquation eq;
  eq.unknown = unknown;
  if (!FindCommonAngle(s, calls.arguments, unknown, eq.angle)) {
    return Unsolvable(s, kUnsolvableNote);
  }
  // 3. An alias for an angle that is not the unknown.
  eq.alias = eq.angle != unknown;
  eq.x = eq.alias ? PickAlias(s, run.WorkLeft, "Q") : unknown;
  if (eq.alias) {
    run.WorkLeft = ReplaceAngle(s, run.WorkLeft, eq.angle, unknown, eq.x);
    run.SavedLeft = ReplaceAngle(s, run.SavedLeft, eq.angle, unknown, eq.x);
    run.SavedRight = ReplaceAngle(s, run.SavedRight, eq.angle, unknown, eq.x);
  }
  // 4 and 5. The equation read by its angle: one of the forms, or unsolvable.
  const AngleSum sum = SplitAngleSum(s, run.WorkLeft, eq.x);
  eq.coefficients = SplitByAngle(s, run.WorkLeft, eq.x);
  const AngleCoefficients& c = eq.coefficients;
  const bool rest_free = sum.rest == "0" || CountOccurrences(s, sum.rest, eq.x) == 0;
  const bool sin_sin = AllZero({&c.TrigConst, &c.CosCoef, &c.Cos2Coef, &c.TrigOther});
  const bool sin_cos = AllZero({&c.TrigConst, &c.Cos2Coef, &c.SinCoef, &c.TrigOther});
  const bool cos_cos = AllZero({&c.SinCoef, &c.Sin2Coef, &c.TrigOther});
  const bool sin_cos2 = AllZero({&c.CosCoef, &c.Sin2Coef, &c.TrigOther});
  if (!rest_free && !sin_sin && !sin_cos && !cos_cos && !sin_cos2) {
    return Unsolvable(s, kUnsolvableNote);
  }
  // 6. The alias told.
  if (eq.alias && TrigStep(s,
                           "184#This is a trigonometric equation.  It is helpful to temporarily "
                           "replace @" +
                               eq.angle + "@ with the alias " + eq.x +
                               " and proceed to solve for " + eq.x + ".",
                           run.SavedLeft, run.SavedRight)) {
    return FormStatus::FormChanged;
  }
  // 7. The terms that are no sine or cosine of X+B moved.
  if (sum.rest != "0") {
    if (!rest_free && run.SavedRight != "0") {
      run.SavedLeft = run.WorkLeft;
      run.SavedRight = "0";
      if (TrigStep(s,
                   "205#This is a trigonometric equation.  First transpose (add or subtract) "
                   "everything to the left side of the equation.",
                   run.SavedLeft, run.SavedRight)) {
        return FormStatus::FormChanged;
      }
    } else if (rest_free && SimplifyText(s, "(" + sum.rest + ")+(" + run.SavedRight + ")") != "0") {
      run.SavedLeft = SimplifyText(s, "(" + run.WorkLeft + ")-(" + sum.rest + ")");
      run.SavedRight = SimplifyText(s, "-(" + sum.rest + ")");
      if (TrigStep(s,
                   "180#This is a trigonometric equation.  First transpose (add or subtract) "
                   "sines and cosines to the left side of the equation and constants to the "
                   "right.",
                   run.SavedLeft, run.SavedRight)) {
        return FormStatus::FormChanged;
      }
    }
  }
  // 8. The form, in its order.
  int form = 0;
  if (sum.rest == "0") {
    form = kHintTangent;
  } else if (rest_free) {
    form = kHintPhaseAngle;
  } else if (sin_sin) {
    form = kHintDoubleSinSin;
  } else if (sin_cos) {
    form = kHintDoubleSinCos;
  } else if (cos_cos) {
    form = kHintDoubleCosCos;
  } else {
    form = kHintDoubleSinCos2;
  }
  if (s.HintState == 1) {
    s.HelpNumber = kHintHelp[static_cast<std::size_t>(form)];
    ShowHint(s, TrigHintText(form, eq.angle, eq.x, unknown, QuadraticAlias(s, run.WorkLeft)));
    s.HintState = 2;
    return FormStatus::FormChanged;
  }
  switch (form) {
    case kHintTangent: return SolveByTangent(s, run, eq);
    case kHintPhaseAngle: return SolveByPhaseAngle(s, run, eq);
    case kHintDoubleSinSin: return SolveDoubleSinSin(s, run, eq, false);
    case kHintDoubleSinCos: return SolveDoubleSinSin(s, run, eq, true);
    case kHintDoubleCosCos: return SolveDoubleCosCos(s, run, eq, false);
    default: return SolveDoubleCosCos(s, run, eq, true);
  }
}

}  // namespace tavimor
