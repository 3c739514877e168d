#include "keytools/keytool.h"

#include "keytools/keytooltext.h"

#include <algorithm>
#include <cmath>
#include <vxcore/vxmainwindow.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxscenetimedisplay.h>

namespace {

bool isChange(KeyToolParameter::Kind kind)
{
    return kind == KeyToolParameter::TimeChange || kind == KeyToolParameter::Change;
}

VxTypedInput readChoice(const KeyToolParameter &parameter, const QVariant &value)
{
    bool isNumber = false;
    const int number = value.toInt(&isNumber);
    const int index = isNumber ? number : parameter.choices.indexOf(value.toString());
    if (index < 0 || index >= parameter.choices.size())
        return {VxTypedInput::Unreadable, 0};
    return {VxTypedInput::Value, double(index)};
}

VxTypedInput readText(const KeyToolParameter &parameter, const QString &text)
{
    const auto signs = isChange(parameter.kind) ? VxTypedInput::OfOffsets : VxTypedInput::OfValues;
    const bool isTime =
        parameter.kind == KeyToolParameter::Time || parameter.kind == KeyToolParameter::TimeChange;
    return isTime ? VxSceneTimeDisplay::read(vxScene, text, signs)
                  : VxTypedInput::read(text, signs);
}

VxTypedInput readValue(const KeyToolParameter &parameter, const QVariant &value)
{
    VxTypedInput input;
    if (parameter.kind == KeyToolParameter::Choice) {
        input = readChoice(parameter, value);
    } else if (value.type() == QVariant::String) {
        input = readText(parameter, value.toString());
    } else {
        bool isNumber = false;
        input.amount = value.toDouble(&isNumber);
        input.kind = VxTypedInput::Value;
        if (!isNumber || !std::isfinite(input.amount))
            input = {VxTypedInput::Unreadable, 0};
    }
    if (input.kind == VxTypedInput::Empty || input.amount < parameter.least)
        return {VxTypedInput::Unreadable, 0};
    return input;
}

KeyToolResult failure(const QString &message)
{
    KeyToolResult result;
    result.isArgumentError = true;
    result.message = message;
    return shownResult(result);
}

} // namespace

KeyToolResult shownResult(const KeyToolResult &result)
{
    vxShowStatusMessage(result.message);
    return result;
}

KeyToolResult refusedResult(const QString &message)
{
    KeyToolResult result;
    result.message = message;
    return shownResult(result);
}

const VxTypedInput &KeyToolArguments::input(const QString &name) const
{
    static const VxTypedInput none;
    const auto found = m_values.constFind(name);
    return found == m_values.constEnd() ? none : *found;
}

const QVector<KeyTool> &KeyTool::all()
{
    static const QVector<KeyTool> tools = [] {
        QVector<KeyTool> selecting = selectionTools();
        for (KeyTool &tool : selecting)
            tool.changesKeys = false;
        QVector<KeyTool> all;
        const auto add = [&all](const char *folder, const QVector<KeyTool> &some) {
            for (KeyTool tool : some) {
                tool.folder = folder;
                all.append(tool);
            }
        };
        add(QT_TRANSLATE_NOOP("VxMenuPath", "Select"), selecting);
        add(QT_TRANSLATE_NOOP("VxMenuPath", "Times"), timeTools() + pasteTools());
        add(QT_TRANSLATE_NOOP("VxMenuPath", "Values"), valueTools());
        add(QT_TRANSLATE_NOOP("VxMenuPath", "Clean Up"), cleaningTools());
        add(QT_TRANSLATE_NOOP("VxMenuPath", "Pose"), poseTools());
        return all;
    }();
    return tools;
}

const KeyTool *KeyTool::find(const QString &name)
{
    const QVector<KeyTool> &tools = all();
    const auto found = std::find_if(tools.begin(), tools.end(),
                                    [&name](const KeyTool &tool) { return tool.name == name; });
    return found == tools.end() ? nullptr : &*found;
}

KeyToolResult KeyTool::runWith(const QVariantMap &values) const
{
    KeyToolArguments arguments;
    for (const KeyToolParameter &parameter : parameters) {
        const QVariant value = values.value(parameter.name, parameter.defaultText);
        const VxTypedInput input = readValue(parameter, value);
        if (input.kind == VxTypedInput::Unreadable)
            return failure(KeyToolText::tr("%1: \"%2\" cannot be used for %3")
                               .arg(label, value.toString(), parameter.label));
        arguments.set(parameter.name, input);
    }
    for (auto it = values.begin(); it != values.end(); ++it) {
        const bool isKnown = std::any_of(
            parameters.begin(), parameters.end(),
            [&it](const KeyToolParameter &parameter) { return parameter.name == it.key(); });
        if (!isKnown)
            return failure(KeyToolText::tr("%1 has no parameter %2").arg(label, it.key()));
    }
    return run(arguments);
}
