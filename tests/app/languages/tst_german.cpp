// The program in German: texts, plurals and numbers change; files, scripts and names do not.

#include "preferences/languagesetting.h"
#include "scenebytes.h"
#include "studiotestbase.h"
#include "testing/vxtestmain.h"

#include <QAbstractSpinBox>
#include <QFile>
#include <QScriptValue>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxlanguage.h>
#include <vxcore/vxlocalnumber.h>
#include <vxcore/vxmarkers.h>
#include <vxcore/vxscenetimedisplay.h>
#include <vxcore/vxscriptengine.h>
#include <vxcore/vxsettings.h>
#include <vxcore/vxundostackhold.h>

class tst_German : public QObject, private StudioTest
{
    Q_OBJECT
private Q_SLOTS:
    void init() { setUp(); }
    void cleanup();

    void menusAreGerman();
    void theSettingChoosesTheLanguage();
    void countsHavePluralForms_data();
    void countsHavePluralForms();
    void namesAndShortcutsStay();
    void aSavedSceneIsTheSame();
    void errorsOfScriptsKeepTheirPlaces();
    void numbersInTheWindowHaveACommaAndInFieldsAndScriptsAPoint();

private:
    QStringList entriesOf(int menu) const;
    static QString evaluate(const QString &script);
    QByteArray savedWith(const QString &language);
    QStringList commandsIn(const QString &language);
};

void tst_German::cleanup()
{
    tearDown();
    QVERIFY(VxLanguage::setCurrent("en"));
    QLocale::setDefault(QLocale::c());
}

/** The title and the entries of a menu of the bar, without mnemonics. */
QStringList tst_German::entriesOf(int menu) const
{
    const QAction *bar = window()->menuBar()->actions().at(menu);
    QStringList texts{bar->text().remove('&')};
    for (const QAction *entry : bar->menu()->actions()) {
        if (!entry->isSeparator())
            texts += entry->text().remove('&');
    }
    return texts;
}

QString tst_German::evaluate(const QString &script)
{
    VxScriptError error;
    const QScriptValue result =
        vxApp->getScriptEngine()->evaluate(script, QStringLiteral("test"), &error);
    return error.isNull() ? result.toString() : error.toString();
}

void tst_German::menusAreGerman()
{
    start();
    const QStringList english = entriesOf(0) + entriesOf(1).mid(0, 3);
    start({"--language", "de"});
    const QStringList german = entriesOf(0) + entriesOf(1).mid(0, 3);
    QCOMPARE(german.size(), english.size());
    QCOMPARE(english.mid(0, 3), (QStringList{"File", "New", "Open..."}));
    QCOMPARE(german.mid(0, 3), (QStringList{"Datei", "Neu", QStringLiteral("Öffnen …")}));
    for (int i = 0; i < german.size(); ++i)
        QVERIFY2(german.at(i) != english.at(i), qPrintable(german.at(i)));
    QStringList bar;
    for (const QAction *menu : window()->menuBar()->actions())
        bar += menu->text().remove('&');
    QCOMPARE(bar.size(), QSet<QString>(bar.cbegin(), bar.cend()).size());
    QVERIFY2(bar.contains("Erstellen") && bar.contains("Fenster") && !bar.contains("Create"),
             qPrintable(bar.join(' ')));
}

void tst_German::theSettingChoosesTheLanguage()
{
    start();
    QCOMPARE(entriesOf(0).constFirst(), QString("File"));
    LanguageSetting::setCode(vxApp->getSettings(), "de");
    start();
    QCOMPARE(entriesOf(0).constFirst(), QString("Datei"));
    QCOMPARE(LanguageSetting::code(*vxApp->getSettings()), QString("de"));
    start({"--language", "en"});
    QCOMPARE(entriesOf(0).constFirst(), QString("File"));
    // The option is for one run.
    QCOMPARE(LanguageSetting::code(*vxApp->getSettings()), QString("de"));
    LanguageSetting::setCode(vxApp->getSettings(), "xx");
    QCOMPARE(LanguageSetting::code(*vxApp->getSettings()), QString());
}

void tst_German::countsHavePluralForms_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<int>("count");
    QTest::addColumn<QString>("copied");
    QTest::addColumn<QString>("minutes");
    QTest::newRow("English, none") << "en" << 0 << "Copied 0 keys."
                                   << "Every 0 Minutes";
    QTest::newRow("English, one") << "en" << 1 << "Copied 1 key."
                                  << "Every Minute";
    QTest::newRow("English, two") << "en" << 2 << "Copied 2 keys."
                                  << "Every 2 Minutes";
    QTest::newRow("German, none") << "de" << 0 << QStringLiteral("0 Schlüssel kopiert.")
                                  << "Alle 0 Minuten";
    QTest::newRow("German, one") << "de" << 1 << QStringLiteral("1 Schlüssel kopiert.")
                                 << "Jede Minute";
    QTest::newRow("German, thousands")
        << "de" << 12345 << QStringLiteral("12.345 Schlüssel kopiert.") << "Alle 12.345 Minuten";
}

