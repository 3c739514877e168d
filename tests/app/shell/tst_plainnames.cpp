#include "markers/markerstrip.h"
#include "recovery/recoverydialog.h"
#include "studiotestbase.h"
#include "testing/vxtestmain.h"

#include <QAbstractItemView>
#include <QLabel>
#include <QTextDocument>
#include <QToolTip>
#include <vxcore/vxmarkers.h>

namespace {

// As markup it would show a picture of the disk instead of the name.
const QString Name = QStringLiteral("<img src='/usr/share/x.png'> Leg & \"foot\"");

// What a tool tip with this text shows.
QString shown(const QString &toolTip)
{
    QTextDocument document;
    if (Qt::mightBeRichText(toolTip))
        document.setHtml(toolTip);
    else
        document.setPlainText(toolTip);
    return document.toPlainText();
}

// The tool tips of all rows below a parent, as shown.
void collectToolTips(const QAbstractItemModel *model, const QModelIndex &parent, QStringList *tips)
{
    for (int row = 0; row < model->rowCount(parent); ++row) {
        for (int column = 0; column < model->columnCount(parent); ++column)
            tips->append(shown(model->index(row, column, parent).data(Qt::ToolTipRole).toString()));
        collectToolTips(model, model->index(row, 0, parent), tips);
    }
}

} // namespace

// Names in files are untrusted: they are shown as they are written, never read as markup.
class TestPlainNames : public QObject, private StudioTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void toolTipsOfEveryList();
    void toolTipOfAMarker();
    void toolTipsOfRecoveryCopies();
    void labelsThatNameThings();
};

void TestPlainNames::toolTipsOfEveryList()
{
    start();
    auto *node = new VxNode(Name);
    vxScene->addNode(node);
    vxScene->setPrimarySelection(node);
    for (PaneDock *dock : window()->docks()->docks())
        dock->show();
    QCoreApplication::processEvents();
    int numNamed = 0;
    for (const QAbstractItemView *view : window()->findChildren<QAbstractItemView *>()) {
        QStringList tips;
        if (view->model())
            collectToolTips(view->model(), QModelIndex(), &tips);
        for (const QString &tip : qAsConst(tips)) {
            QVERIFY2(!tip.contains("Leg ") || tip.contains(Name), qPrintable(tip));
            numNamed += tip.contains(Name);
        }
    }
    QVERIFY(numNamed > 1);
    // The title of the parameters.
    for (const QWidget *widget : window()->findChildren<QWidget *>()) {
        const QString tip = shown(widget->toolTip());
        QVERIFY2(!tip.contains("Leg ") || tip.contains(Name), qPrintable(tip));
    }
}

void TestPlainNames::toolTipOfAMarker()
{
    start();
    VxMarker marker;
    marker.name = Name;
    VxMarkers::of(vxScene)->add(marker);
    auto *strip = window()->findChild<MarkerStrip *>();
    QVERIFY(strip);
    QString tip;
    for (int x = 0; x < strip->width() && !tip.contains("Leg "); ++x) {
        QHelpEvent event(QEvent::ToolTip, {x, strip->height() / 2},
                         strip->mapToGlobal({x, strip->height() / 2}));
        QCoreApplication::sendEvent(strip, &event);
        tip = shown(QToolTip::text());
    }
    QToolTip::hideText();
    QVERIFY2(tip.contains(Name), qPrintable(tip));
}

void TestPlainNames::toolTipsOfRecoveryCopies()
{
    RecoveryCopy copy;
    copy.title = Name;
    copy.documentFile = QStringLiteral("/home/<b>me</b>/walk.vxscene");
    RecoveryDialog dialog({copy}, nullptr);
    const auto *view = dialog.findChild<QAbstractItemView *>();
    QStringList tips;
    collectToolTips(view->model(), QModelIndex(), &tips);
    QVERIFY2(tips.contains(Name), qPrintable(tips.join('|')));
    QVERIFY2(tips.contains(QStringLiteral("/home/<b>me</b>")), qPrintable(tips.join('|')));
}

void TestPlainNames::labelsThatNameThings()
{
    start();
    for (PaneDock *dock : window()->docks()->docks())
        dock->show();
    for (const char *name : {"targets", "result", "message"}) {
        const auto *label = window()->findChild<QLabel *>(QLatin1String(name));
        QVERIFY2(label, name);
        QVERIFY2(label->textFormat() == Qt::PlainText, name);
    }
}

VX_TEST_MAIN(TestPlainNames)
#include "tst_plainnames.moc"
