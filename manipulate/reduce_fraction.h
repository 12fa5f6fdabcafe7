// Exact arithmetic of two numbers a/b: the fraction in lowest terms.
#pragma once

namespace tavimor {

// Brings a/b to lowest terms with the sign on a and b positive. A part beyond 2147483647 in size
// gives a/b as a float over 1 (flag 1); a part that is not whole, likewise (flag 2); else flag 0.
void ReduceFraction(double& a, double& b, int& flag);

}  // namespace tavimor
