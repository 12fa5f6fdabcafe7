// Answers kept for the item: what a silent factoring or simplification gave, and the nodes a
// rule of the loop left as they stand, each under a key of the options it depends on.
#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "core/session.h"

namespace tavimor {

// The options a silent factoring, simplification or rule depends on, with `what` (which
// question) and the text it was asked of, as a key.
std::string OptionKey(const Session& s, char what, std::string_view text);

// The answer kept under the key, or null.
const std::string* FindKeptAnswer(const Session& s, const std::string& key);

// Keeps an answer under the key.
void KeepAnswer(Session& s, std::string key, const std::string& answer);

// The answer kept under the key, or `work()` worked out and kept. At most a few thousand are
// kept; then they start afresh. Dropped at every load.
template <typename Work>
std::string KeptAnswer(Session& s, char what, const std::string& text, Work work) {
  std::string key = OptionKey(s, what, text);
  if (const std::string* kept = FindKeptAnswer(s, key)) return *kept;
  std::string answer = work();
  KeepAnswer(s, std::move(key), answer);
  return answer;
}

// Whether the key is kept as one that stays: a question whose answer is "nothing changes".
bool KnownToStay(const Session& s, const std::string& key);
void KeepAsStaying(Session& s, std::string key);

}  // namespace tavimor
