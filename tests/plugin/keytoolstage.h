#ifndef KEYTOOLSTAGE_H
#define KEYTOOLSTAGE_H

#include "keytools/keytool.h"
#include "keytools/keytoolscript.h"
#include "testing/vxwarningguard.h"

#include <QtTest>
#include <algorithm>
#include <cmath>
#include <vxcore/vxapp.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxintproperty.h>
#include <vxcore/vxkeyselection.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxscriptengine.h>
#include <vxcore/vxundostack.h>

/// Selected keys without a pane: by key holder, as indexes of the present keys.
class SelectionKeeper : public VxKeySelectionSource
{
public:
    VxKeySelectionEntries entries() const override { return m_entries; }
    std::vector<VxKeySpan> spansOf(VxProperty *holder) const override
    {
        for (const VxKeySelectionEntry &entry : m_entries) {
            if (entry.holder == holder)
                return entry.spans;
        }
        return {};
    }
    void set(const VxKeySelectionEntries &entries, bool clearsOthers) override
    {
        if (clearsOthers)
            m_entries.clear();
        for (const VxKeySelectionEntry &entry : entries) {
            const auto same = std::find_if(
                m_entries.begin(), m_entries.end(),
                [&entry](const VxKeySelectionEntry &each) { return each.holder == entry.holder; });
            if (same != m_entries.end())
                same->spans = entry.spans;
            else
                m_entries.push_back({entry.holder, entry.spans, 0});
        }
        m_entries.erase(std::remove_if(m_entries.begin(), m_entries.end(),
                                       [](const auto &entry) { return entry.spans.empty(); }),
                        m_entries.end());
    }

    const std::vector<VxCopiedKeys> &copiedKeys() const override { return copied; }

    std::vector<VxCopiedKeys> copied;

private:
    VxKeySelectionEntries m_entries; // in the order of selection
};

/// An application with one selected node and a selection of keys.
class KeyToolStage
{
public:
    static constexpr VxTime Frame = 160;

    KeyToolStage()
        : node(new VxNode("node"))
    {
        vxScene->addNode(node);
        vxScene->setPlayRange({0, 40 * Frame});
        vxScene->setAnimRange({0, 40 * Frame});
        app.getKeySelection()->addSource(&keeper);
        registerKeyToolScript(app.getScriptEngine()->engine());
        channel = node->getXPosControl();
    }
    ~KeyToolStage() { app.getKeySelection()->removeSource(&keeper); }

    /// Keys of a channel, one frame a place: `a . B` is a key of value 'a' on frame 0 and a
    /// selected one of value 'b' on frame 2. All are linear.
    void draw(const QString &drawing) { draw(channel, drawing); }
    void draw(VxFloatProperty *property, const QString &drawing)
    {
        property->deleteAllKeys();
        VxKeySelectionEntry entry;
        entry.holder = property;
        const QStringList places = drawing.split(' ');
        for (int frame = 0; frame < places.size(); ++frame) {
            if (places[frame] == ".")
                continue;
            const QChar mark = places[frame][0];
            property->setKey(frame * Frame, float(mark.toLower().unicode()), VxKeyInterp::Linear);
            const int index = property->getNumKeys() - 1;
            if (mark.isUpper())
                entry.spans.push_back({index, index + 1});
        }
        for (std::size_t i = entry.spans.size(); i-- > 1;) {
            if (entry.spans[i - 1].last == entry.spans[i].first) {
                entry.spans[i - 1].last = entry.spans[i].last;
                entry.spans.erase(entry.spans.begin() + int(i));
            }
        }
        app.getKeySelection()->setForHolders({entry});
    }
    QString drawing(int frames) const { return drawing(channel, frames); }
    QString drawing(VxFloatProperty *property, int frames) const
    {
        QStringList places;
        for (int i = 0; i < frames; ++i)
            places << ".";
        const std::vector<VxKeySpan> spans = app.getKeySelection()->spansOf(property);
        for (int i = 0; i < property->getNumKeys(); ++i) {
            bool isSelected = false;
            for (const VxKeySpan &span : spans)
                isSelected = isSelected || (span.first <= i && i < span.last);
            const QChar mark(ushort(std::lround(property->getKeyValue(i))));
            const VxTime time = property->getKeyTime(i);
            const QString text = isSelected ? QString(mark.toUpper()) : QString(mark);
            if (time % Frame == 0 && time >= 0 && time < frames * Frame)
                places[time / Frame] = text;
            else
                places << QString("%1@%2").arg(text).arg(time);
        }
        return places.join(' ');
    }

