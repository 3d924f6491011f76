// The names of those whom calendar entries are with.
#pragma once

#include "calendar/jwevent.h"

#include <QHash>
#include <QString>

/// Names contacts and companies by their keys. A name is read once and kept, so that telling whom a month's
/// entries are with sends nothing.
class EventPeople
{
public:
    /// Reads the names that are not known yet: one statement for contacts and one for companies, whatever
    /// their number; none when nothing is missing. What cannot be read has no name until the next call.
    void learn(DataJW& dataJW, const EventOwnersByKey& owners);
    void forget();

    [[nodiscard]] QString contact(const EventOwners& owners) const
    {
        return m_contacts.value(owners.contact);
    }
    [[nodiscard]] QString company(const EventOwners& owners) const
    {
        return m_companies.value(owners.company);
    }
    /// "Ana Ruiz, Acme"; "" for an entry with nobody.
    [[nodiscard]] QString with(const EventOwners& owners) const;

private:
    QHash<Key, QString> m_contacts; ///< by contact key; "" for one that the store does not have
    QHash<Key, QString> m_companies;
};
