#include "dopesheetrowstestbase.h"
#include "testing/keytimes.h"
#include "testing/vxtestmain.h"
#include "vxtimeline/rows/dopesheetkeys.h"

#include <algorithm>
#include <map>
#include <random>
#include <set>
#include <vector>
#include <vxcore/vxchangeblock.h>

namespace {

// The same in the plainest way: time to selected.
using Marks = std::map<VxTime, bool>;

DopeSheetKeys keysOf(const Marks &marks)
{
    DopeSheetKeys keys;
    for (const auto &[time, selected] : marks) {
        keys.times.append(time);
        keys.flags.append(quint8(selected));
        keys.selectedCount += int(selected);
    }
    if (keys.selectedCount == 0)
        keys.flags.clear();
    return keys;
}

Marks marksOf(const DopeSheetKeys &keys)
{
    Marks marks;
    for (int i = 0; i < keys.count(); ++i)
        marks[keys.times.at(i)] = keys.allFlags()[i] != 0;
    return marks;
}

bool isSound(const DopeSheetKeys &keys)
{
    return keys.flags.size() == (keys.selectedCount > 0 ? keys.count() : 0) &&
           std::is_sorted(keys.times.cbegin(), keys.times.cend(), std::less_equal<>()) &&
           keys.selectedCount == std::count(keys.flags.cbegin(), keys.flags.cend(), quint8(1));
}

void addTo(Marks *into, const Marks &from)
{
    for (const auto &[time, selected] : from)
        (*into)[time] = (*into)[time] || selected;
}

} // namespace

// The gathering of keys against a naive one, over random edits that are the same in every run.
class TestDopeSheetKeyCache : public QObject, private DopeSheetRowsTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void unions_data();
    void unions();
    void unionsOfExtremes();
    void equalTimesAreShared();
    void oneMoreKeyInOneRow();
    void selectionOverChangedTimes();
    void selectingSpans();

    void editsOfATree_data();
    void editsOfATree();
};

void TestDopeSheetKeyCache::unions_data()
{
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("keys");
    QTest::addColumn<int>("span");
    QTest::addColumn<int>("step");
    QTest::newRow("no row") << 0 << 10 << 10 << 1;
    QTest::newRow("one row") << 1 << 10 << 100 << 1;
    QTest::newRow("two rows, far apart") << 2 << 200 << 2000000000 << 1;
    QTest::newRow("two rows, close") << 2 << 200 << 400 << 1;
    QTest::newRow("many rows on frames") << 12 << 100 << 150 << 160;
    QTest::newRow("many rows on ticks, dense") << 9 << 300 << 2000 << 1;
    QTest::newRow("many rows on ticks, sparse") << 9 << 100 << 2000000000 << 1;
    QTest::newRow("odd number of sparse rows") << 5 << 40 << 2000000000 << 1;
    QTest::newRow("short rows") << 7 << 2 << 100000 << 1;
}

void TestDopeSheetKeyCache::unions()
{
    QFETCH(int, rows);
    QFETCH(int, keys);
    QFETCH(int, span);
    QFETCH(int, step);
    std::mt19937 random(1);
    for (int round = 0; round < 40; ++round) {
        std::vector<DopeSheetKeys> values;
        Marks expected;
        for (int row = 0; row < rows; ++row) {
            Marks marks;
            // Some rows repeat the times of the one before, some are empty.
            if (row > 0 && random() % 3 == 0)
                marks = marksOf(values.back());
            else if (random() % 6 != 0) {
                for (int i = 0; i < keys; ++i)
                    marks[VxTime(int(random() % quint32(span)) - span / 2) * step];
            }
            const quint32 selection = random() % 4; // none, all, half, few
            for (auto &mark : marks)
                mark.second = selection == 1 || (selection > 1 && random() % (selection * 2) == 0);
            addTo(&expected, marks);
            values.push_back(keysOf(marks));
        }
        std::vector<DopeSheetKeys *> pointers;
        for (DopeSheetKeys &value : values)
            pointers.push_back(&value);
        const std::vector<DopeSheetKeys> before = values;
        const DopeSheetKeys united = uniteKeys(pointers.data(), rows);
        QVERIFY(isSound(united));
        QVERIFY(marksOf(united) == expected);
        for (int row = 0; row < rows; ++row)
            QVERIFY(marksOf(values[size_t(row)]) == marksOf(before[size_t(row)]));
    }
}

