#ifndef VXFILETEXT_H
#define VXFILETEXT_H

#include <QCoreApplication>
#include <QLoggingCategory>
#include <string_view>

/// The log of files read and written, "vx.files".
Q_DECLARE_LOGGING_CATEGORY(vxFilesLog)

/// The translation context of the texts of readers and writers of files.
class VxFileText
{
    Q_DECLARE_TR_FUNCTIONS(VxFileText)

public:
    /// The beginning of a file's text for a message, without unprintable characters.
    static QString shown(std::string_view part)
    {
        constexpr std::size_t Longest = 40;
        QString text = QString::fromUtf8(part.data(), int(qMin(part.size(), Longest)));
        for (QChar &c : text) {
            if (!c.isPrint())
                c = QLatin1Char('?');
        }
        return part.size() > Longest ? text + QStringLiteral("...") : text;
    }
};

#endif
