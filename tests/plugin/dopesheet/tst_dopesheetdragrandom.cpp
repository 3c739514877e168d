#include "dopesheettestbase.h"
#include "testing/vxlostrelease.h"
#include "testing/vxmousedriver.h"
#include "testing/vxsessionlength.h"
#include "testing/vxtestmain.h"
#include "vxtimeline/dopesheet/keydrag.h"
#include "vxtimeline/dopesheet/keydragmath.h"
#include "vxtimeline/rows/selectedkeys.h"

#include <algorithm>
#include <cstring>
#include <map>
#include <random>
#include <vxcore/vxintproperty.h>
#include <vxcore/vxundostack.h>
#include <vxcore/vxundostackhold.h>

namespace {

// A key with all that belongs to it, for comparisons to the bit.
struct Key
{
    VxTime time;
    double value;
    int type;
    VxTcb tcb;

    friend bool operator==(const Key &a, const Key &b)
    {
        return a.time == b.time && std::memcmp(&a.value, &b.value, sizeof a.value) == 0 &&
               a.type == b.type && a.tcb == b.tcb;
    }
};
using Keys = std::vector<Key>;

Keys keysOf(const VxNumericProperty *property)
{
    Keys keys;
    for (int i = 0; i < property->getNumKeys(); ++i) {
        Key key{property->getKeyTime(i), property->getKeyDoubleValue(i), 0, {}};
        key.type = property->getKeyInterpolationType(i, &key.tcb.tension, &key.tcb.continuity,
                                                     &key.tcb.bias);
        keys.push_back(key);
    }
    return keys;
}

constexpr VxTime Duration = 9600;
constexpr int TestCount = 1500;

// VX_RANDOM_DRAGS: another number of drags than the one of an ordinary run.
int dragCount()
{
    bool isNumber = false;
    const int count = qEnvironmentVariableIntValue("VX_RANDOM_DRAGS", &isNumber);
    return isNumber ? count : vxSessionLength(TestCount);
}

} // namespace

// Random drags of random keys, each undone and redone. A drag worked out key by key, in the
// plainest way, gives the expected keys; nothing else may have changed.
class TestDopeSheetDragRandom : public QObject, private DopeSheetTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { tearDown(); }

    void dragsByPlan();
    void dragsByHand();

private:
    using Scene = std::vector<Keys>;

    int below(int limit) { return int(random() % unsigned(limit)); }
    Scene scene() const
    {
        Scene all;
        for (const VxNumericProperty *property : properties)
            all.push_back(keysOf(property));
        return all;
    }
    void makeKeys();
    void selectSome();
    // Which keys are selected, in any row, by property and time.
    std::map<const VxProperty *, std::vector<VxTime>> selectedTimes() const;
    Scene dropped(const Scene &before, qint64 offset) const;
    void checkRows(const char *when) const;
    void checkUnselectedUntouched(const Scene &before) const;
    qint64 limited(qint64 offset) const;
    bool isPreviewed(VxMouseDriver &hand, const QPoint &position, const Scene &before) const;
    void dragOnce(int number);

    std::mt19937 random;
    std::vector<VxNumericProperty *> properties; // those that hold keys
    std::vector<VxDopeSheetItem *> items;        // of all rows that show their keys
    std::map<const VxProperty *, std::vector<VxTime>> chosen;
};

