#include <vxcore/vxchangeblock.h>

#include "keys/vxchangeblock_p.h"
#include "keys/vxproperty_p.h"
#include "scene/deferreddeletion.h"

#include <utility>

namespace {

struct BlockState
{
    int depth = 0;
    QVector<VxProperty *> changed; ///< null: property destroyed meanwhile
    QVector<std::function<void()>> followUps;
    int unsent = 0; ///< reports being sent or queued
};

BlockState &state()
{
    static BlockState instance;
    return instance;
}

} // namespace

VxChangeBlock::VxChangeBlock()
{
    ++state().depth;
}

VxChangeBlock::~VxChangeBlock()
{
    if (--state().depth == 0)
        VxPendingChanges::flush();
}

bool VxChangeBlock::isActive()
{
    return state().depth > 0;
}

bool VxChangeBlock::hasUnsentReports()
{
    return state().unsent > 0 || !state().changed.isEmpty();
}

namespace VxPendingChanges {

void add(VxProperty::Private *property, const VxTimeRange &range)
{
    if (property->pendingList) {
        property->pendingRange = property->pendingRange.united(range);
        return;
    }
    property->pendingList = &state().changed;
    property->pendingIndex = state().changed.size();
    property->pendingRange = range;
    state().changed.append(property->q);
}

void remove(VxProperty::Private *property)
{
    if (property->pendingList)
        (*property->pendingList)[property->pendingIndex] = nullptr;
    property->pendingList = nullptr;
}

void send(VxProperty::Private *property, const VxTimeRange &range)
{
    ++state().unsent;
    property->emitChange(range);
    --state().unsent;
}

void flush()
{
    // Receivers may change and destroy properties and end blocks of their own: the list is taken
    // out first, and a destroyed property clears its entry in the list that holds it.
    const DeferredDeletion hold;
    QVector<VxProperty *> list;
    list.swap(state().changed);
    for (VxProperty *property : qAsConst(list)) {
        if (property)
            VxProperty::Private::of(property)->pendingList = &list;
    }
    state().unsent += list.size();
    for (int i = 0; i < list.size(); ++i) {
        if (list.at(i)) {
            VxProperty::Private *property = VxProperty::Private::of(list.at(i));
            property->pendingList = nullptr;
            property->emitChange(property->pendingRange);
        }
        --state().unsent;
    }
    for (const auto &followUp : std::exchange(state().followUps, {}))
        followUp();
}

void runAfterReports(std::function<void()> function)
{
    state().followUps.append(std::move(function));
}

} // namespace VxPendingChanges
