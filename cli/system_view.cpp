// The open system window as the terminal shows it, and its fields of the JSON object.
#include "cli/system_view.h"

#include "cli/json_output.h"
#include "linsys/sys_eq_form.h"

namespace tavimor {

void PrintSystemGrid(const Session& s, std::ostream& out) {
  const SysEqState* form = s.SystemWindow.get();
  if (form == nullptr || form->closed) return;
  if (form->method == 2) {
    for (const std::string& line : SubstitutionLines(s, *form)) out << "    " << line << '\n';
    if (!form->assist_text.empty()) out << form->assist_text << '\n';
    return;
  }
  for (const std::string& line : GridTextLines(s, *form)) out << "    " << line << '\n';
  if (!form->assist_text.empty() && form->reduced) out << form->assist_text << '\n';
}

std::string SystemJsonFields(const Session& s) {
  const SysEqState* form = s.SystemWindow.get();
  std::string grid = "null";
  std::string system = "null";
  std::string solution = "null";
  if (form != nullptr && form->grid.rows > 0) {
    grid = "[";
    const auto rows = GridNumberTexts(s, form->grid);
    for (std::size_t i = 0; i < rows.size(); ++i) {
      grid += i ? ", [" : "[";
      for (std::size_t k = 0; k < rows[i].size(); ++k) {
        grid += (k ? ", " : "") + JsonString(rows[i][k]);
      }
      grid += "]";
    }
    grid += "]";
  }
  if (form != nullptr && form->read) {
    switch (form->reading.kind) {
      case SystemKind::Unique: {
        system = "\"unique\"";
        solution = "{";
        bool first = true;
        for (const auto& [letter, value] : form->reading.solution) {
          solution +=
              (first ? "" : ", ") + JsonString(std::string(1, letter)) + ": " + JsonString(value);
          first = false;
        }
        solution += "}";
        break;
      }
      case SystemKind::Infinite: system = "\"infinite\""; break;
      case SystemKind::None: system = "\"none\""; break;
    }
  }
  return ", \"grid\": " + grid + ", \"system\": " + system + ", \"solution\": " + solution;
}

}  // namespace tavimor
