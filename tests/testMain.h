// testMain.h - one program for all test classes of a folder. Each run of it is a test of one class:
//     build/dev/bin/tests_esi tst_SmSection -v1
#pragma once

#include <QtTest>

#include <type_traits>

namespace testMain {

/// Runs all functions of a test class, or those that the arguments name as QtTest understands them.
/// @return the number of failed functions
using Run = int (*)(int argc, char** argv);

/// Makes a test class known to the program under its name.
void add(const char* name, Run run);

/// Stands for the application object of a test that has to do without one.
struct NoApplication
{};

/// Makes the application object and the test on it.
template<typename Test, typename Application> int run(int argc, char** argv)
{
    if constexpr (std::is_same_v<Application, NoApplication>) {
        Test test;
        return QTest::qExec(&test, argc, argv);
    } else {
        Application application(argc, argv);
        Application::setAttribute(Qt::AA_Use96Dpi); // letters are as large on every machine
        Test test;
        return QTest::qExec(&test, argc, argv);
    }
}

/// The last line of a test's source, before that of its moc file: puts the class into the program.
/// Application is QApplication, QCoreApplication or NoApplication.
template<typename Test, typename Application> struct Registration
{
    Registration() { add(Test::staticMetaObject.className(), run<Test, Application>); }
};

} // namespace testMain
