// The terminal's side of the front-end interface: the work space kept as rich text and printed
// with its mathematics set in two dimensions; pauses and questions at the prompt.
#include "cli/terminal_frontend.h"

#include <algorithm>
#include <cctype>
#include <iostream>

#include "cli/graph_view.h"
#include "cli/help_command.h"
#include "present/text_picture.h"
#include "shell/commands/ufoo_command.h"
#include "shell/help_topics.h"

namespace tavimor {

namespace {

// The length of the valid UTF-8 sequence at `at`, or 0.
std::size_t Utf8Length(const std::string& text, std::size_t at, char32_t& code) {
  const auto byte = [&text](std::size_t k) { return static_cast<unsigned char>(text[k]); };
  const unsigned char lead = byte(at);
  std::size_t length = 0;
  char32_t minimum = 0;
  if (lead < 0x80) {
    code = lead;
    return 1;
  }
  if (lead >= 0xC2 && lead <= 0xDF) {
    length = 2, code = lead & 0x1F, minimum = 0x80;
  } else if (lead >= 0xE0 && lead <= 0xEF) {
    length = 3, code = lead & 0x0F, minimum = 0x800;
  } else if (lead >= 0xF0 && lead <= 0xF4) {
    length = 4, code = lead & 0x07, minimum = 0x10000;
  } else {
    return 0;
  }
  if (at + length > text.size()) return 0;
  for (std::size_t k = 1; k < length; ++k) {
    if ((byte(at + k) & 0xC0) != 0x80) return 0;
    code = (code << 6) | (byte(at + k) & 0x3F);
  }
  if (code < minimum || code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF)) return 0;
  return length;
}

constexpr const char* kReplacement = "\xEF\xBF\xBD";  // U+FFFD

}  // namespace

std::string ValidUtf8(const std::string& text) {
  std::string out;
  out.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    char32_t code = 0;
    const std::size_t length = Utf8Length(text, at, code);
    if (length == 0) {
      out += kReplacement;
      ++at;
    } else {
      out.append(text, at, length);
      at += length;
    }
  }
  return out;
}

std::string PrintableText(const std::string& text) {
  // Most lines are printable UTF-8 (plain ASCII, or mathematics with its signs), and stay as
  // they are.
  {
    bool printable = true;
    for (std::size_t at = 0; at < text.size() && printable;) {
      const auto byte = static_cast<unsigned char>(text[at]);
      if ((byte >= 0x20 && byte < 0x7F) || byte == '\n' || byte == '\t') {
        ++at;
        continue;
      }
      char32_t code = 0;
      const std::size_t length = Utf8Length(text, at, code);
      printable = length != 0 && code >= 0xA0;
      at += length;
    }
    if (printable) return text;
  }
  std::string out;
  out.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    const auto byte = static_cast<unsigned char>(text[at]);
    if ((byte >= 0x20 && byte < 0x7F) || byte == '\n' || byte == '\t') {
      out += static_cast<char>(byte);  // printable ASCII as it is, without decoding
      ++at;
      continue;
    }
    char32_t code = 0;
    const std::size_t length = Utf8Length(text, at, code);
    if (length == 0) {
      out += kReplacement;
      ++at;
      continue;
    }
    if ((code < 0x20 && code != '\n' && code != '\t') || code == 0x7F) {
      out += '^';
      out += static_cast<char>(code == 0x7F ? '?' : code + 0x40);
    } else if (code >= 0x80 && code < 0xA0) {
      out += "^[";  // a C1 control is the escape sequence ESC and this letter
      out += static_cast<char>(code - 0x40);
    } else {
      out.append(text, at, length);
    }
    at += length;
  }
  return out;
}

bool ReadBoundedLine(std::istream& in, std::string& line, std::size_t max, bool& too_long) {
  line.clear();
  too_long = false;
  std::streambuf* buffer = in.rdbuf();
  if (buffer == nullptr) return false;
  bool any = false;
  for (;;) {
    const int c = buffer->sbumpc();
    if (c == std::char_traits<char>::eof()) {
      in.setstate(std::ios::eofbit);
      if (!any) in.setstate(std::ios::failbit);
      break;
    }
    any = true;
    if (c == '\n') break;
    if (line.size() < max) {
      line += static_cast<char>(c);
    } else {
      too_long = true;
    }
  }
  if (!line.empty() && line.back() == '\r') line.pop_back();
  return any;
}

bool TerminalFrontend::ReadAnswer(const std::string& prompt, std::string& answer) {
  if (line_source_) return line_source_(prompt, answer);
  out_ << prompt << std::flush;
  bool too_long = false;
  return ReadBoundedLine(in_, answer, kMaxLineBytes, too_long);
}

void TerminalFrontend::PrintLines(const RichText& runs) {
  if (s_ == nullptr) return;
  for (const std::string& line : RenderForTerminal(*s_, runs)) out_ << PrintableText(line) << '\n';
  out_ << std::flush;
}

