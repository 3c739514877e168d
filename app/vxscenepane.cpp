#include "vxscenepane.h"

#include "sceneselectionlink.h"
#include "scenetreemodel.h"

#include <QTreeView>
#include <QVBoxLayout>
#include <vxcore/vxapp.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxstyle.h>

namespace {

// Deep enough to see a figure's hip, spine and legs when it is opened.
constexpr int FirstLevels = 2;

} // namespace

VxScenePane::VxScenePane()
    : VxPane(tr("Scene"))
    , m_view(new QTreeView(this))
    , m_model(new SceneTreeModel(vxScene, this))
{
    m_view->setObjectName(QStringLiteral("SceneTView"));
    m_view->setModel(m_model);
    m_view->setHeaderHidden(true);
    m_view->setUniformRowHeights(true);
    m_view->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_view->setIndentation(vxApp->getStyle()->metric(VxStyle::PM_VxTreeIndentation));
    m_view->setFrameShape(QFrame::NoFrame);
    new SceneSelectionLink(m_view, m_model, vxScene, m_view);
    connect(m_model, &QAbstractItemModel::modelReset, this, &VxScenePane::showFirstLevels);
    showFirstLevels();

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_view);
}

VxScenePane::~VxScenePane() = default;

void VxScenePane::showFirstLevels()
{
    m_view->expandToDepth(FirstLevels);
}
