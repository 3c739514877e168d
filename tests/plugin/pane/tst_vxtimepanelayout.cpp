#include "testing/vxmousedriver.h"
#include "testing/vxtestmain.h"
#include "timepanetestbase.h"
#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/keygraph/vxkeygraphview.h"

#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QAbstractSpinBox>
#include <QtWidgets/QBoxLayout>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLayout>
#include <vxcore/vxbuttonbar.h>
#include <vxcore/vxdynamicdividerwgt.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxstyle.h>
#include <vxcore/vxstyledbutton.h>

// View modes, the place of the controls, the key graph, and the width.
class TestTimePaneLayout : public QObject, private TimePaneTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void settingTheSameModeEmitsNothing();
    void viewModes_data();
    void viewModes();
    void nameColumnIsRestored();
    void nameColumnOfANewPaneIsRestored();
    void nameColumnOfOtherModesIsNotKept();
    void nameColumnTooNarrowForANameIsWidened();
    void graphIsRightOfTheNameColumn();
    void leavingTheAdvancedViewLeavesThePropertiesScope();
    void invalidChoicesAreRefused();
    void keyGraphOpensInTheAdvancedViewOnly();
    void keyGraphButtonOpensAndCloses();
    void keyGraphStateSurvivesModes();
    void controlsPosition();
    void settingTheSamePositionEmitsNothing();
    void extrasFollowTheWidth();
    void everythingFitsASmallScreen();
    void extrasStayHiddenWhenTheViewChangesBehindATab();
    void widthChangesNothingInOtherModes();
    void graphWithoutCurvesShowsAHint();
    void hintKeepsClearOfTheLabels();
    void emptySheetShowsAHint();
    void controlsExplainThemselves();
};

void TestTimePaneLayout::settingTheSameModeEmitsNothing()
{
    const QSignalSpy changes(pane.get(), &VxTimePane::viewModeChanged);
    pane->setViewMode(VxTimePane::AdvancedView);
    QCOMPARE(changes.count(), 0);
    pane->setViewMode(VxTimePane::BasicView);
    pane->setViewMode(VxTimePane::BasicView);
    QCOMPARE(changes.count(), 1);
    QCOMPARE(changes.first().first().value<VxTimePane::ViewMode>(), VxTimePane::BasicView);
}

void TestTimePaneLayout::viewModes_data()
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

void TestTimePaneLayout::viewModes()
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
        QCOMPARE(!bar->widget(item)->isHidden(), always || mode != VxTimePane::BasicView);
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

void TestTimePaneLayout::nameColumnIsRestored()
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
    // It covers the grip of the section below.
    QCOMPARE(column->parentWidget()->childAt(331, 5), view->header()->viewport());
}

void TestTimePaneLayout::nameColumnOfANewPaneIsRestored()
{
    pane->setViewMode(VxTimePane::BasicView);
    showPane();
    QCOMPARE(pane->getDopeSheetView()->columnWidth(0), 0);
    pane->setViewMode(VxTimePane::AdvancedView);
    QCOMPARE(pane->getDopeSheetView()->columnWidth(0), 250);
}

void TestTimePaneLayout::nameColumnOfOtherModesIsNotKept()
{
    showPane();
    pane->setViewMode(VxTimePane::BasicView);
    pane->getDopeSheetView()->setColumnWidth(0, 60);
    pane->setViewMode(VxTimePane::IntermediateView);
    pane->setViewMode(VxTimePane::AdvancedView);
    QCOMPARE(pane->getDopeSheetView()->columnWidth(0), 250);
}

void TestTimePaneLayout::nameColumnTooNarrowForANameIsWidened()
{
    showPane();
    VxDopeSheetView *view = pane->getDopeSheetView();
    for (const bool widened : {true, false}) {
        pane->hide();
        view->setColumnWidth(0, widened ? 24 : 25);
        pane->show();
        QCOMPARE(view->columnWidth(0), widened ? 250 : 25);
    }
}

