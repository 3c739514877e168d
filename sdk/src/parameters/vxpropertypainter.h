#ifndef VXPROPERTYPAINTER_H
#define VXPROPERTYPAINTER_H

#include <QtCore/QRect>
#include <QtWidgets/QStyleOptionViewItem>
#include <vxcore/vxpropertylistitemmodel.h>

class QPainter;
class VxProperty;

/// The look of a property list's cells.
///
/// A value is in a field, to show where to drag or click. The key state mark has a shape for each
/// state: a dot without keys, the outline of a diamond between keys, a full diamond on a key, half
/// of one where several properties differ. All functions draw over the row's background, within
/// option.rect.
namespace VxPropertyPainter {

/// The area in a heading's row that opens and closes the group on a click.
QRect arrowRect(const QRect &row);
/// The field in a value's cell.
QRect fieldRect(const QRect &cell);

void paintHeading(QPainter *painter, const QStyleOptionViewItem &option, const QString &text,
                  bool collapsed);
/// Dim for a property that cannot be edited, in italics for an alias, after a stripe in the colour
/// of its axis.
void paintLabel(QPainter *painter, const QStyleOptionViewItem &option, const VxProperty *property);
/// With a padlock when it is locked, and a link icon when its value is linked. word: the text is a
/// substitute for the value, slanted and dim.
void paintValue(QPainter *painter, const QStyleOptionViewItem &option, const VxProperty *property,
                const QString &text, bool word);
enum class Switch { Off, On, Mixed };
void paintSwitch(QPainter *painter, const QStyleOptionViewItem &option, Switch state, bool enabled);
void paintKeyMark(QPainter *painter, const QStyleOptionViewItem &option,
                  VxPropertyListItemModel::KeyState state, bool enabled);

} // namespace VxPropertyPainter

#endif
