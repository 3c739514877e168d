#ifndef TIMEPANEKEYSELECTION_H
#define TIMEPANEKEYSELECTION_H

#include <QtCore/QObject>
#include <vxcore/vxkeyselection.h>

class TimePaneViews;
class VxDopeSheetModel;

/// Publishes the selected keys of dope sheet and key graph as the application's selection of keys.
///
/// The selection is stored in the rows and channels; this only reads and writes it, by key holder.
/// Registered from construction to destruction.
class TimePaneKeySelection : public QObject, public VxKeySelectionSource
{
    Q_OBJECT
public:
    /// views: borrowed.
    explicit TimePaneKeySelection(const TimePaneViews &views);
    ~TimePaneKeySelection() override;

    /// The rows are rebuilt; call it before the first one exists.
    void setModel(const VxDopeSheetModel *model);

    VxKeySelectionEntries entries() const override;
    std::vector<VxKeySpan> spansOf(VxProperty *holder) const override;
    void set(const VxKeySelectionEntries &entries, bool clearsOthers) override;
    const std::vector<VxCopiedKeys> &copiedKeys() const override;

private:
    const TimePaneViews &m_views;
};

#endif
