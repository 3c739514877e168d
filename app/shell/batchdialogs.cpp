#include "shell/batchdialogs.h"

#include "widgets/usermessages.h"

#include <QApplication>
#include <QEvent>
#include <QInputDialog>
#include <QMenu>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTimer>

namespace {

QString textOf(const QDialog *dialog)
{
    if (const auto *box = qobject_cast<const QMessageBox *>(dialog)) {
        const QString details = box->informativeText();
        return details.isEmpty() ? box->text() : box->text() + QLatin1Char(' ') + details;
    }
    if (const auto *input = qobject_cast<const QInputDialog *>(dialog))
        return input->labelText();
    return dialog->windowTitle();
}

QAbstractButton *cancellingButton(QMessageBox *box)
{
    for (const auto kind : {QMessageBox::Cancel, QMessageBox::No, QMessageBox::Abort}) {
        if (QAbstractButton *button = box->button(kind))
            return button;
    }
    const QList<QAbstractButton *> buttons = box->buttons();
    return box->escapeButton() || buttons.size() != 1 ? box->escapeButton() : buttons.first();
}

} // namespace

BatchDialogs::BatchDialogs(QObject *parent)
    : QObject(parent)
{
    qApp->installEventFilter(this);
}

bool BatchDialogs::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::Show)
        return QObject::eventFilter(watched, event);
    // The dialog's own event loop begins after this event.
    if (auto *dialog = qobject_cast<QDialog *>(watched)) {
        if (dialog->isModal()) {
            UserMessages::printError(
                tr("vxstudio: cancelled, no user to answer: %1").arg(textOf(dialog)));
            QTimer::singleShot(0, dialog, [dialog] { answer(dialog); });
        }
    } else if (auto *menu = qobject_cast<QMenu *>(watched)) {
        QTimer::singleShot(0, menu, &QWidget::close);
    }
    return QObject::eventFilter(watched, event);
}

void BatchDialogs::answer(QDialog *dialog)
{
    auto *box = qobject_cast<QMessageBox *>(dialog);
    QAbstractButton *button = box ? cancellingButton(box) : nullptr;
    if (button)
        button->click();
    else
        dialog->reject();
}
