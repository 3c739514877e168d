#ifndef EXPORTDIALOG_H
#define EXPORTDIALOG_H

#include "io/formats/vxmotionexport.h"

#include <QDialog>
#include <QPointer>
#include <QVector>

class QComboBox;
class VxSkeleton;

/// The options of an export: the whole scene or one figure, the range, and the form of CSV files.
class ExportDialog : public QDialog
{
    Q_OBJECT
public:
    /// The scene must outlive the dialog. Initially the figure of the primary selection is chosen,
    /// else the only one there is.
    ExportDialog(const VxScene &scene, QWidget *parent);

    /// Without the root; see figure().
    VxMotionExportOptions options() const;
    /// False for the whole scene.
    bool isOfFigure() const;
    /// Null for the whole scene, and for a figure that was removed after the dialog was made.
    VxSkeleton *figure() const;

private:
    QComboBox *makeBox(const QString &name, const QStringList &items);

    QVector<QPointer<VxSkeleton>> m_figures; // the scene may change while the dialog is open
    QComboBox *m_what;
    QComboBox *m_range;
    QComboBox *m_rows;
};

#endif
