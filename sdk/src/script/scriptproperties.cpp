#include "scene/vxcurrenttime.h"
#include "script/scriptarguments.h"
#include "script/scriptbindings.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <vxcore/vxboolproperty.h>
#include <vxcore/vxchangeblock.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxintproperty.h>
#include <vxcore/vxkeyarrays.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxpropertyhelper.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxstringproperty.h>

namespace {

struct ScriptKey
{
    VxTime time;
    double value;
    int type;
    VxTcb tcb;
};

/// One member of a key object; members other than time and value may be missing.
double member(ScriptArguments &arguments, const QScriptValue &key, quint32 index, const char *name,
              bool required)
{
    const QScriptValue value = key.property(QLatin1String(name));
    if (!required && !value.isValid())
        return 0.0;
    const QString given = value.isValid() ? value.toString() : ScriptText::tr("nothing");
    if (!value.isNumber() || !std::isfinite(value.toNumber()))
        arguments.fail(ScriptText::tr("expects a finite number as %1 of key %2, not %3")
                           .arg(QLatin1String(name))
                           .arg(index)
                           .arg(given));
    return value.toNumber();
}

VxTime keyTime(ScriptArguments &arguments, const QScriptValue &key, quint32 index)
{
    const double time = member(arguments, key, index, "time", true);
    if (time != std::floor(time) || std::abs(time) > VxTimeMax)
        arguments.fail(
            ScriptText::tr("expects whole ticks as time of key %1, not %2").arg(index).arg(time));
    return static_cast<VxTime>(time);
}

int keyType(ScriptArguments &arguments, const QScriptValue &key, quint32 index)
{
    const double type = member(arguments, key, index, "type", false);
    if (type != 0.0 && type != 1.0 && type != 2.0)
        arguments.fail(
            ScriptText::tr("expects 0, 1 or 2 as type of key %1, not %2").arg(index).arg(type));
    return static_cast<int>(type);
}

/// The keys of an argument, sorted by time; of several at one time the last one counts.
QVector<ScriptKey> readKeys(ScriptArguments &arguments, int argument)
{
    const QScriptValue array = arguments.array(argument, "keys");
    QVector<ScriptKey> keys;
    const quint32 length = array.property(QStringLiteral("length")).toUInt32();
    for (quint32 i = 0; i < length; ++i) {
        const QScriptValue key = array.property(i);
        const auto shape = [&](const char *name) {
            return static_cast<float>(member(arguments, key, i, name, false));
        };
        keys.append({keyTime(arguments, key, i),
                     member(arguments, key, i, "value", true),
                     keyType(arguments, key, i),
                     {shape("tension"), shape("continuity"), shape("bias")}});
    }
    const auto earlier = [](const ScriptKey &a, const ScriptKey &b) { return a.time < b.time; };
    std::stable_sort(keys.begin(), keys.end(), earlier);
    // Keeps the last of equal times: unique() in reverse order keeps the first.
    const auto same = [](const ScriptKey &a, const ScriptKey &b) { return a.time == b.time; };
    keys.erase(keys.begin(), std::unique(keys.rbegin(), keys.rend(), same).base());
    return keys;
}

float valueFor(const VxFloatProperty *, double value)
{
    return static_cast<float>(value);
}

qint32 valueFor(const VxIntProperty *, double value)
{
    return static_cast<qint32>(std::lround(qBound(double(std::numeric_limits<qint32>::min()), value,
                                                  double(std::numeric_limits<qint32>::max()))));
}

/// Sets keys, with values limited like by the property's own setter; range null merges, else
/// replaces the keys within.
template <class Property>
bool putKeys(Property *property, const QVector<ScriptKey> &keys, const VxTimeRange *range)
{
    const auto *holder = static_cast<const Property *>(property->getKeyHolder());
    VxKeyArrays<decltype(valueFor(property, 0))> arrays;
    for (const ScriptKey &key : keys) {
        const auto value = valueFor(property, key.value);
        arrays.times.push_back(key.time);
        arrays.values.push_back(
            holder->isClamped() ? qBound(holder->getMin(), value, holder->getMax()) : value);
        arrays.types.push_back(static_cast<quint8>(key.type));
        arrays.tcb.push_back(key.tcb);
    }
    return range ? property->replaceKeys(*range, arrays) : property->setKeys(arrays);
}

QScriptValue getKeys(ScriptArguments &arguments)
{
    auto *property = arguments.self<VxNumericProperty>();
    return makeArray(arguments.engine(), property->getNumKeys(), [&](int i) {
        float tension = 0, continuity = 0, bias = 0;
        const int type = property->getKeyInterpolationType(i, &tension, &continuity, &bias);
        QScriptValue key = arguments.engine()->newObject();
        key.setProperty(QStringLiteral("time"), property->getKeyTime(i));
        key.setProperty(QStringLiteral("value"), property->getKeyDoubleValue(i));
        key.setProperty(QStringLiteral("type"), type);
        key.setProperty(QStringLiteral("tension"), qsreal(tension));
        key.setProperty(QStringLiteral("continuity"), qsreal(continuity));
        key.setProperty(QStringLiteral("bias"), qsreal(bias));
        return key;
    });
}

QScriptValue getKeyTimes(ScriptArguments &arguments)
{
    auto *property = arguments.self<VxProperty>();
    return makeArray(arguments.engine(), property->getNumKeys(),
                     [property](int i) { return property->getKeyTimes()[i]; });
}

QScriptValue getKeyValues(ScriptArguments &arguments)
{
    auto *property = arguments.self<VxNumericProperty>();
    return makeArray(arguments.engine(), property->getNumKeys(),
                     [property](int i) { return property->getKeyDoubleValue(i); });
}

bool putKeys(VxNumericProperty *property, const QVector<ScriptKey> &keys, const VxTimeRange *range)
{
    if (auto *number = qobject_cast<VxFloatProperty *>(property))
        return putKeys(number, keys, range);
    auto *whole = qobject_cast<VxIntProperty *>(property);
    return whole && putKeys(whole, keys, range);
}

QScriptValue setKeys(ScriptArguments &arguments)
{
    auto *property = arguments.self<VxNumericProperty>();
    return putKeys(property, readKeys(arguments, 0), nullptr);
}

QScriptValue replaceKeys(ScriptArguments &arguments)
{
    auto *property = arguments.self<VxNumericProperty>();
    const int start = arguments.integer(0, "start");
    const VxTimeRange range(start, arguments.integer(1, "end"));
    const QVector<ScriptKey> keys = readKeys(arguments, 2);
    return putKeys(property, keys, &range);
}

QScriptValue setKey(ScriptArguments &arguments)
{
    auto *property = arguments.self<VxNumericProperty>();
    const ScriptKey key{arguments.integer(0, "time"),
                        arguments.number(1, "value"),
                        arguments.integer(2, "type", 0),
                        {static_cast<float>(arguments.number(3, "tension", 0.0)),
                         static_cast<float>(arguments.number(4, "continuity", 0.0)),
                         static_cast<float>(arguments.number(5, "bias", 0.0))}};
    if (key.type < 0 || key.type > 2)
        arguments.fail(
            ScriptText::tr("expects 0, 1 or 2 as argument 3 (type), not %1").arg(key.type));
    return putKeys(property, {key}, nullptr);
}

QScriptValue deleteKeys(ScriptArguments &arguments)
{
    auto *property = arguments.self<VxProperty>();
    const int start = arguments.integer(0, "start");
    const int end = arguments.integer(1, "end", start);
    return property->deleteKeys(VxTimeRange(start, end));
}

QScriptValue moveKeys(ScriptArguments &arguments)
{
    auto *property = arguments.self<VxNumericProperty>();
    const QVector<int> indexes = arguments.integers(0, "indexes");
    const QVector<int> times = arguments.integers(1, "times");
    return property->moveKeys(indexes, times);
}

QScriptValue setKeyInterpolation(ScriptArguments &arguments)
{
    auto *property = arguments.self<VxFloatProperty>();
    const int index = arguments.integer(0, "index");
    const int type = arguments.integer(1, "type");
    const auto tension = static_cast<float>(arguments.number(2, "tension", 0.0));
    const auto continuity = static_cast<float>(arguments.number(3, "continuity", 0.0));
    const auto bias = static_cast<float>(arguments.number(4, "bias", 0.0));
    return property->setKeyInterpolation(index, type, tension, continuity, bias);
}

QScriptValue getValue(ScriptArguments &arguments)
{
    auto *property = arguments.self<VxProperty>();
    const int time = arguments.integer(0, "time", vxCurrentTime());
    if (auto *text = qobject_cast<VxStringProperty *>(property))
        return text->getValue();
    auto *number = qobject_cast<VxNumericProperty *>(property);
    return number ? QScriptValue(number->getDoubleValue(time)) : QScriptValue();
}

QScriptValue setValue(ScriptArguments &arguments)
{
    auto *property = arguments.self<VxNumericProperty>();
    const double value = arguments.number(0, "value");
    const int time = arguments.integer(1, "time", vxCurrentTime());
    return property->setDoubleValue(time, value);
}

QScriptValue setLink(ScriptArguments &arguments)
{
    auto *property = arguments.self<VxNumericProperty>();
    auto *target = arguments.objectOrNull<VxNumericProperty>(0, "property");
    const bool terminal = arguments.boolean(1, "terminal", false);
    const double factor = arguments.number(2, "factor", 1.0);
    const double offset = arguments.number(3, "offset", 0.0);
    return property->setLink(target, terminal, factor, offset);
}

QScriptValue setAlias(ScriptArguments &arguments)
{
    auto *property = arguments.self<VxProperty>();
    return property->setAliasedProperty(arguments.objectOrNull<VxProperty>(0, "property"));
}

/// The object that a function returns for the property.
template <auto get> QScriptValue relative(ScriptArguments &arguments)
{
    return toScript(arguments.engine(), std::invoke(get, arguments.self<VxProperty>()));
}

const ScriptFunction propertyFunctions[] = {
    {"getKeys()", getKeys, 0},
    {"getKeyTimes()", getKeyTimes, 0},
    {"getKeyValues()", getKeyValues, 0},
    {"setKeys()", setKeys, 1},
    {"replaceKeys()", replaceKeys, 3},
    {"setKey()", setKey, 6},
    {"deleteKeys()", deleteKeys, 2},
    {"moveKeys()", moveKeys, 2},
    {"setKeyInterpolation()", setKeyInterpolation, 5},
    {"getValue()", getValue, 1},
    {"setValue()", setValue, 2},
    {"setLink()", setLink, 4},
    {"setAlias()", setAlias, 1},
    {"getAliasedProperty()", relative<&VxProperty::getAliasedProperty>, 0},
    {"getOwner()", relative<&VxProperty::getOwner>, 0},
    {"getNode()", relative<&VxPropertyHelper::getNode>, 0},
};

} // namespace

void ScriptBindings::registerProperties(QScriptEngine *engine)
{
    QScriptValue prototype = engine->newObject();
    installFunctions(engine, prototype, propertyFunctions);
    for (const int type : {qMetaTypeId<VxProperty *>(), qMetaTypeId<VxFloatProperty *>(),
                           qMetaTypeId<VxIntProperty *>(), qMetaTypeId<VxBoolProperty *>(),
                           qMetaTypeId<VxStringProperty *>()})
        engine->setDefaultPrototype(type, prototype);
}
