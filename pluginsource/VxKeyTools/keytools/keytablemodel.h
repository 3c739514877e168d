#ifndef KEYTABLEMODEL_H
#define KEYTABLEMODEL_H

#include "keytools/keytablecells.h"

#include <QtCore/QAbstractTableModel>
#include <optional>

/// The rows of the key table for a view. Edits go through KeyTableCells.
class KeyTableModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    using QAbstractTableModel::QAbstractTableModel;

    const KeyTableRows &rows() const { return m_rows; }
    /// Shows the present targets of the key tools.
    void refresh();
    /// True when keys have changed since the last refresh.
    bool isStale() const;
    void setFilter(const QString &text);
    /// Shows times in a unit of the table's own; null for the scene's.
    void setTimeUnit(std::optional<VxTimeDisplay::Unit> unit);
    /// The present unit, with the scene's rate of timecodes.
    VxTimeDisplay timeDisplay() const;
    /// The time display of the scene has changed.
    void updateTimes();

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    /// A negative column restores the order of the views.
    void sort(int column, Qt::SortOrder order) override;

private:
    QString shownText(const QModelIndex &index) const;
    template <class Change> void change(const Change &change);

    KeyTableRows m_rows;
    int m_count = 0; // as announced to views
    quint64 m_revision = 0;
    std::optional<VxTimeDisplay::Unit> m_unit;
};

#endif
