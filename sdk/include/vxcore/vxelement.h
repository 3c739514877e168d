#ifndef VXELEMENT_H
#define VXELEMENT_H

#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QVector>
#include <memory>
#include <vxcore/vxcoreglobal.h>
#include <vxcore/vxsignalguard.h>

class VxProperty;
class VxPropertyGroupTree;

/// Base of everything with properties: a node, a node's object, a morph.
///
/// An element owns its properties. They are counted from 0 in the order of adding.
class VXCORE_EXPORT VxElement : public VxSignalGuard<QObject>
{
    Q_OBJECT
    Q_PROPERTY(QString name READ getName)
    Q_PROPERTY(QString label READ getLabel WRITE setLabel NOTIFY labelChanged)
    Q_PROPERTY(int numProperties READ getNumProperties)
public:
    class Private;

    /// name: the identifier, also the object name; the label is the same until setLabel().
    explicit VxElement(const QString &name);
    ~VxElement() override;

    QString getName() const;
    QString getLabel() const;
    /// Recorded for undo while a hold is open and the element is in a scene.
    void setLabel(const QString &label);

    /// The element that this one belongs to: the node of an object, the object of a sub-element.
    /// Null without one, and for nodes.
    VxElement *getOwnerElement() const;

    Q_INVOKABLE int getNumProperties() const;
    /// Null when index is outside 0 .. getNumProperties() - 1.
    Q_INVOKABLE VxProperty *getProperty(int index) const;
    /// The element's own property of that name, or null.
    Q_INVOKABLE VxProperty *findProperty(const QString &name) const;
    /// The properties that exist as objects, in their order. A node makes each of its transform
    /// controls at its first access; until then the control counts in getNumProperties(), has its
    /// default value and traits, and has no keys. For code that searches keys, or anything that
    /// differs from the defaults: getProperty() would create the missing controls.
    QVector<VxProperty *> getMadeProperties() const;

    /// Takes ownership and appends. path is the group path, see VxProperty::getPath(). Returns
    /// the property, or null, with a warning, when the property is null, has an owner or a name
    /// already in use: it then stays the caller's. Recorded for undo while a hold is open and the
    /// element is in a scene.
    VxProperty *addProperty(VxProperty *property, const QString &path);
    /// Removes a property, after propertyRemoved(): while a hold is open and the element is in a
    /// scene the history keeps it, with its keys, for undo; otherwise it is destroyed. False, with
    /// a warning, for a property that is not the element's own, or that is a permanent part of it,
    /// such as a node's transform controls.
    bool removeProperty(VxProperty *property);

    /// The properties of the element, and of what belongs to it, by group; see
    /// VxPropertyGroupTree. Never null; owned by the element and rebuilt after properties were
    /// added or removed: do not keep it.
    VxPropertyGroupTree *getPropertyGroups() const;

Q_SIGNALS:
    void labelChanged(const QString &label);
    void propertyAdded(VxProperty *property);
    /// property is still alive, but no longer the element's.
    void propertyRemoved(VxProperty *property);
    /// The element is about to be removed from the scene, or destroyed without having been removed.
    void aboutToBeRemoved();

protected:
    VxElement(const QString &name, Private *priv);
    Private *priv() const { return d.get(); }
    /// Further elements whose properties the group tree lists after the element's own.
    virtual QVector<VxElement *> groupedElements() const;

private:
    std::unique_ptr<Private> d;
};

#endif
