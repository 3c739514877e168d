#include "io/csv/vxcsvrows.h"

#include "io/vxfiletext.h"
#include "io/vxtextbytes.h"

#include <QTextCodec>
#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace {

bool isBlank(char c)
{
    return c == ' ' || c == '\t';
}

std::string_view trimmed(std::string_view cell)
{
    while (!cell.empty() && isBlank(cell.front()))
        cell.remove_prefix(1);
    while (!cell.empty() && isBlank(cell.back()))
        cell.remove_suffix(1);
    return cell;
}

bool isUtf8(std::string_view cell)
{
    const auto isAscii = [](char c) { return static_cast<unsigned char>(c) < 128; };
    if (std::all_of(cell.begin(), cell.end(), isAscii))
        return true;
    QTextCodec::ConverterState state;
    QTextCodec::codecForName("UTF-8")->toUnicode(cell.data(), int(cell.size()), &state);
    return state.invalidChars == 0 && state.remainingChars == 0;
}

} // namespace

QByteArray vxCsvCell(const QString &text)
{
    QByteArray bytes = text.toUtf8();
    const auto isSpecial = [](char c) { return c == ',' || c == '"' || c == '\n' || c == '\r'; };
    // Blanks at the ends of a cell count only within quotation marks.
    const bool isTrimmed = text == text.trimmed();
    if (isTrimmed && std::none_of(bytes.begin(), bytes.end(), isSpecial))
        return bytes;
    bytes.replace('"', "\"\"");
    return '"' + bytes + '"';
}

VxCsvRows::VxCsvRows(const QByteArray &bytes, VxFileError *error)
    : m_begin(bytes.constData())
    , m_at(m_begin)
    , m_end(m_begin + bytes.size())
    , m_error(error)
{
    *error = VxFileError();
    if (bytes.startsWith("\xEF\xBB\xBF"))
        m_at += 3;
}

bool VxCsvRows::fail(int column, const QString &message) const
{
    vxFail(m_error, message);
    m_error->line = m_line;
    m_error->column = column + 1;
    return false;
}

/** Skips a line end; true also at the end of the text. */
bool VxCsvRows::endsRow()
{
    if (m_at == m_end)
        return true;
    if (*m_at != '\n' && *m_at != '\r')
        return false;
    if (*m_at == '\r' && m_at + 1 < m_end && m_at[1] == '\n')
        ++m_at;
    ++m_at;
    ++m_nextLine;
    return true;
}

/** The position is after the opening quotation mark. */
bool VxCsvRows::readQuoted()
{
    const char *const start = m_at;
    bool hasDoubled = false;
    for (;; ++m_at) {
        if (m_at == m_end)
            return fail(count(), VxFileText::tr("The quotation mark of this cell is not closed."));
        if (*m_at != '"')
            continue;
        if (m_at + 1 == m_end || m_at[1] != '"')
            break;
        hasDoubled = true;
        ++m_at;
    }
    std::string_view cell(start, std::size_t(m_at - start));
    ++m_at;
    m_nextLine += vxLinesBefore(start, m_at, m_at);
    while (m_at < m_end && isBlank(*m_at))
        ++m_at;
    if (m_at < m_end && *m_at != ',' && *m_at != '\n' && *m_at != '\r')
        return fail(count(), VxFileText::tr("A comma is missing after the quotation mark."));
    if (hasDoubled) {
        std::string text;
        for (std::size_t i = 0; i < cell.size(); ++i) {
            text += cell[i];
            i += cell[i] == '"';
        }
        m_unquoted.push_back(std::move(text));
        cell = m_unquoted.back();
    }
    m_cells.push_back(cell);
    return true;
}

bool VxCsvRows::readCell()
{
    while (m_at < m_end && isBlank(*m_at))
        ++m_at;
    if (m_at < m_end && *m_at == '"') {
        ++m_at;
        if (!readQuoted())
            return false;
    } else {
        const char *const start = m_at;
        for (; m_at < m_end && *m_at != ',' && *m_at != '\n' && *m_at != '\r'; ++m_at) {
            if (*m_at == '"')
                return fail(count(), VxFileText::tr("A quotation mark within an unquoted cell."));
        }
        m_cells.push_back(trimmed({start, std::size_t(m_at - start)}));
    }
    const std::string_view cell = m_cells.back();
    const int column = count() - 1;
    if (cell.find('\0') != std::string_view::npos)
        return fail(column, VxFileText::tr("The file is not text."));
    if (!isUtf8(cell))
        return fail(column, VxFileText::tr("The text is not UTF-8."));
    return true;
}

bool VxCsvRows::next()
{
    while (m_at < m_end) {
        m_cells.clear();
        m_unquoted.clear();
        m_line = m_nextLine;
        if (!readCell())
            return false;
        while (!endsRow()) {
            ++m_at; // the comma
            if (!readCell())
                return false;
        }
        for (const std::string_view cell : m_cells) {
            if (!cell.empty())
                return true;
        }
    }
    return false;
}

QString VxCsvRows::text(int column) const
{
    if (column < 0 || column >= count())
        return {};
    const std::string_view text = cell(column);
    return QString::fromUtf8(text.data(), int(text.size()));
}

bool VxCsvRows::number(int column, double *value) const
{
    std::string_view text = cell(column);
    if (!text.empty() && text.front() == '+')
        text.remove_prefix(1);
    const char *const end = text.data() + text.size();
    const std::from_chars_result result = std::from_chars(text.data(), end, *value);
    const bool isOutOfRange = result.ec == std::errc::result_out_of_range;
    if (!isOutOfRange && (result.ec != std::errc() || result.ptr != end || !std::isfinite(*value)))
        return fail(column,
                    VxFileText::tr("\"%1\" is not a number.").arg(VxFileText::shown(cell(column))));
    return (!isOutOfRange && std::abs(*value) <= double(std::numeric_limits<float>::max())) ||
           fail(column, VxFileText::tr("The number \"%1\" is out of range.")
                            .arg(VxFileText::shown(cell(column))));
}
