#ifndef DIALOGANSWERS_H
#define DIALOGANSWERS_H

#include <QApplication>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <QtTest>
#include <functional>

// Answers to modal dialogs: each waits for its dialog, while the code under test runs it, and
// answers by buttons and typing. The platform's own file dialogs must be turned off.

/// Answers the next modal dialog of a class: the given function is called until it returns true.
template <class Dialog> class DialogAnswer
{
public:
    explicit DialogAnswer(const std::function<bool(Dialog *)> &answer)
    {
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this, answer] {
            auto *dialog = qobject_cast<Dialog *>(QApplication::activeModalWidget());
            // Whatever the dialog does then may turn the event loop.
            m_timer.stop();
            if (!dialog || !answer(dialog))
                m_timer.start(5);
            else
                m_met = true;
        });
        m_timer.start(5);
    }

    bool met() const { return m_met; }

private:
    QTimer m_timer;
    bool m_met = false;
};

inline std::function<bool(QMessageBox *)> pressButton(QMessageBox::StandardButton button)
{
    return [button](QMessageBox *box) {
        box->button(button)->click();
        return true;
    };
}

/// Types a file's name into the dialog, in the file's folder, and presses its button once that is
/// enabled. The path is not typed: the dialog would list and watch each folder on the way.
inline std::function<bool(QFileDialog *)> typeName(const QString &path)
{
    return [file = QFileInfo(path)](QFileDialog *dialog) {
        auto *field = dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
        if (file.isAbsolute() && dialog->directory() != file.dir())
            dialog->setDirectory(file.path());
        if (field->text() != file.fileName()) {
            field->setFocus();
            if (!field->hasFocus())
                return false; // without it what is typed does not clear the selection in the list
            field->selectAll();
            QTest::keyClicks(field, file.fileName());
        }
        auto *box = dialog->findChild<QDialogButtonBox *>();
        const bool saves = dialog->acceptMode() == QFileDialog::AcceptSave;
        QPushButton *button = box->button(saves ? QDialogButtonBox::Save : QDialogButtonBox::Open);
        if (!button->isEnabled())
            return false; // the folder is still being listed
        button->click();
        return true;
    };
}

/// Presses a button that has a name of its own.
template <class Dialog> std::function<bool(Dialog *)> pressNamed(const char *name)
{
    return [name](Dialog *dialog) {
        auto *button = dialog->template findChild<QPushButton *>(QLatin1String(name));
        if (!button)
            return false;
        button->click();
        return true;
    };
}

/// Presses a button and keeps what the box said; the text must outlive the answer.
inline std::function<bool(QMessageBox *)> readAndPress(QString *text,
                                                       QMessageBox::StandardButton button)
{
    return [text, button](QMessageBox *box) {
        *text = box->text();
        box->button(button)->click();
        return true;
    };
}

/// Closes the dialog as the escape key does.
template <class Dialog> std::function<bool(Dialog *)> escape()
{
    return [](Dialog *dialog) {
        dialog->reject();
        return true;
    };
}

#endif
