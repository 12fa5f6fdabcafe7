// The window's help, tree view and message boxes, driven offscreen: the help browser with its
// pages, links, index and search, F1, the Help menu, a message box's Help button, the tree view.
#include <QAction>
#include <QDir>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeWidget>
#include <memory>

#include "qt/help_browser.h"
#include "qt/main_window.h"
#include "qt/qt_frontend.h"
#include "qt/tree_form.h"
#include "shell/help_topics.h"
#include "support/window_fixture.h"

namespace tavimor {

namespace {

bool EndsWith(const std::string& text, const std::string& end) {
  return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

QAction* MenuAction(QMainWindow* window, const QString& text) {
  for (QAction* menu : window->menuBar()->actions()) {
    if (menu->menu() == nullptr) continue;
    for (QAction* action : menu->menu()->actions()) {
      if (action->text() == text) return action;
    }
  }
  return nullptr;
}

}  // namespace

class HelpWindowTest : public QObject {
  Q_OBJECT

 private slots:
  // The program's folder of each test: a help topic map and a few pages of its own.
  void init() {
    dir_ = std::make_unique<QTemporaryDir>();
    QVERIFY(dir_->isValid());
    QVERIFY(QDir(dir_->path()).mkpath(QStringLiteral("help/algebra")));
    QVERIFY(QDir(dir_->path()).mkpath(QStringLiteral("help/program")));
    WriteTestFile(*dir_, QStringLiteral("Help topic locations.txt"),
                  "[the help systems]\nprogram help << 0\nalgebra help << 500\n"
                  "[root directory of each help system]\n"
                  "program help = \"<app dir>/help/program\"\n"
                  "algebra help = \"<app dir>/help/algebra\"\n"
                  "[algebra help]\n23 << 23.html\n24 << 24.html\n61 << 61.html\n"
                  "62 << 62.html   ' no page\n");
    WriteTestFile(*dir_, QStringLiteral("help/algebra/23.html"),
                  "<h1>Cancel a common factor</h1><p>@(2*x+4)/(x+2)@ becomes @2@.</p>"
                  "<p><a href=\"24.html\">Combine numbers</a></p>");
    WriteTestFile(*dir_, QStringLiteral("help/algebra/24.html"),
                  "<h1>Combine numbers</h1><p>@2+3@ becomes @5@.</p>");
    WriteTestFile(*dir_, QStringLiteral("help/algebra/61.html"),
                  "<h1>Power of a power</h1><p>The <b>product</b> of the exponents: @(x^2)^3@ "
                  "becomes @x^6@, as @3*2=6@.</p>");
    WriteTestFile(*dir_, QStringLiteral("help/program/index.html"),
                  "<h1>Using the tutor</h1><p>Type @2*x+3=7@ and press OK.</p>");
    w_.Open(nullptr, dir_->path().toStdString());
    QVERIFY(QTest::qWaitForWindowExposed(w_.window.get()));
  }

  void cleanup() {
    w_.Close();
    dir_.reset();
  }

  void HelpTopicMapIsReadBesideTheProgram() {
    QVERIFY(!w_.session->Help.HelpSystems.empty());
    QVERIFY(EndsWith(HelpPagePath(w_.session->Help, 61), "/help/algebra/61.html"));
  }

  void MessageBoxHasItsIconTitleAndHelpButton() {
    bool checked = false;
    WhenModal([this, &checked](QWidget* modal) {
      auto* box = qobject_cast<CustomMsgBox*>(modal);
      QVERIFY(box != nullptr);
      QCOMPARE(box->windowTitle(), QStringLiteral("The Tavimor"));
      QCOMPARE(box->icon(), QMessageBox::Information);
      QCOMPARE(box->text(), QStringLiteral("Error in input string."));
      QVERIFY(box->HelpButton()->isEnabled());
      // Help shows the page and leaves the box open.
      QTest::mouseClick(box->HelpButton(), Qt::LeftButton);
      HelpBrowser* browser = w_.frontend->HelpWindow();
      QVERIFY(browser != nullptr);
      QVERIFY(browser->isVisible());
      QVERIFY(EndsWith(browser->Location(), "/23.html"));
      QVERIFY(box->isVisible());
      browser->close();
      checked = true;
      box->button(QMessageBox::Ok)->click();
    });
    w_.frontend->ShowMessageBox("Error in input string.", 23, MessageIcon::Information);
    QVERIFY(checked);
  }

