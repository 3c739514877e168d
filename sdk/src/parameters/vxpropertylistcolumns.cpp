#include "parameters/vxpropertylistcolumns.h"

#include <QtWidgets/QHeaderView>
#include <QtWidgets/QTreeView>
#include <vxcore/vxpropertylistitemmodel.h>

namespace {

constexpr int KeyWidth = 22;
// Share of the value column, until the user sets its width.
constexpr qreal ValueShare = 0.38;
constexpr int NarrowestValue = 64;
constexpr int WidestValue = 160;
constexpr int CommonTextHeight = 19; // pixels
constexpr qreal LargestShare = 0.6;  // of a column whose width was set in a wider list

} // namespace

VxPropertyListColumns::VxPropertyListColumns(QTreeView *view)
    : m_view(view)
{
    QObject::connect(view->header(), &QHeaderView::sectionResized, view,
                     [this](int section, int, int width) {
                         if (section == VxPropertyListItemModel::ValueColumn && !m_isFitting)
                             m_valueWidth = width;
                     });
}

void VxPropertyListColumns::setUp()
{
    QHeaderView *header = m_view->header();
    header->setStretchLastSection(false);
    header->setTextElideMode(Qt::ElideRight);
    header->setSectionResizeMode(VxPropertyListItemModel::LabelColumn, QHeaderView::Stretch);
    header->setSectionResizeMode(VxPropertyListItemModel::KeyColumn, QHeaderView::Fixed);
    header->setMinimumSectionSize(KeyWidth);
    header->resizeSection(VxPropertyListItemModel::KeyColumn, KeyWidth);
    fit();
}

void VxPropertyListColumns::fit()
{
    if (!qobject_cast<VxPropertyListItemModel *>(m_view->model()))
        return;
    const int room = m_view->viewport()->width() - KeyWidth;
    // The limits are for texts of common size.
    const auto forText = [this](int width) {
        return qMax(width, width * m_view->fontMetrics().height() / CommonTextHeight);
    };
    const int narrowest = forText(NarrowestValue);
    const int own = qBound(narrowest, qRound(room * ValueShare), forText(WidestValue));
    const int chosen = qMin(m_valueWidth, qMax(narrowest, qRound(room * LargestShare)));
    m_isFitting = true;
    m_view->header()->resizeSection(VxPropertyListItemModel::ValueColumn,
                                    m_valueWidth > 0 ? chosen : own);
    m_isFitting = false;
}

void VxPropertyListColumns::setValueWidth(int width)
{
    m_valueWidth = qMax(0, width);
    fit();
}
