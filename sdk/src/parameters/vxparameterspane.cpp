#include <vxcore/vxparameterspane.h>

#include <QtCore/QTimer>
#include <QtGui/QAccessible>
#include <QtGui/QPainter>
#include <QtWidgets/QLabel>
#include <QtWidgets/QStyle>
#include <QtWidgets/QVBoxLayout>
#include <vxcore/vxnode.h>
#include <vxcore/vxpropertylistitemmodel.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxsettings.h>
#include <vxcore/vxsidenavpropertylistview.h>
#include <vxcore/vxtextstyle.h>

namespace {

const QLatin1String CollapsedKey("CollapsedGroups");
const QLatin1String WidthKey("ValueWidth");
constexpr int NoticeMilliseconds = 10000;
/// Larger selections are not edited together: all their controls would be created and compared.
constexpr int MaxNodes = 5000;

/// A title of one line that never widens the pane: names of nodes may be of any length.
class TitleLabel : public QLabel
{
public:
    QSize minimumSizeHint() const override { return {0, QLabel::minimumSizeHint().height()}; }

protected:
    void paintEvent(QPaintEvent *event) override
    {
        Q_UNUSED(event)
        QPainter painter(this);
        const QRect room = contentsRect();
        style()->drawItemText(
            &painter, room, int(Qt::AlignLeft | Qt::AlignVCenter), palette(), isEnabled(),
            fontMetrics().elidedText(text(), Qt::ElideMiddle, room.width()), foregroundRole());
    }
};

} // namespace

class VxParametersPane::Private
{
public:
    void showPrimary();
    void showSelection();
    void showTitle();
    void showNotice(const QString &text);

    QLabel *title = nullptr;
    VxSideNavPropertyListView *view = nullptr;
    VxPropertyListItemModel *model = nullptr;
    QLabel *notice = nullptr; // below the list, so that no row moves
    QTimer noticeTimer;
    QMetaObject::Connection labelConnection;
    QTimer selectionTimer; // compresses the selection of many nodes one by one
    int numLeftOut = 0;    // selected nodes beside the primary one, when there are too many
};

/** Immediately, so that the rows of the former node cannot be edited. */
void VxParametersPane::Private::showPrimary()
{
    VxNode *primary = vxScene->getPrimarySelection();
    if (model->getNode() != primary)
        model->setNode(primary);
    selectionTimer.start();
    showTitle();
}

void VxParametersPane::Private::showSelection()
{
    VxNode *primary = vxScene ? vxScene->getPrimarySelection() : nullptr;
    QVector<VxNode *> nodes;
    if (primary) {
        nodes = vxScene->getSelectedNodes();
        nodes.removeOne(primary);
        nodes.prepend(primary);
    }
    numLeftOut = nodes.size() > MaxNodes ? nodes.size() - 1 : 0;
    if (numLeftOut > 0)
        nodes = {primary};
    model->setNodes(nodes);
    showTitle();
}

void VxParametersPane::Private::showTitle()
{
    VxNode *node = model->getNode();
    QObject::disconnect(labelConnection);
    if (node)
        labelConnection =
            QObject::connect(node, &VxNode::labelChanged, title, [this] { showTitle(); });
    const int others = model->getNodes().size() - 1;
    QString text = node ? node->getLabel() : VxParametersPane::tr("Nothing selected");
    if (others > 0)
        text = VxParametersPane::tr("%1 and %n more", nullptr, others).arg(text);
    else if (numLeftOut > 0)
        text = VxParametersPane::tr("%1 only: %n more are too many to edit together", nullptr,
                                    numLeftOut)
                   .arg(text);
    title->setText(text);
    title->setToolTip(vxToolTipText(text));
}

void VxParametersPane::Private::showNotice(const QString &text)
{
    notice->setText(text);
    notice->setVisible(!text.isEmpty());
    noticeTimer.stop();
    if (text.isEmpty())
        return;
    noticeTimer.start();
    QAccessibleEvent alert(notice, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

VxParametersPane::VxParametersPane()
    : VxPane(tr("Parameters"))
    , d(std::make_unique<Private>())
{
    d->title = new TitleLabel;
    d->title->setObjectName(QStringLiteral("ParametersTitleLbl"));
    d->title->setTextInteractionFlags(Qt::NoTextInteraction);
    d->title->setTextFormat(Qt::PlainText);
    d->model = new VxPropertyListItemModel(this);
    d->view = new VxSideNavPropertyListView;
    d->view->setModel(d->model);
    d->notice = new QLabel;
    d->notice->setObjectName(QStringLiteral("ParametersNoticeLbl"));
    d->notice->setTextFormat(Qt::PlainText);
    d->notice->setWordWrap(true);
    d->notice->hide();

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->setSpacing(4);
    layout->addWidget(d->title);
    layout->addWidget(d->view, 1);
    layout->addWidget(d->notice);

    d->noticeTimer.setSingleShot(true);
    d->noticeTimer.setInterval(NoticeMilliseconds);
    connect(&d->noticeTimer, &QTimer::timeout, this, [this] { d->showNotice(QString()); });
    connect(d->view, &VxSideNavPropertyListView::noticed, this,
            [this](const QString &text) { d->showNotice(text); });
    connect(d->model, &QAbstractItemModel::modelReset, this, [this] { d->showNotice(QString()); });
    d->selectionTimer.setSingleShot(true);
    d->selectionTimer.setInterval(0);
    connect(&d->selectionTimer, &QTimer::timeout, this, [this] { d->showSelection(); });
    d->showSelection();
    if (!vxScene)
        return;
    connect(vxScene, &VxScene::primarySelectionChanged, this, [this] { d->showPrimary(); });
    connect(vxScene, &VxScene::nodeSelectionListChanged, &d->selectionTimer,
            QOverload<>::of(&QTimer::start));
}

VxParametersPane::~VxParametersPane() = default;

VxSideNavPropertyListView *VxParametersPane::getPropertyListView() const
{
    return d->view;
}

void VxParametersPane::restoreSettings(VxSettings *settings)
{
    d->view->setCollapsedGroups(settings->getStringListValue(CollapsedKey));
    d->view->setValueWidth(settings->getIntValue(WidthKey));
}

void VxParametersPane::saveSettings(VxSettings *settings) const
{
    settings->setStringListValue(CollapsedKey, d->view->getCollapsedGroups());
    settings->setIntValue(WidthKey, d->view->getValueWidth());
}
