#include "keytools/keytablemodel.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QPalette>
#include <vxcore/vxlocalnumber.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxscenetimedisplay.h>
#include <vxcore/vxtextstyle.h>

// A reset would cost views their current cell and the widths of columns: rows are added or removed
// at the end instead, and all cells are reported as changed.
template <class Change> void KeyTableModel::change(const Change &change)
{
    KeyTableRows rows = m_rows;
    change(&rows);
    const int count = rows.count();
    if (count < m_count)
        beginRemoveRows(QModelIndex(), count, m_count - 1);
    else if (count > m_count)
        beginInsertRows(QModelIndex(), m_count, count - 1);
    const int before = m_count;
    m_rows = std::move(rows);
    m_count = count;
    if (count < before)
        endRemoveRows();
    else if (count > before)
        endInsertRows();
    if (count > 0)
        Q_EMIT dataChanged(index(0, 0), index(count - 1, KeyTableColumns - 1));
}

void KeyTableModel::refresh()
{
    KeyTargets targets = KeyTargets::listed();
    if (!isStale() && targets == m_rows.targets() && m_rows.areNamesCurrent())
        return;
    m_revision = VxProperty::latestKeyRevision();
    change([&targets](KeyTableRows *rows) { rows->setTargets(std::move(targets)); });
}

bool KeyTableModel::isStale() const
{
    return m_revision != VxProperty::latestKeyRevision() || !m_rows.areAlive();
}

void KeyTableModel::setFilter(const QString &text)
{
    change([&text](KeyTableRows *rows) { rows->setFilter(text); });
}

void KeyTableModel::setTimeUnit(std::optional<VxTimeDisplay::Unit> unit)
{
    m_unit = unit;
    updateTimes();
}

VxTimeDisplay KeyTableModel::timeDisplay() const
{
    VxTimeDisplay display = VxSceneTimeDisplay::displayOf(vxScene);
    display.unit = m_unit.value_or(display.unit);
    return display;
}

void KeyTableModel::updateTimes()
{
    if (m_count > 0)
        Q_EMIT dataChanged(index(0, int(KeyTableColumn::Time)),
                           index(m_count - 1, int(KeyTableColumn::Time)));
}

int KeyTableModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_count;
}

int KeyTableModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : KeyTableColumns;
}

QString KeyTableModel::shownText(const QModelIndex &index) const
{
    const auto column = KeyTableColumn(index.column());
    const QString text = KeyTableCells::text(m_rows, index.row(), column, timeDisplay());
    return column < KeyTableColumn::Time || column == KeyTableColumn::Type ? text
                                                                           : vxLocalNumber(text);
}

QVariant KeyTableModel::data(const QModelIndex &index, int role) const
{
    const auto column = KeyTableColumn(index.column());
    if (role == Qt::DisplayRole || role == Qt::EditRole)
        return shownText(index);
    if (role == Qt::ToolTipRole)
        return vxToolTipText(shownText(index));
    if (role == Qt::ForegroundRole && KeyTableCells::isReadOnly(m_rows, index.row()))
        return QGuiApplication::palette().brush(QPalette::Disabled, QPalette::Text);
    if (role == Qt::TextAlignmentRole && index.column() >= int(KeyTableColumn::Time) &&
        column != KeyTableColumn::Type)
        return int(Qt::AlignRight | Qt::AlignVCenter);
    return QVariant();
}

QVariant KeyTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole)
        return QVariant();
    return orientation == Qt::Horizontal ? QVariant(KeyTableCells::title(KeyTableColumn(section)))
                                         : QVariant(section + 1);
}

Qt::ItemFlags KeyTableModel::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    return index.isValid() &&
                   KeyTableCells::isEditable(m_rows, index.row(), KeyTableColumn(index.column()))
               ? flags | Qt::ItemIsEditable
               : flags;
}

void KeyTableModel::sort(int column, Qt::SortOrder order)
{
    change([column, order](KeyTableRows *rows) {
        if (column < 0)
            rows->unsort();
        else
            rows->sort(KeyTableColumn(column), order);
    });
}
