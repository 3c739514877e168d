#include "dopesheettestbase.h"
#include "testing/vxtestmain.h"
#include "vxtimeline/dopesheet/scenetimes.h"
#include "vxtimeline/dopesheet/vxtimelinedopesheetkeyscolumndelegate.h"
#include "vxtimeline/dopesheet/vxtimelinedopesheetnamecolumndelegate.h"

#include <QtGui/QHelpEvent>
#include <QtGui/QPainter>
#include <QtGui/QStandardItemModel>
#include <QtGui/QTextDocument>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QToolTip>
#include <QtWidgets/QTreeView>
#include <random>
#include <set>
#include <vxcore/vxmainwindow.h>

namespace {

// Marks as filled shapes without soft edges, one for each look, so that painting one twice changes
// nothing. Selected marks are brighter.
class PlainMarks : public VxStyle
{
public:
    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override
    {
        if (static_cast<quint32>(element) != PE_VxKeyMark) {
            VxStyle::drawPrimitive(element, option, painter, widget);
            return;
        }
        ++painted;
        const bool selected = option->state & State_Selected;
        const QRect &rect = option->rect;
        if (option->state & State_Children)
            painter->fillRect(rect.adjusted(3, 0, -3, 0), selected ? Qt::yellow : Qt::darkYellow);
        else if (option->state & State_Editing)
            painter->fillRect(rect.adjusted(0, 3, 0, -3), selected ? Qt::green : Qt::darkGreen);
        else if (option->state & State_Sunken)
            painter->fillRect(rect.adjusted(1, 1, -1, -1), selected ? Qt::red : Qt::darkRed);
        else if (option->state & State_Raised)
            painter->fillRect(rect.adjusted(4, 1, -2, -2), selected ? Qt::blue : Qt::darkBlue);
    }

    mutable int painted = 0;
};

const QRect cell(200, 0, 600, 20);

} // namespace

// The delegates of the dope sheet: their pictures, compared with loops over every key and every
// frame, and the tool tips of names.
class TestDopeSheetDelegates : public QObject, private DopeSheetTest
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        setUp();
        property = hip->getXPosControl();
        row = translationOf(hip, 0);
    }
    void cleanup()
    {
        QToolTip::hideText();
        tearDown();
    }

    void likeALoop_data();
    void likeALoop();
    void likeALoopOnce();
    void aMarkIsPaintedOnce();

    void looksOfKeys_data();
    void looksOfKeys();
    void closedNodeShowsTheUnion();
    void openRowsPaintNothing();
    void openRowWithoutRowsBelowPaints();
    void partsOfMarksAreNotPainted();
    void timeTick_data();
    void timeTick();
    void selectedRow();
    void coloursOfTheWindow();
    void lineEndsWithTheLastKey();
    void oneFrame();

    void nothingWithoutAnItem();
    void nothingWithoutTheView();
    void nothingWithoutWidth();

    void rowHeight();
    void longNameHasAToolTip();
    void markupInNamesIsShown();
    void fittingNameHasNoToolTip();
    void nameThatJustFits();
    void fittingNameHidesTheFormerToolTip();
    void toolTipIsShownAtTheMouse();
    void namesThatAreNoText();
    void otherHelpEventsReachTheBaseClass();

private:
    QImage paint(const QModelIndex &index, const QRect &rect = cell) const
    {
        return paintWith(view->itemDelegateForColumn(VxDopeSheetView::KeysColumn), index, rect);
    }
    static QImage blank()
    {
        QImage image(820, 20, QImage::Format_ARGB32_Premultiplied);
        image.fill(QColor(40, 60, 80));
        return image;
    }
    static QImage paintWith(const QAbstractItemDelegate *delegate, const QModelIndex &index,
                            const QRect &rect = cell)
    {
        QImage image = blank();
        QPainter painter(&image);
        QStyleOptionViewItem option;
        option.rect = rect;
        delegate->paint(&painter, option, index.sibling(index.row(), 1));
        return image;
    }
    QImage loop(const QModelIndex &index, bool onceEach) const;
    void loopMarks(QPainter *painter, const VxDopeSheetItem *item, bool onceEach) const;
    void makeRandomRow(std::mt19937 &random);
    bool askForToolTip(const QModelIndex &index, QEvent::Type type = QEvent::ToolTip);

    VxFloatProperty *property = nullptr;
    QModelIndex row;
};

