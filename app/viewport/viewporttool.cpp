#include "viewport/viewporttool.h"

ViewportTool::ViewportTool(QObject *parent)
    : QObject(parent)
{
}

bool ViewportTool::press(const ViewportPointer &)
{
    return false;
}

void ViewportTool::drag(const ViewportPointer &) {}

void ViewportTool::release(const ViewportPointer &) {}

bool ViewportTool::hover(const ViewportPointer &)
{
    return false;
}

void ViewportTool::leave() {}

bool ViewportTool::usesKey(const QKeyEvent &) const
{
    return false;
}

void ViewportTool::key(const QKeyEvent &) {}

bool ViewportTool::isBusy() const
{
    return false;
}

void ViewportTool::cancel() {}

void ViewportTool::paint(QPainter *, const ViewportCamera &, const QPalette &) const {}
