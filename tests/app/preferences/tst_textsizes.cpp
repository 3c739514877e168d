// Texts of 8 to 24 points in the whole program: none is cut off.

#include "studiotestbase.h"
#include "testing/vxtestmain.h"
#include "textfit.h"

#include <QDialog>
#include <QTimer>
#include <vxcore/vxscriptengine.h>
#include <vxcore/vxstyle.h>

namespace {

/// The timeline's fields have given sizes, and fit their texts by themselves.
bool isFieldOfTheTimeline(const QString &fault)
{
    return fault.startsWith(QLatin1String("Timeline")) &&
           (fault.contains(QLatin1String("SBox(")) || fault.contains(QLatin1String("LEdit(")));
}

int reportFaults(QStringList faults, const QString &where)
{
    faults.erase(std::remove_if(faults.begin(), faults.end(), isFieldOfTheTimeline), faults.end());
    for (const QString &fault : qAsConst(faults))
        qInfo().noquote() << where << fault;
    return faults.size();
}

void collectMenus(const QWidget *bar, QVector<QMenu *> *menus)
{
    for (const QAction *action : bar->actions()) {
        if (QMenu *menu = action->menu()) {
            *menus += menu;
            collectMenus(menu, menus);
        }
    }
}

} // namespace

class tst_TextSizes : public QObject, private StudioTest
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs); }
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void faultsAreFound();
    void everyPane_data() { addSizes(); }
    void everyPane();
    void everyMenu_data() { addSizes(); }
    void everyMenu();
    void everyDialog_data() { addSizes(); }
    void everyDialog();
    void changeInARunningWindow();

private:
    static void addSizes();
    void startWith(int size);
    int faultsOfPanes();
};

void tst_TextSizes::addSizes()
{
    QTest::addColumn<int>("size");
    for (const int size : {8, 12, 18, 24})
        QTest::addRow("%d points", size) << size;
}

void tst_TextSizes::startWith(int size)
{
    start({"--text-size", QString::number(size), "--size", "1600x1000"});
    openSample();
    vxScene->setPrimarySelection(vxScene->findNodeByLabel(QStringLiteral("Left Thigh")));
}

/// What the helper is for: texts in widgets that are too small.
void tst_TextSizes::faultsAreFound()
{
    QWidget parent;
    parent.resize(400, 300);
    QLabel label(QStringLiteral("Frames per second"), &parent);
    QPushButton button(QStringLiteral("Frames per second"), &parent);
    button.move(0, 50);
    QComboBox combo(&parent);
    combo.addItem(QStringLiteral("Frames per second"));
    combo.move(0, 100);
    QLabel wrapped(QStringLiteral("Frames per second and more frames per second"), &parent);
    wrapped.setWordWrap(true);
    wrapped.move(0, 150);
    for (QWidget *widget : {static_cast<QWidget *>(&label), static_cast<QWidget *>(&button),
                            static_cast<QWidget *>(&combo)})
        widget->resize(widget->sizeHint());
    wrapped.resize(100, wrapped.heightForWidth(100));
    parent.show();
    QCOMPARE(TextFit::faults(&parent), QStringList());
    label.resize(40, 20);
    button.resize(40, 20);
    combo.resize(40, 20);
    wrapped.resize(100, 20);
    QCOMPARE(TextFit::faults(&parent).size(), 5); // the button's two
    QFont own = label.font();
    own.setPointSizeF(own.pointSizeF() / 2);
    wrapped.setFont(own);
    QCOMPARE(TextFit::faults(&parent).size(), 5);
}

int tst_TextSizes::faultsOfPanes()
{
    int faults = 0;
    for (const int mode : {0, 1, 2}) {
        vxApp->getScriptEngine()->evaluate(
            QStringLiteral("App.findPane('VxTimePane').setViewMode(%1)").arg(mode),
            QStringLiteral("test"), nullptr);
        QCoreApplication::processEvents();
        faults += reportFaults(TextFit::faults(window()), QStringLiteral("mode %1:").arg(mode));
    }
    for (PaneDock *dock : window()->docks()->docks()) {
        dock->show();
        dock->raise();
        QCoreApplication::processEvents();
        faults += reportFaults(TextFit::faults(dock), dock->windowTitle() + QStringLiteral(":"));
    }
    return faults;
}

void tst_TextSizes::everyPane()
{
    QFETCH(int, size);
    startWith(size);
    QCOMPARE(faultsOfPanes(), 0);
}

void tst_TextSizes::everyMenu()
{
    QFETCH(int, size);
    startWith(size);
    QVector<QMenu *> menus;
    collectMenus(window()->menuBar(), &menus);
    QVERIFY(menus.size() > 10);
    QStringList faults;
    for (QMenu *menu : menus) {
        menu->popup(QPoint(0, 0));
        for (QAction *action : menu->actions()) {
            const QString text = action->text().section(QLatin1Char('\t'), 0, 0);
            const QSize needed = menu->fontMetrics().size(Qt::TextShowMnemonic, text);
            const QSize given = menu->actionGeometry(action).size();
            // With the shortcut beside it.
            const int keys = menu->fontMetrics().horizontalAdvance(
                action->shortcut().toString(QKeySequence::NativeText));
            if (!action->isSeparator() && action->isVisible() &&
                (needed.width() + keys > given.width() || needed.height() > given.height()))
                faults += menu->title() + QStringLiteral(" > ") + text;
        }
        menu->close();
    }
    QCOMPARE(reportFaults(faults, QStringLiteral("menu")), 0);
}

void tst_TextSizes::everyDialog()
{
    QFETCH(int, size);
    startWith(size);
    QVector<QMenu *> menus;
    collectMenus(window()->menuBar(), &menus);
    int faults = 0;
    QStringList titles;
    const auto checkDialog = [&] {
        for (QWidget *dialog : QApplication::topLevelWidgets()) {
            if (!dialog->isVisible() || !qobject_cast<QDialog *>(dialog))
                continue;
            if (!dialog->inherits("QFileDialog")) {
                titles += dialog->windowTitle();
                faults += reportFaults(TextFit::faults(dialog), dialog->windowTitle());
                // Of a common screen, less the frame and the desktop's bars.
                if (dialog->width() > 1500 || dialog->height() > 900)
                    faults += reportFaults({QStringLiteral("too large: %1x%2")
                                                .arg(dialog->width())
                                                .arg(dialog->height())},
                                           dialog->windowTitle());
            }
            dialog->close();
        }
    };
    for (const QMenu *menu : menus) {
        for (QAction *action : menu->actions()) {
            const bool opensDialog = action->text().endsWith(QLatin1String("...")) ||
                                     action->objectName() == QLatin1String("StudioAbout") ||
                                     action->objectName() == QLatin1String("StudioKeyOverview");
            if (!opensDialog)
                continue;
            QTimer timer;
            connect(&timer, &QTimer::timeout, this, checkDialog);
            timer.start(5);
            action->trigger();
            checkDialog();
        }
    }
    titles.removeDuplicates();
    QVERIFY2(titles.size() >= 8, qPrintable(titles.join(", ")));
    QCOMPARE(faults, 0);
}

/// Without a new start, and back again.
void tst_TextSizes::changeInARunningWindow()
{
    startWith(10);
    for (const int size : {24, 8, 18}) {
        vxApp->getStyle()->setTextSize(size);
        QCoreApplication::processEvents();
        QCOMPARE(faultsOfPanes(), 0);
    }
}

VX_TEST_MAIN(tst_TextSizes)
#include "tst_textsizes.moc"
