#include "studiotestbase.h"
#include "testing/vxmousedriver.h"
#include "testing/vxscenebuilder.h"
#include "testing/vxtestmain.h"

#include <QAbstractProxyModel>
#include <QCryptographicHash>
#include <QTimer>
#include <QTreeView>
#include <functional>
#include <vxcore/vxclassfactory.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxplugin.h>
#include <vxcore/vxpluginmgr.h>
#include <vxcore/vxscriptengine.h>

/// Every action of the module, run from a script in the whole program on the walking figure and a
/// node of its own: what it changes, and that undo brings the scene back.
class tst_AllActions : public QObject, private StudioTest
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase() { tearDown(); }
    void init();

    void everyAction_data();
    void everyAction();
    void everyActionIsHere();
    void undoneTogether();

private:
    struct Case
    {
        std::function<void()> prepare;
        std::function<QString()> state;
        QString before;
        QString after;
        QString undoText; // null for an action that makes no entry
    };
    void addCases();
    void addTransport();
    void addKeys();
    void addSelections();
    void addChoices();
    void addRows();
    void addOptions();
    void add(const char *className, const std::function<void()> &prepare,
             const std::function<QString()> &state, const QString &before, const QString &after,
             const QString &undoText = QString())
    {
        m_cases.insert(QLatin1String(className), {prepare, state, before, after, undoText});
    }
    void addScript(const char *className, const char *prepare, const char *state,
                   const char *before, const char *after, const QString &undoText = QString());

    QString script(const QString &program) const;
    // Keys, values and ranges of the whole scene.
    static QByteArray scenePrint();
    // The times of the marker's keys, by frame.
    QString markerKeys() const;
    void chooseContext(const QModelIndex &row) const;
    QTreeView *sheet() const { return inTimePane<QTreeView>("TimelineDopeSheetTView"); }
    QModelIndex root(int row) const { return sheet()->model()->index(row, 0); }
    QAbstractItemModel *sourceRows() const
    {
        return qobject_cast<QAbstractProxyModel *>(sheet()->model())->sourceModel();
    }
    QString roots() const;
    QString openRows() const;
    QString openBelow(const QModelIndex &parent) const;

    QImage graphPicture() const
    {
        return inTimePane<QWidget>("TimelineKeyGraphView")->grab().toImage();
    }

    VxNode *m_marker = nullptr;
    QImage m_picture;
    QPointer<QAbstractItemModel> m_rows;
    QMap<QString, Case> m_cases;
};

void tst_AllActions::initTestCase()
{
    setUp();
    start();
    addCases();
}

// The sample again, with a marker of keys at the frames 0, 10, 20 and 30; the pane in its default
// state.
void tst_AllActions::init()
{
    vxScene->pause();
    openSample();
    m_marker = VxSceneBuilder(vxScene).addNode("marker");
    VxFloatProperty *turn = m_marker->getXRotControl();
    for (int i = 0; i < 4; ++i)
        turn->setKey(10 * i * vxScene->getTimeStep(), float(i), 0);
    vxScene->setPlayRange({5 * vxScene->getTimeStep(), 25 * vxScene->getTimeStep()});
    vxScene->setTime(12 * vxScene->getTimeStep());
    script("pane = App.findPane('VxTimePane'); turn = Scene.findNode('marker').getXRotControl();"
           "pane.setViewMode(pane.AdvancedView); pane.setControlsPosition(pane.ControlsBottom);"
           "pane.setKeyGraphOpen(true); pane.setMonitorParametersPane(false);"
           "pane.setPlayAllFrames(false); pane.setFilteredPropertyTypes(3);"
           "pane.setFilteredKeyCreationScope(pane.ScopeNode);"
           "Scene.selectAllNodes(false); Scene.setPrimarySelection(Scene.findNode('marker'));"
           "Scene.looping = true; App.processEvents();");
    sheet()->collapseAll();
    vxApp->getUndoStack()->clear();
}

QString tst_AllActions::script(const QString &program) const
{
    VxScriptError error;
    const QString result =
        vxApp->getScriptEngine()->evaluate(program, QStringLiteral("test"), &error);
    if (!error.isNull())
        qFatal("%s", qPrintable(error.toString()));
    return result;
}

