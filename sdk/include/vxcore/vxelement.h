#ifndef VXCORE_VXELEMENT_H
#define VXCORE_VXELEMENT_H

#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QVector>
#include <memory>
#include <vxcore/vxcoreglobal.h>
#include <vxcore/vxsignalguard.h>

class VxProperty;
class VxPropertyGroupTree;

/// Something that has properties: a node, a node's object, a morph.
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
    /// Null when it belongs to none, and for nodes.
    VxElement *getOwnerElement() const;

    Q_INVOKABLE int getNumProperties() const;
    /// Null when index lies outside 0 .. getNumProperties() - 1.
    Q_INVOKABLE VxProperty *getProperty(int index) const;
    /// The element's own property of that name, or null.
    Q_INVOKABLE VxProperty *findProperty(const QString &name) const;
    /// The properties that exist as objects, in their order. A node makes each of its transform
    /// controls when it is first asked for; until then the control counts in getNumProperties(),
    /// has its default value and traits, and has no keys. Code that looks for keys, or for anything
    /// that differs from the defaults, uses this list: getProperty() would make what is missing.
    QVector<VxProperty *> getMadeProperties() const;

    /// Takes ownership and appends. path is the group path, see VxProperty::getPath(). Returns
    /// the property, or null, with a warning, when the property is null, has an owner or a name
    /// that is taken: it then stays the caller's. Recorded for undo while a hold is open and the
    /// element is in a scene.
    VxProperty *addProperty(VxProperty *property, const QString &path);
    /// Removes a property, after propertyRemoved(): while a hold is open and the element is in a
    /// scene the history keeps it, with its keys, for undo; otherwise it is destroyed. False, with
    /// a warning, when it is not one of the element's own, or one that the element cannot be
    /// without, such as a node's transform controls.
    bool removeProperty(VxProperty *property);

    /// The properties of the element, and of what belongs to it, by group; see
    /// VxPropertyGroupTree. Never null; owned by the element and made anew after properties came
    /// or went: do not keep it.
    VxPropertyGroupTree *getPropertyGroups() const;

Q_SIGNALS:
    void labelChanged(const QString &label);
    void propertyAdded(VxProperty *property);
    /// property is still alive, but no longer the element's.
    void propertyRemoved(VxProperty *property);
    /// The element is about to leave the scene, or to be destroyed without having left one.
    void aboutToBeRemoved();

protected:
    VxElement(const QString &name, Private *priv);
    Private *priv() const { return d.get(); }
    /// Further elements whose properties the group tree lists after the element's own.
    virtual QVector<VxElement *> groupedElements() const;
    /// Forgets the group tree, and those of the elements that this one belongs to. Call it when
    /// groupedElements() changes; properties that come and go do it by themselves.
    void invalidatePropertyGroups();

private:
    std::unique_ptr<Private> d;
};

#endif
