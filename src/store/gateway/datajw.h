// The gateway: the one object through which every screen reaches the store.
#pragma once

#include "base/key.h"
#include "store/gateway/action.h"
#include "store/gateway/readwatch.h"
#include "store/gateway/records.h"
#include "store/gateway/recordset.h"

#include <QStringList>

#include <memory>
#include <utility>
#include <vector>

class Database;
class Session;

/// All of the program's statements and what they answer. No failure leaves an operation: it is logged under
/// the operation's tag (at level 0 with a message to the user) and the operation answers its default: 0, "",
/// false, an empty list, or a record set that isUnread(). A ReadWatch tells such a default from an answer. An
/// operation of several writing statements does all of them or none. Arguments named quiet keep a "not found"
/// or a failure out of the log. Arguments named skip answer the default without asking the store. Texts go
/// into the statements as they are; callers pass a user's text through text::quoteFix first.
class DataJW
{
public:
    /// Opens the store of the session's folder and tries it with one statement. When that fails the reason is
    /// logged ("DataJW-Init") and shown, and every later operation fails by itself.
    explicit DataJW(Session& session);
    ~DataJW();
    DataJW(const DataJW&) = delete;
    DataJW& operator=(const DataJW&) = delete;

    [[nodiscard]] bool isConnected() const;
    /// The open connection, for copies and checks; throws StoreError(NotConnected) without one.
    [[nodiscard]] Database& database();

    // --- General statements -------------------------------------------------------------------------------
    bool execQuery(const QString& sql);
    RecordSet getExecQueryRecords(const QString& sql);
    /// With @p countOnly the number of rows, else the value of the first column in the last row.
    Key getCount(const QString& table, bool countOnly, const QString& keyField = {}, int keyValue = 0,
                 const QString& orderField = {});
    /// As getCount, with a free condition behind " where ".
    Key getCountSp(const QString& table, bool countOnly, const QString& condition,
                   const QString& keyField = {}, int keyValue = 0, const QString& orderField = {});
    /// The value of column "EXPR1000" of a "Select Count(" statement.
    Key getCounter(const QString& sql);
    QStringList getFields(const QString& table);
    bool keyVerification(Key key, const QString& keyField, const QString& table, bool skip = false);
    Key getLastKeyInTable(const QString& table, const QString& keyField);
    /// Keys of the rows whose @p field holds @p text in any case; the same key may come several times.
    std::vector<Key> getKSearch(const QString& table, const QString& field, const QString& text);

    // --- Companies ----------------------------------------------------------------------------------------
    RecordSet getCompany(const QString& name); ///< "*" for all
    QStringList getCompanyNames();
    Key getCompanyKey(const QString& name, bool quiet = false);
    Key getCompanyKeyByContact(const QString& first, const QString& last, bool quiet = false);
    QString getCompanyNameByKey(Key key, bool skip = false);
    QDate getFirstEntryDate(); ///< of the companies with a date; invalid for none

    // --- Positions ----------------------------------------------------------------------------------------
    RecordSet getPosition(const QString& company, const QString& title);
    RecordSet getPositionByKey(Key key);
    Key getPositionKey(const QString& title, const QString& company, bool quiet = false);
    QString getPositionNameByKey(Key key, bool skip = false);
    QStringList getPositionNames(const QString& company);
    std::vector<Key> getPositionKeysAll();
    QStringList parsePositionText(Key key, bool full);
    /// The word list of a text, with the effects that the word evaluation counts on.
    static QStringList splitWords(const QString& words);

    // --- Contacts -----------------------------------------------------------------------------------------
    RecordSet getContact(const QString& first, const QString& last);
    QStringList getContactAll();
    QString getContactByKey(Key key, bool skip = false);
    RecordSet getContactDataByKey(Key key);
    Key getContactKey(const QString& first, const QString& last, const QString& company, bool quiet = false);
    Key getContactKeyFull(const QString& name, Key companyKey);
    std::vector<Key> getContactKeys(const QString& company);
    QStringList getContactNames(const QString& company);
    Key getContactCountByCompanyKey(Key key);
    std::vector<Key> getContactKeyFromDocumentKey(Key docKey);

