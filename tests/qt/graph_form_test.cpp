// The graph window driven offscreen: it paints the curves, refuses bad settings, goes back to
// the factory settings, redraws at a new size, and writes its settings back on closing. The
// picture is saved under /tmp to look at.
#include <QApplication>
#include <QCheckBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

#include "core/node_pool.h"
#include "graph/classify_graphs.h"
#include "graph/graph_parms.h"
#include "qt/graph_form.h"
#include "support/recording_frontend.h"

namespace tavimor {

class GraphFormTest : public QObject {
  Q_OBJECT

 private:
  // A session with the equations classified.
  void Prepare(const std::vector<std::pair<std::string, std::string>>& equations) {
    s_ = std::make_unique<Session>(frontend_);
    InitFunctionTable(*s_);
    InitNodePool(*s_);
    for (const auto& [left, right] : equations) s_->EquationList.push_back({left, right, "", ""});
    QCOMPARE(QString::fromStdString(ClassifyGraphs(*s_)), QString());
  }
  static int CountPolylines(const GraphForm& form) {
    int count = 0;
    for (const GraphItem& item : form.Canvas()->Display().items) {
      if (item.type == GraphItem::Type::Polyline) ++count;
    }
    return count;
  }

  RecordingFrontend frontend_;
  std::unique_ptr<Session> s_;

 private slots:
  void PaintsTheCurvesInTheirColours() {
    Prepare({{"y", "x^2/4-5"}, {"y", "1/x"}, {"r", "4"}});
    GraphForm form(nullptr, *s_);
    form.show();
    QVERIFY(QTest::qWaitForWindowExposed(&form));
    QCOMPARE(CountPolylines(form), 4);  // the parabola, two branches of 1/x, the circle
    const QImage image = form.Canvas()->grab().toImage();
    image.save("/tmp/tavimor_graph_form.png");
    form.grab().save("/tmp/tavimor_graph_window.png");
    // The parabola's vertex (0, -5) is red; the circle crosses the positive x axis in green.
    const GraphMapping& map = form.Picture().mapping;
    const auto near = [&](double x, double y, QColor colour) {
      const int px = static_cast<int>(map.WorldToPixelX(x));
      const int py = static_cast<int>(map.WorldToPixelY(y));
      for (int dx = -2; dx <= 2; ++dx) {
        for (int dy = -2; dy <= 2; ++dy) {
          const QColor c = image.pixelColor(px + dx, py + dy);
          if (std::abs(c.red() - colour.red()) < 60 && std::abs(c.green() - colour.green()) < 60 &&
              std::abs(c.blue() - colour.blue()) < 60) {
            return true;
          }
        }
      }
      return false;
    };
    QVERIFY(near(0, -5, QColor(255, 0, 0)));
    QVERIFY(near(4, 0.5, QColor(0, 255, 0)));
    QVERIFY(form.Note()->text().isEmpty());
  }

  void RefusesTooManyDivisionsAndKeepsThePicture() {
    Prepare({{"y", "x"}});
    GraphForm form(nullptr, *s_);
    form.SetQuiet(true);
    const std::size_t items = form.Canvas()->Display().items.size();
    form.Box(3)->setText("51");
    form.Apply();
    QCOMPARE(form.LastRefusal(), QString("The number of divisions is too big."));
    QCOMPARE(form.Canvas()->Display().items.size(), items);
    form.Box(3)->setText("50");
    form.Apply();
    QVERIFY(form.LastRefusal().isEmpty());
    QVERIFY(form.Canvas()->Display().items.size() > items);
  }

  void FactoryPutsTheDefaultWindowBack() {
    Prepare({{"y", "x"}});
    s_->GraphParms =
        "500;500;0;5;5;5;0;5;5;5;1;1;3;0;0;1;255;16711680;65280;8421504;8388736;"
        "16711935;8421376;8388608;32768;0";
    GraphForm form(nullptr, *s_);
    QCOMPARE(form.Box(1)->text(), QString("0"));
    QVERIFY(form.GridBox()->isChecked());
    form.Factory();
    QCOMPARE(form.Box(1)->text(), QString("-10"));
    QVERIFY(!form.GridBox()->isChecked());
    QCOMPARE(form.Picture().mapping.x_min, -10.0f);
  }

  void ResizingRedrawsAtTheNewSize() {
    Prepare({{"y", "x"}});
    GraphForm form(nullptr, *s_);
    form.show();
    QVERIFY(QTest::qWaitForWindowExposed(&form));
    form.resize(form.width() + 200, form.height() + 100);
    QTRY_COMPARE(form.Canvas()->Display().width, form.Canvas()->width());
    QCOMPARE(form.Canvas()->Display().height, form.Canvas()->height());
    QCOMPARE(form.Picture().margins.right, form.Canvas()->width() - 38);
  }

  void ClosingWritesTheSettingsBackOnlyWhenValid() {
    Prepare({{"y", "x"}});
    GraphForm form(nullptr, *s_);
    form.Box(2)->setText("20");
    form.accept();
    QCOMPARE(QString::fromStdString(GetPieceOf(s_->GraphParms, 4)), QString("20"));
    GraphForm again(nullptr, *s_);
    again.Box(2)->setText("-20");  // below the minimum: not written
    again.accept();
    QCOMPARE(QString::fromStdString(GetPieceOf(s_->GraphParms, 4)), QString("20"));
  }

  void PaintsAnImplicitCurveAsOneContour() {
    Prepare({{"x^2+y^2", "4"}});
    GraphForm form(nullptr, *s_);
    form.show();
    QVERIFY(QTest::qWaitForWindowExposed(&form));
    QCOMPARE(CountPolylines(form), 1);
    const QImage image = form.Canvas()->grab().toImage();
    image.save("/tmp/tavimor_graph_contour.png");
    const GraphMapping& map = form.Picture().mapping;
    const QColor c = image.pixelColor(static_cast<int>(map.WorldToPixelX(0)),
                                      static_cast<int>(map.WorldToPixelY(2)));
    QVERIFY2(c.red() > 200 && c.green() < 120, qPrintable(c.name()));
    QVERIFY(form.Note()->text().isEmpty());
  }

 private:
  static std::string GetPieceOf(const std::string& text, int k) {
    std::size_t at = 0;
    for (int i = 1; i < k; ++i) at = text.find(';', at) + 1;
    return text.substr(at, text.find(';', at) - at);
  }
};

}  // namespace tavimor

QTEST_MAIN(tavimor::GraphFormTest)
#include "graph_form_test.moc"
