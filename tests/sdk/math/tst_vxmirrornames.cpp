#include "testing/vxtestmain.h"

#include <QtTest>
#include <vxcore/vxmirrornames.h>

/// Names of the left and the right side.
class tst_VxMirrorNames : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void pairs_data();
    void pairs();
    void namesWithoutASide_data();
    void namesWithoutASide();
    void pairsFromText();
    void badTexts_data();
    void badTexts();
};

void tst_VxMirrorNames::pairs_data()
{
    QTest::addColumn<QString>("left");
    QTest::addColumn<QString>("right");
    QTest::newRow("a word before") << "LeftFoot"
                                   << "RightFoot";
    QTest::newRow("a small word before") << "leftFoot"
                                         << "rightFoot";
    QTest::newRow("a word before a blank") << "Left Foot"
                                           << "Right Foot";
    QTest::newRow("a word behind") << "FootLeft"
                                   << "FootRight";
    QTest::newRow("a letter before") << "L_Foot"
                                     << "R_Foot";
    QTest::newRow("a small letter before") << "l_foot"
                                           << "r_foot";
    QTest::newRow("a letter behind") << "Foot_L"
                                     << "Foot_R";
    QTest::newRow("a letter behind a point") << "foot.L"
                                             << "foot.R";
    QTest::newRow("a letter in front of a word") << "lFoot"
                                                 << "rFoot";
    QTest::newRow("a name space") << "hero:lead:LeftFoot"
                                  << "hero:lead:RightFoot";
    QTest::newRow("a number") << "Left2"
                              << "Right2";
}

void tst_VxMirrorNames::pairs()
{
    QFETCH(QString, left);
    QFETCH(QString, right);
    const VxMirrorNames names;
    QCOMPARE(names.mirrored(left), right);
    QCOMPARE(names.mirrored(right), left);
}

void tst_VxMirrorNames::namesWithoutASide_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name : {"Hips", "Leftover", "Rightful", "leg", "root", "ribs", "Left", "L_",
                             "_L", "", "UpRIGHT", "Left:Foot", "SPINELEFT"})
        QTest::newRow(name) << name;
}

void tst_VxMirrorNames::namesWithoutASide()
{
    QFETCH(QString, name);
    QCOMPARE(VxMirrorNames().mirrored(name), QString());
}

void tst_VxMirrorNames::pairsFromText()
{
    const VxMirrorNames names(VxMirrorNames::pairsFromText("links*/rechts*,  *-a/*-b"));
    QCOMPARE(names.mirrored("linksFuss"), QString("rechtsFuss"));
    QCOMPARE(names.mirrored("foot-b"), QString("foot-a"));
    QCOMPARE(names.mirrored("LeftFoot"), QString());
}

void tst_VxMirrorNames::badTexts_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("part");
    QTest::newRow("one pattern") << "Left*/Right*, Up*"
                                 << "Up*";
    QTest::newRow("three patterns") << "a*/b*/c*"
                                    << "a*/b*/c*";
    QTest::newRow("no star") << "Left/Right"
                             << "Left/Right";
    QTest::newRow("two stars") << "*L*/*R*"
                               << "*L*/*R*";
    QTest::newRow("nothing but stars") << "*/*"
                                       << "*/*";
    QTest::newRow("the same twice") << "L*/L*"
                                    << "L*/L*";
}

void tst_VxMirrorNames::badTexts()
{
    QFETCH(QString, text);
    QFETCH(QString, part);
    QString error;
    QVERIFY(VxMirrorNames::pairsFromText(text, &error).isEmpty());
    QCOMPARE(error, part);
}

VX_TEST_APPLESS_MAIN(tst_VxMirrorNames)
#include "tst_vxmirrornames.moc"
