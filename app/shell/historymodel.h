#ifndef HISTORYMODEL_H
#define HISTORYMODEL_H

#include <QAbstractListModel>
#include <QVector>

class QUndoCommand;
class VxUndoStack;

/// The entries of a history as a list: row 0 is the state before all of them, row n the state after
/// the n-th. The texts of states that are undone are dimmed; the one that counts as saved has a
/// mark.
class HistoryModel : public QAbstractListModel
{
    Q_OBJECT
public:
    /// True for the state that counts as saved.
    static constexpr int CleanRole = Qt::UserRole;

    /// The history must outlive the model.
    explicit HistoryModel(VxUndoStack *history, QObject *parent = nullptr);

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;

    /// The row of the present state.
    int presentRow() const;

Q_SIGNALS:
    /// The present state is in another row, or rows came or went.
    void presentChanged();

private:
    void refresh();

    VxUndoStack *const m_history;
    QVector<const QUndoCommand *> m_entries; // as shown; compared only
};

#endif
