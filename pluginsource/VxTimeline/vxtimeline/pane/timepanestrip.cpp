#include "vxtimeline/pane/timepanestrip.h"

#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <vxcore/vxapp.h>
#include <vxcore/vxbarbutton.h>
#include <vxcore/vxbuttonbar.h>
#include <vxcore/vxstyle.h>
#include <vxcore/vxstyledbutton.h>

TimePaneStrip::TimePaneStrip()
    : m_margin(vxApp->getStyle()->metric(VxStyle::PM_VxPaneMargin))
    , m_controlHeight(vxApp->getStyle()->metric(VxStyle::PM_VxControlHeight))
{
}

QWidget *TimePaneStrip::makeGroup(const QString &name, QWidget *parent) const
{
    auto *group = new QWidget(parent);
    group->setObjectName(name);
    auto *layout = new QHBoxLayout(group);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(m_margin);
    return group;
}

QHBoxLayout *TimePaneStrip::layoutOf(const QWidget *group)
{
    return qobject_cast<QHBoxLayout *>(group->layout());
}

QLabel *TimePaneStrip::makeLabel(const QString &name, const QString &text, QWidget *parent) const
{
    auto *label = new QLabel(text, parent);
    label->setObjectName(name);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    return label;
}

void TimePaneStrip::addLabelled(QHBoxLayout *layout, const QString &name, const QString &text,
                                QWidget *control) const
{
    QLabel *label = makeLabel(name, text, control->parentWidget());
    label->setBuddy(control);
    layout->addWidget(label);
    layout->addWidget(control);
}

VxButtonBar *TimePaneStrip::makeBar(const QString &name, QWidget *parent) const
{
    auto *bar = new VxButtonBar(parent);
    bar->setObjectName(name);
    return bar;
}

VxBarButton *TimePaneStrip::addBarButton(VxButtonBar *bar, int index, const QString &name,
                                         const QString &toolTip) const
{
    auto *button = new VxBarButton(bar);
    button->setObjectName(name);
    button->setToolTip(toolTip);
    button->setAccessibleName(toolTip);
    bar->addWidget(button, index);
    return button;
}

VxStyledButton *TimePaneStrip::makeMenuButton(const QString &name, QWidget *parent) const
{
    auto *button = new VxStyledButton(parent);
    button->setObjectName(name);
    button->setElideMode(Qt::ElideRight);
    button->setDisplayDownArrow(true);
    return button;
}
