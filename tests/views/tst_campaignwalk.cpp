// A whole campaign by hand: company, contact, position, assignment, eleven steps, a document, a restart.
#include "support/runtest.h"
#include "views/windowbench.h"

#include <QCheckBox>

class TestCampaignWalk : public QObject
{
    Q_OBJECT

private slots:
    void everythingEnteredIsThereAfterARestart()
    {
        m_bench.open();
        enterCompany();
        enterContact();
        enterPosition();
        walkSteps();
        giveDocument();
        // Saved once more, company and position get new keys; everything that belongs to them goes along.
        m_bench.press(Qt::Key_1, Qt::ControlModifier);
        m_bench.click(u"cmdUpdate1"_s);
        m_bench.window->close();
        m_bench.presenters.reset();
        m_bench.world.restart();
        const QString company = m_bench.cells(u"Select CompanyKey from Company where Name='Quinn Söhne'"_s);
        QVERIFY(company.toInt() > 1);
        QCOMPARE(m_bench.cells(u"Select FirstName,LastName,CompanyKey from Contact"_s),
                 QString(u"Ann|Lee|" + company));
        const QString contact = m_bench.cells(u"Select ContactKey from Contact"_s);
        QCOMPARE(m_bench.cells(u"Select DocumentList from Contact"_s),
                 m_bench.cells(u"Select ResumeKey from Document where Document='cv.pdf'"_s));
        QCOMPARE(m_bench.cells(u"Select Title,ContactList,CompanyKey from Position"_s),
                 QString(u"Miller|" + contact + u'|' + company));
        QCOMPARE(m_bench.cells(u"Select CompanyResearch,SentResume,Hired from Position"_s),
                 u"11/22/2026|11/22/2026|11/22/2026"_s);
    }

private:
    void enterCompany()
    {
        m_bench.press(Qt::Key_N, Qt::ControlModifier);
        m_bench.type(u"Quinn Söhne"_s);
        m_bench.press(Qt::Key_Tab);
        m_bench.type(u"QS"_s);
        m_bench.press(Qt::Key_C, Qt::AltModifier);
        m_bench.type(u"Dayton"_s);
        saveByKey(u"Insert new Company?"_s);
        QVERIFY(m_bench.selector()->companies().contains(u"Quinn Söhne"_s));
        QCOMPARE(m_bench.cells(u"Select ShortName from Company where Name='Quinn Söhne'"_s), u"QS"_s);
        QVERIFY(m_bench.cells(u"Select City from Address"_s).contains(u"Dayton"_s));
    }
    void enterContact()
    {
        m_bench.press(Qt::Key_3, Qt::ControlModifier);
        m_bench.press(Qt::Key_N, Qt::ControlModifier);
        m_bench.type(u"ann"_s);
        m_bench.press(Qt::Key_Tab);
        m_bench.press(Qt::Key_Tab);
        m_bench.type(u"Lee"_s);
        m_bench.press(Qt::Key_L, Qt::AltModifier);
        m_bench.type(u"Planner"_s);
        m_bench.find(u"chk2"_s)->setFocus();
        m_bench.press(Qt::Key_Space);
        m_bench.find(u"sldrQuality"_s)->setFocus();
        m_bench.press(Qt::Key_Right);
        QCOMPARE(m_bench.text(u"lblQuality"_s).remove(u'&'), u"Quality: 1"_s);
        saveByKey(u"Update of Ann Lee is complete."_s);
        QCOMPARE(m_bench.cells(u"Select Title,HiringMgr,ContactLevel from Contact"_s),
                 u"Planner|010000000|10"_s);
        QCOMPARE(m_bench.text(u"cmbContacts"_s), u"Ann Lee"_s);
    }
    void enterPosition()
    {
        m_bench.press(Qt::Key_2, Qt::ControlModifier);
        m_bench.press(Qt::Key_N, Qt::ControlModifier);
        for (const QString& text : {u"Miller"_s, u"planning"_s, u"Trenton"_s}) {
            m_bench.type(text);
            m_bench.press(Qt::Key_Tab);
        }
        m_bench.press(Qt::Key_V, Qt::AltModifier);
        QTRY_COMPARE(m_bench.cells(u"Select Title,Keyword,Location,Expires from Position"_s),
                     u"Miller|planning|Trenton|12/22/2026"_s);
        QCOMPARE(m_bench.text(u"cmbPosSelection"_s), u"Miller"_s);
        QVERIFY(!m_bench.find(u"proc"_s)->isVisible());
        m_bench.write(u"cmbAssignContact"_s, u"lee\n"_s);
        m_bench.click(u"cmdAssign1"_s);
        m_bench.click(u"cmdUpdatePos1"_s);
    }
    void walkSteps()
    {
        m_bench.press(Qt::Key_5, Qt::ControlModifier);
        QCOMPARE(m_bench.text(u"txtPosition"_s), u"Miller"_s);
        for (int step = 0; step < 11; ++step) {
            auto* box = m_bench.find<QCheckBox>(u"chkP%1"_s.arg(step));
            box->setFocus();
            if (!box->isChecked()) // assigning the contact was a step already
                m_bench.press(Qt::Key_Space);
            QVERIFY(box->isChecked());
        }
    }
    void giveDocument()
    {
        m_bench.press(Qt::Key_4, Qt::ControlModifier);
        QFile file(m_bench.world.folder.filePath(u"cv.pdf"_s));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write("my life") == 7);
        m_bench.world.prompts.expectFile(u"Jobwright - Select Document"_s, file.fileName());
        m_bench.click(u"cmdLoadDocument"_s);
        m_bench.click(u"cmdAddDoc1"_s);
        m_bench.press(Qt::Key_3, Qt::ControlModifier);
        m_bench.write(u"cmbContacts"_s, u"lee\n"_s);
        m_bench.find(u"cmbDocsAvailable"_s)->setFocus();
        m_bench.press(Qt::Key_Down);
        m_bench.click(u"cmdAddDocContact1"_s);
        saveByKey(u"Update of Ann Lee is complete."_s);
    }
    void saveByKey(const QString& message)
    {
        m_bench.world.prompts.expect(message, Answer::Yes);
        m_bench.press(Qt::Key_V, Qt::AltModifier);
        QTRY_VERIFY(m_bench.world.prompts.done());
    }

    WindowBench m_bench;
};

JOBWRIGHT_TEST(TestCampaignWalk)
#include "tst_campaignwalk.moc"
