// Greatest common divisor and least common multiple of whole numbers, by their prime factors,
// within the limit of the system's integers.
#pragma once

#include <cstdint>

#include "core/session.h"

namespace tavimor {

// The product of the primes a and b share; the numbers' signs do not count. GcdOf(0, b) is |b|.
std::int32_t GcdOf(std::int32_t a, std::int32_t b);
// The greatest common divisor times the primes only one of them has. A value beyond 2147483647
// is told in a message box and gives 0.
std::int32_t LcmOf(Session& s, std::int32_t a, std::int32_t b);

}  // namespace tavimor
