#include "dopesheettestbase.h"
#include "testing/keytimes.h"
#include "testing/vxtestmain.h"
#include "vxtimeline/dopesheet/keydrag.h"
#include "vxtimeline/rows/selectedkeys.h"
#include "vxtimeline/rows/vxdopesheetfiltermodel.h"

#include <QtTest/QSignalSpy>
#include <vxcore/vxboolproperty.h>
#include <vxcore/vxintproperty.h>
#include <vxcore/vxundostack.h>
#include <vxcore/vxundostackhold.h>

namespace {

constexpr int allTypes = 63;

} // namespace

// The commands for selected keys, by program. Beside the translations, hip has a count, a switch
// and an alias of its X translation.
class TestDopeSheetKeyCommands : public QObject, private DopeSheetTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { tearDown(); }

    void copyNothing();
    void copyAndPaste();
    void pasteKeepsSpacingAcrossRows();
    void pasteMatchesPaths();
    void pasteOfInts();
    void pasteOfNothing();
    void pasteOntoARowMadeAnew();
    void copiesStayUntilTheNext();
    void copiesOfBothRowsFindEither_data();
    void copiesOfBothRowsFindEither();

    void deleteOnce();
    void deleteInAnAlias();
    void deleteInBothRows();
    void deleteLeavesLockedKeys();
    void oneReportAProperty();
    void dragOfBothRowsKeepsTheirSelections();
    void dragContinuesWithoutDeletedKeys();

    void interpolation();
    void interpolationKeepsShapes();
    void interpolationOfInts();
    void interpolationRefusesNonsense();
    void tcb();
    void tcbIsReadBack();
    void tcbIsReadBackAfterPasting();

    void skipsAmongAllRows();
    void skipsOfThePrimaryNode();
    void skipIgnoresHalfAFrame();
    void skipStaysInThePlayRange();
    void skipWithoutKeys();

    void filteredRowsAreLeftAlone();
    void graphProperties();

private:
    // The row of a property, the first one there is.
    QModelIndex rowOfProperty(const VxProperty *property,
                              const QModelIndex &parent = QModelIndex()) const;
    void select(const VxProperty *property, VxTime start = VxTimeMin, VxTime end = VxTimeMax)
    {
        const QModelIndex row = rowOfProperty(property);
        QVERIFY(row.isValid());
        view->setKeySelection(true, row, row, start, end);
    }
    VxFloatProperty *x() const { return hip->getXPosControl(); }

    VxIntProperty *count = nullptr;
    VxBoolProperty *lamp = nullptr;
    VxFloatProperty *alias = nullptr;
};

void TestDopeSheetKeyCommands::init()
{
    setUp();
    count = new VxIntProperty(QStringLiteral("count"));
    lamp = new VxBoolProperty(QStringLiteral("lamp"));
    alias = new VxFloatProperty(QStringLiteral("alias"));
    for (VxProperty *property : std::initializer_list<VxProperty *>{count, lamp, alias})
        hip->addProperty(property, QStringLiteral("/General"));
    QVERIFY(alias->setAliasedProperty(x()));
    model = std::make_unique<VxDopeSheetModel>(allTypes, 2, nullptr);
    model->addNode(hip, true);
    model->addNode(ball, true);
    view->setModel(model.get());
    addKeys(x(), {1000, 2000});
    QVERIFY(rowOfProperty(alias).isValid());
    QVERIFY(rowOfProperty(lamp).isValid());
}

QModelIndex TestDopeSheetKeyCommands::rowOfProperty(const VxProperty *property,
                                                    const QModelIndex &parent) const
{
    for (int row = 0; row < model->rowCount(parent); ++row) {
        const QModelIndex index = model->index(row, 0, parent);
        if (model->getItem(index)->property() == property)
            return index;
        const QModelIndex below = rowOfProperty(property, index);
        if (below.isValid())
            return below;
    }
    return QModelIndex();
}

