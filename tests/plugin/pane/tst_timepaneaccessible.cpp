// Dope sheet, key graph, playhead and time range slider as screen readers see them.

#include "testing/vxtestmain.h"
#include "timepanetestbase.h"
#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/keygraph/vxkeygraph.h"
#include "vxtimeline/keygraph/vxkeygraphview.h"
#include "vxtimeline/keys/accessiblepool.h"
#include "vxtimeline/widgets/vxplayheadwgt.h"
#include "vxtimeline/widgets/vxtimerangeslider.h"

#include <QtCore/QScopeGuard>
#include <QtGui/QAccessible>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxkeyselection.h>
#include <vxcore/vxmainwindow.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxpanemgr.h>
#include <vxcore/vxundostackhold.h>

namespace {

constexpr VxTime Frame = 160;

bool screenReaderIsActive = false;

struct SeenEvent
{
    QAccessible::Event type;
    QString name;
    QString description;
};
std::vector<SeenEvent> seenEvents;

void seeEvent(QAccessibleEvent *event)
{
    QAccessibleInterface *object = event->accessibleInterface();
    seenEvents.push_back({event->type(), object ? object->text(QAccessible::Name) : QString(),
                          object ? object->text(QAccessible::Description) : QString()});
}

/// The events of a type since the last call for any type, as names of their objects.
QStringList namesOf(QAccessible::Event type)
{
    QStringList names;
    for (const SeenEvent &event : seenEvents) {
        if (event.type == type)
            names += event.name;
    }
    return names;
}

/// The objects at a place from the outermost to the innermost, as a screen reader finds them.
QStringList pathTo(QAccessibleInterface *root, const QPoint &place)
{
    QStringList names;
    for (QAccessibleInterface *object = root; object && names.size() < 10;
         object = object->childAt(place.x(), place.y()))
        names += object->text(QAccessible::Name);
    return names;
}

/// The first child with a name; null for none.
QAccessibleInterface *childNamed(QAccessibleInterface *parent, const QString &name)
{
    for (int i = 0; i < parent->childCount(); ++i) {
        QAccessibleInterface *child = parent->child(i);
        if (child && child->text(QAccessible::Name) == name)
            return child;
    }
    return nullptr;
}

/// "12.5 Linear*" for each key, with a star for the selected ones.
QString keysText(QAccessibleInterface *list)
{
    QStringList texts;
    for (int i = 0; i < list->childCount(); ++i) {
        QAccessibleInterface *key = list->child(i);
        texts += key->text(QAccessible::Name) + ": " + key->text(QAccessible::Description) +
                 (key->state().selected ? "*" : "");
    }
    return texts.join("; ");
}

} // namespace

// In place of the toolkit's functions, which ask the platform: the one of the tests has no screen
// reader, and nothing would be reported.
bool QAccessible::isActive()
{
    return screenReaderIsActive;
}

void QAccessible::updateAccessibility(QAccessibleEvent *event)
{
    if (screenReaderIsActive)
        seeEvent(event);
}

class TestTimePaneAccessible : public QObject, private TimePaneTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void rowsAreATree();
    void closedRowsHaveKeysOnly();
    void keysNearTheTime();
    void keysSayTimeValueAndType();
    void actionsOfAKey();
    void actionsOfARow();
    void keysOfManyPropertiesAreSelectedTogether();
    void keyOfAnAlias();
    void valueOfAKeyIsAnUndoEntry();
    void valuesThatAreRefused();
    void objectsOfManyKeysAreFew();
    void removedRows();
    void channelsAreAList();
    void playheadAndTimeRange();
    void objectsAtAPlace();
    void buttonsAtAPlace();
    void changesAreReported();
    void nothingIsMadeWhileNobodyListens();

private:
    VxDopeSheetView *sheet() const { return pane->getDopeSheetView(); }
    VxKeyGraphView *graphView() const { return find<VxKeyGraphView>("TimelineKeyGraphView"); }
    QAccessibleInterface *sheetObject() const
    {
        return QAccessible::queryAccessibleInterface(sheet());
    }
    QAccessibleInterface *legRow() const { return childNamed(sheetObject(), "leg"); }
    void open(VxNode *node) const { sheet()->expand(sheet()->findNodeIndex(node)); }
    // The list of keys of the leg's X translation; everything above it is opened.
    QAccessibleInterface *xKeys() const;
    static void act(QAccessibleInterface *object, const QString &action)
    {
        QVERIFY2(object->actionInterface()->actionNames().contains(action), qPrintable(action));
        object->actionInterface()->doAction(action);
    }

    std::unique_ptr<VxMainWindow> window;
    VxNode *hip = nullptr;
    VxNode *leg = nullptr;
    VxFloatProperty *x = nullptr;
};

