// The keyboard focus: where it is visible, and the order of the Tab key.

#include "studiotestbase.h"
#include "testing/vxtestmain.h"

#include <QAbstractItemView>
#include <QDialog>
#include <QSpinBox>
#include <QTimer>
#include <vxcore/vxscriptengine.h>
#include <vxcore/vxstyle.h>

namespace {

/// Fewer pixels than that are no ring: a text cursor has about 20.
constexpr int LeastPixels = 24;

QString nameOf(const QWidget *widget)
{
    const auto *button = qobject_cast<const QAbstractButton *>(widget);
    return (button && widget->objectName().isEmpty() ? button->text() : widget->objectName()) +
           QStringLiteral("(%1)").arg(QLatin1String(widget->metaObject()->className()));
}

bool isReachable(const QWidget *widget, const QWidget *root)
{
    if (!(widget->focusPolicy() & Qt::TabFocus) || !widget->isVisible() || !widget->isEnabled() ||
        widget->focusProxy())
        return false;
    // Docks in covered tabs are outside of the window.
    QRect rest = widget->rect();
    const QWidget *each = widget;
    for (; each != root && each->parentWidget(); each = each->parentWidget())
        rest = rest.translated(each->pos()) & each->parentWidget()->rect();
    return each == root && !rest.isEmpty();
}

/// The controls below a widget in the order of the Tab key.
QVector<QWidget *> tabChain(QWidget *root)
{
    QVector<QWidget *> chain;
    QWidget *widget = root;
    do {
        if (isReachable(widget, root))
            chain += widget;
        widget = widget->nextInFocusChain();
    } while (widget != root);
    return chain;
}

QWidget *commonAncestor(QWidget *a, QWidget *b)
{
    while (a && a != b && !a->isAncestorOf(b))
        a = a->parentWidget();
    return a;
}

/// The rectangle of the part of a container that has the widget.
QRect partWith(const QWidget *container, QWidget *widget)
{
    while (widget->parentWidget() && widget->parentWidget() != container)
        widget = widget->parentWidget();
    return {widget->mapTo(const_cast<QWidget *>(container), QPoint()), widget->size()};
}

/// Neighbours in the tab order of which the second is above, or left in the same line.
QStringList stepsBack(QWidget *root)
{
    QStringList steps;
    const QVector<QWidget *> chain = tabChain(root);
    for (int i = 1; i < chain.size(); ++i) {
        QWidget *container = commonAncestor(chain[i - 1], chain[i]);
        if (!container || container == chain[i - 1] || container == chain[i])
            continue;
        const QRect from = partWith(container, chain[i - 1]);
        const QRect to = partWith(container, chain[i]);
        const bool isAbove = to.bottom() <= from.top();
        const bool isBesides = to.top() < from.bottom() && from.top() < to.bottom();
        const bool isLeft = isBesides && to.right() <= from.left();
        if (isAbove || isLeft)
            steps += QStringLiteral("%1: %2 -> %3")
                         .arg(nameOf(root), nameOf(chain[i - 1]), nameOf(chain[i]));
    }
    return steps;
}

int differences(const QImage &first, const QImage &second)
{
    if (first.size() != second.size())
        return -1;
    int count = 0;
    for (int y = 0; y < first.height(); ++y) {
        for (int x = 0; x < first.width(); ++x)
            count += first.pixel(x, y) != second.pixel(x, y) ? 1 : 0;
    }
    return count;
}

/// The control as it is seen in its window, with what is painted over and around it.
QImage pictureOf(QWidget *widget)
{
    QWidget *window = widget->window();
    const QRect place(widget->mapTo(window, QPoint()), widget->size());
    return window->grab(place.adjusted(-3, -3, 3, 3)).toImage();
}

/// The controls whose picture hardly changes with the focus.
QStringList withoutRing(QWidget *root)
{
    if (!root->isActiveWindow())
        return {nameOf(root) + QStringLiteral(": not in the active window")};
    QStringList faults;
    // As after the Tab key.
    root->window()->setAttribute(Qt::WA_KeyboardFocusChange);
    const QVector<QWidget *> chain = tabChain(root);
    for (QWidget *widget : chain) {
        if (QWidget *focused = QApplication::focusWidget())
            focused->clearFocus();
        QCoreApplication::processEvents();
        const QImage before = pictureOf(widget);
        widget->setFocus(Qt::TabFocusReason);
        QCoreApplication::processEvents();
        const QImage after = pictureOf(widget);
        const int count = differences(before, after);
        if (count < LeastPixels)
            faults += QStringLiteral("%1: %2 pixels").arg(nameOf(widget)).arg(count);
    }
    return faults;
}

int reportAll(QStringList faults)
{
    faults.removeDuplicates();
    for (const QString &fault : qAsConst(faults))
        qInfo().noquote() << fault;
    return faults.size();
}

void collectActionsOf(const QMenu *menu, QVector<QAction *> *found)
{
    for (QAction *action : menu->actions()) {
        if (action->menu())
            collectActionsOf(action->menu(), found);
        else if (action->text().endsWith(QLatin1String("...")))
            *found += action;
    }
}

} // namespace

