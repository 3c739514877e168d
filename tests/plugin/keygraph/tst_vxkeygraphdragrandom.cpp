#include "keygraphviewtestbase.h"
#include "testing/vxlostrelease.h"
#include "testing/vxtestmain.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <random>

using namespace KeyDrawing;

namespace {

// A key of the plainest way to reckon a drag.
struct DraggedKey
{
    int id; // the key's index at the press
    VxTime time;
    float value;
    int type;
    VxTcb tcb;
    bool selected;
    bool moves; // selected in a channel that shows the key
    VxTime startTime;
    double startValue; // display units

    friend bool operator==(const DraggedKey &a, const DraggedKey &b)
    {
        return a.time == b.time && std::memcmp(&a.value, &b.value, sizeof a.value) == 0 &&
               a.type == b.type && a.tcb == b.tcb && a.selected == b.selected;
    }
};
using DraggedKeys = std::vector<DraggedKey>;

constexpr int DragCount = 150;

// VX_RANDOM_DRAGS: another number of drags than the one of an ordinary run.
int dragCount()
{
    bool isNumber = false;
    const int count = qEnvironmentVariableIntValue("VX_RANDOM_DRAGS", &isNumber);
    return isNumber ? count : DragCount;
}

// Rounds to frames, halves away from zero.
VxTime rounded(VxTime time, VxTime step)
{
    return (time < 1 ? time - step / 2 : time + step / 2) / step * step;
}

bool isTaken(const DraggedKeys &keys, VxTime time, int butId)
{
    return std::any_of(keys.begin(), keys.end(),
                       [&](const DraggedKey &key) { return key.time == time && key.id != butId; });
}

// Moves one key; at the time of another it is placed beside it, on the side it came from.
void move(DraggedKeys &keys, int id, VxTime time, float value)
{
    const auto key =
        std::find_if(keys.begin(), keys.end(), [id](const DraggedKey &k) { return k.id == id; });
    const VxTime back = time > key->time ? -1 : 1;
    while (time != key->time && isTaken(keys, time, id))
        time += back;
    key->time = time;
    key->value = value;
    std::sort(keys.begin(), keys.end(),
              [](const DraggedKey &a, const DraggedKey &b) { return a.time < b.time; });
}

} // namespace

// Random drags with the mouse, each step held against the plainest way to reckon it: key by key,
// from where the keys were at the press.
class TestKeyGraphDragRandom : public QObject, private KeyGraphViewTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void drags();

private:
    struct Move
    {
        QPoint from;
        QPoint previous;
        QPoint to;
        Qt::KeyboardModifiers modifiers;
    };

    int below(int limit) { return int(random() % unsigned(limit)); }
    Qt::KeyboardModifiers someModifiers();
    void makeKeys();
    DraggedKeys keysOf(int number) const;
    std::vector<DraggedKeys> scene() const;
    void reckon(DraggedKeys &keys, const VxFloatProperty *property, const Move &move) const;
    void check(const std::vector<DraggedKeys> &expected, const char *when) const;
    void dragOnce();

    std::mt19937 random{5};
    QVector<VxFloatProperty *> properties;
    std::unique_ptr<VxMouseDriver> mouse;
    int movedDrags = 0;
    int lostReleases = 0; // of drags that had moved keys
};

void TestKeyGraphDragRandom::init()
{
    setUpView();
    showView();
    VxFloatProperty *smile = addProperty(QStringLiteral("Smile"));
    smile->setPercentage(true);
    VxFloatProperty *bound = addProperty(QStringLiteral("Bound"));
    bound->setMinMax(-2.0f, 20.0f, true);
    VxFloatProperty *alias = addProperty(QStringLiteral("Alias"));
    QVERIFY(alias->setAliasedProperty(x()));
    properties = {x(), smile, bound, alias};
    showProperties({x(), smile, bound, alias});
    mouse = std::make_unique<VxMouseDriver>(view.get());
    vxScene->setTime(0);
}

void TestKeyGraphDragRandom::cleanup()
{
    mouse.reset();
    tearDownView();
}

Qt::KeyboardModifiers TestKeyGraphDragRandom::someModifiers()
{
    switch (below(6)) {
    case 0:
        return Qt::ControlModifier;
    case 1:
        return Qt::ShiftModifier;
    case 2:
        return Qt::ControlModifier | Qt::ShiftModifier;
    default:
        return Qt::NoModifier;
    }
}

// Crowded in places, beside frames too, before time 0 as well.
void TestKeyGraphDragRandom::makeKeys()
{
    for (VxFloatProperty *property : qAsConst(properties)) {
        if (property->isAlias())
            continue;
        property->deleteAllKeys();
        const int count = 1 + below(9);
        for (int i = 0; i < count; ++i) {
            static const VxTime grids[] = {1, 7, 80, 160, 160};
            const VxTime time = below(25) * 480 + below(4) * grids[below(5)] - 160;
            const float value = float(below(20)) * (property->isPercentage() ? 0.01f : 1.0f);
            property->setKey(time, value, below(3), float(below(3)) - 1.0f, 0.5f, float(below(2)));
        }
    }
    for (int c = 0; c < properties.size(); ++c) {
        channel(c).deselectAllKeys();
        for (int i = 0; i < channel(c).getNumKeys(); ++i)
            channel(c).selectKey(i, below(3) == 0);
    }
}

DraggedKeys TestKeyGraphDragRandom::keysOf(int number) const
{
    const VxFloatProperty *property = properties.at(number);
    const double unit = property->isPercentage() ? 100.0 : 1.0;
    DraggedKeys keys;
    for (int i = 0; i < property->getNumKeys(); ++i) {
        const VxTime time = property->getKeyTime(i);
        const float value = property->getKeyValue(i);
        DraggedKey key{i,     time, value,
                       0,     {},   channel(number).isKeySelected(i),
                       false, time, double(value) * unit};
        key.type = property->getKeyInterpolationType(i, &key.tcb.tension, &key.tcb.continuity,
                                                     &key.tcb.bias);
        keys.push_back(key);
    }
    return keys;
}