void TestTimePaneAccessible::init()
{
    setUp();
    seenEvents.clear();
    window = std::make_unique<VxMainWindow>();
    window->getPaneMgr()->addPane(pane.get());
    pane->setViewMode(VxTimePane::AdvancedView);
    pane->setKeyGraphOpen(true);
    vxApp->start();
    addChoices(TimePaneChoice::PropertyTypeFamily, {1, 2, 4, 16});
    for (const auto &action : actions)
        action->setChecked(true);
    leg = new VxNode("leg");
    hip = new VxNode("hip");
    vxScene->addNode(leg);
    vxScene->addNode(hip);
    x = leg->getXPosControl();
    x->setKey(5 * Frame, 1.5f, 0);
    x->setKey(10 * Frame, 2.0f, 1);
    x->setKey(20 * Frame, -3.0f, 2);
    leg->getYPosControl()->setKey(10 * Frame, 7.0f, 0);
    vxApp->getUndoStack()->clear();
    showPane();
}

void TestTimePaneAccessible::cleanup()
{
    QAccessible::installUpdateHandler(nullptr);
    tearDown();
    window.reset();
}

QAccessibleInterface *TestTimePaneAccessible::xKeys() const
{
    sheet()->expandAll();
    QAccessibleInterface *row = legRow();
    for (const char *name : {"Properties", "General/Transforms/Translation"}) {
        row = row ? childNamed(row, name) : nullptr;
    }
    QAccessibleInterface *property = row ? row->child(1) : nullptr;
    if (!property)
        qFatal("no row");
    return property->child(0);
}

void TestTimePaneAccessible::rowsAreATree()
{
    QAccessibleInterface *tree = sheetObject();
    QCOMPARE(tree->role(), QAccessible::Tree);
    QCOMPARE(tree->text(QAccessible::Name), QString("Dope Sheet"));
    QCOMPARE(tree->child(0)->text(QAccessible::Name), QString("leg"));
    QCOMPARE(tree->child(1)->text(QAccessible::Name), QString("hip"));
    sheet()->expandAll();
    QAccessibleInterface *row = legRow();
    QCOMPARE(row->role(), QAccessible::TreeItem);
    QVERIFY(row->state().expanded);
    QVERIFY(row->text(QAccessible::Description).startsWith("Level 1, 3 keys"));
    QAccessibleInterface *properties = row->child(1);
    QVERIFY(properties->text(QAccessible::Description).startsWith("Level 2, 3 keys"));
    // Every child refers back to its parent, by its number.
    std::vector<QAccessibleInterface *> open{tree};
    int visited = 0;
    while (!open.empty()) {
        QAccessibleInterface *parent = open.back();
        open.pop_back();
        for (int i = 0; i < parent->childCount(); ++i) {
            QAccessibleInterface *child = parent->child(i);
            QVERIFY(child);
            if (child->object())
                continue;
            QCOMPARE(child->parent(), parent);
            QCOMPARE(parent->indexOfChild(child), i);
            open.push_back(child);
            ++visited;
        }
    }
    QVERIFY2(visited > 10, qPrintable(QString::number(visited)));
}

void TestTimePaneAccessible::closedRowsHaveKeysOnly()
{
    sheet()->collapseAll();
    QVERIFY(legRow()->state().expandable);
    QVERIFY(legRow()->state().collapsed);
    QCOMPARE(legRow()->childCount(), 1);
    QCOMPARE(legRow()->child(0)->childCount(), 3);
    act(legRow(), QAccessibleActionInterface::toggleAction());
    QCOMPARE(legRow()->childCount(), 2);
}

void TestTimePaneAccessible::keysNearTheTime()
{
    QAccessibleInterface *keys = xKeys();
    vxScene->setTime(0);
    QCOMPARE(keys->text(QAccessible::Description), QString("3 keys, next key at Frame 5"));
    vxScene->setTime(10 * Frame);
    QCOMPARE(keys->text(QAccessible::Description),
             QString("3 keys, key at the current time, previous key at Frame 5, next key at "
                     "Frame 20"));
    vxScene->setTime(30 * Frame);
    act(keys->child(1), QAccessibleActionInterface::toggleAction());
    QCOMPARE(keys->text(QAccessible::Description),
             QString("3 keys, 1 selected, previous key at Frame 20"));
}

