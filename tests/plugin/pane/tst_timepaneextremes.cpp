#include "testing/vxtestmain.h"
#include "timepanetestbase.h"

#include <limits>
#include <random>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxnode.h>

// The smallest and largest numbers, in any order, as arguments of the pane's slots.
class TestTimePaneExtremes : public QObject, private TimePaneTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void numbersInAnyOrder_data();
    void numbersInAnyOrder();
};

void TestTimePaneExtremes::numbersInAnyOrder_data()
{
    QTest::addColumn<uint>("seed");
    for (uint seed = 1; seed <= 4; ++seed)
        QTest::addRow("run %u", seed) << seed;
}

void TestTimePaneExtremes::numbersInAnyOrder()
{
    QFETCH(uint, seed);
    std::mt19937 random(seed);
    const auto any = [&random](int last) {
        return std::uniform_int_distribution<>(0, last)(random);
    };
    addChoices(TimePaneChoice::PropertyTypeFamily, {1, 2, 4, 8, 16, 32});
    pane->setFilteredPropertyTypes(VxTimePane::PropTranslate);
    auto *node = new VxNode(QStringLiteral("n"));
    vxScene->addNode(node);
    for (const VxTime time : {VxTimeMin, -160, 0, 800, VxTimeMax})
        node->getXPosControl()->setKey(time, 1.0f, any(2));
    node->select(true);
    showPane(900, 500);
    constexpr int Least = std::numeric_limits<int>::min();
    constexpr int Most = std::numeric_limits<int>::max();
    const int numbers[] = {Least, Least + 1, -4800, -1,      0,        1,   2,
                           30,    1200,      1201,  1000000, Most - 1, Most};
    void (VxTimePane::*const slots[])(int) = {
        &VxTimePane::setTotalFrames, &VxTimePane::setPlayRangeStart, &VxTimePane::setPlayRangeEnd,
        &VxTimePane::setCurrentFrame, &VxTimePane::setFramesPerSecond};
    void (VxTimePane::*const moves[])() = {
        &VxTimePane::skipToPlayRangeStart,      &VxTimePane::skipToPlayRangeEnd,
        &VxTimePane::skipToPreviousKey,         &VxTimePane::skipToNextKey,
        &VxTimePane::skipToPreviousFrame,       &VxTimePane::skipToNextFrame,
        &VxTimePane::skipToPreviousFilteredKey, &VxTimePane::skipToNextFilteredKey};
    for (int round = 0; round < 60; ++round) {
        const int number = numbers[any(int(std::size(numbers)) - 1)];
        const int which = any(9);
        if (which < 5)
            (pane.get()->*slots[which])(number);
        else if (which < 8)
            (pane.get()->*moves[any(7)])();
        else if (which == 8)
            vxScene->setPlayRange(VxTimeRange(number, numbers[any(int(std::size(numbers)) - 1)]));
        else
            vxScene->setTime(number);
        QCoreApplication::processEvents();
        pane->grab();
        const int fps = TimelineMetrics::shared().fps;
        QVERIFY(fps >= 1 && fps <= 1200);
        QCOMPARE(fps, VxTicksPerSecond / vxScene->getTimeStep());
        QVERIFY(vxScene->getPlayRange().getStart() <= vxScene->getPlayRange().getEnd());
        QVERIFY(vxScene->getAnimRange().getStart() <= vxScene->getAnimRange().getEnd());
    }
    // All of it can be undone.
    vxApp->getUndoStack()->setIndex(0);
    QCOMPARE(vxScene->getTimeStep(), 160);
}

VX_TEST_MAIN(TestTimePaneExtremes)
#include "tst_timepaneextremes.moc"
