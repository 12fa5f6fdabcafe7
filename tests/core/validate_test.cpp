// Tests of the input check: every refusal with its exact message, in the order of the tests.
#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "core/brackets.h"
#include "core/validate.h"
#include "support/session_fixture.h"

namespace tavimor {
namespace {

class ValidateInputTest : public SessionTest {
 protected:
  // The message that refuses the text, or "" when it is accepted.
  std::string Refusal(std::string text) {
    frontend.messages.clear();
    const int result = ValidateInput(s, text);
    if (result == 0) {
      EXPECT_TRUE(frontend.messages.empty());
      return "";
    }
    EXPECT_EQ(result, -1);
    EXPECT_EQ(frontend.messages.size(), 1u);
    if (frontend.messages.empty()) return "?";
    EXPECT_EQ(frontend.messages[0].help_number, 2);
    return frontend.messages[0].text;
  }
};

TEST_F(ValidateInputTest, AcceptsOrdinaryItems) {
  for (const char* text :
       {"2x+3=7", "x^2-5x+6", "sin(x)^2+cos(x)^2", "(a+b)/(c-d)", "[x+1]*2", "3.5E-4x", "arcsin(x)",
        "a=b;c=d", "-x", "+a+b", "x^(-2)", "1.5", "ln(x)=log(y)", "sqrt(2)", "((x))"}) {
    EXPECT_EQ(Refusal(text), "") << text;
  }
}

TEST_F(ValidateInputTest, BlanksAreRemovedFirst) {
  std::string text = "  2 x + 3 =  7 ";
  EXPECT_EQ(ValidateInput(s, text), 0);
  EXPECT_EQ(text, "2x+3=7");
}

TEST_F(ValidateInputTest, RemoveSpacesTrimsAndRemovesEveryBlank) {
  std::string text = "  a  b ";
  RemoveSpaces(text);
  EXPECT_EQ(text, "ab");
}

TEST_F(ValidateInputTest, RefusesAForeignCharacter) {
  EXPECT_EQ(Refusal("2x+3!"), "Error in input string.  The character  !  is not allowed.");
  EXPECT_EQ(Refusal("x_1"), "Error in input string.  The character  _  is not allowed.");
  EXPECT_EQ(Refusal("x\xC2\xB2"),
            "Error in input string.  The character  \xC2\xB2  is not allowed.");
}

TEST_F(ValidateInputTest, OtherSeparatorIsNotANumberCharacter) {
  EXPECT_EQ(Refusal("1,5"), "Error in input string.  The character  ,  is not allowed.");
  s.DecimalPoint = ",";
  EXPECT_EQ(Refusal("1,5"), "");
  EXPECT_EQ(Refusal("1.5"), "Error in input string.  The character  .  is not allowed.");
}

TEST_F(ValidateInputTest, RefusesEmptyItemBetweenSemicolons) {
  EXPECT_EQ(Refusal("a=b;;c=d"), "Error in input string.  Nothing between  ;  and  ;");
}

TEST_F(ValidateInputTest, RefusesSemicolonAtTheEnd) {
  EXPECT_EQ(Refusal("a=b;"), "Error in input string.  Illegal  ;  at the end.");
}

TEST_F(ValidateInputTest, RefusesSemicolonAtTheBeginning) {
  EXPECT_EQ(Refusal(";a=b"), "Error in input string.  Illegal  ;  at the beginning.");
}

TEST_F(ValidateInputTest, CharacterTestComesBeforeSemicolonTests) {
  EXPECT_EQ(Refusal("a;;b!"), "Error in input string.  The character  !  is not allowed.");
}

TEST_F(ValidateInputTest, RefusesUnmatchedBrackets) {
  EXPECT_EQ(Refusal("(x+1"), "Error in input string.  Unmatched brackets.");
  EXPECT_EQ(Refusal("x+1)"), "Error in input string.  Unmatched brackets.");
  EXPECT_EQ(Refusal(")x("), "Error in input string.  Unmatched brackets.");
}

TEST_F(ValidateInputTest, MixedBracketsClosingOutOfKindAreUnmatched) {
  // "(" is never closed by ")" in the counting pass.
  EXPECT_EQ(Refusal("(x]"), "Error in input string.  Unmatched brackets.");
}

TEST_F(ValidateInputTest, CrossedBracketsFailTheThirdPass) {
  EXPECT_TRUE(BracketsMatch("([x])"));
  EXPECT_FALSE(BracketsMatch("([x)]"));
  EXPECT_EQ(Refusal("([x)]"), "Error in input string.  Unmatched brackets.");
}

TEST_F(ValidateInputTest, RefusesTooManyEqualsSigns) {
  EXPECT_EQ(Refusal("a=b=c"), "Error in input string.  Too many = signs.");
}

TEST_F(ValidateInputTest, RefusesMissingSides) {
  EXPECT_EQ(Refusal("=5"), "Error in input string.  Missing left side.");
  EXPECT_EQ(Refusal("x="), "Error in input string.  Missing right side.");
}

TEST_F(ValidateInputTest, RefusesOperatorAtTheBeginning) {
  EXPECT_EQ(Refusal("*x"), "Error in input string.  Invalid symbol * at beginning of expression.");
  EXPECT_EQ(Refusal("/x"), "Error in input string.  Invalid symbol / at beginning of expression.");
  EXPECT_EQ(Refusal("^x"), "Error in input string.  Invalid symbol ^ at beginning of expression.");
}

TEST_F(ValidateInputTest, RefusesOperatorAfterOpeningBracketOrEquals) {
  EXPECT_EQ(Refusal("x=*2"),
            "Error in input string.  Invalid symbol * at beginning of expression.");
  EXPECT_EQ(Refusal("(/x)"),
            "Error in input string.  Invalid symbol / at beginning of expression.");
  EXPECT_EQ(Refusal("[^x]"),
            "Error in input string.  Invalid symbol ^ at beginning of expression.");
}

TEST_F(ValidateInputTest, EmptyBracketsAreRefusedOnTheClosingBracket) {
  EXPECT_EQ(Refusal("()"), "Error in input string.  Invalid symbol ) at beginning of expression.");
  EXPECT_EQ(Refusal("2[]"), "Error in input string.  Invalid symbol ] at beginning of expression.");
}

TEST_F(ValidateInputTest, RefusesOperatorBeforeClosingBracketOrEquals) {
  EXPECT_EQ(Refusal("(x+)"), "Error in input string.  Invalid symbol + at end of expression.");
  EXPECT_EQ(Refusal("x-=2"), "Error in input string.  Invalid symbol - at end of expression.");
}

TEST_F(ValidateInputTest, RefusesOperatorAtTheEnd) {
  EXPECT_EQ(Refusal("2x+"), "Error in input string.  Invalid symbol + at end of expression.");
  EXPECT_EQ(Refusal("2x^"), "Error in input string.  Invalid symbol ^ at end of expression.");
  EXPECT_EQ(Refusal("x=2*"), "Error in input string.  Invalid symbol * at end of expression.");
}

TEST_F(ValidateInputTest, FunctionNeedsARoundBracket) {
  EXPECT_EQ(Refusal("sin x"),
            "Error in input string.  The argument of the sin function must be enclosed in "
            "brackets.");
  EXPECT_EQ(Refusal("sin[x]"),
            "Error in input string.  The argument of the sin function must be enclosed in "
            "brackets.");
  EXPECT_EQ(Refusal("2sqrt"),
            "Error in input string.  The argument of the sqrt function must be enclosed in "
            "brackets.");
}

TEST_F(ValidateInputTest, FunctionNameInsideALongerWordIsRefused) {
  EXPECT_EQ(Refusal("cosine"),
            "Error in input string.  The argument of the cos function must be enclosed in "
            "brackets.");
  EXPECT_EQ(Refusal("log10(x)"),
            "Error in input string.  The argument of the log function must be enclosed in "
            "brackets.");
}

TEST_F(ValidateInputTest, InverseFunctionPassesForBothNames) {
  EXPECT_EQ(Refusal("arcsin(x)"), "");
}

TEST_F(ValidateInputTest, OperatorFollowedByOperatorIsRefused) {
  EXPECT_EQ(Refusal("x^-2"),
            "Error in input string.  An operator (+, -, *, / or ^) is followed by the symbol -");
  EXPECT_EQ(Refusal("3*-2"),
            "Error in input string.  An operator (+, -, *, / or ^) is followed by the symbol -");
  EXPECT_EQ(Refusal("x++y"),
            "Error in input string.  An operator (+, -, *, / or ^) is followed by the symbol +");
}

TEST_F(ValidateInputTest, RefusesANumberWithTwoPoints) {
  EXPECT_EQ(Refusal("x+1.2.3"), "Error in input string.  A number is given as  1.2.3");
  EXPECT_EQ(Refusal("..5"), "Error in input string.  A number is given as  ..5");
}

TEST_F(ValidateInputTest, NumberTestRunsAfterTheCharacterTests) {
  EXPECT_EQ(Refusal("1.2.3+"), "Error in input string.  Invalid symbol + at end of expression.");
}

TEST_F(ValidateInputTest, MessagesOfASetNameTheItem) {
  EXPECT_EQ(Refusal("a=b;c=d=e"), "Error in c=d=e.  Too many = signs.");
  EXPECT_EQ(Refusal("a=b+;c=d"), "Error in a=b+.  Invalid symbol + at end of expression.");
}

TEST_F(ValidateInputTest, SetIsSplitIntoItemsAndTheFirstIsNamed) {
  EXPECT_EQ(Refusal("a=b;c=d"), "");
  EXPECT_EQ(Refusal("a=(b;c=d"), "Error in a=(b.  Unmatched brackets.");
}

TEST_F(ValidateInputTest, EachTestAtAPositionComesInItsOrder) {
  // "(" followed by ")" is a beginning fault before the end fault of the same ")".
  EXPECT_EQ(Refusal("x+()"),
            "Error in input string.  Invalid symbol ) at beginning of expression.");
  // The operator pair at the second position fires before the end test at the third.
  EXPECT_EQ(Refusal("x*/"),
            "Error in input string.  An operator (+, -, *, / or ^) is followed by the symbol /");
}

TEST_F(ValidateInputTest, RefusesANumberBeyondTheLargestFloat) {
  const std::string too_large =
      "  is too large: the largest number the tutor can work with is about 1.8E308.";
  EXPECT_EQ(Refusal("1E309"), "Error in input string.  The number  1E309" + too_large);
  EXPECT_EQ(Refusal("1E309+1E309"), "Error in input string.  The number  1E309" + too_large);
  EXPECT_EQ(Refusal("x=2;y=3E400x"), "Error in y=3E400x.  The number  3E400" + too_large);
  // 400 digits: shown by their start only.
  EXPECT_EQ(Refusal(std::string(400, '9')),
            "Error in input string.  The number  " + std::string(30, '9') + "..." + too_large);
  EXPECT_EQ(Refusal("1.7E308"), "");
  EXPECT_EQ(Refusal("2e400"), "");  // 2 times e to the 400: no number beyond the bound
}

TEST_F(ValidateInputTest, RefusesANumberThatWouldCountAsZero) {
  EXPECT_EQ(Refusal("x+1E-400"),
            "Error in input string.  The number  1E-400  is too small: it would count as 0 (the "
            "smallest is about 4.9E-324).");
  EXPECT_EQ(Refusal("0E-400"), "");
  EXPECT_EQ(Refusal("1E-310"), "");
}

TEST_F(ValidateInputTest, RefusesADecimalPointWithoutADigit) {
  const std::string message =
      "Error in input string.  The decimal point  .  has no digit beside it.";
  EXPECT_EQ(Refusal("."), message);
  EXPECT_EQ(Refusal("x+."), message);
  EXPECT_EQ(Refusal("(.)x"), message);
  EXPECT_EQ(Refusal(".5+2."), "");
  s.DecimalPoint = ",";
  EXPECT_EQ(Refusal("x*,"),
            "Error in input string.  The decimal point  ,  has no digit beside it.");
}

TEST_F(ValidateInputTest, RefusesAnInputLongerThanThePoolCouldHold) {
  const std::string nested = std::string(1000000, '(') + "x" + std::string(1000000, ')');
  EXPECT_EQ(Refusal(nested),
            "Error in input string.  The input is too long: it has 2000001 characters, and at most "
            "24000 fit in the tutor's memory for expressions.");
  // Many items are counted as one input.
  std::string items = "x";
  while (items.size() <= kMaxInputLength) items += ";x";
  EXPECT_NE(Refusal(items).find("The input is too long"), std::string::npos);
}

TEST_F(ValidateInputTest, TheLongestInputIsCheckedWhole) {
  const std::size_t depth = (kMaxInputLength - 1) / 2;
  EXPECT_EQ(Refusal(std::string(depth, '(') + "x" + std::string(depth, ')')), "");
  EXPECT_EQ(Refusal(std::string(depth, '(') + "x" + std::string(depth - 1, ')') + "]"),
            "Error in input string.  Unmatched brackets.");
}

// The bracket test as three passes: each kind counted, then each opening bracket's partner.
bool ThreePassBracketsMatch(const std::string& text) {
  for (const auto& [open, close] : {std::pair{'(', ')'}, std::pair{'[', ']'}}) {
    int depth = 0;
    for (const char c : text) {
      if (c == open) ++depth;
      if (c == close && --depth < 0) return false;
    }
    if (depth != 0) return false;
  }
  for (int p = 1; p <= static_cast<int>(text.size()); ++p) {
    const char c = text[static_cast<std::size_t>(p - 1)];
    if (c != '(' && c != '[') continue;
    const int close = FindCloseBracket(text, p);
    if (close == 0) return false;
    const char closing = text[static_cast<std::size_t>(close - 1)];
    if ((c == '(' && closing == ']') || (c == '[' && closing == ')')) return false;
  }
  return true;
}

TEST(BracketsMatch, OnePassAgreesWithTheThreePassTest) {
  unsigned state = 12345;
  int matched = 0;
  for (int round = 0; round < 20000; ++round) {
    std::string text;
    const int length = static_cast<int>(state % 12);
    for (int i = 0; i < length; ++i) {
      state = state * 1103515245u + 12345u;
      text += "()[]x"[(state >> 16) % 5];
    }
    state = state * 1103515245u + 12345u;
    const bool expected = ThreePassBracketsMatch(text);
    matched += expected ? 1 : 0;
    EXPECT_EQ(BracketsMatch(text), expected) << text;
  }
  EXPECT_GT(matched, 100);  // the sample holds matched texts as well as unmatched
}

}  // namespace
}  // namespace tavimor
