// The whole program in a made-up language: every text that a user sees is translated.

#include "document/importdialog.h"
#include "gltfsample.h"
#include "recovery/recoverydialog.h"
#include "studiotestbase.h"
#include "testing/vxaccessibletree.h"
#include "testing/vxtestmain.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QContextMenuEvent>
#include <QDialog>
#include <QLibrary>
#include <QSet>
#include <QStatusBar>
#include <QTimer>
#include <QTranslator>
#include <QXmlStreamReader>
#include <vxcore/vxlanguage.h>
#include <vxcore/vxproperty.h>
#include <vxcore/vxpropertygrouptree.h>
#include <vxcore/vxscriptengine.h>

namespace {

const QChar Open(0x27e6);
const QChar Close(0x27e7);

/// Marks every text of this program: "Save" becomes "⟦Save⟧". The toolkit's texts stay English.
class PseudoTranslator : public QTranslator
{
public:
    QString translate(const char *context, const char *source, const char *comment,
                      int) const override
    {
        if (context[0] == 'Q')
            return QString();
        const QString text = QString::fromUtf8(source);
        asked.insert(textKey(QString::fromUtf8(context), text, QString::fromUtf8(comment)));
        return Open + text + Close;
    }

    bool isEmpty() const override { return false; }

    static QString textKey(const QString &context, const QString &text, const QString &comment)
    {
        return context + QLatin1Char('|') + text + QLatin1Char('|') + comment;
    }

    mutable QSet<QString> asked;
};

/// All texts that the translation files have.
QSet<QString> knownTexts()
{
    QSet<QString> known;
    for (const char *name : {"sdk/translations/vxcore_de.ts", "app/translations/vxstudio_de.ts",
                             "pluginsource/VxTimeline/translations/VxTimeline_de.ts",
                             "pluginsource/VxKeyTools/translations/VxKeyTools_de.ts"}) {
        QFile file(QStringLiteral(VX_SOURCE_DIR "/") + QLatin1String(name));
        if (!file.open(QIODevice::ReadOnly))
            qFatal("no %s", name);
        QXmlStreamReader xml(&file);
        QString context, source, comment;
        while (!xml.atEnd()) {
            const auto token = xml.readNext();
            if (token == QXmlStreamReader::StartElement) {
                if (xml.name() == QLatin1String("name"))
                    context = xml.readElementText();
                else if (xml.name() == QLatin1String("source"))
                    source = xml.readElementText();
                else if (xml.name() == QLatin1String("comment"))
                    comment = xml.readElementText();
            } else if (token == QXmlStreamReader::EndElement &&
                       xml.name() == QLatin1String("message")) {
                known.insert(PseudoTranslator::textKey(context, source, comment));
                comment.clear();
            }
        }
    }
    return known;
}

/// The text outside of all marks.
QString unmarked(const QString &text)
{
    QString rest;
    int depth = 0;
    for (const QChar c : text) {
        if (c == Open)
            ++depth;
        else if (c == Close)
            --depth;
        else if (depth <= 0)
            rest += c;
    }
    return rest;
}

} // namespace

class tst_PseudoLanguage : public QObject, private StudioTest
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void theFinderFindsAnUnmarkedText();
    void windowWithAllPanes_data();
    void windowWithAllPanes();
    void menusAndToolTips();
    void dialogsOfTheMenus();
    void dialogsOfFiles();
    void contextMenus();
    void historyAndStatus();
    void everyTextIsInTheTranslationFiles();

private:
    void collectNames();
    // Fails the test on a text with words outside of marks that are no names of the document.
    void check(const QString &text, const QString &where);
    void checkActions(const QList<QAction *> &actions, const QString &where);
    void checkWidgets(QWidget *root);
    void checkAndCloseDialog();
    int numFaults() const;

    PseudoTranslator m_translator;
    QSet<QString> m_names;
    QStringList m_faults;
    int m_checked = 0;
};

void tst_PseudoLanguage::initTestCase()
{
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    // First, because translations of modules that are loaded later have priority.
    for (const char *module : {"VxTimeline", "VxKeyTools"})
        QVERIFY(QLibrary(QStringLiteral(VX_PLUGIN_DIR "/") + QLatin1String(module)).load());
    VxLanguage::addNewResources();
    QVERIFY(QCoreApplication::installTranslator(&m_translator));
}

void tst_PseudoLanguage::init()
{
    m_faults.clear();
    m_checked = 0;
    setUp();
    start();
    openSample();
    VxNode *thigh = vxScene->findNodeByLabel(QStringLiteral("Left Thigh"));
    QVERIFY(thigh);
    vxScene->setPrimarySelection(thigh);
    collectNames();
}

