// Golden transcripts of the main flow: each file under golden/flow loads an item, does what its
// "do:" lines say, and holds the exact work space (pictures as @mathematics@), the message boxes,
// hints and pauses, and the state of the form after it.
//
// "do:" lines: a button word (left, right, equation, simplify, factor, brackets, or any word of the
// terminal tutor, such as expand-denominators for the right button), "click N" on a status
// panel, "answer continue|escape|help|right-yes|right-no" for the next pause, "answer
// yes|no|cancel" for the next question with Yes, No and Cancel, "evaluate V1; V2"
// (the values given to the letters asked for, or "evaluate cancel"), "sig-figs N" (the figures
// chosen in the dialog, or "cancel"), "prime-factors [N]" (the dialog's button pressed N times,
// then the dialog closed; without N to the end), the words of the elimination window ("elim",
// then "ero R2-3R1", "assist", "assist-all", "undo", "ok", "continue"; "subs", then
// "choose ROW LETTER", "ok", "continue"), and
// "engine BUTTON KIND ..."
// to run a command's frame with an engine of the test's own: "change TEXT" (the side becomes TEXT),
// "step MESSAGE TEXT" (one step shown), "distribution TEXT <- RECORD" and "theorem TEXT <- RECORD"
// (the step Expand narrates from that record), "nothing", "error NUMBER|divide|overflow", "pause";
// "solver-hint" runs the solver on the equation for its first step as a hint; "both-sides OP [Q]"
// applies an operation to both sides as the terminal tutor's word does (a refusal is listed with
// the messages); "load TEXT" loads a further item as OK does; "ufoo TEXT" answers the dialog of the
// Useful form of one with that form ("ufoo" alone cancels it after listing its choices).
// TAVIMOR_UPDATE_GOLDEN=1 writes the output into the files, for review in a diff.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "core/input_split.h"
#include "core/node_pool.h"
#include "core/scoped_override.h"
#include "core/validate.h"
#include "linsys/sys_eq_form.h"
#include "manipulate/expand.h"
#include "present/work_space.h"
#include "shell/buttons.h"
#include "shell/command_frame.h"
#include "shell/commands/both_sides_command.h"
#include "shell/commands/solve_system_command.h"
#include "shell/main_flow.h"
#include "shell/option_keys.h"
#include "shell/status_bar.h"
#include "solve/auto_solve.h"
#include "support/recording_frontend.h"