void TestDopeSheetDragRandom::init()
{
    setUp();
    random.seed(20);
    auto *count = new VxIntProperty(QStringLiteral("count"));
    auto *alias = new VxFloatProperty(QStringLiteral("alias"));
    hip->addProperty(count, QStringLiteral("/General"));
    hip->addProperty(alias, QStringLiteral("/General"));
    QVERIFY(alias->setAliasedProperty(hip->getXPosControl()));
    QVERIFY(ball->getXPosControl()->setOverridingControl(hip->getYPosControl()));
    QVERIFY(ball->getYPosControl()->setLink(ball->getZPosControl()));
    model = std::make_unique<VxDopeSheetModel>(63, 2, nullptr);
    model->addNode(hip, true);
    model->addNode(ball, true);
    view->setModel(model.get());
    view->expandAll();
    properties = {hip->getXPosControl(), hip->getYPosControl(), ball->getZPosControl(), count};
    items.clear();
    std::vector<VxDopeSheetItem *> stack{model->getRootItem()};
    while (!stack.empty()) {
        VxDopeSheetItem *item = stack.back();
        stack.pop_back();
        for (int i = 0; i < item->childCount(); ++i)
            stack.push_back(item->child(i));
        const VxProperty *holder = item->property() ? item->property()->getKeyHolder() : nullptr;
        if (std::find(properties.begin(), properties.end(), holder) != properties.end())
            items.push_back(item);
    }
    QCOMPARE(items.size(), properties.size() + 2); // the alias, the overridden control
}

// Dense in places, so that keys collide; at both ends of the range, too.
void TestDopeSheetDragRandom::makeKeys()
{
    for (VxNumericProperty *property : properties) {
        property->deleteAllKeys();
        const int count = below(9);
        for (int i = 0; i < count; ++i) {
            static const VxTime grids[] = {1, 7, 160, 160, 160};
            const VxTime grid = grids[below(5)];
            VxTime time = std::min(Duration, VxTime(below(12)) * grid + below(3) * 1600);
            if (below(8) == 0)
                time = below(2) == 0 ? 0 : Duration;
            if (auto *number = qobject_cast<VxFloatProperty *>(property))
                number->setKey(time, float(below(1000)) / 7.0f, below(3), float(below(3)) - 1.0f,
                               float(below(2)), 0.5f);
            else
                qobject_cast<VxIntProperty *>(property)->setKey(time, below(1000));
        }
    }
}

void TestDopeSheetDragRandom::selectSome()
{
    for (VxDopeSheetItem *item : items) {
        item->setKeysSelected(false, VxTimeMin, VxTimeMax);
        QVector<int> indexes;
        const int share = 1 + below(3);
        for (int i = 0; i < item->keyCount(); ++i) {
            if (below(4) < share)
                indexes.append(i);
        }
        item->setKeySelectedAt(indexes, true);
    }
    chosen = selectedTimes();
}

std::map<const VxProperty *, std::vector<VxTime>> TestDopeSheetDragRandom::selectedTimes() const
{
    std::map<const VxProperty *, std::vector<VxTime>> times;
    for (const VxDopeSheetItem *item : items) {
        std::vector<VxTime> &of = times[item->property()->getKeyHolder()];
        for (int i = 0; i < item->keyCount(); ++i) {
            if (item->isKeySelected(i))
                of.push_back(item->keyTime(i));
        }
    }
    for (auto &entry : times) {
        std::sort(entry.second.begin(), entry.second.end());
        entry.second.erase(std::unique(entry.second.begin(), entry.second.end()),
                           entry.second.end());
    }
    return times;
}

qint64 TestDopeSheetDragRandom::limited(qint64 offset) const
{
    VxTime earliest = VxTimeMax;
    VxTime latest = -1;
    for (const auto &entry : chosen) {
        if (!entry.second.empty()) {
            earliest = std::min(earliest, entry.second.front());
            latest = std::max(latest, entry.second.back());
        }
    }
    return KeyDragMath::limitedOffset(offset, {earliest, latest, Duration});
}

// One key after the other into a map by time: those that stay first, the moved ones over them.
TestDopeSheetDragRandom::Scene TestDopeSheetDragRandom::dropped(const Scene &before,
                                                                qint64 offset) const
{
    Scene after;
    for (std::size_t p = 0; p < properties.size(); ++p) {
        const std::vector<VxTime> &moved = chosen.at(properties[p]);
        const auto isMoved = [&moved](const Key &key) {
            return std::binary_search(moved.begin(), moved.end(), key.time);
        };
        std::map<VxTime, Key> keys;
        for (const Key &key : before[p]) {
            if (!isMoved(key))
                keys[key.time] = key;
        }
        for (Key key : before[p]) {
            if (isMoved(key)) {
                key.time += VxTime(offset);
                keys[key.time] = key;
            }
        }
        after.emplace_back();
        for (const auto &entry : keys)
            after.back().push_back(entry.second);
    }
    return after;
}

