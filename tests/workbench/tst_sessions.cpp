// Random sessions over all presenters, with a plain model of names and owners beside them. JOBWRIGHT_ACTIONS
// and JOBWRIGHT_SEED set how many actions are done and which.
#include "base/text.h"
#include "calendar/calendarbench.h"
#include "history/historybench.h"
#include "support/runtest.h"
#include "workbench/contactbench.h"
#include "workbench/documentbench.h"
#include "workbench/pipelinescreen.h"
#include "workbench/positionbench.h"

#include <QRandomGenerator>

namespace {

int setting(const char* name, int fallback)
{
    const int value = qEnvironmentVariableIntValue(name);
    return value > 0 ? value : fallback;
}

/// A user who does anything in any order, and what must be true behind each step.
class Sessions : public Bench
{
public:
    explicit Sessions(quint32 seed)
        : m_random(seed)
    {
        world.prompts.acceptAll(Answer::Yes);
        frm->load();
        for (int i = 0; i < 4; ++i)
            addOneCompany();
    }

    QString step()
    {
        world.prompts.acceptAll(pick(3) == 0 ? Answer::No : Answer::Yes);
        const QString done = act();
        return wrong().isEmpty() ? QString() : QString(done + u": " + wrong());
    }

private:
    int pick(int below) { return static_cast<int>(m_random.bounded(below)); }
    QString anyOf(const QStringList& list)
    {
        return list.isEmpty() ? QString() : list[pick(int(list.size()))];
    }
    QString fresh(const QString& kind) { return kind + QString::number(++m_number); }
    QStringList companies()
    {
        QStringList names = frm->companyList();
        names.removeAll(u"<New>"_s);
        return names;
    }

    void addOneCompany()
    {
        frm->tabStrip1Click(u"Company"_s);
        choose(u"<New>"_s);
        const QString name = fresh(u"Company"_s);
        type(u"txtTitle"_s, name);
        type(u"txtCity"_s, name + u" City");
        company().cmdUpdate1();
    }

    QString act()
    {
        ContactScreen& contact = frm->contactScreen();
        PositionScreen& position = frm->positionScreen();
        PipelineScreen& pipeline = frm->pipelineScreen();
        switch (pick(22)) {
        case 0:
            addOneCompany();
            return u"new company"_s;
        case 1:
            choose(anyOf(companies()));
            return u"choose company"_s;
        case 2:
        case 3:
        case 4: {
            const QString tab =
                anyOf({u"Company"_s, u"Position"_s, u"Contact"_s, u"Document"_s, u"Pipeline"_s});
            frm->tabStrip1Click(tab);
            return u"tab "_s + tab;
        }
        case 5:
            frm->tabStrip1Click(u"Company"_s);
            type(u"txtTitle"_s, fresh(u"Renamed"_s));
            if (pick(2))
                company().cmdUpdate1();
            return u"rename company"_s;
        case 6:
            if (companies().size() > 3)
                company().cmdRemove1();
            return u"remove company"_s;
        case 7:
        case 8: {
            frm->tabStrip1Click(u"Contact"_s);
            contact.newRecord();
            editIn(contact, u"txtFirst"_s, fresh(u"First"_s));
            editIn(contact, u"txtLast"_s, u"Last"_s);
            contact.cmdUpdateContact1();
            return u"new contact"_s;
        }
        case 9:
            contact.cmbContactsClick(anyOf(contact.form().items(u"cmbContacts"_s)));
            return u"choose contact"_s;
        case 10:
            editIn(contact, u"txtDept"_s, fresh(u"Dept"_s));
            contact.fieldLeft(u"txtDept"_s);
            if (pick(2))
                contact.cmdUpdateContact1();
            return u"edit contact"_s;
        case 11:
            contact.form().setText(u"cmbOtherContact"_s, anyOf(contact.otherContactNames()));
            contact.cmdAddOther1();
            return u"other contact"_s;
        case 12:
            if (pick(4) == 0)
                contact.cmdRemoveContact1();
            return u"remove contact"_s;
        case 13:
        case 14:
            frm->tabStrip1Click(u"Position"_s);
            position.newRecord();
            editIn(position, u"txtPosTitle"_s, fresh(u"Title"_s));
            position.cmdUpdatePos1();
            return u"new position"_s;
        case 15:
            position.cmbPosSelectionClick(anyOf(position.form().items(u"cmbPosSelection"_s)));
            return u"choose position"_s;
        case 16:
            position.form().setText(u"cmbAssignContact"_s,
                                    anyOf(position.form().items(u"cmbAssignContact"_s)));
            position.cmdAssign1();
            if (pick(2))
                position.cmdUpdatePos1();
            return u"assign"_s;
        case 17:
            if (pick(4) == 0)
                position.cmdRemovePos1();
            return u"remove position"_s;
        case 18: {
            const PipelineTree& tree = pipeline.tvwHire();
            const QModelIndex root = tree.index(0, 0);
            const QModelIndex owner = tree.index(pick(std::max(1, tree.rowCount(root))), 0, root);
            const QModelIndex node = tree.index(pick(std::max(1, tree.rowCount(owner))), 0, owner);
            if (frm->isOpen(u"Pipeline"_s))
                pipeline.tvwHireClick(node.isValid() ? node : owner);
            return u"tree"_s;
        }
        case 19: {
            const QString box = u"chkP"_s + QString::number(pick(11));
            pipeline.form().edit(box, pick(2) ? u"1"_s : u"0"_s);
            pipeline.fieldChanged(box);
            if (pick(3) == 0)
                pipeline.cmdUpdateTrack1();
            return u"step"_s;
        }
        case 20: {
            FrmEvCal& calendar = presenters->calendar;
            calendar.load();
            calendar.newEvent(QDate(2026, 11, 1).addDays(pick(28)));
            calendar.frame().chooseOwner(u"lblCompany"_s, anyOf(companies()));
            calendar.frame().chooseOwner(u"lblContact"_s, anyOf(calendar.form().items(u"lblContact"_s)));
            calendar.cmdAdd1();
            calendar.frame().setClean();
            calendar.unload();
            return u"event"_s;
        }
        default:
            frm->activated();
            return u"activate"_s;
        }
    }

