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

QScriptValue entries(ScriptArguments &arguments)
{
    const VxKeySelectionEntries present = arguments.self<VxKeySelection>()->entries();
    QScriptEngine *engine = arguments.engine();
    return makeArray(engine, int(present.size()), [&](int i) {
        const VxKeySelectionEntry &entry = present[std::size_t(i)];
        QScriptValue value = engine->newObject();
        value.setProperty(HolderName, ::toScript(engine, entry.holder));
        value.setProperty(SpansName, makeArray(engine, int(entry.spans.size()), [&](int span) {
                              return toScript(engine, entry.spans[std::size_t(span)]);
                          }));
        value.setProperty(RevisionName, double(entry.revision));
        return value;
    });
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
    if (!property || !spans.isArray())
        arguments.fail(
            ScriptText::tr("expects a property as holder and an array as spans of entry %1")
                .arg(index));
    entry.holder = property->getKeyHolder();
    const QScriptValue revision = value.property(RevisionName);
    entry.revision = revision.isNumber() ? quint64(revision.toNumber()) : 0;
    if (entry.revision != 0 && entry.revision != entry.holder->keyRevision())
        arguments.fail(ScriptText::tr("has an outdated entry %1: the keys of %2 have changed since")
                           .arg(index)
                           .arg(property->getName()));
    const quint32 count = spans.property(LengthName).toUInt32();
    for (quint32 i = 0; i < count; ++i) {
        const int from = entry.spans.empty() ? 0 : entry.spans.back().last;
        entry.spans.push_back(readSpan(arguments, spans.property(i), index, entry.holder, from));
    }
    return entry;
}

QScriptValue set(ScriptArguments &arguments)
{
    auto *selection = arguments.self<VxKeySelection>();
    const QScriptValue list = arguments.array(0, "entries");
    VxKeySelectionEntries entries;
    const quint32 count = list.property(LengthName).toUInt32();
    for (quint32 i = 0; i < count; ++i)
        entries.push_back(readEntry(arguments, list.property(i), i));
    selection->set(entries);
    return {};
}

const ScriptFunction keySelectionFunctions[] = {
    {"App.keySelection.entries()", entries, 0},
    {"App.keySelection.set()", set, 1},
};

} // namespace

QScriptValue ScriptBindings::makeKeySelection(QScriptEngine *engine, VxKeySelection *selection)
{
    QScriptValue value = ::toScript(engine, selection);
    installFunctions(engine, value, keySelectionFunctions);
    return value;
}
