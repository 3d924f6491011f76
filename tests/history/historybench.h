// The contact history on a store of its own.
#pragma once

#include "history/frmhistory.h"
#include "support/screenbench.h"

/// Ann Lee at Acme, and short ways to put in and to look at what belongs to her.
class HistoryBench : public ScreenBench
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

    FrmHistory history{*world.session, navigator};
    const Key ann;

    void addPosition(const QString& title, const QString& contactList)
    {
        run(u"Insert into Position(Title,CompanyKey,ContactList,InfoFollow,InfoFollowMedium,SentResume,"
            "SentResumeMedium) Values('"_s +
            title + u"',1,'" + contactList + u"','12/31/1999',0,'12/31/1999',0)");
    }
    /// Puts a row of hers into the store; more columns as ",Name" and ",'value'".
    void addHistory(int count, const QString& date, const QString& topic, const QString& columns = {},
                    const QString& values = {})
    {
        run(u"Insert into History(HistoryKey,ContactKey,ContactCount,ContactDate,Topic%1) "
            "Values('%2-%3',%2,%3,'%4','%5'%6)"_s.arg(columns)
                .arg(ann)
                .arg(count)
                .arg(date, topic, values));
    }
    /// So many rows of hers, a day each, in one action.
    void fill(int rows)
    {
        const Action atOnce(data());
        for (int i = 1; i <= rows; ++i)
            addHistory(i, QDate(2024, 1, 1).addDays(i).toString(Qt::ISODate), u"Talk %1"_s.arg(i));
    }
    void open() { QVERIFY(history.load(ann)); }
    void close() { QVERIFY(history.unload()); }
    /// Presses the button for a removal, and answers the question when there must be one.
    void remove(const QString& question = {}, Answer answer = Answer::Ok)
    {
        if (!question.isEmpty())
            expect(question, answer);
        history.cmdRemoveHistory();
    }
    void choose(int slot) { history.lvwHistoryClick(slot - 1); }
    void type(const QString& control, const QString& text)
    {
        history.form().edit(control, text);
        history.fieldChanged(control);
    }
    /// Several: "control=text" each.
    void typeAll(const QStringList& edits)
    {
        for (const QString& each : edits)
            type(each.section(u'=', 0, 0), each.section(u'=', 1));
    }
    /// Chooses a slot and takes over a day, a topic, a return and whether a document was given.
    void put(int slot, const QString& isoDay, const QString& topic, const QString& follows = {},
             const QString& document = u"0"_s)
    {
        choose(slot);
        typeAll({u"DTPContact="_s + isoDay, u"txtTopic="_s + topic, u"cmbReturn="_s + follows,
                 u"chkDoxGiven="_s + document});
        history.cmdAddHistory();
    }
    QString shown(const QString& controls) { return shownIn(history.form(), controls); }
    /// The topics in the list, "<New>" left out.
    QString listed()
    {
        QStringList topics;
        for (const ListRow& row : history.lvwHistory().rows())
            topics.append(row.texts.value(FrmHistory::TopicColumn));
        topics.removeLast();
        return topics.join(u',');
    }
    QString stored()
    {
        return cells(u"Select HistoryKey,ContactDate,Topic from History order by ContactCount"_s);
    }
    QString lastContact()
    {
        return cells(u"Select LastContact from Contact where ContactKey="_s + QString::number(ann));
    }
    /// InfoFollow and SentResume of a position, each with its medium.
    QString steps(const QString& title)
    {
        return cells(u"Select InfoFollow,InfoFollowMedium,SentResume,SentResumeMedium from Position where "
                     "Title='"_s +
                     title + u'\'');
    }
};
