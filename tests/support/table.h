// The head of a data-driven test and of its body in one line each.
#pragma once

#include <QTest>

/// Gives the table of a data-driven test its columns: a name for each type, in order.
template<typename... Types, typename... Names> void columns(Names... names)
{
    static_assert(sizeof...(Types) == sizeof...(Names));
    (QTest::addColumn<Types>(names), ...);
}

/// Fills a data-driven test with texts: the columns' names, then a tag and its cells a row.
inline void table(std::initializer_list<const char*> names,
                  std::initializer_list<std::initializer_list<const char*>> rows)
{
    for (const char* const name : names)
        QTest::addColumn<QString>(name);
    for (const auto& row : rows) {
        QTestData& data = QTest::newRow(*row.begin());
        for (const char* const* cell = row.begin() + 1; cell != row.end(); ++cell)
            data << QString::fromUtf8(*cell);
    }
}

/// FETCH(QString, typed, stored) fetches the row's values of several columns of one type.
#define FETCH_1(Type, a) QFETCH(Type, a)
#define FETCH_2(Type, a, b)                                                                                  \
    QFETCH(Type, a);                                                                                         \
    QFETCH(Type, b)
#define FETCH_3(Type, a, ...)                                                                                \
    QFETCH(Type, a);                                                                                         \
    FETCH_2(Type, __VA_ARGS__)
#define FETCH_4(Type, a, ...)                                                                                \
    QFETCH(Type, a);                                                                                         \
    FETCH_3(Type, __VA_ARGS__)
#define FETCH_5(Type, a, ...)                                                                                \
    QFETCH(Type, a);                                                                                         \
    FETCH_4(Type, __VA_ARGS__)
#define FETCH_PICK(a, b, c, d, e, name, ...) name
#define FETCH(Type, ...)                                                                                     \
    FETCH_PICK(__VA_ARGS__, FETCH_5, FETCH_4, FETCH_3, FETCH_2, FETCH_1)(Type, __VA_ARGS__)
