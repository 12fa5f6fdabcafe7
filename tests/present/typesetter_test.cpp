// Tests of the typesetter's layout, measured with fixed metrics: every character is 6 points wide
// at 12 points, ascent 9.6, descent 2.4; one blank is 6 points.
#include <gtest/gtest.h>

#include <algorithm>

#include "present/typesetter.h"
#include "support/session_fixture.h"

namespace tavimor {
namespace {

class Typesetter : public SessionTest {
 protected:
  Drawing Expression(const std::string& text) { return DrawExpression(s, metrics, text).drawing; }
  static std::vector<DisplayItem> Items(const Drawing& d, ItemKind kind) {
    std::vector<DisplayItem> out;
    for (const DisplayItem& item : d.items) {
      if (item.kind == kind) out.push_back(item);
    }
    return out;
  }
  static const DisplayItem* TextItem(const Drawing& d, const std::string& text) {
    for (const DisplayItem& item : d.items) {
      if (item.kind == ItemKind::Text && item.text == text) return &item;
    }
    return nullptr;
  }
  bool HasText(const std::string& expression, const std::string& text) {
    return TextItem(Expression(expression), text) != nullptr;
  }
  FixedMetrics metrics;
  const float sp = 6.0f;
};

// An exponent is set at seven tenths of its base: 8.4 points, 4.2 wide a character, ascent 6.72.
constexpr float kExponentWidth = 4.2f;
constexpr float kExponentAscent = 6.72f;
// The superscript shift at 12 points, and the slant's room after an italic letter.
constexpr float kShift = 0.38f * 12.0f;
constexpr float kItalicRoom = 0.05f * 12.0f;
// A medium space, each side of a binary operator at 12 points.
constexpr float kMedium = 12.0f * 4.0f / 18.0f;

TEST_F(Typesetter, ExponentFollowsItsBaseWithoutAGap) {
  const Drawing number = Expression("2^3");
  EXPECT_FLOAT_EQ(number.width, 6.0f + kExponentWidth);
  EXPECT_FLOAT_EQ(TextItem(number, "3")->x, 6.0f);
  EXPECT_FLOAT_EQ(TextItem(number, "3")->size, 8.4f);
  // After an italic letter, only the room of its slant.
  const Drawing square = Expression("x^2");
  EXPECT_FLOAT_EQ(TextItem(square, "2")->x, 6.0f + kItalicRoom);
  EXPECT_FLOAT_EQ(square.width, 6.0f + kItalicRoom + kExponentWidth);
}

TEST_F(Typesetter, ExponentIsRaisedByTheSuperscriptShift) {
  const Drawing d = Expression("x^2");
  const DisplayItem* base = TextItem(d, "x");
  const DisplayItem* exponent = TextItem(d, "2");
  ASSERT_NE(base, nullptr);
  ASSERT_NE(exponent, nullptr);
  EXPECT_FLOAT_EQ(base->y - exponent->y, kShift);
  EXPECT_FLOAT_EQ(d.baseline, base->y);
  EXPECT_FLOAT_EQ(d.baseline, kShift + kExponentAscent);  // the exponent's top is the box's top
  EXPECT_FLOAT_EQ(d.height, d.baseline + 2.4f);
  EXPECT_LT(exponent->y, base->y - 0.3f * 12.0f);  // well clear of the base line, not a line up
}

TEST_F(Typesetter, ExponentOfATallBaseHangsNearItsTop) {
  const Drawing d = Expression("(a/b)^2");
  const DisplayItem* exponent = TextItem(d, "2");
  const DisplayItem* a = TextItem(d, "a");
  ASSERT_NE(exponent, nullptr);
  // Above the numerator's baseline, not at the height a single line would give it.
  EXPECT_LT(exponent->y, a->y);
  EXPECT_LT(exponent->y, d.baseline - kShift);
  // Its baseline hangs a fixed drop, in its own size, below the top of the bracket.
  EXPECT_NEAR(exponent->y - Items(d, ItemKind::Bracket).at(0).y, 0.386f * 8.4f, 1e-4f);
}

TEST_F(Typesetter, FractionInAnExponentIsWrittenOnOneLineWithASlash) {
  const Drawing d = Expression("8^(2/3)");
  EXPECT_TRUE(Items(d, ItemKind::Rule).empty());
  const DisplayItem* two = TextItem(d, "2");
  const DisplayItem* slash = TextItem(d, "/");
  const DisplayItem* three = TextItem(d, "3");
  ASSERT_NE(two, nullptr);
  ASSERT_NE(slash, nullptr);
  ASSERT_NE(three, nullptr);
  EXPECT_FLOAT_EQ(two->y, slash->y);
  EXPECT_FLOAT_EQ(three->y, slash->y);
  EXPECT_LT(two->x, slash->x);
  EXPECT_LT(slash->x, three->x);
  EXPECT_FLOAT_EQ(slash->size, 8.4f);
  EXPECT_FLOAT_EQ(TextItem(d, "8")->y - two->y, kShift);
  // Below the line, a fraction stays stacked.
  EXPECT_EQ(Items(Expression("8^x/3"), ItemKind::Rule).size(), 1u);
}

TEST_F(Typesetter, OneLineFractionBracketsWhatWouldReadWrongly) {
  // A sum above the slash, and a denominator of two factors, go in brackets.
  EXPECT_EQ(Items(Expression("x^((a+b)/2)"), ItemKind::Bracket).size(), 2u);
  EXPECT_EQ(Items(Expression("x^(1/(2*y))"), ItemKind::Bracket).size(), 2u);
  EXPECT_EQ(Items(Expression("x^((a+b)/(c+d))"), ItemKind::Bracket).size(), 4u);
  // A product above the slash reads rightly as it is.
  EXPECT_TRUE(Items(Expression("x^(2*y/3)"), ItemKind::Bracket).empty());
}

TEST_F(Typesetter, CurvesAndRadicalsCarryTheSizeTheyAreSetAt) {
  s.FontSize = 30.0f;
  const Drawing d = Expression("sqrt(x)+(x+1)*2+e^((a+b)/2)");
  const std::vector<DisplayItem> curves = Items(d, ItemKind::Bracket);
  ASSERT_EQ(curves.size(), 4u);
  EXPECT_FLOAT_EQ(curves[0].size, 30.0f);
  EXPECT_FLOAT_EQ(curves[2].size, 21.0f);  // in the exponent
  EXPECT_FLOAT_EQ(Items(d, ItemKind::Radical).at(0).size, 30.0f);
}

TEST_F(Typesetter, LettersAreItalicNumbersAndFunctionNamesUpright) {
  const Drawing d = Expression("2*x+sin(y)");
  EXPECT_EQ(TextItem(d, "x")->face, Face::Italic);
  EXPECT_EQ(TextItem(d, "y")->face, Face::Italic);
  EXPECT_EQ(TextItem(d, "2")->face, Face::Text);
  EXPECT_EQ(TextItem(d, "sin")->face, Face::Text);
}

TEST_F(Typesetter, UnaryMinusStandsCloseAndBinaryOperatorsHaveAMediumSpace) {
  const Drawing d = Expression("-a+b");
  const std::vector<DisplayItem>& items = d.items;
  const auto minus = std::find_if(items.begin(), items.end(),
                                  [](const DisplayItem& i) { return i.text == "\xE2\x88\x92"; });
  ASSERT_NE(minus, items.end());
  EXPECT_FLOAT_EQ(minus->x, 0.0f);
  EXPECT_FLOAT_EQ(TextItem(d, "a")->x, 6.0f);  // no space after the unary minus
  EXPECT_FLOAT_EQ(TextItem(d, "+")->x, 12.0f + kMedium);
  EXPECT_FLOAT_EQ(TextItem(d, "b")->x, 12.0f + 2 * kMedium + 6.0f);
  // Inside an exponent, operators are set closer.
  const Drawing power = Expression("e^(a+b)");
  const DisplayItem* plus = TextItem(power, "+");
  EXPECT_LT(TextItem(power, "b")->x - plus->x - 4.2f, kMedium * 0.7f);
}

TEST_F(Typesetter, FractionHasItsBaselineAtTheRule) {
  const Drawing d = Expression("a/b");
  const std::vector<DisplayItem> rules = Items(d, ItemKind::Rule);
  ASSERT_EQ(rules.size(), 1u);
  EXPECT_FLOAT_EQ(rules[0].y, d.baseline);
  EXPECT_LT(TextItem(d, "a")->y, d.baseline);
  EXPECT_GT(TextItem(d, "b")->y, d.baseline);
}

TEST_F(Typesetter, RuleIsALittleWiderThanTheWiderRow) {
  const Drawing d = Expression("(a+b)/c");
  const DisplayItem rule = Items(d, ItemKind::Rule).at(0);
  EXPECT_GT(rule.x2 - rule.x, Expression("a+b").width);
}

TEST_F(Typesetter, RuleInsideAFunctionSpansOnlyItsFraction) {
  const Drawing d = Expression("sin(p/6)+3");
  const DisplayItem rule = Items(d, ItemKind::Rule).at(0);
  const std::vector<DisplayItem> curves = Items(d, ItemKind::Bracket);
  ASSERT_EQ(curves.size(), 2u);
  EXPECT_GT(rule.x, curves[0].x);
  EXPECT_LT(rule.x2, curves[1].x + curves[1].width);
  EXPECT_LT(rule.x2, TextItem(d, "+")->x);
}

TEST_F(Typesetter, SumsAsSoleNumeratorAndDenominatorGetNoBrackets) {
  const Drawing d = Expression("(a+b)/(c+d)");
  EXPECT_TRUE(Items(d, ItemKind::Bracket).empty());
  EXPECT_EQ(Items(d, ItemKind::Rule).size(), 1u);
}

TEST_F(Typesetter, TwoStackedFractionsShareOneBaseline) {
  const Drawing d = Expression("1/2+1/3");
  const std::vector<DisplayItem> rules = Items(d, ItemKind::Rule);
  ASSERT_EQ(rules.size(), 2u);
  EXPECT_FLOAT_EQ(rules[0].y, rules[1].y);
  EXPECT_FLOAT_EQ(rules[0].y, d.baseline);
  EXPECT_LT(rules[0].x2, rules[1].x);
  EXPECT_FLOAT_EQ(TextItem(d, "+")->y, d.baseline);
}

TEST_F(Typesetter, SumTermsStandOnOneBaselineWithSpacesAroundSigns) {
  const Drawing d = Expression("a+b");
  const DisplayItem* a = TextItem(d, "a");
  const DisplayItem* plus = TextItem(d, "+");
  const DisplayItem* b = TextItem(d, "b");
  EXPECT_FLOAT_EQ(a->y, b->y);
  EXPECT_FLOAT_EQ(plus->x, 6.0f + kMedium);
  EXPECT_FLOAT_EQ(b->x, 6.0f + 2 * kMedium + 6.0f);
  EXPECT_FLOAT_EQ(d.width, 18.0f + 2 * kMedium);
}

TEST_F(Typesetter, ShownBracketsAreCurvesAsTallAsTheirContent) {
  const Drawing flat = Expression("(x+1)*2");
  const std::vector<DisplayItem> curves = Items(flat, ItemKind::Bracket);
  ASSERT_EQ(curves.size(), 2u);
  EXPECT_TRUE(curves[0].left);
  EXPECT_FALSE(curves[1].left);
  const Drawing tall = Expression("(a/b+1)*2");
  const std::vector<DisplayItem> tall_curves = Items(tall, ItemKind::Bracket);
  ASSERT_EQ(tall_curves.size(), 2u);
  EXPECT_GT(tall_curves[0].y2 - tall_curves[0].y, curves[0].y2 - curves[0].y);
}

TEST_F(Typesetter, ExponentOfAnExponentIsNotSmallerThanHalfTheSize) {
  const Drawing d = Expression("x^(y^z)");
  EXPECT_FLOAT_EQ(TextItem(d, "y")->size, 8.4f);
  EXPECT_FLOAT_EQ(TextItem(d, "z")->size, 6.0f);
}

TEST_F(Typesetter, HiddenBracketsAreNotDrawn) {
  EXPECT_TRUE(Items(Expression("[x+1]*2"), ItemKind::Bracket).empty());
  EXPECT_TRUE(Items(Expression("x^(a+b)"), ItemKind::Bracket).empty());
}

TEST_F(Typesetter, SquareRootIsARadicalWithoutBrackets) {
  const Drawing d = Expression("sqrt(x+1)");
  EXPECT_EQ(Items(d, ItemKind::Radical).size(), 1u);
  EXPECT_TRUE(Items(d, ItemKind::Bracket).empty());
  EXPECT_EQ(TextItem(d, "sqrt"), nullptr);
}

TEST_F(Typesetter, OtherFunctionsShowTheirNameAndBrackets) {
  const Drawing d = Expression("sin(x)");
  ASSERT_NE(TextItem(d, "sin"), nullptr);
  EXPECT_EQ(Items(d, ItemKind::Bracket).size(), 2u);
}

TEST_F(Typesetter, TimesSignWhereFactorsWouldRunTogether) {
  EXPECT_TRUE(HasText("x*2", "\xC2\xB7"));
  EXPECT_TRUE(HasText("2*3", "\xC2\xB7"));
  EXPECT_FALSE(HasText("2*x", "\xC2\xB7"));
  EXPECT_FALSE(HasText("-x", "\xC2\xB7"));
}

TEST_F(Typesetter, LeadingMinusOfANumberIsASign) {
  const Drawing d = Expression("-2");
  const DisplayItem* minus = TextItem(d, "\xE2\x88\x92");
  ASSERT_NE(minus, nullptr);
  EXPECT_EQ(minus->face, Face::Sign);
  EXPECT_NE(TextItem(d, "2"), nullptr);
}

TEST_F(Typesetter, SpecialLettersPiAndDegree) {
  EXPECT_TRUE(HasText("p", "p"));
  s.SpecialP = true;
  const Drawing with_pi = Expression("2*p");
  const DisplayItem* pi = TextItem(with_pi, "\xCF\x80");
  ASSERT_NE(pi, nullptr);
  EXPECT_EQ(pi->face, Face::Sign);
  s.SpecialD = true;
  const Drawing degrees = Expression("30*d");
  EXPECT_NE(TextItem(degrees, "\xC2\xB0"), nullptr);
  EXPECT_FLOAT_EQ(degrees.width, 12.0f + sp);  // the degree sign takes one blank
}

TEST_F(Typesetter, RelationsShareOneBaselineWithTheirCodes) {
  const Picture picture = DrawAnyEquation(s, metrics, 5, "x", "a/b");
  EXPECT_NE(TextItem(picture.drawing, " \xE2\x89\xA5 "), nullptr);
  EXPECT_FLOAT_EQ(TextItem(picture.drawing, "x")->y, picture.drawing.baseline);
  EXPECT_EQ(picture.Mathematics(), "x>=a/b");
  EXPECT_EQ(RelationString(1), " = ");
  EXPECT_EQ(RelationString(6), "  \xE2\x86\x92  ");
}

TEST_F(Typesetter, PiecesOfAListStandInARow) {
  const Drawing d = Expression("1;2");
  ASSERT_NE(TextItem(d, ";  "), nullptr);
  EXPECT_LT(TextItem(d, "1")->x, TextItem(d, "2")->x);
}

TEST_F(Typesetter, TagHoldsTheBaselineAndTheMathematics) {
  const Picture picture = DrawEquation(s, metrics, "x", "1");
  EXPECT_EQ(picture.Tag(), "9.6;x=1");
}

TEST_F(Typesetter, DrawingLeavesThePoolAsItFoundIt) {
  const auto before = s.Pool.NodesInUse;
  Expression("(a+b)^2/sqrt(c)-sin(x)*3");
  DrawEquation(s, metrics, "x^2", "1;2");
  EXPECT_EQ(s.Pool.NodesInUse, before);
}

TEST_F(Typesetter, AFailedDrawingIsToldOncePerCommandInWords) {
  while (s.Pool.NodesInUse < kPoolSize - 2) NewNode(s);
  const Picture picture = DrawExpression(s, metrics, "a+b+c+d");
  EXPECT_TRUE(picture.drawing.items.empty());
  ASSERT_EQ(frontend.messages.size(), 1u);
  EXPECT_EQ(frontend.messages[0].text,
            "Error in DrawAnyExpression.  The expression is too deep or too large to draw; its "
            "drawings are left out until this command ends.");
  EXPECT_EQ(frontend.messages[0].icon, MessageIcon::Critical);
  // Further failures of the same command are silent.
  for (int i = 0; i < 10; ++i) {
    EXPECT_TRUE(DrawEquation(s, metrics, "a+b+c", "d").drawing.items.empty());
    DrawExpression(s, metrics, "a+b+c+d");
  }
  EXPECT_EQ(frontend.messages.size(), 1u);
  // With room in the pool again, the command still leaves its drawings out; the next one draws.
  InitNodePool(s);
  EXPECT_TRUE(Expression("a+b").items.empty());
  s.DrawFailureShown = false;
  EXPECT_FALSE(Expression("a+b").items.empty());
  // The next command tells again.
  while (s.Pool.NodesInUse < kPoolSize - 2) NewNode(s);
  DrawEquation(s, metrics, "a+b+c", "d");
  ASSERT_EQ(frontend.messages.size(), 2u);
  EXPECT_EQ(frontend.messages.back().text.rfind("Error in DrawAnyEquation.  The expression is too "
                                                "deep or too large to draw",
                                                0),
            0u);
}

TEST_F(Typesetter, DeepTreesLayOutWithinThePool) {
  std::string text = "x";
  for (int i = 0; i < 200; ++i) text = "(" + text + "+1)/2";
  const Drawing d = Expression(text);
  EXPECT_GT(d.height, 100.0f);
}

}  // namespace
}  // namespace tavimor

