// The splash screen: how long it stays and what ends it.
#include "support/table.h"
#include "support/world.h"
#include "workbench/frmsplash.h"

#include <QSignalSpy>

using namespace Qt::StringLiterals;

class TestFrmSplash : public QObject
{
    Q_OBJECT

private slots:
    void staysForAHundredTicks()
    {
        World world;
        FrmSplash splash(*world.session);
        QSignalSpy closed(&splash, &FrmSplash::closed);
        splash.load();
        for (int i = 0; i < 100; ++i)
            splash.tick();
        QVERIFY(splash.timerEnabled());
        QCOMPARE(splash.form().text(u"lblTimer"_s), u"100"_s);
        QCOMPARE(closed.count(), 0);
        splash.tick();
        QCOMPARE(closed.count(), 1);
        QVERIFY(world.session->splashClosed);
        splash.tick();
        QCOMPARE(splash.counter(), 101);
    }

    void keyAndClickEndItOnce()
    {
        for (const bool byLabel : {false, true}) {
            World world;
            FrmSplash splash(*world.session);
            QSignalSpy closed(&splash, &FrmSplash::closed);
            splash.load();
            splash.image1Click();
            byLabel ? splash.labelClick() : splash.keyDown();
            splash.formClick();
            splash.tick();
            QCOMPARE(closed.count(), 1);
            QCOMPARE(splash.counter(), 101);
            QVERIFY(world.opLog().contains(byLabel ? u"frmSplash - Form_Load" : u"frmSplash - Form_Unload"));
            QCOMPARE(world.opLog().count(u"frmSplash - Timer_Unload"_s), 1);
            QCOMPARE(world.opLog().count(u"frmSplash - Form_Unload"_s), 1);
        }
    }
};

QTEST_GUILESS_MAIN(TestFrmSplash)
#include "tst_frmsplash.moc"
