#ifndef VXCORE_VXPROPERTYLISTITEMMODEL_H
#define VXCORE_VXPROPERTYLISTITEMMODEL_H

#include <QtCore/QAbstractItemModel>
#include <QtCore/QVector>
#include <memory>
#include <vxcore/vxcoreglobal.h>

class VxNode;
class VxProperty;
class VxPropertyListNode;

/// The properties of a node as a flat list with two columns: label and value at the scene's time.
/// Hidden properties are left out. It follows the scene's time, the properties' changes and their
/// coming and going.
class VXCORE_EXPORT VxPropertyListItemModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    enum Column { LabelColumn, ValueColumn, NumColumns };

    explicit VxPropertyListItemModel(QObject *parent = nullptr);
    ~VxPropertyListItemModel() override;

    /// The node whose properties are listed; null for none. Not owned.
    VxNode *getNode() const;
    void setNode(VxNode *node);

    /// The list node of a row, or null for an invalid index. Owned by the model; ref() it to keep
    /// it.
    VxPropertyListNode *getPropertyListNode(const QModelIndex &index) const;
    /// The index (label column) of a property's row; invalid when it is not listed.
    QModelIndex findProperty(const VxProperty *property) const;

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

private:
    class Private;
    std::unique_ptr<Private> d;
};

#endif