void TerminalFrontend::AppendToWorkSpace(const RichRun& run) {
  if (!live_) {
    work_space_.push_back(run);
    return;
  }
  pending_line_.push_back(run);
  if (run.kind == RunKind::LineEnd) {
    PrintLines(pending_line_);
    pending_line_.clear();
  }
}

void TerminalFrontend::Flush() {
  if (!live_ || pending_line_.empty()) return;
  pending_line_.push_back(RichRun{RunKind::LineEnd, "", {}, {}});
  PrintLines(pending_line_);
  pending_line_.clear();
}

void TerminalFrontend::ClearWorkSpace() {
  work_space_.clear();
  pending_line_.clear();
}

void TerminalFrontend::Reset() {
  ClearWorkSpace();
  messages_.clear();
  hints_.clear();
  hint_bodies_.clear();
  missing_values_.clear();
  refused_values_.clear();
  ask_again_.clear();
  figures_answer_.reset();
  ufoo_answer_.reset();
  dialog_lines_.clear();
  dialog_lines_printed_ = 0;
  answers_taken_ = 0;  // each item of a batch takes the given answers from the first
  graph_.reset();
  plot_error_.clear();
}

void TerminalFrontend::OpenGraphWindow(Session& s) {
  graph_ = DrawGraphs(s, ReadGraphParms(s, s.GraphParms));
  if (!plot_file_.empty() && !WriteGraphSvg(*graph_, plot_file_, plot_error_)) {
    err_ << "tavimor-cli: " << plot_error_ << '\n';
  }
  if (live_) {
    Flush();
    for (const std::string& line : GraphSketchLines(s, *graph_)) out_ << line << '\n';
  }
}

PauseInput TerminalFrontend::WaitButton(const std::string&, float, float) {
  if (!live_) return PauseInput::Continue;
  Flush();
  for (;;) {
    std::string answer;
    if (!ReadAnswer("  [Enter: next step   q: stop   h: help] ", answer)) {
      return PauseInput::Escape;
    }
    if (answer.empty()) return PauseInput::Continue;
    if (answer == "q" || answer == "Q") return PauseInput::Escape;
    if (answer == "h" || answer == "H" || answer == "?") return PauseInput::Help;
  }
}

void TerminalFrontend::ShowMessageBox(const std::string& text, int, MessageIcon) {
  messages_.push_back(text);
  Flush();
  err_ << PrintableText(text) << '\n' << std::flush;
}

void TerminalFrontend::ShowHintBox(const RichText& body, int) {
  if (!live_) {
    hints_.push_back(PlainText(body));
    hint_bodies_.push_back(body);
    return;
  }
  Flush();
  out_ << "Hint:\n";
  PrintLines(body);
}

bool TerminalFrontend::AskYesNo(const std::string& question) {
  if (!live_) return false;
  Flush();
  std::string answer;
  return ReadAnswer(PrintableText(question) + " (y/n) ", answer) && !answer.empty() &&
         (answer[0] == 'y' || answer[0] == 'Y');
}

YesNoCancel TerminalFrontend::AskYesNoCancel(const std::string& question) {
  std::string answer;
  if (answers_taken_ < given_answers_.size()) {
    answer = given_answers_[answers_taken_++];
  } else if (live_) {
    Flush();
    for (;;) {
      if (!ReadAnswer(PrintableText(question) + " (y/n/c) ", answer)) return YesNoCancel::Cancel;
      if (!answer.empty()) answer[0] = static_cast<char>(std::tolower(answer[0]));
      if (answer == "y" || answer == "yes") return YesNoCancel::Yes;
      if (answer == "n" || answer == "no") return YesNoCancel::No;
      if (answer == "c" || answer == "cancel") return YesNoCancel::Cancel;
    }
  } else {
    answer = "yes";
  }
  // The question and the answer taken, as the transcript shows them.
  std::string shown = question;
  for (char& c : shown) {
    if (c == '\n') c = ' ';
  }
  RichRun line;
  line.text = shown + " [" + answer + "]";
  AppendToWorkSpace(line);
  RichRun end;
  end.kind = RunKind::LineEnd;
  AppendToWorkSpace(end);
  if (answer == "no") return YesNoCancel::No;
  if (answer == "cancel") return YesNoCancel::Cancel;
  return YesNoCancel::Yes;
}

std::optional<std::string> TerminalFrontend::AskText(const std::string& question,
                                                     const std::string& suggestion) {
  if (!live_) return std::nullopt;
  Flush();
  std::string answer;
  if (!ReadAnswer(PrintableText(question) + " [" + PrintableText(suggestion) + "] ", answer)) {
    return std::nullopt;
  }
  return answer.empty() ? suggestion : answer;
}

