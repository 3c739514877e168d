#include "dopesheettestbase.h"
#include "testing/vxmousedriver.h"
#include "testing/vxpaintwatch.h"
#include "testing/vxtestmain.h"
#include "vxtimeline/pane/vxtimepane.h"

#include <vector>
#include <vxcore/vxmainwindow.h>
#include <vxcore/vxpanemgr.h>

namespace {

// A style that records what the view draws with it, in order.
class ViewStyle : public VxStyle
{
public:
    enum What { NameColumn, KeyMark, Band };
    struct Drawn
    {
        What what;
        QRect rect;
    };

    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override
    {
        if (element == static_cast<PrimitiveElement>(PE_VxTimelineNameColumn))
            drawn.push_back({NameColumn, option->rect});
        else if (element == static_cast<PrimitiveElement>(PE_VxKeyMark))
            drawn.push_back({KeyMark, option->rect});
        VxStyle::drawPrimitive(element, option, painter, widget);
    }
    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                     const QWidget *widget) const override
    {
        if (element == CE_RubberBand)
            drawn.push_back({Band, option->rect});
        VxStyle::drawControl(element, option, painter, widget);
    }

    std::vector<QRect> rectsOf(What what) const
    {
        std::vector<QRect> rects;
        for (const Drawn &thing : drawn) {
            if (thing.what == what)
                rects.push_back(thing.rect);
        }
        return rects;
    }

    mutable std::vector<Drawn> drawn;
};

// The names of a view's rows, painted by the tree view itself.
class NamesOnly : public QTreeView
{
public:
    explicit NamesOnly(const VxDopeSheetView *view)
    {
        setModel(view->model());
        setSelectionModel(view->selectionModel());
        setItemDelegateForColumn(0, view->itemDelegateForColumn(0));
        setStyle(view->style());
        setPalette(view->palette());
        setIndentation(view->indentation());
        setSelectionBehavior(SelectRows);
        resize(view->size());
        header()->setFixedHeight(view->header()->height());
        setColumnWidth(0, view->columnWidth(0));
        setEnabled(view->isEnabled());
    }
    void open(const QModelIndex &row, const VxDopeSheetView *view)
    {
        setExpanded(row, view->isExpanded(row));
        for (int i = 0; i < model()->rowCount(row); ++i)
            open(model()->index(i, 0, row), view);
    }

protected:
    void paintEvent(QPaintEvent *event) override
    {
        {
            QPainter painter(viewport());
            QStyleOption option;
            option.initFrom(this);
            option.rect = QRect(0, 0, columnWidth(0) - 1, viewport()->height());
            style()->drawPrimitive(
                static_cast<QStyle::PrimitiveElement>(VxStyle::PE_VxTimelineNameColumn), &option,
                &painter, this);
        }
        QTreeView::paintEvent(event);
    }
};

} // namespace

// What the dope sheet view draws with its style, and when it is repainted.
class TestDopeSheetViewPaint : public QObject, private DopeSheetTest
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        setUp();
        style = new ViewStyle;
        app->setStyle(style);
        addKeys(hip->getXPosControl(), {1600});
        showView();
    }
    void cleanup() { tearDown(); }

    void nameColumnFirst();
    void bandLast_data();
    void bandLast();
    void noBandWhileKeysAreDragged();

    void namesAreDrawnAsByTheTreeView_data();
    void namesAreDrawnAsByTheTreeView();
    void selectionRepaints();
    void messageRepaints();
    void updateRepaintsTheHeader();
    void graphChannelsRepaint();

private:
    ViewStyle *style = nullptr; // the application's
};

void TestDopeSheetViewPaint::nameColumnFirst()
{
    style->drawn.clear();
    view->viewport()->grab();
    QCOMPARE(int(style->rectsOf(ViewStyle::NameColumn).size()), 1);
    QCOMPARE(int(style->drawn.front().what), int(ViewStyle::NameColumn));
    QCOMPARE(style->drawn.front().rect,
             QRect(QPoint(0, 0), QPoint(198, view->viewport()->height() - 1)));
    QCOMPARE(style->rectsOf(ViewStyle::KeyMark), std::vector<QRect>{QRect(302, 5, 10, 10)});
    QVERIFY(style->rectsOf(ViewStyle::Band).empty());
}

void TestDopeSheetViewPaint::bandLast_data()
{
    QTest::addColumn<QPoint>("to");
    QTest::newRow("to the right and down") << QPoint(520, 340);
    QTest::newRow("to the left and up") << QPoint(380, 260);
    QTest::newRow("to the right and up") << QPoint(520, 260);
}

