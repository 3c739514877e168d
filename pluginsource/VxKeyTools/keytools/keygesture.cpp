#include "keytools/keygesture.h"

#include "keytools/keytooltext.h"

#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>
#include <QtGui/QWindow>
#include <QtWidgets/QApplication>
#include <algorithm>
#include <cmath>
#include <vxcore/vxaccessible.h>
#include <vxcore/vxgestureguard.h>
#include <vxcore/vxmainwindow.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxnumericproperty.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxundostack.h>

namespace {

constexpr double FineSpeed = 0.1;
constexpr double FactorStep = 0.05;
constexpr int LargeStep = 10;           // steps
constexpr double PixelsPerFactor = 100; // of scaled values
constexpr double LeastArm = 30;         // pixels from the pivot of scaled times to the mouse
constexpr int AxisSample = 1000;        // pixels
constexpr int TextMargin = 6;           // pixels
constexpr int MarkerReach = 6;          // pixels

/// Values of a span of 200 pixels are those between the extremes of the keys.
double valuePerPixelOf(const KeyTargets &targets)
{
    double low = 0;
    double high = 0;
    bool isFirst = true;
    for (const KeyTarget &track : targets.tracks) {
        for (const int i : track.indexes()) {
            const double value = track.property->getKeyDoubleValue(i);
            low = isFirst ? value : std::min(low, value);
            high = isFirst ? value : std::max(high, value);
            isFirst = false;
        }
    }
    return high > low ? (high - low) / 200 : 0.01;
}

/// A power of ten that is at least four pixels.
double valueStep(double valuePerPixel)
{
    return std::pow(10, std::ceil(std::log10(4 * valuePerPixel)));
}

} // namespace

KeyGesture *KeyGesture::begin(VxTimeAxis *axis, KeyGestureKind kind, int pivot)
{
    const KeyGestureAmount amount(kind, pivot);
    QWidget *views = axis ? axis->overlayParent() : nullptr;
    if (!views || !views->isVisible() || !vxScene || VxUndoStack::current()->isRecording()) {
        vxShowStatusMessage(KeyToolText::tr("%1: not possible now").arg(amount.tool().label));
        return nullptr;
    }
    const KeyTargets targets = KeyTargets::current();
    if (targets.isEmpty()) {
        vxShowStatusMessage(KeyToolText::tr("%1: select keys, or nodes with keys in the play range")
                                .arg(amount.tool().label));
        return nullptr;
    }
    auto *gesture = new KeyGesture(axis, amount, targets.range());
    gesture->m_valuePerPixel = axis->valuePerPixel();
    if (amount.isOfValues() && !(gesture->m_valuePerPixel > 0))
        gesture->m_valuePerPixel = valuePerPixelOf(targets);
    gesture->start();
    return gesture;
}

KeyGesture::KeyGesture(VxTimeAxis *axis, const KeyGestureAmount &amount, const VxTimeRange &range)
    : QWidget(axis->overlayParent())
    , m_axis(axis)
    , m_amount(amount)
    , m_guard(new VxGestureGuard(this))
    , m_formerFocus(QApplication::focusWidget())
    , m_range(range)
    , m_markers(VxMarkers::listOf(vxScene), range)
{
    setObjectName(QStringLiteral("KeyGesture"));
    vxSetAccessibleRole(this, QAccessible::Grouping);
    setAccessibleName(m_amount.tool().label);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::StrongFocus);
    connect(m_guard, &VxGestureGuard::cancelled, this, &KeyGesture::cancel);
    connect(&m_preview, &KeyToolPreview::ended, this, &KeyGesture::cancel);
}

KeyGesture::~KeyGesture() = default;

void KeyGesture::start()
{
    vxScene->pause();
    connect(vxScene, &VxScene::timeChanged, this, &KeyGesture::cancel);
    connect(vxScene, &VxScene::aboutToRemoveNode, this, &KeyGesture::cancel);
    connect(vxScene, &VxScene::sceneClearStarting, this, &KeyGesture::cancel);
    parentWidget()->installEventFilter(this);
    setGeometry(parentWidget()->rect());
    raise();
    show();
    setFocus();
    // The window has the movements over widgets without mouse tracking, too.
    m_window = window()->windowHandle();
    if (m_window)
        m_window->installEventFilter(this);
    m_guard->begin();
    showAmount();
}

