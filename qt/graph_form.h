// GraphForm: the graph window. It paints the engine's display list (graph/draw_graphs.h) and maps
// the settings panel onto GraphParms; the drawing itself is the engine's.
#pragma once

#include <QDialog>
#include <QWidget>
#include <array>

#include "graph/draw_graphs.h"

class QCheckBox;
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

 signals:
  void Resized();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  DisplayList display_;
  QSize preferred_{500, 500};
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

 protected:
  void done(int result) override;

 private:
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
  QString last_refusal_;
  bool quiet_ = false;
  bool loading_ = false;
};

}  // namespace tavimor
