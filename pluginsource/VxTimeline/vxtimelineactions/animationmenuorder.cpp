#include "vxtimelineactions/animationmenuorder.h"

#include <QtCore/QByteArray>
#include <QtCore/QCoreApplication>

namespace {

// Sections with a sub-menu, by number; consecutive ones with one title share theirs.
struct Folder
{
    int section;
    const char *title;
};

const Folder folders[] = {
    {1, QT_TRANSLATE_NOOP("VxMenuPath", "Select Keys")},
    {6, QT_TRANSLATE_NOOP("VxMenuPath", "Rows")},
    {7, QT_TRANSLATE_NOOP("VxMenuPath", "Rows")},
    {8, QT_TRANSLATE_NOOP("VxMenuPath", "Rows")},
};

// The parts of the paths of the actions.
[[maybe_unused]] const char *const partsOfPaths[] = {
    QT_TRANSLATE_NOOP("VxMenuPath", "Set Key Interpolation"),
    QT_TRANSLATE_NOOP("VxMenuPath", "Preferences"),
    QT_TRANSLATE_NOOP("VxMenuPath", "Controls Position"),
    QT_TRANSLATE_NOOP("VxMenuPath", "Key Creation Scope"),
    QT_TRANSLATE_NOOP("VxMenuPath", "Property Types"),
    QT_TRANSLATE_NOOP("VxMenuPath", "View Mode"),
};

// From top to bottom; null ends a section.
const char *const entries[] = {
    "VxTimePaneSelectItemPlayRangeKeysAction",
    "VxTimePaneSelectItemAnimRangeKeysAction",
    "VxTimePaneDeselectItemPlayRangeKeysAction",
    "VxTimePaneDeselectItemAnimRangeKeysAction",
    nullptr,
    "VxPlayToggleAction",
    "VxLoopToggleAction",
    "VxTimePanePlayAllFramesAction",
    nullptr,
    "VxPrevFrameAction",
    "VxNextFrameAction",
    "VxSkipToPlayrangeStartAction",
    "VxSkipToPlayrangeEndAction",
    nullptr,
    "VxTimePanePrevKeyAction",
    "VxTimePaneNextKeyAction",
    "VxSkipToPrevKeyAction",
    "VxSkipToNextKeyAction",
    nullptr,
    "VxTimePaneCreateKeysAction",
    "VxTimePaneDeleteSelectedKeysAction",
    "VxTimePaneCopySelectedKeysAction",
    "VxTimePanePasteKeysAction",
    "VxAddKeysAction",
    "VxDeleteKeysAction",
    nullptr,
    "VxTimePaneExpandAllItemsAction",
    "VxTimePaneExpandItemAction",
    "VxTimePaneExpandFromItemAction",
    "VxTimePaneExpandKeyedFromItemAction",
    nullptr,
    "VxTimePaneCollapseAllItemsAction",
    "VxTimePaneCollapseItemAction",
    "VxTimePaneCollapseFromItemAction",
    "VxTimePaneCollapseNonKeyedFromItemAction",
    nullptr,
    "VxTimePaneMoveRootNodeToTopAction",
    "VxTimePaneMoveRootNodeUpAction",
    "VxTimePaneMoveRootNodeDownAction",
    "VxTimePaneMoveRootNodeToBottomAction",
    nullptr,
    "VxTimePaneKeyGraphToggleAction",
    "VxTimePaneMonitorParametersPaneAction",
    "VxTimePaneFrameGraphKeysAction",
    "VxTimePaneRefreshDopesheetAction",
};

} // namespace

int animationMenuOrder(const char *className)
{
    int section = 1;
    int place = 0;
    for (const char *entry : entries) {
        if (!entry) {
            ++section;
            place = 0;
            continue;
        }
        if (qstrcmp(entry, className) == 0)
            return 100 * section + place;
        ++place;
    }
    return 0;
}

QString animationMenuFolder(const char *className)
{
    const int section = animationMenuOrder(className) / 100;
    for (const Folder &folder : folders) {
        if (folder.section == section)
            return QString::fromLatin1(folder.title);
    }
    return QString();
}
