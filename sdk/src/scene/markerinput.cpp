#include "scene/markerinput.h"

namespace {

constexpr QChar MarkerSign = QLatin1Char('@');

/// Parses what follows an "@" in a text.
class MarkerReference
{
public:
    MarkerReference(const QString &text, int at)
        : m_text(text)
        , m_at(at)
    {
    }

    std::optional<VxTime> time(const VxMarkers &markers, VxTime now)
    {
        if (take(QLatin1String(">")))
            return markers.timeAfter(now);
        if (take(QLatin1String("<")))
            return markers.timeBefore(now);
        const VxMarker *marker = find(markers.list(), name());
        if (!marker)
            return std::nullopt;
        if (take(QLatin1String(".end")))
            return marker->span.getEnd();
        take(QLatin1String(".start"));
        return marker->span.getStart();
    }
    int end() const { return m_at; }

private:
    bool take(QLatin1String word)
    {
        const bool isHere = m_text.midRef(m_at).startsWith(word);
        m_at += isHere ? word.size() : 0;
        return isHere;
    }

    QString name()
    {
        const bool isQuoted = take(QLatin1String("\""));
        const int start = m_at;
        while (m_at < m_text.size() &&
               (isQuoted ? m_text.at(m_at) != QLatin1Char('"') : isNameLetter(m_text.at(m_at))))
            ++m_at;
        const QString found = m_text.mid(start, m_at - start);
        return isQuoted && !take(QLatin1String("\"")) ? QString() : found;
    }
    static bool isNameLetter(QChar letter)
    {
        return letter.isLetterOrNumber() || letter == QLatin1Char('_');
    }

    /** The first one of the exact name, else of the name in other letters. */
    static const VxMarker *find(const VxMarkerList &markers, const QString &name)
    {
        const VxMarker *similar = nullptr;
        for (const VxMarker &marker : markers) {
            if (name.isEmpty() || name.compare(marker.name, Qt::CaseInsensitive) != 0)
                continue;
            if (name == marker.name)
                return &marker;
            similar = similar ? similar : &marker;
        }
        return similar;
    }

    const QString &m_text;
    int m_at;
};

} // namespace

QString withMarkerTimes(const QString &text, const VxMarkers &markers, VxTime now)
{
    QString result;
    int from = 0;
    for (int at = text.indexOf(MarkerSign); at >= 0; at = text.indexOf(MarkerSign, from)) {
        MarkerReference reference(text, at + 1);
        const std::optional<VxTime> time = reference.time(markers, now);
        if (!time)
            return {};
        result += text.midRef(from, at - from) + QStringLiteral("(%1t)").arg(*time);
        from = reference.end();
    }
    return from == 0 ? text : result + text.midRef(from);
}
