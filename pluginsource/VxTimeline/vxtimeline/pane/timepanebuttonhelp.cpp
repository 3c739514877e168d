#include "vxtimeline/pane/timepanebuttonhelp.h"

#include <QtCore/QEvent>
#include <QtGui/QKeySequence>
#include <QtWidgets/QWidget>
#include <vxcore/vxactionmgr.h>
#include <vxcore/vxapp.h>
#include <vxcore/vxmainwindow.h>

namespace {

const struct
{
    const char *button;
    const char *action;
} commands[] = {
    {"TimelineLoopBtn", "VxLoopToggleAction"},
    {"TimelineSkipToStartBtn", "VxSkipToPlayrangeStartAction"},
    {"TimelinePrevKeyBtn", "VxTimePanePrevKeyAction"},
    {"TimelinePrevFrameBtn", "VxPrevFrameAction"},
    {"TimelinePlayPauseBtn", "VxPlayToggleAction"},
    {"TimelineNextFrameBtn", "VxNextFrameAction"},
    {"TimelineNextKeyBtn", "VxTimePaneNextKeyAction"},
    {"TimelineSkipToEndBtn", "VxSkipToPlayrangeEndAction"},
    {"TimelineKeyGraphBtn", "VxTimePaneKeyGraphToggleAction"},
    {"TimelineDeleteKeysBtn", "VxTimePaneDeleteSelectedKeysAction"},
    {"TimelineCreateKeysBtn", "VxTimePaneCreateKeysAction"},
    {"TimelineCopySelectedKeysBtn", "VxTimePaneCopySelectedKeysAction"},
    {"TimelinePasteCopiedKeysBtn", "VxTimePanePasteKeysAction"},
};

QKeySequence shortcutOf(const QString &actionClass)
{
    const VxMainWindow *window = vxApp->getInterface();
    return window ? window->getActionMgr()->getShortcut(actionClass) : QKeySequence();
}

} // namespace

void TimePaneButtonHelp::attach(QWidget *pane)
{
    for (const auto &command : commands) {
        if (auto *button = pane->findChild<QWidget *>(QLatin1String(command.button)))
            new TimePaneButtonHelp(button, QLatin1String(command.action));
    }
}

TimePaneButtonHelp::TimePaneButtonHelp(QWidget *button, const QString &actionClass)
    : QObject(button)
    , m_text(button->toolTip())
    , m_actionClass(actionClass)
{
    button->installEventFilter(this);
}

bool TimePaneButtonHelp::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::ToolTip) {
        const QKeySequence shortcut = shortcutOf(m_actionClass);
        const QString keys = shortcut.toString(QKeySequence::NativeText);
        static_cast<QWidget *>(watched)->setToolTip(
            keys.isEmpty() ? m_text : QStringLiteral("%1 (%2)").arg(m_text, keys));
    }
    return QObject::eventFilter(watched, event);
}
