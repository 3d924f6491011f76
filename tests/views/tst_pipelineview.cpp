// The Pipeline screen with keys and mouse on a real store.
#include "support/runtest.h"
#include "views/windowbench.h"
#include "views/workbench/pipelinewidgets.h"
#include "workbench/pipelinescreen.h"

#include <QCalendarWidget>
#include <QCheckBox>
#include <QProgressBar>
#include <QStyleOptionComboBox>
#include <QToolButton>
#include <QTreeView>

namespace {

/// The window on its Pipeline tab: Acme & Sons has the Planner, Bell fifteen desks before it.
class PipelineWindow : public WindowBench
{
public:
    PipelineWindow()
    {
        const QString acme = QString::number(addCompany(u"Acme & Sons"_s));
        const QString bell = QString::number(addCompany(u"Bell"_s));
        run(u"Insert into Position(Title,Notes,CompanyKey,Interview,InterviewMedium,Expires) "
            "Values('Planner','call in spring',%1,'10/5/2026',3,'12/31/99')"_s.arg(acme));
        for (int number = 10; number < 25; ++number)
            run(u"Insert into Position(Title,CompanyKey,Hired) Values('Desk %1',%2,'10/5/2026')"_s.arg(number)
                    .arg(bell));
        open();
        press(Qt::Key_5, Qt::ControlModifier);
    }
    /// Chooses Acme's planner by a click in the tree.
    void choosePlanner()
    {
        auto* tree = find<QTreeView>(u"tvwHire"_s);
        const QModelIndex index =
            frm->pipelineScreen().tvwHire().findPosition(u"Acme & Sons"_s, u"Planner"_s);
        tree->expand(index.parent());
        tree->scrollTo(index);
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, tree->visualRect(index).center());
        QCOMPARE(text(u"txtPosition"_s), u"Planner"_s);
    }
    QString planner(const QString& columns)
    {
        return cells(u"Select "_s + columns + u" from Position where Title='Planner'");
    }
    void tick(const QString& box)
    {
        find(box)->setFocus();
        press(Qt::Key_Space);
    }
};

} // namespace

class TestPipelineView : public QObject
{
    Q_OBJECT

private slots:
    void positionIsFoundAndTickedByKeyboardAlone()
    {
        PipelineWindow bench;
        bench.line(u"txtFind"_s)->setFocus();
        bench.type(u"PLAN"_s);
        bench.press(Qt::Key_Return);
        QCOMPARE(bench.text(u"txtPosition"_s), u"Planner"_s);
        bench.line(u"txtFind"_s)->setFocus();
        bench.press(Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget()->objectName(), u"tvwHire"_s);
        for (const Qt::Key key : {Qt::Key_Home, Qt::Key_Down, Qt::Key_Down})
            bench.press(key);
        QCOMPARE(bench.text(u"txtNext"_s), u"Send Thank You and Follow-up again"_s);
        bench.tick(u"chkP9"_s);
        QCOMPARE(bench.planner(u"FollowUp,FollowUpMedium"_s), u"11/22/2026|0"_s);
        QVERIFY(bench.text(u"txtNext"_s).isEmpty());
        QVERIFY(bench.find<QCheckBox>(u"chkP10"_s)->font().bold());
    }

    void mouseTicksStepAndWalksItsMedium()
    {
        PipelineWindow bench;
        bench.choosePlanner();
        for (const QString& medium : {u"Internet"_s, u"Fax"_s, u"Phone"_s}) {
            bench.click(u"Image12"_s);
            QCOMPARE(bench.text(u"Image12"_s), medium);
        }
        auto* tick = bench.find<QCheckBox>(u"chkP2"_s);
        QVERIFY(tick->isChecked());
        QCOMPARE(bench.planner(u"InfoContact,InfoContactMedium"_s), u"11/22/2026|3"_s);
        QTest::mouseClick(tick, Qt::LeftButton, {}, QPoint(8, tick->height() / 2));
        QCOMPARE(bench.planner(u"InfoContact,InfoContactMedium"_s), u"12/31/1999|0"_s);
        QCOMPARE(bench.text(u"dtpProg2"_s).trimmed(), QString());
        QCOMPARE(bench.find(u"Image12"_s)->accessibleDescription(), u"None"_s);
    }

    void dateIsTypedOrTakenFromTheCalendar()
    {
        PipelineWindow bench;
        bench.choosePlanner();
        auto* typed = bench.find<QDateEdit>(u"dtpProg6"_s);
        typed->setDisplayFormat(u"MM/dd/yyyy"_s);
        typed->setFocus();
        bench.type(u"03142026"_s);
        bench.press(Qt::Key_V, Qt::AltModifier);
        QTRY_COMPARE(bench.planner(u"SentResume"_s), u"3/14/2026"_s);

        auto* date = bench.find<QDateEdit>(u"dtpProg8"_s);
        QStyleOptionComboBox box;
        box.initFrom(date);
        box.editable = true;
        const QRect arrow =
            date->style()->subControlRect(QStyle::CC_ComboBox, &box, QStyle::SC_ComboBoxArrow, date);
        QTest::mouseClick(date, Qt::LeftButton, {}, arrow.center());
        QCOMPARE(bench.planner(u"Interview,InterviewMedium"_s), u"11/22/2026|3"_s); // opening takes today
        QVERIFY(date->calendarWidget()->isVisible());
        QCOMPARE(date->calendarWidget()->selectedDate(), QDate(2026, 11, 22));
        date->calendarWidget()->window()->close();
    }

    void saveKeepsStepsAndRestOfThePosition()
    {
        PipelineWindow bench;
        bench.choosePlanner();
        // A day laid out ready is taken by the save, and a medium of no picture is filed as "other".
        bench.click(u"cmdUpdateTrack1"_s);
        QCOMPARE(bench.planner(u"CompanyResearch,CompanyResearchMedium,Interview,InterviewMedium,Hired,Notes,"
                               "CompanyKey"_s),
                 u"11/22/2026|7|10/5/2026|3||call in spring|1"_s);
        QCOMPARE(bench.rows(u"Position"_s), 16);
        // What follows is written to the new row.
        QCOMPARE(QString::number(bench.frm->selection().currentPositionKey), bench.planner(u"PositionKey"_s));
        bench.tick(u"chkP10"_s);
        QCOMPARE(bench.planner(u"Hired"_s), u"11/22/2026"_s);
    }

    void barIsClickedAndPaged()
    {
        PipelineWindow bench;
        bench.click(u"shpLbl3"_s);
        QCOMPARE(bench.text(u"txtPosition"_s), u"Desk 13"_s);
        auto* tree = bench.find<QTreeView>(u"tvwHire"_s);
        QCOMPARE(tree->currentIndex().data().toString(), u"Desk 13"_s);
        QVERIFY(tree->hasFocus());
        QVERIFY(!bench.find(u"cmdVisualBack"_s)->isEnabled());
        bench.click(u"cmdVisualNext"_s);
        QCOMPARE(bench.text(u"shpLbl5"_s), u"Planner"_s);
        QCOMPARE(bench.find<QProgressBar>(u"shp5"_s)->value(), 9);
        QVERIFY(!bench.find(u"cmdVisualNext"_s)->isEnabled());
    }
};

JOBWRIGHT_TEST(TestPipelineView)
#include "tst_pipelineview.moc"
