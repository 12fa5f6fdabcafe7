// The dialog of operations on both sides offscreen: its caption and options, Apply with Q and
// Q left empty for the next operation, a refused Q, the square root's sign, the hint, and the
// dialog opened modeless from the Equation panel.
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include "qt/both_sides_dialog.h"
#include "support/recording_frontend.h"
#include "support/window_fixture.h"

namespace tavimor {

class BothSidesDialogTest : public QObject {
  Q_OBJECT

 private slots:
  void init() {
    frontend_ = std::make_unique<RecordingFrontend>();
    s_ = std::make_unique<Session>(*frontend_);
    StartUp(*s_, ".");
    s_->StreamingOutput = true;
    synced_ = 0;
    dialog_ = std::make_unique<BothSidesDialog>(nullptr, *s_, [this] { ++synced_; });
    dialog_->show();
  }
  void cleanup() {
    dialog_.reset();
    s_.reset();
    frontend_.reset();
  }

  void CaptionAndOptionsAreShown() {
    QCOMPARE(dialog_->windowTitle(),
             QStringLiteral("Apply this operation to both sides of the equation"));
    QVERIFY(!dialog_->isModal());
    QCOMPARE(dialog_->Option(BothSidesOperation::SwapSides)->text(), QStringLiteral("Swap sides"));
    QCOMPARE(dialog_->Option(BothSidesOperation::QthRoot)->text(), QStringLiteral("Q'th root"));
    QCOMPARE(dialog_->Option(BothSidesOperation::SubtractRightSide)->text(),
             QStringLiteral("subtract the RHS"));
    QCOMPARE(dialog_->ApplyButton()->text(), QStringLiteral("Apply"));
    QCOMPARE(dialog_->HintButton()->text(), QStringLiteral("Solving Hint"));
    QCOMPARE(dialog_->CloseButton()->text(), QStringLiteral("Close"));
    bool where = false;
    for (QLabel* label : dialog_->findChildren<QLabel*>()) {
      where = where || label->text() == QStringLiteral("where Q is");
    }
    QVERIFY(where);
    for (int index = 0; index < kBothSidesOperationCount; ++index) {
      QVERIFY(dialog_->Option(static_cast<BothSidesOperation>(index))->isVisible());
    }
  }

  void ApplyChangesTheEquationAndEmptiesQ() {
    cmdLoadEquation(*s_, "2x+3=7", false);
    dialog_->Option(BothSidesOperation::SubtractQ)->click();
    QTest::keyClicks(dialog_->QBox(), QStringLiteral("3"));
    QTest::mouseClick(dialog_->ApplyButton(), Qt::LeftButton);
    QCOMPARE(QString::fromStdString(s_->Pool[kLeftRoot].Text), QStringLiteral("2*x"));
    QCOMPARE(QString::fromStdString(s_->Pool[kRightRoot].Text), QStringLiteral("4"));
    QCOMPARE(dialog_->QBox()->text(), QString());
    QCOMPARE(synced_, 1);
    dialog_->Option(BothSidesOperation::DivideByQ)->click();
    QTest::keyClicks(dialog_->QBox(), QStringLiteral("2"));
    QTest::mouseClick(dialog_->ApplyButton(), Qt::LeftButton);
    QCOMPARE(QString::fromStdString(s_->Pool[kLeftRoot].Text), QStringLiteral("x"));
    QCOMPARE(QString::fromStdString(s_->Pool[kRightRoot].Text), QStringLiteral("2"));
    QVERIFY(dialog_->isVisible());  // it stays open while the student works
  }

  void RefusedQStaysForMending() {
    cmdLoadEquation(*s_, "2x=4", false);
    dialog_->Option(BothSidesOperation::MultiplyByQ)->click();
    QTest::keyClicks(dialog_->QBox(), QStringLiteral("x=1"));
    QTest::mouseClick(dialog_->ApplyButton(), Qt::LeftButton);
    QCOMPARE(frontend_->messages.size(), std::size_t{1});
    QCOMPARE(QString::fromStdString(frontend_->messages[0].text),
             QStringLiteral("The textbox for Q must contain a valid expression, not an equation"));
    QCOMPARE(dialog_->QBox()->text(), QStringLiteral("x=1"));
    QCOMPARE(QString::fromStdString(s_->Pool[kLeftRoot].Text), QStringLiteral("2*x"));
  }

  void SquareRootTakesTheSignGiven() {
    cmdLoadEquation(*s_, "x^2=25", false);
    dialog_->SetRootSign('-');
    dialog_->Option(BothSidesOperation::SquareRoot)->click();
    QTest::mouseClick(dialog_->ApplyButton(), Qt::LeftButton);
    QCOMPARE(QString::fromStdString(s_->Pool[kRightRoot].Text), QStringLiteral("-5"));
  }

  void HintButtonShowsTheNextStep() {
    cmdLoadEquation(*s_, "2x+3=7", false);
    QTest::mouseClick(dialog_->HintButton(), Qt::LeftButton);
    QCOMPARE(frontend_->hints.size(), std::size_t{1});
    QVERIFY(QString::fromStdString(frontend_->hints[0])
                .endsWith(QStringLiteral("Subtract @3@ from both sides.\n")));
    QCOMPARE(QString::fromStdString(s_->Pool[kLeftRoot].Text), QStringLiteral("2*x+3"));
  }

  void EquationPanelOpensTheDialogModeless() {
    WindowUnderTest w;
    w.Open();
    w.frontend->SetUnattended(true);
    w.window->EquationBox()->setEditText(QStringLiteral("3x-1=8"));
    w.window->LoadTyped(false);
    QVERIFY(w.window->Button("cmdDoToEqn")->isEnabled());
    w.window->Press("cmdDoToEqn", false);
    BothSidesDialog* dialog = w.frontend->BothSides();
    QVERIFY(dialog != nullptr);
    QVERIFY(dialog->isVisible());
    QVERIFY(!dialog->isModal());
    dialog->Option(BothSidesOperation::AddQ)->click();
    QTest::keyClicks(dialog->QBox(), QStringLiteral("1"));
    QTest::mouseClick(dialog->ApplyButton(), Qt::LeftButton);
    QCOMPARE(QString::fromStdString(w.session->Pool[kLeftRoot].Text), QStringLiteral("3*x"));
    QCOMPARE(QString::fromStdString(w.session->Pool[kRightRoot].Text), QStringLiteral("9"));
    // Pressed again, the same dialog comes forward.
    w.window->Press("cmdDoToEqn", false);
    QCOMPARE(w.frontend->BothSides(), dialog);
    dialog->adjustSize();
    const QString shot = qEnvironmentVariable("TAVIMOR_SCREENSHOT_DIR");
    if (!shot.isEmpty()) dialog->grab().save(shot + QStringLiteral("/both_sides_dialog.png"));
    w.Close();
  }

 private:
  std::unique_ptr<RecordingFrontend> frontend_;
  std::unique_ptr<Session> s_;
  std::unique_ptr<BothSidesDialog> dialog_;
  int synced_ = 0;
};

}  // namespace tavimor

QTEST_MAIN(tavimor::BothSidesDialogTest)
#include "both_sides_dialog_test.moc"