// Every key from the first to the last; with onceEach a mark is left out when one that looks the
// same comes later at the same place.
void TestDopeSheetDelegates::loopMarks(QPainter *painter, const VxDopeSheetItem *item,
                                       bool onceEach) const
{
    const TimelineMetrics &metrics = TimelineMetrics::shared();
    const VxTime playStart = vxScene->getPlayRange().getStart();
    std::vector<VxStyleOptionCustom> marks;
    std::set<std::pair<int, int>> seen;
    for (int i = item->keyCount() - 1; i >= 0; --i) {
        VxStyleOptionCustom option;
        option.initFrom(view.get());
        option.rect = QRect(metrics.keyLeft(cell.x(), item->keyTime(i), playStart), 5,
                            metrics.frameWidth, metrics.frameWidth);
        if (!cell.contains(option.rect))
            continue;
        const int type = item->property() ? item->property()->getKeyInterpolationType(i) : 3;
        option.state |= type == 0   ? QStyle::State_Raised
                        : type == 1 ? QStyle::State_Sunken
                        : type == 2 ? QStyle::State_Editing
                                    : QStyle::State_Children;
        if (item->isKeySelected(i))
            option.state |= QStyle::State_Selected;
        if (seen.insert({option.rect.x(), int(option.state)}).second || !onceEach)
            marks.push_back(option);
    }
    for (auto mark = marks.rbegin(); mark != marks.rend(); ++mark)
        vxApp->getStyle()->drawPrimitive(
            static_cast<QStyle::PrimitiveElement>(VxStyle::PE_VxKeyMark), &*mark, painter,
            view.get());
}

QImage TestDopeSheetDelegates::loop(const QModelIndex &index, bool onceEach) const
{
    QImage image = blank();
    QPainter painter(&image);
    const TimelineMetrics &metrics = TimelineMetrics::shared();
    const SceneTimes times = SceneTimes::current();
    const VxDopeSheetItem *item = model->getItem(index);
    const int count = item->keyCount();
    const VxTime end = count ? qMax(times.duration, item->keyTime(count - 1)) : times.duration;
    const auto middle = [&](VxTime time) {
        return metrics.keyMiddle(cell.x(), time, times.playRange.getStart());
    };
    const QColor color = view->palette().color(QPalette::Dark);
    painter.setPen(color);
    const auto tick = [&](int x, int top, int bottom) {
        if (x >= cell.left() && x <= cell.right())
            painter.drawLine(x, top, x, bottom);
    };
    for (int x = middle(0); x < middle(0) + metrics.timeToX(end); ++x)
        tick(x, 10, 10);
    const int line = metrics.halfFrame() + metrics.timeToX(end);
    const int width = qMin(line, cell.width() - metrics.keysOrigin(times.playRange.getStart()));
    for (int i = 0; i < metrics.secondsCount(width); ++i)
        tick(middle(i * 4800), 5, 14);
    for (int j = 1; j <= times.duration / times.step - 1; ++j)
        tick(middle(j * times.step), 7, 12);
    loopMarks(&painter, item, onceEach);
    bool hasKey = false;
    for (int i = 0; i < count; ++i)
        hasKey = hasKey || item->keyTime(i) == times.time;
    if (!hasKey) {
        painter.setPen(Qt::white);
        tick(middle(times.time), 8, 11);
    }
    return image;
}

