// The desktop window driven as a student would, offscreen: typing, OK, the panels, the status
// bar, the pacing button, message boxes, the work space's pixels, copying, export, screenshots.
#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <functional>

#include "present/typesetter.h"
#include "present/work_space.h"
#include "qt/main_window.h"
#include "qt/qt_frontend.h"
#include "shell/main_flow.h"
#include "shell/status_bar.h"
#include "support/window_fixture.h"

namespace tavimor {

namespace {

bool Dark(QRgb pixel) { return qGray(pixel) < 110; }

// The lowest row with a dark pixel between two columns.
int LowestDarkRow(const QImage& image, int x0, int x1, int y0, int y1) {
  int lowest = -1;
  for (int y = y0; y < y1; ++y) {
    for (int x = x0; x < x1; ++x) {
      if (Dark(image.pixel(x, y))) lowest = y;
    }
  }
  return lowest;
}

// The row with the longest run of dark pixels between two columns: a fraction's rule.
int RuleRow(const QImage& image, int x0, int x1, int y0, int y1) {
  int best_row = -1;
  int best = 0;
  for (int y = y0; y < y1; ++y) {
    int run = 0;
    for (int x = x0; x < x1; ++x) {
      run = Dark(image.pixel(x, y)) ? run + 1 : 0;
      if (run > best) {
        best = run;
        best_row = y;
      }
    }
  }
  return best_row;
}

}  // namespace

class MainWindowTest : public QObject {
  Q_OBJECT

 private slots:
  void init() {
    w_.Open();
    QVERIFY(QTest::qWaitForWindowExposed(w_.window.get()));
  }

  void cleanup() { w_.Close(); }

  void TypingAnEquationAndPressingOkConsidersIt() {
    QTest::keyClicks(w_.window->EquationBox()->lineEdit(), QStringLiteral("2*x+3=7"));
    QTest::mousePress(w_.window->OkButton(), Qt::LeftButton);
    QCOMPARE(w_.window->WorkSpace()->HiddenText(),
             QStringLiteral("\nConsider  the equation  @2*x+3=7@  \n"));
    QCOMPARE(w_.window->VisiblePanelCaption(), QStringLiteral("Equation"));
    QVERIFY(w_.window->Button("cmdDoLHS")->isVisible());
    QVERIFY(w_.window->Button("cmdDoLHS")->isEnabled());
    QCOMPARE(w_.window->EquationBox()->count(), 1);
  }

  void EnterInTheBoxIsOk() {
    QTest::keyClicks(w_.window->EquationBox()->lineEdit(), QStringLiteral("x+x"));
    QTest::keyClick(w_.window->EquationBox()->lineEdit(), Qt::Key_Return);
    QCOMPARE(w_.window->VisiblePanelCaption(), QStringLiteral("Expression"));
  }

  void RefusedItemShowsTheMessageBoxWithHelp() {
    QString shown;
    WhenModal([&shown](QWidget* modal) {
      auto* box = qobject_cast<QMessageBox*>(modal);
      shown = box != nullptr ? box->text() : QString();
      QTest::keyClick(modal, Qt::Key_Escape);
    });
    w_.window->EquationBox()->setEditText(QStringLiteral("2x+"));
    w_.window->LoadTyped(false);
    QCOMPARE(shown,
             QStringLiteral("Error in input string.  Invalid symbol + at end of expression."));
    QCOMPARE(w_.window->WorkSpace()->HiddenText(), QString());
  }

  void RightButtonOnOkClearsTheWorkSpaceFirst() {
    w_.window->EquationBox()->setEditText(QStringLiteral("x"));
    QTest::mousePress(w_.window->OkButton(), Qt::LeftButton);
    w_.window->EquationBox()->setEditText(QStringLiteral("y"));
    QTest::mousePress(w_.window->OkButton(), Qt::RightButton);
    QCOMPARE(w_.window->WorkSpace()->HiddenText(),
             QStringLiteral("\nConsider  the expression  @y@  \n"));
  }

