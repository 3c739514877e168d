#ifndef KEYTOOLTEXT_H
#define KEYTOOLTEXT_H

#include <QCoreApplication>

/// Translation context of what the tools show to users.
class KeyToolText
{
    Q_DECLARE_TR_FUNCTIONS(KeyToolText)
};

#endif
