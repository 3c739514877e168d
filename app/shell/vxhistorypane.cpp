#include "shell/vxhistorypane.h"

#include "shell/historymodel.h"

#include <QListView>
#include <QPainter>
#include <QScopedValueRollback>
#include <QStyledItemDelegate>
#include <QVBoxLayout>
#include <vxcore/vxapp.h>
#include <vxcore/vxstyle.h>
#include <vxcore/vxundostack.h>

namespace {

constexpr int RowMargin = 6;
constexpr int RowGap = 4; // between the lines of two states

/// Writes a word after the saved state.
class StateDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        return QStyledItemDelegate::sizeHint(option, index) + QSize(0, RowGap);
    }

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override
    {
        QStyledItemDelegate::paint(painter, option, index);
        if (!index.data(HistoryModel::CleanRole).toBool())
            return;
        const bool selected = option.state & QStyle::State_Selected;
        painter->save();
        painter->setPen(selected ? option.palette.color(QPalette::HighlightedText)
                                 : option.palette.color(QPalette::Disabled, QPalette::Text));
        painter->drawText(option.rect.adjusted(0, 0, -RowMargin, 0),
                          Qt::AlignRight | Qt::AlignVCenter, word());
        painter->restore();
    }

protected:
    /// Elides the text before the word.
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        if (!index.data(HistoryModel::CleanRole).toBool())
            return;
        const QFontMetrics &metrics = option->fontMetrics;
        const int room = option->rect.width() - metrics.horizontalAdvance(word()) - 4 * RowMargin;
        option->text = metrics.elidedText(option->text, Qt::ElideRight, qMax(0, room));
    }

private:
    static QString word() { return VxHistoryPane::tr("saved"); }
};

} // namespace

VxHistoryPane::VxHistoryPane()
    : VxPane(tr("Undo History"))
    , m_model(new HistoryModel(vxApp->getUndoStack(), this))
    , m_view(new QListView(this))
{
    m_view->setObjectName(QStringLiteral("HistoryLView"));
    m_view->setAccessibleName(tr("Undo History"));
    m_view->setModel(m_model);
    m_view->setItemDelegate(new StateDelegate(m_view));
    m_view->setUniformItemSizes(true);
    m_view->setFrameShape(QFrame::NoFrame);
    m_view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_view->setTextElideMode(Qt::ElideRight);
    setFocusProxy(m_view);
    connect(m_view->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &VxHistoryPane::restoreState);
    connect(m_model, &HistoryModel::presentChanged, this, &VxHistoryPane::showPresent);
    showPresent();

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_view);
}

void VxHistoryPane::restoreState(const QModelIndex &state)
{
    if (m_isShowing || !state.isValid())
        return;
    vxApp->getUndoStack()->setIndex(state.row());
    // The history does not change during a gesture.
    if (m_model->presentRow() != state.row())
        QMetaObject::invokeMethod(this, &VxHistoryPane::showPresent, Qt::QueuedConnection);
}

void VxHistoryPane::showPresent()
{
    const QScopedValueRollback<bool> showing(m_isShowing, true);
    const QModelIndex present = m_model->index(m_model->presentRow());
    m_view->setCurrentIndex(present);
    m_view->scrollTo(present);
}