  void SimplifyButtonShowsOneStepAtATime() {
    w_.window->EquationBox()->setEditText(QStringLiteral("x+x+(3)"));
    w_.window->LoadTyped(false);
    QTest::mousePress(w_.window->Button("cmdSimplify"), Qt::LeftButton);
    QVERIFY(w_.window->WorkSpace()->HiddenText().contains(QStringLiteral("@x+x+3@")));
    QVERIFY(!w_.window->WorkSpace()->HiddenText().contains(QStringLiteral("@2*x+3@")));
    QTest::mousePress(w_.window->Button("cmdSimplify"), Qt::LeftButton);
    QVERIFY(w_.window->WorkSpace()->HiddenText().contains(QStringLiteral("@2*x+3@")));
  }

  void LeftSideAndBack() {
    w_.window->EquationBox()->setEditText(QStringLiteral("x+x=4"));
    w_.window->LoadTyped(false);
    QTest::mousePress(w_.window->Button("cmdDoLHS"), Qt::LeftButton);
    QCOMPARE(w_.window->VisiblePanelCaption(), QStringLiteral("Left Side"));
    QVERIFY(w_.window->Button("cmdShowEqnFrame")->isVisible());
    QTest::mousePress(w_.window->Button("cmdShowEqnFrame"), Qt::LeftButton);
    QCOMPARE(w_.window->VisiblePanelCaption(), QStringLiteral("Equation"));
  }

  void StatusPanelsCycleWhenClicked() {
    const QStringList detail = {"show steps one-by-one ", "show steps in a stream ",
                                "show result only ", "show steps one-by-one "};
    for (const QString& text : detail) {
      QCOMPARE(w_.window->Status(1)->text(), text);
      QTest::mouseClick(w_.window->Status(1), Qt::LeftButton);
    }
    const QStringList complex = {"cplx arithmetic (using i) ", "cplx arithmetic (using j) ",
                                 "complex arithmetic (not using i or j) ", "real arithmetic only "};
    for (const QString& text : complex) {
      QTest::mouseClick(w_.window->Status(2), Qt::LeftButton);
      QCOMPARE(w_.window->Status(2)->text(), text);
    }
    QTest::mouseClick(w_.window->Status(3), Qt::LeftButton);
    QCOMPARE(w_.window->Status(3)->text(), QStringLiteral("floating pt. arithmetic "));
    QTest::mouseClick(w_.window->Status(4), Qt::LeftButton);
    QCOMPARE(w_.window->Status(4)->text(), QStringLiteral("degrees "));
    QTest::mouseClick(w_.window->Status(5), Qt::LeftButton);
    QCOMPARE(w_.window->Status(5)->text(), QStringLiteral("quads by graphing "));
    QTest::mouseClick(w_.window->Status(7), Qt::LeftButton);
    QCOMPARE(w_.window->Status(7)->text(), QStringLiteral("e = variable "));
    QTest::mouseClick(w_.window->Status(8), Qt::LeftButton);
    QCOMPARE(w_.window->Status(8)->text(), QStringLiteral("p = pi "));
    QTest::mouseClick(w_.window->Status(9), Qt::LeftButton);
    QCOMPARE(w_.window->Status(9)->text(), QStringLiteral("d = degrees "));
  }

  void UnknownPanelAsksForTheLetter() {
    WhenModal([](QWidget* modal) {
      auto* edit = modal->findChild<QLineEdit*>();
      edit->setText(QStringLiteral("t"));
      QTest::keyClick(edit, Qt::Key_Return);
    });
    QTest::mouseClick(w_.window->Status(6), Qt::LeftButton);
    QCOMPARE(w_.window->Status(6)->text(), QStringLiteral("unknown = t "));
  }

