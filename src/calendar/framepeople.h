// Whom the entry in the calendar's editing frame is with.
#pragma once

#include "base/form.h"
#include "calendar/jwevent.h"

#include <QCoreApplication>
#include <QStringList>

#include <optional>

class Session;

/// Company, contact and position of the entry in the frame: chosen, typed, refused, and found by their names
/// when it is saved. A networking event is with nobody.
///
/// Its controls in the form: lblCompany, lblContact and lblPosition with their choices as items, the first
/// one empty: none. The entry's name, txtEvName, says whether it is a networking event.
class FramePeople
{
    Q_DECLARE_TR_FUNCTIONS(FramePeople)

public:
    /// Both must outlive this.
    FramePeople(Session& session, Form& form);

    void readCompanies(); ///< all that can be chosen, until the next call
    void fill(const EventOwners& owners);
    void fillNames(const QString& company, const QString& contact, const QString& position);
    [[nodiscard]] bool isNetworking() const;
    /// The entry has got another name: one that makes it a networking event, or none any more, empties all.
    void nameChanged();

    /// "" for none. What may not be chosen is told, and not shown. True when the entry is another one by it.
    bool choose(const QString& control, const QString& name);
    /// The list of contacts or positions is opened with nobody in it: says what has to be chosen first; true
    /// when there simply is nobody.
    bool mayList();
    /// Says what is wrong with a text that was left in one of the controls. What may not be chosen at all is
    /// taken back.
    void tellUnknown(const QString& control);

    [[nodiscard]] const QString& company() const { return m_company; }
    /// The keys of those who are named. Nothing when somebody is not found, which the user has then been
    /// told.
    [[nodiscard]] std::optional<EventOwners> owners();
    /// There is a company and no position: the user would like one to be made up.
    bool wantsPlaceholder(const EventOwners& owners);
    void showPosition(const QString& title); ///< one that is new in the store

private:
    bool chooseCompany(const QString& name);
    bool mayAssign(const QString& chosen);
    bool hasCompany();
    void listCompanies();
    void listPeople();
    [[nodiscard]] static QString noSuchOwner(const QString& control);
    std::nullopt_t refuse(const QString& control);
    [[nodiscard]] Key keptContact();
    [[nodiscard]] bool areSeveral(const QString& contact);
    [[nodiscard]] Key contactKey(Key company);

    Session& m_session;
    Form& m_form;
    struct Person
    {
        Key key = 0;
        QString name;
    };

    Person m_filled;       ///< the contact with which the entry came
    bool m_isWhole = true; ///< its people could all be read
    QString m_company;     ///< whose people and positions are listed
    QStringList m_companies;
};
