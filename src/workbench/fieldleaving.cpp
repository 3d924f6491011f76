#include "workbench/fieldleaving.h"

#include "base/form.h"
#include "store/session.h"

#include <QCoreApplication>
#include <QStringList>

namespace {

/// The fields that save themselves and are not in the store as they are shown.
QStringList unsavedFields(const Form& form)
{
    QStringList controls;
    for (const FieldRow& row : form.rows()) {
        if (row.save == SaveOn::Leave && form.isDirty(row.control))
            controls.append(row.control);
    }
    return controls;
}

QString say(const char* text)
{
    return QCoreApplication::translate("FieldLeaving", text);
}

} // namespace

bool fieldleaving::mayLeave(Session& session, Form& form, const std::function<void(const QString&)>& leave,
                            bool isStored)
{
    if (!isStored)
        return true;
    for (const QString& control : unsavedFields(form)) {
        if (form.isDirty(control)) // one leaving may have written several
            leave(control);
    }
    const QStringList lost = unsavedFields(form);
    if (lost.isEmpty())
        return true;
    const Answer answer =
        session.msgBox(say("A change on this screen could not be saved. Leave it and lose the change?"),
                       Buttons::YesNoDefaultNo, say("Change not saved"));
    if (answer != Answer::Yes)
        return false;
    for (const QString& control : lost)
        form.markClean(control);
    return true;
}
