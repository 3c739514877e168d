#ifndef VXPANEMGR_H
#define VXPANEMGR_H

#include <QtCore/QObject>
#include <QtCore/QVector>
#include <memory>
#include <vxcore/vxcoreglobal.h>

class VxPane;
class VxPluginMgr;
class VxSettings;

/// Creates panes from the factories, one a class, and finds them by class name.
///
/// The manager makes a pane and announces it for docking (paneAdded); the widget that docks it owns
/// it from then on, and a destroyed pane is removed from the list. Panes that were not docked are
/// destroyed with the manager.
class VXCORE_EXPORT VxPaneMgr : public QObject
{
    Q_OBJECT
public:
    explicit VxPaneMgr(QObject *parent = nullptr);
    ~VxPaneMgr() override;

    /// Creates every pane class of the factories that has no instance yet, in order. They
    /// are announced (paneAdded) when all of them exist.
    void createPanes(const VxPluginMgr *plugins);
    /// The pane of a class, created when it does not exist, by the factories given to
    /// createPanes(), else by those of the application. Null without a factory.
    VxPane *findOrCreatePane(const QString &className);

    /// Adds a pane that was made elsewhere: names it after its class unless it has an object
    /// name, restores its settings and emits paneAdded(). False when its class has one.
    bool addPane(VxPane *pane);

    /// Destroys every remaining pane, last one first.
    void destroyPanes();

    QVector<VxPane *> getPanes() const;

    /// Settings below which each pane has a group under its class name; borrowed, may be null.
    /// Set before panes are created: each new pane restores from its group.
    void setSettings(VxSettings *settings);
    /// Lets every pane write to its group, which is cleared before. Groups of panes that do not
    /// exist stay.
    void saveSettings() const;

public Q_SLOTS:
    /// The pane of a class such as "VxTimePane", or null when none was created.
    VxPane *findPane(const QString &className) const;
    /// Asks the main window to show a pane and bring it to the front.
    void showPane(VxPane *pane);

Q_SIGNALS:
    void paneAdded(VxPane *pane);
    /// Once after the paneAdded() of all panes that were created together.
    void panesAdded();
    void paneRemoved(const QString &className);
    void showRequested(VxPane *pane);

private:
    VxPane *makePane(const QString &className);
    void enterPane(VxPane *pane);
    void removeDestroyed(const VxPane *pane);

    class Private;
    std::unique_ptr<Private> d;
};

#endif
