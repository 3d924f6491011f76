// The contact history on a store of its own.
#pragma once

#include "calendar/frmevcal.h"
#include "history/frmhistory.h"
#include "support/world.h"

#include <functional>

using namespace Qt::StringLiterals;

/// Notes which screens were asked for.
class NotedDoors : public Navigator
{
public:
    QStringList opened;

    [[nodiscard]] bool hasScreen(const QString&) const override { return true; }
    void openScreen(const QString& screen) override { opened.append(screen); }
    void openHelp(int) override {}
};

/// Ann Lee at Acme, and short ways to put in and to look at what belongs to her.
class HistoryBench
{
public:
    /// @p key is hers; others come before her when it is not 1.
    explicit HistoryBench(Key key = 1)
        : ann(key)
    {
        run(u"Insert into Company(Name) Values('Acme')"_s);
        run(u"Insert into Address(Address1,Address2,City,State,Zip,Phone1,Email2,URL1) "
            "Values('1 Main','Suite 2','Troy','NY','12180','555-1','ann@acme.example','acme.example')"_s);
        for (Key filler = 1; filler < key; ++filler)
            run(u"Insert into Contact(FirstName,LastName,CompanyKey) Values('Filler','X',1)"_s);
        run(u"Insert into Contact(FirstName,LastName,Title,AddressKey,BestMedium,ContactTime,LastContact,"
            "CompanyKey) Values('Ann','Lee','Buyer',1,'10010001','mornings','12/31/1999',1)"_s);
    }

    World world;
    NotedDoors doors;
    FrmEvCal calendar{*world.session, doors};
    FrmHistory history{*world.session, calendar};
    const Key ann;

    DataJW& data() { return world.data(); }
    void run(const QString& statement) { QVERIFY2(data().execQuery(statement), qPrintable(statement)); }
    void addPosition(const QString& title, const QString& contactList)
    {
        run(u"Insert into Position(Title,CompanyKey,ContactList) Values('"_s + title + u"',1,'" +
            contactList + u"')");
    }
    /// Puts a row of hers into the store; more columns as ",Name" and ",'value'".
    void addHistory(int count, const QString& date, const QString& topic, const QString& columns = {},
                    const QString& values = {})
    {
        const QString number = QString::number(count);
        const QString contact = QString::number(ann);
        run(u"Insert into History(HistoryKey,ContactKey,ContactCount,ContactDate,Topic"_s + columns +
            u") Values('" + contact + u'-' + number + u"'," + contact + u',' + number + u",'" + date +
            u"','" + topic + u'\'' + values + u')');
    }
    /// So many rows of hers, a day each, in one action.
    void fill(int rows)
    {
        const Action atOnce(data());
        for (int i = 1; i <= rows; ++i)
            addHistory(i, QDate(2024, 1, 1).addDays(i).toString(Qt::ISODate), u"Talk %1"_s.arg(i));
    }
    void open() { QVERIFY(history.load(ann)); }
    void choose(int slot) { history.lvwHistoryClick(slot - 1); }
    void type(const QString& control, const QString& text)
    {
        history.form().edit(control, text);
        history.fieldChanged(control);
    }
    /// Chooses a slot and takes over a day and a topic.
    void put(int slot, const QString& isoDay, const QString& topic)
    {
        choose(slot);
        type(u"DTPContact"_s, isoDay);
        type(u"txtTopic"_s, topic);
        history.cmdAddHistory();
    }
    [[nodiscard]] QString shown(const QString& control) { return history.form().text(control); }
    /// The topics in the list, "<New>" left out.
    QStringList listed()
    {
        QStringList topics;
        const auto& rows = history.lvwHistory().rows();
        for (size_t i = 0; i + 1 < rows.size(); ++i)
            topics.append(rows[i].texts.at(FrmHistory::TopicColumn));
        return topics;
    }
    /// The cells of a statement's rows, "a|b" a row and ";" between rows.
    QString cells(const QString& statement)
    {
        QStringList rows;
        for (RecordSet set = data().getExecQueryRecords(statement); !set.atEnd(); set.next()) {
            QStringList row;
            for (int column = 0; column < set.columnCount(); ++column)
                row.append(set.text(column));
            rows.append(row.join(u'|'));
        }
        return rows.join(u';');
    }
    QString stored()
    {
        return cells(u"Select HistoryKey,ContactDate,Topic from History order by ContactCount"_s);
    }
    QString lastContact()
    {
        return cells(u"Select LastContact from Contact where ContactKey="_s + QString::number(ann));
    }
    /// Lets statements of @p act fail for which @p fails says so, by number and text.
    void failing(const std::function<bool(size_t, QStringView)>& fails, const std::function<void()>& act)
    {
        size_t count = 0;
        data().database().setInterceptor([&](QStringView statement) {
            if (fails(count++, statement))
                throw StoreError(u"failed on purpose"_s, 1, u"test"_s);
        });
        act();
        data().database().setInterceptor({});
    }
};
