// The first seconds of the program under the user's hands.
#include "support/runtest.h"
#include "views/windowbench.h"

#include "views/workbench/splashview.h"
#include "workbench/frmsplash.h"

#include <QSignalSpy>

class TestSplash : public QObject
{
    Q_OBJECT

private slots:
    void keyOrClickEndsItOnceAndPictureOnlySwitchesTheTrace()
    {
        for (const QString& ends : {u"key"_s, u"frmSplash"_s, u"Label3"_s}) {
            Bench bench;
            FrmSplash splash(*bench.world.session);
            SplashView view(splash);
            QSignalSpy closed(&splash, &FrmSplash::closed);
            bool open = false;
            QTimer::singleShot(0, &view, [&] {
                QTest::mouseClick(view.findChild<QWidget*>(u"Image1"_s), Qt::LeftButton);
                open = view.isVisible() && bench.world.session->debugMode;
                if (ends == u"key")
                    QTest::keyClick(&view, Qt::Key_Space);
                else if (ends == view.objectName())
                    QTest::mouseClick(&view, Qt::LeftButton, {}, QPoint(2, 2));
                else
                    QTest::mouseClick(view.findChild<QWidget*>(ends), Qt::LeftButton);
                splash.formClick(); // a key and the click that goes with it may both come in
                splash.tick();
            });
            view.run();
            QVERIFY(open && !view.isVisible() && bench.world.session->splashClosed);
            QCOMPARE(closed.count(), 1);
            QCOMPARE(splash.counter(), 101);
            const QString log = bench.world.opLog();
            QCOMPARE(log.contains(u"frmSplash - Form_Load"), ends == u"Label3");
            QCOMPARE(log.count(u"frmSplash - Form_Unload"_s), 1);
            QCOMPARE(log.count(u"frmSplash - Timer_Unload"_s), 1);
        }
    }
};

JOBWRIGHT_TEST(TestSplash)
#include "tst_splash.moc"
