// The profile screen: items, fields that save themselves, the evaluation from end to end.
#include "assessment/frmuprofile.h"
#include "support/runtest.h"
#include "support/screenbench.h"
#include "support/table.h"

#include <QSignalSpy>

class TestFrmUProfile : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_frm.reset();
        m_bench = std::make_unique<ScreenBench>();
        m_frm = std::make_unique<FrmUProfile>(*m_bench->world.session);
        const QDir delivered(QStringLiteral(JOBWRIGHT_SOURCE_DIR "/data"));
        for (const QString& file : delivered.entryList({u"*.jwd"_s}))
            QFile::copy(delivered.filePath(file), m_bench->world.session->file(file));
        frm().load();
    }

    void itemIsSavedChangedAndRemoved()
    {
        type(u"txtTitle"_s, u"Smith's"_s);
        type(u"lvwProfileData"_s, u"Skills"_s);
        expectSave();
        m_bench->expect(u"You must specify a TITLE and SUBTITLE"_s);
        frm().cmdSave();
        type(u"txtSubtitle"_s, u"Books"_s);
        type(u"cmbYearSt"_s, u"2024"_s);
        type(u"txtP"_s, u"a\nb"_s);
        expectSave();
        frm().cmdSave();
        QCOMPARE(
            m_bench->cells(u"Select UProfileKey,Title,Category,Function1,Index,ExperienceTime,Subcategory,"
                           "Subtitle,TimeStartYear,EntryDate from UProfile"_s),
            u"1|Smith`s|Skills|a\r\nb|Index|0|Technical|Books|2024|11/22/2026"_s);
        QCOMPARE(frm().currentUProfileKey(), Key(1));
        QCOMPARE(nodes(), u"Jobwright/Skills/Technical/Smith`s/Books"_s);
        leave(u"txtSubtitle"_s, u"Ledgers"_s);
        leave(u"txtA"_s, u"Kept them"_s);
        type(u"lvwProfileData"_s, u"Education"_s);
        QCOMPARE(m_bench->cells(u"Select Category,Subcategory,Subtitle,Function2 from UProfile"_s),
                 u"Education|Graduate|Ledgers|Kept them"_s);
        QCOMPARE(nodes(), u"Jobwright/Education/Graduate/Smith`s/Ledgers"_s);
        QCOMPARE(frm().currentNode().data().toString(), u"Ledgers"_s);
        QCOMPARE(frm().form().text(u"lblFCT1"_s), u"Preparation/Training"_s);
        m_bench->expect(u"remove this profile from your database.\r\nSmith`s-Ledgers"_s, Answer::Yes);
        frm().cmdRemove();
        QCOMPARE(nodes(), u"Jobwright/Education"_s);
        QCOMPARE(frm().currentUProfileKey(), Key(0));
        QCOMPARE(m_bench->rows(u"UProfile"_s), 0);
    }

    void subtitleThatStandsAnywhereIsRefused()
    {
        addItem(u"T"_s, u"S"_s, u"Experience"_s);
        for (const auto& [control, text] : {std::pair{u"lvwProfileData"_s, u"Skills"_s},
                                            {u"txtTitle"_s, u"Other"_s},
                                            {u"txtSubtitle"_s, u"T"_s}})
            type(control, text);
        expectSave();
        m_bench->expect(u"The profile has “T” already."_s);
        frm().cmdSave();
        QCOMPARE(m_bench->rows(u"UProfile"_s), 1);
        m_bench->expect(u"This item has not been saved yet"_s, Answer::No);
        frm().cmdClear();
        QCOMPARE(frm().form().text(u"txtTitle"_s), u"Other"_s);
    }

    void itemThatIsGoneShowsTheEmptyForm()
    {
        addItem(u"T"_s, u"S"_s, u"Experience"_s);
        QVERIFY(frm().tvwUProfileNodeClick(leaf(u"S"_s)));
        QCOMPARE(frm().form().text(u"txtTitle"_s), u"T"_s);
        QVERIFY(frm().tvwUProfileNodeClick(leaf(u"S"_s).parent())); // leaves the form
        QCOMPARE(frm().form().text(u"txtTitle"_s), u"T"_s);
        const QModelIndex node = leaf(u"S"_s);
        m_bench->run(u"Delete * from UProfile"_s);
        m_bench->expect(u"DataJW-GetUProfileKey - UProfileKey not found."_s);
        frm().tvwUProfileNodeClick(node);
        QCOMPARE(frm().form().text(u"txtTitle"_s), QString());
        QCOMPARE(frm().currentUProfileKey(), Key(0));
    }

    void evaluationReportsInOrderAndListsWhatFits()
    {
        m_bench->run(u"Insert into Company(Name) Values('Acme')"_s);
        m_bench->run(u"Insert into Position(Title,Keyword,Responsibilities,CompanyKey) "
                     "Values('Supply Planner','Forecast inventory','replenishment of stock orders ',1)"_s);
        type(u"txtP"_s, u"Urgent shortage of inventory in 9 weeks."_s);
        type(u"txtA"_s, u"Planned replenishment with suppliers, managed every forecast and"_s);
        type(u"txtR"_s, u"delivered 12 percent more orders on time. Fine"_s);
        frm().cmdEvaluate();
        const QString report = frm().form().text(u"txtExample"_s);
        qsizetype place = 0;
        for (const QString& part :
             {u"Length:"_s, u"\nCRITICALITY TEST\n"_s, u"\nQUANTIFICATION TEST\nQuantifications: "_s,
              u"\nPOSITION MATCHES:\nSupply Planner\nWord Match Index:"_s, u"---\n"_s}) {
            QVERIFY2(report.indexOf(part, place) >= place, qPrintable(report));
            place = report.indexOf(part, place);
        }
        QCOMPARE(frm().form().text(u"lblEvalStatus"_s), u"Complete."_s);
        QCOMPARE(frm().lvwPositions().rows().at(0).key, u"P1"_s);
        QStringList occupations;
        for (const ListRow& row : frm().lvwOccupations().rows())
            occupations.append(row.texts[0]);
        QVERIFY2(occupations.contains(u"Supply Chain Planner"_s), qPrintable(occupations.join(u',')));
        frm().lvwOccupationsClick(0);
        QVERIFY(frm().form().text(u"rtf"_s).startsWith(u"Length:"_s));
        QVERIFY(!frm().marks(u"txtA"_s).empty());
        type(u"chkMark"_s, u"0"_s);
        QVERIFY(frm().marks(u"txtA"_s).empty());
        QSignalSpy wanted(&frm(), &FrmUProfile::positionWanted);
        m_bench->expect(u"This item has not been saved yet"_s, Answer::Yes);
        QVERIFY(frm().lvwPositionsDblClick(0));
        QCOMPARE(wanted.at(0).at(1).toString(), u"Acme"_s);
    }

    void runEndsWithWhatIsWrong_data()
    {
        table(
            {"statement", "file", "message", "kept"},
            {{"no row", "Delete * from Status where StatusDescription='CriticalityWordTest'", "",
              "The setting CriticalityWordTest is missing", "Length:"},
             {"no boolean", "Update Status set StatusValue='maybe' where StatusDescription='OccupationTest'",
              "", "OccupationTest should be 1 or 0, and is “maybe”", "QUANTIFICATION"},
             {"no dictionary", "", "R-QN.jwd", "R-QN.jwd cannot be read", "CRITICALITY"}});
    }
    void runEndsWithWhatIsWrong()
    {
        FETCH(QString, statement, file, message, kept);
        if (!statement.isEmpty())
            m_bench->run(statement);
        if (!file.isEmpty())
            QVERIFY(QFile::remove(m_bench->world.session->file(file)));
        m_bench->world.prompts.acceptAll(Answer::Ok);
        type(u"txtP"_s, u"Planned the work "_s);
        frm().cmdEvaluate();
        QVERIFY2(m_bench->world.prompts.asked().last().contains(message),
                 qPrintable(m_bench->world.prompts.asked().last()));
        QVERIFY(frm().form().text(u"txtExample"_s).contains(kept));
    }

    void hintsSayWhatIsMissing()
    {
        const QStringList verbs{u"managed"_s};
        QCOMPARE(profilewords::hints({}, {}, {}, verbs), QStringList());
        QCOMPARE(
            profilewords::hints(u"Late"_s, u"Managed it. Managed 3. Managed."_s, u"Good"_s, verbs).size(), 1);
        QCOMPARE(profilewords::hints(u"Late"_s, u"word "_s.repeated(36), {}, verbs).size(), 3);
    }

    void hugeTextIsTakenAndKept()
    {
        addItem(u"T"_s, u"S"_s, u"Experience"_s);
        QVERIFY(frm().tvwUProfileNodeClick(leaf(u"S"_s)));
        const QString text = u"planned shortage 12 "_s.repeated(45'000);
        leave(u"txtP"_s, text);
        m_bench->world.prompts.acceptAll(Answer::Ok);
        frm().cmdEvaluate();
        QVERIFY(m_bench->world.prompts.asked().last().contains(u"numbers"_s));
        QCOMPARE(m_bench->data().getUProfile(u"T"_s, u"S"_s).text(u"Function1"), text);
        leave(u"txtP"_s, QString(10'000'000, u'x'));
        QVERIFY(m_bench->world.prompts.asked().last().startsWith(u"This text is too long"_s));
        QCOMPARE(frm().form().text(u"txtP"_s).size(), 10'000'000);
        QCOMPARE(m_bench->data().getUProfile(u"T"_s, u"S"_s).text(u"Function1"), text);
    }

private:
    FrmUProfile& frm() { return *m_frm; }
    void type(const QString& control, const QString& text)
    {
        frm().form().edit(control, text);
        frm().fieldChanged(control);
    }
    void leave(const QString& control, const QString& text)
    {
        type(control, text);
        frm().fieldLeft(control);
    }
    void expectSave() { m_bench->expect(u"Update this Profile?"_s, Answer::Yes); }
    void addItem(const QString& title, const QString& subtitle, const QString& category)
    {
        m_bench->run(
            u"Insert into UProfile(Title,Subtitle,Category,Subcategory) Values('%1','%2','%3','x')"_s.arg(
                title, subtitle, category));
        frm().load();
    }
    QModelIndex leaf(const QString& text)
    {
        QModelIndex node = frm().tvwUProfile().index(0, 0);
        while (node.isValid() && node.data().toString() != text)
            node = frm().tvwUProfile().index(0, 0, node);
        return node;
    }
    /// The first way down the tree.
    QString nodes()
    {
        QStringList texts;
        for (QModelIndex node = frm().tvwUProfile().index(0, 0); node.isValid();
             node = frm().tvwUProfile().index(0, 0, node))
            texts.append(node.data().toString());
        return texts.join(u'/');
    }

    std::unique_ptr<ScreenBench> m_bench;
    std::unique_ptr<FrmUProfile> m_frm;
};

JOBWRIGHT_TEST(TestFrmUProfile)
#include "tst_frmuprofile.moc"
