#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"

#include <QtTest>
#include <vxcore/vxlanguage.h>

namespace {

QString others(int count)
{
    return QCoreApplication::translate(
        "VxParametersPane", "%1 only: %n more are too many to edit together", nullptr, count);
}

} // namespace

class tst_VxLanguage : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { m_guard.reset(new VxWarningGuard); }
    void cleanup();
    void englishPluralsNeedNoCall();
    void languagesFound();
    void namesAreNative();
    void germanTextsAndPlurals();
    void textsWithoutTranslationAreEnglish();
    void anUnknownLanguageChangesNothing();
    void theToolkitsTextsFollow();
    void numbersFollowTheLanguage();
    void backToEnglish();

private:
    QScopedPointer<VxWarningGuard> m_guard;
};

void tst_VxLanguage::cleanup()
{
    QVERIFY(VxLanguage::setCurrent("en"));
    m_guard.reset();
}

void tst_VxLanguage::englishPluralsNeedNoCall()
{
    QCOMPARE(others(1), QString("%1 only: 1 more is too many to edit together"));
    QCOMPARE(others(2), QString("%1 only: 2 more are too many to edit together"));
    QCOMPARE(others(0), QString("%1 only: 0 more are too many to edit together"));
    // A system without a language, as that of scripts that read the output.
    QCOMPARE(others(12345), QString("%1 only: 12345 more are too many to edit together"));
}

void tst_VxLanguage::languagesFound()
{
    QCOMPARE(VxLanguage::available(), (QStringList{"de", "en"}));
    QCOMPARE(VxLanguage::current(), QString("en"));
}

void tst_VxLanguage::namesAreNative()
{
    QCOMPARE(VxLanguage::nativeName("de"), QString("Deutsch"));
    QCOMPARE(VxLanguage::nativeName("en"), QString("English"));
}

void tst_VxLanguage::germanTextsAndPlurals()
{
    QVERIFY(VxLanguage::setCurrent("de"));
    QCOMPARE(VxLanguage::current(), QString("de"));
    QCOMPARE(QCoreApplication::translate("VxPropertyMenu", "Copy Value"), QString("Wert kopieren"));
    QVERIFY(others(1).contains("Einer mehr ist"));
    QVERIFY(others(2).contains("2 weitere sind"));
    QVERIFY(others(0).contains("0 weitere sind"));
}

void tst_VxLanguage::textsWithoutTranslationAreEnglish()
{
    QVERIFY(VxLanguage::setCurrent("de"));
    QCOMPARE(QCoreApplication::translate("VxPropertyMenu", "No such text"),
             QString("No such text"));
}

void tst_VxLanguage::anUnknownLanguageChangesNothing()
{
    QVERIFY(VxLanguage::setCurrent("de"));
    QVERIFY(!VxLanguage::setCurrent("xx"));
    QVERIFY(!VxLanguage::setCurrent("*"));
    QCOMPARE(VxLanguage::current(), QString("de"));
    QCOMPARE(QCoreApplication::translate("VxPropertyMenu", "Copy Value"), QString("Wert kopieren"));
}

void tst_VxLanguage::theToolkitsTextsFollow()
{
    QCOMPARE(QCoreApplication::translate("QPlatformTheme", "Cancel"), QString("Cancel"));
    QVERIFY(VxLanguage::setCurrent("de"));
    QCOMPARE(QCoreApplication::translate("QPlatformTheme", "Cancel"), QString("Abbrechen"));
}

void tst_VxLanguage::numbersFollowTheLanguage()
{
    QVERIFY(VxLanguage::setCurrent("de"));
    QCOMPARE(QLocale().decimalPoint(), QChar(','));
    QVERIFY(VxLanguage::setCurrent(QString()));
    QCOMPARE(QLocale().decimalPoint(), QLocale::system().decimalPoint());
}

void tst_VxLanguage::backToEnglish()
{
    QVERIFY(VxLanguage::setCurrent("de"));
    QVERIFY(VxLanguage::setCurrent("en"));
    QCOMPARE(QCoreApplication::translate("VxPropertyMenu", "Copy Value"), QString("Copy Value"));
    QCOMPARE(QCoreApplication::translate("QPlatformTheme", "Cancel"), QString("Cancel"));
    QVERIFY(others(1).contains("1 more is"));
}

VX_TEST_MAIN(tst_VxLanguage)
#include "tst_vxlanguage.moc"
