#include "vxtimelinefactories.h"

#include <QtCore/QMetaEnum>

namespace {

// A choice or set of the pane as a script number, which equals the enumeration's key.
template <typename Enum> QScriptValue enumToScript(QScriptEngine *, const Enum &value)
{
    return QScriptValue(static_cast<int>(value));
}

// A whole number is used as it is and a text as the name of a key. Anything else becomes -1, which
// is no value of any choice: the slots refuse it.
template <typename Enum> void enumFromScript(const QScriptValue &value, Enum &result)
{
    int number = -1;
    if (value.isString())
        number = QMetaEnum::fromType<Enum>().keyToValue(qPrintable(value.toString()));
    else if (value.isNumber() && value.toNumber() == value.toInteger())
        number = value.toInt32();
    result = static_cast<Enum>(number);
}

template <typename Enum> void registerEnum(QScriptEngine *engine)
{
    qScriptRegisterMetaType<Enum>(engine, &enumToScript<Enum>, &enumFromScript<Enum>);
}

void propertyTypesFromScript(const QScriptValue &value, VxTimePane::PropertyTypes &types)
{
    types = VxTimePane::PropertyTypes(value.toInt32());
}

} // namespace

VxTimePaneFactory::VxTimePaneFactory(const char *guid)
    : VxScriptableFactoryOf(guid)
{
    // The type name in the pane's slots.
    qRegisterMetaType<VxTimePane::PropertyTypes>("PropertyTypes");
}

// Without its own conversion an engine returns values of enumerations as objects that equal no
// number, and accepts only such numbers for a set as are the value of one of its flags.
void VxTimePaneFactory::registerClass(QScriptEngine *engine) const
{
    VxScriptableFactoryOf::registerClass(engine);
    if (!engine)
        return;
    registerEnum<VxTimePane::ControlsPosition>(engine);
    registerEnum<VxTimePane::ViewMode>(engine);
    registerEnum<VxTimePane::KeyScope>(engine);
    qScriptRegisterMetaType<VxTimePane::PropertyTypes>(
        engine, &enumToScript<VxTimePane::PropertyTypes>, &propertyTypesFromScript);
}
