#include "vxtimeline/pane/timepanekeycursor.h"

#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/keygraph/vxkeygraphview.h"
#include "vxtimeline/pane/timepaneviews.h"

#include <QtCore/QCoreApplication>
#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QApplication>
#include <algorithm>
#include <vxcore/vxaccessible.h>
#include <vxcore/vxapp.h>
#include <vxcore/vxdynamicdividerwgt.h>
#include <vxcore/vxkeyselection.h>
#include <vxcore/vxmainwindow.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxscenetimedisplay.h>

namespace {

constexpr int RowsPerPage = 10;
constexpr int RingGap = 2;    // pixels between a mark and its ring
constexpr int RingWidth = 2;  // pixels, with an edge of one pixel in the background's colour
constexpr int TextMargin = 6; // pixels

constexpr int ownKeys[] = {Qt::Key_Left,  Qt::Key_Right,  Qt::Key_Up,     Qt::Key_Down,
                           Qt::Key_Home,  Qt::Key_End,    Qt::Key_PageUp, Qt::Key_PageDown,
                           Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter,  Qt::Key_Escape,
                           Qt::Key_Menu};

} // namespace

TimePaneKeyCursor::TimePaneKeyCursor(const TimePaneViews &views)
    : QWidget(views.divider())
    , m_views(views)
    , m_sheetRows(views.sheet())
    , m_graphRows(views.graphView())
    , m_rows(&m_sheetRows)
{
    setObjectName(QStringLiteral("TimelineKeyCursor"));
    vxSetAccessibleRole(this, QAccessible::Grouping);
    setAccessibleName(tr("Key Cursor"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    hide();
    connect(vxApp->getKeySelection(), &VxKeySelection::changed, this,
            &TimePaneKeyCursor::handleKeysChanged);
}

void TimePaneKeyCursor::begin()
{
    const bool inGraph = m_views.graphView()->isVisible() && !m_graphRows.isEmpty() &&
                         m_views.graphView()->hasFocus();
    m_rows = inGraph ? static_cast<KeyCursorRows *>(&m_graphRows) : &m_sheetRows;
    if (!m_views.sheet()->isVisible() || m_rows->isEmpty() || m_rows->area()->height() < 1) {
        vxShowStatusMessage(tr("Key Cursor: no rows are shown"));
        return;
    }
    if (isVisible())
        return;
    m_formerFocus = QApplication::focusWidget();
    m_time = vxScene->getTime();
    const Place here = place();
    if (here.key >= 0)
        m_time = here.row->time(here.key);
    m_isAtKey = here.key >= 0;
    m_extends = false;
    for (QWidget *watched : {parentWidget(), m_sheetRows.area(), m_graphRows.area()})
        watched->installEventFilter(this);
    setGeometry(parentWidget()->rect());
    raise();
    show();
    setFocusPolicy(Qt::StrongFocus);
    setFocus();
    showPlace();
}

void TimePaneKeyCursor::finish()
{
    if (!isVisible())
        return;
    for (QWidget *watched : {parentWidget(), m_sheetRows.area(), m_graphRows.area()})
        watched->removeEventFilter(this);
    const bool hadFocus = hasFocus();
    setFocusPolicy(Qt::NoFocus);
    hide();
    QWidget *view =
        m_rows == &m_graphRows ? static_cast<QWidget *>(m_views.graphView()) : m_views.sheet();
    if (hadFocus)
        (m_formerFocus ? m_formerFocus.data() : view)->setFocus();
}

// The key at the time, or the nearest one in time.
TimePaneKeyCursor::Place TimePaneKeyCursor::place() const
{
    Place place{m_rows->row()};
    const int count = place.row && m_rows->showsKeys() ? place.row->count() : 0;
    if (count == 0)
        return place;
    const int next = place.row->firstFrom(m_time);
    const bool isLater = next == count || (next > 0 && qint64(m_time) - place.row->time(next - 1) <
                                                           qint64(place.row->time(next)) - m_time);
    place.key = isLater ? next - 1 : next;
    return place;
}

// After keys were moved: to the selected one nearest in time, where the key is no longer there.
void TimePaneKeyCursor::followKeys()
{
    const Place here = place();
    if (here.key < 0 || !m_isAtKey || here.row->time(here.key) == m_time)
        return;
    int nearest = here.key;
    // Counting passes over all selected spans of a channel.
    const int count = here.row->selectedCount() > 0 ? here.row->count() : 0;
    for (int distance = 0; distance < count; ++distance) {
        const int before = here.key - distance;
        const int after = here.key + distance;
        if (after < count && here.row->isSelected(after)) {
            nearest = after;
            break;
        }
        if (before >= 0 && here.row->isSelected(before)) {
            nearest = before;
            break;
        }
    }
    m_time = here.row->time(nearest);
}

void TimePaneKeyCursor::handleKeysChanged()
{
    if (!isVisible())
        return;
    followKeys();
    showPlace();
}

bool TimePaneKeyCursor::event(QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride) {
        const auto *key = static_cast<QKeyEvent *>(event);
        const Qt::KeyboardModifiers modifiers =
            key->modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier);
        const bool isOpening = modifiers == Qt::AltModifier &&
                               (key->key() == Qt::Key_Left || key->key() == Qt::Key_Right);
        const bool isTime = modifiers == Qt::ControlModifier && key->key() == Qt::Key_Return;
        const bool isOwn =
            std::find(std::begin(ownKeys), std::end(ownKeys), key->key()) != std::end(ownKeys);
        if (isOwn && (modifiers == Qt::NoModifier || isOpening || isTime))
            event->accept();
    }
    // Tab leads to the other view, not to the next control.
    if (event->type() == QEvent::KeyPress) {
        auto *key = static_cast<QKeyEvent *>(event);
        if (key->key() == Qt::Key_Tab || key->key() == Qt::Key_Backtab) {
            switchView();
            return true;
        }
    }
    return QWidget::event(event);
}

