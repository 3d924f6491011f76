// The profile screen: fields that save themselves, new items, removal.
#include "assessment/frmuprofile.h"

#include "base/fieldtext.h"
#include "base/text.h"
#include "store/files/storecheck.h"
#include "store/gateway/datajw.h"

using namespace Qt::StringLiterals;

namespace {

/// What the gateway takes at once; the texts of an item travel inside a statement.
constexpr qsizetype longestStatement = 1'000'000;

} // namespace

/// Says in the user's words what the gateway would say about a statement.
bool FrmUProfile::write(const QString& statement)
{
    if (statement.size() <= longestStatement)
        return dataJW().execQuery(statement);
    m_session.msgBox(tr("This text is too long to be saved: Jobwright takes about a million characters at "
                        "once. It stays here as you typed it. Please shorten it, or divide it between two "
                        "items."));
    return false;
}

bool FrmUProfile::writeColumn(const QString& column, const QString& value)
{
    return write(u"Update UProfile set " + column + u'=' + fieldtext::quoted(value) + u" where UprofileKey=" +
                 QString::number(m_key));
}

void FrmUProfile::fieldLeft(const QString& control)
{
    const FieldRow* const row = m_form.row(control);
    if (m_key == 0 || !row || row->save != SaveOn::Leave || !m_form.isDirty(control) ||
        !writeColumn(row->column, text(control)))
        return;
    m_form.markClean(control);
    if (control == u"txtTitle" || control == u"txtSubtitle") {
        m_place.title = text::quoteFix(text(u"txtTitle"_s));
        m_place.subtitle = text::quoteFix(text(u"txtSubtitle"_s));
        rebuildTree();
    }
    if (control == u"txtP" || control == u"txtA" || control == u"txtR")
        showHints();
}

ProfilePlace FrmUProfile::place() const
{
    return {text(u"lvwProfileData"_s), text(u"lvwSubCat"_s), text::quoteFix(text(u"txtTitle"_s)),
            text::quoteFix(text(u"txtSubtitle"_s))};
}

// --- A new item -------------------------------------------------------------------------------------------

void FrmUProfile::cmdSave()
{
    if (m_session.msgBox(tr("Update this Profile?"), Buttons::YesNo) != Answer::Yes)
        return;
    if (m_key != 0) {
        for (const FieldRow& row : m_form.rows())
            fieldLeft(row.control);
        m_form.setText(u"lblEvalStatus"_s, tr("This item is saved with each field that you leave."));
        return;
    }
    if (!mayBeInserted())
        return;
    const ProfilePlace saved = place();
    if (!write(insertStatement()))
        return;
    for (const FieldRow& row : m_form.rows())
        m_form.markClean(row.control);
    rebuildTree();
    tvwUProfileNodeClick(m_tree.find(saved));
}

bool FrmUProfile::mayBeInserted()
{
    if (text(u"txtTitle"_s).isEmpty() || text(u"txtSubtitle"_s).isEmpty()) {
        m_session.msgBox(tr("You must specify a TITLE and SUBTITLE for your profile."));
        return false;
    }
    if (m_form.items(u"lvwSubCat"_s).isEmpty()) {
        m_session.msgBox(tr("You must select a CATEGORY for your profile."));
        return false;
    }
    const QString subtitle = place().subtitle;
    if (m_tree.hasText(subtitle)) {
        m_session.msgBox(
            tr("The profile has “%1” already. Please choose another subtitle, or choose that item "
               "in the tree to change it.")
                .arg(subtitle));
        return false;
    }
    return haveKeys(m_session, {u"UProfile"_s});
}

/// The values stand in the order of the table's columns, the key left out.
QString FrmUProfile::insertStatement()
{
    QStringList columns = dataJW().getFields(u"UProfile"_s);
    columns.removeOne(u"UProfileKey"_s);
    const auto value = [this](const QString& control) { return fieldtext::quoted(text(control)); };
    const QStringList values{value(u"txtTitle"_s),
                             value(u"cmbMonSt"_s),
                             value(u"cmbMonEnd"_s),
                             value(u"lvwProfileData"_s),
                             value(u"txtP"_s),
                             value(u"txtA"_s),
                             value(u"txtR"_s),
                             u"'Index'"_s,
                             u"0"_s,
                             value(u"txtLocation"_s),
                             value(u"txtNotes"_s),
                             value(u"lvwSubCat"_s),
                             value(u"txtSubtitle"_s),
                             value(u"cmbYearSt"_s),
                             value(u"cmbYearEnd"_s),
                             QString(u'\'' + m_session.todayText())};
    return u"INSERT INTO UProfile ( " + columns.join(u',') + u" ) VALUES (" + values.join(u',') + u"');";
}

// --- Removal and clearing ---------------------------------------------------------------------------------

void FrmUProfile::cmdRemove()
{
    if (m_key == 0) {
        m_session.msgBox(tr("Please choose the item in the tree that you want to remove."));
        return;
    }
    const QString question = tr("Are you sure you want to remove this profile from your database.") +
                             text::crlf + m_place.title + u'-' + m_place.subtitle;
    if (m_session.msgBox(question, Buttons::YesNoDefaultNo, tr("Remove Profile")) != Answer::Yes)
        return;
    if (!dataJW().execQuery(u"Delete * from UProfile where UprofileKey=" + QString::number(m_key)))
        return;
    // The category stays in the tree even when it has no other item.
    const QString category = m_place.category;
    empty();
    m_tree.rebuild(dataJW(), category);
    emit changed();
}

void FrmUProfile::cmdClear()
{
    if (!mayLeave())
        return;
    empty();
    m_form.setText(u"txtExample"_s, {});
    m_form.setText(u"lblEvalStatus"_s, {});
    m_evaluation.clear();
    m_form.requestFocus(u"lvwProfileData"_s);
    emit changed();
}
