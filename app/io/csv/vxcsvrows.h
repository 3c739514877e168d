#ifndef VXCSVROWS_H
#define VXCSVROWS_H

#include "io/vxfileerror.h"

#include <QByteArray>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

/// A text as a cell, within quotation marks where RFC 4180 or VxCsvRows requires it.
QByteArray vxCsvCell(const QString &text);

/// Splits the text of a CSV file into rows of cells by RFC 4180: cells are separated by commas, a
/// cell in quotation marks may contain commas, line ends and doubled quotation marks. Rows end with
/// LF, CR LF or CR; empty rows are skipped. The text is UTF-8, with or without a byte order mark.
class VxCsvRows
{
public:
    /// Both are borrowed; the error is reset.
    VxCsvRows(const QByteArray &bytes, VxFileError *error);

    /// Reads the next row. False at the end of the text, or with an error.
    bool next();

    /// The cells of the present row, valid until the next one; surrounding blanks are dropped.
    int count() const { return int(m_cells.size()); }
    std::string_view cell(int column) const { return m_cells[std::size_t(column)]; }
    /// The cell as text; a column that the row does not have is empty.
    QString text(int column) const;
    /// The finite number of a cell that is not empty, within the range of single precision.
    /// Returns false with an error otherwise.
    bool number(int column, double *value) const;

    /// The line on which the present row starts, from 1.
    qint64 line() const { return m_line; }
    /// Bytes read so far.
    qint64 position() const { return m_at - m_begin; }

    /// Fills the error with the row's line and a column, from 0. Always false.
    bool fail(int column, const QString &message) const;
    bool hasFailed() const { return m_error->isSet(); }

private:
    bool readCell();
    bool readQuoted();
    bool endsRow();

    const char *m_begin;
    const char *m_at;
    const char *m_end;
    VxFileError *const m_error;
    qint64 m_line = 0;
    qint64 m_nextLine = 1;
    std::vector<std::string_view> m_cells;
    std::deque<std::string> m_unquoted; ///< cells of the row that had doubled quotation marks
};

#endif
