#include "timepanetestbase.h"

#include <QtCore/QMetaEnum>
#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QFrame>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QSpinBox>
#include <vxcore/vxactionmenu.h>
#include <vxcore/vxbone.h>
#include <vxcore/vxbuttonbar.h>
#include <vxcore/vxdynamicdividerwgt.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxsettings.h>
#include <vxcore/vxskeleton.h>
#include <vxcore/vxstyle.h>
#include <vxcore/vxstyledbutton.h>

#include "testing/vxmousedriver.h"
#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/keygraph/vxkeygraphview.h"
#include "vxtimeline/pane/timepaneevents.h"
#include "vxtimeline/widgets/vxfiltermenu.h"

namespace {

// Counts the custom events that reach an object.
class EventCounter : public QObject
{
public:
    explicit EventCounter(QObject *watched) { watched->installEventFilter(this); }

    int selectionChanges = 0;
    int ensureVisibles = 0;

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == VxTimelineScenePrimarySelectionChangeEvent::eventType())
            ++selectionChanges;
        if (event->type() == VxTimelineDopesheetEnsureItemVisibleEvent::eventType())
            ++ensureVisibles;
        return false;
    }
};

// What a layout holds, item by item: "name/stretch", with "*" for a stretch and "_n" for a space.
QStringList layoutItems(const QWidget *widget)
{
    const auto *box = qobject_cast<const QBoxLayout *>(widget->layout());
    QStringList items;
    for (int i = 0; i < box->count(); ++i) {
        QLayoutItem *item = box->itemAt(i);
        QString text = QStringLiteral("*");
        if (item->widget())
            text = item->widget()->objectName();
        else if (item->sizeHint().width() > 0)
            text = QStringLiteral("_%1").arg(item->sizeHint().width());
        items += QStringLiteral("%1/%2").arg(text).arg(box->stretch(i));
    }
    return items;
}

} // namespace

class TestTimePane : public QObject, private TimePaneTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void enumerations();
    void signalsAndSlotsInOrder();
    void privateSlotsAreCallable();
    void aNewPane();
    void widgetTree_data();
    void widgetTree();
    void layouts();
    void margins();
    void spacings();
    void labels_data();
    void labels();
    void fields_data();
    void fields();
    void tcbFields();
    void transportItems();
    void buttonSizes();
    void menus();

    void settingTheSameModeTellsNothing();
    void viewModes_data();
    void viewModes();
    void nameColumnComesBack();
    void nameColumnOfANewPaneComesBack();
    void leavingTheAdvancedViewLeavesThePropertiesScope();
    void invalidChoicesAreRefused();
    void keyGraphOpensInTheAdvancedViewOnly();
    void keyGraphButtonOpensAndCloses();
    void keyGraphStateSurvivesModes();
    void controlsPosition();
    void settingTheSamePositionTellsNothing();
    void extrasFollowTheWidth();
    void widthChangesNothingInOtherModes();

    void checkMarksFollow();
    void destroyedActionsLeave();
    void lateActionsGetTheirMarks();
    void propertyTypesByCheckMarks();
    void noneChecksOnlyWhatIsNone();
    void scopeByCheckMarks();
    void tickingInTheFilterMenuTellsOnce();

    void manySelectionsMakeOneEvent();
    void hiddenPanePostsNothing();
    void loadMakesOneEventAfterwards();
    void closingApplicationPostsNothing();
    void rowsFollowTheSelection();
    void rowSelectionSelectsNodes();

    void rowsOfTheScene();
    void nodesThatComeDuringALoad();
    void clearingTheSceneEmptiesTheSheet();
    void helpersStayOut();
    void rootRowsMove();
    void textFilterShowsMatchesBelow();
    void placeholders();

    void emptyStoreRestoresDefaults();
    void staleKeysAreReadInOrder();
    void savingWritesThePresentChoicesOnly();
    void settingsRoundTrip();
    void optionsMenu();
    void stylesChange();

private:
    QString describe(const VxActionMenu *menu) const;
};

void TestTimePane::enumerations()
{
    const auto keys = [](const char *name) {
        const QMetaObject &meta = VxTimePane::staticMetaObject;
        const QMetaEnum metaEnum = meta.enumerator(meta.indexOfEnumerator(name));
        QStringList list;
        for (int i = 0; i < metaEnum.keyCount(); ++i)
            list +=
                QStringLiteral("%1=%2").arg(QLatin1String(metaEnum.key(i))).arg(metaEnum.value(i));
        return list.join(QLatin1Char(' '));
    };
    const QString types = QStringLiteral(
        "PropNone=0 PropTranslate=1 PropRotate=2 PropScale=4 PropOther=8 PropAlias=16 "
        "PropHidden=32");
    QCOMPARE(keys("ControlsPosition"), QStringLiteral("ControlsBottom=0 ControlsTop=1"));
    QCOMPARE(keys("ViewMode"), QStringLiteral("BasicView=0 IntermediateView=1 AdvancedView=2"));
    QCOMPARE(keys("PropertyType"), types);
    QCOMPARE(keys("PropertyTypes"), types);
    QCOMPARE(keys("KeyScope"),
             QStringLiteral("ScopeObject=0 ScopeNodeRecurse=1 ScopeNode=2 ScopeProperties=3"));
}

void TestTimePane::signalsAndSlotsInOrder()
{
    const QStringList expected = {
        "controlsPositionChanged(ControlsPosition) position",
        "viewModeChanged(ViewMode) mode",
        "monitorParametersPaneChanged(bool) onOff",
        "playAllFramesChanged(bool) onOff",
        "keyGraphOpenChanged(bool) onOff",
        "dopesheetPropertyListChanged(QVector<VxProperty*>,bool) propList,add",
        "graphChannelListChanged(QVector<VxProperty*>) propList",
        "expandAll() ",
        "collapseAll() ",
        "buildOptionsMenu(VxActionMenu*) menu",
        "getOptionsMenuVersion() ",
        "setControlsPosition(ControlsPosition) position",
        "getControlsPosition() ",
        "setViewMode(ViewMode) viewMode",
        "getViewMode() ",
        "setMonitorParametersPane(bool) yesNo",
        "getMonitorParametersPane() ",
        "setPlayAllFrames(bool) onOff",
        "getPlayAllFrames() ",
        "setTotalFrames(int) frames",
        "getTotalFrames() ",
        "toggleKeyGraph() ",
        "setKeyGraphOpen(bool) onOff",
        "getKeyGraphOpen() ",
        "setPlayRangeStart(int) frame",
        "getPlayRangeStart() ",
        "setPlayRangeEnd(int) frame",
        "getPlayRangeEnd() ",
        "setCurrentFrame(int) frame",
        "getCurrentFrame() ",
        "setFramesPerSecond(int) fps",
        "getFramesPerSecond() ",
        "setFilteredPropertyTypes(PropertyTypes) propTypes",
        "getFilteredPropertyTypes() ",
        "toggleLoop() ",
        "skipToPlayRangeStart() ",
        "skipToPreviousKey() ",
        "skipToPreviousFilteredKey() ",
        "skipToPreviousFrame() ",
        "togglePlayback() ",
        "skipToNextFrame() ",
        "skipToNextKey() ",
        "skipToNextFilteredKey() ",
        "skipToPlayRangeEnd() ",
        "deleteKeys() ",
        "deleteSelectedKeys() ",
        "createKeys() ",
        "createFilteredKeys(int) numKeys",
        "createFilteredKeys() ",
        "setFilteredKeyCreationScope(KeyScope) keyScope",
        "getFilteredKeyCreationScope() ",
        "copySelectedKeys() ",
        "pasteKeys() ",
        "setInterpType(int) interpType",
        "setFilterText(QString) text",
        "getFilterText() ",
        "getNumFilteredMatches() ",
        "searchDopesheetNext() ",
        "searchDopesheetPrevious() ",
        "hasDopeSheetItemContext() ",
        "hasDopeSheetItemSelection() ",
        "hasSelectedKeys() ",
        "hasCopiedKeys() ",
        "moveRootNodeToTop() ",
        "moveRootNodeUp() ",
        "moveRootNodeDown() ",
        "moveRootNodeToBottom() ",
        "refreshDopesheet() ",
        "frameKeyGraph(bool) onlySelected",
        "frameKeyGraph() ",
    };
    const QMetaObject &meta = VxTimePane::staticMetaObject;
    QStringList found;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        const QMetaMethod method = meta.method(i);
        if (method.access() == QMetaMethod::Private)
            continue;
        found += QLatin1String(method.methodSignature()) + QLatin1Char(' ') +
                 QLatin1String(method.parameterNames().join(','));
    }
    QCOMPARE(found, expected);
}

