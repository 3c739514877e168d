#include "parameters/vxpropertychoice.h"

#include <QtCore/QItemSelectionModel>
#include <algorithm>
#include <vector>
#include <vxcore/vxpropertylistitemmodel.h>
#include <vxcore/vxpropertylistnode.h>

namespace {

/// One flag a row: whether a command on index applies to it, headings as they are.
std::vector<bool> selectedWith(const QItemSelectionModel *selectionModel, const QModelIndex &index,
                               int rowCount)
{
    std::vector<bool> chosen(size_t(rowCount), false);
    chosen[size_t(index.row())] = true;
    if (!selectionModel || !selectionModel->isRowSelected(index.row(), QModelIndex()))
        return chosen;
    const QItemSelection selection = selectionModel->selection();
    for (const QItemSelectionRange &range : selection)
        std::fill(chosen.begin() + range.top(), chosen.begin() + range.bottom() + 1, true);
    return chosen;
}

} // namespace

VxPropertyChoice::Properties VxPropertyChoice::propertiesOf(const VxPropertyListItemModel *model,
                                                            const QModelIndex &index)
{
    const VxPropertyListNode *listNode = model ? model->getPropertyListNode(index) : nullptr;
    return listNode ? listNode->getProperties() : Properties();
}

QVector<VxPropertyChoice::Properties>
VxPropertyChoice::rowsOf(const VxPropertyListItemModel *model,
                         const QItemSelectionModel *selectionModel, const QModelIndex &index)
{
    QVector<Properties> rows;
    if (!model || !index.isValid())
        return rows;
    const std::vector<bool> chosen = selectedWith(selectionModel, index, model->rowCount());
    bool inGroup = false; // of a chosen heading
    for (int row = 0; row < model->rowCount(); ++row) {
        const QModelIndex at = model->index(row, 0);
        const bool own = chosen[size_t(row)];
        if (model->isHeading(at)) {
            inGroup = own;
            continue;
        }
        const Properties properties = own || inGroup ? propertiesOf(model, at) : Properties();
        if (!properties.isEmpty())
            rows.append(properties);
    }
    return rows;
}
