#ifndef CYCLEDIALOG_H
#define CYCLEDIALOG_H

#include <QDialog>

class QCheckBox;
class QSpinBox;

/// Asks how often the play range is repeated.
class CycleDialog : public QDialog
{
    Q_OBJECT
public:
    explicit CycleDialog(QWidget *parent = nullptr);

    /// The number of cycles, the present one included.
    int count() const;
    /// Whether each cycle starts where the previous one ends.
    bool hasOffset() const;

private:
    QSpinBox *m_count;
    QCheckBox *m_offset;
};

#endif
