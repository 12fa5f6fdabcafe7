// Painting the typesetter's display list with QPainter, and measuring with the screen's fonts.
#include "qt/display_painter.h"

#include <QFontMetricsF>
#include <QPainterPath>
#include <QPolygonF>

#include "present/rich_text.h"

namespace tavimor {

namespace {

// Text is measured and drawn with a font 100 pixels high, scaled to the size wanted: one unit of
// the drawing is one point, whatever the screen.
constexpr int kUnitFontPixels = 100;

QFont UnitFont(Face face = Face::Text) {
  QFont font = WorkSpaceFont(12.0f);
  font.setPixelSize(kUnitFontPixels);
  font.setItalic(face == Face::Italic);  // letters are set in italic
  return font;
}

// An item's own colour, one of the platform's 16, or the drawing's.
QColor ItemColour(const DisplayItem& item, const QColor& drawing) {
  if (item.colour < 0 || item.colour > 15) return drawing;
  return QColor::fromRgb(kQBColors[static_cast<std::size_t>(item.colour)]);
}

}  // namespace

QFont WorkSpaceFont(float points) {
  QFont font(QStringLiteral("Times New Roman"));
  font.setStyleHint(QFont::Serif);
  font.setPointSizeF(points);
  return font;
}

float QtFontMetrics::TextWidth(const std::string& text, Face face, float size) const {
  const QFontMetricsF metrics(UnitFont(face));
  return static_cast<float>(metrics.horizontalAdvance(QString::fromStdString(text)) * size /
                            kUnitFontPixels);
}

float QtFontMetrics::Ascent(Face, float size) const {
  return static_cast<float>(QFontMetricsF(UnitFont()).ascent() * size / kUnitFontPixels);
}

float QtFontMetrics::Descent(Face, float size) const {
  return static_cast<float>(QFontMetricsF(UnitFont()).descent() * size / kUnitFontPixels);
}

void PaintDrawing(QPainter& painter, const Drawing& drawing, QPointF origin, qreal scale,
                  const QColor& colour) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing, true);
  painter.setRenderHint(QPainter::TextAntialiasing, true);
  painter.translate(origin);
  painter.scale(scale, scale);
  QPen pen(colour);
  painter.setPen(pen);
  for (const DisplayItem& item : drawing.items) {
    switch (item.kind) {
      case ItemKind::Text: {
        painter.save();
        painter.translate(item.x, item.y);
        painter.scale(item.size / kUnitFontPixels, item.size / kUnitFontPixels);
        painter.setFont(UnitFont(item.face));
        painter.drawText(QPointF(0, 0), QString::fromStdString(item.text));
        painter.restore();
        break;
      }
      case ItemKind::Rule: {
        QPen rule(colour);
        rule.setWidthF(std::max(0.6f, item.width));
        painter.setPen(rule);
        painter.drawLine(QPointF(item.x, item.y), QPointF(item.x2, item.y2));
        painter.setPen(pen);
        break;
      }
      case ItemKind::Bracket: {
        // A curve from top to bottom, bowed away from the content.
        const qreal inset = item.width * 0.75;
        const qreal x_out = item.left ? item.x + item.width * 0.2 : item.x + item.width * 0.8;
        const qreal x_end = item.left ? item.x + inset : item.x + item.width - inset;
        QPainterPath path;
        path.moveTo(x_end, item.y);
        path.cubicTo(x_out, item.y + (item.y2 - item.y) * 0.25, x_out,
                     item.y + (item.y2 - item.y) * 0.75, x_end, item.y2);
        QPen curve(colour);
        curve.setWidthF(0.06 * item.size + 0.02 * (item.y2 - item.y));
        painter.setPen(curve);
        painter.setBrush(Qt::NoBrush);
        painter.drawPath(path);
        painter.setPen(pen);
        break;
      }
      case ItemKind::Radical: {
        const qreal h = item.y2 - item.y;
        QPainterPath path;
        path.moveTo(item.x, item.y + h * 0.6);
        path.lineTo(item.x + item.width * 0.3, item.y + h * 0.5);
        path.lineTo(item.x + item.width * 0.55, item.y2);
        path.lineTo(item.x + item.width, item.y + 0.5);
        path.lineTo(item.x2, item.y + 0.5);
        QPen root(colour);
        root.setWidthF(std::max(0.7, 0.06 * item.size));
        painter.setPen(root);
        painter.setBrush(Qt::NoBrush);
        painter.drawPath(path);
        painter.setPen(pen);
        break;
      }
      case ItemKind::Polyline: {
        QPolygonF line;
        for (std::size_t i = 0; i + 1 < item.points.size(); i += 2)
          line << QPointF(item.points[i], item.points[i + 1]);
        QPen stroke(ItemColour(item, colour));
        stroke.setWidthF(std::max(0.6f, item.width));
        stroke.setJoinStyle(Qt::RoundJoin);
        painter.setPen(stroke);
        painter.setBrush(Qt::NoBrush);
        painter.drawPolyline(line);
        painter.setPen(pen);
        break;
      }
      case ItemKind::Dot: {
        painter.setPen(Qt::NoPen);
        painter.setBrush(ItemColour(item, colour));
        painter.drawEllipse(QPointF(item.x, item.y), item.width / 2, item.width / 2);
        painter.setBrush(Qt::NoBrush);
        painter.setPen(pen);
        break;
      }
    }
  }
  painter.restore();
}

}  // namespace tavimor
