#include "testing/vxmousedriver.h"
#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"
#include "vxwidgetpictures.h"

#include <QSignalSpy>
#include <QVBoxLayout>
#include <QtTest>
#include <limits>
#include <optional>
#include <vxcore/vxdynamicdividerwgt.h>

class TestVxDynamicDividerWgt : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void namesAndOwnership();
    void halvesAtFirst();
    void barIsDragged_data();
    void barIsDragged();
    void rightToLeftMirrors();
    void otherMouseButtonsDoNotDrag();
    void dragStopsAtMinimumSizes();
    void dragIsMeasuredFromThePress();
    void dragWithoutMovementKeepsTheRatio();
    void doubleClickHalves();
    void resizingKeepsTheRatio();
    void hidingTheSecondFillsAndRestores();
    void hidingAcrossAResizeRestoresTheRatio();
    void barHiddenKeepsTheSplit();
    void hidingWidgetsDirectly();
    void marginAndSpacing();
    void minimumSizeFollowsTheWidgets();
    void childMinimumChangesRelayOut();
    void ratioOutsideIsClampedOrRefused();
    void deletedWidgetLeavesItsPlace();
    void missingWidgetsAreAccepted();
    void cursorShowsTheDirection();
    void pictures_data();
    void pictures();

private:
    void make(Qt::Orientation orientation,
              VxDynamicDividerWgt::BarStyle style = VxDynamicDividerWgt::GripBar);
    QWidget *bar() const { return m_divider->findChild<QWidget *>("TestDvdrBar"); }

    std::optional<VxWarningGuard> m_guard;
    std::unique_ptr<VxDynamicDividerWgt> m_divider;
    QWidget *m_first = nullptr;
    QWidget *m_second = nullptr;
};

void TestVxDynamicDividerWgt::init()
{
    m_guard.emplace();
}

void TestVxDynamicDividerWgt::cleanup()
{
    m_divider.reset();
    m_guard.reset();
}

void TestVxDynamicDividerWgt::make(Qt::Orientation orientation, VxDynamicDividerWgt::BarStyle style)
{
    m_first = new QWidget;
    m_second = new QWidget;
    m_divider = std::make_unique<VxDynamicDividerWgt>(m_first, m_second, nullptr, orientation,
                                                      "TestDvdr", style);
    m_divider->resize(400, 400);
    m_divider->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_divider.get()));
}

void TestVxDynamicDividerWgt::namesAndOwnership()
{
    make(Qt::Vertical);
    QCOMPARE(m_divider->objectName(), QString("TestDvdr"));
    QVERIFY(bar());
    QCOMPARE(m_first->parentWidget(), m_divider.get());
    QCOMPARE(m_second->parentWidget(), m_divider.get());
}

void TestVxDynamicDividerWgt::halvesAtFirst()
{
    make(Qt::Vertical);
    const int shared = 400 - bar()->height();
    QCOMPARE(m_divider->ratio(), 0.5);
    QCOMPARE(m_first->geometry(), QRect(0, 0, 400, (shared + 1) / 2));
    QCOMPARE(bar()->geometry(), QRect(0, m_first->height(), 400, bar()->height()));
    QCOMPARE(m_second->y(), bar()->geometry().bottom() + 1);
    QCOMPARE(m_second->geometry().bottom(), 399);
    QVERIFY(m_first->isVisible() && bar()->isVisible() && m_second->isVisible());
}

void TestVxDynamicDividerWgt::barIsDragged_data()
{
    QTest::addColumn<Qt::Orientation>("orientation");
    QTest::addColumn<int>("distance");
    QTest::newRow("down") << Qt::Vertical << 60;
    QTest::newRow("up") << Qt::Vertical << -73;
    QTest::newRow("right") << Qt::Horizontal << 61;
    QTest::newRow("left") << Qt::Horizontal << -100;
    QTest::newRow("beyond the end") << Qt::Vertical << 1000;
    QTest::newRow("beyond the start") << Qt::Vertical << -1000;
}

