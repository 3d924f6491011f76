// The card parser as a user meets it: from the double click on the street to the saved address.
#include "support/runtest.h"
#include "views/windowbench.h"

#include <QClipboard>

namespace {

/// A workbench on Acme that opens the real dialog, and what its user does there.
class CardBench : public WindowBench
{
public:
    CardBench()
    {
        QFile::copy(QStringLiteral(JOBWRIGHT_SOURCE_DIR) + u"/data/areacodes.jwd",
                    world.folder.filePath(u"areacodes.jwd"_s));
        addCompany(u"Acme"_s);
        open();
        find(u"Acme"_s, Qt::Key_Return);
    }
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
        const auto user = [&] {
            QVERIFY(bench.text(u"txtCurrent"_s).startsWith(u"1 Main"_s));
            QVERIFY(!bench.find(u"cmdSave"_s)->isEnabled());
            bench.click(u"cmdPaste"_s);
            bench.click(u"cmdVerify"_s);
            QCOMPARE(bench.text(u"Label2"_s), u"617 - MA"_s);
            QCOMPARE(bench.text(u"txtAddress"_s), u"6 Spindle Court"_s);
            // What the sorting got wrong is put right by hand before it is taken.
            bench.write(u"txtCity"_s, u"Cambridge"_s);
            bench.click(u"cmdSave"_s);
        };
        auto* street = bench.find<QPlainTextEdit>(u"txtAddress"_s)->viewport();
        bench.inDialog(user, [&] {
            QTest::mouseDClick(street, Qt::LeftButton);
            QCoreApplication::processEvents();
        });
        QCOMPARE(bench.navigator.opened, QStringList{u"FrmAutoParse"_s});
        QCOMPARE(bench.text(u"txtCity"_s), u"Cambridge"_s);
        QCOMPARE(bench.cells(u"Select Address1,City,Phone1 from Address order by AddressKey DESC"_s)
                     .section(u';', 0, 0),
                 u"6 Spindle Court|Cambridge|617-555-0142"_s);
    }

    void escapeLeavesEverythingAsItWas()
    {
        CardBench bench;
        bench.inDialog([&] { QTest::keyClick(bench.find(u"cmdVerify"_s), Qt::Key_Escape); },
                       [&] { bench.click(u"cmdFastParser"_s); });
        QCOMPARE(bench.text(u"txtCity"_s), u"Acme City"_s);
        QCOMPARE(bench.rows(u"Address"_s), 1);
    }
};

JOBWRIGHT_TEST(TestAutoParse)
#include "tst_autoparse.moc"
