#include "pane/vxpropertymenu.h"

#include "pane/vxpropertykeys.h"
#include "pane/vxpropertyvalue.h"

#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>
#include <algorithm>
#include <vxcore/vxchangeblock.h>
#include <vxcore/vxnumericproperty.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxundostackhold.h>

namespace {

VxTime now()
{
    return vxScene ? vxScene->getTime() : 0;
}

void pasteValue(const QVector<VxProperty *> &properties, const QString &text)
{
    VxUndoStackHold hold;
    {
        const VxChangeBlock block;
        for (VxProperty *property : properties) {
            if (VxPropertyValue::isEditable(property))
                VxPropertyValue::setText(property, now(), text);
        }
    }
    hold.accept(VxPropertyMenu::tr("Paste Value"));
}

} // namespace

VxPropertyMenu::VxPropertyMenu(const QVector<VxProperty *> &properties, QWidget *parent)
    : QMenu(parent)
    , m_properties(properties)
{
    setObjectName(QStringLiteral("PropertyMenu"));
    const bool editable =
        std::any_of(properties.begin(), properties.end(), VxPropertyValue::isEditable);
    addKeyCommands(editable);
    addSeparator();
    addSkips();
    addSeparator();
    addValueCommands(editable);
}

void VxPropertyMenu::addKeyCommands(bool editable)
{
    const VxPropertyListItemModel::KeyState state = VxPropertyKeys::state(m_properties, now());
    const bool keyed =
        state == VxPropertyListItemModel::Keyed || state == VxPropertyListItemModel::OnKey;
    const bool keyHere = std::any_of(m_properties.begin(), m_properties.end(),
                                     [](const VxProperty *p) { return p->hasKey(now()); });
    addAction(tr("Set Key"), this, [this] { VxPropertyKeys::setKeys(m_properties, now()); })
        ->setEnabled(editable && (state == VxPropertyListItemModel::NoKeys ||
                                  state == VxPropertyListItemModel::Keyed));
    addAction(tr("Delete Key"), this, [this] {
        VxPropertyKeys::deleteKeys(m_properties, now());
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
    const bool any = VxPropertyKeys::findKeyBeside(m_properties, now(), after, &found);
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
    VxProperty *first = m_properties.value(0);
    addAction(tr("Copy Value"), this, [first] {
        QGuiApplication::clipboard()->setText(VxPropertyValue::text(first, now()));
    })->setEnabled(first != nullptr);
    const QString text = QGuiApplication::clipboard()->text();
    addAction(tr("Paste Value"), this, [this, text] {
        pasteValue(m_properties, text);
    })->setEnabled(editable && !text.isEmpty());
    addAction(tr("Reset to Default"), this, [this] {
        VxPropertyKeys::reset(m_properties, now());
    })->setEnabled(editable);
}
