#include "testing/vxpaintwatch.h"
#include "testing/vxscenebuilder.h"
#include "testing/vxtestmain.h"
#include "timepanetestbase.h"
#include "vxtimeline/dopesheet/vxdopesheetview.h"

#include <QtGui/QScreen>
#include <QtGui/QWindow>
#include <QtWidgets/QHeaderView>
#include <vxcore/vxnode.h>

// What is on the screen after changes of the time that repaint no more than they must: the same as
// after a repaint of everything.
class TestTimePaneScrub : public QObject, private TimePaneTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { tearDown(); }

    void nothingIsLeftBehind_data();
    void nothingIsLeftBehind();
    void onlyTheLineIsPainted();

private:
    QImage onScreen() const;
    void change(const QByteArray &what, int number);
};

void TestTimePaneScrub::init()
{
    setUp();
    VxSceneBuilder builder(vxScene);
    builder.addSkeleton(QStringLiteral("figure"), 12);
    builder.keyChannels(vxScene->getNodes(), 31, 480);
    addChoices(TimePaneChoice::PropertyTypeFamily, {1, 2, 4, 8});
    pane->setFilteredPropertyTypes(VxTimePane::PropertyTypes(15));
    vxScene->setAnimRange(VxTimeRange(0, 160 * 120));
    vxScene->setPlayRange(VxTimeRange(0, 160 * 120));
    showPane(1200, 500);
    pane->getDopeSheetView()->expandToDepth(2);
    onScreen();
}

// The window's content as it was left by the last repaints.
QImage TestTimePaneScrub::onScreen() const
{
    for (int i = 0; i < 10; ++i)
        QCoreApplication::processEvents();
    return pane->screen()->grabWindow(pane->winId()).toImage();
}

void TestTimePaneScrub::change(const QByteArray &what, int number)
{
    VxDopeSheetView *view = pane->getDopeSheetView();
    if (what == "time")
        vxScene->setTime(number * 160);
    else if (what == "start")
        vxScene->setPlayRange(VxTimeRange(number * 160, 160 * 120));
    else if (what == "names")
        view->setColumnWidth(VxDopeSheetView::NameColumn, number);
    else if (what == "width")
        pane->resize(number, 500);
    else if (what == "select")
        vxScene->getNodes().at(number)->select(true);
    else
        view->setExpanded(view->model()->index(0, 0), number != 0);
}

void TestTimePaneScrub::nothingIsLeftBehind_data()
{
    using Steps = QVector<QPair<QByteArray, int>>;
    QTest::addColumn<Steps>("steps");
    QTest::newRow("time") << Steps{{"time", 7}, {"time", 8}, {"time", 60}, {"time", 3}};
    QTest::newRow("times within one repaint")
        << Steps{{"time", 7}, {"+time", 8}, {"+time", 60}, {"+time", 9}, {"time", 10}};
    QTest::newRow("range") << Steps{{"time", 40}, {"start", 10}, {"time", 50}, {"start", 0}};
    QTest::newRow("range and time at once")
        << Steps{{"time", 40}, {"start", 10}, {"+time", 50}, {"+start", 20}, {"time", 60}};
    QTest::newRow("time before the range") << Steps{{"start", 30}, {"time", 5}, {"time", 40}};
    QTest::newRow("name column") << Steps{{"time", 40}, {"names", 180}, {"time", 50}};
    QTest::newRow("size") << Steps{{"time", 40}, {"width", 1000}, {"time", 50}, {"width", 1300}};
    QTest::newRow("rows") << Steps{{"time", 40}, {"open", 0}, {"+time", 50}, {"open", 1}};
    QTest::newRow("selection") << Steps{{"select", 3}, {"time", 40}, {"select", 1}, {"time", 50}};
}

// A step with a plus is not waited for.
void TestTimePaneScrub::nothingIsLeftBehind()
{
    using Steps = QVector<QPair<QByteArray, int>>;
    QFETCH(Steps, steps);
    QImage last = onScreen();
    for (int i = 0; i < steps.size(); ++i) {
        const QByteArray what = steps.at(i).first;
        change(what.startsWith('+') ? what.mid(1) : what, steps.at(i).second);
        if (i + 1 < steps.size() && steps.at(i + 1).first.startsWith('+'))
            continue;
        const QImage shown = onScreen();
        QVERIFY2(shown != last, "nothing has changed on the screen");
        pane->getDopeSheetView()->viewport()->update();
        QCOMPARE(shown, onScreen());
        last = shown;
    }
}

void TestTimePaneScrub::onlyTheLineIsPainted()
{
    vxScene->setTime(40 * 160);
    onScreen();
    const VxDopeSheetView *view = pane->getDopeSheetView();
    const VxPaintWatch painted(view->viewport());
    vxScene->setTime(41 * 160);
    onScreen();
    const auto lineAt = [view](VxTime time) {
        return TimelineMetrics::shared().keyMiddle(view->columnWidth(0), time, 0);
    };
    QVERIFY(painted.region.contains(QPoint(lineAt(40 * 160), 50)));
    QVERIFY(painted.region.contains(QPoint(lineAt(41 * 160), 50)));
    int area = 0;
    for (const QRect &rect : painted.region)
        area += rect.width() * rect.height();
    QVERIFY(area <= 10 * view->viewport()->height());
}

VX_TEST_MAIN(TestTimePaneScrub)
#include "tst_timepanescrub.moc"
