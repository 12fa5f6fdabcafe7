// The list editor window driven offscreen as a teacher would: a new equation typed into the
// input box and kept, a change thrown away after the question, the frame's close refused with
// its sentence, and the topics shown again after a change. The window is saved under /tmp.
#include <QApplication>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>

#include "qt/list_editor_form.h"
#include "qt/main_window.h"
#include "qt/topics_panel.h"
#include "shell/algebra_file.h"
#include "support/window_fixture.h"

namespace tavimor {

class ListEditorWindowTest : public QObject {
  Q_OBJECT

 private slots:
  void init() {
    w_.Open();
    QVERIFY(QTest::qWaitForWindowExposed(w_.window.get()));
    w_.session->ListEntries = {
        "Topic:Linear", "Comment:one unknown", "Eqn:2*x=4", "Comment:", "Topic:Quadratic",
        "Comment:",     "Eqn:x^2=4",           "Comment:"};
    w_.session->ListEditedFlag = false;
  }

  void cleanup() { w_.Close(); }

  void ANewEquationIsTypedAndKept() {
    QString prompt_title;
    WhenModal([&](QWidget* modal) {
      auto* form = qobject_cast<ListEditorForm*>(modal);
      QVERIFY(form != nullptr);
      QCOMPARE(form->TopicList()->count(), 2);
      form->TopicList()->setCurrentRow(1);
      QCOMPARE(form->EqnList()->item(0)->text(), QStringLiteral("x^2=4"));
      QVERIFY(!form->Button(QStringLiteral("cmdEqnCut"))->isEnabled());
      WhenModal([&](QWidget* box_widget) {
        auto* box = qobject_cast<EditorInputBox*>(box_widget);
        QVERIFY(box != nullptr);
        prompt_title = box->windowTitle();
        box->TextBox()->setText(QStringLiteral("x^2-9=0"));
        box->CommentBox()->setPlainText(QStringLiteral("a difference of squares"));
        box->grab().save(QStringLiteral("/tmp/list_editor_input.png"));
        QTest::mouseClick(box->OkButton(), Qt::LeftButton);
      });
      QTest::mouseClick(form->Button(QStringLiteral("cmdEqnNew")), Qt::LeftButton);
      QCOMPARE(form->EqnList()->count(), 2);
      QVERIFY(form->Button(QStringLiteral("cmdEqnCut"))->isEnabled());
      QCOMPARE(form->CommentBox()->toPlainText(), QStringLiteral("a difference of squares"));
      form->grab().save(QStringLiteral("/tmp/list_editor.png"));
      QTest::mouseClick(form->Button(QStringLiteral("cmdClose")), Qt::LeftButton);
    });
    w_.window->EditList();
    QCOMPARE(prompt_title, QStringLiteral("Editor"));
    QVERIFY(HasUnsavedChanges(*w_.session));
    QCOMPARE(w_.session->ListEntries.size(), std::size_t{10});
    QCOMPARE(w_.session->ListEntries[6], std::string("Eqn:x^2-9=0"));
    QCOMPARE(w_.session->ListEntries[7], std::string("Comment:a difference of squares"));
    QVERIFY(w_.window->TopicsShown());
    QCOMPARE(w_.window->Topics()->TopicCount(), 2);
  }

  void AChangeIsThrownAwayOnlyAfterTheQuestion() {
    const std::vector<std::string> before = w_.session->ListEntries;
    QString question;
    WhenModal([&](QWidget* modal) {
      auto* form = qobject_cast<ListEditorForm*>(modal);
      QVERIFY(form != nullptr);
      QTest::mouseClick(form->Button(QStringLiteral("spnTopicDown")), Qt::LeftButton);
      QCOMPARE(form->TopicList()->item(0)->text(), QStringLiteral("Quadratic"));
      // First No: the window stays open; then Yes.
      WhenModal([&](QWidget* box) {
        auto* message = qobject_cast<QMessageBox*>(box);
        QVERIFY(message != nullptr);
        question = message->text();
        message->button(QMessageBox::No)->click();
      });
      QTest::mouseClick(form->Button(QStringLiteral("cmdCancel")), Qt::LeftButton);
      QVERIFY(form->isVisible());
      WhenModal([&](QWidget* box) {
        qobject_cast<QMessageBox*>(box)->button(QMessageBox::Yes)->click();
      });
      QTest::mouseClick(form->Button(QStringLiteral("cmdCancel")), Qt::LeftButton);
    });
    w_.window->EditList();
    QCOMPARE(question, QStringLiteral("Really want to throw away all changes?"));
    QVERIFY(w_.session->ListEntries == before);
    QVERIFY(!HasUnsavedChanges(*w_.session));
  }

  void ClosingByTheFrameAsksForAButton() {
    QString told;
    WhenModal([&](QWidget* modal) {
      auto* form = qobject_cast<ListEditorForm*>(modal);
      QVERIFY(form != nullptr);
      WhenModal([&](QWidget* box) {
        auto* message = qobject_cast<QMessageBox*>(box);
        QVERIFY(message != nullptr);
        told = message->text();
        message->accept();
      });
      form->close();
      QVERIFY(form->isVisible());
      QTest::mouseClick(form->Button(QStringLiteral("cmdClose")), Qt::LeftButton);
    });
    w_.window->EditList();
    QCOMPARE(told, QStringLiteral("Click on Keep Changes or or Cancel Changes"));
    QVERIFY(!HasUnsavedChanges(*w_.session));
  }

 private:
  WindowUnderTest w_;
};

}  // namespace tavimor

QTEST_MAIN(tavimor::ListEditorWindowTest)
#include "list_editor_form_test.moc"