void tst_German::countsHavePluralForms()
{
    QFETCH(QString, language);
    QFETCH(int, count);
    start({"--language", language});
    const auto text = [count](const char *context, const char *source) {
        return QCoreApplication::translate(context, source, nullptr, count);
    };
    QTEST(text("VxTimePane", "Copied %n keys."), "copied");
    QTEST(text("RecoveryMenu", "Every %n Minutes"), "minutes");
}

/** Class names, menu paths and shortcuts of all actions. */
QStringList tst_German::commandsIn(const QString &language)
{
    start({"--language", language});
    QStringList all;
    for (const VxAction *action : actions()->getActions())
        all += QStringLiteral("%1 %2 %3")
                   .arg(QLatin1String(action->metaObject()->className()),
                        action->getDefaultMenuPath(), action->shortcut().toString());
    return all;
}

void tst_German::namesAndShortcutsStay()
{
    const QStringList english = commandsIn("en");
    QVERIFY(english.size() > 100);
    QCOMPARE(commandsIn("de"), english);
    openSample();
    QCOMPARE(evaluate("App.action('VxNextFrameAction').trigger(); Scene.time"), QString("160"));
    QCOMPARE(evaluate("Scene.findNodeByLabel('Left Thigh').findProperty('XRotate').name"),
             QString("XRotate"));
}

/** The sample with edits, as it is saved. */
QByteArray tst_German::savedWith(const QString &language)
{
    start({"--language", language});
    openSample();
    VxNode *thigh = vxScene->findNodeByLabel(QStringLiteral("Left Thigh"));
    vxScene->setPrimarySelection(thigh);
    evaluate("App.action('VxAddKeysAction').trigger(); App.action('VxAddMarkerAction').trigger()");
    // A control that the file does not have yet is made, with its label.
    static_cast<VxFloatProperty *>(thigh->findProperty(QStringLiteral("ZScale")))
        ->setValue(0, 1.5F);
    const QString name = folder->filePath(language + QStringLiteral(".vxscene"));
    if (!window()->document()->save(name))
        qFatal("cannot save");
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void tst_German::aSavedSceneIsTheSame()
{
    const QByteArray english = savedWith("en");
    QVERIFY(english.size() > 1000 && english.contains("Marker 1"));
    QVERIFY(english == savedWith("de"));
}

void tst_German::errorsOfScriptsKeepTheirPlaces()
{
    start({"--language", "de"});
    openSample();
    const QString error = evaluate("var a = 1;\nScene.setTime('x');");
    QVERIFY2(error.startsWith("test:2: ") && error.contains("erwartet eine ganze Zahl"),
             qPrintable(error));
}

void tst_German::numbersInTheWindowHaveACommaAndInFieldsAndScriptsAPoint()
{
    start({"--language", "de"});
    openSample();
    VxTimeDisplay display = VxSceneTimeDisplay::displayOf(vxScene);
    display.unit = VxTimeDisplay::Seconds;
    VxSceneTimeDisplay::of(vxScene)->setDisplay(display);
    vxScene->setTime(2400);
    QCOMPARE(VxSceneTimeDisplay::labelOf(vxScene, 2400), QString("0,5s"));
    QCOMPARE(evaluate("Scene.timeText(2400)"), QString("0.5s"));
    QCOMPARE(evaluate("String(1.5)"), QString("1.5"));
    QCOMPARE(vxLocalNumber("-1.25%"), QString("-1,25%"));
    // The pane's fields: whole frames and tensions without groups or commas.
    vxScene->setAnimRange({0, 160 * 12345});
    vxScene->setTime(160 * 12344);
    QCoreApplication::processEvents();
    int fields = 0;
    for (const auto *field : timePane()->findChildren<QAbstractSpinBox *>()) {
        ++fields;
        QVERIFY2(!field->text().contains(',') && field->text().count('.') <= 1 &&
                     field->locale() == QLocale::c(),
                 qPrintable(field->objectName() + field->text()));
    }
    QVERIFY(fields > 3);
}

VX_TEST_MAIN(tst_German)
#include "tst_german.moc"
