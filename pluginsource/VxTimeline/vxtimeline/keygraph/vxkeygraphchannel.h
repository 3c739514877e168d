#ifndef VXKEYGRAPHCHANNEL_H
#define VXKEYGRAPHCHANNEL_H

#include <QtCore/QStringList>
#include <QtCore/QVector>
#include <QtGui/QColor>
#include <memory>
#include <vector>
#include <vxcore/vxkeyspan.h>
#include <vxcore/vxtime.h>

#include "vxtimeline/keygraph/keygraphkeys.h"

class VxKeyCommunication;
class VxKeyMessage;
class VxProperty;

// One curve of the key graph, read and written by the view without knowing what is behind it.
//
// Values are in display units, times in ticks, keys are counted in ascending order of time. The
// selection is the graph's own and lives here in a cache of one record a key, which is made anew
// after the keys changed and keeps its records by their time. A channel has no hold on its
// property; the graph drops channels before their properties go.
//
// The order of the virtual functions is part of the interface: add at the end.
class VxKeyGraphChannel
{
public:
    // keyBus: the end over which changes of the selection are told; not owned, may be null.
    explicit VxKeyGraphChannel(VxKeyCommunication *keyBus);

    // Another end, when the graph was given a new one.
    void setKeyCommunication(VxKeyCommunication *keyBus);

    virtual VxProperty *getProperty() const = 0;
    virtual QString getLabel() const = 0;
    // The names of the property, its node and that node's ancestors up to the root.
    virtual QStringList getPath() const = 0;
    // Invalid where the view's default colour is to be used.
    virtual QColor getColor() const = 0;
    virtual double getValue(VxTime time) const = 0;
    virtual void setValue(VxTime time, double value) = 0;
    virtual int getNumKeys() const = 0;
    virtual VxTime getKeyTime(int index) const = 0;
    virtual double getKeyValue(int index) const = 0;
    virtual void setKeyValue(int index, double value) = 0;
    // Moves a key to a time and value. At the time of another key it comes to lie one tick beside
    // it, on the side it came from. Its selection and its start of the drag go with it.
    virtual void setKey(int index, VxTime time, double value) = 0;
    // The type (0 Linear, 1 Constant, 2 TCB), and the three shape values when asked for.
    virtual int getKeyInterpolation(int index, float *tension = nullptr,
                                    float *continuity = nullptr, float *bias = nullptr) const;
    virtual double getKeyTension(int index) const;
    virtual double getKeyContinuity(int index) const;
    virtual double getKeyBias(int index) const;
    // Each of these changes one part of a key's interpolation and keeps the others.
    virtual void setKeyInterpolation(int index, int type);
    virtual void setKeyTension(int index, double tension);
    virtual void setKeyContinuity(int index, double continuity);
    virtual void setKeyBias(int index, double bias);
    virtual void removeKey(int index);

    // All keys as borrowed arrays, valid until the property's keys change.
    virtual KeyGraphKeys getKeys() const = 0;
    // The values at many ascending times.
    virtual void getValues(const VxTime *times, int count, double *values) const;
    // The sign of the unit in which values are shown, such as "%"; empty for none.
    virtual QString getUnit() const;

    virtual ~VxKeyGraphChannel();

    // The records, one a key; borrowed until the keys or the selection change.
    const QVector<VxKeyGraphKey> &getKeyCache() const;
    bool isKeySelected(int index) const;
    // Makes the records anew when they are next asked for. Changes of the property's keys are
    // noticed without.
    void invalidateKeyCache();
    // Takes over the records that another channel of the property had, as far as its keys are
    // still there. Empty for none.
    void restoreKeyCache(const QVector<VxKeyGraphKey> &keys);

    // Selects or deselects a key, makes its present place the start of a drag, and tells of it.
    void setKeySelected(int index, bool selected);
    // The same without telling, for callers that send a message of their own.
    void selectKey(int index, bool selected);
    void deselectAllKeys();
    // Tells which keys are selected.
    void publishSelection() const;
    // Takes over a change of the selection from elsewhere; never tells.
    void applyKeyMessage(const VxKeyMessage &message);

    // Selects the keys of these spans and no others, without publishing.
    void selectOnlySpans(const std::vector<VxKeySpan> &spans);
    std::vector<VxKeySpan> getSelectedSpans() const;

    // Remembers the selection as it is at a press, and where the selected keys are.
    void refreshDragStart();
    // Gives the keys within the box the flag, all others what they had at the press, and tells of
    // the keys that changed.
    void selectInBox(const KeyGraphBox &box, bool selected);

    // Puts the records of keys that were just moved in the place of the former ones.
    void setKeyCache(QVector<VxKeyGraphKey> keys);

private:
    Q_DISABLE_COPY(VxKeyGraphChannel)
    class Private;
    std::unique_ptr<Private> d;
};

#endif
