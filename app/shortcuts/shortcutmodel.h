#ifndef SHORTCUTMODEL_H
#define SHORTCUTMODEL_H

#include "shortcuts/shortcutlist.h"

#include <QAbstractItemModel>
#include <QSortFilterProxyModel>
#include <QStringList>

/// The commands of a shortcut list, as children of their groups.
class ShortcutModel : public QAbstractItemModel
{
    Q_OBJECT
public:
    enum Column { CommandColumn, ShortcutColumn, NumColumns };
    enum Role {
        CommandRole = Qt::UserRole, ///< the command's index in the list; -1 for a group
        SearchRole                  ///< all words for the search
    };

    explicit ShortcutModel(const ShortcutList &list, QObject *parent = nullptr);

    const ShortcutList &list() const { return m_list; }
    /// Like the list's functions.
    void assign(int command, const QKeySequence &shortcut);
    void resetAll();
    void markApplied() { m_list.markApplied(); }
    /// The row of a command, in the first column.
    QModelIndex indexOf(int command) const;

    QModelIndex index(int row, int column, const QModelIndex &parent = {}) const override;
    QModelIndex parent(const QModelIndex &index) const override;
    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex & = {}) const override { return NumColumns; }
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

Q_SIGNALS:
    void edited();

private:
    struct Group
    {
        QString title;
        QVector<int> commands;
    };

    QVariant groupData(const Group &group, int column, int role) const;
    QVariant commandData(int command, int column, int role) const;
    QString shown(int command, int column) const;

    ShortcutList m_list;
    QVector<Group> m_groups;
};

/// Filters for commands that contain every typed word.
class ShortcutSearch : public QSortFilterProxyModel
{
    Q_OBJECT
public:
    explicit ShortcutSearch(QObject *parent = nullptr);
    void setText(const QString &text);

protected:
    bool filterAcceptsRow(int row, const QModelIndex &parent) const override;

private:
    QStringList m_words;
};

#endif
