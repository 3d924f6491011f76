// The Contact screen, the address entry and the company picker with keys and mouse.
#include "desktop/companypicker.h"
#include "support/table.h"
#include "views/common/kindtree.h"
#include "views/windowbench.h"
#include "views/workbench/addressentryview.h"
#include "workbench/addressentry.h"
#include "workbench/contactscreen.h"

#include <QCheckBox>
#include <QListView>
#include <QPlainTextEdit>
#include <QSlider>
#include <QTreeView>

namespace {

/// A window on Acme with Ann Lee and Bob Stone, at Bolt Cy Abbot, and the Contact screen open.
class ContactWindow : public WindowBench
{
public:
    ContactWindow()
    {
        const Key acme = addCompany(u"Acme"_s);
        addContact(u"Ann"_s, u"Lee"_s, acme);
        addContact(u"Bob"_s, u"Stone"_s, acme);
        addContact(u"Cy"_s, u"Abbot"_s, addCompany(u"Bolt"_s));
        run(u"Insert into Document(Document,Type) Values('Letter','Cover')"_s);
    }
    void show()
    {
        open();
        WindowBench::find(u"acme"_s, Qt::Key_Return);
        press(Qt::Key_3, Qt::ControlModifier);
    }
    /// Chooses in a selector by typing and Enter.
    void pick(const QString& selector, const QString& typed)
    {
        auto* box = WindowBench::find<CompanySelector>(selector);
        box->setFocus();
        box->lineEdit()->selectAll();
        type(typed);
        press(Qt::Key_Return);
    }
    void click(const QString& button)
    {
        QTest::mouseClick(WindowBench::find<QWidget>(button), Qt::LeftButton);
    }
    QStringList listed(const QString& tree)
    {
        const auto* view = WindowBench::find<QTreeView>(tree);
        QStringList texts;
        for (int row = 0; row < view->model()->rowCount(view->rootIndex()); ++row)
            texts.append(view->model()->index(row, 0, view->rootIndex()).data().toString());
        return texts;
    }
    QRect nodeRect(const QString& tree)
    {
        const auto* view = WindowBench::find<QTreeView>(tree);
        return view->visualRect(view->model()->index(0, 0, view->rootIndex()));
    }
    QWidget* viewport(const QString& tree) { return WindowBench::find<QTreeView>(tree)->viewport(); }
};

} // namespace

class TestContactView : public QObject
{
    Q_OBJECT

private slots:
    void newContactByKeyboardOnly()
    {
        ContactWindow bench;
        bench.show();
        bench.press(Qt::Key_N, Qt::ControlModifier);
        QCOMPARE(QApplication::focusWidget()->objectName(), u"txtFirst"_s);
        bench.type(u"élodie"_s);
        bench.press(Qt::Key_Tab);
        bench.press(Qt::Key_Tab);
        bench.type(u"Stein"_s);
        bench.press(Qt::Key_L, Qt::AltModifier);
        bench.type(u"Planner"_s);
        bench.find<QWidget>(u"chk2"_s)->setFocus();
        bench.press(Qt::Key_Space);
        bench.find<QWidget>(u"sldrQuality"_s)->setFocus();
        bench.press(Qt::Key_Right);
        QCOMPARE(bench.find<QLabel>(u"lblQuality"_s)->text().remove(u'&'), u"Quality: 1"_s);
        bench.world.prompts.expect(u"Update of Élodie Stein is complete."_s);
        bench.press(Qt::Key_V, Qt::AltModifier);
        QTRY_VERIFY(bench.world.prompts.done());
        QCOMPARE(bench.cells(
                     u"Select Title,HiringMgr,ContactLevel,CompanyKey from Contact where LastName='Stein'"_s),
                 u"Planner|010000000|10|1"_s);
        QCOMPARE(bench.find<CompanySelector>(u"cmbContacts"_s)->currentText(), u"Élodie Stein"_s);
    }