void TestTimePane::privateSlotsAreCallable()
{
    for (const char *slot : {"unregisterAction(QObject*)",
                             "initModel()",
                             "uninitModel()",
                             "handleSceneLoadStarting()",
                             "handleSceneLoaded()",
                             "handleSceneClearStarting()",
                             "addDopesheetNode(VxNode*,bool)",
                             "addDopesheetNode(VxNode*)",
                             "removeDopesheetNode(VxNode*)",
                             "updateTimeStep(VxTime)",
                             "handlePropertyTypesEdited()",
                             "updateKeyInterpType()",
                             "updateTCB()",
                             "updateControls()",
                             "updateSliders()",
                             "updateKeyGraph()",
                             "updateActionStates()",
                             "handleDopesheetFilterChanged(QString)",
                             "handleDopesheetFilterCleared()",
                             "handleDopesheetHeaderSectionResized()",
                             "handleDopesheetItemSelectionChanged()",
                             "handleDopesheetKeySelectionChanged()",
                             "handlePrimarySelectionChanged()",
                             "ensurePrimarySceneNodeVisible()",
                             "blockRefresh()",
                             "unblockRefresh()",
                             "changeTime()",
                             "changeTimeStep()",
                             "updatePlayRange()",
                             "updateAnimationRange()",
                             "updateScenePlayRange()",
                             "updatePlayButton()",
                             "updateLoopButton(bool)",
                             "handleKeyGraphOpenChanged()",
                             "doStyling()",
                             "handleCreateKeysClicked()",
                             "handleDeleteKeysClicked()"}) {
        const int index = VxTimePane::staticMetaObject.indexOfSlot(slot);
        QVERIFY2(index >= 0, slot);
        QCOMPARE(VxTimePane::staticMetaObject.method(index).access(), QMetaMethod::Private);
    }
}

void TestTimePane::aNewPane()
{
    QCOMPARE(pane->getTitle(), QStringLiteral("Timeline"));
    QCOMPARE(pane->getViewMode(), VxTimePane::AdvancedView);
    QCOMPARE(pane->getControlsPosition(), VxTimePane::ControlsBottom);
    QVERIFY(pane->getKeyGraphOpen());
    QVERIFY(!pane->getPlayAllFrames());
    QVERIFY(!pane->getMonitorParametersPane());
    QCOMPARE(pane->getFilteredKeyCreationScope(), VxTimePane::ScopeNode);
    QCOMPARE(int(pane->getFilteredPropertyTypes()), 0);
    QCOMPARE(pane->getDopeSheetView(), find<VxDopeSheetView>("TimelineDopeSheetTView"));
    QCOMPARE(pane->getKeyGraphView(), find<VxKeyGraphView>("TimelineKeyGraphView"));
    QCOMPARE(pane->getBackgroundFooterGuide(), find<QWidget>("TimelineTimeRangeWgt"));
    QVERIFY(!pane->getBackgroundHeaderGuide());
    QVERIFY(find<QAbstractButton>("TimelineKeyGraphBtn")->isChecked());
}

void TestTimePane::widgetTree_data()
{
    QTest::addColumn<QString>("parent");
    QTest::addColumn<QString>("className");

    const struct
    {
        const char *name;
        const char *parent;
        const char *className;
    } widgets[] = {
        {"TimelineDopeSheetGraphDvdr", "", "VxDynamicDividerWgt"},
        {"TimelineDopeSheetTView", "TimelineDopeSheetGraphDvdr", "VxDopeSheetView"},
        {"TimelineDopeSheetHeaderWgt", "TimelineDopeSheetTView", "VxDopeSheetHeaderView"},
        {"TimelineDopeSheetHeaderNavColumnWgt", "TimelineDopeSheetHeaderWgt", "VxStyledWidget"},
        {"TimelineDopeSheetHeaderNavColumnTitleLbl", "TimelineDopeSheetHeaderNavColumnWgt",
         "QLabel"},
        {"TimelinePlayheadWgt", "TimelineDopeSheetTView", "VxPlayheadWgt"},
        {"TimelineGraphFrm", "TimelineDopeSheetGraphDvdr", "QFrame"},
        {"TimelineKeyGraphView", "TimelineGraphFrm", "VxKeyGraphView"},
        {"TimelineTimeRangeWgt", "", "QWidget"},
        {"TimelineTimeRangeSldr", "TimelineTimeRangeWgt", "VxTimeRangeSlider"},
        {"TimelineMainControlsWgt", "", "QWidget"},
        {"TimelineTimeControlsWgt", "TimelineMainControlsWgt", "QWidget"},
        {"TimelineTotalFramesLEdit", "TimelineTimeControlsWgt", "TimePaneField"},
        {"TimelineTimeRangeControlsWgt", "TimelineTimeControlsWgt", "QWidget"},
        {"TimelinePlayStartLEdit", "TimelineTimeRangeControlsWgt", "TimePaneField"},
        {"TimelinePlayEndLEdit", "TimelineTimeRangeControlsWgt", "TimePaneField"},
        {"TimelineCurrentFrameLEdit", "TimelineTimeControlsWgt", "TimePaneField"},
        {"TimelineFPSLEdit", "TimelineTimeControlsWgt", "TimePaneField"},
        {"TimelinePropertyTypesWgt", "TimelineMainControlsWgt", "QWidget"},
        {"TimelinePropertyTypesBtn", "TimelinePropertyTypesWgt", "VxStyledButton"},
        {"TimelineButtonBar", "TimelineMainControlsWgt", "VxButtonBar"},
        {"TimelineLoopBtn", "TimelineButtonBar", "VxBarButton"},
        {"TimelineSkipToStartBtn", "TimelineButtonBar", "VxBarButton"},
        {"TimelinePrevKeyBtn", "TimelineButtonBar", "VxBarButton"},
        {"TimelinePrevFrameBtn", "TimelineButtonBar", "VxBarButton"},
        {"TimelinePlayPauseBtn", "TimelineButtonBar", "VxBarButton"},
        {"TimelineNextFrameBtn", "TimelineButtonBar", "VxBarButton"},
        {"TimelineNextKeyBtn", "TimelineButtonBar", "VxBarButton"},
        {"TimelineSkipToEndBtn", "TimelineButtonBar", "VxBarButton"},
        {"TimelineKeyControlsWgt", "TimelineMainControlsWgt", "QWidget"},
        {"TimelineKeyGraphButtonBar", "TimelineKeyControlsWgt", "VxButtonBar"},
        {"TimelineKeyGraphBtn", "TimelineKeyGraphButtonBar", "VxBarButton"},
        {"TimelineAddDeleteKeysButtonBar", "TimelineKeyControlsWgt", "VxButtonBar"},
        {"TimelineDeleteKeysBtn", "TimelineAddDeleteKeysButtonBar", "VxBarButton"},
        {"TimelineCreateKeysBtn", "TimelineAddDeleteKeysButtonBar", "VxBarButton"},
        {"TimelineKeyScopeBtn", "TimelineKeyControlsWgt", "VxStyledButton"},
        {"TimelineCopyPasteKeysButtonBar", "TimelineKeyControlsWgt", "VxButtonBar"},
        {"TimelineCopySelectedKeysBtn", "TimelineCopyPasteKeysButtonBar", "VxBarButton"},
        {"TimelinePasteCopiedKeysBtn", "TimelineCopyPasteKeysButtonBar", "VxBarButton"},
        {"TimelineInterpControlsWgt", "TimelineMainControlsWgt", "QWidget"},
        {"TimelineInterpTypeBtn", "TimelineInterpControlsWgt", "VxStyledButton"},
        {"TimelineInterpTensionSBox", "TimelineInterpControlsWgt", "QDoubleSpinBox"},
        {"TimelineInterpContinuitySBox", "TimelineInterpControlsWgt", "QDoubleSpinBox"},
        {"TimelineInterpBiasSBox", "TimelineInterpControlsWgt", "QDoubleSpinBox"},
    };
    for (const auto &row : widgets)
        QTest::newRow(row.name) << QString::fromLatin1(row.parent)
                                << QString::fromLatin1(row.className);
}

void TestTimePane::widgetTree()
{
    QFETCH(QString, parent);
    const QString name = QString::fromLatin1(QTest::currentDataTag());
    const QList<QWidget *> found = pane->findChildren<QWidget *>(name);
    QCOMPARE(found.size(), 1);
    QTEST(QString::fromLatin1(found.first()->metaObject()->className()), "className");
    const QWidget *expected = parent.isEmpty() ? pane.get() : pane->findChild<QWidget *>(parent);
    QCOMPARE(found.first()->parentWidget(), expected);
}

