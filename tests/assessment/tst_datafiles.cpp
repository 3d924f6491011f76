// The readers of dictionaries, occupation lists and templates, and the files that the program is delivered
// with.
#include "assessment/occupations.h"
#include "assessment/template.h"
#include "assessment/wordstat.h"
#include "base/latin1.h"
#include "base/words.h"
#include "support/runtest.h"
#include "support/table.h"

#include <QDir>
#include <QSet>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

static const QString delivered = QStringLiteral(JOBWRIGHT_SOURCE_DIR "/data");

class TestDataFiles : public QObject
{
    Q_OBJECT

private slots:
    void deliveredListKeepsItsForm_data()
    {
        columns<int>("least");
        const QStringList files = QDir(delivered).entryList({u"R-*.jwd"_s, u"occ-*.jwd"_s});
        for (const QString& file : files)
            QTest::newRow(qPrintable(file)) << (file == u"R-AC.jwd"     ? 1400
                                                : file.startsWith(u'R') ? 150
                                                                        : 40);
    }
    void deliveredListKeepsItsForm()
    {
        QFETCH(int, least);
        const QStringList entries = loadDictionary(delivered, QLatin1String(QTest::currentDataTag()));
        QVERIFY(entries.size() >= least);
        QCOMPARE(QSet<QString>(entries.begin(), entries.end()).size(), entries.size());
        for (const QString& entry : entries)
            QVERIFY2(entry.size() > 3 && words::cleaned(entry) == entry && !entry.contains(u' '),
                     qPrintable(entry));
    }

    void rightOccupationIsListedForLifelikeItems()
    {
        Occupations occupations;
        QVERIFY(occupations.loadOccupations(delivered));
        QVERIFY(occupations.count() >= 64);
        const QString items =
            latin1::readLines(QStringLiteral(JOBWRIGHT_SOURCE_DIR "/tests/data/assessment/items.txt"))
                .lines.join(u'\n');
        int found = 0;
        const QStringList all = items.split(u"\n\n"_s);
        QCOMPARE(all.size(), 32);
        for (const QString& item : all) {
            const QStringList lines = item.split(u'\n');
            const QStringList base = words::split(lines.mid(1).join(u' '));
            QStringList listed;
            WordStat stat;
            for (int number = 1; number <= occupations.count(); ++number) {
                stat.evaluate(occupations.at(number).terms, base);
                if (stat.wordMatchIndex() > occupations.at(number).indexThreshold)
                    listed.append(occupations.at(number).Title);
            }
            found += listed.contains(lines[0]) && listed.size() <= 4 ? 1 : 0;
        }
        QVERIFY2(found >= 28, qPrintable(QString::number(found)));
    }

    void deliveredTemplatesAskTenQuestions()
    {
        for (const QString& name : {u"CompanyTemplate.jwt"_s, u"PositionTemplate.jwt"_s}) {
            QString problem;
            const Template read = Template::read(delivered + u'/' + name, problem);
            QCOMPARE(problem, QString());
            QCOMPARE(read.questions.size(), 10U);
            for (const TemplateQuestion& question : read.questions)
                QVERIFY(question.answers.size() >= 4 && question.answers.size() <= 6 &&
                        question.type == u"M");
            QCOMPARE(read.lines(), latin1::readLines(delivered + u'/' + name).lines);
        }
    }

    void templateIsReadOrItsLineNamed_data()
    {
        table(
            {"lines", "found"},
            {{"none", "0|END-", "0 "},
             {"no marker, other type, no answers", "1|Why?|X|0", "1 "},
             {"empty", "", "0 Line 1 is missing"},
             {"count in words", "two|a", "0 Line 1 should be the number of questions, from 0 to 20: “two”."},
             {"21", "21|a", "0 Line 1 should be"},
             {"below 0", "1|a|M|-1", "0 Line 4 should be the number of answers, from 0 to 21"},
             {"fewer answers", "2|a|M|1|x|b|M|2|y", "1 Line 10 is missing: an answer"}});
    }
    void templateIsReadOrItsLineNamed()
    {
        FETCH(QString, lines, found);
        QString problem;
        const Template read = Template::parse(lines.isEmpty() ? QStringList() : lines.split(u'|'), problem);
        const QString all = QString::number(read.questions.size()) + u' ' + problem;
        QVERIFY2(all.startsWith(found) && problem.isEmpty() == found.endsWith(u' '), qPrintable(all));
    }

    void occupationListIsReadOrItsLineNamed_data()
    {
        table({"lines", "found"},
              {{"one", "Cook|0.1|cook.jwd", "1 "},
               {"threshold", "Cook|0.1|c|Baker|much|b", "1 Line 5 of list should be a number"},
               {"cut short", "Cook|0.1|c|Baker", "1 Line 4 of list begins an occupation that ends"}});
    }
    void occupationListIsReadOrItsLineNamed()
    {
        FETCH(QString, lines, found);
        Occupations occupations;
        QString problem;
        try {
            occupations.takeLines(lines.split(u'|'), u"list"_s);
        } catch (const EvaluationStopped& stopped) {
            problem = stopped.reason;
        }
        const QString all = QString::number(occupations.count()) + u' ' + problem;
        QVERIFY2(all.startsWith(found), qPrintable(all));
        QStringList many;
        for (int i = 0; i < 101; ++i)
            many << u"x"_s << u"1"_s << QString();
        QVERIFY_EXCEPTION_THROWN(occupations.takeLines(many, u"list"_s), EvaluationStopped);
        QCOMPARE(occupations.count(), 100);
    }

    void filesThatAreNoTextAreRefused()
    {
        QVERIFY(latin1::parseLines(QByteArray("a\0b", 3), u"f"_s).problem.contains(u"no text file"_s));
        QVERIFY(latin1::parseLines("\xEF\xBB\xBFone", u"f"_s).problem.contains(u"Unicode"_s));
        QCOMPARE(latin1::parseLines("a\r\nb\rc\n\nd", u"f"_s).lines.join(u'|'), u"a|b|c||d"_s);
        QCOMPARE(latin1::parseLines(QByteArray(1 << 20, 'x'), u"f"_s).lines.size(), 1);
        QVERIFY_EXCEPTION_THROWN(std::ignore = loadDictionary(delivered, u"none.jwd"_s), EvaluationStopped);
        const QTemporaryDir folder;
        const QString path = folder.filePath(u"t.jwt"_s);
        QVERIFY(latin1::writeLines(path, {u"price: 5 €"_s}).contains(u"no sign for €"_s));
        QVERIFY(!QFile::exists(path));
        QCOMPARE(latin1::writeLines(path, {u"né"_s, {}}), QString());
        QCOMPARE(latin1::readLines(path).lines, QStringList({u"né"_s, {}}));
    }
};

JOBWRIGHT_TEST(TestDataFiles)
#include "tst_datafiles.moc"