void TestDopeSheetDelegates::makeRandomRow(std::mt19937 &random)
{
    const auto any = [&random](int low, int high) {
        return std::uniform_int_distribution<>(low, high)(random);
    };
    property->deleteAllKeys();
    TimelineMetrics::shared().zoom = std::uniform_real_distribution<>(0.02, 1.5)(random);
    VxTime time = any(-3000, 3000);
    for (int i = any(0, 300); i > 0; --i) {
        property->setKey(time, 0, any(0, 2));
        time += any(1, 400);
    }
    for (int i = any(0, 5); i > 0; --i)
        view->setKeySelection(true, row, row, any(-3000, time), any(-3000, time));
    vxScene->setAnimRange(VxTimeRange(any(-500, 0), any(0, 60000)));
    const VxTime start = any(-2000, 10000);
    vxScene->setPlayRange(VxTimeRange(start, start + any(0, 30000)));
    const int key = any(0, qMax(0, property->getNumKeys() - 1));
    vxScene->setTime(any(0, 1) ? property->getKeyTime(key) : any(-1000, 20000));
}

void TestDopeSheetDelegates::likeALoop_data()
{
    QTest::addColumn<bool>("isUnion");
    QTest::newRow("property rows") << false;
    QTest::newRow("closed node rows") << true;
}

void TestDopeSheetDelegates::likeALoop()
{
    QFETCH(bool, isUnion);
    app->setStyle(new PlainMarks);
    const QModelIndex index = isUnion ? rowOf(hip) : row;
    std::mt19937 random(11);
    for (int round = 0; round < 150; ++round) {
        makeRandomRow(random);
        const QImage painted = paint(index);
        const QImage expected = loop(index, false);
        if (painted != expected) {
            painted.save(QDir::temp().filePath(QStringLiteral("dopesheet-painted.png")));
            expected.save(QDir::temp().filePath(QStringLiteral("dopesheet-expected.png")));
            QFAIL(qPrintable(QStringLiteral("round %1").arg(round)));
        }
    }
}

// The style's own marks have soft edges, which a second mark at the same place would harden.
void TestDopeSheetDelegates::likeALoopOnce()
{
    std::mt19937 random(12);
    for (int round = 0; round < 150; ++round) {
        makeRandomRow(random);
        QCOMPARE(paint(row), loop(row, true));
        QCOMPARE(paint(rowOf(hip)), loop(rowOf(hip), true));
    }
}

void TestDopeSheetDelegates::aMarkIsPaintedOnce()
{
    auto *style = new PlainMarks;
    app->setStyle(style);
    TimelineMetrics::shared().zoom = 0.01;
    for (int i = 0; i < 3000; ++i)
        property->setKey(i * 160, 0, VxKeyInterp::Linear);
    // Ten keys a pixel, over 300 pixels.
    paint(row);
    QCOMPARE(style->painted, 300);
}

void TestDopeSheetDelegates::looksOfKeys_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<bool>("selected");
    QTest::addColumn<QColor>("color");

    QTest::newRow("linear") << 0 << false << QColor(Qt::darkBlue);
    QTest::newRow("linear, selected") << 0 << true << QColor(Qt::blue);
    QTest::newRow("constant") << 1 << false << QColor(Qt::darkRed);
    QTest::newRow("constant, selected") << 1 << true << QColor(Qt::red);
    QTest::newRow("TCB") << 2 << false << QColor(Qt::darkGreen);
    QTest::newRow("TCB, selected") << 2 << true << QColor(Qt::green);
}

void TestDopeSheetDelegates::looksOfKeys()
{
    QFETCH(int, type);
    QFETCH(bool, selected);
    app->setStyle(new PlainMarks);
    property->setKey(1600, 0, type);
    if (selected)
        view->setKeySelection(true, row);
    // The mark covers 302 .. 311.
    QTEST(paint(row).pixelColor(307, 9), "color");
}

void TestDopeSheetDelegates::closedNodeShowsTheUnion()
{
    app->setStyle(new PlainMarks);
    addKeys(property, {1600});
    addKeys(leg->getZPosControl(), {3200}, VxKeyInterp::Tcb);
    view->setKeySelection(true, translationOf(leg, 2));
    const QImage image = paint(rowOf(hip));
    QCOMPARE(image.pixelColor(307, 6), QColor(Qt::darkYellow));
    QCOMPARE(image.pixelColor(407, 6), QColor(Qt::yellow));
}

