#include "testing/keytimes.h"
#include "testing/vxtestmain.h"
#include "timepanetestbase.h"
#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/keygraph/vxkeygraphview.h"
#include "vxtimeline/rows/vxdopesheetitem.h"

#include <QtCore/QSortFilterProxyModel>
#include <QtWidgets/QDoubleSpinBox>
#include <vxcore/vxchangeblock.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxkeyselection.h>
#include <vxcore/vxmainwindow.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxscriptengine.h>
#include <vxcore/vxundostackhold.h>

namespace {

using Spans = std::vector<VxKeySpan>;
class StatusWindow : public VxMainWindow
{
public:
    void showStatusMessage(const QString &text, int) override { texts += text; }
    QStringList texts;
};

} // namespace

// The pane's selected keys as the application's selection, and what can be done with them. A ball
// has keys on the frames 0, 10 and 20 of its X and Y translation.
class TestTimePaneKeySelection : public QObject, private TimePaneTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void entriesOfRows();
    void entriesOfAnAlias();
    void setReachesRowsThatAreFilteredOut();
    void setReachesTheGraph();
    void undoAndRedoSelectTheMovedKeys();
    void deletedKeysAreSelectedAfterUndo();
    void controlsFollowTheSelection_data();
    void controlsFollowTheSelection();
    void commandsWithoutEffectGiveTheReason_data();
    void commandsWithoutEffectGiveTheReason();
    void scripts();
    void scriptErrors_data();
    void scriptErrors();
    void paneIsDestroyed();

private:
    VxDopeSheetView *view() const { return pane->getDopeSheetView(); }
    VxKeySelection *selection() const { return vxApp->getKeySelection(); }
    VxFloatProperty *x() const { return ball->getXPosControl(); }
    VxFloatProperty *y() const { return ball->getYPosControl(); }
    QDoubleSpinBox *tension() const { return find<QDoubleSpinBox>("TimelineInterpTensionSBox"); }
    void filterRows(const QString &text) const
    {
        auto *filter = qobject_cast<QSortFilterProxyModel *>(view()->model());
        QVERIFY(filter);
        filter->setFilterFixedString(text);
    }
    QString scriptResult(const QString &program) const
    {
        return vxApp->getScriptEngine()->evaluate(program);
    }

    VxNode *ball = nullptr;
};

void TestTimePaneKeySelection::init()
{
    setUp();
    addChoices(TimePaneChoice::PropertyTypeFamily, {1, 2, 4, 8, 16, 32});
    ball = new VxNode(QStringLiteral("ball"));
    vxScene->addNode(ball);
    for (const VxTime time : {0, 1600, 3200}) {
        x()->setKey(time, 1.0f, VxKeyInterp::Tcb);
        y()->setKey(time, 1.0f, VxKeyInterp::Tcb);
    }
    vxScene->setAnimRange(VxTimeRange(0, 9600));
    vxScene->setPlayRange(VxTimeRange(0, 9600));
    showPane(1600, 800);
    pane->setFilteredPropertyTypes(VxTimePane::PropTranslate | VxTimePane::PropAlias |
                                   VxTimePane::PropOther);
    QCoreApplication::processEvents();
    view()->expandAll();
}

void TestTimePaneKeySelection::cleanup()
{
    tearDown();
}

void TestTimePaneKeySelection::entriesOfRows()
{
    QVERIFY(selection()->entries().empty());
    QSignalSpy changes(selection(), &VxKeySelection::changed);
    const QModelIndex top = view()->model()->index(0, 0);
    view()->collapse(top);
    view()->setKeySelection(true, top, top, 1600, 3201);
    QCoreApplication::processEvents();
    QVERIFY(changes.size() > 0);
    const VxKeySelectionEntries entries = selection()->entries();
    QCOMPARE(entries.size(), std::size_t(2));
    QCOMPARE(entries[0].holder, x());
    QVERIFY(entries[0].spans == (Spans{{1, 3}}));
    QCOMPARE(entries[0].revision, x()->keyRevision());
    QCOMPARE(entries[1].holder, y());
    QVERIFY(selection()->spansOf(y()) == (Spans{{1, 3}}));
    selection()->clear();
    QVERIFY(!view()->hasSelectedKeys());
}

// An alias and its property are one entry: that of the holder.
void TestTimePaneKeySelection::entriesOfAnAlias()
{
    auto *alias = new VxFloatProperty(QStringLiteral("Alias"));
    ball->addProperty(alias, QStringLiteral("/General"));
    QVERIFY(alias->setAliasedProperty(x()));
    pane->refreshDopesheet();
    QCoreApplication::processEvents();
    selection()->set({{x(), {{0, 1}, {2, 3}}, 0}});
    const VxKeySelectionEntries entries = selection()->entries();
    QCOMPARE(entries.size(), std::size_t(1));
    QCOMPARE(entries[0].holder, x());
    QVERIFY(entries[0].spans == (Spans{{0, 1}, {2, 3}}));
    selection()->set({{alias, {{1, 2}}, 0}});
    QVERIFY2(selection()->entries().empty(), "an alias is no holder");
}

