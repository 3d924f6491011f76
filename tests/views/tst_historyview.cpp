// The contact history as a user meets it: from the Contact screen into the dialog and back.
#include "history/frmhistory.h"
#include "views/history/historylist.h"
#include "views/history/historyview.h"
#include "views/windowbench.h"
#include "workbench/contactscreen.h"
#include "workbench/positionscreen.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QHeaderView>
#include <QPlainTextEdit>
#include <QTimer>

namespace {

/// A workbench on Acme's Ann Lee whose history opens in the real dialog, and what its user does there.
class HistoryWindow : public WindowBench
{
public:
    HistoryWindow()
    {
        const Key acme = addCompany(u"Acme"_s);
        addContact(u"Ann"_s, u"Lee"_s, acme);
        run(u"Insert into Position(Title,CompanyKey,ContactList) Values('Planner',1,'1')"_s);
        addHistory(1, u"10/1/2026"_s, u"Met at the fair"_s, u"10/8/2026"_s);
        addHistory(2, u"10/5/2026"_s, u"Wrote"_s, u"12/31/1999"_s);
        addHistory(3, u"10/9/2026"_s, u"Called"_s, u"12/1/2026"_s);
        navigator.whileOpen = [this] {
            if (navigator.opened.last() == u"FrmHistory")
                showDialog();
        };
        open();
        choose(u"Acme"_s);
        frm->tabStrip1Click(u"Contact"_s);
        frm->contactScreen().showContact(u"Ann Lee"_s);
    }
    void addHistory(int count, const QString& day, const QString& topic, const QString& next)
    {
        const QString n = QString::number(count);
        run(u"Insert into History(HistoryKey,ContactKey,ContactCount,ContactDate,Topic,NextCall,Details) "
            "Values('1-"_s +
            n + u"',1," + n + u",'" + day + u"','" + topic + u"','" + next + u"','details " + n + u"')");
    }
    /// Opens the history with its button; @p act is what the user does in it.
    void inHistory(const std::function<void()>& act)
    {
        m_act = act;
        QTest::mouseClick(find<QPushButton>(u"cmdHistory1"_s), Qt::LeftButton);
        QVERIFY2(!m_act, "the history was never open");
    }

    template<typename Widget> Widget* there(const QString& name)
    {
        auto* widget = dialog->findChild<Widget*>(name);
        if (!widget)
            QTest::qFail(qPrintable(u"no control "_s + name), __FILE__, __LINE__);
        return widget;
    }
    HistoryList* list() { return there<HistoryList>(u"lvwHistory"_s); }
    QString topic() { return there<QLineEdit>(u"txtTopic"_s)->text(); }
    void click(const QString& button) { QTest::mouseClick(there<QPushButton>(button), Qt::LeftButton); }
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
    QPoint placeOf(int row)
    {
        return list()->visualRect(list()->model()->index(row, FrmHistory::TopicColumn)).center();
    }
    void clickRow(int row) { QTest::mouseClick(list()->viewport(), Qt::LeftButton, {}, placeOf(row)); }
    void clickHeader(FrmHistory::Column column)
    {
        QHeaderView& header = *list()->header();
        QTest::mouseClick(header.viewport(), Qt::LeftButton, {},
                          QPoint(header.sectionViewportPosition(column) + 20, header.height() / 2));
    }
    QString stored() { return cells(u"Select HistoryKey,Topic from History order by ContactCount"_s); }

    HistoryView* dialog = nullptr;

private:
    void showDialog()
    {
        QVERIFY(frm->history().load(frm->selection().currentContactKey));
        HistoryView view(frm->history(), *layout, window.get());
        dialog = &view;
        QTimer::singleShot(0, &view, [this, &view] {
            if (QTest::qWaitFor([&view] { return QApplication::activeWindow() == &view; }))
                std::exchange(m_act, {})();
            if (view.isVisible())
                QTest::qFail("the dialog was left open", __FILE__, __LINE__);
            view.hide(); // in case the test has given up before it closed it
        });
        view.exec();
        frm->history().unload();
        dialog = nullptr;
    }

    std::function<void()> m_act;
};

} // namespace

class TestHistoryView : public QObject
{
    Q_OBJECT

private slots:
    void interactionIsEnteredStoredAndFoundAgain();
    void listIsWalkedAndEditedByKeysAlone();
    void entriesAreRemovedButTheFirst();
    void sortingAndMarksLeaveTheSlotsAlone();
    void searchNarrowsAsOneTypes();
    void closingThatFailsKeepsTheScreen();
    void importWaitsForItsVersion();
    void dialogComesBackAsItWasLeft();
};

