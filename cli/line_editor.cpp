// The lines the student types: at a terminal with editing, history and completion of command
// words (libedit through its readline interface); from a pipe or a file, plain lines.
#include "cli/line_editor.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <iostream>
#include <system_error>

#include <editline/readline.h>
#include <unistd.h>

#include "cli/terminal_frontend.h"

namespace tavimor {

namespace {

constexpr int kHistoryLines = 1000;

std::vector<std::string>& CompletionWords() {
  static std::vector<std::string> words;
  return words;
}

char* NextCompletion(const char* text, int state) {
  static std::size_t next = 0;
  if (state == 0) next = 0;
  const std::vector<std::string>& words = CompletionWords();
  const std::size_t length = std::strlen(text);
  while (next < words.size()) {
    const std::string& word = words[next++];
    if (word.compare(0, length, text) == 0) return ::strdup(word.c_str());
  }
  return nullptr;
}

// Command words complete at the start of a line only; elsewhere nothing is offered.
char** CompleteCommand(const char* text, int start, int) {
  rl_attempted_completion_over = 1;
  if (start != 0) return nullptr;
  return rl_completion_matches(text, NextCompletion);
}

}  // namespace

std::string HistoryFilePath() {
  const char* data = std::getenv("XDG_DATA_HOME");
  if (data != nullptr && data[0] == '/') return std::string(data) + "/tavimor/history";
  const char* home = std::getenv("HOME");
  if (home != nullptr && home[0] != '\0')
    return std::string(home) + "/.local/share/tavimor/history";
  return "";
}

LineEditor::LineEditor(std::istream& in, std::ostream& out, std::vector<std::string> words)
    : in_(in), out_(out), terminal_(isatty(STDIN_FILENO) != 0 && isatty(STDOUT_FILENO) != 0) {
  if (!terminal_) return;
  CompletionWords() = std::move(words);
  rl_readline_name = const_cast<char*>("tavimor");
  rl_attempted_completion_function = CompleteCommand;
  rl_completion_append_character = ' ';
  using_history();
  stifle_history(kHistoryLines);
  history_file_ = HistoryFilePath();
  if (!history_file_.empty()) {
    std::error_code ignored;
    std::filesystem::create_directories(std::filesystem::path(history_file_).parent_path(),
                                        ignored);
    read_history(history_file_.c_str());
  }
}

LineEditor::~LineEditor() {
  if (!terminal_ || history_file_.empty()) return;
  if (write_history(history_file_.c_str()) == 0) {
    history_truncate_file(history_file_.c_str(), kHistoryLines);
  }
}

bool LineEditor::Read(const std::string& prompt, std::string& line, bool& too_long) {
  too_long = false;
  if (!terminal_) return ReadBoundedLine(in_, line, kMaxLineBytes, too_long);
  out_ << std::flush;
  char* typed = readline(prompt.c_str());
  if (typed == nullptr) {
    out_ << '\n';
    return false;
  }
  line = typed;
  std::free(typed);
  if (line.size() > kMaxLineBytes) {
    line.resize(kMaxLineBytes);
    too_long = true;
  }
  if (!line.empty() && line.back() == '\r') line.pop_back();
  return true;
}

void LineEditor::Remember(const std::string& line) {
  if (!terminal_ || line.empty() || line == last_remembered_) return;
  add_history(line.c_str());
  last_remembered_ = line;
}

}  // namespace tavimor