void TimePaneKeyCursor::keyPressEvent(QKeyEvent *event)
{
    if (!handleMove(*event) && !handleKey(*event))
        QWidget::keyPressEvent(event);
}

bool TimePaneKeyCursor::handleMove(const QKeyEvent &event)
{
    const Place here = place();
    const bool extends = event.modifiers() & Qt::ShiftModifier;
    const bool opens = event.modifiers() & Qt::AltModifier;
    switch (event.key()) {
    case Qt::Key_Left:
    case Qt::Key_Right: {
        const int by = event.key() == Qt::Key_Right ? 1 : -1;
        if (opens)
            m_rows->setOpen(by > 0);
        else if (here.key >= 0)
            moveInRow(here.key + by, extends);
        break;
    }
    case Qt::Key_Home:
        moveInRow(0, extends);
        break;
    case Qt::Key_End:
        if (here.key >= 0)
            moveInRow(here.row->count() - 1, extends);
        break;
    case Qt::Key_Up:
    case Qt::Key_Down:
        moveRows(event.key() == Qt::Key_Down ? 1 : -1, extends);
        break;
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        moveRows(event.key() == Qt::Key_PageDown ? RowsPerPage : -RowsPerPage, extends);
        break;
    default:
        return false;
    }
    showPlace();
    return true;
}

bool TimePaneKeyCursor::handleKey(const QKeyEvent &event)
{
    const Place here = place();
    switch (event.key()) {
    case Qt::Key_Space:
        change(AccessibleKeys::Change::Toggle);
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (!(event.modifiers() & Qt::ControlModifier))
            change(AccessibleKeys::Change::SelectOnly);
        else if (here.key >= 0)
            vxScene->setTime(here.row->time(here.key));
        break;
    case Qt::Key_Menu:
        openMenu();
        break;
    case Qt::Key_F10:
        if (!(event.modifiers() & Qt::ShiftModifier))
            return false;
        openMenu();
        break;
    case Qt::Key_Escape:
        finish();
        return true;
    default:
        return false;
    }
    showPlace();
    return true;
}

// The first extending step begins at the present key.
void TimePaneKeyCursor::beginExtending(bool extends)
{
    if (extends && !m_extends) {
        const Place here = place();
        m_rows->setAnchor();
        m_anchorTime = here.key >= 0 ? here.row->time(here.key) : m_time;
    }
    m_extends = extends;
}

void TimePaneKeyCursor::moveInRow(int key, bool extends)
{
    const Place here = place();
    if (here.key < 0)
        return;
    beginExtending(extends);
    m_time = here.row->time(qBound(0, key, here.row->count() - 1));
    if (extends)
        extendSelection();
}

// The time stays, so that rows with keys elsewhere in between do not shift the cursor.
void TimePaneKeyCursor::moveRows(int rows, bool extends)
{
    beginExtending(extends);
    m_rows->move(rows);
    if (extends)
        extendSelection();
}

void TimePaneKeyCursor::extendSelection()
{
    const Place here = place();
    const VxTime time = here.key >= 0 ? here.row->time(here.key) : m_time;
    AccessibleKeys::selectBetween(m_rows->fromAnchor(), qMin(m_anchorTime, time),
                                  qMax(m_anchorTime, time));
}

void TimePaneKeyCursor::change(AccessibleKeys::Change change)
{
    const Place here = place();
    if (here.key < 0)
        return;
    m_extends = false;
    m_time = here.row->time(here.key);
    AccessibleKeys::changeKey(*here.row, here.key, change);
}

void TimePaneKeyCursor::switchView()
{
    const bool canGraph = m_views.graphView()->isVisible() && !m_graphRows.isEmpty();
    m_rows = m_rows == &m_sheetRows && canGraph ? static_cast<KeyCursorRows *>(&m_graphRows)
                                                : &m_sheetRows;
    m_extends = false;
    showPlace();
}

