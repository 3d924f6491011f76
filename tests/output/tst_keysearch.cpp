// KeySearch: its rules and its screen.
#include "base/navigator.h"
#include "output/frmkeysearch.h"
#include "output/searchkinds.h"
#include "support/runtest.h"
#include "support/table.h"
#include "workbench/bench.h"

namespace {

/// The tree as one line: "root[group{node,node}]".
QString shown(const TreeModel& tree)
{
    QStringList groups;
    const QModelIndex root = tree.index(0, 0);
    for (int i = 0; i < tree.rowCount(root); ++i) {
        const QModelIndex group = tree.index(i, 0, root);
        groups.append(tree.text(group) + u'{' + tree.texts(group).join(u',') + u'}');
    }
    return tree.text(root) + u'[' + groups.join(u' ') + u']';
}

/// A workbench with two contacts of one name, a position, and the screen.
class SearchBench : public Bench
{
public:
    SearchBench()
        : screen(*world.session, RecordOpener(*world.session, navigator, *frm))
    {
        const Key alder = addCompany(u"Alder Works"_s);
        const Key birch = addCompany(u"Birch"_s);
        addContact(u"Ann"_s, u"Lee"_s, alder);
        addContact(u"Ann"_s, u"Lee"_s, birch);
        run(u"Insert into Position(Title,Notes,CompanyKey) Values('Sales #2 lead','Presales',%1)"_s.arg(
            birch));
        run(u"Insert into History(HistoryKey,ContactKey,ContactCount,Medium,Topic,Details,ContactDate) "
            "Values('2-1',2,1,'Phone','Fair','sales talk','11/2/2026')"_s);
        run(u"Insert into History(HistoryKey,ContactKey,ContactCount,Medium,Details,ContactDate) "
            "Values('2-2',2,2,'Mail','SALES','11/3/2026')"_s);
        run(u"Insert into Event(Event,EventDate) Values('Sales fair','11/30/2026')"_s);
        run(u"Insert into UProfile(Title,Subtitle) Values('Sales','North')"_s);
        frm->load();
        screen.load();
    }
    QString search(const QString& kind, const QString& text)
    {
        screen.form().edit(u"cmbSearchby"_s, kind);
        screen.form().edit(u"txtSearch"_s, text);
        screen.Image1();
        return ::shown(screen.tvwFound());
    }
    void open(const QString& kind, const QString& text)
    {
        search(kind, text);
        const TreeModel& tree = screen.tvwFound();
        screen.openNode(tree.index(0, 0, tree.index(0, 0, tree.index(0, 0))));
    }

    FrmKeySearch screen;
};

} // namespace

class TestKeySearch : public QObject
{
    Q_OBJECT

private slots:
    void hitsStandBelowTheirField_data()
    {
        table(
            {"kind", "found"},
            {{"two fields", "Position",
              "Position by [Position by Title : 1{Sales #2 lead#1} Position by Notes : 1{Sales #2 lead#1}]"},
             {"a history is its contact's", "Contact History",
              "Contact by [Contact by Details : 2{Ann Lee#2,Ann Lee#2}]"},
             {"events", "Events", "Event by [Event by Event : 1{Sales fair#1}]"},
             {"profile", "User Profile", "Profile by [Profile by Title : 1{Sales-North#1}]"},
             {"nothing", "Company", "[]"}});
    }
    void hitsStandBelowTheirField()
    {
        SearchBench bench;
        QFETCH(QString, kind);
        QTEST(bench.search(kind, u"sales"_s), "found");
    }

    void countsAndFieldsAreShown()
    {
        SearchBench bench;
        bench.search(u"Position"_s, u"SALES"_s);
        QCOMPARE(shownIn(bench.screen.form(), u"txtReturn txtSearchStat"_s), u"2|1"_s);
        QCOMPARE(
            bench.screen.form().text(u"lblSearchFld"_s),
            u"Search Fields:\nTitle\nResponsibilities\nQualifications\nKeyword\nNotes\nBenefits\nLocation\nSource"_s);
        bench.search(u"Position"_s, u"it's"_s); // an apostrophe never enters a statement
        QCOMPARE(shownIn(bench.screen.form(), u"txtReturn txtSearchStat"_s), u"0|1"_s);
        QCOMPARE(bench.world.errorLog(), QString());
    }

    void whatIsMissingIsAskedFor()
    {
        SearchBench bench;
        bench.expect(u"Appropriate search method not selected."_s);
        QCOMPARE(bench.search(u"<CommandSet>"_s, u"lee"_s),
                 u"Contact by [Contact by LastName : 2{Ann Lee#1,Ann Lee#2}]"_s);
        QCOMPARE(bench.screen.form().text(u"cmbSearchby"_s), u"Contact"_s);
        bench.expect(u"Please enter a search string in the search string box."_s);
        bench.search(u"Contact"_s, {});
    }

    void doubleClickOpensTheRecordAtHome()
    {
        SearchBench bench;
        bench.screen.openNode(bench.screen.tvwFound().index(0, 0)); // a root has no key
        bench.open(u"Contact History"_s, u"talk"_s);
        QCOMPARE(bench.selection().selectedCompanyName(), u"Birch"_s);
        QCOMPARE(bench.selection().currentScreen, u"Contact"_s);
        QCOMPARE(bench.selection().currentContactKey, Key{2}); // not her namesake
        bench.open(u"Company"_s, u"alder"_s);
        QCOMPARE(bench.selection().selectedCompanyName(), u"Alder Works"_s);
        bench.open(u"Position"_s, u"presa"_s);
        QCOMPARE(bench.selection().currentScreen, u"Position"_s);
        QCOMPARE(bench.selection().currentPositionKey, Key{1}); // the number behind the last "#"
        bench.open(u"Events"_s, u"fair"_s);
        QCOMPARE(bench.navigator.opened, QStringList{u"FrmEvCal"_s});
        bench.search(u"Contact"_s, u"lee"_s);
        bench.run(u"Delete * from Contact"_s);
        bench.expect(u"Contact Key not found"_s);
        bench.expect(u"no longer in the database"_s);
        bench.screen.openNode(bench.screen.tvwFound().index(
            0, 0, bench.screen.tvwFound().index(0, 0, bench.screen.tvwFound().index(0, 0))));
    }

    void happenedIsFilteredByMedium()
    {
        SearchBench bench;
        bench.screen.cmdHappened();
        QCOMPARE(bench.screen.lvwHappened().rowCount(), 2);
        QCOMPARE(bench.screen.form().items(u"cmbMedium"_s),
                 QStringList({u"All media"_s, u"Mail"_s, u"Phone"_s}));
        bench.screen.form().edit(u"cmbMedium"_s, u"Phone"_s);
        bench.screen.fieldChanged(u"cmbMedium"_s);
        QCOMPARE(bench.screen.lvwHappened().rowCount(), 1);
        bench.screen.form().edit(u"dtpTo"_s, u"2026-11-02"_s);
        bench.screen.fieldChanged(u"dtpTo"_s);
        QCOMPARE(bench.screen.form().text(u"cmbMedium"_s), u"Phone"_s); // stays while the span has it
        bench.screen.openHappened(bench.screen.lvwHappened().index(0, 0));
        QCOMPARE(bench.navigator.opened, QStringList{u"FrmHistory"_s});
        QCOMPARE(bench.selection().currentContactKey, Key{2});
    }
};

JOBWRIGHT_TEST(TestKeySearch)
#include "tst_keysearch.moc"
