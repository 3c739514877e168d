#ifndef VXTESTMAIN_H
#define VXTESTMAIN_H

#include <QApplication>
#include <QtTest>

/**
 * One test file of a program that joins several.
 *
 * The program runs the unit whose file name it was started under (every unit has a hard link to its
 * program, `build/dev/tests/tst_name`), in a process of its own, or the one that its first argument
 * names. Without either it lists its units.
 */
class VxTestUnit
{
public:
    /** A program's main function without the program: runs the tests and returns the exit code. */
    using Run = int (*)(int argc, char **argv);

    /** `file` is the path of the unit's source file; its base name is the unit's name. */
    VxTestUnit(const char *file, Run run);
};

/** Runs the functions of a test object under an application object of the given class. */
template <class Test, class Application> int vxRunTest(int argc, char **argv)
{
    Application application(argc, argv);
    Test test;
    return QTest::qExec(&test, argc, argv);
}

template <class Test> int vxRunTestWithoutApplication(int argc, char **argv)
{
    Test test;
    return QTest::qExec(&test, argc, argv);
}

/** A unit with a main function of its own. */
#define VX_TEST_UNIT(run) VX_TEST_UNIT_NAMED(run, __COUNTER__)
#define VX_TEST_UNIT_NAMED(run, number) VX_TEST_UNIT_JOINED(run, number)
#define VX_TEST_UNIT_JOINED(run, number) static const VxTestUnit vxTestUnit##number(__FILE__, run);
/** A unit that has windows, one with an event loop only, and one with neither. */
#define VX_TEST_MAIN(Test) VX_TEST_UNIT((&vxRunTest<Test, QApplication>))
#define VX_TEST_GUILESS_MAIN(Test) VX_TEST_UNIT((&vxRunTest<Test, QCoreApplication>))
#define VX_TEST_APPLESS_MAIN(Test) VX_TEST_UNIT(&vxRunTestWithoutApplication<Test>)

#endif
