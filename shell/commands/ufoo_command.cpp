// The Useful form of one button: the dialog's state and Apply, in the command frame.
#include "shell/commands/ufoo_command.h"

#include "core/input_split.h"
#include "core/message_box.h"
#include "core/node_pool.h"
#include "core/validate.h"
#include "shell/command_frame.h"
#include "shell/command_table.h"

namespace tavimor {

namespace {

constexpr int kUfooHelp = 2;

const std::vector<std::string> kCaptions = {
    "-1/-1",
    "pi/pi",
    "Use the conjugate of the denominator",
    "Try to match the denominator on the other side",
    "Other (type something into the numerator box)",
};

std::string PiShown(const Session& s) {
  return s.SpecialP ? "p" : std::string("3") + s.Dp() + "14";
}
std::string PiUsed(const Session& s) {
  return s.SpecialP ? "p" : std::string("3") + s.Dp() + "14159265358979";
}

std::string Bare(const std::string& text) {
  std::string bare = text;
  RemoveSpaces(bare);
  return bare;
}

}  // namespace

const std::vector<std::string>& UfooOptionCaptions() { return kCaptions; }

void OpenUfooDialog(Session& s, UfooDialogState& dialog) {
  dialog = UfooDialogState{};
  dialog.side = CurrentSide(s);
  const std::string text = s.Pool[dialog.side].Text;
  dialog.conjugate_found = CreateUFOO2(s, text, dialog.conjugate, dialog.conjugate_kind);
  dialog.match_found = CreateUFOO3(s, dialog.side, dialog.match);
  ChooseUfooOption(s, dialog, UfooOption::MinusOne);
}

void ChooseUfooOption(Session& s, UfooDialogState& dialog, UfooOption option) {
  if (!dialog.OptionEnabled(option)) return;
  dialog.option = option;
  switch (option) {
    case UfooOption::MinusOne: dialog.numerator_box = dialog.denominator_box = "-1"; break;
    case UfooOption::Pi: dialog.numerator_box = dialog.denominator_box = PiShown(s); break;
    case UfooOption::Conjugate:
      dialog.numerator_box = dialog.denominator_box = dialog.conjugate;
      break;
    case UfooOption::MatchOther:
      dialog.numerator_box = dialog.denominator_box = dialog.match;
      break;
    case UfooOption::Other:
      dialog.numerator_box.clear();
      dialog.denominator_box.clear();
      break;
  }
  // A conjugate is there to clear the denominator of its radical or unit: expanded by default.
  dialog.expand_denominator = option == UfooOption::Conjugate;
}

void TypeUfooNumerator(UfooDialogState& dialog, const std::string& text) {
  if (!dialog.BoxesEditable()) return;
  dialog.numerator_box = text;
  dialog.denominator_box = text;
}

bool ChooseUfooByText(Session& s, UfooDialogState& dialog, const std::string& text) {
  const std::string bare = Bare(text);
  UfooOption option = UfooOption::Other;
  if (bare == "-1") option = UfooOption::MinusOne;
  if (bare == "pi" || bare == Bare(PiShown(s)) || bare == Bare(PiUsed(s))) option = UfooOption::Pi;
  if (bare == "conjugate" || (dialog.conjugate_found && bare == dialog.conjugate)) {
    option = UfooOption::Conjugate;
  }
  if (bare == "match" || (dialog.match_found && bare == dialog.match)) {
    option = UfooOption::MatchOther;
  }
  if (!dialog.OptionEnabled(option)) {
    ShowCustomMessage(s,
                      option == UfooOption::Conjugate
                          ? "The denominator has no conjugate to multiply by."
                          : "The denominator on the other side is no multiple of this one.",
                      kUfooHelp);
    return false;
  }
  ChooseUfooOption(s, dialog, option);
  if (option == UfooOption::Other) TypeUfooNumerator(dialog, text);
  return UfooApplyAllowed(s, dialog);
}

std::vector<std::string> UfooChoiceLines(Session& s, const UfooDialogState& dialog) {
  std::vector<std::string> lines = {kUfooCaption};
  lines.push_back("ufoo -1          " + kCaptions[0]);
  lines.push_back("ufoo pi          " + PiShown(s) + "/" + PiShown(s));
  if (dialog.conjugate_found) {
    lines.push_back("ufoo conjugate   " + kCaptions[2] + ": " + dialog.conjugate);
  }
  if (dialog.match_found) lines.push_back("ufoo match       " + kCaptions[3] + ": " + dialog.match);
  lines.push_back("ufoo TEXT        " + kCaptions[4]);
  return lines;
}

bool UfooApplyAllowed(Session& s, const UfooDialogState& dialog) {
  if (dialog.option != UfooOption::Other) return true;
  const std::string message = UfooBoxMessage(s, dialog.numerator_box);
  if (message.empty()) return true;
  ShowCustomMessage(s, message, kUfooHelp);
  return false;
}

std::string ApplyUfooDialog(Session& s, const UfooDialogState& dialog) {
  UfooRequest request;
  request.option = dialog.option;
  request.typed = dialog.option == UfooOption::Other ? Bare(dialog.numerator_box) : "";
  switch (dialog.option) {
    case UfooOption::MinusOne: request.numerator = "-1"; break;
    case UfooOption::Pi: request.numerator = PiUsed(s); break;
    case UfooOption::Conjugate: request.numerator = dialog.conjugate; break;
    case UfooOption::MatchOther: request.numerator = dialog.match; break;
    case UfooOption::Other: request.numerator = request.typed; break;
  }
  request.denominator = request.numerator;
  request.expand_numerator = dialog.expand_numerator;
  request.expand_denominator = dialog.expand_denominator;
  request.kind = dialog.conjugate_kind;
  bool changed = false;
  std::string form;
  return RunCommandFrame(
      s, kUfooError,
      [&](NodeIdx side) {
        const std::string before = s.Pool[side].Text;
        const std::string report = ApplyUFOO(s, before, request);
        form = UfooReportField(report, kUfooFieldForm);
        const std::string after = UfooReportField(report, kUfooFieldFinal);
        changed = after != before;
        if (changed) {
          FreeChildren(s, side);
          LoadSide(s, side, after);
        }
      },
      [&] {
        ShowResult(s, ResultPhrases("Applying the UFOO @" + form + "@ ", kUfooNothing), changed);
      });
}

std::string cmdUFOO(Session& s, bool) {
  UfooDialogState dialog;
  const std::string error = RunCommandFrame(
      s, kUfooError, [&](NodeIdx) { OpenUfooDialog(s, dialog); }, [] {});
  if (!error.empty()) return error;
  if (!s.Screen().AskUfoo(s, dialog)) return "";  // "cancel UFOO": nothing is written
  return ApplyUfooDialog(s, dialog);
}

}  // namespace tavimor
