// The Pipeline screen with keys and mouse on a real store.
#include "views/windowbench.h"
#include "views/workbench/pipelinewidgets.h"
#include "workbench/pipelinescreen.h"

#include <QCalendarWidget>
#include <QCheckBox>
#include <QImage>
#include <QProgressBar>
#include <QRadioButton>
#include <QStyleOptionComboBox>
#include <QToolButton>
#include <QTreeView>
#include <QWheelEvent>

class TestPipelineView : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_bench = std::make_unique<WindowBench>();
        const QString acme = QString::number(m_bench->addCompany(u"Acme & Sons"_s));
        const QString bell = QString::number(m_bench->addCompany(u"Bell"_s));
        m_bench->run(u"Insert into Position(Title,Notes,CompanyKey,Interview,InterviewMedium,Expires) "
                     "Values('Planner','call in spring',"_s +
                     acme + u",'10/5/2026',3,'12/31/99')");
        for (int number = 10; number < 25; ++number)
            m_bench->run(u"Insert into Position(Title,CompanyKey,Hired) Values('Desk %1',"_s.arg(number) +
                         bell + u",'10/5/2026')");
        m_bench->open();
        m_bench->press(Qt::Key_5, Qt::ControlModifier);
        QCOMPARE(m_bench->tab(), u"Pipeline"_s);
    }

    void positionIsFoundAndTickedByKeyboardAlone()
    {
        m_bench->line(u"txtFind"_s)->setFocus();
        m_bench->type(u"PLAN"_s);
        m_bench->press(Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget()->objectName(), u"tvwHire"_s);
        for (const Qt::Key key : {Qt::Key_Home, Qt::Key_Down, Qt::Key_Down})
            m_bench->press(key);
        QCOMPARE(m_bench->find<QLabel>(u"txtNext"_s)->text(), u"Send Thank You and Follow-up again"_s);
        m_bench->find<QCheckBox>(u"chkP9"_s)->setFocus();
        m_bench->press(Qt::Key_Space);
        QCOMPARE(planner(u"FollowUp,FollowUpMedium"_s), u"11/22/2026|0"_s);
        QVERIFY(m_bench->find<QLabel>(u"txtNext"_s)->text().isEmpty());
        QVERIFY(m_bench->find<QCheckBox>(u"chkP10"_s)->font().bold());
    }

    void mouseTicksStepAndWalksItsMedium()
    {
        choosePlanner();
        auto* medium = m_bench->find<QToolButton>(u"Image12"_s);
        click(u"Image12"_s);
        QCOMPARE(medium->text(), u"Internet"_s);
        QVERIFY(m_bench->find<QCheckBox>(u"chkP2"_s)->isChecked());
        click(u"Image12"_s);
        click(u"Image12"_s);
        QCOMPARE(medium->text(), u"Phone"_s);
        QCOMPARE(planner(u"InfoContact,InfoContactMedium"_s), u"11/22/2026|3"_s);
        auto* tick = m_bench->find<QCheckBox>(u"chkP2"_s);
        QTest::mouseClick(tick, Qt::LeftButton, {}, QPoint(8, tick->height() / 2));
        QCOMPARE(planner(u"InfoContact,InfoContactMedium"_s), u"12/31/1999|0"_s);
        QCOMPARE(m_bench->find<QDateEdit>(u"dtpProg2"_s)->text().trimmed(), QString());
        QCOMPARE(medium->accessibleDescription(), u"None"_s);
    }

    void typedDateIsStoredByTheSaveShortcut()
    {
        choosePlanner();
        auto* date = m_bench->find<QDateEdit>(u"dtpProg6"_s);
        date->setDisplayFormat(u"MM/dd/yyyy"_s);
        date->setFocus();
        m_bench->type(u"03142026"_s);
        m_bench->press(Qt::Key_V, Qt::AltModifier);
        QTRY_COMPARE(planner(u"SentResume"_s), u"3/14/2026"_s);
    }

    void openingTheCalendarTakesToday()
    {
        choosePlanner();
        auto* date = m_bench->find<QDateEdit>(u"dtpProg8"_s);
        QStyleOptionComboBox box;
        box.initFrom(date);
        box.editable = true;
        const QRect arrow =
            date->style()->subControlRect(QStyle::CC_ComboBox, &box, QStyle::SC_ComboBoxArrow, date);
        QTest::mouseClick(date, Qt::LeftButton, {}, arrow.center());
        QCOMPARE(planner(u"Interview,InterviewMedium"_s), u"11/22/2026|3"_s);
        QVERIFY(date->calendarWidget()->isVisible());
        QCOMPARE(date->calendarWidget()->selectedDate(), QDate(2026, 11, 22));
        date->calendarWidget()->window()->close();
    }

    void saveKeepsStepsAndRestOfThePosition()
    {
        choosePlanner();
        // A day laid out ready is taken by the save, and a medium of no picture is filed as "other".
        click(u"cmdUpdateTrack1"_s);
        QCOMPARE(planner(u"CompanyResearch,CompanyResearchMedium,Interview,InterviewMedium,Hired"_s),
                 u"11/22/2026|7|10/5/2026|3|"_s);
        QCOMPARE(planner(u"Notes,CompanyKey"_s), u"call in spring|1"_s);
        QCOMPARE(m_bench->rows(u"Position"_s), 16);
        // What follows is written to the new row.
        const QString key = planner(u"PositionKey"_s);
        QCOMPARE(QString::number(m_bench->frm->selection().currentPositionKey), key);
        auto* tick = m_bench->find<QCheckBox>(u"chkP10"_s);
        tick->setFocus();
        m_bench->press(Qt::Key_Space);
        QCOMPARE(planner(u"Hired"_s), u"11/22/2026"_s);
    }

    void barIsClickedAndPaged()
    {
        click(u"shpLbl3"_s);
        QCOMPARE(m_bench->find<QLabel>(u"txtPosition"_s)->text(), u"Desk 13"_s);
        auto* tree = m_bench->find<QTreeView>(u"tvwHire"_s);
        QCOMPARE(tree->currentIndex().data().toString(), u"Desk 13"_s);
        QVERIFY(tree->hasFocus());
        QVERIFY(!m_bench->find<QToolButton>(u"cmdVisualBack"_s)->isEnabled());
        click(u"cmdVisualNext"_s);
        QCOMPARE(m_bench->find<QToolButton>(u"shpLbl5"_s)->text(), u"Planner"_s);
        QCOMPARE(m_bench->find<QProgressBar>(u"shp5"_s)->value(), 9);
        QCOMPARE(m_bench->find<QToolButton>(u"shpLbl6"_s)->text(), u"-"_s);
        QCOMPARE(m_bench->find<QProgressBar>(u"shp6"_s)->value(), 0);
        QVERIFY(!m_bench->find<QToolButton>(u"cmdVisualNext"_s)->isEnabled());
        QCOMPARE(m_bench->find<QLabel>(u"lblVisualPage"_s)->text(), u"page 2 of 2"_s);
    }

private:
    /// Chooses Acme's planner by a click in the tree.
    void choosePlanner()
    {
        auto* tree = m_bench->find<QTreeView>(u"tvwHire"_s);
        const QRect row = rowOf(u"Acme & Sons"_s, u"Planner"_s);
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, row.center());
        QCOMPARE(m_bench->find<QLabel>(u"txtPosition"_s)->text(), u"Planner"_s);
    }

    QRect rowOf(const QString& company, const QString& title = {})
    {
        auto* tree = m_bench->find<QTreeView>(u"tvwHire"_s);
        const PipelineTree& model = m_bench->frm->pipelineScreen().tvwHire();
        const QModelIndex index =
            title.isEmpty() ? model.findCompany(company) : model.findPosition(company, title);
        tree->expand(index.parent());
        tree->scrollTo(index);
        return tree->visualRect(index);
    }
    QString planner(const QString& columns)
    {
        return m_bench->cells(u"Select "_s + columns + u" from Position where Title='Planner'");
    }
    void click(const QString& name) { QTest::mouseClick(m_bench->find<QWidget>(name), Qt::LeftButton); }

    std::unique_ptr<WindowBench> m_bench;
};

QTEST_MAIN(TestPipelineView)
#include "tst_pipelineview.moc"
