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
     QT_TRANSLATE_NOOP("TimePaneFieldHelp", "First frame of the play range")},
    {"TimelinePlayEndLEdit",
     QT_TRANSLATE_NOOP("TimePaneFieldHelp", "Last frame of the play range")},
    {"TimelineCurrentFrameLEdit",
     QT_TRANSLATE_NOOP("TimePaneFieldHelp", "Current frame, at which keys are created")},
    {"TimelineFPSLEdit", QT_TRANSLATE_NOOP("TimePaneFieldHelp", "Frames per second")},
    {"TimelinePropertyTypesBtn",
     QT_TRANSLATE_NOOP(
         "TimePaneFieldHelp",
         "Property types shown as rows: Translation, Rotation, Scale, Other, Alias, Hidden")},
    {"TimelineKeyScopeBtn",
     QT_TRANSLATE_NOOP("TimePaneFieldHelp",
                       "Scope in which keys are created at the current frame")},
    {"TimelineInterpTensionSBox",
     QT_TRANSLATE_NOOP("TimePaneFieldHelp", "Tension of the selected TCB keys")},
    {"TimelineInterpContinuitySBox",
     QT_TRANSLATE_NOOP("TimePaneFieldHelp", "Continuity of the selected TCB keys")},
    {"TimelineInterpBiasSBox",
     QT_TRANSLATE_NOOP("TimePaneFieldHelp", "Bias of the selected TCB keys")},
    {"TimelineTimeRangeSldr",
     QT_TRANSLATE_NOOP("TimePaneFieldHelp",
                       "Play range. Drag it or its ends; double click switches between the whole "
                       "animation and the previous range.")},
};

} // namespace

void addTimePaneFieldHelp(const QWidget *pane)
{
    for (const auto &entry : helps) {
        if (auto *widget = pane->findChild<QWidget *>(QLatin1String(entry.widget)))
            widget->setToolTip(QCoreApplication::translate("TimePaneFieldHelp", entry.help));
    }
}
