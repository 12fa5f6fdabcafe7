// The help browser: the pages of the help, their mathematics typeset as in the work space, with
// back and forward, an index of the pages and a search over their titles and text.
#pragma once

#include <QHash>
#include <QImage>
#include <QLineEdit>
#include <QTextBrowser>
#include <QToolButton>
#include <QWidget>
#include <string>
#include <vector>

#include "core/session.h"

namespace tavimor {

class HelpBrowser : public QWidget {
  Q_OBJECT

 public:
  // The index and the search cover the pages of `folder`.
  HelpBrowser(const Session& s, std::string folder, QWidget* parent = nullptr);

  // Shows the page in the file; false, with a line saying so, when it cannot be read.
  bool OpenPage(const std::string& path);
  // The index: every page of the folder by number, with its title, each a link.
  void ShowIndex();
  // The pages whose title or text holds every word of the query.
  void Search(const QString& query);
  void Back();
  void Forward();

  // What the browser shows: a page's path, "index", or "search:" and the query.
  const std::string& Location() const { return history_[position_]; }
  // The page's title as shown (its h1), for the window's title.
  QString Title() const { return title_; }
  QTextBrowser* View() const { return view_; }
  QLineEdit* SearchBox() const { return search_; }
  // How many pictures of mathematics the page shown holds.
  int MathPictures() const { return pictures_; }

 private:
  void Show(const std::string& location);
  void Go(const std::string& location);
  void FollowLink(const QUrl& url);
  void SetPage(const QString& title, const QString& html);
  QString PageHtml(const std::string& html);
  void UpdateButtons();

  const Session& s_;
  QHash<QString, QImage> images_;  // the pictures of the page shown, by their names
  std::string folder_;
  std::string page_folder_;  // the folder of the page shown, for its links
  QTextBrowser* view_;
  QLineEdit* search_;
  QToolButton* back_;
  QToolButton* forward_;
  std::vector<std::string> history_{"index"};
  std::size_t position_ = 0;
  QString title_;
  int pictures_ = 0;
};

}  // namespace tavimor
