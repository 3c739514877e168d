#ifndef GENERALPAGE_H
#define GENERALPAGE_H

#include "preferences/preferencespage.h"

class Animations;
class AutoSave;
class DocumentController;
class QComboBox;
class QFormLayout;
class QSpinBox;
class RecoveryJournal;
class VxSettings;
class VxStyle;

/// Language, look, and what is kept of documents.
class GeneralPage : public PreferencesPage
{
    Q_OBJECT
public:
    /// What the page shows and changes. All are borrowed and must outlive the page.
    struct Targets
    {
        VxSettings *settings; ///< has the language
        VxStyle *style;
        Animations *animations;
        DocumentController *document;
        AutoSave *autoSave;
        RecoveryJournal *journal;
    };

    explicit GeneralPage(const Targets &targets, QWidget *parent = nullptr);

    QString title() const override { return tr("General"); }
    bool isChanged() const override;
    void apply() override;

private:
    void addLanguage(QFormLayout *layout);
    void addLook(QFormLayout *layout);
    void addDocuments(QFormLayout *layout);
    QComboBox *addBox(QFormLayout *layout, const QString &label, const char *name,
                      const QStringList &items, int current);
    QSpinBox *addNumber(QFormLayout *layout, const QString &label, const char *name, int least,
                        int most, int value);
    int textSize() const;

    const Targets m_targets;
    QComboBox *m_language = nullptr;
    QComboBox *m_palette = nullptr;
    QSpinBox *m_textSize = nullptr;
    QComboBox *m_curveColors = nullptr;
    QComboBox *m_animation = nullptr;
    QSpinBox *m_backups = nullptr;
    QSpinBox *m_minutes = nullptr;
    QSpinBox *m_entries = nullptr;
};

#endif