void TestDopeSheetKeyCommands::copyNothing()
{
    select(x());
    view->copyKeys();
    QVERIFY(view->hasCopiedKeys());
    view->clearSelectedKeys();
    QSignalSpy reported(view.get(), &VxDopeSheetView::copyContextChanged);
    view->copyKeys();
    QCOMPARE(reported.count(), 1);
    QCOMPARE(reported.first().first().toBool(), false);
    QVERIFY(!view->hasCopiedKeys());
}

void TestDopeSheetKeyCommands::copyAndPaste()
{
    x()->setKey(2000, 7.0f, VxKeyInterp::Tcb, 0.5f, -0.5f, 0.25f);
    select(x());
    QSignalSpy reported(view.get(), &VxDopeSheetView::copyContextChanged);
    view->copyKeys();
    QCOMPARE(reported.first().first().toBool(), true);
    vxScene->setTime(4800);
    view->pasteKeys();
    QCOMPARE(keyTimes(x()), Times({1000, 2000, 4800, 5800}));
    float tension = 0;
    float continuity = 0;
    float bias = 0;
    QCOMPARE(x()->getKeyInterpolationType(3, &tension, &continuity, &bias), 2);
    QCOMPARE(QVector<float>({tension, continuity, bias}), QVector<float>({0.5f, -0.5f, 0.25f}));
    QCOMPARE(x()->getKeyValue(3), 7.0f);
    // The selection stays where it was, and rows above include the new keys.
    QCOMPARE(selected(rowOfProperty(x())), Times({1000, 2000}));
    QCOMPARE(model->getItem(rowOf(hip))->keyCount(), 4);
}

void TestDopeSheetKeyCommands::pasteKeepsSpacingAcrossRows()
{
    addKeys(hip->getYPosControl(), {1300});
    select(x(), 2000, 2000);
    select(hip->getYPosControl());
    view->copyKeys();
    vxScene->setTime(3200);
    view->pasteKeys();
    QCOMPARE(keyTimes(hip->getYPosControl()), Times({1300, 3200}));
    QCOMPARE(keyTimes(x()), Times({1000, 2000, 3900}));
}

void TestDopeSheetKeyCommands::pasteMatchesPaths()
{
    select(x());
    view->copyKeys();
    vxScene->setTime(4800);
    view->pasteKeys();
    QCOMPARE(ball->getXPosControl()->getNumKeys(), 0);
    QCOMPARE(hip->getYPosControl()->getNumKeys(), 0);
    QCOMPARE(alias->getNumKeys(), x()->getNumKeys());
}

void TestDopeSheetKeyCommands::pasteOfInts()
{
    count->setKey(0, -4);
    count->setKey(160, 9);
    lamp->setKey(160, 1);
    select(count);
    select(lamp);
    view->copyKeys();
    vxScene->setTime(1600);
    view->pasteKeys();
    QCOMPARE(keyTimes(count), Times({0, 160, 1600, 1760}));
    QCOMPARE(count->getKeyValue(2), -3); // rounded, as any value
    QCOMPARE(count->getKeyValue(3), 9);
    QCOMPARE(keyTimes(lamp), Times({160, 1760}));
    QCOMPARE(lamp->getKeyValue(1), 1);
}

void TestDopeSheetKeyCommands::pasteOfNothing()
{
    view->pasteKeys();
    QCOMPARE(keyTimes(x()), Times({1000, 2000}));
}

void TestDopeSheetKeyCommands::pasteOntoARowMadeAnew()
{
    select(x());
    view->copyKeys();
    model->removeNode(hip);
    model->addNode(hip, true);
    vxScene->setTime(4800);
    view->pasteKeys();
    QCOMPARE(keyTimes(x()), Times({1000, 2000, 4800, 5800}));
}

void TestDopeSheetKeyCommands::copiesStayUntilTheNext()
{
    select(x());
    view->copyKeys();
    view->deleteKeys();
    vxScene->setTime(160);
    view->pasteKeys();
    vxScene->setTime(4800);
    view->pasteKeys();
    QCOMPARE(keyTimes(x()), Times({160, 1160, 4800, 5800}));
    QVERIFY(view->hasCopiedKeys());
}

