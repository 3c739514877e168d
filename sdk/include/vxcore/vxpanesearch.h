#ifndef VXPANESEARCH_H
#define VXPANESEARCH_H

#include <QtCore/QObject>
#include <QtCore/QString>
#include <vxcore/vxcoreglobal.h>

class VxPane;

/// The text that filters a pane's list. A pane that supports searching creates one and follows
/// textChanged(); the window shows a field for it in the frame of the pane while the search is
/// available, and clears it when another document is loaded.
class VXCORE_EXPORT VxPaneSearch : public QObject
{
    Q_OBJECT
public:
    /// Owned by the pane, as a direct child. Available from the start, with an empty text.
    explicit VxPaneSearch(VxPane *pane);

    /// The search of a pane; null when it has none.
    static VxPaneSearch *of(const VxPane *pane);

    /// Empty: no filter.
    QString text() const { return m_text; }
    void setText(const QString &text);

    /// False while the pane shows nothing to filter. The text is kept.
    bool isAvailable() const { return m_isAvailable; }
    void setAvailable(bool onOff);

Q_SIGNALS:
    void textChanged(const QString &text);
    void availableChanged(bool onOff);

private:
    QString m_text;
    bool m_isAvailable = true;
};

#endif
