#!/usr/bin/env python3
"""Finds texts for users that are not translated, in the product sources.

    texts.py              exits with 1 and a list of what it found
    texts.py --self-test  checks the finder itself on small examples

A fault is
* a string literal of several words outside of tr(),
* a literal with letters that is passed to a function which shows it, directly or by the name of a
  constant of the same file,
* tr() of something that is no literal and no entry of a table marked for translation,
* a count in a hand-made plural instead of tr("%n keys", nullptr, n).
Messages of the log and of assertions are for developers. What else is meant for programs is in
ALLOWED, with the reason.
"""
import fnmatch
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
FOLDERS = ["sdk/src", "sdk/include", "app", "pluginsource"]

MARKS = {"tr", "translate", "QT_TRANSLATE_NOOP", "QT_TRANSLATE_N_NOOP", "QT_TRANSLATE_NOOP3"}
FOR_DEVELOPERS = {"qWarning", "qCWarning", "qDebug", "qCDebug", "qInfo", "qCInfo", "qCritical",
                  "qFatal", "vxWarning", "static_assert", "Q_ASSERT", "Q_ASSERT_X", "Q_CLASSINFO",
                  "Q_LOGGING_CATEGORY", "QRegularExpression", "QRegExp", "setObjectName",
                  "setProperty", "setStyleSheet"}
SHOWN = {"setText", "setTitle", "setToolTip", "setWindowTitle", "setStatusTip", "setWhatsThis",
         "setAccessibleName", "setAccessibleDescription", "setPlaceholderText", "setLabelText",
         "setPrefix", "setSuffix", "setSpecialValueText", "setInformativeText", "setDetailedText",
         "setHeaderLabels", "setHorizontalHeaderLabels", "addAction", "addMenu", "addTab",
         "addItem", "addItems", "insertItem", "addRow", "addButton", "addSection", "addOption",
         "showMessage", "showStatusMessage", "showError", "showNotice", "showText", "print",
         "printError", "drawText", "drawStaticText", "QLabel", "QPushButton", "QToolButton",
         "QCheckBox", "QRadioButton", "QGroupBox", "QAction", "QMenu", "QMessageBox",
         "QProgressDialog", "information", "question", "warning", "critical", "getText", "getInt",
         "getDouble", "getItem", "accept", "throwError", "fail", "vxFail", "vxCancel",
         "addNote", "addOmission"}

# File, text (both with * for anything), and why the text is not translated.
ALLOWED = [
    ("*/shell/actionlist.cpp", "*", "a page of the documentation, which is printed in English"),
    ("*/shell/diagnosis.cpp", "*", "a page for error reports, which developers read"),
    ("*actions.cpp", "/*", "the place in the menu; the menu translates its parts when it is filled"),
    ("*/posetools/vxposetoolactions.cpp", "Gizmo Orientation", "a part of the menu's place"),
    ("*plugin.cpp", "*", "plug-in records are made before translations exist; shown translated"),
    ("*/fbx/*.cpp", "*Lcl *", "a name in the file format"),
    ("*/fbx/vxfbxbinaryparser.cpp", "*FBX Binary*", "the signature of the file format"),
    ("*/fbx/vxfbxfigure.cpp", " *", "the name of a node in the document"),
    ("*/vxbvhwriter.cpp", "*", "words of the file format"),
    ("*/csv/vxcsvnames.cpp", "*", "the names of columns in the file format"),
    ("*/vxjournalfile.cpp", "vxjournal*", "the signature of the file format"),
    ("*", "Animation %1", "the name of a clip without one, as the option --animation takes it"),
    ("*/scene/nodecontrols.cpp", "*", "the labels of controls in the document"),
    ("*/create/standardfigure.cpp", "Upper Arm", "the label of a node in the document"),
    ("*/markers/markeredits.cpp", "Marker %1", "the name of a marker in the document"),
    ("*/motion/vxkeptrate.cpp", "Source Frame Rate", "the label of a property in the document"),
    ("*/motion/vxmotionhierarchy.cpp", "%1 orientation", "the name of a node in the document"),
    ("*/vxmirrornames.cpp", "*/Right*", "patterns for names, as the user types them"),
    ("*/vxpropertyspinbox.cpp", "0123456789*", "the characters that can be typed"),
    ("*/vxiconengine.cpp", "VxIcon *", "the key of a cache"),
    ("*/widgets/vxbuttonbar.cpp", "*", "reasons in a message of the log"),
    ("*/shell/commandline.cpp", "*FILE*", "place holders of the command line"),
    ("*/shell/main.cpp", "This plugin does not support", "compared with a message of the toolkit"),
    ("*", "vxstudio: ", "the name of the program before its messages"),
    ("*/keytoolscript.cpp", "KeyTools.%1: %2", "the name of a script function and its message"),
    ("*/shell/keyoverview.cpp", "<t*", "markup without words"),
]

