// One JSON object describing the work item after a run of the terminal tutor.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/session.h"
#include "present/rich_text.h"

namespace tavimor {

std::string JsonString(const std::string& text);

// kind, panel, left, right, transcript, help, status, messages, hints, error.
std::string WorkItemJson(const Session& s, const RichText& work_space,
                         const std::vector<std::string>& messages,
                         const std::vector<std::string>& hints,
                         const std::optional<std::string>& error);

}  // namespace tavimor
