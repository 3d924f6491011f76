// The Position screen with keys and mouse on a real store.
#include "support/runtest.h"
#include "support/table.h"
#include "views/windowbench.h"
#include "views/workbench/rankchart.h"
#include "workbench/positionscreen.h"

#include <QDateEdit>
#include <QTreeView>
#include <QWheelEvent>

namespace {

/// A window on Acme with Ann Lee and Mary Jo Ray, and its position "Engineer", which has expired.
class PositionWindow : public WindowBench
{
public:
    PositionWindow()
    {
        const Key acme = addCompany(u"Acme"_s);
        addContact(u"Ann"_s, u"Lee"_s, acme);
        addContact(u"Mary Jo"_s, u"Ray"_s, acme);
        run(u"Insert into Position(Title,Keyword,ContactList,CompanyKey,Expires) "
            "Values('Engineer','cad','1',1,'11/1/2026')"_s);
        open();
        find(u"acme"_s, Qt::Key_Return);
        press(Qt::Key_2, Qt::ControlModifier);
    }
    void chooseEngineer() { write(u"cmbPosSelection"_s, u"engineer\n"_s); }
    QString expires() { return cells(u"Select Expires from Position"_s); }
};

} // namespace

class TestPositionView : public QObject
{
    Q_OBJECT

private slots:
    void expiryFollowsItsTickAndItsKeysButNotTheWheel()
    {
        PositionWindow bench;
        const auto* panel = bench.find(u"position"_s);
        auto* date = bench.find<QDateEdit>(u"dtpExpires"_s);
        QVERIFY(!panel->isVisible());
        bench.chooseEngineer();
        QVERIFY(panel->isVisible());
        QCOMPARE(bench.text(u"position"_s), u"Position EXPIRED"_s);
        const QPointF middle = date->rect().center();
        QWheelEvent turn(middle, date->mapToGlobal(middle), {}, {0, 120}, Qt::NoButton, Qt::NoModifier,
                         Qt::NoScrollPhase, false);
        QApplication::sendEvent(date, &turn);
        QCOMPARE(bench.expires(), u"11/1/2026"_s);
        bench.click(u"chkExpires"_s);
        QCOMPARE(date->text(), u"No expiry"_s);
        QVERIFY(!date->isEnabled() && !panel->isVisible());
        QCOMPARE(bench.expires(), u"12/31/1999"_s);
        bench.click(u"chkExpires"_s);
        QVERIFY(date->isEnabled());
        date->setFocus();
        date->setSelectedSection(QDateTimeEdit::YearSection);
        bench.press(Qt::Key_Up);
        QCOMPARE(bench.expires(), u"12/22/2027"_s);
    }

    void contactsAreAssignedAndUnassigned()
    {
        PositionWindow bench;
        bench.run(u"Insert into Position(Title,CompanyKey) Values('Planner',1)"_s);
        bench.chooseEngineer();
        auto* tree = bench.find<QTreeView>(u"tvwContacts"_s);
        const auto choose = [&](const QModelIndex& node) {
            QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, tree->visualRect(node).center());
        };
        const auto unassign = [&](const QString& question, const QString& left) {
            if (!question.isEmpty())
                bench.expect(question);
            bench.click(u"cmdRemoveContactAssign1"_s);
            const TreeModel& contacts = bench.frm->positionScreen().tvwContacts();
            QCOMPARE(contacts.texts(contacts.index(0, 0)).join(u','), left);
        };
        bench.write(u"cmbAssignContact"_s, u"ray\n"_s); // a first name of two words
        bench.click(u"cmdAssign1"_s);
        bench.expect(u"Mary Jo Ray has already been assigned to this position."_s);
        bench.click(u"cmdAssign1"_s);
        const QString select =
            u"Select ContactList,InfoContact,InfoContactMedium from Position order by PositionKey DESC"_s;
        QCOMPARE(bench.cells(select), u"||;1|11/22/2026|6"_s); // the list until it is saved
        QCOMPARE(bench.frm->positionScreen().progress(), 3);
        QVERIFY(bench.find(u"proc"_s)->isVisible());
        const QModelIndex root = tree->model()->index(0, 0);
        choose(root); // stands for nobody
        unassign(u"You have multiple contacts, please select who you would like to remove from this "
                 "assignment."_s,
                 u"Ann Lee,Mary Jo Ray"_s);
        choose(tree->model()->index(0, 0, root));
        unassign({}, u"Mary Jo Ray"_s);
        bench.click(u"cmdUpdatePos1"_s);
        QCOMPARE(bench.cells(select), u"2|11/22/2026|6;||"_s);
        unassign({}, {}); // the only one needs no choice
        unassign(u"No contacts assigned to this position for removal."_s, {});
        bench.click(u"cmdUpdatePos1"_s);
        QCOMPARE(bench.cells(select), u"|11/22/2026|6;||"_s);
    }

    void refusalsTellWhy()
    {
        PositionWindow bench;
        for (const QString& refusal : {u"cmdRemovePos1=Please select a Position to remove."_s,
                                       u"cmdAssign1=Please select a contact to assign."_s,
                                       u"cmdJProfile1=No existing position has been selected."_s}) {
            bench.world.prompts.expect(refusal.section(u'=', 1));
            bench.click(refusal.section(u'=', 0, 0));
            QVERIFY2(bench.world.prompts.done(), qPrintable(refusal));
            QCOMPARE(bench.world.prompts.lastTitle(), refusal.startsWith(u"cmdRemovePos1")
                                                          ? u"Jobwright - Message"_s
                                                          : u"Jobwright Message"_s);
        }
        QCOMPARE(bench.rows(u"Position"_s), 1);
    }

    void chartKeepsItsPointerInPlace_data()
    {
        // share: of the way from the low ends of both axes to the high ones
        columns<double, double, QPointF>("company", "position", "share");
        QTest::newRow("not ranked") << 0.0 << 0.0 << QPointF(0, 0);
        QTest::newRow("between") << 0.25 << 0.75 << QPointF(0.25, 0.75);
        QTest::newRow("beyond the scale") << 3.0 << qInf() << QPointF(1, 0);
    }
    void chartKeepsItsPointerInPlace()
    {
        FETCH(double, company, position);
        QFETCH(QPointF, share);
        RankChart chart;
        for (const QSize size : {QSize(200, 120), QSize(900, 500)}) {
            chart.resize(size);
            chart.setPointer(0, 0);
            const QPointF low = chart.pointerCentre();
            chart.setPointer(1, 1);
            const QPointF high = chart.pointerCentre();
            QVERIFY(high.x() > low.x() && high.y() < low.y() && QRectF(chart.rect()).contains(high));
            chart.setPointer(company, position);
            QCOMPARE(chart.pointerCentre().x(), low.x() + share.x() * (high.x() - low.x()));
            QCOMPARE(chart.pointerCentre().y(), low.y() + share.y() * (high.y() - low.y()));
        }
    }
};

JOBWRIGHT_TEST(TestPositionView)
#include "tst_positionview.moc"