namespace tavimor {
namespace {

class DisplayForm : public SessionTest {
 protected:
  Drawing Expression(const std::string& text) { return DrawExpression(s, metrics, text).drawing; }
  static int CountText(const Drawing& d, const std::string& text) {
    return static_cast<int>(std::count_if(
        d.items.begin(), d.items.end(),
        [&](const DisplayItem& i) { return i.kind == ItemKind::Text && i.text == text; }));
  }
  FixedMetrics metrics;
};

TEST_F(DisplayForm, CoefficientOneAboveTheLineIsNotDrawn) {
  const Drawing half = Expression("1/2*x");
  const Drawing written = Expression("x/2");
  EXPECT_EQ(CountText(half, "1"), 0);
  EXPECT_FLOAT_EQ(half.width, written.width);
  EXPECT_FLOAT_EQ(half.height, written.height);
  const int nodes = s.Pool.NodesInUse;
  Expression("-1/2*a*b/c");
  EXPECT_EQ(s.Pool.NodesInUse, nodes);  // the drawing's own tree is given back whole
}

TEST_F(DisplayForm, PowerOfAPowerIsDrawnWithItsBaseInBrackets) {
  const Drawing chained = Expression("x^2^3");
  const Drawing bracketed = Expression("(x^2)^3");
  EXPECT_FLOAT_EQ(chained.width, bracketed.width);
  EXPECT_FLOAT_EQ(chained.height, bracketed.height);
  EXPECT_EQ(chained.items.size(), bracketed.items.size());
}

TEST_F(DisplayForm, OneThatIsTheWholeNumeratorIsDrawn) {
  EXPECT_EQ(CountText(Expression("1/x"), "1"), 1);
  EXPECT_EQ(CountText(Expression("1*x"), "1"), 1);  // no fraction: drawn as it is written
}

}  // namespace
}  // namespace tavimor
