#ifndef VXCORE_VXSIDENAVPROPERTYLISTVIEW_H
#define VXCORE_VXSIDENAVPROPERTYLISTVIEW_H

#include <QtWidgets/QTreeView>
#include <vxcore/vxcoreglobal.h>

class VxPropertyListItemModel;

/// The property list of the Parameters pane: one row a property, rows selectable one by one or
/// several at once.
class VXCORE_EXPORT VxSideNavPropertyListView : public QTreeView
{
    Q_OBJECT
public:
    explicit VxSideNavPropertyListView(QWidget *parent = nullptr);
    ~VxSideNavPropertyListView() override;

    /// The view's model when it is a property list; null otherwise.
    VxPropertyListItemModel *getPropertyListModel() const;
};

#endif