void TestDopeSheetKeyCache::unionsOfExtremes()
{
    DopeSheetKeys a = keysOf({{VxTimeMin, true}, {0, false}});
    DopeSheetKeys b = keysOf({{VxTimeMax, true}, {0, true}});
    DopeSheetKeys c = keysOf({{VxTimeMin, false}, {VxTimeMax, false}});
    DopeSheetKeys *rows[] = {&a, &b, &c};
    QVERIFY(marksOf(uniteKeys(rows, 3)) ==
            Marks({{VxTimeMin, true}, {0, true}, {VxTimeMax, true}}));
    // Close together, so that they are marked in a bitmap, at either end of time.
    for (const VxTime base : {VxTimeMin, VxTimeMax - 4}) {
        a = keysOf({{base, true}, {base + 1, false}});
        b = keysOf({{base + 4, true}});
        c = keysOf({{base + 1, false}, {base + 3, true}});
        QVERIFY(marksOf(uniteKeys(rows, 3)) ==
                Marks({{base, true}, {base + 1, false}, {base + 3, true}, {base + 4, true}}));
    }
}

void TestDopeSheetKeyCache::equalTimesAreShared()
{
    DopeSheetKeys a = keysOf({{10, false}, {20, true}});
    DopeSheetKeys b = keysOf({{10, true}, {20, false}});
    DopeSheetKeys *rows[] = {&a, &b};
    const DopeSheetKeys united = uniteKeys(rows, 2);
    QVERIFY(marksOf(united) == Marks({{10, true}, {20, true}}));
    QCOMPARE(b.times.constData(), a.times.constData());
    QCOMPARE(united.times.constData(), a.times.constData());
    // A row that has all times of the other gives the union its array, too.
    DopeSheetKeys more = keysOf({{10, false}, {15, false}, {20, false}});
    DopeSheetKeys *unequal[] = {&a, &more};
    QCOMPARE(uniteKeys(unequal, 2).times.constData(), more.times.constData());
    // Selecting in one row leaves the others alone.
    a.setSelected(false, 0, 100);
    QVERIFY(marksOf(b) == Marks({{10, true}, {20, false}}));
}

void TestDopeSheetKeyCache::oneMoreKeyInOneRow()
{
    for (const int at : {0, 1, 500, 1023, 1024, 2999}) {
        Marks plain;
        for (int i = 0; i < 3000; ++i)
            plain[i * 160] = i % 7 == 0;
        Marks more = plain;
        more[at * 160 + 1] = true;
        DopeSheetKeys a = keysOf(plain);
        DopeSheetKeys b = keysOf(more);
        DopeSheetKeys *rows[] = {&a, &b};
        const DopeSheetKeys united = uniteKeys(rows, 2);
        QVERIFY(isSound(united));
        QVERIFY(marksOf(united) == more);
    }
}

void TestDopeSheetKeyCache::selectionOverChangedTimes()
{
    std::mt19937 random(2);
    for (int round = 0; round < 300; ++round) {
        Marks marks;
        for (int i = 0; i < 200; ++i)
            marks[VxTime(random() % 400)] = random() % 2 == 0;
        DopeSheetKeys keys = keysOf(marks);
        std::set<VxTime> times;
        for (const auto &mark : marks) {
            if (random() % 10 != 0)
                times.insert(mark.first);
        }
        for (quint32 i = random() % 20; i > 0; --i)
            times.insert(VxTime(random() % 450) - 20);
        Marks expected;
        for (const VxTime time : times)
            expected[time] = marks.count(time) != 0 && marks[time];
        const std::vector<VxTime> fresh(times.begin(), times.end());
        keys.takeTimes(fresh.data(), int(fresh.size()));
        QVERIFY(isSound(keys));
        QVERIFY(marksOf(keys) == expected);
    }
    DopeSheetKeys keys = keysOf({{1, true}});
    keys.takeTimes(nullptr, 0);
    QVERIFY(isSound(keys));
    QCOMPARE(keys.count(), 0);
}

