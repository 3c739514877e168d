#ifndef STUDIOTEXT_H
#define STUDIOTEXT_H

#include <QCoreApplication>

/// Translation context of the program's texts outside of its widgets.
class StudioText
{
    Q_DECLARE_TR_FUNCTIONS(StudioText)
public:
    /// The text for one thing, or that for another number of them, which has %1 for the number.
    static QString counted(int count, const char *one, const char *many)
    {
        return count == 1 ? tr(one) : tr(many).arg(count);
    }
};

#endif
