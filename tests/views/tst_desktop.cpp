// Boxes, addresses and programs of the user's desktop.
#include "desktop/desktopprompts.h"
#include "desktop/desktopservices.h"
#include "support/runtest.h"
#include "support/table.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

static void write(const QString& path, const QByteArray& content)
{
    QVERIFY(QDir().mkpath(QFileInfo(path).path()));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
}

class TestDesktop : public QObject
{
    Q_OBJECT

private slots:
    void typedAddressBecomesUrl()
    {
        for (const QString& pair :
             {u"https://a.example/x?y=1|https://a.example/x?y=1"_s, u"www.a.example|https://www.a.example"_s,
              u"ann@a.example|mailto:ann@a.example"_s, u"/tmp/a.pdf|file:///tmp/a.pdf"_s,
              u"javascript:alert(1)|"_s, u"ssh://a.example|"_s, u"https://|"_s,
              u"www.a.example\nwww.b.example|"_s, u"  |"_s})
            QCOMPARE(DesktopServices::cleanAddress(pair.section(u'|', 0, 0)).toString(),
                     pair.section(u'|', 1));
    }

    void endingIsOpenableWhenAProgramIsListed()
    {
        QTemporaryDir home;
        for (const char* folder : {"XDG_DATA_HOME", "XDG_DATA_DIRS", "XDG_CONFIG_HOME", "XDG_CONFIG_DIRS"})
            qputenv(folder, home.path().toUtf8());
        // Types of its own, so that the test does not hang on what the machine has installed.
        write(
            home.filePath(u"mime/packages/types.xml"_s),
            "<?xml version=\"1.0\"?><mime-info xmlns='http://www.freedesktop.org/standards/shared-mime-info'>"
            "<mime-type type=\"application/msword\"><glob pattern=\"*.doc\"/></mime-type>"
            "<mime-type type=\"application/pdf\"><glob pattern=\"*.pdf\"/></mime-type></mime-info>");
        const DesktopServices desktop;
        QVERIFY(!desktop.canOpen(u".doc"_s));
        write(home.filePath(u"applications/mimeinfo.cache"_s),
              "[MIME Cache]\napplication/msword=writer.desktop;\napplication/pdf=\n");
        QVERIFY(desktop.canOpen(u".doc"_s));
        QVERIFY(!desktop.canOpen(u".pdf"_s));
        QVERIFY(!desktop.canOpen(u".nosuchending"_s));
    }

    void startedProgramGetsEachArgumentAsItStands()
    {
        QTemporaryDir folder;
        DesktopServices desktop;
        const QString path = folder.filePath(u"my cv; touch \"$HOME\" & *.pdf"_s);
        QVERIFY(desktop.startProgram(u"touch"_s, {path}));
        QTRY_VERIFY(QFile::exists(path));
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files).size(), 1);
        QVERIFY(!desktop.startProgram(folder.filePath(u"no such viewer"_s), {path}));
    }

    void boxAnswersWithTheButtonOfTheKey_data()
    {
        columns<Buttons, Qt::Key, Answer>("buttons", "key", "answer");
        QTest::newRow("Enter takes Yes") << Buttons::YesNo << Qt::Key_Return << Answer::Yes;
        QTest::newRow("Enter takes No where that is safer")
            << Buttons::YesNoDefaultNo << Qt::Key_Return << Answer::No;
        QTest::newRow("Esc is No without Cancel") << Buttons::YesNo << Qt::Key_Escape << Answer::No;
        QTest::newRow("Esc is Cancel") << Buttons::YesNoCancel << Qt::Key_Escape << Answer::Cancel;
        QTest::newRow("Esc closes a message") << Buttons::Ok << Qt::Key_Escape << Answer::Ok;
    }
    void boxAnswersWithTheButtonOfTheKey()
    {
        QFETCH(Buttons, buttons);
        QFETCH(Qt::Key, key);
        QFETCH(Answer, answer);
        QTimer::singleShot(0, this, [key] { QTest::keyClick(QApplication::activeModalWidget(), key); });
        QCOMPARE(DesktopPrompts().msgBox(u"Really?"_s, buttons, u"Title"_s), answer);
    }

    void boxShowsMarkupAsItStandsAndLongTextInASmallBox()
    {
        const QString markup = u"<b>Bold & <a href='x'>Sons</a></b>"_s;
        const QString report = u"A line of a very long report.\n"_s.repeated(500);
        QString shown;
        QString details;
        Qt::TextFormat format = Qt::AutoText;
        int height = 0;
        for (const QString& text : {markup, report}) {
            QTimer::singleShot(0, this, [&] {
                auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
                (text == markup ? shown : details) = text == markup ? box->text() : box->detailedText();
                format = box->textFormat();
                height = box->height();
                box->accept();
            });
            DesktopPrompts().msgBox(text, Buttons::Ok, u"Title"_s);
            QCOMPARE(format, Qt::PlainText);
            QVERIFY(height < 500);
        }
        QCOMPARE(shown, markup);
        QCOMPARE(details, report);
    }
};

JOBWRIGHT_TEST(TestDesktop)
#include "tst_desktop.moc"
