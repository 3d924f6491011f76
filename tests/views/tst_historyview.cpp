// The contact history as a user meets it: from the Contact screen into the dialog and back.
#include "history/frmhistory.h"
#include "support/runtest.h"
#include "views/history/historylist.h"
#include "views/history/historyview.h"
#include "views/windowbench.h"
#include "workbench/contactscreen.h"
#include "workbench/positionscreen.h"

#include <QHeaderView>
#include <QSignalSpy>

namespace {

/// A workbench on Acme's Ann Lee whose history opens in the real dialog, and what its user does there.
class HistoryWindow : public WindowBench
{
public:
    HistoryWindow()
    {
        addContact(u"Ann"_s, u"Lee"_s, addCompany(u"Acme"_s));
        run(u"Insert into Position(Title,CompanyKey,ContactList) Values('Planner',1,'1')"_s);
        addHistory(u"1"_s, u"10/1/2026"_s, u"Met at the fair"_s, u"10/8/2026"_s);
        addHistory(u"2"_s, u"10/5/2026"_s, u"Wrote"_s, u"12/31/1999"_s);
        addHistory(u"3"_s, u"10/9/2026"_s, u"Called"_s, u"11/22/2026"_s); // today, and not overdue
        open();
        choose(u"Acme"_s);
        showAnn();
    }
    void showAnn()
    {
        frm->tabStrip1Click(u"Contact"_s);
        frm->contactScreen().showContact(u"Ann Lee"_s);
    }
    void addHistory(const QString& n, const QString& day, const QString& topic, const QString& next)
    {
        run(u"Insert into History(HistoryKey,ContactKey,ContactCount,ContactDate,Topic,NextCall,Details) "
            "Values('1-%1',1,%1,'%2','%3','%4','details %1')"_s.arg(n, day, topic, next));
    }
    /// Opens the history with its button; @p act is what the user does in it.
    void inHistory(const std::function<void()>& act)
    {
        inDialog(act, [this] { click(u"cmdHistory1"_s); });
    }
    HistoryList* list() { return find<HistoryList>(u"lvwHistory"_s); }
    QString topic() { return text(u"txtTopic"_s); }
    QString cell(int row, int column = FrmHistory::TopicColumn)
    {
        return list()->model()->index(row, column).data().toString();
    }
    /// The topics from top to bottom, the last row by its "<New>".
    QString listed()
    {
        QStringList texts;
        for (int row = 0; row < list()->model()->rowCount(); ++row)
            texts.append(cell(row).isEmpty() ? cell(row, FrmHistory::DateColumn) : cell(row));
        return texts.join(u", "_s);
    }
    /// Answers the place that was clicked.
    QPoint clickRow(int row)
    {
        const QPoint at = list()->visualRect(list()->model()->index(row, FrmHistory::TopicColumn)).center();
        QTest::mouseClick(list()->viewport(), Qt::LeftButton, {}, at);
        return at;
    }
    void sortByTopic()
    {
        QHeaderView& header = *list()->header();
        const QPoint at(header.sectionViewportPosition(FrmHistory::TopicColumn) + 20, header.height() / 2);
        QTest::mouseClick(header.viewport(), Qt::LeftButton, {}, at);
    }
    QString stored() { return cells(u"Select HistoryKey,Topic from History order by ContactCount"_s); }
};

} // namespace

