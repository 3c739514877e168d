#include "monkey.h"

#include "document/documentcontroller.h"
#include "monkeyscripts.h"
#include "shell/studiowindow.h"

#include <QApplication>
#include <QDialog>
#include <QDockWidget>
#include <QFileDialog>
#include <QMenu>
#include <QMenuBar>
#include <QTimer>
#include <cmath>
#include <vxcore/vxaction.h>
#include <vxcore/vxactionmgr.h>
#include <vxcore/vxapp.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxnumericproperty.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxscriptengine.h>
#include <vxcore/vxstyle.h>

// Exported by QtGui for its test library: the only entrance that offers keys to shortcuts first.
Q_GUI_EXPORT void qt_handleKeyEvent(QWindow *window, QEvent::Type type, int key,
                                    Qt::KeyboardModifiers modifiers, const QString &text,
                                    bool isRepeat, ushort count);

namespace {

constexpr int DeepestNesting = 6; // menus and dialogs within each other
constexpr int LongestDrag = 60;   // moves
constexpr int EventsPerDocument = 8000;
constexpr int EventsPerCheck = 2000;
constexpr int EventsPerWidgetList = 50;
constexpr int MaxNodes = 600;
constexpr int Outside = 40; // pixels around a window that the mouse leaves it by

constexpr Qt::Key keys[] = {
    Qt::Key_Left, Qt::Key_Right,   Qt::Key_Up,       Qt::Key_Down,     Qt::Key_Home,
    Qt::Key_End,  Qt::Key_Space,   Qt::Key_Delete,   Qt::Key_Escape,   Qt::Key_Return,
    Qt::Key_Tab,  Qt::Key_Backtab, Qt::Key_PageUp,   Qt::Key_F2,       Qt::Key_PageDown,
    Qt::Key_A,    Qt::Key_C,       Qt::Key_F,        Qt::Key_K,        Qt::Key_N,
    Qt::Key_V,    Qt::Key_X,       Qt::Key_Y,        Qt::Key_Z,        Qt::Key_0,
    Qt::Key_1,    Qt::Key_7,       Qt::Key_Minus,    Qt::Key_Plus,     Qt::Key_Period,
    Qt::Key_F1,   Qt::Key_Menu,    Qt::Key_Asterisk, Qt::Key_Backspace};

constexpr Qt::DockWidgetArea areas[] = {Qt::LeftDockWidgetArea, Qt::RightDockWidgetArea,
                                        Qt::TopDockWidgetArea, Qt::BottomDockWidgetArea};

QString nameOf(const QWidget *widget)
{
    return widget ? QStringLiteral("%1 %2").arg(QLatin1String(widget->metaObject()->className()),
                                                widget->objectName())
                  : QStringLiteral("nothing");
}

bool hasSortedKeys(const VxProperty *property)
{
    const auto *number = qobject_cast<const VxNumericProperty *>(property);
    for (int i = 0; number && i < number->getNumKeys(); ++i) {
        if (!std::isfinite(number->getKeyDoubleValue(i)) ||
            (i > 0 && number->getKeyTime(i - 1) >= number->getKeyTime(i)))
            return false;
    }
    return true;
}

} // namespace

Monkey::Monkey(StudioWindow *window, const Options &options)
    : m_window(window)
    , m_options(options)
    , m_random(options.seed)
{
    if (!options.logFile.isEmpty() && !m_log.open(options.logFile))
        m_failures.append(QStringLiteral("The log %1 cannot be written.").arg(options.logFile));
}

void Monkey::start()
{
    QTimer::singleShot(0, this, &Monkey::step);
}

QString Monkey::report() const
{
    QString lines;
    for (auto kind = m_counts.begin(); kind != m_counts.end(); ++kind)
        lines += QStringLiteral("%1 %2\n").arg(QLatin1String(kind.key()), -28).arg(kind.value(), 9);
    return lines;
}

void Monkey::count(const char *kind, const QString &what)
{
    ++m_counts[kind];
    m_log.write(m_done, QLatin1String(kind) + QLatin1Char(' ') + what);
}

