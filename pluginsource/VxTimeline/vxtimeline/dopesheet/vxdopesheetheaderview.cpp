#include "vxtimeline/dopesheet/vxdopesheetheaderview.h"

#include <QtGui/QPainter>
#include <QtWidgets/QStyleOptionHeader>

class VxDopeSheetHeaderView::Private
{
};

VxDopeSheetHeaderView::VxDopeSheetHeaderView(QWidget *parent)
    : QHeaderView(Qt::Horizontal, parent)
{
    setMouseTracking(true);
    setStretchLastSection(true);
    setMinimumSectionSize(0);
    connect(this, &QHeaderView::sectionResized, this, &VxDopeSheetHeaderView::handleSectionResized);
    connect(this, &QHeaderView::sectionMoved, this, &VxDopeSheetHeaderView::handleSectionMoved);
}

VxDopeSheetHeaderView::~VxDopeSheetHeaderView() = default;

QSize VxDopeSheetHeaderView::sizeHint() const
{
    return QHeaderView::sizeHint().expandedTo(minimumSize());
}

void VxDopeSheetHeaderView::updateViewport()
{
    viewport()->update();
}

void VxDopeSheetHeaderView::handleSectionResized(int logicalIdx)
{
    Q_UNUSED(logicalIdx)
    updateViewport();
}

void VxDopeSheetHeaderView::handleSectionMoved(int logicalIdx, int oldVisualIndex,
                                               int newVisualIndex)
{
    Q_UNUSED(logicalIdx)
    Q_UNUSED(oldVisualIndex)
    Q_UNUSED(newVisualIndex)
    updateViewport();
}

void VxDopeSheetHeaderView::leaveEvent(QEvent *event)
{
    QHeaderView::leaveEvent(event);
    updateViewport();
}

void VxDopeSheetHeaderView::paintSection(QPainter *painter, const QRect &rect,
                                         int logicalIndex) const
{
    if (!rect.isValid())
        return;
    QStyleOptionHeader option;
    initStyleOption(&option);
    option.rect = rect;
    option.section = logicalIndex;
    option.position = logicalIndex == 0 ? QStyleOptionHeader::Beginning : QStyleOptionHeader::End;
    style()->drawControl(QStyle::CE_HeaderSection, &option, painter, this);
}
