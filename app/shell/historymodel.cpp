#include "shell/historymodel.h"

#include <QApplication>
#include <QFont>
#include <QPalette>
#include <QUndoStack>
#include <algorithm>
#include <vxcore/vxundostack.h>

HistoryModel::HistoryModel(VxUndoStack *history, QObject *parent)
    : QAbstractListModel(parent)
    , m_history(history)
{
    connect(history, &VxUndoStack::indexChanged, this, &HistoryModel::refresh);
    connect(history, &VxUndoStack::cleanChanged, this, &HistoryModel::refresh);
    refresh();
}

int HistoryModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_entries.size() + 1;
}

int HistoryModel::presentRow() const
{
    return qMin(m_history->index(), m_entries.size());
}

QVariant HistoryModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return QVariant();
    const int row = index.row();
    const bool isClean = m_history->qtStack()->cleanIndex() == row;
    switch (role) {
    case Qt::DisplayRole:
        return row == 0 ? tr("Start") : m_history->text(row - 1);
    case CleanRole:
        return isClean;
    case Qt::ToolTipRole:
        return isClean ? tr("The saved state") : QVariant();
    case Qt::ForegroundRole:
        return row > presentRow()
                   ? QApplication::palette().brush(QPalette::Disabled, QPalette::Text)
                   : QVariant();
    default:
        return QVariant();
    }
}

void HistoryModel::refresh()
{
    const QUndoStack *stack = m_history->qtStack();
    QVector<const QUndoCommand *> entries;
    for (int i = 0; i < stack->count(); ++i)
        entries.append(stack->command(i));
    const int same = int(std::mismatch(entries.cbegin(),
                                       entries.cbegin() + qMin(entries.size(), m_entries.size()),
                                       m_entries.cbegin())
                             .first -
                         entries.cbegin());
    // Entry i is row i + 1.
    if (same < m_entries.size()) {
        beginRemoveRows(QModelIndex(), same + 1, m_entries.size());
        m_entries.resize(same);
        endRemoveRows();
    }
    if (same < entries.size()) {
        beginInsertRows(QModelIndex(), same + 1, entries.size());
        m_entries = entries;
        endInsertRows();
    }
    Q_EMIT dataChanged(index(0), index(m_entries.size()));
    Q_EMIT presentChanged();
}
