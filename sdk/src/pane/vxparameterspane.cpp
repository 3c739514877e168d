#include <vxcore/vxparameterspane.h>

#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLabel>
#include <QtWidgets/QVBoxLayout>
#include <vxcore/vxnode.h>
#include <vxcore/vxpropertylistitemmodel.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxsidenavpropertylistview.h>

class VxParametersPane::Private
{
public:
    void showNode(VxNode *node);

    QLabel *title = nullptr;
    VxSideNavPropertyListView *view = nullptr;
    VxPropertyListItemModel *model = nullptr;
};

void VxParametersPane::Private::showNode(VxNode *node)
{
    model->setNode(node);
    title->setText(node ? node->getLabel() : VxParametersPane::tr("Nothing selected"));
}

VxParametersPane::VxParametersPane()
    : VxPane(tr("Parameters"))
    , d(std::make_unique<Private>())
{
    d->title = new QLabel;
    d->title->setObjectName(QStringLiteral("ParametersTitleLbl"));
    d->title->setTextInteractionFlags(Qt::NoTextInteraction);
    d->model = new VxPropertyListItemModel(this);
    d->view = new VxSideNavPropertyListView;
    d->view->setModel(d->model);
    d->view->header()->resizeSection(VxPropertyListItemModel::LabelColumn, 140);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->setSpacing(4);
    layout->addWidget(d->title);
    layout->addWidget(d->view, 1);

    d->showNode(vxScene ? vxScene->getPrimarySelection() : nullptr);
    if (vxScene)
        connect(vxScene, &VxScene::primarySelectionChanged, this,
                [this](VxNode *node) { d->showNode(node); });
}

VxParametersPane::~VxParametersPane() = default;

VxSideNavPropertyListView *VxParametersPane::getPropertyListView() const
{
    return d->view;
}
