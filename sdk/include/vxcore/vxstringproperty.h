#ifndef VXSTRINGPROPERTY_H
#define VXSTRINGPROPERTY_H

#include <vxcore/vxproperty.h>

/// A text, such as a note on a node. Not numeric: it has no keys.
class VXCORE_EXPORT VxStringProperty : public VxProperty
{
    Q_OBJECT
    Q_PROPERTY(QString value READ getValue WRITE setValue)
public:
    explicit VxStringProperty(const QString &name, const QString &value = QString());
    ~VxStringProperty() override;

    QString getValue() const;
    /// False when the property is locked. Recorded for undo like any other change.
    bool setValue(const QString &value);

private:
    class Private;
    Private *priv() const;
};

#endif
