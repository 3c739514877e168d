#include "shell/panedock.h"

#include "shell/panesearchfield.h"
#include "shell/titlebarbutton.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <vxcore/vxactionmenu.h>
#include <vxcore/vxapp.h>
#include <vxcore/vxpane.h>
#include <vxcore/vxpanesearch.h>
#include <vxcore/vxstyle.h>

namespace {

// Layouts report larger values for no limit, pixels.
constexpr int UnlimitedHeight = 100000;

int pixels(VxStyle::PixelMetricId id)
{
    return vxApp && vxApp->getStyle() ? vxApp->getStyle()->metric(id) : 4;
}

TitleBarButton *addButton(TitleBarButton::Glyph glyph, const char *name, const QString &help,
                          QLayout *layout)
{
    auto *button = new TitleBarButton(glyph);
    button->setObjectName(QLatin1String(name));
    button->setToolTip(help);
    button->setAccessibleName(help);
    layout->addWidget(button);
    return button;
}

} // namespace

PaneDock::PaneDock(VxPane *pane, QWidget *parent)
    : QDockWidget(pane->getTitle(), parent)
    , m_paneClassName(QString::fromLatin1(pane->metaObject()->className()))
{
    setObjectName(QStringLiteral("Dock") + m_paneClassName);
    // Before the pane: Tab follows the order in which widgets join the window.
    setTitleBarWidget(makeTitleBar(pane));
    setWidget(pane);
    // A strip has its title on the left, so that the dock is no higher than the strip.
    if (isStrip())
        setFeatures(features() | DockWidgetVerticalTitleBar);
    connect(pane, &QObject::destroyed, this, &QObject::deleteLater);
}

VxPane *PaneDock::pane() const
{
    return qobject_cast<VxPane *>(widget());
}

bool PaneDock::isStrip() const
{
    return widget() && widget()->minimumHeight() == widget()->maximumHeight();
}

bool PaneDock::isHeightLimited() const
{
    return widget() && QWidgetItem(widget()).maximumSize().height() < UnlimitedHeight;
}

bool PaneDock::event(QEvent *event)
{
    const bool done = QDockWidget::event(event);
    if (event->type() == QEvent::Resize && !isHeightLimited() && !m_wasHeightLimited)
        m_freeHeight = height();
    if (event->type() == QEvent::LayoutRequest && isHeightLimited() != m_wasHeightLimited) {
        m_wasHeightLimited = isHeightLimited();
        if (!m_wasHeightLimited)
            Q_EMIT heightLimitLifted(m_freeHeight);
    }
    return done;
}

/** The bar ignores presses, so that the dock is still dragged and floated by it. */
QWidget *PaneDock::makeTitleBar(VxPane *pane)
{
    auto *bar = new QWidget(this);
    bar->setObjectName(QStringLiteral("PaneTitleBar"));
    auto *layout = new QHBoxLayout(bar);
    const int gap = pixels(VxStyle::PM_VxBaseMargin);
    layout->setContentsMargins(2 * gap, 0, gap, 0);
    layout->setSpacing(gap);
    auto *title = new QLabel(windowTitle());
    connect(this, &QWidget::windowTitleChanged, title, &QLabel::setText);
    layout->addWidget(title, 1);
    if (VxPaneSearch *search = VxPaneSearch::of(pane))
        layout->addWidget(new PaneSearchField(search, pane, bar));

    if (pane->getOptionsMenu()->getNumEntries() > 0) {
        const TitleBarButton *options =
            addButton(TitleBarButton::Glyph::Options, "PaneOptionsBtn", tr("Pane options"), layout);
        connect(options, &QAbstractButton::clicked, this,
                [this, options] { showOptionsMenu(options); });
    }
    connect(addButton(TitleBarButton::Glyph::Float, "PaneFloatBtn", tr("Float or dock"), layout),
            &QAbstractButton::clicked, this, [this] { setFloating(!isFloating()); });
    connect(addButton(TitleBarButton::Glyph::Close, "PaneCloseBtn", tr("Close"), layout),
            &QAbstractButton::clicked, this, &QWidget::close);
    return bar;
}

void PaneDock::showOptionsMenu(const QWidget *button)
{
    // Not cached: the pane may have built another menu since.
    if (VxPane *owner = pane())
        owner->getOptionsMenu()->getMenu()->popup(button->mapToGlobal(QPoint(0, button->height())));
}
