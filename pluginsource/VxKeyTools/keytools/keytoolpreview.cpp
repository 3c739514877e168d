#include "keytools/keytoolpreview.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QEvent>
#include <QtWidgets/QWidget>
#include <vxcore/vxapp.h>
#include <vxcore/vxgestureguard.h>
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
    m_guard = new VxGestureGuard(field);
    connect(m_guard, &VxGestureGuard::dropped, this, &KeyToolPreview::drop);
    m_guard->begin();
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
    m_hold->rollBack();
    m_hold.reset();
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
