// A session with equations put straight into EquationList, for the tests of the graph engine.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "graph/classify_graphs.h"
#include "graph/draw_graphs.h"
#include "support/session_fixture.h"

namespace tavimor {

class GraphTest : public SessionTest {
 protected:
  // Sets the rows ("left", "right") and classifies them; the message of a refusal, or empty.
  std::string Classify(const std::vector<std::pair<std::string, std::string>>& equations) {
    s.EquationList.clear();
    for (const auto& [left, right] : equations) s.EquationList.push_back({left, right, "", ""});
    return ClassifyGraphs(s);
  }
  std::string KindOf(const std::string& left, const std::string& right) {
    const std::string refusal = Classify({{left, right}});
    return refusal.empty() ? s.EquationList[0][3] : refusal;
  }
  // The picture of the equations under the settings string (the factory one by default).
  GraphPicture Draw(const std::vector<std::pair<std::string, std::string>>& equations,
                    const std::string& parms = kFactoryGraphParms) {
    EXPECT_EQ(Classify(equations), "");
    return DrawGraphs(s, ReadGraphParms(s, parms));
  }

 public:
  // The polylines of the curves (the frame draws only lines, points and texts).
  static std::vector<GraphItem> Polylines(const GraphPicture& picture) {
    std::vector<GraphItem> out;
    for (const GraphItem& item : picture.display.items) {
      if (item.type == GraphItem::Type::Polyline) out.push_back(item);
    }
    return out;
  }
};

}  // namespace tavimor
