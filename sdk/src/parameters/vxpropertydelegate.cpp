#include "parameters/vxpropertydelegate.h"

#include "parameters/vxpropertychoice.h"
#include "parameters/vxpropertypainter.h"
#include "parameters/vxpropertyrow.h"
#include "parameters/vxpropertyspinbox.h"
#include "parameters/vxpropertyvalue.h"

#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>
#include <vxcore/vxboolproperty.h>
#include <vxcore/vxpropertylistnode.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxsidenavpropertylistview.h>
#include <vxcore/vxstyle.h>

namespace {

constexpr int RowHeight = 22;
constexpr int TextMargin = 6; // above and below the text together

const VxPropertyListItemModel *modelOf(const QModelIndex &index)
{
    return qobject_cast<const VxPropertyListItemModel *>(index.model());
}

bool isMixed(const QModelIndex &index)
{
    return index.data(VxPropertyListItemModel::MixedRole).toBool();
}

void paintValue(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index,
                const VxProperty *property)
{
    using Switch = VxPropertyPainter::Switch;
    // Computed once: it may compare a thousand properties.
    const bool mixed = isMixed(index);
    const VxTime time = vxScene ? vxScene->getTime() : 0;
    const auto *flag = qobject_cast<const VxBoolProperty *>(property);
    if (!flag) {
        VxPropertyPainter::paintValue(
            painter, option, property,
            mixed ? index.data().toString() : VxPropertyValue::text(property, time), mixed);
        return;
    }
    const bool on = flag->getBoolValue(time);
    VxPropertyPainter::paintSwitch(painter, option,
                                   mixed ? Switch::Mixed
                                   : on  ? Switch::On
                                         : Switch::Off,
                                   VxPropertyValue::isEditable(property));
}

void paintCell(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index,
               const VxProperty *property)
{
    switch (index.column()) {
    case VxPropertyListItemModel::LabelColumn:
        VxPropertyPainter::paintLabel(painter, option, property);
        break;
    case VxPropertyListItemModel::ValueColumn:
        paintValue(painter, option, index, property);
        break;
    default:
        VxPropertyPainter::paintKeyMark(
            painter, option,
            VxPropertyListItemModel::KeyState(
                index.data(VxPropertyListItemModel::KeyStateRole).toInt()),
            VxPropertyValue::isEditable(property));
    }
}

/// Keys that commit the typed text and leave the field.
bool commits(int key)
{
    return key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Tab ||
           key == Qt::Key_Backtab;
}

} // namespace

VxPropertyDelegate::VxPropertyDelegate(QObject *parent)
    : QStyledItemDelegate(parent)
{
}

void VxPropertyDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                               const QModelIndex &index) const
{
    const VxPropertyListItemModel *model = modelOf(index);
    if (!model)
        return;
    const QStyle *style = option.widget ? option.widget->style() : QApplication::style();
    style->drawPrimitive(QStyle::PE_PanelItemViewItem, &option, painter, option.widget);
    if (model->isHeading(index)) {
        const auto *view = qobject_cast<const VxSideNavPropertyListView *>(option.widget);
        VxPropertyPainter::paintHeading(painter, option, index.data().toString(),
                                        view && view->isGroupCollapsed(model->getGroupPath(index)));
        return;
    }
    if (const VxProperty *property = VxPropertyRow::leading(model->getPropertyListNode(index)))
        paintCell(painter, option, index, property);
}

QSize VxPropertyDelegate::sizeHint(const QStyleOptionViewItem &option,
                                   const QModelIndex &index) const
{
    return {QStyledItemDelegate::sizeHint(option, index).width(),
            qMax(RowHeight, option.fontMetrics.height() + TextMargin)};
}

QWidget *VxPropertyDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                                          const QModelIndex &index) const
{
    Q_UNUSED(option)
    const auto properties = VxPropertyChoice::propertiesOf(modelOf(index), index);
    if (qobject_cast<VxBoolProperty *>(properties.value(0)))
        return nullptr; // toggled by a click
    if (!qobject_cast<VxNumericProperty *>(properties.value(0))) {
        auto *line = new QLineEdit(parent);
        line->setFrame(false);
        line->setPlaceholderText(isMixed(index) ? index.data().toString() : QString());
        return line;
    }
    auto *field = new VxPropertySpinBox(properties, parent);
    connect(field, &VxPropertySpinBox::noticed, this, &VxPropertyDelegate::noticed);
    connect(index.model(), &QAbstractItemModel::dataChanged, field,
            &VxPropertySpinBox::showValueSoon);
    return field;
}

void VxPropertyDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    if (auto *field = qobject_cast<VxPropertySpinBox *>(editor))
        field->showValueSoon();
    else
        QStyledItemDelegate::setEditorData(editor, index);
}

void VxPropertyDelegate::setModelData(QWidget *editor, QAbstractItemModel *model,
                                      const QModelIndex &index) const
{
    if (auto *field = qobject_cast<VxPropertySpinBox *>(editor))
        field->commit();
    else if (model->data(index, Qt::EditRole).toString() != editor->property("text").toString())
        QStyledItemDelegate::setModelData(editor, model, index);
}

void VxPropertyDelegate::updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                                              const QModelIndex &index) const
{
    Q_UNUSED(index)
    editor->setGeometry(option.rect);
}

bool VxPropertyDelegate::eventFilter(QObject *watched, QEvent *event)
{
    auto *field = qobject_cast<VxPropertySpinBox *>(watched);
    if (!field)
        return QStyledItemDelegate::eventFilter(watched, event);
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (key == Qt::Key_Escape)
            field->rollBack();
        if (commits(key) && field->complain())
            return true;
    }
    if (event->type() == QEvent::ShortcutOverride && !field->isTyped()) {
        const auto *key = static_cast<QKeyEvent *>(event);
        if (key->matches(QKeySequence::Undo) || key->matches(QKeySequence::Redo)) {
            field->finishSteps();
            event->ignore();
            return true;
        }
    }
    return QStyledItemDelegate::eventFilter(watched, event);
}
