// tavimor: the desktop window of the tutor. With --screenshot it runs offscreen, loads an item,
// presses the buttons the command words name, and saves the window as PNG.
#include <QApplication>
#include <QLocale>
#include <QTimer>
#include <cstdlib>
#include <iostream>

#include "qt/main_window.h"
#include "qt/qt_frontend.h"
#include "qt/qt_settings.h"
#include "shell/command_table.h"
#include "shell/main_flow.h"
#include "shell/status_bar.h"

namespace {

int Usage() {
  std::cerr << "Usage: tavimor [--screenshot FILE ITEM [COMMAND ...]]\n";
  return 64;
}

}  // namespace

int main(int argc, char** argv) {
  using namespace tavimor;
  const bool screenshot = argc >= 2 && std::string(argv[1]) == "--screenshot";
  if (screenshot && argc < 4) return Usage();
  if (!screenshot && argc > 1) return Usage();
  if (screenshot) setenv("QT_QPA_PLATFORM", "offscreen", 1);
  QApplication app(argc, argv);
  QApplication::setApplicationName(QStringLiteral("The Tavimor"));

  QtFrontend frontend;
  frontend.SetUnattended(screenshot);  // no modal form waits for an answer in a screenshot run
  Session s(frontend);
  s.SetFirstRunOptions();
  // The decimal separator of the machine's locale: how 1.2 is written.
  const QString written = QLocale::system().toString(1.2);
  StartUp(s, written.contains(QLatin1Char(',')) ? "," : ".");
  if (screenshot) {
    s.StreamingOutput = true;  // nobody is there to press the pacing button
    UpdateStatusPanel(s);
  }
  // The screenshot run keeps no settings; the window keeps them per user.
  QtSettingsStore store;
  const std::string directory = QCoreApplication::applicationDirPath().toStdString();
  MainWindow window(s, screenshot ? nullptr : &store, directory);
  frontend.SetWindow(&window);
  // A picture of the window has one size, whatever the size of the (virtual) screen.
  if (screenshot) window.resize(1100, 760);
  window.show();
  if (!screenshot) {
    window.ShowWelcomeIfWanted();
    return QApplication::exec();
  }

  window.EquationBox()->setEditText(QString::fromLocal8Bit(argv[3]));
  window.LoadTyped(false);
  for (int i = 4; i < argc; ++i) {
    const CommandWord* word = FindCommandWord(argv[i], s.Form.visible_panel);
    if (word == nullptr) {
      std::cerr << "Unknown command \"" << argv[i] << "\".\n";
      return 3;
    }
    window.Press(word->button, word->right_button);
  }
  QApplication::processEvents();
  if (!window.grab().save(QString::fromLocal8Bit(argv[2]), "PNG")) {
    std::cerr << "The picture could not be written to " << argv[2] << ".\n";
    return 1;
  }
  return 0;
}
