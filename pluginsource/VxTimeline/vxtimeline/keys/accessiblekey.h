#ifndef ACCESSIBLEKEY_H
#define ACCESSIBLEKEY_H

#include "vxtimeline/keys/accessiblekeys.h"

/// Base of the objects that are no widgets: rows, lists of keys and keys. They have actions, and
/// unless a class overrides it no children.
class AccessiblePart : public QAccessibleInterface, public QAccessibleActionInterface
{
public:
    QObject *object() const override { return nullptr; }
    QAccessibleInterface *child(int) const override { return nullptr; }
    QAccessibleInterface *childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface *) const override { return -1; }
    void setText(QAccessible::Text, const QString &) override {}
    void *interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ActionInterface
                   ? static_cast<QAccessibleActionInterface *>(this)
                   : nullptr;
    }
    QStringList keyBindingsForAction(const QString &) const override { return {}; }
};

/// A list of keys: that of a row, or a channel. Its actions select all of them, or none.
class AccessibleKeyList : public AccessiblePart
{
    Q_DECLARE_TR_FUNCTIONS(AccessibleKeys)
public:
    explicit AccessibleKeyList(AccessibleKeys::Source source);

    const AccessibleKeySource &source() const { return *m_source; }
    static QString selectAction() { return tr("Select Keys"); }
    static QString deselectAction() { return tr("Deselect Keys"); }

    bool isValid() const override;
    QWindow *window() const override;
    QAccessibleInterface *parent() const override;
    QAccessibleInterface *child(int index) const override;
    QAccessibleInterface *childAt(int x, int y) const override;
    int childCount() const override;
    int indexOfChild(const QAccessibleInterface *child) const override;
    QString text(QAccessible::Text kind) const override;
    QRect rect() const override;
    QAccessible::Role role() const override;
    QAccessible::State state() const override;

    QStringList actionNames() const override;
    void doAction(const QString &name) override;

private:
    AccessibleKeys::Source m_source;
};

/// A key: its time as its name, its value as the value, its type as the description. The number is
/// that of the key at present; a key that moves past another changes places with it.
class AccessibleKey : public AccessiblePart, public QAccessibleValueInterface
{
    Q_DECLARE_TR_FUNCTIONS(AccessibleKeys)
public:
    AccessibleKey(AccessibleKeys::Source source, int index);

    int index() const { return m_index; }
    const AccessibleKeySource &source() const { return *m_source; }

    bool isValid() const override;
    QWindow *window() const override;
    QAccessibleInterface *parent() const override;
    QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text kind, const QString &text) override;
    QRect rect() const override;
    QAccessible::Role role() const override;
    QAccessible::State state() const override;
    void *interface_cast(QAccessible::InterfaceType type) override;

    /// Press selects this key alone, Toggle adds it to the selection or removes it; the third sets
    /// the scene's time.
    QStringList actionNames() const override;
    void doAction(const QString &name) override;
    static QString timeAction() { return tr("Go to Key"); }

    /// Only of a property's key. Setting a value is one undo entry; a locked property refuses it.
    QVariant currentValue() const override;
    void setCurrentValue(const QVariant &value) override;
    QVariant maximumValue() const override;
    QVariant minimumValue() const override;
    QVariant minimumStepSize() const override;

private:
    AccessibleKeys::Source m_source;
    int m_index;
};

#endif
