#include "vxtimeline/keys/accessiblekey.h"

#include <cmath>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxintproperty.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxscenetimedisplay.h>
#include <vxcore/vxundostack.h>
#include <vxcore/vxundostackhold.h>

AccessibleKeyList::AccessibleKeyList(AccessibleKeys::Source source)
    : m_source(std::move(source))
{
}

bool AccessibleKeyList::isValid() const
{
    return m_source->isValid();
}

QWindow *AccessibleKeyList::window() const
{
    return isValid() ? m_source->window() : nullptr;
}

QAccessibleInterface *AccessibleKeyList::parent() const
{
    return isValid() ? m_source->parent() : nullptr;
}

QAccessibleInterface *AccessibleKeyList::child(int index) const
{
    // So that this object, too, counts as used.
    AccessibleKeys::listOf(m_source);
    return AccessibleKeys::keyOf(m_source, index);
}

QAccessibleInterface *AccessibleKeyList::childAt(int x, int y) const
{
    return AccessibleKeys::keyOf(m_source, AccessibleKeys::indexAt(*m_source, QPoint(x, y)));
}

int AccessibleKeyList::childCount() const
{
    return isValid() ? m_source->count() : 0;
}

int AccessibleKeyList::indexOfChild(const QAccessibleInterface *child) const
{
    const auto *key = dynamic_cast<const AccessibleKey *>(child);
    return key && key->source().owner() == m_source->owner() ? key->index() : -1;
}

QString AccessibleKeyList::text(QAccessible::Text kind) const
{
    if (!isValid())
        return QString();
    if (kind == QAccessible::Name)
        return m_source->name();
    return kind == QAccessible::Description ? AccessibleKeys::description(*m_source) : QString();
}

QRect AccessibleKeyList::rect() const
{
    return isValid() ? m_source->rect() : QRect();
}

QAccessible::Role AccessibleKeyList::role() const
{
    return m_source->role();
}

QAccessible::State AccessibleKeyList::state() const
{
    QAccessible::State state;
    state.invalid = !isValid();
    state.multiSelectable = true;
    state.offscreen = rect().isEmpty();
    return state;
}

QStringList AccessibleKeyList::actionNames() const
{
    return {selectAction(), deselectAction()};
}

void AccessibleKeyList::doAction(const QString &name)
{
    if (!isValid())
        return;
    if (name == selectAction())
        AccessibleKeys::changeAll(*m_source, AccessibleKeys::Change::SelectOnly);
    else if (name == deselectAction())
        AccessibleKeys::changeAll(*m_source, AccessibleKeys::Change::Deselect);
}

AccessibleKey::AccessibleKey(AccessibleKeys::Source source, int index)
    : m_source(std::move(source))
    , m_index(index)
{
}

bool AccessibleKey::isValid() const
{
    return m_source->isValid() && m_index < m_source->count();
}

QWindow *AccessibleKey::window() const
{
    return isValid() ? m_source->window() : nullptr;
}

QAccessibleInterface *AccessibleKey::parent() const
{
    return AccessibleKeys::listOf(m_source);
}

QString AccessibleKey::text(QAccessible::Text kind) const
{
    if (!isValid())
        return QString();
    switch (kind) {
    case QAccessible::Name:
        return VxSceneTimeDisplay::labelOf(vxScene, m_source->time(m_index));
    case QAccessible::Value:
        return AccessibleKeys::valueText(*m_source, m_index);
    case QAccessible::Description: {
        const QString value = AccessibleKeys::valueText(*m_source, m_index);
        const QString type = AccessibleKeys::typeText(*m_source, m_index);
        return value.isEmpty() ? type : tr("%1, %2").arg(value, type);
    }
    default:
        return QString();
    }
}

void AccessibleKey::setText(QAccessible::Text kind, const QString &text)
{
    if (kind == QAccessible::Value)
        setCurrentValue(text);
}

QRect AccessibleKey::rect() const
{
    return isValid() ? m_source->keyRect(m_index) : QRect();
}

QAccessible::Role AccessibleKey::role() const
{
    return QAccessible::Cell;
}

QAccessible::State AccessibleKey::state() const
{
    QAccessible::State state;
    state.invalid = !isValid();
    if (state.invalid)
        return state;
    state.selectable = true;
    state.multiSelectable = true;
    state.selected = m_source->isSelected(m_index);
    state.offscreen = rect().isEmpty();
    return state;
}

void *AccessibleKey::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::ValueInterface && isValid() && m_source->property())
        return static_cast<QAccessibleValueInterface *>(this);
    return AccessiblePart::interface_cast(type);
}

QStringList AccessibleKey::actionNames() const
{
    return {pressAction(), toggleAction(), timeAction()};
}

void AccessibleKey::doAction(const QString &name)
{
    if (!isValid())
        return;
    if (name == pressAction())
        AccessibleKeys::changeKey(*m_source, m_index, AccessibleKeys::Change::SelectOnly);
    else if (name == toggleAction())
        AccessibleKeys::changeKey(*m_source, m_index, AccessibleKeys::Change::Toggle);
    else if (name == timeAction())
        vxScene->setTime(m_source->time(m_index));
}

QVariant AccessibleKey::currentValue() const
{
    const auto *number =
        isValid() ? qobject_cast<const VxNumericProperty *>(m_source->property()) : nullptr;
    return number ? QVariant(number->getKeyDoubleValue(m_index)) : QVariant();
}

void AccessibleKey::setCurrentValue(const QVariant &value)
{
    bool isNumber = false;
    const double number = value.toDouble(&isNumber);
    // A gesture's preview must not become part of this entry.
    if (!isNumber || !std::isfinite(number) || !isValid() || !m_source->property() ||
        VxUndoStack::current()->isRecording())
        return;
    VxUndoStackHold hold;
    VxProperty *property = m_source->property()->getKeyHolder();
    if (auto *floats = qobject_cast<VxFloatProperty *>(property))
        floats->setKeyValue(m_index, float(number));
    else if (auto *ints = qobject_cast<VxIntProperty *>(property))
        ints->setKeyValue(m_index, qRound(number));
    hold.accept(tr("Set Key Value"));
}

QVariant AccessibleKey::maximumValue() const
{
    const auto *floats =
        isValid() ? qobject_cast<const VxFloatProperty *>(m_source->property()) : nullptr;
    return floats ? QVariant(double(floats->getMax())) : QVariant();
}

QVariant AccessibleKey::minimumValue() const
{
    const auto *floats =
        isValid() ? qobject_cast<const VxFloatProperty *>(m_source->property()) : nullptr;
    return floats ? QVariant(double(floats->getMin())) : QVariant();
}

QVariant AccessibleKey::minimumStepSize() const
{
    return 0.0;
}
