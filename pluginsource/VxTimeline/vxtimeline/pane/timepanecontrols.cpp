#include "vxtimeline/pane/timepanecontrols.h"

#include "vxtimeline/pane/timefields.h"
#include "vxtimeline/pane/timepanefield.h"
#include "vxtimeline/pane/timepanefieldfocus.h"
#include "vxtimeline/pane/timepanestrip.h"
#include "vxtimeline/pane/vxtimepane.h"

#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QHBoxLayout>
#include <vxcore/vxapp.h>
#include <vxcore/vxbarbutton.h>
#include <vxcore/vxbuttonbar.h>
#include <vxcore/vxstyle.h>
#include <vxcore/vxstyledbutton.h>

namespace {

constexpr int BarButtonWidth = 32; // pixels
constexpr int WidestField = 40;    // pixels

// The width of a menu button that shows the given text whole.
int menuButtonWidth(const VxStyledButton *button, const QString &text)
{
    const VxStyle *style = vxApp->getStyle();
    return button->fontMetrics().horizontalAdvance(text) +
           style->metric(VxStyle::PM_VxButtonInset) + 3 * style->metric(VxStyle::PM_VxButtonMargin);
}

} // namespace

TimePaneControls::TimePaneControls(QWidget *pane, const TimePaneStrip &strip,
                                   VxDopeSheetView *sheet)
    : m_widget(strip.makeGroup(QStringLiteral("TimelineMainControlsWgt"), pane))
    , m_fields(new TimeFields(m_widget, strip))
    , m_types(m_widget, strip)
    , m_transport(m_widget, strip)
    , m_keys(m_widget, strip)
    , m_interp(m_widget, strip, sheet)
{
    QHBoxLayout *layout = TimePaneStrip::layoutOf(m_widget);
    layout->addWidget(m_fields->group(), 2);
    layout->addStretch(1);
    layout->addWidget(m_types.group(), 2);
    layout->addStretch(1);
    layout->addWidget(m_transport.bar(), 0, Qt::AlignBottom);
    layout->addStretch(1);
    layout->addWidget(m_keys.group(), 2);
    layout->addStretch(1);
    layout->addWidget(m_interp.group(), 2);
    orderTabs();

    auto *focus = new TimePaneFieldFocus(pane);
    for (TimePaneField *field : m_fields->fields())
        focus->add(field);
    for (QDoubleSpinBox *box : m_interp.tcb().boxes())
        focus->add(box);
}

// From left to right; the default would be the order of creation.
void TimePaneControls::orderTabs() const
{
    QVector<QWidget *> controls;
    for (TimePaneField *field : m_fields->fields())
        controls += field;
    controls += m_types.button();
    for (VxBarButton *button : m_transport.buttons())
        controls += button;
    controls +=
        {m_keys.graphButton(), m_keys.deleteButton(), m_keys.createButton(), m_keys.scopeButton(),
         m_keys.copyButton(),  m_keys.pasteButton(),  m_interp.typeButton()};
    for (QDoubleSpinBox *box : m_interp.tcb().boxes())
        controls += box;
    for (int i = 1; i < controls.size(); ++i)
        QWidget::setTabOrder(controls.at(i - 1), controls.at(i));
}

void TimePaneControls::showMode(int mode)
{
    const bool basic = mode == VxTimePane::BasicView;
    const bool advanced = mode == VxTimePane::AdvancedView;
    m_fields->group()->setVisible(!basic);
    m_keys.group()->setVisible(!basic);
    m_transport.setStepsVisible(!basic);
    if (!basic)
        m_keys.setAdvancedBarsVisible(advanced);
    // The extras reappear together; the width check decides whether they stay.
    if (advanced) {
        setExtrasVisible(true);
        return;
    }
    m_types.group()->hide();
    m_interp.group()->hide();
    m_interp.typeButton()->hide();
}

void TimePaneControls::setExtrasVisible(bool visible)
{
    for (QWidget *extra : std::initializer_list<QWidget *>{m_fields->rangeGroup(), m_types.group(),
                                                           m_keys.scopeButton(), m_interp.group(),
                                                           m_interp.typeButton()})
        extra->setVisible(visible);
    // Immediately, because the pane's minimum width may be needed before the next event.
    for (QWidget *group : {m_fields->group(), m_keys.group(), m_widget})
        group->updateGeometry();
}

void TimePaneControls::setUsable(bool hasSelectedKeys, bool hasCopiedKeys)
{
    m_keys.setUsable(hasSelectedKeys, hasCopiedKeys);
    m_interp.typeButton()->setEnabled(hasSelectedKeys);
}

void TimePaneControls::style(const QPalette &palette)
{
    m_transport.updateIcons();
    m_keys.updateIcons();
    m_interp.updateIcon(palette);
    const VxStyle *style = vxApp->getStyle();
    const int height = style->metric(VxStyle::PM_VxControlHeight);
    const int iconSize = style->metric(VxStyle::PM_VxBarIconSize);
    m_types.button()->setFixedSize(menuButtonWidth(m_types.button(), QStringLiteral("TRSOAH")),
                                   height);
    VxStyledButton *scope = m_keys.scopeButton();
    scope->setFixedSize(menuButtonWidth(scope, VxTimePane::tr("Node Recursive")), height);
    for (VxBarButton *button : m_transport.buttons() + m_keys.barButtons()) {
        button->setMaximumSize(BarButtonWidth, height);
        button->setIconSize(QSize(iconSize, iconSize));
    }
    m_interp.tcb().setSizes(WidestField, height);
    m_fields->setLimits(WidestField, height);
}
