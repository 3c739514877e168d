#include "parameters/vxpropertyedit.h"

#include "parameters/vxpropertyhints.h"
#include "parameters/vxpropertyvalue.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QPointer>
#include <functional>
#include <vector>
#include <vxcore/vxchangeblock.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxintproperty.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxtypedinput.h>
#include <vxcore/vxundostackhold.h>

namespace {

/// Links may pass through several of the edited properties; the passes must be limited.
constexpr int MaxPasses = 8;

bool isAddedTo(const VxNumericProperty *property)
{
    const auto *holder = qobject_cast<const VxNumericProperty *>(property->getKeyHolder());
    return holder && holder->isLinkTerminal();
}

/// A property's state at the start of the gesture.
struct Former
{
    QPointer<VxNumericProperty> property; // null once it is destroyed
    bool hadKey = false;
    double own = 0;  // of the key at the time, or the stored value
    double base = 0; // the base of offsets, as shown
};

double storedValue(const VxNumericProperty *property)
{
    if (const auto *number = qobject_cast<const VxFloatProperty *>(property))
        return double(number->getStoredValue());
    const auto *whole = qobject_cast<const VxIntProperty *>(property);
    return whole ? whole->getStoredValue() : 0.0;
}

void setStoredValue(VxNumericProperty *property, double value)
{
    if (auto *number = qobject_cast<VxFloatProperty *>(property))
        number->setStoredValue(float(value));
    else if (auto *whole = qobject_cast<VxIntProperty *>(property))
        whole->setStoredValue(int(value));
}

Former formerValue(VxNumericProperty *property, VxTime time)
{
    int key = -1;
    const bool hasKey = property->hasKey(time, &key);
    return {property, hasKey, hasKey ? property->getKeyDoubleValue(key) : storedValue(property),
            VxPropertyValue::shownValue(property, time)};
}

} // namespace

class VxPropertyEdit::Private
{
public:
    using Target = std::function<double(const Former &)>;

    bool change(const Target &target);
    void set(Former &each, double value);
    bool settle(const Target &target);
    void restore();

    VxTime time = 0;
    QString label; // of the first property, which may be destroyed by the end
    std::vector<Former> former;
    int refused = 0; // in the last change
    int locked = 0;
    QString limit;
    VxUndoStackHold hold;
};

/** Sets each property to target(former), in shown units. */
bool VxPropertyEdit::Private::change(const Target &target)
{
    const VxChangeBlock block;
    refused = 0;
    locked = 0;
    limit.clear();
    for (Former &each : former) {
        if (each.property)
            set(each, target(each));
    }
    for (int pass = 1; pass < MaxPasses && !settle(target); ++pass) {
    }
    return refused == 0;
}

void VxPropertyEdit::Private::set(Former &each, double value)
{
    switch (VxPropertyValue::setShownValue(each.property, time, value)) {
    case VxPropertyValue::Set:
        break;
    case VxPropertyValue::Limited:
        if (limit.isEmpty())
            limit = VxPropertyHints::limits(each.property, value);
        break;
    default:
        ++refused;
        locked += !VxPropertyValue::isEditable(each.property);
    }
}

/** A link's offset may change after the value was set. True when none did. */
bool VxPropertyEdit::Private::settle(const Target &target)
{
    bool settled = true;
    for (Former &each : former) {
        if (!each.property || !isAddedTo(each.property))
            continue;
        const double before = VxPropertyValue::shownValue(each.property, time);
        VxPropertyValue::setShownValue(each.property, time, target(each));
        settled &= before == VxPropertyValue::shownValue(each.property, time);
    }
    return settled;
}

void VxPropertyEdit::Private::restore()
{
    const VxChangeBlock block;
    for (const Former &each : former) {
        if (!each.property)
            continue;
        if (each.hadKey)
            each.property->setDoubleValue(time, each.own);
        else
            each.property->deleteKeys(VxTimeRange(time, time));
        if (!each.hadKey && each.property->getNumKeys() == 0)
            setStoredValue(each.property, each.own);
    }
}

VxPropertyEdit::VxPropertyEdit(const QVector<VxProperty *> &properties, VxTime time)
    : d(std::make_unique<Private>())
{
    if (vxScene)
        vxScene->pause();
    d->time = time;
    for (VxProperty *property : properties) {
        if (auto *number = qobject_cast<VxNumericProperty *>(property))
            d->former.push_back(formerValue(number, time));
    }
    if (!d->former.empty())
        d->label = d->former.front().property->getLabel();
}

VxPropertyEdit::~VxPropertyEdit()
{
    finish();
}

bool VxPropertyEdit::setValue(double value)
{
    return apply({VxTypedInput::Value, value});
}

bool VxPropertyEdit::apply(const VxTypedInput &input)
{
    if (input.kind == VxTypedInput::Empty || input.kind == VxTypedInput::Unreadable)
        return true;
    const bool accepted =
        d->change([&input](const Former &each) { return input.appliedTo(each.base); });
    for (Former &each : d->former) {
        if (each.property) // steps continue from the present value
            each.base = VxPropertyValue::shownValue(each.property, d->time);
    }
    return accepted;
}

bool VxPropertyEdit::offsetBy(double steps)
{
    return d->change([steps](const Former &each) {
        return each.base + steps * VxPropertyValue::step(each.property);
    });
}

QString VxPropertyEdit::refusal() const
{
    return VxPropertyHints::refusal(d->label, d->refused, d->locked, int(d->former.size()));
}

QString VxPropertyEdit::limit() const
{
    return d->limit;
}

void VxPropertyEdit::finish()
{
    if (d->hold.isOpen())
        d->hold.accept(QCoreApplication::translate("VxPropertyEdit", "Set %1").arg(d->label));
}

void VxPropertyEdit::rollBack()
{
    if (!d->hold.isOpen())
        return;
    d->restore();
    d->hold.cancel();
}
