// The Brackets button: one set of unneeded brackets removed per press, in the command frame.
#include "shell/commands/brackets_command.h"

#include <cstdlib>

#include "core/regenerate.h"
#include "core/scoped_override.h"
#include "present/typesetter.h"
#include "present/work_space.h"
#include "shell/command_frame.h"
#include "simplify/bracket_rules.h"

namespace tavimor {

std::string cmdBrackets(Session& s, bool) {
  ButtonState& button = s.Form.Button("cmdBrackets");
  if (button.tag == "restart") button.tag = "0";
  constexpr const char* kWhere[] = {"", " on the left side of the equation",
                                    " on the right side of the equation"};
  const std::string where = kWhere[SideOfPanel(s)];
  bool removed = false;
  return RunCommandFrame(
      s, "Error in removing brackets.",
      [&](NodeIdx side) {
        ScopedOverride keep(s.Message);
        NodeIdx root = side;
        removed = RemoveOneBracket(s, root);
        if (removed) RegenerateAll(s, root);
      },
      [&] {
        WorkSpaceSink box(s);
        if (!removed) {
          WriteText(s, box, "There are no unneccessary brackets" + where + ".", 0, 1, "FFF0");
          return;
        }
        const int count = std::atoi(button.tag.c_str()) + 1;
        button.tag = std::to_string(count);
        const char* how_many = count == 1 ? "one " : (count == 2 ? "another " : "more ");
        WriteText(s, box,
                  std::string("Removing ") + how_many + "set of unneccessary brackets" + where +
                      " yields:",
                  0, 0, "FFF0");
        const FontMetrics& metrics = s.Screen().Metrics();
        Picture picture = where.empty() ? DrawExpression(s, metrics, s.Pool[kLeftRoot].Text)
                                        : DrawEquation(s, metrics, s.Pool[kLeftRoot].Text,
                                                       s.Pool[kRightRoot].Text);
        InsertPicture(s, box, std::move(picture), 1, 2, true);
      });
}

}  // namespace tavimor
