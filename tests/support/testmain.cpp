// Runs the test class that the first argument names; without one it lists them.
#include "support/runtest.h"

#ifdef JOBWRIGHT_VIEW_TESTS
#include <QApplication>
using Application = QApplication;
#else
#include <QCoreApplication>
using Application = QCoreApplication;
#endif

#include <cstdio>

int main(int argc, char** argv)
{
    Application application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const QString name = arguments.value(1);
    if (const auto child = runtest::children().value(name))
        return child(arguments.mid(2));
    if (const auto test = runtest::tests().value(name)) {
        argv[1] = argv[0];
        return test(argc - 1, argv + 1);
    }
    for (const QString& each : runtest::tests().keys())
        std::puts(qPrintable(each));
    return name.isEmpty() ? 0 : 2;
}