// Every row has its property's keys, in order, and selects only such that exist.
void TestDopeSheetDragRandom::checkRows(const char *when) const
{
    for (const VxDopeSheetItem *item : items) {
        const VxProperty *property = item->property();
        QVERIFY2(item->keyCount() == property->getNumKeys(), when);
        int selectedCount = 0;
        for (int i = 0; i < item->keyCount(); ++i) {
            QVERIFY2(item->keyTime(i) == property->getKeyTime(i), when);
            QVERIFY2(i == 0 || item->keyTime(i - 1) < item->keyTime(i), when);
            selectedCount += item->isKeySelected(i);
        }
        QVERIFY2(item->selectedKeyCount() == selectedCount, when);
    }
    const VxDopeSheetItem *root = model->getRootItem();
    for (int i = 1; i < root->keyCount(); ++i)
        QVERIFY2(root->keyTime(i - 1) < root->keyTime(i), when);
}

void TestDopeSheetDragRandom::checkUnselectedUntouched(const Scene &before) const
{
    for (std::size_t p = 0; p < properties.size(); ++p) {
        const Keys now = keysOf(properties[p]);
        QCOMPARE(now.size(), before[p].size());
        const std::vector<VxTime> &moved = chosen.at(properties[p]);
        for (const Key &key : before[p]) {
            if (!std::binary_search(moved.begin(), moved.end(), key.time))
                QVERIFY(std::find(now.begin(), now.end(), key) != now.end());
        }
    }
}

void TestDopeSheetDragRandom::dragOnce(int number)
{
    makeKeys();
    selectSome();
    vxApp->getUndoStack()->clear();
    const Scene before = scene();
    const auto selection = selectedTimes();
    SelectedKeysCollector collector;
    for (VxDopeSheetItem *item : items)
        collector.add(item);
    KeyDrag drag;
    for (const SelectedKeys &keys : collector.keys())
        drag.add(keys);

    VxUndoStackHold hold;
    for (int previews = below(4); previews > 0; --previews) {
        QVERIFY(drag.moveTo(limited(below(4000) - 2000), VxCollision::WaitBeside));
        checkUnselectedUntouched(before);
        checkRows("preview");
    }
    const bool returns = below(4) == 0;
    const qint64 offset = returns ? 0 : limited((below(60) - 30) * (below(2) == 0 ? 160 : 1));
    if (offset == 0) { // the end of a drag by nothing, and of a cancelled one
        QVERIFY(drag.moveTo(0, VxCollision::WaitBeside));
        QVERIFY2(scene() == before, qPrintable(QString::number(number)));
        QVERIFY(selectedTimes() == selection);
        checkRows("put back");
        hold.accept(QStringLiteral("none"));
        QCOMPARE(vxApp->getUndoStack()->count(), 0);
        return;
    }
    QVERIFY(drag.moveTo(offset, VxCollision::Replace));
    hold.accept(QStringLiteral("Move Keys"));
    const Scene after = dropped(before, offset);
    QVERIFY2(scene() == after, qPrintable(QString::number(number)));
    auto expected = selection;
    for (auto &entry : expected) {
        for (VxTime &time : entry.second)
            time += VxTime(offset);
    }
    QVERIFY(selectedTimes() == expected);
    checkRows("dropped");
    QCOMPARE(vxApp->getUndoStack()->count(), after == before ? 0 : 1);
    vxApp->getUndoStack()->undo();
    QVERIFY2(scene() == before, qPrintable(QString::number(number)));
    checkRows("undone");
    vxApp->getUndoStack()->redo();
    QVERIFY2(scene() == after, qPrintable(QString::number(number)));
    checkRows("redone");
}

void TestDopeSheetDragRandom::dragsByPlan()
{
    const int count = dragCount();
    for (int i = 0; i < count; ++i) {
        dragOnce(i);
        if (QTest::currentTestFailed())
            QFAIL(qPrintable(QStringLiteral("in drag %1").arg(i)));
    }
}

