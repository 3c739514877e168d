#include "widgets/vxstudioaction.h"

VxStudioAction::VxStudioAction(const char *menu, const QString &text, const QString &description,
                               const char *accel, const char *group, const char *folder,
                               bool checkable)
    : VxAction(text, description, checkable)
    , m_menu(menu)
    , m_accel(accel)
    , m_group(group)
    , m_folder(folder)
{
}
