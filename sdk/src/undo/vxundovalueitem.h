#ifndef VXUNDOVALUEITEM_H
#define VXUNDOVALUEITEM_H

#include "undo/journalvalues.h"

#include <QtCore/QPointer>
#include <vxcore/vxundoitem.h>
#include <vxcore/vxundostack.h>

/// The undo item of one plain value of an object, such as a label: stores the value from before the
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
        , m_wasInDocument(vxIsInDocument(object))
    {
    }

    bool isAlive() const { return m_object; }

    void swap() override
    {
        if (!m_object)
            return;
        const Value present = m_get(m_object);
        m_set(m_object, m_value);
        m_value = present;
    }

    bool finish() override { return m_object && !(m_get(m_object) == m_value); }
    bool write(VxJournalWriter &writer) const override
    {
        if (!m_wasInDocument)
            return true;
        return m_object && journalBegin(writer, m_object.data(), kind()) &&
               journalPut(writer, m_value) && journalPut(writer, m_get(m_object));
    }
    qint64 memoryUsed() const override { return qint64(sizeof(*this)); }

private:
    QPointer<Object> m_object;
    Getter m_get;
    Setter m_set;
    Value m_value;
    const bool m_wasInDocument;
};

/// The item that the open hold has for an object, or null. Ignores the leftover item of an object
/// that was destroyed within the hold, whose address may have been reused.
template <class Item> Item *vxFindLivingItem(const VxUndoStack *stack, const void *object, int kind)
{
    auto *item = dynamic_cast<Item *>(stack->findItem(object, kind));
    return item && item->isAlive() ? item : nullptr;
}

/// True when a change about to be made must be recorded. Notes a change of the document outside of
/// any hold.
template <class Object> bool vxMustRecord(VxUndoStack *stack, const Object *object, int kind)
{
    if (!stack || stack->isRecording())
        return stack != nullptr;
    if (!stack->isApplying() && vxIsInDocument(object) && !vxIsView(object, kind))
        stack->noteUnrecordedChange();
    return false;
}

/// Records the present value, before a change, unless the open hold has it already. Call it with
/// captureless lambdas: get(const Object *) and set(Object *, const Value &).
template <class Object, class Value>
void vxRecordValue(Object *object, int kind, Value (*get)(const Object *),
                   void (*set)(Object *, const Value &))
{
    using Item = VxUndoValueItem<Object, Value>;
    VxUndoStack *stack = VxUndoStack::current();
    if (!vxMustRecord(stack, object, kind) || vxFindLivingItem<Item>(stack, object, kind))
        return;
    stack->record(new Item(object, kind, get, set));
}

/// Gives a member of an object's record another value, recorded unless isRecorded is false. get and
/// set are the object's functions for it. False when the member has that value.
template <auto get, auto set, class Object, class Value>
bool vxChange(Object *object, int kind, Value *member, const Value &value, bool isRecorded = true)
{
    if (*member == value)
        return false;
    if (isRecorded)
        vxRecordValue<Object, Value>(
            object, kind, [](const Object *o) -> Value { return (o->*get)(); },
            [](Object *o, const Value &v) { (o->*set)(v); });
    *member = value;
    return true;
}

#endif