  void EvaluateAsksForTheValuesInADialog() {
    w_.window->EquationBox()->setEditText(QStringLiteral("x^2+y"));
    w_.window->LoadTyped(false);
    QStringList rows;
    WhenModal([&rows](QWidget* modal) {
      for (QLabel* label : modal->findChildren<QLabel*>()) rows << label->text();
      modal->findChild<QLineEdit*>(QStringLiteral("value_x"))->setText(QStringLiteral("3"));
      auto* y = modal->findChild<QLineEdit*>(QStringLiteral("value_y"));
      y->setText(QStringLiteral("-1"));
      QTest::keyClick(y, Qt::Key_Return);
    });
    QTest::mousePress(w_.window->Button("cmdEvaluate"), Qt::LeftButton);
    rows.sort();
    QCOMPARE(rows, QStringList({QStringLiteral("x ="), QStringLiteral("y =")}));
    QVERIFY(w_.window->WorkSpace()->HiddenText().contains(
        QStringLiteral("With x = 3; y = -1 the expression evaluates to @8@ .")));
    // Cancel writes nothing; the suggestions are the values given last time.
    QString suggested;
    WhenModal([&suggested](QWidget* modal) {
      suggested = modal->findChild<QLineEdit*>(QStringLiteral("value_x"))->text();
      QTest::keyClick(modal, Qt::Key_Escape);
    });
    const QString before = w_.window->WorkSpace()->HiddenText();
    QTest::mousePress(w_.window->Button("cmdEvaluate"), Qt::LeftButton);
    QCOMPARE(suggested, QStringLiteral("3"));
    QCOMPARE(w_.window->WorkSpace()->HiddenText(), before);
  }

  void EvaluateAsksAgainForARefusedValue() {
    w_.window->EquationBox()->setEditText(QStringLiteral("x+1"));
    w_.window->LoadTyped(false);
    QString refusal;
    QString suggested;
    int dialogs = 0;
    // The dialog, then the message, then the dialog again with what was typed.
    std::function<void(QWidget*)> act = [&](QWidget* modal) {
      if (auto* box = qobject_cast<QMessageBox*>(modal); box != nullptr && box->isVisible()) {
        refusal = box->text();
        WhenModal(act);
        QTest::keyClick(box, Qt::Key_Return);
        return;
      }
      auto* edit = modal->findChild<QLineEdit*>(QStringLiteral("value_x"));
      if (edit == nullptr || !modal->isVisible() || (dialogs == 1 && refusal.isEmpty())) {
        WhenModal(act);
        return;
      }
      ++dialogs;
      if (dialogs == 1) {
        edit->setText(QStringLiteral("hello"));
        WhenModal(act);
      } else {
        suggested = edit->text();
        edit->setText(QStringLiteral("3"));
      }
      QTest::keyClick(edit, Qt::Key_Return);
    };
    WhenModal(act);
    QTest::mousePress(w_.window->Button("cmdEvaluate"), Qt::LeftButton);
    QCOMPARE(dialogs, 2);
    QCOMPARE(refusal,
             QStringLiteral("The value of x must be a number or an expression of numbers."));
    QCOMPARE(suggested, QStringLiteral("hello"));
    QVERIFY(w_.window->WorkSpace()->HiddenText().contains(
        QStringLiteral("With x = 3 the expression evaluates to @4@ .")));
  }

  void PacingButtonGoesOnWithEnterAndStopsWithEsc() {
    WhenModal([](QWidget* modal) { QTest::keyClick(modal, Qt::Key_Return); });
    QCOMPARE(w_.frontend->WaitButton("", 10, 10), PauseInput::Continue);
    WhenModal([](QWidget* modal) { QTest::keyClick(modal, Qt::Key_Escape); });
    QCOMPARE(w_.frontend->WaitButton("", 10, 10), PauseInput::Escape);
    WhenModal([](QWidget* modal) { QTest::keyClick(modal, Qt::Key_F1); });
    QCOMPARE(w_.frontend->WaitButton("", 10, 10), PauseInput::Help);
    WhenModal([](QWidget* modal) {
      auto* dialog = qobject_cast<PacingDialog*>(modal);
      QTest::mousePress(dialog->ContinueButton(), Qt::RightButton);
    });
    QCOMPARE(w_.frontend->WaitButton("", 10, 10), PauseInput::RightButton);
  }

