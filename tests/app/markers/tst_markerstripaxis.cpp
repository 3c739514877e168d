// The strip of markers in the program's window: its dock, and its columns, which are those of the
// timeline.

#include "markertestbase.h"
#include "testing/vxpaintwatch.h"
#include "testing/vxtestmain.h"

#include <QHeaderView>
#include <QTabBar>
#include <QTreeView>
#include <vxcore/vxchangeblock.h>

class tst_MarkerStripAxis : public QObject, private MarkerStripTest
{
    Q_OBJECT
private Q_SLOTS:
    void init() { startWithStrip(); }
    void cleanup() { tearDownShared(); }
    void cleanupTestCase() { endShared(); }

    void theDockIsThinAndAboveTheTimeline();
    void oneColumn_data();
    void oneColumn();
    void theStripFollowsTheTimeline();
    void shapesFollowPositionAndFont();
    void withoutATimelineThePlayRangeFillsIt();
    void aStepOfTheTimeRepaintsAllThatChanged();
};

void tst_MarkerStripAxis::theDockIsThinAndAboveTheTimeline()
{
    const PaneDock *dock = window()->docks()->find("VxMarkersPane");
    QVERIFY(dock && dock->isVisible());
    QVERIFY2(dock->height() <= 26, qPrintable(QString::number(dock->height())));
    const PaneDock *time = window()->docks()->find("VxTimePane");
    QVERIFY(areaOf(dock).bottom() < areaOf(time).top());
    QVERIFY(areaOf(time).top() - areaOf(dock).bottom() < 16);
    QCOMPARE(dock->width(), time->width());
    window()->docks()->applyDefaultSizes();
    QCoreApplication::processEvents();
    QVERIFY(dock->height() <= 26);
}

void tst_MarkerStripAxis::oneColumn_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<int>("names");
    QTest::addColumn<VxTimeRange>("frames");
    QTest::newRow("the whole animation") << QSize(1280, 800) << 250 << VxTimeRange(0, 200);
    QTest::newRow("a wide window") << QSize(1531, 900) << 250 << VxTimeRange(0, 200);
    QTest::newRow("a narrow window") << QSize(1010, 700) << 250 << VxTimeRange(0, 200);
    QTest::newRow("wide names") << QSize(1280, 800) << 477 << VxTimeRange(0, 200);
    QTest::newRow("narrow names") << QSize(1280, 800) << 131 << VxTimeRange(0, 200);
    QTest::newRow("zoomed in") << QSize(1280, 800) << 250 << VxTimeRange(37, 81);
    QTest::newRow("a few frames") << QSize(1281, 800) << 233 << VxTimeRange(100, 105);
    QTest::newRow("before zero") << QSize(1280, 800) << 250 << VxTimeRange(-120, 40);
    QTest::newRow("hours later") << QSize(1280, 800) << 250 << VxTimeRange(800000, 800100);
}

// Read from pictures: what differs with and without a marker, and with the time there or far away.
void tst_MarkerStripAxis::oneColumn()
{
    QFETCH(QSize, size);
    QFETCH(int, names);
    QFETCH(VxTimeRange, frames);
    const auto columns = [](const QImage &a, const QImage &b, const QRect &area) {
        QVector<int> found;
        for (int x = area.left(); x <= area.right(); ++x) {
            for (int y = area.top(); y <= area.bottom(); ++y) {
                if (a.pixel(x, y) != b.pixel(x, y)) {
                    found.append(x);
                    break;
                }
            }
        }
        return found;
    };
    window()->resize(size);
    auto *sheet = timePane()->findChild<QTreeView *>();
    sheet->header()->resizeSection(0, names);
    const VxTimeRange range(frames.getStart() * Step, frames.getEnd() * Step);
    vxScene->setAnimRange(VxTimeRange(qMin(0, range.getStart()), range.getEnd()));
    vxScene->setPlayRange(range);
    const VxTime away = range.getStart() - 100 * range.getDuration();
    vxScene->setTime(away);
    QRect below = areaOf(strip()); // of the flag
    below.setTop(below.bottom() - 4);
    QRect rows = areaOf(views());
    rows.setTop(rows.center().y() - 5);
    rows.setHeight(10);
    for (const int tenth : {1, 4, 9}) {
        const VxTime time = range.getStart() + range.getDuration() / Step * tenth / 10 * Step +
                            (tenth == 4 ? 0 : 7);
        const QImage without = picture();
        VxMarker marker;
        marker.span = VxTimeRange(time, time);
        const int id = markers()->add(marker);
        const QVector<int> line = columns(without, picture(), below);
        markers()->remove({id});
        vxScene->setTime(time);
        const QImage with = picture();
        vxScene->setTime(away);
        const QVector<int> playhead = columns(without, with, rows);
        const QVector<int> own = columns(without, with, below);
        QCOMPARE(line.size(), 1);
        QVERIFY(!playhead.isEmpty() && !own.isEmpty());
        QCOMPARE(line.first(), (playhead.first() + playhead.last() + 1) / 2);
        QCOMPARE((own.first() + own.last() + 1) / 2, line.first());
    }
}

