#ifndef VXFBXRECORDS_H
#define VXFBXRECORDS_H

#include "io/vxfileerror.h"

#include <QByteArray>
#include <optional>
#include <string_view>
#include <variant>
#include <vector>

/// One value of a record: the position of its bytes. Values are decoded on demand, so that meshes
/// and pictures cost nothing.
struct VxFbxValue
{
    /// The type of the bytes. Binary files use their own type letters (C B Z Y I L F D S R, and
    /// f d i l b c for arrays); the others are for text files.
    enum Text : char {
        String = 'S', ///< between the quotation marks, or a binary string
        Number = 'N',
        Word = 'W',      ///< letters without quotation marks
        NumberList = 'A' ///< from after the '*' of "*N { a: ... " to before the closing brace
    };

    char code = Word;
    qint32 offset = 0; ///< of the first byte, after the type letter
    qint32 size = 0;   ///< bytes; for a binary array with its head of twelve bytes

    bool isArray() const;
};

/// The records of an FBX document, binary or text, as a tree over the file's bytes.
///
/// Record 0 is the document itself; its children are the sections. Children keep the file's
/// order. A name or a value is a span of the bytes, which the tree keeps alive.
class VxFbxRecords
{
public:
    using Index = quint32;
    static constexpr Index None = 0xFFFFFFFFu;

    static constexpr int MaxDepth = 64;                  ///< of nested records
    static constexpr Index MaxRecords = 4 * 1000 * 1000; ///< of a file
    static constexpr Index MaxValues = 8 * 1000 * 1000;  ///< of a file, an array counts once

    VxFbxRecords() = default;
    VxFbxRecords(const QByteArray &bytes, bool isText);

    const QByteArray &bytes() const { return m_bytes; }
    bool isText() const { return m_isText; }

    // Building; for the parsers.

    /// Adds a record as the last child. None when there are too many records.
    Index addRecord(Index parent, qint32 nameOffset, qint32 nameSize);
    /// Adds a value to the record added last. False when there are too many values.
    bool addValue(const VxFbxValue &value);

    // Reading. The names must be exact; FBX is case-sensitive.

    Index firstChild(Index record) const { return m_records[record].firstChild; }
    /// The next child of the same parent, or None.
    Index nextSibling(Index record) const { return m_records[record].nextSibling; }
    /// The first child of that name, or None. `record` may be None.
    Index child(Index record, std::string_view name) const;
    /// The record at the end of a path such as {"Documents", "Document"}.
    Index find(std::initializer_list<std::string_view> path) const;
    std::string_view name(Index record) const;
    /// The offset of the record's name in the file.
    qint32 offset(Index record) const { return m_records[record].name; }

    int valueCount(Index record) const { return static_cast<int>(m_records[record].valueCount); }
    /// Null when there is no such value or the record is None.
    const VxFbxValue *value(Index record, int index) const;
    /// The bytes of a string or word; empty for anything else.
    std::string_view characters(const VxFbxValue *value) const;
    /// A string for the user: UTF-8, the entities of text files replaced.
    QString text(const VxFbxValue *value) const;
    /// A number of any type, a bool as 0 or 1; false for other values. May be NaN or infinite.
    bool number(const VxFbxValue *value, double *out) const;
    /// A whole number; false also for a fraction or one beyond 64 bits.
    bool integer(const VxFbxValue *value, qint64 *out) const;
    /// A finite number, else `fallback`.
    double finite(const VxFbxValue *value, double fallback) const;

    /// Sets an error at a position of the file: byte offset of a binary file, line of a text file.
    /// Returns false.
    bool fail(VxFileError *error, qint32 offset, const QString &message) const;
    /// The same at the name of a record.
    bool failAt(VxFileError *error, Index record, const QString &message) const
    {
        return fail(error, offset(record), message);
    }

private:
    struct Record
    {
        qint32 name;
        qint32 nameSize;
        Index firstChild;
        Index lastChild;
        Index nextSibling;
        Index firstValue;
        Index valueCount;
    };

    std::optional<std::variant<qint64, double>> scalar(const VxFbxValue *value) const;

    QByteArray m_bytes;
    bool m_isText = false;
    std::vector<Record> m_records;
    std::vector<VxFbxValue> m_values;
};

/// Reads a number of a text file: decimal, or one of the spellings of infinity and not-a-number
/// ("1.#INF", "-1.#IND", "inf", "nan(ind)"). False when it is none.
bool vxFbxTextNumber(std::string_view token, double *out);

#endif
