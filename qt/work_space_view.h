// The work space: rich text that only grows, each piece of mathematics an object of the text that
// keeps its mathematics and paints the typesetter's drawing on the text's baseline.
#pragma once

#include <QTextEdit>
#include <QTextObjectInterface>
#include <memory>
#include <vector>

#include "present/rich_text.h"

namespace tavimor {

// The text object that paints a picture; the picture is kept in the character format.
class MathTextObject : public QObject, public QTextObjectInterface {
  Q_OBJECT
  Q_INTERFACES(QTextObjectInterface)

 public:
  static constexpr int kObjectType = QTextFormat::UserObject + 1;
  static constexpr int kPictureProperty = QTextFormat::UserProperty + 1;

  QSizeF intrinsicSize(QTextDocument* document, int position, const QTextFormat& format) override;
  void drawObject(QPainter* painter, const QRectF& rect, QTextDocument* document, int position,
                  const QTextFormat& format) override;

  // Registers the object on a document (a copy for printing needs it too).
  static void RegisterOn(QTextDocument* document, MathTextObject* handler);
  // The room above the picture that puts its baseline on the text's baseline, in pixels.
  static qreal TopPadding(const Picture& picture, const QTextCharFormat& format, qreal scale);
  static qreal Scale(const QTextDocument* document);
};

class WorkSpaceView : public QTextEdit {
  Q_OBJECT

 public:
  explicit WorkSpaceView(QWidget* parent = nullptr);

  void Append(const RichRun& run);
  void Clear();
  void SetFontSize(float points);
  // The text with each picture as "@", its mathematics, "@".
  QString HiddenText() const;
  // A copy of the document for printing and export, with the pictures still painted.
  std::unique_ptr<QTextDocument> PrintableCopy() const;
  bool ExportPdf(const QString& path) const;
  bool ExportHtml(const QString& path) const;

 protected:
  QMimeData* createMimeDataFromSelection() const override;

 private:
  MathTextObject* math_;
  float font_size_ = 12.0f;
};

}  // namespace tavimor

Q_DECLARE_METATYPE(std::shared_ptr<tavimor::Picture>)