void TestTimePaneKeySelection::setReachesRowsThatAreFilteredOut()
{
    filterRows(QStringLiteral("nothing"));
    QCOMPARE(view()->model()->rowCount(), 0);
    selection()->set({{y(), {{0, 2}}, 0}});
    QVERIFY(selection()->spansOf(y()) == (Spans{{0, 2}}));
    filterRows(QString());
    QVERIFY(view()->hasSelectedKeys());
    QCOMPARE(selection()->entries().size(), std::size_t(1));
}

void TestTimePaneKeySelection::setReachesTheGraph()
{
    pane->dopesheetPropertyListChanged({x()}, false);
    selection()->set({{x(), {{1, 2}}, 0}});
    QCoreApplication::processEvents();
    QVERIFY(selection()->spansOf(x()) == (Spans{{1, 2}}));
    selection()->setForHolders({{y(), {{0, 1}}, 0}});
    QVERIFY(selection()->spansOf(x()) == (Spans{{1, 2}}));
    QVERIFY(selection()->spansOf(y()) == (Spans{{0, 1}}));
    selection()->clear();
    QVERIFY(selection()->entries().empty());
}

void TestTimePaneKeySelection::undoAndRedoSelectTheMovedKeys()
{
    selection()->set({{x(), {{1, 2}}, 0}});
    {
        VxUndoStackHold hold;
        QVERIFY(x()->moveKeys({1}, {4800}));
        selection()->set({{x(), {{2, 3}}, 0}});
        hold.accept(QStringLiteral("Move Keys"));
    }
    selection()->clear();
    vxApp->getUndoStack()->undo();
    QCOMPARE(keyTimes(x()), Times({0, 1600, 3200}));
    QVERIFY(selection()->spansOf(x()) == (Spans{{1, 2}}));
    vxApp->getUndoStack()->redo();
    QCOMPARE(keyTimes(x()), Times({0, 3200, 4800}));
    QVERIFY(selection()->spansOf(x()) == (Spans{{2, 3}}));
}

void TestTimePaneKeySelection::deletedKeysAreSelectedAfterUndo()
{
    selection()->set({{x(), {{1, 3}}, 0}});
    pane->deleteSelectedKeys();
    QCOMPARE(keyTimes(x()), Times({0}));
    QVERIFY(!view()->hasSelectedKeys());
    vxApp->getUndoStack()->undo();
    QVERIFY(selection()->spansOf(x()) == (Spans{{1, 3}}));
    QCoreApplication::processEvents();
    QVERIFY(tension()->isEnabled());
    vxApp->getUndoStack()->redo();
    QVERIFY(selection()->entries().empty());
    QCoreApplication::processEvents();
    QVERIFY(!tension()->isEnabled());
}

void TestTimePaneKeySelection::controlsFollowTheSelection_data()
{
    QTest::addColumn<QString>("change");
    QTest::newRow("the node is removed") << "node";
    QTest::newRow("the host deletes the key") << "delete";
    QTest::newRow("the host deletes it in a change block") << "block";
    QTest::newRow("undo takes the key away") << "undo";
    QTest::newRow("the selection is cleared") << "clear";
    QTest::newRow("the rows are no longer listed") << "types";
}

void TestTimePaneKeySelection::controlsFollowTheSelection()
{
    QFETCH(QString, change);
    if (change == "undo") {
        VxUndoStackHold hold;
        x()->setKey(800, 1.0f, VxKeyInterp::Tcb);
        hold.accept(QStringLiteral("key"));
    }
    selection()->set({{x(), {{1, 2}}, 0}});
    QCoreApplication::processEvents();
    QVector<QWidget *> controls{tension(), find<QWidget>("TimelineDeleteKeysBtn"),
                                find<QWidget>("TimelineCopySelectedKeysBtn")};
    for (const QWidget *control : qAsConst(controls))
        QTRY_VERIFY(control && control->isEnabled()); // the fields are updated when drags pause
    if (change == "node") {
        delete ball;
        ball = nullptr;
    } else if (change == "delete") {
        x()->deleteKeys(1, 1);
    } else if (change == "block") {
        const VxChangeBlock block;
        x()->deleteKeys(1, 1);
    } else if (change == "undo") {
        vxApp->getUndoStack()->undo();
    } else if (change == "clear") {
        selection()->clear();
    } else {
        pane->setFilteredPropertyTypes(VxTimePane::PropRotate);
    }
    QCoreApplication::processEvents();
    for (const QWidget *control : qAsConst(controls))
        QVERIFY2(!control->isEnabled(), qPrintable(control->objectName()));
}

