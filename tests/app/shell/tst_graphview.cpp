// The key graph's buttons by the keyboard.

#include "studiotestbase.h"
#include "testing/vxtestmain.h"

#include <QStatusBar>
#include <QTreeView>
#include <vxcore/vxscriptengine.h>

class tst_GraphView : public QObject, private StudioTest
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup() { tearDown(); }

    void panAndZoom();
    void withoutAGraph();

private:
    /// The vertical extent of the curve in pixels of its colour; null for none.
    QRect curve() const;
    QWidget *graph() const { return inTimePane<QWidget>("TimelineKeyGraphView"); }
};

void tst_GraphView::init()
{
    setUp();
    start({"--size", "1600x1200"});
    openSample();
    auto *sheet = inTimePane<QTreeView>("TimelineDopeSheetTView");
    sheet->expandAll();
    const QModelIndexList rows =
        sheet->model()->match(sheet->model()->index(0, 0), Qt::DisplayRole,
                              QStringLiteral("X Rotate"), -1, Qt::MatchRecursive);
    // One whose curve is not a straight line.
    for (const QModelIndex &row : rows) {
        sheet->setCurrentIndex(row);
        QCoreApplication::processEvents();
        if (curve().height() > graph()->height() / 2)
            return;
    }
    QFAIL("no curve");
}

QRect tst_GraphView::curve() const
{
    const QImage picture = graph()->grab().toImage();
    QRect extent;
    for (int y = 0; y < picture.height(); ++y) {
        // Right of the labels.
        for (int x = picture.width() / 3; x < picture.width(); ++x) {
            const QColor pixel = picture.pixelColor(x, y);
            if (pixel.red() > pixel.green() + 80 && pixel.red() > pixel.blue() + 80)
                extent |= QRect(x, y, 1, 1);
        }
    }
    return extent;
}

void tst_GraphView::panAndZoom()
{
    QTest::mouseClick(inTimePane<QWidget>("KeyGraphFrameBtn"), Qt::LeftButton);
    graph()->setFocus();
    QVERIFY(curve().height() > graph()->height() / 2);
    // Small, so that it stays within the view.
    for (int i = 0; i < 2; ++i)
        type(Qt::Key_PageDown, Qt::ControlModifier | Qt::AltModifier);
    const QRect before = curve();
    QVERIFY2(before.height() > 10 && before.height() < graph()->height() * 3 / 4,
             qPrintable(QStringLiteral("%1 of %2").arg(before.height()).arg(graph()->height())));
    type(Qt::Key_Up, Qt::ControlModifier | Qt::AltModifier);
    const QRect lower = curve();
    QVERIFY2(qAbs(lower.top() - before.top() - graph()->height() / 8) <= 2,
             qPrintable(QString::number(lower.top() - before.top())));
    type(Qt::Key_Down, Qt::ControlModifier | Qt::AltModifier);
    QCOMPARE(curve(), before);
    type(Qt::Key_PageUp, Qt::ControlModifier | Qt::AltModifier);
    QVERIFY(curve().height() > before.height());
    type(Qt::Key_PageDown, Qt::ControlModifier | Qt::AltModifier);
    QVERIFY(qAbs(curve().height() - before.height()) <= 2);
    QVERIFY(vxApp->getUndoStack()->isClean());
}

void tst_GraphView::withoutAGraph()
{
    vxApp->getScriptEngine()->evaluate(QStringLiteral("App.findPane('VxTimePane').setViewMode(0)"),
                                       QStringLiteral("test"), nullptr);
    type(Qt::Key_Up, Qt::ControlModifier | Qt::AltModifier);
    QVERIFY2(window()->statusBar()->currentMessage().contains("not visible"),
             qPrintable(window()->statusBar()->currentMessage()));
}

VX_TEST_MAIN(tst_GraphView)
#include "tst_graphview.moc"