std::vector<DraggedKeys> TestKeyGraphDragRandom::scene() const
{
    std::vector<DraggedKeys> result;
    for (int i = 0; i < properties.size(); ++i)
        result.push_back(keysOf(i));
    return result;
}

void TestKeyGraphDragRandom::reckon(DraggedKeys &keys, const VxFloatProperty *property,
                                    const Move &way) const
{
    double dx = way.to.x() - way.from.x();
    double dy = way.to.y() - way.from.y();
    bool snaps = !(way.modifiers & Qt::ControlModifier);
    if ((way.modifiers & Qt::ShiftModifier) && qAbs(dy) > qAbs(dx)) {
        dx = 0.0;
        snaps = false;
    } else if (way.modifiers & Qt::ShiftModifier) {
        dy = 0.0;
        snaps = snaps && dx != 0.0;
    }
    const double unit = property->isPercentage() ? 100.0 : 1.0;
    DraggedKeys order = keys;
    if (way.to.x() >= way.previous.x())
        std::reverse(order.begin(), order.end());
    for (const DraggedKey &key : order) {
        if (!key.moves)
            continue;
        VxTime time = key.startTime + VxTime(dx * view->getScale().ticksPerPixel);
        if (snaps)
            time = rounded(time, 160);
        float value = float((key.startValue + dy * view->getScale().valuePerPixel) / unit);
        if (property->isClamped())
            value = qBound(property->getMin(), value, property->getMax());
        move(keys, key.id, time, value);
    }
}

void TestKeyGraphDragRandom::check(const std::vector<DraggedKeys> &expected, const char *when) const
{
    for (int c = 0; c < properties.size(); ++c) {
        const DraggedKeys now = keysOf(c);
        for (std::size_t i = 1; i < now.size(); ++i)
            QVERIFY2(now[i - 1].time < now[i].time, when);
        QVERIFY2(now == expected[std::size_t(c)], when);
    }
}

void TestKeyGraphDragRandom::dragOnce()
{
    makeKeys();
    vxApp->getUndoStack()->clear();
    const int number = below(properties.size());
    const VxFloatProperty *property = properties.at(number);
    const int index = below(property->getNumKeys());
    const double unit = property->isPercentage() ? 100.0 : 1.0;
    const QPoint from =
        placeOf(0, double(property->getKeyValue(index)) * unit) +
        QPoint(qRound(property->getKeyTime(index) / view->getScale().ticksPerPixel), 0);
    mouse->press(from, Qt::LeftButton, below(3) == 0 ? Qt::ControlModifier : Qt::NoModifier);
    const std::vector<DraggedKeys> before = scene();
    std::vector<DraggedKeys> expected = before;
    // A key that a property and its alias show moves when either has it selected.
    for (std::size_t i = 0; i < expected[0].size(); ++i)
        expected[0][i].moves = expected[3][i].moves =
            before[0][i].selected || before[3][i].selected;
    for (const std::size_t c : {1u, 2u}) {
        for (DraggedKey &key : expected[c])
            key.moves = key.selected;
    }
    QPoint previous = from;
    for (int steps = 1 + below(5); steps > 0; --steps) {
        const QPoint to = below(5) == 0 ? from : from + QPoint(below(240) - 120, below(120) - 60);
        if (to == previous) // such a mouse changes nothing
            continue;
        const Qt::KeyboardModifiers modifiers = someModifiers();
        mouse->moveTo(to, modifiers);
        for (int c = 0; c < properties.size(); ++c)
            reckon(expected[std::size_t(c)], properties.at(c), {from, previous, to, modifiers});
        check(expected, "on the way");
        previous = to;
    }
    if (below(4) == 0) {
        lostReleases += expected != before;
        const int way = below(VxLostReleaseWays);
        vxLoseRelease(view.get(), way);
        check(before, qPrintable(QStringLiteral("dropped, way %1").arg(way)));
        mouse->release(previous);
        check(before, "after a lost release");
        QCOMPARE(undoTexts(), QStringList());
        QVERIFY(!vxApp->getUndoStack()->isRecording());
        return;
    }
    mouse->release(previous);
    QVERIFY(!QWidget::mouseGrabber());
    check(expected, "at the end");
    const bool moved = expected != before;
    movedDrags += moved;
    QCOMPARE(undoTexts(), moved ? QStringList{"Move Keys"} : QStringList());
    const auto withoutSelection = [](std::vector<DraggedKeys> all) {
        for (DraggedKeys &keys : all) {
            for (DraggedKey &key : keys)
                key.selected = false;
        }
        return all;
    };
    vxApp->getUndoStack()->undo();
    QVERIFY(withoutSelection(scene()) == withoutSelection(before));
    vxApp->getUndoStack()->redo();
    QVERIFY(withoutSelection(scene()) == withoutSelection(expected));
}

void TestKeyGraphDragRandom::drags()
{
    const int count = dragCount();
    for (int i = 0; i < count; ++i) {
        dragOnce();
        if (QTest::currentTestFailed())
            QFAIL(qPrintable(QStringLiteral("in drag %1").arg(i)));
    }
    QVERIFY2(movedDrags > count / 2, qPrintable(QString::number(movedDrags)));
    QVERIFY2(lostReleases > count / 10, qPrintable(QString::number(lostReleases)));
}

VX_TEST_MAIN(TestKeyGraphDragRandom)
#include "tst_vxkeygraphdragrandom.moc"
