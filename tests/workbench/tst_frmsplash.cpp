// The splash screen: how long it stays by itself.
#include "support/runtest.h"
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
        QVERIFY(splash.timerEnabled() && closed.isEmpty());
        QCOMPARE(splash.form().text(u"lblTimer"_s), u"100"_s);
        splash.tick();
        splash.tick(); // that came late
        QCOMPARE(closed.count(), 1);
        QCOMPARE(splash.counter(), 101);
        QVERIFY(world.session->splashClosed);
    }
};

JOBWRIGHT_TEST(TestFrmSplash)
#include "tst_frmsplash.moc"
