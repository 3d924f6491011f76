// Goals, plan and chart under the user's hands: held boxes, drag and drop, keys, bars.
#include "planning/frmactionplan.h"
#include "planning/frmgoals.h"
#include "planning/frmstats.h"
#include "support/runtest.h"
#include "support/screenbench.h"
#include "views/common/barchart.h"
#include "views/planning/actionplanview.h"
#include "views/planning/goalsview.h"
#include "views/planning/measurelist.h"
#include "views/planning/statsview.h"

#include <QApplication>
#include <QComboBox>
#include <QDropEvent>
#include <QImage>
#include <QLineEdit>
#include <QPainter>
#include <QSettings>
#include <QTest>

namespace {

/// A dialog as the user has it before them.
template<typename View, typename Screen> std::unique_ptr<View> opened(ScreenBench& bench, Screen& screen)
{
    static QSettings layout(bench.world.folder.filePath(u"layout.ini"_s), QSettings::IniFormat);
    auto view = std::make_unique<View>(screen, layout);
    view->show();
    if (!QTest::qWaitForWindowActive(view.get()))
        QTest::qFail("the dialog did not come up", __FILE__, __LINE__);
    return view;
}

QString text(const QWidget& view, const QString& line)
{
    return view.findChild<QLineEdit*>(line)->text();
}

void drop(QWidget& target, const measuredrag::Measure& measure)
{
    const std::unique_ptr<QMimeData> data = measuredrag::write(measure);
    QDragEnterEvent enter(target.rect().center(), Qt::CopyAction, data.get(), Qt::LeftButton, {});
    QApplication::sendEvent(&target, &enter);
    QVERIFY(enter.isAccepted());
    QDropEvent event(target.rect().center(), Qt::CopyAction, data.get(), Qt::LeftButton, {});
    QApplication::sendEvent(&target, &event);
}

} // namespace