# Words are first because most tokens are words; the one before a quote may be a literal's prefix. A "#" is
# no sign, so that the spaces before it belong to the directive.
TOKEN = re.compile(r'''
\s*(?:
  (?P<word>[A-Za-z_]\w*(?!["\w]))
 |(?P<comment>//[^\n]*|/\*.*?\*/)
 |(?P<raw>R"(?P<delim>[^(\s]{0,16})\((?P<rawtext>.*?)\)(?P=delim)")
 |(?P<string>(?:u8|u|U|L)?"(?P<text>(?:[^"\\\n]|\\.)*)")
 |(?P<char>'(?:[^'\\\n]|\\.)+')
 |(?P<directive>^[ \t]*\#[ \t]*\w+(?:[^\n\\]|\\.|\\\n)*)
 |(?P<prefix>[A-Za-z_]\w*)
 |(?P<number>\d[\w.']*)
 |(?P<sign>::|->|==|[^\s\w\#])
)''', re.X | re.S | re.M)
MARKUP = re.compile(r"<[^<>]*>|%[0-9n]|\\.|&\w+;")
LETTERS = re.compile(r"[A-Za-z]{2,}")
IDENTIFIER = re.compile(r"[\w.]+\(\)$|[A-Za-z]+[a-z][A-Z]\w*$")
PHRASE = re.compile(r"[A-Za-z]{2,}[,;:.!?)]* +[(\w]*[A-Za-z]|[A-Za-z]{2,}[.!?]$|%\d [A-Za-z]{2,}"
                    r"|[a-z]{2,} (?:%\d|\"|$)")


def tokens(source):
    """Kind, text and line; adjacent literals are joined."""
    line, start, held = 1, 0, None
    for match in TOKEN.finditer(source):
        kind, begin = match.lastgroup, match.start(match.lastindex)
        line += source.count("\n", start, begin)
        start = begin
        if kind in ("raw", "string"):
            text = match.group("rawtext" if kind == "raw" else "text")
            held = ("string", held[1] + text, held[2]) if held else ("string", text, line)
        elif kind not in ("comment", "directive"):
            if held:
                yield held
                held = None
            yield "word" if kind == "prefix" else kind, match.group(match.lastindex), line
    if held:
        yield held


class Finder:
    """Walks over the tokens of one source with the calls that are open at each."""

    def __init__(self, source):
        self.tokens = list(tokens(source))
        self.constants = self.find_constants()
        self.has_table = any(text.startswith("QT_TRANSLATE") for _, text, _ in self.tokens)
        self.is_log = False  # the present statement writes to the log
        self.faults = []

    def find_constants(self):
        """Names of constants that are one literal with letters, with the literal."""
        found = {}
        for i, (kind, text, _) in enumerate(self.tokens):
            if kind != "string" or not LETTERS.search(MARKUP.sub("", text)):
                continue
            before = [t for _, t, _ in self.tokens[max(0, i - 6):i]]
            while before and before[-1] in ("(", "QStringLiteral", "QLatin1String", "QString"):
                before.pop()
            if before[-1:] == ["="]:
                before.pop()
                while before and before[-1] in ("[", "]"):
                    before.pop()
                if before and re.match(r"[A-Za-z_]\w*$", before[-1]):
                    found[before[-1]] = text
        return found

    def fault(self, line, message):
        self.faults.append((line, message))

    def find(self):
        calls = []
        for i, (kind, text, line) in enumerate(self.tokens):
            before = self.tokens[i - 1][1] if i else ""
            if text in (";", "{", "}"):
                self.is_log = False
            elif text in FOR_DEVELOPERS:
                self.is_log = True
            if kind == "string":
                self.literal(text, line, calls)
            elif kind == "word":
                self.name(i, text, line, calls)
            elif text in "([{":
                is_name = re.match(r"[A-Za-z_]\w*$", before)
                calls.append(before if is_name and text != "{" else
                             before if is_name and before in SHOWN else text)
            elif text in ")]}" and calls:
                calls.pop()
        return self.faults

    @staticmethod
    def innermost(calls):
        """The open calls of the present statement, the innermost first."""
        for name in reversed(calls):
            if name == "{":
                return
            yield name

    def literal(self, text, line, calls):
        plain = MARKUP.sub(" ", text)
        if not LETTERS.search(plain):
            return
        around = list(self.innermost(calls))
        everywhere = set(calls)
        if self.is_log or MARKS & set(around) or FOR_DEVELOPERS & everywhere:
            return
        # A list in braces is passed on as well: addOption({"name", tr("text")}) keeps its names.
        if PHRASE.search(text):
            self.fault(line, text)
        else:
            passed = next((n for n in around if re.match(r"\w", n) and n not in
                           ("QStringLiteral", "QLatin1String", "QString", "fromLatin1", "fromUtf8")),
                          "")
            if passed in SHOWN and not IDENTIFIER.match(text):
                self.fault(line, text)

    def follows(self, i, text):
        return i + 1 < len(self.tokens) and self.tokens[i + 1][1] == text

    def name(self, i, text, line, calls):
        if text == "tr" and i + 2 < len(self.tokens) and self.follows(i, "("):
            kind, argument, _ = self.tokens[i + 2]
            if kind != "string" and argument not in MARKS and not self.has_table and \
                    argument != "const":
                self.fault(line, f"tr({argument}...")
        if text in self.constants:
            before, after = self.tokens[i - 1][1], self.tokens[i + 1][1] if i + 1 < len(
                self.tokens) else ""
            around = [n for n in self.innermost(calls) if re.match(r"\w", n)]
            if around and around[0] in SHOWN and before in ("(", ",") and after in (")", ","):
                self.fault(line, self.constants[text])
        # count == 1 ? tr("1 key") : tr("%1 keys").arg(count)
        words = [t for _, t, _ in self.tokens[i:i + 12]] if self.follows(i, "==") else []
        if words[1:4] == ["==", "1", "?"] and "tr" in words[4:]:
            later = [t for k, t, _ in self.tokens[i:i + 40] if k == "string"]
            if any(re.search(r"%\d", t) for t in later[1:2]) and not re.search(r"%\d", later[0]):
                self.fault(line, f"plural by hand: {later[1]}")