void TestTimePane::layouts()
{
    QCOMPARE(layoutItems(pane.get()),
             QStringList({"TimelineDopeSheetGraphDvdr/1", "TimelineTimeRangeWgt/0",
                          "TimelineMainControlsWgt/0"}));
    QCOMPARE(layoutItems(find<QWidget>("TimelineDopeSheetHeaderNavColumnWgt")),
             QStringList("TimelineDopeSheetHeaderNavColumnTitleLbl/1"));
    QCOMPARE(layoutItems(find<QWidget>("TimelineTimeRangeWgt")),
             QStringList("TimelineTimeRangeSldr/1"));
    QCOMPARE(layoutItems(find<QWidget>("TimelineMainControlsWgt")),
             QStringList({"TimelineTimeControlsWgt/2", "*/1", "TimelinePropertyTypesWgt/2", "*/1",
                          "TimelineButtonBar/0", "*/1", "TimelineKeyControlsWgt/2", "*/1",
                          "TimelineInterpControlsWgt/2"}));
    QCOMPARE(layoutItems(find<QWidget>("TimelineTimeControlsWgt")),
             QStringList({"TimelineTotalLbl/0", "TimelineTotalFramesLEdit/0",
                          "TimelineTimeRangeControlsWgt/0", "TimelineCurrentLbl/0",
                          "TimelineCurrentFrameLEdit/0", "TimelineFPSLbl/0", "TimelineFPSLEdit/0",
                          "*/1"}));
    QCOMPARE(
        layoutItems(find<QWidget>("TimelineTimeRangeControlsWgt")),
        QStringList({"TimelineRangeLbl/0", "TimelinePlayStartLEdit/0", "TimelinePlayEndLEdit/0"}));
    QCOMPARE(
        layoutItems(find<QWidget>("TimelinePropertyTypesWgt")),
        QStringList({"*/1", "TimelinePropertyTypesLbl/0", "TimelinePropertyTypesBtn/0", "*/1"}));
    QCOMPARE(layoutItems(find<QWidget>("TimelineKeyControlsWgt")),
             QStringList({"*/1", "TimelineKeysLbl/0", "TimelineKeyGraphButtonBar/0",
                          "TimelineAddDeleteKeysButtonBar/0", "TimelineKeyScopeBtn/0", "*/1",
                          "TimelineCopyPasteKeysButtonBar/0", "*/1"}));
    const int margin = vxApp->getStyle()->metric(VxStyle::PM_VxPaneMargin);
    QCOMPARE(layoutItems(find<QWidget>("TimelineInterpControlsWgt")),
             QStringList({"*/1", "TimelineInterpTypeBtn/0", QStringLiteral("_%1/0").arg(2 * margin),
                          "TimelineInterpTensionLbl/0", "TimelineInterpTensionSBox/0",
                          "TimelineInterpContinuityLbl/0", "TimelineInterpContinuitySBox/0",
                          "TimelineInterpBiasLbl/0", "TimelineInterpBiasSBox/0", "*/1"}));
    for (const char *bar : {"TimelineButtonBar", "TimelineKeyGraphButtonBar",
                            "TimelineAddDeleteKeysButtonBar", "TimelineCopyPasteKeysButtonBar"}) {
        QWidget *widget = find<QWidget>(bar);
        const QLayout *layout = widget->parentWidget()->layout();
        QCOMPARE(layout->itemAt(layout->indexOf(widget))->alignment(),
                 Qt::Alignment(Qt::AlignBottom));
    }
}

void TestTimePane::margins()
{
    const int m = vxApp->getStyle()->metric(VxStyle::PM_VxPaneMargin);
    QCOMPARE(pane->layout()->contentsMargins(), QMargins(m, m, m, m));
    QCOMPARE(find<QWidget>("TimelineMainControlsWgt")->layout()->contentsMargins(),
             QMargins(m, m, m, 0));
    QCOMPARE(find<QWidget>("TimelineDopeSheetHeaderNavColumnWgt")->layout()->contentsMargins(),
             QMargins(m, m, m, m));
    for (const char *name : {"TimelineGraphFrm", "TimelineTimeRangeWgt", "TimelineTimeControlsWgt",
                             "TimelineTimeRangeControlsWgt", "TimelinePropertyTypesWgt",
                             "TimelineKeyControlsWgt", "TimelineInterpControlsWgt"})
        QCOMPARE(find<QWidget>(name)->layout()->contentsMargins(), QMargins());
    QCOMPARE(find<VxDynamicDividerWgt>("TimelineDopeSheetGraphDvdr")->margin(), 0);
}

void TestTimePane::spacings()
{
    const int m = vxApp->getStyle()->metric(VxStyle::PM_VxPaneMargin);
    QCOMPARE(pane->layout()->spacing(), 0);
    QCOMPARE(find<QWidget>("TimelineGraphFrm")->layout()->spacing(), 0);
    QCOMPARE(find<QWidget>("TimelineTimeRangeWgt")->layout()->spacing(), 0);
    QCOMPARE(find<VxDynamicDividerWgt>("TimelineDopeSheetGraphDvdr")->spacing(), 0);
    for (const char *name :
         {"TimelineDopeSheetHeaderNavColumnWgt", "TimelineMainControlsWgt",
          "TimelineTimeControlsWgt", "TimelineTimeRangeControlsWgt", "TimelinePropertyTypesWgt",
          "TimelineKeyControlsWgt", "TimelineInterpControlsWgt"})
        QCOMPARE(find<QWidget>(name)->layout()->spacing(), m);
}

void TestTimePane::labels_data()
{
    QTest::addColumn<QString>("text");

    QTest::newRow("TimelineDopeSheetHeaderNavColumnTitleLbl") << "Name";
    QTest::newRow("TimelineTotalLbl") << "Total:";
    QTest::newRow("TimelineRangeLbl") << "Range:";
    QTest::newRow("TimelineCurrentLbl") << "Current:";
    QTest::newRow("TimelineFPSLbl") << "FPS:";
    QTest::newRow("TimelinePropertyTypesLbl") << "Types :";
    QTest::newRow("TimelineKeysLbl") << "Keys :";
    QTest::newRow("TimelineInterpTensionLbl") << "T:";
    QTest::newRow("TimelineInterpContinuityLbl") << "C:";
    QTest::newRow("TimelineInterpBiasLbl") << "B:";
}

void TestTimePane::labels()
{
    const auto *label = find<QLabel>(QTest::currentDataTag());
    QVERIFY(label);
    QTEST(label->text(), "text");
    QCOMPARE(label->alignment(), Qt::AlignRight | Qt::AlignVCenter);
}

void TestTimePane::fields_data()
{
    QTest::addColumn<int>("minimum");
    QTest::addColumn<int>("maximum");

    QTest::newRow("TimelineTotalFramesLEdit") << 1 << 1000000;
    QTest::newRow("TimelinePlayStartLEdit") << 0 << 1000000;
    QTest::newRow("TimelinePlayEndLEdit") << 0 << 1000000;
    QTest::newRow("TimelineCurrentFrameLEdit") << 0 << 1000000;
    QTest::newRow("TimelineFPSLEdit") << 1 << 1200;
}

void TestTimePane::fields()
{
    const auto *field = find<QSpinBox>(QTest::currentDataTag());
    QVERIFY(field);
    QTEST(field->minimum(), "minimum");
    QTEST(field->maximum(), "maximum");
    QCOMPARE(field->buttonSymbols(), QAbstractSpinBox::NoButtons);
    QCOMPARE(field->alignment(), Qt::Alignment(Qt::AlignCenter));
    QCOMPARE(field->minimumWidth(), 40);
    QCOMPARE(field->maximumSize(),
             QSize(40, vxApp->getStyle()->metric(VxStyle::PM_VxControlHeight)));
}

void TestTimePane::tcbFields()
{
    for (const char *name :
         {"TimelineInterpTensionSBox", "TimelineInterpContinuitySBox", "TimelineInterpBiasSBox"}) {
        const auto *field = find<QDoubleSpinBox>(name);
        QCOMPARE(field->minimum(), -100.0);
        QCOMPARE(field->maximum(), 100.0);
        QCOMPARE(field->singleStep(), 0.1);
        QCOMPARE(field->buttonSymbols(), QAbstractSpinBox::NoButtons);
        QCOMPARE(field->alignment(), Qt::Alignment(Qt::AlignCenter));
        QVERIFY(!field->isEnabled());
        const int height = vxApp->getStyle()->metric(VxStyle::PM_VxControlHeight);
        QCOMPARE(field->maximumSize(), QSize(40, height));
        QCOMPARE(field->minimumHeight(), height);
    }
}