    /// Keys in a column that name no row of a table, 0 left out.
    QString dangling(const QString& select, const QString& table, const QString& column)
    {
        for (const QString& key : cells(select).split(u';')) {
            if (key.toInt() != 0 && !data().keyVerification(Key(key.toShort()), column, table))
                return select + u' ' + key;
        }
        return {};
    }

    QString wrong()
    {
        const Selection& now = selection();
        if (now.currentCompanyKey != 0 &&
            data().getCompanyNameByKey(now.currentCompanyKey) != now.selectedCompanyName())
            return u"company key "_s + QString::number(now.currentCompanyKey) + u" is not " +
                   now.selectedCompanyName();
        if (now.currentCompanyKey == 0 && !text::isUnsaved(now.selectedCompanyName()))
            return u"no key for "_s + now.selectedCompanyName();
        if (now.currentPositionKey != 0 &&
            !data().keyVerification(now.currentPositionKey, u"PositionKey"_s, u"Position"_s))
            return u"position key without a row"_s;
        if (now.currentContactKey != 0 &&
            !data().keyVerification(now.currentContactKey, u"ContactKey"_s, u"Contact"_s))
            return u"contact key without a row"_s;
        for (const QString& table : {u"Position"_s, u"Contact"_s, u"Event"_s}) {
            const QString bad = dangling(u"Select CompanyKey from "_s + table, u"Company"_s, u"CompanyKey"_s);
            if (!bad.isEmpty())
                return bad;
        }
        const QString people = dangling(u"Select ContactKey from Event"_s, u"Contact"_s, u"ContactKey"_s);
        if (!people.isEmpty())
            return people;
        // A contact begins with the address of its own company, whose city has its name.
        RecordSet rows = data().getExecQueryRecords(u"Select AddressKey,CompanyKey from Contact"_s);
        for (; !rows.atEnd(); rows.next()) {
            if (data().getAddress(rows.key(u"AddressKey").value_or(0)).isEmpty())
                return u"contact without its address"_s;
        }
        const QStringList names = cells(u"Select Name from Company"_s).split(u';', Qt::SkipEmptyParts);
        if (QSet<QString>(names.cbegin(), names.cend()).size() != names.size())
            return u"two companies of one name"_s;
        return {};
    }

    QRandomGenerator m_random;
    int m_number = 0;
};

} // namespace

class TestSessions : public QObject
{
    Q_OBJECT

private slots:
    void nothingIsLostWhateverIsDone()
    {
        const int actions = setting("JOBWRIGHT_ACTIONS", 200);
        const auto seed = static_cast<quint32>(setting("JOBWRIGHT_SEED", 1));
        Sessions sessions(seed);
        for (int i = 0; i < actions; ++i) {
            const QString trouble = sessions.step();
            QVERIFY2(trouble.isEmpty(), qPrintable(QString::number(i) + u' ' + trouble));
        }
    }
};

JOBWRIGHT_TEST(TestSessions)
#include "tst_sessions.moc"
