// The list editor window over the screen-free editor: every button calls one of its operations
// and the lists are drawn again from its state.
#include "qt/list_editor_form.h"

#include <QCloseEvent>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QMessageBox>
#include <QVBoxLayout>

#include "shell/algebra_file.h"

namespace tavimor {
namespace {

QString Q(const std::string& text) { return QString::fromStdString(text); }
QString Q(const char* text) { return QString::fromUtf8(text); }

QPushButton* AddButton(QWidget* parent, QLayout* layout, const QString& name,
                       const QString& caption, const QString& tip) {
  auto* button = new QPushButton(caption, parent);
  button->setObjectName(name);
  button->setToolTip(tip);
  button->setAutoDefault(false);
  layout->addWidget(button);
  return button;
}

}  // namespace

EditorInputBox::EditorInputBox(QWidget* parent, const EditorPrompts& prompts, const QString& text,
                               const QString& comment)
    : QDialog(parent) {
  setWindowTitle(Q(kEditorTitle));
  setObjectName(QStringLiteral("Editor2Form"));
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(new QLabel(Q(prompts.text), this));
  text_ = new QLineEdit(text, this);
  text_->setObjectName(QStringLiteral("txtText"));
  layout->addWidget(text_);
  layout->addWidget(new QLabel(Q(prompts.comment), this));
  comment_ = new QPlainTextEdit(comment, this);
  comment_->setObjectName(QStringLiteral("txtComment"));
  comment_->setTabChangesFocus(true);
  comment_->setFixedHeight(comment_->fontMetrics().lineSpacing() * 4 + 12);
  layout->addWidget(comment_);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
  ok_ = buttons->button(QDialogButtonBox::Ok);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  layout->addWidget(buttons);
  resize(420, sizeHint().height());
}

ListEditorForm::ListEditorForm(QWidget* parent, Session& s) : QDialog(parent), s_(s), editor_(s) {
  setWindowTitle(QStringLiteral("List Editor"));
  setObjectName(QStringLiteral("EditorForm"));
  setModal(true);
  auto* layout = new QGridLayout(this);
  layout->addWidget(new QLabel(QStringLiteral("Topics and sub-topics"), this), 0, 0);
  layout->addWidget(new QLabel(QStringLiteral("Equations and expressions"), this), 0, 1);
  topics_ = new QListWidget(this);
  topics_->setObjectName(QStringLiteral("lstTopic"));
  eqns_ = new QListWidget(this);
  eqns_->setObjectName(QStringLiteral("lstEqn"));
  layout->addWidget(topics_, 1, 0);
  layout->addWidget(eqns_, 1, 1);

  // Each list's buttons in two rows: the edits, then the moves.
  auto* topic_column = new QVBoxLayout;
  auto* topic_buttons = new QHBoxLayout;
  auto* topic_moves = new QHBoxLayout;
  topic_column->addLayout(topic_buttons);
  topic_column->addLayout(topic_moves);
  AddButton(this, topic_buttons, QStringLiteral("cmdTopicNew"), QStringLiteral("New"),
            QStringLiteral("Add a topic or sub-topic behind the selected one"));
  AddButton(this, topic_buttons, QStringLiteral("cmdTopicEdit"), QStringLiteral("Edit"),
            QStringLiteral("Edit the name and comment of the selected heading"));
  AddButton(this, topic_buttons, QStringLiteral("cmdTopicCut"), QStringLiteral("Cut"),
            QStringLiteral("Cut the heading with its equations"));
  AddButton(this, topic_buttons, QStringLiteral("cmdTopicCopy"), QStringLiteral("Copy"),
            QStringLiteral("Copy the heading with its equations"));
  AddButton(this, topic_buttons, QStringLiteral("cmdTopicPaste"), QStringLiteral("Paste"),
            QStringLiteral("Paste the heading behind the selected one"));
  AddButton(this, topic_moves, QStringLiteral("spnTopicLeft"), QStringLiteral("\u25C0"),
            QStringLiteral("Promote: make the sub-topic a topic"));
  AddButton(this, topic_moves, QStringLiteral("spnTopicRight"), QStringLiteral("\u25B6"),
            QStringLiteral("Demote: make the topic a sub-topic"));
  AddButton(this, topic_moves, QStringLiteral("spnTopicUp"), QStringLiteral("\u25B2"),
            QStringLiteral("Move the heading up"));
  AddButton(this, topic_moves, QStringLiteral("spnTopicDown"), QStringLiteral("\u25BC"),
            QStringLiteral("Move the heading down"));
  topic_moves->addStretch();
  layout->addLayout(topic_column, 2, 0);

  auto* eqn_column = new QVBoxLayout;
  auto* eqn_buttons = new QHBoxLayout;
  auto* eqn_moves = new QHBoxLayout;
  eqn_column->addLayout(eqn_buttons);
  eqn_column->addLayout(eqn_moves);
  AddButton(this, eqn_buttons, QStringLiteral("cmdEqnNew"), QStringLiteral("New"),
            QStringLiteral("Add an equation or expression behind the selected one"));
  AddButton(this, eqn_buttons, QStringLiteral("cmdEqnEdit"), QStringLiteral("Edit"),
            QStringLiteral("Edit the selected equation or expression and its comment"));
  AddButton(this, eqn_buttons, QStringLiteral("cmdEqnCut"), QStringLiteral("Cut"),
            QStringLiteral("Cut the selected equation or expression"));
  AddButton(this, eqn_buttons, QStringLiteral("cmdEqnCopy"), QStringLiteral("Copy"),
            QStringLiteral("Copy the selected equation or expression"));
  AddButton(this, eqn_buttons, QStringLiteral("cmdEqnPaste"), QStringLiteral("Paste"),
            QStringLiteral("Paste behind the selected equation or expression"));
  AddButton(this, eqn_moves, QStringLiteral("spnEqnUp"), QStringLiteral("\u25B2"),
            QStringLiteral("Move the equation up"));
  AddButton(this, eqn_moves, QStringLiteral("spnEqnDown"), QStringLiteral("\u25BC"),
            QStringLiteral("Move the equation down"));
  eqn_moves->addStretch();
  layout->addLayout(eqn_column, 2, 1);

  comment_label_ = new QLabel(QStringLiteral("Comment"), this);
  layout->addWidget(comment_label_, 3, 0, 1, 2);
  comment_ = new QPlainTextEdit(this);
  comment_->setObjectName(QStringLiteral("txtComment"));
  comment_->setTabChangesFocus(true);
  comment_->setFixedHeight(comment_->fontMetrics().lineSpacing() * 4 + 12);
  layout->addWidget(comment_, 4, 0, 1, 2);

  auto* closing = new QHBoxLayout;
  closing->addStretch();
  AddButton(this, closing, QStringLiteral("cmdClose"), Q(kKeepChangesCaption),
            QStringLiteral("Close the editor and keep the changes in the list"));
  AddButton(this, closing, QStringLiteral("cmdCancel"), Q(kCancelChangesCaption),
            QStringLiteral("Close the editor and throw the changes away"));
  layout->addLayout(closing, 5, 0, 1, 2);

  connect(topics_, &QListWidget::currentRowChanged, this, [this](int row) {
    if (refreshing_) return;
    editor_.SelectTopic(row);
    RefreshEqns();
  });
  connect(eqns_, &QListWidget::currentRowChanged, this, [this](int row) {
    if (refreshing_) return;
    editor_.SelectEqn(row);
    RefreshEqns();
  });
  connect(comment_, &QPlainTextEdit::textChanged, this, [this] {
    if (refreshing_) return;
    editor_.SetEqnComment(comment_->toPlainText().toStdString());
  });
  const auto on = [this](const char* name, auto action) {
    connect(Button(QString::fromLatin1(name)), &QPushButton::clicked, this, [this, action] {
      action();
      Refresh();
    });
  };
  on("cmdTopicNew", [this] {
    if (const auto typed = Ask(kTopicNewPrompts, "", "")) {
      editor_.TopicNew(typed->first, typed->second);
    }
  });
  on("cmdTopicEdit", [this] {
    if (editor_.SelectedTopic() < 0) return;
    const std::string text =
        editor_.Topics()[static_cast<std::size_t>(editor_.SelectedTopic())].text;
    if (const auto typed = Ask(kTopicEditPrompts, text, editor_.CommentOfSelectedTopic())) {
      editor_.TopicEdit(typed->first, typed->second);
    }
  });
  on("cmdTopicCut", [this] { editor_.TopicCut(); });
  on("cmdTopicCopy", [this] { editor_.TopicCopy(); });
  on("cmdTopicPaste", [this] {
    std::string refusal;
    if (!editor_.TopicPaste(refusal)) Refuse(refusal);
  });
  on("spnTopicLeft", [this] { editor_.Promote(); });
  on("spnTopicRight", [this] { editor_.Demote(); });
  on("spnTopicUp", [this] { editor_.MoveTopic(-1); });
  on("spnTopicDown", [this] { editor_.MoveTopic(+1); });
  on("cmdEqnNew", [this] {
    if (const auto typed = Ask(kEqnNewPrompts, "", "")) {
      if (!editor_.EqnNew(typed->first, typed->second)) Refuse(ListFullText());
    }
  });
  on("cmdEqnEdit", [this] {
    if (editor_.NoEqnSelected()) return;
    const std::string text = editor_.Eqns()[static_cast<std::size_t>(editor_.SelectedEqn())].text;
    if (const auto typed = Ask(kEqnEditPrompts, text, editor_.CommentOfSelectedEqn())) {
      editor_.EqnEdit(typed->first, typed->second);
    }
  });
  on("cmdEqnCut", [this] { editor_.EqnCut(); });
  on("cmdEqnCopy", [this] { editor_.EqnCopy(); });
  on("cmdEqnPaste", [this] {
    std::string refusal;
    if (!editor_.EqnPaste(refusal)) Refuse(refusal);
  });
  on("spnEqnUp", [this] { editor_.MoveEqn(-1); });
  on("spnEqnDown", [this] { editor_.MoveEqn(+1); });
  connect(Button(QStringLiteral("cmdClose")), &QPushButton::clicked, this,
          &ListEditorForm::KeepChanges);
  connect(Button(QStringLiteral("cmdCancel")), &QPushButton::clicked, this,
          &ListEditorForm::CancelChanges);
  Refresh();
  resize(720, 480);
}

QPushButton* ListEditorForm::Button(const QString& name) const {
  return findChild<QPushButton*>(name);
}

void ListEditorForm::Refresh() {
  refreshing_ = true;
  topics_->clear();
  for (const EditorItem& item : editor_.Topics()) topics_->addItem(Q(item.text));
  topics_->setCurrentRow(editor_.SelectedTopic());
  refreshing_ = false;
  RefreshEqns();
}

void ListEditorForm::RefreshEqns() {
  refreshing_ = true;
  eqns_->clear();
  for (const EditorItem& item : editor_.Eqns()) eqns_->addItem(Q(item.text));
  eqns_->setCurrentRow(editor_.SelectedEqn());
  comment_->setPlainText(Q(editor_.CommentOfSelectedEqn()));
  refreshing_ = false;
  Enable();
}

void ListEditorForm::Enable() {
  const bool heading = editor_.SelectedTopic() >= 0;
  const bool eqn = !editor_.NoEqnSelected();
  for (const char* name : {"cmdTopicEdit", "cmdTopicCut", "cmdTopicCopy", "spnTopicLeft",
                           "spnTopicRight", "spnTopicUp", "spnTopicDown"}) {
    Button(QString::fromLatin1(name))->setEnabled(heading);
  }
  Button(QStringLiteral("cmdTopicPaste"))->setEnabled(editor_.HasTopicClip());
  for (const char* name : {"cmdEqnEdit", "cmdEqnCut", "cmdEqnCopy", "spnEqnUp", "spnEqnDown"}) {
    Button(QString::fromLatin1(name))->setEnabled(eqn);
  }
  Button(QStringLiteral("cmdEqnPaste"))->setEnabled(editor_.HasEqnClip());
  comment_->setEnabled(eqn);
  comment_label_->setEnabled(eqn);
}

std::optional<std::pair<std::string, std::string>> ListEditorForm::Ask(const EditorPrompts& prompts,
                                                                       const std::string& text,
                                                                       const std::string& comment) {
  EditorInputBox box(this, prompts, Q(text), Q(comment));
  if (box.exec() != QDialog::Accepted) return std::nullopt;
  const std::string typed = box.TextBox()->text().toStdString();
  if (typed.empty()) return std::nullopt;
  return std::make_pair(typed, box.CommentBox()->toPlainText().toStdString());
}

void ListEditorForm::Refuse(const std::string& refusal) {
  if (refusal.empty()) return;
  QMessageBox::information(this, Q(kEditorTitle), Q(refusal));
}

void ListEditorForm::KeepChanges() {
  editor_.Keep();
  closing_ = true;
  accept();
}

void ListEditorForm::CancelChanges() {
  if (editor_.Changed()) {
    const auto answer = QMessageBox::question(this, Q(kEditorTitle), Q(kReallyThrowAwayText),
                                              QMessageBox::Yes | QMessageBox::No);
    if (answer != QMessageBox::Yes) return;
    editor_.Discard();
  }
  closing_ = true;
  QDialog::reject();
}

void ListEditorForm::closeEvent(QCloseEvent* event) {
  if (closing_) {
    event->accept();
    return;
  }
  event->ignore();
  QMessageBox::information(this, Q(kEditorTitle), Q(kCloseByButtonText));
}

void ListEditorForm::reject() {
  if (closing_) {
    QDialog::reject();
    return;
  }
  QMessageBox::information(this, Q(kEditorTitle), Q(kCloseByButtonText));
}

}  // namespace tavimor