namespace tavimor {
namespace {

namespace fs = std::filesystem;

void Replace(Session& s, NodeIdx side, const std::string& text) {
  FreeChildren(s, side);
  LoadSide(s, side, text);
}

SideEngine TestEngine(const std::string& kind, const std::string& rest) {
  if (kind == "change") {
    return [rest](Session& s, NodeIdx side) {
      Replace(s, side, rest);
      return true;
    };
  }
  if (kind == "step") {
    const std::size_t blank = rest.rfind(' ');
    const std::string message = rest.substr(0, blank);
    const std::string text = rest.substr(blank + 1);
    return [message, text](Session& s, NodeIdx side) {
      s.Message = message;
      Replace(s, side, text);
      ShowStep(s, side);
      return true;
    };
  }
  if (kind == "distribution" || kind == "theorem") {
    // The narration of Expand from a step record of the test's own: "TEXT <- RECORD", for the
    // forms that a press reaches only when rewrites were counted before a shown step.
    const std::size_t arrow = rest.find(" <- ");
    const std::string text = rest.substr(0, arrow);
    const std::string record = rest.substr(arrow + 4);
    const bool distribution = kind == "distribution";
    return [text, record, distribution](Session& s, NodeIdx side) {
      s.Message = distribution ? DistributionStepMessage(record) : TheoremStepMessage(record);
      Replace(s, side, text);
      ShowStep(s, side);
      return true;
    };
  }
  if (kind == "pause") {
    return [](Session& s, NodeIdx) {
      ShowWaitButton(s, "");
      return false;
    };
  }
  if (kind == "error") {
    return [rest](Session&, NodeIdx) -> bool {
      if (rest == "divide") throw RunTimeError(RunTimeErrorNumber::DivisionByZero, "divide");
      if (rest == "overflow") throw RunTimeError(RunTimeErrorNumber::Overflow, "overflow");
      throw AppError(static_cast<std::uint32_t>(std::stoul(rest, nullptr, 16)), "numbered");
    };
  }
  return [](Session&, NodeIdx) { return false; };  // "nothing"
}

void Do(Session& s, RecordingFrontend& frontend, const std::string& line) {
  std::istringstream words(line);
  std::string verb;
  words >> verb;
  std::string rest;
  std::getline(words, rest);
  if (!rest.empty() && rest[0] == ' ') rest.erase(0, 1);
  std::string error;
  if (verb == "left") {
    PressButton(s, "cmdDoLHS", false, error);
  } else if (verb == "right") {
    PressButton(s, "cmdDoRHS", false, error);
  } else if (verb == "equation") {
    PressButton(s, "cmdShowEqnFrame", false, error);
  } else if (verb == "simplify") {
    PressButton(s, "cmdSimplify", false, error);
  } else if (verb == "factor") {
    PressButton(s, "cmdAutoFactor", false, error);
  } else if (verb == "factor-lcm") {
    PressButton(s, "cmdAutoFactor", true, error);
  } else if (verb == "brackets") {
    PressButton(s, "cmdBrackets", false, error);
  } else if (verb == "evaluate") {
    frontend.values_answer.reset();
    if (rest != "cancel") {
      std::vector<std::string> values;
      std::istringstream list(rest);
      for (std::string value; std::getline(list, value, ';');) {
        RemoveSpaces(value);
        values.push_back(value);
      }
      frontend.values_answer = values;
    }
    PressButton(s, "cmdEvaluate", false, error);
  } else if (verb == "sig-figs") {
    frontend.figures_answer.reset();
    frontend.figures_cancel = rest == "cancel";
    if (!rest.empty() && rest != "cancel") frontend.figures_answer = std::stoi(rest);
    PressButton(s, "cmdSigFigs", false, error);
  } else if (verb == "prime-factors") {
    // "prime-factors N": the button is pressed N times, then the dialog is closed.
    frontend.factor_presses = rest.empty() ? -1 : std::stoi(rest);
    PressButton(s, "cmdFactor", false, error);
  } else if (verb == "ufoo") {
    // "ufoo TEXT": the dialog of the Useful form of one answered with that form; "ufoo" alone
    // lists its choices and is cancelled.
    frontend.ufoo_answer.reset();
    if (!rest.empty()) frontend.ufoo_answer = rest;
    PressButton(s, "cmdUFOO", false, error);
  } else if (verb == "solver-hint") {
    // The solver run for its first step as a hint, as the hint button will run it.
    ScopedOverride detail(s.SolveDetail, std::int16_t{0});
    ScopedOverride hint(s.HintState, std::int16_t{1});
    std::string answers;
    AutoSolve(s, s.Pool[kLeftRoot].Text + "=" + s.Pool[kRightRoot].Text, s.Unknown, answers);
  } else if (verb == "load") {
    cmdLoadEquation(s, rest, false);
  } else if (verb == kBothSidesWord) {
    std::string refusal;
    if (!RunBothSidesWord(s, rest, error, refusal)) frontend.messages.push_back({refusal, 0, {}});
  } else if (verb == "click") {
    ClickStatusPanel(s, std::stoi(rest));
  } else if (verb == "answer") {
    if (rest == "escape") frontend.pause_answers.push_back(PauseInput::Escape);
    if (rest == "help") frontend.pause_answers.push_back(PauseInput::Help);
    if (rest == "continue") frontend.pause_answers.push_back(PauseInput::Continue);
    if (rest == "yes") frontend.three_way_answers.push_back(YesNoCancel::Yes);
    if (rest == "no") frontend.three_way_answers.push_back(YesNoCancel::No);
    if (rest == "cancel") frontend.three_way_answers.push_back(YesNoCancel::Cancel);
    if (rest == "right-yes" || rest == "right-no") {
      frontend.pause_answers.push_back(PauseInput::RightButton);
      frontend.yes = rest == "right-yes";
    }
  } else if (verb == "engine") {
    std::istringstream parts(rest);
    std::string button;
    std::string kind;
    parts >> button >> kind;
    std::string argument;
    std::getline(parts, argument);
    if (!argument.empty() && argument[0] == ' ') argument.erase(0, 1);
    const ExpressionCommand* command = FindExpressionCommand(button);
    ASSERT_NE(command, nullptr) << button;
    RunExpressionCommand(s, *command, TestEngine(kind, argument));
  } else if (IsSystemWord(verb)) {
    std::string refusal;
    if (!RunSystemWord(s, verb, rest, error, refusal)) FAIL() << refusal << ": " << line;
  } else if (const CommandWord* word = FindCommandWord(verb, s.Form.visible_panel);
             word != nullptr) {
    PressButton(s, word->button, word->right_button, error);
  } else {
    FAIL() << "unknown do: " << line;
  }
}

std::string Output(Session& s, const RecordingFrontend& frontend) {
  std::string out = frontend.Transcript();
  if (!out.empty() && out.back() != '\n') out += "\n";
  out += "--- after\n";
  for (const RecordedMessage& m : frontend.messages) {
    // The time a run over the whole list took is no part of what is compared.
    std::string text = m.text;
    if (const std::size_t was = text.rfind(" equations was "); was != std::string::npos) {
      text = text.substr(0, was) + " equations was (the time)";
    }
    out += "message: " + text + " (help " + std::to_string(m.help_number) + ")\n";
  }
  for (const std::string& h : frontend.hints) out += "hint: " + h + "\n";
  for (const std::string& p : frontend.pauses) out += "pause: \"" + p + "\"\n";
  for (const std::string& q : frontend.questions) out += "question: " + q + "\n";
  for (const std::string& f : frontend.figures_asked) out += "figures asked: " + f + "\n";
  for (std::string f : frontend.factor_forms) {
    for (std::size_t at = f.find("\r\n"); at != std::string::npos; at = f.find("\r\n", at)) {
      f.replace(at, 2, " / ");
    }
    out += "factor form: " + f + "\n";
  }
  for (const std::vector<std::string>& lines : frontend.ufoo_dialogs) {
    for (const std::string& l : lines) out += "ufoo dialog: " + l + "\n";
  }
  for (const std::vector<std::string>& letters : frontend.asked_letters) {
    out += "values asked:";
    for (const std::string& letter : letters) out += " " + letter + " =";
    out += "\n";
  }
  out += "panel: " + (s.Form.visible_panel < 0 ? "none" : PanelCaption(s, s.Form.visible_panel)) +
         "\n";
  out += "focus: " + s.Form.focus + "\n";
  out += "left: " + s.Pool[kLeftRoot].Text + "\n";
  out += "right: " + s.Pool[kRightRoot].Text + "\n";
  out += "help: " + std::to_string(s.HelpNumber) + "\n";
  for (const std::string& panel : s.Form.status_panels) out += "status: " + panel + "\n";
  if (const SysEqState* form = s.SystemWindow.get(); form != nullptr) {
    for (const std::string& line : GridTextLines(s, *form)) out += "grid: " + line + "\n";
    if (form->method == 2) {
      for (const std::string& line : SubstitutionLines(s, *form)) out += "equation: " + line + "\n";
      std::string box = form->assist_text;
      for (std::size_t at = box.find('\n'); at != std::string::npos; at = box.find('\n', at)) {
        box.replace(at, 1, " / ");
      }
      out += "box: " + box + "\n";
      out += "button: " + form->assist_caption + "\n";
    }
    out += std::string("window: ") + (form->closed ? "closed" : "open") + "\n";
  }
  return out;
}

TEST(FlowGolden, EveryTranscriptMatches) {
  const bool update = std::getenv("TAVIMOR_UPDATE_GOLDEN") != nullptr;
  std::vector<fs::path> files;
  for (const auto& entry : fs::directory_iterator(fs::path(TAVIMOR_GOLDEN_DIR) / "flow")) {
    if (entry.path().extension() == ".txt") files.push_back(entry.path());
  }
  std::sort(files.begin(), files.end());
  ASSERT_GE(files.size(), 20u);
  for (const fs::path& path : files) {
    std::ifstream in(path, std::ios::binary);
    std::string header;
    std::string expected;
    bool body = false;
    RecordingFrontend frontend;
    Session s(frontend);
    std::string item;
    std::vector<std::string> actions;
    bool comma = false;
    for (std::string line; std::getline(in, line);) {
      if (body) {
        expected += line + "\n";
        continue;
      }
      header += line + "\n";
      if (line == "---") body = true;
      if (line.rfind("item: ", 0) == 0) item = line.substr(6);
      if (line.rfind("do: ", 0) == 0) actions.push_back(line.substr(4));
      if (line == "decimal-comma") comma = true;
      if (line.rfind("set: ", 0) == 0) {
        const std::string setting = line.substr(5);
        const std::size_t equals = setting.find('=');
        std::string error;
        ASSERT_TRUE(SetOptionFromText(s, setting.substr(0, equals), setting.substr(equals + 1),
                                      true, error))
            << path << ": " << error;
      }
    }
    StartUp(s, comma ? "," : ".");
    cmdLoadEquation(s, item, false);
    for (const std::string& action : actions) Do(s, frontend, action);
    const std::string actual = Output(s, frontend);
    if (update) {
      std::ofstream(path, std::ios::binary) << header << actual;
      continue;
    }
    EXPECT_EQ(actual, expected) << path;
  }
}

}  // namespace
}  // namespace tavimor
