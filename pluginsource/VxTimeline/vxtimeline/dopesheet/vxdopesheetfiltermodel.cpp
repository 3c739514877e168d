#include "vxtimeline/dopesheet/vxdopesheetfiltermodel.h"

VxDopeSheetFilterModel::VxDopeSheetFilterModel(QObject *parent)
    : QSortFilterProxyModel(parent)
{
}

VxDopeSheetFilterModel::~VxDopeSheetFilterModel() = default;
