// The buttons of the Number panel: the significant-figures dialog and the prime-factor dialog.
#include "shell/commands/number_tools_command.h"

#include "core/number_format.h"
#include "present/work_space.h"
#include "shell/command_frame.h"
#include "shell/number_tools.h"

namespace tavimor {

namespace {

// The loaded number as the work space shows it: written out in full.
std::string LoadedNumber(const Session& s) {
  return FullNumberText(s.Pool[kLeftRoot].Text, s.Dp());
}

void WriteResult(Session& s, const std::string& sentence) {
  WorkSpaceSink box(s);
  WriteText(s, box, sentence, 1, 1, "FFF0");
}

}  // namespace

std::string cmdSigFigs(Session& s, bool) {
  s.HelpNumber = 276;
  return RunCommandFrame(
      s, "Error in Significant Figures.",
      [&](NodeIdx) {
        const std::string number = LoadedNumber(s);
        const std::optional<int> figures = s.Screen().AskSignificantFigures(number, kStartFigures);
        if (figures) WriteResult(s, SigFigsSentence(s, number, *figures));
      },
      [] {});
}

std::string cmdFactor(Session& s, bool) {
  s.HelpNumber = 275;
  return RunCommandFrame(
      s, "Error in Prime Factors.",
      [&](NodeIdx) {
        FactorFormState form;
        switch (LoadFactorForm(s, LoadedNumber(s), form)) {
          case FactorFormStart::NonInteger:
            s.Screen().ShowMessageBox(kNonIntegerText, 275, MessageIcon::Exclamation);
            return;
          case FactorFormStart::Prime:
            s.Screen().ShowMessageBox(PrimeNumberText(form.Number), 275, MessageIcon::Information);
            WriteResult(s, PrimeNumberText(form.Number));
            return;
          case FactorFormStart::Ready: break;
        }
        // One factor a press of OK, until the button reads "Close" and is pressed.
        for (;;) {
          const bool closing = form.caption == "Close";
          if (!s.Screen().ShowFactorForm(form.box, form.caption)) return;
          if (closing) break;
          FactorFormClick(form);
        }
        WriteResult(s, FactorFormResult(form));
      },
      [] {});
}

}  // namespace tavimor
