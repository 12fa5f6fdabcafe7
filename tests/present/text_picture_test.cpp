// Tests of mathematics set as lines of text for the terminal.
#include <gtest/gtest.h>

#include "present/text_picture.h"
#include "present/typesetter.h"
#include "support/session_fixture.h"

namespace tavimor {
namespace {

class TextPictureTest : public SessionTest {
 protected:
  std::vector<std::string> Rows(const std::string& text) {
    Picture picture;
    picture.left = text;
    return TextPicture(s, picture).Utf8Rows();
  }
};

TEST_F(TextPictureTest, FractionIsStackedOverItsRule) {
  EXPECT_EQ(Rows("a/b"), (std::vector<std::string>{" a ", "───", " b "}));
}

TEST_F(TextPictureTest, CoefficientOneAboveTheLineIsNotSet) {
  EXPECT_EQ(Rows("1/2*x"), Rows("x/2"));
  EXPECT_EQ(Rows("-1/2*a/c"), (std::vector<std::string>{"  a  ", "−────", "  2c "}));
  EXPECT_EQ(Rows("1/x"), (std::vector<std::string>{" 1 ", "───", " x "}));
}

TEST_F(TextPictureTest, PowerOfAPowerHasItsBaseInBrackets) {
  EXPECT_EQ(Rows("x^2^3"), Rows("(x^2)^3"));
  EXPECT_EQ(Rows("x^2^3"), (std::vector<std::string>{"(x²)³"}));
  const int nodes = s.Pool.NodesInUse;
  Rows("x^2^3^4");
  EXPECT_EQ(s.Pool.NodesInUse, nodes);
}

// A front end that shows mathematics only as text, as the terminal does.
class TextOnlyFrontend : public RecordingFrontend {
 public:
  bool PaintsDrawings() const override { return false; }
};

class TextAheadTest : public SessionTest {
 protected:
  TextAheadTest() { s.SetFrontend(text_only); }
  Picture Draw(const std::string& left, const std::string& right) {
    return right.empty() ? DrawExpression(s, text_only.Metrics(), left)
                         : DrawEquation(s, text_only.Metrics(), left, right);
  }
  static Picture Plain(const Picture& drawn) {
    Picture plain = drawn;
    plain.text.reset();
    return plain;
  }
  TextOnlyFrontend text_only;
};

TEST_F(TextAheadTest, APictureSetAheadShowsAsOneSetWhenShown) {
  Load("x+1");  // a tree that stays
  const std::vector<std::pair<std::string, std::string>> items = {
      {"x/2+x/3", ""},   {"(a+b)^2", "a^2+2*a*b+b^2"},
      {"sqrt(x)/2", ""}, {"1;2;x", ""},
      {"-1/2*a/c", "3"}, {std::string(30, '(') + "x" + std::string(30, ')'), ""}};
  for (const auto& [left, right] : items) {
    const Picture drawn = Draw(left, right);
    ASSERT_NE(drawn.text, nullptr) << left;
    EXPECT_TRUE(drawn.drawing.items.empty()) << left;
    const NodePool before = s.Pool;
    const std::vector<std::string> ahead = TextPicture(s, drawn).Utf8Rows();
    const std::vector<NodeIdx> ahead_free = FreeListFront(s, kPoolSize);
    const std::int16_t ahead_most = s.Pool.MaxNodesInUse;
    s.Pool = before;
    EXPECT_EQ(ahead, TextPicture(s, Plain(drawn)).Utf8Rows()) << left;
    // The pool is left as setting it when shown leaves it.
    EXPECT_EQ(ahead_free, FreeListFront(s, kPoolSize)) << left;
    EXPECT_EQ(ahead_most, s.Pool.MaxNodesInUse) << left;
  }
}

TEST_F(TextAheadTest, APictureSetAheadFollowsTheOptionsWhenShown) {
  const Picture drawn = Draw("2*p", "");
  s.SpecialP = true;
  EXPECT_EQ(TextPicture(s, drawn).Utf8Rows(), (std::vector<std::string>{"2π"}));
}

TEST_F(TextAheadTest, APictureSetAheadIsSetAgainWhenThePoolHasNoRoomForIt) {
  const Picture drawn = Draw("a+b+c+d", "");
  while (s.Pool.NodesInUse < kPoolSize - 2) NewNode(s);
  EXPECT_EQ(TextPicture(s, drawn).Utf8Rows(), (std::vector<std::string>{"a+b+c+d"}));
}

TEST_F(TextAheadTest, ASideThatCannotBeDrawnIsToldAsADrawingIs) {
  while (s.Pool.NodesInUse < kPoolSize - 2) NewNode(s);
  const Picture drawn = Draw("a+b+c+d", "");
  EXPECT_EQ(drawn.text, nullptr);
  ASSERT_EQ(text_only.messages.size(), 1u);
  EXPECT_EQ(text_only.messages[0].text.rfind("Error in DrawAnyExpression.", 0), 0u);
}

TEST_F(TextPictureTest, OneRowPicturesJoinTheirLineAsStackedOnesDo) {
  auto line = [&](const std::vector<std::string>& pictures) {
    RichText runs;
    runs.push_back(RichRun{RunKind::Text, "Sum  ", {}, {}});
    for (const std::string& text : pictures) {
      RichRun run;
      run.kind = RunKind::Picture;
      run.picture.left = text;
      runs.push_back(run);
      runs.push_back(RichRun{RunKind::Tab, "", {}, {}});
    }
    runs.push_back(RichRun{RunKind::Text, "end  ", {}, {}});
    runs.push_back(RichRun{RunKind::LineEnd, "", {}, {}});
    return RenderForTerminal(s, runs);
  };
  EXPECT_EQ(line({"2*x+3*x^2", "sin(x)-(a+b)"}),
            (std::vector<std::string>{"Sum  2x + 3x²    sin(x) − (a + b)    end"}));
  // A stacked picture on the line sets every part on its baseline.
  EXPECT_EQ(line({"2*x+3*x^2", "a/b"}),
            (std::vector<std::string>{std::string(18, ' ') + "a", "Sum  2x + 3x²    ───    end",
                                      std::string(18, ' ') + "b"}));
  EXPECT_EQ(line({"sqrt(x)"}), (std::vector<std::string>{"      _", "Sum  √x    end"}));
}

TEST_F(TextPictureTest, TextThatIsNotUtf8IsMendedTheSameOnEveryLine) {
  auto line = [&](const std::string& picture) {
    RichText runs;
    runs.push_back(RichRun{RunKind::Text, "caf\xE9 ", {}, {}});
    RichRun run;
    run.kind = RunKind::Picture;
    run.picture.left = picture;
    runs.push_back(run);
    runs.push_back(RichRun{RunKind::LineEnd, "", {}, {}});
    return RenderForTerminal(s, runs);
  };
  const std::vector<std::string> one_row = line("x");
  const std::vector<std::string> stacked = line("x/2");
  ASSERT_EQ(one_row.size(), 1u);
  ASSERT_EQ(stacked.size(), 3u);
  EXPECT_EQ(one_row[0].substr(0, one_row[0].size() - 1),
            stacked[1].substr(0, one_row[0].size() - 1));
}

TEST_F(TextAheadTest, ASideSetAgainLeavesThePoolAsSettingItAfresh) {
  Load("x+1");  // a tree that stays
  const std::vector<std::string> texts = {"x/2+x/3", "2*x+3*x",   "x/2+x/3", "5*x",
                                          "2*x+3*x", "sqrt(x)/2", "5*x",     "sqrt(x)/2"};
  Session fresh(text_only);
  InitFunctionTable(fresh);
  fresh.Pool = s.Pool;
  for (const std::string& text : texts) {
    const Picture kept = Draw(text, "");
    fresh.SetSidesOfItem.reset();  // every side set anew
    const Picture anew = DrawExpression(fresh, text_only.Metrics(), text);
    ASSERT_NE(kept.text, nullptr) << text;
    ASSERT_NE(anew.text, nullptr) << text;
    EXPECT_EQ(kept.text->left.block.rows, anew.text->left.block.rows) << text;
    EXPECT_EQ(kept.text->left.footprint.order, anew.text->left.footprint.order) << text;
    EXPECT_EQ(FreeListFront(s, kPoolSize), FreeListFront(fresh, kPoolSize)) << text;
    EXPECT_EQ(s.Pool.MaxNodesInUse, fresh.Pool.MaxNodesInUse) << text;
  }
}

TEST_F(TextAheadTest, ASideSetUnderOtherOptionsIsSetAgain) {
  const Picture plain = Draw("2*p", "");
  s.SpecialP = true;
  const Picture special = Draw("2*p", "");
  ASSERT_NE(plain.text, nullptr);
  ASSERT_NE(special.text, nullptr);
  EXPECT_EQ(Utf8(plain.text->left.block.rows[0]), "2p");
  EXPECT_EQ(Utf8(special.text->left.block.rows[0]), "2π");
}

TEST_F(TextAheadTest, ASideSetBeforeFailsAsADrawingWhenThePoolHasNoRoomForIt) {
  ASSERT_NE(Draw("a+b+c+d", "").text, nullptr);
  while (s.Pool.NodesInUse < kPoolSize - 2) NewNode(s);
  const Picture drawn = Draw("a+b+c+d", "");
  EXPECT_EQ(drawn.text, nullptr);
  ASSERT_EQ(text_only.messages.size(), 1u);
  EXPECT_EQ(text_only.messages[0].text.rfind("Error in DrawAnyExpression.", 0), 0u);
}

}  // namespace
}  // namespace tavimor
