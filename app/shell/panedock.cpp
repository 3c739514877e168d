#include "shell/panedock.h"

#include "shell/panesearchfield.h"
#include "shell/titlebarbutton.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <vxcore/vxactionmenu.h>
#include <vxcore/vxapp.h>
#include <vxcore/vxpane.h>
#include <vxcore/vxstyle.h>

namespace {

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
    setWidget(pane);
    setTitleBarWidget(makeTitleBar());
    connect(pane, &QObject::destroyed, this, &QObject::deleteLater);
}

VxPane *PaneDock::pane() const
{
    return qobject_cast<VxPane *>(widget());
}

/** The bar leaves presses alone, so that the dock is dragged and floated by it as ever. */
QWidget *PaneDock::makeTitleBar()
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
    if (PaneSearchField::canSearch(pane()))
        layout->addWidget(new PaneSearchField(pane()));

    if (pane()->getOptionsMenu()->getNumEntries() > 0) {
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
    // Asked for anew each time: the pane may have built another menu since.
    if (VxPane *owner = pane())
        owner->getOptionsMenu()->getMenu()->popup(button->mapToGlobal(QPoint(0, button->height())));
}
