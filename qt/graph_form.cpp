// The graph window: the canvas that paints the display list, the settings panel with Apply and
// Factory, and the settings written back when it closes.
#include "qt/graph_form.h"

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QColorDialog>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QPushButton>
#include <QRadioButton>
#include <QResizeEvent>
#include <QRubberBand>
#include <QSlider>
#include <QSpinBox>
#include <QTimer>
#include <QVBoxLayout>

#include "core/session.h"
#include "graph/classify_graphs.h"
#include "graph/diagnostic_rt.h"
#include "graph/graph_copy.h"

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
  if (dot_) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(dot_colour_);
    painter.drawEllipse(*dot_, 4.0, 4.0);
  }
}

void GraphCanvas::SetDot(std::optional<QPointF> at, QColor colour) {
  dot_ = at;
  dot_colour_ = colour;
  update();
}

void GraphCanvas::mouseMoveEvent(QMouseEvent* event) { emit MouseMoved(event->position()); }

void GraphCanvas::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) emit MousePressed(event->position());
}

void GraphCanvas::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) emit MouseReleased(event->position());
}

void GraphCanvas::leaveEvent(QEvent*) { emit MouseLeft(); }

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
  auto* menu = new QMenuBar(this);
  QMenu* options = menu->addMenu("&Options");
  zoom_in_ = options->addAction("Zoom &In x 2", this, &GraphForm::ZoomIn);
  zoom_out_ = options->addAction("Zoom &Out x 2", this, &GraphForm::ZoomOut);
  options->addSeparator();
  auto* drag_modes = new QActionGroup(this);
  zoom_rectangle_ = options->addAction("Click and drag causes &Zoom to rectangle");
  pan_ = options->addAction("Click and drag causes &Pan");
  for (QAction* mode : {zoom_rectangle_, pan_}) {
    mode->setCheckable(true);
    drag_modes->addAction(mode);
  }
  zoom_rectangle_->setChecked(true);
  options->addSeparator();
  r_vs_t_ = options->addAction("graph of r vs t", this, &GraphForm::DrawRadiusAgainstAngle);
  r_vs_t_->setEnabled(HasPolarCurve(s_));
  QMenu* edit = menu->addMenu("&Edit");
  edit->addAction("&Copy picture", this, &GraphForm::CopyPicture);
  layout->setMenuBar(menu);
  // picGrEqn: the equations' labels, each in its curve's colour, dragged where the student likes.
  label_strip_ = new QWidget(this);
  left->addWidget(label_strip_);
  canvas_ = new GraphCanvas(this);
  canvas_->setMinimumSize(200, 200);
  canvas_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  left->addWidget(canvas_, 1);
  canvas_->setMouseTracking(true);
  band_ = new QRubberBand(QRubberBand::Rectangle, canvas_);
  note_ = new QLabel(this);
  note_->setWordWrap(true);
  left->addWidget(note_);
  status_ = new QLabel(this);
  status_->setMinimumWidth(200);
  left->addWidget(status_);
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
  auto* parameter = new QGroupBox("Parameter t", this);
  auto* parameter_layout = new QVBoxLayout(parameter);
  dot_box_ = new QCheckBox("Draw dot", parameter);
  slider_ = new QSlider(Qt::Horizontal, parameter);
  slider_->setRange(0, kSliderMaximum);
  dot_label_ = new QLabel(parameter);
  play_ = new QPushButton(">", parameter);
  play_->setToolTip("Play/pause the value of t");
  parameter_layout->addWidget(dot_box_);
  parameter_layout->addWidget(slider_);
  parameter_layout->addWidget(dot_label_);
  parameter_layout->addWidget(play_);
  panel->addWidget(parameter);
  timer1_ = new QTimer(this);
  timer1_->setInterval(40);
  apply_ = new QPushButton("Apply", this);
  factory_ = new QPushButton("Factory", this);
  auto* close = new QPushButton("Close", this);
  panel->addWidget(apply_);
  panel->addWidget(factory_);
  copy_ = new QPushButton("Copy to workspace", this);
  copy_->setToolTip("Copy the graph to the workspace");
  panel->addWidget(copy_);
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
  connect(canvas_, &GraphCanvas::MouseMoved, this, &GraphForm::PointerMoved);
  connect(canvas_, &GraphCanvas::MousePressed, this, &GraphForm::PointerPressed);
  connect(canvas_, &GraphCanvas::MouseReleased, this, &GraphForm::PointerReleased);
  connect(canvas_, &GraphCanvas::MouseLeft, this, [this] { status_->clear(); });
  connect(copy_, &QPushButton::clicked, this, &GraphForm::CopyToWorkSpace);
  connect(dot_box_, &QCheckBox::toggled, this, &GraphForm::DotSettingsChanged);
  connect(slider_, &QSlider::valueChanged, this, [this] {
    if (!loading_) PlaceDot();
  });
  connect(play_, &QPushButton::clicked, this, &GraphForm::PlayOrPause);
  connect(timer1_, &QTimer::timeout, this, &GraphForm::Tick);
  // DotSetup: without a parametric curve there is no dot to run.
  dot_ = DotSetup(s.EquationList);
  for (QWidget* w : {static_cast<QWidget*>(parameter), static_cast<QWidget*>(Box(9)),
                     static_cast<QWidget*>(Box(10))}) {
    w->setEnabled(dot_.Enabled());
  }
  label_strip_->installEventFilter(this);
  DrawGraphLabels();
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
  // The slider at the current t; Play stopped and the dot hidden.
  const double span = static_cast<double>(parms_.tmax) - parms_.tmin;
  const double at = span > 0 ? (parms_.t_now - parms_.tmin) * kSliderMaximum / span : 0;
  slider_->setValue(static_cast<int>(std::clamp(at, 0.0, static_cast<double>(kSliderMaximum))));
  if (timer1_->isActive()) timer1_->stop();
  play_->setText(">");
  dot_box_->setChecked(false);
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
  p.t_now = static_cast<float>(SliderToT(p.tmin, p.tmax, slider_->value()));
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
  PlaceDot();
}

