#include <vxcore/vxstringproperty.h>

#include "keys/vxproperty_p.h"
#include "undo/vxundovalueitem.h"

#include <vxcore/vxowncontents.h>

/// The text apart from the class's own record, for vxOwnText().
class StringRecord : public VxProperty::Private
{
public:
    StringRecord(VxProperty *property, const QString &text)
        : VxProperty::Private(property)
        , value(text)
    {
    }
    QString value;
};

class VxStringProperty::Private : public StringRecord
{
public:
    using StringRecord::StringRecord;
};

QString vxOwnText(const VxStringProperty *property)
{
    return static_cast<const StringRecord *>(VxProperty::Private::of(property))->value;
}

VxStringProperty::VxStringProperty(const QString &name, const QString &value)
    : VxProperty(name, new Private(this, value))
{
}

VxStringProperty::~VxStringProperty() = default;

VxStringProperty::Private *VxStringProperty::priv() const
{
    return static_cast<Private *>(VxProperty::priv());
}

QString VxStringProperty::getValue() const
{
    const VxProperty *holder = getKeyHolder();
    return static_cast<const VxStringProperty *>(holder)->priv()->value;
}

bool VxStringProperty::setValue(const QString &value)
{
    VxProperty *holder = getKeyHolder();
    if (isLocked() || holder->isLocked())
        return false;
    if (holder != this)
        return static_cast<VxStringProperty *>(holder)->setValue(value);
    if (priv()->value == value)
        return true;
    vxRecordValue<VxStringProperty, QString>(
        this, VxUndoStoredValue, [](const VxStringProperty *p) { return p->getValue(); },
        [](VxStringProperty *p, const QString &text) {
            p->priv()->value = text;
            p->priv()->reportChange(VxTimeRange::all());
        });
    priv()->value = value;
    priv()->reportChange(VxTimeRange::all());
    return true;
}
