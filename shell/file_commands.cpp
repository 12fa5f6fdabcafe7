// Opening and saving the algebra list as the File menu does, the same for both front ends.
#include "shell/file_commands.h"

#include "shell/algebra_file.h"

namespace tavimor {

bool OpenAlgebraFile(Session& s, const std::string& path, std::string& problem) {
  const ReadOutcome outcome = ReadAlgebraFile(s, path);
  s.FileName = outcome.ok ? path : "";
  s.ListEditedFlag = s.EqnAddedFlag = false;
  if (LoadTopics(s).empty()) {
    s.CurrentSubTopic = 0;
    LoadEqns(s, 1);
  } else {
    s.EqnInsertPos = static_cast<std::int16_t>(s.ListEntries.size() + 1);
  }
  problem = outcome.problem;
  return outcome.ok;
}

bool SaveAlgebraFile(Session& s, const std::string& path, std::string& reason) {
  if (!WriteAlgebraFile(s, path, &reason)) return false;
  s.FileName = path;
  s.ListEditedFlag = s.EqnAddedFlag = false;
  return true;
}

}  // namespace tavimor
