#include "viewport/emptysceneoffer.h"

#include <QAction>
#include <QEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <vxcore/vxnode.h>
#include <vxcore/vxscene.h>

EmptySceneOffer::EmptySceneOffer(VxScene *scene, QWidget *viewport)
    : QFrame(viewport)
    , m_scene(scene)
    , m_buttons(new QVBoxLayout(this))
{
    setObjectName(QStringLiteral("EmptySceneOffer"));
    auto *title = new QLabel(tr("The scene is empty."), this);
    title->setAlignment(Qt::AlignCenter);
    title->setEnabled(false); // for the colour of absent content
    m_buttons->addWidget(title);
    viewport->installEventFilter(this);
    connect(scene, &VxScene::viewChanged, this, &EmptySceneOffer::updateVisibility);
    connect(scene, &VxScene::nodeAdded, this, &EmptySceneOffer::updateVisibility);
    connect(scene, &VxScene::nodeRemoved, this, &EmptySceneOffer::updateVisibility);
    connect(scene, &VxScene::sceneCleared, this, &EmptySceneOffer::updateVisibility);
    connect(scene, &VxScene::sceneLoaded, this, &EmptySceneOffer::updateVisibility);
    updateVisibility();
}

void EmptySceneOffer::addCommand(QAction *action, const QString &text)
{
    auto *button = new QPushButton(this);
    button->setObjectName(action->objectName() + QStringLiteral("Button"));
    // Letters with Alt belong to the menu bar.
    QString shown = text.isEmpty() ? action->text() : text;
    button->setText(shown.remove(QLatin1Char('&')));
    button->setStatusTip(action->statusTip());
    button->setFocusPolicy(Qt::StrongFocus);
    button->setAutoDefault(true); // Return presses it
    connect(button, &QPushButton::clicked, action, &QAction::trigger);
    // After the viewport itself and the former buttons.
    setTabOrder(m_last ? m_last : parentWidget(), button);
    m_last = button;
    m_buttons->addWidget(button);
    moveToMiddle();
}

bool EmptySceneOffer::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == parent() && event->type() == QEvent::Resize)
        moveToMiddle();
    return QFrame::eventFilter(watched, event);
}

void EmptySceneOffer::setSuppressed(bool suppressed)
{
    m_isSuppressed = suppressed;
    updateVisibility();
}

void EmptySceneOffer::updateVisibility()
{
    const bool isEmpty = m_scene->getNumNodes() == 0 && !m_isSuppressed;
    if (isEmpty == !isHidden())
        return;
    // The keyboard stays in the viewport.
    if (!isEmpty && isAncestorOf(window()->focusWidget()))
        parentWidget()->setFocus();
    setVisible(isEmpty);
    moveToMiddle();
}

void EmptySceneOffer::moveToMiddle()
{
    resize(sizeHint());
    const QSize space = parentWidget()->size();
    move(qMax(0, (space.width() - width()) / 2), qMax(0, (space.height() - height()) / 2));
}