void TestHistoryView::interactionIsEnteredStoredAndFoundAgain()
{
    HistoryWindow bench;
    bench.frm->tabStrip1Click(u"Position"_s);
    bench.frm->positionScreen().showPosition(u"Planner"_s);
    const QString before = bench.frm->positionScreen().nextStep();
    bench.frm->tabStrip1Click(u"Contact"_s);
    bench.frm->contactScreen().showContact(u"Ann Lee"_s);
    bench.inHistory([&] {
        QCOMPARE(QApplication::focusWidget()->objectName(), u"txtTopic"_s);
        bench.type(u"Élan's plan"_s);
        auto* medium = bench.there<QComboBox>(u"cmbMedium"_s);
        medium->setFocus();
        bench.press(Qt::Key_M); // "Meeting"
        bench.press(Qt::Key_Delete);
        QCOMPARE(bench.frm->history().form().text(u"cmbMedium"_s), QString());
        bench.press(Qt::Key_Home);
        QTest::mouseClick(bench.there<QCheckBox>(u"chkDoxGiven"_s), Qt::LeftButton, {}, QPoint(8, 8));
        bench.there<QPlainTextEdit>(u"txtDetails"_s)->setFocus();
        bench.type(u"one\ntwo"_s);
        QVERIFY(bench.there<QLabel>(u"lblNote"_s)->text().contains(u"press Update"_s));
        bench.press(Qt::Key_Escape); // loses nothing, and closes nothing over it
        QCOMPARE(bench.there<QPlainTextEdit>(u"txtDetails"_s)->toPlainText(), u"one\ntwo"_s);
        QVERIFY(bench.dialog->isVisible());
        bench.press(Qt::Key_S, Qt::ControlModifier);
        QCOMPARE(bench.there<QLabel>(u"lblNote"_s)->text(), QString());
        QCOMPARE(bench.listed(), u"Met at the fair, Wrote, Called, Élan`s plan, <New>"_s);
        QCOMPARE(bench.rows(u"History"_s), 3);
        bench.click(u"cmdClose"_s);
        QVERIFY(!bench.dialog->isVisible());
    });
    QCOMPARE(bench.cells(u"Select Topic,Medium,Details,ContactDate,DocumentXfer from History where "
                         "HistoryKey='1-4'"_s),
             u"Élan`s plan|Phone|one\r\ntwo|11/22/2026|1"_s);
    // The screens behind show what the history has moved, and keep it when they are saved.
    const QString today = QLocale().toString(QDate(2026, 11, 22), QLocale::ShortFormat);
    QCOMPARE(bench.line(u"txtDTPicker1"_s)->text(), today);
    bench.world.prompts.expect(u"Update of Ann Lee is complete."_s);
    bench.frm->contactScreen().cmdUpdateContact1();
    QCOMPARE(bench.cells(u"Select LastContact from Contact"_s), u"11/22/2026"_s);
    QVERIFY(bench.frm->positionScreen().nextStep() != before);
    QCOMPARE(bench.cells(u"Select SentResume,SentResumeMedium from Position"_s), u"11/22/2026|7"_s);
    bench.inHistory([&] {
        bench.clickRow(3);
        QCOMPARE(bench.there<QPlainTextEdit>(u"txtDetails"_s)->toPlainText(), u"one\ntwo"_s);
        QCOMPARE(bench.there<QComboBox>(u"cmbMedium"_s)->currentText(), u"Phone"_s);
        bench.press(Qt::Key_Escape);
    });
}

void TestHistoryView::listIsWalkedAndEditedByKeysAlone()
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
        bench.press(Qt::Key_N, Qt::ControlModifier);
        QCOMPARE(bench.topic(), QString());
        bench.press(Qt::Key_Escape);
        QVERIFY(!bench.dialog->isVisible());
    });
    QCOMPARE(bench.stored(), u"1-1|Met at the fair;1-2|Wrote a letter;1-3|Called"_s);
}

void TestHistoryView::entriesAreRemovedButTheFirst()
{
    HistoryWindow bench;
    bench.inHistory([&] {
        QVERIFY(!bench.there<QPushButton>(u"cmdRemoveHistory"_s)->isEnabled());
        bench.clickRow(0);
        bench.world.prompts.expect(u"You may not remove the first contact history"_s);
        bench.click(u"cmdRemoveHistory"_s);
        bench.clickRow(1);
        bench.world.prompts.expect(u"Are you sure you want to remove this history?"_s, Answer::Yes);
        bench.click(u"cmdRemoveHistory"_s);
        QCOMPARE(bench.topic(), u"Called"_s);
        QCOMPARE(bench.list()->currentIndex().row(), 1);
        bench.press(Qt::Key_Escape);
    });
    QCOMPARE(bench.stored(), u"1-1|Met at the fair;1-2|Called"_s);
}

