#include "scenetree/treeindentation.h"

#include <QAbstractItemDelegate>
#include <QEvent>
#include <QHeaderView>
#include <QTreeView>

namespace {

constexpr int MinIndentation = 6; // pixels, the least that still distinguishes levels

int depthOf(const QModelIndex &index)
{
    int depth = 1;
    for (QModelIndex above = index.parent(); above.isValid(); above = above.parent())
        ++depth;
    return depth;
}

} // namespace

TreeIndentation::TreeIndentation(QTreeView *view)
    : QObject(view)
    , m_view(view)
    , m_most(view->indentation())
{
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &TreeIndentation::fit);
    const auto later = [this] { m_timer.start(0); };
    connect(view, &QTreeView::expanded, this, later);
    connect(view, &QTreeView::collapsed, this, later);
    const QAbstractItemModel *model = view->model();
    connect(model, &QAbstractItemModel::rowsInserted, this, later);
    connect(model, &QAbstractItemModel::rowsRemoved, this, later);
    connect(model, &QAbstractItemModel::rowsMoved, this, later);
    connect(model, &QAbstractItemModel::modelReset, this, later);
    connect(view->header(), &QHeaderView::sectionResized, this, later);
    view->installEventFilter(this);
    later();
}

int TreeIndentation::fitting(const QVector<Row> &rows, int room, int most, int least)
{
    int fits = most;
    for (const Row &row : rows)
        fits = qMin(fits, (room - qMin(row.width, room / 2)) / row.depth);
    return qMax(fits, least);
}

/** Measures again after a change of font. */
bool TreeIndentation::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        m_timer.start(0);
    return QObject::eventFilter(watched, event);
}

void TreeIndentation::fit()
{
    const QAbstractItemModel *model = m_view->model();
    QStyleOptionViewItem option;
    option.initFrom(m_view);
    option.decorationSize = m_view->iconSize().isValid()
                                ? m_view->iconSize()
                                : QSize(option.fontMetrics.height(), option.fontMetrics.height());
    QVector<Row> rows;
    for (QModelIndex index = model->index(0, 0); index.isValid(); index = m_view->indexBelow(index))
        rows.append({depthOf(index), m_view->itemDelegate(index)->sizeHint(option, index).width()});
    const int target = fitting(rows, m_view->columnWidth(0), m_most, MinIndentation);
    if (target != m_view->indentation())
        m_view->setIndentation(target);
}
