#ifndef PREFERENCESPAGE_H
#define PREFERENCESPAGE_H

#include <QWidget>

/// A page of the preferences dialog. It shows what is in use, and changes nothing before apply().
class PreferencesPage : public QWidget
{
    Q_OBJECT
public:
    using QWidget::QWidget;

    virtual QString title() const = 0;
    /// Whether the page shows anything that is not in use.
    virtual bool isChanged() const = 0;
    /// Uses what the page shows.
    virtual void apply() = 0;

Q_SIGNALS:
    void edited();
};

#endif
