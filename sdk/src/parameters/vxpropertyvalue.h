#ifndef VXPROPERTYVALUE_H
#define VXPROPERTYVALUE_H

#include <QtCore/QString>
#include <functional>
#include <vxcore/vxtime.h>

class VxNumericProperty;
class VxProperty;

/// Displaying and editing a property's value: as text, and as a number in the shown unit, which is
/// a hundredth for a percentage.
namespace VxPropertyValue {

enum Result {
    Set,
    Limited,    ///< the nearest accepted value was set
    Unreadable, ///< the text is not valid for the property's kind; nothing was set
    Refused     ///< locked, or neither a key nor a stored value to set
};

/// The value at a time as a list shows it: a percentage property times 100 with a percent sign, a
/// switch as a word, other numbers with up to four decimals.
QString text(const VxProperty *property, VxTime time);
/// The same for a narrow field: as many digits as fit, and never a part of them that would read as
/// another number. The shortest text when none fits.
QString narrowText(const VxNumericProperty *property, VxTime time,
                   const std::function<bool(const QString &)> &fits);
/// The same with full precision.
QString fullText(const VxProperty *property, VxTime time);

/// Reads a text of that form (the percent sign may be missing; numbers may be arithmetic) and sets
/// the value at a time.
Result setText(VxProperty *property, VxTime time, const QString &text);

/// A number with up to `decimals` decimals, without trailing zeros; in powers of ten where it would
/// read as zero without being it, or has more digits than its precision.
QString numberText(double value, int decimals);

/// False when the value cannot be changed at present: locked, by itself or in its key holder, or
/// replaced by a link.
bool isEditable(const VxProperty *property);

/// The number of shown units per unit of the property: 100 for a percentage, else 1.
double scale(const VxNumericProperty *property);
/// Limits and step of editors, in the shown unit. The step of a property with narrow limits is a
/// hundredth of their distance, however large its own one is.
double lowest(const VxNumericProperty *property);
double highest(const VxNumericProperty *property);
double step(const VxNumericProperty *property);

/// A float property's value is the shortest decimal with the same float: 0.1, not 0.10000000149.
double shownValue(const VxNumericProperty *property, VxTime time);
/// True when the two properties have the same value at a time.
bool isSame(const VxProperty *one, const VxProperty *other, VxTime time);
/// Sets the shown value, within the limits. A link's offset is subtracted first.
Result setShownValue(VxNumericProperty *property, VxTime time, double value);

} // namespace VxPropertyValue

#endif
