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

namespace tavimor {

namespace {

void WhenModal(std::function<void(QWidget*)> act) {
  QTimer::singleShot(0, [act] {
    QWidget* modal = QApplication::activeModalWidget();
    if (modal == nullptr) {
      WhenModal(act);
      return;
    }
    act(modal);
  });
}

QString Write(const QTemporaryDir& dir, const QString& name, const QByteArray& bytes) {
  const QString path = dir.filePath(name);
  QFile file(path);
  file.open(QIODevice::WriteOnly);
  file.write(bytes);
  return path;
}

}  // namespace

class FilesAndOptionsTest : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase() { QStandardPaths::setTestModeEnabled(true); }

  void init() {
    frontend_ = std::make_unique<QtFrontend>();
    session_ = std::make_unique<Session>(*frontend_);
    session_->SetFirstRunOptions();
    StartUp(*session_, ".");
    window_ = std::make_unique<MainWindow>(*session_, &store_, dir_.path().toStdString());
    frontend_->SetWindow(window_.get());
    window_->show();
  }

  void cleanup() {
    window_.reset();
    session_.reset();
    frontend_.reset();
  }

  void FirstRunOffersTheSamplesAsRecentFiles() {
    QCOMPARE(window_->RecentFiles()[0], dir_.path().toStdString() + "/samples.txt");
    QCOMPARE(window_->RecentFiles()[1], dir_.path().toStdString() + "/trig ids.txt");
  }

  void DetailShowingOnlyTheResultDisablesStreaming() {
    OptionsDialog dialog(*session_, window_.get());
    dialog.Detail()->button(0)->setChecked(true);
    QVERIFY(!dialog.Stream()->button(0)->isEnabled());
    dialog.Detail()->button(1)->setChecked(true);
    QVERIFY(dialog.Stream()->button(0)->isEnabled());
  }

  void DegreesDisableTheDegreeLetter() {
    OptionsDialog dialog(*session_, window_.get());
    dialog.Degrees()->setChecked(true);
    QVERIFY(!dialog.SpecialD()->isEnabled());
    dialog.Radians()->setChecked(true);
    QVERIFY(dialog.SpecialD()->isEnabled());
  }

  void CaptionsShowTheDecimalComma() {
    session_->DecimalPoint = ",";
    OptionsDialog dialog(*session_, window_.get());
    QCOMPARE(dialog.SpecialE()->text(), QStringLiteral("e=2,718..."));
    QCOMPARE(dialog.SpecialP()->text(), QStringLiteral("p=3,14..."));
    QCOMPARE(dialog.SpecialD()->text(), QStringLiteral("d=3,14.../180"));
  }

  void CapitalZIsTheLastOfFiftyTwoLetters() {
    session_->Unknown = "Z";
    OptionsDialog dialog(*session_, window_.get());
    QCOMPARE(dialog.Unknown()->count(), 52);
    QCOMPARE(dialog.Unknown()->currentIndex(), 51);
  }

  void CloseAcceptsCancelKeepsFactoryResets() {
    session_->SigFigs = 5;
    {
      OptionsDialog dialog(*session_, window_.get());
      dialog.SigFigs()->setCurrentIndex(6);
      dialog.CancelButton()->click();
    }
    QCOMPARE(session_->SigFigs, std::int16_t{5});
    {
      OptionsDialog dialog(*session_, window_.get());
      dialog.SigFigs()->setCurrentIndex(6);
      dialog.Detail()->button(0)->setChecked(true);
      dialog.CloseButton()->click();
    }
    QCOMPARE(session_->SigFigs, std::int16_t{7});
    QCOMPARE(session_->SolveDetail, std::int16_t{0});
    QCOMPARE(session_->Form.status_panels[0], std::string("show result only "));
    {
      OptionsDialog dialog(*session_, window_.get());
      dialog.FactoryButton()->click();
      QCOMPARE(dialog.SigFigs()->currentIndex(), 2);
      dialog.CloseButton()->click();
    }
    QCOMPARE(session_->SigFigs, std::int16_t{3});
  }

  void OpeningAFileShowsItsTopicsAndARecentEntry() {
    QTemporaryDir dir;
    const QString path = Write(dir, QStringLiteral("course.txt"),
                               "Topic:Linear\r\nComment:\r\nSubTop:One step\r\nComment:\r\n"
                               "Eqn:x+3=7\r\nComment:Subtract 3.\r\nEqn:2*x=6\r\nComment:\r\n");
    QVERIFY(window_->OpenFile(path));
    QVERIFY(window_->TopicsShown());
    QCOMPARE(window_->Topics()->Topics()->count(), 1);
    QCOMPARE(window_->RecentFiles()[0], path.toStdString());
    QVERIFY(window_->windowTitle().endsWith(path));
    // Hovering the topic shows its subtopic; a click on it loads its problems.
    QListWidget* topics = window_->Topics()->Topics();
    emit topics->itemEntered(topics->item(0));
    QCOMPARE(window_->Topics()->SubTopics()->count(), 1);
    QListWidget* subtopics = window_->Topics()->SubTopics();
    emit subtopics->itemClicked(subtopics->item(0));
    QVERIFY(!window_->TopicsShown());
    QVERIFY(window_->EquationHeading()->text().contains(QStringLiteral("Linear")));
    QVERIFY(window_->EquationHeading()->text().contains(QStringLiteral("One step")));
    QCOMPARE(window_->EquationBox()->count(), 2);
    QCOMPARE(window_->EquationBox()->currentText(), QStringLiteral("x+3=7"));
  }

