#ifndef VXSTYLEOPTION_H
#define VXSTYLEOPTION_H

#include <QtWidgets/QStyleOption>
#include <vxcore/vxcoreglobal.h>

/// The option of the application's own primitives: a plain option with one number, whose meaning
/// depends on the primitive (see VxStyle::RangeHandleValue and VxStyle::RulerTickValue); other
/// primitives accept a plain QStyleOption as well.
class VXCORE_EXPORT VxStyleOptionCustom : public QStyleOption
{
public:
    enum StyleOptionType { Type = SO_CustomBase };
    enum StyleOptionVersion { Version = 1 };

    VxStyleOptionCustom();
    explicit VxStyleOptionCustom(int initialValue);

    int value = 0;

protected:
    explicit VxStyleOptionCustom(int initialValue, int optionVersion);
};

#endif
