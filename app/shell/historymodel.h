#ifndef HISTORYMODEL_H
#define HISTORYMODEL_H

#include <QAbstractListModel>
#include <QVector>

class QUndoCommand;
class VxUndoStack;

/// The entries of a history as a list: row 0 is the state before all of them, row n the state after
/// the n-th. The texts of undone states are dimmed; the saved one has a mark.
class HistoryModel : public QAbstractListModel
{
    Q_OBJECT
public:
    /// True for the saved state.
    static constexpr int CleanRole = Qt::UserRole;

    /// The history must outlive the model.
    explicit HistoryModel(VxUndoStack *history, QObject *parent = nullptr);

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;

    /// The row of the present state.
    int presentRow() const;

Q_SIGNALS:
    /// The present state has another row, or rows were added or removed.
    void presentChanged();

private:
    void refresh();

    VxUndoStack *const m_history;
    QVector<const QUndoCommand *> m_entries; // as shown; compared only
};

#endif
