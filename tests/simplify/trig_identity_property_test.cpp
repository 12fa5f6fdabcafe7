// Break apart trig and Combine trig keep the value of generated trigonometric items at random
// points, in radians and in degrees, and come to an end.
#include <gtest/gtest.h>

#include <cctype>
#include <cmath>
#include <random>
#include <string>
#include <vector>

#include "core/input_split.h"
#include "core/scoped_override.h"
#include "simplify/simplify_driver.h"
#include "simplify/trig_identities.h"
#include "support/numeric_value.h"
#include "support/session_fixture.h"

namespace tavimor {
namespace {

constexpr double kPi = 3.14159265358979;

// The shapes of the items; capitals are filled with angles and coefficients.
const std::vector<std::string> kTemplates = {
    "sin(A+B)",
    "cos(A-B)",
    "tan(A+B)",
    "sin(2*A)",
    "cos(2*A)",
    "tan(2*A)",
    "cos(A/2)^2",
    "sin(A/2)^2",
    "tan(A)",
    "cot(A)*sin(A)",
    "sec(A)^2-tan(A)^2",
    "sin(A)^2+cos(A)^2",
    "K*sin(A)^2+L*cos(A)^2",
    "1-sin(A)^2",
    "sin(A)/cos(A)",
    "K*cos(A)/sin(A)",
    "sin(A)^3/cos(A)^2",
    "sin(A)*cos(B)+cos(A)*sin(B)",
    "sin(A)*cos(B)-cos(A)*sin(B)",
    "cos(A)*cos(B)-sin(A)*sin(B)",
    "K*cos(A)*cos(B)+K*sin(A)*sin(B)",
    "K*sin(A)+L*cos(A)",
    "-K*sin(A)+L*cos(A)",
    "K*sin(A)-L*cos(A)",
    "cos(A)^2-sin(A)^2",
    "2*cos(A)^2-1",
    "1-2*sin(A)^2",
    "K*sin(A)*cos(A)",
    "sin(A)^2*cos(A)^2",
    "sin(-A)+cos(-B)",
    "sin(A+R)",
    "cos(R-A)",
    "tan(A+R)",
    "arctan(-A)+arcsin(-0.5)",
    "sin(A+B)*cos(A-B)",
    "sin(3*A)",
};

class TrigItems {
 public:
  explicit TrigItems(unsigned seed) : random_(seed) {}

  std::string Item(bool degrees) {
    std::string item = kTemplates[Pick(kTemplates.size())];
    Fill(item, 'A', {"x", "y", "(2*x)", "(x+y)", "(x/3)"});
    Fill(item, 'B', {"y", "x", "(3*y)", "1"});
    Fill(item, 'K', {"2", "3", "1", "4", "0.5"});
    Fill(item, 'L', {"4", "3", "1", "2"});
    if (degrees) {
      Fill(item, 'R', {"90", "180", "270", "(-90)", "360"});
    } else {
      Fill(item, 'R', {"p", "p/2", "3*p/2", "(-p/2)", "2*p"});
    }
    return item;
  }

 private:
  std::size_t Pick(std::size_t n) {
    return std::uniform_int_distribution<std::size_t>(0, n - 1)(random_);
  }
  void Fill(std::string& item, char slot, const std::vector<std::string>& choices) {
    for (std::size_t at = item.find(slot); at != std::string::npos; at = item.find(slot)) {
      item.replace(at, 1, choices[Pick(choices.size())]);
    }
  }
  std::mt19937 random_;
};

// A text in degrees as a text in radians: the angle of a trig function times p/180, an inverse
// function's value times 180/p.
std::string InRadians(const std::string& text) {
  std::string out;
  std::vector<bool> inverse_open;  // for each open bracket: whether it closes a converted function
  std::vector<bool> angle_open;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    const bool word_start = i == 0 || !std::isalpha(static_cast<unsigned char>(text[i - 1]));
    bool done = false;
    for (const char* name :
         {"arcsin(", "arccos(", "arctan(", "sin(", "cos(", "tan(", "cot(", "sec(", "csc("}) {
      const std::string n = name;
      if (!word_start || text.compare(i, n.size(), n) != 0) continue;
      const bool arc = n[0] == 'a';
      out += arc ? "(180/p*" + n : n + "p/180*(";
      inverse_open.push_back(arc);
      angle_open.push_back(!arc);
      i += n.size() - 1;
      done = true;
      break;
    }
    if (done) continue;
    if (c == '(') {
      inverse_open.push_back(false);
      angle_open.push_back(false);
    }
    out += c;
    if (c == ')' && !inverse_open.empty()) {
      if (inverse_open.back() || angle_open.back()) out += ")";
      inverse_open.pop_back();
      angle_open.pop_back();
    }
  }
  return out;
}

double ValueAt(Session& s, const std::string& text_in, double x, double y) {
  const std::string text = s.Degrees ? InRadians(text_in) : text_in;
  NumericValue at(s, {{'x', x}, {'y', y}, {'p', kPi}});
  const double value = at.Of(text);
  return at.met_undefined ? NAN : value;
}

bool Close(double a, double b) { return std::fabs(a - b) <= 1e-7 * std::max(1.0, std::fabs(a)); }

class TrigIdentityProperty : public SessionTest {
 protected:
  // Runs the loop in the mode on each item and compares the values at five points.
  void CheckMode(std::int16_t mode, bool degrees, unsigned seed) {
    TrigItems items(seed);
    std::mt19937 points(seed + 1);
    int checked = 0;
    s.Degrees = degrees;
    s.SpecialP = !degrees;
    for (int k = 0; k < 300; ++k) {
      const std::string item = items.Item(degrees);
      InitNodePool(s);
      s.RewriteCount = 0;
      NodeIdx root = NewNode(s);
      std::string result;
      try {
        ScopedOverride trig(s.TrigMode, mode);
        LoadSide(s, root, item);
        int level = 0;
        SimplifyTree(s, root, level);
        result = s.Pool[root].Text;
      } catch (const std::exception& error) {
        ADD_FAILURE() << item << ": " << error.what();
        continue;
      }
      // Angles of a few tenths of a radian, or some tens of degrees.
      std::uniform_real_distribution<double> value(degrees ? 10.0 : 0.2, degrees ? 80.0 : 1.4);
      for (int p = 0; p < 5; ++p) {
        const double x = value(points);
        const double y = value(points);
        InitNodePool(s);
        const double before = ValueAt(s, item, x, y);
        if (!std::isfinite(before) || std::fabs(before) > 1e6) continue;
        const double after = ValueAt(s, result, x, y);
        EXPECT_TRUE(Close(before, after)) << item << " -> " << result << " at x=" << x
                                          << ", y=" << y << ": " << before << " against " << after;
        ++checked;
      }
    }
    EXPECT_GT(checked, 1000);
  }
};

TEST_F(TrigIdentityProperty, BreakApartKeepsTheValueInRadians) {
  CheckMode(kTrigBreakApart, false, 11);
}
TEST_F(TrigIdentityProperty, BreakApartKeepsTheValueInDegrees) {
  CheckMode(kTrigBreakApart, true, 12);
}
TEST_F(TrigIdentityProperty, CombineKeepsTheValueInRadians) { CheckMode(kTrigCombine, false, 13); }
TEST_F(TrigIdentityProperty, CombineKeepsTheValueInDegrees) { CheckMode(kTrigCombine, true, 14); }
TEST_F(TrigIdentityProperty, SimplifyKeepsTheValueOfTrigItems) {
  CheckMode(kTrigSimplify, false, 15);
}

}  // namespace
}  // namespace tavimor
