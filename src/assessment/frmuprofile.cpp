// The profile screen: opening, the tree, choosing an item. Editing and evaluating have files of their own.
#include "assessment/frmuprofile.h"

#include "base/fieldtext.h"
#include "base/text.h"
#include "store/gateway/datajw.h"

#include <QLocale>

#include <array>

using namespace Qt::StringLiterals;

namespace {

/// A category with its subcategories, the one it begins with, and what its three texts are about.
struct Category
{
    QString name;
    QString standard;
    QStringList subcategories;
    std::array<const char*, 3> labels;
};

// The names are stored and so are the same in every language; the labels are shown only.
const std::vector<Category>& categories()
{
    static const std::vector<Category> all{
        {u"Education"_s,
         u"Graduate"_s,
         {u"High School"_s, u"Undergraduate"_s, u"Graduate"_s, u"Post-Graduate"_s, u"Certifications"_s,
          u"Training"_s, u"Faculty"_s, u"Other Ed."_s},
         {QT_TRANSLATE_NOOP("FrmUProfile", "Preparation/Training"),
          QT_TRANSLATE_NOOP("FrmUProfile", "Awareness/Focus"),
          QT_TRANSLATE_NOOP("FrmUProfile", "Relevance/Application")}},
        {u"Experience"_s,
         u"Full-Time"_s,
         {u"Full-Time"_s, u"Part-Time"_s, u"Volunteer"_s, u"Temporary"_s, u"Advisory"_s, u"Other Exp."_s},
         {QT_TRANSLATE_NOOP("FrmUProfile", "Problem"), QT_TRANSLATE_NOOP("FrmUProfile", "Action"),
          QT_TRANSLATE_NOOP("FrmUProfile", "Result")}},
        {u"Interests"_s,
         u"Career"_s,
         {u"Avocation"_s, u"Career"_s, u"Family"_s, u"Social"_s, u"Community"_s},
         {QT_TRANSLATE_NOOP("FrmUProfile", "Pursuit/Activity"),
          QT_TRANSLATE_NOOP("FrmUProfile", "Awareness/Focus"),
          QT_TRANSLATE_NOOP("FrmUProfile", "Realization")}},
        {u"Skills"_s,
         u"Technical"_s,
         {u"Technical"_s, u"Managerial"_s, u"People"_s, u"Procedural"_s},
         {QT_TRANSLATE_NOOP("FrmUProfile", "Proficiency"),
          QT_TRANSLATE_NOOP("FrmUProfile", "Acquaintance/Experience"),
          QT_TRANSLATE_NOOP("FrmUProfile", "Realization")}},
    };
    return all;
}

const Category* findCategory(const QString& name)
{
    for (const Category& category : categories()) {
        if (category.name == name)
            return &category;
    }
    return nullptr;
}

std::vector<FieldRow> profileForm()
{
    return {{u"lvwProfileData"_s, u"Category"_s, SaveOn::Change},
            {u"lvwSubCat"_s, u"Subcategory"_s, SaveOn::Change},
            {u"txtTitle"_s, u"Title"_s, SaveOn::Leave},
            {u"txtSubtitle"_s, u"Subtitle"_s, SaveOn::Leave},
            {u"cmbMonSt"_s, u"TimeStart"_s, SaveOn::Leave},
            {u"cmbYearSt"_s, u"TimeStartYear"_s, SaveOn::Leave},
            {u"cmbMonEnd"_s, u"TimeEnd"_s, SaveOn::Leave},
            {u"cmbYearEnd"_s, u"TimeEndYear"_s, SaveOn::Leave},
            {u"txtLocation"_s, u"Location"_s, SaveOn::Leave},
            {u"txtP"_s, u"Function1"_s, SaveOn::Leave},
            {u"txtA"_s, u"Function2"_s, SaveOn::Leave},
            {u"txtR"_s, u"Function3"_s, SaveOn::Leave},
            {u"txtNotes"_s, u"Notes"_s, SaveOn::Leave},
            {u"lblFCT1"_s, {}, SaveOn::Never},
            {u"lblFCT2"_s, {}, SaveOn::Never},
            {u"lblFCT3"_s, {}, SaveOn::Never},
            {u"txtExample"_s, {}, SaveOn::Never},
            {u"rtf"_s, {}, SaveOn::Never},
            {u"lblEvalStatus"_s, {}, SaveOn::Never},
            {u"lblHints"_s, {}, SaveOn::Never},
            {u"chkMark"_s, {}, SaveOn::Never}};
}

/// The names as they are stored, whatever the user's language is.
QStringList months()
{
    QStringList names{QString()};
    for (int month = 1; month <= 12; ++month)
        names.append(QLocale::c().standaloneMonthName(month));
    return names;
}

QStringList years()
{
    QStringList all{QString()};
    for (int year = 1950; year <= 2010; ++year)
        all.append(QString::number(year));
    return all;
}

} // namespace

FrmUProfile::FrmUProfile(Session& session)
    : m_session(session)
    , m_form(profileForm())
    , m_positions({tr("Position"), tr("Word index"), tr("Sentence index")})
    , m_occupations({tr("Occupation")})
    , m_evaluation(session)
{
    m_form.setText(u"chkMark"_s, u"1"_s);
}

FrmUProfile::~FrmUProfile() = default;

void FrmUProfile::load()
{
    m_session.trace(u"Open PAR Profiler"_s);
    QStringList names;
    for (const Category& category : categories())
        names.append(category.name);
    m_form.setItems(u"lvwProfileData"_s, names);
    for (const QString& box : {u"cmbMonSt"_s, u"cmbMonEnd"_s})
        m_form.setItems(box, months());
    for (const QString& box : {u"cmbYearSt"_s, u"cmbYearEnd"_s})
        m_form.setItems(box, years());
    empty();
    rebuildTree();
}

