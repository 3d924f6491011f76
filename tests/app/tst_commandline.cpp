// The program from outside: commands, output, exit status.
#include "support/runtest.h"
#include "support/table.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLockFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

struct Outcome
{
    int status = -1;
    QString out;
    QString error;
};

/// Runs the program on a folder, with no display at all. @p input is the file that stands at its standard
/// input.
Outcome run(const QString& folder, const QStringList& arguments,
            const QString& input = QProcess::nullDevice())
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(u"QT_QPA_PLATFORM"_s);
    environment.remove(u"DISPLAY"_s);
    environment.remove(u"WAYLAND_DISPLAY"_s);
    process.setProcessEnvironment(environment);
    process.setStandardInputFile(input);
    process.start(QStringLiteral(JOBWRIGHT_PROGRAM), QStringList{u"--folder"_s, folder} + arguments);
    if (!process.waitForFinished(60000))
        return {};
    return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}

/// The JSON that a command writes.
QJsonDocument json(const QString& folder, const QStringList& arguments)
{
    return QJsonDocument::fromJson(run(folder, arguments + QStringList{u"--json"_s}).out.toUtf8());
}

/// Sends these statements to the store of the folder.
void query(const QString& folder, const QStringList& statements)
{
    for (const QString& statement : statements)
        QCOMPARE(run(folder, {u"query"_s, statement}).status, 0);
}

/// Bytes as printf(1) takes them.
QString octal(const QByteArray& bytes)
{
    QString text;
    for (const char byte : bytes)
        text += u"\\%1"_s.arg(static_cast<uchar>(byte), 3, 8, QLatin1Char('0'));
    return text;
}

