#ifndef JOURNALKILLS_H
#define JOURNALKILLS_H

#include "document/documentcontroller.h"
#include "io/vxscenereader.h"
#include "randomedits.h"
#include "recovery/autosave.h"
#include "recovery/journalreplay.h"
#include "recovery/recoveryjournal.h"
#include "scenebytes.h"
#include "walksample.h"
#include "widgets/usermessages.h"

#include <QApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>
#include <QTimer>
#include <cstdio>
#include <ctime>
#include <map>
#include <vxcore/vxundostack.h>

/// A program that edits at random and is killed at random moments, and what is recovered of its
/// document afterwards.
namespace JournalKills {

inline qint64 milliseconds()
{
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return qint64(now.tv_sec) * 1000 + now.tv_nsec / 1000000;
}

inline QByteArray digestOf(VxScene *scene)
{
    makeAllControls(scene);
    return QCryptographicHash::hash(sceneBytes(scene), QCryptographicHash::Md5).toHex();
}

/// One line of the child's log; flushed, so that it survives the child.
inline void say(char kind, quint64 position, const QByteArray &digest = "-")
{
    std::printf("%c %llu %s %lld\n", kind, static_cast<unsigned long long>(position),
                digest.constData(), static_cast<long long>(milliseconds()));
    std::fflush(stdout);
}

/// The child: edits, undoes, redoes and saves until it is killed. Logs the digest of the document
/// after each change (E), when it was saved (C), and which changes are on the disk (S).
class Editor : public QObject
{
public:
    Editor(const QString &folder, unsigned seed)
        : m_file(QDir(folder).filePath(QStringLiteral("saved.vxscene")))
        , m_messages(UserMessages::Mode::Console)
        , m_document(&m_scene, &m_history, &m_messages, nullptr)
        , m_store(QDir(folder).filePath(QStringLiteral("recovery")))
        , m_save(&m_document, &m_scene, &m_history, &m_store, &m_messages)
        , m_journal(&m_document, &m_scene, &m_history, &m_store)
        , m_edits(&m_scene, seed)
    {
        WalkSample::build(&m_scene);
        makeAllControls(&m_scene);
        m_save.setJournal(&m_journal);
        m_save.setInterval(400);
        m_journal.setMaxBytes(30000);
        connect(&m_journal, &RecoveryJournal::synchronized, this, [this](quint64 position) {
            if (m_speaks)
                say('S', position);
        });
        connect(&m_timer, &QTimer::timeout, this, &Editor::act);
        m_history.clear();
        m_history.setClean();
    }

    /// Acts until the end of the program.
    void start()
    {
        m_speaks = true;
        say('C', 0, digestOf(&m_scene));
        m_timer.start(3);
    }
    /// Acts so many times, as the program with the same seed does.
    QByteArray digestAfter(int actions)
    {
        for (int i = 0; i < actions; ++i)
            act();
        m_timer.stop();
        return digestOf(&m_scene);
    }
    /// True when no copy is needed.
    bool isClean() const { return m_history.isClean(); }

private:
    void act()
    {
        if (m_speaks)
            say('B', ++m_actions);
        const quint64 before = m_journal.position();
        const int kind = m_edits.below(100);
        if (kind < 78)
            m_edits.edit();
        else if (kind < 87)
            m_history.undo();
        else if (kind < 93)
            m_history.redo();
        else if (kind < 95)
            m_edits.unwritableEdit();
        else if (kind < 97)
            m_edits.unrecordedChange();
        else if (kind == 98)
            m_document.save(m_file);
        else if (kind == 99)
            QThread::msleep(unsigned(m_edits.below(30)));
        QCoreApplication::sendPostedEvents(&m_history);
        if (m_speaks && (m_journal.position() != before || kind == 98))
            say(m_history.isClean() ? 'C' : 'E', m_journal.position(), digestOf(&m_scene));
        m_timer.start(1 + m_edits.below(25));
    }

    QString m_file;
    VxUndoStack m_history;
    VxScene m_scene;
    UserMessages m_messages;
    DocumentController m_document;
    RecoveryStore m_store;
    AutoSave m_save;
    RecoveryJournal m_journal;
    RandomEdits m_edits;
    QTimer m_timer;
    quint64 m_actions = 0;
    bool m_speaks = false;
};

/// The log of a child process.
struct Log
{
    struct Change
    {
        quint64 position;
        QByteArray digest;
        qint64 time;
        bool isClean;
    };

    explicit Log(const QByteArray &text)
    {
        const QList<QByteArray> lines = text.split('\n');
        for (const QByteArray &line : lines) {
            const QList<QByteArray> parts = line.split(' ');
            if (parts.size() != 4)
                continue;
            if (parts.at(0) == "S") {
                synchronized = parts.at(1).toULongLong();
            } else if (parts.at(0) == "B") {
                actions = parts.at(1).toInt();
                isActing = true;
            } else {
                isActing = false;
                changes.append({parts.at(1).toULongLong(), parts.at(2), parts.at(3).toLongLong(),
                                parts.at(0) == "C"});
            }
        }
    }

    /// The last change with this digest; -1 for none.
    int find(const QByteArray &digest) const
    {
        for (int i = changes.size() - 1; i >= 0; --i) {
            if (changes.at(i).digest == digest)
                return i;
        }
        return -1;
    }

