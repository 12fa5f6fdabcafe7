// The narration of a factoring, told from its record: the opening, the place, the method's own
// lines, the substitution back, the simplification and the closing line.
#include <cstdlib>

#include "core/pieces.h"
#include "manipulate/factor.h"

namespace tavimor {

namespace {

constexpr const char* kEnd = " .\\|";

std::string MethodSentence(int code) {
  switch (code) {
    case kMethodCommon:
    case kMethodCommonMinus: return "sum of terms with a common factor.";
    case kMethodDifferenceOfSquares: return "difference of squares.";
    case kMethodSumOfSquares: return "sum of squares.";
    case kMethodSumOfCubes: return "sum of cubes.";
    case kMethodDifferenceOfCubes: return "difference of cubes.";
    case kMethodSumProduct:
      return "quadratic trinomial with integer coefficients and a leading coefficient of 1.";
    case kMethodQuadraticGrouping:
      return "quadratic trinomial with integer coefficients that can be factored by the grouping "
             "method.";
    case kMethodPerfectSquare: return "perfect square trinomial.";
    case kMethodCompletedSquareReal:
    case kMethodCompletedSquareImaginary:
      return "quadratic trinomial that can be factored by using the completing-the-square method "
             "to turn it into a difference of squares.";
    case kMethodDeflation: return "polynomial that can be factored by the deflation method.";
    case kMethodNumeric: return "polynomial that can be factored numerically.";
    default: return "";
  }
}

// "It is a ..." or, for grouping, its own sentence.
std::string Recognition(const std::string& lead, int code) {
  if (code == kMethodGrouping) {
    return "It has two groups of two terms.  When both groups are factored they share a common "
           "factor.\\|";
  }
  return lead + MethodSentence(code) + "\\|";
}

std::string Math(const std::string& text) { return "@" + text + "@"; }

std::string CommonLines(const std::vector<std::string>& v) {
  const std::string& n = v[1];
  return "   - Identify the greatest common factor: " + Math(v[0]) + kEnd +
         "   - Tentatively write the factored form like this: " + Math(v[2]) + " .  The " + n +
         " dots represent the " + n + " new terms with the factor removed.\\|" +
         "   - Determine the " + n +
         " new terms by dividing each of the old terms by the common factor.  This gives: " +
         Math(v[3]) + kEnd;
}

std::string LetLines(const std::string& a, const std::string& b) {
  return "   - Let " + Math("a=" + a) + " .|   - Let " + Math("b=" + b) + " .|";
}

// Squares and cubes: the minus sign, the formula, its letters, how it reads, the tidy form.
std::string PowerFormulaLines(int code, const std::vector<std::string>& v) {
  const bool minus = v[0] == "1";
  const bool cubes = code == kMethodSumOfCubes || code == kMethodDifferenceOfCubes;
  const bool sum = code == kMethodSumOfSquares || code == kMethodSumOfCubes;
  const std::string name =
      std::string(sum ? "sum" : "difference") + (cubes ? " of cubes" : " of squares");
  std::string formula;
  if (cubes) {
    formula = sum ? "a^3+b^3=(a+b)*(a^2-a*b+b^2)" : "a^3-b^3=(a-b)*(a^2+a*b+b^2)";
  } else {
    formula = sum ? "a^2+b^2=(a+b*" + v[7] + ")*(a-b*" + v[7] + ")" : "a^2-b^2=(a+b)*(a-b)";
  }
  std::string text;
  if (minus) {
    text += "   - Factor out a minus sign like this, " + Math("-(" + v[1] + ")") +
            ", forget about it for the moment, and look at the expression that remains INSIDE "
            "the brackets.\\|";
  }
  text += "   - It can be factored using the " + name + " formula " + Math(formula) + kEnd;
  text += LetLines(v[2], v[3]);
  text += "   - This causes the " + name + " formula to read " + Math(v[4]) +
          " .  The right side of the formula gives the factored form.\\|";
  if (v[6] != v[5]) text += "   - Simplify: " + Math(v[6]) + kEnd;
  if (minus) text += "   - Now remember the minus sign " + Math("-" + v[6]) + kEnd;
  return text;
}

std::string GroupingLines(const std::vector<std::string>& v) {
  std::string text;
  if (!v[0].empty()) text += "   - Arrange the terms like this: " + Math(v[0]) + kEnd;
  text += "   - Factor the first two terms: " + Math(v[1]) + kEnd;
  text += "   - Factor the last two terms: " + Math(v[2]) + kEnd;
  if (!v[3].empty()) text += "   - Simplify inside the brackets: " + Math(v[3]) + kEnd;
  text +=
      "   - Now the two groups have a common factor.  Factor out that common factor.  This "
      "gives: " +
      Math(v[4]) + kEnd;
  return text;
}

std::string TestLine(const std::vector<std::string>& v) {
  return "   - Check that it passes the factorability test, namely that the discriminant is a "
         "perfect square.  In this case the discriminant is " +
         v[0] + ", which is " + v[2] + " squared, so it passes.\\|";
}

std::string SumProductLines(const std::vector<std::string>& v) {
  return TestLine(v) + "   - Tentatively write the factored form like this: " + Math(v[3]) +
         " .  The dots represent two integers whose sum must be " + v[4] +
         " and whose product must be " + v[5] + ".  The only possibilities are " + v[6] + " and " +
         v[7] + ".\\|" + "   - Substitute in for the dots: " + Math(v[8]) + kEnd;
}

std::string QuadraticGroupingLines(const std::vector<std::string>& v) {
  return TestLine(v) + "   - Find two integers whose sum is " + v[3] + " and whose product is " +
         v[4] + " or " + v[5] + ".  The only possibilities are " + v[6] + " and " + v[7] + ".\\|" +
         "   - Use these integers as a guide to split the linear term into two terms like this: " +
         Math(v[8]) + kEnd +
         "   - Factor a common factor out of the first two terms: " + Math(v[9]) + kEnd +
         "   - Similarly factor a common factor out of the last two terms: " + Math(v[10]) + kEnd +
         "   - Now there is a new common factor.  Factor it out like this: " + Math(v[11]) + kEnd;
}

std::string PerfectSquareLines(const std::vector<std::string>& v) {
  const bool minus = v[0] == "1";
  std::string text;
  if (minus) {
    text += "   - Factor the minus sign out of the expression like this, " + Math(v[8]) +
            ", forget about it for the moment, and look at the expression that remains INSIDE "
            "the brackets.\\|";
  }
  text += "   - To see this think of the expression " + Math(minus ? v[4] : v[1]) +
          " as a quadratic in " + v[2] + " and check that the discriminant equals zero.\\|";
  text += "   - In this case the discriminant is " + Math("b^2-4*a*c=" + v[3]) +
          " which simplifies to zero.\\|";
  text += minus ? "   - It can be factored using the perfect square formula "
                : "   - The expression can be factored using the perfect square formula ";
  text += Math("a^2+2*a*b+b^2=(a+b)^2") + kEnd;
  text += LetLines(v[5], v[6]);
  text += "   - This causes the perfect square formula to read " + Math(v[7]) +
          " .  The right side of the formula gives the factored form.\\|";
  if (minus) {
    const std::size_t equals = v[7].rfind('=');
    text += "   - Now remember the minus sign " + Math("-" + v[7].substr(equals + 1)) + kEnd;
  }
  return text;
}

std::string CompletedSquareLines(int code, const std::string& x,
                                 const std::vector<std::string>& v) {
  const bool leading = !v[1].empty();
  std::string text;
  if (!v[0].empty()) {
    text += "   - Write the expression as a quadratic in " + x +
            " in standard form, like this: " + Math(v[0]) + kEnd;
  }
  if (leading) {
    text += "   - Factor out the coefficient of the quadratic term: " + Math(v[1]) + kEnd;
    text +=
        "   - Now look inside the brackets.  Take the coefficient of the linear term, divide "
        "it by 2, and then square it.  This gives " +
        Math(v[2]) + kEnd;
    text += "   - Call this quantity Q.  Add and subtract Q inside the brackets, like this: " +
            Math(v[3]) + kEnd;
  } else {
    text +=
        "   - Take the coefficient of the linear term, divide it by 2, and then square it.  "
        "This gives " +
        Math(v[2]) + kEnd;
    text += "   - Call this quantity Q.  Add and subtract Q, like this: " + Math(v[3]) + kEnd;
  }
  text +=
      "   - Use brackets to group the first 3 terms.  The bracketed group had Q added to it to "
      "make it a so-called 'perfect square'.  The rest had Q subtracted from it and is called "
      "'the rest': " +
      Math(v[4]) + kEnd;
  text += "   - Write the 'perfect square' group in factored form: " + Math(v[5]) + kEnd;
  text += "   - Combine 'the rest' into one term: " + Math(v[6]) + kEnd;
  text += "   - Make it look like the rest is being subtracted: " + Math(v[7]) + kEnd;
  text += std::string("   - Write the rest as the square of something") +
          (code == kMethodCompletedSquareImaginary ? ".  Notice that that 'something' is imaginary"
                                                   : "") +
          ": " + Math(v[8]) + kEnd;
  text += std::string("   - ") +
          (leading ? "We now have a difference of squares inside the big brackets.  "
                   : "This expression is now in the form of a difference of squares.  ") +
          "It can be factored using the difference of squares formula " +
          Math("a^2-b^2=(a+b)*(a-b)") + kEnd;
  text += LetLines(v[9], v[10]);
  text += "   - This causes the difference of squares formula to read " + Math(v[11]) +
          " .  The right side of the formula gives the factored form.\\|";
  if (leading) {
    text += "   - Substitute the factored form back into the big brackets: " + Math(v[12]) + kEnd;
  }
  return text;
}

std::string DeflationLines(const std::vector<std::string>& v) {
  return "   - Try some small integer values of " + v[0] +
         " such as 1, -1, 2, -2, etc. and see if any of them causes the expression to evaluate "
         "to zero.  A bit of trial and error shows that " +
         Math(v[0] + "=" + v[1]) + " does.\\|" +
         "   - According to the remainder theorem this means that " + v[2] +
         " is a factor.  Divide this factor into the expression using synthetic division or long "
         "division to find the other factor.  Doing the division gives " +
         Math("(" + v[3] + ")/" + v[2] + "=" + v[4]) + kEnd +
         "   - This means that the factored form is " + Math(v[5]) + kEnd;
}

std::string MethodLines(int code, const std::vector<std::string>& v, const std::string& x) {
  switch (code) {
    case kMethodCommon:
    case kMethodCommonMinus: return CommonLines(v);
    case kMethodDifferenceOfSquares:
    case kMethodSumOfSquares:
    case kMethodSumOfCubes:
    case kMethodDifferenceOfCubes: return PowerFormulaLines(code, v);
    case kMethodGrouping: return GroupingLines(v);
    case kMethodSumProduct: return SumProductLines(v);
    case kMethodQuadraticGrouping: return QuadraticGroupingLines(v);
    case kMethodPerfectSquare: return PerfectSquareLines(v);
    case kMethodCompletedSquareReal:
    case kMethodCompletedSquareImaginary: return CompletedSquareLines(code, x, v);
    case kMethodDeflation: return DeflationLines(v);
    case kMethodNumeric:
      return "   - Use the Laguerre numerical method find the factored form " + Math(v[0]) + kEnd;
    default: return "";
  }
}

}  // namespace

std::string NarrateFactoring(int side, const std::string& record) {
  const int place = std::atoi(FactorRecordField(record, 2).c_str());
  const std::string part = FactorRecordField(record, 3);
  const int code = std::atoi(FactorRecordField(record, 4).c_str());
  const std::vector<std::string> values = FactorRecordValues(record);
  const int count = CountPieces(record, kFactorRecordSeparator);
  const std::string whole = FactorRecordField(record, count - 1);
  const std::string result = FactorRecordField(record, count);
  static constexpr const char* kSubjects[] = {"This expression", "The left side of the equation",
                                              "The right side of the equation"};
  const std::string subject = kSubjects[side < 0 || side > 2 ? 0 : side];
  std::string text = std::to_string(code) + "#";
  if (code == kMethodNumeric && place == kPlaceWhole) {
    return text + subject +
           " is a polynomial that can only be factored numerically.  The result is:";
  }
  text += subject + " can be factored by following these steps:||";
  const std::string simplified = FactorRecordField(record, 1);
  if (!simplified.empty()) text += "   - Simplify it like this: " + Math(simplified) + kEnd;
  if (place == kPlaceWhole) {
    text += "   - Recognize the form.  ";
  } else {
    std::string where = "the factor @";
    if (place == kPlacePowerBase || place == kPlacePowerFactor) {
      where = "the base of the exponential, @";
    } else if (place == kPlaceRootArgument || place == kPlaceRootFactor) {
      where = "the argument of the square root, @";
    }
    text += "   - Identify the part that can be factored; in this case " + where + part + "@" +
            kEnd + "   - Recognize the part's form.  ";
  }
  if (code == kMethodAlias) {
    const int inner = std::atoi(values[2].c_str());
    text += "It helps to use the alias " + Math("Q=" + values[0]) + kEnd;
    text += "   - Then it reads " + Math(values[1]) + " .  " + Recognition("This is a ", inner);
    text += "   - Factor it as " + Math(values[3]) + kEnd;
    text += "   - Backsubstitute for the alias to get " + Math(values[4]) + kEnd;
  } else {
    text += Recognition("It is a ", code);
    text += MethodLines(code, values, values.size() > 13 ? values[13] : "");
  }
  if (place != kPlaceWhole) {
    text += "   - Substitute the factored form back into the original expression, like this: " +
            Math(whole) + "  \\|";
  }
  if (result != whole) {
    if (place == kPlacePowerBase || place == kPlacePowerFactor) {
      text += "   - Simplify using the properties of exponents: " + Math(result) + kEnd;
    } else if (place == kPlaceRootArgument || place == kPlaceRootFactor) {
      text += "   - Simplify using the properties of square roots: " + Math(result) + kEnd;
    } else {
      text += "   - Simplify: " + Math(result) + kEnd;
    }
  }
  return text + "   - In conclusion, the result of this factoring is:";
}

}  // namespace tavimor