    // --- Addresses, documents -----------------------------------------------------------------------------
    RecordSet getAddress(Key key);
    RecordSet getAddressAll();
    Key getAddressKey(const QString& name);
    RecordSet getDocument(Key key);
    QString getDocumentByKey(Key key);
    Key getDocumentKey(const QString& name, bool quiet = false);
    std::vector<Dox> loadDox();

    // --- Histories, events --------------------------------------------------------------------------------
    Key getHistoryCount(Key contactKey); ///< the running number of the contact's last history
    RecordSet getHistoryByContactKeyCnt(Key key);
    RecordSet getHistoryByContactKey(Key key);
    RecordSet getEventByKey(Key key);
    RecordSet getEventByPositionKey(Key key);
    RecordSet getEventAll(const QString& type = {});
    Key getLastEventAddedKey();

    // --- Profile, targets ---------------------------------------------------------------------------------
    RecordSet getUProfileByKey(Key key);
    RecordSet getUProfile(const QString& title, const QString& subtitle);
    Key getUProfileKey(const QString& title, const QString& subtitle);
    std::vector<Key> getUProfileKeyAll();
    Key getUProfileCount();
    std::vector<Target> getTargets();
    Target getTargetByKey(Key key);
    Target getTargetName(const QString& name);
    Key getTargetCount();

    // --- Questionnaires (type: 0 company, 1 position) -----------------------------------------------------
    QStringList getCQuestions(int type);
    QStringList getPrefAnswers(int type);
    QString getProfileAnswers(bool position, int index, Key key);
    Key getProfileRank(bool position, Key key); ///< -1 without a row
    Key getProfileCount(bool position);         ///< -1 without a row
    Key getAnswerNumber(int index, bool position, Key key);
    QString getAnswers(Key qKey, int type, int number);

    // --- Counting for goals and statistics ----------------------------------------------------------------
    Key getPositionsExpiredCount(Key companyKey);
    RecordSet getProgressCount(const QString& column, QDate from, QDate to);
    Key getProgressDateCount(const QString& step, QDate from, QDate to, int medium = 0);
    Key getNewTableCount(const QString& table, QDate from, QDate to);
    Key getStatusHours(QDate from, QDate to);

    // --- Writing ------------------------------------------------------------------------------------------
    bool writeStatus(const QString& name, const QString& value, bool replace);
    QString getStatusValue(const QString& name, bool quiet = false);
    bool delStatus(const QString& name);
    void delRecord(Key key, const QString& table);
    bool removeRec(const QString& table, const QString& name);
    bool delDox();
    void delContactsByCompany(Key key);
    bool updateCompanySubset(const QString& name, Key oldKey); ///< true only when @p oldKey was 0
    void updateContactSubset(Key newKey, Key oldKey);
    int updateContactList(Key newKey, Key oldKey, const QString& table, int flag);
    /// As updateContactList for each pair of new and old key in order, in time about linear in rows and
    /// pairs; answers the sum of what these calls would.
    int updateContactLists(const std::vector<std::pair<Key, Key>>& newOld, const QString& table);
    int updateDocList(Key newKey, Key oldKey, const QString& table, int flag);

    // --- Backup -------------------------------------------------------------------------------------------
    /// Writes all tables into @p file of the application folder and answers the document's text; empty when
    /// the file could not be written (logged and shown).
    QString createXML(const QString& file, bool restore);
    /// Reads such a file, replacing or merging as its root says. "Did the import complete" is
    /// Session::statusLine() == "Import Complete".
    void importXML(const QString& path);

    // --- Undo ---------------------------------------------------------------------------------------------
    enum class Applied {
        Done,
        NoLongerFits, ///< a row that the changes meet is not what they expect; nothing was changed
        Failed,       ///< logged and shown; nothing was changed
    };
    /// Writes a recorded change set, or what takes it back, in an action of its own; UndoStack is the way to
    /// call it.
    Applied applyChanges(const QByteArray& changes, bool backwards);
    [[nodiscard]] bool isInAction() const;

    /// How many reads have failed so far; ReadWatch is the way to ask.
    [[nodiscard]] int failedReads() const;

    /// Logs a condition or the failure at hand: level 1 to the log only, any other level with a message.
    void logError(const QString& text, int level = 0);

private:
    friend class Action;
    struct Impl;
    std::unique_ptr<Impl> m_impl;
};
