#include "store/gateway/stepname.h"

#include "store/engine/changeset.h"
#include "store/engine/database.h"
#include "store/engine/enginecall.h"

#include <QCoreApplication>

#include <array>

using namespace Qt::StringLiterals;
using engine::RowChange;

namespace {

/// A kind of record: the columns that say which one it is, and the words for what was done to it.
struct Kind
{
    QStringView table;
    std::array<QStringView, 2> nameColumns; ///< empty for none
    const char* added;
    const char* changed;
    const char* takenOut;
};

#define WORDS(what)                                                                                          \
    QT_TRANSLATE_NOOP("StepName", "new " what " %1"),                                                        \
        QT_TRANSLATE_NOOP("StepName", "change of " what " %1"),                                              \
        QT_TRANSLATE_NOOP("StepName", "delete of " what " %1")

/// In the order in which a change is about them: what hangs on a company goes with it.
constexpr std::array kinds{
    Kind{u"Company", {u"Name", u""}, WORDS("company")},
    Kind{u"Position", {u"Title", u""}, WORDS("position")},
    Kind{u"Contact", {u"FirstName", u"LastName"}, WORDS("contact")},
    Kind{u"Document", {u"Document", u""}, WORDS("document")},
    Kind{u"Event", {u"Event", u""}, WORDS("event")},
    Kind{u"History", {u"Topic", u""}, WORDS("history")},
    Kind{u"Target", {u"Name", u""}, WORDS("target company")},
    Kind{u"UProfile", {u"Title", u""}, WORDS("profile item")},
    Kind{u"Address", {u"Address1", u"City"}, WORDS("address")},
    Kind{u"CProfile", {u"", u""}, WORDS("company profile")},
    Kind{u"JProfile", {u"", u""}, WORDS("position profile")},
    Kind{u"Question", {u"Question", u""}, WORDS("question")},
};

#undef WORDS

/// The rows of one kind, told by what was done to them.
struct Rows
{
    std::array<int, 3> counts{};
    const RowChange* latest = nullptr; ///< the row that names the change: one that is there, if there is any
};

Rows rowsOf(const std::vector<RowChange>& changes, const Kind& kind)
{
    Rows rows;
    for (const RowChange& change : changes) {
        if (change.table != kind.table)
            continue;
        ++rows.counts[change.kind];
        if (!rows.latest || change.kind == RowChange::Added)
            rows.latest = &change;
    }
    return rows;
}

QString presentText(Database& database, const schema::Table& table, QStringView column, qint64 key)
{
    const QString sql = u"select \"%1\" from \"%2\" where \"%3\" = %4"_s.arg(
        column, table.name, table.columns.front().name, QString::number(key));
    return engine::value(database.handle(), sql.toUtf8()).trimmed();
}

QString nameOf(Database& database, const Kind& kind, const RowChange& change)
{
    const schema::Table& table = *schema::findTable(kind.table);
    QStringList words;
    for (const QStringView column : kind.nameColumns) {
        if (column.isEmpty())
            continue;
        if (change.kind != RowChange::Changed)
            words.append(change.texts.value(table.indexOf(column)).trimmed());
        else
            words.append(presentText(database, table, column, change.texts.value(0).toLongLong()));
    }
    words.removeAll(QString());
    return words.join(u' ').simplified();
}

QString sentence(Database& database, const Kind& kind, const Rows& rows)
{
    const auto [added, changed, takenOut] = rows.counts;
    // A save of a whole record takes its row out and adds it anew.
    const char* words = added > takenOut ? kind.added : takenOut > added ? kind.takenOut : kind.changed;
    return QCoreApplication::translate("StepName", words).arg(nameOf(database, kind, *rows.latest)).trimmed();
}

} // namespace

QString stepName(Database& database, const QByteArray& changes)
{
    const std::vector<RowChange> all = engine::rowsOf(changes);
    const Kind* found = nullptr;
    Rows rows;
    for (const Kind& kind : kinds) {
        const Rows here = rowsOf(all, kind);
        if (!here.latest)
            continue;
        // A record that came or went tells more than one of which a field is new.
        const auto cameOrWent = [](const Rows& some) { return some.counts[0] + some.counts[2] > 0; };
        if (found && (cameOrWent(rows) || !cameOrWent(here)))
            continue;
        found = &kind;
        rows = here;
    }
    return found ? sentence(database, *found, rows)
                 : QCoreApplication::translate("StepName", "latest change");
}
