// GraphForm: the graph window. It paints the engine's display list (graph/draw_graphs.h) and maps
// the settings panel onto GraphParms; the drawing itself is the engine's.
#pragma once

#include <QDialog>
#include <QWidget>
#include <array>
#include <optional>
#include <vector>

#include "graph/draw_graphs.h"
#include "graph/graph_interaction.h"

class QAction;
class QCheckBox;
class QRubberBand;
class QSlider;
class QTimer;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QSpinBox;

namespace tavimor {

class Session;

// Paints a display list with antialiasing; its size is the drawing area's.
class GraphCanvas : public QWidget {
  Q_OBJECT

 public:
  explicit GraphCanvas(QWidget* parent) : QWidget(parent) {}
  void SetDisplay(DisplayList display);
  const DisplayList& Display() const { return display_; }
  // The size the window opens the drawing area at (the settings' width and height).
  void SetPreferredSize(QSize size) { preferred_ = size; }
  QSize sizeHint() const override { return preferred_; }
  // The moving dot of a parametric curve, painted over the picture; nothing hides it.
  void SetDot(std::optional<QPointF> at, QColor colour);
  const std::optional<QPointF>& Dot() const { return dot_; }

 signals:
  void Resized();
  void MouseMoved(QPointF at);
  void MousePressed(QPointF at);
  void MouseReleased(QPointF at);
  void MouseLeft();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;

 private:
  DisplayList display_;
  QSize preferred_{500, 500};
  std::optional<QPointF> dot_;
  QColor dot_colour_;
};

class GraphForm : public QDialog {
  Q_OBJECT

 public:
  GraphForm(QWidget* parent, Session& s);

  // The widgets, for the tests.
  GraphCanvas* Canvas() const { return canvas_; }
  QLineEdit* Box(int k) const { return boxes_[static_cast<std::size_t>(k - 1)]; }  // 1 to 10
  QPushButton* ApplyButton() const { return apply_; }
  QPushButton* FactoryButton() const { return factory_; }
  QCheckBox* GridBox() const { return grid_; }
  QCheckBox* AxesBox() const { return axes_; }
  QRadioButton* FrameStyle() const { return frame_style_; }
  QLabel* Note() const { return note_; }
  QAction* ZoomInAction() const { return zoom_in_; }
  QAction* ZoomOutAction() const { return zoom_out_; }
  QAction* ZoomRectangleAction() const { return zoom_rectangle_; }
  QAction* PanAction() const { return pan_; }
  QLabel* StatusText() const { return status_; }
  QCheckBox* DotBox() const { return dot_box_; }
  QSlider* SliderT() const { return slider_; }
  QLabel* DotLabel() const { return dot_label_; }
  QPushButton* PlayButton() const { return play_; }
  QTimer* Timer1() const { return timer1_; }
  QPushButton* CopyButton() const { return copy_; }
  // The equation labels above the picture, one for each curve, and the row each stands for.
  const std::vector<QLabel*>& EquationLabels() const { return labels_; }
  // The label's place as a fraction of the strip's width and height.
  QPointF LabelFraction(std::size_t k) const { return label_places_[k]; }
  // What the label's right-button menu does.
  void DeleteLabel(std::size_t k);
  void RecolourCurve(std::size_t k, QColor colour);
  void MoveDotOnto(std::size_t k);
  const GraphPicture& Picture() const { return picture_; }
  // The message of the last validation that failed, empty when all was well.
  const QString& LastRefusal() const { return last_refusal_; }
  // With nobody at the screen, a refusal is only kept, not shown in a message box.
  void SetQuiet(bool quiet) { quiet_ = quiet; }

  // The panel's buttons.
  void Apply();
  void Factory();
  // Draws the graph afresh from the panel at the canvas's size.
  void DrawGraphs();
  // The window's limits zoomed or moved, written to the boxes, and the graph drawn again.
  void ZoomIn();
  void ZoomOut();
  // The diagnostic graph of r against t of the polar curves; the next drawing replaces it.
  void DrawRadiusAgainstAngle();
  QAction* RadiusAgainstAngleAction() const { return r_vs_t_; }
  // Copies the picture to the clipboard as a bitmap.
  void CopyPicture();
  // Writes the heading and the picture into the work space; the window stays open.
  void CopyToWorkSpace();

 protected:
  void done(int result) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void SetLimits(const WindowLimits& limits);
  void PointerMoved(QPointF at);
  void PointerPressed(QPointF at);
  void PointerReleased(QPointF at);
  void DotSettingsChanged();
  void PlaceDot();
  void PlayOrPause();
  void Tick();
  void DrawGraphLabels();
  void MoveGraphLabels();
  void RecolorGraphLabels();
  void LabelMenu(std::size_t k, QPoint global);

  // The settings into the widgets, and the widgets into the settings.
  void ParmsToControls();
  GraphParms ControlsToParms() const;

  Session& s_;
  GraphParms parms_;
  GraphPicture picture_;
  GraphCanvas* canvas_;
  std::array<QLineEdit*, 10> boxes_{};
  QCheckBox* axes_;
  QRadioButton* frame_style_;
  QRadioButton* cross_hair_;
  QCheckBox* grid_;
  QSpinBox* thickness_;
  QPushButton* apply_;
  QPushButton* factory_;
  QLabel* note_;
  QAction* zoom_in_;
  QAction* zoom_out_;
  QAction* zoom_rectangle_;
  QAction* pan_;
  QAction* r_vs_t_;
  QLabel* status_;
  QCheckBox* dot_box_;
  QSlider* slider_;
  QLabel* dot_label_;
  QPushButton* play_;
  QTimer* timer1_;
  QPushButton* copy_;
  QRubberBand* band_;
  QWidget* label_strip_;
  std::vector<QLabel*> labels_;
  std::vector<std::size_t> label_rows_;
  std::vector<QPointF> label_places_;
  std::optional<QPoint> label_grab_;  // where the label being dragged was taken hold of
  std::optional<PixelPoint> drag_start_;
  DotChoice dot_;
  QString last_refusal_;
  bool quiet_ = false;
  bool loading_ = false;
};

}  // namespace tavimor
