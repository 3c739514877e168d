#ifndef SCRIPTCOMPLETION_H
#define SCRIPTCOMPLETION_H

#include <QString>
#include <QStringList>

class VxScriptEngine;

/// The word at the cursor of a program.
struct ScriptWord
{
    QString owner;  ///< the expression before its dot; empty for a word without one
    QString prefix; ///< the part of the word before the cursor; may be empty
    bool hasDot = false;
    bool isInText = false; ///< within quotes or a comment: nothing to complete

    static ScriptWord at(const QString &program, int position);
};

/// The completions of the word, sorted: members of its owner, or global names and the language's
/// keywords. Ignores the case of the prefix.
QStringList scriptCompletions(const VxScriptEngine &engine, const ScriptWord &word);

#endif
