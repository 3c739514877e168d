#ifndef BOXANSWER_H
#define BOXANSWER_H

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

/// Answers the next message box and keeps what it said.
class BoxAnswer
{
public:
    explicit BoxAnswer(QMessageBox::StandardButton button)
    {
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this, button] {
            auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
            if (!box)
                return;
            m_timer.stop();
            m_text = box->text();
            box->button(button)->click();
        });
        m_timer.start(5);
    }
    QString text() const { return m_text; }

private:
    QTimer m_timer;
    QString m_text;
};

#endif