void TestVxDynamicDividerWgt::barIsDragged()
{
    QFETCH(Qt::Orientation, orientation);
    QFETCH(int, distance);
    make(orientation);
    QSignalSpy changed(m_divider.get(), &VxDynamicDividerWgt::ratioChanged);
    const bool vertical = orientation == Qt::Vertical;
    const QList<int> before = m_divider->sizes();
    const int shared = before.at(0) + before.at(1);
    const QPoint from = bar()->rect().center();
    // The way across the split does not count.
    VxMouseDriver(bar()).drag(from,
                              from + (vertical ? QPoint(50, distance) : QPoint(distance, 50)));
    const int expected = qBound(0, before.at(0) + distance, shared);
    QCOMPARE(m_divider->sizes(), QList<int>({expected, shared - expected}));
    QCOMPARE(vertical ? m_first->height() : m_first->width(), expected);
    QCOMPARE(vertical ? bar()->y() : bar()->x(), expected);
    QVERIFY(changed.count() >= 1);
    QCOMPARE(changed.last().at(0).toDouble(), m_divider->ratio());
}

void TestVxDynamicDividerWgt::rightToLeftMirrors()
{
    make(Qt::Horizontal);
    m_divider->setLayoutDirection(Qt::RightToLeft);
    QVERIFY(m_first->x() > m_second->x());
    QCOMPARE(m_first->geometry().right(), 399);
    const int before = m_first->width();
    const QPoint from = bar()->rect().center();
    VxMouseDriver(bar()).drag(from, from + QPoint(-40, 0));
    QCOMPARE(m_first->width(), before + 40);
}

void TestVxDynamicDividerWgt::otherMouseButtonsDoNotDrag()
{
    make(Qt::Vertical);
    const QPoint from = bar()->rect().center();
    VxMouseDriver(bar()).drag(from, from + QPoint(0, 50), Qt::RightButton);
    QCOMPARE(m_divider->ratio(), 0.5);
}

void TestVxDynamicDividerWgt::dragStopsAtMinimumSizes()
{
    make(Qt::Vertical);
    m_first->setMinimumHeight(100);
    m_second->setMinimumHeight(70);
    const QPoint from = bar()->rect().center();
    VxMouseDriver mouse(bar());
    mouse.drag(from, from + QPoint(0, -300));
    QCOMPARE(m_first->height(), 100);
    mouse.drag(from, from + QPoint(0, 500));
    QCOMPARE(m_second->height(), 70);
    QCOMPARE(m_second->geometry().bottom(), 399);
}

void TestVxDynamicDividerWgt::dragIsMeasuredFromThePress()
{
    make(Qt::Vertical);
    m_first->setMinimumHeight(150);
    const int before = m_first->height();
    const QPoint from = bar()->mapTo(m_divider.get(), bar()->rect().center());
    VxMouseDriver mouse(m_divider.get());
    mouse.press(from);
    mouse.moveTo(from + QPoint(0, -190)); // far into the minimum
    QCOMPARE(m_first->height(), 150);
    mouse.moveTo(from + QPoint(0, 10)); // the way back is not used up by the minimum
    QCOMPARE(m_first->height(), before + 10);
    mouse.release(from + QPoint(0, 10));
    mouse.moveTo(from + QPoint(0, 30));
    QCOMPARE(m_first->height(), before + 10);
}

void TestVxDynamicDividerWgt::dragWithoutMovementKeepsTheRatio()
{
    make(Qt::Vertical);
    m_divider->setRatio(1.0 / 3.0);
    QSignalSpy changed(m_divider.get(), &VxDynamicDividerWgt::ratioChanged);
    const QPoint from = bar()->rect().center();
    VxMouseDriver(bar()).drag(from, from + QPoint(30, 0)); // along the bar
    QCOMPARE(m_divider->ratio(), 1.0 / 3.0);
    QCOMPARE(changed.count(), 0);
}

void TestVxDynamicDividerWgt::doubleClickHalves()
{
    make(Qt::Vertical);
    m_divider->setRatio(0.2);
    QVERIFY(m_first->height() < 100);
    VxMouseDriver(bar()).doubleClick(bar()->rect().center(), Qt::RightButton);
    QCOMPARE(m_divider->ratio(), 0.2);
    VxMouseDriver(bar()).doubleClick(bar()->rect().center());
    QCOMPARE(m_divider->ratio(), 0.5);
    QVERIFY(qAbs(m_first->height() - m_second->height()) <= 1);
}

void TestVxDynamicDividerWgt::resizingKeepsTheRatio()
{
    make(Qt::Vertical);
    m_divider->setRatio(0.25);
    const QList<int> before = m_divider->sizes();
    m_divider->resize(400, 60);
    m_divider->resize(400, 800);
    QCOMPARE(m_divider->sizes().at(0), qRound((800 - bar()->height()) * 0.25));
    m_divider->resize(400, 400);
    QCOMPARE(m_divider->sizes(), before);
}

