#ifndef VXCSVNAMES_H
#define VXCSVNAMES_H

#include "io/motion/vximportedmotion.h"

#include <QHash>
#include <string_view>

/// The names in the CSV files of this program. A file has one of two forms.
///
/// One row a key: the first row names the columns node, parent, kind, order, property, time, value,
/// interpolation, tension, continuity and bias, in any order; node, property, time and value are
/// required. A row with a time is a key, a row without is the value of a property that has no keys,
/// a row without a property describes its node alone.
///
/// One row a frame: rows that begin with `node:`, `parent:`, `kind:` and `order:` describe the node
/// of each column, the row that begins with `time` names its property; parent:, kind: and order:
/// may be left out. Each further row is a time and the values at it; an empty cell is no key. A
/// property with the same value in all rows gets no keys. Segments are linear.
///
/// - Times are seconds, ascending for each property. Positions include the node's origin, angles
///   are in degrees, scales and morphs are factors (1 is 100 %).
/// - node: the node's name; the second node of the same name is followed by `\2`, and so on. A `\`
///   in a name is written as `\\`.
/// - parent: the node above, in the same form, which must occur earlier; empty is none, or the one
///   of another row.
/// - kind: node, figure or bone; empty is node, or that of another row.
/// - order: the rotation order, as VxNode has it; empty is XYZ, or that of another row.
/// - property: x position ... z position, x rotation ..., x scale ..., scale (of all axes), x end
///   ... (where a bone ends; without keys), visible (0 or 1; without keys), morph:NAME,
///   property:NAME, or property:/GROUP/NAME in a group other than "/Custom". A `/` in a name is
///   written as `\/`.
/// - interpolation: linear (also empty), constant or tcb; of the segment after the key.
namespace VxCsvNames {

/// The name of a node, morph or property, which is the number-th of that name (from 1). Never
/// empty.
QString escaped(const QString &name, int number);
/// The same for a further property in a group.
QString escapedInGroup(const QString &group, const QString &name, int number);
/// Reverts escaped(). False when it has a `\` that escapes nothing.
bool unescape(const QString &text, QString *name);

/// Numbers equal names among others: 1 for the first.
class Numbering
{
public:
    int next(const QString &name) { return ++m_counts[name]; }

private:
    QHash<QString, int> m_counts;
};

/// A parsed property name.
struct Property
{
    enum Kind { Invalid, Channel, End, Visible, Morph, Further };
    Kind kind = Invalid;
    VxMotionTarget target = VxMotionTarget::XTranslate; ///< of a channel
    int axis = 0;                                       ///< of an end
    QString name;                                       ///< of a morph or a further property
    QString group; ///< of a further property, such as "/Look"; empty: the usual one
};
Property propertyOf(const QString &text);
/// Of a channel up to ZScale.
QString nameOf(VxMotionTarget target);
QString endName(int axis);
extern const char VisibleName[];
extern const char MorphPrefix[];
extern const char PropertyPrefix[];

QString kindName(VxMotionNode::Kind kind);
bool kindOf(const QString &text, VxMotionNode::Kind *kind);
QString orderName(VxNode::RotationOrder order);
bool orderOf(const QString &text, VxNode::RotationOrder *order);

} // namespace VxCsvNames

#endif