void FrmUProfile::rebuildTree()
{
    m_tree.rebuild(dataJW());
    emit changed();
}

QModelIndex FrmUProfile::currentNode() const
{
    return m_key == 0 ? QModelIndex() : m_tree.find(m_place);
}

// --- Choosing an item -------------------------------------------------------------------------------------

bool FrmUProfile::tvwUProfileNodeClick(const QModelIndex& node)
{
    if (!ProfileTree::isLeaf(node))
        return true; // an inner node leaves the form as it is
    const QString title = m_tree.model().text(node.parent());
    const QString subtitle = m_tree.model().text(node);
    if (!mayLeave()) {
        emit changed();
        return false;
    }
    UserProfile item;
    // Of two items with one title and subtitle the first is found.
    if (const Key key = dataJW().getUProfileKey(text::quoteFix(title), text::quoteFix(subtitle)); key != 0)
        item.loadUProfileFromDatabase(dataJW(), key);
    empty();
    m_key = item.UProfileKey;
    if (!item.uTitle.isEmpty())
        fill(item);
    emit changed();
    return true;
}

void FrmUProfile::fill(const UserProfile& item)
{
    showCategory(item.uCategory);
    m_place = {item.uCategory, item.uSubCategory, item.uTitle, item.uSubTitle};
    // What came in from elsewhere under another name is shown as well.
    QStringList subcategories = m_form.items(u"lvwSubCat"_s);
    if (!item.uSubCategory.isEmpty() && !subcategories.contains(item.uSubCategory))
        m_form.setItems(u"lvwSubCat"_s, subcategories << item.uSubCategory);
    const std::initializer_list<std::pair<QString, QString>> values{
        {u"lvwSubCat"_s, item.uSubCategory}, {u"txtTitle"_s, item.uTitle},
        {u"txtSubtitle"_s, item.uSubTitle},  {u"txtP"_s, item.Function1},
        {u"txtA"_s, item.Function2},         {u"txtR"_s, item.Function3},
        {u"txtLocation"_s, item.Location},   {u"txtNotes"_s, item.Notes},
        {u"cmbMonSt"_s, item.StimeMonth},    {u"cmbMonEnd"_s, item.EtimeMonth},
        {u"cmbYearSt"_s, item.StimeYear},    {u"cmbYearEnd"_s, item.EtimeYear}};
    for (const auto& [control, value] : values)
        m_form.setText(control, fieldtext::toShown(value));
    showHints();
}

/// The subcategories and the three labels of a category; without one the labels are those of Experience.
void FrmUProfile::showCategory(const QString& name)
{
    const Category* const known = findCategory(name);
    m_form.setText(u"lvwProfileData"_s, known ? name : QString());
    m_form.setItems(u"lvwSubCat"_s, known ? known->subcategories : QStringList());
    const Category& labels = known ? *known : categories()[1];
    for (size_t i = 0; i < labels.labels.size(); ++i)
        m_form.setText(u"lblFCT%1"_s.arg(i + 1), tr(labels.labels[i]));
}

void FrmUProfile::empty()
{
    m_key = 0;
    m_place = {};
    for (const FieldRow& row : m_form.rows()) {
        if (!row.column.isEmpty())
            m_form.setText(row.control, {});
    }
    showCategory({});
    m_form.setText(u"lblHints"_s, {});
}

bool FrmUProfile::mayLeave()
{
    bool hasUnsaved = false;
    for (const FieldRow& row : m_form.rows()) {
        if (m_key != 0 && m_form.isDirty(row.control))
            fieldLeft(row.control);
        hasUnsaved = hasUnsaved || (!row.column.isEmpty() && m_form.isDirty(row.control));
    }
    if (!hasUnsaved)
        return true;
    const QString question = m_key == 0 ? tr("This item has not been saved yet. Give up what you typed?")
                                        : tr("A change of this item could not be saved. Give it up?");
    return m_session.msgBox(question, Buttons::YesNoDefaultNo, tr("Changes not saved")) == Answer::Yes;
}

// --- A category of the item -------------------------------------------------------------------------------

void FrmUProfile::fieldChanged(const QString& control)
{
    if (control == u"lvwProfileData")
        categoryChosen();
    else if (control == u"lvwSubCat")
        subcategoryChosen();
    else if (control == u"chkMark" || control == u"txtP" || control == u"txtA" || control == u"txtR")
        emit changed();
}

void FrmUProfile::categoryChosen()
{
    const QString name = text(u"lvwProfileData"_s);
    const Category* const category = findCategory(name);
    if (!category)
        return;
    showCategory(name);
    m_form.edit(u"lvwProfileData"_s, name);
    if (m_key == 0) {
        m_form.amend(u"lvwSubCat"_s, category->standard);
        return;
    }
    Action action(dataJW());
    const bool stored = writeColumn(u"Category"_s, name) && writeColumn(u"Subcategory"_s, category->standard);
    if (!action.commit() || !stored)
        return;
    m_form.setText(u"lvwProfileData"_s, name);
    m_form.setText(u"lvwSubCat"_s, category->standard);
    m_place.category = name;
    m_place.subcategory = category->standard;
    rebuildTree();
}

void FrmUProfile::subcategoryChosen()
{
    const QString name = text(u"lvwSubCat"_s);
    if (m_key == 0 || name.isEmpty() || !writeColumn(u"Subcategory"_s, name))
        return;
    m_form.markClean(u"lvwSubCat"_s);
    m_place.subcategory = name;
    rebuildTree();
}
