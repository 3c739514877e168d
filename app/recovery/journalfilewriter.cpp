#include "recovery/journalfilewriter.h"

#include "widgets/studiotext.h"

#include <algorithm>
#include <cstdio>
#include <unistd.h>
#include <vxcore/vxfileexchange.h>
#include <vxcore/vxsafefile.h>

namespace {

constexpr int FrameBytes = 12; // before the bytes of a record

} // namespace

QString JournalFileWriter::newFileName(const QString &journalFile)
{
    return journalFile + QStringLiteral(".new");
}

void JournalFileWriter::close()
{
    m_file.reset();
    m_places.clear();
}

bool JournalFileWriter::fail(const QString &reason)
{
    m_failure = reason;
    return false;
}

bool JournalFileWriter::create(const QString &name)
{
    m_file = std::make_unique<QFile>(name);
    m_name = name;
    return (m_file->open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered) &&
            m_file->setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner)) ||
           fail(m_file->errorString());
}

/** A partial write is accepted silently; only the next attempt gives the reason. */
bool JournalFileWriter::write(const QByteArray &bytes)
{
    for (qint64 done = 0; done < bytes.size();) {
        const qint64 taken = m_file->write(bytes.constData() + done, bytes.size() - done);
        if (taken <= 0)
            return fail(m_file->errorString());
        done += taken;
    }
    return true;
}

void JournalFileWriter::note(const Change &change)
{
    const int size = change.record.bytes.size();
    m_places.push_back({change.position, m_end + FrameBytes, size});
    m_end += VxJournalFile::framed(0, {change.record.kind, {}}).size() + size;
}

bool JournalFileWriter::append(const std::vector<Change> &changes)
{
    if (changes.empty())
        return true;
    const qint64 end = m_end;
    QByteArray bytes;
    for (const Change &change : changes) {
        bytes += VxJournalFile::framed(quint32(m_places.size()), change.record);
        note(change);
    }
    if (write(bytes))
        return true;
    m_file->resize(end);
    close();
    return false;
}

bool JournalFileWriter::synchronize()
{
    if (!isOpen() || ::fdatasync(m_file->handle()) == 0)
        return true;
    // What is on the disk now is unknown.
    fail(qt_error_string(errno));
    close();
    return false;
}

bool JournalFileWriter::readKept(const std::vector<quint64> &kept, std::vector<Change> *changes)
{
    if (kept.empty())
        return true;
    QFile file(m_name);
    const auto isBefore = [](const Place &place, quint64 position) {
        return place.position < position;
    };
    const auto read = [&](quint64 position) {
        const auto place = std::lower_bound(m_places.begin(), m_places.end(), position, isBefore);
        if (place == m_places.end() || place->position != position || !file.seek(place->offset))
            return false;
        changes->push_back({position, {VxJournalRecord::Entry, file.read(place->size)}});
        return changes->back().record.bytes.size() == place->size;
    };
    return isOpen() && file.open(QIODevice::ReadOnly) &&
           std::all_of(kept.begin(), kept.end(), read);
}

bool JournalFileWriter::replace(VxSafeFile *scene, const QByteArray &digest,
                                const QString &journalFile, const std::vector<quint64> &kept,
                                const std::vector<Change> &further,
                                const std::vector<Change> &later)
{
    std::vector<Change> changes;
    if (!readKept(kept, &changes))
        return fail(StudioText::tr("the former journal cannot be read"));
    changes.insert(changes.end(), further.begin(), further.end());
    const int count = int(changes.size());
    changes.insert(changes.end(), later.begin(), later.end());

    JournalFileWriter next;
    const QByteArray header = VxJournalFile::header(digest, count);
    next.m_end = header.size();
    if (!next.create(newFileName(journalFile)) || !next.write(header) || !next.append(changes) ||
        !next.synchronize())
        return fail(next.failure());
    if (!scene->commit())
        return fail(scene->failure());
    // From here on the present journal does not fit the scene any more.
    *this = std::move(next);
    const QByteArray from = QFile::encodeName(m_name);
    const QByteArray to = QFile::encodeName(journalFile);
    if (!VxFileExchange::synchronizeFolder(journalFile) ||
        std::rename(from.constData(), to.constData()) != 0 ||
        !VxFileExchange::synchronizeFolder(journalFile)) {
        fail(qt_error_string(errno));
        close();
        return false;
    }
    m_name = journalFile; // the file stays open
    return true;
}
