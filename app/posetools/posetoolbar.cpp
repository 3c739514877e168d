#include "posetools/posetoolbar.h"

#include "posetools/posetools.h"
#include "posetools/posetoolsettings.h"
#include "posetools/toolicons.h"

#include <QActionGroup>
#include <QEvent>
#include <QHBoxLayout>
#include <QMenu>
#include <QToolButton>
#include <vxcore/vxactionmgr.h>

namespace {

constexpr QPoint BarCorner(8, 8);
constexpr int BarMargin = 2;

QString orientationName(PoseToolSettings::Orientation orientation)
{
    switch (orientation) {
    case PoseToolSettings::Orientation::Local:
        return PoseToolBar::tr("Local");
    case PoseToolSettings::Orientation::Parent:
        return PoseToolBar::tr("Parent");
    case PoseToolSettings::Orientation::World:
        break;
    }
    return PoseToolBar::tr("World");
}

QToolButton *makeButton(QWidget *parent, const char *name)
{
    auto *button = new QToolButton(parent);
    button->setObjectName(QLatin1String(name));
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::NoFocus);
    return button;
}

} // namespace

PoseToolBar::PoseToolBar(PoseTools *tools, QWidget *viewport)
    : QFrame(viewport)
    , m_tools(tools)
    , m_orientation(makeButton(this, "GizmoOrientationButton"))
    , m_pivot(makeButton(this, "CommonPivotButton"))
{
    setObjectName(QStringLiteral("PoseToolBar"));
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    setCursor(Qt::ArrowCursor);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(BarMargin, BarMargin, BarMargin, BarMargin);
    layout->setSpacing(0);
    addTools(layout);
    addOrientation(layout);
    addPivot(layout);
    connect(tools, &PoseTools::activeToolChanged, this, &PoseToolBar::showState);
    connect(tools->settings(), &PoseToolSettings::changed, this, &PoseToolBar::showState);
    updateIcons();
    showState();
    move(BarCorner);
}

void PoseToolBar::addTools(QLayout *layout)
{
    static const char *const names[] = {"SelectToolButton", "MoveToolButton", "RotateToolButton",
                                        "ScaleToolButton", "IkToolButton"};
    for (int i = 0; i < PoseTools::ToolCount; ++i) {
        QToolButton *button = makeButton(this, names[i]);
        button->setCheckable(true);
        button->setAccessibleName(PoseTools::title(PoseTools::Tool(i)));
        button->setToolTip(PoseTools::title(PoseTools::Tool(i)));
        connect(button, &QToolButton::clicked, this, [this, i] {
            m_tools->activate(PoseTools::Tool(i));
            showState();
        });
        m_toolButtons.append(button);
        layout->addWidget(button);
    }
}

void PoseToolBar::addOrientation(QLayout *layout)
{
    auto *menu = new QMenu(m_orientation);
    auto *group = new QActionGroup(menu);
    using Orientation = PoseToolSettings::Orientation;
    for (const Orientation each : {Orientation::Local, Orientation::Parent, Orientation::World}) {
        QAction *action = menu->addAction(orientationName(each));
        action->setCheckable(true);
        action->setData(int(each));
        group->addAction(action);
        connect(action, &QAction::triggered, this,
                [this, each] { m_tools->settings()->setOrientation(each); });
    }
    m_orientation->setMenu(menu);
    m_orientation->setPopupMode(QToolButton::InstantPopup);
    m_orientation->setToolTip(tr("Orientation of the gizmo"));
    layout->addWidget(m_orientation);
}

void PoseToolBar::addPivot(QLayout *layout)
{
    m_pivot->setCheckable(true);
    m_pivot->setAccessibleName(tr("Common pivot"));
    m_pivot->setToolTip(tr("Common pivot: rotates all selected nodes about their middle"));
    connect(m_pivot, &QToolButton::clicked, this, [this](bool isCommon) {
        m_tools->settings()->setPivot(isCommon ? PoseToolSettings::Pivot::Common
                                               : PoseToolSettings::Pivot::Own);
    });
    layout->addWidget(m_pivot);
}

void PoseToolBar::showShortcuts(const VxActionMgr &actions)
{
    static const char *const names[] = {"VxSelectToolAction", "VxMoveToolAction",
                                        "VxRotateToolAction", "VxScaleToolAction",
                                        "VxIkToolAction"};
    for (int i = 0; i < m_toolButtons.size(); ++i) {
        const QString title = PoseTools::title(PoseTools::Tool(i));
        const QString shortcut =
            actions.getShortcut(QLatin1String(names[i])).toString(QKeySequence::NativeText);
        m_toolButtons.at(i)->setToolTip(shortcut.isEmpty() ? title
                                                           : tr("%1 (%2)").arg(title, shortcut));
    }
}

void PoseToolBar::showState()
{
    for (int i = 0; i < m_toolButtons.size(); ++i)
        m_toolButtons.at(i)->setChecked(m_tools->activeTool() == i);
    const PoseToolSettings *settings = m_tools->settings();
    m_orientation->setText(orientationName(settings->orientation()));
    for (QAction *action : m_orientation->menu()->actions())
        action->setChecked(action->data().toInt() == int(settings->orientation()));
    m_pivot->setChecked(settings->pivot() == PoseToolSettings::Pivot::Common);
    adjustSize();
}

void PoseToolBar::updateIcons()
{
    const QColor ink = palette().color(QPalette::ButtonText);
    // As large as the text beside them.
    const int side = qMax(ToolIconSide, fontMetrics().height());
    const double ratio = devicePixelRatioF() * side / ToolIconSide;
    // Events of a change are sent when nothing has changed, too.
    if (ink == m_ink && ratio == m_iconRatio)
        return;
    m_ink = ink;
    m_iconRatio = ratio;
    for (int i = 0; i < m_toolButtons.size(); ++i)
        m_toolButtons.at(i)->setIcon(toolIcon(PoseTools::Tool(i), ink, ratio));
    m_pivot->setIcon(pivotIcon(ink, ratio));
    for (QToolButton *button : findChildren<QToolButton *>())
        button->setIconSize(QSize(side, side));
}

void PoseToolBar::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange)
        updateIcons();
    QFrame::changeEvent(event);
}

/// The buttons' sizes change after that of the bar's font.
bool PoseToolBar::event(QEvent *event)
{
    if (event->type() == QEvent::LayoutRequest)
        adjustSize();
    return QFrame::event(event);
}
