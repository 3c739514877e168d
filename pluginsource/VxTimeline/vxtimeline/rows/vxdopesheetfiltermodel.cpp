#include "vxtimeline/rows/vxdopesheetfiltermodel.h"

#include "vxtimeline/rows/dopesheetwalk.h"
#include "vxtimeline/rows/vxdopesheetitem.h"
#include "vxtimeline/rows/vxdopesheetmodel.h"

#include <QtCore/QHash>
#include <QtCore/QSet>
#include <QtCore/QSignalBlocker>
#include <vector>
#include <vxcore/vxnode.h>

namespace {

// So many rows at the top level are filtered by a reset of the model.
constexpr int ManyRows = 4000;

enum Match : quint8 { NoMatch = 0, OwnMatch = 1, MatchBelow = 2 };

} // namespace

class VxDopeSheetFilterModel::Private
{
public:
    // Bits of Match by the source rows' internal ids; empty while invalid.
    QHash<quintptr, quint8> matches;
    // Both empty while all nodes are shown.
    QSet<const VxNode *> isolated;
    QSet<const VxNode *> aboveIsolated;

    // The match bits of a source row; -1 if unknown.
    int matchOf(const QModelIndex &row) const
    {
        const auto found = matches.constFind(row.internalId());
        return found == matches.cend() ? -1 : *found;
    }
};

VxDopeSheetFilterModel::VxDopeSheetFilterModel(QObject *parent)
    : QSortFilterProxyModel(parent)
    , d(std::make_unique<Private>())
{
}

VxDopeSheetFilterModel::~VxDopeSheetFilterModel() = default;

// Connected before the base class, which filters rows as soon as they are added.
void VxDopeSheetFilterModel::setSourceModel(QAbstractItemModel *model)
{
    invalidateMatches();
    if (sourceModel())
        disconnect(sourceModel(), nullptr, this, nullptr);
    if (auto *former = qobject_cast<VxDopeSheetModel *>(sourceModel()))
        former->setNameFilter(nullptr);
    if (auto *rows = qobject_cast<VxDopeSheetModel *>(model))
        rows->setNameFilter(this);
    if (model) {
        const auto invalidate = &VxDopeSheetFilterModel::invalidateMatches;
        connect(model, &QAbstractItemModel::rowsAboutToBeInserted, this, invalidate);
        connect(model, &QAbstractItemModel::rowsAboutToBeRemoved, this, invalidate);
        connect(model, &QAbstractItemModel::rowsAboutToBeMoved, this, invalidate);
        connect(model, &QAbstractItemModel::layoutAboutToBeChanged, this, invalidate);
        connect(model, &QAbstractItemModel::modelAboutToBeReset, this, invalidate);
        connect(model, &QAbstractItemModel::dataChanged, this,
                invalidate); // names may have changed
    }
    QSortFilterProxyModel::setSourceModel(model);
}

// The base class would filter all rows to say how many columns they have.
int VxDopeSheetFilterModel::columnCount(const QModelIndex &parent) const
{
    return sourceModel() ? sourceModel()->columnCount(mapToSource(parent)) : 0;
}

// The base class would keep a table of no rows for a parent whose rows are left out because they
// are not yet created, and would use it without the filter, too.
int VxDopeSheetFilterModel::rowCount(const QModelIndex &parent) const
{
    const bool isEmpty = sourceModel() && sourceModel()->rowCount(mapToSource(parent)) == 0;
    return isEmpty ? 0 : QSortFilterProxyModel::rowCount(parent);
}

void VxDopeSheetFilterModel::invalidateMatches()
{
    d->matches.clear();
}

// The base class removes and inserts each run of rows by itself, and takes time for it in
// proportion to all rows of their parent. Without a source model it has nothing to do.
void VxDopeSheetFilterModel::refilter(const QRegExp &pattern)
{
    QAbstractItemModel *model = sourceModel();
    if (!model || model->rowCount() < ManyRows) {
        findMatches(pattern);
        setFilterRegExp(pattern);
        return;
    }
    beginResetModel();
    {
        const QSignalBlocker quiet(this);
        QSortFilterProxyModel::setSourceModel(nullptr);
        setFilterRegExp(pattern);
        QSortFilterProxyModel::setSourceModel(model);
        findMatches(pattern);
    }
    endResetModel();
}