// A property and its alias are two rows: what was copied from both can be pasted into either.
void TestDopeSheetKeyCommands::copiesOfBothRowsFindEither_data()
{
    QTest::addColumn<int>("types");
    QTest::newRow("both") << allTypes;
    QTest::newRow("the property alone") << (allTypes & ~TimelinePropertyTypes::Alias);
    QTest::newRow("the alias alone") << (allTypes & ~TimelinePropertyTypes::Translation);
}

void TestDopeSheetKeyCommands::copiesOfBothRowsFindEither()
{
    QFETCH(int, types);
    select(x());
    select(alias);
    view->copyKeys();
    QCOMPARE(view->numCopiedKeys(), 2);
    view->setModel(nullptr);
    model = std::make_unique<VxDopeSheetModel>(types, 2, nullptr);
    model->addNode(hip, true);
    view->setModel(model.get());
    QCOMPARE(rowOfProperty(x()).isValid(), (types & TimelinePropertyTypes::Translation) != 0);
    QCOMPARE(rowOfProperty(alias).isValid(), (types & TimelinePropertyTypes::Alias) != 0);
    vxScene->setTime(4800);
    view->pasteKeys();
    QCOMPARE(keyTimes(x()), Times({1000, 2000, 4800, 5800}));
}

void TestDopeSheetKeyCommands::deleteOnce()
{
    addKeys(x(), {3000, 4000});
    view->collapseAll();
    view->setKeySelection(true, rowOf(hip), rowOf(hip), 1000, 3000);
    QCOMPARE(selected(rowOf(hip)), Times({1000, 2000}));
    view->deleteKeys();
    QCOMPARE(keyTimes(x()), Times({3000, 4000}));
    QVERIFY(!view->hasSelectedKeys());
}

void TestDopeSheetKeyCommands::deleteInAnAlias()
{
    select(alias, 1000, 1000);
    QCOMPARE(selected(rowOfProperty(x())), Times());
    view->deleteKeys();
    QCOMPARE(keyTimes(x()), Times({2000}));
}

// Each row has keys selected that the other has not; all of them are removed, and no other.
void TestDopeSheetKeyCommands::deleteInBothRows()
{
    addKeys(x(), {3000, 4000, 5000});
    select(alias, 1000, 1000);
    select(alias, 3000, 3000);
    select(x(), 3000, 3000);
    select(x(), 5000, 5000);
    view->deleteKeys();
    QCOMPARE(keyTimes(x()), Times({2000, 4000}));
}

void TestDopeSheetKeyCommands::deleteLeavesLockedKeys()
{
    addKeys(ball->getXPosControl(), {100});
    select(x());
    select(ball->getXPosControl());
    x()->setLocked(true);
    view->deleteKeys();
    QCOMPARE(keyTimes(x()), Times({1000, 2000}));
    QCOMPARE(ball->getXPosControl()->getNumKeys(), 0);
}

void TestDopeSheetKeyCommands::oneReportAProperty()
{
    select(x());
    QSignalSpy reported(x(), &VxProperty::valueChanged);
    view->setInterpType(VxKeyInterp::Constant);
    QCOMPARE(reported.count(), 1);
    view->copyKeys();
    vxScene->setTime(4800);
    reported.clear();
    view->pasteKeys();
    QCOMPARE(reported.count(), 1);
    reported.clear();
    view->deleteKeys();
    QCOMPARE(reported.count(), 1);
}

// Each row has one of the keys selected; both move, and each row still shows its own.
void TestDopeSheetKeyCommands::dragOfBothRowsKeepsTheirSelections()
{
    addKeys(x(), {5000});
    select(x(), 1000, 1000);
    select(alias, 2000, 2000);
    SelectedKeysCollector collector;
    collector.add(model->getItem(rowOfProperty(x())));
    collector.add(model->getItem(rowOfProperty(alias)));
    KeyDrag drag;
    for (const SelectedKeys &keys : collector.keys())
        drag.add(keys);
    for (const qint64 offset : {500, 3500, -200}) {
        QVERIFY(drag.moveTo(offset, VxCollision::WaitBeside));
        QCOMPARE(selected(rowOfProperty(x())), Times({VxTime(1000 + offset)}));
        QCOMPARE(selected(rowOfProperty(alias)), Times({VxTime(2000 + offset)}));
    }
    QCOMPARE(keyTimes(x()), Times({800, 1800, 5000}));
}