void TestDopeSheetKeyCache::selectingSpans()
{
    std::mt19937 random(3);
    Marks marks;
    for (int i = 0; i < 60; ++i)
        marks[VxTime(random() % 100) - 50] = false;
    DopeSheetKeys keys = keysOf(marks);
    for (int round = 0; round < 2000; ++round) {
        const VxTime start = VxTime(random() % 120) - 60;
        const VxTime end = start + VxTime(random() % 40) - 10;
        const bool select = random() % 2 == 0;
        keys.setSelected(select, start, end);
        for (auto &[time, selected] : marks) {
            if ((start == end && time == start) || (start <= time && time < end))
                selected = select;
        }
        QVERIFY(isSound(keys));
        QVERIFY(marksOf(keys) == marks);
    }
}

namespace {

// A tree of rows over properties of its own, and what each row ought to show.
class RandomTree
{
public:
    explicit RandomTree(quint32 seed)
        : m_random(seed)
    {
        m_groups.push_back(&root);
        for (int i = 0; i < 12; ++i) {
            auto *group = new VxDopeSheetItem;
            group->setParent(anyGroup());
            m_groups.push_back(group);
        }
        for (int i = 0; i < 20; ++i)
            addRow();
    }

    // A few edits, no more than one for each property, so that what a row saw in between does not
    // matter.
    void edit()
    {
        std::vector<Row *> rows;
        for (auto &row : m_rows)
            rows.push_back(row.get());
        std::shuffle(rows.begin(), rows.end(), m_random);
        const size_t edits = 1 + m_random() % 5;
        const auto block = m_random() % 3 == 0 ? std::make_unique<VxChangeBlock>() : nullptr;
        for (size_t i = 0; i < edits && i < rows.size(); ++i)
            edit(rows[i]);
    }

    void editTree()
    {
        switch (m_random() % 6) {
        case 0:
            addRow();
            break;
        case 1:
            removeRow();
            break;
        case 2:
            anyRow()->item->setParent(anyGroup());
            break;
        case 3:
            loseProperty();
            break;
        default:
            moveGroup();
        }
    }

    bool somethingIsSelected(const VxDopeSheetItem *item) const
    {
        const Marks marks = expected(item);
        return std::any_of(marks.begin(), marks.end(),
                           [](const auto &mark) { return mark.second; });
    }

    Marks expected(const VxDopeSheetItem *item) const
    {
        Marks marks;
        for (const auto &row : m_rows) {
            const VxDopeSheetItem *above = row->item;
            while (above && above != item)
                above = above->parentItem();
            if (above == item)
                addTo(&marks, row->marks);
        }
        return marks;
    }

    std::vector<VxDopeSheetItem *> allItems() const
    {
        std::vector<VxDopeSheetItem *> items = m_groups;
        for (const auto &row : m_rows)
            items.push_back(row->item);
        return items;
    }

    quint32 random() { return m_random(); }

    VxDopeSheetItem root;

private:
    struct Row
    {
        std::unique_ptr<VxFloatProperty> property;
        VxDopeSheetItem *item = nullptr;
        Marks marks;
    };

    VxDopeSheetItem *anyGroup() { return m_groups[m_random() % m_groups.size()]; }
    Row *anyRow() { return m_rows[m_random() % m_rows.size()].get(); }
    VxTime anyTime() { return VxTime(m_random() % 60) * 160; }

    void addRow()
    {
        auto row = std::make_unique<Row>();
        row->property = std::make_unique<VxFloatProperty>(QStringLiteral("p"));
        row->item = new VxDopeSheetItem;
        row->item->setParent(anyGroup());
        row->item->setProperty(row->property.get());
        for (int i = 0; i < 40; ++i)
            setKey(row.get(), m_random() % 3 ? VxTime(i) * 160 : anyTime() + 7);
        m_rows.push_back(std::move(row));
    }

    void removeRow()
    {
        if (m_rows.size() < 10)
            return;
        const auto row = m_rows.begin() + int(m_random() % m_rows.size());
        delete (*row)->item;
        m_rows.erase(row);
    }

    // The row stays and shows nothing.
    void loseProperty()
    {
        Row *row = anyRow();
        row->property.reset();
        row->marks.clear();
        row->property = std::make_unique<VxFloatProperty>(QStringLiteral("q"));
        row->item->setProperty(row->property.get());
    }

    void moveGroup()
    {
        VxDopeSheetItem *group = anyGroup();
        VxDopeSheetItem *to = anyGroup();
        for (const VxDopeSheetItem *above = to; above; above = above->parentItem()) {
            if (above == group)
                return;
        }
        group->setParent(to);
    }

