// The window's files and options driven offscreen: the Options dialog's controls and enabling
// rules, opening, saving and the recent files, the topics of a file, the unsaved-changes prompt.
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QMessageBox>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <functional>

#include "qt/main_window.h"
#include "qt/options_dialog.h"
#include "qt/qt_frontend.h"
#include "shell/main_flow.h"
#include "shell/status_bar.h"
#include "support/window_fixture.h"

namespace tavimor {

class FilesAndOptionsTest : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase() { QStandardPaths::setTestModeEnabled(true); }

  void init() { w_.Open(&store_, dir_.path().toStdString()); }

  void cleanup() { w_.Close(); }

  void FirstRunOffersTheSamplesAsRecentFiles() {
    QCOMPARE(w_.window->RecentFiles()[0], dir_.path().toStdString() + "/samples.txt");
    QCOMPARE(w_.window->RecentFiles()[1], dir_.path().toStdString() + "/trig ids.txt");
  }

  void DetailShowingOnlyTheResultDisablesStreaming() {
    OptionsDialog dialog(*w_.session, w_.window.get());
    dialog.Detail()->button(0)->setChecked(true);
    QVERIFY(!dialog.Stream()->button(0)->isEnabled());
    dialog.Detail()->button(1)->setChecked(true);
    QVERIFY(dialog.Stream()->button(0)->isEnabled());
  }

  void DegreesDisableTheDegreeLetter() {
    OptionsDialog dialog(*w_.session, w_.window.get());
    dialog.Degrees()->setChecked(true);
    QVERIFY(!dialog.SpecialD()->isEnabled());
    dialog.Radians()->setChecked(true);
    QVERIFY(dialog.SpecialD()->isEnabled());
  }

  void CaptionsShowTheDecimalComma() {
    w_.session->DecimalPoint = ",";
    OptionsDialog dialog(*w_.session, w_.window.get());
    QCOMPARE(dialog.SpecialE()->text(), QStringLiteral("e=2,718..."));
    QCOMPARE(dialog.SpecialP()->text(), QStringLiteral("p=3,14..."));
    QCOMPARE(dialog.SpecialD()->text(), QStringLiteral("d=3,14.../180"));
  }

  void CapitalZIsTheLastOfFiftyTwoLetters() {
    w_.session->Unknown = "Z";
    OptionsDialog dialog(*w_.session, w_.window.get());
    QCOMPARE(dialog.Unknown()->count(), 52);
    QCOMPARE(dialog.Unknown()->currentIndex(), 51);
  }

  void CloseAcceptsCancelKeepsFactoryResets() {
    w_.session->SigFigs = 5;
    {
      OptionsDialog dialog(*w_.session, w_.window.get());
      dialog.SigFigs()->setCurrentIndex(6);
      dialog.CancelButton()->click();
    }
    QCOMPARE(w_.session->SigFigs, std::int16_t{5});
    {
      OptionsDialog dialog(*w_.session, w_.window.get());
      dialog.SigFigs()->setCurrentIndex(6);
      dialog.Detail()->button(0)->setChecked(true);
      dialog.CloseButton()->click();
    }
    QCOMPARE(w_.session->SigFigs, std::int16_t{7});
    QCOMPARE(w_.session->SolveDetail, std::int16_t{0});
    QCOMPARE(w_.session->Form.status_panels[0], std::string("show result only "));
    {
      OptionsDialog dialog(*w_.session, w_.window.get());
      dialog.FactoryButton()->click();
      QCOMPARE(dialog.SigFigs()->currentIndex(), 2);
      dialog.CloseButton()->click();
    }
    QCOMPARE(w_.session->SigFigs, std::int16_t{3});
  }

  void OpeningAFileShowsItsTopicsAndARecentEntry() {
    QTemporaryDir dir;
    const QString path =
        WriteTestFile(dir, QStringLiteral("course.txt"),
                      "Topic:Linear\r\nComment:\r\nSubTop:One step\r\nComment:\r\n"
                      "Eqn:x+3=7\r\nComment:Subtract 3.\r\nEqn:2*x=6\r\nComment:\r\n");
    QVERIFY(w_.window->OpenFile(path));
    QVERIFY(w_.window->TopicsShown());
    QCOMPARE(w_.window->Topics()->Topics()->count(), 1);
    QCOMPARE(w_.window->RecentFiles()[0], path.toStdString());
    QVERIFY(w_.window->windowTitle().endsWith(path));
    // Hovering the topic shows its subtopic; a click on it loads its problems.
    QListWidget* topics = w_.window->Topics()->Topics();
    emit topics->itemEntered(topics->item(0));
    QCOMPARE(w_.window->Topics()->SubTopics()->count(), 1);
    QListWidget* subtopics = w_.window->Topics()->SubTopics();
    emit subtopics->itemClicked(subtopics->item(0));
    QVERIFY(!w_.window->TopicsShown());
    QVERIFY(w_.window->EquationHeading()->text().contains(QStringLiteral("Linear")));
    QVERIFY(w_.window->EquationHeading()->text().contains(QStringLiteral("One step")));
    QCOMPARE(w_.window->EquationBox()->count(), 2);
    QCOMPARE(w_.window->EquationBox()->currentText(), QStringLiteral("x+3=7"));
  }

