#ifndef VXUNDOVALUEITEM_H
#define VXUNDOVALUEITEM_H

#include <QtCore/QPointer>
#include <vxcore/vxundoitem.h>
#include <vxcore/vxundostack.h>

/// The undo item of one plain value of an object, such as a label: keeps the value from before the
/// first change and exchanges it with the present one.
template <class Object, class Value> class VxUndoValueItem : public VxUndoItem
{
public:
    using Getter = Value (*)(const Object *);
    using Setter = void (*)(Object *, const Value &);

    VxUndoValueItem(Object *object, int kind, Getter get, Setter set)
        : VxUndoItem(object, kind)
        , m_object(object)
        , m_get(get)
        , m_set(set)
        , m_value(get(object))
    {
    }

    void swap() override
    {
        if (!m_object)
            return;
        const Value present = m_get(m_object);
        m_set(m_object, m_value);
        m_value = present;
    }

    bool finish() override { return m_object && !(m_get(m_object) == m_value); }
    qint64 memoryUsed() const override { return qint64(sizeof(*this)); }

private:
    QPointer<Object> m_object;
    Getter m_get;
    Setter m_set;
    Value m_value;
};

/// Records the present value, before a change, unless the open hold has it already. Call it with
/// captureless lambdas: get(const Object *) and set(Object *, const Value &).
template <class Object, class Value>
void vxRecordValue(Object *object, int kind, Value (*get)(const Object *),
                   void (*set)(Object *, const Value &))
{
    VxUndoStack *stack = VxUndoStack::current();
    if (stack && stack->isRecording() && !stack->findItem(object, kind))
        stack->record(new VxUndoValueItem<Object, Value>(object, kind, get, set));
}

#endif
