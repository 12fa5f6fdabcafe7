// The terminal's side of the front-end interface: the work space kept as rich text and printed
// with its mathematics set in two dimensions; pauses and questions at the prompt.
#include "cli/terminal_frontend.h"

#include <algorithm>
#include <iostream>

#include "present/text_picture.h"

namespace tavimor {

std::string PrintableText(const std::string& text) {
  std::string out;
  for (const char c : text) {
    const auto code = static_cast<unsigned char>(c);
    if ((code < 0x20 && c != '\n' && c != '\t') || code == 0x7F) {
      out += '^';
      out += static_cast<char>(code == 0x7F ? '?' : code + 0x40);
    } else {
      out += c;
    }
  }
  return out;
}

void TerminalFrontend::PrintLines(const RichText& runs) {
  if (s_ == nullptr) return;
  for (const std::string& line : RenderForTerminal(*s_, runs)) out_ << PrintableText(line) << '\n';
  out_ << std::flush;
}

void TerminalFrontend::AppendToWorkSpace(const RichRun& run) {
  work_space_.push_back(run);
  if (!live_) return;
  pending_line_.push_back(run);
  if (run.kind == RunKind::LineEnd) {
    PrintLines(pending_line_);
    pending_line_.clear();
  }
}

void TerminalFrontend::Flush() {
  if (!live_ || pending_line_.empty()) return;
  RichText line = pending_line_;
  line.push_back(RichRun{RunKind::LineEnd, "", {}, {}});
  PrintLines(line);
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
  missing_values_.clear();
  refused_values_.clear();
  ask_again_.clear();
}

PauseInput TerminalFrontend::WaitButton(const std::string&, float, float) {
  if (!live_) return PauseInput::Continue;
  Flush();
  for (;;) {
    out_ << "  [Enter: next step   q: stop   h: help] " << std::flush;
    std::string answer;
    if (!std::getline(in_, answer)) return PauseInput::Escape;
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
  hints_.push_back(PlainText(body));
  if (!live_) return;
  Flush();
  out_ << "Hint:\n";
  PrintLines(body);
}

bool TerminalFrontend::AskYesNo(const std::string& question) {
  if (!live_) return false;
  Flush();
  out_ << question << " (y/n) " << std::flush;
  std::string answer;
  return std::getline(in_, answer) && !answer.empty() && (answer[0] == 'y' || answer[0] == 'Y');
}

std::optional<std::string> TerminalFrontend::AskText(const std::string& question,
                                                     const std::string& suggestion) {
  if (!live_) return std::nullopt;
  Flush();
  out_ << question << " [" << suggestion << "] " << std::flush;
  std::string answer;
  if (!std::getline(in_, answer)) return std::nullopt;
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
    out_ << letter << " = ";
    if (!suggestion.empty()) out_ << "[" << suggestion << "] ";
    out_ << std::flush;
    std::string answer;
    if (!std::getline(in_, answer)) {
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
  err_ << "(help topic " << help_number << ")\n" << std::flush;
}

}  // namespace tavimor
