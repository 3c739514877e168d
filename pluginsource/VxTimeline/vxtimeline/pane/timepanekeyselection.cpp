#include "vxtimeline/pane/timepanekeyselection.h"

#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/keygraph/vxkeygraph.h"
#include "vxtimeline/keygraph/vxkeygraphchannel.h"
#include "vxtimeline/keys/keyspans.h"
#include "vxtimeline/keys/vxkeycommunication.h"
#include "vxtimeline/pane/timepaneviews.h"
#include "vxtimeline/rows/vxdopesheetmodel.h"

#include <QtCore/QHash>
#include <algorithm>
#include <vxcore/vxapp.h>
#include <vxcore/vxproperty.h>

TimePaneKeySelection::TimePaneKeySelection(const TimePaneViews &views)
    : m_views(views)
{
    VxKeySelection *selection = vxApp->getKeySelection();
    selection->addSource(this);
    connect(views.sheet(), &VxDopeSheetView::keySelectionChanged, selection,
            &VxKeySelection::notifyChanged);
    connect(views.bus(), &VxKeyCommunication::received, selection, &VxKeySelection::notifyChanged);
    connect(views.bus(), &VxKeyCommunication::sent, selection, &VxKeySelection::notifyChanged);
    connect(views.graph(), &VxKeyGraph::channelsChanged, selection, &VxKeySelection::notifyChanged);
}

TimePaneKeySelection::~TimePaneKeySelection()
{
    if (VxKeySelection *selection = vxApp ? vxApp->getKeySelection() : nullptr)
        selection->removeSource(this);
}

void TimePaneKeySelection::setModel(const VxDopeSheetModel *model)
{
    VxKeySelection *selection = vxApp->getKeySelection();
    connect(model, &QAbstractItemModel::dataChanged, selection, &VxKeySelection::notifyChanged);
    connect(model, &QAbstractItemModel::rowsInserted, selection, &VxKeySelection::notifyChanged);
    connect(model, &QAbstractItemModel::rowsRemoved, selection, &VxKeySelection::notifyChanged);
    connect(model, &QAbstractItemModel::modelReset, selection, &VxKeySelection::notifyChanged);
    connect(model, &QObject::destroyed, selection, &VxKeySelection::notifyChanged);
}

// A key shown in both views is selected in both; keys that only the graph shows are added.
VxKeySelectionEntries TimePaneKeySelection::entries() const
{
    VxKeySelectionEntries entries = m_views.sheet()->getKeyEntries();
    const QVector<VxKeyGraphChannel *> channels = m_views.graph()->getChannels();
    if (channels.isEmpty())
        return entries;
    QHash<const VxProperty *, std::size_t> places;
    for (const VxKeySelectionEntry &entry : entries)
        places.insert(entry.holder, places.size());
    for (const VxKeyGraphChannel *channel : channels) {
        std::vector<VxKeySpan> spans = channel->getSelectedSpans();
        if (spans.empty())
            continue;
        VxProperty *holder = channel->getProperty()->getKeyHolder();
        const auto place = places.constFind(holder);
        if (place == places.cend()) {
            places.insert(holder, entries.size());
            entries.push_back({holder, std::move(spans), holder->keyRevision()});
        } else if (entries[place.value()].spans != spans) {
            VxKeySelectionEntry &entry = entries[place.value()];
            entry.spans = KeySpans::united(entry.spans, spans);
        }
    }
    return entries;
}

std::vector<VxKeySpan> TimePaneKeySelection::spansOf(VxProperty *holder) const
{
    std::vector<VxKeySpan> spans = m_views.sheet()->getKeySpansOf(holder);
    for (const VxKeyGraphChannel *channel : m_views.graph()->getChannelsOf(holder)) {
        const std::vector<VxKeySpan> shown = channel->getSelectedSpans();
        if (shown != spans)
            spans = KeySpans::united(spans, shown);
    }
    return spans;
}

void TimePaneKeySelection::set(const VxKeySelectionEntries &entries, bool clearsOthers)
{
    VxKeyGraph *graph = m_views.graph();
    if (clearsOthers) {
        for (VxKeyGraphChannel *channel : graph->getChannels())
            channel->deselectAllKeys();
    }
    for (const VxKeySelectionEntry &entry : entries) {
        for (VxKeyGraphChannel *channel : graph->getChannelsOf(entry.holder))
            channel->selectOnlySpans(entry.spans);
    }
    m_views.sheet()->selectKeyEntries(entries, clearsOthers);
    Q_EMIT graph->channelsChanged();
}

const std::vector<VxCopiedKeys> &TimePaneKeySelection::copiedKeys() const
{
    return m_views.sheet()->copiedKeys();
}