std::optional<std::vector<std::string>> TerminalFrontend::AskValues(
    const std::vector<std::string>& letters, const std::vector<std::string>& suggestions) {
  std::vector<std::string> values;
  for (std::size_t k = 0; k < letters.size(); ++k) {
    const std::string& letter = letters[k];
    const auto given = std::find_if(given_values_.begin(), given_values_.end(),
                                    [&letter](const auto& pair) { return pair.first == letter; });
    const bool refused =
        std::find(ask_again_.begin(), ask_again_.end(), letter) != ask_again_.end();
    if (given != given_values_.end() && !refused) {
      values.push_back(given->second);
      continue;
    }
    if (!live_) {
      missing_values_.push_back(letter);
      continue;
    }
    Flush();
    // A refused value is not offered again.
    const std::string suggestion = k < suggestions.size() && !refused ? suggestions[k] : "";
    std::string prompt = letter + " = ";
    if (!suggestion.empty()) prompt += "[" + PrintableText(suggestion) + "] ";
    std::string answer;
    if (!ReadAnswer(prompt, answer)) {
      ask_again_.clear();
      return std::nullopt;
    }
    values.push_back(answer.empty() ? suggestion : answer);
  }
  ask_again_.clear();
  if (!missing_values_.empty()) return std::nullopt;
  return values;
}

bool TerminalFrontend::AskValueAgain(const std::string& letter) {
  if (!live_) {
    refused_values_.push_back(letter);
    return false;
  }
  ask_again_.push_back(letter);
  return true;
}

void TerminalFrontend::ShowHelp(int help_number) {
  Flush();
  if (s_ != nullptr && tavimor::ShowHelp(*s_, help_number)) return;
  if (help_number == 0) {
    err_ << "This step has no help topic.\n" << std::flush;
  } else {
    err_ << "There is no help page for topic " << help_number << ".\n" << std::flush;
  }
}

void TerminalFrontend::OpenHelpPage(const std::string& path) {
  Flush();
  if (s_ != nullptr) PrintHelpPageFile(*s_, path, out_, err_);
}

void TerminalFrontend::ShowTreeView(const std::vector<TreeViewEntry>& entries) {
  std::vector<std::string> lines;
  for (const TreeViewEntry& entry : entries) {
    lines.push_back(std::string(static_cast<std::size_t>(2 * entry.depth), ' ') + entry.label);
  }
  if (!live_) {  // a one-shot run shows it with the dialogs, after the work space
    dialog_lines_ = lines;
    return;
  }
  Flush();
  for (const std::string& line : lines) out_ << line << '\n';
  out_ << std::flush;
}

std::optional<int> TerminalFrontend::AskSignificantFigures(const std::string& number, int figures) {
  std::optional<int> chosen = figures_answer_;
  figures_answer_.reset();
  if (!chosen && live_) {
    Flush();
    for (;;) {
      std::string answer;
      if (!ReadAnswer("Significant figures for " + PrintableText(number) + " (1 to 20) [" +
                          std::to_string(figures) + "] ",
                      answer)) {
        return std::nullopt;
      }
      if (answer.empty()) {
        chosen = figures;
        break;
      }
      if (answer.size() <= 2 && answer.find_first_not_of("0123456789") == std::string::npos) {
        const int typed = std::stoi(answer);
        if (typed >= 1 && typed <= 20) {
          chosen = typed;
          break;
        }
      }
      out_ << "The figures are a whole number from 1 to 20.\n";
    }
  }
  if (!chosen) chosen = figures;
  dialog_lines_ = {"Number:  " + number, "Significant figures:  " + std::to_string(*chosen)};
  return chosen;
}

bool TerminalFrontend::ShowFactorForm(const std::string& box, const std::string& caption) {
  std::vector<std::string> lines;
  for (std::size_t at = 0;;) {
    const std::size_t end = box.find("\r\n", at);
    lines.push_back(box.substr(at, end == std::string::npos ? end : end - at));
    if (end == std::string::npos) break;
    at = end + 2;
  }
  if (lines.size() <= 1) dialog_lines_printed_ = 0;  // a new dialog
  dialog_lines_ = lines;
  if (!live_) return true;
  Flush();
  for (; dialog_lines_printed_ < dialog_lines_.size(); ++dialog_lines_printed_) {
    out_ << "  " << PrintableText(dialog_lines_[dialog_lines_printed_]) << '\n';
  }
  out_ << std::flush;
  // The button reads "Close" at the end; one factor a press before it when steps come one at a
  // time.
  if (caption == "Close" || s_ == nullptr || s_->SolveDetail == 0 || s_->StreamingOutput) {
    return true;
  }
  std::string answer;
  if (!ReadAnswer("  [Enter: next factor   q: close] ", answer)) return false;
  return !(answer == "q" || answer == "Q");
}

bool TerminalFrontend::AskUfoo(Session& s, UfooDialogState& dialog) {
  std::optional<std::string> answer = ufoo_answer_;
  ufoo_answer_.reset();
  if (!answer) {
    dialog_lines_ = UfooChoiceLines(s, dialog);
    dialog_lines_printed_ = 0;
    if (live_) {
      Flush();
      for (; dialog_lines_printed_ < dialog_lines_.size(); ++dialog_lines_printed_) {
        out_ << "  " << PrintableText(dialog_lines_[dialog_lines_printed_]) << '\n';
      }
      out_ << std::flush;
    }
    return false;
  }
  return ChooseUfooByText(s, dialog, *answer);
}

}  // namespace tavimor
