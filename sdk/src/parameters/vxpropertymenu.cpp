#include "parameters/vxpropertymenu.h"

#include "parameters/vxpropertyclipboard.h"
#include "parameters/vxpropertykeys.h"
#include "parameters/vxpropertyvalue.h"
#include "scene/vxcurrenttime.h"

#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>
#include <algorithm>
#include <vxcore/vxproperty.h>
#include <vxcore/vxscene.h>

VxPropertyMenu::VxPropertyMenu(const QVector<QVector<VxProperty *>> &rows, QWidget *parent)
    : QMenu(parent)
    , m_rows(rows)
{
    for (const QVector<VxProperty *> &row : rows)
        m_properties += row;
    setObjectName(QStringLiteral("PropertyMenu"));
    const bool editable =
        std::any_of(m_properties.begin(), m_properties.end(), VxPropertyValue::isEditable);
    addKeyCommands(editable);
    addSeparator();
    addSkips();
    addSeparator();
    addValueCommands(editable);
}

void VxPropertyMenu::addKeyCommands(bool editable)
{
    const VxPropertyListItemModel::KeyState state =
        VxPropertyKeys::state(m_properties, vxCurrentTime());
    const bool keyable = state != VxPropertyListItemModel::NotKeyable;
    const bool keyed = std::any_of(m_properties.begin(), m_properties.end(),
                                   [](const VxProperty *p) { return p->getNumKeys() > 0; });
    const bool keyHere =
        std::any_of(m_properties.begin(), m_properties.end(),
                    [](const VxProperty *p) { return p->hasKey(vxCurrentTime()); });
    addAction(tr("Set Key"), this, [this] {
        VxPropertyKeys::setKeys(m_properties, vxCurrentTime());
    })->setEnabled(editable && keyable && state != VxPropertyListItemModel::OnKey);
    addAction(tr("Delete Key"), this, [this] {
        VxPropertyKeys::deleteKeys(m_properties, vxCurrentTime());
    })->setEnabled(editable && keyHere);
    addAction(tr("Delete All Keys"), this, [this] {
        VxPropertyKeys::deleteAllKeys(m_properties);
    })->setEnabled(editable && keyed);
}

void VxPropertyMenu::addSkips()
{
    addSkip(tr("Previous Key"), false);
    addSkip(tr("Next Key"), true);
}

void VxPropertyMenu::addSkip(const QString &text, bool after)
{
    VxTime found = 0;
    const bool any = VxPropertyKeys::findKeyBeside(m_properties, vxCurrentTime(), after, &found);
    QAction *skip = addAction(text, this, [found] {
        if (vxScene) {
            vxScene->pause();
            vxScene->setTime(found);
        }
    });
    skip->setEnabled(any);
}

void VxPropertyMenu::addValueCommands(bool editable)
{
    QAction *copy = addAction(tr("Copy Value"), this, [this] {
        QGuiApplication::clipboard()->setText(VxPropertyClipboard::text(m_rows, vxCurrentTime()));
    });
    copy->setShortcut(QKeySequence::Copy);
    const QString text = QGuiApplication::clipboard()->text();
    QAction *paste = addAction(tr("Paste Value"), this, [this, text] {
        const QString trouble = VxPropertyClipboard::paste(m_rows, vxCurrentTime(), text);
        if (!trouble.isEmpty())
            Q_EMIT noticed(trouble);
    });
    paste->setShortcut(QKeySequence::Paste);
    paste->setEnabled(editable && !text.isEmpty());
    for (QAction *shown : {copy, paste})
        shown->setShortcutContext(Qt::WidgetShortcut); // for display only
    addAction(tr("Reset to Default"), this, [this] {
        VxPropertyKeys::reset(m_properties, vxCurrentTime());
    })->setEnabled(editable);
}
