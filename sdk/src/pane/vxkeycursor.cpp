#include <vxcore/vxkeycursor.h>

VxKeyCursor::VxKeyCursor(QObject *pane)
    : QObject(pane)
{
}

VxKeyCursor *VxKeyCursor::of(const QObject *pane)
{
    return pane ? pane->findChild<VxKeyCursor *>(QString(), Qt::FindDirectChildrenOnly) : nullptr;
}

void VxKeyCursor::begin()
{
    Q_EMIT beginRequested();
}
