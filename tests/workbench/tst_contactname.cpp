// How a person's name is taken apart and brought into its stored form.
#include "support/table.h"
#include "workbench/contactname.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QString joined(const ContactName& name)
{
    return QStringList{name.first, name.middle, name.last}.join(u'|');
}

ContactName taken(const QString& text)
{
    const QStringList parts = text.split(u'|');
    return {parts.value(0), parts.value(1), parts.value(2)};
}

} // namespace

class TestContactName : public QObject
{
    Q_OBJECT

private slots:
    void typedNameIsStoredAs_data()
    {
        columns<QString, QString>("typed", "stored");
        QTest::newRow("three boxes") << u"Ana|M|Ruiz"_s << u"Ana|M|Ruiz"_s;
        QTest::newRow("whole name in the first box") << u"ana maria ruiz||"_s << u"Ana|maria|Ruiz"_s;
        QTest::newRow("whole name in the last box") << u"||Ana Ruiz"_s << u"Ana||Ruiz"_s;
        QTest::newRow("words between join the middle name")
            << u"Ana Maria del Ruiz|J|"_s << u"Ana|JMariadel|Ruiz"_s;
        QTest::newRow("blanks around, tabs inside") << u"  Ana\t | M  J |  Ruiz "_s << u"Ana|MJ|Ruiz"_s;
        QTest::newRow("second first name moves") << u"Mary Ann Sue||Young"_s << u"Mary|Ann Sue|Young"_s;
        QTest::newRow("and is appended without a blank") << u"Mary Ann|B|Young"_s << u"Mary|BAnn|Young"_s;
        QTest::newRow("first word of the last name moves")
            << u"Vincent||van der Berg"_s << u"Vincent|van|Der Berg"_s;
        QTest::newRow("both move, first name's words first")
            << u"Jo Ann|X|de Vries"_s << u"Jo|XAnnde|Vries"_s;
        QTest::newRow("other alphabets get capitals too") << u"émile||ørsted"_s << u"Émile||Ørsted"_s;
        QTest::newRow("the rest of a name keeps its letters")
            << u"macKenzie||o'Neil"_s << u"MacKenzie||O'Neil"_s;
    }
    void typedNameIsStoredAs()
    {
        FETCH(QString, typed, stored);
        QCOMPARE(joined(normalisedName(completedName(taken(typed)))), stored);
    }
};

QTEST_GUILESS_MAIN(TestContactName)
#include "tst_contactname.moc"
