#ifndef VXFBXARRAYS_H
#define VXFBXARRAYS_H

#include "io/fbx/vxfbxrecords.h"

/// Decodes the arrays of a document: deflated, raw or text.
///
/// The declared size of an array is checked against its bytes before memory is allocated: no
/// deflated byte becomes more than 1,032. All arrays of a document together may become 24 MB plus
/// 20 times the size of the file, which files of real curves never reach.
class VxFbxArrays
{
public:
    /// The size of the header before the numbers of a binary array, in bytes.
    static constexpr qint64 HeadSize = 12;

    /// The records must outlive the decoder.
    explicit VxFbxArrays(const VxFbxRecords &records);

    /// Decodes the first value of the record, an array, or all of its values where they are plain
    /// numbers. A record that is None gives an empty array. Numbers are converted and saturated to
    /// 64 bits. False with error() set when anything is wrong.
    bool integers(VxFbxRecords::Index record, std::vector<qint64> *out);
    /// The same for single-precision numbers, which may be NaN or infinite. Whole numbers of text
    /// arrays are bit patterns when `areBits`.
    bool floats(VxFbxRecords::Index record, std::vector<float> *out, bool areBits = false);

    const VxFileError &error() const { return m_error; }

private:
    template <class Number> bool decode(VxFbxRecords::Index record, std::vector<Number> *out);
    template <class Number>
    bool decodeScalars(VxFbxRecords::Index record, std::vector<Number> *out);
    template <class Number> bool decodeBinary(const VxFbxValue &value, std::vector<Number> *out);
    template <class Number> bool decodeText(const VxFbxValue &value, std::vector<Number> *out);
    template <class Number> bool decodeNumber(std::string_view token, Number *out) const;
    bool inflate(const VxFbxValue &value, qint64 size, QByteArray *out);
    bool spend(qint64 bytes, const VxFbxValue &value);
    bool fail(qint32 offset, const QString &message);

    const VxFbxRecords &m_records;
    VxFileError m_error;
    qint64 m_budget; // bytes that may still be decoded
    bool m_areBits = false;
};

#endif
