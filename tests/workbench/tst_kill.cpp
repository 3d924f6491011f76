// A process killed at any moment of a save, a closing or a restore leaves the store as before or as after it.
// JOBWRIGHT_KILLS sets the number of kills (50 without it).
#include "base/silentports.h"
#include "history/frmhistory.h"
#include "store/campaignfile.h"
#include "store/files/storefile.h"
#include "support/runtest.h"
#include "workbench/bench.h"
#include "workbench/contactscreen.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <QRandomGenerator>
#include <QThread>

#include <csignal>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

const QString child = u"--work"_s;

/// Agrees to everything.
class Agreeing : public SilentPrompts, public SilentDesktop
{
public:
    Answer msgBox(const QString&, Buttons buttons, const QString&) override
    {
        return buttons == Buttons::Ok ? Answer::Ok : Answer::Yes;
    }
};

/// Brings a screen to the last moment before the work and answers the work itself, as the screens do it.
std::function<void()> prepared(Presenters& presenters, const QString& kind)
{
    FrmData& frm = presenters.workbench;
    frm.load();
    frm.cmbSelectionClick(u"Own3"_s);
    frm.tabStrip1Click(u"Contact"_s);
    frm.contactScreen().showContact(u"F9 L"_s);
    if (kind == u"save") {
        frm.contactScreen().form().edit(u"txtDept"_s, u"saved"_s);
        return [&frm] { frm.contactScreen().cmdUpdateContact1(); };
    }
    FrmHistory& history = presenters.history;
    history.load(frm.selection().currentContactKey);
    for (int slot = 0; slot < 200; ++slot) {
        history.lvwHistoryClick(history.lvwHistory().rowCount() - 1);
        history.form().edit(u"txtTopic"_s, u"saved"_s);
        history.form().edit(u"chkDoxGiven"_s, u"1"_s);
        history.cmdAddHistory();
    }
    return [&history] { history.unload(); };
}

/// One piece of work on the store in @p folder; says "go" just before it begins and "done" just behind it.
int work(const QString& kind, const QString& folder)
{
    Agreeing agreeing;
    Session session(
        folder, [] { return QDateTime(QDate(2026, 11, 22), QTime(9, 30)); }, agreeing, agreeing);
    if (!session.dataJW().isConnected())
        return 1;
    NotedNavigator navigator;
    Presenters presenters(session, navigator);
    std::function<void()> act = [&] { session.dataJW().importXML(folder + u"/restore.xml"); };
    if (kind != u"restore")
        act = prepared(presenters, kind);
    std::puts("go");
    std::fflush(stdout);
    act();
    std::puts("done");
    std::fflush(stdout);
    // The end of a session writes too; here only the work itself is looked at.
    std::_Exit(0);
}

void copyStore(const QString& from, const QString& to)
{
    for (const char* file : {"Postledger.db", "restore.xml"})
        QVERIFY(QFile::copy(from + u'/' + QLatin1String(file), to + u'/' + QLatin1String(file)));
}

QByteArray hashOf(const QString& folder)
{
    Database database(folder + u"/Postledger.db");
    return contentHash(database);
}

void makeStore(const QString& folder)
{
    World world;
    campaignFile(true, u"Own"_s, 30).import(world);
    QCOMPARE(world.session->statusLine(), u"Import Complete"_s);
    QVERIFY(QFile::copy(campaignFile(true, u"New"_s, 40).write(world), folder + u"/restore.xml"));
    QVERIFY(world.data().execQuery(u"Update Contact set ContactList='10011,10012'"_s));
    world.session.reset();
    QVERIFY(QFile::copy(world.folder.path() + u"/Postledger.db", folder + u"/Postledger.db"));
}

/// Starts the work in a process of its own; kills it @p microseconds after it began, lets it end when
/// negative. Answers how long it ran.
qint64 runChild(const QString& kind, const QString& folder, qint64 microseconds)
{
    QProcess process;
    process.start(QCoreApplication::applicationFilePath(), {child, kind, folder});
    const auto saysSomething = [&process] {
        while (!process.canReadLine()) {
            if (!process.waitForReadyRead(20000))
                return false;
        }
        return !process.readLine().isEmpty();
    };
    if (!saysSomething())
        return -1;
    QElapsedTimer timer;
    timer.start();
    if (microseconds >= 0) {
        QThread::usleep(static_cast<unsigned long>(microseconds));
        ::kill(static_cast<pid_t>(process.processId()), SIGKILL);
    } else if (!saysSomething()) {
        return -1;
    }
    const qint64 took = timer.nsecsElapsed() / 1000;
    process.waitForFinished(60000);
    return took;
}

} // namespace

class TestKill : public QObject
{
    Q_OBJECT

private slots:
    void killedAtAnyMoment_data()
    {
        QTest::addColumn<QString>("kind");
        for (const char* kind : {"save", "history", "restore"}) // a record, a list, the whole store
            QTest::newRow(kind) << QString::fromLatin1(kind);
    }
    void killedAtAnyMoment()
    {
        QFETCH(QString, kind);
        const QTemporaryDir origin;
        makeStore(origin.path());
        const QByteArray before = hashOf(origin.path());
        const QTemporaryDir undisturbed;
        copyStore(origin.path(), undisturbed.path());
        const qint64 whole = runChild(kind, undisturbed.path(), -1);
        QVERIFY(whole > 0);
        const QByteArray after = hashOf(undisturbed.path());
        QVERIFY(after != before);

        bool isNumber = false;
        const int asked = qEnvironmentVariableIntValue("JOBWRIGHT_KILLS", &isNumber);
        const int kills = ((isNumber ? asked : 50) + 2) / 3;
        QRandomGenerator random(static_cast<quint32>(kind.size()));
        int untouched = 0;
        const auto killOnce = [&](qint64 within) {
            const QTemporaryDir folder;
            copyStore(origin.path(), folder.path());
            runChild(kind, folder.path(), random.bounded(within));
            const QString database = folder.path() + u"/Postledger.db";
            QCOMPARE(inspectStore(database).message, QString());
            const QByteArray left = hashOf(folder.path());
            QVERIFY2(left == before || left == after, "the store is neither as before nor as after");
            untouched += left == before ? 1 : 0;
            Database opened(database);
            opened.run(u"Insert into Company(Name) VALUES('Still works')"_s);
        };
        for (int i = 0; i < kills && !QTest::currentTestFailed(); ++i)
            killOnce(whole + whole / 10);
        // Kills that all came too late would have tested nothing. A machine that was busy while the work was
        // measured has done it sooner since, so they come earlier and earlier then.
        for (qint64 within = whole; untouched == 0 && within > 0 && !QTest::currentTestFailed(); within /= 2)
            killOnce(within);
        QVERIFY2(untouched > 0, "no kill came before the end of the work");
    }
};

static const bool killed = runtest::addChild(
    child, [](const QStringList& arguments) { return work(arguments.value(0), arguments.value(1)); });
JOBWRIGHT_TEST(TestKill)

#include "tst_kill.moc"
