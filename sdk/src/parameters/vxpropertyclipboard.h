#ifndef VXPROPERTYCLIPBOARD_H
#define VXPROPERTYCLIPBOARD_H

#include <QtCore/QString>
#include <QtCore/QVector>
#include <vxcore/vxtime.h>

class VxProperty;

/// Values of a property list as text: a line a row, as in spreadsheets.
namespace VxPropertyClipboard {

/// A row's properties, the first of which is shown.
using Row = QVector<VxProperty *>;

/// With full precision. Empty for no rows.
QString text(const QVector<Row> &rows, VxTime time);

/// Sets the value of a single line in all rows, or of several lines in as many rows; one undo
/// entry. Returns failures as a sentence; empty on full success.
QString paste(const QVector<Row> &rows, VxTime time, const QString &text);

} // namespace VxPropertyClipboard

#endif