void TestVxDynamicDividerWgt::hidingTheSecondFillsAndRestores()
{
    make(Qt::Vertical);
    m_divider->setRatio(0.3);
    const QList<int> before = m_divider->sizes();
    m_divider->setSecondWidgetHidden(true);
    QVERIFY(m_divider->isSecondWidgetHidden());
    QVERIFY(!m_second->isVisible() && !bar()->isVisible());
    QCOMPARE(m_first->geometry(), m_divider->rect());
    QCOMPARE(m_divider->sizes(), QList<int>({400, 0}));
    m_divider->setSecondWidgetHidden(true);
    m_divider->setSecondWidgetHidden(false);
    QVERIFY(m_second->isVisible() && bar()->isVisible());
    QCOMPARE(m_divider->sizes(), before);
}

void TestVxDynamicDividerWgt::hidingAcrossAResizeRestoresTheRatio()
{
    make(Qt::Vertical);
    m_divider->setRatio(0.3);
    const QList<int> before = m_divider->sizes();
    m_divider->setSecondWidgetHidden(true);
    m_divider->resize(400, 20);
    m_divider->resize(400, 400);
    m_divider->setSecondWidgetHidden(false);
    QCOMPARE(m_divider->ratio(), 0.3);
    QCOMPARE(m_divider->sizes(), before);
}

void TestVxDynamicDividerWgt::barHiddenKeepsTheSplit()
{
    make(Qt::Vertical);
    m_divider->setRatio(0.3);
    m_divider->setBarHidden(true);
    QVERIFY(m_divider->isBarHidden());
    QVERIFY(!bar()->isVisible());
    QCOMPARE(m_divider->sizes(), QList<int>({120, 280}));
    QCOMPARE(m_second->y(), 120);
    // The order in which both are shown again makes no difference.
    m_divider->setSecondWidgetHidden(true);
    m_divider->setBarHidden(false);
    QVERIFY(!bar()->isVisible());
    m_divider->setSecondWidgetHidden(false);
    QVERIFY(bar()->isVisible());
}

void TestVxDynamicDividerWgt::hidingWidgetsDirectly()
{
    make(Qt::Vertical);
    m_first->hide();
    QTRY_COMPARE(m_second->geometry(), m_divider->rect());
    m_first->show();
    QTRY_COMPARE(m_second->geometry().bottom(), 399);
    QTRY_VERIFY(bar()->isVisible());
}

void TestVxDynamicDividerWgt::marginAndSpacing()
{
    make(Qt::Vertical);
    const QRect first = m_first->geometry();
    const QRect second = m_second->geometry();
    QCOMPARE(first.united(second), m_divider->rect());
    QCOMPARE(bar()->geometry(), m_divider->rect().adjusted(0, first.height(), 0, -second.height()));
    m_divider->setMargin(10);
    m_divider->setSpacing(4);
    QCOMPARE(m_first->pos(), QPoint(10, 10));
    QCOMPARE(m_first->width(), 380);
    QCOMPARE(bar()->y(), m_first->geometry().bottom() + 1 + 4);
    QCOMPARE(m_second->y(), bar()->geometry().bottom() + 1 + 4);
    QCOMPARE(m_second->geometry().bottom(), 389);
    m_divider->setMargin(-3);
    m_divider->setSpacing(-3);
    QCOMPARE(m_first->geometry(), first);
    QCOMPARE(m_second->geometry(), second);
}

void TestVxDynamicDividerWgt::minimumSizeFollowsTheWidgets()
{
    make(Qt::Vertical);
    m_first->setMinimumSize(50, 30);
    m_second->setMinimumSize(80, 40);
    const int thickness = bar()->height();
    QCOMPARE(m_divider->minimumSizeHint(), QSize(80, 70 + thickness));
    m_divider->setMargin(5);
    QCOMPARE(m_divider->minimumSizeHint(), QSize(90, 80 + thickness));
    m_divider->setSecondWidgetHidden(true);
    QCOMPARE(m_divider->minimumSizeHint(), QSize(60, 40));
}