void Monkey::step()
{
    if (m_done >= m_options.events) {
        m_mouse.release(m_window, Qt::NoModifier);
        if (!closeDialogs())
            Q_EMIT finished();
        else
            QTimer::singleShot(0, this, &Monkey::step);
        return;
    }
    // Before the event: it may open a menu, a dialog or a drag with a loop of its own.
    QTimer::singleShot(0, this, &Monkey::step);
    ++m_done;
    ++m_depth;
    if (!m_window->isVisible())
        m_window->show();
    act();
    --m_depth;
}

void Monkey::act()
{
    static constexpr Kind kinds[] = {
        {&Monkey::moveMouse, 300},    {&Monkey::pressMouse, 120}, {&Monkey::clickTwice, 15},
        {&Monkey::turnWheel, 40},     {&Monkey::pressKey, 120},   {&Monkey::openMenu, 6},
        {&Monkey::triggerAction, 30}, {&Monkey::moveDock, 12},    {&Monkey::resizeSomething, 5},
        {&Monkey::runScript, 40},
    };
    static constexpr Kind heldKinds[] = {
        {&Monkey::moveMouse, 500}, {&Monkey::releaseMouse, 120}, {&Monkey::pressKey, 15},
        {&Monkey::turnWheel, 5},   {&Monkey::triggerAction, 8},  {&Monkey::moveDock, 12},
        {&Monkey::runScript, 10},
    };
    if (m_done % EventsPerCheck == 0)
        checkScene();
    if (m_done % EventsPerDocument == 0 || vxScene->getNumNodes() > MaxNodes) {
        reopen();
        return;
    }
    if ((m_depth > DeepestNesting ||
         qobject_cast<QFileDialog *>(QApplication::activeModalWidget())) &&
        closeDialogs())
        return;
    if (m_mouse.isPressed() && m_heldMoves > LongestDrag) {
        releaseMouse();
        return;
    }
    if (m_options.redocks > 0 && m_random.chance(m_options.redocks)) {
        moveDock();
        return;
    }
    const Kind *const first = m_mouse.isPressed() ? heldKinds : kinds;
    const int number = int(m_mouse.isPressed() ? std::size(heldKinds) : std::size(kinds));
    int total = 0;
    for (int i = 0; i < number; ++i)
        total += first[i].weight;
    int at = m_random.below(total);
    const Kind *kind = first;
    for (; at >= kind->weight; ++kind)
        at -= kind->weight;
    (this->*kind->act)();
}

/** Closes the popup or dialog in front. False when there is none. */
bool Monkey::closeDialogs()
{
    if (QWidget *popup = QApplication::activePopupWidget()) {
        count("popup closed", nameOf(popup));
        popup->close();
        return true;
    }
    if (QWidget *modal = QApplication::activeModalWidget()) {
        count("dialog closed", nameOf(modal));
        if (auto *dialog = qobject_cast<QDialog *>(modal))
            dialog->reject();
        else
            modal->close();
        return true;
    }
    return false;
}

/** What the user could reach now: the popup, else the dialog, else one of the windows. */
QWidget *Monkey::targetWindow()
{
    if (QWidget *popup = QApplication::activePopupWidget())
        return popup;
    if (QWidget *modal = QApplication::activeModalWidget())
        return modal;
    if (m_random.chance(70))
        return m_window;
    QVector<QWidget *> windows;
    for (QWidget *top : QApplication::topLevelWidgets()) {
        if (top->isVisible() && top->windowHandle() && top->windowType() != Qt::ToolTip)
            windows.append(top);
    }
    return windows.isEmpty() ? m_window.data() : m_random.pick(windows);
}

QWidget *Monkey::randomWidget(const QWidget *top)
{
    if (m_widgetsOf != top || m_done % EventsPerWidgetList == 0) {
        m_widgetsOf = const_cast<QWidget *>(top);
        m_widgets.clear();
        for (QWidget *child : top->findChildren<QWidget *>()) {
            if (child->isVisible() && child->window() == top)
                m_widgets.append(child);
        }
    }
    QWidget *widget = m_widgets.isEmpty() ? nullptr : m_random.pick(m_widgets).data();
    return widget && widget->isVisible() && widget->window() == top ? widget : nullptr;
}

