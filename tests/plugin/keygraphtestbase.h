#ifndef KEYGRAPHTESTBASE_H
#define KEYGRAPHTESTBASE_H

#include "testing/vxwarningguard.h"
#include "vxtimeline/keygraph/vxkeygraphchannel.h"
#include "vxtimeline/keys/vxkeycommunication.h"

#include <QtTest>
#include <QtWidgets/QApplication>
#include <memory>
#include <vxcore/vxapp.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxundostack.h>

/// Keys are drawn on a line of frames: a letter is a key in the drawing's order, a dot an empty
/// frame. Capital letters are selected keys.
namespace KeyDrawing {

constexpr VxTime Step = 160;

inline VxFloatProperty *makeKeys(VxFloatProperty *property, const char *drawing,
                                 VxTime ticksPerSign = Step)
{
    for (int i = 0; drawing[i]; ++i) {
        if (drawing[i] != '.')
            property->setKey(i * ticksPerSign, float(i), VxKeyInterp::Linear);
    }
    return property;
}

inline void select(VxKeyGraphChannel &channel, const QVector<int> &indexes)
{
    for (const int index : indexes)
        channel.selectKey(index, true);
}

inline QVector<int> timesOf(const VxProperty *property)
{
    QVector<int> times;
    for (int i = 0; i < property->getNumKeys(); ++i)
        times += property->getKeyTime(i);
    return times;
}

inline QVector<int> selectedOf(const VxKeyGraphChannel &channel)
{
    QVector<int> indexes;
    for (int i = 0; i < channel.getNumKeys(); ++i) {
        if (channel.isKeySelected(i))
            indexes += i;
    }
    return indexes;
}

} // namespace KeyDrawing

/// An application with one node in its scene, made anew for each test function.
class KeyGraphTest
{
protected:
    void setUp()
    {
        QFont font(QStringLiteral("DejaVu Sans"));
        font.setPixelSize(12);
        QApplication::setFont(font);
        guard = std::make_unique<VxWarningGuard>();
        app = std::make_unique<VxApp>();
        node = addNode(QStringLiteral("Hip"));
    }

    void tearDown()
    {
        app.reset();
        guard.reset();
        messages.clear();
    }

    static VxNode *addNode(const QString &name, VxNode *parent = nullptr)
    {
        auto *result = new VxNode(name);
        vxScene->addNode(result, parent);
        return result;
    }

    VxFloatProperty *addProperty(const QString &name)
    {
        auto *property = new VxFloatProperty(name);
        return static_cast<VxFloatProperty *>(node->addProperty(property, QStringLiteral("/Test")));
    }

    /// Notes every message that the end sends.
    void listen(VxKeyCommunication *bus)
    {
        QObject::connect(bus, &VxKeyCommunication::sent,
                         [this](const VxKeyMessage &message) { messages += message; });
    }

    static QStringList undoTexts()
    {
        QStringList texts;
        const VxUndoStack *stack = vxApp->getUndoStack();
        for (int i = 0; i < stack->count(); ++i)
            texts += stack->text(i);
        return texts;
    }

    std::unique_ptr<VxWarningGuard> guard;
    std::unique_ptr<VxApp> app;
    VxNode *node = nullptr;
    QVector<VxKeyMessage> messages;
};

#endif
