// Long lists for the command line: one statement each, read row after row.
#pragma once

#include "base/key.h"
#include "store/gateway/recordset.h"

#include <QDate>
#include <QString>

#include <functional>

class DataJW;

/// Each list is one statement of the engine, so it shows one state of the store even while the workbench
/// writes beside it, and holds one row in memory at a time. The answer is false when the list could not be
/// read to its end: that has been logged and shown.
namespace listings {

struct ContactRow
{
    QString name; ///< first and last name, trimmed
    QString company;
    QString title;
    QString phone;
    QString mail;
    QString secondMail;
    QDate lastContact; ///< invalid when no contact was reached yet
    int level = 0;     ///< quality and influence, a digit each
};
/// The contacts of all companies by the company's name, or of one; those of one company in the order of their
/// keys. Contacts without a company are left out.
bool contacts(DataJW& dataJW, Key company, const std::function<void(const ContactRow&)>& show);

struct CompanyRow
{
    QString name;
    int positions = 0;
    int contacts = 0;
    int interactions = 0; ///< histories of all contacts, by their running numbers
    QDate lastContact;    ///< invalid when nobody was reached yet
};
/// All companies by name.
bool companies(DataJW& dataJW, const std::function<void(const CompanyRow&)>& show);

enum class PositionOrder { Title, Company };
/// All positions, or those of one company: the title, the days and the numbers of each as a record set of one
/// row, and its company's name, "" without one.
bool positions(DataJW& dataJW, Key company, PositionOrder order,
               const std::function<void(const RecordSet& position, const QString& company)>& show);

} // namespace listings
