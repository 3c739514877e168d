#ifndef KEYTABLECELLS_H
#define KEYTABLECELLS_H

#include "keytools/keytablerows.h"
#include "keytools/keytoolrun.h"

#include <QtCore/QStringList>
#include <vxcore/vxtimedisplay.h>

/// The texts of cells, and edits of keys by texts. Typed times are frames unless they have a unit,
/// as in all fields of the tools.
namespace KeyTableCells {

/// The shortest text that is read as the same value.
QString valueText(const VxNumericProperty &property, int index);
/// The text of a cell; tension, continuity and bias of keys of other types than TCB are empty.
QString text(const KeyTableRows &rows, int row, KeyTableColumn column,
             const VxTimeDisplay &display);
QString title(KeyTableColumn column);
/// True for keys of locked and linked properties, which are listed all the same.
bool isReadOnly(const KeyTableRows &rows, int row);
/// False for names and read-only keys, and for parts that the key does not have.
bool isEditable(const KeyTableRows &rows, int row, KeyTableColumn column);

/// Sets a column of rows as if `typed` was entered in each: a value, or a change of the present one
/// such as +10 or 150%. An unreadable text changes nothing; the message names it.
KeyToolResult setColumn(const KeyTableRows &rows, const std::vector<int> &rowNumbers,
                        KeyTableColumn column, const QString &typed);

/// Rows as text: cells separated by tabs, rows by line ends.
QString copied(const KeyTableRows &rows, const std::vector<int> &rowNumbers,
               const VxTimeDisplay &display);
/// Sets cells by such text, from a row and a column on. Names must be those of the rows. A cell
/// that cannot be used, or lies outside of the table, changes nothing; the message names row and
/// column.
KeyToolResult paste(const KeyTableRows &rows, int firstRow, KeyTableColumn firstColumn,
                    const QString &text);

} // namespace KeyTableCells

#endif
