// A fresh session with a recording front end, the pool initialised, for each test.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "core/input_split.h"
#include "core/node_pool.h"
#include "core/session.h"
#include "support/recording_frontend.h"

namespace tavimor {

class SessionTest : public ::testing::Test {
 protected:
  SessionTest() : s(frontend) {
    InitFunctionTable(s);
    InitNodePool(s);
  }

  // A node of its own holding the loaded tree of the text.
  NodeIdx Load(const std::string& text) {
    const NodeIdx n = NewNode(s);
    LoadSide(s, n, text);
    return n;
  }

  // The n-th child (1-based) of a node.
  NodeIdx Child(NodeIdx n, int index) {
    NodeIdx c = s.Pool[n].FirstChild;
    for (int i = 1; i < index && c != kNoNode; ++i) c = s.Pool[c].Next;
    return c;
  }

  const ExprNode& N(NodeIdx n) { return s.Pool[n]; }

  RecordingFrontend frontend;
  Session s;
};

}  // namespace tavimor
