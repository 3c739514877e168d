#ifndef VXIO_VXFBXBINARYPARSER_H
#define VXIO_VXFBXBINARYPARSER_H

#include "io/fbx/vxfbxrecords.h"
#include "io/vxfileprogress.h"

/// Parses a binary FBX file into records.
///
/// Every size is checked against the bytes of the enclosing record before use, nesting uses an
/// explicit stack, and the first error ends the parsing. The footer after the last record is
/// ignored: writers disagree about it.
class VxFbxBinaryParser
{
public:
    /// True when the bytes begin like a binary FBX file.
    static bool accepts(const QByteArray &bytes);

    VxFbxBinaryParser(const QByteArray &bytes, const VxFileProgress &progress);

    /// Parses the whole file; false with an error otherwise. Call it once.
    bool parse();

    /// The version in the header, such as 7400. Set by parse(), even when it fails later on.
    qint64 version() const { return m_version; }
    const VxFbxRecords &records() const { return m_records; }
    const VxFileError &error() const { return m_error; }

private:
    // A record whose children are being read.
    struct Open
    {
        VxFbxRecords::Index index;
        qint64 end;
    };
    struct Head
    {
        quint64 end;
        quint64 valueCount;
        quint64 valueBytes;
        qint64 nameSize;
    };

    bool fail(qint64 offset, const QString &message);
    bool parseHeader();
    bool parseNext();
    bool parseHead(Head *head, qint64 limit);
    bool parseRecord(const Head &head, qint64 start, qint64 limit);
    bool parseValues(const Head &head);
    bool parseValue(qint64 limit);
    bool valueSize(char code, qint64 limit, qint64 *size);
    quint64 readCount();
    bool report();

    VxFbxRecords m_records;
    VxFileError m_error;
    VxReadProgress m_progress;
    std::vector<Open> m_open;
    const char *m_bytes;
    qint64 m_size;
    qint64 m_at = 0;
    qint64 m_version = 0;
    qint64 m_wordSize = 4; // of the numbers in a record's head
};

#endif
