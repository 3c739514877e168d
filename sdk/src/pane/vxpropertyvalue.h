#ifndef PANE_VXPROPERTYVALUE_H
#define PANE_VXPROPERTYVALUE_H

#include <QtCore/QString>
#include <QtCore/QVariant>
#include <vxcore/vxtime.h>

class VxProperty;

/// How a property's value is shown and edited as text.
namespace VxPropertyValue {

/// The value at a time as an editor shows it: a percentage property times 100 with a percent
/// sign, a switch as a word, other numbers with up to four decimals.
QString text(const VxProperty *property, VxTime time);

/// Reads a text of that form (the percent sign may be missing) and sets the value at a time.
/// False when the text is no value of the property's kind, or the property refuses it.
bool setText(VxProperty *property, VxTime time, const QString &text);

} // namespace VxPropertyValue

#endif
