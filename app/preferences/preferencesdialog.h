#ifndef PREFERENCESDIALOG_H
#define PREFERENCESDIALOG_H

#include <QDialog>
#include <QVector>

class PreferencesPage;
class QDialogButtonBox;
class QListWidget;
class QStackedWidget;

/// The pages of preferences, with a list to choose one. Changes are made by Apply and OK, on all
/// pages; Cancel drops those that were not applied.
class PreferencesDialog : public QDialog
{
    Q_OBJECT
public:
    /// Takes ownership of the pages, of which there is at least one. The first is the current one.
    explicit PreferencesDialog(const QVector<PreferencesPage *> &pages, QWidget *parent = nullptr);
    ~PreferencesDialog() override;

    /// Shows the page with an object name, and gives it the focus. Nothing for an unknown name.
    void showPage(const QString &name);

    void accept() override;

Q_SIGNALS:
    /// Changes were applied: the settings should be saved.
    void applied();

private:
    void addPage(PreferencesPage *page);
    void buildButtons();
    void apply();
    void showState();
    bool hasChanges() const;

    QListWidget *m_list;
    QStackedWidget *m_stack;
    QDialogButtonBox *m_buttons = nullptr;
    const QVector<PreferencesPage *> m_pages;
};

#endif