class TestHistoryView : public QObject
{
    Q_OBJECT

private slots:
    void interactionIsEnteredStoredAndFoundAgain()
    {
        HistoryWindow bench;
        bench.frm->tabStrip1Click(u"Position"_s);
        bench.frm->positionScreen().showPosition(u"Planner"_s);
        const QString before = bench.frm->positionScreen().nextStep();
        bench.showAnn();
        bench.inHistory([&] {
            QCOMPARE(QApplication::focusWidget()->objectName(), u"txtTopic"_s);
            bench.type(u"Élan's plan"_s);
            bench.find(u"cmbMedium"_s)->setFocus();
            bench.press(Qt::Key_M); // "Meeting"
            bench.press(Qt::Key_Delete);
            QCOMPARE(bench.presenters->history.form().text(u"cmbMedium"_s), QString());
            bench.press(Qt::Key_Home);
            QTest::mouseClick(bench.find(u"chkDoxGiven"_s), Qt::LeftButton, {}, QPoint(8, 8));
            bench.find(u"txtDetails"_s)->setFocus();
            bench.type(u"one\ntwo"_s);
            bench.press(Qt::Key_Escape); // loses nothing, and closes nothing over it
            QCOMPARE(bench.text(u"txtDetails"_s), u"one\ntwo"_s);
            QVERIFY(bench.text(u"lblNote"_s).contains(u"press Update"_s));
            bench.press(Qt::Key_S, Qt::ControlModifier);
            QCOMPARE(bench.text(u"lblNote"_s), QString());
            QCOMPARE(bench.listed(), u"Met at the fair, Wrote, Called, Élan`s plan, <New>"_s);
            bench.click(u"cmdClose"_s);
        });
        QCOMPARE(bench.cells(u"Select Topic,Medium,Details,ContactDate,DocumentXfer from History where "
                             "HistoryKey='1-4'"_s),
                 u"Élan`s plan|Phone|one\r\ntwo|11/22/2026|1"_s);
        // The screens behind show what the history has moved, and keep it when they are saved.
        QCOMPARE(bench.text(u"txtDTPicker1"_s),
                 QLocale().toString(QDate(2026, 11, 22), QLocale::ShortFormat));
        bench.world.prompts.expect(u"Update of Ann Lee is complete."_s);
        bench.frm->contactScreen().cmdUpdateContact1();
        QCOMPARE(bench.cells(u"Select LastContact from Contact"_s), u"11/22/2026"_s);
        QCoreApplication::processEvents();
        QVERIFY(bench.frm->positionScreen().nextStep() != before);
        bench.inHistory([&] {
            bench.clickRow(3);
            QCOMPARE(bench.text(u"txtDetails"_s), u"one\ntwo"_s);
            QCOMPARE(bench.text(u"cmbMedium"_s), u"Phone"_s);
            bench.press(Qt::Key_Escape);
        });
    }

    void listIsWalkedAndEditedByKeysAlone()
    {
        HistoryWindow bench;
        bench.inHistory([&] {
            bench.press(Qt::Key_F, Qt::ControlModifier);
            bench.press(Qt::Key_Down);
            QCOMPARE(QApplication::focusWidget(), bench.list());
            bench.press(Qt::Key_Up);
            bench.press(Qt::Key_Up);
            QCOMPARE(bench.topic(), u"Wrote"_s);
            bench.press(Qt::Key_Return);
            QCOMPARE(QApplication::focusWidget()->objectName(), u"txtTopic"_s);
            bench.press(Qt::Key_End);
            bench.type(u" a letter\n"_s); // Enter is Update
            QCOMPARE(bench.cell(1), u"Wrote a letter"_s);
            bench.type(u" dropped"_s);
            bench.world.prompts.expect(u"changes to this history"_s, Answer::No);
            bench.press(Qt::Key_N, Qt::ControlModifier);
            QCOMPARE(bench.topic(), QString());
            bench.press(Qt::Key_Escape);
        });
        QCOMPARE(bench.stored(), u"1-1|Met at the fair;1-2|Wrote a letter;1-3|Called"_s);
    }

    void sortingAndRemovingMeanTheRowThatIsSeen()
    {
        HistoryWindow bench;
        bench.inHistory([&] {
            for (int row = 0; row < 3; ++row)
                QCOMPARE(bench.cell(row, FrmHistory::CallColumn).contains(u"overdue"_s), row == 0);
            QVERIFY(
                !bench.list()->model()->index(0, FrmHistory::CallColumn).data(Qt::DecorationRole).isNull());
            bench.sortByTopic();
            QCOMPARE(bench.listed(), u"Called, Met at the fair, Wrote, <New>"_s);
            bench.sortByTopic();
            QCOMPARE(bench.listed(), u"Wrote, Met at the fair, Called, <New>"_s);
            QTest::mouseDClick(bench.list()->viewport(), Qt::LeftButton, {}, bench.clickRow(0));
            QCOMPARE(QApplication::focusWidget()->objectName(), u"txtTopic"_s);
            bench.press(Qt::Key_A, Qt::ControlModifier);
            bench.type(u"Zeal\n"_s);
            QCOMPARE(bench.listed(), u"Zeal, Met at the fair, Called, <New>"_s);
            QCOMPARE(bench.list()->currentIndex().row(), 0);
            bench.clickRow(2);
            bench.world.prompts.expect(u"Are you sure you want to remove this history?"_s, Answer::Yes);
            bench.click(u"cmdRemoveHistory"_s);
            QCOMPARE(bench.listed(), u"Zeal, Met at the fair, <New>"_s);
            bench.press(Qt::Key_Escape);
        });
        QCOMPARE(bench.stored(), u"1-1|Met at the fair;1-2|Zeal"_s);
    }

