#include <vxcore/vxpanesearch.h>

#include <vxcore/vxpane.h>

VxPaneSearch::VxPaneSearch(VxPane *pane)
    : QObject(pane)
{
}

VxPaneSearch *VxPaneSearch::of(const VxPane *pane)
{
    return pane->findChild<VxPaneSearch *>(QString(), Qt::FindDirectChildrenOnly);
}

void VxPaneSearch::setText(const QString &text)
{
    if (text == m_text)
        return;
    m_text = text;
    Q_EMIT textChanged(text);
}

void VxPaneSearch::setAvailable(bool onOff)
{
    if (onOff == m_isAvailable)
        return;
    m_isAvailable = onOff;
    Q_EMIT availableChanged(onOff);
}
