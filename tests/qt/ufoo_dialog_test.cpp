// The dialog of the Useful form of one offscreen: its caption and choices, the conjugate offered
// and chosen, typing into the numerator box, a refused box kept open, Cancel, and the dialog
// opened by the main window's button.
#include <QApplication>
#include <QTest>

#include "qt/ufoo_dialog.h"
#include "shell/main_flow.h"
#include "support/recording_frontend.h"
#include "support/window_fixture.h"

namespace tavimor {

class UfooDialogTest : public QObject {
  Q_OBJECT

 private slots:
  void init() {
    frontend_ = std::make_unique<RecordingFrontend>();
    s_ = std::make_unique<Session>(*frontend_);
    StartUp(*s_, ".");
  }
  void cleanup() {
    dialog_.reset();
    s_.reset();
    frontend_.reset();
  }

  void CaptionAndChoicesAreShown() {
    Open("1/(1+sqrt(2))");
    QCOMPARE(dialog_->windowTitle(),
             QStringLiteral("Multiply the expression by a Useful Form Of One (UFOO)"));
    QCOMPARE(dialog_->Option(UfooOption::Conjugate)->text(),
             QStringLiteral("Use the conjugate of the denominator"));
    QCOMPARE(dialog_->ExpandNumerator()->text(), QStringLiteral("Expand the numerator"));
    QCOMPARE(dialog_->ExpandDenominator()->text(), QStringLiteral("Expand the denominator"));
    QVERIFY(dialog_->Option(UfooOption::MinusOne)->isChecked());
    QCOMPARE(dialog_->NumeratorBox()->text(), QStringLiteral("-1"));
    QCOMPARE(dialog_->DenominatorBox()->text(), QStringLiteral("-1"));
    QVERIFY(!dialog_->Option(UfooOption::MatchOther)->isEnabled());
  }

  void ConjugateFillsBothBoxes() {
    Open("1/(1+sqrt(2))");
    QVERIFY(dialog_->Option(UfooOption::Conjugate)->isEnabled());
    QTest::mouseClick(dialog_->Option(UfooOption::Conjugate), Qt::LeftButton);
    QCOMPARE(dialog_->NumeratorBox()->text(), QStringLiteral("1-sqrt(2)"));
    QCOMPARE(dialog_->DenominatorBox()->text(), QStringLiteral("1-sqrt(2)"));
    QVERIFY(dialog_->ExpandDenominator()->isChecked());
    QTest::mouseClick(dialog_->ApplyButton(), Qt::LeftButton);
    QCOMPARE(dialog_->result(), static_cast<int>(QDialog::Accepted));
    QCOMPARE(state_.option, UfooOption::Conjugate);
  }

  void NoDenominatorLeavesTheConjugateDisabled() {
    Open("x+sqrt(2)");
    QVERIFY(!dialog_->Option(UfooOption::Conjugate)->isEnabled());
  }

  void TypedNumeratorIsCopiedBelow() {
    Open("x/(x+1)");
    QVERIFY(dialog_->NumeratorBox()->isReadOnly());
    QTest::mouseClick(dialog_->Option(UfooOption::Other), Qt::LeftButton);
    QVERIFY(!dialog_->NumeratorBox()->isReadOnly());
    QCOMPARE(dialog_->NumeratorBox()->text(), QString());
    QTest::keyClicks(dialog_->NumeratorBox(), QStringLiteral("x-1"));
    QCOMPARE(dialog_->DenominatorBox()->text(), QStringLiteral("x-1"));
    QCOMPARE(state_.numerator_box, std::string("x-1"));
  }

  void RefusedBoxKeepsTheDialogOpen() {
    Open("x/(x+1)");
    QTest::mouseClick(dialog_->Option(UfooOption::Other), Qt::LeftButton);
    QTest::keyClicks(dialog_->NumeratorBox(), QStringLiteral("x=1"));
    QTest::mouseClick(dialog_->ApplyButton(), Qt::LeftButton);
    QVERIFY(dialog_->isVisible());
    QCOMPARE(frontend_->messages.back().text,
             std::string("The numerator box must contain a valid expression, not an equation."));
  }

  void CancelRejects() {
    Open("x/(x+1)");
    QTest::mouseClick(dialog_->CancelButton(), Qt::LeftButton);
    QCOMPARE(dialog_->result(), static_cast<int>(QDialog::Rejected));
  }

  void ButtonOpensTheDialogAndAppliesTheChoice() {
    WindowUnderTest w;
    w.Open();
    w.window->EquationBox()->setEditText(QStringLiteral("1/(1+sqrt(2))"));
    w.window->LoadTyped(false);
    CommandButton* button = w.window->Button("cmdUFOO");
    QVERIFY(button != nullptr);
    QVERIFY(button->isEnabled());
    bool seen = false;
    WhenModal([&seen](QWidget* modal) {
      auto* dialog = qobject_cast<UfooDialog*>(modal);
      if (dialog == nullptr) return;
      seen = true;
      QTest::mouseClick(dialog->Option(UfooOption::Conjugate), Qt::LeftButton);
      QTest::mouseClick(dialog->ApplyButton(), Qt::LeftButton);
    });
    emit button->Pressed(false);
    QVERIFY(seen);
    QCOMPARE(w.session->Pool[kLeftRoot].Text, std::string("(-sqrt(2)+1)/(-1)"));
    w.Close();
  }

 private:
  void Open(const std::string& item) {
    cmdLoadEquation(*s_, item, false);
    OpenUfooDialog(*s_, state_);
    dialog_ = std::make_unique<UfooDialog>(nullptr, *s_, state_);
    dialog_->show();
  }

  std::unique_ptr<RecordingFrontend> frontend_;
  std::unique_ptr<Session> s_;
  UfooDialogState state_;
  std::unique_ptr<UfooDialog> dialog_;
};

}  // namespace tavimor

QTEST_MAIN(tavimor::UfooDialogTest)
#include "ufoo_dialog_test.moc"
