// The markers of a scene: their order, their undo and their reports.
//
// Markers are drawn as name@start, or name@start-end.

#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"

#include <QSignalSpy>
#include <QtTest>
#include <random>
#include <vxcore/vxchangeblock.h>
#include <vxcore/vxmarkers.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxundostack.h>
#include <vxcore/vxundostackhold.h>

namespace {

VxMarker marker(const char *name, VxTime start, VxTime end)
{
    VxMarker result;
    result.name = QLatin1String(name);
    result.span = VxTimeRange(start, end);
    return result;
}

VxMarker point(const char *name, VxTime time)
{
    return marker(name, time, time);
}

/// Everything about the markers, ids included.
QString state(const VxMarkers &markers)
{
    QString text;
    for (const VxMarker &each : markers.list())
        text += QStringLiteral("%1:%2 %3-%4 %5\n")
                    .arg(each.id)
                    .arg(each.name)
                    .arg(each.span.getStart())
                    .arg(each.span.getEnd())
                    .arg(each.color, 0, 16);
    return text;
}

} // namespace

class TestMarkers : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void aNewSceneHasNone();
    void theListIsSortedByTime();
    void valuesAreCorrected();
    void setMovesAndKeepsTheId();
    void unknownIdsAreIgnored();
    void steppingVisitsStartsAndEnds();
    void aHoldIsOneEntry();
    void aHoldThatPutsEverythingBackIsNoEntry();
    void rollBackRestores();
    void changesOutsideOfAHoldSurviveUndo();
    void entriesKeepOnlyWhatChanged();
    void oneReportABlock();
    void listenersMayChangeMarkers();
    void clearingTheSceneRemovesThem();
    void randomSessions_data();
    void randomSessions();

private:
    QString drawn() const;

    std::unique_ptr<VxWarningGuard> m_guard;
    std::unique_ptr<VxUndoStack> m_stack;
    std::unique_ptr<VxScene> m_scene;
    VxMarkers *m_markers = nullptr;
};

void TestMarkers::init()
{
    m_guard = std::make_unique<VxWarningGuard>();
    m_stack = std::make_unique<VxUndoStack>();
    m_scene = std::make_unique<VxScene>();
    m_markers = VxMarkers::of(m_scene.get());
}

void TestMarkers::cleanup()
{
    m_scene.reset();
    m_stack.reset();
    m_guard.reset();
}

QString TestMarkers::drawn() const
{
    QStringList texts;
    for (const VxMarker &each : m_markers->list()) {
        QString text = QStringLiteral("%1@%2").arg(each.name).arg(each.span.getStart());
        if (!each.isPoint())
            text += QStringLiteral("-%1").arg(each.span.getEnd());
        texts.append(text);
    }
    return texts.join(QLatin1Char(' '));
}

void TestMarkers::aNewSceneHasNone()
{
    QCOMPARE(m_markers->count(), 0);
    QCOMPARE(VxMarkers::of(m_scene.get()), m_markers);
    const VxScene other;
    QVERIFY(VxMarkers::listOf(&other).isEmpty());
    QVERIFY(!m_markers->timeAfter(0));
    QVERIFY(!m_markers->timeBefore(0));
}

void TestMarkers::theListIsSortedByTime()
{
    const QVector<int> ids =
        m_markers->add({point("c", 300), point("a", -100), marker("long", 100, 900),
                        marker("short", 100, 200), point("b", 100), point("b2", 100)});
    QCOMPARE(drawn(), QStringLiteral("a@-100 b@100 b2@100 short@100-200 long@100-900 c@300"));
    QCOMPARE(ids.size(), 6);
    QCOMPARE(m_markers->find(ids.at(0))->name, QStringLiteral("c"));
    QCOMPARE(m_markers->indexOf(ids.at(1)), 0);
}

void TestMarkers::valuesAreCorrected()
{
    VxMarker wrong = marker("back", 500, 100);
    wrong.color = 0x00123456;
    wrong.id = 77;
    const int id = m_markers->add(wrong);
    QVERIFY(id > 0 && id != 77);
    QCOMPARE(drawn(), QStringLiteral("back@500"));
    QCOMPARE(m_markers->list().first().color, QRgb(0xff123456));
    m_markers->add({marker("all", VxTimeMin, VxTimeMax)});
    QCOMPARE(m_markers->list().first().span, VxTimeRange::all());
}

