// The list editor: headings and their equations edited as two linked lists, the flat list of
// the algebra file rebuilt only when the editor closes, so Cancel costs nothing.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/session.h"

namespace tavimor {

// The eight blanks in front of a heading that make it a subtopic.
inline constexpr const char* kSubTopicIndent = "        ";

// The texts of the editor, as the student reads them.
inline constexpr const char* kEditorTitle = "Editor";
inline constexpr const char* kKeepChangesCaption = "Keep Changes";
inline constexpr const char* kCancelChangesCaption = "Cancel Changes";
inline constexpr const char* kReallyThrowAwayText = "Really want to throw away all changes?";
inline constexpr const char* kCloseByButtonText = "Click on Keep Changes or or Cancel Changes";

// The two prompts of the input box of each action (the text, then its comment).
struct EditorPrompts {
  const char* text;
  const char* comment;
};
inline constexpr EditorPrompts kTopicNewPrompts = {"Add a new topic or sub-topic",
                                                   "Add a comment for this topic or sub-topic"};
inline constexpr EditorPrompts kTopicEditPrompts = {"Edit the name of the topic or sub-topic",
                                                    "Edit the comment for this topic or sub-topic"};
inline constexpr EditorPrompts kEqnNewPrompts = {
    "Add a new equation or expression", "Add a comment for the new equation or expression"};
inline constexpr EditorPrompts kEqnEditPrompts = {
    "Edit the equation or expression", "Edit the comment for this equation or expression"};

// Puts an empty "Comment:" entry behind every heading and equation that has none, so the list
// has the shape key, comment, key, comment.
std::vector<std::string> InputListModern(const std::vector<std::string>& entries);

// One line of a list box: its text and the handle of its comment in the store.
struct EditorItem {
  std::string text;
  int comment = 0;
};

// The editor's state, free of any screen: the window and the terminal both drive it.
class ListEditor {
 public:
  // Load: modernises the session's list (not a change), keeps a copy for Cancel, fills the
  // headings and the equation boxes, and selects the first heading.
  explicit ListEditor(Session& s);

  // The store of texts: texts are only ever added, so items carry numbers and move freely.
  int PutStuff(const std::string& text);
  const std::string& GetStuff(int number) const;

  const std::vector<EditorItem>& Topics() const { return topics_; }
  // The equations of the selected heading (box 0, before any heading, when there is none).
  const std::vector<EditorItem>& Eqns() const { return boxes_[CurrentBox()]; }
  int SelectedTopic() const { return topic_; }  // -1 for none
  int SelectedEqn() const { return eqn_; }      // -1 for none
  void SelectTopic(int index);
  void SelectEqn(int index);
  bool NoEqnSelected() const { return eqn_ < 0; }
  bool HasTopicClip() const { return topic_clip_.has_value(); }
  bool HasEqnClip() const { return !eqn_clip_.empty(); }
  std::string CommentOfSelectedTopic() const;
  std::string CommentOfSelectedEqn() const;

  // New and edit take what the input box gave: an empty text cancels. Each says whether it
  // acted; `refusal` says why not where the student should know.
  bool TopicNew(const std::string& text, const std::string& comment);
  bool TopicEdit(const std::string& text, const std::string& comment);
  bool EqnNew(const std::string& text, const std::string& comment);
  bool EqnEdit(const std::string& text, const std::string& comment);
  // The comment box: stores the comment of the selected equation.
  void SetEqnComment(const std::string& comment);

  bool TopicCut();
  bool TopicCopy();
  bool TopicPaste(std::string& refusal);
  bool EqnCut();
  bool EqnCopy();
  bool EqnPaste(std::string& refusal);

  // Right makes a topic a subtopic (never the first heading), left a subtopic a topic.
  bool Demote();
  bool Promote();
  // Swap with the neighbour above (-1) or below (+1); a heading takes its equations along.
  bool MoveTopic(int direction);
  bool MoveEqn(int direction);

  // The flat list the boxes stand for, and whether it differs from the list at load.
  std::vector<std::string> CreateNewInputList() const;
  bool Changed() const;
  // Keep Changes: a changed list replaces the session's and marks the file changed.
  void Keep();
  // Cancel Changes after the student agreed: the list as it was at load.
  void Discard();

 private:
  std::size_t CurrentBox() const { return topic_ < 0 ? 0 : static_cast<std::size_t>(topic_) + 1; }
  std::size_t EntryCount() const;
  void KeepFirstHeadingATopic();

  Session& s_;
  std::vector<std::string> backup_;
  std::vector<std::string> stuff_;
  std::vector<EditorItem> topics_;
  std::vector<std::vector<EditorItem>> boxes_;  // box 0 before any heading, box k+1 of topic k
  int topic_ = -1;
  int eqn_ = -1;
  struct TopicClip {
    EditorItem heading;
    std::vector<EditorItem> eqns;
  };
  std::optional<TopicClip> topic_clip_;  // a heading cut or copied, with its equations
  std::vector<EditorItem> eqn_clip_;
};

// Both lists hold the same entries in the same order.
bool SameLists(const std::vector<std::string>& a, const std::vector<std::string>& b);

}  // namespace tavimor
