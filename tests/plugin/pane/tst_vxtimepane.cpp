#include "testing/vxtestmain.h"
#include "timepanetestbase.h"
#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/keygraph/vxkeygraphview.h"

#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QBoxLayout>
#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QFrame>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLayout>
#include <QtWidgets/QSpinBox>
#include <vxcore/vxactionmenu.h>
#include <vxcore/vxbuttonbar.h>
#include <vxcore/vxdynamicdividerwgt.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxstyle.h>
#include <vxcore/vxstyledbutton.h>

// The pane as it is built.
class TestTimePane : public QObject, private TimePaneTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

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
    void stylesChange();
    void scaleUsesTheStylesSizes();
    void wideMarksKeepTheRangeInTheColumn();
    void interpolationIconFollowsThePalette();
    void tabOrder();
    void fieldsHaveNames();
};

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

void TestTimePane::scaleUsesTheStylesSizes()
{
    showPane();
    TimelineMetrics &metrics = TimelineMetrics::shared();
    auto *playhead = find<QWidget>("TimelinePlayheadWgt");
    const QPoint place = playhead->pos();
    const QSize size = playhead->size();
    metrics.frameWidth = 3;
    metrics.keyMargin = 77;
    playhead->move(0, 0);
    Q_EMIT vxApp->styleChanged(vxApp->getStyle());
    QCOMPARE(metrics.frameWidth, vxApp->getStyle()->metric(VxStyle::PM_VxTimelineFrameWidth));
    QCOMPARE(metrics.keyMargin, vxApp->getStyle()->metric(VxStyle::PM_VxTimelineKeyMargin));
    QCOMPARE(playhead->pos(), place);
    QCOMPARE(playhead->size(), size);
}

void TestTimePane::wideMarksKeepTheRangeInTheColumn()
{
    // Everything as it is, but for the side of a mark.
    class WideStyle : public VxStyle
    {
    public:
        int pixelMetric(PixelMetric which, const QStyleOption *option,
                        const QWidget *widget) const override
        {
            const bool isSide = quint32(which) == PM_VxTimelineFrameWidth;
            return isSide ? 24 : VxStyle::pixelMetric(which, option, widget);
        }
    };
    showPane();
    const TimelineMetrics &metrics = TimelineMetrics::shared();
    const int end = metrics.timeToX(vxScene->getPlayRange().getEnd());
    QVERIFY(end > 100);
    vxApp->setStyle(new WideStyle);
    QCOMPARE(metrics.frameWidth, 24);
    QVERIFY(qAbs(metrics.timeToX(vxScene->getPlayRange().getEnd()) - end) <= 1);
}

void TestTimePane::interpolationIconFollowsThePalette()
{
    showPane();
    const auto *button = find<VxStyledButton>("TimelineInterpTypeBtn");
    // The colour of a key of the mark, which is painted without smoothing.
    const auto color = [button](QIcon::Mode mode) {
        return button->icon().pixmap(QSize(16, 16), mode).toImage().pixelColor(2, 12);
    };
    for (const auto scheme : {VxStyle::ColorScheme::Light, VxStyle::ColorScheme::Dark}) {
        vxApp->getStyle()->setColorScheme(scheme);
        QCoreApplication::processEvents();
        QCOMPARE(color(QIcon::Normal), pane->palette().color(QPalette::ButtonText));
        QCOMPARE(color(QIcon::Disabled), pane->palette().color(QPalette::Mid));
    }
}

// From left to right, in the order of the controls.
void TestTimePane::tabOrder()
{
    QStringList names;
    for (const QWidget *widget = pane->nextInFocusChain(); widget != pane.get();
         widget = widget->nextInFocusChain()) {
        if (widget->focusPolicy() & Qt::TabFocus &&
            find<QWidget>("TimelineMainControlsWgt")->isAncestorOf(widget) &&
            !widget->objectName().startsWith(QStringLiteral("qt_")))
            names += widget->objectName();
    }
    QCOMPARE(names, QStringList({"TimelineTotalFramesLEdit",
                                 "TimelinePlayStartLEdit",
                                 "TimelinePlayEndLEdit",
                                 "TimelineCurrentFrameLEdit",
                                 "TimelineFPSLEdit",
                                 "TimelinePropertyTypesBtn",
                                 "TimelineLoopBtn",
                                 "TimelineSkipToStartBtn",
                                 "TimelinePrevKeyBtn",
                                 "TimelinePrevFrameBtn",
                                 "TimelinePlayPauseBtn",
                                 "TimelineNextFrameBtn",
                                 "TimelineNextKeyBtn",
                                 "TimelineSkipToEndBtn",
                                 "TimelineKeyGraphBtn",
                                 "TimelineDeleteKeysBtn",
                                 "TimelineCreateKeysBtn",
                                 "TimelineKeyScopeBtn",
                                 "TimelineCopySelectedKeysBtn",
                                 "TimelinePasteCopiedKeysBtn",
                                 "TimelineInterpTypeBtn",
                                 "TimelineInterpTensionSBox",
                                 "TimelineInterpContinuitySBox",
                                 "TimelineInterpBiasSBox"}));
}

// A screen reader announces a field by its own name or by its label's.
void TestTimePane::fieldsHaveNames()
{
    QSet<const QWidget *> labelled;
    for (const QLabel *label : pane->findChildren<QLabel *>())
        labelled.insert(label->buddy());
    for (const QAbstractSpinBox *field : pane->findChildren<QAbstractSpinBox *>())
        QVERIFY2(labelled.contains(field) || !field->accessibleName().isEmpty(),
                 qPrintable(field->objectName()));
}

VX_TEST_MAIN(TestTimePane)
#include "tst_vxtimepane.moc"
