// Exact arithmetic of two numbers a/b: the fraction in lowest terms.
#include "manipulate/reduce_fraction.h"

#include <cmath>
#include <cstdint>
#include <map>

#include "core/errors.h"
#include "core/number_text.h"

namespace tavimor {

namespace {

std::map<std::int64_t, int> PrimePowers(std::int64_t n) {
  std::map<std::int64_t, int> powers;
  for (const std::int64_t p : PrimeFactors(n < 0 ? -n : n)) ++powers[p];
  return powers;
}

std::int64_t Rebuild(const std::map<std::int64_t, int>& powers) {
  std::int64_t n = 1;
  for (const auto& [p, k] : powers) {
    for (int i = 0; i < k; ++i) n *= p;
  }
  return n;
}

}  // namespace

void ReduceFraction(double& a, double& b, int& flag) {
  flag = 0;
  if (b == 0.0) throw RunTimeError(RunTimeErrorNumber::DivisionByZero, "Division by zero");
  if (std::fabs(a) > kIntegerBound || std::fabs(b) > kIntegerBound) {
    a /= b;
    b = 1.0;
    flag = 1;
    return;
  }
  if (a != std::floor(a) || b != std::floor(b)) {
    a /= b;
    b = 1.0;
    flag = 2;
    return;
  }
  const auto ia = static_cast<std::int64_t>(a);
  const auto ib = static_cast<std::int64_t>(b);
  if (ia % ib == 0) {  // b divides a
    a = static_cast<double>(ia / ib);
    b = 1.0;
    return;
  }
  if (ia != 0 && ib % ia == 0) {  // a divides b
    const std::int64_t q = ib / ia;
    a = q < 0 ? -1.0 : 1.0;
    b = static_cast<double>(q < 0 ? -q : q);
    return;
  }
  // Cancel common primes pairwise; the sign goes on a.
  std::map<std::int64_t, int> top = PrimePowers(ia);
  std::map<std::int64_t, int> bottom = PrimePowers(ib);
  for (auto& [p, k] : top) {
    const auto it = bottom.find(p);
    if (it == bottom.end()) continue;
    const int common = std::min(k, it->second);
    k -= common;
    it->second -= common;
  }
  const bool negative = (ia < 0) != (ib < 0);
  a = static_cast<double>(Rebuild(top)) * (negative ? -1.0 : 1.0);
  b = static_cast<double>(Rebuild(bottom));
}

}  // namespace tavimor
