// What a front end offers to show a graph: the Graph button asks the session's front end for it.
#pragma once

#include "core/session.h"

namespace tavimor {

// A front end that can show the graph window implements this beside Frontend. A window returns
// once it has closed, having written its settings back to GraphParms; the terminal draws the
// picture at once.
class GraphWindowHost {
 public:
  virtual ~GraphWindowHost() = default;
  virtual void OpenGraphWindow(Session& s) = 0;
};

}  // namespace tavimor