void TestTimePaneAccessible::keysSayTimeValueAndType()
{
    QAccessibleInterface *keys = xKeys();
    QCOMPARE(keys->text(QAccessible::Name), QString("Keys of X Translate"));
    QCOMPARE(keysText(keys),
             QString("Frame 5: 1.5, Linear; Frame 10: 2, Constant; Frame 20: -3, TCB"));
    QCOMPARE(keys->child(0)->role(), QAccessible::Cell);
    // A key of several properties has no value.
    QCOMPARE(keysText(legRow()->child(0)), QString("Frame 5: ; Frame 10: ; Frame 20: "));
    QVERIFY(!legRow()->child(0)->child(0)->valueInterface());
    // The mark's square is in the keys column, at the time of the key.
    const QRect mark = keys->child(1)->rect();
    QVERIFY(keys->rect().contains(mark));
    QVERIFY(mark.center().x() > keys->child(0)->rect().center().x());
}

void TestTimePaneAccessible::actionsOfAKey()
{
    QAccessibleInterface *keys = xKeys();
    act(keys->child(0), QAccessibleActionInterface::pressAction());
    act(keys->child(2), QAccessibleActionInterface::toggleAction());
    QVERIFY(keys->child(0)->state().selected);
    QVERIFY(!keys->child(1)->state().selected);
    QVERIFY(keys->child(2)->state().selected);
    QCOMPARE(x->getNumKeys(), 3);
    act(keys->child(1), QAccessibleActionInterface::pressAction());
    QCOMPARE(vxApp->getKeySelection()->spansOf(x), std::vector<VxKeySpan>({{1, 2}}));
    act(keys->child(1), QAccessibleActionInterface::toggleAction());
    QVERIFY(vxApp->getKeySelection()->spansOf(x).empty());
    act(keys->child(2), "Go to Key");
    QCOMPARE(vxScene->getTime(), 20 * Frame);
    QCOMPARE(vxApp->getUndoStack()->count(), 0);
}

void TestTimePaneAccessible::actionsOfARow()
{
    QAccessibleInterface *keys = xKeys();
    // An open row shows no keys of its own; its action selects those below all the same.
    act(legRow(), "Select Keys");
    QCOMPARE(keys->text(QAccessible::Description).contains("3 selected"), true);
    QCOMPARE(vxApp->getKeySelection()->entries().size(), std::size_t(2));
    act(legRow(), "Deselect Keys");
    QVERIFY(vxApp->getKeySelection()->entries().empty());
    act(childNamed(sheetObject(), "hip"), QAccessibleActionInterface::pressAction());
    QCOMPARE(vxScene->getPrimarySelection(), hip);
    pane->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(pane.get()));
    act(legRow(), QAccessibleActionInterface::setFocusAction());
    QVERIFY(legRow()->state().focused);
    QCOMPARE(sheetObject()->focusChild(), legRow());
}

void TestTimePaneAccessible::keysOfManyPropertiesAreSelectedTogether()
{
    sheet()->collapseAll();
    QAccessibleInterface *keys = legRow()->child(0);
    act(keys->child(1), QAccessibleActionInterface::pressAction());
    QCOMPARE(vxApp->getKeySelection()->spansOf(x), std::vector<VxKeySpan>({{1, 2}}));
    QCOMPARE(vxApp->getKeySelection()->spansOf(leg->getYPosControl()),
             std::vector<VxKeySpan>({{0, 1}}));
    act(keys->child(2), QAccessibleActionInterface::toggleAction());
    QCOMPARE(vxApp->getKeySelection()->spansOf(x), std::vector<VxKeySpan>({{1, 3}}));
    act(keys->child(1), QAccessibleActionInterface::toggleAction());
    QCOMPARE(vxApp->getKeySelection()->spansOf(x), std::vector<VxKeySpan>({{2, 3}}));
}

