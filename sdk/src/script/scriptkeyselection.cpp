#include "script/scriptarguments.h"
#include "script/scriptbindings.h"

#include <vxcore/vxkeyselection.h>
#include <vxcore/vxproperty.h>

namespace {

const auto HolderName = QStringLiteral("holder");
const auto SpansName = QStringLiteral("spans");
const auto RevisionName = QStringLiteral("revision");
const auto FirstName = QStringLiteral("first");
const auto LastName = QStringLiteral("last");
const auto LengthName = QStringLiteral("length");

QScriptValue toScript(QScriptEngine *engine, const VxKeySpan &span)
{
    QScriptValue value = engine->newObject();
    value.setProperty(FirstName, span.first);
    value.setProperty(LastName, span.last);
    return value;
}

QScriptValue entries(QScriptContext *context, QScriptEngine *engine)
{
    ScriptArguments arguments(context, "App.keySelection.entries()");
    const auto *selection = arguments.self<VxKeySelection>();
    if (arguments.failed())
        return arguments.error();
    QScriptValue list = engine->newArray();
    quint32 count = 0;
    for (const VxKeySelectionEntry &entry : selection->entries()) {
        QScriptValue spans = engine->newArray(uint(entry.spans.size()));
        for (std::size_t i = 0; i < entry.spans.size(); ++i)
            spans.setProperty(quint32(i), toScript(engine, entry.spans[i]));
        QScriptValue value = engine->newObject();
        value.setProperty(HolderName, ::toScript(engine, entry.holder));
        value.setProperty(SpansName, spans);
        value.setProperty(RevisionName, double(entry.revision));
        list.setProperty(count++, value);
    }
    return list;
}

// One span of an entry; it must be within the holder's keys and after the previous span.
VxKeySpan readSpan(ScriptArguments &arguments, const QScriptValue &value, quint32 entry,
                   const VxProperty *holder, int from)
{
    const double first = value.property(FirstName).toNumber();
    const double last = value.property(LastName).toNumber();
    const VxKeySpan span{int(first), int(last)};
    if (span.first != first || span.last != last || span.first < from || span.last <= span.first ||
        span.last > holder->getNumKeys())
        arguments.fail(ScriptText::tr("expects ascending spans of keys, first < last <= %1, in "
                                      "entry %2")
                           .arg(holder->getNumKeys())
                           .arg(entry));
    return span;
}

VxKeySelectionEntry readEntry(ScriptArguments &arguments, const QScriptValue &value, quint32 index)
{
    VxKeySelectionEntry entry;
    const auto *property = qobject_cast<VxProperty *>(value.property(HolderName).toQObject());
    const QScriptValue spans = value.property(SpansName);
    if (!property || !spans.isArray()) {
        arguments.fail(
            ScriptText::tr("expects a property as holder and an array as spans of entry %1")
                .arg(index));
        return entry;
    }
    entry.holder = property->getKeyHolder();
    const QScriptValue revision = value.property(RevisionName);
    entry.revision = revision.isNumber() ? quint64(revision.toNumber()) : 0;
    if (entry.revision != 0 && entry.revision != entry.holder->keyRevision())
        arguments.fail(ScriptText::tr("has an outdated entry %1: the keys of %2 have changed since")
                           .arg(index)
                           .arg(property->getName()));
    const quint32 count = spans.property(LengthName).toUInt32();
    for (quint32 i = 0; i < count && !arguments.failed(); ++i) {
        const int from = entry.spans.empty() ? 0 : entry.spans.back().last;
        entry.spans.push_back(readSpan(arguments, spans.property(i), index, entry.holder, from));
    }
    return entry;
}

QScriptValue set(QScriptContext *context, QScriptEngine *engine)
{
    ScriptArguments arguments(context, "App.keySelection.set()");
    auto *selection = arguments.self<VxKeySelection>();
    const QScriptValue list = arguments.array(0, "entries");
    VxKeySelectionEntries entries;
    const quint32 count = arguments.failed() ? 0 : list.property(LengthName).toUInt32();
    for (quint32 i = 0; i < count && !arguments.failed(); ++i)
        entries.push_back(readEntry(arguments, list.property(i), i));
    if (arguments.failed())
        return arguments.error();
    selection->set(entries);
    return engine->undefinedValue();
}

const ScriptFunction keySelectionFunctions[] = {
    {"entries", entries, 0},
    {"set", set, 1},
};

} // namespace

QScriptValue ScriptBindings::makeKeySelection(QScriptEngine *engine, VxKeySelection *selection)
{
    QScriptValue value = ::toScript(engine, selection);
    installFunctions(engine, value, keySelectionFunctions);
    return value;
}
