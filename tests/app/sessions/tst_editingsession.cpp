#include "studiotestbase.h"
#include "testing/vxmousedriver.h"
#include "testing/vxtestmain.h"
#include "testing/vxtestmodels.h"

#include <QDockWidget>
#include <QDoubleSpinBox>
#include <QElapsedTimer>
#include <QScrollBar>
#include <QTreeView>
#include <cstring>
#include <random>
#include <vector>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxundostack.h>
#include <vxcore/vxundostackhold.h>

namespace {

constexpr int GesturesARound = 60;
constexpr int MinEdits = 10; // a round with fewer has not tried much
constexpr int PreviewMilliseconds = 260;

// All keys of a property, for comparison to the byte.
struct Keys
{
    const VxFloatProperty *property = nullptr;
    std::vector<VxTime> times;
    std::vector<float> values;
    std::vector<quint8> types;
    std::vector<VxTcb> tcb;

    explicit Keys(const VxFloatProperty *from)
        : property(from)
    {
        const VxKeyColumns<float> keys = from->getKeys();
        times.assign(keys.times, keys.times + keys.count);
        values.assign(keys.values, keys.values + keys.count);
        types.assign(keys.types, keys.types + keys.count);
        if (keys.tcb)
            tcb.assign(keys.tcb, keys.tcb + keys.count);
    }
};

template <typename T> bool sameBytes(const std::vector<T> &a, const std::vector<T> &b)
{
    return a.size() == b.size() &&
           (a.empty() || std::memcmp(a.data(), b.data(), a.size() * sizeof(T)) == 0);
}

using Snapshot = std::vector<Keys>;

Snapshot snapshot()
{
    Snapshot all;
    VxNodeListIterator nodes = vxScene->nodeListIterator();
    while (nodes.hasNext()) {
        const VxNode *node = nodes.next();
        for (int i = 0; i < node->getNumProperties(); ++i) {
            if (const auto *property = qobject_cast<VxFloatProperty *>(node->getProperty(i)))
                all.emplace_back(property);
        }
    }
    return all;
}

// What differs first; empty when nothing does.
QString difference(const Snapshot &was, const Snapshot &is)
{
    if (was.size() != is.size())
        return QStringLiteral("%1 properties instead of %2").arg(is.size()).arg(was.size());
    for (std::size_t i = 0; i < is.size(); ++i) {
        const Keys &a = was[i];
        const Keys &b = is[i];
        const char *what = !sameBytes(a.times, b.times)     ? "times"
                           : !sameBytes(a.values, b.values) ? "values"
                           : !sameBytes(a.types, b.types)   ? "types"
                           : !sameBytes(a.tcb, b.tcb)       ? "shapes"
                                                            : nullptr;
        if (what)
            return QStringLiteral("other %1 in %2 of %3")
                .arg(QLatin1String(what), b.property->getName(), b.property->getOwner()->getName());
    }
    return QString();
}

qint64 keyCount(const Snapshot &keys)
{
    qint64 count = 0;
    for (const Keys &entry : keys)
        count += qint64(entry.times.size());
    return count;
}

} // namespace

// A user at work on a captured walk in the whole program: keys are selected in the dope sheet,
// dragged, copied, pasted, deleted and re-typed, rows opened and closed, steps undone; channels
// become aliases, get overriding controls and links, subtrees are removed and re-parented, and the
// release of a drag is lost. Then all of it is undone, which must give the file's keys, and redone,
// which must give the last ones.
//
// VX_SESSION_SECONDS: its length (1 by default); VX_SESSION_SEED: its seed.
class TestEditingSession : public QObject, private StudioTest
{
    Q_OBJECT

public:
    // A test function may not take longer than that, unless this says so.
    static void initMain()
    {
        const qint64 asked = qEnvironmentVariableIntValue("VX_SESSION_SECONDS");
        if (asked > 0 && !qEnvironmentVariableIsSet("QTEST_FUNCTION_TIMEOUT"))
            qputenv("QTEST_FUNCTION_TIMEOUT", QByteArray::number((asked + 300) * 1000));
    }

private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }
    void everythingCanBeUndone();

private:
    int number(int from, int to) { return std::uniform_int_distribution<>(from, to)(m_random); }
    bool chance(int oneIn) { return number(1, oneIn) == 1; }
    Qt::KeyboardModifiers someModifiers();
    QPoint somePlace();
    QPoint someKey();
    QPoint somePlaceOfAnOpenRow();
    QPoint moved(const QPoint &from);

    void gesture();
    void drag(const QPoint &from, const QPoint &to, Qt::KeyboardModifiers modifiers);
    void toggleRow();
    void setShape();
    void stepBackAndForth();
    void giveUp();
    void changeDependency();
    void changeNodes();
    void trigger(const char *className) const;
    // The whole history back, forth and back.
    void round();

    QDockWidget *dockOfTimePane() const;

    QTreeView *m_sheet = nullptr;
    Snapshot m_file;
    std::mt19937 m_random;
    int m_edits = 0;
    int m_lostReleases = 0;
    int m_dependencies = 0;
    int m_nodeChanges = 0;
};

