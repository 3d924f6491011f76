// The Position screen with keys and mouse on a real store.
#include "support/table.h"
#include "views/windowbench.h"
#include "views/workbench/rankchart.h"
#include "workbench/positionscreen.h"

#include <QCheckBox>
#include <QDateEdit>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QTreeView>
#include <QWheelEvent>

namespace {

/// A window on Acme with Ann Lee and Bob Orr, and its position "Engineer", which has expired.
class PositionWindow : public WindowBench
{
public:
    explicit PositionWindow(bool questionnaires = true)
    {
        navigator.hasAll = questionnaires;
        const Key acme = addCompany(u"Acme"_s);
        addContact(u"Ann"_s, u"Lee"_s, acme);
        addContact(u"Bob"_s, u"Orr"_s, acme);
        run(u"Insert into Position(Title,Keyword,SentResume,SentResumeMedium,ContactList,CompanyKey,Expires) "
            "Values('Engineer','cad','10/9/2026',1,'1',1,'11/1/2026')"_s);
        open();
        find(u"acme"_s, Qt::Key_Return);
        press(Qt::Key_2, Qt::ControlModifier);
    }
    void chooseTitle(const QString& typed)
    {
        find<QWidget>(u"cmbPosSelection"_s)->setFocus();
        press(Qt::Key_A, Qt::ControlModifier);
        type(typed);
        press(Qt::Key_Return);
    }
    void click(const QString& button) { QTest::mouseClick(find<QAbstractButton>(button), Qt::LeftButton); }
    QLabel* panel() { return find<QLabel>(u"position"_s); }
    QDateEdit* date() { return find<QDateEdit>(u"dtpExpires"_s); }
};

} // namespace

class TestPositionView : public QObject
{
    Q_OBJECT

private slots:
    void newPositionByKeyboardOnly()
    {
        PositionWindow bench;
        QCOMPARE(bench.tab(), u"Position"_s);
        bench.press(Qt::Key_N, Qt::ControlModifier);
        QCOMPARE(QApplication::focusWidget()->objectName(), u"txtPosTitle"_s);
        bench.type(u"Senior Größe Planner"_s);
        bench.press(Qt::Key_Tab);
        bench.type(u"planning"_s);
        bench.press(Qt::Key_Tab);
        bench.type(u"Trenton"_s);
        bench.press(Qt::Key_V, Qt::AltModifier);
        QTRY_COMPARE(bench.rows(u"Position"_s), 2);
        QCOMPARE(bench.cells(u"Select Title,Keyword,Location,Expires from Position where PositionKey=2"_s),
                 u"Senior Größe Planner|planning|Trenton|12/22/2026"_s);
        QCOMPARE(bench.find<QComboBox>(u"cmbPosSelection"_s)->currentText(), u"Senior Größe Planner"_s);
        QVERIFY(!bench.find<QLabel>(u"proc"_s)->isVisible());
    }

    void expiryFollowsItsTickAndItsKeys()
    {
        PositionWindow bench;
        QVERIFY(!bench.panel()->isVisible());
        bench.chooseTitle(u"engineer"_s);
        QVERIFY(bench.panel()->isVisible());
        QCOMPARE(bench.panel()->text(), u"Position EXPIRED"_s);
        bench.click(u"chkExpires"_s);
        QCOMPARE(bench.date()->text(), u"No expiry"_s);
        QVERIFY(!bench.date()->isEnabled() && !bench.panel()->isVisible());
        QCOMPARE(bench.cells(u"Select Expires from Position"_s), u"12/31/1999"_s);
        bench.click(u"chkExpires"_s);
        QVERIFY(bench.date()->isEnabled());
        bench.date()->setFocus();
        bench.date()->setSelectedSection(QDateTimeEdit::YearSection);
        bench.press(Qt::Key_Up);
        QCOMPARE(bench.cells(u"Select Expires from Position"_s), u"12/22/2027"_s);
    }

    void wheelOverTheDateChangesNothing()
    {
        PositionWindow bench;
        bench.chooseTitle(u"engineer"_s);
        const QPointF middle = bench.date()->rect().center();
        QWheelEvent turn(middle, bench.date()->mapToGlobal(middle), {}, {0, 120}, Qt::NoButton,
                         Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(bench.date(), &turn);
        QCOMPARE(bench.cells(u"Select Expires from Position"_s), u"11/1/2026"_s);
    }

    void contactsAreAssignedAndUnassigned()
    {
        PositionWindow bench;
        bench.chooseTitle(u"engineer"_s);
        bench.find<QWidget>(u"cmbAssignContact"_s)->setFocus();
        bench.type(u"orr"_s);
        bench.press(Qt::Key_Return);
        bench.click(u"cmdAssign1"_s);
        bench.world.prompts.expect(u"Bob Orr has already been assigned to this position."_s);
        bench.click(u"cmdAssign1"_s);
        bench.world.prompts.expect(u"You have multiple contacts"_s);
        bench.click(u"cmdRemoveContactAssign1"_s);
        auto* tree = bench.find<QTreeView>(u"tvwContacts"_s);
        const QModelIndex ann = tree->model()->index(0, 0, tree->model()->index(0, 0));
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, tree->visualRect(ann).center());
        bench.click(u"cmdRemoveContactAssign1"_s);
        bench.click(u"cmdUpdatePos1"_s);
        QCOMPARE(bench.cells(u"Select ContactList,InfoContact,InfoContactMedium from Position"_s),
                 u"2|11/22/2026|6"_s);
    }

    void refusalsTellWhy_data()
    {
        columns<QString, QString>("button", "message");
        QTest::newRow("save") << u"cmdUpdatePos1"_s << u"Please enter a name for a new Position in"_s;
        QTest::newRow("delete") << u"cmdRemovePos1"_s << u"Please select a Position to remove."_s;
        QTest::newRow("assign") << u"cmdAssign1"_s << u"Please select a contact to assign."_s;
        QTest::newRow("unassign") << u"cmdRemoveContactAssign1"_s
                                  << u"No contacts assigned to this position for removal."_s;
        QTest::newRow("questionnaire") << u"cmdJProfile1"_s << u"No existing position has been selected."_s;
    }
    void refusalsTellWhy()
    {
        FETCH(QString, button, message);
        PositionWindow bench;
        bench.world.prompts.expect(message);
        bench.click(button);
        QVERIFY(bench.world.prompts.done());
        QCOMPARE(bench.world.prompts.lastTitle(),
                 button == "cmdRemovePos1"_L1 ? u"Jobwright - Message"_s : u"Jobwright Message"_s);
        QCOMPARE(bench.rows(u"Position"_s), 1);
    }

    void chartKeepsItsPointerInPlace_data()
    {
        // share: /< of the way from the low ends of both axes to the high ones
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

QTEST_MAIN(TestPositionView)
#include "tst_positionview.moc"
