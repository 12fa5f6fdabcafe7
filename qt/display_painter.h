// Painting the typesetter's display list with QPainter, and measuring with the screen's fonts.
#pragma once

#include <QFont>
#include <QPainter>

#include "present/display_list.h"

namespace tavimor {

// The work space's font: "Times New Roman" by name (fontconfig gives Liberation Serif).
QFont WorkSpaceFont(float points);

// The typesetter measures in points with the real fonts.
class QtFontMetrics : public FontMetrics {
 public:
  float TextWidth(const std::string& text, Face face, float size) const override;
  float Ascent(Face face, float size) const override;
  float Descent(Face face, float size) const override;
};

// Paints a drawing with its top left at `origin`; `scale` is device pixels per point.
void PaintDrawing(QPainter& painter, const Drawing& drawing, QPointF origin, qreal scale,
                  const QColor& colour);

}  // namespace tavimor
