// Greatest common divisor and least common multiple of whole numbers, by their prime factors,
// within the limit of the system's integers.
#include "manipulate/integer_gcd.h"

#include <cstdlib>
#include <string>
#include <vector>

#include "core/message_box.h"
#include "core/number_text.h"

namespace tavimor {

namespace {

struct Paired {
  double common = 1.0;  // the product of the shared primes
  double rest = 1.0;    // the product of the primes only one number has
};

// Each prime of a takes the first unused equal prime of b.
Paired PairPrimes(std::int64_t a, std::int64_t b) {
  const std::vector<std::int64_t> pa = PrimeFactors(a);
  std::vector<std::int64_t> pb = PrimeFactors(b);
  std::vector<bool> used(pb.size(), false);
  Paired out;
  for (const std::int64_t p : pa) {
    bool found = false;
    for (std::size_t k = 0; k < pb.size() && !found; ++k) {
      if (!used[k] && pb[k] == p) {
        used[k] = true;
        found = true;
      }
    }
    (found ? out.common : out.rest) *= static_cast<double>(p);
  }
  for (std::size_t k = 0; k < pb.size(); ++k) {
    if (!used[k]) out.rest *= static_cast<double>(pb[k]);
  }
  return out;
}

std::int64_t Size(std::int32_t n) { return std::llabs(static_cast<std::int64_t>(n)); }

}  // namespace

std::int32_t GcdOf(std::int32_t a, std::int32_t b) {
  if (a == 0 || b == 0) return static_cast<std::int32_t>(Size(a == 0 ? b : a));
  return static_cast<std::int32_t>(PairPrimes(Size(a), Size(b)).common);
}

std::int32_t LcmOf(Session& s, std::int32_t a, std::int32_t b) {
  if (a == 0 || b == 0) return 0;
  const Paired paired = PairPrimes(Size(a), Size(b));
  const double lcm = paired.common * paired.rest;
  if (lcm > kIntegerBound) {
    ShowCustomMessage(s,
                      "Error!  This program can't compute the LCM of " + std::to_string(a) +
                          " and " + std::to_string(b) +
                          " because it is bigger than the largest integer that it can handle, "
                          "which is 2^31 or 2147483648.  Try using floating point rather than "
                          "exact arithmetic.",
                      0);
    return 0;
  }
  return static_cast<std::int32_t>(lcm);
}

}  // namespace tavimor
