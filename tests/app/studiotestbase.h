#ifndef STUDIOTESTBASE_H
#define STUDIOTESTBASE_H

#include "document/documentcontroller.h"
#include "shell/commandline.h"
#include "shell/panedock.h"
#include "shell/panedocks.h"
#include "shell/studio.h"
#include "shell/studiowindow.h"
#include "testing/vxwarningguard.h"
#include "viewport/viewportwidget.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QtTest>
#include <memory>
#include <vxcore/vxaction.h>
#include <vxcore/vxactionmgr.h>
#include <vxcore/vxapp.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxpane.h>
#include <vxcore/vxpanemgr.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxundostack.h>

constexpr VxTime Frame = 160; // ticks, of a new scene

/// The whole program, with the real module and settings of its own, made anew for each test
/// function. start() again is a second run that finds what the first has saved.
class StudioTest
{
protected:
    void setUp()
    {
        guard = std::make_unique<VxWarningGuard>();
        folder = std::make_unique<QTemporaryDir>();
    }

    void tearDown()
    {
        studio.reset();
        folder.reset();
        guard.reset();
    }

    /// For units that test what the program does, not how it starts: one program for all functions.
    /// Each begins with an empty document and an empty folder, and with the panes and the size of
    /// the first. endShared() belongs into cleanupTestCase().
    void setUpShared()
    {
        setUp();
        if (!studio) {
            m_settingsFolder = std::make_unique<QTemporaryDir>();
            start();
            m_firstLayout = window()->saveState();
            m_firstSize = window()->size();
            return;
        }
        window()->document()->clear();
        window()->statusBar()->clearMessage();
        window()->resize(m_firstSize);
        if (window()->saveState() != m_firstLayout)
            window()->applyDefaultLayout();
        activate();
        QCoreApplication::processEvents();
    }

    void tearDownShared()
    {
        if (vxApp)
            vxApp->getUndoStack()->setClean();
        folder.reset();
        guard.reset();
    }

    void endShared()
    {
        setUp();
        tearDown();
        m_settingsFolder.reset();
    }

    void restartShared()
    {
        endShared();
        setUpShared();
    }

    /// A file in a folder that is there until the program has ended.
    QString settingsFile(const char *name) const
    {
        return (m_settingsFolder ? m_settingsFolder : folder)->filePath(QLatin1String(name));
    }

    void start(const QStringList &arguments = {})
    {
        studio.reset();
        const CommandLine line =
            CommandLine::parse(QStringList{"vxstudio", "--settings", settingsFile("settings.json"),
                                           "--plugin-path", QStringLiteral(VX_PLUGIN_DIR)} +
                               arguments);
        if (line.action != CommandLine::Action::Run)
            qFatal("%s", qPrintable(line.errorText));
        studio = std::make_unique<Studio>(line);
        window()->show();
        activate();
    }

    /// Also after loading and saving: on a busy machine they are slow enough to show their progress
    /// dialog, which leaves no window active, since no window manager is running.
    void activate() const
    {
        window()->activateWindow();
        if (!QTest::qWaitForWindowActive(window()))
            qFatal("the window does not become active");
    }

    /// The walking figure, clean and at frame 0.
    void openSample() const
    {
        if (!window()->document()->open(QStringLiteral(VX_SOURCE_DIR "/samples/walk.vxscene")))
            qFatal("the sample cannot be opened");
        activate();
        vxScene->setTime(0);
    }

    StudioWindow *window() const { return studio->window(); }
    VxActionMgr *actions() const { return window()->getActionMgr(); }

    VxAction *action(const char *className) const
    {
        VxAction *found = actions()->findAction(QLatin1String(className));
        if (!found)
            qFatal("no action %s", className);
        return found;
    }

    VxPane *timePane() const { return window()->getPaneMgr()->findPane("VxTimePane"); }

    template <class Widget> Widget *inTimePane(const char *name) const
    {
        auto *found = timePane()->findChild<Widget *>(QLatin1String(name));
        if (!found)
            qFatal("no widget %s", name);
        return found;
    }

    /// The entry of a menu of the menu bar; null when there is none.
    QAction *entry(const QString &menu, const QString &text) const
    {
        for (const QAction *bar : window()->menuBar()->actions()) {
            if (bar->text().remove('&') != menu)
                continue;
            for (QAction *found : bar->menu()->actions()) {
                if (found->text().remove('&') == text)
                    return found;
            }
        }
        return nullptr;
    }

    void type(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const
    {
        QTest::keyClick(window()->windowHandle(), static_cast<Qt::Key>(key), modifiers);
    }

    static int frame() { return vxScene->getTime() / vxScene->getTimeStep(); }

    std::unique_ptr<VxWarningGuard> guard;
    std::unique_ptr<QTemporaryDir> folder;
    std::unique_ptr<Studio> studio;

private:
    std::unique_ptr<QTemporaryDir> m_settingsFolder; // of a shared program
    QByteArray m_firstLayout;
    QSize m_firstSize;
};

#endif