void TestMarkers::setMovesAndKeepsTheId()
{
    const QVector<int> ids = m_markers->add({point("a", 100), point("b", 200), point("c", 300)});
    VxMarker moved = *m_markers->find(ids.at(0));
    moved.span = VxTimeRange(250, 260);
    m_markers->set(moved);
    QCOMPARE(drawn(), QStringLiteral("b@200 a@250-260 c@300"));
    QCOMPARE(m_markers->indexOf(ids.at(0)), 1);
    m_markers->remove({ids.at(1), ids.at(2)});
    QCOMPARE(drawn(), QStringLiteral("a@250-260"));
    // Ids are never used twice.
    QVERIFY(m_markers->add(point("d", 0)) > ids.last());
}

void TestMarkers::unknownIdsAreIgnored()
{
    m_markers->add(point("a", 100));
    QSignalSpy changed(m_markers, &VxMarkers::changed);
    m_markers->remove({0, 55});
    VxMarker unknown = point("x", 3);
    unknown.id = 99;
    m_markers->set(unknown);
    m_markers->set(m_markers->list().first()); // unchanged
    m_markers->add(VxMarkerList());
    QCOMPARE(changed.count(), 0);
    QCOMPARE(drawn(), QStringLiteral("a@100"));
    QCOMPARE(m_markers->indexOf(99), -1);
}

void TestMarkers::steppingVisitsStartsAndEnds()
{
    m_markers->add({marker("s", 100, 400), point("p", 200), point("q", 200)});
    QVector<VxTime> forward;
    for (auto time = m_markers->timeAfter(VxTimeMin); time; time = m_markers->timeAfter(*time))
        forward.append(*time);
    QCOMPARE(forward, (QVector<VxTime>{100, 200, 400}));
    QVector<VxTime> backward;
    for (auto time = m_markers->timeBefore(VxTimeMax); time; time = m_markers->timeBefore(*time))
        backward.append(*time);
    QCOMPARE(backward, (QVector<VxTime>{400, 200, 100}));
}

void TestMarkers::aHoldIsOneEntry()
{
    const int id = m_markers->add(point("a", 100)); // not recorded
    {
        VxUndoStackHold hold;
        m_markers->add({point("b", 50), point("c", 60)});
        VxMarker moved = *m_markers->find(id);
        moved.span = VxTimeRange(10, 20);
        m_markers->set(moved);
        moved.name = QStringLiteral("z");
        m_markers->set(moved);
        hold.accept(QStringLiteral("Edit"));
    }
    QCOMPARE(m_stack->count(), 1);
    QCOMPARE(drawn(), QStringLiteral("z@10-20 b@50 c@60"));
    m_stack->undo();
    QCOMPARE(drawn(), QStringLiteral("a@100"));
    QVERIFY(m_markers->find(id));
    m_stack->redo();
    QCOMPARE(drawn(), QStringLiteral("z@10-20 b@50 c@60"));
}

void TestMarkers::aHoldThatPutsEverythingBackIsNoEntry()
{
    const int id = m_markers->add(point("a", 100));
    VxUndoStackHold hold;
    const VxMarker before = *m_markers->find(id);
    m_markers->remove({m_markers->add(point("b", 0))});
    VxMarker moved = before;
    moved.span = VxTimeRange(5, 5);
    m_markers->set(moved);
    m_markers->set(before);
    hold.accept(QStringLiteral("Nothing"));
    QCOMPARE(m_stack->count(), 0);
}

void TestMarkers::rollBackRestores()
{
    m_markers->add({point("a", 100), point("b", 200)});
    const QString before = state(*m_markers);
    VxUndoStackHold hold;
    m_markers->replaceAll({point("c", 1)});
    m_markers->add(point("d", 2));
    QVERIFY(hold.rollBack());
    QCOMPARE(state(*m_markers), before);
    QCOMPARE(m_stack->count(), 0);
}

void TestMarkers::changesOutsideOfAHoldSurviveUndo()
{
    const QVector<int> ids = m_markers->add({point("a", 100), point("b", 200)});
    {
        VxUndoStackHold hold;
        m_markers->remove({ids.at(1)});
        hold.accept(QStringLiteral("Delete"));
    }
    m_markers->add({point("early", 0), point("late", 900)});
    m_stack->undo();
    QCOMPARE(drawn(), QStringLiteral("early@0 a@100 b@200 late@900"));
    m_stack->redo();
    QCOMPARE(drawn(), QStringLiteral("early@0 a@100 late@900"));
}

