#include "testing/vxaccessibletree.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMetaEnum>
#include <QTabBar>
#include <QWidget>

namespace {

constexpr int MaxChildren = 200;

QString withoutMnemonics(QString text)
{
    text.replace(QLatin1String("&&"), QLatin1String("\1"));
    text.remove(QLatin1Char('&'));
    return text.replace(QLatin1Char('\1'), QLatin1Char('&')).trimmed();
}

/// The text that a sighted user reads on or beside a widget; empty for none.
QString visibleText(const QWidget *widget)
{
    if (const auto *button = qobject_cast<const QAbstractButton *>(widget))
        return withoutMnemonics(button->text());
    if (const auto *box = qobject_cast<const QGroupBox *>(widget))
        return withoutMnemonics(box->title());
    for (const QLabel *label : widget->window()->findChildren<QLabel *>()) {
        if (label->buddy() == widget && !label->text().isEmpty())
            return withoutMnemonics(label->text());
    }
    return QString();
}

bool isNameOfAnObject(const QWidget *widget, const QString &name)
{
    if (name == widget->objectName())
        return true;
    for (const QMetaObject *meta = widget->metaObject(); meta; meta = meta->superClass()) {
        if (name == QLatin1String(meta->className()))
            return true;
    }
    return false;
}

QString withoutColon(QString text)
{
    while (text.endsWith(QLatin1Char(':')))
        text.chop(1);
    return text;
}

/// The name of a combo box is its present choice; its purpose is named by the label that refers to
/// it.
QString faultOfComboBox(QAccessibleInterface *object)
{
    for (const auto &relation : object->relations(QAccessible::Label)) {
        if (!relation.first->text(QAccessible::Name).isEmpty())
            return QString();
    }
    return QStringLiteral("no label");
}

QString faultOf(QAccessibleInterface *object, const QWidget *widget)
{
    if (qobject_cast<const QComboBox *>(widget))
        return faultOfComboBox(object);
    const QString name = object->text(QAccessible::Name);
    const QString shown = withoutColon(visibleText(widget));
    if (name.trimmed().isEmpty())
        return QStringLiteral("no name");
    if (isNameOfAnObject(widget, name))
        return QStringLiteral("the name is an object name: ") + name;
    // Speech input finds a control by what is read on it.
    if (!shown.isEmpty() && !name.contains(shown))
        return QStringLiteral("named \"%1\", but \"%2\" is read").arg(name, shown);
    const QAccessible::Role role = object->role();
    if (role == QAccessible::NoRole || role == QAccessible::Client || role == QAccessible::Pane)
        return QStringLiteral("role %1 of \"%2\" says nothing")
            .arg(QLatin1String(QMetaEnum::fromType<QAccessible::Role>().valueToKey(role)), name);
    return QString();
}

// The list of a combo box is part of it, and a main window keeps tab bars that it does not use.
bool isChecked(QAccessibleInterface *object, const QWidget *widget)
{
    if (widget->window()->inherits("QComboBoxPrivateContainer") ||
        (qobject_cast<const QTabBar *>(widget) && !widget->isVisible()))
        return false;
    // Screen readers read buttons that only the mouse or a shortcut reaches, too.
    return object->state().focusable || (widget->focusPolicy() & Qt::TabFocus) ||
           (qobject_cast<const QAbstractButton *>(widget) &&
            !qobject_cast<const QLineEdit *>(widget->parentWidget())); // the toolkit's, to clear it
}

void visitBelow(QAccessibleInterface *object,
                const std::function<void(QAccessibleInterface *)> &visit)
{
    visit(object);
    const int count = qMin(object->childCount(), MaxChildren);
    for (int i = 0; i < count; ++i) {
        if (QAccessibleInterface *child = object->child(i))
            visitBelow(child, visit);
    }
}

} // namespace

void VxAccessibleTree::visit(QWidget *root,
                             const std::function<void(QAccessibleInterface *)> &visit)
{
    if (QAccessibleInterface *object = QAccessible::queryAccessibleInterface(root))
        visitBelow(object, visit);
}

QString VxAccessibleTree::pathOf(const QWidget *widget)
{
    QStringList names;
    for (const QWidget *each = widget; each; each = each->parentWidget()) {
        const QString name = each->objectName();
        names.prepend(name.isEmpty() ? QLatin1String(each->metaObject()->className()) : name);
    }
    return names.join(QLatin1String(" > "));
}

QStringList VxAccessibleTree::faults(QWidget *root)
{
    QStringList found;
    visit(root, [&found](QAccessibleInterface *object) {
        const auto *widget = qobject_cast<const QWidget *>(object->object());
        if (!widget || !isChecked(object, widget))
            return;
        const QString fault = faultOf(object, widget);
        if (!fault.isEmpty())
            found += pathOf(widget) + QLatin1String(": ") + fault;
    });
    found.removeDuplicates();
    return found;
}
