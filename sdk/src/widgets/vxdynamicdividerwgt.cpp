#include <vxcore/vxdynamicdividerwgt.h>

#include "widgets/vxdividerbar.h"
#include "widgets/vxdividersplit.h"

#include <QChildEvent>
#include <QLayoutItem>
#include <QStyle>
#include <cmath>

namespace {

bool isLaidOut(const QWidget *widget)
{
    return widget && !widget->isHidden();
}

} // namespace

class VxDynamicDividerWgt::Private
{
public:
    Private(VxDynamicDividerWgt *owner, Qt::Orientation direction)
        : divider(owner)
        , orientation(direction)
    {
    }

    VxDynamicDividerWgt *const divider;
    const Qt::Orientation orientation;
    QWidget *first = nullptr;
    QWidget *second = nullptr;
    VxDividerBar *bar = nullptr;
    int margin = 0;
    int spacing = 0;
    bool barHidden = false;
    double ratio = 0.5;
    int firstAtPress = 0;

    int along(QSize size) const
    {
        return orientation == Qt::Vertical ? size.height() : size.width();
    }
    int across(QSize size) const
    {
        return orientation == Qt::Vertical ? size.width() : size.height();
    }
    QSize sized(int lengthAlong, int lengthAcross) const
    {
        return orientation == Qt::Vertical ? QSize(lengthAcross, lengthAlong)
                                           : QSize(lengthAlong, lengthAcross);
    }

    VxLengthLimits limits(QWidget *widget) const
    {
        if (!isLaidOut(widget))
            return {0, QWIDGETSIZE_MAX};
        const QWidgetItem item(widget);
        return {along(item.minimumSize()), along(item.maximumSize())};
    }

    bool split() const { return isLaidOut(first) && isLaidOut(second); }
    bool barShown() const { return split() && !barHidden; }

    // The distance between the two widgets along the split.
    int between() const
    {
        if (!split())
            return 0;
        return barShown() ? bar->thickness() + 2 * spacing : spacing;
    }

    QRect room() const { return divider->rect().adjusted(margin, margin, -margin, -margin); }

    // The length both widgets share.
    int sharedLength() const { return std::max(0, along(room().size()) - between()); }

    QRect piece(int start, int length) const
    {
        const QRect all = room();
        const QRect part = orientation == Qt::Vertical
                               ? QRect(all.x(), all.y() + start, all.width(), length)
                               : QRect(all.x() + start, all.y(), length, all.height());
        return orientation == Qt::Vertical
                   ? part
                   : QStyle::visualRect(divider->layoutDirection(), all, part);
    }

    void layOut()
    {
        bar->setVisible(barShown());
        if (!split()) {
            for (QWidget *widget : {first, second}) {
                if (isLaidOut(widget))
                    widget->setGeometry(room());
            }
            return;
        }
        const VxDividerSplit parts =
            vxSplitLength(sharedLength(), ratio, limits(first), limits(second));
        first->setGeometry(piece(0, parts.first));
        if (barShown())
            bar->setGeometry(piece(parts.first + spacing, bar->thickness()));
        second->setGeometry(piece(parts.first + between(), parts.second));
    }

    void refit()
    {
        divider->updateGeometry();
        layOut();
    }

    void changeRatio(double value)
    {
        if (value == ratio)
            return;
        ratio = value;
        layOut();
        Q_EMIT divider->ratioChanged(ratio);
    }

    void drag(int distance)
    {
        const bool mirrored =
            orientation == Qt::Horizontal && divider->layoutDirection() == Qt::RightToLeft;
        const int length = sharedLength();
        const int desired = firstAtPress + (mirrored ? -distance : distance);
        const VxDividerSplit parts =
            vxSplitLength(length, vxSplitRatio(desired, length), limits(first), limits(second));
        // A drag without a change must not round a ratio between two pixels.
        if (parts.first != along(first->size()))
            changeRatio(vxSplitRatio(parts.first, length));
    }

