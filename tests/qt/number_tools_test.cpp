// The Number panel's dialogs and the Fraction panel's buttons driven offscreen as a student would:
// the significant-figures dialog, the prime-factor dialog a factor a press, and the enabling of
// the fraction buttons. Each dialog is also saved as a picture under /tmp to look at.
#include <QApplication>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>
#include <functional>

#include "qt/main_window.h"
#include "qt/number_tools_dialogs.h"
#include "qt/qt_frontend.h"
#include "support/window_fixture.h"

namespace tavimor {

class NumberToolsWindowTest : public QObject {
  Q_OBJECT

 private slots:
  void init() {
    w_.Open();
    QVERIFY(QTest::qWaitForWindowExposed(w_.window.get()));
  }

  void cleanup() { w_.Close(); }

  void SignificantFiguresDialogRoundsTheNumber() {
    Load("3.14159");
    int start = 0;
    QString number;
    int lowest = 0;
    int highest = 0;
    WhenModal([&](QWidget* modal) {
      auto* form = qobject_cast<SigFigsForm*>(modal);
      QVERIFY(form != nullptr);
      number = modal->findChild<QLineEdit*>(QStringLiteral("txtNumber"))->text();
      QSpinBox* figures = form->FiguresBox();
      start = figures->value();
      lowest = figures->minimum();
      highest = figures->maximum();
      figures->stepUp();
      figures->stepUp();
      modal->grab().save(QStringLiteral("/tmp/sig_figs_form.png"));
      QTest::mouseClick(form->OkButton(), Qt::LeftButton);
    });
    QTest::mousePress(w_.window->Button("cmdSigFigs"), Qt::LeftButton);
    QCOMPARE(number, QStringLiteral("3.14159"));
    QCOMPARE(start, 3);
    QCOMPARE(lowest, 1);
    QCOMPARE(highest, 20);
    QVERIFY2(w_.window->WorkSpace()->HiddenText().contains(
                 QStringLiteral("The number 3.14159 expressed to 5 significant figures is 3.1416")),
             qPrintable(w_.window->WorkSpace()->HiddenText()));
  }

  void FactorDialogFindsAFactorAPressThenCloses() {
    Load("-12");
    QVERIFY(w_.window->Button("cmdFactor")->isEnabled());
    QStringList captions;
    QString last_box;
    std::function<void(QWidget*)> act = [&](QWidget* modal) {
      auto* form = qobject_cast<FactorForm*>(modal);
      // The same state again: the press before has not come back yet.
      if (form == nullptr || !form->isVisible() || form->Box()->toPlainText() == last_box) {
        WhenModal(act);
        return;
      }
      last_box = form->Box()->toPlainText();
      captions << form->OkButton()->text();
      if (form->OkButton()->text() == QStringLiteral("Close")) {
        form->grab().save(QStringLiteral("/tmp/factor_form.png"));
      } else {
        WhenModal(act);
      }
      QTest::mouseClick(form->OkButton(), Qt::LeftButton);
    };
    WhenModal(act);
    QTest::mousePress(w_.window->Button("cmdFactor"), Qt::LeftButton);
    QCOMPARE(captions,
             QStringList({QStringLiteral("OK"), QStringLiteral("OK"), QStringLiteral("Close")}));
    QVERIFY(last_box.startsWith(QStringLiteral("Number to be factored:  -12\n")));
    QVERIFY(last_box.endsWith(QStringLiteral("The number is now completely factored.")));
    QVERIFY2(w_.window->WorkSpace()->HiddenText().contains(
                 QStringLiteral("The number -12 in factored form is -2 * 2 * 3")),
             qPrintable(w_.window->WorkSpace()->HiddenText()));
    QCOMPARE(QApplication::activeModalWidget(), nullptr);
  }