void TestTimePaneAccessible::keyOfAnAlias()
{
    QVERIFY(hip->getXPosControl()->setAliasedProperty(x));
    QAccessibleInterface *keys = xKeys();
    QAccessibleInterface *row = childNamed(sheetObject(), "hip")->child(0);
    QTRY_COMPARE(row->childCount(), 3);
    act(row->child(1), QAccessibleActionInterface::pressAction());
    QCOMPARE(vxApp->getKeySelection()->spansOf(x), std::vector<VxKeySpan>({{1, 2}}));
    QVERIFY(keys->child(1)->state().selected);
}

void TestTimePaneAccessible::valueOfAKeyIsAnUndoEntry()
{
    QAccessibleInterface *key = xKeys()->child(1);
    QCOMPARE(key->valueInterface()->currentValue().toDouble(), 2.0);
    key->valueInterface()->setCurrentValue(4.25);
    QCOMPARE(x->getKeyValue(1), 4.25f);
    QCOMPARE(undoTexts(), QStringList("Set Key Value"));
    vxApp->getUndoStack()->undo();
    QCOMPARE(x->getKeyValue(1), 2.0f);
    vxApp->getUndoStack()->redo();
    QCOMPARE(x->getKeyValue(1), 4.25f);
}

void TestTimePaneAccessible::valuesThatAreRefused()
{
    QAccessibleInterface *key = xKeys()->child(1);
    for (const QVariant &value : {QVariant("no number"), QVariant(qQNaN()), QVariant(qInf())})
        key->valueInterface()->setCurrentValue(value);
    x->setLocked(true);
    key->valueInterface()->setCurrentValue(9.0);
    QCOMPARE(x->getKeyValue(1), 2.0f);
    QCOMPARE(vxApp->getUndoStack()->count(), 0);
    x->setLocked(false);
    {
        // While a drag is open its entry must not include this change.
        VxUndoStackHold drag;
        key->valueInterface()->setCurrentValue(9.0);
        drag.accept("Drag");
    }
    QCOMPARE(x->getKeyValue(1), 2.0f);
}

void TestTimePaneAccessible::objectsOfManyKeysAreFew()
{
    constexpr int Count = 1000000;
    std::vector<VxTime> times(Count);
    for (int i = 0; i < Count; ++i)
        times[std::size_t(i)] = i;
    const std::vector<float> values(Count, 1.0f);
    VxKeyColumns<float> keys;
    keys.times = times.data();
    keys.values = values.data();
    keys.count = Count;
    QVERIFY(x->setKeys(keys));
    QAccessibleInterface *list = xKeys();
    QCOMPARE(list->childCount(), Count);
    const QAccessible::Id first = QAccessible::uniqueId(list->child(0));
    const QAccessible::Id listId = QAccessible::uniqueId(list);
    for (int i = 0; i < Count; i += 100)
        QVERIFY(list->child(i));
    QVERIFY(AccessiblePool::ofKeys().count() <= AccessiblePool::Capacity);
    QVERIFY(!QAccessible::accessibleInterface(first));
    QCOMPARE(QAccessible::accessibleInterface(listId), list);
    QVERIFY(list->isValid());
    // A description needs no pass over the keys.
    vxScene->setTime(500);
    QCOMPARE(list->text(QAccessible::Description).left(12), QString("1000000 keys"));
}

void TestTimePaneAccessible::removedRows()
{
    QAccessibleInterface *list = xKeys();
    QAccessibleInterface *key = list->child(2);
    QAccessibleInterface *row = legRow();
    x->deleteAllKeys();
    QVERIFY(!key->isValid());
    QCOMPARE(key->text(QAccessible::Name), QString());
    QCOMPARE(list->childCount(), 0);
    vxScene->removeNode(leg);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    for (QAccessibleInterface *object : {list, key, row}) {
        QVERIFY(!object->isValid());
        QVERIFY(object->state().invalid);
        QVERIFY(object->rect().isNull());
        QVERIFY(!object->parent() || object == key);
        QCOMPARE(object->childCount(), 0);
        object->actionInterface()->doAction(object->actionInterface()->actionNames().first());
    }
    QVERIFY(!legRow());
}