void TestTimePane::transportItems()
{
    const auto *bar = find<VxButtonBar>("TimelineButtonBar");
    const QMap<int, QString> buttons = {
        {0, "TimelineLoopBtn"},      {2, "TimelineSkipToStartBtn"}, {4, "TimelinePrevKeyBtn"},
        {5, "TimelinePrevFrameBtn"}, {7, "TimelinePlayPauseBtn"},   {9, "TimelineNextFrameBtn"},
        {10, "TimelineNextKeyBtn"},  {12, "TimelineSkipToEndBtn"},
    };
    for (int index = 0; index <= 12; ++index) {
        QVERIFY(bar->widget(index));
        if (buttons.contains(index))
            QCOMPARE(bar->widget(index)->objectName(), buttons.value(index));
        else
            QVERIFY(!qobject_cast<QAbstractButton *>(bar->widget(index)));
    }
    QVERIFY(!bar->widget(13));
}

void TestTimePane::buttonSizes()
{
    const VxStyle *style = vxApp->getStyle();
    const int height = style->metric(VxStyle::PM_VxControlHeight);
    const int extra =
        style->metric(VxStyle::PM_VxButtonInset) + 3 * style->metric(VxStyle::PM_VxButtonMargin);
    const QFontMetrics font = find<QWidget>("TimelineKeyScopeBtn")->fontMetrics();
    QCOMPARE(find<QWidget>("TimelinePropertyTypesBtn")->maximumSize(),
             QSize(font.horizontalAdvance(QStringLiteral("TRSOAH")) + extra, height));
    QCOMPARE(find<QWidget>("TimelineKeyScopeBtn")->minimumSize(),
             QSize(font.horizontalAdvance(QStringLiteral("Node Recursive")) + extra, height));
    QCOMPARE(find<QWidget>("TimelineInterpTypeBtn")->maximumSize(), QSize(32, height));
    for (const QAbstractButton *button : pane->findChildren<QAbstractButton *>()) {
        if (!button->inherits("VxBarButton"))
            continue;
        QCOMPARE(button->maximumSize(), QSize(32, height));
        QVERIFY2(!button->icon().isNull(), qPrintable(button->objectName()));
        QVERIFY2(!button->toolTip().isEmpty(), qPrintable(button->objectName()));
    }
    const int ruler = style->metric(VxStyle::PM_VxDopeSheetHeaderHeight);
    QCOMPARE(find<QWidget>("TimelineDopeSheetHeaderWgt")->minimumHeight(), ruler);
    QCOMPARE(find<QWidget>("TimelineDopeSheetHeaderWgt")->maximumHeight(), ruler);
    QCOMPARE(find<QWidget>("TimelineTimeRangeSldr")->minimumHeight(), height);
    QCOMPARE(find<QWidget>("TimelineTimeRangeSldr")->maximumHeight(), height);
    const auto *playhead = find<QWidget>("TimelinePlayheadWgt");
    QCOMPARE(playhead->y() + playhead->height(),
             ruler - 1 + style->metric(VxStyle::PM_VxPlayheadInset));
    const auto *frame = find<QFrame>("TimelineGraphFrm");
    QCOMPARE(frame->frameShape(), QFrame::StyledPanel);
    QCOMPARE(frame->frameShadow(), QFrame::Sunken);
}

QString TestTimePane::describe(const VxActionMenu *menu) const
{
    QStringList entries;
    for (int i = 0; i < menu->getNumEntries(); ++i) {
        switch (menu->getEntryKind(i)) {
        case VxActionMenu::EntryKind::Action:
            entries += menu->getEntryName(i);
            break;
        case VxActionMenu::EntryKind::Separator:
            entries += QStringLiteral("-");
            break;
        case VxActionMenu::EntryKind::SubMenu:
            entries +=
                QStringLiteral("%1{%2}").arg(menu->getEntryName(i), describe(menu->getSubMenu(i)));
            break;
        }
    }
    return entries.join(QLatin1Char(' '));
}

void TestTimePane::menus()
{
    const auto menuOf = [this](const char *button) {
        return describe(find<VxStyledButton>(button)->findChild<VxActionMenu *>());
    };
    QCOMPARE(menuOf("TimelinePropertyTypesBtn"),
             QStringLiteral("VxTimePaneSetPropertyTypeTranslationAction "
                            "VxTimePaneSetPropertyTypeRotationAction "
                            "VxTimePaneSetPropertyTypeScaleAction "
                            "VxTimePaneSetPropertyTypeOtherAction "
                            "VxTimePaneSetPropertyTypeAliasAction "
                            "VxTimePaneSetPropertyTypeHiddenAction"));
    QCOMPARE(menuOf("TimelineKeyScopeBtn"),
             QStringLiteral("VxTimePaneSetKeyScopeObjectAction "
                            "VxTimePaneSetKeyScopeNodeRecurseAction "
                            "VxTimePaneSetKeyScopeNodeAction - "
                            "VxTimePaneSetKeyScopePropertiesAction"));
    QCOMPARE(menuOf("TimelineInterpTypeBtn"),
             QStringLiteral("VxTimePaneSetInterpTcbAction VxTimePaneSetInterpLinearAction "
                            "VxTimePaneSetInterpConstantAction"));
    const auto *types = find<VxStyledButton>("TimelinePropertyTypesBtn");
    QVERIFY(qobject_cast<VxFilterMenu *>(types->menu()));
    QVERIFY(types->displayDownArrow());
    QCOMPARE(types->elideMode(), Qt::ElideRight);
    const auto *scope = find<VxStyledButton>("TimelineKeyScopeBtn");
    QVERIFY(scope->menu());
    QVERIFY(scope->displayDownArrow());
    QCOMPARE(scope->elideMode(), Qt::ElideRight);
    QVERIFY(find<VxStyledButton>("TimelineInterpTypeBtn")->menu());
}

void TestTimePane::settingTheSameModeTellsNothing()
{
    const QSignalSpy changes(pane.get(), &VxTimePane::viewModeChanged);
    pane->setViewMode(VxTimePane::AdvancedView);
    QCOMPARE(changes.count(), 0);
    pane->setViewMode(VxTimePane::BasicView);
    pane->setViewMode(VxTimePane::BasicView);
    QCOMPARE(changes.count(), 1);
    QCOMPARE(changes.first().first().value<VxTimePane::ViewMode>(), VxTimePane::BasicView);
}

void TestTimePane::viewModes_data()
{
    QTest::addColumn<VxTimePane::ViewMode>("mode");
    QTest::addColumn<QStringList>("shown");
    QTest::addColumn<QStringList>("hidden");

    const QStringList middle = {"TimelineTimeRangeSldr", "TimelineTimeControlsWgt",
                                "TimelineKeyControlsWgt"};
    const QStringList advanced = {"TimelinePropertyTypesWgt", "TimelineKeyGraphButtonBar",
                                  "TimelineCopyPasteKeysButtonBar", "TimelineInterpControlsWgt",
                                  "TimelineInterpTypeBtn"};
    QTest::newRow("basic") << VxTimePane::BasicView << QStringList()
                           << middle + QStringList({"TimelinePropertyTypesWgt",
                                                    "TimelineInterpControlsWgt",
                                                    "TimelineInterpTypeBtn"});
    QTest::newRow("intermediate") << VxTimePane::IntermediateView << middle << advanced;
    QTest::newRow("advanced") << VxTimePane::AdvancedView << middle + advanced << QStringList();
}

void TestTimePane::viewModes()
{
    QFETCH(VxTimePane::ViewMode, mode);
    QFETCH(QStringList, shown);
    QFETCH(QStringList, hidden);
    showPane();
    pane->setViewMode(VxTimePane::BasicView);
    pane->setViewMode(VxTimePane::IntermediateView);
    pane->setViewMode(mode);
    for (const QString &name : qAsConst(shown))
        QVERIFY2(!pane->findChild<QWidget *>(name)->isHidden(), qPrintable(name));
    for (const QString &name : qAsConst(hidden))
        QVERIFY2(pane->findChild<QWidget *>(name)->isHidden(), qPrintable(name));

    const bool isAdvanced = mode == VxTimePane::AdvancedView;
    const auto *bar = find<VxButtonBar>("TimelineButtonBar");
    for (int item = 0; item <= 12; ++item) {
        const bool always = QVector<int>({0, 1, 2, 3, 7, 11, 12}).contains(item);
        QCOMPARE(bar->isItemShown(item), always || mode != VxTimePane::BasicView);
    }
    const VxDopeSheetView *view = pane->getDopeSheetView();
    QCOMPARE(view->columnWidth(0), isAdvanced ? 250 : 0);
    QCOMPARE(view->viewport()->maximumHeight(), isAdvanced ? 10000 : 0);
    QCOMPARE(view->verticalScrollBarPolicy(),
             isAdvanced ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff);
    const auto *divider = find<VxDynamicDividerWgt>("TimelineDopeSheetGraphDvdr");
    QCOMPARE(divider->isSecondWidgetHidden(), !isAdvanced);
    QCOMPARE(divider->isBarHidden(), !isAdvanced);
    QCOMPARE(find<QAbstractButton>("TimelineKeyGraphBtn")->isChecked(), isAdvanced);
}

