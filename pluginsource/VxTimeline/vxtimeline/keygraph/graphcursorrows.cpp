#include "vxtimeline/keygraph/graphcursorrows.h"

#include "vxtimeline/keygraph/accessiblegraph.h"
#include "vxtimeline/keygraph/vxkeygraph.h"
#include "vxtimeline/keygraph/vxkeygraphchannel.h"
#include "vxtimeline/keygraph/vxkeygraphview.h"

#include <vxcore/vxproperty.h>

GraphCursorRows::GraphCursorRows(VxKeyGraphView *view)
    : m_view(view)
{
}

QWidget *GraphCursorRows::area() const
{
    return m_view;
}

int GraphCursorRows::count() const
{
    const VxKeyGraph *graph = m_view->getKeyGraph();
    return graph ? graph->getChannels().size() : 0;
}

bool GraphCursorRows::isEmpty() const
{
    return count() == 0;
}

int GraphCursorRows::find(const VxProperty *property) const
{
    if (isEmpty())
        return -1;
    const QVector<VxKeyGraphChannel *> channels = m_view->getKeyGraph()->getChannels();
    for (int i = 0; property && i < channels.size(); ++i) {
        if (channels[i]->getProperty() == property)
            return i;
    }
    return 0;
}

AccessibleKeys::Source GraphCursorRows::row()
{
    return isEmpty() ? nullptr : AccessibleGraph::keysOf(m_view, index());
}

bool GraphCursorRows::showsKeys()
{
    return !isEmpty();
}

bool GraphCursorRows::move(int rows)
{
    if (isEmpty())
        return false;
    const int from = index();
    const int to = qBound(0, from + rows, count() - 1);
    m_property = m_view->getKeyGraph()->getChannels().at(to)->getProperty();
    return to != from;
}

void GraphCursorRows::reveal(int key)
{
    if (key >= 0 && row()->keyRect(key).isEmpty())
        m_view->frameKeys();
}

void GraphCursorRows::setAnchor()
{
    m_anchor =
        isEmpty() ? nullptr : m_view->getKeyGraph()->getChannels().at(index())->getProperty();
}

std::vector<AccessibleKeys::Source> GraphCursorRows::fromAnchor()
{
    std::vector<AccessibleKeys::Source> found;
    if (isEmpty())
        return found;
    const int here = index();
    const int there = m_anchor ? find(m_anchor) : here;
    for (int i = qMin(here, there); i <= qMax(here, there); ++i)
        found.push_back(AccessibleGraph::keysOf(m_view, i));
    return found;
}
