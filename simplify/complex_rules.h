// Complex numbers in the tree: recognising a+b*unit, products and quotients of such numbers,
// their powers, and functions at complex arguments, each written exactly where it can be.
#pragma once

#include <string>

#include "core/session.h"

namespace tavimor {

// What ClassifyComplex finds a node to be.
inline constexpr int kNotComplex = 0;     // no unit in it
inline constexpr int kRealNumber = 1;     // a
inline constexpr int kPureImaginary = 2;  // b*unit
inline constexpr int kComplexNumber = 3;  // a+b*unit
inline constexpr int kOtherComplex = 4;   // anything else with the unit in it

// The class of the node, with its real and imaginary parts for the classes 1 to 3. The unit is
// the one of ComplexForm; under ComplexForm 0 only numbers are recognised.
int ClassifyComplex(Session& s, NodeIdx n, double& re, double& im);

// The class of the argument of a function node, as ClassifyComplex.
int ClassifyComplexArgument(Session& s, NodeIdx function, double& re, double& im);

// a+b*unit as text: a part 0 left out, a factor 1 of the unit left out, "-" for a negative b.
std::string ComplexNumberText(Session& s, double re, double im);

// A floating complex value as text, parts below its last figure (rounding) taken as 0.
std::string ComplexValueText(Session& s, double re, double im);

// 1/unit -> -unit (help 24, or 25 inside a larger product); then two complex factors combined
// exactly: distributing a real factor (26), multiplying (27), dividing by a real number (28).
// Only with ComplexForm above 0 and ComplexProducts set.
bool ComplexProductRule(Session& s, NodeIdx& slot);

// The text 1/unit.
std::string ReciprocalOfUnit(const Session& s);

// A power whose base and exponent are both numbers of the classes 1 to 3, one of them with an
// imaginary part: the value as text, with its step message (help 65).
bool ComplexPower(Session& s, NodeIdx power, std::string& text, std::string& message);

// The value of a function at a complex argument, or of ln, log, arcsin, arccos at a real one
// outside their real domain; false when the parts are not integers and ExactToFloat is off.
bool FunctionOfComplex(Session& s, const std::string& name, double re, double im,
                       std::string& text);

}  // namespace tavimor