QByteArray tst_AllActions::scenePrint()
{
    QCryptographicHash hash(QCryptographicHash::Sha1);
    const auto add = [&hash](auto... numbers) {
        const double bytes[] = {double(numbers)...};
        hash.addData(reinterpret_cast<const char *>(bytes), sizeof bytes);
    };
    for (const VxNode *node : vxScene->getNodes()) {
        hash.addData(node->objectName().toUtf8());
        for (int i = 0; i < node->getNumProperties(); ++i) {
            const VxProperty *property = node->getProperty(i);
            const auto *number = qobject_cast<const VxFloatProperty *>(property);
            for (int k = 0; k < property->getNumKeys(); ++k) {
                float tcb[3] = {0, 0, 0};
                const int type = property->getKeyInterpolationType(k, &tcb[0], &tcb[1], &tcb[2]);
                add(property->getKeyTime(k), type, tcb[0], tcb[1], tcb[2],
                    number ? number->getKeyValue(k) : 0.0f);
            }
        }
    }
    add(vxScene->getPlayRange().getStart(), vxScene->getTime());
    return hash.result().toHex();
}

QString tst_AllActions::markerKeys() const
{
    return script("turn.getKeyTimes().map(function (t) { return t / Scene.timeStep; }).join(' ')");
}

/** The row of the last right click, whose menu was closed again. */
void tst_AllActions::chooseContext(const QModelIndex &row) const
{
    QTimer closer;
    connect(&closer, &QTimer::timeout, &closer, [] {
        if (QWidget *menu = QApplication::activePopupWidget())
            menu->close();
    });
    closer.start(5);
    VxMouseDriver(sheet()->viewport())
        .click(QPoint(20, sheet()->visualRect(row).center().y()), Qt::RightButton);
    QCOMPARE(script("pane.hasDopeSheetItemContext()"), QString("true"));
}

QString tst_AllActions::roots() const
{
    QStringList names;
    for (int row = 0; row < sheet()->model()->rowCount(); ++row)
        names += root(row).data().toString();
    return names.join(' ');
}

/** Of the rows below an index that can be opened: how many are open. */
QString tst_AllActions::openBelow(const QModelIndex &parent) const
{
    int open = 0;
    int closed = 0;
    const std::function<void(const QModelIndex &)> walk = [&](const QModelIndex &index) {
        for (int row = 0; row < sheet()->model()->rowCount(index); ++row) {
            const QModelIndex each = sheet()->model()->index(row, 0, index);
            if (sheet()->model()->hasChildren(each))
                ++(sheet()->isExpanded(each) ? open : closed);
            walk(each);
        }
    };
    walk(parent);
    return closed == 0 ? "all" : open == 0 ? "none" : "some";
}

/** The first root row, the rows below it, and those of the second root row. */
QString tst_AllActions::openRows() const
{
    const bool secondOpen = sheet()->isExpanded(root(1));
    return QStringLiteral("%1, below %2, others %3")
        .arg(sheet()->isExpanded(root(0)) ? "open" : "closed", openBelow(root(0)),
             secondOpen ? openBelow(root(1)) : QStringLiteral("none"));
}

void tst_AllActions::addScript(const char *className, const char *prepare, const char *state,
                               const char *before, const char *after, const QString &undoText)
{
    const QString setUpScript = QLatin1String(prepare);
    const QString question = QLatin1String(state);
    add(
        className, [this, setUpScript] { script(setUpScript + "; App.processEvents()"); },
        [this, question] { return script(question); }, before, after, undoText);
}

void tst_AllActions::addCases()
{
    addTransport();
    addKeys();
    addSelections();
    addChoices();
    addRows();
    addOptions();
}

