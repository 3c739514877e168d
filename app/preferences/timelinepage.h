#ifndef TIMELINEPAGE_H
#define TIMELINEPAGE_H

#include "preferences/preferencespage.h"

#include <QVector>

class QComboBox;
class QAbstractButton;
class QFormLayout;
class VxAction;
class VxActionMgr;

/// The options of the timeline pane, through the actions that set them: the program has no other
/// access to the pane.
class TimelinePage : public PreferencesPage
{
    Q_OBJECT
public:
    explicit TimelinePage(const VxActionMgr &actions, QWidget *parent = nullptr);

    QString title() const override { return tr("Timeline"); }
    bool isChanged() const override;
    void apply() override;

private:
    using Names = std::initializer_list<const char *>;

    void addChoice(QFormLayout *layout, const QString &label, const char *name, Names classNames);
    QWidget *makeFlags(const char *name, Names classNames);
    void showState();
    QVector<VxAction *> actionsOf(Names classNames) const;

    struct Choice
    {
        QComboBox *box;
        QVector<VxAction *> actions; // one of which is checked
    };
    struct Flag
    {
        QAbstractButton *box;
        VxAction *action;
    };

    const VxActionMgr &m_actions;
    QVector<Choice> m_choices;
    QVector<Flag> m_flags;
};

#endif