// Below the names the graph has a ground of its own.
void TestTimePaneLayout::graphIsRightOfTheNameColumn()
{
    showPane();
    const auto hasEdgeAt = [this](int x) {
        const QImage image = find<VxKeyGraphView>("TimelineKeyGraphView")->grab().toImage();
        int differing = 0;
        for (int y = 0; y < image.height(); ++y)
            differing += int(image.pixel(x - 1, y) != image.pixel(x, y));
        return differing > image.height() / 2;
    };
    QVERIFY(hasEdgeAt(250));
    QVERIFY(!hasEdgeAt(333));
    pane->getDopeSheetView()->setColumnWidth(0, 333);
    QVERIFY(hasEdgeAt(333));
    QVERIFY(!hasEdgeAt(250));
}

void TestTimePaneLayout::leavingTheAdvancedViewLeavesThePropertiesScope()
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

void TestTimePaneLayout::invalidChoicesAreRefused()
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

void TestTimePaneLayout::keyGraphOpensInTheAdvancedViewOnly()
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

void TestTimePaneLayout::keyGraphButtonOpensAndCloses()
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

void TestTimePaneLayout::keyGraphStateSurvivesModes()
{
    showPane();
    pane->setKeyGraphOpen(false);
    pane->setViewMode(VxTimePane::BasicView);
    pane->setViewMode(VxTimePane::AdvancedView);
    QVERIFY(!pane->getKeyGraphOpen());
    QVERIFY(!find<QAbstractButton>("TimelineKeyGraphBtn")->isChecked());
    QVERIFY(!find<QWidget>("TimelineKeyGraphView")->isVisible());
}

void TestTimePaneLayout::controlsPosition()
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

void TestTimePaneLayout::settingTheSamePositionEmitsNothing()
{
    const QSignalSpy changes(pane.get(), &VxTimePane::controlsPositionChanged);
    pane->setControlsPosition(VxTimePane::ControlsBottom);
    QCOMPARE(changes.count(), 0);
}

// The pane is in a window that does not keep it from becoming too narrow.
void TestTimePaneLayout::extrasFollowTheWidth()
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

    // A second pane in the process has no stored width at first.
    const VxTimePane second;
    QVERIFY(second.findChild<QWidget *>(QStringLiteral("TimelineKeyScopeBtn"))->isHidden());
}

// A pane restored with its former width is not resized.
void TestTimePaneLayout::extrasStayHiddenWhenTheViewChangesBehindATab()
{
    QWidget window;
    window.resize(1000, 600);
    VxTimePane *inside = pane.release(); // the window owns it
    inside->setParent(&window);
    inside->resize(900, 500);
    inside->setViewMode(VxTimePane::BasicView);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    inside->hide();
    inside->setViewMode(VxTimePane::AdvancedView);
    inside->show();
    QCoreApplication::processEvents();
    QCOMPARE(inside->width(), 900);
    QVERIFY(inside->findChild<QWidget *>(QStringLiteral("TimelineKeyControlsWgt"))->isVisible());
    for (const char *name : {"TimelineKeyScopeBtn", "TimelineInterpControlsWgt"})
        QVERIFY2(!inside->findChild<QWidget *>(QLatin1String(name))->isVisible(), name);
}

// In the application's font.
void TestTimePaneLayout::everythingFitsASmallScreen()
{
    QFont font = QApplication::font();
    font.setPixelSize(13);
    QApplication::setFont(font);
    pane = std::make_unique<VxTimePane>();
    addChoices(TimePaneChoice::PropertyTypeFamily, {1, 2, 4, 8, 16, 32});
    pane->setFilteredPropertyTypes(VxTimePane::PropertyTypes(63));
    showPane(1272);
    QCOMPARE(pane->width(), 1272);
    QVERIFY(find<QWidget>("TimelineTimeRangeControlsWgt")->isVisible());
    QVERIFY(find<QWidget>("TimelineInterpControlsWgt")->isVisible());
    const auto *types = find<VxStyledButton>("TimelinePropertyTypesBtn");
    QCOMPARE(types->displayedText(), QStringLiteral("TRSOAH"));
}

