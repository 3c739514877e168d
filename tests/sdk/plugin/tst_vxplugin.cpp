#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"

#include <QtTest>
#include <vxcore/vxclassfactory.h>
#include <vxcore/vxplugin.h>

namespace {

class ObjectFactory : public VxClassFactory
{
public:
    ObjectFactory()
        : VxClassFactory(&QObject::staticMetaObject, VxGuid())
    {
    }
    using VxClassFactory::createInstance;
    QObject *createInstance() const override { return nullptr; }
};

} // namespace

class tst_VxPlugin : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void returnsItsConstructorArguments();
    void settersReplaceAllButTheName();
    void factoriesKeepTheirOrder();
    void nullAndRepeatedFactoriesAreIgnored();
};

void tst_VxPlugin::returnsItsConstructorArguments()
{
    const VxPlugin plugin(QStringLiteral("Name"), QStringLiteral("Author"),
                          QStringLiteral("Description"), 1, 7, 0, 15);
    QCOMPARE(plugin.getName(), QStringLiteral("Name"));
    QCOMPARE(plugin.getAuthor(), QStringLiteral("Author"));
    QCOMPARE(plugin.getDescription(), QStringLiteral("Description"));
    QVERIFY(plugin.getVersion() == VxVersion(1, 7, 0, 15));
    QVERIFY(plugin.getClassFactories().isEmpty());
}

void tst_VxPlugin::settersReplaceAllButTheName()
{
    VxPlugin plugin(QStringLiteral("Name"), QString(), QString(), 0, 0, 0, 0);
    plugin.setAuthor(QStringLiteral("A"));
    plugin.setVersion(65535, 2, 3, 4);
    plugin.setDescription(QStringLiteral("D"));
    QCOMPARE(plugin.getName(), QStringLiteral("Name"));
    QCOMPARE(plugin.getAuthor(), QStringLiteral("A"));
    QCOMPARE(plugin.getDescription(), QStringLiteral("D"));
    QCOMPARE(plugin.getVersion().toString(), QStringLiteral("65535.2.3.4"));
}

void tst_VxPlugin::factoriesKeepTheirOrder()
{
    VxPlugin plugin(QStringLiteral("Name"), QString(), QString(), 0, 0, 0, 0);
    ObjectFactory first;
    ObjectFactory second;
    plugin.addClassFactory(&second);
    plugin.addClassFactory(&first);
    QCOMPARE(plugin.getClassFactories(), (QVector<VxClassFactory *>{&second, &first}));
}

void tst_VxPlugin::nullAndRepeatedFactoriesAreIgnored()
{
    VxPlugin plugin(QStringLiteral("Name"), QString(), QString(), 0, 0, 0, 0);
    ObjectFactory factory;
    plugin.addClassFactory(nullptr);
    plugin.addClassFactory(&factory);
    plugin.addClassFactory(&factory);
    QCOMPARE(plugin.getClassFactories().size(), 1);
}

VX_TEST_MAIN(tst_VxPlugin)
#include "tst_vxplugin.moc"
