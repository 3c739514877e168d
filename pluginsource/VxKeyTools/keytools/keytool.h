#ifndef KEYTOOL_H
#define KEYTOOL_H

#include "keytools/keytoolrun.h"

#include <QtCore/QMap>
#include <QtCore/QStringList>
#include <QtCore/QVariant>
#include <QtCore/QVector>
#include <vxcore/vxtypedinput.h>

/// A parameter of a tool: a field of the pane, a member of the object that a script passes.
struct KeyToolParameter
{
    enum Kind {
        Time,       ///< a time or a duration: typed frames, timecode and so on; ticks for scripts
        TimeChange, ///< a time, or a change of one, such as +10 or 150%
        Number,     ///< a number
        Change,     ///< a value, or a change of one
        Choice      ///< one of a list; scripts pass its name or its index
    };
    QString name;  ///< for scripts
    QString label; ///< for the pane, with its unit
    Kind kind = Number;
    QString defaultText; ///< initial text, in frames for times
    QStringList choices = {};
    double least = -1e30; ///< smallest accepted amount
};

/// The values of a tool's parameters.
class KeyToolArguments
{
public:
    const VxTypedInput &input(const QString &name) const;
    /// The amount of a time (in ticks), a number, or the index of a choice.
    double amount(const QString &name) const { return input(name).amount; }
    VxTime ticks(const QString &name) const { return wholeTick(amount(name)); }
    int choice(const QString &name) const { return int(amount(name)); }

    void set(const QString &name, const VxTypedInput &value) { m_values.insert(name, value); }

private:
    QMap<QString, VxTypedInput> m_values;
};

/// A tool, run by an action, the pane and a script function.
struct KeyTool
{
    using Run = KeyToolResult (*)(const KeyToolArguments &arguments);

    QString name;        ///< of the script function, such as "retime"
    QString label;       ///< of menu and pane, such as "Retime"
    QString description; ///< a sentence for status line and help
    QVector<KeyToolParameter> parameters;
    Run run = nullptr;
    /// False for tools that change the selection alone.
    bool changesKeys = true;
    /// What the tool works on with these texts of its parameters, such as "12 selected keys on 3
    /// channels"; null means KeyTargets::current().
    using Targets = QString (*)(const QVariantMap &texts);
    Targets targets = nullptr;
    const char *folder = ""; ///< the sub-menu, set by all()

    /// Every tool, in the order of the menu.
    static const QVector<KeyTool> &all();
    /// Null when there is none of that name.
    static const KeyTool *find(const QString &name);

    /// Runs the tool with arguments by name: texts as typed, or numbers, which are values (times in
    /// ticks); missing ones have their defaults. An unknown name or an invalid value is an error:
    /// nothing is changed and the result's message names it.
    KeyToolResult runWith(const QVariantMap &values) const;
};

/// Shows the message of a result in the status line and returns the result.
KeyToolResult shownResult(const KeyToolResult &result);
/// A result of a tool that changed nothing; the message is shown in the status line.
KeyToolResult refusedResult(const QString &message);

/// The tools by kind; each list is a part of KeyTool::all().
QVector<KeyTool> selectionTools();
QVector<KeyTool> timeTools();
QVector<KeyTool> valueTools();
QVector<KeyTool> cleaningTools();
QVector<KeyTool> pasteTools();
QVector<KeyTool> poseTools();

#endif
