#include "console/scriptcompletion.h"

#include <algorithm>
#include <vxcore/vxscriptengine.h>

namespace {

const char *const Keywords[] = {"break", "case",  "catch", "continue", "default",   "delete",
                                "do",    "else",  "false", "finally",  "for",       "function",
                                "if",    "in",    "new",   "null",     "return",    "switch",
                                "this",  "throw", "true",  "try",      "typeof",    "undefined",
                                "var",   "void",  "while", "with",     "instanceof"};

bool isNamePart(QChar c)
{
    return c.isLetterOrNumber() || c == QLatin1Char('_') || c == QLatin1Char('$');
}

bool isOwnerPart(QChar c)
{
    return isNamePart(c) || c == QLatin1Char('.') || c == QLatin1Char('[') || c == QLatin1Char(']');
}

/** Whether a position is within quotes or a comment, by scanning the text before it. */
bool isInTextOrComment(const QString &program, int position)
{
    QChar quote;
    for (int i = 0; i < position; ++i) {
        const QChar c = program.at(i);
        const QChar following = i + 1 < position ? program.at(i + 1) : QChar();
        if (!quote.isNull()) {
            if (c == QLatin1Char('\\'))
                ++i;
            else if (c == quote || c == QLatin1Char('\n'))
                quote = QChar();
        } else if (c == QLatin1Char('"') || c == QLatin1Char('\'')) {
            quote = c;
        } else if (c == QLatin1Char('/') && following == QLatin1Char('/')) {
            i = program.indexOf(QLatin1Char('\n'), i);
            if (i < 0 || i >= position)
                return true;
        } else if (c == QLatin1Char('/') && following == QLatin1Char('*')) {
            i = program.indexOf(QLatin1String("*/"), i + 2) + 1;
            if (i <= 0 || i >= position)
                return true;
        }
    }
    return !quote.isNull();
}

} // namespace

ScriptWord ScriptWord::at(const QString &program, int position)
{
    ScriptWord word;
    word.isInText = isInTextOrComment(program, position);
    int start = position;
    while (start > 0 && isNamePart(program.at(start - 1)))
        --start;
    word.prefix = program.mid(start, position - start);
    word.hasDot = start > 0 && program.at(start - 1) == QLatin1Char('.');
    if (!word.hasDot)
        return word;
    const int dot = start - 1;
    int first = dot;
    while (first > 0 && isOwnerPart(program.at(first - 1)))
        --first;
    // The members of a call's result are unknown: finding them would require the call.
    if (first == 0 || program.at(first - 1) != QLatin1Char(')'))
        word.owner = program.mid(first, dot - first);
    return word;
}

QStringList scriptCompletions(const VxScriptEngine &engine, const ScriptWord &word)
{
    if (word.isInText)
        return {};
    QStringList names = word.hasDot ? engine.memberNames(word.owner) : engine.globalNames();
    if (!word.hasDot) {
        for (const char *keyword : Keywords)
            names.append(QLatin1String(keyword));
    }
    const auto misfits = [&word](const QString &name) {
        return !name.startsWith(word.prefix, Qt::CaseInsensitive);
    };
    names.erase(std::remove_if(names.begin(), names.end(), misfits), names.end());
    std::sort(names.begin(), names.end(), [](const QString &a, const QString &b) {
        const int order = a.compare(b, Qt::CaseInsensitive);
        return order != 0 ? order < 0 : a < b;
    });
    names.removeDuplicates();
    return names;
}