void TestMarkers::entriesKeepOnlyWhatChanged()
{
    VxMarkerList many;
    for (int i = 0; i < 10000; ++i)
        many.append(point("m", i * 10));
    const int id = m_markers->add(many).at(5000);
    VxUndoStackHold hold;
    VxMarker moved = *m_markers->find(id);
    moved.span = VxTimeRange(3, 3);
    m_markers->set(moved);
    hold.accept(QStringLiteral("Move"));
    QVERIFY2(m_stack->memoryUsed() < 2000, qPrintable(QString::number(m_stack->memoryUsed())));
    m_stack->undo();
    QCOMPARE(m_markers->find(id)->span, VxTimeRange(50000, 50000));
}

void TestMarkers::oneReportABlock()
{
    QSignalSpy changed(m_markers, &VxMarkers::changed);
    {
        VxUndoStackHold hold;
        const VxChangeBlock block;
        const int id = m_markers->add(point("a", 1));
        m_markers->add(point("b", 2));
        m_markers->remove({id});
        hold.accept(QStringLiteral("Edit"));
        QCOMPARE(changed.count(), 0);
    }
    QCOMPARE(changed.count(), 1);
    m_markers->add(point("c", 3)); // at once
    QCOMPARE(changed.count(), 2);
    m_stack->undo();
    QCOMPARE(changed.count(), 3);
}

void TestMarkers::listenersMayChangeMarkers()
{
    connect(m_markers, &VxMarkers::changed, this, [this] {
        if (m_markers->count() < 5)
            m_markers->add(point("more", m_markers->count()));
    });
    {
        const VxChangeBlock block;
        m_markers->add(point("a", 0));
    }
    QCOMPARE(drawn(), QStringLiteral("a@0 more@1 more@2 more@3 more@4"));
}

void TestMarkers::clearingTheSceneRemovesThem()
{
    m_markers->add(point("a", 0));
    m_scene->clear();
    QCOMPARE(m_markers->count(), 0);
    QCOMPARE(m_stack->count(), 0);
}

void TestMarkers::randomSessions_data()
{
    QTest::addColumn<uint>("seed");
    for (uint seed = 1; seed <= 20; ++seed)
        QTest::addRow("seed %u", seed) << seed;
}

// Each step is one entry, as a drag with several previews is. Undoing and redoing gives each state
// again.
void TestMarkers::randomSessions()
{
    QFETCH(uint, seed);
    std::mt19937 random(seed);
    const auto below = [&random](int limit) { return int(random() % uint(limit)); };
    const auto randomId = [&] {
        return m_markers->count() > 0 ? m_markers->list().at(below(m_markers->count())).id : 0;
    };
    const auto randomMarker = [&] {
        const VxTime start = below(50) * 160 - 1600;
        VxMarker made = marker("m", start, start + (below(2) ? below(20) * 160 : 0));
        made.name += QString::number(below(100));
        made.color = QRgb(random());
        return made;
    };
    QStringList states{state(*m_markers)};
    for (int step = 0; step < 60; ++step) {
        VxUndoStackHold hold;
        for (int edits = 1 + below(4); edits > 0; --edits) {
            VxMarker changed = randomMarker();
            changed.id = randomId();
            switch (below(5)) {
            case 0:
                m_markers->add({randomMarker(), randomMarker()});
                break;
            case 1:
                m_markers->remove({randomId(), 9999});
                break;
            case 2:
                m_markers->add(randomMarker());
                break;
            case 3:
                if (below(8) == 0)
                    m_markers->replaceAll({randomMarker(), randomMarker(), randomMarker()});
                break;
            default:
                m_markers->set(changed);
            }
        }
        if (below(5) == 0) {
            QVERIFY(hold.rollBack());
            QCOMPARE(state(*m_markers), states.last());
        } else {
            hold.accept(QStringLiteral("Step"));
        }
        const VxMarkerList &list = m_markers->list();
        for (int i = 1; i < list.size(); ++i)
            QVERIFY(list.at(i - 1).span.getStart() <= list.at(i).span.getStart());
        if (m_stack->count() == states.size())
            states.append(state(*m_markers));
        QCOMPARE(state(*m_markers), states.last());
    }
    QCOMPARE(m_stack->count() + 1, states.size());
    for (int i = 0; i < 3; ++i) {
        for (int at = states.size() - 2; at >= 0; --at) {
            m_stack->undo();
            QCOMPARE(state(*m_markers), states.at(at));
        }
        for (int at = 1; at < states.size(); ++at) {
            m_stack->redo();
            QCOMPARE(state(*m_markers), states.at(at));
        }
    }
}

VX_TEST_GUILESS_MAIN(TestMarkers)
#include "tst_vxmarkers.moc"