void TestVxDynamicDividerWgt::childMinimumChangesRelayOut()
{
    make(Qt::Horizontal);
    m_first->setMinimumWidth(300);
    QTRY_COMPARE(m_first->width(), 300);
    m_first->setMinimumWidth(0);
    QTRY_COMPARE(m_first->width(), qRound((400 - bar()->width()) * 0.5));
}

void TestVxDynamicDividerWgt::ratioOutsideIsClampedOrRefused()
{
    make(Qt::Vertical);
    m_divider->setRatio(5);
    QCOMPARE(m_divider->ratio(), 1.0);
    m_divider->setRatio(-0.1);
    QCOMPARE(m_divider->ratio(), 0.0);
    m_guard->expect("VxDynamicDividerWgt \"TestDvdr\": a ratio that is not a number was ignored");
    m_divider->setRatio(std::numeric_limits<double>::quiet_NaN());
    QCOMPARE(m_divider->ratio(), 0.0);
}

void TestVxDynamicDividerWgt::deletedWidgetLeavesItsPlace()
{
    make(Qt::Vertical);
    delete m_second;
    QVERIFY(m_divider->isSecondWidgetHidden());
    QCOMPARE(m_first->geometry(), m_divider->rect());
    m_divider->setSecondWidgetHidden(false);
    const std::unique_ptr<QWidget> taken(m_first);
    taken->setParent(nullptr);
    QCOMPARE(m_divider->sizes(), QList<int>({0, 0}));
}

void TestVxDynamicDividerWgt::missingWidgetsAreAccepted()
{
    VxDynamicDividerWgt divider(nullptr, nullptr);
    divider.resize(100, 100);
    divider.show();
    QVERIFY(QTest::qWaitForWindowExposed(&divider));
    divider.setSecondWidgetHidden(true);
    divider.setBarHidden(true);
    QCOMPARE(divider.minimumSizeHint(), QSize(0, 0));
}

void TestVxDynamicDividerWgt::cursorShowsTheDirection()
{
    make(Qt::Vertical);
    QCOMPARE(bar()->cursor().shape(), Qt::SplitVCursor);
    make(Qt::Horizontal);
    QCOMPARE(bar()->cursor().shape(), Qt::SplitHCursor);
}

void TestVxDynamicDividerWgt::pictures_data()
{
    QTest::addColumn<VxStyle::ColorScheme>("scheme");
    QTest::addColumn<VxDynamicDividerWgt::BarStyle>("style");
    const auto dark = VxStyle::ColorScheme::Dark;
    const auto light = VxStyle::ColorScheme::Light;
    QTest::newRow("dark, grip") << dark << VxDynamicDividerWgt::GripBar;
    QTest::newRow("light, grip") << light << VxDynamicDividerWgt::GripBar;
    QTest::newRow("dark, line") << dark << VxDynamicDividerWgt::LineBar;
    QTest::newRow("light, line") << light << VxDynamicDividerWgt::LineBar;
}

void TestVxDynamicDividerWgt::pictures()
{
    QFETCH(VxStyle::ColorScheme, scheme);
    QFETCH(VxDynamicDividerWgt::BarStyle, style);
    useHostStyle(scheme);
    make(Qt::Vertical, style);
    const QColor window = m_divider->palette().color(QPalette::Window);
    VxMouseDriver mouse(bar());
    mouse.moveTo(QPoint(5, -50));
    const QImage still = pictureOf(*bar());
    QImage blank = still;
    blank.fill(window);
    const QRect drawn = differenceOf(still, blank);
    // The grip is in the middle; the line runs from end to end.
    if (style == VxDynamicDividerWgt::GripBar)
        QVERIFY(qAbs(drawn.center().x() - 200) <= 1 && drawn.width() < 60 && drawn.height() == 2);
    else
        QVERIFY(drawn.width() == 400 && drawn.height() == 1);
    mouse.moveTo(bar()->rect().center());
    const QImage hovered = pictureOf(*bar());
    QVERIFY(hovered != still);
    mouse.press(bar()->rect().center());
    mouse.moveTo(QPoint(200, -30));
    // The bar stays lit while it is held, though it may not follow the mouse everywhere.
    m_first->setMinimumHeight(190);
    QCOMPARE(pictureOf(*bar()), hovered);
    mouse.release(QPoint(200, -30));
}

VX_TEST_MAIN(TestVxDynamicDividerWgt)
#include "tst_vxdynamicdividerwgt.moc"
