#ifndef TEXTFIT_H
#define TEXTFIT_H

#include <QAbstractItemView>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QStyleOption>
#include <QStyleOptionComboBox>
#include <QTabBar>
#include <QTextDocument>
#include <QToolButton>
#include <vxcore/vxstyledbutton.h>

/// Texts that are cut off: wider or higher than what shows them, unless it elides them with dots.
class TextFit
{
public:
    /// The faults of all visible widgets below one, each with widget, text and sizes.
    static QStringList faults(const QWidget *root)
    {
        TextFit fit;
        fit.check(root);
        for (const QWidget *widget : root->findChildren<QWidget *>())
            fit.check(widget);
        return fit.m_faults;
    }

    /// Adds a widget's name to its fault, for messages.
    static QString nameOf(const QWidget *widget)
    {
        if (qobject_cast<const QAbstractSpinBox *>(widget->parentWidget()))
            return nameOf(widget->parentWidget());
        QString name;
        for (const QWidget *each = widget; each; each = each->parentWidget()) {
            if (!each->objectName().isEmpty()) {
                name = each->objectName() + (each == widget ? QString() : QStringLiteral("/"));
                break;
            }
        }
        return name + QStringLiteral("(%1)").arg(QLatin1String(widget->metaObject()->className()));
    }

private:
    void check(const QWidget *widget)
    {
        if (!widget->isVisible() || isScrolledAway(widget))
            return;
        checkFont(widget);
        if (const auto *label = qobject_cast<const QLabel *>(widget))
            checkLabel(label);
        else if (const auto *styled = qobject_cast<const VxStyledButton *>(widget))
            checkStyled(styled);
        else if (const auto *button = qobject_cast<const QAbstractButton *>(widget))
            checkButton(button);
        else if (const auto *tabs = qobject_cast<const QTabBar *>(widget))
            checkTabs(tabs);
        else if (const auto *header = qobject_cast<const QHeaderView *>(widget))
            checkHeader(header);
        else if (const auto *view = qobject_cast<const QAbstractItemView *>(widget))
            checkRows(view);
        else if (const auto *combo = qobject_cast<const QComboBox *>(widget))
            checkCombo(combo);
        else if (const auto *edit = qobject_cast<const QLineEdit *>(widget))
            checkEdit(edit);
        else if (const auto *menu = qobject_cast<const QMenuBar *>(widget))
            checkMenuBar(menu);
        else if (const auto *group = qobject_cast<const QGroupBox *>(widget))
            need(group, group->title(), group->minimumSizeHint(), group->size());
    }

    /// Of the size of all others: fonts set once do not follow a change.
    void checkFont(const QWidget *widget)
    {
        const double size = QFontInfo(QApplication::font()).pointSizeF();
        if (QFontInfo(widget->font()).pointSizeF() < 0.7 * size)
            m_faults += QStringLiteral("%1: font of %2 points")
                            .arg(nameOf(widget))
                            .arg(widget->font().pointSizeF());
    }

    /// In a covered tab, or in a part that must be scrolled to.
    static bool isScrolledAway(const QWidget *widget)
    {
        QRect rest = widget->rect();
        const QWidget *each = widget;
        for (; each->parentWidget() && !each->isWindow(); each = each->parentWidget())
            rest = rest.translated(each->pos()) & each->parentWidget()->rect();
        return rest.isEmpty();
    }

    void need(const QWidget *widget, const QString &text, const QSize &needed, const QSize &given)
    {
        if (needed.width() > given.width() || needed.height() > given.height())
            m_faults += QStringLiteral("%1 \"%2\": %3x%4 in %5x%6")
                            .arg(nameOf(widget), text)
                            .arg(needed.width())
                            .arg(needed.height())
                            .arg(given.width())
                            .arg(given.height());
    }

    static QSize textSize(const QWidget *widget, const QString &text)
    {
        return widget->fontMetrics().size(Qt::TextShowMnemonic, text);
    }

    void checkLabel(const QLabel *label)
    {
        if (label->text().isEmpty())
            return;
        const QSize given = label->contentsRect().size();
        if (label->wordWrap())
            need(label, label->text(), {0, label->heightForWidth(label->width())}, label->size());
        else if (Qt::mightBeRichText(label->text()) && label->textFormat() != Qt::PlainText)
            need(label, label->text(), label->minimumSizeHint(), label->size());
        else
            need(label, label->text(), textSize(label, label->text()), given);
    }