// The views open their menus at the release of the right button.
void TimePaneKeyCursor::openMenu()
{
    QWidget *area = m_rows->area();
    const QRect target = !m_ring.isEmpty() ? m_ring : m_rowRect;
    const QPoint global = mapToGlobal(target.center());
    for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        const bool isPress = type == QEvent::MouseButtonPress;
        QMouseEvent event(type, area->mapFromGlobal(global), global, Qt::RightButton,
                          isPress ? Qt::RightButton : Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(area, &event);
    }
}

QString TimePaneKeyCursor::text() const
{
    const Place here = place();
    if (!here.row)
        return tr("Key Cursor: no rows are shown");
    QStringList parts(here.row->name());
    if (here.key >= 0) {
        parts += VxSceneTimeDisplay::labelOf(vxScene, here.row->time(here.key));
        parts += AccessibleKeys::valueText(*here.row, here.key);
        parts += AccessibleKeys::typeText(*here.row, here.key);
        if (here.row->isSelected(here.key))
            parts += tr("selected");
        if (m_ring.isEmpty())
            parts += tr("out of view");
    } else {
        parts += m_rows->showsKeys() ? tr("no keys") : tr("open: its keys are in the rows below");
    }
    parts.removeAll(QString());
    return parts.join(QStringLiteral(", "));
}

QRect TimePaneKeyCursor::toLocal(const QRect &global) const
{
    return global.isEmpty() ? QRect() : QRect(mapFromGlobal(global.topLeft()), global.size());
}

// After each repaint of the views, whose rows and keys may have moved.
void TimePaneKeyCursor::updateRing()
{
    const Place here = place();
    const QRect row = toLocal(m_rows->rect());
    QRect ring = here.key >= 0 ? toLocal(here.row->keyRect(here.key)) : QRect();
    if (!ring.isEmpty())
        ring.adjust(-RingGap, -RingGap, RingGap, RingGap);
    if (row == m_rowRect && ring == m_ring)
        return;
    m_rowRect = row;
    m_ring = ring;
    update();
}

void TimePaneKeyCursor::showPlace()
{
    const Place here = place();
    m_rows->reveal(here.key);
    m_isAtKey = here.key >= 0 && here.row->time(here.key) == m_time;
    updateRing();
    update();
    setAccessibleDescription(text());
    if (!QAccessible::isActive())
        return;
    if (here.row)
        AccessibleKeys::report(here.key >= 0 ? AccessibleKeys::keyOf(here.row, here.key)
                                             : here.row->parent(),
                               QAccessible::Focus);
}

bool TimePaneKeyCursor::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == parentWidget() && event->type() == QEvent::Resize)
        setGeometry(parentWidget()->rect());
    else if (watched == parentWidget() && event->type() == QEvent::Hide)
        finish();
    else if (watched != parentWidget() && event->type() == QEvent::Paint)
        updateRing();
    return QWidget::eventFilter(watched, event);
}

void TimePaneKeyCursor::focusInEvent(QFocusEvent *event)
{
    QWidget::focusInEvent(event);
    followKeys();
    showPlace();
}

// A gesture of the key tools is a widget beside this one, and gives the focus back.
void TimePaneKeyCursor::focusOutEvent(QFocusEvent *event)
{
    QWidget::focusOutEvent(event);
    const QWidget *focus = QApplication::focusWidget();
    const bool isOfGesture = focus && focus->parentWidget() == parentWidget() &&
                             focus != m_views.sheet() && focus != m_views.graphView();
    if (event->reason() != Qt::PopupFocusReason && event->reason() != Qt::ActiveWindowFocusReason &&
        !isOfGesture)
        finish();
}

void TimePaneKeyCursor::paintEvent(QPaintEvent *event)
{
    Q_UNUSED(event)
    QPainter painter(this);
    const QColor inner = palette().color(QPalette::Text);
    const QColor edge = palette().color(QPalette::Base);
    painter.setPen(QPen(inner, 1, Qt::DotLine));
    if (!m_rowRect.isEmpty())
        painter.drawRect(m_rowRect.adjusted(0, 0, -1, -1));
    if (!m_ring.isEmpty()) {
        const auto frame = [&](const QRect &outer, int width, const QColor &color) {
            const QRect inside = outer.adjusted(width, width, -width, -width);
            for (const QRect &side : QRegion(outer).subtracted(inside))
                painter.fillRect(side, color);
        };
        frame(m_ring.adjusted(-1, -1, 1, 1), RingWidth + 2, edge);
        frame(m_ring, RingWidth, inner);
    }
    const int lineHeight = fontMetrics().height() + TextMargin;
    QRect line(0, height() - lineHeight, width(), lineHeight);
    if (line.intersects(m_ring))
        line.moveTop(0);
    painter.fillRect(line, palette().color(QPalette::ToolTipBase));
    painter.setPen(palette().color(QPalette::ToolTipText));
    const QString help = tr("%1   |   Arrows: move, Shift: extend, Space: add or remove, Enter: "
                            "select only, Tab: other view, Esc: end")
                             .arg(text());
    painter.drawText(line.adjusted(TextMargin, 0, -TextMargin, 0), Qt::AlignVCenter,
                     fontMetrics().elidedText(help, Qt::ElideRight, line.width() - 2 * TextMargin));
}