/** Global; half of the time within a widget whatever its size, else anywhere in the window. */
QPoint Monkey::targetPosition(const QWidget *top)
{
    const QWidget *widget = m_random.chance(60) ? randomWidget(top) : nullptr;
    if (!widget)
        widget = top;
    return widget->mapToGlobal(m_random.pointIn(widget->rect()));
}

Qt::KeyboardModifiers Monkey::modifiers()
{
    if (m_random.chance(70))
        return Qt::NoModifier;
    Qt::KeyboardModifiers held;
    if (m_random.chance(50))
        held |= Qt::ControlModifier;
    if (m_random.chance(40))
        held |= Qt::ShiftModifier;
    if (m_random.chance(20))
        held |= Qt::AltModifier;
    return held;
}

void Monkey::moveMouse()
{
    QWidget *top = targetWindow();
    if (!m_mouse.isPressed()) {
        const QPoint to = targetPosition(top);
        count("mouse move", nameOf(top));
        m_mouse.moveTo(top, to, modifiers());
        return;
    }
    ++m_heldMoves;
    QPoint to = m_mouse.position() + QPoint(m_random.between(-25, 25), m_random.between(-15, 15));
    if (m_random.chance(10))
        to = m_window->mapToGlobal(
            m_random.pointIn(m_window->rect().adjusted(-Outside, -Outside, Outside, Outside)));
    count("mouse drag", QStringLiteral("%1 %2").arg(to.x()).arg(to.y()));
    m_mouse.moveTo(top, to, modifiers());
}

void Monkey::pressMouse()
{
    QWidget *top = targetWindow();
    const QPoint at = targetPosition(top);
    const int roll = m_random.below(100);
    const Qt::MouseButton button = roll < 80   ? Qt::LeftButton
                                   : roll < 90 ? Qt::RightButton
                                               : Qt::MiddleButton;
    count("mouse press", QStringLiteral("%1 of %2, %3")
                             .arg(button)
                             .arg(nameOf(top->childAt(top->mapFromGlobal(at))), nameOf(top)));
    m_heldMoves = 0;
    m_mouse.press(top, at, button, modifiers());
}

void Monkey::clickTwice()
{
    QWidget *top = targetWindow();
    const QPoint at = targetPosition(top);
    const Qt::KeyboardModifiers held = modifiers();
    count("mouse double click", nameOf(top->childAt(top->mapFromGlobal(at))));
    m_mouse.press(top, at, Qt::LeftButton, held);
    m_mouse.release(m_window, held);
    m_heldMoves = 0;
    m_mouse.pressAgain(targetWindow(), held);
}

void Monkey::releaseMouse()
{
    count("mouse release");
    m_mouse.release(m_window, modifiers());
}

void Monkey::turnWheel()
{
    QWidget *top = targetWindow();
    const QPoint at = m_mouse.isPressed() ? m_mouse.position() : targetPosition(top);
    count("wheel", nameOf(top->childAt(top->mapFromGlobal(at))));
    m_mouse.wheel(top, at, m_random.chance(50) ? 120 : -120, m_random.chance(15), modifiers());
}

void Monkey::pressKey()
{
    QWidget *top = targetWindow();
    if (QWidget *active = QApplication::activeWindow())
        top = QApplication::activePopupWidget() ? top : active;
    if (!top->windowHandle())
        return;
    const Qt::Key key = keys[m_random.below(int(std::size(keys)))];
    const Qt::KeyboardModifiers held = modifiers();
    count("key",
          QStringLiteral("%1 in %2")
              .arg(QKeySequence(int(held) + key).toString(), nameOf(QApplication::focusWidget())));
    const QPointer<QWindow> window(top->windowHandle());
    const QString text =
        held & Qt::ControlModifier || key > 0xff ? QString() : QChar(key).toLower();
    qt_handleKeyEvent(window, QEvent::KeyPress, key, held, text, false, 1);
    if (window) // the press may have closed it
        qt_handleKeyEvent(window, QEvent::KeyRelease, key, held, text, false, 1);
}

void Monkey::openMenu()
{
    const QList<QAction *> bar = m_window->menuBar()->actions();
    QMenu *menu = bar.isEmpty() ? nullptr : m_random.pick(bar)->menu();
    if (!menu || QApplication::activeModalWidget())
        return;
    count("menu", menu->title());
    menu->popup(m_window->mapToGlobal(QPoint(20, 20)));
}

