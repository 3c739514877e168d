#ifndef SCRIPTTEXT_H
#define SCRIPTTEXT_H

#include <QtCore/QCoreApplication>

/// The translated messages of script functions. They continue the name of the function: "addNode()
/// expects ...".
class ScriptText
{
    Q_DECLARE_TR_FUNCTIONS(ScriptText)
};

#endif
