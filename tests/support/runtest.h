// Test classes in one executable: each names itself with JOBWRIGHT_TEST, and the executable runs the one it
// is asked for.
#pragma once

#include <QFileInfo>
#include <QMap>
#include <QStringList>
#include <QTest>

#include <functional>

namespace runtest {

using Test = std::function<int(int, char**)>;
using Child = std::function<int(const QStringList&)>;

/// The test classes by the names of their files.
inline QMap<QString, Test>& tests()
{
    static QMap<QString, Test> all;
    return all;
}

/// What a test starts in a process of its own, by the first argument.
inline QMap<QString, Child>& children()
{
    static QMap<QString, Child> all;
    return all;
}

/// True, so that it can start a static variable.
inline bool add(const char* file, Test test)
{
    tests().insert(QFileInfo(QString::fromUtf8(file)).completeBaseName(), std::move(test));
    return true;
}

inline bool addChild(const QString& argument, Child child)
{
    children().insert(argument, std::move(child));
    return true;
}

} // namespace runtest

/// The class runs under its file's name: "tests_store tst_copies [QtTest's arguments]".
#define JOBWRIGHT_TEST(Class)                                                                                \
    static const bool registered##Class = runtest::add(__FILE__, [](int argc, char** argv) {                 \
        Class test;                                                                                          \
        QTEST_SET_MAIN_SOURCE_PATH                                                                           \
        return QTest::qExec(&test, argc, argv);                                                              \
    });
