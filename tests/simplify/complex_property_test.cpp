// Properties of Simplify with complex numbers over many generated expressions: under each
// written form of the unit the value never changes at random points, and the loop always ends.
#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <random>
#include <string>

#include "core/errors.h"
#include "core/input_split.h"
#include "simplify/simplify_driver.h"
#include "support/complex_value.h"
#include "support/session_fixture.h"

namespace tavimor {
namespace {

class ComplexGenerator {
 public:
  ComplexGenerator(unsigned seed, std::string unit) : random_(seed), unit_(std::move(unit)) {}

  std::string Sum(int depth) {
    std::string sum = Term(depth);
    const int terms = Pick(3);
    for (int i = 0; i < terms; ++i) sum += (Pick(2) == 0 ? "+" : "-") + Term(depth);
    return sum;
  }

 private:
  int Pick(int n) { return std::uniform_int_distribution<int>(0, n - 1)(random_); }

  std::string Number() { return std::to_string(1 + Pick(5)); }
  // a+b*unit, with a part sometimes left out.
  std::string ComplexNumber() {
    switch (Pick(4)) {
      case 0: return unit_;
      case 1: return Number() + "*" + unit_;
      case 2: return "(" + Number() + "-" + Number() + "*" + unit_ + ")";
      default: return "(" + Number() + "+" + unit_ + ")";
    }
  }
  std::string Factor(int depth) {
    switch (depth <= 0 ? Pick(4) : Pick(7)) {
      case 0: return Number();
      case 1: return ComplexNumber();
      case 2: return std::string(1, "xy"[Pick(2)]);
      case 3: return ComplexNumber() + "^" + std::to_string(Pick(5));
      case 4: return "(" + Sum(depth - 1) + ")";
      case 5: return "sqrt(-" + Number() + ")";
      default: return "(" + Sum(depth - 1) + ")^2";
    }
  }
  std::string Term(int depth) {
    std::string term = Factor(depth);
    const int factors = Pick(3);
    for (int i = 0; i < factors; ++i) {
      term += Pick(5) == 0 ? "/" + Number() : "*" + Factor(depth);
    }
    return term;
  }

  std::mt19937 random_;
  std::string unit_;
};

class ComplexSimplifyProperty : public SessionTest {
 protected:
  // Simplifies each generated text under the form and compares the values at three points.
  void CheckForm(std::int16_t form, const std::string& unit, char letter) {
    s.ComplexForm = form;
    ComplexGenerator generator(7 + static_cast<unsigned>(form), unit);
    std::mt19937 points(11);
    std::uniform_real_distribution<double> value(0.3, 2.7);
    int checked = 0;
    int complex_values = 0;
    for (int round = 0; round < 150; ++round) {
      const std::string text = generator.Sum(2);
      InitNodePool(s);
      s.RewriteCount = 0;
      NodeIdx root = NewNode(s);
      std::string simplified;
      try {
        LoadSide(s, root, text);
        s.DetailNow = 0;
        int level = 0;
        SimplifyTree(s, root, level);
        simplified = s.Pool[root].Text;
      } catch (const AppError& error) {
        ADD_FAILURE() << text << ": " << error.what();
        continue;
      } catch (const RunTimeError& error) {
        ADD_FAILURE() << text << ": " << error.what();
        continue;
      }
      for (int k = 0; k < 3; ++k) {
        ComplexValue at(s, letter, {{'x', value(points)}, {'y', value(points)}});
        InitNodePool(s);
        const std::complex<double> before = at.Of(text);
        const std::complex<double> after = at.Of(simplified);
        const double size = std::abs(before) + 1.0;
        EXPECT_LE(std::abs(before - after), 1e-9 * size) << text << " -> " << simplified;
        ++checked;
        if (std::fabs(before.imag()) > 1e-9) ++complex_values;
      }
    }
    EXPECT_EQ(checked, 450);
    EXPECT_GT(complex_values, 200);  // most of the values have an imaginary part
  }
};

TEST_F(ComplexSimplifyProperty, KeepsTheValueWithTheUnitWrittenI) { CheckForm(1, "i", 'i'); }

TEST_F(ComplexSimplifyProperty, KeepsTheValueWithTheUnitWrittenJ) { CheckForm(2, "j", 'j'); }

TEST_F(ComplexSimplifyProperty, KeepsTheValueWithTheUnitWrittenAsTheRootOfMinusOne) {
  CheckForm(3, "sqrt(-1)", '?');
}

}  // namespace
}  // namespace tavimor
