// What the window's tests share: a window on a fresh session, modal answers, files to open.
#pragma once

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>
#include <QTimer>

#include <functional>
#include <memory>
#include <utility>

#include "core/session.h"
#include "qt/main_window.h"
#include "qt/qt_frontend.h"
#include "shell/main_flow.h"

namespace tavimor {

// A shown window on a session with the first-run options, started as the program starts it;
// `extra` goes to the window after the session (a settings store, a folder of samples).
struct WindowUnderTest {
  template <typename... Extra>
  void Open(Extra&&... extra) {
    frontend = std::make_unique<QtFrontend>();
    session = std::make_unique<Session>(*frontend);
    session->SetFirstRunOptions();
    StartUp(*session, ".");
    window = std::make_unique<MainWindow>(*session, std::forward<Extra>(extra)...);
    frontend->SetWindow(window.get());
    window->show();
  }
  void Close() {
    window.reset();
    session.reset();
    frontend.reset();
  }

  std::unique_ptr<QtFrontend> frontend;
  std::unique_ptr<Session> session;
  std::unique_ptr<MainWindow> window;
};

// Runs `act` on the next modal widget that shows up.
inline void WhenModal(std::function<void(QWidget*)> act) {
  QTimer::singleShot(0, [act] {
    QWidget* modal = QApplication::activeModalWidget();
    if (modal == nullptr) {
      WhenModal(act);
      return;
    }
    act(modal);
  });
}

// Writes a file of the bytes in the folder; its path.
inline QString WriteTestFile(const QTemporaryDir& dir, const QString& name,
                             const QByteArray& bytes) {
  const QString path = dir.filePath(name);
  QFile file(path);
  file.open(QIODevice::WriteOnly);
  file.write(bytes);
  return path;
}

}  // namespace tavimor
