#ifndef VXCORE_VXSTYLEOPTION_H
#define VXCORE_VXSTYLEOPTION_H

#include <QtWidgets/QStyleOption>

#include <vxcore/vxcoreglobal.h>

/// The option of the application's own primitives: a plain option with one number beside it.
/// What the number says depends on the primitive (see VxStyle::RangeHandleValue and
/// VxStyle::RulerTickValue); a primitive that needs none takes a plain QStyleOption as well.
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
