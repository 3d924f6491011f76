// The head of a data-driven test and of its body in one line each.
#pragma once

#include <QTest>

/// Gives the table of a data-driven test its columns: a name for each type, in order.
template<typename... Types, typename... Names> void columns(Names... names)
{
    static_assert(sizeof...(Types) == sizeof...(Names));
    (QTest::addColumn<Types>(names), ...);
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