void TestTimePane::nameColumnComesBack()
{
    showPane();
    VxDopeSheetView *view = pane->getDopeSheetView();
    QCOMPARE(view->columnWidth(0), 250);
    view->setColumnWidth(0, 333);
    pane->setViewMode(VxTimePane::BasicView);
    QCOMPARE(view->columnWidth(0), 0);
    pane->setViewMode(VxTimePane::IntermediateView);
    pane->setViewMode(VxTimePane::AdvancedView);
    QCOMPARE(view->columnWidth(0), 333);
    pane->refreshDopesheet();
    QCOMPARE(view->columnWidth(0), 333);
    const auto *column = find<QWidget>("TimelineDopeSheetHeaderNavColumnWgt");
    QCOMPARE(column->geometry(), QRect(0, 0, 333, column->parentWidget()->height()));
}

void TestTimePane::nameColumnOfANewPaneComesBack()
{
    pane->setViewMode(VxTimePane::BasicView);
    showPane();
    QCOMPARE(pane->getDopeSheetView()->columnWidth(0), 0);
    pane->setViewMode(VxTimePane::AdvancedView);
    QCOMPARE(pane->getDopeSheetView()->columnWidth(0), 250);
}

void TestTimePane::leavingTheAdvancedViewLeavesThePropertiesScope()
{
    addChoices(TimePaneChoice::KeyScopeFamily, {0, 1, 2, 3});
    pane->setFilteredKeyCreationScope(VxTimePane::ScopeProperties);
    QCOMPARE(pane->getFilteredKeyCreationScope(), VxTimePane::ScopeProperties);
    pane->setViewMode(VxTimePane::IntermediateView);
    QCOMPARE(pane->getFilteredKeyCreationScope(), VxTimePane::ScopeNode);
    QCOMPARE(checked(TimePaneChoice::KeyScopeFamily), QVector<int>({2}));
    pane->setFilteredKeyCreationScope(VxTimePane::ScopeProperties);
    QCOMPARE(pane->getFilteredKeyCreationScope(), VxTimePane::ScopeNode);
    pane->setFilteredKeyCreationScope(VxTimePane::ScopeObject);
    pane->setViewMode(VxTimePane::AdvancedView);
    QCOMPARE(pane->getFilteredKeyCreationScope(), VxTimePane::ScopeObject);
}

void TestTimePane::invalidChoicesAreRefused()
{
    guard->expect(QRegularExpression("vxtimepane.*|timepane.*setViewMode"));
    pane->setViewMode(VxTimePane::ViewMode(3));
    QCOMPARE(pane->getViewMode(), VxTimePane::AdvancedView);
    guard->expect(QRegularExpression("setControlsPosition"));
    pane->setControlsPosition(VxTimePane::ControlsPosition(-1));
    QCOMPARE(pane->getControlsPosition(), VxTimePane::ControlsBottom);
    guard->expect(QRegularExpression("setFilteredKeyCreationScope"));
    pane->setFilteredKeyCreationScope(VxTimePane::KeyScope(4));
    QCOMPARE(pane->getFilteredKeyCreationScope(), VxTimePane::ScopeNode);
}

void TestTimePane::keyGraphOpensInTheAdvancedViewOnly()
{
    const QSignalSpy changes(pane.get(), &VxTimePane::keyGraphOpenChanged);
    pane->setKeyGraphOpen(true);
    QCOMPARE(changes.count(), 0);
    pane->setKeyGraphOpen(false);
    QCOMPARE(changes.count(), 1);
    QCOMPARE(changes.last().first().toBool(), false);
    QVERIFY(find<VxDynamicDividerWgt>("TimelineDopeSheetGraphDvdr")->isSecondWidgetHidden());

    pane->setViewMode(VxTimePane::BasicView);
    pane->setKeyGraphOpen(true);
    pane->toggleKeyGraph();
    QVERIFY(!pane->getKeyGraphOpen());
    QCOMPARE(changes.count(), 1);
}

void TestTimePane::keyGraphButtonOpensAndCloses()
{
    showPane();
    auto *button = find<QAbstractButton>("TimelineKeyGraphBtn");
    const auto *graph = find<QWidget>("TimelineKeyGraphView");
    QVERIFY(graph->isVisible());
    VxMouseDriver mouse(button);
    mouse.click(button->rect().center());
    QVERIFY(!pane->getKeyGraphOpen());
    QVERIFY(!button->isChecked());
    QVERIFY(!graph->isVisible());
    mouse.click(button->rect().center());
    QVERIFY(pane->getKeyGraphOpen());
    QVERIFY(button->isChecked());
    QVERIFY(graph->isVisible());
}

void TestTimePane::keyGraphStateSurvivesModes()
{
    showPane();
    pane->setKeyGraphOpen(false);
    pane->setViewMode(VxTimePane::BasicView);
    pane->setViewMode(VxTimePane::AdvancedView);
    QVERIFY(!pane->getKeyGraphOpen());
    QVERIFY(!find<QAbstractButton>("TimelineKeyGraphBtn")->isChecked());
    QVERIFY(!find<QWidget>("TimelineKeyGraphView")->isVisible());
}

void TestTimePane::controlsPosition()
{
    const int m = vxApp->getStyle()->metric(VxStyle::PM_VxPaneMargin);
    const QSignalSpy changes(pane.get(), &VxTimePane::controlsPositionChanged);
    const auto *controls = find<QWidget>("TimelineMainControlsWgt");
    QWidget *range = find<QWidget>("TimelineTimeRangeWgt");

    pane->setControlsPosition(VxTimePane::ControlsTop);
    QCOMPARE(layoutItems(pane.get()),
             QStringList({"TimelineMainControlsWgt/0", "TimelineTimeRangeWgt/0",
                          "TimelineDopeSheetGraphDvdr/1"}));
    QCOMPARE(controls->layout()->contentsMargins(), QMargins(0, m, m, m));
    QCOMPARE(pane->getBackgroundHeaderGuide(), range);
    QVERIFY(!pane->getBackgroundFooterGuide());
    QCOMPARE(changes.count(), 1);
    QCOMPARE(changes.last().first().value<VxTimePane::ControlsPosition>(), VxTimePane::ControlsTop);

    pane->setControlsPosition(VxTimePane::ControlsBottom);
    QCOMPARE(layoutItems(pane.get()),
             QStringList({"TimelineDopeSheetGraphDvdr/1", "TimelineTimeRangeWgt/0",
                          "TimelineMainControlsWgt/0"}));
    QCOMPARE(controls->layout()->contentsMargins(), QMargins(m, m, m, 0));
    QCOMPARE(pane->getBackgroundFooterGuide(), range);
    QVERIFY(!pane->getBackgroundHeaderGuide());
    QCOMPARE(changes.count(), 2);
}

void TestTimePane::settingTheSamePositionTellsNothing()
{
    const QSignalSpy changes(pane.get(), &VxTimePane::controlsPositionChanged);
    pane->setControlsPosition(VxTimePane::ControlsBottom);
    QCOMPARE(changes.count(), 0);
}

// The pane stands in a window that does not keep it from becoming too narrow.
void TestTimePane::extrasFollowTheWidth()
{
    QWidget window;
    window.resize(3000, 600);
    VxTimePane *inside = pane.get();
    inside->setParent(&window);
    inside->resize(2500, 500);
    window.show();
    const QVector<QWidget *> extras = {
        find<QWidget>("TimelineTimeRangeControlsWgt"), find<QWidget>("TimelinePropertyTypesWgt"),
        find<QWidget>("TimelineKeyScopeBtn"), find<QWidget>("TimelineInterpControlsWgt"),
        find<QWidget>("TimelineInterpTypeBtn")};
    const auto shown = [&extras] {
        int count = 0;
        for (const QWidget *extra : extras)
            count += extra->isVisible() ? 1 : 0;
        return count;
    };
    const auto resizeTo = [inside](int width) {
        inside->resize(width, 500);
        QCoreApplication::processEvents();
    };
    pane.release(); // the window owns it
    QCOMPARE(shown(), 5);
    const int threshold = inside->minimumSizeHint().width() + 5;
    resizeTo(threshold);
    QCOMPARE(shown(), 5);
    resizeTo(threshold - 1);
    QCOMPARE(shown(), 0);
    resizeTo(threshold + 1);
    QCOMPARE(shown(), 0);
    resizeTo(threshold + 2);
    QCOMPARE(shown(), 5);

    // A second pane in the process knows the width already, and begins without.
    const VxTimePane second;
    QVERIFY(second.findChild<QWidget *>(QStringLiteral("TimelineKeyScopeBtn"))->isHidden());
}

