#ifndef VXPROPERTYLISTITEMMODEL_H
#define VXPROPERTYLISTITEMMODEL_H

#include <QtCore/QAbstractItemModel>
#include <QtCore/QVector>
#include <memory>
#include <vxcore/vxcoreglobal.h>

class VxNode;
class VxProperty;
class VxPropertyListNode;

/// The properties of one or several nodes as a list with three columns: label, value at the
/// scene's time, and the state of the keys there.
///
/// The list is flat: the heading of a group is a row like the others, followed by the group's
/// properties, so that iterating over rows visits everything. The first node determines the
/// rows; a row also represents the properties of the same name, group and kind of the others.
/// Hidden properties are left out. The model follows the scene's time and changes of properties at
/// once, added and removed properties at the next event loop iteration: until then a row lacks the
/// removed property.
class VXCORE_EXPORT VxPropertyListItemModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    enum Column { LabelColumn, ValueColumn, KeyColumn, NumColumns };

    /// Beyond the toolkit's roles, of every column. KeyStateRole: a KeyState. MixedRole: true when
    /// the row represents several properties with different values; the value's text is then a
    /// word for that, and empty for editing.
    enum Role { KeyStateRole = Qt::UserRole + 1, MixedRole };

    enum KeyState {
        NotKeyable, ///< cannot have keys, or the row is a heading
        NoKeys,
        Keyed,    ///< each of the row's properties has keys, but none at the scene's time
        OnKey,    ///< each of the row's properties has a key at exactly the scene's time
        MixedKeys ///< the row's properties differ in this
    };
    Q_ENUM(KeyState)

    explicit VxPropertyListItemModel(QObject *parent = nullptr);
    ~VxPropertyListItemModel() override;

    /// The node whose properties are listed; null for none. Not owned.
    VxNode *getNode() const;
    void setNode(VxNode *node);
    /// The same for several nodes, the decisive one first; no duplicates.
    QVector<VxNode *> getNodes() const;
    void setNodes(const QVector<VxNode *> &nodes);

    /// The list node of a row, or null for an invalid index. Owned by the model; ref() to keep it.
    VxPropertyListNode *getPropertyListNode(const QModelIndex &index) const;
    /// The index (label column) of a property's row; invalid when it is not listed.
    QModelIndex findProperty(const VxProperty *property) const;
    bool isHeading(const QModelIndex &index) const;
    /// The group path of a heading or a property; empty for an invalid index.
    QString getGroupPath(const QModelIndex &index) const;

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    /// Applies the text of a value to all of the row's properties: one undo entry.
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

private:
    class Private;
    std::unique_ptr<Private> d;
};

#endif
