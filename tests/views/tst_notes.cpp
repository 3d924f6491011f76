// Sounds, and notes on a session bus of the test's own.
#include "desktop/notes.h"
#include "desktop/sound.h"
#include "support/runtest.h"

#include <QAudioDevice>
#include <QDBusConnection>
#include <QDBusContext>
#include <QFile>
#include <QMediaDevices>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>

using namespace Qt::StringLiterals;

/// Stands for the desktop's notification service; never answers a note with the title "Silence".
class NoteServer : public QObject, protected QDBusContext
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")

public:
    QStringList shown;

public slots:
    uint Notify(const QString& program, uint, const QString&, const QString& title, const QString& body,
                const QStringList&, const QVariantMap&, int)
    {
        if (title == u"Silence")
            setDelayedReply(true);
        shown << program << title << body;
        return 1;
    }
};

class TestNotes : public QObject
{
    Q_OBJECT

    QTemporaryDir m_folder;
    QProcess m_bus;

    void startBus();

private slots:
    void noteReachesWhoeverShowsNotes();
    void soundNeedsAWaveFileAndADevice();
};

void TestNotes::startBus()
{
    QFile config(m_folder.filePath(u"bus.conf"_s));
    QVERIFY(config.open(QIODevice::WriteOnly));
    config.write("<busconfig><type>session</type><listen>unix:tmpdir=" + m_folder.path().toUtf8() +
                 "</listen><policy context=\"default\"><allow send_destination=\"*\"/><allow own=\"*\"/>"
                 "<allow receive_sender=\"*\"/></policy></busconfig>");
    config.close();
    m_bus.start(u"dbus-daemon"_s,
                {u"--nofork"_s, u"--print-address"_s, u"--config-file"_s, config.fileName()});
    QVERIFY(m_bus.waitForReadyRead(10000));
    qputenv("DBUS_SESSION_BUS_ADDRESS", m_bus.readLine().trimmed());
}

void TestNotes::noteReachesWhoeverShowsNotes()
{
    qunsetenv("DBUS_SESSION_BUS_ADDRESS");
    qputenv("XDG_RUNTIME_DIR", m_folder.path().toUtf8());
    QVERIFY(!notes::show(u"Due"_s, u"no bus"_s));
    if (QStandardPaths::findExecutable(u"dbus-daemon"_s).isEmpty())
        QSKIP("there is no bus to be had on this machine");
    startBus();
    QVERIFY(!notes::show(u"Due"_s, u"nobody there"_s));
    QThread thread;
    NoteServer server;
    QDBusConnection bus =
        QDBusConnection::connectToBus(QString::fromUtf8(qgetenv("DBUS_SESSION_BUS_ADDRESS")), u"server"_s);
    QVERIFY(
        bus.registerObject(u"/org/freedesktop/Notifications"_s, &server, QDBusConnection::ExportAllSlots));
    server.moveToThread(&thread);
    thread.start();
    QVERIFY(bus.registerService(u"org.freedesktop.Notifications"_s));
    const bool answered = notes::show(u"Due"_s, u"Interview <b>at</b> A & B\nand 3 more"_s);
    const bool silent = notes::show(u"Silence"_s, QString());
    thread.quit();
    thread.wait();
    QVERIFY(answered);
    QVERIFY(!silent);
    QCOMPARE(
        server.shown.mid(0, 3),
        (QStringList{u"Jobwright"_s, u"Due"_s, u"Interview &lt;b&gt;at&lt;/b&gt; A &amp; B\nand 3 more"_s}));
    QDBusConnection::disconnectFromBus(u"server"_s);
    m_bus.terminate();
    m_bus.waitForFinished();
}

void TestNotes::soundNeedsAWaveFileAndADevice()
{
    const auto write = [this](const QString& name, const QByteArray& bytes) -> QString {
        QFile file(m_folder.filePath(name));
        return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() ? file.fileName()
                                                                                    : QString();
    };
    const bool canBeHeard = !QMediaDevices::defaultAudioOutput().isNull();
    Sound sound;
    QVERIFY(sound.hasPlayer());
    QVERIFY(!sound.play(m_folder.filePath(u"missing.wav"_s)));
    QVERIFY(!sound.play(m_folder.path()));
    QVERIFY(!sound.play(write(u"text.wav"_s, "a letter, not a sound")));
    QVERIFY(!sound.play(write(u"short.wav"_s, "RIFFWAVE")));
    const QByteArray tone = QByteArray::fromHex("52494646280000005741564566d74200") + QByteArray(40, '\0');
    QCOMPARE(sound.play(write(u"odd.wav"_s, tone)), canBeHeard); // broken behind its head: no crash
    QCOMPARE(sound.play(write(u"odd.wav"_s, tone)), canBeHeard);
    QCoreApplication::processEvents();
}

JOBWRIGHT_TEST(TestNotes)
#include "tst_notes.moc"
