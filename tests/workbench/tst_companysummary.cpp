// The company summary: which sentences stand for which figures.
#include "base/dates.h"
#include "support/table.h"
#include "workbench/companysummary.h"

#include <QTest>

#include <functional>

using namespace Qt::StringLiterals;

namespace {

const QDate today(2026, 11, 22);

/// A company without anything, entered some days ago.
CompanyFigures entered(int daysAgo)
{
    CompanyFigures figures;
    figures.entryDate = today.addDays(-daysAgo);
    figures.lastContact = dates::sentinel;
    return figures;
}

/// Two contacts of which one was reached, and a position.
CompanyFigures known(int daysAgo, int silence)
{
    CompanyFigures figures = entered(daysAgo);
    figures.contactCount = 2;
    figures.positionCount = 1;
    figures.contactedCount = 1;
    figures.interactionCount = 3;
    figures.maxPerContact = 3;
    figures.lastContact = today.addDays(-silence);
    return figures;
}

CompanyFigures with(CompanyFigures figures, const std::function<void(CompanyFigures&)>& change)
{
    change(figures);
    return figures;
}

} // namespace

Q_DECLARE_METATYPE(CompanyFigures)

class TestCompanySummary : public QObject
{
    Q_OBJECT

private slots:
    void wholeText_data()
    {
        columns<CompanyFigures, QString>("figures", "text");
        QTest::newRow("entered today, nothing known")
            << entered(0)
            << u"The company has been in your database for 0 week."
               "You have no current available contacts or positions at this company.\n"
               " ---CONTACTS\n"
               "You have no contacts at this company.  You haven't made contact at the company.\n"
               " ---POSITION\n"
               "You have no position vacancies at this company.\n"
               " ---GENERAL\n"
               "Contacts with this company have been neglected."_s;
        QTest::newRow("old, one of two contacts reached once, positions all expired, high rank, target")
            << with(known(70, 61),
                    [](CompanyFigures& f) {
                        f.isTarget = true;
                        f.targetCount = 12;
                        f.interactionCount = f.maxPerContact = 1;
                        f.positionCount = f.expiredCount = 2;
                        f.rank = 7;
                    })
            << u"This is a Target company out of 12 target companies."
               "The company has been in your database for 10 weeks. \n"
               " ---CONTACTS\n"
               "You have entered 2 contacts at this company.Of these contacts, you've communicated with 1 "
               "individual."
               ", with whom you've last contacted 8 weeks ago."
               "  You have interacted with the company a total of 1 times."
               "Contacts at this company are stale.Contact others to rebuild this company in your network.\n"
               " ---POSITION\n"
               "You have 2 position vacancies at this company. All of these are expired."
               " Positions at this company are stale.\n"
               " ---GENERAL\n"
               "You have ranked this company high based on profile."
               "This company's contact and position data are aged."_s;
        QTest::newRow("fresh, several interactions")
            << with(known(7, 6),
                    [](CompanyFigures& f) {
                        f.contactedCount = 2;
                        f.interactionCount = 5;
                        f.positionCount = 3;
                        f.expiredCount = 1;
                        f.rank = 4;
                    })
            << u"The company has been in your database for 1 week.\n"
               " ---CONTACTS\n"
               "You have entered 2 contacts at this company.Of these contacts, you've communicated with 2 "
               "individuals."
               ", with whom you've last contacted 0 week ago."
               "  You have interacted with the company a total of 5 times."
               "With one individual whom you communicated with 3 times."
               "Contacts at this company are fresh.\n"
               " ---POSITION\n"
               "You have 3 position vacancies at this company.1 of these are expired."
               " Positions data at this company are fresh.\n"
               " ---GENERAL\n"
               "You have ranked this company average based on profile."_s;
    }
    void wholeText()
    {
        QFETCH(CompanyFigures, figures);
        QFETCH(QString, text);
        QCOMPARE(companySummary(figures, today), text);
    }

    void sentence_data()
    {
        columns<CompanyFigures, QString, bool>("figures", "part", "written");
        const auto row = [](const CompanyFigures& figures, const QString& part, bool written) {
            static int number = 0;
            QTest::addRow("%d %s", ++number, qPrintable(part)) << figures << part << written;
        };
        row(entered(13), u"for 1 week."_s, true);
        row(entered(14), u"for 2 weeks. You"_s, true); // the plural has a blank behind
        const QString nothing = u"no current available"_s;
        row(with(entered(5), [](auto& f) { f.positionCount = 1; }), nothing, false);
        row(with(entered(5), [](auto& f) { f.positionCount = f.expiredCount = 1; }), nothing, true);
        row(with(entered(5), [](auto& f) { f.contactCount = 1; }), nothing, false);
        // The clause of the last contact stands without any history.
        const auto reached = [](QDate day) {
            return with(entered(5), [day](auto& f) {
                f.contactCount = 1;
                f.lastContact = day;
            });
        };
        row(reached(today.addDays(-14)),
            u"1 contact at this company., with whom you've last contacted 2 weeks ago."_s, true);
        row(reached(today.addDays(-13)), u"last contacted 1 week ago."_s, true);
        row(reached(dates::sentinel.addDays(1)), u"with whom"_s, true);
        row(reached(dates::sentinel), u"with whom"_s, false);
        const QString stale = u"Contacts at this company are stale."_s;
        const QString fresh = u"Contacts at this company are fresh."_s;
        row(known(61, 61), stale, true);
        row(known(60, 61), stale, false);
        row(known(61, 60), stale, false);
        row(known(59, 59), fresh, true);
        row(known(60, 59), fresh, false);
        row(known(59, 60), fresh, false);
        row(with(known(61, 61), [](auto& f) { f.maxPerContact = 2; }),
            u"stale.Other contacts are available in your database."_s, true);
        const auto expired = [](auto& f) { f.positionCount = f.expiredCount = 2; };
        row(with(known(60, 61), expired), u" Positions at this"_s, false);
        row(with(known(61, 61), expired), u" Positions at this"_s, true);
        row(known(59, 61), u" Positions data"_s, true);
        row(known(60, 61), u" Positions data"_s, false);
        row(entered(59), u" Positions data"_s, false);
        row(known(61, 1), u"data are aged."_s, true);
        row(known(60, 1), u"data are aged."_s, false);
        const auto ranked = [](Key rank, int silence = 1) {
            return with(known(1, silence), [rank](auto& f) { f.rank = rank; });
        };
        row(ranked(0), u"You have ranked"_s, false);
        row(ranked(1), u"company low"_s, true);
        row(ranked(3), u"company low"_s, true);
        row(ranked(4), u"company average"_s, true);
        row(ranked(6), u"company average"_s, true);
        row(ranked(7), u"company high"_s, true);
        // Neglected: fewer questions' points than interactions, and more than a month of silence.
        const QString neglected = u"Contacts with this company have been neglected."_s;
        row(ranked(2, 31), neglected, true);
        row(ranked(2, 30), neglected, false);
        row(ranked(3, 31), neglected, false);
        row(with(entered(1), [](auto& f) { f.rank = 9; }), neglected, true);
    }
    void sentence()
    {
        QFETCH(CompanyFigures, figures);
        QFETCH(QString, part);
        QFETCH(bool, written);
        const QString text = companySummary(figures, today);
        QVERIFY2(text.contains(part) == written, qPrintable(text));
    }
};

QTEST_GUILESS_MAIN(TestCompanySummary)
#include "tst_companysummary.moc"
