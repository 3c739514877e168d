#ifndef MENUTESTBASE_H
#define MENUTESTBASE_H

#include "testing/vxmenuactions.h"
#include "testing/vxwarningguard.h"

#include <memory>
#include <vxcore/vxactionmgr.h>
#include <vxcore/vxapp.h>
#include <vxcore/vxmainwindow.h>

inline const QString alphaClass = QStringLiteral("AlphaAction");
inline const QString betaClass = QStringLiteral("BetaAction");
inline const QString gammaClass = QStringLiteral("GammaAction");

/// An application whose main window has three actions, made anew for each test function.
class MenuTest
{
protected:
    void setUp()
    {
        m_guard.reset(new VxWarningGuard);
        m_app.reset(new VxApp);
        m_window.reset(new VxMainWindow);
        m_alpha = new AlphaAction;
        m_window->getActionMgr()->addAction(m_alpha);
        m_window->getActionMgr()->addAction(new BetaAction);
        m_window->getActionMgr()->addAction(new GammaAction);
    }

    void tearDown()
    {
        m_window.reset();
        m_app.reset();
        m_guard.reset();
    }

    std::unique_ptr<VxWarningGuard> m_guard;
    std::unique_ptr<VxApp> m_app;
    std::unique_ptr<VxMainWindow> m_window;
    AlphaAction *m_alpha = nullptr;
};

#endif
