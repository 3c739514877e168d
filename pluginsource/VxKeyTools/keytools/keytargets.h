#ifndef KEYTARGETS_H
#define KEYTARGETS_H

#include <QtCore/QString>
#include <vector>
#include <vxcore/vxkeyselection.h>
#include <vxcore/vxtimerange.h>

class VxNumericProperty;

/// The target keys of a tool in one property.
struct KeyTarget
{
    VxNumericProperty *property = nullptr; ///< a key holder
    std::vector<VxKeySpan> spans;          ///< ascending, with gaps between them
    /// Keys after the last span are edited too, without being selected.
    bool withLaterKeys = false;

    /// The edited keys as ascending spans, of which the last two may touch.
    std::vector<VxKeySpan> editedSpans() const;
    /// The indexes of all edited keys, ascending.
    std::vector<int> indexes() const;
    int numKeys() const; ///< in the spans
    int numLaterKeys() const;
};

/// The targets of a tool: the selected keys or, without any, the keys of the selected nodes in the
/// play range. Keys of locked properties and of those that an open link replaces are left out.
struct KeyTargets
{
    static KeyTargets current();
    /// As current(), with the keys of properties that refuse changes, too.
    static KeyTargets listed();
    /// True for a key holder whose keys cannot be changed: it is locked or has an open link.
    static bool isReadOnly(const VxNumericProperty &holder);
    /// All keys of the properties in current(), and, if nodes are selected, of their properties
    /// without selected keys too: the candidates of selection tools.
    static KeyTargets candidates();

    /// The keys of the figures of the selected nodes, in the play range: of a skeleton, or else the
    /// topmost node, and everything below it.
    static KeyTargets figures();
    /// All keys of the scene.
    static KeyTargets scene();

    int numKeys() const;
    /// From the first to the last key; from 0 to 0 without keys.
    VxTimeRange range() const;
    friend bool operator==(const KeyTargets &a, const KeyTargets &b);
    bool isEmpty() const { return tracks.empty(); }
    /// Such as "12 selected keys of 3 channels", for the status line.
    QString description() const;

    /// The nodes whose keys are the targets where no keys are selected.
    enum Owner { SelectedNodes, Figures, Scene };

    std::vector<KeyTarget> tracks; ///< each key holder once, none without keys
    bool isSelection = false;
    Owner owner = SelectedNodes;
    int skipped = 0;  ///< properties that refuse changes, left out
    int readOnly = 0; ///< properties that refuse changes, included
};

#endif