class TestPlanningViews : public QObject
{
    Q_OBJECT

private slots:
    void percentShowsWhileTheBoxIsHeld()
    {
        ScreenBench bench;
        bench.run(u"INSERT INTO Position(Title,Interview) VALUES('p','11/22/2026')"_s);
        FrmGoals goals(*bench.world.session, bench.navigator);
        goals.load();
        const auto view = opened<GoalsView>(bench, goals);
        view->findChild<QComboBox*>(u"cmbGoal1"_s)->setFocus();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_I); // InfoContact
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_N);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_T); // "INT": Interview
        QCOMPARE(view->findChild<QComboBox*>(u"cmbGoal1"_s)->currentText(), u"Interview"_s);
        auto* target = view->findChild<QLineEdit*>(u"txtNewGoal1"_s);
        target->setFocus();
        QTest::keyClick(target, Qt::Key_2);
        QTest::keyClick(target, Qt::Key_Return); // the default button counts
        auto* count = view->findChild<QLineEdit*>(u"txtPercent1"_s);
        QCOMPARE(count->text(), u"1"_s);
        QTest::mousePress(count, Qt::LeftButton);
        QCOMPARE(count->text(), u"50 %"_s);
        QTest::mouseRelease(count, Qt::LeftButton);
        QCOMPARE(count->text(), u"1"_s);
        count->setFocus();
        QTest::keyPress(count, Qt::Key_Space);
        QCOMPARE(count->text(), u"50 %"_s);
        QTest::keyRelease(count, Qt::Key_Space);
        QCOMPARE(count->text(), u"1"_s);
        QCOMPARE(count->toolTip(), u"1 of 2 wanted by now"_s);
        bench.expect(u"have not been saved"_s, Answer::Cancel); // Esc would lose the goal
        QTest::keyClick(view.get(), Qt::Key_Escape);
        QVERIFY(view->isVisible());
    }
    void measuresAreDroppedAndTypedIntoPhases()
    {
        ScreenBench bench;
        QFile::copy(QStringLiteral(JOBWRIGHT_SOURCE_DIR "/data/objectives.jwd"),
                    bench.world.folder.filePath(u"objectives.jwd"_s));
        FrmActionPlan plan(*bench.world.session);
        plan.load();
        const auto view = opened<ActionPlanView>(bench, plan);
        drop(*view->findChild<QWidget*>(u"imgTM3"_s), {2, 1});
        QCOMPARE(plan.imgTM(0).name, u"Phone calls"_s); // the phase's first free slot
        auto* research = view->findChild<MeasureList*>(u"lvwResearch"_s);
        research->setFocus();
        QTest::keyClick(research, Qt::Key_Down);
        QTest::keyClick(research, Qt::Key_Return);
        QCOMPARE(plan.imgTM(1).category, 0);
        auto* slot = view->findChild<QWidget*>(u"imgTM1"_s);
        slot->setFocus();
        QTest::keyClick(slot, Qt::Key_Space);
        QCOMPARE(text(*view, u"txtSD1"_s), plan.imgTM(1).name);
        QCOMPARE(text(*view, u"txtResult1"_s), u"0"_s);
        bench.expect(u"Delete objective?"_s, Answer::Yes);
        QTest::keyClick(slot, Qt::Key_Delete);
        QCOMPARE(plan.imgTM(1).name, QString());
        bench.expect(u"Delete objective?"_s, Answer::No);
        QTest::mouseDClick(view->findChild<QWidget*>(u"imgTM0"_s), Qt::LeftButton);
        QCOMPARE(plan.imgTM(0).name, u"Phone calls"_s);
    }
    void barsAreTurnedAndChosen()
    {
        ScreenBench bench;
        FrmStats stats(*bench.world.session);
        GoalChart goals;
        goals[0] = {u"Interview"_s, 80, u"Weekly"_s};
        goals[1] = {u"Offers"_s, 40, u"Monthly"_s};
        stats.setGoals(goals);
        stats.load();
        const auto view = opened<StatsView>(bench, stats);
        auto* chart = view->findChild<BarChart*>(u"mscGoals"_s);
        view->findChild<QWidget*>(u"txtStats"_s)->setFocus();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QCOMPARE(text(*view, u"txtValue"_s), u"Weekly Interview 80 %  "_s);
        QTest::keyClick(chart, Qt::Key_Tab);
        QCOMPARE(text(*view, u"txtValue"_s), u"Monthly Offers 40 %  "_s);
        const QPointF before = chart->topOf(1);
        QTest::keyClick(chart, Qt::Key_Right);
        QTest::mousePress(chart, Qt::LeftButton, Qt::ControlModifier, {50, 50});
        QMouseEvent move(QEvent::MouseMove, QPointF(90, 70), QPointF(90, 70), Qt::LeftButton, Qt::LeftButton,
                         Qt::ControlModifier);
        QApplication::sendEvent(chart, &move);
        QVERIFY(chart->topOf(1) != before);
        QTest::mouseClick(chart, Qt::LeftButton, {}, (chart->topOf(0) + QPointF(0, 4)).toPoint());
        QCOMPARE(text(*view, u"txtValue"_s), u"Weekly Interview 80 %  "_s);
        ReportDocument printed;
        connect(view.get(), &StatsView::printRequested, view.get(),
                [&](const ReportDocument& pages) { printed = pages; });
        QTest::mouseClick(view->findChild<QWidget*>(u"cmdPrint"_s), Qt::LeftButton);
        QCOMPARE(printed.pages.front().blocks.back().texts,
                 QStringList({u"Offers"_s, u"Monthly"_s, u"40 %"_s}));
        QImage sheet(794, 1123, QImage::Format_RGB32);
        sheet.fill(Qt::white);
        QPainter painter(&sheet);
        for (const ReportPage::Block& block : printed.pages.front().blocks) {
            if (block.drawing)
                block.drawing(painter, QRectF(50, 50, 600, 300));
        }
        QSet<QRgb> colours;
        for (int x = 50; x < 650; ++x)
            colours << sheet.pixel(x, 250);
        QVERIFY(colours.contains(QColor(70, 120, 180).rgb())); // the front of a bar
    }
};

JOBWRIGHT_TEST(TestPlanningViews)
#include "tst_planningviews.moc"
