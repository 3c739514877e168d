#include "testing/vxmousedriver.h"
#include "testing/vxscenebuilder.h"
#include "testing/vxsessionlength.h"
#include "testing/vxtestmain.h"
#include "timepanetestbase.h"
#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/keygraph/vxkeygraphview.h"
#include "vxtimeline/rows/vxdopesheetitem.h"

#include <QtGui/QScreen>
#include <QtGui/QWindow>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QScrollBar>
#include <random>
#include <vector>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxmainwindow.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxpanemgr.h>
#include <vxcore/vxskeleton.h>
#include <vxcore/vxstyle.h>

// What is on the screen after only some parts were painted anew is what a whole painting shows.
//
// The dope sheet paints no more than strips when the time moves, the key graph keeps a picture of
// its curves, the ruler and the playhead are notified of changes: whatever one of them fails to
// repaint is on the screen as a difference.
class TestTimePaneRepaint : public QObject, private TimePaneTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void theScreenCanBeRead();
    void randomSteps_data();
    void randomSteps();

private:
    QImage screen() const
    {
        return pane->windowHandle()
            ->screen()
            ->grabWindow(pane->winId())
            .toImage()
            .convertToFormat(QImage::Format_RGB32);
    }
    // Setting its graph again clears all caches of the key graph.
    QImage painted() const
    {
        m_graph->setKeyGraph(m_graph->getKeyGraph());
        return pane->grab().toImage().convertToFormat(QImage::Format_RGB32);
    }
    static void settle()
    {
        for (int i = 0; i < 4; ++i)
            QCoreApplication::processEvents();
    }
    // The smallest rectangle that holds every pixel in which the pictures differ. Gradients that
    // are cut elsewhere are rounded otherwise, which is none.
    static QRect difference(const QImage &a, const QImage &b);

    int any(int low, int high) { return std::uniform_int_distribution<>(low, high)(m_random); }
    QModelIndex anyRow();
    // A selected one, whose curve the key graph shows, as often as any other.
    QModelIndex anyRowOfKeys();
    VxFloatProperty *anyProperty();
    QString step();
    QString stepOfScene();
    QString stepOfRows();
    QString stepOfMouse();

    std::mt19937 m_random;
    std::unique_ptr<VxMainWindow> m_window;
    std::unique_ptr<VxSceneBuilder> m_builder;
    QVector<VxNode *> m_nodes;
    VxDopeSheetView *m_sheet = nullptr;
    VxKeyGraphView *m_graph = nullptr;
    std::unique_ptr<VxMouseDriver> m_mouse;
};

void TestTimePaneRepaint::init()
{
    QApplication::setCursorFlashTime(0);
    setUp();
    m_window = std::make_unique<VxMainWindow>();
    m_window->getPaneMgr()->addPane(pane.get());
    addChoices(TimePaneChoice::PropertyTypeFamily, {1, 2, 4, 8, 16, 32});
    pane->setFilteredPropertyTypes(VxTimePane::PropTranslate | VxTimePane::PropRotate);
    pane->setViewMode(VxTimePane::AdvancedView);
    vxApp->start();
    vxScene->setAnimRange(VxTimeRange(0, 160 * 60));
    vxScene->setPlayRange(VxTimeRange(0, 160 * 60));
    m_builder = std::make_unique<VxSceneBuilder>(vxScene);
    m_nodes = {m_builder->addNode(QStringLiteral("Hip")),
               m_builder->addNode(QStringLiteral("Ball"))};
    m_nodes += m_builder->addNode(QStringLiteral("Leg"), m_nodes.first());
    m_builder->keyChannels(m_nodes, 25, 320, VxSceneBuilder::KeyTypes::Mixed);
    showPane(1000, 640);
    m_sheet = pane->findChild<VxDopeSheetView *>();
    m_graph = pane->findChild<VxKeyGraphView *>();
    m_mouse = std::make_unique<VxMouseDriver>(pane.get());
    settle();
}

