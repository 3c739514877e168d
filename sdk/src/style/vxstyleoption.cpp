#include <vxcore/vxstyleoption.h>

VxStyleOptionCustom::VxStyleOptionCustom()
    : VxStyleOptionCustom(0)
{
}

VxStyleOptionCustom::VxStyleOptionCustom(int initialValue)
    : VxStyleOptionCustom(initialValue, Version)
{
}

VxStyleOptionCustom::VxStyleOptionCustom(int initialValue, int optionVersion)
    : QStyleOption(optionVersion, Type)
    , value(initialValue)
{
}