QDockWidget *TestEditingSession::dockOfTimePane() const
{
    for (QWidget *widget = timePane(); widget; widget = widget->parentWidget()) {
        if (auto *dock = qobject_cast<QDockWidget *>(widget))
            return dock;
    }
    return nullptr;
}

Qt::KeyboardModifiers TestEditingSession::someModifiers()
{
    switch (number(0, 7)) {
    case 0:
    case 1:
        return Qt::ControlModifier;
    case 2:
        return Qt::AltModifier;
    default:
        return Qt::NoModifier;
    }
}

QPoint TestEditingSession::somePlace()
{
    const int left = m_sheet->columnViewportPosition(1);
    return {number(left + 2, left + m_sheet->columnWidth(1) - 3),
            number(2, m_sheet->viewport()->height() - 3)};
}

// A position at which the cursor shows that there is a key, if one is found soon.
QPoint TestEditingSession::someKey()
{
    VxMouseDriver hand(m_sheet->viewport());
    QPoint place;
    for (int attempt = 0; attempt < 20; ++attempt) {
        place = somePlace();
        hand.moveTo(place);
        if (m_sheet->viewport()->cursor().shape() == Qt::PointingHandCursor)
            break;
    }
    return place;
}

// Open rows show no keys, so that a band can begin there.
QPoint TestEditingSession::somePlaceOfAnOpenRow()
{
    for (int attempt = 0; attempt < 50; ++attempt) {
        const QPoint place = somePlace();
        const QModelIndex row = m_sheet->indexAt(QPoint(1, place.y()));
        if (!row.isValid() || m_sheet->isExpanded(row))
            return place;
    }
    return somePlace();
}

QPoint TestEditingSession::moved(const QPoint &from)
{
    return from + QPoint(number(-150, 150), number(-10, 10));
}

void TestEditingSession::trigger(const char *className) const
{
    action(className)->trigger();
    QCoreApplication::processEvents();
}

void TestEditingSession::drag(const QPoint &from, const QPoint &to, Qt::KeyboardModifiers modifiers)
{
    VxMouseDriver hand(m_sheet->viewport());
    hand.press(from, Qt::LeftButton, modifiers);
    hand.moveTo((from + to) / 2, modifiers);
    if (chance(6)) {
        // Slowly, so that the keys are seen on their way.
        QElapsedTimer clock;
        clock.start();
        // The number of moves depends on the machine: none of them takes a random number.
        for (int i = 0; clock.elapsed() < PreviewMilliseconds; ++i)
            hand.moveTo(to + QPoint(i % 41 - 20, 0), modifiers);
    }
    if (chance(6))
        giveUp();
    hand.moveTo(to, modifiers);
    hand.release(to, Qt::LeftButton, modifiers);
}

void TestEditingSession::toggleRow()
{
    const QModelIndex row = m_sheet->indexAt(QPoint(1, somePlace().y()));
    if (row.isValid())
        m_sheet->setExpanded(row, !m_sheet->isExpanded(row));
    m_sheet->scrollTo(row, chance(2) ? QTreeView::PositionAtTop : QTreeView::PositionAtBottom);
}

void TestEditingSession::setShape()
{
    auto *field = inTimePane<QDoubleSpinBox>(chance(2) ? "TimelineInterpTensionSBox"
                                                       : "TimelineInterpBiasSBox");
    if (field->isEnabled())
        field->setValue(number(-100, 100) / 100.0);
}

void TestEditingSession::stepBackAndForth()
{
    VxUndoStack *stack = vxApp->getUndoStack();
    for (int i = number(1, 4); i > 0; --i)
        stack->undo();
    for (int i = number(0, 4); i > 0; --i)
        stack->redo();
}

// The release that follows counts for nothing.
void TestEditingSession::giveUp()
{
    ++m_lostReleases;
    QWidget *focused = QApplication::focusWidget(); // none after the focus was cleared
    switch (number(0, 3)) {
    case 1:
        m_sheet->hide();
        m_sheet->show();
        break;
    case 2:
        if (focused) {
            focused->clearFocus();
            break;
        }
        Q_FALLTHROUGH();
    case 3:
        type(Qt::Key_Escape);
        break;
    default:
        dockOfTimePane()->setFloating(!dockOfTimePane()->isFloating());
        dockOfTimePane()->setFloating(false);
        // The window of the floating dock was the active one.
        window()->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(window()));
    }
    QVERIFY(!vxApp->getUndoStack()->isRecording());
}

