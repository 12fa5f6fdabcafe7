// Tests of the settings kept between runs.
#include <gtest/gtest.h>

#include "shell/settings.h"
#include "support/session_fixture.h"

namespace tavimor {
namespace {

using Settings = SessionTest;

TEST_F(Settings, FirstRunTakesTheFirstRunValuesAndTheSamples) {
  MemorySettings store;
  std::array<std::string, 4> recent;
  s.SigFigs = 7;
  EXPECT_TRUE(LoadSettings(s, store, "/opt/tavimor", recent));
  EXPECT_EQ(s.SigFigs, 3);
  EXPECT_EQ(recent[0], "/opt/tavimor/samples.txt");
  EXPECT_EQ(recent[1], "/opt/tavimor/trig ids.txt");
  EXPECT_EQ(recent[2], "");
  EXPECT_TRUE(store.values.empty());  // nothing is written until exit
}

TEST_F(Settings, SavedOptionsComeBackAtTheNextStart) {
  MemorySettings store;
  s.Unknown = "t";
  s.SpecialP = true;
  s.SigFigs = 5;
  s.ComplexForm = 2;
  s.SolveDetailDefault = 0;
  s.GraphParms = "1;2;3;4;5;6;7;8;9;10;11;12;13;14;15;16;17;18;19;20;21;22;23;24;25;26";
  SaveSettings(s, store, {"a.txt", "b.txt", "", ""});
  EXPECT_EQ(*store.Get("Parameters", "Special P"), "True");
  EXPECT_EQ(*store.Get("Parameters", "Special E"), "True");
  EXPECT_EQ(*store.Get("Parameters", "Degrees"), "False");
  RecordingFrontend other_frontend;
  Session next(other_frontend);
  std::array<std::string, 4> recent;
  EXPECT_FALSE(LoadSettings(next, store, "/opt", recent));
  EXPECT_EQ(next.Unknown, "t");
  EXPECT_TRUE(next.SpecialP);
  EXPECT_EQ(next.SigFigs, 5);
  EXPECT_EQ(next.ComplexForm, 2);
  EXPECT_EQ(next.SolveDetail, 0);
  EXPECT_EQ(next.GraphParms, s.GraphParms);
  EXPECT_EQ(recent[1], "b.txt");
}

TEST_F(Settings, FlagIsTrueOnlyForTrue) {
  MemorySettings store;
  store.Set("Parameters", "Unknown", "x");
  store.Set("Parameters", "Special E", "true");
  std::array<std::string, 4> recent;
  LoadSettings(s, store, "", recent);
  EXPECT_FALSE(s.SpecialE);
}

TEST_F(Settings, UnreadableKeyLeavesTheOptionAlone) {
  MemorySettings store;
  store.Set("Parameters", "Unknown", "x");
  store.Set("Parameters", "Sig figs", "many");
  std::array<std::string, 4> recent;
  s.SigFigs = 4;
  LoadSettings(s, store, "", recent);
  EXPECT_EQ(s.SigFigs, 4);
}

TEST_F(Settings, FormSizeIsNotWrittenWhileMinimisedOrMaximised) {
  MemorySettings store;
  s.FormWindowState = 2;
  SaveSettings(s, store, {});
  EXPECT_FALSE(store.Get("Parameters", "Form width").has_value());
  EXPECT_FALSE(store.Get("Parameters", "Form height").has_value());
  EXPECT_EQ(*store.Get("Parameters", "Form windowstate"), "2");
  s.FormWindowState = 0;
  SaveSettings(s, store, {});
  EXPECT_EQ(*store.Get("Parameters", "Form width"), "12120");
}

TEST_F(Settings, GraphSettingsAreReadUnderTheirOtherSpelling) {
  MemorySettings store;
  store.Set("Parameters", "Unknown", "x");
  const std::string parms = "9;9;-10;10;10;10;-10;10;10;10;2;0;2;0;0;1;255;1;2;3;4;5;6;7;8;9";
  store.Set("Parameters", "Graphparms", parms);
  std::array<std::string, 4> recent;
  LoadSettings(s, store, "", recent);
  EXPECT_EQ(s.GraphParms, parms);
}

TEST_F(Settings, StoreIsNamedByTheVersion) { EXPECT_EQ(SettingsApplicationName(), "Tavimor 0.1"); }

}  // namespace
}  // namespace tavimor
