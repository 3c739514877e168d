#include "vxtimeline/pane/interpcontrols.h"

#include "vxtimeline/keys/timelinemenus.h"
#include "vxtimeline/pane/timepanestrip.h"
#include "vxtimeline/pane/vxtimepane.h"

#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <QtWidgets/QHBoxLayout>
#include <vxcore/vxactionmenu.h>
#include <vxcore/vxapp.h>
#include <vxcore/vxstyle.h>
#include <vxcore/vxstyledbutton.h>

namespace {

constexpr int ButtonWidth = 32; // pixels
constexpr int IconSide = 16;    // pixels

// The icon of the interpolation button: a curve from key to key. side in device pixels.
QPixmap interpolationPixmap(const QColor &color, int side)
{
    QPixmap pixmap(side, side);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(side / double(IconSide), side / double(IconSide));
    QPainterPath curve(QPointF(2.5, 12.5));
    curve.cubicTo(8.5, 12.5, 7.5, 3.5, 13.5, 3.5);
    painter.setPen(QPen(color, 1.5));
    painter.drawPath(curve);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawRect(QRectF(1, 11, 3, 3));
    painter.drawRect(QRectF(12, 2, 3, 3));
    return pixmap;
}

void addInterpolationPixmaps(QIcon &icon, const QColor &color, QIcon::Mode mode)
{
    for (const int ratio : {1, 2}) {
        QPixmap pixmap = interpolationPixmap(color, IconSide * ratio);
        pixmap.setDevicePixelRatio(ratio);
        icon.addPixmap(pixmap, mode);
    }
}

} // namespace

InterpControls::InterpControls(QWidget *parent, const TimePaneStrip &strip, VxDopeSheetView *sheet)
    : m_group(strip.makeGroup(QStringLiteral("TimelineInterpControlsWgt"), parent))
    , m_type(makeTypeButton(m_group, strip))
    , m_tcb(m_group, strip, sheet)
{
    TimePaneStrip::layoutOf(m_group)->addStretch(1);
}

VxStyledButton *InterpControls::makeTypeButton(QWidget *group, const TimePaneStrip &strip)
{
    auto *button = new VxStyledButton(group);
    button->setObjectName(QStringLiteral("TimelineInterpTypeBtn"));
    button->setToolTip(VxTimePane::tr("Set Key Interpolation"));
    button->setAccessibleName(VxTimePane::tr("Set Key Interpolation"));
    QHBoxLayout *layout = TimePaneStrip::layoutOf(group);
    layout->addStretch(1);
    layout->addWidget(button);
    layout->addSpacing(2 * strip.margin());
    auto *menu = new VxActionMenu(QString(), button);
    TimelineMenus::add(menu, TimelineMenus::interpolations);
    button->setMenu(menu->getMenu());
    return button;
}

void InterpControls::updateIcon(const QPalette &palette)
{
    QIcon icon;
    addInterpolationPixmaps(icon, palette.color(QPalette::ButtonText), QIcon::Normal);
    addInterpolationPixmaps(icon, palette.color(QPalette::Mid), QIcon::Disabled);
    m_type->setIcon(icon);
    m_type->setFixedSize(ButtonWidth, vxApp->getStyle()->metric(VxStyle::PM_VxControlHeight));
}
