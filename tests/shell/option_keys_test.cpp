// Tests of the options by their settings keys and text forms.
#include <gtest/gtest.h>

#include "shell/option_keys.h"
#include "support/session_fixture.h"

namespace tavimor {
namespace {

using OptionKeysTest = SessionTest;

TEST_F(OptionKeysTest, FirstRunValuesInTheirTextForms) {
  EXPECT_EQ(OptionText(s, "Unknown"), "x");
  EXPECT_EQ(OptionText(s, "Special E"), "True");
  EXPECT_EQ(OptionText(s, "Special P"), "False");
  EXPECT_EQ(OptionText(s, "Complex form"), "0");
  EXPECT_EQ(OptionText(s, "Solve detail"), "1");
  EXPECT_EQ(OptionText(s, "Font size"), "12");
  EXPECT_EQ(OptionText(s, "Sig figs"), "3");
  EXPECT_EQ(OptionText(s, "Form width"), "12120");
  EXPECT_EQ(OptionText(s, "Form height"), "9480");
  EXPECT_EQ(OptionText(s, "Quadratic method"), "2");
  EXPECT_EQ(OptionText(s, "GraphParms"), kFactoryGraphParms);
  EXPECT_EQ(OptionText(s, "No such key"), "");
}

TEST_F(OptionKeysTest, KeysInTheirWrittenOrder) {
  const std::vector<std::string> keys = OptionKeys();
  ASSERT_EQ(keys.size(), 21u);
  EXPECT_EQ(keys.front(), "Unknown");
  EXPECT_EQ(keys[14], "IniSplashScreen");
  EXPECT_EQ(keys.back(), "GraphParms");
}

TEST_F(OptionKeysTest, StoreReadsFlagsAsTrueOnlyForTrue) {
  std::string error;
  EXPECT_TRUE(SetOptionFromText(s, "Special P", "True", false, error));
  EXPECT_TRUE(s.SpecialP);
  EXPECT_TRUE(SetOptionFromText(s, "Special P", "true", false, error));
  EXPECT_FALSE(s.SpecialP);
  EXPECT_TRUE(SetOptionFromText(s, "Special E", "yes", false, error));
  EXPECT_FALSE(s.SpecialE);
}

TEST_F(OptionKeysTest, StoreLeavesTheStateForAnUnreadableValue) {
  std::string error;
  EXPECT_TRUE(SetOptionFromText(s, "Sig figs", "many", false, error));
  EXPECT_EQ(s.SigFigs, 3);
}

TEST_F(OptionKeysTest, KeysAreNotCaseSensitive) {
  std::string error;
  const std::string parms = "1;1;-10;10;10;10;-10;10;10;10;2;0;2;0;0;1;255;1;2;3;4;5;6;7;8;9";
  EXPECT_TRUE(SetOptionFromText(s, "Graphparms", parms, false, error));
  EXPECT_EQ(s.GraphParms, parms);
}

TEST_F(OptionKeysTest, TypedValuesAreCheckedForFormAndRange) {
  std::string error;
  EXPECT_TRUE(SetOptionFromText(s, "Special P", "true", true, error));
  EXPECT_TRUE(s.SpecialP);
  EXPECT_FALSE(SetOptionFromText(s, "Special P", "yes", true, error));
  EXPECT_EQ(error, "The option \"Special P\" takes True or False, not \"yes\".");
  EXPECT_FALSE(SetOptionFromText(s, "Complex form", "4", true, error));
  EXPECT_EQ(error, "The option \"Complex form\" takes a whole number from 0 to 3, not \"4\".");
  EXPECT_FALSE(SetOptionFromText(s, "Unknown", "xy", true, error));
  EXPECT_FALSE(SetOptionFromText(s, "Bogus", "1", true, error));
  EXPECT_EQ(error, "There is no option \"Bogus\".");
}

TEST_F(OptionKeysTest, SolveDetailSetsTheDefaultAndTheRun) {
  std::string error;
  EXPECT_TRUE(SetOptionFromText(s, "Solve detail", "2", true, error));
  EXPECT_EQ(s.SolveDetailDefault, 2);
  EXPECT_EQ(s.SolveDetail, 2);
}

TEST_F(OptionKeysTest, UnknownTakesOneLetter) {
  std::string error;
  EXPECT_TRUE(SetOptionFromText(s, "Unknown", "Z", true, error));
  EXPECT_EQ(s.Unknown, "Z");
}

}  // namespace
}  // namespace tavimor