  void PacingButtonStandsWhereItIsToldTo() {
    QPoint where;
    WhenModal([&where](QWidget* modal) {
      where = modal->pos();
      QTest::keyClick(modal, Qt::Key_Return);
    });
    w_.frontend->WaitButton("", 300, 200);
    QCOMPARE(where, QPoint(300, 200));
  }

  void CancelAtThePacingButtonStopsTheCommand() {
    WhenModal([](QWidget* modal) { QTest::keyClick(modal, Qt::Key_Escape); });
    bool cancelled = false;
    try {
      ShowWaitButton(*w_.session, "");
    } catch (const AppError& error) {
      cancelled = error.Number() == kErrorCancel;
    }
    QVERIFY(cancelled);
  }

  void RightButtonAtThePacingButtonAsksFirst() {
    WhenModal([](QWidget* modal) {
      QTest::mousePress(qobject_cast<PacingDialog*>(modal)->ContinueButton(), Qt::RightButton);
      WhenModal([](QWidget* question) {
        auto* box = qobject_cast<QMessageBox*>(question);
        QCOMPARE(box->text(), QStringLiteral("Really want to stop AutoSolve?"));
        box->button(QMessageBox::No)->click();
      });
    });
    ShowWaitButton(*w_.session, "");  // No: the solve goes on
    QCOMPARE(w_.session->AutoSolveTag, std::string());
  }

  void HintBoxHoldsRichTextWithMathematics() {
    WhenModal([](QWidget* modal) {
      auto* view = modal->findChild<WorkSpaceView*>();
      QCOMPARE(view->HiddenText(), QStringLiteral("Divide by @2@\n"));
      QTest::keyClick(modal, Qt::Key_Escape);
    });
    ShowHint(*w_.session, "Divide by @2@");
  }

  void ExpandButtonMultipliesOutOneStepAPress() {
    w_.window->EquationBox()->setEditText(QStringLiteral("(x+1)^2"));
    w_.window->LoadTyped(false);
    QVERIFY(w_.window->Button("cmdExpand")->isEnabled());
    QTest::mousePress(w_.window->Button("cmdExpand"), Qt::LeftButton);
    const QString first = w_.window->WorkSpace()->HiddenText();
    QVERIFY(first.contains(
        QStringLiteral("In order to expand this, first express it as @(x+1)*(x+1)@ .")));
    QVERIFY(!first.contains(QStringLiteral("@x^2+2*x+1@")));
    while (!w_.window->WorkSpace()->HiddenText().contains(QStringLiteral("nothing to expand"))) {
      QTest::mousePress(w_.window->Button("cmdExpand"), Qt::LeftButton);
    }
    QVERIFY(w_.window->WorkSpace()->HiddenText().contains(QStringLiteral("@x^2+2*x+1@")));
    QCOMPARE(QString::fromStdString(w_.session->Pool[kLeftRoot].Text), QStringLiteral("x^2+2*x+1"));
  }

  void AutoSolveWritesTheStepsAndStatesTheAnswers() {
    w_.session->StreamingOutput = true;
    w_.window->EquationBox()->setEditText(QStringLiteral("x^2=x"));
    w_.window->LoadTyped(false);
    QVERIFY(w_.window->Button("cmdAutoSolve")->isEnabled());
    QTest::mousePress(w_.window->Button("cmdAutoSolve"), Qt::LeftButton);
    const QString text = w_.window->WorkSpace()->HiddenText();
    QVERIFY(text.contains(QStringLiteral("Solve this equation for x by following these steps:")));
    QVERIFY(text.contains(QStringLiteral("The solution set consists of 2 solutions:")));
    QCOMPARE(QString::fromStdString(w_.session->SolveAnswers), QStringLiteral("0; 1"));
  }

