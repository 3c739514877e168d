#ifndef VXIO_VXFBXTEXTPARSER_H
#define VXIO_VXFBXTEXTPARSER_H

#include "io/fbx/vxfbxrecords.h"
#include "io/vxfileprogress.h"

/// Parses a text (ASCII) FBX file into records.
///
/// Line ends only end a comment. The numbers of an array are not parsed: the array becomes one
/// value, which VxFbxArrays decodes on demand.
class VxFbxTextParser
{
public:
    VxFbxTextParser(const QByteArray &bytes, const VxFileProgress &progress);

    /// Parses the whole file; false with an error otherwise. Call it once.
    bool parse();

    const VxFbxRecords &records() const { return m_records; }
    const VxFileError &error() const { return m_error; }

private:
    bool fail(const char *place, const QString &message);
    void skipBlanks();
    bool parseNext();
    bool openRecord(const char *name, qint64 size);
    bool closeRecord();
    bool parseString();
    bool parseArray(const char *star);
    bool addValue(char code, const char *from, const char *to);
    bool report();

    VxFbxRecords m_records;
    VxFileError m_error;
    VxReadProgress m_progress;
    std::vector<VxFbxRecords::Index> m_open{0};
    VxFbxRecords::Index m_last = VxFbxRecords::None; // gets the values and the next brace
    const char *m_begin;
    const char *m_at;
    const char *m_end;
};

#endif