void tst_PseudoLanguage::cleanup()
{
    tearDown();
}

void tst_PseudoLanguage::collectNames()
{
    // With the texts of the toolkit.
    m_names = {QStringLiteral("VxStudio"), QStringLiteral("walk"), QStringLiteral("OK"),
               QStringLiteral("Cancel"), QStringLiteral("Close"), QStringLiteral("Show Details..."),
               QStringLiteral("Apply"), QStringLiteral("Deutsch"), QStringLiteral("English"),
               QStringLiteral("Key Tools"), QStringLiteral("VxTimeline"),
               // It is made before there are translations.
               QStringLiteral("An animation dope sheet and graph editor for ")};
    VxNodeListIterator nodes = vxScene->nodeListIterator();
    while (nodes.hasNext()) {
        const VxNode *node = nodes.next();
        m_names << node->getLabel() << node->getName();
        for (const VxProperty *property : node->getPropertyGroups()->collectAllProperties()) {
            m_names << property->getLabel() << property->getName();
            for (const QString &group : property->getPath().split(QLatin1Char('/')))
                m_names << group;
        }
    }
}

void tst_PseudoLanguage::check(const QString &text, const QString &where)
{
    ++m_checked;
    QString rest = unmarked(text);
    QStringList names = m_names.values();
    std::sort(names.begin(), names.end(),
              [](const QString &a, const QString &b) { return a.size() > b.size(); });
    for (const QString &name : qAsConst(names)) {
        if (rest.contains(name))
            rest.remove(name);
    }
    // Keys and their names, markup and names of files and of what the document contains.
    static const QRegularExpression noise(QStringLiteral(
        "<style.*?</style>|<[^>]*>|&\\w+;|\\b(Ctrl|Shift|Alt|Meta|Num)\\+|"
        "\\b(Esc|Ins|Del|Home|End|PgUp|PgDown|Space|Tab|Return|Enter|Backspace|Left|"
        "Right|Up|Down|F\\d+)\\b|[\\w/.-]*[/.](vxscene|ini|gltf|cpp|js|so)\\b|/[\\w/.-]+|"
        "\\b[A-Z]\\b"));
    rest.remove(noise);
    static const QRegularExpression words(QStringLiteral("[A-Za-z]{2,}"));
    if (words.match(rest).hasMatch())
        m_faults << where + QStringLiteral(": ") + text;
}

void tst_PseudoLanguage::checkActions(const QList<QAction *> &actions, const QString &where)
{
    for (const QAction *action : actions) {
        const QString place = where + QLatin1Char('/') + action->objectName();
        check(action->text(), place);
        check(action->toolTip(), place + QStringLiteral(" tool tip"));
        check(action->statusTip(), place + QStringLiteral(" status tip"));
        check(action->whatsThis(), place + QStringLiteral(" what's this"));
        if (QMenu *menu = action->menu()) {
            Q_EMIT menu->aboutToShow();
            checkActions(menu->actions(), place);
        }
    }
}

void tst_PseudoLanguage::checkWidgets(QWidget *root)
{
    VxAccessibleTree::visit(root, [this](QAccessibleInterface *object) {
        const QString where = object->object() ? object->object()->objectName() : QString();
        // The toolkit's, in a bar of tabs.
        if (where.startsWith(QLatin1String("Scroll")))
            return;
        // The log of changes is written in English alone.
        const auto *widget = qobject_cast<QWidget *>(object->object());
        if (widget && widget->inherits("QTextEdit") &&
            widget->window()->objectName() == QLatin1String("AboutBox"))
            return;
        for (const QAccessible::Text kind :
             {QAccessible::Name, QAccessible::Description, QAccessible::Help, QAccessible::Value})
            check(object->text(kind), where);
    });
    for (QWidget *widget : root->findChildren<QWidget *>()) {
        const QString where = VxAccessibleTree::pathOf(widget);
        if (where.contains(QLatin1String("AboutBox")) && widget->inherits("QTextEdit"))
            continue;
        check(widget->toolTip(), where + QStringLiteral(" tool tip"));
        check(widget->statusTip(), where + QStringLiteral(" status tip"));
        check(widget->whatsThis(), where + QStringLiteral(" what's this"));
        for (const char *name : {"text", "placeholderText", "title", "prefix", "suffix",
                                 "specialValueText", "currentText"})
            check(widget->property(name).toString(),
                  where + QLatin1Char(' ') + QLatin1String(name));
        if (widget->isWindow())
            check(widget->windowTitle(), where);
    }
}

