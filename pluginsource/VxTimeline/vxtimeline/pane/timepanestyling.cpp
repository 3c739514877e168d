// Sizes, icons and colours that come from the style.

#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <QtWidgets/QDoubleSpinBox>
#include <vxcore/vxapp.h>
#include <vxcore/vxbarbutton.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxstyle.h>
#include <vxcore/vxstyledbutton.h>

#include "vxtimeline/dopesheet/vxdopesheetheaderview.h"
#include "vxtimeline/keygraph/vxkeygraphview.h"
#include "vxtimeline/pane/timepanefield.h"
#include "vxtimeline/pane/vxtimepane_p.h"
#include "vxtimeline/time/timelinemetrics.h"
#include "vxtimeline/widgets/vxplayheadwgt.h"
#include "vxtimeline/widgets/vxtimerangeslider.h"

namespace {

constexpr int BarButtonWidth = 32; // pixels
constexpr int FieldWidth = 40;     // pixels
constexpr int IconSide = 16;       // pixels

// The mark of the interpolation button: a curve from key to key. side in device pixels.
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

// The width of a menu button that shows the given text whole.
int menuButtonWidth(const VxStyledButton *button, const QString &text)
{
    const VxStyle *style = vxApp->getStyle();
    return button->fontMetrics().horizontalAdvance(text) +
           style->metric(VxStyle::PM_VxButtonInset) + 3 * style->metric(VxStyle::PM_VxButtonMargin);
}

} // namespace

void VxTimePane::doStyling()
{
    d->styleDopeSheet();
    d->styleIcons();
    d->styleSizes();
    d->styleInterpolation(palette());
    updatePlayButton();
    updateLoopButton(vxScene->isLoopingEnabled());
    updateControls();
    d->keyGraphView->doStyling();
}

// The playhead's lower edge stands where the ruler ends, or as far below as the style wants.
void VxTimePane::Private::styleDopeSheet() const
{
    const VxStyle *style = vxApp->getStyle();
    TimelineMetrics &metrics = TimelineMetrics::shared();
    metrics.frameWidth = style->metric(VxStyle::PM_VxTimelineFrameWidth);
    metrics.keyMargin = style->metric(VxStyle::PM_VxTimelineKeyMargin);

    const int rulerHeight = style->metric(VxStyle::PM_VxDopeSheetHeaderHeight);
    header->setFixedHeight(rulerHeight);
    limitHeight();
    const int bottom = rulerHeight - 1 + style->metric(VxStyle::PM_VxPlayheadInset);
    playhead->setVerticalOffset(bottom - playhead->height());
    followNameColumn();
}

void VxTimePane::Private::styleIcons()
{
    const VxStyle *style = vxApp->getStyle();
    loopOnIcon = style->icon(VxStyle::SP_VxLoopOn);
    loopOffIcon = style->icon(VxStyle::SP_VxLoopOff);
    playIcon = style->icon(VxStyle::SP_VxPlay);
    pauseIcon = style->icon(VxStyle::SP_VxPause);
    skipToStartButton->setIcon(style->icon(VxStyle::SP_VxSkipToStart));
    previousKeyButton->setIcon(style->icon(VxStyle::SP_VxPreviousKey));
    previousFrameButton->setIcon(style->icon(VxStyle::SP_VxPreviousFrame));
    nextFrameButton->setIcon(style->icon(VxStyle::SP_VxNextFrame));
    nextKeyButton->setIcon(style->icon(VxStyle::SP_VxNextKey));
    skipToEndButton->setIcon(style->icon(VxStyle::SP_VxSkipToEnd));
    deleteKeysButton->setIcon(style->icon(VxStyle::SP_VxDeleteKeys));
    createKeysButton->setIcon(style->icon(VxStyle::SP_VxCreateKeys));
    copyButton->setIcon(style->icon(VxStyle::SP_VxCopyKeys));
    pasteButton->setIcon(style->icon(VxStyle::SP_VxPasteKeys));
    keyGraphButton->setIcon(style->icon(VxStyle::SP_VxKeyGraph));
}

void VxTimePane::Private::styleSizes() const
{
    const VxStyle *style = vxApp->getStyle();
    const int height = style->metric(VxStyle::PM_VxControlHeight);
    const int iconSize = style->metric(VxStyle::PM_VxBarIconSize);
    timeRangeSlider->setFixedHeight(height);
    propertyTypesButton->setFixedSize(
        menuButtonWidth(propertyTypesButton, QStringLiteral("TRSOAH")), height);
    keyScopeButton->setFixedSize(menuButtonWidth(keyScopeButton, VxTimePane::tr("Node Recursive")),
                                 height);
    for (VxBarButton *button :
         {loopButton, skipToStartButton, previousKeyButton, previousFrameButton, playPauseButton,
          nextFrameButton, nextKeyButton, skipToEndButton, deleteKeysButton, createKeysButton,
          copyButton, pasteButton, keyGraphButton}) {
        button->setMaximumSize(BarButtonWidth, height);
        button->setIconSize(QSize(iconSize, iconSize));
    }
    for (QDoubleSpinBox *field : {tension, continuity, bias})
        field->setFixedSize(qMin(field->maximumWidth(), FieldWidth), height);
    currentFrame->setMaximumSize(FieldWidth, height);
    framesPerSecond->setMaximumSize(FieldWidth, height);
}

void VxTimePane::Private::styleInterpolation(const QPalette &palette) const
{
    QIcon icon;
    addInterpolationPixmaps(icon, palette.color(QPalette::ButtonText), QIcon::Normal);
    addInterpolationPixmaps(icon, palette.color(QPalette::Mid), QIcon::Disabled);
    interpTypeButton->setIcon(icon);
    interpTypeButton->setFixedSize(BarButtonWidth,
                                   vxApp->getStyle()->metric(VxStyle::PM_VxControlHeight));
}
