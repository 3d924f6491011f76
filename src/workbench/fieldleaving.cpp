#include "workbench/fieldleaving.h"

#include "base/form.h"
#include "store/session.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

QString say(const char* text)
{
    return QCoreApplication::translate("FieldLeaving", text);
}

bool savesItself(const FieldRow& row)
{
    return row.save == SaveOn::Leave || row.save == SaveOn::Change;
}

bool isUnsaved(const Form& form, const FieldRow& row)
{
    return row.save != SaveOn::Never && form.isDirty(row.control);
}

void leaveFields(const Form& form, const OpenRecord& record)
{
    for (const FieldRow& row : form.rows()) {
        if (savesItself(row) && form.isDirty(row.control)) // one leaving may have written several
            record.leave(row.control);
    }
}

/// True when the record's save is what would bring the rest into the store; a field that saves itself has
/// been tried already.
bool waitsForSave(const Form& form, const OpenRecord& record)
{
    return !record.isStored || record.hasMore || std::ranges::any_of(form.rows(), [&](const FieldRow& row) {
        return row.save == SaveOn::Record && form.isDirty(row.control);
    });
}

Answer askWhetherToSave(Session& session, const OpenRecord& record)
{
    return session.msgBox(say("The changes to %1 have not been saved. Save them?").arg(record.name),
                          Buttons::YesNoCancel, say("Changes not saved"));
}

Answer askWhetherToLose(Session& session)
{
    return session.msgBox(say("A change on this screen could not be saved. Leave it and lose the change?"),
                          Buttons::YesNoDefaultNo, say("Change not saved"));
}

void giveUp(Form& form)
{
    for (const FieldRow& row : form.rows()) {
        if (isUnsaved(form, row))
            form.revert(row.control);
    }
}

} // namespace

bool fieldleaving::hasUnsaved(const Form& form)
{
    return std::ranges::any_of(form.rows(), [&](const FieldRow& row) { return isUnsaved(form, row); });
}

bool fieldleaving::mayLeave(Session& session, Form& form, const OpenRecord& record)
{
    if (record.isStored)
        leaveFields(form, record);
    if (!hasUnsaved(form) && !record.hasMore)
        return true;
    if (waitsForSave(form, record) && record.save) {
        const Answer answer = askWhetherToSave(session, record);
        if (answer == Answer::Yes)
            return record.save();
        if (answer != Answer::No)
            return false;
    } else if (askWhetherToLose(session) != Answer::Yes) {
        return false;
    }
    giveUp(form);
    return true;
}
