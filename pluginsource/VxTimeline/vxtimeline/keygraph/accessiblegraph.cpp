#include "vxtimeline/keygraph/accessiblegraph.h"

#include "vxtimeline/keygraph/paint/keygraphscale.h"
#include "vxtimeline/keygraph/vxkeygraph.h"
#include "vxtimeline/keygraph/vxkeygraphchannel.h"
#include "vxtimeline/keygraph/vxkeygraphview.h"
#include "vxtimeline/keys/accessiblekey.h"

#include <QtCore/QPointer>
#include <QtGui/QWindow>
#include <vxcore/vxproperty.h>

namespace {

// Refers to the property, as channels are replaced together.
class ChannelKeys : public AccessibleKeySource
{
public:
    ChannelKeys(VxKeyGraphView *view, VxProperty *property, int place)
        : m_view(view)
        , m_property(property)
        , m_owner(property)
        , m_place(place)
    {
    }

    bool isValid() const override { return m_view && m_property && channel(); }
    const void *owner() const override { return m_owner; }
    QAccessible::Role role() const override { return QAccessible::ListItem; }
    QString name() const override { return channel()->getLabel(); }
    QAccessibleInterface *parent() const override
    {
        return QAccessible::queryAccessibleInterface(m_view);
    }
    int indexInParent() const override { return m_place; }
    QWindow *window() const override { return m_view->window()->windowHandle(); }
    QRect rect() const override { return global(m_view->rect()); }

    QRect keyRect(int index) const override
    {
        const VxKeyGraphChannel *keys = channel();
        return global(
            m_view->getScale().markRectOf(keys->getKeyTime(index), keys->getKeyValue(index)));
    }

    VxTime timeAt(int x) const override
    {
        return m_view->getScale().time(m_view->mapFromGlobal(QPoint(x, 0)).x());
    }

    int count() const override { return channel()->getNumKeys(); }
    int selectedCount() const override
    {
        int selected = 0;
        for (const VxKeySpan &span : channel()->getSelectedSpans())
            selected += span.last - span.first;
        return selected;
    }
    VxTime time(int index) const override { return channel()->getKeyTime(index); }
    int firstFrom(VxTime time) const override { return channel()->getKeys().firstFrom(time); }
    bool isSelected(int index) const override { return channel()->isKeySelected(index); }
    VxProperty *property() const override { return m_property; }
    QVector<VxProperty *> properties() const override { return {m_property}; }

private:
    // Usually at the place where it was.
    VxKeyGraphChannel *channel() const
    {
        const VxKeyGraph *graph = m_view->getKeyGraph();
        if (!graph)
            return nullptr;
        const QVector<VxKeyGraphChannel *> channels = graph->getChannels();
        if (m_place < channels.size() && channels[m_place]->getProperty() == m_property)
            return channels[m_place];
        for (int i = 0; i < channels.size(); ++i) {
            if (channels[i]->getProperty() == m_property) {
                m_place = i;
                return channels[i];
            }
        }
        return nullptr;
    }

    QRect global(const QRect &rect) const
    {
        return rect.intersected(m_view->rect()).translated(m_view->mapToGlobal(QPoint()));
    }

    QPointer<VxKeyGraphView> m_view;
    QPointer<VxProperty> m_property;
    const void *m_owner;
    mutable int m_place;
};

} // namespace

AccessibleGraph::AccessibleGraph(VxKeyGraphView *view)
    : QAccessibleWidget(view, QAccessible::List)
{
}

VxKeyGraphView *AccessibleGraph::view() const
{
    return static_cast<VxKeyGraphView *>(widget());
}

AccessibleKeys::Source AccessibleGraph::keysOf(VxKeyGraphView *view, int channel)
{
    return std::make_shared<ChannelKeys>(
        view, view->getKeyGraph()->getChannels().at(channel)->getProperty(), channel);
}

int AccessibleGraph::channelCount() const
{
    const VxKeyGraph *graph = view()->getKeyGraph();
    return graph ? graph->getChannels().size() : 0;
}

int AccessibleGraph::childCount() const
{
    return channelCount() + QAccessibleWidget::childCount();
}

QAccessibleInterface *AccessibleGraph::child(int index) const
{
    const int channels = channelCount();
    if (index < 0 || index >= channels)
        return QAccessibleWidget::child(index - channels);
    return AccessibleKeys::listOf(keysOf(view(), index));
}

QAccessibleInterface *AccessibleGraph::childAt(int x, int y) const
{
    const QPoint position(x, y);
    const QPoint local = view()->mapFromGlobal(position);
    if (!view()->rect().contains(local))
        return nullptr;
    if (QWidget *button = view()->childAt(local))
        return QAccessible::queryAccessibleInterface(button);
    // The last ones are painted on top.
    for (int channel = channelCount() - 1; channel >= 0; --channel) {
        const AccessibleKeys::Source keys = keysOf(view(), channel);
        if (AccessibleKeys::indexAt(*keys, position) >= 0)
            return AccessibleKeys::listOf(keys);
    }
    return nullptr;
}

int AccessibleGraph::indexOfChild(const QAccessibleInterface *child) const
{
    if (const auto *channel = dynamic_cast<const AccessibleKeyList *>(child))
        return channel->source().indexInParent();
    const int index = QAccessibleWidget::indexOfChild(child);
    return index < 0 ? index : index + channelCount();
}