void GraphForm::DrawRadiusAgainstAngle() {
  if (!HasPolarCurve(s_)) return;
  try {
    picture_ = DiagnosticRT(s_, ControlsToParms());
  } catch (const std::exception&) {
    return;  // as a drawing that fails: what was drawn stays
  }
  canvas_->SetDisplay(picture_.display);
  PlaceDot();
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

void GraphForm::SetLimits(const WindowLimits& limits) {
  GraphBoxes boxes;
  for (std::size_t k = 0; k < boxes.size(); ++k) boxes[k] = boxes_[k]->text().toStdString();
  WriteLimits(s_, limits, boxes);
  for (std::size_t k = 0; k < boxes.size(); ++k) {
    boxes_[k]->setText(QString::fromStdString(boxes[k]));
  }
  DrawGraphs();
}

namespace {

WindowLimits LimitsOf(const GraphMapping& m) { return {m.x_min, m.x_max, m.y_min, m.y_max}; }

}  // namespace

void GraphForm::ZoomIn() { SetLimits(tavimor::ZoomIn(LimitsOf(picture_.mapping))); }

void GraphForm::ZoomOut() { SetLimits(tavimor::ZoomOut(LimitsOf(picture_.mapping))); }

void GraphForm::PointerMoved(QPointF at) {
  const PixelPoint p{at.x(), at.y()};
  status_->setText(
      QString::fromStdString(PointerStatusText(picture_.mapping, picture_.margins, p, s_.Dp())));
  if (drag_start_ && zoom_rectangle_->isChecked()) {
    band_->setGeometry(
        QRect(QPoint(static_cast<int>(drag_start_->x), static_cast<int>(drag_start_->y)),
              at.toPoint())
            .normalized());
    band_->show();
  }
}

void GraphForm::PointerPressed(QPointF at) {
  const PixelPoint p{at.x(), at.y()};
  if (InsidePlot(picture_.margins, p)) drag_start_ = p;
}

void GraphForm::PointerReleased(QPointF at) {
  band_->hide();
  if (!drag_start_) return;
  const PixelPoint start = *drag_start_;
  drag_start_.reset();
  const PixelPoint now{at.x(), at.y()};
  if (zoom_rectangle_->isChecked()) {
    const auto limits =
        ZoomToRectangle(picture_.mapping, start, now, parms_.x_divisions, parms_.y_divisions);
    if (limits) SetLimits(*limits);
  } else if (start.x != now.x || start.y != now.y) {
    SetLimits(Pan(picture_.mapping, start, now, parms_.x_divisions, parms_.y_divisions));
  }
}

void GraphForm::DotSettingsChanged() {
  slider_->setMaximum(kSliderMaximum);
  dot_label_->setVisible(dot_box_->isChecked());
  PlaceDot();
}

void GraphForm::PlaceDot() {
  std::optional<QPointF> at;
  QColor colour;
  const int k = slider_->value();
  const double t = SliderToT(parms_.tmin, parms_.tmax, k);
  dot_label_->setText(QString::fromStdString(DotLabelText(t, s_.Dp())));
  if (dot_box_->isChecked() && dot_.dot_row) {
    for (const GraphCurve& curve : picture_.curves) {
      if (curve.row != *dot_.dot_row || !curve.samples) continue;
      const auto p = DotPosition(*curve.samples, k, picture_.mapping, picture_.margins);
      if (p) at = QPointF(p->x, p->y);
      colour = ToQColor(curve.colour);
    }
  }
  canvas_->SetDot(at, colour);
}

void GraphForm::PlayOrPause() {
  if (timer1_->isActive()) {
    timer1_->stop();
    play_->setText(">");
  } else {
    timer1_->start();
    play_->setText("II");
  }
}

void GraphForm::Tick() {
  const PlayStep step = PlayTick(slider_->value());
  slider_->setValue(step.position);
  if (step.stop) play_->click();
}

void GraphForm::CopyPicture() { QApplication::clipboard()->setImage(canvas_->grab().toImage()); }

void GraphForm::CopyToWorkSpace() {
  GraphBoxes boxes;
  for (std::size_t k = 0; k < boxes.size(); ++k) boxes[k] = boxes_[k]->text().toStdString();
  if (ValidateGraphSettings(s_, boxes).Failed()) {
    Apply();  // shows the refusal
    return;
  }
  GraphParms p = ControlsToParms();
  StoreCurveColours(s_, p);
  s_.GraphParms = GraphParmsText(s_, p);
  CopyGraphToWorkSpace(s_, tavimor::DrawGraphs(s_, p));
}

void GraphForm::DrawGraphLabels() {
  // Stacked at first, one line each; the strip fits them.
  int y = 2;
  for (std::size_t i = 0; i < s_.EquationList.size(); ++i) {
    const EquationRow& row = s_.EquationList[i];
    QString line = QString::fromStdString(row[0] + "=" + row[1]);
    const std::size_t first = i;
    if (row[3] == kGraphParametricX && i + 1 < s_.EquationList.size()) {
      line += QString::fromStdString("; " + s_.EquationList[i + 1][0] + "=" +
                                     s_.EquationList[i + 1][1]);
      ++i;
    }
    auto* label = new QLabel(line + "  (" + KindName(row[3]) + ")", label_strip_);
    label->adjustSize();
    label->move(4, y);
    label->installEventFilter(this);
    label->setCursor(Qt::OpenHandCursor);
    y += label->height() + 2;
    labels_.push_back(label);
    label_rows_.push_back(first);
    label_places_.emplace_back(0, 0);
  }
  label_strip_->setMinimumHeight(y);
  for (std::size_t k = 0; k < labels_.size(); ++k) {
    label_places_[k] = QPointF(labels_[k]->x() / std::max(1.0, 1.0 * canvas_->width()),
                               labels_[k]->y() / std::max(1.0, 1.0 * label_strip_->height()));
  }
  RecolorGraphLabels();
}

void GraphForm::MoveGraphLabels() {
  // position = left + fraction x width
  for (std::size_t k = 0; k < labels_.size(); ++k) {
    labels_[k]->move(static_cast<int>(label_places_[k].x() * canvas_->width()),
                     static_cast<int>(label_places_[k].y() * label_strip_->height()));
  }
}

void GraphForm::RecolorGraphLabels() {
  for (std::size_t k = 0; k < labels_.size(); ++k) {
    const EquationRow& row = s_.EquationList[label_rows_[k]];
    const QColor colour = ToQColor(static_cast<GraphColour>(std::atoi(row[2].c_str())));
    labels_[k]->setStyleSheet(QString("color: %1").arg(colour.name()));
  }
}

void GraphForm::DeleteLabel(std::size_t k) { labels_[k]->hide(); }

void GraphForm::RecolourCurve(std::size_t k, QColor colour) {
  const std::size_t row = label_rows_[k];
  const std::string value =
      std::to_string(colour.red() | (colour.green() << 8) | (colour.blue() << 16));
  s_.EquationList[row][2] = value;
  // Both rows of a parametric pair.
  if (s_.EquationList[row][3] == kGraphParametricX && row + 1 < s_.EquationList.size()) {
    s_.EquationList[row + 1][2] = value;
  }
  RecolorGraphLabels();
  DrawGraphs();
}

void GraphForm::MoveDotOnto(std::size_t k) {
  if (s_.EquationList[label_rows_[k]][3] != kGraphParametricX) return;
  dot_.dot_row = label_rows_[k];
  DrawGraphs();
}

void GraphForm::LabelMenu(std::size_t k, QPoint global) {
  QMenu menu(this);
  QAction* remove = menu.addAction("Delete label");
  QAction* recolour = menu.addAction("Change color");
  QAction* dot = menu.addAction("Move dot onto this curve");
  dot->setEnabled(s_.EquationList[label_rows_[k]][3] == kGraphParametricX);
  QAction* chosen = menu.exec(global);
  if (chosen == remove) {
    DeleteLabel(k);
  } else if (chosen == recolour) {
    const EquationRow& row = s_.EquationList[label_rows_[k]];
    const QColor now = ToQColor(static_cast<GraphColour>(std::atoi(row[2].c_str())));
    const QColor picked = QColorDialog::getColor(now, this);
    if (picked.isValid()) RecolourCurve(k, picked);
  } else if (chosen == dot) {
    MoveDotOnto(k);
  }
}

bool GraphForm::eventFilter(QObject* watched, QEvent* event) {
  if (watched == label_strip_) {
    if (event->type() == QEvent::Resize) MoveGraphLabels();
    return QDialog::eventFilter(watched, event);
  }
  const auto found = std::find(labels_.begin(), labels_.end(), watched);
  if (found == labels_.end()) return QDialog::eventFilter(watched, event);
  const auto k = static_cast<std::size_t>(found - labels_.begin());
  QLabel* label = *found;
  const QEvent::Type type = event->type();
  if (type == QEvent::MouseButtonPress) {
    const auto* mouse = static_cast<QMouseEvent*>(event);
    if (mouse->button() == Qt::RightButton) {
      LabelMenu(k, mouse->globalPosition().toPoint());
    } else if (mouse->button() == Qt::LeftButton) {
      label_grab_ = mouse->position().toPoint();
    }
    return true;
  }
  if (type == QEvent::MouseMove && label_grab_) {
    const auto* mouse = static_cast<QMouseEvent*>(event);
    QPoint to = label->mapToParent(mouse->position().toPoint()) - *label_grab_;
    to.setX(std::clamp(to.x(), 0, std::max(0, label_strip_->width() - label->width())));
    to.setY(std::clamp(to.y(), 0, std::max(0, label_strip_->height() - label->height())));
    label->move(to);
    return true;
  }
  if (type == QEvent::MouseButtonRelease && label_grab_) {
    label_grab_.reset();
    label_places_[k] = QPointF(label->x() / std::max(1.0, 1.0 * canvas_->width()),
                               label->y() / std::max(1.0, 1.0 * label_strip_->height()));
    return true;
  }
  return QDialog::eventFilter(watched, event);
}

}  // namespace tavimor
