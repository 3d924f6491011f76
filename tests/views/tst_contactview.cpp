// The Contact screen, the address entry and the company picker with keys and mouse.
#include "desktop/companypicker.h"
#include "support/runtest.h"
#include "views/windowbench.h"
#include "workbench/contactscreen.h"

#include <QCheckBox>
#include <QSlider>

namespace {

/// A window on Acme with Ann Lee and Bob Stone, and the Contact screen open.
class ContactWindow : public WindowBench
{
public:
    ContactWindow()
    {
        const Key acme = addCompany(u"Acme"_s);
        addContact(u"Ann"_s, u"Lee"_s, acme);
        addContact(u"Bob"_s, u"Stone"_s, acme);
        open();
        find(u"acme"_s, Qt::Key_Return);
        press(Qt::Key_3, Qt::ControlModifier);
    }
};

} // namespace

class TestContactView : public QObject
{
    Q_OBJECT

private slots:
    void onlyTickedBoxesArePrinted()
    {
        ContactWindow bench;
        bench.write(u"cmbContacts"_s, u"lee\n"_s);
        bench.click(u"chk1"_s);
        QStringList texts;
        const ReportDocument form = bench.window->printableForm();
        for (const ReportPage::Block& block : form.pages.front().blocks)
            texts += block.texts;
        QCOMPARE(texts.count(u"Yes"_s), 1);
        QCOMPARE(texts.value(texts.indexOf(u"Yes"_s) - 1), u"Direct"_s);
    }

    void contactIsFoundByAnyPartAndSavedFieldByField()
    {
        ContactWindow bench;
        bench.write(u"cmbContacts"_s, u"lee\n"_s);
        QCOMPARE(bench.text(u"txtFirst"_s), u"Ann"_s);
        bench.enter(u"txtContactNotes"_s, u"one\ntwo"_s);
        QCOMPARE(bench.text(u"proc"_s), u"Update Contact"_s);
        bench.press(Qt::Key_Tab);
        bench.click(u"chk10"_s);
        bench.find(u"txtDept"_s)->setFocus();
        auto* slider = bench.find<QSlider>(u"sldrInfluence"_s);
        slider->setFocus();
        bench.press(Qt::Key_End);
        QCOMPARE(bench.cells(u"Select Notes,BestMedium,ContactLevel from Contact where LastName='Lee'"_s),
                 u"one\r\ntwo|10000000|9"_s);
        // Another contact brings its own values into the same controls.
        bench.write(u"cmbContacts"_s, u"stone\n"_s);
        QCOMPARE(slider->value(), 0);
        QVERIFY(!bench.find<QCheckBox>(u"chk10"_s)->isChecked());
    }

    void addressIsEnteredSavedAndCancelled()
    {
        ContactWindow bench;
        bench.write(u"cmbContacts"_s, u"lee\n"_s);
        for (const bool save : {true, false}) {
            if (save)
                bench.world.prompts.expect(u"Update of Ann Lee is complete."_s);
            const auto act = [&] {
                QTRY_COMPARE(QApplication::focusWidget()->objectName(), u"txtEAddress"_s);
                bench.type(save ? u"7 Mill Lane\nSuite 2"_s : u"Nowhere"_s);
                bench.press(Qt::Key_Tab);
                bench.type(u"Troy"_s);
                if (save)
                    bench.press(Qt::Key_Return);
                else
                    bench.click(u"cmdCancel"_s);
            };
            bench.inDialog(act, [&] { bench.click(u"cmdAddress1"_s); });
            QCOMPARE(bench.cells(u"Select Address1,Address2,City from Address where City='Troy'"_s),
                     u"7 Mill Lane|Suite 2|Troy"_s);
        }
    }

    void pickerNarrowsAsOneTypes()
    {
        // Anywhere in the name; a "+" for the arrow key; another alphabet; no pattern but a text.
        for (const QString& pair :
             {u"ware=Blue Ware"_s, u"ware+=Software House"_s, u"ößling=Größling"_s, u"a.*="_s}) {
            CompanyPicker picker(u"All Contacts"_s,
                                 {u"Acme"_s, u"Blue Ware"_s, u"Größling"_s, u"Software House"_s});
            picker.show();
            QVERIFY(QTest::qWaitForWindowActive(&picker));
            for (const QChar letter : pair.section(u'=', 0, 0))
                QTest::sendKeyEvent(QTest::Click, QApplication::focusWidget(),
                                    letter == u'+' ? Qt::Key_Down : Qt::Key_unknown,
                                    letter == u'+' ? QString() : QString(letter), {});
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
            QCOMPARE(picker.picked(), pair.section(u'=', 1));
            QCOMPARE(picker.result() == QDialog::Accepted, !picker.picked().isEmpty());
        }
    }
};

JOBWRIGHT_TEST(TestContactView)
#include "tst_contactview.moc"
