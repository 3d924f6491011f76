// A workbench of its own for each test, on a real store.
#pragma once

#include "app/presenters.h"
#include "base/dates.h"
#include "support/world.h"
#include "workbench/companyscreen.h"

#include <functional>

using namespace Qt::StringLiterals;

/// Notes which screens were asked for; has those that a test gives it.
class NotedNavigator : public Navigator
{
public:
    bool hasAll = true;
    QStringList has; ///< beside hasAll
    QStringList opened;
    QList<int> helped;
    std::function<void()> whileOpen;

    [[nodiscard]] bool hasScreen(const QString& screen) const override
    {
        return hasAll || has.contains(screen);
    }
    void openScreen(const QString& screen) override
    {
        opened.append(screen);
        if (whileOpen)
            whileOpen();
    }
    void openHelp(int contextId) override { helped.append(contextId); }
};

/// The values of these controls, set apart by blanks in the names and by "|" in the answer.
inline QString shownIn(const Form& form, const QString& controls)
{
    QStringList values;
    for (const QString& control : controls.split(u' '))
        values.append(form.text(control));
    return values.join(u'|');
}

/// Changes a control as a view reports it.
template<class Screen> void editIn(Screen& screen, const QString& control, const QString& text)
{
    screen.fieldKeyDown(control);
    screen.form().edit(control, text);
    screen.fieldChanged(control);
}

/// World, navigator and main screen, with short ways to put records in and to look at them.
class Bench
{
public:
    explicit Bench(const QDateTime& now = QDateTime(QDate(2026, 11, 22), QTime(9, 30)))
        : world(now)
    {
        restart();
    }

    World world;
    NotedNavigator navigator;
    std::unique_ptr<Presenters> presenters;
    FrmData* frm = nullptr; ///< the main screen among them

    /// Makes all presenters anew, as the program's next start does.
    void restart()
    {
        presenters.reset();
        presenters = std::make_unique<Presenters>(*world.session, navigator);
        frm = &presenters->workbench;
    }

    CompanyScreen& company() { return frm->companyScreen(); }
    DataJW& data() { return world.data(); }
    void run(const QString& statement) { QVERIFY2(data().execQuery(statement), qPrintable(statement)); }
    /// Puts in an address (found again by its city) and a company on it; answers the company's key.
    Key addCompany(const QString& name, const QString& entryDate = u"11/1/2026"_s)
    {
        run(u"Insert into Address(Address1,City,State,Zip) Values('1 Main','"_s + name +
            u" City','NJ','08540')");
        const Key address = data().getCount(u"Address"_s, false, u"AddressKey"_s);
        run(u"Insert into Company(Name,ShortName,AddressKey,Industry,Notes,EntryDate) Values('"_s + name +
            u"','" + name.left(2) + u"','" + QString::number(address) + u"','Tools','old notes','" +
            entryDate + u"')");
        return data().getCompanyKey(name);
    }
    void addContact(const QString& first, const QString& last, Key company,
                    const QString& reached = u"12/31/1999"_s)
    {
        run(u"Insert into Contact(FirstName,LastName,LastContact,CompanyKey) Values('"_s + first + u"','" +
            last + u"','" + reached + u"'," + QString::number(company) + u')');
    }
    QString cells(const QString& statement) { return world.cells(statement); } ///< As World::cells.
    int rows(const QString& table) { return data().getCount(table, true); }
    /// Chooses a company as the user does.
    void choose(const QString& name) { frm->cmbSelectionClick(name); }
    /// Types into a field of the Company screen as a view reports it.
    void type(const QString& control, const QString& text) { editIn(company(), control, text); }
    QString shown(const QString& controls) { return shownIn(company().form(), controls); }
    /// The frames that can be seen, joined with ",".
    QString visibleFrames()
    {
        QStringList visible;
        for (const QString& frame :
             {u"frmeCompany"_s, u"frmePosition"_s, u"frmeContact"_s, u"frmeDocument"_s, u"frmePipeline"_s}) {
            if (frm->form().isVisible(frame))
                visible.append(frame);
        }
        return visible.join(u',');
    }
    /// The statements that @p act sends.
    QStringList statements(const std::function<void()>& act)
    {
        QStringList sent;
        data().database().setInterceptor([&](QStringView statement) { sent.append(statement.toString()); });
        act();
        data().database().setInterceptor({});
        return sent;
    }
};
