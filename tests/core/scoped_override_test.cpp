// Tests of the scoped keeping of state: what a scope forces is given back however it ends.
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "core/scoped_override.h"

namespace tavimor {
namespace {

TEST(ScopedOverride, SetsAValueForTheScopeAndRestoresIt) {
  int detail = 2;
  {
    ScopedOverride keep(detail, 0);
    EXPECT_EQ(detail, 0);
    EXPECT_EQ(keep.Kept(), 2);
  }
  EXPECT_EQ(detail, 2);
}

TEST(ScopedOverride, KeepsAValueThatTheScopeChanges) {
  std::string message = "12#A step.";
  {
    ScopedOverride keep(message);
    message = "Skip message";
  }
  EXPECT_EQ(message, "12#A step.");
}

TEST(ScopedOverride, RestoresWhenTheScopeThrows) {
  bool exact_to_float = false;
  EXPECT_THROW(
      {
        ScopedOverride keep(exact_to_float, true);
        throw std::runtime_error("fault");
      },
      std::runtime_error);
  EXPECT_FALSE(exact_to_float);
}

TEST(ScopedOverride, NestedScopesUnwindInOrder) {
  int mode = 1;
  {
    ScopedOverride outer(mode, 2);
    {
      ScopedOverride inner(mode, 3);
      EXPECT_EQ(mode, 3);
    }
    EXPECT_EQ(mode, 2);
  }
  EXPECT_EQ(mode, 1);
}

}  // namespace
}  // namespace tavimor