void TestTimePaneLayout::graphWithoutCurvesShowsAHint()
{
    showPane();
    auto *view = find<VxKeyGraphView>("TimelineKeyGraphView");
    const auto *hint = find<QLabel>("TimelineKeyGraphHintLbl");
    QVERIFY(hint->isVisible());
    const auto isInTheMiddle = [hint, view] {
        const QPoint way = hint->geometry().center() - view->rect().center();
        return way.manhattanLength() <= 2;
    };
    QVERIFY(isInTheMiddle());
    pane->resize(1300, 450);
    QTRY_VERIFY(isInTheMiddle());
    const VxFloatProperty property(QStringLiteral("p"));
    Q_EMIT view->channelListChanged({const_cast<VxFloatProperty *>(&property)});
    QVERIFY(!hint->isVisible());
    Q_EMIT view->channelListChanged({});
    QVERIFY(hint->isVisible());
    // A press reaches the graph.
    QCOMPARE(view->childAt(hint->geometry().center()), nullptr);
}

// Value labels are right of the name column, frame numbers at the lower edge.
void TestTimePaneLayout::hintKeepsClearOfTheLabels()
{
    showPane();
    auto *view = find<VxKeyGraphView>("TimelineKeyGraphView");
    const auto *hint = find<QLabel>("TimelineKeyGraphHintLbl");
    int shown = 0;
    for (int width = 1600; width >= 330; width -= 90) {
        pane->resize(width, 450);
        QCoreApplication::processEvents();
        pane->grab();
        shown += hint->isVisible();
        const QRect room = view->getLabelFreeRect();
        QVERIFY2(!hint->isVisible() || room.contains(hint->geometry()),
                 qPrintable(QString::number(width)));
        QVERIFY2(!hint->isVisible() || hint->heightForWidth(hint->width()) <= hint->height(),
                 qPrintable(QString::number(width)));
    }
    QVERIFY(shown > 5);
}

/// A control whose label is a letter or a word, or that has none, explains itself.
void TestTimePaneLayout::controlsExplainThemselves()
{
    QSet<QString> texts;
    int count = 0;
    const auto check = [&](const QWidget *control) {
        QVERIFY2(!control->toolTip().isEmpty(), qPrintable(control->objectName()));
        texts.insert(control->toolTip());
        ++count;
    };
    for (const QAbstractSpinBox *field : pane->findChildren<QAbstractSpinBox *>())
        check(field);
    for (const QAbstractButton *button : pane->findChildren<QAbstractButton *>())
        check(button);
    check(find<QWidget>("TimelineTimeRangeSldr"));
    QVERIFY(count > 20);
    QCOMPARE(texts.size(), count); // each its own
}

// The picture below the first rows, where nothing is painted but the time's line at the left.
void TestTimePaneLayout::emptySheetShowsAHint()
{
    showPane();
    const auto *view = find<VxDopeSheetView>("TimelineDopeSheetTView");
    const auto coloursInTheMiddle = [view] {
        const QImage picture = view->viewport()->grab().toImage();
        QSet<QRgb> colours;
        for (int y = picture.height() / 2 - 10; y < picture.height() / 2 + 10; ++y) {
            for (int x = picture.width() / 3; x < picture.width() * 2 / 3; ++x)
                colours.insert(picture.pixel(x, y));
        }
        return colours.size();
    };
    QVERIFY(view->viewport()->height() > 120);
    QVERIFY(coloursInTheMiddle() > 1);
    vxScene->addNode(new VxNode(QStringLiteral("ball")));
    QTRY_COMPARE(view->model()->rowCount(), 1);
    QCOMPARE(coloursInTheMiddle(), 1);
}

void TestTimePaneLayout::widthChangesNothingInOtherModes()
{
    showPane();
    pane->setViewMode(VxTimePane::IntermediateView);
    const auto *scope = find<QWidget>("TimelineKeyScopeBtn");
    const bool wasHidden = scope->isHidden();
    pane->resize(pane->minimumSizeHint().width(), 400);
    QCoreApplication::processEvents();
    QCOMPARE(scope->isHidden(), wasHidden);
}

VX_TEST_MAIN(TestTimePaneLayout)
#include "tst_vxtimepanelayout.moc"
