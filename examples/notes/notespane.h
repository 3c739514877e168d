#ifndef NOTESPANE_H
#define NOTESPANE_H

#include <vxcore/vxpane.h>

class QPlainTextEdit;

/// A pane with a text that is stored in the settings: the smallest pane with settings and slots for
/// scripts.
class NotesPane : public VxPane
{
    Q_OBJECT
public:
    NotesPane();

    void restoreSettings(VxSettings *settings) override;
    void saveSettings(VxSettings *settings) const override;

public Q_SLOTS:
    /// Appends a line.
    void addNote(const QString &text);
    QString getText() const;

private:
    QPlainTextEdit *m_text;
};

#endif
