#ifndef VXBUTTONBAR_H
#define VXBUTTONBAR_H

#include <QtWidgets/QWidget>
#include <memory>
#include <vxcore/vxcoreglobal.h>

/// A strip of buttons inside one frame. Items are identified by the index they were added with and
/// laid out in the order of their indices whatever the order of adding; indices need not be dense.
/// Hidden items keep their index and take no space. The strip is as wide as its items and never
/// stretches. Items are owned by the bar as child widgets; one that is deleted or reparented is
/// removed from the bar and frees its index.
class VXCORE_EXPORT VxButtonBar : public QWidget
{
    Q_OBJECT

public:
    enum SeparatorType {
        SmallSeparator, ///< a short line
        LineSeparator,  ///< a line over the whole height
        SpaceSeparator  // a gap without a line
    };
    Q_ENUM(SeparatorType)

    explicit VxButtonBar(QWidget *parent = nullptr);
    ~VxButtonBar() override;

    /// Adds a widget, which becomes a child of the bar. An index in use, a widget already in the
    /// bar and null are refused with a warning, and nothing changes.
    void addWidget(QWidget *widget, int index);
    /// Adds a separator; an index in use is refused with a warning.
    void addSeparator(SeparatorType type, int index);

    /// Show or hide the item of that index; an index without an item is ignored.
    void showItem(int index);
    void hideItem(int index);

    /// The widget of that index, for a separator the one that draws it; null without an item.
    QWidget *widget(int index) const;

protected:
    void childEvent(QChildEvent *event) override;
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    class Private;
    std::unique_ptr<Private> d;
};

#endif
