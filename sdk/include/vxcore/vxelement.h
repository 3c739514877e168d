#ifndef VXCORE_VXELEMENT_H
#define VXCORE_VXELEMENT_H

#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QVector>
#include <memory>
#include <vxcore/vxcoreglobal.h>

class VxProperty;
class VxPropertyGroupTree;

/// Something that has properties: a node, a node's object, a morph.
///
/// An element owns its properties. They are counted from 0 in the order of adding.
class VXCORE_EXPORT VxElement : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString name READ getName)
    Q_PROPERTY(QString label READ getLabel WRITE setLabel NOTIFY labelChanged)
    Q_PROPERTY(int numProperties READ getNumProperties)
public:
    /// name: the identifier, also the object name; the label is the same until setLabel().
    explicit VxElement(const QString &name);
    ~VxElement() override;

    QString getName() const;
    QString getLabel() const;
    /// Recorded for undo while a hold is open.
    void setLabel(const QString &label);

    Q_INVOKABLE int getNumProperties() const;
    /// Null when index lies outside 0 .. getNumProperties() - 1.
    Q_INVOKABLE VxProperty *getProperty(int index) const;
    /// The element's own property of that name, or null.
    Q_INVOKABLE VxProperty *findProperty(const QString &name) const;

    /// Takes ownership and appends. path is the group path, see VxProperty::getPath(). Returns
    /// the property, or null when it has an owner or its name is taken (then it is not taken).
    VxProperty *addProperty(VxProperty *property, const QString &path);
    /// Removes a property and destroys it, after propertyRemoved(). False when it is not one of
    /// the element's own.
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
    /// The element is about to leave the scene, or to be destroyed.
    void aboutToBeRemoved();

protected:
    class Private;
    VxElement(const QString &name, Private *priv);
    Private *priv() const { return d.get(); }
    /// Further elements whose properties the group tree lists after the element's own.
    virtual QVector<VxElement *> groupedElements() const;
    /// Forgets the group tree; call when groupedElements() changes or what they own.
    void invalidatePropertyGroups();
    friend class VxObject;
    friend class VxScene;

private:
    std::unique_ptr<Private> d;
};

#endif
