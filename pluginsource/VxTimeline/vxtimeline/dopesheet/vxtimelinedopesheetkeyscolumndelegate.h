#ifndef VXTIMELINEDOPESHEETKEYSCOLUMNDELEGATE_H
#define VXTIMELINEDOPESHEETKEYSCOLUMNDELEGATE_H

#include <QtWidgets/QStyledItemDelegate>

// The time line of each row of the dope sheet, with its keys.
class VxTimelineDopeSheetKeysColumnDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    explicit VxTimelineDopeSheetKeysColumnDelegate(QObject *parent = nullptr);
    ~VxTimelineDopeSheetKeysColumnDelegate() override;
};

#endif
