// The elimination window offscreen: its captions, the grid with the pivot in blue, the trial of
// an ERO with OK and Cancel, the keyboard line, ERO Assist to the end, and the window opened
// modally from the Multi Eqns panel.
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QTest>

#include "linsys/sys_eq_form.h"
#include "qt/sys_eq_form.h"
#include "support/recording_frontend.h"
#include "support/window_fixture.h"

namespace tavimor {

class SysEqFormTest : public QObject {
  Q_OBJECT

 private slots:
  void init() {
    frontend_ = std::make_unique<RecordingFrontend>();
    s_ = std::make_unique<Session>(*frontend_);
    StartUp(*s_, ".");
  }
  void cleanup() {
    s_.reset();
    frontend_.reset();
  }

  void CaptionsAndGridAreShown() {
    SysEqForm& form = Open("2x+3y=8; x-y=-1");
    QCOMPARE(form.windowTitle(),
             QStringLiteral(" The Tavimor - Solve System of Linear Equations by Elimination"));
    QCOMPARE(form.AssistButton()->text(), QStringLiteral("ERO Assist"));
    QCOMPARE(form.AssistButton()->toolTip(),
             QStringLiteral("let the program apply the next ERO automatically"));
    QCOMPARE(form.KeyboardLine()->toolTip(), QStringLiteral("enter any ERO via the keyboard"));
    // Two equations and the line between: 3 lines; 3 x 3 - 1 cells and the comment.
    QCOMPARE(form.Grid()->rowCount(), 3);
    QCOMPARE(form.Grid()->columnCount(), 9);
    QCOMPARE(form.Grid()->item(0, 1)->text(), QStringLiteral("2"));
    QCOMPARE(form.Grid()->item(0, 5)->text(), QStringLiteral("y"));
    QCOMPARE(form.Grid()->item(2, 3)->text(), QStringLiteral("-"));
    QCOMPARE(form.Grid()->item(2, 7)->text(), QStringLiteral("-1"));
    QVERIFY(!form.OkButton()->isVisible());
  }

  void RowButtonsFollowTheNumberOfRows() {
    SysEqForm& two = Open("x+y=3; x-y=1");
    QTest::mouseClick(two.PanelButton(3), Qt::LeftButton);
    QVERIFY(two.RowButton(3, 1)->isVisible());
    QVERIFY(!two.RowButton(3, 2)->isVisible());
    QVERIFY(!two.RowButton(4, 3)->isVisible());
    SysEqForm& five = Open("a=1; b=2; c=3; f=4; g=5");
    QTest::mouseClick(five.PanelButton(1), Qt::LeftButton);
    // Rows beyond the fourth are typed.
    QVERIFY(five.RowButton(0, 3)->isVisible());
    QCOMPARE(five.RowButton(0, 3)->text(), QStringLiteral("R4"));
  }

  void AssistPaintsThePivotBlueAndTellsWhy() {
    SysEqForm& form = Open("2x+3y=8; x-y=-1");
    QTest::mouseClick(form.AssistButton(), Qt::LeftButton);
    QCOMPARE(form.Grid()->item(0, 1)->foreground().color(), QColor(Qt::blue));
    QVERIFY(form.AssistBox()->text().startsWith(
        QStringLiteral("The goal is to put the system into RREF form.")));
    QCOMPARE(form.Grid()->item(0, 4)->text(), QStringLiteral("1.5"));
    Grab(form, "sys_eq_form_assist.png");
  }

  void TrialHoldsOffEveryOtherControlUntilOkOrCancel() {
    SysEqForm& form = Open("2x+3y=8; x-y=-1");
    QTest::keyClicks(form.KeyboardLine(), QStringLiteral("R1;R2"));
    QTest::keyClick(form.KeyboardLine(), Qt::Key_Return);
    QVERIFY(form.OkButton()->isVisible());
    QVERIFY(form.CancelButton()->isVisible());
    QVERIFY(!form.AssistButton()->isEnabled());
    QVERIFY(!form.KeyboardLine()->isEnabled());
    QCOMPARE(form.Grid()->item(0, 1)->text(), QStringLiteral("1"));
    QCOMPARE(form.Grid()->item(0, 8)->text().trimmed(), QString::fromUtf8("\xe2\x86\x90"));
    Grab(form, "sys_eq_form_trial.png");
    QTest::mouseClick(form.CancelButton(), Qt::LeftButton);
    QCOMPARE(form.Grid()->item(0, 1)->text(), QStringLiteral("2"));
    QVERIFY(form.AssistButton()->isEnabled());
    QVERIFY(!form.OkButton()->isVisible());
  }

  void ClickOnACoefficientFillsTheNumberBox() {
    SysEqForm& form = Open("x/3+y=1; x+y=2");
    QTest::mouseClick(form.PanelButton(1), Qt::LeftButton);
    emit form.Grid()->cellClicked(0, 1);
    QLineEdit* number = form.NumberBox(1);
    QCOMPARE(number->text(), QStringLiteral("0.333"));
    QCOMPARE(number->toolTip(), QStringLiteral("Hint: click on a coefficient to copy it here"));
  }

