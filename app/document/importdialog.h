#ifndef IMPORTDIALOG_H
#define IMPORTDIALOG_H

#include "io/formats/vxmotionimport.h"

#include <QDialog>

class QCheckBox;
class QComboBox;
class QLabel;
class QPlainTextEdit;

/// Shows the contents of a motion file and the import options. The numbers follow every choice at
/// once; choosing another animation reads the file again.
class ImportDialog : public QDialog
{
    Q_OBJECT
public:
    /// The import has loaded the file; it must outlive the dialog.
    ImportDialog(VxMotionImport *import, const QString &fileName, QWidget *parent);

    VxImportChoices choices() const;

    /// For DocumentController::importMotion(): shows the dialog over a window.
    static bool ask(QWidget *parent, VxMotionImport *import, const QString &fileName,
                    VxImportChoices *choices);

private:
    QWidget *makeChoices();
    QWidget *makeAnimations();
    QCheckBox *addChoice(const char *name, const QString &text, bool isOffered, QWidget *group);
    void readAnimation();
    void showReport();
    void updateStartsAtZero();
    void showNumbers();

    VxMotionImport *const m_import;
    const QString m_fileName;
    QComboBox *m_animation = nullptr;
    QCheckBox *m_startsAtZero = nullptr;
    QCheckBox *m_snapsToFrames = nullptr;
    QCheckBox *m_matchesRate = nullptr;
    QCheckBox *m_rotationsOnly = nullptr;
    QPlainTextEdit *m_report = nullptr;
    QLabel *m_numbers = nullptr;
    QWidget *m_accept = nullptr;
};

/// Shows the lines of a report in a window, for reading and copying.
void showImportReport(const VxImportReport &report, QWidget *parent);

#endif
