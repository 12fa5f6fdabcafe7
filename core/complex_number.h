// Complex numbers in floating point: their arithmetic, their elementary functions on the principal
// branch, and the complex value of a whole tree.
#pragma once

#include <complex>

#include "core/session.h"

namespace tavimor {

using Complex = std::complex<double>;

// Each operand is given as its real and imaginary parts.
Complex ComplexAdd(double a, double b, double c, double d);
Complex ComplexSubtract(double a, double b, double c, double d);
Complex ComplexMultiply(double a, double b, double c, double d);
// Division by 0 raises the run-time error of a division by zero.
Complex ComplexDivide(double a, double b, double c, double d);
Complex ComplexScale(double a, double b, double factor);
Complex ComplexNegate(double a, double b);
double ComplexAbs(double a, double b);
// The root with a non-negative real part; on the negative real axis the one above it.
Complex ComplexSqrt(double a, double b);
Complex ComplexFromPolar(double magnitude, double angle);
Complex ComplexExp(double a, double b);
// ln(0) raises the run-time error of an invalid call.
Complex ComplexLog(double a, double b);
Complex ComplexSin(double a, double b);
Complex ComplexCos(double a, double b);
Complex ComplexTan(double a, double b);
Complex ComplexArcsin(double a, double b);
Complex ComplexArccos(double a, double b);
Complex ComplexArctan(double a, double b);
// (a+b*i)^(c+d*i) on the principal branch: magnitude r^c*exp(-d*theta), angle d*ln(r)+c*theta.
// 0 to a power with a positive real part is 0; any other power of 0 is a division by zero.
Complex ComplexPowerValue(double a, double b, double c, double d);

// The value of a named function (sin, cos, tan, cot, sec, csc, their inverses, ln, log, exp,
// sqrt) at a complex argument; angles in degrees when the options say so.
Complex ComplexFunction(const Session& s, const std::string& name, Complex a);

// The complex value of the tree: the imaginary unit of the options (and sqrt(-1) always) is i,
// the constants e, p and d are numbers, other letters take their values from the table (empty
// counts as 0). The answer: 1 a real value, 2 a pure imaginary one, 3 a value with both parts;
// 0 when the value cannot be taken (a division by zero, a logarithm of 0, an overflow).
int EvaluateComplex(Session& s, NodeIdx n, double& re, double& im);

}  // namespace tavimor
