#include <vxcore/vxbuttonbar.h>

#include "widgets/vxbarseparator.h"
#include "widgets/vxkitpaint.h"

#include <QChildEvent>
#include <QHBoxLayout>
#include <QPainter>
#include <QStyleOption>
#include <map>
#include <vector>
#include <vxcore/vxbarbutton.h>

using namespace VxKitPaint;

class VxButtonBar::Private
{
public:
    explicit Private(VxButtonBar *owner)
        : bar(owner)
        , layout(new QHBoxLayout(owner))
    {
        layout->setContentsMargins(0, 0, 0, 0);
        layout->setSpacing(0);
        // Keeps the items together if the bar is wider than they are.
        layout->addStretch(1);
    }

    VxButtonBar *const bar;
    QHBoxLayout *const layout;
    std::map<int, QWidget *> items; // by index, hence in layout order

    bool contains(const QObject *widget) const
    {
        for (const auto &item : items) {
            if (item.second == widget)
                return true;
        }
        return false;
    }

    void insert(QWidget *widget, int index)
    {
        const auto place = items.emplace(index, widget).first;
        layout->insertWidget(static_cast<int>(std::distance(items.begin(), place)), widget);
        updateJoints();
    }

    void drop(const QObject *widget)
    {
        for (auto item = items.begin(); item != items.end(); ++item) {
            if (item->second == widget) {
                items.erase(item);
                updateJoints();
                return;
            }
        }
    }

    void setShown(int index, bool shown)
    {
        const auto item = items.find(index);
        if (item == items.end())
            return;
        item->second->setVisible(shown);
        updateJoints();
    }

    std::vector<QWidget *> shownItems() const
    {
        std::vector<QWidget *> shown;
        for (const auto &item : items) {
            if (!item.second->isHidden())
                shown.push_back(item.second);
        }
        return shown;
    }

    // Only the outermost shown items have a free side.
    void updateJoints()
    {
        const std::vector<QWidget *> shown = shownItems();
        const bool leftToRight = bar->layoutDirection() == Qt::LeftToRight;
        const Qt::Edge before = leftToRight ? Qt::LeftEdge : Qt::RightEdge;
        const Qt::Edge after = leftToRight ? Qt::RightEdge : Qt::LeftEdge;
        for (std::size_t i = 0; i < shown.size(); ++i) {
            Qt::Edges joined;
            joined.setFlag(before, i > 0);
            joined.setFlag(after, i + 1 < shown.size());
            if (auto *button = qobject_cast<VxBarButton *>(shown[i]))
                button->setJoinedEdges(joined);
        }
    }

    bool refuses(const QWidget *widget, int index) const
    {
        const char *reason = nullptr;
        if (!widget)
            reason = "there is no widget to add";
        else if (items.count(index) > 0)
            reason = "the index is in use";
        else if (contains(widget))
            reason = "the widget is already in the bar";
        if (reason)
            qWarning("VxButtonBar \"%s\": nothing added at index %d: %s",
                     qUtf8Printable(bar->objectName()), index, reason);
        return reason != nullptr;
    }
};

VxButtonBar::VxButtonBar(QWidget *parent)
    : QWidget(parent)
    , d(std::make_unique<Private>(this))
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

VxButtonBar::~VxButtonBar() = default;

void VxButtonBar::addWidget(QWidget *widget, int index)
{
    if (!d->refuses(widget, index))
        d->insert(widget, index);
}

void VxButtonBar::addSeparator(SeparatorType type, int index)
{
    auto separator = std::make_unique<VxBarSeparator>(type, nullptr);
    if (!d->refuses(separator.get(), index))
        d->insert(separator.release(), index);
}

void VxButtonBar::showItem(int index)
{
    d->setShown(index, true);
}

void VxButtonBar::hideItem(int index)
{
    d->setShown(index, false);
}

QWidget *VxButtonBar::widget(int index) const
{
    const auto item = d->items.find(index);
    return item == d->items.end() ? nullptr : item->second;
}

void VxButtonBar::childEvent(QChildEvent *event)
{
    if (event->removed())
        d->drop(event->child());
    QWidget::childEvent(event);
}

bool VxButtonBar::event(QEvent *event)
{
    // Items may also be shown and hidden directly.
    if (event->type() == QEvent::LayoutRequest || event->type() == QEvent::LayoutDirectionChange)
        d->updateJoints();
    return QWidget::event(event);
}

void VxButtonBar::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    if (!drawStyleSheetBox(painter, this) && !d->shownItems().empty())
        drawPrimitive(painter, this, VxStyle::PE_VxBarBackground, rect());
}
