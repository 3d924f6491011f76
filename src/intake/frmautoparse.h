// The screen that sorts pasted address text: Fast Data Parsing.
#pragma once

#include "base/form.h"
#include "base/ports.h"
#include "intake/cardclassifier.h"
#include "store/session.h"

#include <QObject>

/// Takes a business card line by line, sorts it into the fields of an address, and hands them to the screen
/// that asked, the way the user decides.
class FrmAutoParse : public QObject
{
    Q_OBJECT

public:
    /// What the user decided; screens know it as the mode.
    enum Mode {
        Undecided = 0, ///< the screen was closed without a decision
        Save = 1,      ///< the card's fields take the place of all the caller has
        Merge = 2,     ///< the card's fields fill what the caller has left empty
        Discard = 3    ///< the caller keeps what it has
    };

    explicit FrmAutoParse(Session& session);

    [[nodiscard]] Form& form() { return m_form; }
    [[nodiscard]] Mode mode() const { return m_mode; }

    /// What the screen is opened with.
    struct Request
    {
        QString current; ///< what the caller has, for txtCurrent
        QString company; ///< the name of the company that the street map shows; empty: none
    };
    /// What it brings back: the decision, and the card's fields in their order.
    struct Answer
    {
        Mode mode = Undecided;
        QStringList fields;
    };

    /// Begins a new card. Reads the area codes; without them the failure is shown and no line passes for a
    /// telephone number.
    void load(const Request& request);
    [[nodiscard]] Answer answer() const;

public slots:
    void cmdVerify();   ///< sorts the card
    void cmdSave();     ///< decides for Save
    void cmdMerge();    ///< decides for Merge
    void cmdDiscard();  ///< decides for Discard
    void cmdLocation(); ///< the company's street map

signals:
    /// The user has decided: the screen goes away.
    void hideRequested();

private:
    void decide(Mode mode);
    [[nodiscard]] CardClassifier readAreaCodes();

    Session& m_session;
    Form m_form;
    CardClassifier m_classifier;
    QString m_company;
    Mode m_mode = Undecided;
};

/// The whole call of another screen: opens this one on the texts of @p target's @p controls (in the order of
/// the card's fields) and puts the card's fields into them as the user decides. True when the user took the
/// card over, and the caller should save. @p company as in the request.
bool fillFromCard(Form& target, const CardFields& controls, const QString& company, Navigator& navigator);