void TestTimePane::widthChangesNothingInOtherModes()
{
    showPane();
    pane->setViewMode(VxTimePane::IntermediateView);
    const auto *scope = find<QWidget>("TimelineKeyScopeBtn");
    const bool wasHidden = scope->isHidden();
    pane->resize(pane->minimumSizeHint().width(), 400);
    QCoreApplication::processEvents();
    QCOMPARE(scope->isHidden(), wasHidden);
}

void TestTimePane::checkMarksFollow()
{
    addChoices(TimePaneChoice::ControlsPositionFamily, {0, 1});
    addChoices(TimePaneChoice::ViewModeFamily, {0, 1, 2});
    QCOMPARE(checked(TimePaneChoice::ControlsPositionFamily), QVector<int>({0}));
    QCOMPARE(checked(TimePaneChoice::ViewModeFamily), QVector<int>({2}));
    int toggles = 0;
    for (const auto &action : actions)
        connect(action.get(), &QAction::toggled, this, [&toggles] { ++toggles; });
    pane->setControlsPosition(VxTimePane::ControlsTop);
    pane->setViewMode(VxTimePane::IntermediateView);
    QCOMPARE(checked(TimePaneChoice::ControlsPositionFamily), QVector<int>({1}));
    QCOMPARE(checked(TimePaneChoice::ViewModeFamily), QVector<int>({1}));
    QCOMPARE(toggles, 0);
}

void TestTimePane::destroyedActionsLeave()
{
    addChoices(TimePaneChoice::KeyScopeFamily, {0, 1, 2, 3});
    QCOMPARE(pane->getRegisteredActions().size(), 4);
    pane->registerAction(actions.front().get());
    pane->registerAction(nullptr);
    QCOMPARE(pane->getRegisteredActions().size(), 4);
    actions.erase(actions.begin());
    QCOMPARE(pane->getRegisteredActions().size(), 3);
    pane->setFilteredKeyCreationScope(VxTimePane::ScopeProperties);
    QCOMPARE(pane->getFilteredKeyCreationScope(), VxTimePane::ScopeProperties);
}

void TestTimePane::lateActionsGetTheirMarks()
{
    pane->setFilteredPropertyTypes(VxTimePane::PropScale | VxTimePane::PropHidden);
    pane->setFilteredKeyCreationScope(VxTimePane::ScopeNodeRecurse);
    addChoices(TimePaneChoice::PropertyTypeFamily, {1, 2, 4, 8, 16, 32});
    addChoices(TimePaneChoice::KeyScopeFamily, {0, 1, 2, 3});
    QCOMPARE(int(pane->getFilteredPropertyTypes()), 36);
    QCOMPARE(pane->getFilteredKeyCreationScope(), VxTimePane::ScopeNodeRecurse);
    QCOMPARE(find<VxStyledButton>("TimelinePropertyTypesBtn")->text(), QStringLiteral("SH"));
}

void TestTimePane::propertyTypesByCheckMarks()
{
    addChoices(TimePaneChoice::PropertyTypeFamily, {1, 2, 4, 8, 16, 32});
    const auto *button = find<VxStyledButton>("TimelinePropertyTypesBtn");
    pane->setFilteredPropertyTypes(VxTimePane::PropTranslate | VxTimePane::PropRotate |
                                   VxTimePane::PropAlias);
    QCOMPARE(checked(TimePaneChoice::PropertyTypeFamily), QVector<int>({1, 2, 16}));
    QCOMPARE(button->text(), QStringLiteral("TRA"));
    actions.back()->setChecked(true);
    QCOMPARE(int(pane->getFilteredPropertyTypes()), 51);
    pane->setFilteredPropertyTypes(VxTimePane::PropertyTypes(63));
    QCOMPARE(button->text(), QStringLiteral("TRSOAH"));
    pane->setFilteredPropertyTypes(VxTimePane::PropNone);
    QCOMPARE(button->text(), QString());
    QCOMPARE(int(pane->getFilteredPropertyTypes()), 0);
}

void TestTimePane::noneChecksOnlyWhatIsNone()
{
    addChoices(TimePaneChoice::PropertyTypeFamily, {0, 1, 2});
    pane->setFilteredPropertyTypes(VxTimePane::PropRotate);
    QCOMPARE(checked(TimePaneChoice::PropertyTypeFamily), QVector<int>({2}));
    pane->setFilteredPropertyTypes(VxTimePane::PropNone);
    QCOMPARE(checked(TimePaneChoice::PropertyTypeFamily), QVector<int>({0}));
}

void TestTimePane::scopeByCheckMarks()
{
    addChoices(TimePaneChoice::KeyScopeFamily, {0, 1, 2, 3});
    actions.front()->setText(QStringLiteral("Object"));
    pane->setFilteredKeyCreationScope(VxTimePane::ScopeObject);
    QCOMPARE(checked(TimePaneChoice::KeyScopeFamily), QVector<int>({0}));
    QCOMPARE(find<VxStyledButton>("TimelineKeyScopeBtn")->text(), QStringLiteral("Object"));
    actions.front()->setChecked(false);
    QCOMPARE(pane->getFilteredKeyCreationScope(), VxTimePane::ScopeNode);
}

// Ticking triggers the action, which sets the pane's types, which tells the menu: one change.
void TestTimePane::tickingInTheFilterMenuTellsOnce()
{
    addChoices(TimePaneChoice::PropertyTypeFamily, {1, 2});
    ChoiceAction *action = actions.front().get();
    action->setText(QStringLiteral("Translation (T)"));
    connect(action, &QAction::triggered, this, [this](bool onOff) {
        pane->setFilteredPropertyTypes(onOff ? VxTimePane::PropTranslate : VxTimePane::PropNone);
    });
    showPane();
    auto *menu =
        qobject_cast<VxFilterMenu *>(find<VxStyledButton>("TimelinePropertyTypesBtn")->menu());
    menu->addAction(action);
    const QSignalSpy changes(menu, &VxFilterMenu::filterChanged);
    // Shown without popup(), by which it would fill itself with the registered actions.
    menu->adjustSize();
    menu->show();
    QTest::mouseClick(menu, Qt::LeftButton, Qt::NoModifier, menu->actionGeometry(action).center());
    QVERIFY(menu->isVisible());
    QVERIFY(action->isChecked());
    QCOMPARE(changes.count(), 1);
    QCOMPARE(int(pane->getFilteredPropertyTypes()), 1);
    menu->close();
}

void TestTimePane::manySelectionsMakeOneEvent()
{
    showPane();
    auto *a = new VxNode(QStringLiteral("a"));
    auto *b = new VxNode(QStringLiteral("b"));
    vxScene->addNode(a);
    vxScene->addNode(b);
    QCoreApplication::processEvents();
    const EventCounter counter(pane.get());
    for (int i = 0; i < 10; ++i) {
        a->select(i % 2 == 0);
        b->select(i % 2 == 1);
    }
    QCOMPARE(counter.selectionChanges, 0);
    QCoreApplication::processEvents();
    QCOMPARE(counter.selectionChanges, 1);
    QTRY_COMPARE(counter.ensureVisibles, 1);
}

void TestTimePane::hiddenPanePostsNothing()
{
    const EventCounter counter(pane.get());
    auto *node = new VxNode(QStringLiteral("a"));
    vxScene->addNode(node);
    node->select(true);
    QCoreApplication::processEvents();
    QCOMPARE(counter.selectionChanges, 0);
    showPane();
    QCoreApplication::processEvents();
    QCOMPARE(counter.selectionChanges, 1);
    const VxDopeSheetView *view = pane->getDopeSheetView();
    QVERIFY(view->selectionModel()->isSelected(view->findNodeIndex(node)));

    pane->hide();
    node->select(false);
    node->select(true);
    QCoreApplication::processEvents();
    QCOMPARE(counter.selectionChanges, 1);
    pane->show();
    QCoreApplication::processEvents();
    QCOMPARE(counter.selectionChanges, 2);
}

void TestTimePane::loadMakesOneEventAfterwards()
{
    showPane();
    QCoreApplication::processEvents();
    const EventCounter counter(pane.get());
    vxScene->beginLoad();
    for (int i = 0; i < 5; ++i) {
        auto *node = new VxNode(QStringLiteral("n%1").arg(i));
        vxScene->addNode(node);
        node->select(true);
        QCoreApplication::processEvents();
    }
    QCOMPARE(counter.selectionChanges, 0);
    vxScene->endLoad();
    QCOMPARE(counter.selectionChanges, 0);
    QCoreApplication::processEvents();
    QCOMPARE(counter.selectionChanges, 1);
}