void TestTimePaneAccessible::channelsAreAList()
{
    xKeys();
    QModelIndex row = sheet()->findNodeIndex(leg);
    for (int level = 0; level < 3; ++level)
        row = sheet()->model()->index(0, 0, row);
    QVERIFY(row.isValid());
    sheet()->setCurrentIndex(row);
    QCoreApplication::processEvents();
    QAccessibleInterface *graph = QAccessible::queryAccessibleInterface(graphView());
    QCOMPARE(graph->role(), QAccessible::List);
    QAccessibleInterface *channel = graph->child(0);
    QCOMPARE(channel->role(), QAccessible::ListItem);
    QCOMPARE(channel->childCount(), 3);
    QCOMPARE(keysText(channel),
             QString("Frame 5: 1.5, Linear; Frame 10: 2, Constant; Frame 20: -3, TCB"));
    QCOMPARE(channel->parent(), graph);
    QCOMPARE(graph->indexOfChild(channel), 0);
    act(channel->child(1), QAccessibleActionInterface::pressAction());
    QVERIFY(channel->child(1)->state().selected);
    // Dope sheet and key graph show one selection.
    QCOMPARE(keysText(xKeys()).count('*'), 1);
    vxScene->removeNode(leg);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!channel->isValid());
    QVERIFY(!channel->parent());
}

void TestTimePaneAccessible::playheadAndTimeRange()
{
    auto *playhead =
        QAccessible::queryAccessibleInterface(find<VxPlayheadWgt>("TimelinePlayheadWgt"));
    QCOMPARE(playhead->role(), QAccessible::Indicator);
    QCOMPARE(playhead->text(QAccessible::Name), QString("Playhead"));
    vxScene->setAnimRange({0, 100 * Frame});
    vxScene->setPlayRange({10 * Frame, 30 * Frame});
    vxScene->setTime(12 * Frame);
    QCOMPARE(playhead->text(QAccessible::Value), QString("Frame 12"));
    playhead->valueInterface()->setCurrentValue(17);
    QCOMPARE(vxScene->getTime(), 17 * Frame);
    playhead->valueInterface()->setCurrentValue(1e12);
    QCOMPARE(vxScene->getTime(), 100 * Frame);

    auto *slider =
        QAccessible::queryAccessibleInterface(find<VxTimeRangeSlider>("TimelineTimeRangeSldr"));
    QCOMPARE(slider->role(), QAccessible::Slider);
    QCOMPARE(slider->text(QAccessible::Name), QString("Play Range"));
    QCOMPARE(slider->text(QAccessible::Value), QString("Frame 10 to Frame 30"));
    slider->valueInterface()->setCurrentValue(20);
    QCOMPARE(vxScene->getPlayRange(), VxTimeRange(20 * Frame, 40 * Frame));
    slider->valueInterface()->setCurrentValue(1000);
    QCOMPARE(vxScene->getPlayRange(), VxTimeRange(80 * Frame, 100 * Frame));
}

void TestTimePaneAccessible::objectsAtAPlace()
{
    QAccessibleInterface *list = xKeys();
    for (int i = 0; i < 3; ++i) {
        const QRect mark = list->child(i)->rect();
        QVERIFY(!mark.isEmpty());
        const QStringList path = pathTo(list->parent(), mark.center());
        QCOMPARE(path, QStringList({list->parent()->text(QAccessible::Name),
                                    list->text(QAccessible::Name),
                                    list->child(i)->text(QAccessible::Name)}));
        QCOMPARE(sheetObject()->childAt(mark.center().x(), mark.center().y()), list->parent());
    }
    // Between two keys, and in the column of names.
    const QPoint between = (list->child(0)->rect().center() + list->child(1)->rect().center()) / 2;
    QVERIFY(list->rect().contains(between));
    QVERIFY(!list->childAt(between.x(), between.y()));
    const QRect row = list->parent()->rect();
    QVERIFY(!list->parent()->childAt(row.left() + 2, row.center().y()));

    sheet()->setCurrentIndex(sheet()->findNodeIndex(leg));
    graphView()->getKeyGraph()->handleDopesheetPropertyListChanged({x}, false);
    QAccessibleInterface *graph = QAccessible::queryAccessibleInterface(graphView());
    QAccessibleInterface *channel = graph->child(0);
    for (int i = 0; i < 3; ++i) {
        const QPoint place = channel->child(i)->rect().center();
        QVERIFY(!channel->child(i)->rect().isEmpty());
        QCOMPARE(pathTo(graph, place),
                 QStringList({graph->text(QAccessible::Name), channel->text(QAccessible::Name),
                              channel->child(i)->text(QAccessible::Name)}));
    }
}