void Monkey::triggerAction()
{
    QList<QAction *> actions = m_window->findChildren<QAction *>();
    for (VxAction *action : m_window->getActionMgr()->getActions())
        actions.append(action);
    QAction *action = m_random.pick(actions);
    if (!action->isEnabled() || action->menu() || QApplication::activeModalWidget())
        return;
    count(m_mouse.isPressed() ? "action in mid-press" : "action", action->text());
    action->trigger();
}

void Monkey::moveDock()
{
    const auto docks = m_window->findChildren<QDockWidget *>(QString(), Qt::FindDirectChildrenOnly);
    if (docks.size() < 2)
        return;
    QDockWidget *dock = m_random.pick(docks);
    // The dock under the mouse is the one that matters while a button is held.
    if (m_mouse.isPressed() && m_random.chance(60)) {
        for (QDockWidget *candidate : docks) {
            if (candidate->isVisible() &&
                candidate->isAncestorOf(QWidget::mouseGrabber()
                                            ? QWidget::mouseGrabber()
                                            : QApplication::widgetAt(m_mouse.position())))
                dock = candidate;
        }
    }
    count(m_mouse.isPressed() ? "re-dock in mid-press" : "re-dock", nameOf(dock));
    dockByProgram(dock, m_random.pick(docks));
}

void Monkey::dockByProgram(QDockWidget *dock, QDockWidget *other)
{
    switch (m_random.below(9)) {
    case 0:
        m_window->addDockWidget(areas[m_random.below(4)], dock);
        break;
    case 1:
        dock->setFloating(!dock->isFloating());
        break;
    case 2:
        if (dock != other)
            m_window->tabifyDockWidget(other, dock);
        break;
    case 3:
        dock->setVisible(!dock->isVisible());
        break;
    case 4:
        dock->show();
        dock->raise();
        break;
    case 5:
        m_window->resizeDocks({dock}, {m_random.between(50, 500)},
                              m_random.chance(50) ? Qt::Vertical : Qt::Horizontal);
        break;
    case 6:
        if (dock != other)
            m_window->splitDockWidget(other, dock,
                                      m_random.chance(50) ? Qt::Vertical : Qt::Horizontal);
        break;
    case 7:
        m_window->removeDockWidget(dock);
        m_window->addDockWidget(areas[m_random.below(4)], dock);
        dock->show();
        break;
    default:
        m_window->applyDefaultLayout();
        break;
    }
}

void Monkey::resizeSomething()
{
    count("window");
    switch (m_random.below(4)) {
    case 0:
        m_window->resize(m_random.between(500, 1300), m_random.between(350, 850));
        break;
    case 1:
        m_window->activateWindow();
        break;
    case 2:
        vxApp->getStyle()->setColorScheme(m_random.chance(50) ? VxStyle::ColorScheme::Dark
                                                              : VxStyle::ColorScheme::Light);
        break;
    default:
        if (QWidget *top = QApplication::activeModalWidget() ? nullptr : targetWindow())
            top->activateWindow();
        break;
    }
}

void Monkey::runScript()
{
    const QString program = monkeyScript(&m_random);
    count(m_mouse.isPressed() ? "script in mid-press" : "script",
          program.section(QLatin1Char('\n'), -1));
    VxScriptError error;
    vxApp->getScriptEngine()->evaluate(program, QStringLiteral("monkey"), &error);
    if (!error.isNull())
        ++m_counts["scripts that end with an error"];
}

void Monkey::reopen()
{
    count("document opened");
    m_mouse.release(m_window, Qt::NoModifier);
    m_window->document()->open(m_options.document);
}

void Monkey::checkScene()
{
    ++m_counts["checks of the scene"];
    for (const VxNode *node : vxScene->getNodes()) {
        for (int j = 0; j < node->getNumProperties(); ++j) {
            if (!hasSortedKeys(node->getProperty(j)))
                m_failures.append(QStringLiteral("event %1: keys of %2 of %3 are not in order")
                                      .arg(m_done)
                                      .arg(node->getProperty(j)->getName(), node->getName()));
        }
    }
}
