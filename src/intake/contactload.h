// The people of a contact folder: checked against the database and each other, offered, and stored.
#pragma once

#include "base/outlook.h"
#include "intake/importreport.h"
#include "intake/outcandidates.h"
#include "store/session.h"

#include <QSet>

#include <functional>
#include <vector>

/// Everything about one person of the folder.
struct Candidate
{
    OutAddress companyAddress; ///< of the business
    OutCompany company;
    OutAddress contactAddress; ///< of the home, what it lacks taken from the business
    OutContact contact;
    bool addressExists = false;
    bool companyExists = false;
    bool contactExists = false;
    QString uncut; ///< the full name when a part of it was cut off
};

/// The checked load. Only people and companies that are new are offered; addresses that are known never
/// hinder, they mean that the one on file is used.
class ContactLoad
{
public:
    /// The most candidates of one load.
    static constexpr int mostCandidates = 2000;

    explicit ContactLoad(Session& session)
        : m_session(session)
    {
    }

    /// Begins with fresh candidates and checks one person after the other. False when there were more than
    /// mostCandidates; the first ones are then listed. @p tick answers false to stop; what has been checked
    /// is listed then, too.
    bool load(const std::vector<OutlookContact>& people,
              const std::function<bool(int done, int total)>& tick);
    /// The candidates, in step with the folder; number n of the lists is the n-th, from 1.
    [[nodiscard]] const Candidate& candidate(int n) const { return m_candidates[static_cast<size_t>(n - 1)]; }
    [[nodiscard]] int count() const { return static_cast<int>(m_candidates.size()); }

    /// Stores the candidates of these numbers in one action. False when nothing was stored; the user has
    /// been told why.
    bool store(const std::vector<int>& numbers, ImportReport& report);
    /// Why the new records would not fit the keys that are left; "" when they do.
    [[nodiscard]] QString lackOfKeys(int candidates) const;

    /// Stores one person with a company and two addresses without any check, in one action.
    bool storeDirectly(const OutlookContact& person, ImportReport& report);

private:
    void check(const OutlookContact& person);
    void checkNames(const OutlookContact& person, Candidate& candidate);
    void storeCandidate(Candidate& candidate, ImportReport& report);
    Key storeAddress(const QString& columns, const QStringList& values, ImportReport& report);
    Key storeCompany(Candidate& candidate, ImportReport& report);
    Key insert(const QString& statement, const QString& table);

    Session& m_session;
    std::vector<Candidate> m_candidates;
    // What the candidates so far have, compared with case.
    QSet<QString> m_streets;
    QSet<QString> m_companies;
    QSet<QString> m_people;
};
