// The program from outside: commands, output, exit status.
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
        QVERIFY(again.error.contains(u"new folder only"_s));
    }

    void statusOfEachCommand_data()
    {
        // output: must stand in standard output, or in standard error when it failed
        columns<QStringList, int, QString>("arguments", "status", "output");
        QTest::newRow("help") << QStringList{u"--help"_s} << 0 << u"companies"_s;
        QTest::newRow("version") << QStringList{u"--version"_s} << 0 << u"Jobwright 1."_s;
        QTest::newRow("unknown command") << QStringList{u"frobnicate"_s} << 2 << QString();
        QTest::newRow("missing argument") << QStringList{u"summary"_s} << 2 << u"NAME"_s;
        QTest::newRow("no display, no command") << QStringList{} << 1 << u"no display"_s;
        QTest::newRow("unknown company")
            << QStringList{u"summary"_s, u"Nobody & Sons"_s} << 1 << u"no company"_s;
        QTest::newRow("positions of one")
            << QStringList{u"positions"_s, u"DANFORTH"_s} << 0 << u"Buyer Planner Castings"_s;
        QTest::newRow("positions, several companies")
            << QStringList{u"positions"_s, u"a"_s} << 1 << u"Several"_s;
        QTest::newRow("bar") << QStringList{u"pipeline"_s} << 0 << u"##########- 10/11\n"_s;
        QTest::newRow("contacts of one")
            << QStringList{u"contacts"_s, u"alder & f"_s} << 0 << u"Mara Lindqvist"_s;
        QTest::newRow("contacts of nobody")
            << QStringList{u"contacts"_s, u"Nobody & Sons"_s} << 1 << u"no company"_s;
        QTest::newRow("history, a part of the name")
            << QStringList{u"history"_s, u"mara lind"_s} << 0 << u"Next call"_s;
        QTest::newRow("history of nobody")
            << QStringList{u"history"_s, u"Nobody At All"_s} << 1 << u"no contact"_s;
        QTest::newRow("history of an empty name")
            << QStringList{u"history"_s, u" "_s} << 2 << u"name is empty"_s;
        QTest::newRow("history, several people") << QStringList{u"history"_s, u"a"_s} << 1 << u"Several"_s;
        QTest::newRow("query, no statement")
            << QStringList{u"query"_s, u"drop table Company"_s} << 1 << u"jobwright: "_s;
        QTest::newRow("query, two statements")
            << QStringList{u"query"_s, u"Select * from Company; Delete * from Company"_s} << 1
            << u"jobwright: "_s;
        QTest::newRow("query, a count")
            << QStringList{u"query"_s, u"Select Count(*) from Event where EventKey=0"_s} << 0
            << u"EXPR1000\r\n0\r\n"_s;
        QTest::newRow("status, one") << QStringList{u"status"_s, u"timedelta"_s} << 0 << u"10\n"_s;
        QTest::newRow("status, unknown") << QStringList{u"status"_s, u"Salary"_s} << 1 << u"Salary"_s;
        QTest::newRow("import, no file")
            << QStringList{u"import"_s, u"/no/such.xml"_s} << 1 << u"not there"_s;
        QTest::newRow("import, a folder")
            << QStringList{u"import"_s, u"/tmp"_s} << 1 << u"/tmp is a folder"_s;
        QTest::newRow("companies, long and JSON")
            << QStringList{u"companies"_s, u"--json"_s, u"--long"_s} << 0 << u"\"lastContact\": \""_s;
        QTest::newRow("verify") << QStringList{u"verify"_s} << 0 << u"sound"_s;
        QTest::newRow("card, no file")
            << QStringList{u"parse-card"_s, u"/no/such.txt"_s} << 1 << u"cannot be read"_s;
        QTest::newRow("card, a folder") << QStringList{u"parse-card"_s, u"/"_s} << 1 << u"cannot be read"_s;
        QTest::newRow("card, nothing given")
            << QStringList{u"parse-card"_s} << 0 << u"\"txtAddress\": \"\""_s;
        QTest::newRow("agenda, this month") << QStringList{u"agenda"_s} << 0 << QString();
        QTest::newRow("agenda, no such month")
            << QStringList{u"agenda"_s, u"--month"_s, u"2026-13"_s} << 2 << u"no month"_s;
        QTest::newRow("agenda, two forms")
            << QStringList{u"agenda"_s, u"--ics"_s, u"--json"_s} << 2 << QString();
        QTest::newRow("due") << QStringList{u"due"_s} << 0 << u"overdue"_s;
        QTest::newRow("paths") << QStringList{u"paths"_s} << 0 << u"Postledger.db"_s;
    }
    void statusOfEachCommand()
    {
        QFETCH(QStringList, arguments);
        QFETCH(int, status);
        QFETCH(QString, output);
        const Outcome outcome = run(demo(), arguments);
        QCOMPARE(outcome.status, status);
        const QString& where = status == 0 ? outcome.out : outcome.error;
        QVERIFY2(where.contains(output), qPrintable(outcome.out + outcome.error));
        if (status != 0)
            QVERIFY(!outcome.error.isEmpty());
    }

    void pipelineSaysWhatTheStepsSay()
    {
        QTemporaryDir folder;
        const QString insert =
            u"INSERT INTO Position (Title,CompanyKey,SentResume,SentResumeMedium,Expires) VALUES "
            "('Clerk',1,'10/5/2026',3,'12/31/99')"_s;
        QCOMPARE(run(folder.path(), {u"query"_s, u"INSERT INTO Company (Name) VALUES ('Larch')"_s}).status,
                 0);
        QCOMPARE(run(folder.path(), {u"query"_s, insert}).status, 0);
        const auto first = [&](const QStringList& arguments) {
            return QJsonDocument::fromJson(run(folder.path(), arguments).out.toUtf8())
                .array()
                .at(0)
                .toObject();
        };
        const QJsonObject position = first({u"positions"_s, u"--json"_s});
        QCOMPARE(position.value(u"company"_s).toString(), u"Larch"_s);
        QCOMPARE(position.value(u"progress"_s), QJsonValue(7));
        QCOMPARE(position.value(u"nextStep"_s).toString(), u"Received response, Follow-up again"_s);
        QVERIFY(position.value(u"expires"_s).isNull());
        const QJsonArray steps = first({u"pipeline"_s, u"--json"_s}).value(u"steps"_s).toArray();
        QCOMPARE(steps.size(), 11);
        QCOMPARE(steps.at(6).toObject(),
                 (QJsonObject{
                     {u"step"_s, u"SentResume"_s}, {u"date"_s, u"2026-10-05"_s}, {u"medium"_s, u"Phone"_s}}));
        QVERIFY(steps.at(7).toObject().value(u"date"_s).isNull());
    }

    void rowsAsCsvAndJson()
    {
        QTemporaryDir folder;
        const QString insert =
            u"INSERT INTO Company (Name,Notes,EntryDate) VALUES ('Quinn, \"Q\" & Co','two\r\nlines','1/2/26')"_s;
        QCOMPARE(run(folder.path(), {u"query"_s, insert}).status, 0);
        const QString select = u"Select Name,Notes,EntryDate,Industry,CompanyKey from Company"_s;
        QCOMPARE(
            run(folder.path(), {u"query"_s, select}).out,
            u"Name,Notes,EntryDate,Industry,CompanyKey\r\n\"Quinn, \"\"Q\"\" & Co\",\"two\r\nlines\",2026-01-02,,1\r\n"_s);
        const QByteArray json = run(folder.path(), {u"query"_s, select, u"--json"_s}).out.toUtf8();
        const QJsonObject row = QJsonDocument::fromJson(json).array().at(0).toObject();
        QCOMPARE(row.value(u"Name"_s).toString(), u"Quinn, \"Q\" & Co"_s);
        QCOMPARE(row.value(u"CompanyKey"_s), QJsonValue(1));
        QVERIFY(row.value(u"Industry"_s).isNull());
    }

    void agendaAndDueSayWhatThereIsAndChangeNothing()
    {
        QTemporaryDir folder;
        const QString event =
            u"Insert into Event(Event,EventDate,EventTime,AMPM,EventDuration,Reminder1,"
            "Description,EventType,Complete) Values('%1','%2','%3','PM','1','%4','%5','%6','')"_s;
        for (const QString& statement :
             {event.arg(u"Interview"_s, u"3/15/2020"_s, u"1:30"_s, u"24"_s, u"gate, 2"_s, u"Event"_s),
              event.arg(u"Referral"_s, u"3/2/2020"_s, u"9:00"_s, u"0"_s, QString(), u"Event"_s),
              event.arg(u"Other Event"_s, u"4/1/2020"_s, u"9:00"_s, u"0"_s, QString(), u"Event"_s),
              event.arg(u"Call back"_s, u"12/31/1999"_s, QString(), u"0"_s, QString(), u"Task"_s)})
            QCOMPARE(run(folder.path(), {u"query"_s, statement}).status, 0);
        const auto store = [&folder] {
            QFile file(folder.filePath(u"Postledger.db"_s));
            return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
        };
        const QByteArray before = store();
        const QStringList month{u"agenda"_s, u"--month"_s, u"2020-03"_s};
        QStringList names;
        const auto agenda =
            QJsonDocument::fromJson(run(folder.path(), month + QStringList{u"--json"_s}).out.toUtf8());
        for (const QJsonValue& entry : agenda.array())
            names.append(entry[u"name"].toString() + u' ' + entry[u"date"].toString() + u' ' +
                         entry[u"time"].toString() + u' ' + entry[u"state"].toString());
        QCOMPARE(names, (QStringList{u"Referral 2020-03-02 21:00 open"_s,
                                     u"Interview 2020-03-15 13:30 open"_s, u"Call back   due"_s}));
        const QString ics = run(folder.path(), month + QStringList{u"--ics"_s}).out;
        QCOMPARE(ics.count(u"BEGIN:VEVENT\r\n"_s), 2);
        QCOMPARE(ics.count(u"BEGIN:VTODO\r\n"_s), 1);
        QVERIFY2(ics.contains(u"DESCRIPTION:gate\\, 2\r\n"_s), qPrintable(ics));
        const auto due =
            QJsonDocument::fromJson(run(folder.path(), {u"due"_s, u"--json"_s}).out.toUtf8()).array();
        QCOMPARE(due.size(), 3);
        QCOMPARE(due.at(1)[u"event"].toString(), u"Interview"_s);
        QCOMPARE(due.at(1)[u"urgency"].toString(), u"overdue"_s);
        QVERIFY(due.at(1)[u"timeLeft"].toString().endsWith(u" hrs"_s));
        QVERIFY(store() == before);
        QCOMPARE(run(folder.path(), {u"query"_s, u"Update Event set EventTime='noon'"_s}).status, 0);
        const Outcome broken = run(folder.path(), {u"due"_s});
        QCOMPARE(broken.status, 1);
        QVERIFY(broken.error.contains(u"noon"_s));
    }

    void historiesOfANamesakeAsJson()
    {
        QTemporaryDir folder;
        for (const QString& statement :
             {u"Insert into Company(Name) Values('Acme')"_s, u"Insert into Company(Name) Values('Bolt')"_s,
              u"Insert into Contact(FirstName,LastName,CompanyKey) Values('Ann','O`Lee',1)"_s,
              u"Insert into Contact(FirstName,LastName,CompanyKey) Values('Ann','O`Lee',2)"_s,
              u"Insert into "
              u"History(HistoryKey,ContactKey,ContactCount,Topic,ContactDate,NextCall,DocumentXfer) "
              "Values('2-1',2,1,'Fair','11/5/26','12/31/1999','1')"_s})
            QCOMPARE(run(folder.path(), {u"query"_s, statement}).status, 0);
        const Outcome unclear = run(folder.path(), {u"history"_s, u"ann o'lee"_s});
        QCOMPARE(unclear.status, 1);
        QVERIFY2(unclear.error.contains(u"Ann O`Lee (Acme); Ann O`Lee (Bolt)"_s), qPrintable(unclear.error));
        const Outcome one = run(folder.path(), {u"history"_s, u"--json"_s, u"Ann O'Lee (bolt)"_s});
        const QJsonArray all = QJsonDocument::fromJson(one.out.toUtf8()).array();
        QCOMPARE(all.size(), 1);
        const QJsonObject history = all.at(0).toObject();
        QCOMPARE(history.value(u"topic"_s).toString(), u"Fair"_s);
        QCOMPARE(history.value(u"date"_s).toString(), u"2026-11-05"_s);
        QVERIFY(history.value(u"nextCall"_s).isNull());
        QCOMPARE(history.value(u"document"_s), QJsonValue(true));
    }

    void exportedFileComesBack()
    {
        QTemporaryDir folder;
        const QString file = folder.path() + u"/out.xml";
        QCOMPARE(run(demo(), {u"export"_s, file, u"--restore"_s}).status, 0);
        const QString fresh = folder.path() + u"/fresh";
        const Outcome unasked = run(fresh, {u"import"_s, file});
        QCOMPARE(unasked.status, 1);
        QVERIFY(unasked.error.contains(u"--yes"_s));
        const Outcome restored = run(fresh, {u"import"_s, file, u"--yes"_s});
        QVERIFY2(restored.status == 0, qPrintable(restored.error));
        QVERIFY(restored.out.contains(u"Company Key: "_s) && restored.out.contains(u"Import Complete"_s));
        QCOMPARE(run(fresh, {u"companies"_s}).out, run(demo(), {u"companies"_s}).out);
        // A file that somebody's editor broke: said so, and nothing is lost.
        QFile broken(file);
        QVERIFY(broken.open(QIODevice::ReadWrite));
        broken.resize(broken.size() / 2);
        broken.close();
        const Outcome refused = run(fresh, {u"import"_s, file, u"--yes"_s});
        QCOMPARE(refused.status, 1);
        QVERIFY2(!refused.error.isEmpty(), "a broken file was refused without a word");
        QCOMPARE(run(fresh, {u"companies"_s}).out, run(demo(), {u"companies"_s}).out);
    }

    void folderWithoutANameIsNotTheUsersOwn()
    {
        QProcess process;
        process.start(QStringLiteral(JOBWRIGHT_PROGRAM), {u"--folder"_s, QString(), u"paths"_s});
        QVERIFY(process.waitForFinished(60000));
        QCOMPARE(process.exitCode(), 2);
        QVERIFY(process.readAllStandardError().contains("name is empty"));
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

    void severalReadersInANewFolderAllSucceed()
    {
        QTemporaryDir folder;
        std::vector<std::unique_ptr<QProcess>> readers;
        for (int i = 0; i < 6; ++i) {
            readers.push_back(std::make_unique<QProcess>());
            readers.back()->start(QStringLiteral(JOBWRIGHT_PROGRAM),
                                  {u"--folder"_s, folder.path(), u"companies"_s});
        }
        for (const auto& reader : readers) {
            QVERIFY(reader->waitForFinished(60000));
            QVERIFY2(reader->exitCode() == 0, reader->readAllStandardError().constData());
        }
    }

    void cardInAnyEncodingBecomesItsTwelveFields_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        const QString card = u"Café Größe\r\n6 Spindle Court\r\nBoston, MA 02139\r\nfax 617 555 0143\r\n"_s;
        QTest::newRow("UTF-8") << card.toUtf8();
        QTest::newRow("UTF-8 with its mark") << QByteArray("\xef\xbb\xbf" + card.toUtf8());
        QTest::newRow("one byte a character") << card.toLatin1();
        QTest::newRow("UTF-16") << QByteArray(
            "\xff\xfe" + QByteArray(reinterpret_cast<const char*>(card.utf16()), 2 * card.size()));
    }
    void cardInAnyEncodingBecomesItsTwelveFields()
    {
        QFETCH(QByteArray, bytes);
        QTemporaryDir folder;
        QFile file(folder.filePath(u"card.txt"_s));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
        file.close();
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

    void cardWithoutAreaCodesIsRefused()
    {
        QTemporaryDir folder;
        QCOMPARE(run(folder.path(), {u"companies"_s}).status, 0);
        QVERIFY(QFile::remove(folder.filePath(u"areacodes.jwd"_s)));
        const Outcome outcome = run(folder.path(), {u"parse-card"_s});
        QCOMPARE(outcome.status, 1);
        QVERIFY(outcome.error.contains(u"areacodes.jwd"_s) && outcome.out.isEmpty());
    }

    void settingIsWrittenAndRead()
    {
        QTemporaryDir folder;
        QCOMPARE(run(folder.path(), {u"status"_s, u"TimeFreq"_s, u"it's"_s}).status, 0);
        QCOMPARE(run(folder.path(), {u"status"_s, u"TimeFreq"_s}).out, u"it`s\n"_s);
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

    void spoiltStoresHaveTheirOwnStatus()
    {
        QTemporaryDir folder;
        QCOMPARE(run(folder.path(), {u"companies"_s}).status, 0);
        const QString path = folder.path() + u"/Postledger.db";
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadWrite));
        file.resize(file.size() / 2);
        file.close();
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

QTEST_GUILESS_MAIN(TestCommandLine)
#include "tst_commandline.moc"