void TestTimePaneRepaint::cleanup()
{
    m_mouse.reset();
    m_builder.reset();
    tearDown();
    m_window.reset();
}

static bool areAlike(QRgb a, QRgb b)
{
    constexpr int Rounding = 2;
    return qAbs(qRed(a) - qRed(b)) <= Rounding && qAbs(qGreen(a) - qGreen(b)) <= Rounding &&
           qAbs(qBlue(a) - qBlue(b)) <= Rounding;
}

QRect TestTimePaneRepaint::difference(const QImage &a, const QImage &b)
{
    QRect found;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            if (!areAlike(a.pixel(x, y), b.pixel(x, y)))
                found |= QRect(x, y, 1, 1);
        }
    }
    return found;
}

// Otherwise the comparisons below would prove nothing.
void TestTimePaneRepaint::theScreenCanBeRead()
{
    const QImage before = screen();
    QCOMPARE(before.size(), pane->size());
    QCOMPARE(difference(before, painted()), QRect());
    vxScene->setTime(160 * 33);
    settle();
    QVERIFY(screen() != before);
    pane->setUpdatesEnabled(false);
    vxScene->setTime(160 * 12);
    settle();
    const QImage stale = screen();
    pane->setUpdatesEnabled(true);
    settle();
    QVERIFY(stale != screen());
}

QModelIndex TestTimePaneRepaint::anyRow()
{
    const QAbstractItemModel *model = m_sheet->model();
    QModelIndex row;
    for (int depth = any(1, 5); depth > 0; --depth) {
        const int count = model->rowCount(row);
        if (count == 0)
            break;
        row = model->index(any(0, count - 1), 0, row);
    }
    return row;
}

QModelIndex TestTimePaneRepaint::anyRowOfKeys()
{
    const QModelIndexList rows = m_sheet->selectionModel()->selectedRows();
    return rows.isEmpty() || any(0, 1) ? anyRow() : rows.at(any(0, rows.size() - 1));
}

VxFloatProperty *TestTimePaneRepaint::anyProperty()
{
    VxNode *node = m_nodes.at(any(0, m_nodes.size() - 1));
    return any(0, 1) ? node->getXPosControl() : node->getYRotControl();
}

QString TestTimePaneRepaint::stepOfScene()
{
    switch (any(0, 6)) {
    case 0:
    case 1:
        vxScene->setTime(160 * any(-2, 70));
        return QStringLiteral("time");
    case 2: {
        const int start = any(0, 40);
        vxScene->setPlayRange(VxTimeRange(160 * start, 160 * (start + any(1, 30))));
        return QStringLiteral("play range");
    }
    case 3:
        vxScene->setAnimRange(VxTimeRange(0, 160 * any(20, 90)));
        return QStringLiteral("animation range");
    case 4:
        vxScene->setTimeStep(any(0, 1) ? 160 : 200);
        return QStringLiteral("time step");
    case 5:
        anyProperty()->setKey(80 * any(0, 130), float(any(-9, 9)), any(0, 2));
        return QStringLiteral("key set");
    default:
        anyProperty()->deleteKeys(VxTimeRange(160 * any(0, 30), 160 * any(30, 60)));
        return QStringLiteral("keys deleted");
    }
}

QString TestTimePaneRepaint::stepOfRows()
{
    switch (any(0, 6)) {
    case 0:
        m_sheet->setExpanded(anyRow(), any(0, 2) > 0);
        return QStringLiteral("row opened or closed");
    case 1:
        m_sheet->setKeySelection(any(0, 2) > 0, anyRowOfKeys(), QModelIndex(), 160 * any(0, 30),
                                 160 * any(30, 70));
        return QStringLiteral("keys selected");
    case 2:
        m_sheet->clearSelectedKeys();
        return QStringLiteral("keys deselected");
    case 3:
        m_sheet->selectionModel()->select(anyRow(),
                                          QItemSelectionModel::Toggle | QItemSelectionModel::Rows);
        return QStringLiteral("row selected");
    case 4:
        m_nodes.at(any(0, m_nodes.size() - 1))->select(any(0, 1));
        return QStringLiteral("node selected");
    case 5:
        m_sheet->verticalScrollBar()->setValue(any(0, m_sheet->verticalScrollBar()->maximum()));
        return QStringLiteral("scrolled");
    default:
        m_sheet->header()->resizeSection(0, any(150, 300));
        return QStringLiteral("names' column resized");
    }
}