    void contactIsFoundByAnyPartAndSavedFieldByField()
    {
        ContactWindow bench;
        bench.show();
        bench.pick(u"cmbContacts"_s, u"lee"_s);
        QCOMPARE(bench.line(u"txtFirst"_s)->text(), u"Ann"_s);
        QCOMPARE(bench.line(u"txtDTPicker1"_s)->text(), u"No Contact"_s);
        bench.enter(u"txtContactNotes"_s);
        bench.type(u"one\ntwo"_s);
        QCOMPARE(bench.find<QLabel>(u"proc"_s)->text(), u"Update Contact"_s);
        bench.press(Qt::Key_Tab);
        bench.click(u"chk10"_s);
        bench.find<QWidget>(u"txtDept"_s)->setFocus();
        auto* slider = bench.find<QSlider>(u"sldrInfluence"_s);
        slider->setFocus();
        bench.press(Qt::Key_End);
        QCOMPARE(bench.cells(u"Select Notes,BestMedium,ContactLevel from Contact where LastName='Lee'"_s),
                 u"one\r\ntwo|10000000|9"_s);
        // Another contact brings its own values into the same controls.
        bench.pick(u"cmbContacts"_s, u"stone"_s);
        QCOMPARE(slider->value(), 0);
        QVERIFY(!bench.find<QCheckBox>(u"chk10"_s)->isChecked());
    }

    void addressIsEnteredSavedAndCancelled()
    {
        ContactWindow bench;
        bench.show();
        bench.pick(u"cmbContacts"_s, u"lee"_s);
        for (const bool save : {true, false}) {
            bench.navigator.whileOpen = [&] {
                AddressEntryView view(bench.frm->contactScreen().addressEntry(), *bench.layout,
                                      bench.window.get());
                view.setModal(true);
                view.show();
                QVERIFY(QTest::qWaitForWindowActive(&view));
                QTRY_COMPARE(QApplication::focusWidget()->objectName(), u"txtEAddress"_s);
                bench.type(save ? u"7 Mill Lane\nSuite 2"_s : u"Nowhere"_s);
                bench.press(Qt::Key_Tab);
                bench.type(u"Troy"_s);
                if (save)
                    bench.press(Qt::Key_Return);
                else
                    QTest::mouseClick(view.findChild<QPushButton*>(u"cmdCancel"_s), Qt::LeftButton);
                QVERIFY(!view.isVisible());
            };
            if (save)
                bench.world.prompts.expect(u"Update of Ann Lee is complete."_s);
            bench.click(u"cmdAddress1"_s);
            QCOMPARE(bench.cells(u"Select Address1,Address2,City from Address where City='Troy'"_s),
                     u"7 Mill Lane|Suite 2|Troy"_s);
        }
        QCOMPARE(bench.line(u"txtFirst"_s)->text(), u"Ann"_s);
    }

    void pickerNarrowsAsOneTypes_data()
    {
        columns<QString, int, QString>("typed", "downs", "picked");
        QTest::newRow("anywhere in the name") << u"ware"_s << 0 << u"Blue Ware"_s;
        QTest::newRow("arrow keys walk on") << u"ware"_s << 1 << u"Software House"_s;
        QTest::newRow("other alphabet") << u"ößling"_s << 0 << u"Größling"_s;
        QTest::newRow("no pattern but a text") << u"a.*"_s << 0 << QString();
        QTest::newRow("nothing") << u"zzz"_s << 0 << QString();
    }
    void pickerNarrowsAsOneTypes()
    {
        FETCH(QString, typed, picked);
        QFETCH(int, downs);
        CompanyPicker picker(u"All Contacts"_s,
                             {u"Acme"_s, u"Blue Ware"_s, u"Größling"_s, u"Software House"_s});
        picker.show();
        QVERIFY(QTest::qWaitForWindowActive(&picker));
        for (const QChar letter : typed)
            QTest::sendKeyEvent(QTest::Click, QApplication::focusWidget(), Qt::Key_unknown, QString(letter),
                                {});
        for (int i = 0; i < downs; ++i)
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QCOMPARE(picker.result() == QDialog::Accepted, !picked.isEmpty());
        QCOMPARE(picker.picked(), picked);
    }
};

QTEST_MAIN(TestContactView)
#include "tst_contactview.moc"
