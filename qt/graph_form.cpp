// The graph window: the canvas that paints the display list, the settings panel with Apply and
// Factory, and the settings written back when it closes.
#include "qt/graph_form.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPainter>
#include <QPainterPath>
#include <QPushButton>
#include <QRadioButton>
#include <QResizeEvent>
#include <QSpinBox>
#include <QVBoxLayout>

#include "core/session.h"
#include "graph/classify_graphs.h"

namespace tavimor {

namespace {

QColor ToQColor(GraphColour c) { return QColor(RedOf(c), GreenOf(c), BlueOf(c)); }

QString KindName(const std::string& kind) {
  if (kind == kGraphExplicit) return "explicit";
  if (kind == kGraphContour) return "implicit";
  if (kind == kGraphExplicitPolar) return "polar";
  if (kind == kGraphContourPolar) return "implicit polar";
  return "parametric";
}

}  // namespace

void GraphCanvas::SetDisplay(DisplayList display) {
  display_ = std::move(display);
  update();
}

void GraphCanvas::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), Qt::white);
  painter.setRenderHint(QPainter::Antialiasing, true);
  painter.setRenderHint(QPainter::TextAntialiasing, true);
  QFont font("Arial");
  font.setPixelSize(11);
  painter.setFont(font);
  const QFontMetricsF metrics(font);
  for (const GraphItem& item : display_.items) {
    QPen pen(ToQColor(item.colour));
    pen.setWidthF(item.width);
    pen.setCapStyle(Qt::RoundCap);
    pen.setJoinStyle(Qt::RoundJoin);
    painter.setPen(pen);
    switch (item.type) {
      case GraphItem::Type::Line:
        painter.drawLine(QPointF(item.points[0].x, item.points[0].y),
                         QPointF(item.points[1].x, item.points[1].y));
        break;
      case GraphItem::Type::Polyline: {
        QPainterPath path(QPointF(item.points[0].x, item.points[0].y));
        for (std::size_t k = 1; k < item.points.size(); ++k) {
          path.lineTo(item.points[k].x, item.points[k].y);
        }
        painter.drawPath(path);
        break;
      }
      case GraphItem::Type::Point:
        painter.fillRect(QRectF(item.points[0].x - 0.5, item.points[0].y - 0.5, 1, 1),
                         ToQColor(item.colour));
        break;
      case GraphItem::Type::Text:
        painter.drawText(QPointF(item.points[0].x, item.points[0].y + metrics.ascent()),
                         QString::fromStdString(item.text));
        break;
    }
  }
}

void GraphCanvas::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  if (event->size() != event->oldSize()) emit Resized();
}

GraphForm::GraphForm(QWidget* parent, Session& s)
    : QDialog(parent), s_(s), parms_(ReadGraphParms(s, s.GraphParms)) {
  setWindowTitle("Graph");
  setSizeGripEnabled(true);
  auto* layout = new QHBoxLayout(this);
  auto* left = new QVBoxLayout;
  // The equations, each in its curve's colour.
  QString equations;
  for (std::size_t i = 0; i < s.EquationList.size(); ++i) {
    const EquationRow& row = s.EquationList[i];
    QString line = QString::fromStdString(row[0] + "=" + row[1]);
    if (row[3] == kGraphParametricX && i + 1 < s.EquationList.size()) {
      line +=
          QString::fromStdString("; " + s.EquationList[i + 1][0] + "=" + s.EquationList[i + 1][1]);
      ++i;
    }
    const QColor colour = ToQColor(static_cast<GraphColour>(std::atoi(row[2].c_str())));
    equations += QString("<div style=\"color:%1\">%2 &nbsp; <small>(%3)</small></div>")
                     .arg(colour.name(), line.toHtmlEscaped(), KindName(row[3]));
  }
  auto* labels = new QLabel(equations, this);
  labels->setTextFormat(Qt::RichText);
  left->addWidget(labels);
  canvas_ = new GraphCanvas(this);
  canvas_->setMinimumSize(200, 200);
  canvas_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  left->addWidget(canvas_, 1);
  note_ = new QLabel(this);
  note_->setWordWrap(true);
  left->addWidget(note_);
  layout->addLayout(left, 1);

  auto* panel = new QVBoxLayout;
  auto* ranges = new QGroupBox("Settings", this);
  auto* form = new QFormLayout(ranges);
  const char* captions[] = {"x minimum", "x maximum", "x divisions", "x grid divisions",
                            "y minimum", "y maximum", "y divisions", "y grid divisions",
                            "t minimum", "t maximum"};
  for (std::size_t k = 0; k < boxes_.size(); ++k) {
    boxes_[k] = new QLineEdit(ranges);
    boxes_[k]->setMaximumWidth(90);
    form->addRow(captions[k], boxes_[k]);
  }
  panel->addWidget(ranges);
  auto* axes_box = new QGroupBox("Axes", this);
  auto* axes_layout = new QVBoxLayout(axes_box);
  axes_ = new QCheckBox("Show axes", axes_box);
  frame_style_ = new QRadioButton("Frame", axes_box);
  cross_hair_ = new QRadioButton("Cross hair", axes_box);
  grid_ = new QCheckBox("Grid", axes_box);
  axes_layout->addWidget(axes_);
  axes_layout->addWidget(frame_style_);
  axes_layout->addWidget(cross_hair_);
  axes_layout->addWidget(grid_);
  panel->addWidget(axes_box);
  auto* thickness_box = new QGroupBox("Line thickness", this);
  auto* thickness_layout = new QHBoxLayout(thickness_box);
  thickness_ = new QSpinBox(thickness_box);
  thickness_->setRange(1, 10);
  thickness_layout->addWidget(thickness_);
  panel->addWidget(thickness_box);
  apply_ = new QPushButton("Apply", this);
  factory_ = new QPushButton("Factory", this);
  auto* close = new QPushButton("Close", this);
  panel->addWidget(apply_);
  panel->addWidget(factory_);
  panel->addStretch(1);
  panel->addWidget(close);
  layout->addLayout(panel);

  ParmsToControls();
  // The drawing area opens at the size of the settings; the window's size grip changes it.
  canvas_->SetPreferredSize(QSize(parms_.width, parms_.height));
  adjustSize();
  connect(apply_, &QPushButton::clicked, this, &GraphForm::Apply);
  connect(factory_, &QPushButton::clicked, this, &GraphForm::Factory);
  connect(close, &QPushButton::clicked, this, &QDialog::accept);
  for (QCheckBox* box : {axes_, grid_}) {
    connect(box, &QCheckBox::toggled, this, [this] {
      if (!loading_) DrawGraphs();
    });
  }
  connect(frame_style_, &QRadioButton::toggled, this, [this] {
    if (!loading_) DrawGraphs();
  });
  connect(thickness_, &QSpinBox::valueChanged, this, [this] {
    if (!loading_) DrawGraphs();
  });
  connect(canvas_, &GraphCanvas::Resized, this, &GraphForm::DrawGraphs);
  DrawGraphs();
}

