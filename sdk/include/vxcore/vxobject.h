#ifndef VXOBJECT_H
#define VXOBJECT_H

#include <vxcore/vxelement.h>

class VxNode;

/// The object of a node, such as a shape: an element with sub-elements, among them morphs.
class VXCORE_EXPORT VxObject : public VxElement
{
    Q_OBJECT
public:
    explicit VxObject(const QString &name);
    ~VxObject() override;

    /// The node that owns the object, or null.
    Q_INVOKABLE VxNode *getNode() const;

    Q_INVOKABLE int getNumSubElements() const;
    /// Null when index is outside 0 .. getNumSubElements() - 1.
    Q_INVOKABLE VxElement *getSubElement(int index) const;
    /// Takes ownership and appends. False, with a warning, when the element is null, a node, owned
    /// by another one, or is this object or one of its owners. Recorded for undo while a hold is
    /// open and the object is in a scene.
    bool addSubElement(VxElement *element);

protected:
    QVector<VxElement *> groupedElements() const override;

private:
    class Private;
    Private *priv() const;
};

#endif
