// The card parser as a user meets it: from the double click on the street to the saved address.
#include "intake/frmautoparse.h"
#include "views/intake/autoparseview.h"
#include "views/windowbench.h"

#include <QClipboard>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QTimer>

namespace {

/// A workbench that opens the real dialog, and what its user does there.
class CardBench : public WindowBench
{
public:
    CardBench()
    {
        QFile::copy(QStringLiteral(JOBWRIGHT_SOURCE_DIR) + u"/data/areacodes.jwd",
                    world.folder.filePath(u"areacodes.jwd"_s));
        addCompany(u"Acme"_s);
        navigator.whileOpen = [this] {
            AutoParseView view(frm->autoParse(), *layout, window.get());
            dialog = &view;
            QTimer::singleShot(0, &view, [this, &view] {
                if (QTest::qWaitFor([&view] { return QApplication::activeWindow() == &view; }))
                    inDialog();
                view.reject(); // in case the test has given up before it closed it
            });
            view.exec();
            dialog = nullptr;
        };
        open();
        find(u"Acme"_s, Qt::Key_Return);
    }

    template<typename Widget> Widget* there(const QString& name) { return dialog->findChild<Widget*>(name); }
    void click(const QString& button) { QTest::mouseClick(there<QAbstractButton>(button), Qt::LeftButton); }
    void doubleClickStreet()
    {
        auto* street = find<QPlainTextEdit>(u"txtAddress"_s);
        QTest::mouseDClick(street->viewport(), Qt::LeftButton);
        QCoreApplication::processEvents();
    }

    AutoParseView* dialog = nullptr;
    std::function<void()> inDialog;
};

} // namespace

class TestAutoParse : public QObject
{
    Q_OBJECT

private slots:
    void pastedCardIsSortedCorrectedAndSaved()
    {
        CardBench bench;
        QApplication::clipboard()->setText(
            u"6 Spindle Court\r\nBoston, MA 02139\r\n617-555-0142\r\nann@mill.example"_s);
        bench.inDialog = [&] {
            QVERIFY(bench.there<QPlainTextEdit>(u"txtCurrent"_s)->toPlainText().startsWith(u"1 Main"_s));
            QVERIFY(!bench.there<QWidget>(u"cmdSave"_s)->isEnabled());
            bench.click(u"cmdPaste"_s);
            bench.click(u"cmdVerify"_s);
            QCOMPARE(bench.there<QLabel>(u"Label2"_s)->text(), u"617 - MA"_s);
            QCOMPARE(bench.there<QPlainTextEdit>(u"txtAddress"_s)->toPlainText(), u"6 Spindle Court"_s);
            // What the sorting got wrong is put right by hand before it is taken.
            auto* city = bench.there<QLineEdit>(u"txtCity"_s);
            city->setFocus();
            city->selectAll();
            bench.type(u"Cambridge"_s);
            bench.click(u"cmdSave"_s);
        };
        bench.doubleClickStreet();
        QCOMPARE(bench.navigator.opened, QStringList{u"FrmAutoParse"_s});
        QCOMPARE(bench.line(u"txtCity"_s)->text(), u"Cambridge"_s);
        QCOMPARE(bench.cells(u"Select Address1,City,Phone1 from Address order by AddressKey DESC"_s)
                     .section(u';', 0, 0),
                 u"6 Spindle Court|Cambridge|617-555-0142"_s);
    }

    void escapeLeavesEverythingAsItWas()
    {
        CardBench bench;
        bench.inDialog = [&] {
            QTest::keyClick(bench.there<QWidget>(u"cmdVerify"_s), Qt::Key_Escape);
            QVERIFY(!bench.dialog->isVisible());
        };
        QTest::mouseClick(bench.find<QAbstractButton>(u"cmdFastParser"_s), Qt::LeftButton);
        QCOMPARE(bench.navigator.opened.size(), 1);
        QCOMPARE(bench.line(u"txtCity"_s)->text(), u"Acme City"_s);
        QCOMPARE(bench.rows(u"Address"_s), 1);
    }
};

QTEST_MAIN(TestAutoParse)
#include "tst_autoparse.moc"
