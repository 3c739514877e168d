#include "io/csv/vxmarkercsv.h"

#include "io/csv/vxcsvrows.h"
#include "io/vxfiletext.h"

#include <QColor>
#include <cmath>

namespace {

enum MarkerColumn { NameCell, StartCell, EndCell, ColourCell, MarkerColumns };

QByteArray secondsText(VxTime time)
{
    return QByteArray::number(double(time) / VxTicksPerSecond, 'f', 6);
}

/// Reads the rows one after another.
class MarkerReading
{
public:
    MarkerReading(const QByteArray &bytes, const VxTimeDisplay &display, VxTime ticksPerFrame,
                  VxFileError *error)
        : m_error(error)
        , m_rows(bytes, error)
        , m_display(display)
        , m_ticksPerFrame(ticksPerFrame)
    {
    }

    bool readHeader();
    bool readRows(VxMarkerList *markers);

private:
    bool readMarker(VxMarker *marker) const;
    bool readTime(int column, VxTime *time) const;
    QString text(MarkerColumn column) const { return m_rows.text(m_places[column]); }

    VxFileError *const m_error;
    VxCsvRows m_rows;
    VxTimeDisplay m_display;
    VxTime m_ticksPerFrame;
    int m_places[MarkerColumns] = {-1, -1, -1, -1}; ///< in the file; -1: not there
    int m_count = 0;                                ///< columns of the header
};

bool MarkerReading::readHeader()
{
    if (!m_rows.next()) {
        if (!m_rows.hasFailed())
            m_error->message = VxFileText::tr("The file is empty.");
        return false;
    }
    m_count = m_rows.count();
    for (int i = 0; i < m_count; ++i) {
        const QString name = m_rows.text(i).toLower();
        const int column = name == QLatin1String("name")     ? NameCell
                           : name == QLatin1String("start")  ? StartCell
                           : name == QLatin1String("end")    ? EndCell
                           : name == QLatin1String("colour") ? ColourCell
                           : name == QLatin1String("color")  ? ColourCell
                                                             : MarkerColumns;
        if (column == MarkerColumns)
            return m_rows.fail(
                i, VxFileText::tr("Unknown column \"%1\"; expected name, start, end and colour.")
                       .arg(VxFileText::shown(m_rows.cell(i))));
        if (m_places[column] >= 0)
            return m_rows.fail(i, VxFileText::tr("The column \"%1\" occurs twice.").arg(name));
        m_places[column] = i;
    }
    return m_places[StartCell] >= 0 ||
           m_rows.fail(0, VxFileText::tr("The column \"start\" is missing."));
}

bool MarkerReading::readTime(int column, VxTime *time) const
{
    const QString typed = m_rows.text(column);
    bool isNumber = false;
    double ticks = typed.toDouble(&isNumber) * VxTicksPerSecond;
    if (!isNumber) {
        const VxTypedInput input = m_display.read(typed, m_ticksPerFrame);
        isNumber = input.kind == VxTypedInput::Value;
        ticks = input.amount;
    }
    if (!isNumber || !std::isfinite(ticks))
        return m_rows.fail(
            column,
            VxFileText::tr("\"%1\" is not a time.").arg(VxFileText::shown(m_rows.cell(column))));
    ticks = std::round(ticks);
    if (ticks < VxTimeMin || ticks > VxTimeMax)
        return m_rows.fail(column, VxFileText::tr("The time \"%1\" is out of range.")
                                       .arg(VxFileText::shown(m_rows.cell(column))));
    *time = VxTime(ticks);
    return true;
}

bool MarkerReading::readMarker(VxMarker *marker) const
{
    if (m_rows.count() > m_count)
        return m_rows.fail(m_count, VxFileText::tr("The row has more cells than the first row."));
    const int startPlace = m_places[StartCell];
    VxTime start = 0;
    if (text(StartCell).isEmpty())
        return m_rows.fail(startPlace, VxFileText::tr("The start is missing."));
    if (!readTime(startPlace, &start))
        return false;
    VxTime end = start;
    if (!text(EndCell).isEmpty() && !readTime(m_places[EndCell], &end))
        return false;
    if (end < start)
        return m_rows.fail(m_places[EndCell], VxFileText::tr("The end is before the start."));
    marker->name = text(NameCell);
    marker->span = VxTimeRange(start, end);
    const QString colour = text(ColourCell);
    if (colour.isEmpty())
        return true;
    if (!QColor::isValidColor(colour))
        return m_rows.fail(m_places[ColourCell],
                           VxFileText::tr("\"%1\" is not a colour such as #e0a030.").arg(colour));
    marker->color = QColor(colour).rgb();
    return true;
}

bool MarkerReading::readRows(VxMarkerList *markers)
{
    while (m_rows.next()) {
        VxMarker marker;
        if (!readMarker(&marker))
            return false;
        markers->append(marker);
    }
    return !m_rows.hasFailed();
}

} // namespace

QByteArray vxWriteMarkerCsv(const VxMarkerList &markers)
{
    QByteArray bytes("name,start,end,colour\r\n");
    for (const VxMarker &marker : markers) {
        QString name = marker.name;
        name.remove(QChar(0)); // no text file has one
        bytes += vxCsvCell(name) + ',' + secondsText(marker.span.getStart()) + ',';
        if (!marker.isPoint())
            bytes += secondsText(marker.span.getEnd());
        bytes += ',' + QColor(marker.color).name().toLatin1() + "\r\n";
    }
    return bytes;
}

bool vxReadMarkerCsv(const QByteArray &bytes, const VxTimeDisplay &display, VxTime ticksPerFrame,
                     VxMarkerList *markers, VxFileError *error)
{
    VxMarkerList read;
    MarkerReading reading(bytes, display, ticksPerFrame, error);
    if (!reading.readHeader() || !reading.readRows(&read))
        return false;
    *markers = read;
    return true;
}
