// Properties over many generated inputs: parse and regenerate settle at once, FreeChildren gives
// every node back, and validation and parsing never crash on any text.
#include <gtest/gtest.h>

#include <random>

#include "core/node_pool.h"
#include "core/regenerate.h"
#include "core/text_predicates.h"
#include "core/validate.h"
#include "support/session_fixture.h"

namespace tavimor {
namespace {

// Random items of the input language, from its grammar.
class ItemGenerator {
 public:
  explicit ItemGenerator(unsigned seed) : random_(seed) {}

  std::string Item() {
    std::string left = Sum(2);
    if (Chance(0.4)) return left + "=" + Sum(1);
    return left;
  }

 private:
  bool Chance(double p) { return std::uniform_real_distribution<double>(0, 1)(random_) < p; }
  int Pick(int n) { return std::uniform_int_distribution<int>(0, n - 1)(random_); }

  std::string Number() {
    static constexpr const char* kNumbers[] = {"2",    "3",      "0.5",   "12",  "2E3", "1.5E-4",
                                               "7.25", "100000", "0.001", "3.0", ".5",  "6E12"};
    return kNumbers[Pick(12)];
  }
  std::string Letter() { return std::string(1, "xyzabtEe"[Pick(8)]); }
  std::string Function() {
    static constexpr const char* kNames[] = {"sin",    "cos", "tan", "arcsin", "arccos",
                                             "arctan", "ln",  "exp", "log",    "sqrt",
                                             "cot",    "sec", "csc"};
    return kNames[Pick(13)];
  }
  std::string Atom(int depth) {
    switch (depth <= 0 ? Pick(2) : Pick(6)) {
      case 0: return Number();
      case 1: return Letter();
      case 2: return Function() + "(" + Sum(depth - 1) + ")";
      case 3: return "(" + Sum(depth - 1) + ")";
      case 4: return "[" + Sum(depth - 1) + "]";
      default: return "(" + Product(depth - 1) + ")";
    }
  }
  std::string Power(int depth) {
    std::string base = Atom(depth);
    while (Chance(0.2)) base += "^" + (Chance(0.6) ? Atom(0) : "(" + Sum(depth - 1) + ")");
    return base;
  }
  std::string Product(int depth) {
    std::string product = Power(depth);
    const int factors = Pick(2) + (depth > 0 ? 0 : 1);
    for (int i = 0; i < factors; ++i) {
      const int op = Pick(3);
      std::string next = Power(depth);
      // An implicit product must not glue digits together or make a function name.
      if (op == 0 && !std::isdigit(static_cast<unsigned char>(next[0])) && next[0] != '.' &&
          std::isalpha(static_cast<unsigned char>(next[0])) == 0) {
        product += next;
      } else {
        product += (op == 2 ? "/" : "*") + next;
      }
    }
    return product;
  }
  std::string Sum(int depth) {
    std::string sum = Chance(0.2) ? "-" : (Chance(0.1) ? "+" : "");
    sum += Product(depth);
    const int terms = Pick(3);
    for (int i = 0; i < terms; ++i) sum += (Chance(0.5) ? "+" : "-") + Product(depth);
    return sum;
  }

  std::mt19937 random_;
};

class RoundTrip : public SessionTest {
 protected:
  // Role, Kind and Text of every node, in pre-order, with the depth.
  std::string Shape(NodeIdx root, bool hidden_as_shown) {
    std::string out;
    std::vector<std::pair<NodeIdx, int>> pending{{root, 0}};
    while (!pending.empty()) {
      const auto [n, depth] = pending.back();
      pending.pop_back();
      char kind = N(n).Kind;
      if (hidden_as_shown && kind == '[') kind = '(';
      out += std::to_string(depth) + N(n).Role + kind + N(n).Text + "\n";
      std::vector<NodeIdx> children;
      for (NodeIdx c = N(n).FirstChild; c != kNoNode; c = N(c).Next) children.push_back(c);
      for (auto it = children.rbegin(); it != children.rend(); ++it)
        pending.emplace_back(*it, depth + 1);
    }
    return out;
  }

