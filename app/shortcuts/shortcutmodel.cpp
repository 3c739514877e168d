#include "shortcuts/shortcutmodel.h"

#include <QFont>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QPalette>
#include <QSize>

namespace {

// The id of an index: 0 for a group, else the group's number and one.
constexpr quintptr GroupId = 0;
constexpr int RowPadding = 6; // pixels

QBrush faded()
{
    return QGuiApplication::palette().brush(QPalette::Disabled, QPalette::Text);
}

} // namespace

ShortcutModel::ShortcutModel(const ShortcutList &list, QObject *parent)
    : QAbstractItemModel(parent)
    , m_list(list)
{
    QHash<QString, int> numbers;
    for (int i = 0; i < list.count(); ++i) {
        const QString title = list.at(i).group;
        if (!numbers.contains(title)) {
            numbers.insert(title, m_groups.size());
            m_groups.append({title, {}});
        }
        m_groups[numbers.value(title)].commands.append(i);
    }
}

void ShortcutModel::assign(int command, const QKeySequence &shortcut)
{
    const QVector<int> changed = m_list.assign(command, shortcut);
    for (const int each : changed) {
        const QModelIndex first = indexOf(each);
        Q_EMIT dataChanged(first, first.siblingAtColumn(ShortcutColumn));
    }
    if (!changed.isEmpty())
        Q_EMIT edited();
}

void ShortcutModel::resetAll()
{
    m_list.resetAll();
    for (int i = 0; i < m_groups.size(); ++i) {
        const QModelIndex group = index(i, 0);
        Q_EMIT dataChanged(index(0, 0, group), index(rowCount(group) - 1, ShortcutColumn, group));
    }
    Q_EMIT edited();
}

QModelIndex ShortcutModel::indexOf(int command) const
{
    for (int i = 0; i < m_groups.size(); ++i) {
        const int row = m_groups.at(i).commands.indexOf(command);
        if (row >= 0)
            return createIndex(row, CommandColumn, quintptr(i) + 1);
    }
    return {};
}

QModelIndex ShortcutModel::index(int row, int column, const QModelIndex &parent) const
{
    if (!hasIndex(row, column, parent))
        return {};
    return createIndex(row, column, parent.isValid() ? quintptr(parent.row()) + 1 : GroupId);
}

QModelIndex ShortcutModel::parent(const QModelIndex &index) const
{
    if (!index.isValid() || index.internalId() == GroupId)
        return {};
    return createIndex(int(index.internalId()) - 1, 0, GroupId);
}

int ShortcutModel::rowCount(const QModelIndex &parent) const
{
    if (!parent.isValid())
        return m_groups.size();
    const bool isGroup = parent.internalId() == GroupId && parent.column() == 0;
    return isGroup ? m_groups.at(parent.row()).commands.size() : 0;
}

QVariant ShortcutModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    if (role == Qt::SizeHintRole)
        return QSize(0, QFontMetrics(QGuiApplication::font()).height() + RowPadding);
    if (index.internalId() == GroupId)
        return groupData(m_groups.at(index.row()), index.column(), role);
    const Group &group = m_groups.at(int(index.internalId()) - 1);
    return commandData(group.commands.at(index.row()), index.column(), role);
}

QVariant ShortcutModel::groupData(const Group &group, int column, int role) const
{
    if (role == CommandRole)
        return -1;
    if (role == Qt::DisplayRole && column == CommandColumn)
        return group.title;
    if (role == Qt::FontRole) {
        QFont font;
        font.setBold(true);
        return font;
    }
    return {};
}

QVariant ShortcutModel::commandData(int command, int column, int role) const
{
    const ShortcutCommand &entry = m_list.at(command);
    switch (role) {
    case Qt::DisplayRole:
        return shown(command, column);
    case Qt::ToolTipRole:
        return entry.description;
    case Qt::ForegroundRole:
        return entry.isFixed() ? QVariant(faded()) : QVariant();
    case Qt::FontRole:
        if (column == ShortcutColumn && !m_list.isStandard(command)) {
            QFont changed;
            changed.setItalic(true);
            return changed;
        }
        return {};
    case CommandRole:
        return command;
    case SearchRole:
        return QStringList({entry.group, entry.text, entry.description, entry.className,
                            shown(command, ShortcutColumn)})
            .join(QLatin1Char('\n'));
    default:
        return {};
    }
}

QString ShortcutModel::shown(int command, int column) const
{
    const ShortcutCommand &entry = m_list.at(command);
    return column == CommandColumn ? entry.text : entry.current.toString(QKeySequence::NativeText);
}

QVariant ShortcutModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return section == CommandColumn ? tr("Command") : tr("Shortcut");
}

Qt::ItemFlags ShortcutModel::flags(const QModelIndex &index) const
{
    return index.isValid() ? Qt::ItemIsEnabled | Qt::ItemIsSelectable : Qt::NoItemFlags;
}

ShortcutSearch::ShortcutSearch(QObject *parent)
    : QSortFilterProxyModel(parent)
{
    setRecursiveFilteringEnabled(true);
    // The edited command must not vanish when its shortcut no longer matches.
    setDynamicSortFilter(false);
}

void ShortcutSearch::setText(const QString &text)
{
    m_words = text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    invalidateFilter();
}

bool ShortcutSearch::filterAcceptsRow(int row, const QModelIndex &parent) const
{
    const QModelIndex index = sourceModel()->index(row, ShortcutModel::CommandColumn, parent);
    // A group is shown for its matching commands, whose texts include its name.
    if (index.data(ShortcutModel::CommandRole).toInt() < 0)
        return m_words.isEmpty();
    const QString text = index.data(ShortcutModel::SearchRole).toString();
    for (const QString &word : m_words) {
        if (!text.contains(word, Qt::CaseInsensitive))
            return false;
    }
    return true;
}