QString TestTimePaneRepaint::stepOfMouse()
{
    QWidget *widgets[] = {m_sheet->viewport(), m_sheet->header()->viewport(), m_graph};
    const QWidget *widget = widgets[any(0, 2)];
    if (!widget->isVisible())
        return QStringLiteral("nothing");
    const auto place = [&] {
        return widget->mapTo(pane.get(),
                             QPoint(any(0, widget->width() - 1), any(0, widget->height() - 1)));
    };
    switch (any(0, 2)) {
    case 0:
        m_mouse->moveTo(place());
        return QStringLiteral("mouse moved");
    case 1:
        m_mouse->click(place());
        return QStringLiteral("click");
    default:
        m_mouse->drag(place(), place());
        return QStringLiteral("drag");
    }
}

QString TestTimePaneRepaint::step()
{
    switch (any(0, 6)) {
    case 0:
    case 1:
        return stepOfScene();
    case 2:
    case 3:
        return stepOfRows();
    case 4:
        if (any(0, 3) == 0) {
            m_graph->frameKeys();
            return QStringLiteral("keys framed");
        }
        any(0, 1) ? vxApp->getUndoStack()->undo() : vxApp->getUndoStack()->redo();
        return QStringLiteral("undo or redo");
    default:
        return stepOfMouse();
    }
}

void TestTimePaneRepaint::randomSteps_data()
{
    QTest::addColumn<int>("seed");
    QTest::addColumn<bool>("light");
    QTest::newRow("dark") << 1 << false;
    QTest::newRow("light") << 2 << true;
}

void TestTimePaneRepaint::randomSteps()
{
    QFETCH(int, seed);
    QFETCH(bool, light);
    const int count = qEnvironmentVariableIsSet("VX_REPAINT_STEPS")
                          ? qEnvironmentVariableIntValue("VX_REPAINT_STEPS")
                          : vxSessionLength(80);
    m_random.seed(quint32(seed));
    vxApp->getStyle()->setColorScheme(light ? VxStyle::ColorScheme::Light
                                            : VxStyle::ColorScheme::Dark);
    pane->setKeyGraphOpen(true);
    m_sheet->expandAll();
    for (QModelIndex row = m_sheet->model()->index(0, 0); row.isValid();
         row = m_sheet->indexBelow(row)) {
        if (m_sheet->getItem(row)->property() == m_nodes.first()->getYPosControl())
            m_sheet->selectionModel()->select(row, QItemSelectionModel::Select |
                                                       QItemSelectionModel::Rows);
    }
    m_graph->frameKeys();
    settle();
    for (int i = 0; i < count; ++i) {
        const QString done = step();
        settle();
        const QImage shown = screen();
        const QImage expected = painted();
        const QRect differing = difference(shown, expected);
        if (!differing.isNull()) {
            shown.save(QStringLiteral("repaint-shown.png"));
            expected.save(QStringLiteral("repaint-expected.png"));
            QFAIL(qPrintable(QStringLiteral("step %1 (%2): %3,%4 %5 x %6")
                                 .arg(i)
                                 .arg(done)
                                 .arg(differing.x())
                                 .arg(differing.y())
                                 .arg(differing.width())
                                 .arg(differing.height())));
        }
    }
}

VX_TEST_MAIN(TestTimePaneRepaint)
#include "tst_timepanerepaint.moc"