void TestTimePane::closingApplicationPostsNothing()
{
    showPane();
    auto *node = new VxNode(QStringLiteral("a"));
    vxScene->addNode(node);
    QCoreApplication::processEvents();
    const EventCounter counter(pane.get());
    vxApp->beginClosing();
    node->select(true);
    QCoreApplication::processEvents();
    QCOMPARE(counter.selectionChanges, 0);
}

void TestTimePane::rowsFollowTheSelection()
{
    showPane();
    auto *figure = new VxSkeleton(QStringLiteral("figure"));
    auto *hip = new VxBone(QStringLiteral("hip"));
    auto *thigh = new VxBone(QStringLiteral("thigh"));
    hip->addNodeChild(thigh);
    figure->addNodeChild(hip);
    vxScene->addNode(figure);
    thigh->select(true);
    figure->select(true);
    QCoreApplication::processEvents();
    VxDopeSheetView *view = pane->getDopeSheetView();
    QCOMPARE(view->selectionModel()->selectedRows().size(), 2);

    figure->select(false);
    vxScene->setPrimarySelection(thigh);
    QCoreApplication::processEvents();
    const QModelIndexList rows = view->selectionModel()->selectedRows();
    QCOMPARE(rows.size(), 1);
    QCOMPARE(rows.first(), view->findNodeIndex(thigh));
    QVERIFY(view->isExpanded(view->findNodeIndex(hip)));
    QVERIFY(pane->hasDopeSheetItemSelection());
}

void TestTimePane::rowSelectionSelectsNodes()
{
    showPane();
    auto *a = new VxNode(QStringLiteral("a"));
    auto *b = new VxNode(QStringLiteral("b"));
    vxScene->addNode(a);
    vxScene->addNode(b);
    a->select(true);
    QCoreApplication::processEvents();
    VxDopeSheetView *view = pane->getDopeSheetView();
    const EventCounter counter(pane.get());
    const QSignalSpy told(view, &VxDopeSheetView::itemSelectionChanged);
    const QSignalSpy lists(pane.get(), &VxTimePane::dopesheetPropertyListChanged);
    VxMouseDriver mouse(view->viewport());
    mouse.click(view->visualRect(view->findNodeIndex(b)).center());
    QVERIFY(b->isSelected());
    QVERIFY(!a->isSelected());
    QVERIFY(told.count() > 0);
    QVERIFY(lists.count() > 0);
    QVERIFY(!view->isChangingSelection());
    QCoreApplication::processEvents();
    // The view has changed the scene's selection itself, so nothing is left to follow.
    QCOMPARE(counter.selectionChanges, 0);
}

void TestTimePane::rowsOfTheScene()
{
    auto *figure = new VxSkeleton(QStringLiteral("figure"));
    figure->addNodeChild(new VxBone(QStringLiteral("hip")));
    vxScene->addNode(figure);
    QVERIFY(!pane->getDopeSheetView()->model());
    showPane();
    const QAbstractItemModel *model = pane->getDopeSheetView()->model();
    QVERIFY(model);
    QCOMPARE(model->rowCount(), 1);
    QCOMPARE(model->index(0, 0).data().toString(), QStringLiteral("figure"));
    QCOMPARE(model->rowCount(model->index(0, 0)), 1);
    auto *camera = new VxNode(QStringLiteral("camera"));
    vxScene->addNode(camera);
    QCOMPARE(model->rowCount(), 2);
    vxScene->removeNode(figure);
    QCOMPARE(model->rowCount(), 1);
    camera->setLabel(QStringLiteral("Camera 1"));
    QCOMPARE(model->index(0, 0).data().toString(), QStringLiteral("Camera 1"));
}

void TestTimePane::nodesThatComeDuringALoad()
{
    showPane();
    const QAbstractItemModel *model = pane->getDopeSheetView()->model();
    vxScene->beginLoad();
    auto *gone = new VxNode(QStringLiteral("gone"));
    gone->addNodeChild(new VxNode(QStringLiteral("gone too")));
    vxScene->addNode(gone);
    vxScene->addNode(new VxNode(QStringLiteral("stays")));
    QCOMPARE(model->rowCount(), 0);
    vxScene->removeNode(gone);
    vxScene->endLoad();
    QCOMPARE(model->rowCount(), 1);
    QCOMPARE(model->index(0, 0).data().toString(), QStringLiteral("stays"));
}

void TestTimePane::clearingTheSceneEmptiesTheSheet()
{
    showPane();
    auto *node = new VxNode(QStringLiteral("a"));
    vxScene->addNode(node);
    node->select(true);
    QCoreApplication::processEvents();
    vxScene->clear();
    QCOMPARE(pane->getDopeSheetView()->model()->rowCount(), 0);
    vxScene->addNode(new VxNode(QStringLiteral("b")));
    QCOMPARE(pane->getDopeSheetView()->model()->rowCount(), 1);
    // Former selection models do not pile up.
    QCOMPARE(pane->getDopeSheetView()->findChildren<QItemSelectionModel *>().size(), 1);
}

void TestTimePane::helpersStayOut()
{
    showPane();
    auto *helper = new VxNode(QStringLiteral("helper"));
    helper->setIkNode(true);
    helper->setSelectable(false);
    auto *hidden = new VxNode(QStringLiteral("hidden"));
    hidden->setVisible(false);
    auto *leading = new VxNode(QStringLiteral("leading"));
    leading->setVisible(false);
    leading->addNodeChild(new VxNode(QStringLiteral("shown")));
    auto *handle = new VxNode(QStringLiteral("handle"));
    handle->setIkNode(true);
    for (VxNode *node : {helper, hidden, leading, handle})
        vxScene->addNode(node);
    const VxDopeSheetView *view = pane->getDopeSheetView();
    QVERIFY(!view->findNodeIndex(helper).isValid());
    QVERIFY(!view->findNodeIndex(hidden).isValid());
    QVERIFY(view->findNodeIndex(leading).isValid());
    QVERIFY(view->findNodeIndex(handle).isValid());
}

void TestTimePane::rootRowsMove()
{
    showPane();
    QVector<VxNode *> nodes;
    for (const char *name : {"a", "b", "c"}) {
        nodes += new VxNode(QString::fromLatin1(name));
        vxScene->addNode(nodes.last());
    }
    const QAbstractItemModel *model = pane->getDopeSheetView()->model();
    const auto order = [model] {
        QString text;
        for (int i = 0; i < model->rowCount(); ++i)
            text += model->index(i, 0).data().toString();
        return text;
    };
    pane->moveRootNodeToTop();
    QCOMPARE(order(), QStringLiteral("abc"));
    auto *child = new VxNode(QStringLiteral("child"));
    vxScene->addNode(child, nodes.at(2));
    child->select(true);
    pane->moveRootNodeUp();
    QCOMPARE(order(), QStringLiteral("acb"));
    pane->moveRootNodeToTop();
    QCOMPARE(order(), QStringLiteral("cab"));
    pane->moveRootNodeUp();
    QCOMPARE(order(), QStringLiteral("cab"));
    pane->moveRootNodeDown();
    QCOMPARE(order(), QStringLiteral("acb"));
    pane->moveRootNodeToBottom();
    QCOMPARE(order(), QStringLiteral("abc"));
    pane->moveRootNodeDown();
    QCOMPARE(order(), QStringLiteral("abc"));
}

void TestTimePane::textFilterShowsMatchesBelow()
{
    showPane();
    auto *figure = new VxSkeleton(QStringLiteral("figure"));
    figure->addNodeChild(new VxBone(QStringLiteral("lHip")));
    figure->addNodeChild(new VxBone(QStringLiteral("head")));
    vxScene->addNode(figure);
    vxScene->addNode(new VxNode(QStringLiteral("camera")));
    const QAbstractItemModel *model = pane->getDopeSheetView()->model();
    QVERIFY(QMetaObject::invokeMethod(pane.get(), "handleDopesheetFilterChanged",
                                      Q_ARG(QString, QStringLiteral("HIP"))));
    QCOMPARE(model->rowCount(), 1);
    QCOMPARE(model->rowCount(model->index(0, 0)), 1);
    QCOMPARE(model->index(0, 0, model->index(0, 0)).data().toString(), QStringLiteral("lHip"));
    pane->refreshDopesheet();
    QCOMPARE(pane->getDopeSheetView()->model()->rowCount(), 1);
    QVERIFY(QMetaObject::invokeMethod(pane.get(), "handleDopesheetFilterCleared"));
    QCOMPARE(pane->getDopeSheetView()->model()->rowCount(), 2);
}

