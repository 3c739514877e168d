#ifndef SCRIPTCOMPLETION_H
#define SCRIPTCOMPLETION_H

#include <QString>
#include <QStringList>

class VxScriptEngine;

/// The word that is being written at a place of a program.
struct ScriptWord
{
    QString owner;  ///< the expression before its dot; empty for a word without one
    QString prefix; ///< the part of the word before the place; may be empty
    bool hasDot = false;
    bool isInText = false; ///< within quotes or a comment: nothing to complete

    static ScriptWord at(const QString &program, int place);
};

/// What the word can become, sorted: members of its owner, or global names and the language's own
/// words. Capital letters in the prefix make no difference.
QStringList scriptCompletions(const VxScriptEngine &engine, const ScriptWord &word);

#endif