void TestTimePaneKeySelection::commandsWithoutEffectGiveTheReason_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<QString>("text");
    QTest::newRow("nothing selected") << "none"
                                      << "No keys are selected.";
    QTest::newRow("filtered out") << "filter"
                                  << "The selected keys are in rows that the filter hides.";
    QTest::newRow("locked") << "locked"
                            << "The selected keys belong to locked properties.";
}

void TestTimePaneKeySelection::commandsWithoutEffectGiveTheReason()
{
    QFETCH(QString, state);
    QFETCH(QString, text);
    StatusWindow window;
    if (state != "none")
        selection()->set({{x(), {{1, 2}}, 0}});
    if (state == "filter")
        filterRows(QStringLiteral("nothing"));
    x()->setLocked(state == "locked");
    pane->deleteSelectedKeys();
    QCOMPARE(window.texts, QStringList(text));
    pane->setInterpType(0);
    QCOMPARE(window.texts, QStringList({text, text}));
    if (state != "locked") {
        pane->copySelectedKeys();
        QCOMPARE(window.texts, QStringList({text, text, text}));
    }
    QCOMPARE(undoTexts(), QStringList());
    QCOMPARE(keyTimes(x()), Times({0, 1600, 3200}));
    QCOMPARE(view()->hasSelectedKeys(), state != "none");
}

void TestTimePaneKeySelection::scripts()
{
    scriptResult(QStringLiteral(
        "var count = 0; App.keySelection.changed.connect(function() { ++count; });"));
    selection()->set({{x(), {{0, 1}, {2, 3}}, 0}});
    QCOMPARE(scriptResult(QStringLiteral("App.keySelection.entries().length")), QString("1"));
    QCOMPARE(scriptResult(QStringLiteral(
                 "var e = App.keySelection.entries()[0]; [e.holder.name, e.spans.length,"
                 "e.spans[1].first, e.spans[1].last].join(' ')")),
             x()->getName() + QStringLiteral(" 2 2 3"));
    QCOMPARE(scriptResult(QStringLiteral("count")), QString("1"));
    scriptResult(QStringLiteral("e.spans = [{first: 1, last: 3}]; App.keySelection.set([e])"));
    QVERIFY(selection()->spansOf(x()) == (Spans{{1, 3}}));
    scriptResult(QStringLiteral("App.keySelection.clear()"));
    QVERIFY(selection()->entries().empty());
    QCOMPARE(scriptResult(QStringLiteral("count")), QString("3"));
}

void TestTimePaneKeySelection::scriptErrors_data()
{
    QTest::addColumn<QString>("entries");
    QTest::addColumn<QString>("message");
    QTest::newRow("no array") << "7"
                              << "expects an array";
    QTest::newRow("no holder") << "[{spans: []}]"
                               << "entry 0";
    QTest::newRow("no spans") << "[{holder: e.holder}]"
                              << "entry 0";
    QTest::newRow("backwards") << "[{holder: e.holder, spans: [{first: 2, last: 1}]}]"
                               << "<= 3";
    QTest::newRow("beyond") << "[{holder: e.holder, spans: [{first: 2, last: 9}]}]"
                            << "<= 3";
    QTest::newRow("not whole") << "[{holder: e.holder, spans: [{first: 0.5, last: 1}]}]"
                               << "<= 3";
    QTest::newRow("overlapping")
        << "[{holder: e.holder, spans: [{first: 0, last: 2}, {first: 1, last: 3}]}]"
        << "<= 3";
    QTest::newRow("outdated") << "[{holder: e.holder, spans: [], revision: 1}]"
                              << "outdated";
}

void TestTimePaneKeySelection::scriptErrors()
{
    QFETCH(QString, entries);
    QFETCH(QString, message);
    selection()->set({{x(), {{0, 1}}, 0}});
    scriptResult(QStringLiteral("var e = App.keySelection.entries()[0]"));
    const QString result = scriptResult(
        QStringLiteral("try { App.keySelection.set(%1); '' } catch (error) { error.message }")
            .arg(entries));
    QVERIFY2(result.contains(message), qPrintable(result));
    QVERIFY(selection()->spansOf(x()) == (Spans{{0, 1}}));
}

void TestTimePaneKeySelection::paneIsDestroyed()
{
    selection()->set({{x(), {{0, 1}}, 0}});
    actions.clear();
    pane.reset();
    QVERIFY(selection()->entries().empty());
    selection()->set({{x(), {{0, 1}}, 0}});
    QCoreApplication::processEvents();
    VxUndoStackHold hold;
    x()->deleteAllKeys();
    hold.accept(QStringLiteral("delete"));
    vxApp->getUndoStack()->undo();
    QCOMPARE(x()->getNumKeys(), 3);
}

VX_TEST_MAIN(TestTimePaneKeySelection)
#include "tst_timepanekeyselection.moc"
