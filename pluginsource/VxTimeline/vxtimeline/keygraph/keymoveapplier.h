#ifndef KEYMOVEAPPLIER_H
#define KEYMOVEAPPLIER_H

#include <QtCore/QVector>

#include "vxtimeline/keygraph/keydragplan.h"
#include "vxtimeline/keygraph/keygraphkeys.h"

class VxFloatProperty;

// Moves many keys of a float property to new times and values in one pass over its arrays, with the
// result that moving them one after the other has.
//
// Keys that only change their value are set in place. Otherwise the span from the first to the last
// key that comes or goes is written anew, merged from the moved keys and those that stay.
class KeyMoveApplier
{
public:
    // displayScale: the display units of a move's value in the property's unit.
    KeyMoveApplier(VxFloatProperty *property, double displayScale);

    // Single precision; not finite when it does not fit.
    static float narrowed(double value);

    // moves: as for KeyDragPlan::placeKeys(). A move whose value is no number that the property
    // can hold is left out. records: one a key. False when nothing was to be done or the property
    // refused; it is unchanged then.
    bool apply(QVector<KeyDragPlan::Move> moves, const QVector<VxKeyGraphKey> &records);
    // The records in the keys' new order, after apply() returned true.
    QVector<VxKeyGraphKey> takeRecords() { return std::move(m_records); }

private:
    using Moves = QVector<KeyDragPlan::Move>;

    void toStoredValues(Moves &moves) const;
    bool setValues(const Moves &moves, const QVector<VxKeyGraphKey> &records);
    bool replaceSpan(const Moves &moves, const QVector<VxKeyGraphKey> &records);

    VxFloatProperty *m_property;
    double m_displayScale;
    QVector<VxKeyGraphKey> m_records;
};

#endif
