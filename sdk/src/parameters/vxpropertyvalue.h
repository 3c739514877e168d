#ifndef PANE_VXPROPERTYVALUE_H
#define PANE_VXPROPERTYVALUE_H

#include <QtCore/QString>
#include <functional>
#include <vxcore/vxtime.h>

class VxNumericProperty;
class VxProperty;

/// How a property's value is shown and edited: as text, and as a number in the unit in which it is
/// shown, which is a hundredth for a percentage.
namespace VxPropertyValue {

enum Result {
    Set,
    Limited,    ///< the nearest value was set that the property takes
    Unreadable, ///< the text is no value of the property's kind; nothing was set
    Refused     ///< locked, or neither a key nor a value of its own to set
};

/// The value at a time as a list shows it: a percentage property times 100 with a percent sign, a
/// switch as a word, other numbers with up to four decimals.
QString text(const VxProperty *property, VxTime time);
/// The same for a place that is too narrow for it: as many digits as fit, and never a part of them
/// that would read as another number. The shortest text when none fits.
QString narrowText(const VxNumericProperty *property, VxTime time,
                   const std::function<bool(const QString &)> &fits);
/// The same with every digit that the number has.
QString fullText(const VxProperty *property, VxTime time);

/// Reads a text of that form (the percent sign may be missing; numbers may be arithmetic) and sets
/// the value at a time.
Result setText(VxProperty *property, VxTime time, const QString &text);

/// A number with up to `decimals` decimals, without trailing zeros; in powers of ten where it would
/// read as zero and is not, or has more digits than can be told apart.
QString numberText(double value, int decimals);

/// False when the value can be changed by nobody at present: locked, by itself or where its keys
/// are, or replaced by a link.
bool isEditable(const VxProperty *property);

/// How many of the shown units make one of the property's own: 100 for a percentage, else 1.
double scale(const VxNumericProperty *property);
/// Limits and step of editors, in the shown unit. The step of a property with narrow limits is a
/// hundredth of what lies between them, however large its own one is.
double lowest(const VxNumericProperty *property);
double highest(const VxNumericProperty *property);
double step(const VxNumericProperty *property);

/// A float property's value is the shortest number that means it: 0.1 and not 0.10000000149.
double shownValue(const VxNumericProperty *property, VxTime time);
/// True when the value at a time of one property is that of another.
bool isSame(const VxProperty *one, const VxProperty *other, VxTime time);
/// Makes a value the one that is shown, within the limits. What a link adds is taken off first.
Result setShownValue(VxNumericProperty *property, VxTime time, double value);

} // namespace VxPropertyValue

#endif
