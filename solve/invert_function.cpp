// A function call on the left side undone by its inverse on both sides, with the sentence that
// says so.
#include <cmath>
#include <optional>

#include "core/brackets.h"
#include "core/text_predicates.h"
#include "simplify/simplify_driver.h"
#include "solve/isolate.h"

namespace tavimor {

namespace {

bool StartsWith(const std::string& text, const char* start) { return text.rfind(start, 0) == 0; }

// The right side in brackets where it stands as an exponent: a power too, since a^b^c reads
// as (a^b)^c.
std::string AsExponent(Session& s, const std::string& text) {
  return NeedsBrackets(s, text) || IsPowerText(s, text) ? "(" + text + ")" : text;
}

// The right side in brackets where it stands as a base.
std::string AsBase(Session& s, const std::string& text) {
  return NeedsBrackets(s, text) ? "(" + text + ")" : text;
}

// The value of a text that simplifies to a plain number, or of numbers and constants alone.
std::optional<double> PlainValue(Session& s, const std::string& text) {
  return RightSideValue(s, text);
}

bool OutsideUnit(Session& s, const std::string& text) {
  const std::optional<double> v = PlainValue(s, text);
  return v && std::fabs(*v) > 1.0;
}

bool NegativeNumber(Session& s, const std::string& text) {
  const std::optional<double> v = PlainValue(s, text);
  return v && *v < 0.0;
}

// The inverse of sin, cos and tan, with its three sentences: plain, a principal value of a
// number with many values, and the sign moved by the function's symmetry.
struct InverseTrigRow {
  const char* name;
  const char* plain;
  const char* many_values;
  const char* symmetry;
};
constexpr InverseTrigRow kInverseTrig[] = {
    // sin(A)=B -> A=arcsin(B)   help 121, 374
    {"sin", "121#Take the arcsin of both sides.", "374#Take the arcsin of both sides.  Note that ",
     "374#Take the arcsin of both sides.  Note that on the RHS the @-@ sign can be moved to the "
     "front because of the symmetry of the arcsin function."},
    // cos(A)=B -> A=arccos(B)   help 122, 375
    {"cos", "122#Take the arccos of both sides.", "375#Take the arccos of both sides.  Note that ",
     "375#Take the arccos of both sides.  Note that on the RHS the @-@ sign can be moved out "
     "because of the symmetry of the arccos function."},
    // tan(A)=B -> A=arctan(B)   help 123, 376
    {"tan", "123#Take the arctan of both sides.", "376#Take the arctan of both sides.  Note that ",
     "376#Take the arctan of both sides.  Note that on the RHS the @-@ sign can be moved to the "
     "front because of the symmetry of the arctan function."},
};

const InverseTrigRow* FindInverseTrig(const std::string& name) {
  for (const InverseTrigRow& row : kInverseTrig) {
    if (name == row.name) return &row;
  }
  return nullptr;
}

// The inverse on the right, and which of the row's three sentences fits the result.
std::string InverseTrig(Session& s, const InverseTrigRow& row, const std::string& right) {
  const std::string inverse = std::string("arc") + row.name;
  const std::string simplified = SimplifyText(s, inverse + "(" + right + ")");
  if (StartsWith(simplified, ("-" + inverse).c_str())) return row.symmetry;
  if (!StartsWith(simplified, inverse.c_str())) {
    return std::string(row.many_values) + "@" + right + "@ has many values.  " +
           "The value shown on the RHS is the principal value.";
  }
  return row.plain;
}

}  // namespace

// The note on the right side's logarithm: a power's exponent comes down, a reciprocal's sign
// comes out.
std::string LogarithmNote(Session& s, const std::string& right, const std::string& log) {
  if (IsPowerText(s, right)) {
    return "  On the right side use the property of logarithms @" + log + "(Q^m)->m*" + log +
           "(Q)@ to bring down the exponent.";
  }
  if (IsReciprocalText(s, right)) {
    return "  On the right side use the property of logarithms @" + log + "(1/Q)->-" + log +
           "(Q)@ .";
  }
  return "";
}

void InvertFunction(Session& s, std::string& left, std::string& right, std::string& message) {
  const std::size_t open = left.find('(');
  if (open == std::string::npos || left.size() < open + 2) return;
  const std::string name = left.substr(0, open);
  left = left.substr(open + 1, left.size() - open - 2);
  const std::string was = right;
  const bool real_only = s.ComplexForm == 0;
  if ((name == "sin" || name == "cos") && real_only && OutsideUnit(s, was)) {
    right = kNoSolution;
    message = "257#This equation has no solution over the real numbers.";
  } else if (const InverseTrigRow* row = FindInverseTrig(name)) {
    message = InverseTrig(s, *row, was);
    right = "arc" + name + "(" + was + ")";
  } else if (name == "arcsin" || name == "arctan") {
    const std::string inverse = name.substr(3);
    right = inverse + "(" + was + ")";
    const std::string simplified = SimplifyText(s, right);
    message = "12" + std::string(name == "arcsin" ? "4" : "6") + "#Take the " + inverse +
              " of both sides.";
    if (StartsWith(simplified, ("-" + inverse).c_str())) {
      message = "367#Take the " + inverse + " of both sides.  Note that on the RHS the @-@ sign " +
                "can be moved to the front because of the odd symmetry of the " + inverse +
                " function.";
    }
  } else if (name == "arccos") {
    right = "cos(" + was + ")";
    const std::string simplified = SimplifyText(s, right);
    message = "125#Take the cos of both sides.";
    const bool argument_changed =
        simplified.size() < 5 || StripBrackets(simplified.substr(3)) != StripBrackets(was);
    if (StartsWith(simplified, "cos") && NegativeNumber(s, was) && argument_changed) {
      message =
          "367#Take the cos of both sides.  Note that on the RHS the @-@ sign can be "
          "dropped because of the even symmetry of the cos function.";
    }
  } else if (name == "ln") {
    if (s.SpecialE && !s.ExponentToExponentialFunction) {
      right = "e^" + AsExponent(s, was);
      message = "127#Antilog to base e on both sides.";
    } else {
      right = "exp(" + was + ")";
      message = "127#Take the exponential function of both sides.";
    }
  } else if (name == "exp") {
    if (was == "0") {
      right = kNoSolution;
      message = "128#This equation has no solution.";
    } else if (real_only && NegativeNumber(s, was)) {
      right = kNoSolution;
      message = "128#This equation has no solution over the real numbers.";
    } else {
      right = "ln(" + was + ")";
      message = "128#Take the natural logarithm both sides." + LogarithmNote(s, was, "ln");
    }
  } else if (name == "log") {
    right = "10^" + AsExponent(s, was);
    message = "129#Antilog to base 10 on both sides.";
  } else if (name == "sqrt") {
    right = AsBase(s, was) + "^2";
    message = "130#Square both sides.";
  } else if (name == "cot" || name == "sec" || name == "csc") {
    // cot = 1/tan, sec = 1/cos, csc = 1/sin: the reciprocal of both sides keeps the equation
    // true where taking the argument alone would not.
    const std::string partner = name == "cot" ? "tan" : name == "sec" ? "cos" : "sin";
    left = partner + "(" + left + ")";
    right = "1/(" + was + ")";
    message = "141#Take the reciprocal of both sides.";
  }
}

}  // namespace tavimor
