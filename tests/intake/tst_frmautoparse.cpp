// The screen Fast Data Parsing: what its buttons do to the fields, and how another screen gets them back.
#include "intake/frmautoparse.h"
#include "support/errorlog.h"
#include "support/runtest.h"
#include "support/screenbench.h"
#include "support/table.h"

#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const CardFields entryControls{u"txtEAddress"_s, u"txtECity"_s, u"txtEState"_s, u"txtEZip"_s,
                               u"txtEP1"_s,      u"txtEP2"_s,   u"txtEP3"_s,    u"txtEFax"_s,
                               u"txtEEM1"_s,     u"txtEEM2"_s,  u"txtEURL1"_s,  u"txtEURL2"_s};

constexpr QStringView card = u"6 Spindle Court\nBoston, MA 02139\n617-555-0142\nann@mill.example";

} // namespace

class TestFrmAutoParse : public QObject
{
    Q_OBJECT

    std::unique_ptr<World> m_world;
    std::unique_ptr<FrmAutoParse> m_screen;
    std::unique_ptr<Form> m_entry;
    NotedNavigator m_user;

    QString shown(const QString& control) { return m_screen->form().text(control); }
    void type(QStringView text) { m_screen->form().edit(u"txtBizCard"_s, text.toString()); }

private slots:
    void init()
    {
        m_world = std::make_unique<World>();
        QVERIFY(QFile::copy(QStringLiteral(JOBWRIGHT_SOURCE_DIR) + u"/data/areacodes.jwd",
                            m_world->folder.filePath(u"areacodes.jwd"_s)));
        m_screen = std::make_unique<FrmAutoParse>(*m_world->session);
        std::vector<FieldRow> rows;
        for (const QString& control : entryControls)
            rows.push_back({control, {}, SaveOn::Record});
        m_entry = std::make_unique<Form>(rows);
        m_user = {};
    }

    void secondSortingForgetsTheFirst()
    {
        m_screen->load({});
        type(card);
        m_screen->cmdVerify();
        QCOMPARE(shown(u"txtEm1"_s), u"ann@mill.example"_s);
        QCOMPARE(shown(u"Label2"_s), u"617 - MA"_s);
        type(u"19 Perry Street\n(999) 555-0100");
        m_screen->cmdVerify();
        QCOMPARE(shown(u"txtAddress"_s), u"19 Perry Street\r\n(999) 555-0100"_s);
        QCOMPARE(shown(u"txtCity"_s) + shown(u"txtP1"_s) + shown(u"txtEm1"_s), QString());
        QCOMPARE(shown(u"Label2"_s), u"999 - "_s); // why it is no telephone number
        type(u"19 Perry Street\nPhone");
        m_screen->cmdVerify();
        QCOMPARE(shown(u"Label2"_s), QString());
    }

    void callersFieldsAreFilledAsDecided_data()
    {
        columns<QString, QString>("button", "filled"); // street, city, fax and mail
        // Overwritten, emptied too; only the empty ones; discarded; closed. Two empty lines are no street.
        QTest::newRow("cmdSave") << u"cmdSave"_s << u"6 Spindle Court|Boston||changed@mill.example"_s;
        QTest::newRow("cmdMerge") << u"cmdMerge"_s
                                  << u"6 Spindle Court|Akron|330-555-0100|changed@mill.example"_s;
        QTest::newRow("cmdDiscard") << u"cmdDiscard"_s << u"\n|Akron|330-555-0100|"_s;
        QTest::newRow("closed") << QString() << u"\n|Akron|330-555-0100|"_s;
    }
    void callersFieldsAreFilledAsDecided()
    {
        QFETCH(QString, button);
        m_entry->setText(u"txtEAddress"_s, u"\n"_s);
        m_entry->setText(u"txtECity"_s, u"Akron"_s);
        m_entry->setText(u"txtEFax"_s, u"330-555-0100"_s);
        m_user.whileOpen = [&] {
            m_screen->load(m_user.request.value<FrmAutoParse::Request>());
            QCOMPARE(shown(u"txtCurrent"_s),
                     u"\n\r\nAkron,   \r\n\r\n\r\n\r\n330-555-0100\r\n\r\n\r\n\r\n"_s);
            type(card);
            m_screen->cmdVerify();
            m_screen->form().edit(u"txtEm1"_s, u"changed@mill.example"_s);
            if (!button.isEmpty())
                QMetaObject::invokeMethod(m_screen.get(), button.toLatin1().constData());
            m_user.answer = QVariant::fromValue(m_screen->answer());
        };
        const bool taken = button == u"cmdSave" || button == u"cmdMerge";
        QCOMPARE(fillFromCard(*m_entry, entryControls, {}, m_user), taken);
        QCOMPARE(m_user.opened, QStringList{u"FrmAutoParse"_s});
        QStringList filled;
        for (const QString& control : {u"txtEAddress"_s, u"txtECity"_s, u"txtEFax"_s, u"txtEEM1"_s})
            filled.append(m_entry->text(control));
        QTEST(filled.join(u'|'), "filled");
        // A screen that brings nothing back has decided nothing.
        m_user.whileOpen = {};
        QVERIFY(!fillFromCard(*m_entry, entryControls, {}, m_user));
        QCOMPARE(m_entry->text(u"txtECity"_s), filled[1]);
    }

    void missingAreaCodesAreToldAndTheRestIsSorted()
    {
        QVERIFY(QFile::remove(m_world->folder.filePath(u"areacodes.jwd"_s)));
        m_world->prompts.expect(u"area codes could not be read"_s);
        m_screen->load({});
        const auto log = LogEntry::parse(m_world->errorLog());
        QCOMPARE(log.size(), size_t(1));
        QVERIFY(log.front().text.startsWith(u"frmAutoParse - Load"_s) && !log.front().suppressed);
        type(card);
        m_screen->cmdVerify();
        QCOMPARE(shown(u"txtCity"_s), u"Boston"_s);
        QCOMPARE(shown(u"txtAddress"_s), u"6 Spindle Court\r\n617-555-0142"_s);
    }
};

JOBWRIGHT_TEST(TestFrmAutoParse)
#include "tst_frmautoparse.moc"
