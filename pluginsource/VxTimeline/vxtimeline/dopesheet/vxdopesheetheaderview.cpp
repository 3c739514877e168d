#include "vxtimeline/dopesheet/vxdopesheetheaderview.h"

class VxDopeSheetHeaderView::Private
{
};

VxDopeSheetHeaderView::VxDopeSheetHeaderView(QWidget *parent)
    : QHeaderView(Qt::Horizontal, parent)
{
    setMouseTracking(true);
    setStretchLastSection(true);
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
