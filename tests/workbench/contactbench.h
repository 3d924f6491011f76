// A bench with the Contact screen open.
#pragma once

#include "workbench/addressentry.h"
#include "workbench/bench.h"
#include "workbench/contactscreen.h"

/// Short ways to put people in and to use the Contact screen.
class ContactBench : public Bench
{
public:
    ContactScreen& contact() { return frm->contactScreen(); }
    /// Puts in a contact with an address of its own (found again by its city); answers its key.
    Key addPerson(const QString& first, const QString& last, Key companyKey,
                  const QString& lists = u"'',''"_s)
    {
        run(u"Insert into Address(Address1,City,Country) Values('9 Elm','"_s + first + u"ville','USA')");
        const QString address = QString::number(data().getCount(u"Address"_s, false, u"AddressKey"_s));
        run(u"Insert into "
            u"Contact(FirstName,Middle,LastName,Title,AddressKey,HiringMgr,BestMedium,ContactTime,Notes,"
            u"LastContact,EventKey,ContactList,DocumentList,CompanyKey,ContactLevel,EntryDate) Values('"_s +
            first + u"','M','" + last + u"','Buyer','" + address +
            u"','100000001','01000000','am','old notes','6/1/2026',0," + lists + u',' +
            QString::number(companyKey) + u",45,'1/2/2025')");
        return data().getLastKeyInTable(u"Contact"_s, u"ContactKey"_s);
    }
    /// Opens the Contact screen on a company and, with a name, on one of its contacts.
    void open(const QString& companyName, const QString& name = {})
    {
        frm->load();
        choose(companyName);
        frm->tabStrip1Click(u"Contact"_s);
        if (!name.isEmpty())
            contact().cmbContactsClick(name);
    }
    void typeContact(const QString& control, const QString& text) { editIn(contact(), control, text); }
    QString shownContact(const QString& controls) { return shownIn(contact().form(), controls); }
    QString people() { return contact().form().items(u"cmbContacts"_s).join(u','); }
    QString others()
    {
        return contact().tvwOtherContact().texts(contact().tvwOtherContact().index(0, 0)).join(u',');
    }
    QString documents()
    {
        return contact().tvwDocument().texts(contact().tvwDocument().index(0, 0)).join(u',');
    }
    /// Who points to whom: position, colleague Bob, events, histories.
    QString references()
    {
        return cells(u"Select ContactList from Position"_s) + u' ' +
               cells(u"Select ContactList from Contact where FirstName='Bob'"_s) + u' ' +
               cells(u"Select ContactKey from Event"_s) + u' ' + cells(u"Select HistoryKey from History"_s);
    }
    Key current() { return selection().currentContactKey; }
    /// Saves and expects the message about the end.
    void save(const QString& name)
    {
        expect(u"Update of "_s + name + u" is complete.");
        contact().cmdUpdateContact1();
    }
};
