// The parabola sketch painted offscreen: the blue dots at the roots, the curve through its vertex,
// and the picture in the work space. Both are also saved as pictures under /tmp to look at.
#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QTest>

#include "present/rich_text.h"
#include "qt/display_painter.h"
#include "qt/work_space_view.h"
#include "solve/parabola_sketch.h"

namespace tavimor {

namespace {

constexpr qreal kScale = 3.0;

bool IsBlue(QRgb pixel) { return qBlue(pixel) > 180 && qRed(pixel) < 100 && qGreen(pixel) < 100; }
bool IsDark(QRgb pixel) { return qRed(pixel) < 110 && qGreen(pixel) < 110 && qBlue(pixel) < 110; }

// Whether a pixel within `reach` of the point passes the test.
template <typename Test>
bool Near(const QImage& image, qreal x, qreal y, int reach, Test test) {
  for (int dy = -reach; dy <= reach; ++dy) {
    for (int dx = -reach; dx <= reach; ++dx) {
      const int px = static_cast<int>(x) + dx;
      const int py = static_cast<int>(y) + dy;
      if (image.valid(px, py) && test(image.pixel(px, py))) return true;
    }
  }
  return false;
}

}  // namespace

class ParabolaSketchPaintTest : public QObject {
  Q_OBJECT

 private slots:
  void PaintsBlueDotsAtTheRootsAndTheCurveThroughTheVertex() {
    const ParabolaSketch sketch = SketchParabola(1, -1, -6, {3, -2});
    QImage image(static_cast<int>(kSketchWidth * kScale), static_cast<int>(kSketchHeight * kScale),
                 QImage::Format_RGB32);
    image.fill(Qt::white);
    {
      QPainter painter(&image);
      PaintDrawing(painter, sketch.drawing, QPointF(0, 0), kScale, Qt::black);
    }
    QVERIFY(image.save(QStringLiteral("/tmp/parabola_sketch.png")));
    for (const double root : {3.0, -2.0}) {
      QVERIFY(IsBlue(image.pixel(static_cast<int>(sketch.ToX(root) * kScale),
                                 static_cast<int>(sketch.ToY(0) * kScale))));
    }
    // The vertex (1/2, -25/4) lies on the painted curve.
    QVERIFY(Near(image, sketch.ToX(0.5) * kScale, sketch.ToY(-6.25) * kScale, 3, IsDark));
    // The x axis runs across, away from the dots.
    QVERIFY(Near(image, sketch.ToX(-3.5) * kScale, sketch.ToY(0) * kScale, 2, IsDark));
    // A corner far from the curve and the axes stays blank.
    QCOMPARE(image.pixel(2, image.height() - 2), QColor(Qt::white).rgb());
  }

  void ShowsInTheWorkSpace() {
    WorkSpaceView view;
    view.resize(480, 360);
    Picture picture;
    picture.relation = kRelationEquals;
    picture.left = "y";
    picture.right = "x^2-x-6";
    picture.drawing = SketchParabola(1, -1, -6, {3, -2}).drawing;
    RichRun tab;
    tab.kind = RunKind::Tab;
    view.Append(tab);
    RichRun run;
    run.kind = RunKind::Picture;
    run.picture = picture;
    view.Append(run);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    const QImage shot = view.grab().toImage();
    QVERIFY(shot.save(QStringLiteral("/tmp/parabola_sketch_work_space.png")));
    int blue = 0;
    int dark = 0;
    for (int y = 0; y < shot.height(); ++y) {
      for (int x = 0; x < shot.width(); ++x) {
        blue += IsBlue(shot.pixel(x, y)) ? 1 : 0;
        dark += IsDark(shot.pixel(x, y)) ? 1 : 0;
      }
    }
    QVERIFY(blue > 20);   // two dots
    QVERIFY(dark > 200);  // the axes and the curve
    // Copying gives the function back.
    QCOMPARE(view.HiddenText().contains(QStringLiteral("y=x^2-x-6")), true);
  }
};

}  // namespace tavimor

QTEST_MAIN(tavimor::ParabolaSketchPaintTest)
#include "parabola_sketch_paint_test.moc"
