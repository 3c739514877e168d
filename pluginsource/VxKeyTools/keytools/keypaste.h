#ifndef KEYPASTE_H
#define KEYPASTE_H

#include "keytools/keytoolrun.h"

#include <QtCore/QSet>
#include <vxcore/vxcopiedkeys.h>

class VxNode;
class VxNumericProperty;

/// Sets copied keys on properties, at other times.
class KeyPaste
{
public:
    enum Mode {
        Merge,   ///< other keys stay; one at the time of a pasted key is replaced
        Replace, ///< keys between the first and the last time of the whole clipboard are deleted
        Ripple   ///< keys from the start on move later by the length of the clipboard and a step
    };

    /// The earliest copied key gets the time `at`; earlier where keys would have no time.
    KeyPaste(const std::vector<VxCopiedKeys> &copied, VxTime at, VxTime step, Mode mode);

    /// The node's property with a name, or that of its object; null for none.
    static VxProperty *findProperty(const VxNode *node, const QString &name);

    /// Pastes into the key holder of a property; a holder that has keys pasted already is left out.
    /// Counts a property that refuses keys.
    void paste(const VxCopiedKeys &keys, VxProperty *property);

    /// The time of the earliest key.
    VxTime start() const { return m_span.getStart(); }

    int keys() const { return m_keys; } ///< pasted ones
    int channels() const { return int(m_entries.size()); }
    int skipped() const { return m_skipped; } ///< locked, linked or without room
    const VxKeySelectionEntries &entries() const { return m_entries; } ///< the pasted keys

private:
    bool makeRoom(VxNumericProperty *property) const;
    bool write(const VxCopiedKeys &keys, VxNumericProperty *property);

    Mode m_mode;
    VxTimeRange m_span; ///< of all keys at their new times
    qint64 m_offset = 0;
    VxTime m_step;
    int m_keys = 0;
    int m_skipped = 0;
    VxKeySelectionEntries m_entries;
    QSet<const VxProperty *> m_holders;
};

#endif
