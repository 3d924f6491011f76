// Questions answered by number, and the ways out of a questionnaire, with real keys.
#include "assessment/frmprofile.h"
#include "assessment/frmquestionnaire.h"
#include "support/runtest.h"
#include "support/screenbench.h"
#include "support/table.h"
#include "views/assessment/profileview.h"
#include "views/assessment/questionnaireview.h"

#include <QApplication>
#include <QPushButton>
#include <QRadioButton>
#include <QSettings>
#include <QTest>

class TestAssessmentViews : public QObject
{
    Q_OBJECT

private slots:
    void questionIsAnsweredWithKeys_data()
    {
        columns<QList<int>, int>("keys", "answer");
        QTest::newRow("number") << QList<int>{Qt::Key_3, Qt::Key_Return} << 3;
        QTest::newRow("number without an answer") << QList<int>{Qt::Key_7, Qt::Key_Return} << 2;
        QTest::newRow("arrow") << QList<int>{Qt::Key_Down, Qt::Key_Return} << 3;
        QTest::newRow("Esc") << QList<int>{Qt::Key_1, Qt::Key_Escape} << 2;
        QTest::newRow("close button") << QList<int>{Qt::Key_1} << -1;
    }
    void questionIsAnsweredWithKeys()
    {
        QFETCH(QList<int>, keys);
        QFETCH(int, answer);
        FrmQuestionnaire question;
        question.load({u"Which?"_s, {u"One"_s, u"Two"_s, u"Three"_s}, 2, {}});
        QuestionnaireView view(question);
        view.show();
        QVERIFY(QTest::qWaitForWindowActive(&view));
        QVERIFY(view.findChild<QRadioButton*>(u"optAnswer1"_s)->hasFocus());
        for (const int key : keys)
            QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key));
        if (view.isVisible())
            view.close();
        QCOMPARE(question.answer(), answer < 0 ? QVariant() : QVariant(answer));
    }

    void onlyItsOwnButtonStores()
    {
        ScreenBench bench;
        bench.run(u"Insert into Company(Name) Values('Acme')"_s);
        bench.run(
            u"Insert into Question(QKey,Question,AnswerCount,AnswerPref,Answers,AnswerType,ProfileType) "
            "Values(1,'Size?',2,2,'#Big#Small#','M',0)"_s);
        QFile::copy(QStringLiteral(JOBWRIGHT_SOURCE_DIR "/data/CompanyTemplate.jwt"),
                    bench.world.session->file(u"CompanyTemplate.jwt"_s));
        FrmProfile profile(*bench.world.session, FrmProfile::Company,
                           {[](const FrmQuestionnaire::Request&) { return QVariant(2); }, [] {}});
        QVERIFY(profile.load(1));
        QSettings layout(bench.world.folder.filePath(u"layout.ini"_s), QSettings::IniFormat);
        ProfileView view(profile, layout);
        view.show();
        QVERIFY(QTest::qWaitForWindowActive(&view));
        QTest::keyClick(view.findChild<QPushButton*>(u"lblCQS0"_s), Qt::Key_Space);
        bench.expect(u"have not been stored"_s, Answer::No);
        QTest::keyClick(&view, Qt::Key_Escape);
        QVERIFY(view.isVisible());
        bench.expect(u"have not been stored"_s, Answer::No);
        view.close();
        QVERIFY(view.isVisible());
        QCOMPARE(bench.rows(u"CProfile"_s), 0);
        QTest::keyClick(view.findChild<QPushButton*>(u"cmdClose"_s), Qt::Key_Space);
        QVERIFY(!view.isVisible());
        QCOMPARE(bench.cells(u"Select Qans,PR from CProfile"_s), u"#2#|1"_s);
    }
};

JOBWRIGHT_TEST(TestAssessmentViews)
#include "tst_assessmentviews.moc"
