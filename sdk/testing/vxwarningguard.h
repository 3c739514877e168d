#ifndef VXWARNINGGUARD_H
#define VXWARNINGGUARD_H

#include <QRegularExpression>
#include <QStringList>
#include <memory>

/**
 * Makes the current test fail on every warning it did not announce.
 *
 * While a guard lives it is the message handler's first listener; with several alive the one made
 * last is the only one that receives. A warning or critical message fails the test at once when it
 * is sent on the GUI thread, and at the guard's end when it is sent on another one, because the
 * test framework may only be called from the GUI thread. Everything that was not announced is still
 * passed on to the handler that was installed before, so the log stays complete. Notices of the
 * test platform about its own limits ("This plugin does not support ...") neither fail a test nor
 * count as announced.
 *
 * Make it inside a test function, or in init() and destroy it in cleanup(): outside a running test
 * there is no test to fail, and a failure ends the program.
 */
class VxWarningGuard
{
public:
    VxWarningGuard();
    /** Fails the test for expectations not met and for messages other threads left. */
    ~VxWarningGuard();
    VxWarningGuard(const VxWarningGuard &) = delete;
    VxWarningGuard &operator=(const VxWarningGuard &) = delete;

    /** Announces one warning or critical message in which `pattern` is found. Call it again for
     *  a message that is emitted twice. The earliest matching announcement is used up first. */
    void expect(const QRegularExpression &pattern);
    /** Announces one warning or critical message that reads exactly `text` (UTF-8). */
    void expect(const char *text);

    /** The warnings and critical messages received so far, announced or not, in order. */
    QStringList messages() const;

private:
    class Private;
    friend class VxWarningGuardHandler;
    std::shared_ptr<Private> d;
};

#endif