  void AutoSolveAsksForALetterWithYesNoAndCancel() {
    w_.window->EquationBox()->setEditText(QStringLiteral("a*y=b"));
    w_.window->LoadTyped(false);
    QStringList asked;
    WhenModal([&asked](QWidget* modal) {
      auto* box = qobject_cast<QMessageBox*>(modal);
      asked << box->text();
      box->button(QMessageBox::No)->click();
      WhenModal([&asked](QWidget* next) {
        auto* second = qobject_cast<QMessageBox*>(next);
        asked << second->text();
        second->button(QMessageBox::Cancel)->click();
      });
    });
    QTest::mousePress(w_.window->Button("cmdAutoSolve"), Qt::LeftButton);
    QCOMPARE(asked.size(), 2);
    QCOMPARE(
        asked[0],
        QStringLiteral("x does not appear in this equation.\nDo you want the unknown to be a?"));
    QVERIFY(asked[1].endsWith(QStringLiteral("Do you want the unknown to be y?")));
    QCOMPARE(QString::fromStdString(w_.session->Unknown), QStringLiteral("x"));
  }

  void RightClickOnExpandExpandsADenominatorToo() {
    w_.window->EquationBox()->setEditText(QStringLiteral("1/x/(x+1)"));
    w_.window->LoadTyped(false);
    QTest::mousePress(w_.window->Button("cmdExpand"), Qt::LeftButton);
    QVERIFY(w_.window->WorkSpace()->HiddenText().contains(
        QStringLiteral("There is nothing to expand.")));
    QTest::mousePress(w_.window->Button("cmdExpand"), Qt::RightButton);
    QCOMPARE(QString::fromStdString(w_.session->Pool[kLeftRoot].Text), QStringLiteral("1/(x^2+x)"));
  }

  void ExpandTellsASimplificationInAHintBox() {
    QString hint;
    WhenModal([&hint](QWidget* modal) {
      auto* view = modal->findChild<WorkSpaceView*>();
      hint = view != nullptr ? view->HiddenText() : QString();
      QTest::keyClick(modal, Qt::Key_Escape);
    });
    w_.window->EquationBox()->setEditText(QStringLiteral("x+x"));
    w_.window->LoadTyped(false);
    const QString before = w_.window->WorkSpace()->HiddenText();
    QTest::mousePress(w_.window->Button("cmdExpand"), Qt::LeftButton);
    QCOMPARE(hint, QStringLiteral("Note:  The expression can be simplified like this:\n\n"
                                  "@x+x->2*x@  \n\nThere is nothing to expand.\n"));
    QCOMPARE(w_.window->WorkSpace()->HiddenText(), before);
    QCOMPARE(QString::fromStdString(w_.session->Pool[kLeftRoot].Text), QStringLiteral("x+x"));
  }

  void AddFractionsButtonMakesOneFraction() {
    // Steps in a stream: the step's lines do not wait for the pacing button.
    w_.session->StreamingOutput = true;
    w_.window->EquationBox()->setEditText(QStringLiteral("1/x+1/(x+1)"));
    w_.window->LoadTyped(false);
    QVERIFY(w_.window->Button("cmd1Frac")->isEnabled());
    QTest::mousePress(w_.window->Button("cmd1Frac"), Qt::LeftButton);
    const QString text = w_.window->WorkSpace()->HiddenText();
    QVERIFY(text.contains(
        QStringLiteral("   - Find the lowest common denominator, namely @x*(x+1)@ .")));
    QCOMPARE(QString::fromStdString(w_.session->Pool[kLeftRoot].Text),
             QStringLiteral("(2*x+1)/x/(x+1)"));
  }