int tst_PseudoLanguage::numFaults() const
{
    QStringList faults = m_faults;
    faults.removeDuplicates();
    for (const QString &fault : qAsConst(faults))
        qInfo().noquote() << fault;
    return faults.size();
}

void tst_PseudoLanguage::theFinderFindsAnUnmarkedText()
{
    QWidget widget;
    auto *child = new QWidget(&widget);
    child->setToolTip(QStringLiteral("Plain words"));
    checkWidgets(&widget);
    QVERIFY(m_faults.contains(QStringLiteral("QWidget > QWidget tool tip: Plain words")));
    m_faults.clear();
    check(Open + QStringLiteral("Set %1").arg(Open + QStringLiteral("X Rotate") + Close) + Close +
              QStringLiteral(" Left Thigh 3 (Ctrl+Del)"),
          QStringLiteral("test"));
    QCOMPARE(m_faults, QStringList());
    check(Open + QStringLiteral("One") + Close + QStringLiteral(" more"), QStringLiteral("test"));
    QCOMPARE(m_faults.size(), 1);
}

void tst_PseudoLanguage::windowWithAllPanes_data()
{
    QTest::addColumn<int>("viewMode");
    QTest::newRow("timeline with controls only") << 0;
    QTest::newRow("timeline with rows") << 1;
    QTest::newRow("timeline with rows and curves") << 2;
}

void tst_PseudoLanguage::windowWithAllPanes()
{
    QFETCH(int, viewMode);
    vxApp->getScriptEngine()->evaluate(
        QStringLiteral("App.findPane('VxTimePane').setViewMode(%1)").arg(viewMode),
        QStringLiteral("test"), nullptr);
    for (PaneDock *dock : window()->docks()->docks())
        dock->show();
    QCoreApplication::processEvents();
    checkWidgets(window());
    QVERIFY2(m_checked > 1000, qPrintable(QString::number(m_checked)));
    QCOMPARE(numFaults(), 0);
}

void tst_PseudoLanguage::menusAndToolTips()
{
    checkActions(window()->menuBar()->actions(), QStringLiteral("menus"));
    for (VxAction *action : actions()->getActions())
        checkActions({action}, QStringLiteral("actions"));
    QVERIFY2(m_checked > 500, qPrintable(QString::number(m_checked)));
    QCOMPARE(numFaults(), 0);
}

void tst_PseudoLanguage::checkAndCloseDialog()
{
    QWidget *dialog = QApplication::activeModalWidget();
    for (QWidget *widget : QApplication::topLevelWidgets()) {
        if (!dialog && widget != window() && widget->isVisible() && qobject_cast<QDialog *>(widget))
            dialog = widget;
    }
    if (!dialog)
        return;
    check(dialog->windowTitle(), QStringLiteral("title"));
    // The toolkit's own dialog and buttons have the toolkit's texts.
    if (!dialog->inherits("QFileDialog") && !dialog->inherits("QColorDialog"))
        checkWidgets(dialog);
    dialog->close();
}

void tst_PseudoLanguage::dialogsOfTheMenus()
{
    QVector<QAction *> found;
    for (QAction *action : window()->findChildren<QAction *>()) {
        if (unmarked(action->text()).isEmpty() && !action->menu() &&
            (action->text().contains(QLatin1String("...")) ||
             action->objectName() == QLatin1String("StudioAbout") ||
             action->objectName() == QLatin1String("StudioKeyOverview")))
            found += action;
    }
    QVERIFY(found.size() > 8);
    for (QAction *action : found) {
        QTimer timer;
        connect(&timer, &QTimer::timeout, this, [this] { checkAndCloseDialog(); });
        timer.start(5);
        action->trigger();
        checkAndCloseDialog();
    }
    QCOMPARE(numFaults(), 0);
}

