#ifndef VXPANE_H
#define VXPANE_H

#include <QtWidgets/QWidget>
#include <memory>
#include <vxcore/vxcoreglobal.h>
#include <vxcore/vxsignalguard.h>

class VxActionMenu;
class VxSettings;

/// Base of every pane: a widget with a title that the main window docks.
///
/// The pane's background is drawn by the style in up to three bands. A guide widget at the top or
/// at the bottom marks the end of the header or footer band, so that a strip of controls beyond
/// it gets the look of a header or footer.
class VXCORE_EXPORT VxPane : public VxSignalGuard<QWidget>
{
    Q_OBJECT
    Q_PROPERTY(QString title READ getTitle)
public:
    explicit VxPane(const QString &title, QWidget *parent = nullptr);
    ~VxPane() override;

    /// The text of the pane's tab or title bar.
    QString getTitle() const;

    /// The widget whose upper edge the header band reaches; null for no header band. Not owned.
    void setBackgroundHeaderGuide(QWidget *guide);
    QWidget *getBackgroundHeaderGuide() const;
    /// The widget at whose lower edge the footer band begins; null for no footer band. Not owned.
    void setBackgroundFooterGuide(QWidget *guide);
    QWidget *getBackgroundFooterGuide() const;

    /// Reads the pane's options from its part of the application's settings. Called once by the
    /// pane manager after creation. The base does nothing.
    virtual void restoreSettings(VxSettings *settings);
    /// Writes them back; called when the application saves its settings. The base does nothing.
    virtual void saveSettings(VxSettings *settings) const;

    /// Fills the pane's options menu. Called at the first access to the menu, and again on an
    /// emptied menu at each access or showing with another version. The base does nothing.
    virtual void buildOptionsMenu(VxActionMenu *menu);
    /// A number to increase in each release whose buildOptionsMenu() builds another menu.
    virtual int getOptionsMenuVersion() const;

    /// Reloads those fields that show the scene's time. The base does nothing.
    virtual void updateTimeFields();

    /// The options menu, built on demand; owned by the pane.
    VxActionMenu *getOptionsMenu();

    /// Follows the guides. An override must call it.
    bool eventFilter(QObject *watched, QEvent *event) override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void updateOptionsMenu();
    void watchGuides(QWidget *former, QWidget *present);

    class Private;
    std::unique_ptr<Private> d;
};

#endif