  // Loads the text into a node of its own; false when the pool or the level bound gives out.
  bool TryLoad(const std::string& text, NodeIdx& n) {
    try {
      n = Load(text);
      return true;
    } catch (const RunTimeError&) {
      InitNodePool(s);
      return false;
    }
  }

  void CheckSettles(const std::string& item) {
    std::string text = item;
    ASSERT_EQ(ValidateInput(s, text), 0) << item << ": " << frontend.messages.back().text;
    InitNodePool(s);
    for (const ItemSides& sides : SplitInput(text)) {
      // Each load has the whole pool to itself.
      NodeIdx n = 0;
      InitNodePool(s);
      if (!TryLoad(sides.left, n)) continue;
      const std::string a = N(n).Text;
      const std::string shape_a = Shape(n, true);
      InitNodePool(s);
      ASSERT_TRUE(TryLoad(a, n)) << a;
      const std::string b = N(n).Text;
      const std::string shape_b = Shape(n, false);
      const std::string shape_b_shown = Shape(n, true);
      InitNodePool(s);
      ASSERT_TRUE(TryLoad(b, n)) << b;
      EXPECT_EQ(a, b) << item;
      EXPECT_EQ(b, N(n).Text) << item;
      EXPECT_EQ(shape_b, Shape(n, false)) << item;
      // Typed square brackets come back as round ones; everything else is the same tree.
      EXPECT_EQ(shape_a, shape_b_shown) << item;
      ++checked_;
    }
  }

  int checked_ = 0;
};

TEST_F(RoundTrip, GeneratedItemsSettleAfterOneRegeneration) {
  ItemGenerator generator(20261121);
  for (int i = 0; i < 3000; ++i) CheckSettles(generator.Item());
  EXPECT_GT(checked_, 2500);
}

TEST_F(RoundTrip, FreeChildrenGivesBackEveryNodeOfGeneratedTrees) {
  ItemGenerator generator(42);
  for (int i = 0; i < 1000; ++i) {
    std::string text = generator.Item();
    ASSERT_EQ(ValidateInput(s, text), 0);
    InitNodePool(s);
    const NodeIdx root = NewNode(s);
    try {
      LoadSide(s, root, SplitInput(text).front().left);
    } catch (const RunTimeError&) {
      continue;
    }
    const int below = CountChildren(s, root, true);
    FreeChildren(s, root);
    EXPECT_EQ(s.Pool.NodesInUse, 1) << text << " had " << below << " nodes below";
  }
}

TEST_F(RoundTrip, PredicatesOnGeneratedTextsLeaveThePoolAsTheyFoundIt) {
  ItemGenerator generator(7);
  for (int i = 0; i < 500; ++i) {
    std::string text = generator.Item();
    ASSERT_EQ(ValidateInput(s, text), 0);
    const std::string side = SplitInput(text).front().left;
    InitNodePool(s);
    NewNode(s);
    const auto before = s.Pool.NodesInUse;
    try {
      IsSumText(s, side);
      NeedsBrackets(s, side);
      CountTerms(s, side);
      WrapDepth(s, side, "x");
      CountOccurrences(s, side, "x");
      SumSignClass(s, side);
    } catch (const RunTimeError&) {
    }
    EXPECT_EQ(s.Pool.NodesInUse, before) << side;
  }
}

TEST_F(RoundTrip, RandomCharacterSoupNeverCrashesAndValidTextSettles) {
  std::mt19937 random(99);
  const std::string alphabet = "+-*/^()[]=;.0123456789xyEesincolgqrtpa ";
  int accepted = 0;
  for (int i = 0; i < 20000; ++i) {
    std::string text;
    const int length = std::uniform_int_distribution<int>(1, 14)(random);
    for (int j = 0; j < length; ++j) {
      text += alphabet[std::uniform_int_distribution<std::size_t>(0, alphabet.size() - 1)(random)];
    }
    std::string copy = text;
    frontend.messages.clear();
    if (ValidateInput(s, copy) != 0) continue;
    if (copy.empty()) continue;
    ++accepted;
    CheckSettles(text);
  }
  EXPECT_GT(accepted, 500);
}

}  // namespace
}  // namespace tavimor
