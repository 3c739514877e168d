#include "vxtimeline/dopesheet/dopesheetselectionmodel.h"

#include <QtCore/QSignalBlocker>
#include <algorithm>
#include <utility>

namespace {

using RowSpan = DopeSheetSelectionModel::RowSpan;
using RowSpans = std::vector<RowSpan>;

// Sorted.
RowSpans spansOf(const QItemSelection &selection)
{
    RowSpans spans;
    spans.reserve(size_t(selection.size()));
    for (const QItemSelectionRange &range : selection) {
        if (range.isValid())
            spans.push_back({range.parent(), range.top(), range.bottom()});
    }
    std::sort(spans.begin(), spans.end());
    return spans;
}

// Contiguous rows as one span: the fewer spans, the less each query of a row costs.
RowSpans spansOf(const std::vector<QModelIndex> &rows)
{
    RowSpans sorted;
    sorted.reserve(rows.size());
    for (const QModelIndex &row : rows)
        sorted.push_back({row.parent(), row.row(), row.row()});
    std::sort(sorted.begin(), sorted.end());
    RowSpans spans;
    for (const RowSpan &row : sorted) {
        const bool continues = !spans.empty() && spans.back().parent == row.parent &&
                               row.top <= spans.back().bottom + 1;
        if (continues)
            spans.back().bottom = row.bottom;
        else
            spans.push_back(row);
    }
    return spans;
}

bool areDisjoint(const RowSpans &spans)
{
    const auto meet = [](const RowSpan &a, const RowSpan &b) { return a.meets(b); };
    return std::adjacent_find(spans.begin(), spans.end(), meet) == spans.end();
}

QItemSelection wholeRows(const QAbstractItemModel *model, const RowSpans &spans)
{
    QItemSelection rows;
    rows.reserve(int(spans.size()));
    for (const RowSpan &span : spans) {
        const int last = model->columnCount(span.parent) - 1;
        rows.append(QItemSelectionRange(model->index(span.top, 0, span.parent),
                                        model->index(span.bottom, last, span.parent)));
    }
    return rows;
}

// The rows of some spans that no others include; both sorted and disjoint.
RowSpans difference(const RowSpans &spans, const RowSpans &others)
{
    RowSpans left;
    auto other = others.cbegin();
    for (RowSpan span : spans) {
        while (other != others.cend() && *other < span && !other->meets(span))
            ++other;
        for (auto next = other; next != others.cend() && span.overlaps(*next); ++next) {
            if (next->top > span.top)
                left.push_back({span.parent, span.top, next->top - 1});
            span.top = next->bottom + 1;
        }
        if (span.top <= span.bottom)
            left.push_back(span);
    }
    return left;
}

} // namespace

DopeSheetSelectionModel::DopeSheetSelectionModel(QAbstractItemModel *model, QObject *parent)
    : QItemSelectionModel(model, parent)
{
    const auto invalidate = &DopeSheetSelectionModel::invalidateSpans;
    connect(this, &QItemSelectionModel::selectionChanged, this, invalidate);
    connect(model, &QAbstractItemModel::rowsInserted, this, invalidate);
    connect(model, &QAbstractItemModel::rowsRemoved, this, invalidate);
    connect(model, &QAbstractItemModel::rowsMoved, this, invalidate);
    connect(model, &QAbstractItemModel::layoutChanged, this, invalidate);
    connect(model, &QAbstractItemModel::modelReset, this, invalidate);
}

void DopeSheetSelectionModel::invalidateSpans()
{
    m_isValid = false;
}

bool DopeSheetSelectionModel::isRowSelected(const QModelIndex &index) const
{
    if (!index.isValid() || index.model() != model())
        return false;
    updateSpans();
    const RowSpan row{index.parent(), index.row(), index.row()};
    const auto after = std::upper_bound(m_sorted.cbegin(), m_sorted.cend(), row);
    return after != m_sorted.cbegin() && std::prev(after)->meets(row);
}

void DopeSheetSelectionModel::updateSpans() const
{
    if (std::exchange(m_isValid, true))
        return;
    m_spans.clear();
    for (const QItemSelectionRange &range : selection()) {
        if (range.isValid() && range.left() == 0)
            m_spans.push_back({range.parent(), range.top(), range.bottom()});
    }
    m_sorted = m_spans;
    std::sort(m_sorted.begin(), m_sorted.end());
}

// Receivers of selectionChanged() may query rows before this object's own slot runs.
void DopeSheetSelectionModel::select(const QItemSelection &selection, SelectionFlags command)
{
    invalidateSpans();
    if (command & Rows && selection.size() > 1) {
        const RowSpans spans = spansOf(selection);
        if (areDisjoint(spans)) {
            selectRows(wholeRows(model(), spans), command & ~SelectionFlags(Rows));
            return;
        }
    }
    QItemSelectionModel::select(selection, command);
}

// The base class compares every range that was selected with every one that will be.
void DopeSheetSelectionModel::selectRows(const QItemSelection &rows, SelectionFlags command)
{
    const bool replaces = (command & Clear) && (command & Select) && !(command & Deselect);
    const QItemSelection before = replaces ? selection() : QItemSelection();
    if (before.isEmpty()) {
        QItemSelectionModel::select(rows, command);
        return;
    }
    const RowSpans former = spansOf(before);
    const RowSpans present = spansOf(rows);
    const QItemSelection selected = wholeRows(model(), difference(present, former));
    const QItemSelection deselected = wholeRows(model(), difference(former, present));
    {
        const QSignalBlocker quiet(this);
        QItemSelectionModel::select(QItemSelection(), Clear);
        QItemSelectionModel::select(rows, command & ~SelectionFlags(Clear));
    }
    if (!selected.isEmpty() || !deselected.isEmpty())
        Q_EMIT selectionChanged(selected, deselected);
}

void DopeSheetSelectionModel::selectOnly(const std::vector<QModelIndex> &rows)
{
    const QSignalBlocker blocker(this);
    select(QItemSelection(), Clear);
    select(wholeRows(model(), spansOf(rows)), Select);
}
