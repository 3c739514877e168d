#ifndef BONEDIALOG_H
#define BONEDIALOG_H

#include "create/boneedits.h"
#include "widgets/previewdialog.h"

#include <QPointer>
#include <array>

class QCheckBox;
class QDoubleSpinBox;
class QFormLayout;

/// Edits the length, the origin and the rest pose of one bone; the viewport shows the result while
/// it is typed. Return keeps it as one undo entry, Escape restores the bone.
class BoneDialog : public PreviewDialog
{
    Q_OBJECT
public:
    explicit BoneDialog(VxNode *node, QWidget *parent = nullptr);

private:
    QDoubleSpinBox *addNumber(const QString &suffix = QString());
    void addTriple(QFormLayout *form, const QString &text, QDoubleSpinBox **boxes,
                   const QString &suffix = QString());
    void showValues();
    void changeLength(double length);
    void applyFields();
    void apply();

    const QPointer<VxNode> m_node;
    BoneValues m_values;
    QDoubleSpinBox *m_length;
    std::array<QDoubleSpinBox *, 3> m_end{};
    std::array<QDoubleSpinBox *, 3> m_origin{};
    std::array<QDoubleSpinBox *, 3> m_restPlace{};
    std::array<QDoubleSpinBox *, 3> m_restAngles{};
    QCheckBox *m_follow;
};

#endif
