// The selected keys by key holder, for the application's key selection.

#include "vxtimeline/dopesheet/vxdopesheetview_p.h"
#include "vxtimeline/keys/keyspans.h"
#include "vxtimeline/rows/vxdopesheetitem.h"
#include "vxtimeline/rows/vxdopesheetmodel.h"

#include <QtCore/QHash>
#include <QtCore/QSet>
#include <vxcore/vxproperty.h>

VxDopeSheetView::EditableKeys VxDopeSheetView::getEditableKeys() const
{
    EditableKeys keys = hasSelectedKeys() ? AllFilteredOut : NoneSelected;
    d->keys.visitShown([&keys](const VxDopeSheetItem *item) {
        const VxProperty *property = item->property();
        if (!property->isLocked() && !property->getKeyHolder()->isLocked())
            keys = SomeEditable;
        else if (keys != SomeEditable)
            keys = AllLocked;
    });
    return keys;
}

VxKeySelectionEntries VxDopeSheetView::getKeyEntries() const
{
    VxKeySelectionEntries entries;
    QHash<const VxProperty *, std::size_t> places;
    d->keys.visitAll([&](const VxDopeSheetItem *item) {
        VxProperty *holder = item->property()->getKeyHolder();
        const auto place = places.constFind(holder);
        if (place == places.cend()) {
            places.insert(holder, entries.size());
            entries.push_back({holder, item->selectedKeySpans(), holder->keyRevision()});
        } else {
            std::vector<VxKeySpan> &spans = entries[place.value()].spans;
            spans = KeySpans::united(spans, item->selectedKeySpans());
        }
    });
    return entries;
}

// Skips the lookup of rows unless any key is selected: while a figure is built, each new row would
// rebuild their index.
std::vector<VxKeySpan> VxDopeSheetView::getKeySpansOf(VxProperty *holder) const
{
    std::vector<VxKeySpan> spans;
    if (holder->getNumKeys() == 0 || !hasSelectedKeys())
        return spans;
    for (const VxDopeSheetItem *item : getSourceModel()->findHolderItems(holder)) {
        if (!item->hasSelectedKeys())
            continue;
        spans = spans.empty() ? item->selectedKeySpans()
                              : KeySpans::united(spans, item->selectedKeySpans());
    }
    return spans;
}

void VxDopeSheetView::selectKeyEntries(const VxKeySelectionEntries &entries, bool clearsOthers)
{
    if (clearsOthers) {
        QSet<const VxProperty *> named;
        for (const VxKeySelectionEntry &entry : entries)
            named.insert(entry.holder);
        d->keys.visitAll([&named](VxDopeSheetItem *item) {
            if (!named.contains(item->property()->getKeyHolder()))
                item->setKeysSelected(false, VxTimeMin, VxTimeMax);
        });
    }
    const VxDopeSheetModel *model = getSourceModel();
    for (const VxKeySelectionEntry &entry : entries) {
        if (!model)
            break;
        for (VxDopeSheetItem *item : model->findHolderItems(entry.holder))
            item->selectOnlySpans(entry.spans);
    }
    d->keys.invalidateCommonTcb();
    viewport()->update();
}
