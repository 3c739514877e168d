#include <vxcore/vxtimeaxis.h>

VxTimeAxis::VxTimeAxis(QObject *parent)
    : QObject(parent)
{
}

VxTimeAxis::~VxTimeAxis() = default;

VxTimeAxis *VxTimeAxis::of(const QObject *pane)
{
    return pane ? pane->findChild<VxTimeAxis *>() : nullptr;
}

double VxTimeAxis::valuePerPixel() const
{
    return 0;
}

bool VxTimeAxis::panValues(int)
{
    return false;
}

bool VxTimeAxis::zoomValues(int)
{
    return false;
}
