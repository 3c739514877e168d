#ifndef VXMORPH_H
#define VXMORPH_H

#include <vxcore/vxelement.h>

class VxFloatProperty;
class VxObject;

/// A change of an object's shape, driven by one float property from 0 to 1 shown as a percentage.
class VXCORE_EXPORT VxMorph : public VxElement
{
    Q_OBJECT
public:
    /// The value property has the morph's name and the given group path.
    explicit VxMorph(const QString &name, const QString &path = QStringLiteral("/Shape"));
    ~VxMorph() override;

    /// Never null; owned by the morph.
    Q_INVOKABLE VxFloatProperty *getValueControl() const;
    /// The object that the morph belongs to, or null.
    Q_INVOKABLE VxObject *getObject() const;

private:
    class Private;
    Private *priv() const;
};

#endif