  void MessageBoxWithoutATopicHasItsHelpButtonGreyed() {
    bool checked = false;
    WhenModal([&checked](QWidget* modal) {
      auto* box = qobject_cast<CustomMsgBox*>(modal);
      QVERIFY(box != nullptr);
      QVERIFY(!box->HelpButton()->isEnabled());
      QCOMPARE(box->icon(), QMessageBox::Critical);
      checked = true;
      QTest::keyClick(modal, Qt::Key_Escape);
    });
    w_.frontend->ShowMessageBox("Error in DrawAnyExpression", 0, MessageIcon::Critical);
    QVERIFY(checked);
    QVERIFY(w_.frontend->HelpWindow() == nullptr);
  }

  void F1InTheMessageBoxShowsItsTopic() {
    WhenModal([this](QWidget* modal) {
      QTest::keyClick(modal, Qt::Key_F1);
      QVERIFY(w_.frontend->HelpWindow() != nullptr);
      QVERIFY(EndsWith(w_.frontend->HelpWindow()->Location(), "/61.html"));
      w_.frontend->HelpWindow()->close();
      qobject_cast<QMessageBox*>(modal)->button(QMessageBox::Ok)->click();
    });
    w_.frontend->ShowMessageBox("A message.", 61, MessageIcon::Exclamation);
  }

  void F1OpensThePageOfTheLastStep() {
    w_.window->EquationBox()->setEditText(QStringLiteral("(x^2)^3"));
    w_.window->LoadTyped(false);
    QTest::mousePress(w_.window->Button("cmdSimplify"), Qt::LeftButton);
    QCOMPARE(w_.session->HelpNumber, 61);
    w_.window->WorkSpace()->setFocus();
    QTest::keyClick(w_.window->WorkSpace(), Qt::Key_F1);
    HelpBrowser* browser = w_.frontend->HelpWindow();
    QVERIFY(browser != nullptr);
    QVERIFY(EndsWith(browser->Location(), "/61.html"));
    QCOMPARE(browser->Title(), QStringLiteral("Power of a power"));
    // The page's mathematics is typeset as pictures, its text as written.
    QVERIFY(browser->MathPictures() >= 3);
    QVERIFY(browser->View()->toPlainText().contains(QStringLiteral("product")));
    QVERIFY(!browser->View()->toPlainText().contains(QLatin1Char('@')));
  }

  void StepWithoutAPageOpensNothing() {
    w_.session->HelpNumber = 0;
    w_.window->WorkSpace()->setFocus();
    QTest::keyClick(w_.window->WorkSpace(), Qt::Key_F1);
    QVERIFY(w_.frontend->HelpWindow() == nullptr);
    w_.frontend->ShowHelp(9999);
    QVERIFY(w_.frontend->HelpWindow() == nullptr);
  }

  void BrowserFollowsLinksAndGoesBackAndForward() {
    w_.frontend->ShowHelp(23);
    HelpBrowser* browser = w_.frontend->HelpWindow();
    QVERIFY(browser != nullptr);
    emit browser->View()->anchorClicked(QUrl(QStringLiteral("24.html")));
    QVERIFY(EndsWith(browser->Location(), "/24.html"));
    QCOMPARE(browser->Title(), QStringLiteral("Combine numbers"));
    browser->Back();
    QVERIFY(EndsWith(browser->Location(), "/23.html"));
    browser->Forward();
    QVERIFY(EndsWith(browser->Location(), "/24.html"));
    // A link out of the help leads nowhere.
    emit browser->View()->anchorClicked(QUrl(QStringLiteral("https://example.org/")));
    QVERIFY(EndsWith(browser->Location(), "/24.html"));
  }