void KeyGesture::end()
{
    m_isOpen = false;
    m_guard->end();
    m_preview.end();
    if (m_window)
        m_window->removeEventFilter(this);
    if (vxScene)
        disconnect(vxScene, nullptr, this, nullptr);
    if (m_formerFocus && hasFocus())
        m_formerFocus->setFocus();
    hide();
    deleteLater();
}

void KeyGesture::accept()
{
    if (!m_isOpen)
        return;
    end();
    if (m_amount.isReadable() && !m_amount.isNeutral())
        m_amount.tool().runWith(m_amount.arguments());
}

void KeyGesture::cancel()
{
    if (!m_isOpen)
        return;
    end();
    vxShowStatusMessage(KeyToolText::tr("%1 was cancelled.").arg(m_amount.tool().label));
}

// A shortcut must not change the scene during the gesture, which claims all keys.
bool KeyGesture::event(QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride)
        event->accept();
    // Tab must not move the focus, whose loss would cancel the gesture.
    if (event->type() == QEvent::KeyPress) {
        keyPressEvent(static_cast<QKeyEvent *>(event));
        return true;
    }
    return QWidget::event(event);
}

bool KeyGesture::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_window)
        return m_isOpen && handleMouse(event);
    if (event->type() == QEvent::Resize)
        setGeometry(parentWidget()->rect());
    return QWidget::eventFilter(watched, event);
}

void KeyGesture::keyPressEvent(QKeyEvent *event)
{
    const int letter = m_amount.kind() == KeyGestureKind::ScaleTimes ? Qt::Key_S : Qt::Key_V;
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        accept();
        return;
    }
    if (event->key() == Qt::Key_Backspace)
        m_amount.eraseTyped();
    else if (m_amount.isScale() && event->key() == letter && !event->isAutoRepeat()) {
        m_amount.choosePivot();
        followMouse(!(event->modifiers() & Qt::ShiftModifier));
    } else if (!step(*event) && !m_amount.type(event->text()))
        return;
    showAmount();
}

// The arrow keys along the axis that the gesture changes: a frame, 5 % or a round value; with Shift
// ten times as much.
bool KeyGesture::step(const QKeyEvent &event)
{
    const int forwards = m_amount.isOfValues() ? Qt::Key_Up : Qt::Key_Right;
    const int backwards = m_amount.isOfValues() ? Qt::Key_Down : Qt::Key_Left;
    if (event.key() != forwards && event.key() != backwards)
        return false;
    const double one = m_amount.isScale()      ? FactorStep
                       : m_amount.isOfValues() ? valueStep(m_valuePerPixel)
                                               : vxScene->getTimeStep();
    const double by = event.modifiers() & Qt::ShiftModifier ? LargeStep * one : one;
    m_amount.addByKeys(event.key() == forwards ? by : -by);
    return true;
}

// The gesture ends at the release, which the widget below must not receive. The wheel has no
// effect: the axis does not change.
bool KeyGesture::handleMouse(const QEvent *event)
{
    const auto mouse = [event]() -> const QMouseEvent & {
        return *static_cast<const QMouseEvent *>(event);
    };
    switch (event->type()) {
    case QEvent::MouseMove:
        moveMouse(mouse());
        return true;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        m_pressed = mouse().button();
        return true;
    case QEvent::MouseButtonRelease:
        if (mouse().button() == m_pressed && m_pressed == Qt::LeftButton)
            accept();
        else if (mouse().button() == m_pressed && m_pressed == Qt::RightButton)
            cancel();
        return true;
    case QEvent::Wheel:
        return true;
    default:
        return false;
    }
}

