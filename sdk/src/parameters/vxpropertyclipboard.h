#ifndef PANE_VXPROPERTYCLIPBOARD_H
#define PANE_VXPROPERTYCLIPBOARD_H

#include <QtCore/QString>
#include <QtCore/QVector>
#include <vxcore/vxtime.h>

class VxProperty;

/// Values of a property list as text: a line a row, as tables take it.
namespace VxPropertyClipboard {

/// A row's properties, of which the first is the one that is shown.
using Row = QVector<VxProperty *>;

/// With every digit. Empty for no rows.
QString text(const QVector<Row> &rows, VxTime time);

/// Sets the value of a single line in all rows, or of several lines in as many rows; one undo
/// entry. What could not be done, in words; empty when all was.
QString paste(const QVector<Row> &rows, VxTime time, const QString &text);

} // namespace VxPropertyClipboard

#endif