void tst_AllActions::addTransport()
{
    const char *now = "Scene.time / Scene.timeStep";
    addScript("VxNextFrameAction", "", now, "12", "13");
    addScript("VxPrevFrameAction", "", now, "12", "11");
    addScript("VxSkipToPlayrangeStartAction", "", now, "12", "5", "Skip to Play Range Start");
    addScript("VxSkipToPlayrangeEndAction", "", now, "12", "25", "Skip to Play Range End");
    addScript("VxSkipToPrevKeyAction", "", now, "12", "10", "Skip to Previous Key");
    addScript("VxSkipToNextKeyAction", "", now, "12", "20", "Skip to Next Key");
    addScript("VxTimePanePrevKeyAction", "", now, "12", "10", "Skip to Previous Filtered Key");
    addScript("VxTimePaneNextKeyAction", "", now, "12", "20", "Skip to Next Filtered Key");
    addScript("VxPlayToggleAction", "", "Scene.playing", "false", "true");
    addScript("VxLoopToggleAction", "", "Scene.looping", "true", "false");
    addScript("VxTimePanePlayAllFramesAction", "",
              "[pane.getPlayAllFrames(), App.action('VxTimePanePlayAllFramesAction').checked]",
              "false,false", "true,true");
}

void tst_AllActions::addKeys()
{
    const auto nothing = [] {};
    const auto keys = [this] { return markerKeys(); };
    const auto select = [this] {
        script("App.action('VxTimePaneSelectItemAnimRangeKeysAction').trigger()");
    };
    const auto types = [this] {
        return script("turn.getKeys().map(function (k) { return k.type; }).join('')");
    };
    add("VxAddKeysAction", nothing, keys, "0 10 20 30", "0 10 12 20 30", "Create Keys");
    add(
        "VxDeleteKeysAction", [this] { script("pane.setCurrentFrame(20)"); }, keys, "0 10 20 30",
        "0 10 30", "Delete Keys");
    add("VxTimePaneCreateKeysAction", nothing, keys, "0 10 20 30", "0 10 12 20 30",
        "Create Filtered Keys");
    add("VxTimePaneDeleteSelectedKeysAction", select, keys, "0 10 20 30", "",
        "Delete Selected Keys");
    add(
        "VxTimePaneCopySelectedKeysAction", select,
        [this] { return script("[pane.hasSelectedKeys(), pane.hasCopiedKeys()]"); }, "true,false",
        "true,true");
    add(
        "VxTimePanePasteKeysAction",
        [this, select] {
            select();
            script("pane.copySelectedKeys()");
        },
        keys, "0 10 20 30", "0 10 12 20 22 30 32 42", "Paste Keys");
    add("VxTimePaneSetInterpTcbAction", select, types, "0000", "2222",
        "Set Interpolation Type TCB");
    add("VxTimePaneSetInterpConstantAction", select, types, "0000", "1111",
        "Set Interpolation Type Constant");
    add(
        "VxTimePaneSetInterpLinearAction",
        [this, select] {
            script("turn.setKeyInterpolation(1, 2)");
            select();
        },
        types, "0200", "0000", "Set Interpolation Type Linear");
}

void tst_AllActions::addSelections()
{
    const char *question = "pane.hasSelectedKeys()";
    const char *all = "App.action('VxTimePaneSelectItemAnimRangeKeysAction').trigger()";
    addScript("VxTimePaneSelectItemPlayRangeKeysAction", "", question, "false", "true");
    addScript("VxTimePaneSelectItemAnimRangeKeysAction", "", question, "false", "true");
    addScript("VxTimePaneDeselectItemPlayRangeKeysAction",
              "pane.setPlayRangeStart(0); pane.setPlayRangeEnd(40);"
              "App.action('VxTimePaneSelectItemAnimRangeKeysAction').trigger();",
              question, "true", "false");
    addScript("VxTimePaneDeselectItemAnimRangeKeysAction", all, question, "true", "false");
}

