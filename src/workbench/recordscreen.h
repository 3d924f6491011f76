// What the screens of the workbench that show one record have in common.
#pragma once

#include "base/key.h"
#include "store/record/recordform.h"
#include "store/record/recordreplacement.h"

#include <QObject>

class DataJW;
class Shell;

/// A screen with the fields of one record: they save themselves when they are left, the record is replaced as
/// a whole by its button, and nothing typed goes without a question. The screen says which row it shows and
/// what else of it waits for the save.
class RecordScreen : public QObject
{
    Q_OBJECT

public:
    [[nodiscard]] RecordForm& form() { return m_form; }

    // --- Events of the fields, called by the binder -------------------------------------------------------
    void fieldKeyDown(const QString& control);
    virtual void fieldChanged(const QString& control);
    virtual void fieldLeft(const QString& control);
    /// Before the form takes another record: false when the user stays with what is not in the store yet.
    virtual bool mayLeave();

signals:
    void changed();

protected:
    /// @p kind is the record's, as the status bar says it: "Company". @p shell must outlive the screen.
    RecordScreen(Shell& shell, QString kind, const QString& keyColumn, std::vector<FieldRow> rows);

    [[nodiscard]] DataJW& dataJW() const;
    /// The row that fields save themselves to; 0 when there is none.
    [[nodiscard]] virtual Key rowOfFields() = 0;
    /// A field has saved itself.
    virtual void fieldSaved(const QString&) {}
    [[nodiscard]] virtual QString recordName() const = 0;
    [[nodiscard]] virtual bool showsStored() const = 0; ///< the form is that of a row in the store
    [[nodiscard]] virtual bool hasMoreToSave() const { return false; }
    [[nodiscard]] virtual bool mayBeOffered() const { return true; } ///< the save, in the question
    virtual bool save() = 0;
    virtual void afterLeaving() {}
    /// Runs @p plan, and says so when it was refused.
    RecordReplacement::Outcome replace(const ReplacementPlan& plan);

    Shell& m_shell;
    RecordForm m_form;
    RecordReplacement m_replacement;

private:
    QString m_kind;
};