    void checkStyled(const VxStyledButton *button)
    {
        const int width =
            button->elideMode() == Qt::ElideNone ? button->minimumSizeHint().width() : 0;
        need(button, button->text(), {width, textSize(button, button->text()).height()},
             button->size());
    }

    void checkButton(const QAbstractButton *button)
    {
        const auto *tool = qobject_cast<const QToolButton *>(button);
        const bool isIcon =
            button->text().isEmpty() ||
            (tool && tool->toolButtonStyle() == Qt::ToolButtonIconOnly && !tool->icon().isNull());
        if (!isIcon)
            need(button, button->text(), textSize(button, button->text()), button->size());
        const bool isPlain = qobject_cast<const QPushButton *>(button) ||
                             qobject_cast<const QCheckBox *>(button) ||
                             qobject_cast<const QRadioButton *>(button) || tool;
        if (isPlain && !isIcon)
            need(button, button->text(), button->minimumSizeHint(), button->size());
    }

    void checkTabs(const QTabBar *tabs)
    {
        for (int i = 0; i < tabs->count(); ++i) {
            const QSize text = textSize(tabs, tabs->tabText(i));
            const bool elides = tabs->elideMode() != Qt::ElideNone;
            // A tab whose text is elided to nothing but dots is none.
            const int width =
                elides ? qMin(text.width(), textSize(tabs, QStringLiteral("Mm…")).width())
                       : text.width();
            need(tabs, tabs->tabText(i), {width, text.height()}, tabs->tabRect(i).size());
        }
    }

    void checkHeader(const QHeaderView *header)
    {
        if (!header->model())
            return;
        for (int i = 0; i < header->count(); ++i) {
            if (header->isSectionHidden(i) || header->sectionSize(i) == 0)
                continue;
            const QString text =
                header->model()->headerData(i, header->orientation(), Qt::DisplayRole).toString();
            const int margin = 2 * header->style()->pixelMetric(QStyle::PM_HeaderMargin);
            const QSize needed = textSize(header, text) + QSize(text.isEmpty() ? 0 : margin, 0);
            const bool across = header->orientation() == Qt::Horizontal;
            const QSize given(across ? header->sectionSize(i) : header->width(),
                              across ? header->height() : header->sectionSize(i));
            const bool elides = header->textElideMode() != Qt::ElideNone;
            need(header, text, {elides ? 0 : needed.width(), needed.height()}, given);
        }
    }

    /// The first rows represent all.
    void checkRows(const QAbstractItemView *view)
    {
        for (int row = 0; view->model() && row < qMin(5, view->model()->rowCount()); ++row) {
            const QModelIndex index = view->model()->index(row, 0);
            const QString text = index.data().toString();
            const QRect place = view->visualRect(index);
            if (!text.isEmpty() && place.isValid())
                need(view, text, {0, view->fontMetrics().height()}, place.size());
        }
    }

    void checkCombo(const QComboBox *combo)
    {
        QStyleOptionComboBox option;
        option.initFrom(combo);
        option.rect = combo->rect();
        option.editable = combo->isEditable();
        const QRect field = combo->style()->subControlRect(QStyle::CC_ComboBox, &option,
                                                           QStyle::SC_ComboBoxEditField, combo);
        need(combo, combo->currentText(), textSize(combo, combo->currentText()), field.size());
    }

    void checkEdit(const QLineEdit *edit)
    {
        const int frame = edit->hasFrame() ? 2 : 0;
        const QSize given = edit->size() - QSize(frame, frame);
        need(edit, edit->text(), {0, edit->fontMetrics().height()}, given);
        // What is typed may be longer than the field; what a spin box shows is its whole value.
        if (const auto *box = qobject_cast<const QAbstractSpinBox *>(edit->parentWidget()))
            need(box, box->text(), {textSize(box, box->text()).width(), 0}, given);
    }

    void checkMenuBar(const QMenuBar *bar)
    {
        for (QAction *action : bar->actions()) {
            if (action->isVisible() && !action->text().isEmpty())
                need(bar, action->text(), textSize(bar, action->text()),
                     bar->actionGeometry(action).size());
        }
    }

    QStringList m_faults;
};

#endif
