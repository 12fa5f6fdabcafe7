// The list editor window: headings on the left, the equations of the selected heading on the
// right, the comment below, and the input box that asks for a text and its comment.
#pragma once

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <memory>
#include <optional>
#include <utility>

#include "core/session.h"
#include "shell/list_editor.h"

namespace tavimor {

// Asks for a text and its comment under the title "Editor"; nothing when Cancel was pressed or
// the text was left empty.
class EditorInputBox : public QDialog {
  Q_OBJECT

 public:
  EditorInputBox(QWidget* parent, const EditorPrompts& prompts, const QString& text,
                 const QString& comment);
  QLineEdit* TextBox() const { return text_; }
  QPlainTextEdit* CommentBox() const { return comment_; }
  QPushButton* OkButton() const { return ok_; }

 private:
  QLineEdit* text_;
  QPlainTextEdit* comment_;
  QPushButton* ok_;
};

class ListEditorForm : public QDialog {
  Q_OBJECT

 public:
  ListEditorForm(QWidget* parent, Session& s);

  QListWidget* TopicList() const { return topics_; }
  QListWidget* EqnList() const { return eqns_; }
  QPlainTextEdit* CommentBox() const { return comment_; }
  QPushButton* Button(const QString& name) const;
  const ListEditor& Editor() const { return editor_; }

 protected:
  void closeEvent(QCloseEvent* event) override;
  void reject() override;  // Escape asks as the frame does

 private:
  void Refresh();
  void RefreshEqns();
  void Enable();
  std::optional<std::pair<std::string, std::string>> Ask(const EditorPrompts& prompts,
                                                         const std::string& text,
                                                         const std::string& comment);
  void KeepChanges();
  void CancelChanges();
  void Refuse(const std::string& refusal);

  Session& s_;
  ListEditor editor_;
  QListWidget* topics_;
  QListWidget* eqns_;
  QPlainTextEdit* comment_;
  QLabel* comment_label_;
  bool refreshing_ = false;
  bool closing_ = false;
};

}  // namespace tavimor