void tst_PseudoLanguage::dialogsOfFiles()
{
    m_names << QStringLiteral("ball") << QStringLiteral("Animation")
            << QLocale().monthName(QDate::currentDate().month(), QLocale::ShortFormat);
    GltfSample sample;
    sample.root.insert("nodes", QJsonArray{QJsonObject{{"name", "ball"}}});
    for (int i = 0; i < 2; ++i)
        sample.animate(i, 0, "translation", "LINEAR", sample.floats({0, 1}, "SCALAR", 1),
                       sample.floats({0, 0, 0, 1, 1, 1}, "VEC3", 3));
    const QString name = folder->filePath(QStringLiteral("ball.gltf"));
    QFile file(name);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(sample.text()) > 0);
    file.close();
    VxMotionImport import(vxScene);
    VxFileError error;
    QVERIFY2(import.load(name, &error), qPrintable(error.text()));
    ImportDialog importDialog(&import, name, window());
    RecoveryDialog recoveryDialog(
        {RecoveryCopy{"1", "/tmp/1.vxscene", "/tmp/a.vxscene", "a", QDateTime::currentDateTime()}},
        window());
    for (QWidget *dialog :
         {static_cast<QWidget *>(&importDialog), static_cast<QWidget *>(&recoveryDialog)}) {
        dialog->show();
        checkWidgets(dialog);
    }
    QCOMPARE(numFaults(), 0);
}

void tst_PseudoLanguage::contextMenus()
{
    for (PaneDock *dock : window()->docks()->docks())
        dock->show();
    QCoreApplication::processEvents();
    int menus = 0;
    for (QWidget *widget : window()->findChildren<QWidget *>()) {
        // Scroll bars and text fields have menus of the toolkit.
        if (widget->inherits("QScrollBar"))
            continue;
        if (!widget->isVisible() || widget->inherits("QLineEdit") ||
            widget->inherits("QTextEdit") || widget->inherits("QPlainTextEdit") ||
            widget->inherits("QAbstractSpinBox"))
            continue;
        QTimer timer;
        connect(&timer, &QTimer::timeout, this, [&] {
            auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
            if (!menu)
                return;
            ++menus;
            checkActions(menu->actions(), VxAccessibleTree::pathOf(widget));
            menu->close();
        });
        timer.start(1);
        QPoint place = widget->rect().center();
        // On an item of a view.
        if (const auto *view = qobject_cast<QAbstractItemView *>(widget->parentWidget()))
            place = view->visualRect(view->model()->index(0, 0)).center();
        QTest::mouseClick(widget, Qt::RightButton, Qt::NoModifier, place);
        QContextMenuEvent event(QContextMenuEvent::Mouse, place, widget->mapToGlobal(place));
        QApplication::sendEvent(widget, &event);
    }
    QVERIFY2(menus > 5, qPrintable(QString::number(menus)));
    QCOMPARE(numFaults(), 0);
}

void tst_PseudoLanguage::historyAndStatus()
{
    const VxUndoStack *history = vxApp->getUndoStack();
    connect(window()->statusBar(), &QStatusBar::messageChanged, this,
            [this](const QString &text) { check(text, QStringLiteral("status")); });
    QTimer timer;
    connect(&timer, &QTimer::timeout, this, [this] {
        if (QWidget *popup = QApplication::activePopupWidget())
            popup->close();
        checkAndCloseDialog();
    });
    timer.start(5);
    static const QStringList leftOut{QStringLiteral("VxPlayToggleAction")};
    for (VxAction *action : actions()->getActions()) {
        if (leftOut.contains(QLatin1String(action->metaObject()->className())))
            continue;
        if (VxNode *thigh = vxScene->findNodeByLabel(QStringLiteral("Left Thigh")))
            vxScene->setPrimarySelection(thigh);
        action->trigger();
        QCoreApplication::processEvents();
    }
    QVERIFY2(history->count() > 8, qPrintable(QString::number(history->count())));
    collectNames();
    for (int i = 0; i < history->count(); ++i)
        check(history->text(i), QStringLiteral("history"));
    QCOMPARE(numFaults(), 0);
}

/** A text with another context than lupdate assumes could never be translated. */
void tst_PseudoLanguage::everyTextIsInTheTranslationFiles()
{
    const QSet<QString> known = knownTexts();
    QVERIFY(known.size() > 1000);
    // The description of a plug-in is translated where it is shown, that of any plug-in.
    QStringList unknown = (QSet<QString>(m_translator.asked) - known).values();
    unknown.erase(std::remove_if(unknown.begin(), unknown.end(),
                                 [](const QString &key) {
                                     return key.startsWith(QLatin1String("VxPlugin|"));
                                 }),
                  unknown.end());
    unknown.sort();
    for (const QString &text : qAsConst(unknown))
        qInfo().noquote() << text;
    QVERIFY2(m_translator.asked.size() > 500,
             qPrintable(QString::number(m_translator.asked.size())));
    QCOMPARE(unknown, QStringList());
}

VX_TEST_MAIN(tst_PseudoLanguage)
#include "tst_pseudolanguage.moc"