void TestTimePane::placeholders()
{
    pane->setFilterText(QStringLiteral("hip"));
    QCOMPARE(pane->getFilterText(), QString());
    QCOMPARE(pane->getNumFilteredMatches(), -1);
    QVERIFY(!pane->searchDopesheetNext());
    QVERIFY(!pane->searchDopesheetPrevious());
    QVERIFY(!pane->hasSelectedKeys());
    QVERIFY(!pane->hasCopiedKeys());
    QVERIFY(!pane->hasDopeSheetItemContext());
}

void TestTimePane::emptyStoreRestoresDefaults()
{
    addChoices(TimePaneChoice::PropertyTypeFamily, {1, 2, 4, 8, 16, 32});
    addChoices(TimePaneChoice::KeyScopeFamily, {0, 1, 2, 3});
    VxSettings settings;
    pane->restoreSettings(&settings);
    QCOMPARE(pane->getControlsPosition(), VxTimePane::ControlsBottom);
    QCOMPARE(pane->getViewMode(), VxTimePane::BasicView);
    QVERIFY(pane->getKeyGraphOpen());
    QVERIFY(!pane->getMonitorParametersPane());
    QVERIFY(!pane->getPlayAllFrames());
    QCOMPARE(pane->getFilteredPropertyTypes(),
             VxTimePane::PropTranslate | VxTimePane::PropRotate | VxTimePane::PropAlias);
    QCOMPARE(pane->getFilteredKeyCreationScope(), VxTimePane::ScopeNode);
}

void TestTimePane::staleKeysAreReadInOrder()
{
    addChoices(TimePaneChoice::KeyScopeFamily, {0, 1, 2, 3});
    VxSettings settings;
    for (const char *key : {"AdvancedView", "IntermediateView", "BasicView", "ScopeNode",
                            "ScopeProperties", "ScopeNodeRecurse", "ControlsBottom", "ControlsTop"})
        settings.setBoolValue(QLatin1String(key), true);
    pane->setViewMode(VxTimePane::BasicView);
    pane->restoreSettings(&settings);
    QCOMPARE(pane->getViewMode(), VxTimePane::AdvancedView);
    QCOMPARE(pane->getFilteredKeyCreationScope(), VxTimePane::ScopeNodeRecurse);
    QCOMPARE(pane->getControlsPosition(), VxTimePane::ControlsTop);
    // Advanced by now, so the closed graph of the store counts.
    QVERIFY(!pane->getKeyGraphOpen());
}

void TestTimePane::savingWritesThePresentChoicesOnly()
{
    addChoices(TimePaneChoice::PropertyTypeFamily, {1, 2, 4, 8, 16, 32});
    pane->setFilteredPropertyTypes(VxTimePane::PropOther);
    pane->setViewMode(VxTimePane::IntermediateView);
    VxSettings settings;
    settings.setBoolValue(QStringLiteral("AdvancedView"), true);
    pane->saveSettings(&settings);
    QStringList keys = settings.getKeys();
    keys.sort();
    QCOMPARE(keys,
             QStringList({"AdvancedView", "ControlsBottom", "GraphOpen", "IntermediateView",
                          "MonitorParametersPane", "PlayAllFrames", "PropAlias", "PropHidden",
                          "PropOther", "PropRotate", "PropScale", "PropTranslate", "ScopeNode"}));
    QVERIFY(settings.getBoolValue(QStringLiteral("IntermediateView")));
    QVERIFY(settings.getBoolValue(QStringLiteral("AdvancedView")));
    QVERIFY(settings.getBoolValue(QStringLiteral("PropOther")));
    QVERIFY(!settings.getBoolValue(QStringLiteral("PropAlias"), true));
}

void TestTimePane::settingsRoundTrip()
{
    addChoices(TimePaneChoice::PropertyTypeFamily, {1, 2, 4, 8, 16, 32});
    addChoices(TimePaneChoice::KeyScopeFamily, {0, 1, 2, 3});
    pane->setControlsPosition(VxTimePane::ControlsTop);
    pane->setKeyGraphOpen(false);
    pane->setMonitorParametersPane(true);
    pane->setPlayAllFrames(true);
    pane->setFilteredPropertyTypes(VxTimePane::PropScale | VxTimePane::PropHidden);
    pane->setFilteredKeyCreationScope(VxTimePane::ScopeProperties);
    VxSettings settings;
    pane->saveSettings(&settings);

    actions.clear();
    pane = std::make_unique<VxTimePane>();
    TimelinePlayback::setPlaysAllFrames(false);
    addChoices(TimePaneChoice::PropertyTypeFamily, {1, 2, 4, 8, 16, 32});
    addChoices(TimePaneChoice::KeyScopeFamily, {0, 1, 2, 3});
    const QSignalSpy monitors(pane.get(), &VxTimePane::monitorParametersPaneChanged);
    const QSignalSpy frames(pane.get(), &VxTimePane::playAllFramesChanged);
    const QSignalSpy graph(pane.get(), &VxTimePane::keyGraphOpenChanged);
    pane->restoreSettings(&settings);
    QCOMPARE(pane->getControlsPosition(), VxTimePane::ControlsTop);
    QCOMPARE(pane->getViewMode(), VxTimePane::AdvancedView);
    QVERIFY(!pane->getKeyGraphOpen());
    QVERIFY(pane->getMonitorParametersPane());
    QVERIFY(pane->getPlayAllFrames());
    QCOMPARE(int(pane->getFilteredPropertyTypes()), 36);
    QCOMPARE(pane->getFilteredKeyCreationScope(), VxTimePane::ScopeProperties);
    QCOMPARE(monitors.count(), 1);
    QCOMPARE(frames.count(), 1);
    QCOMPARE(graph.count(), 1);
    pane->restoreSettings(&settings);
    QCOMPARE(monitors.count() + frames.count() + graph.count(), 3);
}

void TestTimePane::optionsMenu()
{
    QCOMPARE(pane->getOptionsMenuVersion(), 10);
    VxActionMenu menu;
    pane->buildOptionsMenu(&menu);
    const QString built = describe(&menu);
    const QString expected = QStringLiteral(
        "Preferences{Controls Position{VxTimePaneControlsBottomAction VxTimePaneControlsTopAction} "
        "- View Mode{VxTimePaneBasicViewAction VxTimePaneIntermediateViewAction "
        "VxTimePaneAdvancedViewAction} - Key Graph{VxTimePaneKeyGraphToggleAction - "
        "VxTimePaneMonitorParametersPaneAction} - Property "
        "Types{VxTimePaneSetPropertyTypeTranslationAction VxTimePaneSetPropertyTypeRotationAction "
        "VxTimePaneSetPropertyTypeScaleAction - VxTimePaneSetPropertyTypeOtherAction - "
        "VxTimePaneSetPropertyTypeAliasAction VxTimePaneSetPropertyTypeHiddenAction} - Key "
        "Creation Scope{VxTimePaneSetKeyScopeObjectAction VxTimePaneSetKeyScopeNodeRecurseAction "
        "VxTimePaneSetKeyScopeNodeAction - VxTimePaneSetKeyScopePropertiesAction} - "
        "VxTimePanePlayAllFramesAction -} - VxLoopToggleAction - VxPlayToggleAction - "
        "VxPrevFrameAction VxNextFrameAction - VxSkipToPlayrangeStartAction "
        "VxSkipToPlayrangeEndAction - VxTimePanePrevKeyAction VxSkipToPrevKeyAction "
        "VxTimePaneNextKeyAction VxSkipToNextKeyAction - VxTimePaneDeleteSelectedKeysAction "
        "VxDeleteKeysAction - VxTimePaneCreateKeysAction VxAddKeysAction - "
        "VxTimePaneCopySelectedKeysAction VxTimePanePasteKeysAction - Set Key "
        "Interpolation{VxTimePaneSetInterpTcbAction VxTimePaneSetInterpLinearAction "
        "VxTimePaneSetInterpConstantAction} - VxTimePaneExpandAllItemsAction "
        "VxTimePaneCollapseAllItemsAction - Clear Animation{VxClearKeysFigureAction "
        "VxClearKeysFigurePoseAction VxClearKeysFigureShapeAction - "
        "VxClearKeysSelectedItemsAction VxClearKeysPoseAction VxClearKeysShapeAction}");
    QCOMPARE(built, expected);
    pane->buildOptionsMenu(&menu);
    QCOMPARE(describe(&menu), built);
}

void TestTimePane::stylesChange()
{
    showPane();
    const auto *button = find<QAbstractButton>("TimelineInterpTypeBtn");
    const QImage dark = button->icon().pixmap(16, 16).toImage();
    vxApp->setStyle(new VxStyle(VxStyle::ColorScheme::Light));
    QCoreApplication::processEvents();
    const QImage light = button->icon().pixmap(16, 16).toImage();
    QVERIFY(!dark.isNull());
    QVERIFY(dark != light);
}

QTEST_MAIN(TestTimePane)
#include "tst_vxtimepane.moc"
