#include "vxtimeline/pane/timepanefieldhelp.h"

#include <QtCore/QCoreApplication>
#include <QtWidgets/QWidget>

namespace {

const struct
{
    const char *widget;
    const char *help;
} helps[] = {
    {"TimelineTotalFramesLEdit",
     QT_TRANSLATE_NOOP("TimePaneFieldHelp", "Length of the animation in frames")},
    {"TimelinePlayStartLEdit",
     QT_TRANSLATE_NOOP("TimePaneFieldHelp", "First frame that is played")},
    {"TimelinePlayEndLEdit", QT_TRANSLATE_NOOP("TimePaneFieldHelp", "Last frame that is played")},
    {"TimelineCurrentFrameLEdit",
     QT_TRANSLATE_NOOP("TimePaneFieldHelp", "Frame that is shown, and on which keys are made")},
    {"TimelineFPSLEdit", QT_TRANSLATE_NOOP("TimePaneFieldHelp", "Frames per second")},
    {"TimelinePropertyTypesBtn",
     QT_TRANSLATE_NOOP("TimePaneFieldHelp",
                       "Types of properties that have rows: Translation, Rotation, Scale, Other, "
                       "Alias, Hidden")},
    {"TimelineKeyScopeBtn",
     QT_TRANSLATE_NOOP("TimePaneFieldHelp", "What keys are created for at the current frame")},
    {"TimelineInterpTensionSBox",
     QT_TRANSLATE_NOOP("TimePaneFieldHelp", "Tension of the selected TCB keys")},
    {"TimelineInterpContinuitySBox",
     QT_TRANSLATE_NOOP("TimePaneFieldHelp", "Continuity of the selected TCB keys")},
    {"TimelineInterpBiasSBox",
     QT_TRANSLATE_NOOP("TimePaneFieldHelp", "Bias of the selected TCB keys")},
    {"TimelineTimeRangeSldr",
     QT_TRANSLATE_NOOP("TimePaneFieldHelp",
                       "Range that is played. Drag it or its ends; a double click plays all, or "
                       "the range that was there before.")},
};

} // namespace

void addTimePaneFieldHelp(const QWidget *pane)
{
    for (const auto &entry : helps) {
        if (auto *widget = pane->findChild<QWidget *>(QLatin1String(entry.widget)))
            widget->setToolTip(QCoreApplication::translate("TimePaneFieldHelp", entry.help));
    }
}