void VxDopeSheetFilterModel::refilter()
{
    findMatches(filterRegExp());
    invalidate();
}

void VxDopeSheetFilterModel::findMatches(const QRegExp &pattern)
{
    d->matches.clear();
    if (!sourceModel() || !isRecursiveFilteringEnabled() || pattern.isEmpty())
        return;
    d->matches.reserve(sourceModel()->rowCount());
    addMatchesBelow(QModelIndex(), pattern);
}

// Children follow their parents in the list, so that a walk from its end has the results of all
// rows below a row. Rows not yet created are not created for this.
void VxDopeSheetFilterModel::addMatchesBelow(const QModelIndex &top, const QRegExp &pattern) const
{
    const auto *source = qobject_cast<const VxDopeSheetModel *>(sourceModel());
    std::vector<QModelIndex> rows;
    DopeSheetWalk::visitBelow(sourceModel(), top, [&](const QModelIndex &row) {
        rows.push_back(row);
        const auto toMake = source ? source->matchRowsToMake(source->getItem(row), pattern)
                                   : VxDopeSheetModel::NoRowsToMake;
        if (toMake == VxDopeSheetModel::SomeMatch)
            d->matches[row.internalId()] = MatchBelow;
        return toMake == VxDopeSheetModel::NoRowsToMake;
    });
    for (auto row = rows.crbegin(); row != rows.crend(); ++row) {
        quint8 &match = d->matches[row->internalId()];
        const bool isMatch = row->data(filterRole()).toString().contains(pattern);
        match = quint8(match | (isMatch ? OwnMatch : NoMatch));
        const bool leadsToMatch = match != NoMatch;
        const QModelIndex above = row->parent();
        if (leadsToMatch && above.isValid())
            d->matches[above.internalId()] |= MatchBelow;
    }
}

// Unknown rows were created since the search.
bool VxDopeSheetFilterModel::hasMatchBelow(const QModelIndex &index) const
{
    const QModelIndex row = mapToSource(index);
    if (!d->matches.isEmpty() && row.isValid() && d->matchOf(row) < 0)
        addMatchesBelow(row.parent(), filterRegExp());
    const int match = d->matchOf(row);
    return match > 0 && (match & MatchBelow);
}

// For a row below others that are left out the base class would make tables for all of these.
QModelIndex VxDopeSheetFilterModel::findShown(const QModelIndex &sourceRow) const
{
    const bool isLeftOut = sourceRow.isValid() && d->matchOf(sourceRow) == NoMatch;
    return isLeftOut ? QModelIndex() : mapFromSource(sourceRow);
}

void VxDopeSheetFilterModel::setIsolatedNodes(const QVector<VxNode *> &nodes)
{
    d->isolated.clear();
    d->aboveIsolated.clear();
    for (const VxNode *node : nodes) {
        d->isolated.insert(node);
        for (const VxNode *above = node->getNodeParent();
             above && !d->aboveIsolated.contains(above); above = above->getNodeParent())
            d->aboveIsolated.insert(above);
    }
    refilter(filterRegExp());
}

bool VxDopeSheetFilterModel::isIsolated(const QModelIndex &sourceRow) const
{
    const auto *source = qobject_cast<const VxDopeSheetModel *>(sourceModel());
    const VxDopeSheetItem *item = source ? source->getItem(sourceRow) : nullptr;
    return !item || d->isolated.contains(item->ownerNode()) ||
           d->aboveIsolated.contains(item->node());
}

bool VxDopeSheetFilterModel::filterAcceptsRow(int row, const QModelIndex &parent) const
{
    if (!d->isolated.isEmpty() && !isIsolated(sourceModel()->index(row, 0, parent)))
        return false;
    const int match = d->matches.isEmpty() ? -1 : d->matchOf(sourceModel()->index(row, 0, parent));
    return match >= 0 ? match != NoMatch : QSortFilterProxyModel::filterAcceptsRow(row, parent);
}
