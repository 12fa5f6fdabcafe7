// The list editor in the terminal: a mode of the interactive tutor whose words are the editor's
// buttons, the lists printed after each change.
#pragma once

#include <functional>
#include <iosfwd>
#include <string>

#include "core/session.h"
#include "shell/list_editor.h"

namespace tavimor {

class ListEditorView {
 public:
  // `ask` puts a yes/no question to the student.
  ListEditorView(Session& s, std::function<bool(const std::string&)> ask);

  // Runs one line of the mode; false once Keep Changes or Cancel Changes has closed it.
  bool Handle(const std::string& line, std::ostream& out);
  void Print(std::ostream& out) const;
  static void PrintWords(std::ostream& out);

 private:
  ListEditor editor_;
  std::function<bool(const std::string&)> ask_;
};

}  // namespace tavimor