void TestHistoryView::sortingAndMarksLeaveTheSlotsAlone()
{
    HistoryWindow bench;
    bench.inHistory([&] {
        QVERIFY(bench.cell(0, FrmHistory::CallColumn).contains(u"overdue"_s));
        QVERIFY(!bench.list()->model()->index(0, FrmHistory::CallColumn).data(Qt::DecorationRole).isNull());
        QVERIFY(!bench.cell(1, FrmHistory::CallColumn).contains(u"overdue"_s));
        QVERIFY(!bench.cell(2, FrmHistory::CallColumn).contains(u"overdue"_s));
        bench.clickHeader(FrmHistory::TopicColumn);
        QCOMPARE(bench.listed(), u"Called, Met at the fair, Wrote, <New>"_s);
        bench.clickHeader(FrmHistory::TopicColumn);
        QCOMPARE(bench.listed(), u"Wrote, Met at the fair, Called, <New>"_s);
        bench.clickRow(0);
        QTest::mouseDClick(bench.list()->viewport(), Qt::LeftButton, {}, bench.placeOf(0));
        QCOMPARE(bench.topic(), u"Wrote"_s);
        QCOMPARE(QApplication::focusWidget()->objectName(), u"txtTopic"_s);
        bench.press(Qt::Key_A, Qt::ControlModifier);
        bench.type(u"Zeal\n"_s);
        QCOMPARE(bench.listed(), u"Zeal, Met at the fair, Called, <New>"_s);
        QCOMPARE(bench.list()->currentIndex().row(), 0);
        bench.press(Qt::Key_Escape);
    });
    QCOMPARE(bench.stored(), u"1-1|Met at the fair;1-2|Zeal;1-3|Called"_s);
}

void TestHistoryView::searchNarrowsAsOneTypes()
{
    HistoryWindow bench;
    bench.inHistory([&] {
        bench.clickRow(2);
        bench.there<QLineEdit>(u"txtTopic"_s)->setFocus();
        bench.type(u"!"_s);
        bench.press(Qt::Key_F, Qt::ControlModifier);
        bench.type(u"FAIR"_s);
        // What is being edited stays, whatever it holds.
        QCOMPARE(bench.listed(), u"Met at the fair, Called, <New>"_s);
        QVERIFY(bench.topic().contains(u'!'));
        bench.press(Qt::Key_Escape);
        QVERIFY(bench.dialog->isVisible());
        bench.type(u"details 2"_s);
        QCOMPARE(bench.listed(), u"Wrote, Called, <New>"_s);
        bench.press(Qt::Key_N, Qt::ControlModifier);
        bench.press(Qt::Key_F, Qt::ControlModifier);
        bench.type(u"nowhere"_s);
        QCOMPARE(bench.listed(), u"<New>"_s);
        QCOMPARE(bench.list()->hint(), u"No history holds “nowhere”."_s);
        bench.press(Qt::Key_Escape);
        QCOMPARE(bench.listed(), u"Met at the fair, Wrote, Called, <New>"_s);
        bench.press(Qt::Key_Escape);
        QVERIFY(!bench.dialog->isVisible());
    });
}

void TestHistoryView::closingThatFailsKeepsTheScreen()
{
    HistoryWindow bench;
    bench.inHistory([&] {
        bench.type(u"Hard won\n"_s);
        bench.data().database().setInterceptor([](QStringView statement) {
            if (statement.startsWith(u"INSERT"))
                throw StoreError(u"failed on purpose"_s, 1, u"test"_s);
        });
        bench.world.prompts.expect(u"Hard won"_s, Answer::Yes);
        bench.press(Qt::Key_Escape);
        QVERIFY(bench.dialog->isVisible());
        bench.data().database().setInterceptor({});
        QCOMPARE(bench.listed(), u"Met at the fair, Wrote, Called, Hard won, <New>"_s);
        bench.dialog->close();
        QVERIFY(!bench.dialog->isVisible());
    });
    QCOMPARE(bench.stored(), u"1-1|Met at the fair;1-2|Wrote;1-3|Called;1-4|Hard won"_s);
}

void TestHistoryView::importWaitsForItsVersion()
{
    HistoryWindow bench;
    for (const bool exchange : {false, true}) {
        bench.world.session->outlookAvailable = exchange;
        bench.inHistory([&] {
            const auto* button = bench.there<QPushButton>(u"cmdUpdateOutlook"_s);
            QCOMPARE(button->isVisible(), exchange);
            QVERIFY(!button->isEnabled() && button->toolTip().contains(u"not part of this version"_s));
            QCOMPARE(bench.there<QPushButton>(u"cmdAddEvent"_s)->isEnabled(), exchange);
            if (exchange)
                bench.click(u"cmdAddEvent"_s);
            bench.press(Qt::Key_Escape);
        });
    }
    QCOMPARE(bench.navigator.opened.last(), u"FrmEvCal"_s);
}

void TestHistoryView::dialogComesBackAsItWasLeft()
{
    HistoryWindow bench;
    const int wanted = 720; // its width is more than the screen here has room for
    bench.inHistory([&] {
        bench.dialog->resize(bench.dialog->width(), wanted);
        bench.list()->header()->resizeSection(FrmHistory::TopicColumn, 123);
        bench.press(Qt::Key_Escape);
    });
    bench.inHistory([&] {
        QCOMPARE(bench.dialog->height(), wanted);
        QCOMPARE(bench.list()->header()->sectionSize(FrmHistory::TopicColumn), 123);
        bench.press(Qt::Key_Escape);
    });
}

QTEST_MAIN(TestHistoryView)
#include "tst_historyview.moc"
