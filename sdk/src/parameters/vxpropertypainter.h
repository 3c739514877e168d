#ifndef PANE_VXPROPERTYPAINTER_H
#define PANE_VXPROPERTYPAINTER_H

#include <QtCore/QRect>
#include <QtWidgets/QStyleOptionViewItem>
#include <vxcore/vxpropertylistitemmodel.h>

class QPainter;
class VxProperty;

/// The look of a property list's cells.
///
/// A value stands in a field, so that one sees where to drag or click. The mark of the key state
/// tells by its shape: a dot without keys, the outline of a diamond between keys, a full diamond
/// on a key, half a one where several properties differ. All functions draw over the row's
/// background, within option.rect.
namespace VxPropertyPainter {

/// Where in a heading's row a click opens and closes the group.
QRect arrowRect(const QRect &row);
/// The field in a value's cell.
QRect fieldRect(const QRect &cell);

void paintHeading(QPainter *painter, const QStyleOptionViewItem &option, const QString &text,
                  bool collapsed);
/// Dim for a property that cannot be edited, in italics for one that stands for another, behind a
/// stripe in the colour of its axis.
void paintLabel(QPainter *painter, const QStyleOptionViewItem &option, const VxProperty *property);
/// With a padlock when it is locked, and a link when its value comes from elsewhere. word: the text
/// is one that stands for the value, and slanted and dim.
void paintValue(QPainter *painter, const QStyleOptionViewItem &option, const VxProperty *property,
                const QString &text, bool word);
enum class Switch { Off, On, Mixed };
void paintSwitch(QPainter *painter, const QStyleOptionViewItem &option, Switch state, bool enabled);
void paintKeyMark(QPainter *painter, const QStyleOptionViewItem &option,
                  VxPropertyListItemModel::KeyState state, bool enabled);

} // namespace VxPropertyPainter

#endif
