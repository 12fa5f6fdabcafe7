// The Graph button: the equations classified into graph kinds, then the graph window.
#include "shell/commands/graph_command.h"

#include "core/message_box.h"
#include "graph/classify_graphs.h"
#include "shell/command_frame.h"
#include "shell/command_table.h"

namespace tavimor {

std::string cmdGraph(Session& s, bool) {
  return RunCommandFrame(
      s, kGraphError,
      [&s](NodeIdx) {
        const std::string refusal = ClassifyGraphs(s);
        if (!refusal.empty()) {
          // The button of the Multi Eqns panel leads to topic 27, the Equation panel's to 13.
          const int help = s.Form.visible_panel == kPanelMultiEquations ? 27 : 13;
          ShowCustomMessage(s, "Error: " + refusal, help);
          return;
        }
        s.Screen().OpenGraphWindow(s);
      },
      [] {});
}

}  // namespace tavimor
