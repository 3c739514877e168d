#ifndef VXKEYGRAPHCHANNEL_H
#define VXKEYGRAPHCHANNEL_H

#include "vxtimeline/keygraph/paint/keygraphkeys.h"

#include <QtCore/QStringList>
#include <QtCore/QVector>
#include <QtGui/QColor>
#include <memory>
#include <vector>
#include <vxcore/vxkeyspan.h>
#include <vxcore/vxtime.h>

class VxKeyCommunication;
class VxKeyMessage;
class VxProperty;

/// One curve of the key graph: the view's interface to a property of any kind.
///
/// Values are in display units, times in ticks, keys are counted in ascending order of time. The
/// selection is the graph's own, in a cache of one record a key, which is rebuilt after the keys
/// changed and keeps its records by their time. A channel does not keep its property alive; the
/// graph drops channels before their properties are destroyed.
///
/// The order of the virtual functions is part of the interface: add at the end.
class VxKeyGraphChannel
{
public:
    /// keyBus: the end that sends changes of the selection; not owned, may be null.
    explicit VxKeyGraphChannel(VxKeyCommunication *keyBus);

    /// Another end, when the graph was given a new one.
    void setKeyCommunication(VxKeyCommunication *keyBus);

    virtual VxProperty *getProperty() const = 0;
    virtual QString getLabel() const = 0;
    /// The names of the property, its node and that node's ancestors up to the root.
    virtual QStringList getPath() const = 0;
    /// Invalid for the view's default colour.
    virtual QColor getColor() const = 0;
    virtual double getValue(VxTime time) const = 0;
    virtual void setValue(VxTime time, double value) = 0;
    virtual int getNumKeys() const = 0;
    virtual VxTime getKeyTime(int index) const = 0;
    virtual double getKeyValue(int index) const = 0;
    virtual void setKeyValue(int index, double value) = 0;
    /// Moves a key to a time and value. At the time of another key it gets the tick beside it, on
    /// the side of its former time. Its selection and its drag start are kept.
    virtual void setKey(int index, VxTime time, double value) = 0;
    /// The type (0 Linear, 1 Constant, 2 TCB); each shape argument that is given receives its
    /// value.
    virtual int getKeyInterpolation(int index, float *tension = nullptr,
                                    float *continuity = nullptr, float *bias = nullptr) const;
    virtual double getKeyTension(int index) const;
    virtual double getKeyContinuity(int index) const;
    virtual double getKeyBias(int index) const;
    /// Each of these changes one part of a key's interpolation and keeps the others.
    virtual void setKeyInterpolation(int index, int type);
    virtual void setKeyTension(int index, double tension);
    virtual void setKeyContinuity(int index, double continuity);
    virtual void setKeyBias(int index, double bias);
    virtual void removeKey(int index);

    /// All keys as borrowed arrays, valid until the property's keys change.
    virtual KeyGraphKeys getKeys() const = 0;
    /// The values at many ascending times.
    virtual void getValues(const VxTime *times, int count, double *values) const;
    /// The unit sign of shown values, such as "%"; empty for none.
    virtual QString getUnit() const;

    virtual ~VxKeyGraphChannel();

    /// The records, one a key; borrowed until the keys or the selection change.
    const QVector<VxKeyGraphKey> &getKeyCache() const;
    bool isKeySelected(int index) const;
    /// Rebuilds the records at the next access. Changes of the property's keys are detected without
    /// it.
    void invalidateKeyCache();
    /// Adopts the records of a former channel of the property, for keys that still exist. Empty for
    /// none.
    void restoreKeyCache(const QVector<VxKeyGraphKey> &keys);

    /// Selects or deselects a key, makes its present position the drag start, and publishes it.
    void setKeySelected(int index, bool selected);
    /// The same without publishing, for callers that send a message of their own.
    void selectKey(int index, bool selected);
    void deselectAllKeys();
    /// Sends the selected keys over the bus.
    void publishSelection() const;
    /// Applies a change of the selection from elsewhere; never publishes.
    void applyKeyMessage(const VxKeyMessage &message);

    /// Selects the keys of these spans and no others, without publishing.
    void selectOnlySpans(const std::vector<VxKeySpan> &spans);
    std::vector<VxKeySpan> getSelectedSpans() const;

    /// Saves the selection at a press, and the positions of the selected keys.
    void refreshDragStart();
    /// Sets the flag of the keys within the box, restores that of all others from the press, and
    /// publishes the changed keys.
    void selectInBox(const KeyGraphBox &box, bool selected);

    /// Replaces the records after keys were moved.
    void setKeyCache(QVector<VxKeyGraphKey> keys);

private:
    Q_DISABLE_COPY(VxKeyGraphChannel)
    class Private;
    std::unique_ptr<Private> d;
};

#endif
