// The help browser: the pages of the help, their mathematics typeset as in the work space, with
// back and forward, an index of the pages and a search over their titles and text.
#include "qt/help_browser.h"

#include <QHBoxLayout>
#include <QImage>
#include <QPainter>
#include <QScreen>
#include <QUrl>
#include <QVBoxLayout>
#include <filesystem>

#include "qt/display_painter.h"
#include "shell/help_pages.h"

namespace tavimor {

namespace {

constexpr const char* kIndex = "index";
constexpr const char* kSearch = "search:";
constexpr const char* kBrowserTitle = "The Tavimor help";

QString FromUtf8(const std::string& text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

std::string FolderOf(const std::string& path) {
  return std::filesystem::path(path).parent_path().string();
}

// The page view: the pictures of a page's mathematics are resources of the page.
class HelpView : public QTextBrowser {
 public:
  explicit HelpView(QWidget* parent, const QHash<QString, QImage>& pictures)
      : QTextBrowser(parent), pictures_(pictures) {}

  QVariant loadResource(int type, const QUrl& name) override {
    if (type == QTextDocument::ImageResource && name.scheme() == QStringLiteral("math")) {
      return pictures_.value(name.toString());
    }
    return QTextBrowser::loadResource(type, name);
  }

 private:
  const QHash<QString, QImage>& pictures_;
};

}  // namespace

HelpBrowser::HelpBrowser(const Session& s, std::string folder, QWidget* parent)
    : QWidget(parent, Qt::Window),
      s_(s),
      folder_(std::move(folder)),
      view_(new HelpView(this, images_)),
      search_(new QLineEdit(this)),
      back_(new QToolButton(this)),
      forward_(new QToolButton(this)) {
  setObjectName(QStringLiteral("HelpBrowser"));
  setWindowTitle(QString::fromLatin1(kBrowserTitle));
  auto* layout = new QVBoxLayout(this);
  auto* bar = new QHBoxLayout;
  back_->setText(QStringLiteral("Back"));
  back_->setToolTip(QStringLiteral("The page shown before (Alt+Left)"));
  back_->setShortcut(QKeySequence(Qt::ALT | Qt::Key_Left));
  forward_->setText(QStringLiteral("Forward"));
  forward_->setToolTip(QStringLiteral("The page shown after (Alt+Right)"));
  forward_->setShortcut(QKeySequence(Qt::ALT | Qt::Key_Right));
  auto* index = new QToolButton(this);
  index->setText(QStringLiteral("Index"));
  index->setToolTip(QStringLiteral("Every page of the algebra help, by number"));
  search_->setPlaceholderText(QStringLiteral("Search the help"));
  search_->setClearButtonEnabled(true);
  bar->addWidget(back_);
  bar->addWidget(forward_);
  bar->addWidget(index);
  bar->addWidget(search_, 1);
  layout->addLayout(bar);
  layout->addWidget(view_, 1);
  view_->setOpenLinks(false);
  view_->setFont(WorkSpaceFont(12.0f));
  connect(back_, &QToolButton::clicked, this, &HelpBrowser::Back);
  connect(forward_, &QToolButton::clicked, this, &HelpBrowser::Forward);
  connect(index, &QToolButton::clicked, this, [this] { Go(kIndex); });
  connect(search_, &QLineEdit::returnPressed, this, [this] { Search(search_->text()); });
  connect(view_, &QTextBrowser::anchorClicked, this, &HelpBrowser::FollowLink);
  resize(640, 520);
  Show(kIndex);
  UpdateButtons();
}

bool HelpBrowser::OpenPage(const std::string& path) {
  if (!ReadHelpPage(path)) return false;
  Go(path);
  return true;
}

void HelpBrowser::ShowIndex() { Go(kIndex); }

void HelpBrowser::Search(const QString& query) {
  if (query.trimmed().isEmpty()) return;
  Go(std::string(kSearch) + query.trimmed().toStdString());
}

void HelpBrowser::Back() {
  if (position_ == 0) return;
  --position_;
  Show(history_[position_]);
  UpdateButtons();
}

void HelpBrowser::Forward() {
  if (position_ + 1 >= history_.size()) return;
  ++position_;
  Show(history_[position_]);
  UpdateButtons();
}

void HelpBrowser::Go(const std::string& location) {
  if (location != history_[position_]) {
    history_.resize(position_ + 1);
    history_.push_back(location);
    position_ = history_.size() - 1;
  }
  Show(location);
  UpdateButtons();
}

void HelpBrowser::UpdateButtons() {
  back_->setEnabled(position_ > 0);
  forward_->setEnabled(position_ + 1 < history_.size());
}

void HelpBrowser::FollowLink(const QUrl& url) {
  const std::string target = url.path().toStdString();
  if (HelpPageNumber(target) < 0) return;  // links lead only to other help pages
  const std::string name = std::filesystem::path(target).filename().string();
  const std::string base = page_folder_.empty() ? folder_ : page_folder_;
  OpenPage(base + "/" + name);
}

void HelpBrowser::Show(const std::string& location) {
  pictures_ = 0;
  images_.clear();
  if (location == kIndex || location.rfind(kSearch, 0) == 0) {
    page_folder_ = folder_;
    const bool index = location == kIndex;
    const QString query =
        index ? QString() : FromUtf8(location.substr(std::string(kSearch).size()));
    const std::vector<HelpIndexEntry> pages =
        index ? HelpPageIndex(folder_) : SearchHelpPages(folder_, query.toStdString());
    const QString title = index ? QStringLiteral("Index of the algebra help")
                                : QStringLiteral("Pages that mention \"%1\"").arg(query);
    QString html = QStringLiteral("<h1>%1</h1>").arg(title.toHtmlEscaped());
    if (pages.empty()) {
      html += index ? QStringLiteral("<p>No help pages were found.</p>")
                    : QStringLiteral("<p>No page mentions that.</p>");
    } else {
      html += QStringLiteral("<ul>");
      for (const HelpIndexEntry& page : pages) {
        html += QStringLiteral("<li><a href=\"%1.html\">%1</a>&nbsp;&nbsp;%2</li>")
                    .arg(page.number)
                    .arg(FromUtf8(page.title).toHtmlEscaped());
      }
      html += QStringLiteral("</ul>");
    }
    SetPage(title, html);
    return;
  }
  page_folder_ = FolderOf(location);
  const std::optional<std::string> page = ReadHelpPage(location);
  if (!page) {
    SetPage(QStringLiteral("Page not found"),
            QStringLiteral("<h1>Page not found</h1><p>The help page %1 could not be read.</p>")
                .arg(FromUtf8(location).toHtmlEscaped()));
    return;
  }
  SetPage(FromUtf8(HelpPageTitle(*page)), PageHtml(*page));
}

void HelpBrowser::SetPage(const QString& title, const QString& html) {
  title_ = title;
  view_->setHtml(html);
  setWindowTitle(QString::fromLatin1(kBrowserTitle) +
                 (title.isEmpty() ? QString() : " - " + title));
}

// The page with its mathematics typeset and put in as pictures of the document; the tags and
// text are the page's own, which are already a small part of HTML.
QString HelpBrowser::PageHtml(const std::string& html) {
  QString out;
  QtFontMetrics metrics;
  const qreal ratio = 2.0;  // pictures at twice the pixels, sharp on any screen
  const qreal pixels_per_point = logicalDpiY() / 72.0;
  for (const HelpToken& token : ReadHelpTokens(html)) {
    switch (token.kind) {
      case HelpToken::Kind::Text: out += FromUtf8(token.text).toHtmlEscaped(); break;
      case HelpToken::Kind::Tag:
        out += QStringLiteral("<%1%2").arg(token.closing ? "/" : "", FromUtf8(token.text));
        if (!token.closing && !token.href.empty()) {
          out += QStringLiteral(" href=\"%1\"").arg(FromUtf8(token.href).toHtmlEscaped());
        }
        out += QStringLiteral(">");
        break;
      case HelpToken::Kind::Math: {
        const HelpMath math = ReadHelpMath(s_, token.text);
        if (!math.ok) {
          out += QStringLiteral("<i>%1</i>").arg(FromUtf8(token.text).toHtmlEscaped());
          break;
        }
        const Picture picture = DrawHelpMath(s_, metrics, math);
        const Drawing& d = picture.drawing;
        const qreal scale = ratio * pixels_per_point;
        QImage image(
            QSize(static_cast<int>(d.width * scale) + 4, static_cast<int>(d.height * scale) + 4),
            QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        {
          QPainter painter(&image);
          PaintDrawing(painter, d, QPointF(2, 2), scale, Qt::black);
        }
        image.setDevicePixelRatio(ratio);
        const QString name = QStringLiteral("math:%1").arg(++pictures_);
        images_.insert(name, image);
        const QString text =
            FromUtf8(math.relation == kRelationNone ? math.left : math.left + "=" + math.right);
        out += QStringLiteral("<img src=\"%1\" alt=\"%2\" align=\"middle\">")
                   .arg(name, text.toHtmlEscaped());
        break;
      }
    }
  }
  return out;
}

}  // namespace tavimor