    QSize sizeOf(QSize (QLayoutItem::*size)() const) const
    {
        int lengthAlong = between();
        int lengthAcross = 0;
        for (QWidget *widget : {first, second}) {
            if (!isLaidOut(widget))
                continue;
            const QWidgetItem item(widget);
            const QSize hint = (item.*size)();
            lengthAlong += along(hint);
            lengthAcross = std::max(lengthAcross, across(hint));
        }
        return sized(lengthAlong + 2 * margin, lengthAcross + 2 * margin);
    }
};

VxDynamicDividerWgt::VxDynamicDividerWgt(QWidget *first, QWidget *second, QWidget *parent,
                                         Qt::Orientation orientation, const QString &name,
                                         BarStyle barStyle)
    : QWidget(parent)
    , d(std::make_unique<Private>(this, orientation))
{
    setObjectName(name);
    for (QWidget *widget : {first, second}) {
        if (widget)
            widget->setParent(this);
    }
    d->first = first;
    d->second = second;
    d->bar = new VxDividerBar(orientation, barStyle, this);
    d->bar->setObjectName(name + QStringLiteral("Bar"));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    Private *const record = d.get();
    connect(d->bar, &VxDividerBar::dragStarted, this,
            [record] { record->firstAtPress = record->along(record->first->size()); });
    connect(d->bar, &VxDividerBar::dragged, this,
            [record](int distance) { record->drag(distance); });
    connect(d->bar, &VxDividerBar::doubleClicked, this, [record] { record->changeRatio(0.5); });
    d->layOut();
}

VxDynamicDividerWgt::~VxDynamicDividerWgt() = default;

void VxDynamicDividerWgt::setMargin(int margin)
{
    d->margin = std::max(0, margin);
    d->refit();
}

int VxDynamicDividerWgt::margin() const
{
    return d->margin;
}

void VxDynamicDividerWgt::setSpacing(int spacing)
{
    d->spacing = std::max(0, spacing);
    d->refit();
}

int VxDynamicDividerWgt::spacing() const
{
    return d->spacing;
}

void VxDynamicDividerWgt::setSecondWidgetHidden(bool hidden)
{
    if (!d->second || d->second->isHidden() == hidden)
        return;
    d->second->setHidden(hidden);
    d->refit();
}

bool VxDynamicDividerWgt::isSecondWidgetHidden() const
{
    return !isLaidOut(d->second);
}

void VxDynamicDividerWgt::setBarHidden(bool hidden)
{
    d->barHidden = hidden;
    d->refit();
}

bool VxDynamicDividerWgt::isBarHidden() const
{
    return d->barHidden;
}

void VxDynamicDividerWgt::setRatio(double ratio)
{
    if (std::isnan(ratio)) {
        qWarning("VxDynamicDividerWgt \"%s\": a ratio that is not a number was ignored",
                 qUtf8Printable(objectName()));
        return;
    }
    d->changeRatio(std::clamp(ratio, 0.0, 1.0));
}

double VxDynamicDividerWgt::ratio() const
{
    return d->ratio;
}

QList<int> VxDynamicDividerWgt::sizes() const
{
    QList<int> lengths;
    for (const QWidget *widget : {d->first, d->second})
        lengths.append(isLaidOut(widget) ? d->along(widget->size()) : 0);
    return lengths;
}

QSize VxDynamicDividerWgt::sizeHint() const
{
    return d->sizeOf(&QLayoutItem::sizeHint);
}

QSize VxDynamicDividerWgt::minimumSizeHint() const
{
    return d->sizeOf(&QLayoutItem::minimumSize);
}

void VxDynamicDividerWgt::childEvent(QChildEvent *event)
{
    if (event->removed()) {
        for (QWidget **place : {&d->first, &d->second}) {
            if (*place == event->child())
                *place = nullptr;
        }
        d->refit();
    }
    QWidget::childEvent(event);
}

bool VxDynamicDividerWgt::event(QEvent *event)
{
    const bool done = QWidget::event(event);
    switch (event->type()) {
    case QEvent::LayoutRequest:
    case QEvent::LayoutDirectionChange:
    case QEvent::StyleChange:
        d->refit();
        break;
    case QEvent::Show:
        d->layOut();
        break;
    default:
        break;
    }
    return done;
}

void VxDynamicDividerWgt::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    d->layOut();
}
