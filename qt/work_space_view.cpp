// The work space: rich text that only grows, each piece of mathematics an object of the text that
// keeps its mathematics and paints the typesetter's drawing on the text's baseline.
#include "qt/work_space_view.h"

#include <QAbstractTextDocumentLayout>
#include <QBuffer>
#include <QFile>
#include <QFontMetrics>
#include <QImage>
#include <QMimeData>
#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextFragment>

#include "qt/display_painter.h"

namespace tavimor {

namespace {

std::shared_ptr<Picture> PictureOf(const QTextFormat& format) {
  return format.property(MathTextObject::kPictureProperty).value<std::shared_ptr<Picture>>();
}

QString Mathematics(const QTextFormat& format) {
  const std::shared_ptr<Picture> picture = PictureOf(format);
  return picture ? QString::fromStdString(picture->Mathematics()) : QString();
}

}  // namespace

qreal MathTextObject::Scale(const QTextDocument* document) {
  // Points to the pixels of the device the document is laid out for.
  const QPaintDevice* device = document->documentLayout()->paintDevice();
  const int dpi = device != nullptr ? device->logicalDpiY() : 96;
  return dpi / 72.0;
}

qreal MathTextObject::TopPadding(const Picture& picture, const QTextCharFormat& format,
                                 qreal scale) {
  // The layout seats an object of vertical alignment "middle" with its middle half an x-height
  // above the baseline; room above the picture moves its own baseline onto the text's.
  const qreal half_x = QFontMetrics(format.font()).xHeight() / 2.0;
  const qreal height = picture.drawing.height * scale;
  const qreal baseline = picture.drawing.baseline * scale;
  return std::max(0.0, height - 2 * baseline + half_x);
}

QSizeF MathTextObject::intrinsicSize(QTextDocument* document, int, const QTextFormat& format) {
  const std::shared_ptr<Picture> picture = PictureOf(format);
  if (!picture) return {};
  const qreal scale = Scale(document);
  const QTextCharFormat chars = format.toCharFormat();
  const qreal half_x = QFontMetrics(chars.font()).xHeight() / 2.0;
  const qreal pad = TopPadding(*picture, chars, scale);
  const qreal total = 2 * (pad + picture->drawing.baseline * scale) - half_x;
  return {picture->drawing.width * scale + 2.0, total};
}

void MathTextObject::drawObject(QPainter* painter, const QRectF& rect, QTextDocument* document, int,
                                const QTextFormat& format) {
  const std::shared_ptr<Picture> picture = PictureOf(format);
  if (!picture) return;
  const qreal scale = Scale(document);
  const qreal pad = TopPadding(*picture, format.toCharFormat(), scale);
  PaintDrawing(*painter, picture->drawing, rect.topLeft() + QPointF(1.0, pad), scale,
               format.foreground().color());
}

void MathTextObject::RegisterOn(QTextDocument* document, MathTextObject* handler) {
  document->documentLayout()->registerHandler(kObjectType, handler);
}

WorkSpaceView::WorkSpaceView(QWidget* parent) : QTextEdit(parent), math_(new MathTextObject) {
  math_->setParent(this);
  setReadOnly(true);
  setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  MathTextObject::RegisterOn(document(), math_);
  SetFontSize(font_size_);
}

void WorkSpaceView::SetFontSize(float points) {
  font_size_ = points;
  document()->setDefaultFont(WorkSpaceFont(points));
}

void WorkSpaceView::Clear() {
  clear();
  MathTextObject::RegisterOn(document(), math_);
}

void WorkSpaceView::Append(const RichRun& run) {
  QTextCursor cursor(document());
  cursor.movePosition(QTextCursor::End);
  QTextCharFormat format;
  format.setFont(WorkSpaceFont(run.kind == RunKind::Text ? run.format.size : font_size_));
  switch (run.kind) {
    case RunKind::LineEnd: cursor.insertBlock(); break;
    case RunKind::Tab: cursor.insertText(QStringLiteral("\t"), format); break;
    case RunKind::Text: {
      format.setFontWeight(run.format.bold ? QFont::Bold : QFont::Normal);
      format.setFontItalic(run.format.italic);
      format.setFontUnderline(run.format.underline);
      format.setForeground(QColor::fromRgb(run.format.Rgb()));
      cursor.insertText(QString::fromStdString(run.text), format);
      break;
    }
    case RunKind::Picture: {
      format.setObjectType(MathTextObject::kObjectType);
      format.setVerticalAlignment(QTextCharFormat::AlignMiddle);
      format.setForeground(Qt::black);
      format.setProperty(MathTextObject::kPictureProperty,
                         QVariant::fromValue(std::make_shared<Picture>(run.picture)));
      cursor.insertText(QString(QChar::ObjectReplacementCharacter), format);
      break;
    }
  }
  ensureCursorVisible();
  verticalScrollBar()->setValue(verticalScrollBar()->maximum());
}

QString WorkSpaceView::HiddenText() const {
  QString out;
  for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
    if (block != document()->begin()) out += QLatin1Char('\n');
    for (auto it = block.begin(); !it.atEnd(); ++it) {
      const QTextFragment fragment = it.fragment();
      if (fragment.charFormat().objectType() == MathTextObject::kObjectType) {
        out += QLatin1Char('@') + Mathematics(fragment.charFormat()) + QLatin1Char('@');
      } else {
        out += fragment.text();
      }
    }
  }
  return out;
}

