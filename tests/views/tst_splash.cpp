// The first seconds of the program under the user's hands.
#include "views/windowbench.h"

#include "views/workbench/splashview.h"
#include "workbench/frmsplash.h"

class TestSplash : public QObject
{
    Q_OBJECT

private slots:
    void keyOrClickEndsItAndPictureOnlySwitchesTheTrace()
    {
        for (const QString& clicked : {QString(), u"frmSplash"_s, u"Label3"_s, u"Image1"_s}) {
            Bench bench;
            FrmSplash splash(*bench.world.session);
            SplashView view(splash);
            bool open = false;
            QTimer::singleShot(0, &view, [&] {
                if (clicked.isEmpty())
                    QTest::keyClick(&view, Qt::Key_Space);
                else if (clicked == view.objectName())
                    QTest::mouseClick(&view, Qt::LeftButton, {}, QPoint(2, 2));
                else
                    QTest::mouseClick(view.findChild<QWidget*>(clicked), Qt::LeftButton);
                open = view.isVisible();
                splash.unload();
            });
            view.run();
            QCOMPARE(open, clicked == u"Image1");
            QCOMPARE(bench.world.session->debugMode, clicked == u"Image1");
            QVERIFY(bench.world.session->splashClosed);
        }
    }
};

QTEST_MAIN(TestSplash)
#include "tst_splash.moc"