def faults_of(path, name):
    return [(line, text) for line, text in Finder(path.read_text()).find()
            if not any(fnmatch.fnmatchcase(name, file) and fnmatch.fnmatchcase(text, pattern)
                       for file, pattern, _ in ALLOWED)]


WRONG = [
    'label->setText("Play");',
    'label->setText(QStringLiteral("Play"));',
    'label->setToolTip(QLatin1String("Play " "now"));',
    'auto *box = new QLabel("Name", this);',
    'menu->addAction(icon, "Copy", this);',
    'QMessageBox::warning(this, tr("Title"), "Saved");',
    'hold.accept("Move");',
    'return context->throwError(QStringLiteral("%1 expects a number").arg(name));',
    'const QString text = QStringLiteral("Nothing is selected.");',
    'static const char *const names[] = {"First row", "Second row"};',
    'const char Title[] = "Keys";\nvoid f() { setWindowTitle(Title); }',
    'const QString title = QStringLiteral("Keys");\nvoid f() { label->setText(title); }',
    'box->setText(tr("One") + QStringLiteral(" more thing"));',
    'box->setText(tr(text));',
    'show(count == 1 ? tr("1 key") : tr("%1 keys").arg(count));',
    'auto a = R"(Raw text here)";',
    'qCInfo(log) << name; label->setText("Play");',
]
RIGHT = [
    'label->setText(tr("Play"));',
    'label->setText(Foo::tr("Play all", "a comment"));',
    'label->setText(QCoreApplication::translate("Foo", "Play all"));',
    'label->setText(QStringLiteral("%1: %2").arg(a, b));',
    'qWarning("Foo: nothing to add");',
    'qCInfo(log).noquote() << "copy written" << name;',
    'object.setProperty("first frame", 1);',
    '// label->setText("Play");\n/* "Play all" */',
    'settings->setIntValue(QStringLiteral("Minutes"), 3);',
    'static const char *const names[] = {QT_TRANSLATE_NOOP("Foo", "First row")};\n'
    'auto a = Foo::tr(names[i]);',
    'show(tr("%n keys", nullptr, count));',
    'show(nodes == 1 ? tr("Hide \\"%1\\"").arg(name) : tr("Hide %n Nodes", nullptr, nodes));',
    'bar->addAction(makeAction("copyKeys"));',
    '#include "some/file name.h"',
    "const char c = '\"'; label->setText(tr(\"Play\"));",
]


def self_test():
    wrong = [f"not found: {text}" for text in WRONG if not Finder(text).find()]
    wrong += [f"wrongly found {Finder(text).find()}: {text}" for text in RIGHT
              if Finder(text).find()]
    print("\n".join(wrong) if wrong else f"{len(WRONG) + len(RIGHT)} examples are judged correctly.")
    return 1 if wrong else 0


def main():
    if sys.argv[1:] == ["--self-test"]:
        return self_test()
    found = []
    for folder in FOLDERS:
        for path in sorted((ROOT / folder).rglob("*")):
            if path.suffix in (".cpp", ".h"):
                name = str(path.relative_to(ROOT))
                found += [f'{name}:{line}: "{text}"' for line, text in faults_of(path, name)]
    if found:
        print("\n".join(found))
        print(f"{len(found)} texts are not translated: use tr(), with %n for counts; what is not "
              "for users belongs into ALLOWED with a reason (cmake/texts.py).")
        return 1
    print("All texts for users are translated.")
    return 0


sys.exit(main())