void TestDopeSheetDelegates::openRowsPaintNothing()
{
    addKeys(property, {1600});
    view->expand(rowOf(hip));
    view->selectionModel()->select(rowOf(hip),
                                   QItemSelectionModel::Select | QItemSelectionModel::Rows);
    QCOMPARE(paint(rowOf(hip)), blank());
    view->collapse(rowOf(hip));
    QVERIFY(paint(rowOf(hip)) != blank());
}

void TestDopeSheetDelegates::openRowWithoutRowsBelowPaints()
{
    addKeys(property, {1600});
    view->expand(row);
    QVERIFY(paint(row) != blank());
}

void TestDopeSheetDelegates::partsOfMarksAreNotPainted()
{
    auto *style = new PlainMarks;
    app->setStyle(style);
    addKeys(property, {-48, -32, 9408, 9424});
    paint(row);
    QCOMPARE(style->painted, 2);
}

void TestDopeSheetDelegates::timeTick_data()
{
    QTest::addColumn<VxTime>("time");
    QTest::addColumn<bool>("isShown");

    QTest::newRow("without a key") << 1440 << true;
    QTest::newRow("with a key") << 1600 << false;
    QTest::newRow("a tick beside a key") << 1601 << true;
}

void TestDopeSheetDelegates::timeTick()
{
    QFETCH(VxTime, time);
    app->setStyle(new PlainMarks);
    addKeys(property, {1600});
    vxScene->setTime(time);
    const int x = 207 + time / 16;
    const QImage image = paint(row);
    for (int y = 8; y <= 11; ++y)
        QTEST(image.pixelColor(x, y) == QColor(Qt::white), "isShown");
    QVERIFY(image.pixelColor(x, 7) != QColor(Qt::white));
    QVERIFY(image.pixelColor(x, 12) != QColor(Qt::white));
}

void TestDopeSheetDelegates::selectedRow()
{
    const QColor ground = blank().pixelColor(0, 0);
    const QPalette palette = view->palette();
    QCOMPARE(paint(row).pixelColor(702, 1), ground);
    QCOMPARE(paint(row).pixelColor(212, 10), palette.color(QPalette::Dark));
    // The names' column decides.
    view->selectionModel()->select(row, QItemSelectionModel::Select);
    const QImage image = paint(row);
    const QColor highlight = palette.color(QPalette::Highlight);
    const QColor found = image.pixelColor(702, 1);
    const auto mixed = [](int over, int under) { return (over * 64 + under * 191) / 255; };
    QVERIFY(qAbs(found.red() - mixed(highlight.red(), ground.red())) <= 1);
    QVERIFY(qAbs(found.green() - mixed(highlight.green(), ground.green())) <= 1);
    QVERIFY(qAbs(found.blue() - mixed(highlight.blue(), ground.blue())) <= 1);
    QCOMPARE(image.pixelColor(199, 1), ground);
    QCOMPARE(image.pixelColor(800, 1), ground);
    for (const int x : {212, 217})
        QCOMPARE(image.pixelColor(x, 10), palette.color(QPalette::HighlightedText));
}

// The view may have a palette of its own; the rows look like the rest of the interface.
void TestDopeSheetDelegates::coloursOfTheWindow()
{
    VxMainWindow window;
    QPalette palette = window.palette();
    palette.setColor(QPalette::Dark, Qt::magenta);
    palette.setColor(QPalette::HighlightedText, Qt::cyan);
    window.setPalette(palette);
    QPalette own = view->palette();
    own.setColor(QPalette::Dark, Qt::gray);
    view->setPalette(own);
    QCOMPARE(paint(row).pixelColor(212, 10), QColor(Qt::magenta));
    view->selectionModel()->select(row, QItemSelectionModel::Select);
    QCOMPARE(paint(row).pixelColor(212, 10), QColor(Qt::cyan));
}

