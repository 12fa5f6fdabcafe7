// The status bar: nine panels that show the options, each click changing its option, and the
// snapshot of the options a command may force.
#include "shell/status_bar.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <optional>

namespace tavimor {

namespace {

// Texts of status panels 2 and 5, by the option's value.
constexpr std::array<const char*, 4> kComplex = {
    "real arithmetic only ", "cplx arithmetic (using i) ", "cplx arithmetic (using j) ",
    "complex arithmetic (not using i or j) "};
constexpr std::array<const char*, 4> kQuadratics = {"quads by factoring ", "quads by formula ",
                                                    "quads by compl. sq. ", "quads by graphing "};

}  // namespace

void UpdateStatusPanel(Session& s) {
  std::array<std::string, 9>& p = s.Form.status_panels;
  if (s.SolveDetail == 0) {
    p[0] = "show result only ";
  } else {
    p[0] = s.StreamingOutput ? "show steps in a stream " : "show steps one-by-one ";
  }
  p[1] = kComplex[static_cast<std::size_t>(std::clamp<int>(s.ComplexForm, 0, 3))];
  p[2] = s.ExactToFloat ? "floating pt. arithmetic " : "exact arithmetic ";
  p[3] = s.Degrees ? "degrees " : "radians ";
  p[4] = kQuadratics[static_cast<std::size_t>(std::clamp<int>(s.QuadraticMethod, 0, 3))];
  p[5] = "unknown = " + s.Unknown + " ";
  p[6] = s.SpecialE ? "e = 2" + s.DecimalPoint + "718.. " : "e = variable ";
  p[7] = s.SpecialP ? "p = pi " : "p = variable ";
  p[8] = s.Degrees && s.SpecialD ? "d = degrees " : "d = variable ";
}

void ClickStatusPanel(Session& s, int panel) {
  switch (panel) {
    case 1:  // result only -> one-by-one -> stream -> result only
      if (s.SolveDetail == 0) {
        s.SolveDetail = 1;
        s.StreamingOutput = false;
      } else if (!s.StreamingOutput) {
        s.StreamingOutput = true;
      } else {
        s.SolveDetail = 0;
      }
      s.SolveDetailDefault = s.SolveDetail;
      s.Form.Button("cmdSolveBySubs").enabled = s.SolveDetail != 0;
      break;
    case 2: s.ComplexForm = static_cast<std::int16_t>((s.ComplexForm + 1) % 4); break;
    case 3: s.ExactToFloat = !s.ExactToFloat; break;
    case 4: s.Degrees = !s.Degrees; break;
    case 5: s.QuadraticMethod = static_cast<std::int16_t>((s.QuadraticMethod + 1) % 4); break;
    case 6: {
      const std::optional<std::string> letter =
          s.Screen().AskText("Enter the letter of the unknown", s.Unknown);
      if (letter && letter->size() == 1 && std::isalpha(static_cast<unsigned char>((*letter)[0]))) {
        s.Unknown = *letter;
      }
      break;
    }
    case 7: s.SpecialE = !s.SpecialE; break;
    case 8: s.SpecialP = !s.SpecialP; break;
    case 9: s.SpecialD = !s.SpecialD; break;
    default: return;
  }
  OptionSnapshot(s, "Set");
  UpdateStatusPanel(s);
}

void OptionSnapshot(Session& s, const std::string& command) {
  if (command == "Set") {
    s.SavedExponentToReciprocal = s.ExponentToReciprocal;
    s.SavedExponentToRadical = s.ExponentToRadical;
    s.SavedExactToFloat = s.ExactToFloat;
    s.SavedComplexForm = s.ComplexForm;
  } else if (command == "Retrieve") {
    s.HintState = 0;
    s.DetailNow = 0;
    s.SolveDetail = s.SolveDetailDefault;
    s.ExtraUnknown.clear();
    s.TrigMode = 0;
    s.DistributeMinus = true;
    s.ComplexProducts = true;
    s.PythagorasRules = true;
    s.ExponentToReciprocal = s.SavedExponentToReciprocal;
    s.ExponentToRadical = s.SavedExponentToRadical;
    s.ExactToFloat = s.SavedExactToFloat;
    s.ComplexForm = s.SavedComplexForm;
    s.StoredHint.clear();
  }
}

}  // namespace tavimor