  void AddFractionsTellsASimplificationInAHintBox() {
    QString hint;
    WhenModal([&hint](QWidget* modal) {
      auto* view = modal->findChild<WorkSpaceView*>();
      hint = view != nullptr ? view->HiddenText() : QString();
      QTest::keyClick(modal, Qt::Key_Escape);
    });
    w_.window->EquationBox()->setEditText(QStringLiteral("x+x"));
    w_.window->LoadTyped(false);
    QTest::mousePress(w_.window->Button("cmd1Frac"), Qt::LeftButton);
    QCOMPARE(hint, QStringLiteral("Note:  The expression can be simplified like this:\n\n"
                                  "@x+x->2*x@  \n\nThere are no fractions to add.\n"));
    QCOMPARE(QString::fromStdString(w_.session->Pool[kLeftRoot].Text), QStringLiteral("x+x"));
  }

  void MathematicsSitsOnTheBaselineOfTheText() {
    WorkSpaceView* view = w_.window->WorkSpace();
    view->Clear();
    const auto text = [](const char* t) {
      RichRun run;
      run.text = t;
      run.format = TextFormat::Parse("FFF0", 12.0f);
      return run;
    };
    const auto picture = [this](const char* t) {
      RichRun run;
      run.kind = RunKind::Picture;
      run.picture = DrawExpression(*w_.session, w_.frontend->Metrics(), t);
      return run;
    };
    view->Append(text("HHHH "));
    view->Append(picture("1/2"));
    view->Append(text(" HHHH "));
    view->Append(picture("x^2"));
    view->Append(text(" HHHH"));
    QApplication::processEvents();
    const QImage image = view->viewport()->grab().toImage();
    const auto x_of = [view](int position) {
      QTextCursor cursor(view->document());
      cursor.setPosition(position);
      return view->cursorRect(cursor).x();
    };
    const int h_start = x_of(0);
    const int h_end = x_of(4);
    const int baseline = LowestDarkRow(image, h_start, h_end, 0, image.height());
    QVERIFY(baseline > 0);
    // The fraction's rule lies on the baseline of the text.
    const int fraction_start = x_of(5);
    const int fraction_end = x_of(6);
    const int rule = RuleRow(image, fraction_start, fraction_end, 0, image.height());
    QVERIFY2(std::abs(rule - baseline) <= 1,
             qPrintable(QStringLiteral("rule %1, baseline %2").arg(rule).arg(baseline)));
    // The base of the power stands on the baseline, its exponent above.
    const int power_start = x_of(12);
    const int power_end = x_of(13);
    const int base_left = power_start + (power_end - power_start) / 3;
    const int base_bottom = LowestDarkRow(image, power_start, base_left, 0, image.height());
    QVERIFY2(std::abs(base_bottom - baseline) <= 1,
             qPrintable(QStringLiteral("base %1, baseline %2").arg(base_bottom).arg(baseline)));
    const int exponent_bottom =
        LowestDarkRow(image, base_left + (power_end - base_left) / 2, power_end, 0, image.height());
    QVERIFY(exponent_bottom < baseline - 3);
  }

  void CopyingWritesTheMathematicsOut() {
    w_.window->EquationBox()->setEditText(QStringLiteral("x^2/(x+1)=3"));
    w_.window->LoadTyped(false);
    w_.window->WorkSpace()->selectAll();
    w_.window->WorkSpace()->copy();
    QCOMPARE(QApplication::clipboard()->text(),
             QStringLiteral("\nConsider  the equation  x^2/(x+1)=3  \n"));
  }

  void ExportKeepsThePictures() {
    w_.window->EquationBox()->setEditText(QStringLiteral("1/2+x^2"));
    w_.window->LoadTyped(false);
    QTemporaryDir dir;
    const QString html = dir.filePath(QStringLiteral("work.html"));
    QVERIFY(w_.window->WorkSpace()->ExportHtml(html));
    QFile file(html);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QString page = QString::fromUtf8(file.readAll());
    QVERIFY(page.contains(QStringLiteral("Consider")));
    QVERIFY(page.contains(QStringLiteral("alt=\"1/2+x^2\"")));
    QVERIFY(page.contains(QStringLiteral("data:image/png;base64,")));
    const QString pdf = dir.filePath(QStringLiteral("work.pdf"));
    QVERIFY(w_.window->WorkSpace()->ExportPdf(pdf));
    QVERIFY(QFileInfo(pdf).size() > 1000);
  }