QMimeData* WorkSpaceView::createMimeDataFromSelection() const {
  // The mathematics written out in place of each picture, so that a copy reads as text.
  const QTextCursor selection = textCursor();
  QString text;
  for (int position = selection.selectionStart(); position < selection.selectionEnd(); ++position) {
    QTextCursor at(document());
    at.setPosition(position);
    at.setPosition(position + 1, QTextCursor::KeepAnchor);
    const QTextCharFormat format = at.charFormat();
    const QString character = at.selectedText();
    if (format.objectType() == MathTextObject::kObjectType) {
      text += Mathematics(format);
    } else if (character == QChar::ParagraphSeparator) {
      text += QLatin1Char('\n');
    } else {
      text += character;
    }
  }
  auto* mime = new QMimeData;
  mime->setText(text);
  return mime;
}

std::unique_ptr<QTextDocument> WorkSpaceView::PrintableCopy() const {
  std::unique_ptr<QTextDocument> copy(document()->clone());
  MathTextObject::RegisterOn(copy.get(), math_);
  return copy;
}

bool WorkSpaceView::ExportPdf(const QString& path) const {
  QPdfWriter writer(path);
  writer.setPageSize(QPageSize(QPageSize::A4));
  writer.setPageMargins(QMarginsF(18, 18, 18, 18), QPageLayout::Millimeter);
  writer.setTitle(QStringLiteral("The Tavimor work space"));
  std::unique_ptr<QTextDocument> copy = PrintableCopy();
  copy->print(&writer);
  return QFile::exists(path);
}

bool WorkSpaceView::ExportHtml(const QString& path) const {
  QString html =
      QStringLiteral(
          "<!DOCTYPE html>\n<html><head><meta charset=\"utf-8\"><title>The Tavimor work "
          "space</title>"
          "</head>\n<body style=\"font-family: 'Times New Roman', serif; font-size: %1pt\">\n")
          .arg(font_size_);
  const qreal scale = 2.0;  // pictures at twice the pixels of a 72 dpi point, for sharp print
  for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
    html += QStringLiteral("<div>");
    for (auto it = block.begin(); !it.atEnd(); ++it) {
      const QTextFragment fragment = it.fragment();
      const QTextCharFormat format = fragment.charFormat();
      if (format.objectType() == MathTextObject::kObjectType) {
        const std::shared_ptr<Picture> picture = PictureOf(format);
        if (!picture) continue;
        const Drawing& d = picture->drawing;
        QImage image(
            QSize(static_cast<int>(d.width * scale) + 4, static_cast<int>(d.height * scale) + 4),
            QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        PaintDrawing(painter, d, QPointF(2, 2), scale, Qt::black);
        painter.end();
        QByteArray png;
        QBuffer buffer(&png);
        buffer.open(QIODevice::WriteOnly);
        image.save(&buffer, "PNG");
        const qreal below = d.height - d.baseline;
        html += QStringLiteral(
                    "<img alt=\"%1\" title=\"%1\" style=\"vertical-align: -%2pt; width: %3pt\" "
                    "src=\"data:image/png;base64,%4\">")
                    .arg(Mathematics(format).toHtmlEscaped())
                    .arg(below + 1.0)
                    .arg(d.width + 2.0)
                    .arg(QString::fromLatin1(png.toBase64()));
      } else {
        QString style = QStringLiteral("color: %1;").arg(format.foreground().color().name());
        if (format.fontWeight() >= QFont::Bold) style += QStringLiteral(" font-weight: bold;");
        if (format.fontItalic()) style += QStringLiteral(" font-style: italic;");
        if (format.fontUnderline()) style += QStringLiteral(" text-decoration: underline;");
        QString text = fragment.text().toHtmlEscaped();
        text.replace(QLatin1Char('\t'), QStringLiteral("&emsp;&emsp;"));
        text.replace(QStringLiteral("  "), QStringLiteral("&nbsp; "));
        html += QStringLiteral("<span style=\"%1\">%2</span>").arg(style, text);
      }
    }
    html += QStringLiteral("&nbsp;</div>\n");
  }
  html += QStringLiteral("</body></html>\n");
  QFile file(path);
  if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate)) return false;
  file.write(html.toUtf8());
  return true;
}

}  // namespace tavimor