  void TopicsStandInColumnsOfTwelveAndSubtopicsOfEight() {
    QTemporaryDir dir;
    QByteArray bytes;
    for (int i = 1; i <= 14; ++i) bytes += "Topic:T" + QByteArray::number(i) + "\r\nComment:\r\n";
    for (int i = 1; i <= 10; ++i) bytes += "SubTop:S" + QByteArray::number(i) + "\r\nComment:\r\n";
    QVERIFY(w_.window->OpenFile(WriteTestFile(dir, QStringLiteral("many.txt"), bytes)));
    QApplication::processEvents();
    QListWidget* topics = w_.window->Topics()->Topics();
    const QRect first = topics->visualItemRect(topics->item(0));
    QCOMPARE(topics->visualItemRect(topics->item(11)).x(), first.x());
    QVERIFY(topics->visualItemRect(topics->item(12)).x() >= first.x() + first.width());
    emit topics->itemEntered(topics->item(13));
    QApplication::processEvents();
    QListWidget* subtopics = w_.window->Topics()->SubTopics();
    QCOMPARE(subtopics->count(), 10);
    const QRect sub = subtopics->visualItemRect(subtopics->item(0));
    QCOMPARE(subtopics->visualItemRect(subtopics->item(7)).x(), sub.x());
    QVERIFY(subtopics->visualItemRect(subtopics->item(8)).x() >= sub.x() + sub.width());
  }

  void AFileThatCannotBeReadIsToldAndLeavesNoName() {
    QTemporaryDir dir;
    const QString path = WriteTestFile(dir, QStringLiteral("bad.txt"), "Hello\r\n");
    QString told;
    WhenModal([&told](QWidget* modal) {
      told = qobject_cast<QMessageBox*>(modal)->text();
      QTest::keyClick(modal, Qt::Key_Escape);
    });
    QVERIFY(!w_.window->OpenFile(path));
    QVERIFY(told.contains(QStringLiteral("not an algebra file")));
    QCOMPARE(w_.session->FileName, std::string());
    QFile original(path);
    original.open(QIODevice::ReadOnly);
    QCOMPARE(original.readAll(), QByteArray("Hello\r\n"));
  }

  void SaveAsWritesTheListAndNamesIt() {
    QTemporaryDir dir;
    w_.window->EquationBox()->setEditText(QStringLiteral("x=1"));
    w_.window->LoadTyped(false);
    const QString path = dir.filePath(QStringLiteral("mine.txt"));
    QVERIFY(w_.window->FileSaveAs(path));
    QFile saved(path);
    QVERIFY(saved.open(QIODevice::ReadOnly));
    QCOMPARE(saved.readAll(), QByteArray("Eqn:x=1\r\nComment:\r\n"));
    QCOMPARE(w_.session->FileName, path.toStdString());
    QVERIFY(!HasUnsavedChanges(*w_.session));
  }

  void ARecentFileThatIsGoneIsSaid() {
    QTemporaryDir dir;
    const QString path = WriteTestFile(dir, QStringLiteral("gone.txt"), "Eqn:x=1\r\nComment:\r\n");
    QVERIFY(w_.window->OpenFile(path));
    QFile::remove(path);
    QString told;
    WhenModal([&told](QWidget* modal) {
      told = qobject_cast<QMessageBox*>(modal)->text();
      QTest::keyClick(modal, Qt::Key_Escape);
    });
    QVERIFY(!w_.window->OpenRecent(1));
    QCOMPARE(told, QStringLiteral("File no longer exists."));
  }

  void NewProblemThenExitAsksToSaveTheNamedFile() {
    QTemporaryDir dir;
    QVERIFY(w_.window->OpenFile(
        WriteTestFile(dir, QStringLiteral("named.txt"), "Eqn:x=1\r\nComment:\r\n")));
    w_.window->EquationBox()->setEditText(QStringLiteral("x=3"));
    w_.window->LoadTyped(false);
    QString asked;
    WhenModal([&asked](QWidget* modal) {
      auto* box = qobject_cast<QMessageBox*>(modal);
      asked = box->text();
      box->button(QMessageBox::Cancel)->click();
    });
    QVERIFY(!w_.window->close());  // cancel keeps the program running
    QCOMPARE(asked, QStringLiteral("The algebra file has changed.  Save the changes?"));
    WhenModal([](QWidget* modal) {
      qobject_cast<QMessageBox*>(modal)->button(QMessageBox::No)->click();
    });
    QVERIFY(w_.window->close());
    QCOMPARE(store_.Get("Parameters", "Unknown").value_or(""), std::string("x"));  // settings saved
  }

  void WelcomeScreenButtonClearsTheFlag() {
    QVERIFY(w_.session->ShowWelcomeScreen);
    WhenModal([](QWidget* modal) {
      for (QPushButton* button : modal->findChildren<QPushButton*>()) {
        if (button->text() == QStringLiteral("Got it.  Don't show this screen again."))
          button->click();
      }
    });
    w_.window->ShowWelcomeIfWanted();
    QVERIFY(!w_.session->ShowWelcomeScreen);
  }

  void NewProblemThenNewFileAsksToSave() {
    w_.window->EquationBox()->setEditText(QStringLiteral("x=2"));
    w_.window->LoadTyped(false);
    QString asked;
    WhenModal([&asked](QWidget* modal) {
      auto* box = qobject_cast<QMessageBox*>(modal);
      asked = box->text();
      box->button(QMessageBox::Cancel)->click();
    });
    QVERIFY(!w_.window->FileNew());
    QCOMPARE(asked, QStringLiteral("The contents of the Listbox has never been saved.  Save it?"));
    QVERIFY(HasUnsavedChanges(*w_.session));
  }

 private:
  QTemporaryDir dir_;
  MemorySettings store_;
  WindowUnderTest w_;
};

}  // namespace tavimor

QTEST_MAIN(tavimor::FilesAndOptionsTest)
#include "files_and_options_test.moc"
