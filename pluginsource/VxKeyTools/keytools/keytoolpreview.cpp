#include "keytools/keytoolpreview.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QEvent>
#include <QtWidgets/QWidget>
#include <vxcore/vxapp.h>
#include <vxcore/vxgestureguard.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxundostack.h>

KeyToolPreview::~KeyToolPreview()
{
    end();
}

KeyToolResult KeyToolPreview::show(const KeyTool &tool, const QVariantMap &arguments,
                                   QWidget *field)
{
    end();
    if (!vxApp || vxApp->getUndoStack()->isRecording())
        return {};
    m_hold = std::make_unique<VxUndoStackHold>();
    const KeyToolResult result = tool.runWith(arguments);
    if (!result.done) {
        end();
        return result;
    }
    if (field) {
        m_guard = new VxGestureGuard(field);
        connect(m_guard, &VxGestureGuard::cancelled, this, &KeyToolPreview::drop);
        m_guard->begin();
    }
    connect(vxScene, &VxScene::aboutToRemoveNode, this, &KeyToolPreview::drop);
    connect(vxScene, &VxScene::sceneClearStarting, this, &KeyToolPreview::drop);
    QCoreApplication::instance()->installEventFilter(this);
    return result;
}

void KeyToolPreview::end()
{
    if (!m_hold)
        return;
    QCoreApplication::instance()->removeEventFilter(this);
    if (m_guard) {
        m_guard->end();
        m_guard->deleteLater();
    }
    m_guard.clear();
    if (vxScene)
        disconnect(vxScene, nullptr, this, nullptr);
    rollBack();
    m_hold.reset();
}

// The hold has also recorded changes of time and ranges, which are no part of the preview.
void KeyToolPreview::rollBack()
{
    if (!vxScene) {
        m_hold->rollBack();
        return;
    }
    const VxTime time = vxScene->getTime();
    const VxTimeRange play = vxScene->getPlayRange();
    const VxTimeRange animation = vxScene->getAnimRange();
    m_hold->rollBack();
    vxScene->setAnimRange(animation);
    vxScene->setPlayRange(play);
    vxScene->setTime(time);
}

void KeyToolPreview::drop()
{
    end();
    Q_EMIT ended();
}

// A command must find the keys as they are without the preview.
bool KeyToolPreview::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Shortcut)
        drop();
    return QObject::eventFilter(watched, event);
}
