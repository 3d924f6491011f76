// A workbench of its own for each test, on a real store.
#pragma once

#include "base/dates.h"
#include "program/presenters.h"
#include "support/screenbench.h"
#include "workbench/companyscreen.h"

/// Changes a control as a view reports it.
template<class Screen> void editIn(Screen& screen, const QString& control, const QString& text)
{
    screen.fieldKeyDown(control);
    screen.form().edit(control, text);
    screen.fieldChanged(control);
}

/// Changes several: "control=text" each.
template<class Screen> void editAll(Screen& screen, const QStringList& edits)
{
    for (const QString& each : edits)
        editIn(screen, each.section(u'=', 0, 0), each.section(u'=', 1));
}

/// The main screen, with short ways to put its records in and to use it.
class Bench : public ScreenBench
{
public:
    explicit Bench(const QDateTime& now = QDateTime(QDate(2026, 11, 22), QTime(9, 30)))
        : ScreenBench(now)
    {
        restart();
    }

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
    Selection& selection() { return frm->selection(); }
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
    /// Chooses a company as the user does.
    void choose(const QString& name) { frm->cmbSelectionClick(name); }
    /// Types into a field of the Company screen as a view reports it.
    void type(const QString& control, const QString& text) { editIn(company(), control, text); }
    QString shown(const QString& controls) { return shownIn(company().form(), controls); }
    /// Key and name of the company, the selector's list, the counts, and whether something is unsaved.
    QString shell()
    {
        const QString key = QString::number(selection().currentCompanyKey);
        return QStringList{key, selection().selectedCompanyName(), frm->companyList().join(u','),
                           frm->countsPanel(), frm->procVisible() ? frm->procText() : QString()}
            .join(u'|');
    }
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
};

/// Types into every field of an open screen that saves itself, and leaves it twice. The first leaving must
/// write the field's column "where" so, the second nothing. Answers the columns.
template<class Screen>
QString columnsLeft(Bench& bench, Screen& screen, const QString& table, const QString& where)
{
    QStringList columns;
    for (const FieldRow& row : screen.form().rows()) {
        if (row.save != SaveOn::Leave || row.control.startsWith(u"chk"))
            continue;
        editIn(screen, row.control, u"it's\nhard\r'); Delete"_s);
        const QString proc = bench.frm->procVisible() ? bench.frm->procText() : QString();
        const auto leave = [&] { return bench.statements([&] { screen.fieldLeft(row.control); }); };
        const QString wanted =
            u"Update " + table + u" set " + row.column + u"='it`s\r\nhard\r\n`); Delete' where " + where;
        if (proc != u"Update " + table || leave().filter(u"Update "_s) != QStringList{wanted} ||
            bench.frm->procVisible() || !leave().isEmpty())
            QTest::qFail(qPrintable(row.control), __FILE__, __LINE__);
        columns.append(row.column);
    }
    return columns.join(u' ');
}