void TestDopeSheetDelegates::lineEndsWithTheLastKey()
{
    vxScene->setAnimRange(VxTimeRange(0, 1600));
    const QColor line = view->palette().color(QPalette::Dark);
    QVERIFY(paint(row).pixelColor(306, 10) == line);
    QVERIFY(paint(row).pixelColor(307, 10) != line);
    addKeys(property, {3200});
    QVERIFY(paint(row).pixelColor(395, 10) == line);
}

void TestDopeSheetDelegates::oneFrame()
{
    vxScene->setAnimRange(VxTimeRange(0, 160));
    vxScene->setTime(-16000);
    const QImage image = paint(row);
    const QColor line = view->palette().color(QPalette::Dark);
    int ticks = 0;
    for (int x = 200; x < 800; ++x)
        ticks += image.pixelColor(x, 8) == line;
    QCOMPARE(ticks, 1);
}

void TestDopeSheetDelegates::nothingWithoutAnItem()
{
    QStandardItemModel other(1, 2);
    const auto *delegate = view->itemDelegateForColumn(VxDopeSheetView::KeysColumn);
    QCOMPARE(paintWith(delegate, other.index(0, 0)), blank());
    QCOMPARE(paintWith(delegate, QModelIndex()), blank());
}

void TestDopeSheetDelegates::nothingWithoutTheView()
{
    addKeys(property, {1600});
    QWidget other;
    const VxTimelineDopeSheetKeysColumnDelegate strange(&other);
    QCOMPARE(paintWith(&strange, row), blank());
    const VxTimelineDopeSheetKeysColumnDelegate alone;
    QCOMPARE(paintWith(&alone, row), blank());
}

void TestDopeSheetDelegates::nothingWithoutWidth()
{
    addKeys(property, {0});
    QCOMPARE(paint(row, QRect(200, 0, 0, 20)), blank());
}

void TestDopeSheetDelegates::rowHeight()
{
    const auto *delegate = view->itemDelegateForColumn(VxDopeSheetView::NameColumn);
    const QStyleOptionViewItem option;
    QCOMPARE(delegate->sizeHint(option, row).height(),
             vxApp->getStyle()->metric(VxStyle::PM_VxDopeSheetRowHeight));
    showView();
    QCOMPARE(view->visualRect(rowOf(hip)).height(),
             vxApp->getStyle()->metric(VxStyle::PM_VxDopeSheetRowHeight));
}

bool TestDopeSheetDelegates::askForToolTip(const QModelIndex &index, QEvent::Type type)
{
    const QPoint place = view->visualRect(index).center();
    QHelpEvent event(type, place, view->viewport()->mapToGlobal(place));
    QStyleOptionViewItem option;
    option.initFrom(view.get());
    option.font = view->font();
    option.rect = view->visualRect(index);
    auto *delegate = qobject_cast<QStyledItemDelegate *>(
        view->itemDelegateForColumn(VxDopeSheetView::NameColumn));
    return delegate->helpEvent(&event, view.get(), option, index);
}

void TestDopeSheetDelegates::longNameHasAToolTip()
{
    showView();
    hip->setLabel(QStringLiteral("A name that does not fit into a hundred pixels"));
    view->setColumnWidth(VxDopeSheetView::NameColumn, 100);
    QVERIFY(askForToolTip(rowOf(hip)));
    QCOMPARE(QToolTip::text(), hip->getLabel());
}

void TestDopeSheetDelegates::markupInNamesIsShown()
{
    showView();
    hip->setLabel(QStringLiteral("<b>left & right</b> and a good deal more"));
    view->setColumnWidth(VxDopeSheetView::NameColumn, 100);
    QVERIFY(askForToolTip(rowOf(hip)));
    QTextDocument shown;
    shown.setHtml(QToolTip::text());
    QCOMPARE(shown.toPlainText(), hip->getLabel());
}

void TestDopeSheetDelegates::fittingNameHasNoToolTip()
{
    showView();
    QVERIFY(askForToolTip(rowOf(hip)));
    QVERIFY(QToolTip::text().isEmpty());
}

