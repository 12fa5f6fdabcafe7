// Answers kept for the item, under keys of the options they depend on.
#include "simplify/kept_answers.h"

#include <cstddef>
#include <utility>

namespace tavimor {

namespace {

// Answers kept in the session, at most this many; then they start afresh.
constexpr std::size_t kKeptAnswers = 4096;

}  // namespace

std::string OptionKey(const Session& s, char what, std::string_view text) {
  std::string key;
  key.reserve(24 + s.DecimalPoint.size() + s.ProtectedExponent.size() + text.size());
  key += what;
  for (const bool flag :
       {s.ExactToFloat, s.ExponentToReciprocal, s.ExponentToRadical,
        s.ExponentToExponentialFunction, s.SpecialE, s.SpecialP, s.SpecialD, s.Degrees,
        s.DistributeMinus, s.ComplexProducts, s.PythagorasRules, !s.FunctionNames[1].empty()}) {
    key += flag ? '1' : '0';
  }
  for (const int small : {static_cast<int>(s.TrigMode), static_cast<int>(s.EvaluateInverseTrig),
                          static_cast<int>(s.ComplexForm), static_cast<int>(s.ExpandMode)}) {
    if (small >= 0 && small <= 9) {
      key += static_cast<char>('0' + small);  // the usual case, without a conversion
    } else {
      key += std::to_string(small);
    }
    key += ',';
  }
  key += s.DecimalPoint;
  key += s.ProtectedExponent;
  key += '|';
  key += text;
  return key;
}

const std::string* FindKeptAnswer(const Session& s, const std::string& key) {
  const auto at = s.KeptAnswers.find(key);
  return at == s.KeptAnswers.end() ? nullptr : &at->second;
}

void KeepAnswer(Session& s, std::string key, const std::string& answer) {
  if (s.KeptAnswers.size() >= kKeptAnswers) s.KeptAnswers.clear();
  s.KeptAnswers.emplace(std::move(key), answer);
}

bool KnownToStay(const Session& s, const std::string& key) {
  return FindKeptAnswer(s, key) != nullptr;
}

void KeepAsStaying(Session& s, std::string key) { KeepAnswer(s, std::move(key), ""); }

}  // namespace tavimor