    QVector<Change> changes;
    quint64 synchronized = 0;
    int actions = 0; ///< that were begun
    bool isActing =
        false; ///< the last one left no digest: the child was killed in it, if it made one
};

struct Outcome
{
    QString fault;   ///< empty when all is well
    int changes = 0; ///< until the kill
    int history = 0; ///< entries that can be undone after the recovery
    qint64 lost = 0; ///< the age of the oldest lost change, in milliseconds
    int numLost = 0; ///< changes that are lost
};

/// What can be recovered in a folder: the index of the latest change that a copy has, and the
/// number of its entries; -2 for a copy with a document that never was.
inline int recovered(const QString &folder, const Log &log, int *history, QString *fault)
{
    RecoveryStore store(folder);
    int latest = -1;
    const QVector<RecoveryCopy> copies = store.claim();
    for (const RecoveryCopy &copy : copies) {
        VxUndoStack stack;
        VxScene scene;
        VxSceneContents contents;
        VxFileError error;
        VxJournalContents journal;
        const bool hasJournal = store.readJournal(copy.id, &journal);
        if (!VxSceneReader().readFile(copy.sceneFile, &contents, &error)) {
            *fault = error.text();
            return -2;
        }
        VxSceneReader::install(std::move(contents), &scene);
        JournalReplay replay(&scene, &stack);
        if (hasJournal && !replay.run(journal)) {
            *fault = QStringLiteral("the entries of the copy cannot be applied again");
            return -2;
        }
        const int found = log.find(digestOf(&scene));
        if (found < 0) {
            *fault = QStringLiteral("the recovered document never was");
            return -2;
        }
        if (found >= latest) {
            latest = found;
            *history = stack.index();
        }
        // All of the history can be undone and redone.
        const QByteArray end = digestOf(&scene);
        const int index = stack.index();
        stack.setIndex(0);
        stack.setIndex(index);
        if (digestOf(&scene) != end)
            *fault = QStringLiteral("undo and redo change the recovered document");
        stack.clear();
    }
    return latest;
}

/// The child's main function.
inline int edit(const QString &folder, unsigned seed)
{
    Editor editor(folder, seed);
    editor.start();
    return QApplication::exec();
}

/// Runs a child, kills it after 200 to `longest` milliseconds, recovers its document and compares.
/// shim: what the child loads to keep what is on the disk alone; empty for none.
inline Outcome run(const QString &program, const QStringList &arguments, unsigned seed, int longest,
                   const QString &shim, bool fails)
{
    Outcome outcome;
    QTemporaryDir folder;
    const QString kept = folder.filePath(QStringLiteral("kept"));
    QDir().mkpath(kept);
    QProcess child;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    if (!shim.isEmpty()) {
        environment.insert(QStringLiteral("LD_PRELOAD"), shim);
        environment.insert(QStringLiteral("VX_SYNCED_FROM"),
                           folder.filePath(QStringLiteral("recovery")));
        environment.insert(QStringLiteral("VX_SYNCED_TO"), kept);
        if (fails)
            environment.insert(QStringLiteral("VX_FAILING"), QString::number(seed));
    }
    child.setProcessEnvironment(environment);
    child.start(program, arguments + QStringList{folder.path(), QString::number(seed)});
    std::mt19937 random(seed);
    if (!child.waitForReadyRead(20000)) {
        outcome.fault = QStringLiteral("the child does not start: ") + child.readAllStandardError();
        return outcome;
    }
    QThread::msleep(200 + random() % unsigned(longest - 200));
    const qint64 killed = milliseconds();
    child.kill();
    child.waitForFinished();
    Log log(child.readAllStandardOutput());
    // A change may be on the disk before its digest is in the log.
    if (log.isActing && !log.changes.isEmpty()) {
        const QTemporaryDir other;
        Editor again(other.path(), seed);
        const QByteArray digest = again.digestAfter(log.actions);
        // The child may have saved the document and removed the copy.
        log.changes.append({std::max(log.changes.last().position + 1, log.synchronized), digest,
                            killed, again.isClean()});
    }
    outcome.changes = log.changes.size() - log.isActing;
    if (child.exitStatus() != QProcess::CrashExit || log.changes.isEmpty()) {
        outcome.fault =
            QStringLiteral("the child ended by itself: ") + child.readAllStandardError();
        return outcome;
    }
    const QString place = shim.isEmpty() ? folder.filePath(QStringLiteral("recovery")) : kept;
    int found = recovered(place, log, &outcome.history, &outcome.fault);
    // What was saved needs no copy.
    for (int i = 0; i < log.changes.size() && found > -2; ++i) {
        if (log.changes.at(i).isClean)
            found = qMax(found, i);
    }
    if (found < 0 || !outcome.fault.isEmpty())
        return outcome;
    if (log.changes.at(found).position < log.synchronized)
        outcome.fault =
            QStringLiteral("change %1 was on the disk, the recovered one is %2%3")
                .arg(log.synchronized)
                .arg(log.changes.at(found).position)
                .arg(QLatin1String(log.changes.at(found).isClean ? ", the saved one" : ""));
    if (!outcome.fault.isEmpty() && qEnvironmentVariableIsSet("VX_KEEP_FAULTS")) {
        folder.setAutoRemove(false);
        outcome.fault += QStringLiteral(" (") + folder.path() + QLatin1Char(')');
    }
    outcome.numLost = log.changes.size() - 1 - found;
    if (outcome.numLost > 0)
        outcome.lost = killed - log.changes.at(found + 1).time;
    return outcome;
}

} // namespace JournalKills

#endif
