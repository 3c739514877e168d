#ifndef VXPANEACTION_H
#define VXPANEACTION_H

#include <vxcore/vxaction.h>

/// The action that opens a pane: creates it when it does not exist, shows it and brings it to the
/// front.
class VXCORE_EXPORT VxPaneAction : public VxAction
{
    Q_OBJECT
public:
    /// paneClassName: the pane's class, such as "VxTimePane". The text is the title of that pane,
    /// or the class name while no such pane exists.
    explicit VxPaneAction(const QString &paneClassName);
    ~VxPaneAction() override;

    QString getPaneClassName() const;
    void init() override;
    /// "Window/Panes".
    QString getDefaultMenuPath() const override;
    /// "Panes".
    QString getActionGroup() const override;

protected:
    void executeAction() override;

private:
    class Private;
    std::unique_ptr<Private> d;
};

#endif
