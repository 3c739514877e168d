// The strip of controls: its groups and their common settings.

#include <QtWidgets/QAbstractSpinBox>
#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QHBoxLayout>
#include <vxcore/vxbarbutton.h>
#include <vxcore/vxbuttonbar.h>
#include <vxcore/vxstyledbutton.h>

#include "vxtimeline/pane/interpcontrols.h"
#include "vxtimeline/pane/keycontrols.h"
#include "vxtimeline/pane/propertytypescontrol.h"
#include "vxtimeline/pane/timefields.h"
#include "vxtimeline/pane/timepanebuilder.h"
#include "vxtimeline/pane/timepanefield.h"
#include "vxtimeline/pane/timepanefieldfocus.h"
#include "vxtimeline/pane/transportcontrols.h"

void TimePaneBuilder::buildMainControls()
{
    QWidget *strip = d->mainControls =
        m_strip.makeGroup(QStringLiteral("TimelineMainControlsWgt"), m_pane);
    const int margin = m_strip.margin();
    QHBoxLayout *layout = TimePaneStrip::layoutOf(strip);
    layout->setContentsMargins(margin, margin, margin, 0);
    d->fields = new TimeFields(strip, m_strip);
    layout->addWidget(d->fields->group(), 2);
    layout->addStretch(1);
    d->types = std::make_unique<PropertyTypesControl>(strip, m_strip);
    layout->addWidget(d->types->group(), 2);
    layout->addStretch(1);
    d->transport = std::make_unique<TransportControls>(strip, m_strip);
    layout->addWidget(d->transport->bar(), 0, Qt::AlignBottom);
    layout->addStretch(1);
    d->keyControls = std::make_unique<KeyControls>(strip, m_strip);
    layout->addWidget(d->keyControls->group(), 2);
    layout->addStretch(1);
    d->interp = std::make_unique<InterpControls>(strip, m_strip, d->dopeSheetView);
    layout->addWidget(d->interp->group(), 2);
    orderTabs();

    auto *focus = new TimePaneFieldFocus(m_pane);
    for (TimePaneField *field : d->fields->fields())
        focus->add(field);
    for (QDoubleSpinBox *box : d->interp->tcb().boxes())
        focus->add(box);
}

// From left to right; the default would be the order of creation.
void TimePaneBuilder::orderTabs() const
{
    const KeyControls &keys = *d->keyControls;
    QVector<QWidget *> controls;
    for (TimePaneField *field : d->fields->fields())
        controls += field;
    controls += d->types->button();
    for (VxBarButton *button : d->transport->buttons())
        controls += button;
    controls +=
        {keys.graphButton(), keys.deleteButton(), keys.createButton(),    keys.scopeButton(),
         keys.copyButton(),  keys.pasteButton(),  d->interp->typeButton()};
    for (QDoubleSpinBox *box : d->interp->tcb().boxes())
        controls += box;
    for (int i = 1; i < controls.size(); ++i)
        QWidget::setTabOrder(controls.at(i - 1), controls.at(i));
}

void TimePaneBuilder::buildMenus()
{
    d->types->buildMenu();
    d->keyControls->buildScopeMenu();
    d->interp->buildMenu();
}
