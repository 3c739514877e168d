#ifndef ACTIONCLASSES_H
#define ACTIONCLASSES_H

#include <QtGui/QKeySequence>
#include <vxcore/vxaction.h>

// Actions for the tests of shortcuts and menus.

class CopyAction : public VxAction
{
    Q_OBJECT
public:
    CopyAction()
        : VxAction(QStringLiteral("Copy"))
    {
    }
    QString getDefaultAccel() const override { return QStringLiteral("Ctrl+C"); }
    QString getDefaultMenuPath() const override { return QStringLiteral("Edit"); }
    QString getActionGroup() const override { return QStringLiteral("Clipboard"); }
    void init() override { ++numInits; }
    int numInits = 0;
};

class PlayAction : public VxAction
{
    Q_OBJECT
public:
    PlayAction()
        : VxAction(QStringLiteral("Play"))
    {
    }
    QString getDefaultMenuPath() const override { return QStringLiteral("Animation"); }
    QString getActionGroup() const override { return QStringLiteral("Pane::/Time/Playback"); }
};

const QString copyClass = QStringLiteral("CopyAction");
const QString playClass = QStringLiteral("PlayAction");

inline QKeySequence keys(const char *text)
{
    return QKeySequence::fromString(QString::fromLatin1(text), QKeySequence::PortableText);
}

#endif