    void clickChoosesOnce()
    {
        HistoryWindow bench;
        bench.inHistory([&] {
            bench.clickRow(0);
            QSignalSpy chosen(&bench.presenters->history, &FrmHistory::changed);
            bench.clickRow(1);
            QCOMPARE(chosen.size(), 1);
            bench.find(u"txtTopic"_s)->setFocus();
            bench.type(u"half a thought"_s);
            bench.world.prompts.expect(u"changes to this history"_s, Answer::No);
            bench.clickRow(1); // the row that it stands on already: its entry again
            QCOMPARE(chosen.size(), 2);
            QCOMPARE(bench.topic(), u"Wrote"_s);
            bench.press(Qt::Key_Escape);
        });
    }

    void searchNarrowsAsOneTypes()
    {
        HistoryWindow bench;
        bench.inHistory([&] {
            bench.clickRow(2);
            bench.find(u"txtTopic"_s)->setFocus();
            bench.type(u"!"_s);
            bench.press(Qt::Key_F, Qt::ControlModifier);
            bench.type(u"FAIR"_s);
            // What is being edited stays, whatever it holds.
            QCOMPARE(bench.listed(), u"Met at the fair, Called, <New>"_s);
            QVERIFY(bench.topic().contains(u'!'));
            bench.press(Qt::Key_Escape);
            QVERIFY(bench.front->isVisible());
            bench.type(u"details 2"_s);
            QCOMPARE(bench.listed(), u"Wrote, Called, <New>"_s);
            bench.world.prompts.expect(u"changes to this history"_s, Answer::No);
            bench.press(Qt::Key_N, Qt::ControlModifier);
            bench.press(Qt::Key_F, Qt::ControlModifier);
            bench.type(u"nowhere"_s);
            QCOMPARE(bench.listed(), u"<New>"_s);
            QCOMPARE(bench.list()->hint(), u"No history holds “nowhere”."_s);
            bench.press(Qt::Key_Escape);
            QCOMPARE(bench.listed(), u"Met at the fair, Wrote, Called, <New>"_s);
            bench.press(Qt::Key_Escape);
        });
    }

    void closingThatFailsKeepsTheScreen()
    {
        HistoryWindow bench;
        bench.inHistory([&] {
            bench.type(u"Hard won\n"_s);
            bench.data().database().setInterceptor([](QStringView statement) {
                if (statement.startsWith(u"INSERT"))
                    throw StoreError(u"failed on purpose"_s, 1, u"test"_s);
            });
            bench.world.prompts.expect(u"Hard won"_s, Answer::No);
            bench.press(Qt::Key_Escape);
            QVERIFY(bench.front->isVisible());
            bench.data().database().setInterceptor({});
            QCOMPARE(bench.listed(), u"Met at the fair, Wrote, Called, Hard won, <New>"_s);
            bench.front->close();
        });
        QCOMPARE(bench.stored(), u"1-1|Met at the fair;1-2|Wrote;1-3|Called;1-4|Hard won"_s);
    }

    void dialogComesBackAsItWasLeft()
    {
        HistoryWindow bench;
        bench.inHistory([&] {
            QVERIFY(!bench.find(u"cmdUpdateOutlook"_s)->isVisible());
            bench.front->resize(bench.front->width(), 720); // wider than the screen here is
            bench.list()->header()->resizeSection(FrmHistory::TopicColumn, 123);
            bench.press(Qt::Key_Escape);
        });
        bench.world.session->outlookAvailable = true;
        bench.inHistory([&] {
            QCOMPARE(bench.front->height(), 720);
            QCOMPARE(bench.list()->header()->sectionSize(FrmHistory::TopicColumn), 123);
            const auto* button = bench.find(u"cmdUpdateOutlook"_s);
            QVERIFY(button->isVisible() && !button->isEnabled());
            QVERIFY(button->toolTip().contains(u"not part of this version"_s));
            bench.press(Qt::Key_Escape);
        });
    }
};

JOBWRIGHT_TEST(TestHistoryView)
#include "tst_historyview.moc"
