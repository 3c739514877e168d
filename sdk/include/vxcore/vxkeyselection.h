#ifndef VXKEYSELECTION_H
#define VXKEYSELECTION_H

#include <QtCore/QObject>
#include <QtCore/QVariant>
#include <memory>
#include <vector>
#include <vxcore/vxcopiedkeys.h>
#include <vxcore/vxcoreglobal.h>
#include <vxcore/vxkeyspan.h>

class VxProperty;

/// The selected keys of one property.
struct VxKeySelectionEntry
{
    /// The property that holds the keys (VxProperty::getKeyHolder()), never an alias.
    VxProperty *holder = nullptr;
    /// Indexes of the selected keys: ascending, not empty, with a gap between any two.
    std::vector<VxKeySpan> spans;
    /// The holder's key revision that the indexes belong to. set() ignores an entry whose holder
    /// has another one by then; 0: the indexes are those of the present keys.
    quint64 revision = 0;
};
using VxKeySelectionEntries = std::vector<VxKeySelectionEntry>;

/// Storage of selected keys: the panes that show keys. Registered with VxKeySelection.
class VXCORE_EXPORT VxKeySelectionSource
{
public:
    virtual ~VxKeySelectionSource();

    /// The selection, one entry a key holder; a key counts that is selected in any view.
    virtual VxKeySelectionEntries entries() const = 0;
    /// The selected keys of one key holder.
    virtual std::vector<VxKeySpan> spansOf(VxProperty *holder) const = 0;
    /// Selects exactly these keys of the entries' holders, in every view that shows them; the keys
    /// of others are deselected when `clearsOthers` is true, else unchanged.
    virtual void set(const VxKeySelectionEntries &entries, bool clearsOthers) = 0;
    /// The clipboard of keys, in the order of the rows; empty unless overridden. Valid until the
    /// next copy.
    virtual const std::vector<VxCopiedKeys> &copiedKeys() const;
};

/// The selected keys of the application, one selection across all panes; see
/// VxApp::getKeySelection(), `App.keySelection` in scripts.
///
/// A facade for the panes' selections without own state. Without a pane that shows keys nothing is
/// selected, and nothing can be.
class VXCORE_EXPORT VxKeySelection : public QObject
{
    Q_OBJECT
public:
    explicit VxKeySelection(QObject *parent = nullptr);
    ~VxKeySelection() override;

    /// The application's; null while there is none.
    static VxKeySelection *current();

    /// Adds and removes a source. Not owned; the one added last is used.
    void addSource(VxKeySelectionSource *source);
    void removeSource(VxKeySelectionSource *source);
    /// The source calls it after each change of the selection; cheap.
    void notifyChanged();

    /// One entry a key holder in which a key is selected, in the order of the views.
    VxKeySelectionEntries entries() const;
    /// The selected keys of one key holder.
    std::vector<VxKeySpan> spansOf(VxProperty *holder) const;
    /// The copied keys of the views, in the order of the rows. Valid until the next copy.
    const std::vector<VxCopiedKeys> &copiedKeys() const;
    /// Selects these keys and no others, also those of rows that are closed or filtered out.
    void set(const VxKeySelectionEntries &entries);
    /// Selects exactly these keys of the entries' holders and leaves the keys of others unchanged;
    /// an entry without spans deselects its holder's keys.
    void setForHolders(const VxKeySelectionEntries &entries);
    /// Deselects every key.
    Q_INVOKABLE void clear();

Q_SIGNALS:
    /// The selection or a selected key changed. Sent once for all changes of a VxChangeBlock,
    /// or else of an event loop iteration; at once after set() and clear().
    void changed();

private:
    class Private;
    std::unique_ptr<Private> d;
};

#endif
