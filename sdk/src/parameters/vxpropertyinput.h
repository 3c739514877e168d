#ifndef PANE_VXPROPERTYINPUT_H
#define PANE_VXPROPERTYINPUT_H

#include <QtCore/QString>
#include <vxcore/vxcoreglobal.h>

/// What was typed into a value's field, read as arithmetic: numbers with + - * / and parentheses,
/// a comma as good as a decimal point, and a percent sign at the end. With += -= *= or /= before
/// it, it is a change of the present value instead of a value, such as "+=5", "*=2".
struct VXCORE_EXPORT VxPropertyInput
{
    enum Kind {
        Empty,      ///< nothing but blanks
        Unreadable, ///< no arithmetic, or without a finite result
        Value,      ///< amount is the value
        Offset,     ///< amount is added
        Factor      ///< amount is multiplied with
    };

    static VxPropertyInput read(const QString &text);
    /// The value that comes of a present one; the present one itself when there is nothing to do.
    double appliedTo(double present) const;

    Kind kind = Empty;
    double amount = 0;
};

#endif
