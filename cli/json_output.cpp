// One JSON object describing the work item after a run of the terminal tutor.
#include "cli/json_output.h"

#include <cstdio>

#include "cli/system_view.h"
#include "cli/terminal_frontend.h"
#include "core/pieces.h"
#include "shell/main_flow.h"
#include "shell/status_bar.h"

namespace tavimor {

namespace {

std::string JsonList(const std::vector<std::string>& items) {
  std::string out = "[";
  for (std::size_t i = 0; i < items.size(); ++i) out += (i ? ", " : "") + JsonString(items[i]);
  return out + "]";
}

}  // namespace

std::string JsonString(const std::string& text) {
  std::string out = "\"";
  for (const char c : ValidUtf8(text)) {
    switch (c) {
      case '"': out += "\\\""; break;
      case '\\': out += "\\\\"; break;
      case '\n': out += "\\n"; break;
      case '\r': out += "\\r"; break;
      case '\t': out += "\\t"; break;
      default:
        if (static_cast<unsigned char>(c) < 0x20) {
          char buffer[8];
          std::snprintf(buffer, sizeof buffer, "\\u%04x", static_cast<unsigned>(c));
          out += buffer;
        } else {
          out += c;
        }
    }
  }
  return out + "\"";
}

std::string WorkItemJson(const Session& s, const RichText& work_space,
                         const std::vector<std::string>& messages,
                         const std::vector<std::string>& hints,
                         const std::optional<std::string>& error, bool show_item,
                         const std::vector<std::string>& dialog, const std::string& more_fields) {
  const bool loaded = show_item && !s.Form.item_kind.empty();
  const std::vector<std::string> status(s.Form.status_panels.begin(), s.Form.status_panels.end());
  std::string out = "{";
  out += "\"kind\": " + (loaded ? JsonString(s.Form.item_kind) : std::string("null"));
  out += ", \"panel\": " +
         (loaded ? JsonString(PanelCaption(s, s.Form.visible_panel)) : std::string("null"));
  out += ", \"left\": " + JsonString(loaded ? s.Pool[kLeftRoot].Text : "");
  out += ", \"right\": " + JsonString(loaded ? s.Pool[kRightRoot].Text : "");
  out += ", \"transcript\": " + JsonString(PlainText(work_space));
  out += ", \"help\": " + std::to_string(s.HelpNumber);
  out += ", \"status\": " + JsonList(status);
  out += ", \"messages\": " + JsonList(messages);
  out += ", \"hints\": " + JsonList(hints);
  out += ", \"error\": " + (error ? JsonString(*error) : std::string("null"));
  out += ", \"dialog\": " + JsonList(dialog);
  // A line that was never loaded has no system of its own either.
  out += loaded ? SystemJsonFields(s) : ", \"grid\": null, \"system\": null, \"solution\": null";
  // After a solve: the letter solved for, and the values stated for it after the check (or the
  // one reserved word).
  if (loaded && !s.SolveAnswers.empty()) {
    std::vector<std::string> answers;
    for (int k = 1; k <= CountPieces(s.SolveAnswers, "; "); ++k) {
      answers.push_back(GetPiece(s.SolveAnswers, k, "; "));
    }
    out += ", \"unknown\": " + JsonString(s.Unknown);
    out += ", \"answers\": " + JsonList(answers);
  }
  return out + more_fields + "}";
}

}  // namespace tavimor