  void ScreenshotProgramSavesTheWindow() {
    QTemporaryDir dir;
    const QString png = dir.filePath(QStringLiteral("shot.png"));
    QProcess program;
    program.start(QStringLiteral(TAVIMOR_WINDOW_PROGRAM),
                  {QStringLiteral("--screenshot"), png, QStringLiteral("x+x=(4)"),
                   QStringLiteral("left"), QStringLiteral("simplify")});
    QVERIFY(program.waitForFinished(30000));
    QCOMPARE(program.exitCode(), 0);
    QImage image(png);
    QVERIFY(!image.isNull());
    QVERIFY(image.width() >= 760 && image.height() >= 480);
    // The work space holds dark ink: the window was drawn, not left empty.
    int dark = 0;
    for (int y = 0; y < image.height(); y += 2) {
      for (int x = 0; x < image.width(); x += 2) dark += Dark(image.pixel(x, y)) ? 1 : 0;
    }
    QVERIFY(dark > 500);
  }

  // A screenshot run with a question or a message on the way finishes, writes the picture and
  // tells on standard error what a modal form would have shown.
  void ScreenshotNeverWaitsForAnAnswer() {
    QTemporaryDir dir;
    const auto run = [&dir](const QStringList& words, QString& told) {
      const QString png = dir.filePath(QStringLiteral("shot.png"));
      QFile::remove(png);
      QProcess program;
      program.start(QStringLiteral(TAVIMOR_WINDOW_PROGRAM),
                    QStringList{QStringLiteral("--screenshot"), png} + words);
      const bool finished = program.waitForFinished(20000);
      if (!finished) program.kill();
      told = QString::fromUtf8(program.readAllStandardError());
      return finished && program.exitCode() == 0 && !QImage(png).isNull();
    };
    QString told;
    QVERIFY(run({QStringLiteral("2x+")}, told));
    QVERIFY2(told.contains(QStringLiteral("Invalid symbol + at end of expression.")),
             qPrintable(told));
    QVERIFY(run({QStringLiteral("x+y"), QStringLiteral("evaluate")}, told));
    QVERIFY2(told.contains(QStringLiteral("Values of the letters")), qPrintable(told));
    QVERIFY(run({QStringLiteral("x/0"), QStringLiteral("simplify")}, told));
    QVERIFY2(told.contains(QStringLiteral("divide by 0")), qPrintable(told));
  }

  // The same answers inside the window: no modal form is opened.
  void UnattendedFrontEndAnswersWithTheDefaults() {
    w_.frontend->SetUnattended(true);
    QCOMPARE(w_.frontend->AskText("Enter the letter of the unknown", "x"),
             std::optional<std::string>("x"));
    QVERIFY(!w_.frontend->AskYesNo("Really want to stop AutoSolve?"));
    QCOMPARE(w_.frontend->WaitButton("", 0, 0), PauseInput::Continue);
    QCOMPARE(w_.frontend->AskValues({"x"}, {"2"}), std::optional<std::vector<std::string>>({"2"}));
    QVERIFY(!w_.frontend->AskValues({"x", "y"}, {"2", ""}).has_value());
    w_.frontend->ShowMessageBox("Error in Simplify.", 2, MessageIcon::Critical);
    QCOMPARE(QApplication::activeModalWidget(), nullptr);
  }

 private:
  WindowUnderTest w_;
};

}  // namespace tavimor

QTEST_MAIN(tavimor::MainWindowTest)
#include "main_window_test.moc"