    void setKey(Row *row, VxTime time)
    {
        row->property->setKey(time, 1.0f, VxKeyInterp::Linear);
        row->marks.insert({time, false});
    }

    void deleteKeys(Row *row, VxTime first, VxTime last)
    {
        row->property->deleteKeys(VxTimeRange(first, last));
        row->marks.erase(row->marks.lower_bound(first), row->marks.upper_bound(last));
    }

    void select(Row *row)
    {
        const VxTime start = anyTime();
        const VxTime end = m_random() % 4 == 0 ? start : start + VxTime(m_random() % 4000);
        const bool yesNo = m_random() % 2 == 0;
        row->item->setKeysSelected(yesNo, start, end);
        for (auto &[time, selected] : row->marks) {
            if ((start == end && time == start) || (start <= time && time < end))
                selected = yesNo;
        }
    }

    void selectAt(Row *row)
    {
        if (row->marks.empty())
            return;
        const int index = int(m_random() % row->marks.size());
        row->item->setKeySelectedAt({index}, true);
        std::next(row->marks.begin(), index)->second = true;
    }

    void deleteSelected(Row *row)
    {
        row->item->deleteSelectedKeys();
        for (auto mark = row->marks.begin(); mark != row->marks.end();)
            mark = mark->second ? row->marks.erase(mark) : std::next(mark);
    }

    // As a drag does: the selected keys move to times of their own.
    void moveSelected(Row *row)
    {
        const QVector<int> indexes = row->item->selectedKeyIndexes();
        if (indexes.isEmpty())
            return;
        Times times;
        Marks moved;
        for (const int index : indexes)
            times.append(row->item->keyTime(index) + 100000);
        for (const auto &[time, selected] : row->marks) {
            if (!selected)
                moved.insert({time, false});
        }
        for (const VxTime time : qAsConst(times))
            moved[time] = true;
        row->item->setSuppressKeyChanges(true);
        row->property->moveKeys(indexes, times);
        row->item->setSuppressKeyChanges(false);
        row->item->selectOnlyKeysAt(times.constData(), times.size());
        row->marks = moved;
    }

    void edit(Row *row)
    {
        const VxTime time = anyTime();
        switch (m_random() % 8) {
        case 0:
            setKey(row, time + VxTime(m_random() % 2));
            break;
        case 1:
            deleteKeys(row, time, time + VxTime(m_random() % 500));
            break;
        case 2:
            deleteSelected(row);
            break;
        case 3:
            selectAt(row);
            break;
        case 4:
            if (!VxChangeBlock::isActive())
                moveSelected(row);
            break;
        default:
            select(row);
        }
    }

    std::mt19937 m_random;
    std::vector<VxDopeSheetItem *> m_groups;
    std::vector<std::unique_ptr<Row>> m_rows;
};

Marks shown(const VxDopeSheetItem *item)
{
    Marks marks;
    for (int i = 0; i < item->keyCount(); ++i)
        marks[item->keyTimes()[i]] = item->keyFlags()[i] != 0;
    return marks;
}

} // namespace

void TestDopeSheetKeyCache::editsOfATree_data()
{
    QTest::addColumn<quint32>("seed");
    for (quint32 seed = 1; seed <= 4; ++seed)
        QTest::addRow("seed %u", seed) << seed;
}

void TestDopeSheetKeyCache::editsOfATree()
{
    QFETCH(quint32, seed);
    RandomTree tree(seed);
    for (int round = 0; round < 250; ++round) {
        tree.edit();
        if (tree.random() % 4 == 0)
            tree.editTree();
        // Before any row has been asked for its keys, and after some have.
        QCOMPARE(tree.root.hasSelectedKeys(), tree.somethingIsSelected(&tree.root));
        for (const VxDopeSheetItem *item : tree.allItems()) {
            if (tree.random() % 3 == 0)
                QCOMPARE(item->hasSelectedKeys(), tree.somethingIsSelected(item));
            if (tree.random() % 3 == 0)
                QVERIFY(shown(item) == tree.expected(item));
        }
        for (const VxDopeSheetItem *item : tree.allItems()) {
            QVERIFY(shown(item) == tree.expected(item));
            QCOMPARE(item->hasSelectedKeys(), tree.somethingIsSelected(item));
        }
    }
}

VX_TEST_MAIN(TestDopeSheetKeyCache)
#include "tst_dopesheetkeycache.moc"
