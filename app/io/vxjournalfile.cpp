#include "io/vxjournalfile.h"

#include <QCryptographicHash>
#include <cstring>

namespace VxJournalFile {

namespace {

constexpr char Magic[] = "vxjournal 1\n";
constexpr int MagicBytes = int(sizeof Magic) - 1;
constexpr int DigestBytes = 16;
constexpr int HeaderBytes = MagicBytes + DigestBytes + int(sizeof(qint32)) + DigestBytes;

/// What precedes the bytes of a record; a checksum of both follows them.
struct RecordHead
{
    quint32 number = 0;
    qint32 size = 0;
    quint32 kind = 0;
};

QByteArray checksum(const char *bytes, int size)
{
    QCryptographicHash hash(QCryptographicHash::Md5);
    hash.addData(bytes, size);
    return hash.result();
}

bool isKnown(quint32 kind)
{
    return kind == VxJournalRecord::Entry || kind == VxJournalRecord::Step;
}

} // namespace

QByteArray digestOf(const QByteArray &snapshot)
{
    return checksum(snapshot.constData(), snapshot.size());
}

QByteArray header(const QByteArray &digest, int kept)
{
    const auto number = qint32(kept);
    QByteArray bytes(Magic, MagicBytes);
    bytes.append(digest);
    bytes.append(reinterpret_cast<const char *>(&number), int(sizeof number));
    return bytes + checksum(bytes.constData(), bytes.size());
}

QByteArray framed(quint32 number, const VxJournalRecord &record)
{
    const RecordHead head{number, record.bytes.size(), record.kind};
    QByteArray bytes;
    bytes.reserve(int(sizeof head) + record.bytes.size() + DigestBytes);
    bytes.append(reinterpret_cast<const char *>(&head), int(sizeof head));
    bytes.append(record.bytes);
    return bytes.append(checksum(bytes.constData(), bytes.size()));
}

bool read(const QByteArray &bytes, const QByteArray &digest, VxJournalContents *contents)
{
    *contents = VxJournalContents();
    if (bytes.size() < HeaderBytes)
        return false;
    qint32 kept = 0;
    std::memcpy(&kept, bytes.constData() + MagicBytes + DigestBytes, sizeof kept);
    if (kept < 0 || bytes.left(HeaderBytes) != header(digest, kept))
        return false;
    int offset = HeaderBytes;
    RecordHead head;
    const auto isNext = [&] {
        const qint64 left = qint64(bytes.size()) - offset - qint64(sizeof head) - DigestBytes;
        if (left < 0)
            return false;
        std::memcpy(&head, bytes.constData() + offset, sizeof head);
        if (head.number != quint32(contents->records.size()) || head.size < 0 || head.size > left)
            return false;
        const int size = int(sizeof head) + head.size;
        return isKnown(head.kind) &&
               bytes.mid(offset + size, DigestBytes) == checksum(bytes.constData() + offset, size);
    };
    while (isNext()) {
        offset += int(sizeof head);
        contents->records.append({VxJournalRecord::Kind(head.kind), bytes.mid(offset, head.size)});
        offset += head.size + DigestBytes;
    }
    contents->kept = qMin(kept, contents->records.size());
    return true;
}

} // namespace VxJournalFile
