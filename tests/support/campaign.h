// A small campaign whose rows have what the gateway's operations turn on: namesakes, lists, gaps and
// sentinels.
#pragma once

#include "support/world.h"

using namespace Qt::StringLiterals;

/// Sends each statement; the test fails at the first that is refused.
inline void send(World& world, const QStringList& statements)
{
    for (const QString& statement : statements) {
        if (!world.data().execQuery(statement))
            QTest::qFail(qPrintable(statement), __FILE__, __LINE__);
    }
}

inline void insert(World& world, const QString& columns, const QStringList& rows)
{
    for (const QString& row : rows)
        send(world, {u"INSERT INTO "_s + columns + u" VALUES (" + row + u')'});
}

inline void loadCampaign(World& world)
{
    const Action atOnce(world.data()); // one wait for the disk, not thirty
    insert(world, u"Company(Name,AddressKey,EntryDate)"_s,
           {u"'Zenith',1,'5/1/2026'"_s, u"'Borealis',2,'3/1/2026'"_s});
    insert(world, u"Address(City,Country)"_s, {u"'Duluth','USA'"_s, u"'Fargo','USA'"_s});
    insert(world, u"Contact(FirstName,LastName,AddressKey,Notes,ContactList,DocumentList,CompanyKey)"_s,
           {u"'Ann','Lee',7,'knows acme','','1',1"_s, u"' Bob ','Stone ',8,'ACME alumni','5,7,9','12,1',1"_s,
            u"'Ann','Lee',9,'','13,3','3,1,4',2"_s});
    insert(world, u"Contact(FirstName,LastName,AddressKey,DocumentList,CompanyKey)"_s,
           {u"'Cy','Abbot',10,'1,5',2"_s, u"'Mary Ann','Young',11,'11,21',9"_s});
    insert(world, u"Document(Document,Type,Sent,CreationDate)"_s, {u"'Resume A','Resume',2,'1/2/2026'"_s});
    insert(world, u"Document(Document,Type)"_s, {u"'Letter','Cover'"_s});
    insert(
        world,
        u"Position(Title,Keyword,Responsibilities,Qualifications,Notes,CompanyKey,Expires,Hired,HiredMedium)"_s,
        {u"'Planner','Transit','Plan routes','Rail, bus','none so far',1,'12/31/99','6/15/2026',2"_s});
    insert(world, u"Position(Title,CompanyKey,Expires,Hired,HiredMedium)"_s,
           {u"'Analyst',1,'1/1/2026','6/1/2026',3"_s});
    insert(world, u"Position(Title,CompanyKey,Expires,ContactList)"_s,
           {u"'Planner',2,'12/1/2026','5,7,9'"_s});
    insert(world, u"History(HistoryKey,ContactKey,ContactCount,Topic,ContactDate)"_s,
           {u"'1-1',1,1,'Met at fair','6/10/2026'"_s, u"'1-3',1,3,'Call','6/20/2026'"_s,
            u"'1-2',1,2,'Fair follow-up','6/20/2026'"_s, u"'3-1',3,1,'Letter','6/30/2026'"_s});
    insert(world, u"Event(Event,EventDate,EventType,PositionKey,CompanyKey,ContactKey)"_s,
           {u"'Interview','12/1/2026','Event',1,1,1"_s, u"'Write thanks','11/1/2026','Task',1,1,3"_s});
    insert(world, u"Status(StatusDescription,StatusDate,StatusValue)"_s,
           {u"'MinLog','6/1/2026','500'"_s, u"'MinLog','6/10/2026','40'"_s, u"'MinLog','6/11/2026','40'"_s});
    insert(world, u"Question(QKey,Question,AnswerCount,AnswerPref,Answers,AnswerType,ProfileType)"_s,
           {u"1,'Size?',3,2,'#small#middle#large#','M',0"_s, u"2,'Travel?',2,0,'#much#none#','M',0"_s,
            u"3,'Shift?',2,1,'#day#night#','M',1"_s});
    insert(world, u"CProfile(CompanyKey,QAns,PR,QCount,TemplateKey)"_s, {u"2,'#3#1#',1,2,1"_s});
    insert(world, u"JProfile(PositionKey,QAns,PR,QCount,TemplateKey,CompanyKey)"_s,
           {u"1,'#1#1#2#',5,3,1,1"_s});
    insert(world, u"UProfile(Title,Subtitle,Category,TimeStart,TimeEndYear)"_s,
           {u"'Dispatcher','Night','Experience','May','2019'"_s});
    insert(world, u"Target(Name,Contacts,Rank,EntryDate)"_s, {u"'Borealis',2,1,'1/1/2026'"_s});
    insert(world, u"Target(Name,Rank)"_s, {u"'Kestrel',2"_s});
}