void tst_AllActions::addChoices()
{
    addScript("VxTimePaneControlsTopAction", "", "pane.getControlsPosition()", "0", "1");
    addScript("VxTimePaneControlsBottomAction", "pane.setControlsPosition(1)",
              "pane.getControlsPosition()", "1", "0");
    addScript("VxTimePaneBasicViewAction", "", "pane.getViewMode()", "2", "0");
    addScript("VxTimePaneIntermediateViewAction", "", "pane.getViewMode()", "2", "1");
    addScript("VxTimePaneAdvancedViewAction", "pane.setViewMode(0)", "pane.getViewMode()", "0",
              "2");
    const char *scope = "pane.getFilteredKeyCreationScope()";
    addScript("VxTimePaneSetKeyScopeObjectAction", "", scope, "2", "0");
    addScript("VxTimePaneSetKeyScopeNodeRecurseAction", "", scope, "2", "1");
    addScript("VxTimePaneSetKeyScopeNodeAction", "pane.setFilteredKeyCreationScope(0)", scope, "0",
              "2");
    addScript("VxTimePaneSetKeyScopePropertiesAction", "", scope, "2", "3");
    const char *types = "pane.getFilteredPropertyTypes()";
    addScript("VxTimePaneSetPropertyTypeTranslationAction", "", types, "3", "2");
    addScript("VxTimePaneSetPropertyTypeRotationAction", "", types, "3", "1");
    addScript("VxTimePaneSetPropertyTypeScaleAction", "", types, "3", "7");
    addScript("VxTimePaneSetPropertyTypeOtherAction", "", types, "3", "11");
    addScript("VxTimePaneSetPropertyTypeAliasAction", "", types, "3", "19");
    addScript("VxTimePaneSetPropertyTypeHiddenAction", "", types, "3", "35");
}

void tst_AllActions::addRows()
{
    const auto nothing = [] {};
    const auto order = [this] { return roots(); };
    const auto open = [this] { return openRows(); };
    const auto first = [this] { chooseContext(root(0)); };
    const auto firstAllOpen = [this] {
        sheet()->expandAll();
        chooseContext(root(0));
    };
    const QString all = "open, below all, others all";
    const QString none = "closed, below none, others none";
    const QString asLoaded = "Walker Lantern marker";
    add("VxTimePaneMoveRootNodeToTopAction", nothing, order, asLoaded, "marker Walker Lantern");
    add("VxTimePaneMoveRootNodeUpAction", nothing, order, asLoaded, "Walker marker Lantern");
    add(
        "VxTimePaneMoveRootNodeDownAction", [this] { script("pane.moveRootNodeToTop()"); }, order,
        "marker Walker Lantern", "Walker marker Lantern");
    add(
        "VxTimePaneMoveRootNodeToBottomAction", [this] { script("pane.moveRootNodeToTop()"); },
        order, "marker Walker Lantern", asLoaded);
    add("VxTimePaneExpandAllItemsAction", nothing, open, none, all);
    add(
        "VxTimePaneCollapseAllItemsAction", [this] { sheet()->expandAll(); }, open, all, none);
    add("VxTimePaneExpandItemAction", first, open, none, "open, below none, others none");
    add("VxTimePaneExpandFromItemAction", first, open, none, "open, below all, others none");
    add("VxTimePaneExpandKeyedFromItemAction", first, open, none, "open, below some, others none");
    add("VxTimePaneCollapseItemAction", firstAllOpen, open, all, "closed, below all, others all");
    add("VxTimePaneCollapseFromItemAction", firstAllOpen, open, all,
        "closed, below none, others all");
    add("VxTimePaneCollapseNonKeyedFromItemAction", firstAllOpen, open, all,
        "open, below some, others all");
    // A refresh makes the rows anew, in the order that they had; open rows stay open.
    add(
        "VxTimePaneRefreshDopesheetAction",
        [this] {
            script("pane.moveRootNodeToTop()");
            sheet()->expandAll();
            m_rows = sourceRows();
        },
        [this] {
            return roots() + ": " + openRows() + (sourceRows() == m_rows ? "" : ", new rows");
        },
        "marker Walker Lantern: " + all, "marker Walker Lantern: " + all + ", new rows");
}

void tst_AllActions::addOptions()
{
    addScript("VxTimePaneKeyGraphToggleAction", "",
              "[pane.getKeyGraphOpen(), App.action('VxTimePaneKeyGraphToggleAction').checked]",
              "true,true", "false,false");
    addScript("VxTimePaneMonitorParametersPaneAction", "",
              "[pane.getMonitorParametersPane(),"
              " App.action('VxTimePaneMonitorParametersPaneAction').checked]",
              "false,false", "true,true");
    add(
        "VxTimePaneAction", [this] { window()->docks()->find("VxTimePane")->hide(); },
        [this] { return window()->docks()->find("VxTimePane")->isVisible() ? "shown" : "hidden"; },
        "hidden", "shown");
    // The graph shows other values after it: checked by its picture.
    add(
        "VxTimePaneFrameGraphKeysAction",
        [this] {
            sheet()->expandAll();
            const QModelIndexList found = sheet()->model()->match(
                root(2), Qt::DisplayRole, "X Rotate", 1, Qt::MatchRecursive | Qt::MatchExactly);
            QCOMPARE(found.size(), 1);
            sheet()->setCurrentIndex(found.constFirst());
            script("App.processEvents()");
            // The channel was framed when it entered the graph; this key is out of view.
            m_marker->getXRotControl()->setKeyValue(3, 500.0f);
            script("App.processEvents()");
            m_picture = graphPicture();
        },
        [this] { return graphPicture() == m_picture ? "as it was" : "another view"; }, "as it was",
        "another view");
}

