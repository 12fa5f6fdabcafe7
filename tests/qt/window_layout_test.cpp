// The window's fit and its boxes, offscreen: what the Problem box shows after Next, the status
// bar and the topics at the first-run size, the Options dialog on a small screen, the form's size
// from the settings kept within the screen.
#include <QApplication>
#include <QFile>
#include <QLineEdit>
#include <QListWidget>
#include <QScreen>
#include <QScrollArea>
#include <QSet>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTest>
#include <limits>

#include "qt/main_window.h"
#include "qt/options_dialog.h"
#include "qt/qt_frontend.h"
#include "shell/main_flow.h"
#include "shell/settings.h"
#include "support/window_fixture.h"

namespace tavimor {

class WindowLayoutTest : public QObject {
  Q_OBJECT

 private slots:
  void init() {
    w_.Open();
    QVERIFY(QTest::qWaitForWindowExposed(w_.window.get()));
  }

  void cleanup() { w_.Close(); }

  void NextShowsTheNewProblemInTheBox() {
    QTemporaryDir dir;
    QVERIFY(w_.window->OpenFile(WriteTestFile(dir, QStringLiteral("three.txt"),
                                              "Eqn:x+1=2\r\nComment:\r\nEqn:2*x=6\r\nComment:\r\n"
                                              "Eqn:x-5=1\r\nComment:\r\n")));
    QCOMPARE(w_.window->EquationBox()->currentText(), QStringLiteral("x+1=2"));
    w_.window->LoadTyped(false);
    w_.window->LoadNext(false);  // what the Next button runs
    QCOMPARE(w_.window->EquationBox()->currentText(), QStringLiteral("2*x=6"));
    QVERIFY(w_.window->WorkSpace()->HiddenText().endsWith(QStringLiteral("@2*x=6@  \n")));
    w_.window->LoadNext(false);
    QCOMPARE(w_.window->EquationBox()->currentText(), QStringLiteral("x-5=1"));
    QCOMPARE(w_.window->EquationBox()->currentIndex(), 2);
    // What OK loads now is the problem the box shows.
    w_.window->LoadTyped(false);
    QVERIFY(w_.window->WorkSpace()->HiddenText().endsWith(QStringLiteral("@x-5=1@  \n")));
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

  void StatusPanelsAreWholeAtTheFirstRunSize() {
    w_.window->resize(FormSizeOnScreen(12120.0f, 9480.0f, QSize(1366, 768)));
    w_.window->EquationBox()->setEditText(QStringLiteral("x^2+2x+1=0"));
    w_.window->LoadTyped(false);
    QApplication::processEvents();
    for (int i = 1; i <= 9; ++i) {
      StatusPanel* panel = w_.window->Status(i);
      QVERIFY(panel->isVisible());
      const QRect where(panel->mapTo(w_.window.get(), QPoint(0, 0)), panel->size());
      QVERIFY2(panel->width() >= panel->sizeHint().width(), qPrintable(panel->text()));
      QVERIFY2(where.right() < w_.window->width() && where.bottom() < w_.window->height(),
               qPrintable(panel->text()));
    }
  }

  void StatusPanelsSayWhatAClickChanges() {
    QSet<QString> tips;
    for (int i = 1; i <= 9; ++i) {
      const QString tip = w_.window->Status(i)->toolTip();
      QVERIFY(tip.startsWith(QStringLiteral("Click to ")));
      tips.insert(tip);
    }
    QCOMPARE(tips.size(), 9);
    QVERIFY(w_.window->Status(4)->toolTip().contains(QStringLiteral("degrees and radians")));
    QVERIFY(w_.window->Status(6)->toolTip().contains(QStringLiteral("unknown")));
  }

  void TopicsPanelShowsWholeHeadings() {
    w_.window->resize(FormSizeOnScreen(12120.0f, 9480.0f, QSize(1366, 768)));
    QTemporaryDir dir;
    const QByteArray sub = "Equations with radicals and rational exponents on both sides";
    QVERIFY(
        w_.window->OpenFile(WriteTestFile(dir, QStringLiteral("long.txt"),
                                          "Topic:Solving equations of every kind\r\nComment:\r\n"
                                          "SubTop:" +
                                              sub +
                                              "\r\nComment:\r\n"
                                              "Eqn:x+3=7\r\nComment:\r\n")));
    QListWidget* topics = w_.window->Topics()->Topics();
    emit topics->itemEntered(topics->item(0));
    QApplication::processEvents();
    for (QListWidget* list : {topics, w_.window->Topics()->SubTopics()}) {
      QListWidgetItem* item = list->item(0);
      const QRect rect = list->visualItemRect(item);
      QVERIFY2(rect.width() >= list->fontMetrics().horizontalAdvance(item->text()),
               qPrintable(item->text()));
      QVERIFY2(list->viewport()->rect().contains(rect), qPrintable(item->text()));
    }
  }

  void OptionsDialogFitsASmallScreen() {
    OptionsDialog dialog(*w_.session, w_.window.get());
    dialog.show();
    QApplication::processEvents();
    const QRect available = dialog.screen()->availableGeometry();
    QVERIFY(dialog.height() <= available.height());
    QVERIFY(dialog.width() <= available.width());
    // On a screen 768 pixels high, less a title bar and a task bar, every frame shows at once.
    auto* scroll = dialog.findChild<QScrollArea*>();
    QVERIFY(scroll != nullptr);
    const int buttons = dialog.height() - scroll->height();
    QVERIFY2(scroll->widget()->sizeHint().height() + buttons <= 768 - 90,
             qPrintable(QString::number(scroll->widget()->sizeHint().height() + buttons)));
  }

 private:
  WindowUnderTest w_;
};

}  // namespace tavimor

QTEST_MAIN(tavimor::WindowLayoutTest)
#include "window_layout_test.moc"