class tst_Focus : public QObject, private StudioTest
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs); }
    void init();
    void cleanup() { tearDown(); }

    void faultsAreFound();
    void tabOrderIsTheReadingOrderInPanes();
    void tabOrderIsTheReadingOrderInDialogs();
    void ringInPanes_data() { addPalettes(); }
    void ringInPanes();
    void ringInDialogs_data() { addPalettes(); }
    void ringInDialogs();

private:
    static void addPalettes();
    QStringList inEveryPane(const std::function<QStringList(QWidget *)> &check);
    QStringList inEveryDialog(const std::function<QStringList(QWidget *)> &check);
};

void tst_Focus::init()
{
    setUp();
    start({"--size", "1600x1000"});
    openSample();
    vxScene->setPrimarySelection(vxScene->findNodeByLabel(QStringLiteral("Left Thigh")));
    QCoreApplication::processEvents();
}

void tst_Focus::addPalettes()
{
    QTest::addColumn<VxStyle::ColorScheme>("palette");
    QTest::newRow("dark") << VxStyle::ColorScheme::Dark;
    QTest::newRow("light") << VxStyle::ColorScheme::Light;
    QTest::newRow("high contrast") << VxStyle::ColorScheme::Contrast;
}

QStringList tst_Focus::inEveryPane(const std::function<QStringList(QWidget *)> &check)
{
    QStringList faults;
    for (PaneDock *dock : window()->docks()->docks()) {
        dock->show();
        dock->raise();
        QCoreApplication::processEvents();
        faults += check(dock);
    }
    return faults;
}

QStringList tst_Focus::inEveryDialog(const std::function<QStringList(QWidget *)> &check)
{
    QVector<QAction *> actions;
    for (const QAction *bar : window()->menuBar()->actions())
        collectActionsOf(bar->menu(), &actions);
    QStringList faults;
    int dialogs = 0;
    bool isChecking = false;
    const auto checkOpen = [&] {
        QWidget *dialog = QApplication::activeModalWidget();
        if (!dialog || isChecking)
            return;
        isChecking = true;
        if (!dialog->inherits("QFileDialog")) {
            dialog->activateWindow();
            if (QTest::qWaitForWindowActive(dialog))
                faults += check(dialog);
            ++dialogs;
        }
        dialog->close();
        isChecking = false;
    };
    for (QAction *action : qAsConst(actions)) {
        QTimer timer;
        connect(&timer, &QTimer::timeout, this, checkOpen);
        timer.start(5);
        action->trigger();
    }
    if (dialogs < 6)
        faults += QStringLiteral("only %1 dialogs").arg(dialogs);
    return faults;
}

/// What the helpers are for: an order against the eye, and a control without a ring.
void tst_Focus::faultsAreFound()
{
    struct Plain : QAbstractButton
    {
        using QAbstractButton::QAbstractButton;
        void paintEvent(QPaintEvent *) override {}
    };
    QWidget root;
    root.resize(300, 100);
    auto *left = new QLineEdit(&root);
    auto *right = new QLineEdit(&root);
    auto *below = new Plain(&root);
    left->resize(100, 30);
    right->setGeometry(150, 0, 100, 30);
    below->setGeometry(0, 50, 100, 30);
    below->setFocusPolicy(Qt::StrongFocus);
    root.show();
    root.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&root));
    QCOMPARE(stepsBack(&root).size(), 0);
    QCOMPARE(withoutRing(&root).size(), 1);
    QWidget::setTabOrder(right, left);
    QWidget::setTabOrder(left, below);
    QCOMPARE(stepsBack(&root).size(), 1);
    QWidget::setTabOrder(below, left);
    QCOMPARE(stepsBack(&root).size(), 1);
}

void tst_Focus::tabOrderIsTheReadingOrderInPanes()
{
    QCOMPARE(reportAll(inEveryPane(stepsBack)), 0);
}

void tst_Focus::tabOrderIsTheReadingOrderInDialogs()
{
    QCOMPARE(reportAll(inEveryDialog(stepsBack)), 0);
}

void tst_Focus::ringInPanes()
{
    QFETCH(VxStyle::ColorScheme, palette);
    vxApp->getStyle()->setColorScheme(palette);
    QCOMPARE(reportAll(inEveryPane(withoutRing)), 0);
}

void tst_Focus::ringInDialogs()
{
    QFETCH(VxStyle::ColorScheme, palette);
    vxApp->getStyle()->setColorScheme(palette);
    QCOMPARE(reportAll(inEveryDialog(withoutRing)), 0);
}

VX_TEST_MAIN(tst_Focus)
#include "tst_focus.moc"