void tst_AllActions::everyAction_data()
{
    QTest::addColumn<QString>("className");
    for (auto each = m_cases.begin(); each != m_cases.end(); ++each)
        QTest::newRow(qPrintable(each.key())) << each.key();
}

void tst_AllActions::everyAction()
{
    QFETCH(QString, className);
    const Case &tried = m_cases[className];
    tried.prepare();
    QCoreApplication::processEvents();
    const int entries = vxApp->getUndoStack()->count();
    const QByteArray start = scenePrint();
    QCOMPARE(tried.state(), tried.before);
    const QString ran = script("var it = App.action('" + className +
                               "'); it.trigger();"
                               "App.processEvents(); it.text");
    QCOMPARE(ran, action(qPrintable(className))->text());
    QCOMPARE(tried.state(), tried.after);
    if (tried.undoText.isNull()) {
        QCOMPARE(vxApp->getUndoStack()->count(), entries);
        return;
    }
    QCOMPARE(vxApp->getUndoStack()->count(), entries + 1);
    QCOMPARE(vxApp->getUndoStack()->undoText(), tried.undoText);
    const QByteArray end = scenePrint();
    QVERIFY(end != start);
    script("Undo.undo()");
    QCOMPARE(scenePrint(), start);
    script("Undo.redo()");
    QCOMPARE(scenePrint(), end);
}

void tst_AllActions::everyActionIsHere()
{
    QStringList offered;
    for (const VxPlugin *plugin : vxApp->getPluginMgr()->getPlugins()) {
        QStringList classes;
        for (const VxClassFactory *factory : plugin->getClassFactories())
            classes += factory->className();
        // Of the Timeline's module; the others have tests of their own.
        if (classes.removeAll("VxTimePane") > 0)
            offered = classes;
    }
    offered.sort();
    QCOMPARE(offered.size(), 56);
    QCOMPARE(QStringList(m_cases.keys()), offered);
}

// Many commands in one history are undone to the beginning and redone to the end.
void tst_AllActions::undoneTogether()
{
    const QByteArray start = scenePrint();
    for (const char *name :
         {"VxAddKeysAction", "VxTimePaneNextKeyAction", "VxTimePaneCreateKeysAction",
          "VxTimePaneSelectItemAnimRangeKeysAction", "VxTimePaneSetInterpTcbAction",
          "VxTimePaneCopySelectedKeysAction", "VxTimePanePasteKeysAction", "VxDeleteKeysAction",
          "VxSkipToPlayrangeEndAction", "VxTimePanePasteKeysAction",
          "VxTimePaneDeleteSelectedKeysAction", "VxClearKeysSelectedItemsAction"})
        script(QStringLiteral("App.action('%1').trigger(); App.processEvents()")
                   .arg(QLatin1String(name)));
    const QByteArray end = scenePrint();
    const int entries = vxApp->getUndoStack()->count();
    QVERIFY2(entries >= 9, qPrintable(QString::number(entries)));
    for (const int round : {1, 2}) {
        while (vxApp->getUndoStack()->canUndo())
            vxApp->getUndoStack()->undo();
        QVERIFY2(scenePrint() == start, qPrintable(QString::number(round)));
        while (vxApp->getUndoStack()->canRedo())
            vxApp->getUndoStack()->redo();
        QVERIFY2(scenePrint() == end, qPrintable(QString::number(round)));
    }
}

VX_TEST_MAIN(tst_AllActions)
#include "tst_allactions.moc"
