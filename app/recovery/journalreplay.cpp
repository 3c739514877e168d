#include "recovery/journalreplay.h"

#include "io/vxscenejournal.h"

#include <vxcore/vxscene.h>
#include <vxcore/vxundoitem.h>
#include <vxcore/vxundostack.h>
#include <vxcore/vxundostackhold.h>

namespace {

/// Makes an entry of a hold in which the document did not change: steps count entries.
class EntryItem : public VxUndoItem
{
public:
    explicit EntryItem(const void *owner)
        : VxUndoItem(owner, 0)
    {
    }
    void swap() override {}
    bool write(VxJournalWriter &) const override { return true; }
};

} // namespace

bool JournalReplay::revert(const QByteArray &entry)
{
    VxUndoStackHold hold;
    VxSceneJournalReader reader(entry, m_scene);
    reader.text();
    if (reader.apply(VxJournalReader::Backward)) {
        hold.cancel();
        return true;
    }
    hold.rollBack();
    return false;
}

bool JournalReplay::applyEntry(const QByteArray &entry)
{
    VxUndoStackHold hold;
    m_history->record(new EntryItem(this));
    VxSceneJournalReader reader(entry, m_scene);
    const QString text = reader.text();
    if (!reader.apply(VxJournalReader::Forward)) {
        hold.rollBack();
        return false;
    }
    hold.accept(text);
    m_all.resize(size_t(m_history->index()) - 1);
    m_all.push_back(entry);
    return true;
}

bool JournalReplay::applyStep(const QByteArray &step)
{
    VxSceneJournalReader reader(step, m_scene);
    const auto steps = reader.number<qint32>();
    const qint64 index = qint64(m_history->index()) + steps;
    if (reader.failed())
        return false;
    if (index >= 0 && index <= m_history->count()) {
        m_history->setIndex(int(index));
        return true;
    }
    if (reader.atEnd())
        return false;
    // The step leads to an entry that the history lacks: it begins anew there.
    VxUndoStackHold hold;
    if (!reader.apply(VxJournalReader::Forward)) {
        hold.rollBack();
        return false;
    }
    hold.cancel();
    m_history->clear();
    m_all.clear();
    return true;
}

bool JournalReplay::apply(const VxJournalRecord &record)
{
    return record.kind == VxJournalRecord::Entry ? applyEntry(record.bytes)
                                                 : applyStep(record.bytes);
}

bool JournalReplay::run(const VxJournalContents &contents)
{
    m_history->clear();
    m_all.clear();
    int first = contents.kept;
    while (first > 0 && revert(contents.records.at(first - 1).bytes))
        --first;
    int next = first;
    while (next < contents.records.size() && apply(contents.records.at(next)))
        ++next;
    m_entries.assign(m_all.begin(), m_all.begin() + m_history->index());
    m_history->takeUnrecordedChange();
    return next >= contents.kept;
}