  void BrowserIndexListsEveryPageByItsTitle() {
    QAction* algebra = MenuAction(w_.window.get(), QStringLiteral("Help with algebra"));
    QVERIFY(algebra != nullptr);
    algebra->trigger();
    HelpBrowser* browser = w_.frontend->HelpWindow();
    QVERIFY(browser != nullptr);
    QCOMPARE(browser->Location(), std::string("index"));
    const QString text = browser->View()->toPlainText();
    QVERIFY(text.contains(QStringLiteral("Cancel a common factor")));
    QVERIFY(text.contains(QStringLiteral("Power of a power")));
    emit browser->View()->anchorClicked(QUrl(QStringLiteral("61.html")));
    QVERIFY(EndsWith(browser->Location(), "/61.html"));
  }

  void BrowserSearchesTitlesAndText() {
    w_.frontend->OpenAlgebraHelp();
    HelpBrowser* browser = w_.frontend->HelpWindow();
    QVERIFY(browser != nullptr);
    // A word of a page's text.
    QTest::keyClicks(browser->SearchBox(), QStringLiteral("exponents"));
    QTest::keyClick(browser->SearchBox(), Qt::Key_Return);
    QCOMPARE(browser->Location(), std::string("search:exponents"));
    QString text = browser->View()->toPlainText();
    QVERIFY(text.contains(QStringLiteral("Power of a power")));
    QVERIFY(!text.contains(QStringLiteral("Combine numbers")));
    // A word of a title.
    browser->Search(QStringLiteral("combine"));
    text = browser->View()->toPlainText();
    QVERIFY(text.contains(QStringLiteral("Combine numbers")));
    QVERIFY(!text.contains(QStringLiteral("Power of a power")));
    browser->Back();
    QCOMPARE(browser->Location(), std::string("search:exponents"));
  }

  void HelpMenuOpensTheProgramsHelp() {
    QAction* program = MenuAction(w_.window.get(), QStringLiteral("Help with using this &program"));
    QVERIFY(program != nullptr);
    program->trigger();
    HelpBrowser* browser = w_.frontend->HelpWindow();
    QVERIFY(browser != nullptr);
    QVERIFY(EndsWith(browser->Location(), "/program/index.html"));
  }

  void TreeButtonShowsTheTreeOfTheExpression() {
    w_.window->EquationBox()->setEditText(QStringLiteral("x+2*y"));
    w_.window->LoadTyped(false);
    QVERIFY(w_.window->Button("cmdTree")->isEnabled());
    int entries = 0;
    QString root;
    bool expanded = false;
    WhenModal([&](QWidget* modal) {
      auto* form = qobject_cast<TreeForm*>(modal);
      QVERIFY(form != nullptr);
      QTreeWidget* view = form->View();
      QCOMPARE(view->topLevelItemCount(), 1);
      root = view->topLevelItem(0)->text(0);
      expanded = view->topLevelItem(0)->isExpanded();
      for (QTreeWidgetItemIterator it(view); *it != nullptr; ++it) ++entries;
      QTest::keyClick(modal, Qt::Key_Escape);
    });
    QTest::mousePress(w_.window->Button("cmdTree"), Qt::LeftButton);
    QCOMPARE(root, QString::fromUtf8("\xC2\xB6\xC2\xB6     x+2*y"));
    QVERIFY(expanded);
    QVERIFY(entries >= 4);  // the sum, x, the product 2*y and its factors
    QCOMPARE(w_.session->HelpNumber, 397);
  }

 private:
  std::unique_ptr<QTemporaryDir> dir_;
  WindowUnderTest w_;
};

}  // namespace tavimor

QTEST_MAIN(tavimor::HelpWindowTest)
#include "help_window_test.moc"
