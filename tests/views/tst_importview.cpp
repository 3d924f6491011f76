// The import as a person uses it: a column's box, the one click that maps, and marks in the lists.
#include "formats/sharedfolders.h"
#include "intake/frmimport.h"
#include "support/runtest.h"
#include "support/screenbench.h"
#include "views/intake/importview.h"

#include <QComboBox>
#include <QPushButton>
#include <QSettings>
#include <QTreeView>

using namespace Qt::StringLiterals;

class TestImportView : public QObject
{
    Q_OBJECT

    std::unique_ptr<ScreenBench> m_bench;
    SharedFolders m_folders;
    std::unique_ptr<FrmImport> m_screen;
    std::unique_ptr<QSettings> m_layout;
    std::unique_ptr<ImportView> m_view;

    template<class Widget> Widget* find(const char* name)
    {
        return m_view->findChild<Widget*>(QLatin1String(name));
    }
    void click(const char* name) { QTest::mouseClick(find<QPushButton>(name), Qt::LeftButton); }
    QString file(const QString& name, const QByteArray& text)
    {
        const QString path = m_bench->world.folder.filePath(name);
        QFile written(path);
        return written.open(QIODevice::WriteOnly) && written.write(text) == text.size() ? path : QString();
    }

private slots:
    void init()
    {
        m_view.reset();
        m_screen.reset();
        m_bench = std::make_unique<ScreenBench>();
        m_screen = std::make_unique<FrmImport>(*m_bench->world.session, m_folders, m_bench->navigator);
        m_layout = std::make_unique<QSettings>(m_bench->world.folder.filePath(u"layout.ini"_s),
                                               QSettings::IniFormat);
        m_view = std::make_unique<ImportView>(*m_screen, *m_layout);
        m_view->show();
        QVERIFY(QTest::qWaitForWindowActive(m_view.get()));
    }

    void columnsAreMappedAndStored()
    {
        const QString path = file(u"people.csv"_s, "Given,Family Name,Company\nAnn,Lee,Acme\n");
        find<QComboBox>("cmbInputSource")->setFocus();
        QTest::keyClicks(find<QComboBox>("cmbInputSource"), u"Text"_s);
        QVERIFY(find<QWidget>("frmeParse")->isVisible() && !find<QWidget>("frmeMSOutlook")->isVisible());
        m_bench->world.prompts.expectFile(u"Jobwright - IMPORT"_s, path);
        click("cmdDialog");
        click("cmdLoadImport");
        click("cmdMapAll");
        auto* columns = find<QTreeView>("tblColumns");
        const auto field = [&](int row) { return columns->model()->index(row, ImportColumns::Field); };
        QCOMPARE(field(1).data().toString(), u"Contact.LastName"_s);
        columns->setCurrentIndex(field(0));
        columns->edit(field(0));
        auto* box = columns->findChild<QComboBox*>();
        QVERIFY(box);
        QTest::keyClicks(box, u"Contact.Fi"_s);
        QTest::keyClick(box, Qt::Key_Return);
        QTRY_COMPARE(field(0).data().toString(), u"Contact.FirstName"_s);
        m_bench->expect(u"Contacts: 1"_s);
        click("cmdMap");
        QCOMPARE(m_bench->cells(u"Select FirstName,LastName from Contact"_s), u"Ann|Lee"_s);
        QVERIFY(find<QPushButton>("cmdTakeBack")->isEnabled());
    }
    void markedContactsComeIn()
    {
        file(u"cards.vcf"_s, "BEGIN:VCARD\nN:Lee;Ann\nEND:VCARD\nBEGIN:VCARD\nN:Ray;Bob\nEND:VCARD\n");
        m_screen->form().setText(u"txtFolder"_s, m_bench->world.folder.path());
        QTest::keyClicks(find<QComboBox>("cmbInputSource"), u"MS O"_s);
        click("cmdLoadOut");
        auto* list = find<QTreeView>("lvwContacts");
        QCOMPARE(list->model()->rowCount(), 2);
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                          list->visualRect(list->model()->index(1, 0)).center());
        m_bench->expect(u"Selected contacts have been imported."_s);
        click("cmdImportList");
        QCOMPARE(m_bench->cells(u"Select LastName from Contact"_s), u"Ray"_s);
        QCOMPARE(list->model()->rowCount(), 1);
    }
};

JOBWRIGHT_TEST(TestImportView)
#include "tst_importview.moc"