    /// Copies keys of a property, as the timeline does: the selected ones, or all.
    void copy(const VxFloatProperty *property, bool all = false)
    {
        std::vector<VxKeySpan> spans = {{0, property->getNumKeys()}};
        if (!all)
            spans = keeper.spansOf(const_cast<VxFloatProperty *>(property));
        VxCopiedKeys keys;
        keys.node = property->getOwner()->getName();
        keys.property = property->getName();
        for (const VxKeySpan &span : spans)
            for (int i = span.first; i < span.last; ++i) {
                VxTcb tcb;
                keys.times.push_back(property->getKeyTime(i));
                keys.values.push_back(double(property->getKeyValue(i)));
                keys.types.push_back(quint8(property->getKeyInterpolationType(
                    i, &tcb.tension, &tcb.continuity, &tcb.bias)));
                keys.tcb.push_back(tcb);
            }
        if (std::all_of(keys.tcb.begin(), keys.tcb.end(),
                        [](const VxTcb &tcb) { return tcb == VxTcb(); }))
            keys.tcb.clear();
        keeper.copied.push_back(keys);
    }

    /// Runs a script; what it returns, or its error.
    QString run(const QString &script) const
    {
        VxScriptError error;
        const QString result = app.getScriptEngine()->evaluate(script, "test", &error);
        return error.isNull() ? result : error.message;
    }

    /// Everything about a scene's keys, to compare it byte for byte.
    static QByteArray snapshot()
    {
        QByteArray bytes;
        const auto append = [&bytes](const auto *data, int count) {
            bytes.append(reinterpret_cast<const char *>(data), count * int(sizeof *data));
        };
        for (const VxNode *node : vxScene->getNodes()) {
            for (int i = 0; i < node->getNumProperties(); ++i) {
                const auto *number = qobject_cast<VxFloatProperty *>(node->getProperty(i));
                const auto *whole = qobject_cast<VxIntProperty *>(node->getProperty(i));
                bytes.append('|');
                if (number) {
                    const VxKeyColumns<float> keys = number->getKeys();
                    append(keys.times, keys.count);
                    append(keys.values, keys.count);
                    for (int k = 0; k < keys.count; ++k) {
                        float shape[3];
                        bytes.append(char(
                            number->getKeyInterpolationType(k, &shape[0], &shape[1], &shape[2])));
                        append(shape, 3);
                    }
                } else if (whole) {
                    append(whole->getKeys().times, whole->getKeys().count);
                    append(whole->getKeys().values, whole->getKeys().count);
                }
            }
        }
        return bytes;
    }

    /// Sorted, no two at one time, finite.
    static bool areKeysSound()
    {
        for (const VxNode *node : vxScene->getNodes()) {
            for (int i = 0; i < node->getNumProperties(); ++i) {
                const auto *property = qobject_cast<VxNumericProperty *>(node->getProperty(i));
                for (int k = 0; property && k < property->getNumKeys(); ++k) {
                    if (!std::isfinite(property->getKeyDoubleValue(k)) ||
                        (k > 0 && property->getKeyTime(k - 1) >= property->getKeyTime(k)))
                        return false;
                }
            }
        }
        return true;
    }

    VxWarningGuard guard;
    VxApp app;
    SelectionKeeper keeper;
    VxNode *node;
    VxFloatProperty *channel;
};

/// The states of a random session: undo restores them from the last to the first, redo the reverse.
class KeyStates
{
public:
    KeyStates()
        : m_states{KeyToolStage::snapshot()}
    {
    }

    /// Adds the present state unless it is the last one.
    void add()
    {
        const QByteArray state = KeyToolStage::snapshot();
        if (state != m_states.back())
            m_states.push_back(state);
    }
    const QByteArray &last() const { return m_states.back(); }
    int count() const { return int(m_states.size()); }

    /// Undoes and redoes everything; one entry a state.
    bool areRestored() const
    {
        VxUndoStack *stack = VxUndoStack::current();
        for (std::size_t i = m_states.size(); i-- > 1; stack->undo()) {
            if (KeyToolStage::snapshot() != m_states[i])
                return false;
        }
        for (std::size_t i = 0; i < m_states.size(); ++i) {
            if (KeyToolStage::snapshot() != m_states[i])
                return false;
            stack->redo();
        }
        return true;
    }

private:
    std::vector<QByteArray> m_states;
};

constexpr VxTime Frame = KeyToolStage::Frame;

#endif
