#include "vxtimeline/dopesheet/vxtimelinedopesheetkeyscolumndelegate.h"

VxTimelineDopeSheetKeysColumnDelegate::VxTimelineDopeSheetKeysColumnDelegate(QObject *parent)
    : QStyledItemDelegate(parent)
{
}

VxTimelineDopeSheetKeysColumnDelegate::~VxTimelineDopeSheetKeysColumnDelegate() = default;
