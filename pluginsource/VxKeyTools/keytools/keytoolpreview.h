#ifndef KEYTOOLPREVIEW_H
#define KEYTOOLPREVIEW_H

#include "keytools/keytool.h"

#include <QtCore/QPointer>

class VxGestureGuard;

/// Shows the effect of a tool in all views while its parameters are typed.
///
/// The keys are restored, without an undo entry, when the field loses the focus, on Escape, before
/// a command runs by its shortcut or a node is removed, and by end(). Each preview starts from the
/// restored keys. The scene's time and ranges are no part of it: they may change meanwhile.
class KeyToolPreview : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;
    ~KeyToolPreview() override;

    /// Restores the keys and runs the tool; `field` is the edited field, null when the caller
    /// itself ends the preview with the gesture. Invalid arguments, and a change that is being
    /// recorded, leave the keys restored.
    KeyToolResult show(const KeyTool &tool, const QVariantMap &arguments, QWidget *field = nullptr);
    bool isShown() const { return bool(m_hold); }
    /// Restores the keys.
    void end();

Q_SIGNALS:
    /// The keys were restored by something else than a call.
    void ended();

private:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void drop();
    void rollBack();

    std::unique_ptr<VxUndoStackHold> m_hold;
    QPointer<VxGestureGuard> m_guard;
};

#endif