QByteArray content(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

class TestCommandLine : public QObject
{
    Q_OBJECT

    QTemporaryDir m_demo;

    [[nodiscard]] QString demo() const { return m_demo.path() + u"/demo"; }

private slots:
    void initTestCase()
    {
        const Outcome made = run(demo(), {u"demo"_s});
        QVERIFY2(made.status == 0, qPrintable(made.error));
        const Outcome again = run(demo(), {u"demo"_s});
        QCOMPARE(again.status, 1);
        QVERIFY(again.error.contains(u"an empty database only"_s));
    }

    void statusOfEachCommand_data()
    {
        // command: its words set apart by "|"; output: must stand in standard output, or in standard error
        // when it failed
        columns<QString, int, QString>("command", "status", "output");
        const auto row = [](const char* command, int status, const char* output) {
            QTest::newRow(command) << QString::fromLatin1(command) << status << QString::fromLatin1(output);
        };
        row("--help", 0, "companies");
        row("--version", 0, "Jobwright 1.");
        row("frobnicate|a|b", 2, "too many: frobnicate a b.");
        row("init", 1, "holds a campaign already");
        row("restore|nothing.db|--yes", 1, "no copy nothing.db");
        row("copies", 0, "");
        row("summary", 2, "NAME"); // without its argument
        row("", 1, "no display");
        row("summary|Nobody & Sons", 1, "no company");
        row("positions|DANFORTH", 0, "Buyer Planner Castings");
        row("positions|a", 1, "Several");
        row("pipeline", 0, "##########- 10/11\n");
        row("contacts|alder & f", 0, "Mara Lindqvist");
        row("contacts|Nobody & Sons", 1, "no company");
        row("contacts|--find|LINDQ", 0, "Mara Lindqvist");
        row("history|mara lind", 0, "Next call");
        row("history|Nobody At All", 1, "no contact");
        row("history|a", 1, "Several");
        row("history| ", 2, "name is empty");
        row("history", 2, "CONTACT");
        row("history|--from|2026-01-01|--json", 0, "\"contact\": \"Mara Lindqvist\"");
        row("history|--to|soon", 2, "no day");
        row("search|contact|LINDQ", 0, "Contact by LastName : 1\n  Mara Lindqvist#");
        row("search|history|zzz|--json", 0, "\"sum\": 0");
        row("search|e|x", 2, "The kinds are");
        row("find|lindqvist|mara", 0, "  Mara Lindqvist ");
        row("find|%", 0, "");
        row("report|position|--pages", 0, "Progress:10");
        row("report|contact|--pdf|/nowhere/at.pdf", 1, "could not be written");
        row("report|everything", 2, "");
        row("query|drop table Company", 1, "jobwright: ");
        row("query|Select * from Company; Delete * from Company", 1, "jobwright: ");
        row("query|Select Count(*) from Event where EventKey=0", 0, "EXPR1000\r\n0\r\n");
        row("status|timedelta", 0, "10\n");
        row("status|Salary", 1, "Salary");
        row("import|/no/such.xml", 1, "not there");
        row("import|/tmp", 1, "/tmp is a folder");
        row("companies|--json|--long", 0, "\"lastContact\": \"");
        row("verify", 0, "The database is sound");
        row("parse-card|/no/such.txt", 1, "cannot be read");
        row("parse-card|/", 1, "cannot be read");
        row("parse-card", 0, "\"txtAddress\": \"\""); // nothing given
        row("agenda", 0, "");
        row("agenda|--month|2026-13", 2, "no month");
        row("agenda|--ics|--json", 2, "");
        row("due", 0, "overdue");
        row("paths", 0, "Postledger.db");
        row("goals|" JOBWRIGHT_SOURCE_DIR "/data/demo/goals-demo.jwg", 0,
            " goals met between 2026-10-24 and 2026-11-23");
        row("goals|" JOBWRIGHT_SOURCE_DIR "/data/demo/goals-demo.jwg|--to|soon", 2, "no day");
        row("goals|/no/such.jwg", 1, "/no/such.jwg");
        row("plan|" JOBWRIGHT_SOURCE_DIR "/data/demo/objplan-demo.jwg", 0, "Phase 1, 2026-");
        row("plan|" JOBWRIGHT_SOURCE_DIR "/data/objectives.jwd", 1, "objectives.jwd");
        row("objectives|--from|2026-08-01|--to|2026-11-30|--json", 0, "\"category\": \"conversion\"");
        row("stats", 0, "Companies");
    }
    void statusOfEachCommand()
    {
        FETCH(QString, command, output);
        QFETCH(int, status);
        const Outcome outcome = run(demo(), command.split(u'|', Qt::SkipEmptyParts));
        QCOMPARE(outcome.status, status);
        const QString& where = status == 0 ? outcome.out : outcome.error;
        QVERIFY2(where.contains(output), qPrintable(outcome.out + outcome.error));
        if (status != 0)
            QVERIFY(!outcome.error.isEmpty());
    }

    void storedEscapesNeverReachTheTerminal_data()
    {
        // lines: how many the command prints when no cell breaks its own
        columns<QString, int>("command", "lines");
        const auto row = [](const char* command, int lines) {
            QTest::newRow(command) << QString::fromLatin1(command) << lines;
        };
        row("companies", 2);
        row("companies|--long", 3);
        row("contacts", 2);
        row("contacts|Larch", 2);
        row("positions", 2);
        row("pipeline", 1);
        row("history|Ann", 2);
        row("history|--to|2026-11-22", 2);
        row("find|ann", 2);
        row("agenda|--month|2020-03", 2);
        row("due", 2);
        row("status|Tainted", 1);
        row("summary|Larch", 0); // as many as it has sentences
        row("summary|a", 1);     // several
        row("summary|\x1b[31mNobody", 1);
        row("history|\x1b[31mNobody", 1);
        row("query|Select No\x1b[31m from Company", 1);
    }
    void storedEscapesNeverReachTheTerminal()
    {
        QFETCH(QString, command);
        QFETCH(int, lines);
        static const QTemporaryDir folder;
        if (!QFile::exists(folder.filePath(u"Postledger.db"_s))) {
            const QString evil = u"\x1b[31m\r\n\u009b2J\a\rZ"_s;
            query(
                folder.path(),
                {u"Insert into Company(Name) Values('Larch%1')"_s.arg(evil),
                 u"Insert into Company(Name) Values('Alder')"_s,
                 u"Insert into Contact(FirstName,LastName,Title,CompanyKey) Values('Ann%1','Lee','x%1',1)"_s
                     .arg(evil),
                 u"Insert into Position(Title,CompanyKey,Source,Expires) Values('Clerk%1',1,'%1','12/31/99')"_s
                     .arg(evil),
                 u"Insert into History(HistoryKey,ContactKey,ContactCount,Topic,ContactDate) "
                 "Values('10001-1',10001,1,'Fair%1','11/5/26')"_s.arg(evil),
                 u"Insert into Event(Event,EventDate,EventTime,AMPM,EventDuration,Reminder1,Description,"
                 "EventType,Complete,CompanyKey,ContactKey) Values('Other%1','3/1/2020','9:00','PM','1','0',"
                 "'%1','Event','',1,10001)"_s.arg(evil),
                 u"Insert into Status(StatusDescription,StatusValue) Values('Tainted','\x1b[2Jred')"_s});
        }
        const Outcome outcome = run(folder.path(), command.split(u'|'));
        const QString shown = outcome.out + outcome.error;
        for (const QChar c : shown)
            QVERIFY2(c.category() != QChar::Other_Control || c == u'\n' || c == u'\t', qPrintable(shown));
        if (lines > 0)
            QCOMPARE(shown.count(u'\n'), lines);
        else
            QVERIFY(shown.count(u'\n') > 1);
        // What other programs read stays as it is stored.
        const QString select = u"Select Name from Company where CompanyKey=1"_s;
        QVERIFY(run(folder.path(), {u"query"_s, select}).out.contains(u"\x1b[31m\r\n\u009b2J\a\rZ"_s));
    }

    void pipelineSaysWhatTheStepsSay()
    {
        QTemporaryDir folder;
        query(folder.path(),
              {u"INSERT INTO Company (Name) VALUES ('Larch')"_s,
               u"INSERT INTO Position (Title,CompanyKey,SentResume,SentResumeMedium,Expires) VALUES "
               "('Clerk',1,'10/5/2026',3,'12/31/99')"_s});
        const QJsonObject position = json(folder.path(), {u"positions"_s})[0].toObject();
        QCOMPARE(position.value(u"company"_s).toString(), u"Larch"_s);
        QCOMPARE(position.value(u"progress"_s), QJsonValue(7));
        QCOMPARE(position.value(u"nextStep"_s).toString(), u"Received response, Follow-up again"_s);
        QVERIFY(position.value(u"expires"_s).isNull());
        const QJsonArray steps = json(folder.path(), {u"pipeline"_s})[0][u"steps"].toArray();
        QCOMPARE(steps.size(), 11);
        QCOMPARE(steps.at(6).toObject(),
                 (QJsonObject{
                     {u"step"_s, u"SentResume"_s}, {u"date"_s, u"2026-10-05"_s}, {u"medium"_s, u"Phone"_s}}));
        QVERIFY(steps.at(7)[u"date"].isNull());
    }

    void rowsAsCsvAndJson()
    {
        QTemporaryDir folder;
        query(
            folder.path(),
            {u"INSERT INTO Company (Name,Notes,EntryDate) VALUES ('Quinn, \"Q\" & Co','two\r\nlines','1/2/26')"_s});
        const QStringList select{u"query"_s,
                                 u"Select Name,Notes,EntryDate,Industry,CompanyKey from Company"_s};
        QCOMPARE(run(folder.path(), select).out,
                 u"Name,Notes,EntryDate,Industry,CompanyKey\r\n\"Quinn, \"\"Q\"\" & "
                 "Co\",\"two\r\nlines\",2026-01-02,,1\r\n"_s);
        const QJsonValue row = json(folder.path(), select)[0];
        QCOMPARE(row[u"Name"].toString(), u"Quinn, \"Q\" & Co"_s);
        QCOMPARE(row[u"CompanyKey"], QJsonValue(1));
        QVERIFY(row[u"Industry"].isNull());
        query(folder.path(), {u"Update Company set Industry='=1+1',Name='a=b',Notes='-'"_s});
        QVERIFY(run(folder.path(), select + QStringList{u"--safe"_s})
                    .out.endsWith(u"a=b,'-,2026-01-02,'=1+1,1\r\n"));
    }

    void agendaAndDueSayWhatThereIsAndChangeNothing()
    {
        QTemporaryDir folder;
        const QString event =
            u"Insert into Event(Event,EventDate,EventTime,AMPM,EventDuration,Reminder1,"
            "Description,EventType,Complete) Values('%1','%2','%3','PM','1','%4','gate, 2','%5','')"_s;
        query(folder.path(), {event.arg(u"Interview"_s, u"3/15/2020"_s, u"1:30"_s, u"24"_s, u"Event"_s),
                              event.arg(u"Referral"_s, u"3/2/2020"_s, u"9:00"_s, u"0"_s, u"Event"_s),
                              event.arg(u"Other Event"_s, u"4/1/2020"_s, u"Nodate"_s, u"0"_s, u"Event"_s),
                              event.arg(u"Call back"_s, u"12/31/1999"_s, QString(), u"0"_s, u"Task"_s),
                              u"Insert into Company(Name) Values('Larch')"_s,
                              u"Update Event set CompanyKey=1 where Event='Interview'"_s});
        const QByteArray before = content(folder.filePath(u"Postledger.db"_s));
        const QStringList month{u"agenda"_s, u"--month"_s, u"2020-03"_s};
        QStringList entries;
        for (const QJsonValue entry : json(folder.path(), month).array())
            entries.append(entry[u"name"].toString() + u' ' + entry[u"date"].toString() + u' ' +
                           entry[u"time"].toString() + u' ' + entry[u"state"].toString());
        QCOMPARE(entries, (QStringList{u"Referral 2020-03-02 21:00 open"_s,
                                       u"Interview 2020-03-15 13:30 open"_s, u"Call back   due"_s}));
        const QString ics = run(folder.path(), month + QStringList{u"--ics"_s}).out;
        QVERIFY2(ics.contains(u"SUMMARY:Interview (Larch)\r\n"_s), qPrintable(ics));
        QCOMPARE(ics.count(u"BEGIN:VEVENT\r\n"_s), 2);
        QCOMPARE(ics.count(u"BEGIN:VTODO\r\n"_s), 1);
        QVERIFY2(ics.contains(u"DESCRIPTION:gate\\, 2\r\n"_s), qPrintable(ics));
        const QJsonArray due = json(folder.path(), {u"due"_s}).array();
        QCOMPARE(due.size(), 3);
        QCOMPARE(due.at(1)[u"event"].toString() + due.at(1)[u"urgency"].toString(), u"Interviewoverdue"_s);
        QVERIFY(due.at(1)[u"timeLeft"].toString().endsWith(u" hrs"_s));
        QCOMPARE(due.at(1)[u"when"].toString() + u' ' + due.at(2)[u"when"].toString(),
                 u"2020-03-15 13:30:00 2020-04-01"_s);
        QVERIFY(content(folder.filePath(u"Postledger.db"_s)) == before);
        query(folder.path(), {u"Update Event set EventTime='noon'"_s});
        const Outcome broken = run(folder.path(), {u"due"_s});
        QVERIFY2(broken.out.contains(u"Interview"_s), qPrintable(broken.error));
    }

    void historiesOfANamesakeAsJson()
    {
        QTemporaryDir folder;
        const QString contact =
            u"Insert into Contact(FirstName,LastName,CompanyKey) Values('Ann','O`Lee',%1)"_s;
        query(folder.path(),
              {u"Insert into Company(Name) Values('Acme')"_s, u"Insert into Company(Name) Values('Bolt')"_s,
               contact.arg(1), contact.arg(2),
               u"Insert into History(HistoryKey,ContactKey,ContactCount,Topic,ContactDate,NextCall,"
               "DocumentXfer) Values('10002-1',10002,1,'Fair','11/5/26','12/31/1999','1')"_s});
        const Outcome unclear = run(folder.path(), {u"history"_s, u"ann o'lee"_s});
        QCOMPARE(unclear.status, 1);
        QVERIFY2(unclear.error.contains(u"Ann O`Lee (Acme); Ann O`Lee (Bolt)"_s), qPrintable(unclear.error));
        const QJsonArray all = json(folder.path(), {u"history"_s, u"Ann O'Lee (bolt)"_s}).array();
        QCOMPARE(all.size(), 1);
        QCOMPARE(all.at(0)[u"topic"].toString() + all.at(0)[u"date"].toString(), u"Fair2026-11-05"_s);
        QVERIFY(all.at(0)[u"nextCall"].isNull());
        QCOMPARE(all.at(0)[u"document"], QJsonValue(true));
    }

    void exportedFileComesBack()
    {
        QTemporaryDir folder;
        const QString file = folder.path() + u"/out.xml";
        QCOMPARE(run(demo(), {u"export"_s, file, u"--restore"_s}).status, 0);
        // The question comes for whatever the import takes, a line too many before the head included.
        QFile exported(file);
        QVERIFY(exported.open(QIODevice::ReadWrite));
        const QByteArray text = '\n' + exported.readAll();
        QVERIFY(exported.seek(0) && exported.write(text) == text.size());
        exported.close();
        const QString fresh = folder.path() + u"/fresh";
        const Outcome unasked = run(fresh, {u"import"_s, file});
        QCOMPARE(unasked.status, 1);
        QVERIFY(unasked.error.contains(u"--yes"_s));
        const Outcome restored = run(fresh, {u"import"_s, file, u"--yes"_s});
        QVERIFY2(restored.status == 0, qPrintable(restored.error));
        QVERIFY(restored.out.contains(u"Company Key: "_s) && restored.out.contains(u"Import Complete"_s));
        const QString companies = run(demo(), {u"companies"_s}).out;
        QCOMPARE(run(fresh, {u"companies"_s}).out, companies);
        // A file that somebody's editor broke: said so, and nothing is lost.
        QVERIFY(QFile::resize(file, QFileInfo(file).size() / 2));
        const Outcome refused = run(fresh, {u"import"_s, file, u"--yes"_s});
        QCOMPARE(refused.status, 1);
        QVERIFY2(!refused.error.isEmpty(), "a broken file was refused without a word");
        QCOMPARE(run(fresh, {u"companies"_s}).out, companies);
    }

    void nameThatIsNoneIsRefused_data()
    {
        columns<QByteArrayList, int, QString>("words", "status", "message");
        const auto row = [](const char* name, const QByteArrayList& words, int status, const char* message) {
            QTest::newRow(name) << words << status << QString::fromLatin1(message);
        };
        const QByteArray latin = "/tmp/caf\xE9";
        row("empty folder", {"--folder", "", "paths"}, 2, "folder's name is empty");
        row("folder in another encoding", {"--folder", latin, "paths"}, 2, "no valid UTF-8 text");
        row("empty export", {"export", ""}, 2, "file's name is empty");
        row("export in another encoding", {"export", latin}, 2, "no valid UTF-8 text");
        row("empty import", {"import", ""}, 2, "file's name is empty");
        row("empty copy", {"copy", ""}, 2, "file's name is empty");
        row("empty card", {"parse-card", ""}, 2, "file's name is empty");
        row("empty setting", {"status", "", "x"}, 2, "setting's name is empty");
        row("no home", {"paths"}, 3, "No home folder is known");
    }
    void nameThatIsNoneIsRefused()
    {
        QFETCH(QByteArrayList, words);
        QFETCH(int, status);
        QFETCH(QString, message);
        QTemporaryDir there;
        // By the system's own shell, as QProcess would turn the words into text before.
        QString line = u"unset HOME XDG_DATA_HOME JOBWRIGHT_FOLDER; exec \"$0\""_s;
        for (const QByteArray& word : words)
            line += u" \"$(printf '%1')\""_s.arg(octal(word));
        QProcess process;
        process.setWorkingDirectory(there.path());
        process.start(u"/bin/sh"_s, {u"-c"_s, line, QStringLiteral(JOBWRIGHT_PROGRAM)});
        QVERIFY(process.waitForFinished(60000));
        const QString error = QString::fromUtf8(process.readAllStandardError());
        QVERIFY2(error.contains(message), qPrintable(error));
        QCOMPARE(process.exitCode(), status);
        QVERIFY(QDir(there.path()).isEmpty());
    }

    void outputThatDoesNotArriveIsAFailure()
    {
        QProcess process;
        process.setStandardOutputFile(u"/dev/full"_s);
        process.start(QStringLiteral(JOBWRIGHT_PROGRAM), {u"--folder"_s, demo(), u"companies"_s});
        QVERIFY(process.waitForFinished(60000));
        QCOMPARE(process.exitCode(), 1);
        QVERIFY(process.readAllStandardError().contains("could not be written"));
    }

    void readersMakeNoCampaign()
    {
        QTemporaryDir folder;
        const QString there = folder.path() + u"/new";
        const Outcome refused = run(there, {u"companies"_s});
        QCOMPARE(refused.status, 3);
        QVERIFY2(refused.error.contains(u"There is no campaign in "_s + there), qPrintable(refused.error));
        QVERIFY(!QFile::exists(there));
        QCOMPARE(run(there, {u"init"_s}).status, 0);
        QCOMPARE(run(there, {u"companies"_s}).status, 0);
    }

    void copyIsListedAndRestored()
    {
        QTemporaryDir folder;
        query(folder.path(), {u"Insert into Company(Name) Values('Then')"_s});
        const QString copy = folder.path() + u"/backups/Postledger-2026-01-02-daily.db";
        QVERIFY(QDir(folder.path()).mkdir(u"backups"_s));
        QCOMPARE(run(folder.path(), {u"copy"_s, copy}).status, 0);
        query(folder.path(), {u"Insert into Company(Name) Values('Now')"_s});
        const QJsonValue listed = json(folder.path(), {u"copies"_s})[0];
        QCOMPARE(listed[u"name"].toString() + listed[u"made"].toString(),
                 u"Postledger-2026-01-02-daily.db2026-01-02"_s);
        QCOMPARE(listed[u"companies"], QJsonValue(1));
        const QStringList restore{u"restore"_s, u"newest"_s};
        QVERIFY(run(folder.path(), restore).error.contains(u"--yes"_s));
        // A database that cannot be opened is no hindrance.
        QVERIFY(QFile::resize(folder.filePath(u"Postledger.db"_s), 5000));
        QCOMPARE(run(folder.path(), restore + QStringList{u"--yes"_s}).status, 0);
        QCOMPARE(run(folder.path(), {u"companies"_s}).out, u"Then\n"_s);
    }

    void cardInAnyEncodingBecomesItsTwelveFields_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        const QString card = u"Café Größe\r\n6 Spindle Court\r\nBoston, MA 02139\r\nfax 617 555 0143\r\n"_s;
        const QByteArray wide(reinterpret_cast<const char*>(card.utf16()), 2 * card.size());
        QTest::newRow("UTF-8") << card.toUtf8();
        QTest::newRow("UTF-8 with its mark") << QByteArray("\xef\xbb\xbf" + card.toUtf8());
        QTest::newRow("one byte a character") << card.toLatin1();
        QTest::newRow("UTF-16") << QByteArray("\xff\xfe" + wide);
    }
    void cardInAnyEncodingBecomesItsTwelveFields()
    {
        QFETCH(QByteArray, bytes);
        QTemporaryDir folder;
        QFile file(folder.filePath(u"card.txt"_s));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
        file.close();
        QCOMPARE(run(folder.path() + u"/new", {u"init"_s}).status, 0);
        const Outcome fromFile = run(folder.path() + u"/new", {u"parse-card"_s, file.fileName()});
        QVERIFY2(fromFile.status == 0, qPrintable(fromFile.error));
        QCOMPARE(run(folder.path() + u"/new", {u"parse-card"_s}, file.fileName()).out, fromFile.out);
        const QJsonObject fields = QJsonDocument::fromJson(fromFile.out.toUtf8()).object();
        QCOMPARE(fields.size(), 12);
        QCOMPARE(fields.value(u"txtAddress"_s).toString(), u"Café Größe\r\n6 Spindle Court"_s);
        QCOMPARE(fields.value(u"txtZip"_s).toString(), u"02139"_s);
        QCOMPARE(fields.value(u"txtFax"_s).toString(), u"fax 617 555 0143"_s);
        QCOMPARE(fields.value(u"txtURL2"_s), QJsonValue(QString()));
    }

    void copyIsADatabaseOfItsOwn()
    {
        QTemporaryDir folder;
        QVERIFY(QDir(folder.path()).mkdir(u"second"_s));
        const QString target = folder.path() + u"/second/Postledger.db";
        QCOMPARE(run(demo(), {u"copy"_s, target}).status, 0);
        QCOMPARE(run(folder.path() + u"/second", {u"companies"_s}).out, run(demo(), {u"companies"_s}).out);
        QCOMPARE(run(demo(), {u"copy"_s, target}).status, 1); // never over an existing file
    }

    void folderInUseIsReadButNotWritten()
    {
        QLockFile lock(demo() + u"/jobwright.lock");
        QVERIFY(lock.tryLock());
        QCOMPARE(run(demo(), {u"companies"_s}).status, 0);
        QCOMPARE(run(demo(), {u"status"_s, u"TimeDelta"_s, u"5"_s}).status, 4);
    }

    void settingIsWrittenAndRead()
    {
        QTemporaryDir folder;
        QCOMPARE(run(folder.path(), {u"status"_s, u"TimeFreq"_s, u"it's"_s}).status, 0);
        QCOMPARE(run(folder.path(), {u"status"_s, u"TimeFreq"_s}).out, u"it`s\n"_s);
    }

    void spoiltStoresHaveTheirOwnStatus()
    {
        QTemporaryDir folder;
        query(folder.path(), {u"Insert into Contact(ContactKey) Values(32768)"_s});
        const Outcome outOfReach = run(folder.path(), {u"verify"_s});
        QCOMPARE(outOfReach.status, 5);
        QVERIFY2(outOfReach.error.contains(u"1 records of Contact stand under keys"_s) &&
                     outOfReach.out.contains(u"belongs to nobody\tContact.CompanyKey\t1\n"_s),
                 qPrintable(outOfReach.out + outOfReach.error));
        const QString path = folder.path() + u"/Postledger.db";
        QVERIFY(QFile::resize(path, QFileInfo(path).size() / 2));
        QCOMPARE(run(folder.path(), {u"companies"_s}).status, 3);
        QCOMPARE(run(folder.path(), {u"verify"_s}).status, 5);
        // Gone altogether: not silently replaced by an empty one.
        QVERIFY(QFile::remove(path));
        const Outcome missing = run(folder.path(), {u"companies"_s});
        QCOMPARE(missing.status, 3);
        QVERIFY(missing.error.contains(u"does not exist"_s));
        QVERIFY(!QFile::exists(path));
    }
};

JOBWRIGHT_TEST(TestCommandLine)
#include "tst_commandline.moc"
