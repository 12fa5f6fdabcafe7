// The lines the student types: at a terminal with editing, history and completion of command
// words (libedit through its readline interface); from a pipe or a file, plain lines.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace tavimor {

class LineEditor {
 public:
  // Edits lines when standard input is a terminal; `words` are completed at the line's start.
  LineEditor(std::istream& in, std::ostream& out, std::vector<std::string> words);
  ~LineEditor();
  LineEditor(const LineEditor&) = delete;
  LineEditor& operator=(const LineEditor&) = delete;

  bool Terminal() const { return terminal_; }
  // Shows the prompt (at a terminal) and reads one line without its line end (LF, CR LF); false
  // at the end of the input. A line longer than kMaxLineBytes is cut there and `too_long` set.
  bool Read(const std::string& prompt, std::string& line, bool& too_long);
  // Remembers a line the student typed in the history.
  void Remember(const std::string& line);

 private:
  std::istream& in_;
  std::ostream& out_;
  bool terminal_ = false;
  std::string history_file_;
  std::string last_remembered_;
};

// The history file: $XDG_DATA_HOME/tavimor/history, else ~/.local/share/tavimor/history; empty
// when neither folder is known.
std::string HistoryFilePath();

}  // namespace tavimor