void GraphForm::ParmsToControls() {
  loading_ = true;
  const GraphBoxes boxes = GraphBoxesOf(s_, parms_);
  for (std::size_t k = 0; k < boxes.size(); ++k) {
    boxes_[k]->setText(QString::fromStdString(boxes[k]));
  }
  (parms_.FrameStyle() ? frame_style_ : cross_hair_)->setChecked(true);
  axes_->setChecked(parms_.AxesOn());
  grid_->setChecked(parms_.GridOn());
  thickness_->setValue(parms_.thickness);
  loading_ = false;
}

GraphParms GraphForm::ControlsToParms() const {
  GraphParms p = parms_;
  GraphBoxes boxes;
  for (std::size_t k = 0; k < boxes.size(); ++k) boxes[k] = boxes_[k]->text().toStdString();
  ApplyGraphBoxes(s_, boxes, p);
  p.axes = frame_style_->isChecked() ? 1 : 2;
  if (!axes_->isChecked()) p.axes = -p.axes;
  p.grid = grid_->isChecked() ? 1 : 0;
  p.thickness = thickness_->value();
  p.width = canvas_->width();
  p.height = canvas_->height();
  return p;
}

void GraphForm::DrawGraphs() {
  // Boxes that are not valid leave the picture as it was.
  GraphBoxes boxes;
  for (std::size_t k = 0; k < boxes.size(); ++k) boxes[k] = boxes_[k]->text().toStdString();
  if (ValidateGraphSettings(s_, boxes).Failed()) return;
  parms_ = ControlsToParms();
  try {
    picture_ = tavimor::DrawGraphs(s_, parms_);
  } catch (const std::exception&) {
    return;  // a drawing that fails ends silently, leaving what was drawn
  }
  canvas_->SetDisplay(picture_.display);
}

void GraphForm::Apply() {
  GraphBoxes boxes;
  for (std::size_t k = 0; k < boxes.size(); ++k) boxes[k] = boxes_[k]->text().toStdString();
  const GraphValidation v = ValidateGraphSettings(s_, boxes);
  last_refusal_ = QString::fromStdString(v.message);
  if (v.Failed()) {
    QLineEdit* culprit = Box(v.culprit);
    culprit->setFocus();
    culprit->selectAll();
    if (!quiet_) QMessageBox::warning(this, "The Tavimor", last_refusal_);
    return;
  }
  DrawGraphs();
}

void GraphForm::Factory() {
  parms_ = ReadGraphParms(s_, kFactoryGraphParms);
  ParmsToControls();
  canvas_->SetPreferredSize(QSize(parms_.width, parms_.height));
  adjustSize();
  DrawGraphs();
}

void GraphForm::done(int result) {
  // Only valid boxes are written back: bad ones leave the last good settings in force.
  GraphBoxes boxes;
  for (std::size_t k = 0; k < boxes.size(); ++k) boxes[k] = boxes_[k]->text().toStdString();
  if (!ValidateGraphSettings(s_, boxes).Failed()) {
    GraphParms p = ControlsToParms();
    StoreCurveColours(s_, p);
    s_.GraphParms = GraphParmsText(s_, p);
  }
  QDialog::done(result);
}

}  // namespace tavimor