// Others take a dragged key away and put another beside its place: that one is not dragged.
void TestDopeSheetKeyCommands::dragContinuesWithoutDeletedKeys()
{
    addKeys(x(), {3000, 9000});
    select(x(), 1000, 3001);
    SelectedKeysCollector collector;
    collector.add(model->getItem(rowOfProperty(x())));
    KeyDrag drag;
    drag.add(collector.keys().front());
    QVERIFY(drag.moveTo(100, VxCollision::WaitBeside));
    QCOMPARE(keyTimes(x()), Times({1100, 2100, 3100, 9000}));
    x()->deleteKeys(1, 1);
    addKeys(x(), {2105});
    QVERIFY(!drag.moveTo(200, VxCollision::WaitBeside));
    QCOMPARE(keyTimes(x()), Times({1200, 2105, 3200, 9000}));
    QCOMPARE(selected(rowOfProperty(x())), Times({1200, 3200}));
    QVERIFY(drag.moveTo(0, VxCollision::WaitBeside));
    QCOMPARE(keyTimes(x()), Times({1000, 2105, 3000, 9000}));
}

void TestDopeSheetKeyCommands::interpolation()
{
    addKeys(x(), {3000});
    select(x(), 1000, 2001);
    VxUndoStackHold hold;
    view->setInterpType(VxKeyInterp::Tcb);
    hold.accept(QStringLiteral("type"));
    QCOMPARE(x()->getKeyInterpolationType(0), 2);
    QCOMPARE(x()->getKeyInterpolationType(1), 2);
    QCOMPARE(x()->getKeyInterpolationType(2), 0);
    vxApp->getUndoStack()->undo();
    QCOMPARE(x()->getKeyInterpolationType(0), 0);
    QCOMPARE(selected(rowOfProperty(x())), Times({1000, 2000}));
    // What is so already is no change.
    VxUndoStackHold none;
    view->setInterpType(VxKeyInterp::Linear);
    none.accept(QStringLiteral("none"));
    QVERIFY(vxApp->getUndoStack()->canRedo());
}

void TestDopeSheetKeyCommands::interpolationKeepsShapes()
{
    x()->setKey(1000, 1.0f, VxKeyInterp::Tcb, 0.5f, 0.25f, -1.0f);
    select(x());
    view->setInterpType(VxKeyInterp::Linear);
    view->setInterpType(VxKeyInterp::Tcb);
    float tension = 0;
    float continuity = 0;
    float bias = 0;
    QCOMPARE(x()->getKeyInterpolationType(0, &tension, &continuity, &bias), 2);
    QCOMPARE(QVector<float>({tension, continuity, bias}), QVector<float>({0.5f, 0.25f, -1.0f}));
}

void TestDopeSheetKeyCommands::interpolationOfInts()
{
    count->setKey(0, 4);
    select(count);
    VxUndoStackHold hold;
    view->setInterpType(VxKeyInterp::Linear);
    hold.accept(QStringLiteral("none"));
    QCOMPARE(count->getKeyInterpolationType(0), 1);
    QCOMPARE(vxApp->getUndoStack()->count(), 0);
}

void TestDopeSheetKeyCommands::interpolationRefusesNonsense()
{
    select(x());
    for (const int type : {-1, 3}) {
        guard->expect(QRegularExpression(QStringLiteral("vxdopesheetview\\.cpp\\(\\d+\\): "
                                                        "Invalid value passed to "
                                                        "VxDopeSheetView::setInterpType\\(\\)$")));
        view->setInterpType(type);
    }
    QCOMPARE(x()->getKeyInterpolationType(0), 0);
}