// From the smaller to the larger position, the last column and row left out.
void TestDopeSheetViewPaint::bandLast()
{
    QFETCH(QPoint, to);
    const QPoint from(400, 300);
    VxMouseDriver mouse(view->viewport());
    mouse.press(from);
    mouse.moveTo(to);
    style->drawn.clear();
    view->viewport()->grab();
    const QRect wanted(QPoint(qMin(from.x(), to.x()), qMin(from.y(), to.y())),
                       QPoint(qMax(from.x(), to.x()) - 1, qMax(from.y(), to.y()) - 1));
    QCOMPARE(style->rectsOf(ViewStyle::Band), std::vector<QRect>{wanted});
    QCOMPARE(int(style->drawn.back().what), int(ViewStyle::Band));
    mouse.release(to);
    style->drawn.clear();
    view->viewport()->grab();
    QVERIFY(style->rectsOf(ViewStyle::Band).empty());
}

void TestDopeSheetViewPaint::noBandWhileKeysAreDragged()
{
    VxMouseDriver mouse(view->viewport());
    mouse.press(QPoint(307, 10));
    mouse.moveTo(QPoint(407, 30));
    style->drawn.clear();
    view->viewport()->grab();
    QVERIFY(style->rectsOf(ViewStyle::Band).empty());
    mouse.release(QPoint(307, 10));
}

void TestDopeSheetViewPaint::namesAreDrawnAsByTheTreeView_data()
{
    QTest::addColumn<bool>("isDark");
    QTest::addColumn<bool>("isEnabled");
    QTest::addColumn<int>("nameWidth");
    QTest::newRow("dark") << true << true << 200;
    QTest::newRow("light") << false << true << 200;
    QTest::newRow("disabled") << true << false << 200;
    QTest::newRow("column narrower than the branches") << true << true << 40;
}

// Selected and open rows, the current row, rows without others below.
void TestDopeSheetViewPaint::namesAreDrawnAsByTheTreeView()
{
    QFETCH(bool, isDark);
    QFETCH(bool, isEnabled);
    QFETCH(int, nameWidth);
    if (!isDark)
        style->setColorScheme(VxStyle::ColorScheme::Light);
    view->setColumnWidth(0, nameWidth);
    view->setEnabled(isEnabled);
    QApplication::setActiveWindow(view.get());
    for (const QModelIndex &row :
         {rowOf(hip), model->index(0, 0, rowOf(hip)), groupOf(hip), rowOf(leg)})
        view->expand(row);
    view->selectionModel()->select(rowOf(hip),
                                   QItemSelectionModel::Select | QItemSelectionModel::Rows);
    view->setCurrentIndex(translationOf(hip, 1));
    QVERIFY(view->isRowSelected(translationOf(hip, 1)));
    view->selectionModel()->select(rowOf(leg),
                                   QItemSelectionModel::Select | QItemSelectionModel::Rows);
    const QRect column(0, 0, nameWidth - 2, 300);
    view->setFocus();
    const QImage shown = view->viewport()->grab(column).toImage();
    NamesOnly names(view.get());
    names.show();
    names.open(QModelIndex(), view.get());
    QApplication::setActiveWindow(&names);
    names.setFocus();
    QCOMPARE(names.hasFocus(), isEnabled);
    QCOMPARE(shown, names.viewport()->grab(column).toImage());
}

void TestDopeSheetViewPaint::selectionRepaints()
{
    QCoreApplication::processEvents();
    VxPaintWatch rows(view->viewport());
    view->setKeySelection(true);
    QTRY_VERIFY(rows.count > 0);
}

void TestDopeSheetViewPaint::messageRepaints()
{
    QCoreApplication::processEvents();
    VxPaintWatch rows(view->viewport());
    view->handleKeyMessage(VxKeyMessage());
    QTRY_VERIFY(rows.count > 0);
}

void TestDopeSheetViewPaint::updateRepaintsTheHeader()
{
    QCoreApplication::processEvents();
    VxPaintWatch rows(view->viewport());
    VxPaintWatch ruler(header->viewport());
    view->doUpdate();
    QTRY_VERIFY(rows.count > 0);
    QTRY_VERIFY(ruler.count > 0);
}

// From the start of the application on.
void TestDopeSheetViewPaint::graphChannelsRepaint()
{
    VxMainWindow window;
    auto *pane = new VxTimePane;
    window.getPaneMgr()->addPane(pane);
    QCoreApplication::processEvents();
    VxPaintWatch rows(view->viewport());
    Q_EMIT pane->graphChannelListChanged({hip->getXPosControl()});
    QCoreApplication::processEvents();
    QCOMPARE(rows.count, 0);
    vxApp->start();
    QCoreApplication::processEvents();
    rows.count = 0;
    Q_EMIT pane->graphChannelListChanged({hip->getXPosControl()});
    QTRY_VERIFY(rows.count > 0);
}

VX_TEST_MAIN(TestDopeSheetViewPaint)
#include "tst_dopesheetviewpaint.moc"
