// The narrations of the Fraction panel: one fraction of integers simplified, two of them added,
// each sentence with its help number, the fractions typeset.
#include "manipulate/fraction_narration.h"

#include <algorithm>
#include <cstdlib>
#include <numeric>

#include "core/errors.h"
#include "core/number_format.h"
#include "core/number_text.h"
#include "present/typesetter.h"
#include "present/work_space.h"

namespace tavimor {

namespace {

using Primes = std::vector<std::int64_t>;

// The primes of a size above 0, ascending; none for 1.
Primes PrimesOf(std::int64_t size) {
  if (size <= 1) return {};
  return PrimeFactors(size);
}

std::string Product(const Primes& primes, const char* times) {
  if (primes.empty()) return "1";
  std::string text;
  for (std::size_t i = 0; i < primes.size(); ++i) {
    if (i > 0) text += times;
    text += std::to_string(primes[i]);
  }
  return text;
}

std::string FractionText(std::int64_t n, std::int64_t d) {
  return std::to_string(n) + "/" + std::to_string(d);
}

// The sum of two fractions as typed: a second numerator below 0 is subtracted.
std::string SumText(std::int64_t n1, std::int64_t d1, std::int64_t n2, std::int64_t d2) {
  return FractionText(n1, d1) + (n2 < 0 ? "-" : "+") + FractionText(std::llabs(n2), d2);
}

// Writes the lines of a sentence ("|" parts them) with its help number.
void Say(Session& s, int help, const std::string& sentence) {
  s.HelpNumber = static_cast<std::int16_t>(help);
  WorkSpaceSink box(s);
  WriteMessage(s, box, sentence, s.StreamingOutput);
}

// The mathematics after a sentence, on a line of its own.
void Show(Session& s, const std::string& mathematics) {
  WorkSpaceSink box(s);
  InsertPicture(s, box, DrawExpression(s, s.Screen().Metrics(), mathematics), 1, 2, true);
}

// A sentence that stands alone, followed by a blank line.
void SayAlone(Session& s, int help, const std::string& sentence) {
  Say(s, help, sentence);
  WorkSpaceSink box(s);
  WriteText(s, box, "", 0, 1, "FFF0");
}

// The pacing button between steps, when steps are shown one at a time.
void Pace(Session& s, const char* tag) {
  if (s.SolveDetail > 0 && !s.StreamingOutput) ShowWaitButton(s, tag);
}

// The factored fraction: the sign on the numerator, the primes of each part, 1 for none.
std::string FactoredFraction(bool negative, const Primes& numerator, const Primes& denominator) {
  const auto part = [](const std::string& product) {
    return product.find('*') == std::string::npos ? product : "(" + product + ")";
  };
  return part((negative ? "-" : "") + Product(numerator, "*")) + "/" +
         part(Product(denominator, "*"));
}

}  // namespace

std::string FactorList(const std::vector<std::int64_t>& factors) { return Product(factors, " * "); }

bool TrivialFraction(Session& s, std::int32_t n, std::int32_t d) {
  if (d == 0) {
    SayAlone(s, 277, "This fraction is undefined and can't be simplified.");
  } else if (n == 0) {
    SayAlone(s, 278, "This fraction simplifies to 0.");
  } else if (n % d == 0) {
    // d = 1 or d = -1 and, as 6/3 shows, any denominator that divides the numerator.
    SayAlone(s, 279,
             "This fraction simplifies to the integer " +
                 std::to_string(static_cast<std::int64_t>(n) / d) + ".");
  } else if ((n == 1 || n == -1) && d > 1) {
    SayAlone(s, 280, "This fraction can't be simplified.");
  } else if (n == 1 && d < 0) {
    Say(s, 281, "This fraction can't be simplified but could also be written as:");
    Show(s, "-1/" + std::to_string(std::llabs(d)));
  } else if (n == -1 && d < 0) {
    Say(s, 282,
        "This fraction can only be simplified by cancelling out - signs and writing it as:");
    Show(s, "1/" + std::to_string(std::llabs(d)));
  } else {
    return false;
  }
  return true;
}

void SimplifyFractionNarration(Session& s, std::int32_t n, std::int32_t d) {
  if (TrivialFraction(s, n, d)) return;
  const bool negative = (n < 0) != (d < 0);
  Primes numerator = PrimesOf(std::llabs(n));
  Primes denominator = PrimesOf(std::llabs(d));
  // 1. The opening and the factored fraction.
  if (n < 0 && d < 0) {
    Say(s, 283,
        "To simplify this fraction, cancel - signs, factor the numerator and the denominator "
        "completely,|and look for more cancellations:");
  } else if (d < 0) {
    Say(s, 283,
        "To simplify this fraction, move the - sign to the numerator, factor the numerator|and "
        "the denominator completely, and look for cancellations:");
  } else {
    Say(s, 283,
        "To simplify this fraction, factor the numerator and the denominator completely|and look "
        "for cancellations:");
  }
  Show(s, FactoredFraction(negative, numerator, denominator));
  // 2. One cancellation a step: the first prime of the numerator also in the denominator.
  bool cancelled = false;
  for (;;) {
    std::size_t at = 0;
    std::size_t in_denominator = denominator.size();
    for (; at < numerator.size(); ++at) {
      in_denominator = static_cast<std::size_t>(
          std::find(denominator.begin(), denominator.end(), numerator[at]) - denominator.begin());
      if (in_denominator < denominator.size()) break;
    }
    if (at == numerator.size()) break;
    Pace(s, "simp frac");
    const std::string p = std::to_string(numerator[at]);
    numerator.erase(numerator.begin() + static_cast<std::ptrdiff_t>(at));
    denominator.erase(denominator.begin() + static_cast<std::ptrdiff_t>(in_denominator));
    cancelled = true;
    Say(s, 284,
        "Cancelling " + p + " in the numerator and " + p +
            " in the denominator reduces the fraction to:");
    Show(s, FactoredFraction(negative, numerator, denominator));
  }
  // 3. The closing.
  Pace(s, "simp frac");
  const int help = cancelled ? 286 : 285;
  Say(s, help,
      cancelled ? "All possible cancellations between the numerator and denominator have been made."
                : "There are no cancellations possible between the numerator and denominator.");
  std::int64_t top = 1;
  for (const std::int64_t p : numerator) top *= p;
  std::int64_t bottom = 1;
  for (const std::int64_t p : denominator) bottom *= p;
  if (negative) top = -top;
  if (bottom == 1) {
    SayAlone(s, help, "The fraction in simplest form is the integer " + std::to_string(top) + ".");
  } else {
    Say(s, help, "The fraction in simplest form is:");
    Show(s, FractionText(top, bottom));
  }
}

void AddFractionsNarration(Session& s, std::int32_t n1_in, std::int32_t d1_in, std::int32_t n2_in,
                           std::int32_t d2_in) {
  std::int64_t n1 = n1_in;
  std::int64_t d1 = d1_in;
  std::int64_t n2 = n2_in;
  std::int64_t d2 = d2_in;
  // 1. The normal form: no denominator below 0.
  bool rewritten = false;
  if (d1 < 0) {
    n1 = -n1;
    d1 = -d1;
    rewritten = true;
  }
  if (d2 < 0) {
    n2 = -n2;
    d2 = -d2;
    rewritten = true;
  }
  if (rewritten) {
    Say(s, 287, "First rewrite this as:");
    Show(s, SumText(n1, d1, n2, d2));
  }
  // 2. The trivial cases.
  if (d1 == 0 || d2 == 0) {
    SayAlone(s, 288, "These fractions can't be combined because one of them is undefined.");
    return;
  }
  if (n1 == 0 && n2 == 0) {
    SayAlone(s, 289, "Both fractions are zero so this expression equals 0.");
    return;
  }
  if (n1 == 0) {
    Say(s, 289, "The first fraction is zero so this expression equals");
    Show(s, FractionText(n2, d2));
    return;
  }
  if (n2 == 0) {
    Say(s, 289, "The second fraction is zero so this expression equals");
    Show(s, FractionText(n1, d1));
    return;
  }
  if (d1 == d2) {
    Say(s, 290,
        "Because both fractions have the same denominator we can simply combine the "
        "numerators|over the denominator.  This expression equals:");
    const std::int64_t sum = n1 + n2;
    Show(s, FractionText(sum, d1));
    const std::int64_t g = std::gcd(sum, d1);
    if (g > 1) {
      Say(s, 290, "or");
      Show(s, d1 / g == 1 ? std::to_string(sum / g) : FractionText(sum / g, d1 / g));
    }
    return;
  }
  // 3. Step 1: the LCD, from both denominators factored.
  const Primes first = PrimesOf(d1);
  const Primes second = PrimesOf(d2);
  Say(s, 291,
      "To add or subtract two fractions generally requires 4 steps:||Step 1:  Find the LCD "
      "(lowest common denominator).  To do this, factor both denominators:||first denominator "
      "factored = " +
          FactorList(PrimeFactors(d1)) +
          "|second denominator factored = " + FactorList(PrimeFactors(d2)));
  // 4. The common factors, and what remains of each denominator.
  Primes common;
  Primes rest1;
  Primes rest2 = second;
  for (const std::int64_t p : first) {
    const auto it = std::find(rest2.begin(), rest2.end(), p);
    if (it == rest2.end()) {
      rest1.push_back(p);
    } else {
      common.push_back(p);
      rest2.erase(it);
    }
  }
  const auto listed = [](const Primes& primes) {
    return primes.empty() ? std::string(" (in this case there are none)")
                          : " " + FactorList(primes);
  };
  double product = 1.0;
  for (const Primes* part : {&common, &rest1, &rest2}) {
    for (const std::int64_t p : *part) product *= static_cast<double>(p);
  }
  WorkSpaceSink box(s);
  WriteText(s, box, "", 0, 1, "FFF0");
  Say(s, 291,
      "The LCD must contain all the factors that both denominators have in common:" +
          listed(common) +
          "|as well as any remaining factors from the first denominator:" + listed(rest1) +
          "|as well as any remaining factors from the second denominator:" + listed(rest2));
  if (product > kIntegerBound) {
    s.Screen().ShowMessageBox(
        "Error!  This program can't add these fractions because the LCD is " +
            GeneralNumberFormat(product, s.Dp()) +
            ", which is bigger than the largest integer it can handle, which is 2^31 or " +
            kLcdLimitText,
        291, MessageIcon::Exclamation);
    throw AppError(kErrorTangent, "LCD too large");
  }
  const auto lcd = static_cast<std::int64_t>(product);
  Say(s, 291, "Multiplying all these factors together gives the LCD:");
  Show(s, std::to_string(lcd));
  Pace(s, "add fracs");
  // 5. Step 2: both fractions over the LCD.
  const std::int64_t m1 = lcd / d1;
  const std::int64_t m2 = lcd / d2;
  const auto same = [](std::int64_t m) { return std::to_string(m) + "/" + std::to_string(m); };
  Say(s, 292,
      "Step 2:  Express both fractions as equivalent fractions with this LCD as their "
      "denominator.");
  if (m1 == 1) {
    Say(s, 292, "To do this multiply the second fraction by @" + same(m2) + "@.  This gives:");
  } else if (m2 == 1) {
    Say(s, 292, "To do this multiply the first fraction by @" + same(m1) + "@.  This gives:");
  } else {
    // Two multipliers on one line, each typeset.
    const FontMetrics& metrics = s.Screen().Metrics();
    WriteText(s, box, "To do this multiply the first fraction by ", 0, 0, "FFF0");
    InsertPicture(s, box, DrawExpression(s, metrics, same(m1)), 0, 0, false);
    WriteText(s, box, " and the second fraction by ", 0, 0, "FFF0");
    InsertPicture(s, box, DrawExpression(s, metrics, same(m2)), 0, 0, false);
    WriteText(s, box, ".", 0, 1, "FFF0");
    Say(s, 292, "This gives:");
  }
  Show(s, SumText(n1 * m1, lcd, n2 * m2, lcd));
  Pace(s, "add fracs");
  // 6. Step 3: one fraction.
  const std::int64_t sum = n1 * m1 + n2 * m2;
  Say(s, 293, "Step 3:  Combine the fractions.  This gives:");
  Show(s, FractionText(sum, lcd));
  Pace(s, "add fracs");
  // 7. Step 4: its simplest form.
  const std::int64_t g = std::gcd(sum, lcd);
  Say(s, 294, "Step 4:  Check to see if the fraction can be simplified.");
  if (g == 1) {
    SayAlone(s, 294, "In this case it is already in simplest form.");
  } else if (g == lcd) {
    SayAlone(
        s, 294,
        "In this case the fraction simplifies to the integer " + std::to_string(sum / lcd) + ".");
  } else {
    Say(s, 294,
        "In this case we can divide numerator and denominator by " + std::to_string(g) +
            " and reduce the fraction to:");
    Show(s, FractionText(sum / g, lcd / g));
  }
}

}  // namespace tavimor