void TestDopeSheetKeyCommands::tcb()
{
    x()->setKey(2000, 1.0f, VxKeyInterp::Tcb);
    x()->setKey(3000, 1.0f, VxKeyInterp::Tcb);
    select(x(), 1000, 2001);
    view->setTCB(0.5f, 0.25f, -1.0f);
    float tension = 0;
    float continuity = 0;
    float bias = 0;
    QCOMPARE(x()->getKeyInterpolationType(1, &tension, &continuity, &bias), 2);
    QCOMPARE(QVector<float>({tension, continuity, bias}), QVector<float>({0.5f, 0.25f, -1.0f}));
    // Neither a key of another type nor one that is not selected.
    QCOMPARE(x()->getKeyInterpolationType(0, &tension), 0);
    QCOMPARE(tension, 0.0f);
    QCOMPARE(x()->getKeyInterpolationType(2, &tension), 2);
    QCOMPARE(tension, 0.0f);
}

void TestDopeSheetKeyCommands::tcbIsReadBack()
{
    x()->setKey(2000, 1.0f, VxKeyInterp::Tcb, 0.5f, 0.0f, 0.0f);
    x()->setKey(3000, 1.0f, VxKeyInterp::Tcb, -0.5f, 0.25f, 0.0f);
    select(x());
    float value = 9.0f;
    QVERIFY(!view->getCommonTension(&value));
    QVERIFY(view->getCommonBias(&value));
    view->setTCB(0.75f, 0.25f, 1.0f);
    QVERIFY(view->getCommonTension(&value));
    QCOMPARE(value, 0.75f);
    view->setInterpType(VxKeyInterp::Linear);
    QVERIFY(!view->getCommonTension(&value));
    view->setInterpType(VxKeyInterp::Tcb);
    QVERIFY(!view->getCommonTension(&value)); // the first key has none
    view->setTCB(0.75f, 0.25f, 1.0f);
    QVERIFY(view->getCommonBias(&value));
    view->deleteKeys();
    QVERIFY(!view->getCommonBias(&value));
}

// What is pasted over a selected key is what that key has from then on.
void TestDopeSheetKeyCommands::tcbIsReadBackAfterPasting()
{
    x()->setKey(1000, 1.0f, VxKeyInterp::Tcb, 0.5f, 0.25f, -1.0f);
    x()->setKey(2000, 1.0f, VxKeyInterp::Tcb, 0.0f, 0.0f, 0.0f);
    select(x(), 1000, 1000);
    view->copyKeys();
    view->clearSelectedKeys();
    select(x(), 2000, 2000);
    float value = 9.0f;
    QVERIFY(view->getCommonTension(&value));
    QCOMPARE(value, 0.0f);
    vxScene->setTime(2000);
    view->pasteKeys();
    QCOMPARE(selected(rowOfProperty(x())), Times({2000}));
    QVERIFY(view->getCommonTension(&value));
    QCOMPARE(value, 0.5f);
    QVERIFY(view->getCommonBias(&value));
    QCOMPARE(value, -1.0f);
}

void TestDopeSheetKeyCommands::skipsAmongAllRows()
{
    addKeys(ball->getXPosControl(), {480, 3200});
    vxScene->setTime(1600);
    view->skipToNextKey();
    QCOMPARE(vxScene->getTime(), 2080); // 2000, on the nearest frame
    view->skipToNextKey();
    QCOMPARE(vxScene->getTime(), 3200);
    view->skipToNextKey();
    QCOMPARE(vxScene->getTime(), 3200);
    view->skipToPreviousKey();
    view->skipToPreviousKey();
    QCOMPARE(vxScene->getTime(), 960); // 1000
    view->skipToPreviousKey();
    QCOMPARE(vxScene->getTime(), 480);
    view->skipToPreviousKey();
    QCOMPARE(vxScene->getTime(), 480);
}

