// A workbench with two companies, their people and positions, open on the Position screen.
#pragma once

#include "workbench/bench.h"
#include "workbench/positionscreen.h"

/// Acme (people Ann Lee 1, Mary Jo Ray 2, Bob Orr 3) and Bolt (Cy Dee 4). Acme's position 1 is "Engineer":
/// two steps done, Ann and Bob assigned, entered 3/5/2024, an event and a questionnaire pointing to it.
class PositionBench : public Bench
{
public:
    PositionBench()
    {
        const Key acme = addCompany(u"Acme"_s);
        const Key bolt = addCompany(u"Bolt"_s);
        addContact(u"Ann"_s, u"Lee"_s, acme);
        addContact(u"Mary Jo"_s, u"Ray"_s, acme);
        addContact(u"Bob"_s, u"Orr"_s, acme);
        addContact(u"Cy"_s, u"Dee"_s, bolt);
        addPosition(u"Engineer"_s, acme);
        run(u"Update Position set EntryDate='3/5/2024', CompanyResearch='10/1/2026', "
            "CompanyResearchMedium=4, PrepareResume='10/9/2026', PrepareResumeMedium=7, OfferStatus='Open', "
            "ContactList='1,3', Keyword='cad', Notes='old notes', Expires='12/31/2026' where PositionKey=1"_s);
        run(u"Insert into Event(Event,PositionKey) Values('call',1)"_s);
        run(u"Insert into JProfile(PositionKey,PR,QCount,CompanyKey) Values(1,6,10,1)"_s);
        frm->load();
    }
    /// A position as the store has it after a first save: no step done, no expiry.
    void addPosition(const QString& title, Key company)
    {
        run(u"Insert into Position ( "_s + data().getFields(u"Position"_s).mid(1).join(u',') +
            u" ) VALUES ('" + title + u"','11/1/2026','','','','','',''," +
            u"'12/31/1999',0,"_s.repeated(11) + u"'','','',''," + QString::number(company) + u",'12/31/99')");
    }
    /// Chooses a company and goes to its positions.
    void open(const QString& company, const QString& title = {})
    {
        choose(company);
        frm->tabStrip1Click(u"Position"_s);
        if (!title.isEmpty())
            position().cmbPosSelectionClick(title);
    }
    PositionScreen& position() { return frm->positionScreen(); }
    QString field(const QString& controls) { return shownIn(position().form(), controls); }
    void edit(const QString& control, const QString& text) { editIn(position(), control, text); }
    void assign(const QString& name)
    {
        position().form().edit(u"cmbAssignContact"_s, name);
        position().cmdAssign1();
    }
    QString assigned()
    {
        return position().tvwContacts().texts(position().tvwContacts().index(0, 0)).join(u',');
    }
    Key currentKey() { return selection().currentPositionKey; }
    /// One line for each row of that title: key:entry date:first, sixth step and medium:status:contacts.
    QString rowsCalled(const QString& title)
    {
        return cells(u"Select PositionKey,EntryDate,CompanyResearch,CompanyResearchMedium,PrepareResume,"
                     "PrepareResumeMedium,OfferStatus,ContactList from Position where Title='"_s +
                     title + u"' order by PositionKey");
    }
};
