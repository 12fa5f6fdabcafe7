// One JSON object describing the work item after a run of the terminal tutor.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/session.h"
#include "present/rich_text.h"

namespace tavimor {

// The text as a JSON string: always valid UTF-8 (a stray byte becomes U+FFFD), control
// characters escaped.
std::string JsonString(const std::string& text);

// kind, panel, left, right, transcript, help, status, messages, hints, error, dialog (the lines
// the last tool dialog showed), the system window's grid, system and solution
// (cli/system_view.h); after a solve also unknown and answers. Without `show_item` (a line that
// was never loaded) kind and panel are null and the sides empty. `more_fields` (", \"graph\": ...")
// stand last.
std::string WorkItemJson(const Session& s, const RichText& work_space,
                         const std::vector<std::string>& messages,
                         const std::vector<std::string>& hints,
                         const std::optional<std::string>& error, bool show_item = true,
                         const std::vector<std::string>& dialog = {},
                         const std::string& more_fields = "");

}  // namespace tavimor