void TestDopeSheetKeyCommands::skipsOfThePrimaryNode()
{
    addKeys(ball->getXPosControl(), {3200});
    addKeys(leg->getXPosControl(), {4800});
    vxScene->setTime(2400);
    ball->select(true);
    view->skipToPreviousKey();
    QCOMPARE(vxScene->getTime(), 2400);
    vxScene->selectAllNodes(false);
    hip->select(true);
    view->skipToNextKey();
    QCOMPARE(vxScene->getTime(), 4800); // those below count
    vxScene->selectAllNodes(false);
    // A node without a row: all rows.
    VxNode *other = addNode("other");
    other->select(true);
    view->skipToPreviousKey();
    QCOMPARE(vxScene->getTime(), 3200);
}

void TestDopeSheetKeyCommands::skipIgnoresHalfAFrame()
{
    addKeys(ball->getXPosControl(), {160, 320, 1600 - 80, 1600, 1600 + 80, 1600 + 81});
    ball->select(true);
    vxScene->setTime(1600);
    view->skipToPreviousKey();
    QCOMPARE(vxScene->getTime(), 320);
    vxScene->setTime(1600);
    view->skipToNextKey();
    QCOMPARE(vxScene->getTime(), 1760);
    ball->getXPosControl()->setKey(1519, 0.0f, 0);
    vxScene->setTime(1600);
    view->skipToPreviousKey();
    QCOMPARE(vxScene->getTime(), 1440);
    ball->getXPosControl()->deleteKeys(VxTimeRange(1681, 1681));
    addKeys(ball->getXPosControl(), {3200});
    vxScene->setTime(1600);
    view->skipToNextKey();
    QCOMPARE(vxScene->getTime(), 3200);
}

void TestDopeSheetKeyCommands::skipStaysInThePlayRange()
{
    vxScene->setPlayRange(VxTimeRange(1440, 1600));
    vxScene->setTime(1600);
    view->skipToPreviousKey();
    QCOMPARE(vxScene->getTime(), 1440);
    view->skipToNextKey();
    QCOMPARE(vxScene->getTime(), 1600);
}

void TestDopeSheetKeyCommands::skipWithoutKeys()
{
    x()->deleteAllKeys();
    vxScene->setTime(1600);
    view->skipToPreviousKey();
    view->skipToNextKey();
    QCOMPARE(vxScene->getTime(), 1600);
    view->setModel(nullptr);
    view->skipToPreviousKey();
    view->copyKeys();
    view->deleteKeys();
    view->pasteKeys();
    QCOMPARE(vxScene->getTime(), 1600);
}

// What a text filter hides is not edited.
void TestDopeSheetKeyCommands::filteredRowsAreLeftAlone()
{
    addKeys(ball->getXPosControl(), {100});
    VxDopeSheetFilterModel filter(nullptr);
    filter.setRecursiveFilteringEnabled(true);
    filter.setSourceModel(model.get());
    view->setFilterModel(&filter);
    view->setModel(&filter);
    select(x());
    select(ball->getXPosControl());
    view->setModel(&filter);
    for (VxProperty *property :
         {static_cast<VxProperty *>(x()), static_cast<VxProperty *>(ball->getXPosControl())})
        model->getItem(rowOfProperty(property))->setKeysSelected(true, VxTimeMin, VxTimeMax);
    view->applyFilterText(QStringLiteral("hip"));
    view->deleteKeys();
    QCOMPARE(ball->getXPosControl()->getNumKeys(), 1);
    view->applyFilterText(QString());
    view->deleteKeys();
    QCOMPARE(ball->getXPosControl()->getNumKeys(), 0);
    view->setModel(nullptr);
    view->setFilterModel(nullptr);
}

void TestDopeSheetKeyCommands::graphProperties()
{
    showView();
    view->handleGraphChannelListChanged({x(), count});
    view->handleGraphChannelListChanged({});
    QVERIFY(!view->hasSelectedKeys());
}

VX_TEST_MAIN(TestDopeSheetKeyCommands)
#include "tst_dopesheetkeycommands.moc"
