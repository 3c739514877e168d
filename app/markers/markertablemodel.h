#ifndef MARKERTABLEMODEL_H
#define MARKERTABLEMODEL_H

#include <QAbstractTableModel>
#include <vxcore/vxmarkers.h>

class VxScene;

/// The markers of a scene as a table, a row each in the order of time. Times are shown and typed in
/// the scene's unit; a typed change such as "+10" moves a time. Each edit is one undo entry.
class MarkerTableModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    enum Column { Name, Start, End, Colour, ColumnCount };
    /// Raw values, to sort by.
    static constexpr int SortRole = Qt::UserRole;

    /// scene: borrowed.
    explicit MarkerTableModel(VxScene *scene, QObject *parent = nullptr);

    /// The marker of a row as the table shows it.
    const VxMarker &markerAt(int row) const { return m_markers.at(row); }

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    /// False, with refused() emitted, for a text that cannot be used.
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;

Q_SIGNALS:
    void refused(const QString &message);

private:
    void refresh();
    QString text(const VxMarker &marker, int column) const;
    bool setTime(const VxMarker &marker, bool isStart, const QString &typed);

    VxScene *const m_scene;
    VxMarkerList m_markers; // as announced to views
};

#endif