void TestDopeSheetDelegates::nameThatJustFits()
{
    showView();
    const QModelIndex name = rowOf(hip);
    QStyleOptionViewItem option;
    option.initFrom(view.get());
    option.font = view->font();
    const int needed =
        view->itemDelegateForColumn(VxDopeSheetView::NameColumn)->sizeHint(option, name).width();
    const int indent =
        view->columnWidth(VxDopeSheetView::NameColumn) - view->visualRect(name).width();
    view->setColumnWidth(VxDopeSheetView::NameColumn, indent + needed);
    QVERIFY(askForToolTip(name));
    QVERIFY(QToolTip::text().isEmpty());
    view->setColumnWidth(VxDopeSheetView::NameColumn, indent + needed - 1);
    QVERIFY(askForToolTip(name));
    QCOMPARE(QToolTip::text(), hip->getLabel());
}

void TestDopeSheetDelegates::fittingNameHidesTheFormerToolTip()
{
    showView();
    QToolTip::showText(view->mapToGlobal(QPoint(10, 10)), QStringLiteral("another"), view.get());
    QVERIFY(QToolTip::isVisible());
    QVERIFY(askForToolTip(rowOf(hip)));
    QTRY_VERIFY(!QToolTip::isVisible());
}

void TestDopeSheetDelegates::toolTipIsShownAtTheMouse()
{
    showView();
    hip->setLabel(QStringLiteral("A name that does not fit into a hundred pixels"));
    view->setColumnWidth(VxDopeSheetView::NameColumn, 100);
    QVERIFY(askForToolTip(rowOf(hip)));
    const QPoint mouse = view->viewport()->mapToGlobal(view->visualRect(rowOf(hip)).center());
    for (const QWidget *widget : QApplication::topLevelWidgets()) {
        if (widget->isVisible() && widget->windowFlags().testFlag(Qt::ToolTip)) {
            QVERIFY((widget->pos() - mouse).manhattanLength() < 60);
            return;
        }
    }
    QFAIL("there is no tool tip");
}

// The model's tool tip of such a cell is shown, as it is of a name that fits.
void TestDopeSheetDelegates::namesThatAreNoText()
{
    QStandardItemModel names(2, 1);
    names.setData(names.index(0, 0), QPixmap(400, 20), Qt::DisplayRole);
    names.setData(names.index(0, 0), QStringLiteral("a picture"), Qt::ToolTipRole);
    names.setData(names.index(1, 0), QStringLiteral("i"), Qt::DisplayRole);
    names.setData(names.index(1, 0), QStringLiteral("a letter"), Qt::ToolTipRole);
    QTreeView other;
    auto *delegate = new VxTimelineDopeSheetNameColumnDelegate(&other);
    other.setItemDelegate(delegate);
    other.setModel(&names);
    other.header()->setStretchLastSection(false);
    other.header()->setMinimumSectionSize(1);
    const auto ask = [&](int line, int width) {
        other.setColumnWidth(0, width);
        QHelpEvent event(QEvent::ToolTip, QPoint(), QPoint(50, 50));
        QStyleOptionViewItem option;
        option.initFrom(&other);
        option.decorationSize = QSize(400, 20);
        return delegate->helpEvent(&event, &other, option, names.index(line, 0));
    };
    other.show();
    QVERIFY(ask(0, 1));
    QCOMPARE(QToolTip::text(), QStringLiteral("a picture"));
    QVERIFY(ask(1, 200));
    QCOMPARE(QToolTip::text(), QStringLiteral("a letter"));
    QVERIFY(ask(1, 1));
    QCOMPARE(QToolTip::text(), QStringLiteral("i"));
}

void TestDopeSheetDelegates::otherHelpEventsReachTheBaseClass()
{
    showView();
    view->setColumnWidth(VxDopeSheetView::NameColumn, 30);
    QVERIFY(!askForToolTip(rowOf(hip), QEvent::WhatsThis));
    QVERIFY(QToolTip::text().isEmpty());
}

VX_TEST_MAIN(TestDopeSheetDelegates)
#include "tst_dopesheetdelegates.moc"
