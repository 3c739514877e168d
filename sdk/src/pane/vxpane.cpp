#include <vxcore/vxpane.h>

#include "pane/vxpanebands.h"

#include <QtCore/QEvent>
#include <QtCore/QPointer>
#include <QtGui/QPainter>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleOption>
#include <utility>
#include <vxcore/vxactionmenu.h>
#include <vxcore/vxstyle.h>

namespace {

enum class Edge { Top, Bottom };

/** A guide that is hidden, or no longer inside the pane, draws no band. */
bool isGuiding(const QWidget *guide, const QWidget *pane)
{
    return guide && pane->isAncestorOf(guide) && guide->isVisibleTo(pane);
}

QRect guideRect(const QWidget *guide, const QWidget *pane)
{
    return QRect(guide->mapTo(pane, QPoint(0, 0)), guide->size());
}

void drawBand(QPainter &painter, const QRect &band, Edge line, const QPalette &palette)
{
    if (band.isEmpty())
        return;
    painter.fillRect(band, palette.color(QPalette::Button));
    painter.setPen(palette.color(QPalette::Dark));
    const int y = line == Edge::Top ? band.top() : band.bottom();
    painter.drawLine(band.left(), y, band.right(), y);
}

} // namespace

class VxPane::Private
{
public:
    QString title;
    QPointer<QWidget> headerGuide;
    QPointer<QWidget> footerGuide;
    VxActionMenu *optionsMenu = nullptr;
    int builtVersion = 0;
    bool built = false;
};

VxPane::VxPane(const QString &title, QWidget *parent)
    : VxSignalGuard(parent)
    , d(new Private)
{
    d->title = title;
    setWindowTitle(title);
}

VxPane::~VxPane() = default;

QString VxPane::getTitle() const
{
    return d->title;
}

void VxPane::setBackgroundHeaderGuide(QWidget *guide)
{
    watchGuides(std::exchange(d->headerGuide, guide), guide);
}

QWidget *VxPane::getBackgroundHeaderGuide() const
{
    return d->headerGuide;
}

void VxPane::setBackgroundFooterGuide(QWidget *guide)
{
    watchGuides(std::exchange(d->footerGuide, guide), guide);
}

QWidget *VxPane::getBackgroundFooterGuide() const
{
    return d->footerGuide;
}

void VxPane::restoreSettings(VxSettings *) {}

void VxPane::saveSettings(VxSettings *) const {}

void VxPane::buildOptionsMenu(VxActionMenu *) {}

int VxPane::getOptionsMenuVersion() const
{
    return 0;
}

void VxPane::updateTimeFields() {}

VxActionMenu *VxPane::getOptionsMenu()
{
    if (!d->optionsMenu) {
        d->optionsMenu = new VxActionMenu(d->title, this);
        connect(d->optionsMenu, &VxActionMenu::aboutToFill, this, &VxPane::updateOptionsMenu);
    }
    updateOptionsMenu();
    return d->optionsMenu;
}

bool VxPane::eventFilter(QObject *watched, QEvent *event)
{
    const bool isGuide = watched == d->headerGuide || watched == d->footerGuide;
    if (isGuide) {
        switch (event->type()) {
        case QEvent::Move:
        case QEvent::Resize:
        case QEvent::Show:
        case QEvent::Hide:
        case QEvent::ParentChange:
            update();
            break;
        default:
            break;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void VxPane::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    QStyleOption option;
    option.initFrom(this);
    style()->drawPrimitive(QStyle::PrimitiveElement(VxStyle::PE_VxPaneBackground), &option,
                           &painter, this);
    if (isGuiding(d->headerGuide, this))
        drawBand(painter, VxPaneBands::header(rect(), guideRect(d->headerGuide, this)),
                 Edge::Bottom, palette());
    if (isGuiding(d->footerGuide, this))
        drawBand(painter, VxPaneBands::footer(rect(), guideRect(d->footerGuide, this)), Edge::Top,
                 palette());
}

void VxPane::updateOptionsMenu()
{
    const int version = getOptionsMenuVersion();
    if (d->built && d->builtVersion == version)
        return;
    // First, because building may access the menu.
    d->built = true;
    d->builtVersion = version;
    d->optionsMenu->clear();
    buildOptionsMenu(d->optionsMenu);
}

void VxPane::watchGuides(QWidget *former, QWidget *present)
{
    if (former && former != d->headerGuide && former != d->footerGuide)
        former->removeEventFilter(this);
    // Installing a filter again only moves it to the front.
    if (present)
        present->installEventFilter(this);
    update();
}