void TestEditingSession::changeDependency()
{
    const QVector<VxNode *> nodes = vxScene->getNodes();
    VxFloatProperty *property = nodes.at(number(0, nodes.size() - 1))->getYPosControl();
    VxFloatProperty *target = nodes.at(number(0, nodes.size() - 1))->getXRotControl();
    VxUndoStackHold hold;
    switch (number(0, 3)) { // refused where it would make a circle
    case 0:
        property->setAliasedProperty(target);
        break;
    case 1:
        property->setOverridingControl(target);
        break;
    case 2:
        property->setLink(target);
        break;
    default:
        property->setAliasedProperty(nullptr);
        property->setOverridingControl(nullptr);
        property->setLink(nullptr);
    }
    hold.accept(QStringLiteral("Dependency"));
    ++m_dependencies;
}

// Few nodes at a time, so that keys remain to be edited.
void TestEditingSession::changeNodes()
{
    const QVector<VxNode *> nodes = vxScene->getNodes();
    if (nodes.size() < 2)
        return;
    VxNode *node = nodes.at(number(1, nodes.size() - 1));
    VxUndoStackHold hold;
    if (node->getNumNodeChildren() < 4 && chance(2))
        vxScene->removeNode(node);
    else
        node->setNodeParent(nodes.at(number(0, nodes.size() - 1))); // refused below itself
    hold.accept(QStringLiteral("Nodes"));
    ++m_nodeChanges;
}

void TestEditingSession::gesture()
{
    if (chance(3))
        m_sheet->verticalScrollBar()->setValue(number(0, m_sheet->verticalScrollBar()->maximum()));
    const QPoint place = someKey();
    switch (number(0, 18)) {
    case 0:
    case 1:
    case 2:
        drag(somePlaceOfAnOpenRow(), somePlace(), someModifiers());
        break;
    case 3:
    case 4:
    case 5:
    case 6:
        drag(place, moved(place), someModifiers());
        break;
    case 7:
        VxMouseDriver(m_sheet->viewport()).click(place, Qt::LeftButton, someModifiers());
        break;
    case 8:
        trigger("VxTimePaneCopySelectedKeysAction");
        break;
    case 9:
        VxMouseDriver(m_sheet->viewport()).doubleClick(place);
        trigger("VxTimePanePasteKeysAction");
        break;
    case 10:
        if (chance(2))
            trigger("VxTimePaneDeleteSelectedKeysAction");
        break;
    case 11:
        trigger("VxTimePaneSetInterpTcbAction");
        setShape();
        break;
    case 12:
        trigger(chance(2) ? "VxTimePaneSetInterpConstantAction"
                          : "VxTimePaneSetInterpLinearAction");
        break;
    case 13:
        toggleRow();
        break;
    case 14:
        if (vxScene->getPrimarySelection())
            trigger("VxTimePaneCreateKeysAction");
        break;
    case 15:
    case 16:
        changeDependency();
        break;
    case 17:
        changeNodes();
        break;
    default:
        stepBackAndForth();
    }
    QCoreApplication::processEvents();
}

void TestEditingSession::round()
{
    VxUndoStack *stack = vxApp->getUndoStack();
    for (int i = 0; i < GesturesARound; ++i)
        gesture();
    m_edits += stack->index();
    const int end = stack->index();
    const Snapshot last = snapshot();
    while (stack->canUndo())
        stack->undo();
    QCOMPARE(difference(m_file, snapshot()), QString());
    while (stack->index() < end)
        stack->redo();
    QCOMPARE(difference(last, snapshot()), QString());
    while (stack->canUndo())
        stack->undo();
    QCOMPARE(difference(m_file, snapshot()), QString());
    QVERIFY(stack->isClean());
    stack->clear();
}

void TestEditingSession::everythingCanBeUndone()
{
    bool isSet = false;
    const int seconds = qEnvironmentVariableIntValue("VX_SESSION_SECONDS", &isSet);
    const int seed = qEnvironmentVariableIntValue("VX_SESSION_SEED");
    start();
    QVERIFY(window()->document()->open(vxTestModels("BVH/01_01.bvh")));
    window()->resize(1500, 1500);
    window()->resizeDocks({dockOfTimePane()}, {1000}, Qt::Vertical);
    m_sheet = inTimePane<QTreeView>("TimelineDopeSheetTView");
    m_sheet->expandAll();
    QCoreApplication::processEvents();
    m_file = snapshot();
    QVERIFY(keyCount(m_file) > 100000);
    m_random.seed(std::mt19937::result_type(seed));
    int rounds = 0;
    QElapsedTimer clock;
    clock.start();
    do {
        ++rounds;
        round();
        if (QTest::currentTestFailed())
            qWarning("round %d of seed %d", rounds, seed);
    } while (!QTest::currentTestFailed() && clock.elapsed() < 1000 * (isSet ? seconds : 1));
    QVERIFY2(m_edits >= MinEdits * rounds, "the hand has hardly changed anything");
    QVERIFY(m_dependencies > 0 && m_nodeChanges > 0);
    qInfo("%d edits in %d rounds, %d lost releases, %d dependencies, %d changes of nodes", m_edits,
          rounds, m_lostReleases, m_dependencies, m_nodeChanges);
}

VX_TEST_MAIN(TestEditingSession)
#include "tst_editingsession.moc"
