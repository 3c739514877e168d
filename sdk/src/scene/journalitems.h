#ifndef JOURNALITEMS_H
#define JOURNALITEMS_H

#include <QtCore/QtGlobal>
#include <vxcore/vxjournalreader.h>

/// The kinds of items in a record of the journal, each followed by what it changed.
enum class JournalItem : quint8 {
    Keys = 1,      ///< property, value type, span of time, keys before, keys after
    StoredValue,   ///< property, value type, value before, value after
    PropertyValue, ///< VxPropertyUndoKind, property, value before, value after
    NodeValue,     ///< VxSceneUndoKind, node, value before, value after
    SceneValue,    ///< VxSceneUndoKind, value before, value after
    NodePlace,     ///< identifier, place before, place after, contents of an added or removed node
    Markers        ///< markers before, markers after: changed ones and those of the same spans
};

/// The types of values in items of keys and of stored values.
enum class JournalNumber : quint8 { Float = 1, Int };

/// The reading side of the undo items' write().
namespace JournalItems {

/// Applies the item at the reader's offset. False when it is damaged or does not fit the scene.
bool apply(VxJournalReader &reader, VxJournalReader::Direction direction);

} // namespace JournalItems

#endif