// Every change of the layout is seen in the very next picture.
void tst_MarkerStripAxis::theStripFollowsTheTimeline()
{
    addMarker("a", 10, 10);
    const auto check = [this] {
        const QImage shown = picture();
        QRect area = areaOf(strip());
        area.setTop(area.bottom() - 4);
        const int line =
            views()->mapTo(window(), QPoint(VxTimeAxis::of(timePane())->xOf(10 * Step), 0)).x();
        return shown.pixel(line, area.top()) == VxMarker::DefaultColor &&
               shown.pixel(line - 3, area.top()) != VxMarker::DefaultColor;
    };
    vxScene->setTime(5 * Step);
    QVERIFY(check());
    timePane()->findChild<QTreeView *>()->header()->resizeSection(0, 321);
    QVERIFY(check());
    vxScene->setPlayRange(VxTimeRange(5 * Step, 40 * Step));
    vxScene->setTime(20 * Step);
    QVERIFY(check());
    // The timeline gets another width than the strip.
    PaneDock *time = window()->docks()->find("VxTimePane");
    window()->addDockWidget(Qt::RightDockWidgetArea, time);
    QVERIFY(check());
}

// Hits are tested by shapes that are kept between repaints.
void tst_MarkerStripAxis::shapesFollowPositionAndFont()
{
    addMarker("a very long name of a marker", 20, 20);
    addMarker("next", 50, 50);
    picture();
    QCOMPARE(strip()->shapes()[0].startX, x(20 * Step));
    QWidget *holder = strip()->parentWidget();
    const int before = x(20 * Step);
    holder->move(holder->x() + 30, holder->y());
    QCOMPARE(x(20 * Step), before - 30);
    QCOMPARE(strip()->shapes()[0].startX, before - 30);
    const QString text = strip()->shapes()[0].text;
    QFont font = strip()->font();
    font.setPointSizeF(font.pointSizeF() * 2);
    strip()->setFont(font);
    QVERIFY2(strip()->shapes()[0].text.size() < text.size(), qPrintable(text));
    // In mid block, too, where the change has not been reported yet.
    const int first = strip()->shapes()[0].id;
    const VxChangeBlock block;
    markers()->remove({first});
    QCOMPARE(strip()->shapes().size(), 1);
}

void tst_MarkerStripAxis::withoutATimelineThePlayRangeFillsIt()
{
    PaneDock *time = window()->docks()->find("VxTimePane");
    vxScene->setPlayRange(VxTimeRange(100 * Step, 200 * Step));
    const auto fills = [this] {
        QCoreApplication::processEvents();
        return !strip()->scale().isAligned() && x(100 * Step) == 8 &&
               x(200 * Step) == strip()->width() - 9 &&
               strip()->scale().timeAt(x(150 * Step)) / Step == 150 && strip()->scale().left() == 0;
    };
    const auto bringToFront = [this](const PaneDock *dock) {
        for (QTabBar *tabs :
             window()->findChildren<QTabBar *>(QString(), Qt::FindDirectChildrenOnly)) {
            for (int i = 0; i < tabs->count(); ++i) {
                if (tabs->tabText(i) == dock->windowTitle())
                    tabs->setCurrentIndex(i);
            }
        }
    };
    time->setFloating(true);
    QVERIFY(fills());
    time->setFloating(false);
    bringToFront(time);
    QTRY_VERIFY(strip()->scale().isAligned());
    bringToFront(window()->docks()->find("VxConsolePane"));
    QTRY_VERIFY(fills());
    bringToFront(time);
    QTRY_VERIFY(strip()->scale().isAligned());
    delete timePane();
    QVERIFY(fills());
    endShared(); // the other functions need a timeline
}

void tst_MarkerStripAxis::aStepOfTheTimeRepaintsAllThatChanged()
{
    vxScene->setTime(10 * Step);
    const QImage before = picture();
    VxPaintWatch watch(strip());
    vxScene->setTime(30 * Step);
    QTRY_VERIFY(watch.count > 0);
    const QRegion painted = watch.region.translated(areaOf(strip()).topLeft());
    const QImage after = picture();
    const QRect area = areaOf(strip());
    int changes = 0;
    for (int x = area.left(); x <= area.right(); ++x) {
        if (before.pixel(x, area.center().y()) == after.pixel(x, area.center().y()))
            continue;
        ++changes;
        QVERIFY2(painted.contains(QPoint(x, area.center().y())), qPrintable(QString::number(x)));
    }
    QVERIFY(changes > 1);
    QVERIFY(painted.boundingRect() != area); // and no more than that
}

VX_TEST_MAIN(tst_MarkerStripAxis)
#include "tst_markerstripaxis.moc"
