#ifndef STUDIOTEXT_H
#define STUDIOTEXT_H

#include <QCoreApplication>

/// Translation context of the program's texts outside of its widgets.
class StudioText
{
    Q_DECLARE_TR_FUNCTIONS(StudioText)
};

#endif