void KeyGesture::moveMouse(const QMouseEvent &event)
{
    const bool isFine = event.modifiers() & Qt::ControlModifier;
    const QPointF position = event.localPos() - mapTo(window(), QPoint());
    if (!m_hasMouse) {
        m_origin = position;
        m_pixel = position;
        m_hasMouse = true;
    } else {
        m_pixel += (position - m_mouse) * (isFine ? FineSpeed : 1);
    }
    m_mouse = position;
    if (!m_amount.typed().isEmpty())
        return;
    const QVariantMap former = m_amount.arguments();
    followMouse(!(event.modifiers() & Qt::ShiftModifier));
    if (m_amount.arguments() != former)
        showAmount();
}

double KeyGesture::ticksPerPixel() const
{
    const int x = int(m_origin.x());
    return (double(m_axis->timeAt(x + AxisSample)) - m_axis->timeAt(x - AxisSample)) /
           (2 * AxisSample);
}

double KeyGesture::pivotTime() const
{
    const double times[] = {double(vxScene->getTime()), double(m_range.getStart()),
                            double(m_range.getEnd()),
                            (double(m_range.getStart()) + m_range.getEnd()) / 2};
    return times[m_amount.pivot()];
}

void KeyGesture::followMouse(bool snaps)
{
    if (!m_axis || !m_hasMouse)
        return;
    const QPointF moved = m_pixel - m_origin;
    // Keys beside a marker stay until the mouse moves.
    const double reach = snaps && moved.x() != 0 ? MarkerReach * ticksPerPixel() : -1;
    switch (m_amount.kind()) {
    case KeyGestureKind::Move:
    case KeyGestureKind::Duplicate: {
        const double offset = std::round(moved.x() * ticksPerPixel());
        const std::optional<double> atMarker = m_markers.offset(offset, reach);
        m_amount.setByMouse(atMarker.value_or(offset),
                            snaps && !atMarker ? vxScene->getTimeStep() : 0);
        break;
    }
    case KeyGestureKind::ScaleTimes: {
        // The time under the mouse follows it. Beside the pivot small movements would be huge
        // factors.
        double arm = m_origin.x() - m_axis->xOf(VxTime(pivotTime()));
        if (std::abs(arm) < LeastArm)
            arm = arm < 0 ? -LeastArm : LeastArm;
        const double factor = 1 + moved.x() / arm;
        const std::optional<double> atMarker = m_markers.factor(factor, pivotTime(), reach);
        m_amount.setByMouse(atMarker.value_or(factor), snaps && !atMarker ? FactorStep : 0);
        break;
    }
    case KeyGestureKind::MoveValues:
        m_amount.setByMouse(-moved.y() * m_valuePerPixel, snaps ? valueStep(m_valuePerPixel) : 0);
        break;
    case KeyGestureKind::ScaleValues:
        m_amount.setByMouse(1 - moved.y() / PixelsPerFactor, snaps ? FactorStep : 0);
        break;
    }
}

void KeyGesture::showAmount()
{
    if (!m_isOpen)
        return;
    QString outcome;
    if (m_amount.isReadable() && !m_amount.isNeutral()) {
        outcome = m_preview.show(m_amount.tool(), m_amount.arguments()).message;
    } else {
        m_preview.end();
        outcome = KeyTargets::current().description();
    }
    m_text = KeyToolText::tr("%1   |   %2   |   Mouse or arrows: change, Enter or click: accept, "
                             "Esc: cancel")
                 .arg(m_amount.text(), outcome);
    if (m_amount.isScale())
        m_text += m_amount.kind() == KeyGestureKind::ScaleTimes
                      ? KeyToolText::tr(", S: next pivot")
                      : KeyToolText::tr(", V: next pivot");
    setAccessibleDescription(m_text);
    update();
}

void KeyGesture::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const int height = fontMetrics().height() + TextMargin;
    const QRect line(0, this->height() - height, width(), height);
    painter.fillRect(line, palette().color(QPalette::ToolTipBase));
    painter.setPen(palette().color(QPalette::ToolTipText));
    const QRect inner = line.adjusted(TextMargin, 0, -TextMargin, 0);
    painter.drawText(inner, Qt::AlignVCenter,
                     fontMetrics().elidedText(m_text, Qt::ElideRight, inner.width()));
}
