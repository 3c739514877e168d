#include <vxcore/vxaction.h>

#include "action/vxactiontext.h"

class VxAction::Private
{
public:
    QString description;
    QString givenName; // the object name set by applyName()
};

VxAction::VxAction(const QString &text, const QString &description, bool checkable)
    : VxSignalGuard(text, nullptr)
    , d(new Private{description, QString()})
{
    setCheckable(checkable);
    connect(this, &QAction::triggered, this, &VxAction::handleTriggered);
    applyHelp();
}

VxAction::~VxAction() = default;

QString VxAction::getDescription() const
{
    return d->description;
}

void VxAction::setDescription(const QString &description)
{
    d->description = description;
    updateInlineHelp();
}

void VxAction::init()
{
    applyName();
}

void VxAction::updateInlineHelp()
{
    applyName();
    applyHelp();
}

QString VxAction::getDefaultAccel() const
{
    return QString();
}

QString VxAction::getDefaultToolBar() const
{
    return QString();
}

QString VxAction::getDefaultMenuPath() const
{
    return QString();
}

QString VxAction::getActionGroup() const
{
    return QString();
}

int VxAction::getMenuOrder() const
{
    return 0;
}

QString VxAction::getMenuFolder() const
{
    return QString();
}

bool VxAction::isClipboardAction() const
{
    return false;
}

void VxAction::executeAction() {}

void VxAction::toggleAction(bool)
{
    executeAction();
}

bool VxAction::isToggle() const
{
    return isCheckable();
}

void VxAction::handleTriggered(bool onOff)
{
    if (isToggle())
        toggleAction(onOff);
    else
        executeAction();
}

/** A name set from outside stays; one set while a base was being constructed is replaced. */
void VxAction::applyName()
{
    if (objectName() != d->givenName)
        return;
    d->givenName = QString::fromLatin1(metaObject()->className());
    setObjectName(d->givenName);
}

void VxAction::applyHelp()
{
    const QString title = VxActionText::withShortcut(text(), shortcut());
    setToolTip(title);
    setStatusTip(d->description);
    setWhatsThis(VxActionText::help(title, d->description));
}