  void ClosingEitherDialogWritesNothing() {
    Load("360");
    const QString before = w_.window->WorkSpace()->HiddenText();
    WhenModal([](QWidget* modal) { QTest::keyClick(modal, Qt::Key_Escape); });
    QTest::mousePress(w_.window->Button("cmdSigFigs"), Qt::LeftButton);
    QCOMPARE(w_.window->WorkSpace()->HiddenText(), before);
    WhenModal([](QWidget* modal) { QTest::keyClick(modal, Qt::Key_Escape); });
    QTest::mousePress(w_.window->Button("cmdFactor"), Qt::LeftButton);
    QCOMPARE(w_.window->WorkSpace()->HiddenText(), before);
    QCOMPARE(QApplication::activeModalWidget(), nullptr);
    // The tools stay on offer for another try.
    QVERIFY(w_.window->Button("cmdFactor")->isEnabled());
  }

  void FactorButtonIsDisabledForANonInteger() {
    Load("3.5");
    QVERIFY(!w_.window->Button("cmdFactor")->isEnabled());
    QVERIFY(w_.window->Button("cmdSigFigs")->isEnabled());
  }

  void SmallNumberIsPrimeInAMessageBox() {
    Load("3");
    QString told;
    WhenModal([&told](QWidget* modal) {
      auto* box = qobject_cast<QMessageBox*>(modal);
      QVERIFY(box != nullptr);
      told = box->text();
      QTest::keyClick(box, Qt::Key_Return);
    });
    QTest::mousePress(w_.window->Button("cmdFactor"), Qt::LeftButton);
    QCOMPARE(told, QStringLiteral("The number 3 is prime and can't be factored"));
  }

  void FractionButtonsAreEnabledByTheItemAndDisabledAfterUse() {
    Load("6/8");
    QCOMPARE(w_.window->VisiblePanelCaption(), QStringLiteral("Fraction"));
    QVERIFY(w_.window->Button("cmdSimplifyFraction")->isEnabled());
    QVERIFY(!w_.window->Button("cmdAddFractions")->isEnabled());
    // Steps one at a time: the pacing button before the cancellation and before the closing.
    w_.session->StreamingOutput = false;
    w_.session->SolveDetail = 1;
    int pauses = 0;
    ContinueAtPauses(2, pauses);
    QTest::mousePress(w_.window->Button("cmdSimplifyFraction"), Qt::LeftButton);
    QCOMPARE(pauses, 2);
    QVERIFY(!w_.window->Button("cmdSimplifyFraction")->isEnabled());
    QVERIFY(w_.window->WorkSpace()->HiddenText().contains(
        QStringLiteral("The fraction in simplest form is:")));

    Load("1/6+1/4");
    QVERIFY(!w_.window->Button("cmdSimplifyFraction")->isEnabled());
    QVERIFY(w_.window->Button("cmdAddFractions")->isEnabled());
    pauses = 0;
    ContinueAtPauses(3, pauses);
    QTest::mousePress(w_.window->Button("cmdAddFractions"), Qt::LeftButton);
    QCOMPARE(pauses, 3);
    QVERIFY(!w_.window->Button("cmdAddFractions")->isEnabled());
    QVERIFY(w_.window->WorkSpace()->HiddenText().contains(
        QStringLiteral("Multiplying all these factors together gives the LCD:")));
    w_.window->grab().save(QStringLiteral("/tmp/fraction_panel.png"));
  }

 private:
  // Presses the pacing button at each of the next `count` pauses, counting them in `seen`.
  static void ContinueAtPauses(int count, int& seen) {
    if (count == 0) return;
    WhenModal([count, &seen](QWidget* modal) {
      auto* pacing = qobject_cast<PacingDialog*>(modal);
      if (pacing == nullptr || !pacing->isVisible()) {
        ContinueAtPauses(count, seen);
        return;
      }
      ++seen;
      ContinueAtPauses(count - 1, seen);
      QTest::mouseClick(pacing->ContinueButton(), Qt::LeftButton);
    });
  }

  void Load(const QString& item) {
    w_.window->EquationBox()->setEditText(item);
    w_.window->LoadTyped(false);
  }

  WindowUnderTest w_;
};

}  // namespace tavimor

QTEST_MAIN(tavimor::NumberToolsWindowTest)
#include "number_tools_test.moc"
