#ifndef PANE_VXPROPERTYVALUE_H
#define PANE_VXPROPERTYVALUE_H

#include <QtCore/QString>
#include <vxcore/vxcoreglobal.h>
#include <vxcore/vxtime.h>

class VxNumericProperty;
class VxProperty;

/// How a property's value is shown and edited: as text, and as a number in the unit in which it is
/// shown, which is a hundredth for a percentage.
namespace VxPropertyValue {

/// The value at a time as an editor shows it: a percentage property times 100 with a percent
/// sign, a switch as a word, other numbers with up to four decimals.
VXCORE_EXPORT QString text(const VxProperty *property, VxTime time);

/// Reads a text of that form (the percent sign may be missing) and sets the value at a time.
/// False when the text is no value of the property's kind, or the property refuses it.
VXCORE_EXPORT bool setText(VxProperty *property, VxTime time, const QString &text);

/// A number with up to `decimals` decimals, without trailing zeros.
VXCORE_EXPORT QString numberText(double value, int decimals);

/// False when the value can be changed by nobody at present: locked, by itself or where its keys
/// are, or replaced by a link.
VXCORE_EXPORT bool isEditable(const VxProperty *property);

/// How many of the shown units make one of the property's own: 100 for a percentage, else 1.
VXCORE_EXPORT double scale(const VxNumericProperty *property);
/// Limits and step of editors, in the shown unit. The step of a property with narrow limits is a
/// hundredth of what lies between them, however large its own one is.
VXCORE_EXPORT double lowest(const VxNumericProperty *property);
VXCORE_EXPORT double highest(const VxNumericProperty *property);
VXCORE_EXPORT double step(const VxNumericProperty *property);

VXCORE_EXPORT double shownValue(const VxNumericProperty *property, VxTime time);
/// Makes a value the one that is shown, within the limits. What a link adds is taken off first.
/// False when the property refuses.
VXCORE_EXPORT bool setShownValue(VxNumericProperty *property, VxTime time, double value);

} // namespace VxPropertyValue

#endif
