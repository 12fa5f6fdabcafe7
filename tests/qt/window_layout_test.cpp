// The window's fit and its boxes, offscreen: what the Problem box shows after Next, the status
// bar and the topics at the first-run size, the Options dialog on a small screen, the form's size
// from the settings kept within the screen.
#include <QApplication>
#include <QFile>
#include <QLineEdit>
#include <QListWidget>
#include <QScreen>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTest>
#include <limits>

#include "qt/main_window.h"
#include "qt/options_dialog.h"
#include "qt/qt_frontend.h"
#include "shell/main_flow.h"
#include "shell/settings.h"

namespace tavimor {

namespace {

QString Write(const QTemporaryDir& dir, const QString& name, const QByteArray& bytes) {
  const QString path = dir.filePath(name);
  QFile file(path);
  file.open(QIODevice::WriteOnly);
  file.write(bytes);
  return path;
}

}  // namespace

class WindowLayoutTest : public QObject {
  Q_OBJECT

 private slots:
  void init() {
    frontend_ = std::make_unique<QtFrontend>();
    session_ = std::make_unique<Session>(*frontend_);
    session_->SetFirstRunOptions();
    StartUp(*session_, ".");
    window_ = std::make_unique<MainWindow>(*session_);
    frontend_->SetWindow(window_.get());
    window_->show();
    QVERIFY(QTest::qWaitForWindowExposed(window_.get()));
  }

  void cleanup() {
    window_.reset();
    session_.reset();
    frontend_.reset();
  }

  void NextShowsTheNewProblemInTheBox() {
    QTemporaryDir dir;
    QVERIFY(window_->OpenFile(Write(dir, QStringLiteral("three.txt"),
                                    "Eqn:x+1=2\r\nComment:\r\nEqn:2*x=6\r\nComment:\r\n"
                                    "Eqn:x-5=1\r\nComment:\r\n")));
    QCOMPARE(window_->EquationBox()->currentText(), QStringLiteral("x+1=2"));
    window_->LoadTyped(false);
    window_->LoadNext(false);  // what the Next button runs
    QCOMPARE(window_->EquationBox()->currentText(), QStringLiteral("2*x=6"));
    QVERIFY(window_->WorkSpace()->HiddenText().endsWith(QStringLiteral("@2*x=6@  \n")));
    window_->LoadNext(false);
    QCOMPARE(window_->EquationBox()->currentText(), QStringLiteral("x-5=1"));
    QCOMPARE(window_->EquationBox()->currentIndex(), 2);
    // What OK loads now is the problem the box shows.
    window_->LoadTyped(false);
    QVERIFY(window_->WorkSpace()->HiddenText().endsWith(QStringLiteral("@x-5=1@  \n")));
  }

  void HugeSavedFormSizeIsKeptWithinTheScreen() {
    MemorySettings store;
    store.Set("Parameters", "Unknown", "x");
    store.Set("Parameters", "Form width", "1000000");
    store.Set("Parameters", "Form height", "1000000");
    QtFrontend frontend;
    Session s(frontend);
    s.SetFirstRunOptions();
    StartUp(s, ".");
    MainWindow window(s, &store, ".");
    window.show();
    const QRect available = window.screen()->availableGeometry();
    QVERIFY(window.width() <= available.width());
    QVERIFY(window.height() <= available.height());
    QVERIFY(available.contains(window.geometry().topLeft()));
    QVERIFY(s.FormWidth <= static_cast<float>(available.width() * 15));
  }

  void FormSizeOnScreenKeepsWithinTheScreenAndAboveTheLeast() {
    const QSize screen(1366, 768);
    QCOMPARE(FormSizeOnScreen(12120.0f, 9480.0f, screen), QSize(808, 632));
    QCOMPARE(FormSizeOnScreen(1000000.0f, 1000000.0f, screen), screen);
    QCOMPARE(FormSizeOnScreen(1.0f, 1.0f, screen), QSize(760, 480));
    QCOMPARE(FormSizeOnScreen(std::numeric_limits<float>::quiet_NaN(), -5.0f, screen),
             QSize(760, 480));
    QCOMPARE(FormSizeOnScreen(12120.0f, 9480.0f, QSize(640, 400)), QSize(640, 400));
  }

 private:
  std::unique_ptr<QtFrontend> frontend_;
  std::unique_ptr<Session> session_;
  std::unique_ptr<MainWindow> window_;
};

}  // namespace tavimor

QTEST_MAIN(tavimor::WindowLayoutTest)
#include "window_layout_test.moc"
