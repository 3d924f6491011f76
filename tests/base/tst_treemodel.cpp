#include "base/treemodel.h"
#include "support/runtest.h"

#include <QAbstractItemModelTester>
#include <QTest>

using namespace Qt::StringLiterals;

class TestTreeModel : public QObject
{
    Q_OBJECT

private slots:
    void changesKeepTheModelWhole()
    {
        TreeModel model;
        // Fails the test by itself when a signal or an index breaks the rules of a model.
        const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        const QModelIndex root = model.add({}, u"Contacts"_s, u"A0"_s);
        model.setChildren(root, {u"Ann Lee"_s, u"Bo Ek"_s, u"Cy Orr"_s}, u"contact"_s);
        QCOMPARE(model.texts(root), QStringList({u"Ann Lee"_s, u"Bo Ek"_s, u"Cy Orr"_s}));
        QCOMPARE(model.text(model.find(u"A2"_s)), u"Bo Ek"_s);
        model.remove(model.find(u"A1"_s));
        QCOMPARE(model.find(u"A3"_s).row(), 1);
        QCOMPARE(model.parent(model.find(u"A3"_s)), root);
        model.add(model.find(u"A3"_s), u"below"_s, u"B1"_s);
        QCOMPARE(model.find(u"B1"_s).parent().row(), 1);
        model.setChildren(root, {}, {});
        QCOMPARE(model.rowCount(root), 0);
        model.clear();
        QVERIFY(!model.find(u"A0"_s).isValid());
    }
};

JOBWRIGHT_TEST(TestTreeModel)
#include "tst_treemodel.moc"
