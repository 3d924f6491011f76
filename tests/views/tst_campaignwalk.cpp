// A whole campaign by hand: company, contact, position, assignment, eleven steps, a document, a restart.
#include "views/windowbench.h"

#include <QCheckBox>
#include <QComboBox>
#include <QTreeView>

class TestCampaignWalk : public QObject
{
    Q_OBJECT

private slots:
    void everythingEnteredIsThereAfterARestart()
    {
        m_bench = std::make_unique<WindowBench>();
        m_bench->open();
        enterCompany();
        enterContact();
        enterPosition();
        walkSteps();
        giveDocument();
        // Saved once more, company and position get new keys; everything that belongs to them goes along.
        m_bench->press(Qt::Key_1, Qt::ControlModifier);
        click(u"cmdUpdate1"_s);
        m_bench->window->close();
        m_bench->frm.reset();
        m_bench->world.restart();
        const QString company = m_bench->cells(u"Select CompanyKey from Company where Name='Quinn Mills'"_s);
        QVERIFY(company.toInt() > 1);
        QCOMPARE(m_bench->cells(u"Select FirstName,LastName,CompanyKey from Contact"_s),
                 QString(u"Ann|Lee|" + company));
        const QString contact = m_bench->cells(u"Select ContactKey from Contact"_s);
        const QString document = m_bench->cells(u"Select ResumeKey from Document where Document='cv.pdf'"_s);
        QCOMPARE(m_bench->cells(u"Select DocumentList from Contact"_s), document);
        QCOMPARE(m_bench->cells(u"Select Title,ContactList,CompanyKey from Position"_s),
                 QString(u"Miller|" + contact + u'|' + company));
        QCOMPARE(m_bench->cells(u"Select CompanyResearch,SentResume,Hired from Position"_s),
                 u"11/22/2026|11/22/2026|11/22/2026"_s);
    }

private:
    void enterCompany()
    {
        m_bench->press(Qt::Key_N, Qt::ControlModifier);
        m_bench->type(u"Quinn Mills"_s);
        m_bench->enter(u"txtCity"_s);
        m_bench->type(u"Dayton"_s);
        save(u"Insert new Company?"_s, u"cmdUpdate1"_s);
    }

    void enterContact()
    {
        m_bench->press(Qt::Key_3, Qt::ControlModifier);
        m_bench->press(Qt::Key_N, Qt::ControlModifier);
        m_bench->type(u"Ann"_s);
        m_bench->enter(u"txtLast"_s);
        m_bench->type(u"Lee"_s);
        save(u"Update of Ann Lee is complete."_s, u"cmdUpdateContact1"_s);
    }

    void enterPosition()
    {
        m_bench->press(Qt::Key_2, Qt::ControlModifier);
        m_bench->press(Qt::Key_N, Qt::ControlModifier);
        m_bench->type(u"Miller"_s);
        click(u"cmdUpdatePos1"_s);
        m_bench->find<QWidget>(u"cmbAssignContact"_s)->setFocus();
        m_bench->type(u"lee"_s);
        m_bench->press(Qt::Key_Return);
        click(u"cmdAssign1"_s);
        click(u"cmdUpdatePos1"_s);
    }

    void walkSteps()
    {
        m_bench->press(Qt::Key_5, Qt::ControlModifier);
        QCOMPARE(m_bench->find<QLabel>(u"txtPosition"_s)->text(), u"Miller"_s);
        for (int step = 0; step < 11; ++step) {
            auto* box = m_bench->find<QCheckBox>(u"chkP%1"_s.arg(step));
            box->setFocus();
            if (!box->isChecked()) // assigning the contact was a step already
                m_bench->press(Qt::Key_Space);
            QVERIFY(box->isChecked());
        }
    }

    void giveDocument()
    {
        m_bench->press(Qt::Key_4, Qt::ControlModifier);
        QFile file(m_bench->world.folder.filePath(u"cv.pdf"_s));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write("my life") == 7);
        m_bench->world.prompts.expectFile(u"Jobwright - Select Document"_s, file.fileName());
        click(u"cmdLoadDocument"_s);
        click(u"cmdAddDoc1"_s);
        m_bench->press(Qt::Key_3, Qt::ControlModifier);
        m_bench->find<QWidget>(u"cmbContacts"_s)->setFocus();
        m_bench->type(u"lee"_s);
        m_bench->press(Qt::Key_Return);
        m_bench->find<QComboBox>(u"cmbDocsAvailable"_s)->setFocus();
        m_bench->press(Qt::Key_Down);
        click(u"cmdAddDocContact1"_s);
        save(u"Update of Ann Lee is complete."_s, u"cmdUpdateContact1"_s);
    }
    void click(const QString& name) { QTest::mouseClick(m_bench->find<QWidget>(name), Qt::LeftButton); }
    void save(const QString& message, const QString& button)
    {
        m_bench->world.prompts.expect(message, Answer::Yes);
        click(button);
        QVERIFY(m_bench->world.prompts.done());
    }

    std::unique_ptr<WindowBench> m_bench;
};

QTEST_MAIN(TestCampaignWalk)
#include "tst_campaignwalk.moc"
