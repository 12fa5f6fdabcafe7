// The terminal's list editor: one word a button, "TEXT | COMMENT" where the window's input box
// asks for a text and its comment.
#include "cli/list_editor_view.h"

#include <cstdlib>
#include <ostream>
#include <utility>

#include "cli/terminal_frontend.h"
#include "shell/algebra_file.h"

namespace tavimor {
namespace {

// "TEXT | COMMENT": the text and the comment, each without the blanks around it.
std::pair<std::string, std::string> TextAndComment(const std::string& rest) {
  const auto trim = [](const std::string& t) {
    const std::size_t first = t.find_first_not_of(' ');
    if (first == std::string::npos) return std::string();
    return t.substr(first, t.find_last_not_of(' ') - first + 1);
  };
  const std::size_t bar = rest.find('|');
  if (bar == std::string::npos) return {trim(rest), ""};
  return {trim(rest.substr(0, bar)), trim(rest.substr(bar + 1))};
}

// A number from 1 to `count`, or 0 when the text is no such number.
int Position(const std::string& text, std::size_t count) {
  if (text.empty() || text.size() > 5 ||
      text.find_first_not_of("0123456789") != std::string::npos) {
    return 0;
  }
  const int n = std::atoi(text.c_str());
  return n >= 1 && static_cast<std::size_t>(n) <= count ? n : 0;
}

}  // namespace

ListEditorView::ListEditorView(Session& s, std::function<bool(const std::string&)> ask)
    : editor_(s), ask_(std::move(ask)) {}

void ListEditorView::PrintWords(std::ostream& out) {
  out << "List editor words (the list is rebuilt only by keep):\n"
         "  show                       the headings and the equations of the selected one\n"
         "  topic N / eqn N            select heading N / equation N of that heading\n"
         "  new-topic TEXT [| COMMENT] a topic behind the selected heading\n"
         "  edit-topic TEXT [| COMMENT]\n"
         "  new-eqn TEXT [| COMMENT]   an equation or expression behind the selected one\n"
         "  edit-eqn TEXT [| COMMENT]\n"
         "  comment TEXT               the comment of the selected equation\n"
         "  cut-topic, copy-topic, paste-topic, cut-eqn, copy-eqn, paste-eqn\n"
         "  promote, demote            a sub-topic becomes a topic, a topic a sub-topic\n"
         "  topic-up, topic-down, eqn-up, eqn-down\n"
         "  keep                       "
      << kKeepChangesCaption
      << "\n"
         "  cancel                     "
      << kCancelChangesCaption << "\n";
}

void ListEditorView::Print(std::ostream& out) const {
  out << "Topics and sub-topics:\n";
  if (editor_.Topics().empty()) out << "  (none)\n";
  for (std::size_t i = 0; i < editor_.Topics().size(); ++i) {
    const bool selected = static_cast<int>(i) == editor_.SelectedTopic();
    out << (selected ? "> " : "  ") << i + 1 << ". " << PrintableText(editor_.Topics()[i].text)
        << '\n';
  }
  out << "Equations and expressions"
      << (editor_.SelectedTopic() < 0 ? " before any heading" : " of the selected heading")
      << ":\n";
  if (editor_.Eqns().empty()) out << "  (none)\n";
  for (std::size_t i = 0; i < editor_.Eqns().size(); ++i) {
    const bool selected = static_cast<int>(i) == editor_.SelectedEqn();
    const std::string& comment = editor_.GetStuff(editor_.Eqns()[i].comment);
    out << (selected ? "> " : "  ") << i + 1 << ". " << PrintableText(editor_.Eqns()[i].text)
        << (comment.empty() ? "" : "    | " + PrintableText(comment)) << '\n';
  }
}

bool ListEditorView::Handle(const std::string& line, std::ostream& out) {
  const std::size_t blank = line.find(' ');
  const std::string word = line.substr(0, blank);
  const std::string rest = blank == std::string::npos ? "" : line.substr(blank + 1);
  const auto [text, comment] = TextAndComment(rest);
  std::string refusal;
  bool acted = false;
  if (word == "show") {
    Print(out);
    return true;
  } else if (word == "help") {
    PrintWords(out);
    return true;
  } else if (word == "keep") {
    const bool changed = editor_.Changed();
    editor_.Keep();
    out << (changed ? "The changes are kept in the list; save the file to keep them for good.\n"
                    : "The list is unchanged.\n");
    return false;
  } else if (word == "cancel") {
    if (editor_.Changed()) {
      if (!ask_(kReallyThrowAwayText)) return true;
      editor_.Discard();
      out << "The changes are thrown away.\n";
    }
    return false;
  } else if (word == "topic") {
    const int n = Position(rest, editor_.Topics().size());
    if (n == 0) {
      out << "topic takes the number of a heading, as 'show' lists them.\n";
      return true;
    }
    editor_.SelectTopic(n - 1);
    acted = true;
  } else if (word == "eqn") {
    const int n = Position(rest, editor_.Eqns().size());
    if (n == 0) {
      out << "eqn takes the number of an equation of the selected heading, as 'show' lists "
             "them.\n";
      return true;
    }
    editor_.SelectEqn(n - 1);
    acted = true;
  } else if (word == "new-topic") {
    acted = editor_.TopicNew(text, comment);
    if (!acted && !text.empty()) refusal = ListFullText();
  } else if (word == "edit-topic") {
    acted = editor_.TopicEdit(text, comment);
  } else if (word == "new-eqn") {
    acted = editor_.EqnNew(text, comment);
    if (!acted && !text.empty()) refusal = ListFullText();
  } else if (word == "edit-eqn") {
    acted = editor_.EqnEdit(text, comment);
  } else if (word == "comment") {
    if (editor_.NoEqnSelected()) {
      out << "Select an equation first (eqn N).\n";
      return true;
    }
    editor_.SetEqnComment(rest);
    acted = true;
  } else if (word == "cut-topic") {
    acted = editor_.TopicCut();
  } else if (word == "copy-topic") {
    acted = editor_.TopicCopy();
  } else if (word == "paste-topic") {
    acted = editor_.TopicPaste(refusal);
  } else if (word == "cut-eqn") {
    acted = editor_.EqnCut();
  } else if (word == "copy-eqn") {
    acted = editor_.EqnCopy();
  } else if (word == "paste-eqn") {
    acted = editor_.EqnPaste(refusal);
  } else if (word == "promote") {
    acted = editor_.Promote();
  } else if (word == "demote") {
    acted = editor_.Demote();
  } else if (word == "topic-up" || word == "topic-down") {
    acted = editor_.MoveTopic(word == "topic-up" ? -1 : +1);
  } else if (word == "eqn-up" || word == "eqn-down") {
    acted = editor_.MoveEqn(word == "eqn-up" ? -1 : +1);
  } else {
    out << "The list editor is open: 'help' lists its words; 'keep' or 'cancel' closes it.\n";
    return true;
  }
  if (!refusal.empty()) {
    out << PrintableText(refusal) << '\n';
  } else if (!acted) {
    out << "Nothing to do: " << word
        << (rest.empty() && (word.rfind("new", 0) == 0 || word.rfind("edit", 0) == 0)
                ? " needs a text."
                : " does not apply to what is selected.")
        << '\n';
  } else {
    Print(out);
  }
  return true;
}

}  // namespace tavimor
