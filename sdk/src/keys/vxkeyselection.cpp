#include <vxcore/vxkeyselection.h>

#include "keys/vxchangeblock_p.h"

#include <QtCore/QPointer>
#include <QtCore/QVector>
#include <algorithm>
#include <utility>
#include <vxcore/vxproperty.h>

namespace {

/// The oldest live instance; only tests have more than one.
VxKeySelection *theCurrent = nullptr;

} // namespace

VxKeySelectionSource::~VxKeySelectionSource() = default;

const std::vector<VxCopiedKeys> &VxKeySelectionSource::copiedKeys() const
{
    static const std::vector<VxCopiedKeys> none;
    return none;
}

class VxKeySelection::Private
{
public:
    VxKeySelectionSource *source() const { return sources.isEmpty() ? nullptr : sources.last(); }

    void setEntries(VxKeySelection *q, const VxKeySelectionEntries &entries, bool clearsOthers);
    void send(VxKeySelection *q);

    QVector<VxKeySelectionSource *> sources; // most recently added last
    bool notified = false;                   // changed() is pending
    bool sendsAtBlockEnd = false;
    bool sendsInEventLoop = false;
};

// The block makes changed() single, however many views report.
void VxKeySelection::Private::setEntries(VxKeySelection *q, const VxKeySelectionEntries &entries,
                                         bool clearsOthers)
{
    if (!source())
        return;
    const auto isStale = [](const VxKeySelectionEntry &entry) {
        return !entry.holder || entry.holder->getKeyHolder() != entry.holder ||
               (entry.revision != 0 && entry.revision != entry.holder->keyRevision());
    };
    const VxChangeBlock block;
    if (std::any_of(entries.begin(), entries.end(), isStale)) {
        VxKeySelectionEntries current;
        std::remove_copy_if(entries.begin(), entries.end(), std::back_inserter(current), isStale);
        source()->set(current, clearsOthers);
    } else {
        source()->set(entries, clearsOthers);
    }
    q->notifyChanged();
}

void VxKeySelection::Private::send(VxKeySelection *q)
{
    sendsAtBlockEnd = sendsAtBlockEnd && VxChangeBlock::isActive();
    if (std::exchange(notified, false))
        Q_EMIT q->changed();
}

VxKeySelection::VxKeySelection(QObject *parent)
    : QObject(parent)
    , d(std::make_unique<Private>())
{
    if (!theCurrent)
        theCurrent = this;
}

VxKeySelection::~VxKeySelection()
{
    if (theCurrent == this)
        theCurrent = nullptr;
}

VxKeySelection *VxKeySelection::current()
{
    return theCurrent;
}

void VxKeySelection::addSource(VxKeySelectionSource *source)
{
    d->sources.removeOne(source);
    d->sources.append(source);
    notifyChanged();
}

void VxKeySelection::removeSource(VxKeySelectionSource *source)
{
    if (d->sources.removeOne(source))
        notifyChanged();
}

VxKeySelectionEntries VxKeySelection::entries() const
{
    return d->source() ? d->source()->entries() : VxKeySelectionEntries();
}

std::vector<VxKeySpan> VxKeySelection::spansOf(VxProperty *holder) const
{
    return d->source() ? d->source()->spansOf(holder) : std::vector<VxKeySpan>();
}

const std::vector<VxCopiedKeys> &VxKeySelection::copiedKeys() const
{
    static const std::vector<VxCopiedKeys> none;
    return d->source() ? d->source()->copiedKeys() : none;
}

void VxKeySelection::set(const VxKeySelectionEntries &entries)
{
    d->setEntries(this, entries, true);
}

void VxKeySelection::setForHolders(const VxKeySelectionEntries &entries)
{
    d->setEntries(this, entries, false);
}

void VxKeySelection::clear()
{
    set({});
}

void VxKeySelection::notifyChanged()
{
    d->notified = true;
    if (VxChangeBlock::isActive()) {
        if (std::exchange(d->sendsAtBlockEnd, true))
            return;
        VxPendingChanges::runAfterReports([self = QPointer<VxKeySelection>(this)] {
            if (self)
                self->d->send(self);
        });
    } else if (!std::exchange(d->sendsInEventLoop, true)) {
        QMetaObject::invokeMethod(
            this,
            [this] {
                d->sendsInEventLoop = false;
                d->send(this);
            },
            Qt::QueuedConnection);
    }
}
