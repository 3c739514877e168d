#include "script/scriptarguments.h"
#include "script/scriptbindings.h"

#include <QtGui/QColor>
#include <cmath>
#include <vxcore/vxmarkers.h>
#include <vxcore/vxscene.h>

namespace {

const auto MarkerIdText = QStringLiteral("id");
const auto MarkerNameText = QStringLiteral("name");
const auto MarkerStartText = QStringLiteral("start");
const auto MarkerEndText = QStringLiteral("end");
const auto MarkerColourText = QStringLiteral("colour");

QScriptValue toScript(QScriptEngine *engine, const VxMarker &marker)
{
    QScriptValue value = engine->newObject();
    value.setProperty(MarkerIdText, marker.id);
    value.setProperty(MarkerNameText, marker.name);
    value.setProperty(MarkerStartText, marker.span.getStart());
    value.setProperty(MarkerEndText, marker.span.getEnd());
    value.setProperty(MarkerColourText, QColor(marker.color).name());
    return value;
}

/// Reads the members that an object has into a marker. Without an end, a point stays a point and a
/// span keeps its length.
class MarkerReader
{
public:
    /// index: for messages, of the marker in a list; -1 for a marker alone.
    MarkerReader(ScriptArguments *arguments, const QScriptValue &value, int index)
        : m_arguments(arguments)
        , m_value(value)
        , m_index(index)
    {
    }

    void read(VxMarker *marker)
    {
        if (!m_value.isObject())
            fail(ScriptText::tr("expects an object with name, start, end and colour"));
        if (has(MarkerNameText)) {
            if (!m_value.property(MarkerNameText).isString())
                fail(ScriptText::tr("expects a string as name"));
            marker->name = m_value.property(MarkerNameText).toString();
        }
        readSpan(&marker->span);
        if (has(MarkerColourText))
            readColour(&marker->color);
    }

    bool has(const QString &name) const { return m_value.property(name).isValid(); }

    [[noreturn]] void fail(const QString &message) const
    {
        m_arguments->fail(
            m_index < 0
                ? message
                : ScriptText::tr("%1 of marker %2", "what is expected").arg(message).arg(m_index));
    }

private:
    VxTime time(const QString &name)
    {
        const double number = m_value.property(name).toNumber();
        const bool isTime = m_value.property(name).isNumber() && number == std::floor(number) &&
                            number >= VxTimeMin && number <= VxTimeMax;
        if (!isTime)
            fail(ScriptText::tr("expects a whole number as %1").arg(name));
        return VxTime(number);
    }

    void readSpan(VxTimeRange *span)
    {
        const qint64 length = qint64(span->getEnd()) - span->getStart();
        if (has(MarkerStartText)) {
            span->setStart(time(MarkerStartText));
            span->setEnd(int(qMin<qint64>(span->getStart() + length, VxTimeMax)));
        }
        if (has(MarkerEndText))
            span->setEnd(time(MarkerEndText));
        if (span->getEnd() < span->getStart())
            fail(ScriptText::tr("expects an end that is not before the start"));
    }

    void readColour(QRgb *result)
    {
        const QColor colour(m_value.property(MarkerColourText).toString());
        if (!colour.isValid())
            fail(ScriptText::tr("expects a colour such as \"#e0a030\""));
        *result = colour.rgb();
    }

    ScriptArguments *m_arguments;
    QScriptValue m_value;
    int m_index;
};

QScriptValue listMarkers(ScriptArguments &arguments)
{
    const auto *markers = arguments.self<VxMarkers>();
    const VxMarkerList present = markers->list();
    return makeArray(arguments.engine(), present.size(),
                     [&](int i) { return toScript(arguments.engine(), present.at(i)); });
}

VxMarker newMarker(ScriptArguments &arguments, const QScriptValue &value, int index)
{
    VxMarker marker;
    MarkerReader reader(&arguments, value, index);
    if (!reader.has(MarkerStartText))
        reader.fail(ScriptText::tr("expects a whole number as start"));
    reader.read(&marker);
    return marker;
}

QScriptValue addMarkers(ScriptArguments &arguments)
{
    auto *markers = arguments.self<VxMarkers>();
    const QScriptValue given = arguments.context()->argument(0);
    VxMarkerList added;
    if (given.isArray()) {
        const quint32 count = given.property(QStringLiteral("length")).toUInt32();
        for (quint32 i = 0; i < count; ++i)
            added.append(newMarker(arguments, given.property(i), int(i)));
    } else {
        added.append(newMarker(arguments, given, -1));
    }
    const QVector<int> ids = markers->add(added);
    if (!given.isArray())
        return QScriptValue(ids.first());
    return makeArray(arguments.engine(), ids.size(), [&ids](int i) { return ids.at(i); });
}

QScriptValue setMarker(ScriptArguments &arguments)
{
    auto *markers = arguments.self<VxMarkers>();
    const int id = arguments.integer(0, "id");
    std::optional<VxMarker> marker = markers->find(id);
    if (!marker)
        arguments.fail(ScriptText::tr("has no marker with id %1").arg(id));
    MarkerReader(&arguments, arguments.context()->argument(1), -1).read(&*marker);
    markers->set(*marker);
    return {};
}

QScriptValue removeMarkers(ScriptArguments &arguments)
{
    auto *markers = arguments.self<VxMarkers>();
    const QVector<int> ids = arguments.context()->argument(0).isArray()
                                 ? arguments.integers(0, "ids")
                                 : QVector<int>{arguments.integer(0, "id")};
    const int before = markers->count();
    markers->remove(ids);
    return QScriptValue(before - markers->count());
}

QScriptValue clearMarkers(ScriptArguments &arguments)
{
    arguments.self<VxMarkers>()->replaceAll({});
    return {};
}

template <std::optional<VxTime> (VxMarkers::*step)(VxTime) const>
QScriptValue stepMarkers(ScriptArguments &arguments)
{
    const auto *markers = arguments.self<VxMarkers>();
    const int time = arguments.integer(0, "time");
    const std::optional<VxTime> found = (markers->*step)(time);
    return found ? QScriptValue(*found) : arguments.engine()->nullValue();
}

const ScriptFunction markerFunctions[] = {
    {"Scene.markers.list()", listMarkers, 0},
    {"Scene.markers.add()", addMarkers, 1},
    {"Scene.markers.set()", setMarker, 2},
    {"Scene.markers.remove()", removeMarkers, 1},
    {"Scene.markers.clear()", clearMarkers, 0},
    {"Scene.markers.after()", stepMarkers<&VxMarkers::timeAfter>, 1},
    {"Scene.markers.before()", stepMarkers<&VxMarkers::timeBefore>, 1},
};

} // namespace

void ScriptBindings::registerMarkers(QScriptEngine *engine)
{
    QScriptValue prototype = engine->newObject();
    installFunctions(engine, prototype, markerFunctions);
    engine->setDefaultPrototype(qMetaTypeId<VxMarkers *>(), prototype);
}
