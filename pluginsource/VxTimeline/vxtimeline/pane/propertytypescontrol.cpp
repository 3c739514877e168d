#include "vxtimeline/pane/propertytypescontrol.h"

#include "vxtimeline/pane/timepanestrip.h"
#include "vxtimeline/pane/vxtimepane.h"
#include "vxtimeline/widgets/vxfiltermenu.h"

#include <QtWidgets/QHBoxLayout>
#include <vxcore/vxactionmenu.h>
#include <vxcore/vxstyledbutton.h>

PropertyTypesControl::PropertyTypesControl(QWidget *parent, const TimePaneStrip &strip)
    : m_group(strip.makeGroup(QStringLiteral("TimelinePropertyTypesWgt"), parent))
    , m_button(strip.makeMenuButton(QStringLiteral("TimelinePropertyTypesBtn"), m_group))
    , m_menu(new VxFilterMenu)
{
    QHBoxLayout *layout = TimePaneStrip::layoutOf(m_group);
    layout->addStretch(1);
    strip.addLabelled(layout, QStringLiteral("TimelinePropertyTypesLbl"), VxTimePane::tr("Types :"),
                      m_button);
    layout->addStretch(1);

    // The action menu owns the filter menu and refills it each time it opens.
    auto *menu = new VxActionMenu(QString(), m_button);
    menu->setMenu(m_menu);
    for (const char *action :
         {"VxTimePaneSetPropertyTypeTranslationAction", "VxTimePaneSetPropertyTypeRotationAction",
          "VxTimePaneSetPropertyTypeScaleAction", "VxTimePaneSetPropertyTypeOtherAction",
          "VxTimePaneSetPropertyTypeAliasAction", "VxTimePaneSetPropertyTypeHiddenAction"})
        menu->insertAction(QLatin1String(action));
    m_button->setMenu(menu->getMenu());
}

void PropertyTypesControl::showTypes(int types)
{
    const struct
    {
        int type;
        QString letter;
    } letters[] = {
        {VxTimePane::PropTranslate, VxTimePane::tr("T")},
        {VxTimePane::PropRotate, VxTimePane::tr("R")},
        {VxTimePane::PropScale, VxTimePane::tr("S")},
        {VxTimePane::PropOther, VxTimePane::tr("O")},
        {VxTimePane::PropAlias, VxTimePane::tr("A")},
        {VxTimePane::PropHidden, VxTimePane::tr("H")},
    };
    QString text;
    for (const auto &entry : letters) {
        if (types & entry.type)
            text += entry.letter;
    }
    m_button->setText(text);
}
