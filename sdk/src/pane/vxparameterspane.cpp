#include <vxcore/vxparameterspane.h>

#include <QtCore/QTimer>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLabel>
#include <QtWidgets/QVBoxLayout>
#include <vxcore/vxnode.h>
#include <vxcore/vxpropertylistitemmodel.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxsettings.h>
#include <vxcore/vxsidenavpropertylistview.h>

namespace {

constexpr QLatin1String CollapsedKey("CollapsedGroups");
constexpr QLatin1String WidthKey("ValueWidth");

} // namespace

class VxParametersPane::Private
{
public:
    void showPrimary();
    void showSelection();
    void showTitle();

    QLabel *title = nullptr;
    VxSideNavPropertyListView *view = nullptr;
    VxPropertyListItemModel *model = nullptr;
    QMetaObject::Connection labelConnection;
    QTimer selectionTimer; // nodes may be selected one by one, by the hundred
};

/** At once, so that nobody meets the rows of a node that is no longer the one. */
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
    title->setText(text);
}

VxParametersPane::VxParametersPane()
    : VxPane(tr("Parameters"))
    , d(std::make_unique<Private>())
{
    d->title = new QLabel;
    d->title->setObjectName(QStringLiteral("ParametersTitleLbl"));
    d->title->setTextInteractionFlags(Qt::NoTextInteraction);
    d->title->setTextFormat(Qt::PlainText);
    d->model = new VxPropertyListItemModel(this);
    d->view = new VxSideNavPropertyListView;
    d->view->setModel(d->model);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->setSpacing(4);
    layout->addWidget(d->title);
    layout->addWidget(d->view, 1);

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
    const int width = settings->getIntValue(WidthKey);
    if (width > 0)
        d->view->header()->resizeSection(VxPropertyListItemModel::ValueColumn, width);
}

void VxParametersPane::saveSettings(VxSettings *settings) const
{
    settings->setStringListValue(CollapsedKey, d->view->getCollapsedGroups());
    settings->setIntValue(WidthKey,
                          d->view->header()->sectionSize(VxPropertyListItemModel::ValueColumn));
}