  void AssistToTheEndClosesTheWindowWithTheReading() {
    SysEqForm& form = Open("x+y=3; x-y=1");
    for (int click = 0; click < 20 && form.AssistButton()->text() != QStringLiteral("Done");
         ++click) {
      QTest::mouseClick(form.AssistButton(), Qt::LeftButton);
    }
    QCOMPARE(form.AssistButton()->text(), QStringLiteral("Done"));
    QCOMPARE(form.AssistBox()->text(),
             QStringLiteral("You are done!  The system of equations is now in RREF form.  This "
                            "window will now close."));
    Grab(form, "sys_eq_form_done.png");
    QTest::mouseClick(form.AssistButton(), Qt::LeftButton);
    QCOMPARE(form.result(), int(QDialog::Accepted));
    QVERIFY(frontend_->Transcript().find("has a unique solution, namely:\n\t@x=2@\n\t@y=1@") !=
            std::string::npos);
  }

  void ByEliminationOpensTheWindowModally() {
    WindowUnderTest w;
    w.Open();
    w.window->EquationBox()->setEditText(QStringLiteral("x+y=3; x-y=1"));
    w.window->LoadTyped(false);
    CommandButton* button = w.window->Button("cmdSolveByElim");
    QVERIFY(button != nullptr);
    QVERIFY(button->isEnabled());
    bool seen = false;
    WhenModal([&seen](QWidget* modal) {
      auto* form = qobject_cast<SysEqForm*>(modal);
      if (form == nullptr) return;
      seen = true;
      for (int click = 0; click < 20 && form->isVisible(); ++click) {
        QTest::mouseClick(form->AssistButton(), Qt::LeftButton);
      }
    });
    emit button->Pressed(false);
    QVERIFY(seen);
    QVERIFY(w.session->SystemWindow != nullptr && w.session->SystemWindow->closed);
    QCOMPARE(w.session->SystemWindow->reading.solution.size(), std::size_t{2});
    w.Close();
  }

  void BySubstitutionPicksAVariableThenContinues() {
    WindowUnderTest w;
    w.Open();
    w.window->EquationBox()->setEditText(QStringLiteral("2x+3y=8; x-y=-1"));
    w.window->LoadTyped(false);
    CommandButton* button = w.window->Button("cmdSolveBySubs");
    QVERIFY(button != nullptr);
    QVERIFY(button->isEnabled());
    bool seen = false;
    WhenModal([&seen](QWidget* modal) {
      auto* form = qobject_cast<SysEqForm*>(modal);
      if (form == nullptr) return;
      seen = true;
      QCOMPARE(form->windowTitle(),
               QStringLiteral(" The Tavimor - Solve System of Linear Equations by Substitution"));
      QVERIFY(!form->TestButton()->isVisible());
      QVERIFY(!form->KeyboardLine()->isVisible());
      // x in the second equation (line 2 of the grid, the letter cell of column 1).
      form->Grid()->cellClicked(2, 2);
      QTest::mouseClick(form->AssistButton(), Qt::LeftButton);
      QCOMPARE(form->AssistButton()->text(), QStringLiteral("Continue"));
      QTest::mouseClick(form->AssistButton(), Qt::LeftButton);
      form->Grid()->cellClicked(0, 4);  // y in the first
      for (int click = 0; click < 10 && form->isVisible(); ++click) {
        QTest::mouseClick(form->AssistButton(), Qt::LeftButton);
      }
    });
    emit button->Pressed(false);
    QVERIFY(seen);
    QVERIFY(w.session->SystemWindow != nullptr && w.session->SystemWindow->closed);
    QCOMPARE(w.session->SystemWindow->reading.solution.size(), std::size_t{2});
    QCOMPARE(w.session->SystemWindow->reading.solution[0].second, std::string("1"));
    w.Close();
  }

 private:
  SysEqForm& Open(const std::string& set) {
    if (!cmdLoadEquation(*s_, set, false)) qFatal("the set did not load");
    state_ = std::make_unique<SysEqState>();
    if (!StartSysSolve(*s_, *state_)) qFatal("the window did not open");
    form_ = std::make_unique<SysEqForm>(nullptr, *s_, *state_);
    form_->show();
    if (!QTest::qWaitForWindowExposed(form_.get())) qFatal("not shown");
    return *form_;
  }

  // The window as a student sees it, kept for a look.
  void Grab(SysEqForm& form, const char* name) {
    const QString dir = qEnvironmentVariable("TAVIMOR_SCREENSHOT_DIR");
    if (!dir.isEmpty()) form.grab().save(dir + QStringLiteral("/") + QString::fromUtf8(name));
  }

  std::unique_ptr<RecordingFrontend> frontend_;
  std::unique_ptr<Session> s_;
  std::unique_ptr<SysEqState> state_;
  std::unique_ptr<SysEqForm> form_;
};

}  // namespace tavimor

QTEST_MAIN(tavimor::SysEqFormTest)
#include "sys_eq_form_test.moc"
