#ifndef VXDOPESHEETFILTERMODEL_H
#define VXDOPESHEETFILTERMODEL_H

#include <QtCore/QSortFilterProxyModel>

// The proxy between the dope sheet's model and its view, for the text filter.
//
// It adds no rule of its own; it is a class of its own so that the view can tell by its model's
// type that rows may be missing. The pane sets it up.
class VxDopeSheetFilterModel : public QSortFilterProxyModel
{
    Q_OBJECT
public:
    explicit VxDopeSheetFilterModel(QObject *parent = nullptr);
    ~VxDopeSheetFilterModel() override;
};

#endif
