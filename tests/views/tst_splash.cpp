// The first seconds of the program under the user's hands.
#include "support/table.h"
#include "views/windowbench.h"

#include "views/workbench/splashview.h"
#include "workbench/frmsplash.h"

#include <QTimer>

class TestSplash : public QObject
{
    Q_OBJECT

private slots:
    void keyOrClickEndsItAndPictureOnlySwitchesTheTrace_data()
    {
        // clicked: empty: a key
        columns<QString, bool>("clicked", "closes");
        QTest::newRow("key") << QString() << true;
        QTest::newRow("screen") << u"frmSplash"_s << true;
        QTest::newRow("label") << u"Label3"_s << true;
        QTest::newRow("picture") << u"Image1"_s << false;
    }

    void keyOrClickEndsItAndPictureOnlySwitchesTheTrace()
    {
        QFETCH(QString, clicked);
        QFETCH(bool, closes);
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
        QCOMPARE(open, !closes);
        QCOMPARE(bench.world.session->debugMode, !closes);
        QVERIFY(bench.world.session->splashClosed);
    }
};

QTEST_MAIN(TestSplash)
#include "tst_splash.moc"
