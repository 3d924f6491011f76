// A small campaign whose rows have what the gateway's operations turn on: namesakes, lists, gaps and
// sentinels.
#pragma once

#include "support/world.h"

/// Sends each statement; the test fails at the first that is refused.
inline void send(World& world, const QStringList& statements)
{
    for (const QString& statement : statements) {
        if (!world.data().execQuery(statement))
            QTest::qFail(qPrintable(statement), __FILE__, __LINE__);
    }
}

inline QStringList companyStatements()
{
    return {
        QStringLiteral("INSERT INTO Company (Name,AddressKey,EntryDate) VALUES ('Zenith',1,'5/1/2026')"),
        QStringLiteral("INSERT INTO Company (Name,AddressKey,EntryDate) VALUES ('Borealis',2,'3/1/2026')"),
        QStringLiteral("INSERT INTO Address (City,Country) VALUES ('Duluth','USA')"),
        QStringLiteral("INSERT INTO Address (City,Country) VALUES ('Fargo','USA')"),
        QStringLiteral(
            "INSERT INTO Contact (FirstName,LastName,AddressKey,Notes,ContactList,DocumentList,CompanyKey)"
            " VALUES ('Ann','Lee',7,'knows acme','','1',1)"),
        QStringLiteral(
            "INSERT INTO Contact (FirstName,LastName,AddressKey,Notes,ContactList,DocumentList,CompanyKey)"
            " VALUES (' Bob ','Stone ',8,'ACME alumni','5,7,9','12,1',1)"),
        QStringLiteral(
            "INSERT INTO Contact (FirstName,LastName,AddressKey,Notes,ContactList,DocumentList,CompanyKey)"
            " VALUES ('Ann','Lee',9,'','13,3','3,1,4',2)"),
        QStringLiteral("INSERT INTO Contact (FirstName,LastName,AddressKey,DocumentList,CompanyKey)"
                       " VALUES ('Cy','Abbot',10,'1,5',2)"),
        QStringLiteral("INSERT INTO Contact (FirstName,LastName,AddressKey,DocumentList,CompanyKey)"
                       " VALUES ('Mary Ann','Young',11,'11,21',9)"),
        QStringLiteral("INSERT INTO Document (Document,Type,Sent,CreationDate) VALUES ('Resume "
                       "A','Resume',2,'1/2/2026')"),
        QStringLiteral("INSERT INTO Document (Document,Type) VALUES ('Letter','Cover')"),
    };
}

inline QStringList pipelineStatements()
{
    return {
        QStringLiteral(
            "INSERT INTO Position (Title,Keyword,Responsibilities,Qualifications,Notes,CompanyKey,Expires,"
            "Hired,HiredMedium) VALUES ('Planner','Transit','Plan routes','Rail, bus','none so far',1,"
            "'12/31/99','6/15/2026',2)"),
        QStringLiteral("INSERT INTO Position (Title,CompanyKey,Expires,Hired,HiredMedium) VALUES"
                       " ('Analyst',1,'1/1/2026','6/1/2026',3)"),
        QStringLiteral("INSERT INTO Position (Title,CompanyKey,Expires,ContactList) VALUES"
                       " ('Planner',2,'12/1/2026','5,7,9')"),
        QStringLiteral("INSERT INTO History (HistoryKey,ContactKey,ContactCount,Topic,ContactDate) VALUES"
                       " ('1-1',1,1,'Met at fair','6/10/2026')"),
        QStringLiteral("INSERT INTO History (HistoryKey,ContactKey,ContactCount,Topic,ContactDate) VALUES"
                       " ('1-3',1,3,'Call','6/20/2026')"),
        QStringLiteral("INSERT INTO History (HistoryKey,ContactKey,ContactCount,Topic,ContactDate) VALUES"
                       " ('1-2',1,2,'Fair follow-up','6/20/2026')"),
        QStringLiteral("INSERT INTO History (HistoryKey,ContactKey,ContactCount,Topic,ContactDate) VALUES"
                       " ('3-1',3,1,'Letter','6/30/2026')"),
        QStringLiteral(
            "INSERT INTO Event (Event,EventDate,EventType,PositionKey,CompanyKey,ContactKey) VALUES"
            " ('Interview','12/1/2026','Event',1,1,1)"),
        QStringLiteral(
            "INSERT INTO Event (Event,EventDate,EventType,PositionKey,CompanyKey,ContactKey) VALUES"
            " ('Write thanks','11/1/2026','Task',1,1,3)"),
        QStringLiteral("INSERT INTO Status (StatusDescription,StatusDate,StatusValue) VALUES "
                       "('MinLog','6/1/2026','500')"),
        QStringLiteral("INSERT INTO Status (StatusDescription,StatusDate,StatusValue) VALUES "
                       "('MinLog','6/10/2026','40')"),
        QStringLiteral("INSERT INTO Status (StatusDescription,StatusDate,StatusValue) VALUES "
                       "('MinLog','6/11/2026','40')"),
    };
}

inline QStringList profileStatements()
{
    return {
        QStringLiteral(
            "INSERT INTO Question (QKey,Question,AnswerCount,AnswerPref,Answers,AnswerType,ProfileType)"
            " VALUES (1,'Size?',3,2,'#small#middle#large#','M',0)"),
        QStringLiteral(
            "INSERT INTO Question (QKey,Question,AnswerCount,AnswerPref,Answers,AnswerType,ProfileType)"
            " VALUES (2,'Travel?',2,0,'#much#none#','M',0)"),
        QStringLiteral(
            "INSERT INTO Question (QKey,Question,AnswerCount,AnswerPref,Answers,AnswerType,ProfileType)"
            " VALUES (3,'Shift?',2,1,'#day#night#','M',1)"),
        QStringLiteral(
            "INSERT INTO CProfile (CompanyKey,QAns,PR,QCount,TemplateKey) VALUES (2,'#3#1#',1,2,1)"),
        QStringLiteral("INSERT INTO JProfile (PositionKey,QAns,PR,QCount,TemplateKey,CompanyKey)"
                       " VALUES (1,'#1#1#2#',5,3,1,1)"),
        QStringLiteral("INSERT INTO UProfile (Title,Subtitle,Category,TimeStart,TimeEndYear) VALUES"
                       " ('Dispatcher','Night','Experience','May','2019')"),
        QStringLiteral(
            "INSERT INTO Target (Name,Contacts,Rank,EntryDate) VALUES ('Borealis',2,1,'1/1/2026')"),
        QStringLiteral("INSERT INTO Target (Name,Rank) VALUES ('Kestrel',2)"),
    };
}

inline void loadCampaign(World& world)
{
    send(world, companyStatements() + pipelineStatements() + profileStatements());
}