  void TopicsStandInColumnsOfTwelveAndSubtopicsOfEight() {
    QTemporaryDir dir;
    QByteArray bytes;
    for (int i = 1; i <= 14; ++i) bytes += "Topic:T" + QByteArray::number(i) + "\r\nComment:\r\n";
    for (int i = 1; i <= 10; ++i) bytes += "SubTop:S" + QByteArray::number(i) + "\r\nComment:\r\n";
    QVERIFY(window_->OpenFile(Write(dir, QStringLiteral("many.txt"), bytes)));
    QApplication::processEvents();
    QListWidget* topics = window_->Topics()->Topics();
    const QRect first = topics->visualItemRect(topics->item(0));
    QCOMPARE(topics->visualItemRect(topics->item(11)).x(), first.x());
    QVERIFY(topics->visualItemRect(topics->item(12)).x() >= first.x() + first.width());
    emit topics->itemEntered(topics->item(13));
    QApplication::processEvents();
    QListWidget* subtopics = window_->Topics()->SubTopics();
    QCOMPARE(subtopics->count(), 10);
    const QRect sub = subtopics->visualItemRect(subtopics->item(0));
    QCOMPARE(subtopics->visualItemRect(subtopics->item(7)).x(), sub.x());
    QVERIFY(subtopics->visualItemRect(subtopics->item(8)).x() >= sub.x() + sub.width());
  }

  void AFileThatCannotBeReadIsToldAndLeavesNoName() {
    QTemporaryDir dir;
    const QString path = Write(dir, QStringLiteral("bad.txt"), "Hello\r\n");
    QString told;
    WhenModal([&told](QWidget* modal) {
      told = qobject_cast<QMessageBox*>(modal)->text();
      QTest::keyClick(modal, Qt::Key_Escape);
    });
    QVERIFY(!window_->OpenFile(path));
    QVERIFY(told.contains(QStringLiteral("not an algebra file")));
    QCOMPARE(session_->FileName, std::string());
    QFile original(path);
    original.open(QIODevice::ReadOnly);
    QCOMPARE(original.readAll(), QByteArray("Hello\r\n"));
  }

  void SaveAsWritesTheListAndNamesIt() {
    QTemporaryDir dir;
    window_->EquationBox()->setEditText(QStringLiteral("x=1"));
    window_->LoadTyped(false);
    const QString path = dir.filePath(QStringLiteral("mine.txt"));
    QVERIFY(window_->FileSaveAs(path));
    QFile saved(path);
    QVERIFY(saved.open(QIODevice::ReadOnly));
    QCOMPARE(saved.readAll(), QByteArray("Eqn:x=1\r\nComment:\r\n"));
    QCOMPARE(session_->FileName, path.toStdString());
    QVERIFY(!HasUnsavedChanges(*session_));
  }

  void ARecentFileThatIsGoneIsSaid() {
    QTemporaryDir dir;
    const QString path = Write(dir, QStringLiteral("gone.txt"), "Eqn:x=1\r\nComment:\r\n");
    QVERIFY(window_->OpenFile(path));
    QFile::remove(path);
    QString told;
    WhenModal([&told](QWidget* modal) {
      told = qobject_cast<QMessageBox*>(modal)->text();
      QTest::keyClick(modal, Qt::Key_Escape);
    });
    QVERIFY(!window_->OpenRecent(1));
    QCOMPARE(told, QStringLiteral("File no longer exists."));
  }

  void NewProblemThenExitAsksToSaveTheNamedFile() {
    QTemporaryDir dir;
    QVERIFY(window_->OpenFile(Write(dir, QStringLiteral("named.txt"), "Eqn:x=1\r\nComment:\r\n")));
    window_->EquationBox()->setEditText(QStringLiteral("x=3"));
    window_->LoadTyped(false);
    QString asked;
    WhenModal([&asked](QWidget* modal) {
      auto* box = qobject_cast<QMessageBox*>(modal);
      asked = box->text();
      box->button(QMessageBox::Cancel)->click();
    });
    QVERIFY(!window_->close());  // cancel keeps the program running
    QCOMPARE(asked, QStringLiteral("The algebra file has changed.  Save the changes?"));
    WhenModal([](QWidget* modal) {
      qobject_cast<QMessageBox*>(modal)->button(QMessageBox::No)->click();
    });
    QVERIFY(window_->close());
    QCOMPARE(store_.Get("Parameters", "Unknown").value_or(""), std::string("x"));  // settings saved
  }

  void WelcomeScreenButtonClearsTheFlag() {
    QVERIFY(session_->ShowWelcomeScreen);
    WhenModal([](QWidget* modal) {
      for (QPushButton* button : modal->findChildren<QPushButton*>()) {
        if (button->text() == QStringLiteral("Got it.  Don't show this screen again."))
          button->click();
      }
    });
    window_->ShowWelcomeIfWanted();
    QVERIFY(!session_->ShowWelcomeScreen);
  }

  void NewProblemThenNewFileAsksToSave() {
    window_->EquationBox()->setEditText(QStringLiteral("x=2"));
    window_->LoadTyped(false);
    QString asked;
    WhenModal([&asked](QWidget* modal) {
      auto* box = qobject_cast<QMessageBox*>(modal);
      asked = box->text();
      box->button(QMessageBox::Cancel)->click();
    });
    QVERIFY(!window_->FileNew());
    QCOMPARE(asked, QStringLiteral("The contents of the Listbox has never been saved.  Save it?"));
    QVERIFY(HasUnsavedChanges(*session_));
  }

 private:
  QTemporaryDir dir_;
  MemorySettings store_;
  std::unique_ptr<QtFrontend> frontend_;
  std::unique_ptr<Session> session_;
  std::unique_ptr<MainWindow> window_;
};

}  // namespace tavimor

QTEST_MAIN(tavimor::FilesAndOptionsTest)
#include "files_and_options_test.moc"
