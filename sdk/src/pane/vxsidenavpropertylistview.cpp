#include <vxcore/vxsidenavpropertylistview.h>

#include <QtWidgets/QHeaderView>
#include <vxcore/vxpropertylistitemmodel.h>

VxSideNavPropertyListView::VxSideNavPropertyListView(QWidget *parent)
    : QTreeView(parent)
{
    setObjectName(QStringLiteral("ParametersPropertyList"));
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setAlternatingRowColors(true);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed);
    header()->setStretchLastSection(true);
}

VxSideNavPropertyListView::~VxSideNavPropertyListView() = default;

VxPropertyListItemModel *VxSideNavPropertyListView::getPropertyListModel() const
{
    return qobject_cast<VxPropertyListItemModel *>(model());
}