// Keys follow the mouse at a limited rate, and not where they are at an end of the range.
bool TestDopeSheetDragRandom::isPreviewed(VxMouseDriver &hand, const QPoint &position,
                                          const Scene &before) const
{
    QElapsedTimer time;
    time.start();
    for (int up = 0; scene() == before && time.elapsed() < 200; up = 1 - up) {
        QCoreApplication::processEvents();
        hand.moveTo(position - QPoint(0, up));
    }
    return scene() != before;
}

// The same through press, moves and release, from any key, snapped or not; the releases of some are
// lost, which drops them.
void TestDopeSheetDragRandom::dragsByHand()
{
    showView(1000, 800);
    VxMouseDriver hand(view->viewport());
    int changed = 0;
    int droppedBy[VxLostReleaseWays] = {};
    int previewed = 0; // of drags that had moved keys
    const int count = dragCount() / 10;
    for (int i = 0; i < count; ++i) {
        makeKeys();
        selectSome();
        vxApp->getUndoStack()->clear();
        VxDopeSheetItem *item = items[std::size_t(below(int(items.size())))];
        if (item->selectedKeyCount() == 0)
            continue;
        const Scene before = scene();
        const VxTime time = item->keyTime(item->selectedKeyIndexes().first());
        const QRect row = view->visualRect(model->indexOf(item));
        const QPoint from(TimelineMetrics::shared().keyLeft(view->columnWidth(0), time, 0) + 10,
                          row.center().y());
        const auto modifiers = below(2) == 0 ? Qt::NoModifier : Qt::ControlModifier;
        const QPoint to = from + QPoint(below(400) - 200, 5);
        hand.press(from, Qt::LeftButton, modifiers);
        chosen = selectedTimes(); // the press itself may have added a key
        hand.moveTo((from + to) / 2, modifiers);
        const bool isDropped = below(3) == 0;
        if (isDropped) {
            const int way = below(VxLostReleaseWays);
            ++droppedBy[way];
            previewed += previewed < 20 && isPreviewed(hand, (from + to) / 2, before);
            vxLoseRelease(view->viewport(), way);
            QVERIFY2(scene() == before, qPrintable(QStringLiteral("%1, way %2").arg(i).arg(way)));
            QVERIFY(selectedTimes() == chosen);
            QVERIFY(!vxApp->getUndoStack()->isRecording());
        }
        hand.moveTo(to, modifiers);
        hand.release(to, Qt::LeftButton, modifiers);
        const Scene after = scene();
        checkRows("by hand");
        if (isDropped || after == before) {
            QVERIFY2(after == before, qPrintable(QString::number(i)));
            QCOMPARE(vxApp->getUndoStack()->count(), 0);
        } else {
            ++changed;
            QCOMPARE(vxApp->getUndoStack()->undoText(), QStringLiteral("Move Keys"));
            // The keys of one property give the offset, the others must agree.
            qint64 offset = 0;
            const auto now = selectedTimes();
            for (const auto &entry : chosen) {
                if (!entry.second.empty())
                    offset = now.at(entry.first).front() - entry.second.front();
            }
            QVERIFY2(after == dropped(before, offset), qPrintable(QString::number(i)));
            vxApp->getUndoStack()->undo();
            QVERIFY2(scene() == before, qPrintable(QString::number(i)));
            vxApp->getUndoStack()->redo();
            QVERIFY2(scene() == after, qPrintable(QString::number(i)));
        }
        if (QTest::currentTestFailed())
            QFAIL(qPrintable(QStringLiteral("in drag %1").arg(i)));
    }
    if (count >= TestCount / 10) {
        for (const int times : droppedBy)
            QVERIFY(times > 0);
        QVERIFY2(previewed >= 10, qPrintable(QString::number(previewed)));
    }
    QVERIFY2(changed > count / 8, qPrintable(QString::number(changed))); // many are at both ends
}

VX_TEST_MAIN(TestDopeSheetDragRandom)
#include "tst_dopesheetdragrandom.moc"
