#include "scenetree/vxscenepane.h"

#include "scenetree/sceneselectionlink.h"
#include "scenetree/scenetreefilter.h"
#include "scenetree/scenetreemodel.h"
#include "scenetree/scenetreeview.h"
#include "widgets/emptyhint.h"
#include "widgets/searchfield.h"

#include <QKeyEvent>
#include <QVBoxLayout>
#include <vxcore/vxapp.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxstyle.h>

namespace {

// Deep enough to show an opened figure's hip, spine and legs.
constexpr int FirstLevels = 2;

} // namespace

VxScenePane::VxScenePane()
    : VxPane(tr("Scene"))
    , m_model(new SceneTreeModel(vxScene, this))
    , m_search(new SearchField(tr("Search nodes"), this))
    , m_view(new SceneTreeView(m_model, vxScene, this))
    , m_filter(new SceneTreeFilter(m_view, m_model, vxScene, m_view))
    , m_hint(new EmptyHint(m_view))
{
    m_view->setObjectName(QStringLiteral("SceneTView"));
    m_view->setAccessibleName(tr("Nodes of the Scene"));
    setFocusProxy(m_view);
    new SceneSelectionLink(m_view, m_model, vxScene, m_view);
    connect(m_model, &QAbstractItemModel::modelReset, this, &VxScenePane::showFirstLevels);
    connect(m_model, &QAbstractItemModel::modelReset, this, &VxScenePane::updateHint);
    connect(m_model, &QAbstractItemModel::rowsInserted, this, &VxScenePane::updateHint);
    connect(m_model, &QAbstractItemModel::rowsRemoved, this, &VxScenePane::updateHint);
    showFirstLevels();
    buildSearch();
    updateHint();

    auto *layout = new QVBoxLayout(this);
    const int gap = vxApp->getStyle()->metric(VxStyle::PM_VxBaseMargin);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    auto *band = new QHBoxLayout;
    band->setContentsMargins(gap, gap, gap, gap);
    band->addWidget(m_search);
    layout->addLayout(band);
    layout->addWidget(m_view);
}

void VxScenePane::buildSearch()
{
    m_search->setObjectName(QStringLiteral("SceneSearchField"));
    m_search->setToolTip(tr("Shows only nodes whose names contain the text, with the nodes above "
                            "them. Return selects the matches."));
    m_search->installEventFilter(this);
    connect(m_search, &QLineEdit::textChanged, m_filter, &SceneTreeFilter::setText);
    connect(m_search, &SearchField::left, this, [this] { m_view->setFocus(); });
    connect(vxScene, &VxScene::sceneCleared, m_search, &QLineEdit::clear);
    connect(m_filter, &SceneTreeFilter::matchesChanged, this, &VxScenePane::showFound);
    connect(m_filter, &SceneTreeFilter::matchesChanged, this, &VxScenePane::updateHint);
}

bool VxScenePane::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_search && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (key == Qt::Key_Down)
            m_view->setFocus(Qt::OtherFocusReason);
        else if (key == Qt::Key_Return || key == Qt::Key_Enter)
            selectFound();
        else
            return VxPane::eventFilter(watched, event);
        return true;
    }
    return VxPane::eventFilter(watched, event);
}

void VxScenePane::showFirstLevels()
{
    m_view->expandToDepth(FirstLevels);
}

void VxScenePane::showFound()
{
    const int count = m_filter->matches().size();
    if (count > 0)
        m_view->scrollTo(m_model->indexOf(m_filter->matches().first()));
    else if (!m_search->isActive() && m_view->currentIndex().isValid())
        m_view->scrollTo(m_view->currentIndex());
}

void VxScenePane::updateHint()
{
    if (m_model->rowCount() == 0)
        m_hint->showMessage(tr("The scene has no nodes."));
    else if (m_search->isActive() && m_filter->matches().isEmpty())
        m_hint->showMessage(tr("No node name contains the search text."));
    else
        m_hint->showMessage(QString());
}

void VxScenePane::selectFound()
{
    const QVector<VxNode *> found = m_filter->matches();
    if (found.isEmpty())
        return;
    vxScene->selectAllNodes(false);
    // Backwards: the last one selected is the primary one.
    for (int i = found.size() - 1; i >= 0; --i)
        found.at(i)->select();
}
