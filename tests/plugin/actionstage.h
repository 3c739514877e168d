#ifndef ACTIONSTAGE_H
#define ACTIONSTAGE_H

#include "actions_table.h"
#include "testing/vxscenebuilder.h"
#include "testing/vxwarningguard.h"
#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/pane/vxtimepane.h"
#include "vxtimelineplugin.h"

#include <QtTest>
#include <memory>
#include <vxcore/vxaction.h>
#include <vxcore/vxactionmgr.h>
#include <vxcore/vxapp.h>
#include <vxcore/vxclassfactory.h>
#include <vxcore/vxmainwindow.h>
#include <vxcore/vxpanemgr.h>
#include <vxcore/vxplugin.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxundostack.h>

inline std::unique_ptr<VxAction> createAction(const QString &className)
{
    const auto factories = getPluginDefinition()->getClassFactories();
    for (const VxClassFactory *factory : factories) {
        if (factory->className() == className)
            return std::unique_ptr<VxAction>(qobject_cast<VxAction *>(factory->createInstance()));
    }
    return nullptr;
}

/// A main window with a time pane and every action of the plug-in, as an application has them.
class Stage
{
public:
    VxMainWindow window;
    VxTimePane *pane = nullptr;

    Stage()
    {
        pane = new VxTimePane;
        window.getPaneMgr()->addPane(pane);
        window.setCentralWidget(pane);
        for (const char *className : registeredClasses) {
            if (QLatin1String(className) != QLatin1String("VxTimePane"))
                window.getActionMgr()->addAction(
                    createAction(QString::fromLatin1(className)).release());
        }
        window.getActionMgr()->initActions();
    }

    VxAction *action(const char *className) const
    {
        VxAction *found = window.getActionMgr()->findAction(QString::fromLatin1(className));
        if (!found)
            qFatal("no action %s", className);
        return found;
    }

    void trigger(const char *className) const { action(className)->trigger(); }

    /// The classes of a family whose actions are checked.
    QStringList checked(const char *base) const
    {
        QStringList names;
        for (const ActionRow &row : actionRows) {
            if (QLatin1String(row.base) == QLatin1String(base) &&
                action(row.className)->isChecked())
                names << QLatin1String(row.className);
        }
        return names;
    }
};

#endif
