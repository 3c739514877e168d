#include "pane/vxpropertyedit.h"

#include "pane/vxpropertyvalue.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QPointer>
#include <vector>
#include <vxcore/vxchangeblock.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxintproperty.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxundostackhold.h>

namespace {

/// A property as it was when the gesture began.
struct Former
{
    QPointer<VxNumericProperty> property; // null once it is destroyed
    bool hadKey = false;
    double own = 0;  // of the key at the time, or the stored value
    double base = 0; // what offsets are counted from, as shown
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

Former remember(VxNumericProperty *property, VxTime time)
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
    QString text() const;
    void restore();

    VxTime time = 0;
    std::vector<Former> former;
    VxUndoStackHold hold;
};

QString VxPropertyEdit::Private::text() const
{
    for (const Former &each : former) {
        if (each.property)
            return QCoreApplication::translate("VxPropertyEdit", "Set %1")
                .arg(each.property->getLabel());
    }
    return {};
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
            d->former.push_back(remember(number, time));
    }
}

VxPropertyEdit::~VxPropertyEdit()
{
    finish();
}

bool VxPropertyEdit::setValue(double value)
{
    const VxChangeBlock block;
    bool accepted = true;
    for (Former &each : d->former) {
        if (!each.property)
            continue;
        accepted &= VxPropertyValue::setShownValue(each.property, d->time, value);
        each.base = value;
    }
    return accepted;
}

bool VxPropertyEdit::offsetBy(double steps)
{
    const VxChangeBlock block;
    bool accepted = true;
    for (const Former &each : d->former) {
        if (each.property)
            accepted &= VxPropertyValue::setShownValue(
                each.property, d->time, each.base + steps * VxPropertyValue::step(each.property));
    }
    return accepted;
}

void VxPropertyEdit::finish()
{
    if (d->hold.isOpen())
        d->hold.accept(d->text());
}

void VxPropertyEdit::putBack()
{
    if (!d->hold.isOpen())
        return;
    d->restore();
    d->hold.cancel();
}
