#include "testing/vxtestmain.h"
#include "timepanetestbase.h"

#include <QtScript/QScriptEngine>
#include <vxcore/vxactionmenu.h>
#include <vxcore/vxnode.h>

// Every slot of the pane can be called from a script, with arguments and results as scripts see
// them.
class TestTimePaneScript : public QObject, private TimePaneTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    // First: a type that another slot's call registers is available to all later ones.
    void placeholdersGiveNull();
    void everySlot();
};

namespace {

QString argumentOf(const QByteArray &type)
{
    if (type == "QString")
        return QStringLiteral("'a'");
    if (type == "bool")
        return QStringLiteral("true");
    if (type == "VxActionMenu*")
        return QStringLiteral("menu");
    return QStringLiteral("1");
}

} // namespace

void TestTimePaneScript::everySlot()
{
    addChoices(TimePaneChoice::PropertyTypeFamily, {1, 2, 4, 8, 16, 32});
    addChoices(TimePaneChoice::KeyScopeFamily, {0, 1, 2, 3});
    auto *node = new VxNode(QStringLiteral("n"));
    vxScene->addNode(node);
    node->select(true);
    showPane();
    QScriptEngine engine;
    VxActionMenu menu(QString(), nullptr);
    engine.globalObject().setProperty(QStringLiteral("pane"), engine.newQObject(pane.get()));
    engine.globalObject().setProperty(QStringLiteral("menu"), engine.newQObject(&menu));
    const QMetaObject *meta = pane->metaObject();
    int called = 0;
    for (int i = meta->methodOffset(); i < meta->methodCount(); ++i) {
        const QMetaMethod method = meta->method(i);
        if (method.methodType() != QMetaMethod::Slot || method.access() != QMetaMethod::Public)
            continue;
        QStringList arguments;
        for (const QByteArray &type : method.parameterTypes())
            arguments += argumentOf(type);
        const QString call = QStringLiteral("pane[\"%1\"](%2)")
                                 .arg(QString::fromLatin1(method.methodSignature()),
                                      arguments.join(QLatin1Char(',')));
        const QScriptValue result = engine.evaluate(call);
        QVERIFY2(!engine.hasUncaughtException(),
                 qPrintable(call + QStringLiteral(": ") + result.toString()));
        QVERIFY2(result.isUndefined() == (method.returnType() == QMetaType::Void),
                 qPrintable(call));
        ++called;
    }
    QVERIFY2(called >= 60, qPrintable(QString::number(called)));
}

void TestTimePaneScript::placeholdersGiveNull()
{
    QScriptEngine engine;
    engine.globalObject().setProperty(QStringLiteral("pane"), engine.newQObject(pane.get()));
    for (const char *name : {"searchDopesheetNext", "searchDopesheetPrevious"}) {
        const QScriptValue result = engine.evaluate(QStringLiteral("pane.%1()").arg(name));
        QVERIFY2(!engine.hasUncaughtException(), qPrintable(result.toString()));
        QVERIFY2(result.isNull(), name);
    }
}

VX_TEST_MAIN(TestTimePaneScript)
#include "tst_timepanescript.moc"