void TestTimePaneAccessible::buttonsAtAPlace()
{
    graphView()->getKeyGraph()->handleDopesheetPropertyListChanged({x}, false);
    VxKeyGraphView *view = graphView();
    QAccessibleInterface *graph = QAccessible::queryAccessibleInterface(view);
    auto *button = find<QWidget>("KeyGraphFrameBtn");
    const QPoint place = button->mapToGlobal(button->rect().center());
    QCOMPARE(graph->childAt(place.x(), place.y()), QAccessible::queryAccessibleInterface(button));
    // No key, and outside.
    const QPoint empty = view->mapToGlobal(QPoint(2, view->height() / 2));
    QVERIFY(!graph->childAt(empty.x(), empty.y()));
    const QPoint outside = view->mapToGlobal(QPoint(-5, -5));
    QVERIFY(!graph->childAt(outside.x(), outside.y()));
}

/// Each change is reported once it has happened, by the object that it happened to.
void TestTimePaneAccessible::changesAreReported()
{
    sheet()->setCurrentIndex(sheet()->findNodeIndex(hip));
    pane->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(pane->window()));
    sheet()->setFocus();
    screenReaderIsActive = true;
    const auto guardReader = qScopeGuard([] { screenReaderIsActive = false; });
    const auto after = [](const auto &change) {
        seenEvents.clear();
        change();
        QCoreApplication::processEvents();
    };
    QVERIFY(sheet()->hasFocus());
    after([&] { sheet()->setCurrentIndex(sheet()->findNodeIndex(leg)); });
    QCOMPARE(namesOf(QAccessible::Focus), QStringList{"leg"});
    // The number of keys of the current row.
    after([&] { x->setKey(15 * Frame, 1.0f, 0); });
    QVERIFY(!namesOf(QAccessible::DescriptionChanged).isEmpty());
    QCOMPARE(namesOf(QAccessible::DescriptionChanged).constFirst(), QString("leg"));
    QVERIFY2(seenEvents.back().description.contains("4 keys"),
             qPrintable(seenEvents.back().description));
    after([&] { sheet()->setKeySelection(true, sheet()->findNodeIndex(leg)); });
    QVERIFY(namesOf(QAccessible::SelectionWithin).contains("Dope Sheet"));
    QVERIFY(namesOf(QAccessible::SelectionWithin).contains("Key Graph"));
    QVERIFY(seenEvents.back().description.contains("4 selected"));
    after([&] { vxScene->setTime(7 * Frame); });
    QCOMPARE(namesOf(QAccessible::ValueChanged), QStringList{"Playhead"});
    after([&] { sheet()->expand(sheet()->findNodeIndex(leg)); });
    QVERIFY(namesOf(QAccessible::StateChanged).contains("leg"));
    // Rows.
    auto *foot = new VxNode("foot");
    after([&] { vxScene->addNode(foot); });
    QVERIFY(namesOf(QAccessible::TableModelChanged).contains("Dope Sheet"));
    after([&] { vxScene->removeNode(foot); });
    QVERIFY(namesOf(QAccessible::TableModelChanged).contains("Dope Sheet"));
    // The focus returns to the tree, within which the current row has it.
    pane->setFocusPolicy(Qt::StrongFocus);
    pane->setFocus();
    after([&] { sheet()->setFocus(); });
    QVERIFY(namesOf(QAccessible::Focus).contains("Dope Sheet"));
    QVERIFY(sheetObject()->focusChild());
    QCOMPARE(sheetObject()->focusChild()->text(QAccessible::Name), QString("leg"));
}

void TestTimePaneAccessible::nothingIsMadeWhileNobodyListens()
{
    const int containers = AccessiblePool::ofContainers().count();
    const int keys = AccessiblePool::ofKeys().count();
    QAccessible::installUpdateHandler(seeEvent);
    sheet()->expandAll();
    vxScene->setTime(3 * Frame);
    sheet()->setKeySelection(true, sheet()->findNodeIndex(leg));
    QCoreApplication::processEvents();
    sheet()->setCurrentIndex(sheet()->findNodeIndex(hip));
    QCOMPARE(AccessiblePool::ofContainers().count(), containers);
    QCOMPARE(AccessiblePool::ofKeys().count(), keys);
    for (const SeenEvent &event : seenEvents)
        QVERIFY2(event.type != QAccessible::SelectionWithin, qPrintable(event.name));
}

VX_TEST_MAIN(TestTimePaneAccessible)
#include "tst_timepaneaccessible.moc"
